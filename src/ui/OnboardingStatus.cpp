#include "OnboardingStatus.h"

#include "AccentButton.h"
#include "FolderBadge.h"
#include "SymbolText.h"
#include "TextStyle.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QVBoxLayout>

namespace vexmoor {
namespace {

QLabel* makeLine(QWidget* parent) {
    auto* const label = new QLabel(parent);
    label->setTextFormat(Qt::PlainText);
    label->setAlignment(Qt::AlignHCenter | Qt::AlignTop);
    label->setWordWrap(true);
    return label;
}

QString fromText(const std::string& text) {
    return QString::fromStdString(text);
}

void showText(QLabel* label, const std::string& text) {
    label->setText(fromText(text));
    label->setVisible(!text.empty());
}

} // namespace

OnboardingStatus::OnboardingStatus(QWidget* parent)
    : QWidget(parent), m_tick(new SymbolText(this)), m_note(makeLine(this)), m_line(makeLine(this)),
      m_badges(new QWidget(this)), m_link(new AccentButton({}, this, AccentButton::Kind::link)),
      m_caption(makeLine(this)) {
    auto* const column = new QVBoxLayout(this);
    column->setContentsMargins({});
    column->setSpacing(4);
    column->addWidget(m_tick);
    column->addWidget(m_note);
    column->addWidget(m_line);
    column->addWidget(m_badges, 0, Qt::AlignHCenter);
    column->addWidget(m_link, 0, Qt::AlignHCenter);
    column->addWidget(m_caption);
    column->addStretch();
    auto* const row = new QHBoxLayout(m_badges);
    row->setContentsMargins({});
    row->setSpacing(8);
    connect(m_link, &QPushButton::clicked, this, &OnboardingStatus::linkClicked);
    setStatus({});
    recolour();
}

void OnboardingStatus::setStatus(const Onboarding::Status& status) {
    const bool badgesChanged = status.badges != m_status.badges;
    m_status = status;
    m_tick->setVisible(status.tick.has_value());
    if (status.tick)
        m_tick->setSymbolText(status.tick->ok ? Symbol::checkCircle : Symbol::circle,
                              fromText(status.tick->text));
    showText(m_note, status.tick ? status.tick->note.value_or(std::string()) : std::string());
    showText(m_line, status.line);
    showText(m_caption, status.caption);
    m_link->setText(fromText(status.link));
    m_link->setVisible(!status.link.empty());
    m_badges->setVisible(!status.badges.empty());
    if (badgesChanged)
        showBadges(status.badges);
    recolour();
}

void OnboardingStatus::showBadges(const std::vector<Onboarding::Badge>& badges) {
    qDeleteAll(m_badges->findChildren<FolderBadge*>());
    for (const auto& badge : badges) {
        auto* const label = new FolderBadge(fromText(badge.name), badge.ok, m_accent, m_badges);
        m_badges->layout()->addWidget(label);
        label->show(); // a child added to a visible widget starts hidden
    }
}

void OnboardingStatus::setAccent(const Accent& accent) {
    m_accent = accent;
    m_link->setAccent(accent);
    showBadges(m_status.badges);
}

QString OnboardingStatus::spokenText() const {
    QStringList parts;
    for (const auto* label : findChildren<QLabel*>())
        if (!label->isHidden() && !label->text().isEmpty())
            parts << label->text();
    return parts.join(QStringLiteral(". "));
}

void OnboardingStatus::recolour() {
    const QColor ground = groundOf(palette());
    m_tick->setSymbolColour(m_status.tick && m_status.tick->ok ? allowedColour(ground)
                                                               : secondaryText(palette()));
    QPalette faint = palette();
    faint.setColor(QPalette::WindowText, secondaryText(palette()));
    for (QLabel* const label : {m_note, m_caption}) {
        label->setPalette(faint);
        label->setFont(textFont(font(), 12));
    }
    m_line->setFont(textFont(font(), 13, QFont::Medium));
}

void OnboardingStatus::changeEvent(QEvent* event) {
    if (event->type() == QEvent::PaletteChange || event->type() == QEvent::FontChange)
        recolour();
    QWidget::changeEvent(event);
}

} // namespace vexmoor
