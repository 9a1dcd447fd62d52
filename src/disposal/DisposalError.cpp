#include "DisposalError.h"

#include "base/Path.h"
#include "base/SqliteError.h"
#include "base/Text.h"

#include <algorithm>
#include <iterator>

namespace vexmoor {

namespace {

struct Row {
    DisposalError code;
    const char* name;
    const char* sentence; ///< describe() adds details to some of these
};

constexpr Row kRows[] = {
    {DisposalError::goneFromBin, "goneFromBin", marked("It is no longer in the Bin.")},
    {DisposalError::isRoot, "isRoot", marked("The root of the file system can't be thrown away.")},
    {DisposalError::isHome, "isHome", marked("The home folder can't be thrown away.")},
    {DisposalError::isDots, "isDots",
     marked(
         "“.” and “..” stand for the current folder and its parent. Use the folder's own name.")},
    {DisposalError::isMountPoint, "isMountPoint",
     marked("A volume is mounted here. Unmount it first.")},
    {DisposalError::holdsMountPoint, "holdsMountPoint",
     marked("A volume is mounted inside this folder. Unmount it first.")},
    {DisposalError::isBin, "isBin", marked("This is the Bin itself.")},
    {DisposalError::isInsideBin, "isInsideBin", marked("It is already in the Bin.")},
    {DisposalError::holdsBin, "holdsBin", marked("This folder contains the Bin.")},
    {DisposalError::noBinOnVolume, "noBinOnVolume",
     marked("There is no Bin on its volume, and none could be created.")},
    {DisposalError::otherVolume, "otherVolume", marked("It can't be moved to another volume.")},
    {DisposalError::notInBin, "notInBin", marked("Its recorded path is not in a Bin.")},
    {DisposalError::invalidDestination, "invalidDestination",
     marked("Its recorded path can't be used.")},
    {DisposalError::noFreeName, "noFreeName", marked("No free name was found for it.")},
    {DisposalError::volumeNotThere, "volumeNotThere",
     marked("It is in the Bin of a volume that is not available.")},
    {DisposalError::withoutInfo, "withoutInfo",
     marked("The Bin has no record of where it came from. It was left in the Bin.")},
    {DisposalError::journalSetAside, "journalSetAside",
     marked("It can't be read and was renamed.")},
    {DisposalError::partlyRemoved, "partlyRemoved", marked("Not all of it could be removed.")},
    {DisposalError::stopped, "stopped", marked("It was stopped.")},
    {DisposalError::replaced, "replaced",
     marked("It was replaced in the meantime. The new item was not touched.")},
    {DisposalError::isOwnData, "isOwnData", marked("Vexmoor keeps its history here.")},
    {DisposalError::isPartOfSystem, "isPartOfSystem",
     marked("It is part of the running system and can't be moved to a Bin.")},
    {DisposalError::isOnTheWay, "isOnTheWay", marked("It is already being fed to the cauldron.")},
    {DisposalError::journalLost, "journalLost",
     marked("The journal is empty or missing, although batches were recorded in it.")},
    {DisposalError::volumeAway, "volumeAway",
     marked("It was being dissolved on a volume that is not available.")},
    {DisposalError::failedBefore, "failedBefore",
     marked("It failed before the batch was interrupted.")},
    {DisposalError::ambiguous, "ambiguous", marked("Several items match.")},
    {DisposalError::stoppedPartly, "stoppedPartly", marked("It was stopped.")},
    {DisposalError::cutOff, "cutOff", marked("Not all of it could be removed.")},
    {DisposalError::ownedByOther, "ownedByOther",
     marked("the folder for it belongs to another user")},
    {DisposalError::openToOthers, "openToOthers",
     marked("other users can write to the folder for it")},
    {DisposalError::reported, "reported", marked("Unknown error")},
};

const Row* rowOf(int code) {
    const auto* const row = std::ranges::find(kRows, static_cast<DisposalError>(code), &Row::code);
    return row == std::end(kRows) ? nullptr : row;
}

class DisposalCategory : public NamedCategory {
  public:
    [[nodiscard]] const char* name() const noexcept override { return "disposal"; }

