#include "ScopedTimeZone.h"

#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <stdexcept>

namespace vexmoor::test {

ScopedTimeZone::ScopedTimeZone(const std::string& zone) {
    if (!std::filesystem::exists("/usr/share/zoneinfo/" + zone))
        throw std::runtime_error("unknown time zone " + zone);
    if (const char* const before = std::getenv("TZ"))
        m_before = before;
    ::setenv("TZ", zone.c_str(), 1);
    ::tzset();
}

ScopedTimeZone::~ScopedTimeZone() {
    if (m_before)
        ::setenv("TZ", m_before->c_str(), 1);
    else
        ::unsetenv("TZ");
    ::tzset();
}

} // namespace vexmoor::test
