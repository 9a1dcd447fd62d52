#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QObject>

namespace vexmoor {

enum class ColorScheme { noPreference, dark, light };

/// The user's desktop-wide preferences, read from the settings portal and kept up to date. Never
/// blocks on the portal; without a portal the values keep their defaults. Main thread.
class DesktopPreferences : public QObject {
    Q_OBJECT

  public:
    struct Values {
        ColorScheme colorScheme = ColorScheme::noPreference;
        bool reducedMotion = false;
        bool operator==(const Values&) const = default;
    };

    /// Requests the values; they arrive as a change.
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
