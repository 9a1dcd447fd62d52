#include "app/AppDelegate.h"
#include "app/Appearance.h"
#include "app/Description.h"
#include "app/EndRequests.h"
#include "app/PotIcon.h"
#include "app/Probe.h"
#include "app/Start.h"

#include "base/Text.h"
#include "base/UserLocale.h"
#include "dock/NativeWindow.h"
#include "dock/TileChoice.h"
#include "ui/GettextTranslator.h"

#include <QApplication>
#include <QIcon>
#include <QWindow>

#include <algorithm>
#include <clocale>
#include <iostream>
#include <optional>

namespace {

using namespace vexmoor;

constexpr int kUsage = 2;
constexpr int kRefused = 3; ///< refused, or a requirement is missing
constexpr const char* kPlatform = "QT_QPA_PLATFORM";

int runProbe(const ApplicationService& service, const QDBusConnection& bus) {
    const auto answer = service.forwardProbe();
    std::cout << answer
                     .value_or(probeText(AccessibilityBus(bus).askNow(), std::nullopt,
                                         SessionScreens().frames()))
                     .toStdString();
    return std::cout.flush() ? 0 : 1;
}

int runDescribe(const ApplicationService& service) {
    const auto answer = service.forwardDescribe();
    std::cout << (answer ? answer->toStdString() : describeSession(std::nullopt));
    return std::cout.flush() ? 0 : 1;
}

int run(const LaunchOptions& options) {
    const auto bus = QDBusConnection::sessionBus();
    ApplicationService service(bus);
    if (options.probe)
        return runProbe(service, bus);
    if (options.describe)
        return runDescribe(service);
    const Appearance appearance(bus);
    Start start(service, options);
    const auto outcome = start.begin();
    if (outcome != Start::Outcome::running)
        return outcome == Start::Outcome::forwarded ? 0 : kRefused;
    const auto stores = start.takeStores();
    AppDelegate delegate(*stores, service, bus);
    const EndRequests ends;
    QObject::connect(&ends, &EndRequests::endRequested, &delegate, &AppDelegate::quit);
    // In the event loop, so that its dialogs react to a request to quit.
    QMetaObject::invokeMethod(
        &delegate, [&] { delegate.finishLaunching(options); }, Qt::QueuedConnection);
    return QApplication::exec();
}

/// Selects X11, which the program's windows require; under Wayland that is XWayland.
void choosePlatform() {
    if (!qEnvironmentVariableIsSet(kPlatform))
        qputenv(kPlatform, "xcb");
}

/// The window class is the application name at the time of the first window; it must match the
/// desktop entry. Screen readers speak the display name.
void nameApplication() {
    QApplication::setApplicationName(QLatin1String(ApplicationService::kName));
    QWindow().create();
    QApplication::setApplicationName(QStringLiteral("Vexmoor"));
}

enum class Missing { nothing, xwayland, display };

/// Returns why windows cannot be shown.
Missing missingDisplay() {
    if (qgetenv(kPlatform) != "xcb" || native::displayAnswers())
        return Missing::nothing;
    return compositorAnswers() ? Missing::xwayland : Missing::display;
}

std::string sentenceOf(Missing missing) {
    if (missing == Missing::xwayland)
        return text("vexmoor-desktop: this Wayland session has no XWayland, which the cauldron's "
                    "windows need. Install the package xwayland, switch XWayland on in the "
                    "compositor's settings and log in again. The command line works without it: "
                    "see 'vexmoor --help'.");
    return text("vexmoor-desktop: there is no display to show the cauldron on. The command line "
                "works without one: see 'vexmoor --help'.");
}

int reportMissing(Missing missing, const LaunchOptions& options) {
    if (options.describe) {
        std::cout << describeMissing(missing == Missing::xwayland ? "noXwayland" : "noDisplay");
        return std::cout.flush() ? 0 : 1;
    }
    std::cerr << sentenceOf(missing) << "\n";
    return kRefused;
}

} // namespace

int main(int argc, char** argv) {
    useUserLocale();
    std::error_code gone; // without a working directory, relative paths are invalid
    auto options = LaunchOptions::fromArguments({argv + std::min(argc, 1), argv + argc},
                                                std::filesystem::current_path(gone));
    options.startup =
        qgetenv("DESKTOP_STARTUP_ID").toStdString(); // before Qt removes it from the environment
    if (!options.unknown.empty()) {
        std::cerr << text("vexmoor-desktop: there is no option %1. Try 'vexmoor-desktop --help'.",
                          {options.unknown})
                  << "\n";
        return kUsage;
    }
    if (options.help || options.version) {
        std::cout << (options.help ? LaunchOptions::helpText()
                                   : "vexmoor-desktop " VEXMOOR_VERSION "\n");
        return std::cout.flush() ? 0 : 1;
    }
    choosePlatform();
    if (const auto missing = missingDisplay(); missing != Missing::nothing)
        return reportMissing(missing, options);
    QApplication application(argc, argv);
    std::setlocale(LC_NUMERIC,
                   "C"); // Qt sets the user's locale; files and JSON need the C locale's numbers
    installTranslators();
    nameApplication();
    QApplication::setDesktopFileName(QLatin1String(ApplicationService::kName));
    QApplication::setQuitOnLastWindowClosed(false);
    QIcon::setFallbackThemeName(QStringLiteral("Adwaita"));
    QApplication::setWindowIcon(
        QIcon::fromTheme(QLatin1String(ApplicationService::kName), potIcon()));
    return run(options);
}
