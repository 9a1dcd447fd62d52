#include "AcceleratorText.h"

#include "base/LowerCase.h"

#include <algorithm>

namespace vexmoor {

bool isCtrlBackspace(std::string_view gtkAccelerator) {
    const std::string text = lowercased(gtkAccelerator);
    std::string_view rest = text;
    bool hasControl = false;
    while (rest.starts_with('<')) {
        const auto end = rest.find('>');
        if (end == std::string_view::npos)
            return false;
        const auto modifier = rest.substr(1, end - 1);
        if (modifier != "control" && modifier != "primary" && modifier != "ctrl" &&
            modifier != "ctl")
            return false;
        hasControl = true;
        rest.remove_prefix(end + 1);
    }
    return hasControl && rest == "backspace";
}

AcceleratorStatus statusOf(const std::vector<Binding>& bindings) {
    bool isInstalled = false;
    bool isTaken = false;
    for (const auto& [isOurs, isCtrlBackspace] : bindings) {
        if (isOurs && !isCtrlBackspace)
            return AcceleratorStatus::otherKey;
        isInstalled |= isOurs;
        isTaken |= !isOurs && isCtrlBackspace;
    }
    if (isTaken)
        return AcceleratorStatus::taken;
    return isInstalled ? AcceleratorStatus::installed : AcceleratorStatus::notInstalled;
}

std::vector<std::string_view> linesOf(std::string_view text) {
    std::vector<std::string_view> lines;
    while (!text.empty()) {
        const auto end = std::min(text.find('\n'), text.size() - 1) + 1;
        lines.push_back(text.substr(0, end));
        text.remove_prefix(end);
    }
    return lines;
}

} // namespace vexmoor
