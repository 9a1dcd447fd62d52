#include "Commands.h"

#include "base/ByteCount.h"
#include "base/DateText.h"
#include "cli/Columns.h"
#include "cli/ExitStatus.h"
#include "cli/Outcome.h"
#include "cli/Session.h"
#include "disposal/RecordJson.h"

#include <nlohmann/json.hpp>

#include <unistd.h>

#include <ctime>
#include <iostream>
#include <limits>
#include <set>

namespace vexmoor {

using Json = nlohmann::ordered_json;

namespace {

Result<std::unique_ptr<Session>> openOrComplain(bool asJson) {
    auto session = Session::openForReading();
    if (session)
        return session;
    const Refusal refusal(kRefused, "historyNotRead", session.error(), [](const std::string& why) {
        return text("The history can't be read: %1", {why});
    });
    complain(printable(refusal.sentence));
    if (asJson)
        std::cout << toJson(refusal).dump(2) << "\n";
    return session;
}

/// Returns the day in ISO 8601, in the local time zone.
std::string isoDay(Date date) {
    const auto seconds = static_cast<std::time_t>(date.unixSeconds());
    std::tm local{};
    localtime_r(&seconds, &local);
    char day[64];
    std::strftime(day, sizeof day, "%F", &local);
    return day;
}

constexpr const char* kPutBack = marked("Put back");
constexpr const char* kDeleted = marked("Deleted from the Bin");
constexpr const char* kLost = marked("No longer in the Bin");
constexpr const char* kDissolved = marked("Dissolved");
constexpr const char* kInBin = marked("In the Bin");

const char* fate(const Sacrifice& item) {
    if (item.restored)
        return kPutBack;
    if (item.deleted)
        return kDeleted;
    if (item.lost.value_or(false))
        return kLost;
    return item.mode == DisposeMode::dissolve ? kDissolved : kInBin;
}

Colour colourOf(const char* fate) {
    return fate == kInBin ? Colour::green : fate == kLost ? Colour::yellow : Colour::dim;
}

std::size_t widestFate() {
    std::size_t width = 0;
    for (const char* fate : {kPutBack, kDeleted, kLost, kDissolved, kInBin})
        width = std::max(width, characters(text(fate)));
    return width;
}

std::string origin(const Sacrifice& item) {
    return item.original
               ? "  " + text("from %1", {printable(Path(*item.original).parent_path().native())})
               : "";
}

/// Returns the recent items in any state; with --all also all others that can be put back.
std::vector<Sacrifice> historyOf(Session& session, const Invocation& invocation) {
    auto items = session.ledger().recent.get();
    const auto most = invocation.number > 0 ? invocation.number
                      : invocation.all      ? std::numeric_limits<std::size_t>::max()
                                            : items.size();
    if (invocation.all) {
        std::set<Uuid> recent;
        for (const auto& item : items)
            recent.insert(item.id);
        session.binnedItems().visit([&](const Sacrifice& item) {
            if (!recent.contains(item.id))
                items.push_back(item);
            return items.size() < most;
        });
    }
    items.resize(std::min(items.size(), most));
    return items;
}

Json weekJson(const std::vector<Ledger::DayOfWeek>& week) {
    Json days = Json::array();
    for (const auto& [day, tally] : week)
        days.push_back({{"date", isoDay(day)}, {"count", tally.count}, {"bytes", tally.bytes}});
    return days;
}

void printWeek(const std::vector<Ledger::DayOfWeek>& week) {
    constexpr std::size_t kItemsWidth = 14;
    std::cout << "\n" << text("This week") << "\n";
    for (const auto& [day, tally] : week)
        std::cout << "  " << weekdayText(day) << " " << dateText(day) << "  "
                  << rightAligned(plural("%1 item", "%1 items", tally.count), kItemsWidth) << "  "
                  << sizeText(tally.bytes) << "\n";
}

} // namespace

int runHistory(const Invocation& invocation) {
    const auto session = openOrComplain(invocation.json);
    if (!session)
        return kRefused;
    const auto items = historyOf(**session, invocation);
    if (invocation.json) {
        Json array = Json::array();
        for (const auto& item : items)
            array.push_back(toDocument(item));
        std::cout << array.dump(2) << "\n";
        return kAllDone;
    }
    if (items.empty())
        std::cout << text("The cauldron is hungry: nothing has been sacrificed yet.") << "\n";
    constexpr std::size_t kSizeWidth = 9;
    const auto fateWidth = widestFate();
    for (const auto& item : items)
        std::cout << item.id.toString().substr(0, BinnedItems::kShortId) << "  "
                  << dateTimeText(item.date) << "  "
                  << coloured(leftAligned(text(fate(item)), fateWidth), colourOf(fate(item)),
                              STDOUT_FILENO)
                  << "  " << rightAligned(sizeText(item.bytes), kSizeWidth) << "  "
                  << printable(item.name) << origin(item) << "\n";
    return kAllDone;
}

int runStats(const Invocation& invocation) {
    const auto session = openOrComplain(invocation.json);
    if (!session)
        return kRefused;
    const auto& ledger = (*session)->ledger();
    const auto& progress = (*session)->progression().progress();
    const auto week = ledger.week(Date::now());
    const auto& today = week.back().tally;
    const auto skin = Skin::named(progress.skin);
    if (invocation.json) {
        Json unlocked = progress.unlocked;
        const Json json = {
            {"count", ledger.count.get()},
            {"bytes", ledger.bytes.get()},
            {"today", {{"count", today.count}, {"bytes", today.bytes}}},
            {"week", weekJson(week)},
            {"streak", progress.streak},
            {"bestStreak", progress.bestStreak},
            {"achievements", {{"unlocked", unlocked}, {"of", Achievement::all().size()}}},
            {"skin", progress.skin}};
        std::cout << json.dump(2) << "\n";
        return kAllDone;
    }
    std::cout << plural("%1 sacrifice, %2 consumed", "%1 sacrifices, %2 consumed",
                        ledger.count.get(), {sizeText(ledger.bytes.get())})
              << "\n"
              << plural("Today: %1 item, %2", "Today: %1 items, %2", today.count,
                        {sizeText(today.bytes)})
              << "\n"
              << plural("Streak: %1 day (best %2)", "Streak: %1 days (best %2)", progress.streak,
                        {countText(progress.bestStreak)})
              << "\n"
              << text("Cauldron: %1", {text(skin.name)}) << "\n";
    printWeek(week);
    std::cout << "\n"
              << text("%1 of %2 achievements", {countText(std::ssize(progress.unlocked)),
                                                countText(std::ssize(Achievement::all()))})
              << "\n";
    for (const auto& achievement : Achievement::all())
        if (std::ranges::count(progress.unlocked, achievement.id) > 0)
            std::cout << "  " << text(achievement.title) << "\n    " << text(achievement.flavour)
                      << "\n";
    return kAllDone;
}

} // namespace vexmoor
