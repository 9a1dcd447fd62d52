#include "Desk.h"

#include "support/PaintRoot.h"

#include "dock/linux/X11Connection.h"

#include <QPainter>
#include <QScreen>

#include <filesystem>
#include <regex>
#include <stdexcept>

namespace vexmoor::test {
namespace {

int noArguments = 1;
char programName[] = "vexmoor";
char* programNames[] = {programName, nullptr};

} // namespace

Desk::Desk(const Setting& setting) : session(setting.size), m_background(setting.background) {
    qputenv("QT_SCALE_FACTOR", QByteArray::number(setting.scale));
    qputenv("QT_SCALE_FACTOR_ROUNDING_POLICY", "PassThrough");
    application = std::make_unique<QApplication>(noArguments, programNames);
    compositor = std::make_unique<Compositor>();
    if (setting.compositor)
        startCompositor();
    paintRoot(x11::connection(), setting.background.rgb());
    tile = std::make_unique<TileWindow>(defaults, *compositor);
}

Desk::~Desk() = default;

void Desk::startCompositor() {
    session.startCompositor();
    if (!eventuallyInLoop([this] { return compositor->isRunning(); }))
        throw std::runtime_error("the compositor did not start");
}

void Desk::endCompositor() {
    session.endCompositor();
    if (!eventuallyInLoop([this] { return !compositor->isRunning(); }))
        throw std::runtime_error("the compositor did not end");
}

bool Desk::showTile(const PixelCanvas& icon) {
    tile->setIcon(icon);
    tile->show();
    // A compositor paints a little after it takes the selection.
    return eventuallyInLoop([this] { return colourAroundPot() == m_background; });
}

QColor Desk::colourAroundPot() const {
    return screen().pixelColor(serverGeometry(*tile).topLeft() + QPoint(1, 1));
}

QImage Desk::screen() const {
    QImage image = QGuiApplication::primaryScreen()->grabWindow(0).toImage();
    image.setDevicePixelRatio(1);
    return image.convertToFormat(QImage::Format_RGB32);
}

void Desk::keepPicture(const QString& name, const QRect& part) const {
    const std::filesystem::path folder = VEXMOOR_SCREENSHOT_DIRECTORY;
    std::filesystem::create_directories(folder);
    const QString file = QString::fromStdString(folder / (name.toStdString() + ".png"));
    if (!screen().copy(part).save(file))
        throw std::runtime_error("cannot write " + file.toStdString());
}

std::string Desk::output(std::vector<std::string> words) {
    return Command(std::move(words)).run().output;
}

void Desk::mouse(std::vector<std::string> orders) {
    orders.insert(orders.begin(), "xdotool");
    const Command::Result result = Command(orders).run();
    if (result.status != 0)
        throw std::runtime_error("xdotool: " + result.errors);
}

std::string Desk::idOf(const QWidget& window) {
    return std::to_string(window.winId());
}

QRect serverGeometry(const QWidget& window) {
    const std::string text = Desk::output({"xwininfo", "-id", Desk::idOf(window)});
    const auto number = [&text](const std::string& label) {
        std::smatch match;
        if (!std::regex_search(text, match, std::regex(label + R"(:\s*(-?\d+))")))
            throw std::runtime_error("xwininfo says: " + text);
        return std::stoi(match[1]);
    };
    return {number("Absolute upper-left X"), number("Absolute upper-left Y"), number("Width"),
            number("Height")};
}

} // namespace vexmoor::test
