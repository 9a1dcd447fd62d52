#pragma once

#include "app/Alerts.h"
#include "app/ApplicationService.h"
#include "app/BinOpener.h"
#include "app/CommandService.h"
#include "app/FileManagerKey.h"
#include "app/LaunchOptions.h"
#include "app/MainLoop.h"
#include "app/StatsWiring.h"
#include "app/Stores.h"
#include "app/UpdateCommand.h"
#include "app/Walkthrough.h"

#include "base/SerialQueue.h"
#include "desktopbus/Notifications.h"
#include "desktopbus/SessionLock.h"
#include "desktopbus/ShutdownDelay.h"
#include "desktopbus/Updater.h"
#include "disposal/Ledger.h"
#include "disposal/Settings.h"
#include "dock/AccessibilityBus.h"
#include "dock/Compositor.h"
#include "dock/DockIconAnimator.h"
#include "dock/DockTile.h"
#include "dock/OwnDock.h"
#include "dock/RestingTimers.h"
#include "dock/Tile.h"
#include "intake/BinnedItems.h"
#include "intake/Intake.h"
#include "intake/UndoStack.h"
#include "progression/Progression.h"
#include "sound/CanberraOutput.h"
#include "sound/Sizzle.h"
#include "thumbnails/Thumbnail.h"
#include "ui/MainMenu.h"
#include "ui/MenuBar.h"
#include "ui/StatsWindow.h"
#include "ui/WindowFrame.h"

#include <memory>
#include <vector>

namespace vexmoor {

/// The composition root of the desktop program: owns and connects the parts that live as long as
/// the program, and passes items from all sources to the intake. Main thread.
class AppDelegate : public QObject {
    Q_OBJECT

  public:
    /// `stores` and `service` must outlive it.
    AppDelegate(Stores& stores, ApplicationService& service, const QDBusConnection& bus);
    ~AppDelegate() override;

    /// Applies the settings, shows the tile, and feeds the items that the program was started with.
    void finishLaunching(const LaunchOptions& options);

    void consume(const std::vector<Path>& items, bool fromFinder);
    /// Also reports that `others` of the chosen items are not on this computer.
    void consume(const std::vector<Path>& items, int others, bool fromFinder);
    void showStats();
    void showSettings();
    void showOnboarding();
    /// Shows the walkthrough if it is due, otherwise the main window.
    void activate();
    void testFlames();
    void undo();

    /// Quits when the current item is done; the rest of its batch stays untouched. May be called
    /// again before that.
    void quit();

  private:
    void recordCutOffBatches();
    void wireService();
    void wireTile();
    void wireDesktop();
    void wireMenuBar();
    void wireMainMenu();
    [[nodiscard]] MenuContents::Parts menuParts();
    void wireFileManagerKey();
    void wireWalkthrough();
    void restWhileUnseen();
    void subscribeToSettings();
    void endStartup();
    void open(const std::vector<Path>& items, int others);
    void act(const QString& action);
    void putBackLast();
    StatsWindow& statsWindow();
    void showAboutPanel();
    void flushBus();
    [[nodiscard]] QString probe() const;
    [[nodiscard]] QString describe() const;
    void serveCommands();
    void reportStoreFailures();
    std::optional<Error> store(const std::function<void()>& assignment);

    Stores& m_stores;
    ApplicationService& m_service;
    QDBusConnection m_bus;
    MainLoop m_main;
    Alerts m_alerts;
    Notifications m_notifications;
    Ledger m_ledger;
    Settings m_settings;
    Progression m_progression;
    BinnedItems m_binnedItems;
    UndoStack m_undoStack;
    std::unique_ptr<Tile> m_tile;
    AccessibilityBus m_accessibilityBus;
    OwnDock m_dock;
    DockTile m_dockTile;
    DockIconAnimator m_animator;
    CanberraOutput m_audio;
    Sizzle m_sizzle;
    std::unique_ptr<Thumbnail> m_thumbnails;
    FileManagerKey m_fileManagerKey;
    std::unique_ptr<SerialQueue> m_work;
    Intake m_intake;
    std::unique_ptr<CommandService> m_commands; ///< set once recovery is done
    RestingTimers m_windowTimers;
    StatsWiring m_statsWiring;
    std::unique_ptr<StatsWindow> m_statsWindow; ///< created when it is first shown, then kept
    std::unique_ptr<WindowFrame> m_statsFrame;
    Walkthrough m_walkthrough;
    SessionLock m_sessionLock;
    ShutdownDelay m_shutdownDelay;
    Updater m_updater;
    UpdateCommand m_updateCommand;
    BinOpener m_binOpener;
    Compositor m_compositor; ///< reports whether menus can be translucent
    MenuBar m_menuBar;
    MainMenu m_mainMenu;
    QByteArray m_startup; ///< the startup id of a waiting launcher; empty if there is none
    bool m_receivedFilesAtLaunch = false;
    int m_reportsAtEnd = 0; ///< number of notifications posted since quit()
    std::vector<Subscription> m_subscriptions;
};

} // namespace vexmoor
