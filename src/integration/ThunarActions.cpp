#include "ThunarActions.h"

#include <vector>

namespace vexmoor {

namespace {

constexpr std::string_view kRoot = "actions";
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

/// Walks over the tags; what holds no tags (comments, CDATA, instructions, the document type) is
/// passed over.
class ThunarActions::Reader {
  public:
    explicit Reader(ThunarActions& actions) : m_actions(actions), m_text(actions.m_text) {}

    bool read() {
        while ((m_next = m_text.find('<', m_next)) != kNone)
            if (!readMarkup())
                return false;
        return m_isComplete;
    }

  private:
    bool readMarkup() {
        const auto rest = m_text.substr(m_next);
        if (rest.starts_with("<!--"))
            return skipPast("-->");
        if (rest.starts_with("<![CDATA["))
            return skipPast("]]>");
        if (rest.starts_with("<?"))
            return skipPast("?>");
        if (rest.starts_with("<!"))
            return skipPast(rest.find('[') < rest.find('>') ? "]>" : ">");
        return readTag();
    }

    bool skipPast(std::string_view ending) {
        const auto found = m_text.find(ending, m_next);
        m_next = found + ending.size();
        return found != kNone;
    }

    bool readTag() {
        const auto begin = m_next;
        if (!skipPast(">"))
            return false;
        const Span span{begin, m_next};
        auto inner = m_text.substr(begin + 1, m_next - begin - 2);
        const bool closes = inner.starts_with('/');
        const bool isEmpty = inner.ends_with('/');
        if (closes)
            inner.remove_prefix(1);
        const auto name = inner.substr(0, inner.find_first_of(" \t\r\n/"));
        if (name.empty() || (closes && isEmpty) || m_isComplete)
            return false;
        if (closes)
            return close(name, span);
        if (m_open.empty() && name != kRoot)
            return false;
        m_open.push_back({name, span});
        return !isEmpty || close(name, span);
    }

    bool close(std::string_view name, Span span) {
        if (m_open.empty() || m_open.back().name != name)
            return false;
        const Span opening = m_open.back().span;
        m_open.pop_back();
        if (m_open.empty()) {
            m_actions.m_closing = span;
            m_isComplete = true;
        } else if (m_open.size() == 1 && name == "action") {
            if (m_isOurs)
                m_actions.m_ours = Span{opening.begin, span.end};
            m_isOurs = false;
        } else if (m_open.size() == 2 && name == "unique-id") {
            const auto id =
                m_text.substr(opening.end, span.begin - std::min(span.begin, opening.end));
            m_isOurs = trimmed(id) == kThunarActionId;
        }
        return true;
    }

    struct Element {
        std::string_view name;
        Span span;
    };

    ThunarActions& m_actions;
    std::string_view m_text;
    std::size_t m_next = 0;
    std::vector<Element> m_open;
    bool m_isOurs = false;
    bool m_isComplete = false;
};

std::optional<ThunarActions> ThunarActions::parse(std::string text) {
    ThunarActions actions;
    actions.m_text = std::move(text);
    if (!Reader(actions).read())
        return std::nullopt;
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
