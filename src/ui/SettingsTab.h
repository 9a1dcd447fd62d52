#pragma once

#include "Permissions.h"
#include "ScrollColumn.h"

#include "base/Published.h"
#include "skins/Skin.h"

#include <vector>

namespace vexmoor {

class AccentButton;
class Notice;
class SettingRow;
class Settings;

/// The user's six settings, updated in both directions, and notices about missing permissions. Main
/// thread.
class SettingsTab : public ScrollColumn {
    Q_OBJECT

  public:
    /// The settings must outlive it.
    explicit SettingsTab(Settings& settings, QWidget* parent = nullptr);

    /// Sets the skin whose accent is used.
    void setSkin(const Skin& skin);

    /// Sets the current permissions. Cheap if nothing changed.
    void setPermissions(const Permissions& permissions);

  signals:
    void accessibilitySettingsRequested();
    /// The user wants to be asked for consent, or to grant it after denying it.
    void automationRequested();
    /// The user revoked the consent.
    void automationWithdrawn();
    /// The user wants file managers to report the focus.
    void focusReportsRequested();

  protected:
    void changeEvent(QEvent* event) override;

  private:
    void addRow(std::size_t index);
    void refresh();
    void refreshNotices();
    void replaceNotices(std::vector<PermissionNotice> notices);
    void applyRemedy(PermissionNotice::Remedy remedy);
    void recolour();

    Settings& m_settings;
    Skin m_skin;
    Permissions m_permissions;
    std::vector<SettingRow*> m_rows;
    std::vector<PermissionNotice> m_texts; ///< current notices
    std::vector<Notice*> m_notices;
    QVBoxLayout* m_rowColumn;
    QVBoxLayout* m_noticeColumn;
    AccentButton* m_withdraw;
    std::vector<Subscription> m_subscriptions;
};

} // namespace vexmoor
