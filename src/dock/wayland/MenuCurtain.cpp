#include "MenuCurtain.h"

#include <QApplication>
#include <QMenu>

#include <algorithm>
#include <chrono>
#include <utility>

namespace vexmoor::wayland {
namespace {

using namespace std::chrono_literals;

constexpr auto kWait =
    150ms; ///< some compositors put the curtain below the tile, where it gets no pointer events

} // namespace

MenuCurtain::MenuCurtain(WaylandConnection& connection, Pointer& pointer)
    : m_connection(connection) {
    m_wait.setSingleShot(true);
    connect(&m_wait, &QTimer::timeout, this, [this] { open(m_expected); });
    connect(&pointer, &Pointer::entered, this, &MenuCurtain::enter);
    connect(&pointer, &Pointer::pressed, this, [this] {
        if (m_isPointerOver)
            press();
    });
    connect(&pointer, &Pointer::left, this, [this] { m_isPointerOver = false; });
    connect(&connection, &WaylandConnection::outputRemoved, this, &MenuCurtain::raise);
}

void MenuCurtain::lower(QPointF expected, bool isExact) {
    m_expected = expected;
    QImage nothing(1, 1, QImage::Format_ARGB32_Premultiplied);
    nothing.fill(Qt::transparent);
    m_pieces.clear();
    for (const WaylandOutput* output : m_connection.outputs()) {
        m_pieces.push_back(
            {output,
             std::make_unique<LayerSurface>(
                 m_connection, output->proxy(), LayerSurface::Input::all, LayerSurface::Area::whole,
                 LayerSurface::Events{.ready = [](QSize) {}, .closed = [] {}, .scaled = {}})});
        m_pieces.back().surface->show(nothing);
    }
    if (isExact)
        open(expected);
    else
        m_wait.start(kWait);
}

void MenuCurtain::raise() {
    m_wait.stop();
    m_pieces.clear();
    m_isPointerOver = false;
}

void MenuCurtain::enter(wl_surface* surface, QPointF at) {
    const auto piece = std::ranges::find(m_pieces, surface,
                                         [](const Piece& one) { return one.surface->surface(); });
    m_isPointerOver = piece != m_pieces.end();
    if (m_isPointerOver && m_wait.isActive())
        open(QPointF(piece->output->logical().topLeft()) + at);
}

/// Opens the menu. The curtain is removed when the menu closes.
void MenuCurtain::open(QPointF at) {
    m_wait.stop();
    emit lowered(at);
    if (auto* const menu = qobject_cast<QMenu*>(QApplication::activePopupWidget()))
        connect(menu, &QMenu::aboutToHide, this, &MenuCurtain::raise, Qt::QueuedConnection);
    else
        raise();
}

void MenuCurtain::press() {
    if (QWidget* const popup = QApplication::activePopupWidget())
        popup->close();
    raise();
}

} // namespace vexmoor::wayland
