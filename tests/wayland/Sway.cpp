#include "Sway.h"

#include "support/Command.h"

#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <sstream>
#include <stdexcept>

namespace vexmoor::test {
namespace {

constexpr uid_t kNobody = 65534;

std::string configuration(const std::vector<std::string>& outputs, const Path& ready) {
    std::string text = "xwayland force\ndefault_border none\ndefault_floating_border none\n";
    for (std::size_t i = 0; i < outputs.size(); ++i)
        text += "output HEADLESS-" + std::to_string(i + 1) + " " + outputs[i] + "\n";
    return text +
           "for_window [app_id=\"(?i)thunar\"] floating enable, resize set 500 400, "
           "move absolute position 20 40\n"
           "exec sh -c 'xhost +local: >/dev/null; echo \"$DISPLAY $WAYLAND_DISPLAY $SWAYSOCK\" >" +
           ready.string() + ".part; mv " + ready.string() + ".part " + ready.string() + "'\n";
}

} // namespace

std::optional<std::string> Sway::missing() {
    for (const char* program : {"sway", "Xwayland", "grim", "setpriv", "xhost"})
        if (!Command::exists(program))
            return program;
    return std::nullopt;
}

Sway::Sway(const std::vector<std::string>& outputs) {
    const Path run = m_folder / "run";
    const Path ready = run / "ready";
    std::filesystem::create_directory(run);
    std::filesystem::permissions(run, std::filesystem::perms::owner_all);
    m_folder.write("config", configuration(outputs, ready));
    std::vector<std::string> words{"sway", "-c", m_folder / "config"};
    if (geteuid() == 0) {
        std::filesystem::permissions(m_folder.path(), std::filesystem::perms(0711));
        if (chown(run.c_str(), kNobody, kNobody) != 0)
            throw std::runtime_error("no folder for sway");
        const auto number = std::to_string(kNobody);
        words.insert(words.begin(),
                     {"setpriv", "--reuid=" + number, "--regid=" + number, "--clear-groups", "--"});
    }
    m_program = std::make_unique<BackgroundProgram>(
        words, BackgroundProgram::Setting{
                   .environment = {{"PATH", std::getenv("PATH")},
                                   {"HOME", run},
                                   {"XDG_RUNTIME_DIR", run},
                                   {"WLR_BACKENDS", "headless"},
                                   {"WLR_HEADLESS_OUTPUTS", std::to_string(outputs.size())},
                                   {"WLR_LIBINPUT_NO_DEVICES", "1"},
                                   {"WLR_RENDERER", "pixman"}},
                   .hasOnlyEnvironment = true,
                   .output = "/dev/null",
                   .errors = "/dev/null"});
    if (!eventually([&] { return std::filesystem::exists(ready); }))
        throw std::runtime_error("sway does not start");
    std::istringstream names(contents(ready));
    std::string x11;
    std::string wayland;
    names >> x11 >> wayland >> m_environment["SWAYSOCK"];
    m_environment["DISPLAY"] = x11;
    m_environment["WAYLAND_DISPLAY"] = run / wayland;
}

std::string Sway::run(std::vector<std::string> words) const {
    const std::string program = words.front();
    Command command(std::move(words));
    for (const auto& [name, value] : m_environment)
        command.with(name, value);
    const Command::Result result = command.with("XDG_RUNTIME_DIR", m_folder / "run").run();
    if (result.status != 0)
        throw std::runtime_error(program + ": " + result.errors + result.output);
    return result.output;
}

std::string Sway::order(const std::string& command) const {
    return run({"swaymsg", "--", command});
}

QImage Sway::picture(const std::string& output) const {
    const std::string png = run({"grim", "-o", output, "-"});
    QImage image;
    if (!image.loadFromData(QByteArray::fromStdString(png), "PNG"))
        throw std::runtime_error("no picture of the screen");
    return image.convertToFormat(QImage::Format_RGB32);
}

void Sway::keepPicture(const std::string& name, const QRect& part,
                       const std::string& output) const {
    const std::filesystem::path folder = VEXMOOR_SCREENSHOT_DIRECTORY;
    std::filesystem::create_directories(folder);
    const QImage whole = picture(output);
    const std::string file = folder / (name + ".png");
    if (!(part.isNull() ? whole : whole.copy(part)).save(QString::fromStdString(file)))
        throw std::runtime_error("cannot write " + file);
}

} // namespace vexmoor::test
