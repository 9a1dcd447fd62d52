#include "DisposalError.h"

#include "base/Path.h"

namespace vexmoor {

namespace {

class DisposalCategory : public std::error_category {
  public:
    [[nodiscard]] const char* name() const noexcept override { return "disposal"; }
    [[nodiscard]] std::string message(int code) const override {
        switch (static_cast<DisposalError>(code)) {
        case DisposalError::goneFromBin:
            return "It is no longer in the Bin.";
        case DisposalError::isRoot:
            return "The root of the file system can't be thrown away.";
        case DisposalError::isHome:
            return "The home folder can't be thrown away.";
        case DisposalError::isDots:
            return "“.” and “..” name the folder you are in or the one above. Name it itself.";
        case DisposalError::isMountPoint:
            return "A volume is mounted here. Unmount it first.";
        case DisposalError::holdsMountPoint:
            return "A volume is mounted inside this folder. Unmount it first.";
        case DisposalError::isBin:
            return "This is the Bin itself.";
        case DisposalError::isInsideBin:
            return "It is in the Bin already.";
        case DisposalError::holdsBin:
            return "The Bin lies inside this folder.";
        case DisposalError::noBinOnVolume:
            return "There is no Bin on its volume, and none could be made.";
        case DisposalError::otherVolume:
            return "It can't be moved: the other place is on another volume.";
        case DisposalError::notInBin:
            return "Its recorded place is not in a Bin.";
        case DisposalError::invalidDestination:
            return "Its recorded place can't be used.";
        case DisposalError::noFreeName:
            return "No free name was found for it.";
        case DisposalError::volumeNotThere:
            return "It is in the Bin of a volume that is not there now.";
        case DisposalError::withoutInfo:
            return "The Bin no longer says where it came from. It was left there.";
        case DisposalError::journalSetAside:
            return "It can't be understood and was set aside";
        case DisposalError::partlyRemoved:
            return "Not all of it could be removed";
        case DisposalError::stopped:
            return "It was stopped.";
        case DisposalError::replaced:
            return "Something else took its place in the meantime, which was not touched.";
        case DisposalError::isOwnData:
            return "Vexmoor keeps its history here.";
        case DisposalError::isPartOfSystem:
            return "It is a part of the running system, which no Bin can hold.";
        case DisposalError::isOnTheWay:
            return "It is on its way into the cauldron already.";
        case DisposalError::journalLost:
            return "The journal is empty or gone, though batches were noted in it. Items of the "
                   "last ones may be in the Bin without a record";
        case DisposalError::volumeAway:
            return "It was being dissolved on a volume that is not there now.";
        case DisposalError::failedBefore:
            return "It failed before the batch was cut off";
        case DisposalError::ambiguous:
            return "Several items are meant by this";
        }
        return "Unknown error";
    }
};

} // namespace

const std::error_category& disposalCategory() {
    static const DisposalCategory category;
    return category;
}

std::error_code make_error_code(DisposalError error) {
    return {static_cast<int>(error), disposalCategory()};
}

std::string describe(const Error& error) {
    if (error.code == DisposalError::goneFromBin)
        return displayText(lastComponent(error.path)) + " is no longer in the Bin.";
    if (error.code == DisposalError::volumeNotThere)
        return displayText(lastComponent(error.path)) +
               " is in the Bin of a volume that is not there now.";
    if (error.code == DisposalError::journalSetAside)
        return error.message() + " as " + displayText(error.path.native()) + ".";
    if (error.code == DisposalError::journalLost)
        return error.message() + " (" + displayText(error.path.native()) + ").";
    if (error.code == DisposalError::volumeAway)
        return displayText(lastComponent(error.path)) +
               " was being dissolved on a volume that is not there now.";
    if (error.code == DisposalError::failedBefore)
        return error.message() + (error.operation.empty() ? "." : ": " + error.operation);
    if (error.code == DisposalError::ambiguous)
        return error.message() + ": " + error.operation + ". Name one by its id or its path.";
    if (error.code == DisposalError::partlyRemoved)
        return error.message() + ": " + error.operation + ".";
    if (error.code == DisposalError::noBinOnVolume && !error.operation.empty())
        return "There is no Bin on its volume, and none could be made: " + error.operation + ".";
    if (error.code.category() == disposalCategory())
        return error.message();
    std::string sentence = error.message();
    if (!error.path.empty())
        sentence += " (" + error.operation + " " + displayText(error.path.native()) + ")";
    return sentence + ".";
}

} // namespace vexmoor
