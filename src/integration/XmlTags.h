#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vexmoor {

/// A tag in an XML text. The text must outlive it.
struct XmlTag {
    std::string_view name;
    std::string_view inside; ///< the text after the name
    std::size_t begin = 0;
    std::size_t end = 0; ///< position after ">"
    bool isClosing = false;
    bool isEmpty = false; ///< "<name/>"

    /// Returns the attribute's decoded value, or nullopt if there is none.
    [[nodiscard]] std::optional<std::string> attribute(std::string_view attribute) const;
};

/// Returns all tags in document order, or nullopt if they do not match, if there is not exactly one
/// root, or if the text is not UTF-8.
std::optional<std::vector<XmlTag>> xmlTags(std::string_view text);

} // namespace vexmoor
