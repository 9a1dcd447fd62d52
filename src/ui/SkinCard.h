#pragma once

#include <QCoreApplication>
#include <QString>

#include <optional>
#include <vector>

namespace vexmoor {

class Progression;
struct Skin;

/// How a skin is earned: the title of the first achievement that rewards it, or as much as is said
/// of a secret one; nullopt if none does.
std::optional<QString> unlockHint(const Skin& skin);

/// One skin as it is offered. A plain value.
struct SkinCard {
    Q_DECLARE_TR_FUNCTIONS(vexmoor::SkinCard)

  public:
    const Skin* skin = nullptr; ///< never null
    QString name;
    QString blurb;
    QString help; ///< how it is earned while it is locked, else the blurb
    bool isLocked = false;
    bool isChosen = false;

    /// All, in the order of Skin::all().
    static std::vector<SkinCard> all(const Progression& progression);

    bool operator==(const SkinCard&) const = default;
};

} // namespace vexmoor
