#include "WindowFrame.h"

#include <QEvent>
#include <QGuiApplication>
#include <QScreen>
#include <QWindow>

#include <algorithm>
#include <array>
#include <locale>
#include <sstream>
#include <utility>

namespace vexmoor {
namespace {

constexpr int kFurthest = 32767; ///< the largest coordinate of an X11 window

/// Returns no margins before the window is shown. QWidget::frameGeometry() may not include them
/// yet.
QMargins frameMargins(const QWidget& window) {
    return window.windowHandle() ? window.windowHandle()->frameMargins() : QMargins();
}

QRect frameOf(const QWidget& window) {
    return window.geometry().marginsAdded(frameMargins(window));
}

const QScreen* screenOf(const QRect& frame) {
    const QScreen* best = QGuiApplication::primaryScreen();
    int most = 0;
    for (const QScreen* const screen : QGuiApplication::screens()) {
        const QSize shared = screen->geometry().intersected(frame).size();
        if (!shared.isEmpty() && shared.width() * shared.height() > most) {
            most = shared.width() * shared.height();
            best = screen;
        }
    }
    return best;
}

/// Returns the frame's corner and the client size.
QRect placeOf(const QWidget& window) {
    return {frameOf(window).topLeft(), window.size()};
}

/// Returns the stored form: "x y width height".
std::string textOf(const QRect& place) {
    std::ostringstream out;
    out.imbue(std::locale::classic());
    out << place.x() << ' ' << place.y() << ' ' << place.width() << ' ' << place.height();
    return out.str();
}

std::optional<QRect> placeFrom(const std::string& text) {
    std::istringstream in(text);
    in.imbue(std::locale::classic());
    std::array<int, 4> numbers{};
    for (int& number : numbers)
        if (!(in >> number) || number < -kFurthest || number > kFurthest)
            return std::nullopt;
    const auto [x, y, width, height] = numbers;
    if (!(in >> std::ws).eof() || width < 1 || height < 1)
        return std::nullopt;
    return QRect(x, y, width, height);
}

} // namespace

QRect fitted(QRect window, const QRect& visible) {
    if (visible.isEmpty())
        return window;
    window.setSize(window.size().boundedTo(visible.size()));
    // The rectangle of allowed corner positions.
    const QRect corners(visible.topLeft(), visible.size() - window.size() + QSize(1, 1));
    window.moveLeft(std::clamp(window.left(), corners.left(), corners.right()));
    window.moveTop(std::clamp(window.top(), corners.top(), corners.bottom()));
    return window;
}

void fitOnScreen(QWidget& window) {
    if (window.windowState() & (Qt::WindowMaximized | Qt::WindowFullScreen))
        return;
    const QRect frame = frameOf(window);
    const QScreen* const screen = screenOf(frame);
    if (!screen)
        return;
    const QRect inside = fitted(frame, screen->availableGeometry());
    if (inside == frame)
        return;
    if (const QMargins margins = frameMargins(window); !margins.isNull()) {
        window.setGeometry(inside.marginsRemoved(margins));
    } else {
        window.resize(inside.size());
        window.move(inside.topLeft()); // position of the frame that the window manager will add
    }
}

WindowFrame::WindowFrame(QWidget& window, UserDefaults& defaults, std::string key)
    : m_window(window), m_defaults(defaults), m_key(std::move(key)) {
    m_soon.setSingleShot(true);
    m_soon.setInterval(500);
    connect(&m_soon, &QTimer::timeout, this, &WindowFrame::fitAndSave);
    m_next.setSingleShot(true); // interval 0: runs after Qt has processed the change
    connect(&m_next, &QTimer::timeout, this, &WindowFrame::fitOnce);
    restore();
    window.installEventFilter(this);
}

WindowFrame::~WindowFrame() {
    if (m_soon.isActive())
        save();
}

void WindowFrame::restore() {
    const auto text = m_defaults.string(m_key);
    if (const auto place = text ? placeFrom(*text) : std::nullopt) {
        m_window.resize(place->size());
        m_window.move(place->topLeft());
    } else {
        m_window.resize(m_window.sizeHint());
        if (const QScreen* const screen = QGuiApplication::primaryScreen())
            m_window.move(screen->availableGeometry().center() - m_window.rect().center());
    }
    fitOnScreen(m_window);
}

void WindowFrame::save() {
    m_soon.stop();
    if (m_window.windowState() & (Qt::WindowMaximized | Qt::WindowFullScreen))
        return;
    const QRect place = placeOf(m_window);
    m_corner = place.topLeft();
    const std::string text = textOf(place);
    if (m_defaults.string(m_key) != text)
        m_defaults.assign(m_key, text);
}

void WindowFrame::fitAndSave() {
    fitOnce();
    save();
}

void WindowFrame::fitOnce() {
    if (!std::exchange(m_fitted, true))
        fitOnScreen(m_window);
}

void WindowFrame::changed() {
    m_soon.start();
    // During reparenting by the window manager, Qt may report a different position.
    if (!frameMargins(m_window).isNull() && frameOf(m_window).topLeft() == m_corner)
        m_next.start();
}

bool WindowFrame::eventFilter(QObject* watched, QEvent* event) {
    const auto type = event->type();
    const bool ofHandle = watched != &m_window;
    if (type == QEvent::Show && !ofHandle) {
        m_fitted = false;
        if (!m_corner)
            m_corner = m_window.pos();
        m_window.windowHandle()->installEventFilter(this);
    } else if (type == QEvent::Hide && !ofHandle) {
        save();
    } else if (m_window.isVisible() &&
               (ofHandle ? type == QEvent::Expose
                         : type == QEvent::Move || type == QEvent::Resize)) {
        changed();
    }
    return QObject::eventFilter(watched, event);
}

} // namespace vexmoor
