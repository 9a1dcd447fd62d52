#include "SkinCard.h"

#include "CatalogueText.h"

#include "progression/Achievement.h"
#include "progression/Progression.h"

#include <algorithm>

namespace vexmoor {

std::optional<QString> unlockHint(const Skin& skin) {
    const auto all = Achievement::all();
    const auto found = std::ranges::find_if(all, [&skin](const Achievement& achievement) {
        return achievement.reward != nullptr && achievement.reward->id == skin.id;
    });
    if (found == all.end())
        return std::nullopt;
    return found->secret ? SkinCard::tr("a very hard achievement") : catalogueText(found->title);
}

std::vector<SkinCard> SkinCard::all(const Progression& progression) {
    const auto unlocked = progression.unlockedSkins();
    std::vector<SkinCard> cards;
    for (const Skin& skin : Skin::all()) {
        SkinCard card;
        card.skin = &skin;
        card.name = catalogueText(skin.name);
        card.blurb = catalogueText(skin.blurb);
        card.isLocked = std::ranges::find(unlocked, skin.id, &Skin::id) == unlocked.end();
        card.isChosen = progression.progress().skin == skin.id;
        card.help =
            card.isLocked
                ? tr("Locked: %1").arg(unlockHint(skin).value_or(tr("keep feeding the cauldron")))
                : card.blurb;
        cards.push_back(std::move(card));
    }
    return cards;
}

} // namespace vexmoor
