#pragma once

#include <QString>

namespace vexmoor {

/// What came of looking for updates of this copy.
struct UpdateCheck {
    enum class Outcome {
        upToDate,
        updateAvailable,
        notManaged, ///< it is of no package
        noService,  ///< there is no package service here
        failed,
    };

    Outcome outcome = Outcome::notManaged;
    QString version; ///< this copy's where it is up to date, the newer one's where there is one
    QString problem; ///< what failed, as a sentence for the user

    friend bool operator==(const UpdateCheck&, const UpdateCheck&) = default;
};

/// What the user is told.
[[nodiscard]] QString sentenceFor(const UpdateCheck& check);

} // namespace vexmoor
