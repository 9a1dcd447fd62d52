#include "DolphinShortcuts.h"

#include "base/LowerCase.h"
#include "integration/XmlTags.h"

#include <algorithm>

namespace vexmoor {

namespace {

constexpr std::string_view kAction = "servicemenu_vexmoor-feed.desktop::feedToVexmoor";
constexpr std::string_view kKey = "Ctrl+Backspace";
constexpr std::string_view kGroup = "[General]";
constexpr std::string_view kMark = "# Written by \"vexmoor integrate\", which removes it.\n";
constexpr std::string_view kVersion = "Version=202\n";
constexpr std::string_view kOpening = " <ActionProperties scheme=\"Default\">\n";
constexpr std::string_view kClosing = " </ActionProperties>\n";

std::string entry() {
    return "<Action name=\"" + std::string(kAction) + "\" shortcut=\"" + std::string(kKey) + "\"/>";
}

std::string inOwnLine() {
    return "  " + entry() + "\n";
}

std::string ownBlock() {
    return std::string(kOpening) + inOwnLine() + std::string(kClosing);
}

/// True if our key is one of the keys, which "; " separates.
bool hasOurKey(std::string_view shortcut) {
    const auto keys = lowercased(shortcut);
    std::string_view rest = keys;
    while (!rest.empty()) {
        const auto end = std::min(rest.find(';'), rest.size());
        auto key = rest.substr(0, end);
        while (key.starts_with(' '))
            key.remove_prefix(1);
        if (key == "ctrl+backspace")
            return true;
        rest.remove_prefix(std::min(end + 1, rest.size()));
    }
    return false;
}

/// Returns the tags of a Dolphin shortcut file, or nullopt for any other text.
std::optional<std::vector<XmlTag>> tagsOf(const std::string& text) {
    auto tags = xmlTags(text);
    if (!tags || tags->empty() || lowercased(tags->front().name) != "gui" ||
        tags->front().attribute("name") != "dolphin")
        return std::nullopt;
    return tags;
}

/// Returns the element with the user's shortcuts: the standard scheme, named or unnamed.
const XmlTag* propertiesIn(const std::vector<XmlTag>& tags) {
    const auto found = std::ranges::find_if(tags, [](const XmlTag& tag) {
        const auto scheme = tag.attribute("scheme").value_or("Default");
        return tag.name == "ActionProperties" && !tag.isClosing &&
               (scheme == "Default" || scheme.empty());
    });
    return found == tags.end() ? nullptr : &*found;
}

/// Removes the first occurrence. Returns false if there is none.
bool cut(std::string& text, std::string_view part, std::string_view replacement = {}) {
    const auto at = text.find(part);
    if (at == std::string::npos)
        return false;
    text.replace(at, part.size(), replacement);
    return true;
}

/// Cuts whole lines out wherever they occur.
void cutLines(std::string& text, std::string_view lines) {
    std::size_t at = 0;
    while ((at = text.find(lines, at)) != std::string::npos) {
        if (at > 0 && text[at - 1] != '\n') {
            ++at;
            continue;
        }
        text.erase(at, lines.size());
    }
}

std::string_view withoutBreak(std::string_view line) {
    while (line.ends_with('\n') || line.ends_with('\r') || line.ends_with(' '))
        line.remove_suffix(1);
    return line;
}

bool isGroup(std::string_view line) {
    return line.starts_with('[');
}

} // namespace

std::string DolphinShortcuts::blank() const {
    return "<gui name=\"dolphin\" version=\"1\">\n</gui>\n";
}

std::optional<AcceleratorStatus> DolphinShortcuts::status(const std::string& text) const {
    const auto tags = tagsOf(text);
    if (!tags)
        return std::nullopt;
    std::vector<Binding> bindings;
    for (const auto& tag : *tags) {
        const auto shortcut = tag.attribute("shortcut");
        if (tag.name == "Action" && shortcut)
            bindings.push_back({tag.attribute("name") == kAction, hasOurKey(*shortcut)});
    }
    return statusOf(bindings);
}

std::string DolphinShortcuts::with(const std::string& text) const {
    const auto tags = tagsOf(text);
    std::string result = text;
    const auto* const properties = propertiesIn(*tags);
    if (properties == nullptr && tags->front().isEmpty)
        return result.replace(tags->front().end - 2, 2, ">" + ownBlock() + "</gui>");
    if (properties == nullptr)
        return result.insert(tags->back().begin, ownBlock());
    if (properties->isEmpty)
        return result.replace(properties->end - 2, 2, ">" + entry() + "</ActionProperties>");
    return result.insert(properties->end, "\n" + inOwnLine().substr(0, inOwnLine().size() - 1));
}

std::string DolphinShortcuts::without(const std::string& text) const {
    std::string result = text;
    const auto inserted = "\n" + inOwnLine().substr(0, inOwnLine().size() - 1);
    if (cut(result, ">" + ownBlock() + "</gui>", "/>") || cut(result, ownBlock()) ||
        cut(result, ">" + entry() + "</ActionProperties>", "/>") || cut(result, inserted))
        return result;
    const auto tags = tagsOf(text);
    if (!tags)
        return text;
    for (const auto& tag : *tags) // in the form in which Dolphin writes it
        if (tag.name == "Action" && tag.isEmpty && tag.attribute("name") == kAction &&
            lowercased(tag.attribute("shortcut").value_or("")) == lowercased(kKey)) {
            const auto begin = text.find_last_not_of(" \t\r\n", tag.begin - 1) + 1;
            return result.erase(begin, tag.end - begin);
        }
    return text;
}

std::optional<AcceleratorStatus> DolphinProfile::status(const std::string& text) const {
    if (text.find('\0') != std::string::npos)
        return std::nullopt;
    bool isGeneral = false;
    for (const auto line : linesOf(text)) {
        if (isGroup(line))
            isGeneral = withoutBreak(line) == kGroup;
        else if (isGeneral && (line.starts_with("Version=") || line.starts_with("Version[")))
            return AcceleratorStatus::installed;
    }
    return AcceleratorStatus::notInstalled;
}

std::string DolphinProfile::with(const std::string& text) const {
    std::string result;
    bool isWritten = false;
    for (const auto line : linesOf(text)) {
        if (isGroup(line) && !isWritten && withoutBreak(line) == kGroup && line.ends_with('\n')) {
            result.append(line).append(kMark).append(kVersion);
            isWritten = true;
            continue;
        }
        result += line;
    }
    if (isWritten)
        return result;
    // Insert before the first group, so that no key moves into another group.
    std::size_t at = 0;
    for (const auto line : linesOf(text)) {
        if (isGroup(line))
            break;
        at += line.size();
    }
    const bool lacksBreak = at > 0 && text[at - 1] != '\n';
    return text.substr(0, at) + (lacksBreak ? "\n" : "") + std::string(kMark) +
           std::string(kGroup) + "\n" + std::string(kVersion) + text.substr(at);
}

std::string DolphinProfile::without(const std::string& text) const {
    std::string result = text;
    cutLines(result, std::string(kMark) + std::string(kGroup) + "\n" + std::string(kVersion));
    cutLines(result, std::string(kMark) + std::string(kVersion));
    return result;
}

} // namespace vexmoor
