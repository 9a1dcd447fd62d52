#include "Progression.h"

#include "base/LowerCase.h"
#include "base/Saturated.h"
#include "base/Text.h"
#include "disposal/Ledger.h"

#include <algorithm>

namespace vexmoor {

namespace {

constexpr const char* kKey = "progression";

Progress freshProgress(const Ledger* ledger) {
    Progress progress;
    if (ledger != nullptr) {
        progress.items = ledger->count.get();
        progress.bytes = ledger->bytes.get();
    }
    return progress;
}

void add(Progress& progress, const Progression::Offering& offering, DisposeMode mode) {
    progress.items = saturatedSum(progress.items, 1);
    progress.bytes = saturatedSum(progress.bytes, offering.bytes);
    progress.biggest = std::max(progress.biggest, offering.bytes);
    if (offering.isFolder)
        progress.folders = saturatedSum(progress.folders, 1);
    if (mode == DisposeMode::dissolve)
        progress.dissolved = saturatedSum(progress.dissolved, 1);
    // Invalid UTF-8 becomes U+FFFD, so that all such extensions count as one type.
    if (const auto extension = pathExtension(offering.url.native()); !extension.empty())
        progress.extensions.insert(lowercased(displayText(extension)));
}

bool isUnlocked(const Progress& progress, const Achievement& achievement) {
    return std::ranges::find(progress.unlocked, achievement.id) != progress.unlocked.end();
}

NotificationPort::Notification announcement(const Achievement& achievement) {
    const auto flavour = text(achievement.flavour);
    auto body =
        achievement.reward == nullptr
            ? flavour
            // Translators: the achievement's sentence, and the name of a cauldron.
            : text("%1 Unlocked the %2 cauldron.", {flavour, text(achievement.reward->name)});
    return {"achievement." + std::string(achievement.id),
            text("Achievement: %1", {text(achievement.title)}), std::move(body)};
}

} // namespace

Progression::Progression(UserDefaults& defaults, const Ledger* ledger, Clock clock,
                         NotificationPort& notifications, SkinHandler onSkinChosen)
    : m_defaults(defaults), m_clock(std::move(clock)), m_notifications(notifications),
      m_onSkinChosen(std::move(onSkinChosen)) {
    const auto stored = defaults.data(kKey);
    auto loaded = stored ? decodeProgress(stored->bytes) : std::nullopt;
    m_progress.set(loaded ? *std::move(loaded) : freshProgress(ledger));
    const Skin& skin = Skin::named(progress().skin);
    if (skin.id != progress().skin) {
        auto corrected = progress();
        corrected.skin = skin.id;
        assign(std::move(corrected));
    }
    m_onSkinChosen(skin);
}

std::vector<Achievement> Progression::record(std::span<const Offering> offerings, DisposeMode mode,
                                             std::optional<Date> moment) {
    if (offerings.empty())
        return {};
    auto updated = progress();
    for (const auto& offering : offerings)
        add(updated, offering, mode);
    advanceStreak(updated, moment);
    std::vector<Achievement> earned;
    for (const auto& achievement : Achievement::all())
        if (!isUnlocked(updated, achievement) &&
            achievement.progress(updated) >= achievement.target)
            earned.push_back(achievement);
    for (const auto& achievement : earned)
        updated.unlocked.emplace_back(achievement.id);
    assign(std::move(updated));
    return earned;
}

void Progression::advanceStreak(Progress& progress, std::optional<Date> moment) const {
    const Date today = m_calendar.startOfDay(moment.value_or(m_clock()));
    if (moment && progress.lastDay && today < *progress.lastDay)
        return;
    const auto days =
        progress.lastDay ? m_calendar.daysBetween(*progress.lastDay, today) : std::nullopt;
    if (!progress.lastDay)
        progress.streak = 1;
    else if (days && *days != 0)
        progress.streak = *days == 1 ? saturatedSum(progress.streak, 1) : 1;
    progress.lastDay = today;
    progress.bestStreak = std::max(progress.bestStreak, progress.streak);
}

void Progression::notify(const std::vector<Achievement>& achievements) {
    m_notifications.requestAuthorization([&port = m_notifications, achievements](bool granted) {
        if (!granted)
            return;
        for (const auto& achievement : achievements)
            port.post(announcement(achievement));
    });
}

std::vector<Skin> Progression::unlockedSkins() const {
    std::vector<Skin> result;
    for (const auto& skin : Skin::all())
        if (skin.id == Skin::iron().id ||
            std::ranges::any_of(Achievement::all(), [&](const Achievement& achievement) {
                return achievement.reward != nullptr && achievement.reward->id == skin.id &&
                       isUnlocked(progress(), achievement);
            }))
            result.push_back(skin);
    return result;
}

void Progression::select(const Skin& skin) {
    if (std::ranges::none_of(unlockedSkins(), [&](const Skin& one) { return one.id == skin.id; }))
        return;
    auto updated = progress();
    updated.skin = skin.id;
    assign(std::move(updated));
    m_onSkinChosen(skin);
}

void Progression::unlockAll() {
    auto updated = progress();
    const auto raise = [](std::int64_t& total, std::int64_t floor) {
        total = std::max(total, floor);
    };
    raise(updated.items, 10000);
    raise(updated.bytes, std::int64_t{1} << 40);
    raise(updated.biggest, std::int64_t{50} << 30);
    raise(updated.folders, 1000);
    raise(updated.dissolved, 100);
    raise(updated.bestStreak, 365);
    if (updated.extensions.size() <= 24)
        for (int i = 0; i < 25; ++i)
            updated.extensions.insert("ext" + std::to_string(i));
    for (const auto& achievement : Achievement::all())
        if (!isUnlocked(updated, achievement))
            updated.unlocked.emplace_back(achievement.id);
    assign(std::move(updated));
}

void Progression::reset() {
    assign(Progress());
    m_onSkinChosen(Skin::iron());
}

void Progression::assign(Progress progress) {
    m_defaults.assign(kKey, UserDefaults::Data{encode(progress)});
    m_progress.set(std::move(progress));
}

} // namespace vexmoor
