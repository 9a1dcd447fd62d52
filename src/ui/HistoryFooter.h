#pragma once

#include "skins/Skin.h"

#include <QWidget>

namespace vexmoor {

class AccentButton;
class FlameButton;

/// The buttons under the history: two that act on what is picked, shown while they can, and one
/// that tries the flames. Its height is always the same.
class HistoryFooter : public QWidget {
    Q_OBJECT

  public:
    explicit HistoryFooter(QWidget* parent = nullptr);

    void setSkin(const Skin& skin);
    /// How many of the picked items can be put back, and deleted from the Bin.
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
