#pragma once

#include "finder/Automation.h"
#include "finder/FolderAccess.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace vexmoor {

/// The logic of the walkthrough without its window: current page, texts and button actions. Pages
/// only advance. Main thread.
class Onboarding {
  public:
    enum class Page { welcome, accessibility, automation, folders, ready };
    static constexpr int kPages = 5;

    enum class Picture { demo, settingsRow, dialog };

    /// How the file manager's key works in this session.
    enum class KeyWay {
        captured,  ///< captured from the keyboard in all file managers; needs the accessibility bus
        available, ///< a file manager can bind it, or this is unknown yet
        bound,     ///< a file manager binds it
        blocked,   ///< a file manager could bind it, but another key of the user or a failure
                   ///< prevents it
        none,      ///< no installed file manager can bind it
    };

    /// The session's current state; cheap to query.
    struct Facts {
        bool accessible = false;
        AutomationStatus automation = AutomationStatus::notAsked;
        KeyWay key = KeyWay::captured;
        bool keyIsOn = true;       ///< the user's setting for the key
        bool hasMenuEntry = false; ///< in a file manager's menu
        bool operator==(const Facts&) const = default;
    };

    /// The walkthrough's dependencies, which must outlive it. Completions are called on the main
    /// thread, at most once.
    struct Ports {
        std::function<Facts()> facts;
        std::function<void(std::function<void()> answered)> askForAutomation;
        std::function<bool()> foldersWereAsked;
        std::function<void(std::function<void(const FolderAccess::Readable&)>)> probeFolders;
        std::function<void()> openAccessibilitySettings;
        std::function<void()> openAutomationSettings;
        std::function<void(FolderAccess::Folder)> openFolderSettings;
        std::function<void()> finish; ///< may destroy the walkthrough
    };

    /// A row that shows whether a permission is granted.
    struct Tick {
        bool ok = false;
        std::string text;
        std::optional<std::string> note = {};
        bool operator==(const Tick&) const = default;
    };
    struct Badge {
        bool ok = false;
        std::string name;
        bool operator==(const Badge&) const = default;
    };
    /// The content below a page's text. Empty parts are not shown.
    struct Status {
        std::optional<Tick> tick = {};
        std::string line = {};
        std::vector<Badge> badges = {};
        std::string link = {}; ///< title of the button that runs openFolderSettings()
        std::string caption = {};
        bool operator==(const Status&) const = default;
    };

    /// Probes the folders immediately if that was done before, because it asks no questions then.
    explicit Onboarding(Ports ports);

    [[nodiscard]] Page page() const { return m_page; }
    [[nodiscard]] std::string title() const { return title(m_page); }
    [[nodiscard]] std::string title(Page page) const;
    [[nodiscard]] std::string blurb() const;
    [[nodiscard]] Picture picture() const;
    [[nodiscard]] std::string pictureText() const; ///< empty for the demonstration
    [[nodiscard]] Status status() const;

    /// True if nothing is left to do on the page.
    [[nodiscard]] bool granted() const;

    [[nodiscard]] std::string primaryTitle() const;
    [[nodiscard]] std::optional<std::string> secondaryTitle() const;

    void primaryAction();
    void next();

    /// Shows the properties of the first unreadable folder.
    void openFolderSettings();

    /// Queries the session again. Call every second while the page is visible.
    void poll();

    /// Called after each change of what the accessors return.
    std::function<void()> onChange;

  private:
    void probeFolders();
    void changed() const;
    [[nodiscard]] bool keyIsAllowed() const;
    [[nodiscard]] bool keyWorks() const;
    [[nodiscard]] bool hasNoKey() const {
        return m_facts.key == KeyWay::blocked || m_facts.key == KeyWay::none;
    }
    [[nodiscard]] Status automationStatus() const;
    [[nodiscard]] Status folderStatus() const;

    Ports m_ports;
    Page m_page = Page::welcome;
    Facts m_facts;
    FolderAccess::Readable m_folders; ///< empty until a probe has completed
    std::shared_ptr<bool> m_alive =
        std::make_shared<bool>(true); ///< lets completions detect destruction
};

} // namespace vexmoor
