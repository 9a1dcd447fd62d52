#include "DesktopPreferences.h"

#include "AsyncCall.h"

#include <QDBusArgument>
#include <QDBusServiceWatcher>
#include <QMap>
#include <QStringList>
#include <QVariantMap>

namespace vexmoor {
namespace {

constexpr int kTimeoutMilliseconds = 5000; ///< the portal may have to start first

const QString kService = QStringLiteral("org.freedesktop.portal.Desktop");
const QString kPath = QStringLiteral("/org/freedesktop/portal/desktop");
const QString kInterface = QStringLiteral("org.freedesktop.portal.Settings");

const QString kAppearance = QStringLiteral("org.freedesktop.appearance");
const QString kGnome = QStringLiteral("org.gnome.desktop.interface");
const QString kKde = QStringLiteral("org.kde.kdeglobals.KDE");
const QStringList kGroups = {kAppearance, kGnome, kKde};

using Groups = QMap<QString, QVariantMap>;

ColorScheme schemeFrom(const QVariant& value) {
    switch (value.toUInt()) {
    case 1:
        return ColorScheme::dark;
    case 2:
        return ColorScheme::light;
    default:
        return ColorScheme::noPreference;
    }
}

/// Checks the setting of each desktop and the portal's newer common one.
bool wantsReducedMotion(const Groups& groups) {
    const QVariant duration = groups[kKde].value(QStringLiteral("AnimationDurationFactor"));
    bool isNumber = false;
    const double factor = duration.toString().toDouble(&isNumber);
    return groups[kAppearance].value(QStringLiteral("reduced-motion")).toUInt() == 1 ||
           !groups[kGnome].value(QStringLiteral("enable-animations"), true).toBool() ||
           (isNumber && factor <= 0);
}

} // namespace

DesktopPreferences::DesktopPreferences(const QDBusConnection& session, QObject* parent)
    : QObject(parent), m_session(session) {
    m_session.connect({}, kPath, kInterface, QStringLiteral("SettingChanged"), this,
                      SLOT(settingChanged(QDBusMessage)));
    auto* const watcher = new QDBusServiceWatcher(kService, m_session,
                                                  QDBusServiceWatcher::WatchForRegistration, this);
    connect(watcher, &QDBusServiceWatcher::serviceRegistered, this, &DesktopPreferences::ask);
    ask();
}

/// Reads the settings again instead of trusting the signal, which any program could send.
void DesktopPreferences::settingChanged(const QDBusMessage& signal) {
    if (kGroups.contains(signal.arguments().value(0).toString()))
        ask();
}

void DesktopPreferences::ask() {
    const QDBusMessage call =
        QDBusMessage::createMethodCall(kService, kPath, kInterface, QStringLiteral("ReadAll"))
        << kGroups;
    callAsync(
        m_session, call, this, [this](const QDBusMessage& answer) { take(answer); },
        kTimeoutMilliseconds);
}

void DesktopPreferences::take(const QDBusMessage& answer) {
    if (!isAnswer(answer) || answer.signature() != QStringLiteral("a{sa{sv}}"))
        return;
    const auto groups = qdbus_cast<Groups>(answer.arguments().value(0).value<QDBusArgument>());
    const Values values{schemeFrom(groups[kAppearance].value(QStringLiteral("color-scheme"))),
                        wantsReducedMotion(groups)};
    if (values == m_values)
        return;
    m_values = values;
    emit changed(m_values);
}

} // namespace vexmoor
