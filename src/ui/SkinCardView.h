#pragma once

#include "Accent.h"
#include "Paragraph.h"
#include "SkinCard.h"

#include <QImage>
#include <QRadioButton>

namespace vexmoor {

class FocusRing;
class Transition;

/// A selectable skin: its pot, name and two lines of text. A locked one shows a silhouette; if it
/// is unlocked while visible, the pot fades in.
class SkinCardView : public QRadioButton {
    Q_OBJECT

  public:
    explicit SkinCardView(SkinCard card, QWidget* parent = nullptr);

    void setCard(const SkinCard& card);
    void setAccent(const Accent& accent);

    /// The height fits two lines of blurb.
    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return {64, sizeHint().height()}; }

  signals:
    /// The user selected this skin.
    void chosen(const vexmoor::Skin& skin);

  protected:
    bool hitButton(const QPoint& position) const override { return rect().contains(position); }
    void nextCheckState() override;
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void changeEvent(QEvent* event) override;

  private:
    void apply();
    void render();
    void paintSurface(QPainter& painter, const QRectF& surface) const;
    void paintPot(QPainter& painter, const QRect& place) const;
    void paintName(QPainter& painter, const QRect& place) const;
    [[nodiscard]] QPalette colours() const;
    [[nodiscard]] Paragraph name() const;
    [[nodiscard]] Paragraph blurb() const;

    SkinCard m_card;
    Accent m_accent;
    FocusRing* m_ring;
    Transition* m_awake; ///< 0: silhouette, 1: pot
    QImage m_pot;        ///< null until first painted
    QImage m_silhouette;
};

} // namespace vexmoor
