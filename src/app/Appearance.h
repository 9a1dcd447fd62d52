#pragma once

#include "desktopbus/DesktopPreferences.h"

namespace vexmoor {

/// Applies the desktop's preferences to all windows as long as it exists: light or dark, and
/// reduced motion. Main thread.
class Appearance : public QObject {
    Q_OBJECT

  public:
    explicit Appearance(const QDBusConnection& session);

  private:
    DesktopPreferences m_preferences;
};

} // namespace vexmoor
