#pragma once

#include <QAccessibleWidget>

#include <map>

namespace vexmoor {

class HistoryList;

/// The history as a screen reader meets it: a list of items, each with its status, that can be
/// picked and put back.
class HistoryAccessible : public QAccessibleWidget {
  public:
    /// Has every HistoryList met that way.
    static void install();
    ~HistoryAccessible() override;

    [[nodiscard]] int childCount() const override;
    [[nodiscard]] QAccessibleInterface* child(int index) const override;
    [[nodiscard]] int indexOfChild(const QAccessibleInterface* child) const override;
    [[nodiscard]] QAccessibleInterface* childAt(int x, int y) const override;
    [[nodiscard]] QAccessibleInterface* focusChild() const override;

  private:
    class Row;

    explicit HistoryAccessible(HistoryList& list);
    static QAccessibleInterface* make(const QString& className, QObject* object);
    [[nodiscard]] HistoryList* list() const;

    mutable std::map<std::string, QAccessible::Id> m_rows; ///< by the item's id
};

} // namespace vexmoor
