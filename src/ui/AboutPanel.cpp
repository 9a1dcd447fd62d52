#include "AboutPanel.h"

#include "AccentButton.h"
#include "CauldronView.h"
#include "Glow.h"
#include "TextStyle.h"

#include "art/CauldronArt.h"

#include <QApplication>
#include <QDialog>
#include <QLabel>
#include <QPainter>
#include <QVBoxLayout>

namespace vexmoor {
namespace {

class AboutPanel : public QDialog {
    Q_OBJECT

  public:
    explicit AboutPanel(QWidget* parent);

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    QLabel* line(const QString& text, const QFont& font, const QColor& colour);

    CauldronView* m_pot;
};

AboutPanel::AboutPanel(QWidget* parent) : QDialog(parent) {
    setWindowTitle(tr("About Vexmoor"));
    setAttribute(Qt::WA_DeleteOnClose);
    auto* const column = new QVBoxLayout(this);
    column->setContentsMargins(32, 28, 32, 20);
    column->setSpacing(4);
    column->setSizeConstraint(QLayout::SetFixedSize);
    m_pot = new CauldronView(CauldronArt::current(),
                             CauldronView::crispSide(136, devicePixelRatioF()), this);
    column->addWidget(m_pot, 0, Qt::AlignHCenter);
    column->addSpacing(16);
    const QColor text = palette().color(QPalette::Text);
    const QColor faint = secondaryText(palette());
    column->addWidget(line(tr("Vexmoor"), textFont(font(), 21, QFont::Bold), text));
    column->addWidget(line(tr("Version %1").arg(VEXMOOR_VERSION), textFont(font(), 12), faint));
    column->addSpacing(8);
    column->addWidget(line(tr("Turns deleting files into a small ritual."), font(), text));
    column->addSpacing(8);
    column->addWidget(line(tr("© 2026 The Vexmoor authors"), textFont(font(), 12), faint));
    column->addWidget(line(tr("MIT License"), textFont(font(), 12), faint));
    column->addSpacing(16);
    auto* const close = new AccentButton(tr("Close"), this);
    close->setAccent(Accent::of(CauldronArt::current(), groundOf(palette())));
    connect(close, &QPushButton::clicked, this, &QDialog::close);
    column->addWidget(close, 0, Qt::AlignHCenter);
}

QLabel* AboutPanel::line(const QString& text, const QFont& font, const QColor& colour) {
    auto* const label = new QLabel(text, this);
    label->setFont(font);
    label->setAlignment(Qt::AlignHCenter);
    QPalette coloured = palette();
    coloured.setColor(QPalette::WindowText, colour);
    label->setPalette(coloured);
    return label;
}

void AboutPanel::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const QColor ground = groundOf(palette());
    painter.fillRect(rect(), ground);
    paintGlow(painter, m_pot->geometry(), Accent::of(CauldronArt::current(), ground).glow, ground);
}

} // namespace

QWidget& showAbout(QWidget* parent) {
    for (QWidget* const window : QApplication::topLevelWidgets()) {
        if (auto* const panel = qobject_cast<AboutPanel*>(window)) {
            panel->show();
            panel->raise();
            panel->activateWindow();
            return *panel;
        }
    }
    auto* const panel = new AboutPanel(parent);
    panel->show();
    return *panel;
}

} // namespace vexmoor

#include "AboutPanel.moc"
