#include "OnboardingView.h"

#include "AccentButton.h"
#include "OnboardingPicture.h"
#include "OnboardingStatus.h"
#include "PageDots.h"
#include "TextStyle.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QVBoxLayout>

#include <algorithm>

namespace vexmoor {
namespace {

constexpr QSize kSize(420, 440); ///< with the default font size
constexpr int kMargin = 28;
constexpr int kStatusHeight = 100;

QLabel* makeText(QWidget* parent) {
    auto* const label = new QLabel(parent);
    label->setTextFormat(Qt::PlainText);
    label->setAlignment(Qt::AlignHCenter | Qt::AlignTop);
    label->setWordWrap(true);
    return label;
}

} // namespace

OnboardingView::OnboardingView(Onboarding::Ports ports, const Skin& skin,
                               const MakeFrameTimer& makeTimer)
    : QDialog(nullptr, Qt::Window | Qt::CustomizeWindowHint | Qt::WindowTitleHint |
                           Qt::WindowSystemMenuHint | Qt::WindowCloseButtonHint),
      m_skin(skin), m_onboarding(std::move(ports)), m_second(makeTimer()),
      m_picture(new OnboardingPicture(skin, this, makeTimer)), m_title(makeText(this)),
      m_blurb(makeText(this)), m_status(new OnboardingStatus(this)),
      m_dots(new PageDots(Onboarding::kPages, this)),
      m_secondary(new AccentButton({}, this, AccentButton::Kind::plain)),
      m_primary(new AccentButton({}, this)) {
    setWindowTitle(tr("Welcome to Vexmoor"));
    layOut();
    m_title->setFocusPolicy(Qt::ClickFocus); // otherwise the dialog moves the focus away when shown
    m_secondary->setAutoDefault(false);      // Return always triggers the primary button
    m_primary->setDefault(true);
    connect(m_primary, &QPushButton::clicked, this, [this] { m_onboarding.primaryAction(); });
    connect(m_secondary, &QPushButton::clicked, this, [this] { m_onboarding.next(); });
    connect(m_status, &OnboardingStatus::linkClicked, this,
            [this] { m_onboarding.openFolderSettings(); });
    m_onboarding.onChange = [this] { refresh(); };
    recolour();
    refresh();
}

void OnboardingView::layOut() {
    auto* const column = new QVBoxLayout(this);
    column->setContentsMargins(kMargin, 16, kMargin, 16);
    column->setSpacing(0);
    column->addWidget(m_picture);
    column->addSpacing(14);
    column->addWidget(m_title);
    column->addSpacing(6);
    column->addWidget(m_blurb);
    column->addSpacing(10);
    m_status->setMinimumHeight(kStatusHeight);
    column->addWidget(m_status);
    column->addStretch(1);
    column->addWidget(m_dots, 0, Qt::AlignHCenter);
    column->addSpacing(10);
    auto* const buttons = new QHBoxLayout;
    buttons->setSpacing(2); // in addition to the margins for the focus rings
    buttons->addStretch();
    buttons->addWidget(m_secondary);
    buttons->addWidget(m_primary);
    column->addLayout(buttons);
}

void OnboardingView::setSkin(const Skin& skin) {
    m_skin = skin;
    m_picture->setSkin(skin);
    recolour();
}

void OnboardingView::refresh() {
    m_picture->show(m_onboarding.picture(), QString::fromStdString(m_onboarding.pictureText()));
    m_title->setText(QString::fromStdString(m_onboarding.title()));
    m_blurb->setText(QString::fromStdString(m_onboarding.blurb()));
    m_status->setStatus(m_onboarding.status());
    m_dots->setPage(static_cast<int>(page()));
    m_primary->setText(QString::fromStdString(m_onboarding.primaryTitle()));
    const auto secondary = m_onboarding.secondaryTitle();
    m_secondary->setText(QString::fromStdString(secondary.value_or(std::string())));
    m_secondary->setVisible(secondary.has_value());
    m_title->setAccessibleDescription(m_blurb->text() + QChar(' ') + m_status->spokenText());
    fit();
    if (m_announced != page())
        announce();
}

/// Focuses the title, because screen readers read the focused widget with the page's texts.
void OnboardingView::announce() {
    m_announced = page();
    m_title->setFocus(Qt::OtherFocusReason);
}

/// Returns the height of the title with the most lines.
int OnboardingView::highestTitle(int width) const {
    const QFontMetrics metrics(m_title->font());
    int height = 0;
    for (int page = 0; page < Onboarding::kPages; ++page) {
        const auto title = QString::fromStdString(m_onboarding.title(Page{page}));
        height = std::max(height,
                          metrics.boundingRect({0, 0, width, 0}, Qt::TextWordWrap, title).height());
    }
    return height;
}

/// Enlarges the window if the user's font or language needs it. Never shrinks it, so that nothing
/// moves between pages.
void OnboardingView::fit() {
    m_blurb->setMinimumHeight(2 * QFontMetrics(m_blurb->font()).lineSpacing());
    const double growth = std::max(1.0, textFont(font(), 13).pixelSize() / 13.0);
    m_size = m_size.expandedTo(kSize * growth);
    m_title->setMinimumHeight(highestTitle(m_size.width() - 2 * kMargin));
    m_status->layout()->activate();
    layout()->activate();
    m_size.setHeight(std::max(m_size.height(), layout()->totalHeightForWidth(m_size.width())));
    setFixedSize(m_size);
}

void OnboardingView::recolour() {
    const Accent accent = Accent::of(m_skin, groundOf(palette()));
    for (AccentButton* const button : {m_primary, m_secondary})
        button->setAccent(accent);
    m_status->setAccent(accent);
    m_title->setFont(textFont(font(), 21, QFont::Bold));
    m_blurb->setFont(textFont(font(), 13.5));
    QPalette faint = palette();
    faint.setColor(QPalette::WindowText, secondaryText(palette()));
    m_blurb->setPalette(faint);
    update();
}

void OnboardingView::showEvent(QShowEvent* event) {
    QDialog::showEvent(event);
    m_title->setFocus(Qt::OtherFocusReason);
    m_onboarding.poll();
    m_second->start(std::chrono::seconds(1), [this] { m_onboarding.poll(); });
}

void OnboardingView::hideEvent(QHideEvent* event) {
    m_second->stop();
    QDialog::hideEvent(event);
}

void OnboardingView::changeEvent(QEvent* event) {
    if (event->type() == QEvent::PaletteChange || event->type() == QEvent::FontChange) {
        recolour();
        fit();
    }
    QDialog::changeEvent(event);
}

void OnboardingView::paintEvent(QPaintEvent*) {
    QPainter(this).fillRect(rect(), groundOf(palette()));
}

} // namespace vexmoor