    [[nodiscard]] std::string message(int code) const override {
        const Row* const row = rowOf(code);
        return row != nullptr ? text(row->sentence) : text("Unknown error");
    }

    [[nodiscard]] std::string codeName(int code) const override {
        const Row* const row = rowOf(code);
        return row != nullptr ? row->name : "unknown";
    }
};

std::string pathOf(const Error& error) {
    return displayText(error.path.native());
}

/// Lists the known causes.
std::string whatRemains(const Error& error) {
    std::string list;
    for (const auto& cause : error.causes)
        list += (list.empty() ? "" : ", ") + pathOf(cause) + " (" + cause.message() + ")";
    if (list.empty())
        return plural("Not all of it could be removed: %1 item remains.",
                      "Not all of it could be removed: %1 items remain.", error.count);
    return plural("Not all of it could be removed: %1 item remains, including %2.",
                  "Not all of it could be removed: %1 items remain, including %2.", error.count,
                  {list});
}

std::string describeAmbiguity(const Error& error) {
    if (error.count == 0)
        return text("Several items match: %1. Specify one by its id or path.", {error.operation});
    return plural("Several items match: %2, and %1 more. Specify one by its id or path.",
                  "Several items match: %2, and %1 more. Specify one by its id or path.",
                  error.count, {error.operation});
}

std::string describeOwn(const Error& error) {
    const auto item = [&] { return displayText(lastComponent(error.path)); };
    switch (static_cast<DisposalError>(error.code.value())) {
    case DisposalError::goneFromBin:
        return text("%1 is no longer in the Bin.", {item()});
    case DisposalError::volumeNotThere:
        return text("%1 is in the Bin of a volume that is not available.", {item()});
    case DisposalError::volumeAway:
        return text("%1 was being dissolved on a volume that is not available.", {item()});
    case DisposalError::journalSetAside:
        return text("It can't be read and was renamed to %1.", {pathOf(error)});
    case DisposalError::journalLost:
        return text(
            "The journal is empty or missing, although batches were recorded in it. Items of "
            "the last batches may be in the Bin without a record (%1).",
            {pathOf(error)});
    case DisposalError::failedBefore:
        return error.operation.empty()
                   ? error.message()
                   : text("It failed before the batch was interrupted: %1", {error.operation});
    case DisposalError::ambiguous:
        return describeAmbiguity(error);
    case DisposalError::partlyRemoved:
        return whatRemains(error);
    case DisposalError::stoppedPartly:
        return plural("Not all of it could be removed: it was stopped after %1 item.",
                      "Not all of it could be removed: it was stopped after %1 items.",
                      error.count);
    case DisposalError::cutOff:
        return text("Not all of it could be removed: %1 remains.", {pathOf(error)});
    case DisposalError::noBinOnVolume:
        return error.causes.empty()
                   ? error.message()
                   : text("There is no Bin on its volume, and none could be created: %1.",
                          {error.causes.front().message()});
    case DisposalError::reported:
        return error.operation;
    default:
        return error.message();
    }
}

} // namespace

const std::error_category& disposalCategory() {
    static const DisposalCategory category;
    return category;
}

std::error_code make_error_code(DisposalError error) {
    return {static_cast<int>(error), disposalCategory()};
}

std::optional<std::error_code> codeNamed(std::string_view name) {
    if (const auto* const row = std::ranges::find(kRows, name, &Row::name); row != std::end(kRows))
        return make_error_code(row->code);
    const auto ofDatabase = databaseCodeNamed(name);
    return ofDatabase ? ofDatabase : systemCodeNamed(name);
}

std::string describe(const Error& error) {
    if (error.code.category() == disposalCategory())
        return describeOwn(error);
    if (error.path.empty())
        return text("%1.", {error.message()});
    // Translators: a sentence, what was being done, and to which file.
    return text("%1 (%2 %3).", {error.message(), text(error.operation), pathOf(error)});
}

} // namespace vexmoor
