#include "Screens.h"

#include <QGuiApplication>
#include <QScreen>

namespace vexmoor {

std::vector<DeskRect> SessionScreens::frames() const {
    std::vector<DeskRect> frames;
    const QScreen* const primary = QGuiApplication::primaryScreen();
    for (const QScreen* screen : QGuiApplication::screens())
        frames.push_back(deskRect(screen->geometry(), primary->geometry()));
    return frames;
}

} // namespace vexmoor
