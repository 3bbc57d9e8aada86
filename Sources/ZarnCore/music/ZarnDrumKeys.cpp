// SPDX-License-Identifier: MIT
#include <ZarnCore/music/ZarnDrumKeys.h>

#include <array>

namespace zarn {

namespace {

constexpr std::size_t keyCount = lastDrumKey - firstDrumKey + 1;

/// From key 35 on. No word ends in a way that a shorter word and a length letter could be meant.
constexpr std::array<DrumKey, keyCount> keys = {{
    {"Kick 2", "kick2"},
    {"Kick", "kick"},
    {"Snare", "rim", "sidestick"},
    {"Snare", "snare"},
    {"Hand clap", "clap"},
    {"Snare", "snare2"},
    {"Floor tom 2", "tom6", "floortom2"},
    {"Hi-hat", "hat", "hihat"},
    {"Floor tom", "tom5", "floortom"},
    {"Hi-hat foot", "pedalhat", "pedalhihat"},
    {"Low tom", "tom4", "lowtom"},
    {"Hi-hat", "openhat", "openhihat"},
    {"Mid tom 2", "tom3"},
    {"Mid tom", "tom2", "midtom"},
    {"Crash", "crash"},
    {"High tom", "tom1", "hightom"},
    {"Ride", "ride"},
    {"China", "china"},
    {"Ride", "bell", "ridebell"},
    {"Tambourine", "tambourine"},
    {"Splash", "splash"},
    {"Cowbell", "cowbell"},
    {"Crash 2", "crash2"},
    {"Vibraslap", "vibraslap"},
    {"Ride 2", "ride2"},
    {"High bongo", "highbongo"},
    {"Low bongo", "lowbongo"},
    {"High conga", "mutedconga"},
    {"High conga", "highconga"},
    {"Low conga", "lowconga"},
    {"High timbale", "hightimbale"},
    {"Low timbale", "lowtimbale"},
    {"High agogo", "highagogo"},
    {"Low agogo", "lowagogo"},
    {"Cabasa", "cabasa"},
    {"Maracas", "maracas"},
    {"Whistle", "shortwhistle"},
    {"Whistle", "longwhistle"},
    {"Guiro", "shortguiro"},
    {"Guiro", "longguiro"},
    {"Claves", "claves"},
    {"High block", "highblock"},
    {"Low block", "lowblock"},
    {"Cuica", "mutedcuica"},
    {"Cuica", "cuica"},
    {"Triangle", "mutedtriangle"},
    {"Triangle", "triangle"},
}};

int keyAt(std::size_t place) noexcept
{
    return firstDrumKey + static_cast<int>(place);
}

} // namespace

const DrumKey *drumKey(int key) noexcept
{
    return key < firstDrumKey || key > lastDrumKey
        ? nullptr
        : &keys[static_cast<std::size_t>(key - firstDrumKey)];
}

std::optional<DrumWord> drumWordAt(std::string_view text) noexcept
{
    DrumWord longest;
    for (std::size_t i = 0; i < keys.size(); ++i)
        for (const std::string_view word : {keys[i].word, keys[i].otherWord})
            if (word.size() > longest.length && text.substr(0, word.size()) == word)
                longest = {keyAt(i), word.size()};
    return longest.length > 0 ? std::optional<DrumWord>(longest) : std::nullopt;
}

int drumKeyOf(std::string_view word) noexcept
{
    const auto found = drumWordAt(word);
    return found && found->length == word.size() ? found->key : -1;
}

std::vector<std::string_view> drumWords()
{
    std::vector<std::string_view> words;
    for (const DrumKey &key : keys)
        for (const std::string_view word : {key.word, key.otherWord})
            if (!word.empty())
                words.push_back(word);
    return words;
}

} // namespace zarn
