#include "SettingsTab.h"

#include "AccentButton.h"
#include "Notice.h"
#include "SettingRow.h"
#include "SettingText.h"
#include "TextStyle.h"

#include "disposal/Settings.h"

#include <QEvent>
#include <QVBoxLayout>

#include <utility>

namespace vexmoor {
namespace {

constexpr int kWidest = 560;
constexpr int kInset = 8; ///< margin of a link's text in its button

} // namespace

SettingsTab::SettingsTab(Settings& settings, QWidget* parent)
    : ScrollColumn(kWidest, kInset, parent), m_settings(settings), m_skin(Skin::iron()),
      m_rowColumn(new QVBoxLayout), m_noticeColumn(new QVBoxLayout),
      m_withdraw(new AccentButton(tr("Don't let Vexmoor ask Finder for the selection"), nullptr,
                                  AccentButton::Kind::link)) {
    setAccessibleName(tr("Settings"));
    column().setContentsMargins(0, 0, 0, 16);
    m_rowColumn->setContentsMargins(kInset - SettingRow::kInset, 0, kInset - SettingRow::kInset, 0);
    m_rowColumn->setSpacing(0);
    column().addLayout(m_rowColumn);
    const auto count = SettingText::all(settings, true).size();
    for (std::size_t index = 0; index < count; ++index)
        addRow(index);
    m_noticeColumn->setSpacing(8);
    m_noticeColumn->setContentsMargins(kInset, 12, kInset, 0);
    column().addLayout(m_noticeColumn);
    column().addWidget(m_withdraw, 0, Qt::AlignLeft);
    column().addStretch();
    connect(m_withdraw, &QPushButton::clicked, this, &SettingsTab::automationWithdrawn);
    const auto refreshed = [this](const auto&) { refresh(); };
    m_subscriptions.push_back(settings.mode.subscribe(refreshed));
    for (const auto& each : Settings::switches())
        m_subscriptions.push_back((settings.*each.setting).subscribe(refreshed));
    recolour();
}

void SettingsTab::addRow(std::size_t index) {
    auto* const row = new SettingRow;
    m_rows.push_back(row);
    m_rowColumn->addWidget(row);
    connect(row, &SettingRow::switched, this, [this, index](bool isOn) {
        const auto setting = SettingText::all(m_settings, true)[index].setting;
        if (setting != nullptr)
            (m_settings.*setting).set(isOn);
        else
            m_settings.mode.set(isOn ? DisposeMode::dissolve : DisposeMode::bin);
    });
}

void SettingsTab::setSkin(const Skin& skin) {
    m_skin = skin;
    recolour();
}

void SettingsTab::setPermissions(const Permissions& permissions) {
    if (permissions == m_permissions)
        return;
    m_permissions = permissions;
    refresh();
}

void SettingsTab::refresh() {
    auto row = m_rows.begin();
    for (const SettingText& text : SettingText::all(m_settings, m_permissions.keyIsPossible)) {
        (*row)->setTexts(text.label, text.caption);
        (*row)->setOn(text.isOn);
        (*row)->setPossible(text.isPossible);
        ++row;
    }
    refreshNotices();
}

void SettingsTab::refreshNotices() {
    m_withdraw->setVisible(m_permissions.keyIsPossible &&
                           m_permissions.automation == AutomationStatus::granted);
    auto notices = PermissionNotice::of(m_permissions, m_settings.captureFinderDelete.get());
    if (notices != m_texts)
        replaceNotices(std::move(notices));
}

void SettingsTab::replaceNotices(std::vector<PermissionNotice> notices) {
    for (Notice* const old : std::exchange(m_notices, {})) {
        old->hide();
        old->deleteLater(); // deferred, because its button may have triggered this
    }
    m_texts = std::move(notices);
    for (const PermissionNotice& text : m_texts) {
        auto* const notice = new Notice(text.text, text.button, m_rows.front()->parentWidget());
        connect(notice, &Notice::buttonPressed, this,
                [this, remedy = text.remedy] { applyRemedy(remedy); });
        m_noticeColumn->addWidget(notice);
        m_notices.push_back(notice);
        notice->show();
    }
}

void SettingsTab::applyRemedy(PermissionNotice::Remedy remedy) {
    switch (remedy) {
    case PermissionNotice::Remedy::accessibilitySettings:
        emit accessibilitySettingsRequested();
        break;
    case PermissionNotice::Remedy::automation:
        emit automationRequested();
        break;
    case PermissionNotice::Remedy::focusReports:
        emit focusReportsRequested();
        break;
    case PermissionNotice::Remedy::none:
        break;
    }
}

void SettingsTab::recolour() {
    const Accent accent = Accent::of(m_skin, groundOf(palette()));
    for (SettingRow* const row : m_rows)
        row->setAccent(accent);
    m_withdraw->setAccent(accent);
}

void SettingsTab::changeEvent(QEvent* event) {
    if (event->type() == QEvent::PaletteChange)
        recolour();
    ScrollColumn::changeEvent(event);
}

} // namespace vexmoor
