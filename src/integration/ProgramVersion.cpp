#include "ProgramVersion.h"

#include "platform/Processes.h"

#include <cerrno>
#include <charconv>

namespace vexmoor {

std::optional<ProgramVersion> firstVersionIn(std::string_view text) {
    constexpr std::string_view kDigits = "0123456789";
    while (true) {
        const auto begin = text.find_first_of(kDigits);
        if (begin == std::string_view::npos)
            return std::nullopt;
        text.remove_prefix(begin);
        const char* const last = text.data() + text.size();
        ProgramVersion version;
        const auto [dot, majorError] = std::from_chars(text.data(), last, version.major);
        if (majorError == std::errc() && dot != last && *dot == '.') {
            const auto [end, error] = std::from_chars(dot + 1, last, version.minor);
            if (error == std::errc() && end != dot + 1 && version.minor >= 0)
                return version;
        }
        text.remove_prefix(std::min(text.find_first_not_of(kDigits), text.size()));
    }
}

Result<ProgramVersion> versionOf(const Path& program, const std::vector<std::string>& environment,
                                 std::chrono::milliseconds limit) {
    const auto output = outputOf(program, {"--version"}, environment, limit);
    if (!output)
        return output.error();
    const auto version = firstVersionIn(*output);
    return version ? Result(*version) : Error::fromErrno(ENODATA, "read the version of", program);
}

} // namespace vexmoor
