#pragma once

#include "finder/Automation.h"
#include "finder/FolderAccess.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace vexmoor {

/// The walkthrough without its window: which page is shown, what it says, what its buttons do. It
/// only moves forward. Main thread.
class Onboarding {
  public:
    enum class Page { welcome, accessibility, automation, folders, ready };
    static constexpr int kPages = 5;

    enum class Picture { demo, settingsRow, dialog };

    /// How the key of the file manager is had in this session.
    enum class KeyWay {
        captured,  ///< from the keyboard, in every file manager; takes the accessibility bus
        available, ///< a file manager can be given it, or that is not known yet
        bound,     ///< a file manager has it
        blocked, ///< a file manager could have it, but a key of the user's or a failure prevents it
        none,    ///< no file manager installed can have it
    };

    /// What the session says at the moment; cheap to ask.
    struct Facts {
        bool accessible = false;
        AutomationStatus automation = AutomationStatus::notAsked;
        KeyWay key = KeyWay::captured;
        bool keyIsOn = true;       ///< the user's setting for the key
        bool hasMenuEntry = false; ///< in a file manager's menu
        bool operator==(const Facts&) const = default;
    };

    /// What it works with; outlives it. Completions are called on the main thread, at most once.
    struct Ports {
        std::function<Facts()> facts;
        std::function<void(std::function<void()> answered)> askForAutomation;
        std::function<bool()> foldersWereAsked;
        std::function<void(std::function<void(const FolderAccess::Readable&)>)> probeFolders;
        std::function<void()> openAccessibilitySettings;
        std::function<void()> openAutomationSettings;
        std::function<void(FolderAccess::Folder)> openFolderSettings;
        std::function<void()> finish; ///< may end the object
    };

    /// The row that says whether something is allowed.
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
    /// What stands below the sentence of a page; a part that is empty is not shown.
    struct Status {
        std::optional<Tick> tick = {};
        std::string line = {};
        std::vector<Badge> badges = {};
        std::string link = {}; ///< title of the button that runs openFolderSettings()
        std::string caption = {};
        bool operator==(const Status&) const = default;
    };

    /// Looks at the folders at once if that was done before, as it raises no question then.
    explicit Onboarding(Ports ports);

    [[nodiscard]] Page page() const { return m_page; }
    [[nodiscard]] std::string title() const;
    [[nodiscard]] std::string blurb() const;
    [[nodiscard]] Picture picture() const;
    [[nodiscard]] std::string pictureText() const; ///< empty for the demonstration
    [[nodiscard]] Status status() const;

    /// Whether the page has nothing left to be done.
    [[nodiscard]] bool granted() const;

    [[nodiscard]] std::string primaryTitle() const;
    [[nodiscard]] std::optional<std::string> secondaryTitle() const;

    void primaryAction();
    void next();

    /// Shows the properties of the first folder that cannot be read.
    void openFolderSettings();

    /// Asks the session again; to be called every second while the page is seen.
    void poll();

    /// Called after everything that may have changed what the accessors return.
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
    FolderAccess::Readable m_folders; ///< empty until a probe has answered
    std::shared_ptr<bool> m_alive = std::make_shared<bool>(true); ///< for completions
};

} // namespace vexmoor
