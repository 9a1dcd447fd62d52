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

/// The user's six choices, live both ways, and what is missing for them. Main thread.
class SettingsTab : public ScrollColumn {
    Q_OBJECT

  public:
    /// The settings outlive it.
    explicit SettingsTab(Settings& settings, QWidget* parent = nullptr);

    /// For its accent.
    void setSkin(const Skin& skin);

    /// What the program may do now. Cheap if nothing changed.
    void setPermissions(const Permissions& permissions);

  signals:
    void accessibilitySettingsRequested();
    /// The user wants to be asked for the consent or, if it was denied, gives it.
    void automationRequested();
    /// The user takes the consent back.
    void automationWithdrawn();
    /// File managers are to report the focus.
    void focusReportsRequested();

  protected:
    void changeEvent(QEvent* event) override;

  private:
    void addRow(std::size_t index);
    void refresh();
    void refreshNotices();
    void replaceNotices(std::vector<PermissionNotice> notices);
    void mend(PermissionNotice::Remedy remedy);
    void recolour();

    Settings& m_settings;
    Skin m_skin;
    Permissions m_permissions;
    std::vector<SettingRow*> m_rows;
    std::vector<PermissionNotice> m_texts; ///< of the notices
    std::vector<Notice*> m_notices;
    QVBoxLayout* m_rowColumn;
    QVBoxLayout* m_noticeColumn;
    AccentButton* m_withdraw;
    std::vector<Subscription> m_subscriptions;
};

} // namespace vexmoor
