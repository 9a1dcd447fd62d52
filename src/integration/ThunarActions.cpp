#include "ThunarActions.h"

#include "integration/XmlTags.h"

#include <vector>

namespace vexmoor {

namespace {

constexpr std::string_view kSpace = " \t\r\n";
constexpr auto kNone = std::string_view::npos;

std::string_view trimmed(std::string_view text) {
    const auto first = text.find_first_not_of(kSpace);
    return first == kNone ? std::string_view()
                          : text.substr(first, text.find_last_not_of(kSpace) - first + 1);
}

std::string_view between(std::string_view text, std::string_view opening,
                         std::string_view closing) {
    const auto begin = text.find(opening);
    if (begin == kNone)
        return {};
    text.remove_prefix(begin + opening.size());
    return text.substr(0, text.find(closing));
}

} // namespace

/// Finds our action and the end of the root element.
std::optional<ThunarActions> ThunarActions::parse(std::string text) {
    ThunarActions actions;
    actions.m_text = std::move(text);
    const std::string_view all = actions.m_text;
    const auto tags = xmlTags(all);
    if (!tags || tags->front().name != "actions")
        return std::nullopt;
    std::vector<const XmlTag*> open;
    bool isOurs = false;
    for (const auto& tag : *tags) {
        if (!tag.isClosing) {
            if (!tag.isEmpty)
                open.push_back(&tag);
            continue;
        }
        const auto& opening = *open.back();
        open.pop_back();
        if (open.size() == 2 && tag.name == "unique-id")
            isOurs = trimmed(all.substr(opening.end, tag.begin - opening.end)) == kThunarActionId;
        if (open.size() == 1 && tag.name == "action") {
            if (isOurs)
                actions.m_ours = Span{opening.begin, tag.end};
            isOurs = false;
        }
    }
    actions.m_closing = {tags->back().begin, tags->back().end};
    return actions;
}

std::optional<std::string_view> ThunarActions::command() const {
    if (!m_ours)
        return std::nullopt;
    return commandOf(std::string_view(m_text).substr(m_ours->begin, m_ours->end - m_ours->begin));
}

std::string ThunarActions::with(std::string_view element) const {
    std::string text = m_text;
    if (m_ours)
        return text.replace(m_ours->begin, m_ours->end - m_ours->begin, element);
    const auto inserted = std::string(element) + "\n";
    if (text[m_closing.begin + 1] == '/')
        return text.insert(m_closing.begin, inserted);
    return text.replace(m_closing.begin, m_closing.end - m_closing.begin,
                        "<actions>\n" + inserted + "</actions>");
}

std::string ThunarActions::without() const {
    std::string text = m_text;
    if (!m_ours)
        return text;
    const auto end = m_ours->end + (text[m_ours->end] == '\n' ? 1 : 0);
    return text.erase(m_ours->begin, end - m_ours->begin);
}

std::string_view ThunarActions::commandOf(std::string_view element) {
    return trimmed(between(element, "<command>", "</command>"));
}

} // namespace vexmoor
