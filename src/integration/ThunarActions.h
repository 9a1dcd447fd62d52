#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace vexmoor {

/// The identifier of our action in Thunar's custom actions.
inline constexpr const char* kThunarActionId = "vexmoor-feed";

/// A file without actions.
inline constexpr const char* kNoThunarActions =
    "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<actions>\n</actions>\n";

/// The text of a uca.xml file, which may contain our action. Keeps all other bytes.
class ThunarActions {
  public:
    /// Returns nullopt if the text is not such an XML file.
    static std::optional<ThunarActions> parse(std::string text);

    /// Returns our action's command as written, with escapes; nullopt if there is none.
    [[nodiscard]] std::optional<std::string_view> command() const;

    /// Returns the text with our action replaced by the element, or with the element appended.
    [[nodiscard]] std::string with(std::string_view element) const;

    /// Returns the text without our action.
    [[nodiscard]] std::string without() const;

    /// Returns the command in an <action> element, as written.
    static std::string_view commandOf(std::string_view element);

  private:
    struct Span {
        std::size_t begin = 0;
        std::size_t end = 0;
    };

    std::string m_text;
    Span m_closing; ///< the root's closing tag, or the whole empty root element
    std::optional<Span> m_ours;
};

} // namespace vexmoor
