#include "Sway.h"
#include "VirtualPointer.h"

#include "support/Command.h"
#include "support/PrivateBus.h"

#include "skins/Skin.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <sstream>
#include <thread>
#include <utility>

namespace vexmoor {
namespace {

using namespace test;
using testing::HasSubstr;

/// Waits at a user's pace.
void pause(int milliseconds) {
    std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds));
}

int countOf(const QImage& picture, QRgb colour) {
    int count = 0;
    for (int y = 0; y < picture.height(); ++y)
        for (int x = 0; x < picture.width(); ++x)
            count += picture.pixel(x, y) == colour ? 1 : 0;
    return count;
}

/// Returns the topmost pixel that is not white.
std::optional<QPoint> firstInk(const QImage& picture) {
    for (int y = 0; y < picture.height(); ++y)
        for (int x = 0; x < picture.width(); ++x)
            if (picture.pixel(x, y) != 0xffffffff)
                return QPoint(x, y);
    return std::nullopt;
}

/// The built program and native file managers on sway.
struct ProgramOnSwayTest : testing::Test {
    void SetUp() override {
        if (const auto absent = Sway::missing())
            GTEST_SKIP() << *absent << " is not installed";
        sway.emplace();
        pointer.emplace(sway->display(), QSize(1280, 800), pause);
        environment = sway->environment();
        environment.insert({{"HOME", home.path()},
                            {"PATH", std::getenv("PATH")},
                            {"XDG_RUNTIME_DIR", home / "run"},
                            {"XDG_SESSION_TYPE", "wayland"},
                            {"XDG_CURRENT_DESKTOP", "sway"},
                            {"LC_ALL", "C.UTF-8"},
                            {"PULSE_SERVER", "unix:/nonexistent"},
                            {"GDK_BACKEND", "wayland"},
                            {"GSETTINGS_BACKEND", "memory"},
                            {"GVFS_DISABLE_FUSE", "1"},
                            {"GIO_USE_VOLUME_MONITOR", "unix"}});
        for (const char* name : {"ASAN_OPTIONS", "LSAN_OPTIONS", "TSAN_OPTIONS"})
            if (const char* const value = std::getenv(name))
                environment[name] = value;
        std::filesystem::create_directory(home / "run");
        std::filesystem::permissions(home / "run", std::filesystem::perms::owner_all);
        chooseServices();
        bus.emplace(home / "services", environment);
        environment["DBUS_SESSION_BUS_ADDRESS"] = bus->address();
        run({"gdbus", "call", "--session", "--dest", "org.a11y.Bus", "--object-path",
             "/org/a11y/bus", "--method", "org.freedesktop.DBus.Properties.Set", "org.a11y.Status",
             "IsEnabled", "<true>"});
    }

    void chooseServices() const {
        std::filesystem::create_directory(home / "services");
        for (const auto& entry :
             std::filesystem::directory_iterator("/usr/share/dbus-1/services")) {
            const std::string name = entry.path().filename();
            if (name.starts_with("org.a11y") || name.starts_with("org.xfce.Xfconf") ||
                name.starts_with("org.gtk.vfs.Daemon"))
                std::filesystem::create_symlink(entry.path(), home / "services" / name);
        }
    }

    [[nodiscard]] Command command(std::vector<std::string> words,
                                  const BackgroundProgram::Environment& changes = {}) const {
        Command made(std::move(words));
        made.withNothingElse();
        for (const auto& [name, value] : environment)
            made.with(name, value);
        for (const auto& [name, value] : changes)
            made.with(name, value);
        return made;
    }
    std::string run(std::vector<std::string> words) const {
        const auto result = command(std::move(words)).run();
        if (result.status != 0)
            throw std::runtime_error(result.errors);
        return result.output;
    }
    [[nodiscard]] std::unique_ptr<BackgroundProgram>
    start(const std::vector<std::string>& words,
          const BackgroundProgram::Environment& changes = {}) const {
        auto all = environment;
        for (const auto& [name, value] : changes)
            all[name] = value;
        return std::make_unique<BackgroundProgram>(
            words, BackgroundProgram::Setting{.environment = all, .hasOnlyEnvironment = true});
    }

