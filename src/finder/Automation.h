#pragma once

#include "base/Published.h"
#include "base/UserDefaults.h"
#include "intake/Ports.h"

#include <functional>
#include <vector>

namespace vexmoor {

enum class AutomationStatus { granted, notAsked, denied };

/// The user's consent to asking file managers for their selection and giving them the key. The
/// question is shown once; afterwards only set() changes the answer. Main thread.
class Automation {
  public:
    static constexpr const char* kKey = "automation";

    using Completion = std::function<void(AutomationStatus)>;

    /// Defaults and dialogs must outlive it.
    Automation(UserDefaults& defaults, Dialogs& dialogs);

    /// The consent as it stands; published at every change.
    [[nodiscard]] const Published<AutomationStatus>& status() const { return m_status; }
    [[nodiscard]] Subscription subscribe(const std::function<void(AutomationStatus)>& subscriber) {
        return m_status.subscribe(subscriber);
    }

    /// Asks the user if he was not asked yet. Answers once, at once or when the dialog closes;
    /// requests that come in the meantime share the dialog.
    void request(Completion completion);

    void set(AutomationStatus status);

  private:
    void finish(const Answer& answer);

    UserDefaults& m_defaults;
    Dialogs& m_dialogs;
    Published<AutomationStatus> m_status;
    std::vector<Completion> m_waiting;
};

} // namespace vexmoor
