#pragma once

#include "Symbol.h"

#include <QLabel>

namespace vexmoor {

/// A centred line of text with a leading symbol.
class SymbolText : public QLabel {
    Q_OBJECT

  public:
    explicit SymbolText(QWidget* parent = nullptr);

    void setSymbolText(Symbol symbol, const QString& text);
    void setSymbolColour(const QColor& colour);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    [[nodiscard]] QFont textFontHere() const;

    Symbol m_symbol = Symbol::circle;
    QColor m_colour;
};

} // namespace vexmoor
