#pragma once

#include "base/Published.h"
#include "base/UserDefaults.h"
#include "intake/Ports.h"

#include <functional>
#include <vector>

namespace vexmoor {

enum class AutomationStatus { granted, notAsked, denied };

/// The user's consent to reading the file managers' selection and installing the key. The dialog is
/// shown once; afterwards only set() changes the answer. Main thread.
class Automation {
  public:
    static constexpr const char* kKey = "automation";

    using Completion = std::function<void(AutomationStatus)>;

    /// Both arguments must outlive this object.
    Automation(UserDefaults& defaults, Dialogs& dialogs);

    /// Returns the current consent, published on each change.
    [[nodiscard]] const Published<AutomationStatus>& status() const { return m_status; }
    [[nodiscard]] Subscription subscribe(const std::function<void(AutomationStatus)>& subscriber) {
        return m_status.subscribe(subscriber);
    }

    /// Asks the user if there is no answer yet. Calls `completion` once, immediately or when the
    /// dialog closes; concurrent requests share the dialog.
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
