#pragma once

#include "skins/Skin.h"

#include <QWidget>

class QLineEdit;

namespace vexmoor {

/// A field to filter a list by name. Escape closes it.
class FilterField : public QWidget {
    Q_OBJECT

  public:
    explicit FilterField(QWidget* parent = nullptr);

    void setSkin(const Skin& skin);

    /// Shows it and takes the focus, with what was typed selected.
    void open();
    /// Empties and hides it.
    void close();
    /// Empty while it is closed.
    [[nodiscard]] QString text() const;

  signals:
    void changed();
    /// Escape or an arrow key hands the focus back.
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
