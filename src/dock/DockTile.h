#pragma once

#include "Accessibility.h"
#include "DeskRect.h"
#include "Screens.h"

#include <QStringList>

#include <functional>
#include <span>

namespace vexmoor {

/// Finds the position of the application's own tile on the screen.
class DockTile {
  public:
    /// The ports must outlive this object.
    DockTile(const Accessibility& accessibility, const Screens& screens,
             QString name = QStringLiteral("Vexmoor"));

    /// Returns the tile's frame, or nullopt if it cannot be found. Walks the tree on each call,
    /// because the tile can move.
    [[nodiscard]] std::optional<DeskRect> frame() const;

    /// A program that shows a desktop's accessibility settings.
    struct Panel {
        const char* desktop; ///< name in XDG_CURRENT_DESKTOP
        const char* program;
        const char* argument; ///< may be null
    };
    static std::span<const Panel> panels();

    /// Starts a program. Returns false if it does not exist or fails.
    using Start = std::function<bool(const QString& program, const QStringList& arguments)>;

    /// Opens the accessibility settings: those of the current desktop if installed, otherwise any
    /// installed ones. Returns false if there are none.
    static bool openSettings();
    static bool openSettings(const QString& currentDesktop, const Start& start);

  private:
    const Accessibility& m_accessibility;
    const Screens& m_screens;
    QString m_name;
};

} // namespace vexmoor
