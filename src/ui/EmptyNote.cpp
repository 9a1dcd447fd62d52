#include "EmptyNote.h"

#include "Column.h"
#include "TextStyle.h"

#include "art/AchievementArt.h"
#include "dock/PixelImage.h"

#include <QEvent>
#include <QLabel>
#include <QPainter>
#include <QVBoxLayout>

#include <algorithm>
#include <cmath>

namespace vexmoor {
namespace {

/// Draws a canvas of 16 × 16 pixels in blocks of whole physical pixels.
class Picture : public QWidget {
  public:
    Picture(const char* icon, QWidget* parent)
        : QWidget(parent), m_canvas(AchievementArt::render(icon, 1)) {
        setFixedSize(kSide, kSide);
    }

  protected:
    void paintEvent(QPaintEvent*) override {
        const double ratio = devicePixelRatioF();
        const int pixels = m_canvas.width();
        const int cell = std::max(1, static_cast<int>(std::floor(kSide * ratio / pixels)));
        QImage image = enlarged(m_canvas, {cell * pixels, cell * pixels});
        image.setDevicePixelRatio(ratio);
        const double left = std::floor((kSide * ratio - cell * pixels) / 2) / ratio;
        QPainter(this).drawImage(QPointF(left, left), image);
    }

  private:
    static constexpr int kSide = 64;
    PixelCanvas m_canvas;
};

} // namespace

EmptyNote::EmptyNote(const char* icon, const QString& sentence, const QString& line,
                     QWidget* parent)
    : QWidget(parent), m_sentence(new QLabel(sentence, this)), m_line(new QLabel(line, this)) {
    auto* const column = new QVBoxLayout(this);
    column->setContentsMargins(kColumnMargin, 8, kColumnMargin, 24);
    column->setSpacing(4);
    column->addStretch();
    if (*icon != '\0') {
        column->addWidget(new Picture(icon, this), 0, Qt::AlignHCenter);
        column->addSpacing(10);
    }
    for (QLabel* const label : {m_sentence, m_line}) {
        label->setTextFormat(Qt::PlainText);
        label->setAlignment(Qt::AlignCenter);
        label->setWordWrap(true);
        column->addWidget(label);
    }
    m_line->setVisible(!line.isEmpty());
    column->addStretch();
    recolour();
}

void EmptyNote::setSentence(const QString& sentence) {
    m_sentence->setText(sentence);
}

void EmptyNote::recolour() {
    m_sentence->setFont(textFont(font(), 14, QFont::DemiBold));
    m_line->setFont(textFont(font(), 12.5));
    QPalette faint = palette();
    faint.setColor(QPalette::WindowText, secondaryText(palette()));
    m_line->setPalette(faint);
}

void EmptyNote::changeEvent(QEvent* event) {
    if (event->type() == QEvent::PaletteChange || event->type() == QEvent::FontChange)
        recolour();
    QWidget::changeEvent(event);
}

} // namespace vexmoor
