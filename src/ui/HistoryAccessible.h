#pragma once

#include <QAccessibleWidget>

#include <map>

namespace vexmoor {

class HistoryList;

/// The accessible interface of the history: a list of items with their status that can be selected
/// and put back.
class HistoryAccessible : public QAccessibleWidget {
  public:
    /// Installs the factory for all HistoryList instances.
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
