#include "CliTest.h"

#include <algorithm>
#include <cstdlib>

namespace vexmoor::test {

CliTest::CliTest() : m_program(VEXMOOR_PROGRAM) {
    std::filesystem::create_directories(m_files);
}

Command CliTest::vexmoor(std::vector<std::string> arguments) const {
    arguments.insert(arguments.begin(), m_program);
    return program(std::move(arguments));
}

Command::Result CliTest::run(std::vector<std::string> arguments) const {
    return vexmoor(std::move(arguments)).run();
}

Json CliTest::json(std::vector<std::string> arguments) const {
    const auto result = run(std::move(arguments));
    auto document = Json::parse(result.output, nullptr, false);
    EXPECT_FALSE(document.is_discarded()) << result.output << result.errors;
    return document;
}

Command CliTest::program(std::vector<std::string> arguments) const {
    Command command(std::move(arguments));
    command.in(m_files).withNothingElse();
    for (const auto& [name, value] :
         std::map<std::string, std::string>{{"HOME", m_home},
                                            {"XDG_DATA_HOME", m_data},
                                            {"XDG_CONFIG_HOME", m_config},
                                            {"XDG_CONFIG_DIRS", m_home / "system"},
                                            {"XDG_RUNTIME_DIR", m_scratch / "run"},
                                            {"PATH", "/usr/bin:/bin"},
                                            {"LANG", "C.UTF-8"},
                                            {"TERM", "xterm"},
                                            {"TZ", "UTC"}})
        command.with(name, value);
    return command;
}

Path CliTest::make(const std::string& name, std::string_view bytes) const {
    return m_scratch.write(Path("home/files") / name, bytes);
}

std::vector<std::string> CliTest::makeItems(std::size_t count) const {
    std::vector<std::string> names;
    for (std::size_t i = 0; i < count; ++i) {
        const auto number = std::to_string(i);
        names.push_back("item-" + std::string(3 - std::min<std::size_t>(number.size(), 3), '0') +
                        number);
        make(names.back());
    }
    return names;
}

bool CliTest::isThere(const std::string& name) const {
    return std::filesystem::exists(std::filesystem::symlink_status(m_files / name));
}

std::vector<std::string> CliTest::binned() const {
    return namesIn(m_data / "Trash/files");
}

std::vector<std::string> namesIn(const Path& folder) {
    std::vector<std::string> names;
    std::error_code code;
    for (const auto& entry : std::filesystem::directory_iterator(folder, code))
        names.push_back(entry.path().filename());
    std::ranges::sort(names);
    return names;
}

} // namespace vexmoor::test
