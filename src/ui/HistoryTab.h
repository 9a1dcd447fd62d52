#pragma once

#include "RowPictures.h"

#include "base/Date.h"
#include "disposal/Sacrifice.h"
#include "skins/Skin.h"

#include <QTimer>
#include <QWidget>

#include <functional>
#include <set>
#include <string>
#include <vector>

class QStackedLayout;

namespace vexmoor {

class EmptyNote;
class FilterField;
class HistoryFooter;
class HistoryList;
class HistoryModel;

/// Finds the newest `most` items in the Bin, of any age, whose names match.
using FindBinned = std::function<std::vector<Sacrifice>(
    const std::function<bool(const std::string& name)>& matches, std::size_t most)>;

/// The list of fed items, newest first, with its filter and actions. Main thread.
class HistoryTab : public QWidget {
    Q_OBJECT

  public:
    struct Parts {
        LoadPicture loadPicture;
        FindBinned findBinned; ///< for the filter, to include older items
        Clock clock;
    };

    static constexpr std::size_t kMostFound = 200; ///< maximum number of filtered items

    explicit HistoryTab(Parts parts, QWidget* parent = nullptr);

    void setRecent(const std::vector<Sacrifice>& recent);
    /// Formats the rows' times again.
    void refresh();
    void setSkin(const Skin& skin);

    /// Returns the listed items, newest first.
    [[nodiscard]] const std::vector<Sacrifice>& shown() const;
    [[nodiscard]] std::set<Uuid> picked() const;

    void openFilter();
    /// Resets to the initial state: no selection, no filter, scrolled to the newest item.
    void startAgain();
    void takeFocus();

  signals:
    void restoreRequested(const std::vector<vexmoor::Sacrifice>& items);
    void deleteRequested(const std::vector<vexmoor::Sacrifice>& items);
    /// The buttons for the selected items were pressed.
    void restorePickedRequested();
    void deletePickedRequested();
    void testFlamesRequested();

  protected:
    void keyPressEvent(QKeyEvent* event) override;

  private:
    void layOut();
    void showItems();
    void countPicked();
    [[nodiscard]] std::vector<Sacrifice> filtered() const;

    Parts m_parts;
    std::vector<Sacrifice> m_recent;
    HistoryModel* m_model;
    FilterField* m_filter;
    HistoryList* m_list;
    HistoryFooter* m_footer;
    EmptyNote* m_nothing; ///< shown if nothing was ever fed
    EmptyNote* m_noMatch; ///< shown if no item matches the filter
    QStackedLayout* m_pages;
    QTimer m_typed; ///< delays applying the filter
};

} // namespace vexmoor
