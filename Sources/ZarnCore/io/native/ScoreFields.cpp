// SPDX-License-Identifier: MIT
#include <ZarnCore/io/native/ScoreFields.h>

#include <ZarnCore/io/native/Children.h>
#include <ZarnCore/io/native/EnumCodec.h>
#include <ZarnCore/io/native/MasterFields.h>
#include <ZarnCore/io/native/Slots.h>
#include <ZarnCore/io/native/SoundFields.h>
#include <ZarnCore/io/native/TrackFields.h>
#include <ZarnCore/model/ZarnMasterTrack.h>
#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/model/clip/ZarnClip.h>

#include <charconv>

namespace zarn::io::native {

namespace {

void writeVersion(DocumentWriter &writer, std::string_view key, const ScoreModel &)
{
    writer.key(key);
    writer.text(std::to_string(majorVersion) + "." + std::to_string(minorVersion));
}

/// The version is read before the rest.
void skipVersion(DocumentReader &, const Json &, ScoreModel &) { }

constexpr std::string_view clipKey = "clip";

/// Clips write and read it by themselves.
void writeNoClip(DocumentWriter &, std::string_view, const ScoreModel &) { }
void skipClip(DocumentReader &, const Json &, ScoreModel &) { }

struct Properties {
    using Node = ScoreModel;
    using Value = std::string;
    using As = Codec<std::string>;
    static constexpr unsigned count = static_cast<unsigned>(ScoreProperty::Notice) + 1;
    static std::string name(unsigned place)
    {
        return scorePropertyToQString(static_cast<ScoreProperty>(place)).toStdString();
    }
    static std::string get(const ScoreModel &model, unsigned place)
    {
        return model.property(static_cast<ScoreProperty>(place));
    }
    static void set(ScoreModel &model, unsigned place, const std::string &text)
    {
        model.setScoreProperty(static_cast<ScoreProperty>(place), text);
    }
};

struct HeadersAndFooters {
    using Node = ScoreModel;
    using Value = std::string;
    using As = Codec<std::string>;
    static constexpr unsigned count = HeaderAndFooterCount;
    static std::string name(unsigned place)
    {
        return headerAndFooterToQString(static_cast<HeaderAndFooter>(place)).toStdString();
    }
    static std::string get(const ScoreModel &model, unsigned place)
    {
        return model.headerAndFooter(static_cast<HeaderAndFooter>(place));
    }
    static void set(ScoreModel &model, unsigned place, const std::string &text)
    {
        model.setHeaderAndFooter(static_cast<HeaderAndFooter>(place), text);
    }
};

std::string orientationToText(PageSetup::Orientation orientation)
{
    return orientation == PageSetup::Orientation::Landscape ? "Landscape" : "Portrait";
}

PageSetup::Orientation orientationFromText(const std::string &text)
{
    return text == "Landscape" ? PageSetup::Orientation::Landscape
                               : PageSetup::Orientation::Portrait;
}

using Orientations = EnumCodec<orientationToText, orientationFromText, 1>;

/// In micrometres, up to ten metres.
using Length = Within<int, 0, 10'000'000>;

constexpr std::array pageFields = {
    member<PageSetup, &PageSetup::width, Length>("width"),
    member<PageSetup, &PageSetup::height, Length>("height"),
    member<PageSetup, &PageSetup::orientation, Orientations>("orientation"),
    member<PageSetup, &PageSetup::leftMargin, Length>("left"),
    member<PageSetup, &PageSetup::topMargin, Length>("top"),
    member<PageSetup, &PageSetup::rightMargin, Length>("right"),
    member<PageSetup, &PageSetup::bottomMargin, Length>("bottom"),
    member<PageSetup, &PageSetup::staffSpace, Length>("staffSpace"),
};

/// Frequencies of the a' in hertz.
struct ConcertTones {
    static constexpr double lowest = ScoreModel::LowestConcertTone;
    static constexpr double highest = ScoreModel::HighestConcertTone;
};

/// Bars of a system.
template <typename T>
using BarsOfSystem = Within<T, 0, MasterTrack::MaxBars>;

using ViewLayouts = EnumCodec<viewLayoutToString, viewLayoutFromString, 2>;
using GroupSymbols = EnumCodec<groupSymbolToString, groupSymbolFromString, 3>;

constexpr std::array viewFields = {
    member<ScoreView, &ScoreView::layout, ViewLayouts>("layout"),
    member<ScoreView, &ScoreView::multiRest>("multiRest"),
};

constexpr unsigned mostTracks = 9999;

constexpr std::array trackGroupFields = {
    member<TrackGroup, &TrackGroup::first, Within<unsigned, 0, mostTracks>>("first"),
    member<TrackGroup, &TrackGroup::last, Within<unsigned, 0, mostTracks>>("last"),
    member<TrackGroup, &TrackGroup::name>("name"),
    member<TrackGroup, &TrackGroup::symbol, GroupSymbols>("symbol"),
    member<TrackGroup, &TrackGroup::barsThrough>("barsThrough"),
};

void writeMaster(DocumentWriter &writer, std::string_view key, const ScoreModel &model)
{
    writer.key(key);
    writeMasterTrack(writer, *model.masterTrack());
}

void readMaster(DocumentReader &reader, const Json &json, ScoreModel &model)
{
    readMasterTrack(reader, json, *model.masterTrack());
}

constexpr std::array scoreFields = {
    Field<ScoreModel>{formatKey, writeVersion, skipVersion},
    Field<ScoreModel>{"properties", Slots<Properties>::write, Slots<Properties>::read},
    Field<ScoreModel>{"headersAndFooters", Slots<HeadersAndFooters>::write,
                      Slots<HeadersAndFooters>::read},
    field<ScoreModel, &ScoreModel::pageSetup, &ScoreModel::setPageSetup,
          Struct<PageSetup, pageFields>>("page"),
    field<ScoreModel, &ScoreModel::concertTone, &ScoreModel::setConcertTone,
          Between<double, ConcertTones>>("concertTone"),
    field<ScoreModel, &ScoreModel::ignoreCapo, &ScoreModel::setIgnoreCapo>("ignoreCapo"),
    field<ScoreModel, &ScoreModel::isPrintable, &ScoreModel::setPrintable>("printable"),
    field<ScoreModel, &ScoreModel::isProtected, &ScoreModel::setProtected>("protected"),
    field<ScoreModel, &ScoreModel::fullScoreSystemsLayout, &ScoreModel::setFullScoreSystemsLayout,
          ArrayOf<int, BarsOfSystem<int>>>("systemsLayout"),
    field<ScoreModel, &ScoreModel::fullScoreDefaultBarCountBySystem,
          &ScoreModel::setFullScoreDefaultBarCountBySystem, BarsOfSystem<unsigned>>(
        "barsPerSystem"),
    field<ScoreModel, &ScoreModel::views, &ScoreModel::setViews,
          ArrayOf<ScoreView, Struct<ScoreView, viewFields>>>("views"),
    field<ScoreModel, &ScoreModel::trackGroups, &ScoreModel::setTrackGroups,
          ArrayOf<TrackGroup, Struct<TrackGroup, trackGroupFields>>>("trackGroups"),
    Field<ScoreModel>{"master", writeMaster, readMaster},
    Field<ScoreModel>{"tracks", writeTracks, readTracks},
    Field<ScoreModel>{"audioTracks", writeAudioTracks, readAudioTracks},
    Field<ScoreModel>{clipKey, writeNoClip, skipClip},
};

std::string clipKindToText(Clip::Kind kind)
{
    return kind == Clip::Kind::Beats ? "Beats" : "Bars";
}

Clip::Kind clipKindFromText(const std::string &text)
{
    return text == "Beats" ? Clip::Kind::Beats : Clip::Kind::Bars;
}

using ClipKinds = EnumCodec<clipKindToText, clipKindFromText, 1>;

constexpr unsigned mostStaves = 9999;

constexpr std::array clipFields = {
    member<Clip, &Clip::kind, ClipKinds>("kind"),
    member<Clip, &Clip::hasColumns>("columns"),
    member<Clip, &Clip::firstStaff, Within<unsigned, 0, mostStaves>>("firstStaff"),
};

} // namespace

void readVersion(DocumentReader &reader, const Json &version)
{
    const DocumentReader::Step step(reader, formatKey);
    const std::string text = Codec<std::string>::read(reader, version);
    unsigned major = 0;
    unsigned minor = 0;
    const char *const end = text.data() + text.size();
    const auto dot = std::from_chars(text.data(), end, major);
    const bool isVersion = dot.ec == std::errc() && dot.ptr != end && *dot.ptr == '.'
        && std::from_chars(dot.ptr + 1, end, minor).ptr == end && dot.ptr + 1 != end;
    if (!isVersion)
        reader.refuseKind("a version such as \"1.0\"", version);
    if (major != majorVersion)
        reader.refuse("the document has version " + text + ", and only versions "
                      + std::to_string(majorVersion) + ".x can be read here");
    if (minor > minorVersion)
        reader.setNewer();
}

void writeScore(DocumentWriter &writer, const ScoreModel &model)
{
    writeObject(writer, model, scoreFields);
}

void readScore(DocumentReader &reader, const Json &json, ScoreModel &model)
{
    reader.expectObject(json);
    const Json *version = json.find(formatKey);
    if (version == nullptr)
        reader.refuse("no \"zarn\" with the version of the format: this is no native document");
    readVersion(reader, *version);
    readObject(reader, json, model, scoreFields);
    const Misfit misfit = findMisfit(model);
    if (!misfit.reason.empty())
        reader.refuseAt(misfit.pointer, misfit.reason);
    MasterTrack &master = *model.masterTrack();
    leaveOutStrayAutomations(reader, "/master", master, master.masterBarCount());
    for (const auto &track : model.tracks())
        leaveOutStrayAutomations(reader, "/tracks/" + std::to_string(track->index()),
                                 track->mutableAutomations(), master.masterBarCount());
    master.updatePlayList();
}

void writeClip(DocumentWriter &writer, const Clip &clip)
{
    writer.StartObject();
    writeFields(writer, *clip.model, scoreFields);
    writer.key(clipKey);
    writeObject(writer, clip, clipFields);
    writer.EndObject();
}

void readClip(DocumentReader &reader, const Json &json, Clip &clip)
{
    const Json *const member = json.isObject() ? json.find(clipKey) : nullptr;
    clip.hasColumns = member == nullptr;
    if (member == nullptr)
        return;
    const DocumentReader::Step step(reader, clipKey);
    readObject(reader, *member, clip, clipFields);
}

Misfit findMisfit(const ScoreModel &model)
{
    const unsigned barCount = model.masterTrack()->masterBarCount();
    if (barCount > MasterTrack::MaxBars)
        return {"/master/bars",
                "there are " + std::to_string(barCount) + " of at most "
                    + std::to_string(MasterTrack::MaxBars)};
    for (unsigned kind = 0; kind < DirectionMarkCount; ++kind) {
        const auto mark = static_cast<DirectionMark>(kind);
        const int bar = model.masterTrack()->directionIndex(mark);
        if (bar < -1 || (bar >= 0 && static_cast<unsigned>(bar) >= barCount))
            return {"/master/directions/" + directionMarkToQString(mark).toStdString(),
                    "stands at bar index " + std::to_string(bar) + " of " + std::to_string(barCount)
                        + " bars"};
    }
    for (const auto &track : model.tracks())
        for (const auto &staff : track->staves())
            if (staff->barCount() != barCount)
                return {"/tracks/" + std::to_string(track->index()) + "/staves/"
                            + std::to_string(staff->index()) + "/bars",
                        "the staff has " + std::to_string(staff->barCount())
                            + " bars, and the score has " + std::to_string(barCount)};
    return {};
}

} // namespace zarn::io::native
