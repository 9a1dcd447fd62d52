#include "Achievement.h"

#include "base/Marked.h"
#include "progression/Progress.h"

#include <algorithm>

namespace vexmoor {

namespace {

constexpr std::int64_t kGibibyte = std::int64_t{1} << 30;
constexpr std::int64_t kTebibyte = std::int64_t{1} << 40;

constexpr bool kOpen = false;
constexpr bool kSecret = true;

using Text = std::string_view;
using Field = std::int64_t Progress::*;

template <Field field>
std::int64_t valueOf(const Progress& progress) {
    return progress.*field;
}

/// Uses the best streak too, so that a streak counts after it ends.
template <Field field>
std::int64_t bestOf(const Progress& progress) {
    return std::max(progress.*field, progress.bestStreak);
}

std::int64_t extensionsOf(const Progress& progress) {
    return std::ssize(progress.extensions);
}

template <Field field>
Achievement count(Text id, Text title, Text flavour, std::int64_t target, const Skin* reward,
                  bool secret) {
    return {id, title, flavour, target, &valueOf<field>, reward, secret, Achievement::Unit::count};
}

template <Field field>
Achievement bytes(Text id, Text title, Text flavour, std::int64_t target, const Skin* reward,
                  bool secret) {
    return {id, title, flavour, target, &valueOf<field>, reward, secret, Achievement::Unit::bytes};
}

template <Field field>
Achievement days(Text id, Text title, Text flavour, std::int64_t target, const Skin* reward,
                 bool secret) {
    return {id, title, flavour, target, &bestOf<field>, reward, secret, Achievement::Unit::days};
}

} // namespace

std::span<const Achievement> Achievement::all() {
    using P = Progress;
    // clang-format off
    static const Achievement kAll[] = {
        count<&P::items>("first", marked("First Offering"),
            marked("Everyone starts somewhere. Usually with a screenshot."),
            1, nullptr, kOpen),
        count<&P::items>("items10", marked("Getting Warm"),
            marked("Ten things gone. The acid is starting to enjoy this."),
            10, &Skin::copper(), kOpen),
        count<&P::items>("items100", marked("Regular Customer"),
            marked("A hundred sacrifices. The pot knows your name."),
            100, &Skin::cobalt(), kOpen),
        count<&P::items>("items1k", marked("Bottomless"),
            marked("A thousand items and it never once asked for more."),
            1000, &Skin::lava(), kOpen),
        count<&P::items>("items10k", marked("Ten Thousand Souls"),
            marked("Nobody has this many files. You did."),
            10000, &Skin::gold(), kSecret),
        bytes<&P::bytes>("gb1", marked("A Gigabyte Gone"),
            marked("A whole gigabyte, dissolved into green."),
            kGibibyte, &Skin::witchfire(), kOpen),
        bytes<&P::bytes>("gb100", marked("Hundred Gigs"),
            marked("Enough footage to film a very dull documentary."),
            100 * kGibibyte, &Skin::obsidian(), kSecret),
        bytes<&P::bytes>("tb1", marked("Terabyte Tomb"),
            marked("A terabyte went in. Nothing came out."),
            kTebibyte, &Skin::voidSkin(), kSecret),
        bytes<&P::biggest>("big1gb", marked("Big Fish"),
            marked("One item over a gigabyte. The pot had to stretch."),
            kGibibyte, nullptr, kOpen),
        bytes<&P::biggest>("big50gb", marked("Leviathan"),
            marked("A single item over fifty gigabytes. What was it?"),
            50 * kGibibyte, &Skin::abyss(), kSecret),
        count<&P::folders>("folders10", marked("Spring Clean"),
            marked("Ten whole folders, contents and all."),
            10, nullptr, kOpen),
        count<&P::folders>("folders100", marked("Demolition"),
            marked("A hundred folders. Whole wings of a filing cabinet."),
            100, &Skin::rust(), kOpen),
        count<&P::folders>("folders1k", marked("Archivist"),
            marked("A thousand folders. Someone kept everything, once."),
            1000, &Skin::mahogany(), kSecret),
        count<&P::dissolved>("dissolve1", marked("No Going Back"),
            marked("Dissolved something. No Bin, no Put Back."),
            1, nullptr, kOpen),
        count<&P::dissolved>("dissolve100", marked("Necromancer"),
            marked("A hundred things that will never be put back."),
            100, &Skin::bone(), kOpen),
        days<&P::streak>("streak7", marked("Daily Ritual"),
            marked("Seven days in a row. It is a habit now."),
            7, &Skin::verdigris(), kOpen),
        days<&P::streak>("streak30", marked("Devoted"),
            marked("A month without missing a day."),
            30, &Skin::frost(), kOpen),
        days<&P::streak>("streak365", marked("Eternal Flame"),
            marked("A full year of daily offerings."),
            365, &Skin::starlight(), kSecret),
        {"omnivore", marked("Omnivore"),
            marked("Twenty-five different file types, no complaints."),
            25, &extensionsOf, nullptr, kOpen, Unit::count},
    };
    // clang-format on
    return kAll;
}

} // namespace vexmoor
