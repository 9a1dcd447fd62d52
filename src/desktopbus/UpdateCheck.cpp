#include "UpdateCheck.h"

#include <QCoreApplication>

namespace vexmoor {
namespace {

struct Text {
    Q_DECLARE_TR_FUNCTIONS(vexmoor::UpdateCheck)
};

} // namespace

QString sentenceFor(const UpdateCheck& check) {
    switch (check.outcome) {
    case UpdateCheck::Outcome::upToDate:
        return Text::tr("Vexmoor %1 is up to date.").arg(check.version);
    case UpdateCheck::Outcome::updateAvailable:
        return Text::tr("Vexmoor %1 is available from your system's software updates.")
            .arg(check.version);
    case UpdateCheck::Outcome::notManaged:
        return Text::tr("This copy of Vexmoor was not installed by the system's package service, "
                        "so it can't look for updates.");
    case UpdateCheck::Outcome::noService:
        return Text::tr("This system has no package service that Vexmoor can ask for updates. "
                        "Look for updates where you got Vexmoor.");
    case UpdateCheck::Outcome::failed:
        break;
    }
    return check.problem;
}

} // namespace vexmoor
