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

/// Finds the newest `most` items in the Bin, however old, whose names match.
using FindBinned = std::function<std::vector<Sacrifice>(
    const std::function<bool(const std::string& name)>& matches, std::size_t most)>;

/// What was fed, newest first, and what can be done with it. Main thread.
class HistoryTab : public QWidget {
    Q_OBJECT

  public:
    struct Parts {
        LoadPicture loadPicture;
        FindBinned findBinned; ///< for the filter, beyond the recent ones
        Clock clock;
    };

    static constexpr std::size_t kMostFound = 200; ///< items that the filter lists

    explicit HistoryTab(Parts parts, QWidget* parent = nullptr);

    void setRecent(const std::vector<Sacrifice>& recent);
    /// Writes the rows' times again.
    void refresh();
    void setSkin(const Skin& skin);

    /// The listed items, newest first.
    [[nodiscard]] const std::vector<Sacrifice>& shown() const;
    [[nodiscard]] std::set<Uuid> picked() const;

    void openFilter();
    /// As when it was first shown: nothing is picked, there is no filter, the newest is in sight.
    void startAgain();
    void takeFocus();

  signals:
    void restoreRequested(const std::vector<vexmoor::Sacrifice>& items);
    void deleteRequested(const std::vector<vexmoor::Sacrifice>& items);
    /// Of the buttons, for what is picked.
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
    EmptyNote* m_nothing; ///< nothing was ever fed
    EmptyNote* m_noMatch; ///< nothing passes the filter
    QStackedLayout* m_pages;
    QTimer m_typed; ///< until the filter is applied
};

} // namespace vexmoor
