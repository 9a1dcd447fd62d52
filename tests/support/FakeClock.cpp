#include "FakeClock.h"

#include <ctime>
#include <stdexcept>

namespace vexmoor::test {

Date utc(const std::string& text) {
    std::tm parts{};
    const char* const end = ::strptime(text.c_str(), "%Y-%m-%d %H:%M:%S", &parts);
    if (end == nullptr || *end != '\0')
        throw std::invalid_argument("not a moment: " + text);
    return Date::fromUnix(static_cast<double>(::timegm(&parts)));
}

} // namespace vexmoor::test
