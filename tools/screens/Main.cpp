#include "Stage.h"

#include "base/UserLocale.h"
#include "ui/GettextTranslator.h"
#include "ui/Motion.h"

#include <QApplication>
#include <QIcon>
#include <QProcess>
#include <QTemporaryFile>
#include <QWidget>

#include <algorithm>
#include <clocale>
#include <iostream>

// vexmoor-screens FOLDER [SCENE...]: renders every window, or those whose names start so, light and
// dark, at 1, 1.5 and 2 pixels per point, in English and German. Scale and language are per
// process, so it starts itself for each combination.

namespace {

using namespace vexmoor;

constexpr const char* kScale = "QT_SCALE_FACTOR";
constexpr const char* kRendering = "VEXMOOR_SCREENS_LANGUAGE";

int renderAll(const QStringList& arguments) {
    const QStringList wanted = arguments.mid(2);
    const std::filesystem::path folder = std::filesystem::path(arguments.at(1).toStdString()) /
                                         qEnvironmentVariable(kRendering).toStdString();
    const double scale = qEnvironmentVariable(kScale).toDouble();
    bool isComplete = true;
    for (const screens::Scene& scene : screens::scenes()) {
        const bool isWanted = std::ranges::any_of(wanted, [&scene](const QString& beginning) {
            return QString(scene.name).startsWith(beginning);
        });
        if (!wanted.isEmpty() && !isWanted)
            continue;
        for (const bool isDark : {false, true}) {
            screens::Stage stage(folder, isDark, scale);
            const auto window = scene.make(stage);
            isComplete &= stage.picture(*window, scene.name, scene.size);
        }
    }
    return isComplete ? 0 : 1;
}

/// Configures Qt's offscreen platform with a display that no popup exceeds.
void describeDisplay(QTemporaryFile& file) {
    file.open();
    file.write(R"({"screens": [{"name": "tall", "x": 0, "y": 0, "width": 4000, "height": 4000,
                "logicalDpi": 96, "logicalBaseDpi": 96, "dpr": 1}]})");
    file.flush();
}

int startForEach(const QStringList& arguments) {
    int result = 0;
    QTemporaryFile display;
    describeDisplay(display);
    for (const char* const language : {"en", "de"}) {
        for (const char* const scale : {"1", "1.5", "2"}) {
            QProcess process;
            auto environment = QProcessEnvironment::systemEnvironment();
            environment.insert(kScale, scale);
            environment.insert(kRendering, language);
            environment.insert("LANGUAGE", language);
            environment.insert("LC_ALL", language == QString("de") ? "de_DE.UTF-8" : "C.UTF-8");
            environment.insert("TZ", "UTC");
            environment.insert("QT_QPA_PLATFORM", "offscreen:configfile=" + display.fileName());
            process.setProcessEnvironment(environment);
            process.setProcessChannelMode(QProcess::ForwardedChannels);
            process.start(QCoreApplication::applicationFilePath(), arguments.mid(1));
            process.waitForFinished(-1);
            if (process.exitStatus() != QProcess::NormalExit || process.exitCode() != 0) {
                std::cerr << "vexmoor-screens: pictures are missing (" << language << ", " << scale
                          << "x)\n";
                result = 1;
            }
        }
    }
    return result;
}

} // namespace

int main(int argc, char* argv[]) {
    QStringList arguments;
    for (int index = 0; index < argc; ++index)
        arguments << QString::fromLocal8Bit(argv[index]);
    if (arguments.size() < 2) {
        std::cerr << "usage: vexmoor-screens FOLDER [SCENE...]\n";
        return 2;
    }
    if (qEnvironmentVariableIsSet(kRendering)) {
        useUserLocale();
        const QApplication application(argc, argv);
        std::setlocale(LC_NUMERIC, "C"); // Qt set the user's locale
        installTranslators();
        QIcon::setFallbackThemeName(QStringLiteral("Adwaita"));
        setReducedMotion(true); // pictures show the final state of animations
        return renderAll(arguments);
    }
    const QCoreApplication application(argc, argv);
    return startForEach(arguments);
}