    /// Returns the tile's frame as reported by --probe, in pixels, y down; nullopt until it is
    /// shown.
    [[nodiscard]] std::optional<QRect> tile() const {
        const std::string text = run({VEXMOOR_DESKTOP_PROGRAM, "--probe"});
        const auto at = text.find("tile");
        double x = 0;
        double y = 0;
        double width = 0;
        double height = 0;
        std::string numbers = at == std::string::npos ? "" : text.substr(at, text.find('\n', at));
        for (char& c : numbers)
            if ((c < '0' || c > '9') && c != '.' && c != '-')
                c = ' ';
        if (!(std::istringstream(numbers) >> x >> y >> width >> height))
            return std::nullopt;
        return QRectF(x, 800 - y - height, width, height).toRect();
    }
    void startProgram(const BackgroundProgram::Environment& changes = {}) {
        program = start({VEXMOOR_DESKTOP_PROGRAM, "--background"}, changes);
        ASSERT_TRUE(eventually([this] { return tile().has_value(); }))
            << "the tile does not appear";
    }
    /// Opens a native Thunar on a folder with one file. Returns the point where a drag of the file
    /// starts.
    [[nodiscard]] QPoint showThunar() {
        const QRect files(200, 150, 300, 200); // within its folder view
        thunar = start({"thunar", home / "Things"});
        std::optional<QPoint> file;
        const auto isShown = [&] {
            const QImage picture = sway->picture().copy(files);
            const auto before = std::exchange(file, firstInk(picture));
            constexpr int kMostOfIt = 50000;
            return file && file == before && countOf(picture, 0xffffffff) > kMostOfIt;
        };
        EXPECT_TRUE(eventually(isShown)) << "Thunar does not show the file";
        return files.topLeft() + file.value_or(QPoint()) + QPoint(10, 20);
    }
    [[nodiscard]] bool burnsAbove(const QRect& place) const {
        const Pixel pixel = Skin::iron().acid;
        return eventually([&] {
            return countOf(sway->picture().copy(place.translated(0, -place.height())),
                           qRgb(pixel.r, pixel.g, pixel.b)) > 60;
        });
    }

    TemporaryDirectory home;
    std::optional<Sway> sway;
    std::optional<VirtualPointer> pointer;
    BackgroundProgram::Environment environment;
    std::optional<PrivateBus> bus;
    std::unique_ptr<BackgroundProgram> program;
    std::unique_ptr<BackgroundProgram> thunar;
};

TEST_F(ProgramOnSwayTest, BurnsDropsOfANativeFileManagerAndStaysBelowFullscreenWindows) {
    const Path file = home.write("Things/Eye of newt ü.txt", "boiling");
    startProgram();
    const QRect place = tile().value();
    const QPoint from = showThunar();
    const QImage before = sway->picture().copy(place);
    pointer->dragTo(from, place.center());
    EXPECT_TRUE(eventually([&] { return sway->picture().copy(place) != before; }))
        << "the tile shows no drop ring";
    sway->keepPicture("sway-hover", place.adjusted(-100, -100, 40, 0));
    pointer->release();
    EXPECT_TRUE(burnsAbove(place));
    sway->keepPicture("sway-flames");
    EXPECT_TRUE(eventually([&] { return !std::filesystem::exists(file); }));
    EXPECT_THAT(run({VEXMOOR_PROGRAM, "history"}), HasSubstr("Eye of newt"));

    const Pixel acid = Skin::iron().acid;
    const auto brew = [&] {
        return countOf(sway->picture().copy(place), qRgb(acid.r, acid.g, acid.b));
    };
    EXPECT_GT(brew(), 0);
    sway->order("[app_id=\"(?i)thunar\"] fullscreen enable");
    EXPECT_TRUE(eventually([&] { return brew() == 0; })) << "the tile is above a fullscreen window";
    sway->keepPicture("sway-fullscreen");
}

TEST_F(ProgramOnSwayTest, OpensItsMenuAtThePointerAndItsWindowByAClick) {
    startProgram();
    const QRect place = tile().value();
    const QImage desktop = sway->picture();
    const QRect above(place.center() - QPoint(60, 160), QSize(120, 100));
    pointer->click(place.center(), VirtualPointer::Button::right);
    EXPECT_TRUE(eventually([&] { return sway->picture().copy(above) != desktop.copy(above); }));
    pause(300);
    sway->keepPicture("sway-menu");
    pointer->click({300, 300});
    EXPECT_TRUE(eventually([&] { return sway->picture().copy(above) == desktop.copy(above); }));
    pointer->click(place.center());
    EXPECT_TRUE(
        eventually([&] { return sway->tree().find("org.vexmoor.Vexmoor") != std::string::npos; }));
    pause(500);
    sway->keepPicture("sway-window");
}

TEST_F(ProgramOnSwayTest, ReportsAMissingXwayland) {
    const auto result =
        command({VEXMOOR_DESKTOP_PROGRAM, "--background"}, {{"DISPLAY", ":987"}}).run();
    EXPECT_EQ(result.status, 3);
    EXPECT_THAT(result.errors, HasSubstr("this Wayland session has no XWayland"));
    EXPECT_THAT(result.errors, HasSubstr("Install the package xwayland"));
}

} // namespace
} // namespace vexmoor
