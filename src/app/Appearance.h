#pragma once

#include "desktopbus/DesktopPreferences.h"

namespace vexmoor {

/// Gives all windows the look that the user chose for the desktop, light or dark and with or
/// without motion, as long as it lives. Main thread.
class Appearance : public QObject {
    Q_OBJECT

  public:
    explicit Appearance(const QDBusConnection& session);

  private:
    DesktopPreferences m_preferences;
};

} // namespace vexmoor
