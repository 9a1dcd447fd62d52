#pragma once

#include "MenuEntry.h"

#include "base/Date.h"
#include "disposal/Sacrifice.h"

#include <QObject>

#include <functional>
#include <vector>

namespace vexmoor {

class Ledger;
class Progression;
class Settings;
class UndoStack;

/// The entries of the cauldron's menu, read from the stores on each call. Switches and skins change
/// the stores directly; all other entries emit signals. Main thread.
class MenuContents : public QObject {
    Q_OBJECT

  public:
    /// The menu's data sources; all must outlive it.
    struct Parts {
        Ledger& ledger;
        Settings& settings;
        Progression& progression;
        UndoStack& undoStack;
        Clock clock;
        std::function<bool()> canPutBack;       ///< whether a batch has items left in the Bin
        std::function<bool()> canFeedSelection; ///< whether file managers' selection is available
        std::function<bool()> isCheckingForUpdates;
    };

    explicit MenuContents(Parts parts) : m_parts(std::move(parts)) {}

    /// Returns the whole current menu. The entries' `run` is valid as long as this object.
    [[nodiscard]] std::vector<MenuEntry> entries();

    [[nodiscard]] const Parts& parts() const { return m_parts; }

    static constexpr std::size_t kMostRecent = 10;

  signals:
    void feedSelectionChosen();
    void putBackChosen();
    void testFlamesChosen();
    void binChosen();
    void restoreChosen(const vexmoor::Sacrifice& sacrifice);
    void statsChosen();
    void updatesChosen();
    void quitChosen();

  private:
    using Signal = void (MenuContents::*)();

    [[nodiscard]] MenuEntry item(const QString& title, Signal signal);
    void addQuickActions(std::vector<MenuEntry>& menu);
    void addSettings(std::vector<MenuEntry>& menu);
    void addCommands(std::vector<MenuEntry>& menu);
    [[nodiscard]] MenuEntry putBack();
    [[nodiscard]] std::vector<MenuEntry> recentMenu();
    [[nodiscard]] MenuEntry recent(const Sacrifice& sacrifice);
    [[nodiscard]] std::vector<MenuEntry> skinMenu();

    Parts m_parts;
};

} // namespace vexmoor
