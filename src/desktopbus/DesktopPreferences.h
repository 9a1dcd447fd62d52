#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QObject>

namespace vexmoor {

enum class ColorScheme { noPreference, dark, light };

/// What the user chose for the whole desktop, read from the settings portal and followed while the
/// program runs. Nothing waits for the portal; without one there are no preferences. Main thread.
class DesktopPreferences : public QObject {
    Q_OBJECT

  public:
    struct Values {
        ColorScheme colorScheme = ColorScheme::noPreference;
        bool reducedMotion = false;
        bool operator==(const Values&) const = default;
    };

    /// Asks at once; the answer arrives as a change.
    explicit DesktopPreferences(const QDBusConnection& session, QObject* parent = nullptr);

    [[nodiscard]] const Values& values() const { return m_values; }

  signals:
    void changed(const vexmoor::DesktopPreferences::Values& values);

  private slots:
    void settingChanged(const QDBusMessage& signal);

  private:
    void ask();
    void take(const QDBusMessage& answer);

    QDBusConnection m_session;
    Values m_values;
};

} // namespace vexmoor
