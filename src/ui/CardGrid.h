#pragma once

#include <QWidget>

#include <vector>

namespace vexmoor {

/// A grid of cards of one size, with at least three columns and more if there is room.
class CardGrid : public QWidget {
    Q_OBJECT

  public:
    explicit CardGrid(QWidget* parent = nullptr);

    /// Takes ownership of the cards.
    void setCards(std::vector<QWidget*> cards);

    [[nodiscard]] int columns() const { return columnsIn(width()); }

    [[nodiscard]] bool hasHeightForWidth() const override { return true; }
    [[nodiscard]] int heightForWidth(int width) const override;
    [[nodiscard]] QSize sizeHint() const override { return {320, heightForWidth(320)}; }
    [[nodiscard]] QSize minimumSizeHint() const override { return {200, cardHeight()}; }

  protected:
    bool event(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

  private:
    [[nodiscard]] int columnsIn(int width) const;
    [[nodiscard]] int cardHeight() const;
    void place();

    std::vector<QWidget*> m_cards;
};

} // namespace vexmoor
