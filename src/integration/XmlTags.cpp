#include "XmlTags.h"

#include "base/Path.h"

#include <array>
#include <utility>

namespace vexmoor {

namespace {

constexpr std::string_view kSpace = " \t\r\n";
constexpr auto kNone = std::string_view::npos;

/// Returns the end of a construct without tags at `at`, nullopt if a tag begins there, or kNone if
/// the construct is not closed.
std::optional<std::size_t> endOfOther(std::string_view text, std::size_t at) {
    const auto rest = text.substr(at);
    const auto behind = [&](std::string_view ending) {
        const auto found = text.find(ending, at);
        return found == kNone ? kNone : found + ending.size();
    };
    if (rest.starts_with("<!--"))
        return behind("-->");
    if (rest.starts_with("<![CDATA["))
        return behind("]]>");
    if (rest.starts_with("<?"))
        return behind("?>");
    if (rest.starts_with("<!"))
        return behind(rest.find('[') < rest.find('>') ? "]>" : ">");
    return std::nullopt;
}

/// Returns the position after the tag's closing ">". Skips ">" in quoted values.
std::size_t endOfTag(std::string_view text, std::size_t at) {
    char quote = '\0';
    for (; at < text.size(); ++at) {
        const char c = text[at];
        if (quote != '\0')
            quote = c == quote ? '\0' : quote;
        else if (c == '"' || c == '\'')
            quote = c;
        else if (c == '>')
            return at + 1;
    }
    return kNone;
}

XmlTag tagAt(std::string_view text, std::size_t begin, std::size_t end) {
    XmlTag tag;
    tag.begin = begin;
    tag.end = end;
    auto inside = text.substr(begin + 1, end - begin - 2);
    tag.isClosing = inside.starts_with('/');
    if (tag.isClosing)
        inside.remove_prefix(1);
    tag.isEmpty = inside.ends_with('/');
    if (tag.isEmpty)
        inside.remove_suffix(1);
    tag.name = inside.substr(0, inside.find_first_of(kSpace));
    tag.inside = inside.substr(tag.name.size());
    return tag;
}

std::string decoded(std::string_view text) {
    constexpr std::array<std::pair<std::string_view, char>, 5> kEntities{
        {{"&lt;", '<'}, {"&gt;", '>'}, {"&quot;", '"'}, {"&apos;", '\''}, {"&amp;", '&'}}};
    std::string result;
    while (!text.empty()) {
        std::size_t taken = 1;
        char c = text.front();
        for (const auto& [entity, meaning] : kEntities)
            if (text.starts_with(entity)) {
                taken = entity.size();
                c = meaning;
            }
        result += c;
        text.remove_prefix(taken);
    }
    return result;
}

} // namespace

std::optional<std::string> XmlTag::attribute(std::string_view attribute) const {
    auto rest = inside;
    for (;;) {
        const auto equals = rest.find('=');
        const auto opening = rest.find_first_of("\"'", equals);
        if (equals == kNone || opening == kNone)
            return std::nullopt;
        const auto closing = rest.find(rest[opening], opening + 1);
        if (closing == kNone)
            return std::nullopt;
        auto found = rest.substr(0, equals);
        found.remove_prefix(std::min(found.find_first_not_of(kSpace), found.size()));
        found = found.substr(0, found.find_first_of(kSpace));
        if (found == attribute)
            return decoded(rest.substr(opening + 1, closing - opening - 1));
        rest.remove_prefix(closing + 1);
    }
}

std::optional<std::vector<XmlTag>> xmlTags(std::string_view text) {
    if (!isValidUtf8(text) || text.find('\0') != kNone)
        return std::nullopt;
    std::vector<XmlTag> tags;
    std::vector<std::string_view> open;
    std::size_t at = 0;
    while ((at = text.find('<', at)) != kNone) {
        if (const auto end = endOfOther(text, at)) {
            if (*end == kNone)
                return std::nullopt;
            at = *end;
            continue;
        }
        const auto end = endOfTag(text, at);
        if (end == kNone)
            return std::nullopt;
        const auto tag = tagAt(text, at, end);
        at = end;
        const bool isBehindRoot = open.empty() && !tags.empty();
        if (tag.name.empty() || isBehindRoot || (tag.isClosing && tag.isEmpty) ||
            (tag.isClosing && (open.empty() || open.back() != tag.name)))
            return std::nullopt;
        tags.push_back(tag);
        if (tag.isClosing)
            open.pop_back();
        else if (!tag.isEmpty)
            open.push_back(tag.name);
    }
    return open.empty() && !tags.empty() ? std::optional(std::move(tags)) : std::nullopt;
}

} // namespace vexmoor
