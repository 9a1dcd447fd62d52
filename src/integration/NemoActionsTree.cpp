#include "NemoActionsTree.h"

#include <nlohmann/json.hpp>

#include <functional>

namespace vexmoor {

namespace {

using Json = nlohmann::ordered_json;

constexpr const char* kTop = "toplevel";
constexpr const char* kChildren = "children";
constexpr const char* kKey = "accelerator";
constexpr int kDeepest = 100; ///< maximum nesting, because some functions recurse

/// Returns a null value if the text is not such a document.
Json parsed(const std::string& text) {
    bool isTooDeep = false;
    const auto look = [&](int depth, Json::parse_event_t, Json&) {
        isTooDeep |= depth > kDeepest;
        return true;
    };
    auto document = Json::parse(text, look, false);
    const bool isTree =
        !isTooDeep && document.is_object() && document.contains(kTop) && document[kTop].is_array();
    return isTree ? document : Json();
}

void forEachAction(Json& list, const std::function<void(Json&)>& visit) {
    for (auto& item : list) {
        if (!item.is_object())
            continue;
        visit(item);
        if (item.contains(kChildren) && item[kChildren].is_array())
            forEachAction(item[kChildren], visit);
    }
}

std::string textOf(const Json& item, const char* key) {
    const auto found = item.find(key);
    return found != item.end() && found->is_string() ? found->get<std::string>() : "";
}

/// Returns the position of the bracket that closes the top-level array.
std::size_t endOfTopLevel(const std::string& text) {
    std::string string; ///< the last string at the level of the document's keys
    std::size_t depth = 0;
    bool isInTop = false;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '"') {
            const auto begin = i + 1;
            for (++i; i < text.size() && text[i] != '"'; ++i)
                if (text[i] == '\\')
                    ++i;
            if (depth == 1)
                string = text.substr(begin, i - begin);
        } else if (text[i] == '[' || text[i] == '{') {
            isInTop |= depth == 1 && text[i] == '[' && string == kTop;
            ++depth;
        } else if (text[i] == ']' || text[i] == '}') {
            --depth;
            if (isInTop && depth == 1)
                return i;
        }
    }
    return std::string::npos;
}

std::string dumped(const Json& document, const std::string& text) {
    return document.dump(4) + (text.ends_with('\n') ? "\n" : "");
}

} // namespace

std::string NemoActionsTree::entry() const {
    return R"({"uuid": ")" + m_action +
           R"(", "type": "action", "user-label": null, "user-icon": null, "accelerator": )"
           R"("<Primary>BackSpace"})";
}

std::string NemoActionsTree::blank() const {
    return "{\"toplevel\": []}\n";
}

std::optional<AcceleratorStatus> NemoActionsTree::status(const std::string& text) const {
    auto document = parsed(text);
    if (document.is_null())
        return std::nullopt;
    std::vector<Binding> bindings;
    forEachAction(document[kTop], [&](Json& item) {
        const auto key = textOf(item, kKey);
        if (!key.empty())
            bindings.push_back({textOf(item, "uuid") == m_action, isCtrlBackspace(key)});
    });
    return statusOf(bindings);
}

std::string NemoActionsTree::with(const std::string& text) const {
    auto document = parsed(text);
    bool isThere = false;
    forEachAction(document[kTop], [&](Json& item) {
        if (textOf(item, "uuid") != m_action || isThere)
            return;
        isThere = true;
        item[kKey] = "<Primary>BackSpace";
    });
    if (isThere)
        return dumped(document, text);
    const auto end = endOfTopLevel(text);
    if (end ==
        std::string::npos) { // the key is written with escapes, so text search cannot find it
        document[kTop].push_back(Json::parse(entry()));
        return dumped(document, text);
    }
    std::string result = text;
    return result.insert(end, (document[kTop].empty() ? "" : ", ") + entry());
}

std::string NemoActionsTree::without(const std::string& text) const {
    auto document = parsed(text);
    if (document.is_null())
        return text;
    std::string result = text;
    for (const auto& ours : {", " + entry(), entry()})
        if (const auto at = result.find(ours); at != std::string::npos) {
            result.erase(at, ours.size());
            return parsed(result).is_null() ? text : result;
        }
    bool isChanged = false;
    forEachAction(document[kTop], [&](Json& item) {
        if (textOf(item, "uuid") != m_action || !isCtrlBackspace(textOf(item, kKey)))
            return;
        item[kKey] = nullptr;
        isChanged = true;
    });
    return isChanged ? dumped(document, text) : text;
}

} // namespace vexmoor
