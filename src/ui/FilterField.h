#pragma once

#include "skins/Skin.h"

#include <QWidget>

class QLineEdit;

namespace vexmoor {

/// A field that filters a list by name. Escape closes it.
class FilterField : public QWidget {
    Q_OBJECT

  public:
    explicit FilterField(QWidget* parent = nullptr);

    void setSkin(const Skin& skin);

    /// Shows the field, focuses it and selects its text.
    void open();
    /// Clears and hides the field.
    void close();
    /// Returns the text; empty while closed.
    [[nodiscard]] QString text() const;

  signals:
    void changed();
    /// Escape or an arrow key was pressed; the owner takes the focus back.
    void left();

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void changeEvent(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

  private:
    void recolour();

    Skin m_skin;
    QLineEdit* m_edit;
};

} // namespace vexmoor
