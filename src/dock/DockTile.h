#pragma once

#include "Accessibility.h"
#include "DeskRect.h"
#include "Screens.h"

#include <QStringList>

#include <functional>
#include <span>

namespace vexmoor {

/// Finds where the application's own tile is on the screen.
class DockTile {
  public:
    /// The ports must outlive this.
    DockTile(const Accessibility& accessibility, const Screens& screens,
             QString name = QStringLiteral("Vexmoor"));

    /// The tile's frame; nothing where it cannot be found, for whatever reason. Walks the tree
    /// afresh each time, so that a tile that moved is followed.
    [[nodiscard]] std::optional<DeskRect> frame() const;

    /// A program that shows a desktop's accessibility settings.
    struct Panel {
        const char* desktop; ///< as XDG_CURRENT_DESKTOP names it
        const char* program;
        const char* argument; ///< null without one
    };
    static std::span<const Panel> panels();

    /// Starts a program with its arguments; false where there is no such program or it fails.
    using Start = std::function<bool(const QString& program, const QStringList& arguments)>;

    /// Opens the accessibility settings: those of the desktop in use before any other that is
    /// installed. False where there are none.
    static bool openSettings();
    static bool openSettings(const QString& currentDesktop, const Start& start);

  private:
    const Accessibility& m_accessibility;
    const Screens& m_screens;
    QString m_name;
};

} // namespace vexmoor
