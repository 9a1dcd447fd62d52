#pragma once

#include <QCoreApplication>
#include <QString>

#include <optional>
#include <vector>

namespace vexmoor {

class Progression;
struct Skin;

/// Returns how to unlock a skin: the title of the first achievement with this reward, or a general
/// text for a secret one; nullopt if there is none.
std::optional<QString> unlockHint(const Skin& skin);

/// The display texts and state of a skin.
struct SkinCard {
    Q_DECLARE_TR_FUNCTIONS(vexmoor::SkinCard)

  public:
    const Skin* skin = nullptr; ///< never null
    QString name;
    QString blurb;
    QString help; ///< how to unlock it, or the blurb once unlocked
    bool isLocked = false;
    bool isChosen = false;

    /// Returns all skins in the order of Skin::all().
    static std::vector<SkinCard> all(const Progression& progression);

    bool operator==(const SkinCard&) const = default;
};

} // namespace vexmoor
