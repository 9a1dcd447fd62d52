#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vexmoor {

/// A tag of an XML text, which must outlive it.
struct XmlTag {
    std::string_view name;
    std::string_view inside; ///< what stands behind the name
    std::size_t begin = 0;
    std::size_t end = 0; ///< one behind ">"
    bool isClosing = false;
    bool isEmpty = false; ///< "<name/>"

    /// The attribute's value with its entities decoded; nullopt if there is none.
    [[nodiscard]] std::optional<std::string> attribute(std::string_view attribute) const;
};

/// All tags of a document, in order; nullopt if they do not match each other, if there is not
/// exactly one root, or if the text is not UTF-8.
std::optional<std::vector<XmlTag>> xmlTags(std::string_view text);

} // namespace vexmoor
