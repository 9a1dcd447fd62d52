#include "Commands.h"

#include "base/ByteCount.h"
#include "cli/ExitStatus.h"
#include "cli/Session.h"
#include "disposal/RecordJson.h"

#include <nlohmann/json.hpp>

#include <ctime>
#include <iomanip>
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
    const auto sentence = "The history can't be read: " + describe(session.error());
    complain(printable(sentence));
    if (asJson)
        std::cout << Json{{"error", displayText(sentence)}}.dump(2) << "\n";
    return session;
}

std::string localTime(Date date, const char* format) {
    const auto seconds = static_cast<std::time_t>(date.unixSeconds());
    std::tm local{};
    localtime_r(&seconds, &local);
    char text[64];
    std::strftime(text, sizeof text, format, &local);
    return text;
}

const char* fate(const Sacrifice& item) {
    if (item.restored)
        return "Put back";
    if (item.deleted)
        return "Deleted immediately";
    if (item.lost.value_or(false))
        return "No longer in the Bin";
    if (item.mode == DisposeMode::dissolve)
        return "Dissolved";
    return "In the Bin";
}

std::string origin(const Sacrifice& item) {
    return item.original ? "  from " + printable(Path(*item.original).parent_path().native()) : "";
}

/// The recent ones, whatever became of them, and with --all those that can be put back besides.
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
        days.push_back(
            {{"date", localTime(day, "%F")}, {"count", tally.count}, {"bytes", tally.bytes}});
    return days;
}

void printWeek(const std::vector<Ledger::DayOfWeek>& week) {
    std::cout << "\nThis week\n";
    for (const auto& [day, tally] : week)
        std::cout << "  " << localTime(day, "%a %F") << "  " << std::setw(8)
                  << countText(tally.count) << (tally.count == 1 ? " item   " : " items  ")
                  << byteCountText(tally.bytes) << "\n";
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
            array.push_back(toJson(item));
        std::cout << array.dump(2) << "\n";
        return kAllDone;
    }
    if (items.empty())
        std::cout << "The cauldron is hungry: nothing has been sacrificed yet.\n";
    for (const auto& item : items)
        std::cout << item.id.toString().substr(0, BinnedItems::kShortId) << "  "
                  << localTime(item.date, "%F %H:%M") << "  " << std::left << std::setw(20)
                  << fate(item) << "  " << std::right << std::setw(9) << byteCountText(item.bytes)
                  << "  " << printable(item.name) << origin(item) << "\n";
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
    std::cout << counted(ledger.count.get(), "sacrifice") << ", "
              << byteCountText(ledger.bytes.get()) << " consumed\n"
              << "Today: " << counted(today.count, "item") << ", " << byteCountText(today.bytes)
              << "\n"
              << "Streak: " << counted(progress.streak, "day") << " (best " << progress.bestStreak
              << ")\n"
              << "Cauldron: " << skin.name << "\n";
    printWeek(week);
    std::cout << "\n"
              << progress.unlocked.size() << " of " << Achievement::all().size()
              << " achievements\n";
    for (const auto& achievement : Achievement::all())
        if (std::ranges::count(progress.unlocked, achievement.id) > 0)
            std::cout << "  " << achievement.title << "\n    " << achievement.flavour << "\n";
    return kAllDone;
}

} // namespace vexmoor
