#pragma once

#include <QString>

namespace vexmoor {

/// The result of an update check.
struct UpdateCheck {
    enum class Outcome {
        upToDate,
        updateAvailable,
        notManaged, ///< no package owns this copy
        noService,  ///< the system has no package service
        failed,
    };

    Outcome outcome = Outcome::notManaged;
    QString version; ///< this copy's version if it is up to date, the new version if there is one
    QString problem; ///< the failure, as a sentence for the user

    friend bool operator==(const UpdateCheck&, const UpdateCheck&) = default;
};

/// Returns the text to show.
[[nodiscard]] QString sentenceFor(const UpdateCheck& check);

} // namespace vexmoor
