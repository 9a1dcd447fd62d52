#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace vexmoor {

/// The identifier of our action among Thunar's custom actions.
inline constexpr const char* kThunarActionId = "vexmoor-feed";

/// A file with no action.
inline constexpr const char* kNoThunarActions =
    "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<actions>\n</actions>\n";

/// The text of a uca.xml, in which one action may be ours. All else keeps every byte.
class ThunarActions {
  public:
    /// nullopt if the text is not the XML of such a file.
    static std::optional<ThunarActions> parse(std::string text);

    /// The command of our action as it stands there, escapes and all; nullopt if there is none.
    [[nodiscard]] std::optional<std::string_view> command() const;

    /// The text with our action replaced by the element, or with the element as the last action.
    [[nodiscard]] std::string with(std::string_view element) const;

    /// The text without our action.
    [[nodiscard]] std::string without() const;

    /// The command in an <action> element, as `command()` has it.
    static std::string_view commandOf(std::string_view element);

  private:
    struct Span {
        std::size_t begin = 0;
        std::size_t end = 0;
    };

    std::string m_text;
    Span m_closing; ///< the tag that ends the root, or the whole of an empty one
    std::optional<Span> m_ours;
};

} // namespace vexmoor
