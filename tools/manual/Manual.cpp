#include "Manual.h"

namespace vexmoor {

std::vector<std::string> optionsWithValue() {
    std::vector<std::string> result;
    for (const auto& command : commandDescriptions())
        for (const auto& option : command.options)
            if (option.takesValue())
                for (const auto& name : option.names())
                    result.push_back(std::string(command.name) + " " + name);
    return result;
}

} // namespace vexmoor
