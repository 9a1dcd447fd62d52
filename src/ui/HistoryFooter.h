#pragma once

#include "skins/Skin.h"

#include <QWidget>

namespace vexmoor {

class AccentButton;
class FlameButton;

/// The buttons below the history: two for the selected items, shown while they apply, and one that
/// tests the flames. Its height is constant.
class HistoryFooter : public QWidget {
    Q_OBJECT

  public:
    explicit HistoryFooter(QWidget* parent = nullptr);

    void setSkin(const Skin& skin);
    /// Sets the number of selected items that can be put back or deleted from the Bin.
    void setCounts(std::size_t restorable, std::size_t deletable);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

  signals:
    void restoreClicked();
    void deleteClicked();
    void testClicked();

  protected:
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

  private:
    void layOut();
    void recolour();

    Skin m_skin;
    AccentButton* m_restore;
    AccentButton* m_delete;
    FlameButton* m_test;
};

} // namespace vexmoor
