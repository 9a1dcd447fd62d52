#include "Onboarding.h"

#include "base/Text.h"

#include <algorithm>
#include <utility>

namespace vexmoor {
namespace {

std::string nameOf(FolderAccess::Folder folder) {
    switch (folder) {
    case FolderAccess::Folder::desktop:
        return text("Desktop");
    case FolderAccess::Folder::documents:
        return text("Documents");
    case FolderAccess::Folder::downloads:
        return text("Downloads");
    }
    return {};
}

Onboarding::Tick allowed(bool ok, std::optional<std::string> note) {
    return {ok, ok ? text("Allowed") : text("Not allowed yet"), std::move(note)};
}

} // namespace

Onboarding::Onboarding(Ports ports) : m_ports(std::move(ports)), m_facts(m_ports.facts()) {
    if (m_ports.foldersWereAsked())
        probeFolders();
}

std::string Onboarding::title(Page page) const {
    switch (page) {
    case Page::welcome:
        return text("Welcome to Vexmoor");
    case Page::accessibility:
        return text("Let flames rise above the Dock");
    case Page::automation:
        return hasNoKey() ? text("Feed files from their menu")
                          : text("Press ⌘⌫ in Finder to feed it");
    case Page::folders:
        return text("Let Vexmoor see your files");
    case Page::ready:
        return text("Ready");
    }
    return {};
}

std::string Onboarding::blurb() const {
    switch (m_page) {
    case Page::welcome:
        return text("Drop files on the cauldron in your Dock. A flame carries them to the Bin.");
    case Page::accessibility:
        return m_facts.accessible
                   ? text("The accessibility service is running. There is nothing to set up.")
                   : text("System Settings will open. Turn on Vexmoor, then come back.");
    case Page::automation:
        if (!hasNoKey())
            return text("macOS will ask once. Click Allow.");
        return m_facts.hasMenuEntry
                   ? text("Right-click them in the file manager and choose Feed to Vexmoor.")
                   : text("The command \"vexmoor integrate install\" adds Feed to Vexmoor to the "
                          "file manager's menu.");
    case Page::folders:
        return text("macOS asks for Desktop, Documents and Downloads in turn. Click Allow each "
                    "time.");
    case Page::ready:
        if (keyWorks())
            return text("Drop files on the Dock icon, or press ⌘⌫ in Finder.");
        return m_facts.hasMenuEntry ? text("Drop files on the Dock icon, or right-click them and "
                                           "choose Services > Feed to Vexmoor.")
                                    : text("Drop files on the cauldron.");
    }
    return {};
}

Onboarding::Picture Onboarding::picture() const {
    switch (m_page) {
    case Page::accessibility:
        return Picture::settingsRow;
    case Page::automation:
        return hasNoKey() ? Picture::demo : Picture::dialog;
    case Page::folders:
        return Picture::dialog;
    case Page::welcome:
    case Page::ready:
        break;
    }
    return Picture::demo;
}

std::string Onboarding::pictureText() const {
    if (picture() == Picture::settingsRow)
        return text("Accessibility");
    if (picture() == Picture::demo)
        return {};
    return m_page == Page::automation
               ? text("“Vexmoor” wants access to control “Finder”.")
               : text("“Vexmoor” would like to access files in your Desktop folder.");
}

/// True if the user consented to the key and file managers can pass it to us.
bool Onboarding::keyIsAllowed() const {
    if (m_facts.automation != AutomationStatus::granted)
        return false;
    // A disabled key is not installed in any file manager.
    return !m_facts.keyIsOn || m_facts.key == KeyWay::captured || m_facts.key == KeyWay::bound;
}

bool Onboarding::keyWorks() const {
    return keyIsAllowed() && m_facts.keyIsOn &&
           (m_facts.key != KeyWay::captured || m_facts.accessible);
}

bool Onboarding::granted() const {
    switch (m_page) {
    case Page::accessibility:
        return m_facts.accessible;
    case Page::automation:
        return keyIsAllowed() || hasNoKey();
    case Page::folders:
        return !m_folders.empty();
    case Page::welcome:
    case Page::ready:
        break;
    }
    return true;
}

std::string Onboarding::primaryTitle() const {
    if (m_page == Page::ready)
        return text("Start Feeding");
    if (granted())
        return text("Continue");
    const bool isDeclined =
        m_page == Page::automation && m_facts.automation == AutomationStatus::denied;
    return m_page == Page::accessibility || isDeclined ? text("Open System Settings…")
                                                       : text("Allow…");
}

std::optional<std::string> Onboarding::secondaryTitle() const {
    return granted() ? std::nullopt : std::optional(text("Skip"));
}

Onboarding::Status Onboarding::status() const {
    switch (m_page) {
    case Page::welcome:
        return {};
    case Page::accessibility: {
        const bool isForKey = m_facts.key == KeyWay::captured;
        return {.tick = allowed(m_facts.accessible,
                                isForKey ? std::optional(text("Also needed for ⌘⌫ in Finder."))
                                         : std::nullopt)};
    }
    case Page::automation:
        return automationStatus();
    case Page::folders:
        return folderStatus();
    case Page::ready:
        return {.caption = text("Change permissions any time: Vexmoor menu > Set Up Permissions…")};
    }
    return {};
}

Onboarding::Status Onboarding::automationStatus() const {
    if (hasNoKey())
        return {.line = text("No installed file manager supports Ctrl+Backspace.")};
    if (m_facts.automation == AutomationStatus::denied)
        return {.line = text("Declined. Turn on Finder under Vexmoor in Automation.")};
    std::optional<std::string> note;
    if (!m_facts.keyIsOn)
        note = text("The key is turned off in the settings.");
    else if (m_facts.key == KeyWay::captured && !m_facts.accessible)
        note = text("Needs Accessibility from the previous step too.");
    return {.tick = allowed(keyIsAllowed(), std::move(note))};
}

Onboarding::Status Onboarding::folderStatus() const {
    if (m_folders.empty())
        return {.tick = Tick{false, text("Not asked yet"),
                             text("Files dropped on the Dock icon never need this.")}};
    Status status;
    for (const auto folder : FolderAccess::kAllFolders)
        status.badges.push_back({m_folders.at(folder), nameOf(folder)});
    if (std::ranges::any_of(status.badges, std::logical_not<>(), &Badge::ok))
        status.link = text("Turn on the missing folders in System Settings…");
    return status;
}

void Onboarding::primaryAction() {
    if (granted()) {
        next();
    } else if (m_page == Page::accessibility) {
        m_ports.openAccessibilitySettings();
    } else if (m_page == Page::folders) {
        probeFolders();
    } else if (m_facts.automation == AutomationStatus::denied) {
        m_ports.openAutomationSettings();
    } else {
        m_ports.askForAutomation([this, alive = std::weak_ptr(m_alive)] {
            if (alive.lock())
                poll();
        });
    }
}

void Onboarding::next() {
    if (m_page == Page::ready) {
        m_ports.finish();
        return;
    }
    m_page = static_cast<Page>(static_cast<int>(m_page) + 1);
    changed();
}

void Onboarding::openFolderSettings() {
    const auto missing =
        std::ranges::find(m_folders, false, &FolderAccess::Readable::value_type::second);
    if (missing != m_folders.end())
        m_ports.openFolderSettings(missing->first);
}

void Onboarding::poll() {
    const Facts facts = m_ports.facts();
    if (facts == m_facts)
        return;
    m_facts = facts;
    changed();
}

void Onboarding::probeFolders() {
    m_ports.probeFolders([this, alive = std::weak_ptr(m_alive)](const auto& readable) {
        if (!alive.lock())
            return;
        m_folders = readable;
        changed();
    });
}

void Onboarding::changed() const {
    if (onChange)
        onChange();
}

} // namespace vexmoor
