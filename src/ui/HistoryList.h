#pragma once

#include "HistoryModel.h"

#include "skins/Skin.h"

#include <QListView>

#include <set>

namespace vexmoor {

class HistoryDelegate;

/// The rows of the history, with multiple selection. Items in the Bin have a Put Back button and
/// can be dragged out as copies. Main thread.
class HistoryList : public QListView {
    Q_OBJECT

  public:
    /// The model must outlive it.
    explicit HistoryList(HistoryModel& model, QWidget* parent = nullptr);

    void setSkin(const Skin& skin);

    [[nodiscard]] const HistoryModel& history() const { return m_model; }
    [[nodiscard]] std::set<Uuid> picked() const;

    /// Requests putting the row's item back, if it has the button.
    void putBack(const QModelIndex& index);

  signals:
    void pickedChanged();
    void restoreRequested(const std::vector<vexmoor::Sacrifice>& items);
    void deleteRequested(const std::vector<vexmoor::Sacrifice>& items);

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    bool viewportEvent(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void startDrag(Qt::DropActions supportedActions) override;
    void selectionChanged(const QItemSelection& selected, const QItemSelection& others) override;

  private:
    [[nodiscard]] QModelIndex buttonAt(QPoint place) const;
    [[nodiscard]] std::vector<Sacrifice> pickedOrCurrent() const;
    void showPointer(const QModelIndex& button, bool isPressed);
    void showToolTip(QHelpEvent& event);
    void lift(const Uuid& item);

    HistoryModel& m_model;
    HistoryDelegate* m_delegate;
    Skin m_skin;
};

} // namespace vexmoor
