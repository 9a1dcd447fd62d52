#include "Doctor.h"

#include "base/Text.h"

#include <gnu/libc-version.h>
#include <sqlite3.h>
#include <sys/utsname.h>

#include <fstream>

namespace vexmoor {

namespace {

/// Returns the system's name from os-release; empty if there is none.
std::string systemName() {
    for (const char* const file : {"/etc/os-release", "/usr/lib/os-release"}) {
        std::ifstream lines(file);
        for (std::string line; std::getline(lines, line);) {
            constexpr std::string_view kKey = "PRETTY_NAME=";
            if (!line.starts_with(kKey))
                continue;
            std::string name = line.substr(kKey.size());
            std::erase_if(name, [](char c) { return c == '"' || c == '\''; });
            return name;
        }
    }
    return "";
}

std::string kernel() {
    utsname names{};
    return ::uname(&names) == 0
               ? std::string(names.sysname) + " " + names.release + " " + names.machine
               : std::string();
}

} // namespace

DoctorTopic doctorVersions(const DoctorContext& context) {
    const auto desktop = context.desktopText("/version");
    const auto qt = context.desktopText("/qt");
    const std::string sqlite = ::sqlite3_libversion();
    const std::string libc = ::gnu_get_libc_version();
    const auto system = systemName();
    const auto systemKernel = kernel();
    return {.key = "versions",
            .title = text("Versions"),
            .json = {{"vexmoor", VEXMOOR_VERSION},
                     {"desktop", desktop},
                     {"qt", qt},
                     {"sqlite", sqlite},
                     {"libc", libc},
                     {"system", system},
                     {"kernel", systemKernel}},
            .lines = {{"vexmoor", VEXMOOR_VERSION},
                      {"vexmoor-desktop",
                       desktop.empty() ? text("not installed, or silent") : desktop + ", Qt " + qt},
                      {text("Libraries"), "SQLite " + sqlite + ", libc " + libc},
                      {text("System"), system},
                      {text("Kernel"), systemKernel}}};
}

} // namespace vexmoor
