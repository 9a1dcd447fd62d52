#include "BinLook.h"

#include "disposal/TrashDirectory.h"

namespace vexmoor {

bool BinLook::isInBin(const Sacrifice& item) {
    const auto answer = m_volumes.answerFor(*item.trashed);
    return answer == VolumeCheck::Answer::notYet ||
           (answer == VolumeCheck::Answer::yes && fileStatus(*item.trashed).ok());
}

bool BinLook::isGone(const Sacrifice& item) {
    return m_volumes.answersFor(*item.trashed) && !fileStatus(*item.trashed) &&
           !TrashDirectory::isOnAbsentVolume(*item.trashed);
}

} // namespace vexmoor
