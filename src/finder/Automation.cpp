#include "Automation.h"

#include "base/Text.h"

#include <QLoggingCategory>

#include <utility>

namespace vexmoor {

namespace {

Q_LOGGING_CATEGORY(finderLog, "finder", QtInfoMsg)

constexpr const char* kGranted = "granted";
constexpr const char* kDenied = "denied";

AutomationStatus stored(const UserDefaults& defaults) {
    const auto answer = defaults.string(Automation::kKey);
    if (answer == kGranted)
        return AutomationStatus::granted;
    return answer == kDenied ? AutomationStatus::denied : AutomationStatus::notAsked;
}

/// Returns the Apple event status code: no error, not permitted, consent required.
int codeOf(AutomationStatus status) {
    switch (status) {
    case AutomationStatus::granted:
        return 0;
    case AutomationStatus::denied:
        return -1743;
    case AutomationStatus::notAsked:
        return -1744;
    }
    return -1744;
}

Question consentQuestion() {
    return {text("“Vexmoor” wants access to control the file manager."),
            text("When you press Ctrl+Backspace there, it asks for the selected files and "
                 "feeds them to the cauldron."),
            text("Allow"),
            text("Don't Allow"),
            {}};
}

} // namespace

Automation::Automation(UserDefaults& defaults, Dialogs& dialogs)
    : m_defaults(defaults), m_dialogs(dialogs), m_status(stored(defaults)) {}

void Automation::request(Completion completion) {
    qCInfo(finderLog, "automation status for Finder: %d (ask=%d)", codeOf(m_status.get()), 1);
    if (m_status.get() != AutomationStatus::notAsked) {
        completion(m_status.get());
        return;
    }
    m_waiting.push_back(std::move(completion));
    if (m_waiting.size() == 1)
        m_dialogs.ask(consentQuestion(), [this](const Answer& answer) { finish(answer); });
}

void Automation::finish(const Answer& answer) {
    if (answer.isGiven)
        set(answer.confirmed ? AutomationStatus::granted : AutomationStatus::denied);
    for (const auto& completion : std::exchange(m_waiting, {}))
        completion(m_status.get());
}

void Automation::set(AutomationStatus status) {
    if (status == AutomationStatus::notAsked)
        m_defaults.assign(kKey, std::nullopt);
    else
        m_defaults.assign(kKey,
                          std::string(status == AutomationStatus::granted ? kGranted : kDenied));
    qCInfo(finderLog, "automation status for Finder: %d (ask=%d)", codeOf(status), 0);
    m_status.set(status);
}

} // namespace vexmoor
