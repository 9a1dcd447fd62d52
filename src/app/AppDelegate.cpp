#include "AppDelegate.h"

#include "app/Description.h"
#include "app/Probe.h"
#include "app/TileReports.h"

#include "art/CauldronArt.h"
#include "base/Text.h"
#include "dock/StartupNotification.h"
#include "dock/TileChoice.h"
#include "intake/Recovery.h"
#include "intake/Texts.h"
#include "ui/Motion.h"
#include "ui/SampleIcon.h"

#include <QApplication>
#include <QRandomGenerator>

#include <iostream>
#include <utility>

namespace vexmoor {

namespace {

/// Timeout for a volume while the user waits for a menu or a put-back.
constexpr std::chrono::milliseconds kVolumePatience{100};

} // namespace

AppDelegate::AppDelegate(Stores& stores, ApplicationService& service, const QDBusConnection& bus)
    : m_stores(stores), m_service(service), m_bus(bus), m_notifications(bus),
      m_ledger(stores.defaults(), &Date::now), m_settings(stores.defaults()),
      m_progression(stores.defaults(), &m_ledger, &Date::now, m_notifications,
                    &CauldronArt::setCurrent),
      m_binnedItems(m_ledger, stores.defaults().records(), kVolumePatience),
      m_tile(makeTile(stores.defaults())), m_accessibilityBus(bus),
      m_dock([this] { return m_accessibilityBus.answers(); }, [this] { return m_tile->frame(); }),
      m_dockTile(m_dock, m_tile->screens()),
      m_animator({.icon = *m_tile,
                  .makeOverlay = [this] { return m_tile->makeFlames(); },
                  .accessibility = m_dock,
                  .tile = m_dockTile,
                  .screens = m_tile->screens(),
                  .makeTimer = std::make_unique<QtFrameTimer>,
                  .random = [] { return QRandomGenerator::system()->generate64(); }}),
      m_sizzle(m_audio), m_thumbnails(Thumbnail::forSession()),
      m_fileManagerKey({stores.defaults(), m_settings, m_alerts, m_notifications, m_main,
                        m_accessibilityBus, bus, IntegrationContext::ofProcess()}),
      m_work(std::make_unique<SerialQueue>()),
      m_intake({stores.directories(), stores.defaults(), m_ledger, m_settings, m_progression,
                m_binnedItems, stores.journal(), &m_undoStack, m_main, *m_work, m_alerts,
                m_animator, m_sizzle, *m_thumbnails, m_fileManagerKey.undoKey(), &Date::now}),
      m_statsWiring({m_ledger, m_settings, m_progression, m_binnedItems, m_intake, m_fileManagerKey,
                     m_dock, m_alerts, m_windowTimers.maker()}),
      m_walkthrough({stores.defaults(), m_settings, m_progression, m_fileManagerKey,
                     m_accessibilityBus, m_alerts, m_main, m_windowTimers.maker()}),
      m_sessionLock(bus, QDBusConnection::systemBus()),
      m_shutdownDelay(QDBusConnection::systemBus()),
      m_updater(QDBusConnection::systemBus(), QCoreApplication::applicationFilePath()),
      m_updateCommand(m_updater, m_alerts),
      m_binOpener(BinOpener::waysTo(stores.directories().dataHome / "Trash/files")),
      m_menuBar(menuParts(), m_compositor, bus),
      m_mainMenu(m_undoStack, stores.defaults().boolean("debugMenu").value_or(false)) {
    reportStoreFailures();
}

AppDelegate::~AppDelegate() {
    m_stores.setFailureHandler({});
    m_intake.stop();
    if (m_commands)
        m_commands->giveBack(ApplicationService::kName);
    m_work.reset();                              // first: its jobs use the other parts
    m_alerts.close([](const FailureReport&) {}); // the answers of its questions use the other parts
}

void AppDelegate::finishLaunching(const LaunchOptions& options) {
    recordCutOffBatches();
    serveCommands();
    wireDesktop();
    wireTile();
    wireFileManagerKey();
    wireWalkthrough();
    wireMenuBar();
    wireMainMenu();
    subscribeToSettings();
    m_tile->show();
    if (!options.items.empty() || options.others > 0)
        open(options.items, options.others);
    wireService();
    if (!options.background && (!m_receivedFilesAtLaunch || m_walkthrough.comesFirst()))
        activate();
}

void AppDelegate::recordCutOffBatches() {
    if (m_stores.defaults().setAside())
        m_alerts.report(damagedStore(*m_stores.defaults().setAside()));
    const auto report = recover(m_stores.journal(), m_stores.defaults(), m_ledger, m_progression,
                                m_binnedItems, m_stores.directories());
    const auto recorded = report.disposed + report.putBack + report.deleted;
    if (recorded > 0)
        m_notifications.post({"recovery", text("An earlier batch was cut off"),
                              plural("What it had done is recorded now: %1 item.",
                                     "What it had done is recorded now: %1 items.", recorded)});
    if (!report.failures.empty())
        m_alerts.report(intakeFailures(report.failures));
    for (const auto& problem : report.problems)
        m_alerts.report(journalFailure(problem));
    if (!report.unlocked.empty())
        m_progression.notify(report.unlocked);
}

/// Called after recovery: a command may begin a batch, and recovery must come before the first.
void AppDelegate::serveCommands() {
    m_commands = std::make_unique<CommandService>(
        m_service, m_bus,
        CommandService::Parts{m_intake, m_settings, m_progression, m_binnedItems, m_alerts,
                              [this](const auto& assignment) { return store(assignment); },
                              [this] { return m_fileManagerKey.fedByMenuCommand(); }});
}

void AppDelegate::reportStoreFailures() {
    m_stores.setFailureHandler(
        [this](const Error& error) { m_alerts.report(storeFailure(error)); });
}

/// Returns the storage error instead of showing it.
std::optional<Error> AppDelegate::store(const std::function<void()>& assignment) {
    std::optional<Error> failure;
    m_stores.setFailureHandler([&failure](const Error& error) { failure = error; });
    assignment();
    reportStoreFailures();
    return failure;
}

void AppDelegate::wireTile() {
    connect(m_tile.get(), &Tile::clicked, this, &AppDelegate::showStats);
    connect(m_tile.get(), &Tile::menuRequested, &m_menuBar, &MenuBar::popUp);
    connect(m_tile.get(), &Tile::dropped, this,
            [this](const std::vector<Path>& items) { consume(items, false); });
    reportFailuresOf(*m_tile, m_alerts);
    connect(m_tile.get(), &Tile::shownChanged, this, &AppDelegate::restWhileUnseen);
    restWhileUnseen();
}

void AppDelegate::restWhileUnseen() {
    m_animator.setSuspended(m_sessionLock.isLocked() || !m_tile->isVisible());
    m_windowTimers.setResting(m_sessionLock.isLocked());
}

void AppDelegate::wireDesktop() {
    connect(&m_notifications, &Notifications::activated, this,
            [this](const QString&, const QByteArray& token) {
                m_startup = token;
                showStats();
                endStartup();
            });
    connect(&m_sessionLock, &SessionLock::lockedChanged, this, &AppDelegate::restWhileUnseen);
    connect(&m_shutdownDelay, &ShutdownDelay::shutdownBegun, this, &AppDelegate::quit);
    m_subscriptions.push_back(m_intake.subscribeToBatches(
        [this](std::size_t batches) { m_shutdownDelay.setWorking(batches > 0); }));
}

void AppDelegate::wireFileManagerKey() {
    connect(&m_fileManagerKey, &FileManagerKey::selectionFed, this,
            [this](const Selection& selection, bool byKey) {
                consume(selection.items, selection.others, byKey);
            });
    connect(&m_fileManagerKey, &FileManagerKey::undoRequested, this, &AppDelegate::undo);
    connect(&m_fileManagerKey, &FileManagerKey::settingsRequested, this,
            &AppDelegate::showSettings);
}

void AppDelegate::wireWalkthrough() {
    connect(&m_walkthrough, &Walkthrough::finished, this, &AppDelegate::showStats);
    connect(&m_walkthrough, &Walkthrough::settingsRequested, this, &AppDelegate::showSettings);
}

void AppDelegate::subscribeToSettings() {
    m_subscriptions.push_back(
        m_settings.escapeDock.subscribe([this](bool escape) { m_animator.setEscapeDock(escape); }));
    m_subscriptions.push_back(m_settings.mode.subscribe(
        [this](DisposeMode mode) { m_tile->setBadged(mode == DisposeMode::dissolve); }));
    m_subscriptions.push_back(
        subscribeToReducedMotion([this](bool reduced) { m_animator.setStill(reduced); }));
    m_animator.startIdle();
    m_subscriptions.push_back(m_settings.showMenuBarIcon.subscribe(
        [this](bool visible) { m_menuBar.setVisible(visible); }));
    m_fileManagerKey.begin();
}

void AppDelegate::wireService() {
    connect(&m_service, &ApplicationService::startupBegun, this,
            [this](const QByteArray& id) { m_startup = id; });
    connect(&m_service, &ApplicationService::startupEnded, this, &AppDelegate::endStartup);
    connect(&m_service, &ApplicationService::activateRequested, this, &AppDelegate::activate);
    connect(&m_service, &ApplicationService::openRequested, this, &AppDelegate::open);
    connect(&m_service, &ApplicationService::actionRequested, this, &AppDelegate::act);
    m_service.setProbe([this] { return probe(); });
    m_service.setDescription([this] { return describe(); });
    m_service.deliverOrders();
}

void AppDelegate::endStartup() {
    if (!m_startup.isEmpty())
        native::endStartup(std::exchange(m_startup, {}));
}

void AppDelegate::open(const std::vector<Path>& items, int others) {
    m_receivedFilesAtLaunch = true;
    consume(items, others, false);
}

void AppDelegate::consume(const std::vector<Path>& items, bool fromFinder) {
    m_intake.consume(items, fromFinder);
}

void AppDelegate::consume(const std::vector<Path>& items, int others, bool fromFinder) {
    consume(items, fromFinder);
    if (others > 0)
        m_alerts.report(foreignReport(!items.empty()));
}

void AppDelegate::act(const QString& action) {
    if (action == QStringLiteral("put-back"))
        putBackLast();
    else if (action == QStringLiteral("open-bin"))
        m_binOpener.open();
    else if (action == QStringLiteral("test-flames"))
        testFlames();
    else
        showStats();
}

/// Puts back the newest batch, of this run or of an earlier one.
void AppDelegate::putBackLast() {
    if (m_undoStack.undo())
        return;
    m_intake.storeLeftOver();
    m_intake.restore(m_binnedItems.lastBatch());
}

void AppDelegate::undo() {
    if (!m_undoStack.undo())
        m_alerts.beep();
}

void AppDelegate::testFlames() {
    m_animator.play(DockIconAnimator::Images{sampleIcon()});
    if (m_settings.sound.get())
        m_sizzle.play();
}

void AppDelegate::showStats() {
    StatsWindow& window = statsWindow();
    if (!m_startup.isEmpty())
        native::answerStartup(window.winId(), m_startup);
    window.show();
    window.setWindowState(window.windowState() & ~Qt::WindowMinimized);
    fitOnScreen(window);
    window.raise();
    window.activateWindow();
}

void AppDelegate::showSettings() {
    showStats();
    m_statsWindow->view().setTab(StatsView::Tab::settings);
}

StatsWindow& AppDelegate::statsWindow() {
    if (!m_statsWindow) {
        m_statsWindow = m_statsWiring.makeWindow();
        connect(&m_statsWindow->view(), &StatsView::testFlamesRequested, this,
                &AppDelegate::testFlames);
        connect(
            m_statsWindow.get(), &StatsWindow::dropped, this,
            [this](const std::vector<Path>& items, int others) { consume(items, others, false); });
        // The tile takes no keys, so its menu also opens with the window's menu key.
        m_statsWindow->setContextMenuPolicy(Qt::CustomContextMenu);
        connect(m_statsWindow.get(), &QWidget::customContextMenuRequested, this,
                [this](QPoint place) { m_menuBar.popUp(m_statsWindow->mapToGlobal(place)); });
        m_statsWindow->setMenuBar(m_mainMenu.makeBar());
        m_mainMenu.addTo(*m_statsWindow);
        m_statsFrame = std::make_unique<WindowFrame>(*m_statsWindow, m_stores.defaults());
    }
    return *m_statsWindow;
}

void AppDelegate::showOnboarding() {
    QWidget& window = m_walkthrough.show();
    m_mainMenu.addTo(window);
    if (!m_startup.isEmpty())
        native::answerStartup(window.winId(), m_startup);
}

void AppDelegate::activate() {
    if (m_walkthrough.comesFirst())
        showOnboarding();
    else
        showStats();
}

QString AppDelegate::probe() const {
    return probeText(m_dock.isTrusted(), m_dockTile.frame(), m_tile->screens().frames());
}

QString AppDelegate::describe() const {
    return QString::fromStdString(describeSession(
        RunningTile{.isShown = m_tile->isVisible(), .isFound = m_dockTile.frame().has_value()}));
}

void AppDelegate::quit() {
    // Uses distinct ids, because a repeated id replaces the earlier notification. Logs them too,
    // for sessions without notifications.
    m_alerts.close([this](const FailureReport& report) {
        std::cerr << "vexmoor-desktop: " << report.message << ". " << report.informative << "\n";
        m_notifications.post(
            {"ended-" + std::to_string(++m_reportsAtEnd), report.message, report.informative});
    });
    m_service.stopTaking();
    m_intake.stop();
    m_subscriptions.push_back(m_intake.subscribeToBatches([this](std::size_t batches) {
        if (batches > 0)
            return;
        flushBus();
        QApplication::exit();
    }));
}

/// Waits for a reply from the bus, which arrives after all earlier messages have been sent.
void AppDelegate::flushBus() {
    constexpr int kPatienceMilliseconds = 1000;
    const QString bus = QStringLiteral("org.freedesktop.DBus");
    m_bus.call(
        QDBusMessage::createMethodCall(bus, QStringLiteral("/"), bus, QStringLiteral("GetId")),
        QDBus::Block, kPatienceMilliseconds);
}

} // namespace vexmoor
