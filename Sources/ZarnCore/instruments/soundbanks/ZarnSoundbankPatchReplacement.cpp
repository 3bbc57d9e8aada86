// SPDX-License-Identifier: MIT
#include <ZarnCore/instruments/soundbanks/ZarnSoundbankPatchReplacement.h>

#include <array>
#include <cstddef>
#include <string_view>

namespace zarn {

namespace {

constexpr std::size_t maximumMemberCount = 18;

/// Identifiers that one patch stands for; null behind the last.
struct Family {
    const char *representative;
    std::array<const char *, maximumMemberCount> members;
};

// "Standard-Guitar" and "Rockabilly-Guitar" stand twice, as they always did.
// clang-format off
constexpr Family families[] = {
    {"Strat-Guitar", {"Tele-Guitar", "Jazz-Guitar", "Gold-Guitar", "Rick6-Guitar", "Dano-Guitar"}},
    {"Classic-Guitar", {"Standard-Guitar", "Standard-Guitar", "Custom-Guitar", "Randy-Guitar",
        "Satch-Guitar", "Metal-Guitar", "Baritone-Guitar"}},
    {"ES-Guitar", {"Rockabilly-Guitar", "Rockabilly-Guitar", "L4-Guitar"}},
    {"12-Steel", {"Rick12-Guitar"}},
    {"Concerto-Nylon", {"Modern-Nylon"}},
    {"D-Steel", {"Blues-Steel", "Jumbo-Steel", "Peacock-Steel", "Reso-Nylon", "American-Mandolin"}},
    {"Pre-Bass", {"Jazz-Bass", "Violin-Bass", "Rick-Bass", "Sting-Bass", "Modern-Bass",
        "Fretless-Bass"}},
    {"German-APiano", {"Eastern-APiano", "Upright-APiano"}},
    {"MarkI-EPiano", {"200A-EPiano", "CP-EPiano"}},
    {"Jazz-Organ", {"Ballad-Organ", "Blues-Organ", "Full-Organ", "Rock-Organ"}},
    {"FMSyn-Bass", {"Dep-Bass", "FMElectro-Bass", "FMHouse-Bass", "House-Bass", "Jam-Bass",
        "Lately-Bass", "OB-Bass", "Sync-Bass", "TB-Bass"}},
    {"Simple-Brass", {"Ancient-Brass", "Bowed-Brass", "Brilliance-Brass", "Expressive-Brass",
        "FM-Brass", "FMLo-Brass", "HiSolo-Brass", "Matrix-Brass", "Modern-Brass", "Teutonic-Brass",
        "TX-Brass"}},
    {"DXPiano1-Key", {"AddClavinet-Key", "DXPiano2-Key", "FMPiano-Key", "SAPiano1-Key",
        "SAPiano2-Key"}},
    {"Classic-Lead", {"Brassy-Lead", "Dave-Lead", "Dist-Lead", "Fat-Lead", "Flute-Lead",
        "Macro-Lead", "OldSkool-Lead", "Rubber-Lead", "TM-Lead", "Wonder-Lead"}},
    {"Huge-Pad", {"Bottle-Pad", "Complex-Pad", "Intimacy-Pad", "Low-Pad", "Lucid-Pad", "Lush-Pad",
        "Mini-Pad", "Moving-Pad", "OBStrings-Pad", "Rosin-Pad", "SolinaString-Pad", "String-Pad",
        "Tak-Pad", "Vox-Pad", "Warm-Pad", "Whisper-Pad", "Wide-Pad", "WunderString-Pad"}},
    {"Harpy-Seq", {"Clavi-Seq", "Digi-Seq", "Disco-Seq", "Drop-Seq", "Edge-Seq", "P5-Seq",
        "Pop-Seq", "Square-Seq", "Woody-Seq"}},
    {"Drumkit-Master", {"Drumkit-Custom", "Drumkit-Fab", "Drumkit-Oak", "Drumkit-Star",
        "Drumkit-Vintage"}},

    // Older forms, which old documents contain.
    {"Fretless-Bass", {"Fretless JB"}},
    {"Upright-Bass", {"Upright Bass"}},
    {"Harpsichord-Key", {"Harpsicord-Key"}},
    {"Xylophone-Tuned", {"Xilophone-Tuned"}},
    {"Violin1-Ensemble", {"Violin-Ensemble"}},
    {"Violin1-Ensemble-Pizz", {"Violin-Ensemble-Pizz"}},
    {"LatinoTambourine-Percu", {"Latino Tambourine-Percu"}},
    {"LatinoTriangle-Percu", {"Latino Triangle-Percu"}},
    {"Cuica-Percu", {"Kit-Cuica", "CuicaHigh-Percu", "CuicaLow-Percu"}},
};
// clang-format on

// Pieces of the drum kits: those of every kit, and of which kits the others are.
constexpr std::string_view masterKit = "Master";
constexpr std::string_view kits[] = {"Fab", "Oak", "Star", "Vintage", "Custom"};
constexpr std::string_view pieces[] = {"Kick",    "Snare",  "Hihat", "Ride",  "Tom01",
                                       "Tom02",   "Tom03",  "Tom04", "Tom05", "Crash01",
                                       "Crash02", "Splash", "China"};

constexpr bool hasPiece(std::string_view kit, std::string_view piece)
{
    if (piece == "Tom04")
        return kit != "Fab";
    if (piece == "Tom05")
        return kit == "Star" || kit == "Vintage";
    return true;
}

constexpr std::size_t rowCount()
{
    std::size_t count = 0;
    for (const Family &family : families)
        for (const char *member : family.members)
            count += member != nullptr ? 1 : 0;
    for (const auto kit : kits)
        for (const auto piece : pieces)
            count += hasPiece(kit, piece) ? 1 : 0;
    return count;
}
static_assert(rowCount() == 175);

std::string pieceId(std::string_view kit, std::string_view piece)
{
    return std::string(kit) + '-' + std::string(piece);
}

using Rows = std::vector<std::pair<std::string, std::string>>;

Rows expandedRows()
{
    Rows rows;
    rows.reserve(rowCount());
    for (const Family &family : families)
        for (const char *member : family.members)
            if (member != nullptr)
                rows.emplace_back(member, family.representative);
    for (const auto kit : kits)
        for (const auto piece : pieces)
            if (hasPiece(kit, piece))
                rows.emplace_back(pieceId(kit, piece), pieceId(masterKit, piece));
    return rows;
}

} // namespace

const Rows &soundbankPatchReplacements()
{
    static const Rows rows = expandedRows();
    return rows;
}

const std::string &soundbankPatchReplacement(const std::string &id)
{
    static const std::unordered_map<std::string, std::string> replacements(
        soundbankPatchReplacements().begin(), soundbankPatchReplacements().end());
    static const std::string none;
    const auto found = replacements.find(id);
    return found != replacements.end() ? found->second : none;
}

std::shared_ptr<SoundbankPatch> resolveSoundbankPatch(const SoundbankPatches &patches,
                                                      const std::string &id)
{
    const auto find = [&patches](const std::string &candidate) {
        const auto found = patches.find(candidate);
        return found != patches.end() ? found->second : nullptr;
    };
    const std::string &replacement = soundbankPatchReplacement(id);
    if (replacement.empty())
        return find(id);
    for (const auto *candidate : {&replacement, &id, &soundbankPatchReplacement(replacement)})
        if (auto patch = find(*candidate))
            return patch;
    return nullptr;
}

} // namespace zarn
