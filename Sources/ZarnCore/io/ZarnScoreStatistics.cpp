// SPDX-License-Identifier: MIT
#include <ZarnCore/io/ZarnScoreStatistics.h>

#include <ZarnCore/model/ZarnScoreModel.h>

#include <QJsonArray>

#include <algorithm>

namespace zarn::io {

namespace {

QString text(const std::string &value)
{
    return QString::fromStdString(value);
}

/// Tuplets of a voice: a bracket closes when its notes fill the time of a whole number of groups.
class TupletCounter {
public:
    void add(const Beat &beat)
    {
        const auto &rhythm = beat.rhythmValue();
        const auto ratio = rhythm.getPrimaryTupletRatio();
        if (!rhythm.hasPrimaryTuplet() || beat.isGrace()) {
            _isOpen = _isOpen && beat.isGrace();
            return;
        }
        if (!_isOpen || ratio != _ratio) {
            ++count;
            _ratio = ratio;
            _filled = 0;
            _unit = rhythm.noteValueToTimeUnit(rhythm.getNoteValue());
        }
        _unit = std::min(_unit, rhythm.noteValueToTimeUnit(rhythm.getNoteValue()));
        _filled += rhythm.getLength();
        _isOpen = !(_filled / (_unit * utils::rational(_ratio.second))).isInteger();
    }

    std::uint32_t count = 0;

private:
    bool _isOpen = false;
    RhythmValue::TupletRatio _ratio;
    utils::rational _filled;
    utils::rational _unit;
};

std::string keyText(const KeySignature &key)
{
    return std::to_string(key.accidentalCount()) + (key.isMajor() ? " major" : " minor");
}

std::string clefText(const Bar &bar, ClefType clef)
{
    const char *shifts[] = {"/2", "/1", "", "/-1", "/-2"};
    return clefToString(clef) + shifts[static_cast<std::size_t>(bar.ottavia())];
}

void countClefs(const Staff &staff, std::map<std::string, std::uint32_t> &clefs)
{
    std::string before;
    for (const auto &bar : staff.bars()) {
        const auto count = [&](ClefType clef) {
            const auto now = clefText(*bar, clef);
            clefs[now] += now != before;
            before = now;
        };
        count(bar->clef());
        for (const auto &change : bar->clefChanges())
            count(change.clef);
    }
    for (auto row = clefs.begin(); row != clefs.end();)
        row = row->second == 0 ? clefs.erase(row) : std::next(row);
}

void add(NoteTally &sum, const NoteTally &part)
{
    constexpr std::uint32_t NoteTally::*fields[] = {
        &NoteTally::total,        &NoteTally::pitched,      &NoteTally::rests,
        &NoteTally::unpitched,    &NoteTally::withoutPitch, &NoteTally::grace,
        &NoteTally::graceSlashed, &NoteTally::chord,        &NoteTally::cue,
        &NoteTally::measureRests, &NoteTally::hidden,       &NoteTally::hiddenRests,
        &NoteTally::dotted,       &NoteTally::inTuplet,     &NoteTally::tieStart,
        &NoteTally::tieStop,      &NoteTally::withFret,     &NoteTally::microtone,
        &NoteTally::lyrics};
    for (const auto field : fields)
        sum.*field += part.*field;
}

/// Takes over what the tree cannot tell as the document counts it.
void takeSource(NoteTally &notes, const NoteTally &source)
{
    const auto tree = notes;
    notes = source;
    notes.pitched = tree.pitched;
    notes.unpitched = tree.unpitched;
    notes.rests = tree.rests + source.hiddenRests;
    notes.grace = tree.grace;
    notes.total = notes.pitched + notes.unpitched + notes.rests + source.withoutPitch;
}

QJsonObject jsonOf(const std::map<std::string, std::uint32_t> &counts)
{
    QJsonObject object;
    for (const auto &[name, count] : counts)
        object.insert(text(name), static_cast<int>(count));
    return object;
}

QJsonObject mainCounts(const NoteTally &notes)
{
    return {{QStringLiteral("total"), static_cast<int>(notes.total)},
            {QStringLiteral("pitched"), static_cast<int>(notes.pitched)},
            {QStringLiteral("rests"), static_cast<int>(notes.rests)},
            {QStringLiteral("unpitched"), static_cast<int>(notes.unpitched)},
            {QStringLiteral("grace"), static_cast<int>(notes.grace)},
            {QStringLiteral("chord"), static_cast<int>(notes.chord)}};
}

QJsonObject allCounts(const NoteTally &notes)
{
    auto object = mainCounts(notes);
    const auto insert = [&](const char *name, std::uint32_t count) {
        object.insert(QLatin1String(name), static_cast<int>(count));
    };
    insert("without_pitch", notes.withoutPitch);
    insert("grace_slashed", notes.graceSlashed);
    insert("grace_plain", notes.grace - notes.graceSlashed);
    insert("cue", notes.cue);
    insert("measure_rests", notes.measureRests);
    insert("hidden", notes.hidden);
    insert("dotted", notes.dotted);
    insert("in_tuplet", notes.inTuplet);
    insert("tie_start", notes.tieStart);
    insert("tie_stop", notes.tieStop);
    insert("with_fret", notes.withFret);
    insert("microtone", notes.microtone);
    return object;
}

/// Counts the notes of one track.
class TrackCounter {
public:
    TrackCounter(const Track &track, ScoreStatistics &sum) : _track(track), _sum(sum) { }

    PartTally count()
    {
        _part.name = _track.name();
        _part.staves = _track.staffCount();
        _part.measures = _track.barCount();
        std::array<bool, Bar::MaxVoices> used = {};
        for (const auto &staff : _track.staves()) {
            std::array<TupletCounter, Bar::MaxVoices> tuplets;
            for (const auto &bar : staff->bars())
                for (unsigned i = 0; i < Bar::MaxVoices; ++i)
                    if (const auto &voice = bar->voices()[i]) {
                        used[i] = used[i] || !voice->isEmpty();
                        for (const auto &beat : voice->beats()) {
                            countBeat(*beat);
                            tuplets[i].add(*beat);
                        }
                    }
            for (const auto &counter : tuplets)
                _sum.tuplets += counter.count;
            countClefs(*staff, _sum.clefs);
        }
        for (unsigned i = 0; i < Bar::MaxVoices; ++i)
            if (used[i])
                _part.voices.push_back(std::to_string(i + 1));
        return std::move(_part);
    }

private:
    void countBeat(const Beat &beat)
    {
        if (beat.isPlaceHolder())
            return;
        auto &notes = _part.notes;
        const auto count = std::max(beat.noteCount(), 1u);
        notes.total += count;
        notes.rests += beat.isRest();
        notes.measureRests += beat.isWholeBarRest();
        notes.grace += beat.isGrace() ? count : 0;
        notes.graceSlashed += beat.isSlashedGrace() ? count : 0;
        notes.chord += count - 1;
        notes.dotted += beat.rhythmValue().getAugmentationDot() > 0 ? count : 0;
        notes.inTuplet += beat.rhythmValue().hasPrimaryTuplet() ? count : 0;
        for (const auto &note : beat.notes())
            countNote(*note);
    }

    void countNote(const Note &note)
    {
        auto &notes = _part.notes;
        notes.tieStart += note.isTieOrigin();
        notes.tieStop += note.isTied();
        notes.withFret += note.fret() != Note::Unset;
        if (isUnpitchedNote(note, _track)) {
            ++notes.unpitched;
            return;
        }
        ++notes.pitched;
        if (note.midi() == Note::Unset)
            return;
        _sum.midiSum += static_cast<std::uint64_t>(note.midi());
        _sum.midiLow = std::min(_sum.midiLow.value_or(note.midi()), note.midi());
        _sum.midiHigh = std::max(_sum.midiHigh.value_or(note.midi()), note.midi());
    }

    const Track &_track;
    ScoreStatistics &_sum;
    PartTally _part;
};

} // namespace

ScoreStatistics::ScoreStatistics(const ScoreModel &model, const SourceTally &source)
{
    const auto &bars = model.masterTrack()->masterBars();
    measures = static_cast<std::uint32_t>(bars.size());
    utils::rational length = 0;
    for (std::size_t i = 0; i < bars.size(); ++i) {
        const auto &time = bars[i]->timeSignature();
        length += bars[i]->length();
        if (i == 0 || bars[i - 1]->timeSignature() != time)
            ++times[std::to_string(time.getNumerator()) + "/"
                    + std::to_string(time.getDenominator())];
        if (i == 0 || bars[i - 1]->concertKeySignature() != bars[i]->concertKeySignature())
            ++keys[keyText(bars[i]->concertKeySignature())];
    }
    const bool hasSource = source.parts.size() == model.trackCount() && !source.isEmpty();
    for (unsigned i = 0; i < model.trackCount(); ++i) {
        auto part = TrackCounter(*model.tracks()[i], *this).count();
        part.id = "T" + std::to_string(i + 1);
        part.length = length.toString();
        if (hasSource) {
            auto counted = part.notes;
            const auto treeStaves = part.staves;
            part = source.parts[i];
            part.staves = treeStaves + static_cast<std::uint32_t>(part.mergedStaves.size());
            add(counted, part.merged);
            midiSum += part.mergedMidiSum;
            part.notes = counted;
            takeSource(part.notes, source.parts[i].notes);
        }
        staves += part.staves;
        add(notes, part.notes);
        parts.push_back(std::move(part));
    }
    if (hasSource) {
        keys = source.keys;
        times = source.times;
        clefs = source.clefs;
        tuplets = source.tuplets;
    }
}

QJsonObject ScoreStatistics::toJson() const
{
    QJsonArray perPart;
    for (const auto &part : parts) {
        QJsonArray voices;
        for (const auto &voice : part.voices)
            voices.append(text(voice));
        perPart.append(QJsonObject{{QStringLiteral("id"), text(part.id)},
                                   {QStringLiteral("name"), text(part.name)},
                                   {QStringLiteral("staves"), static_cast<int>(part.staves)},
                                   {QStringLiteral("measures"), static_cast<int>(part.measures)},
                                   {QStringLiteral("length"), text(part.length)},
                                   {QStringLiteral("voices"), voices},
                                   {QStringLiteral("notes"), mainCounts(part.notes)}});
    }
    const auto keyOrNull = [](const std::optional<int> &key) {
        return key ? QJsonValue(*key) : QJsonValue();
    };
    return {{QStringLiteral("parts"), static_cast<int>(parts.size())},
            {QStringLiteral("staves"), static_cast<int>(staves)},
            {QStringLiteral("measures"), static_cast<int>(measures)},
            {QStringLiteral("notes"), allCounts(notes)},
            {QStringLiteral("midi_sum"), static_cast<double>(midiSum)},
            {QStringLiteral("midi_low"), keyOrNull(midiLow)},
            {QStringLiteral("midi_high"), keyOrNull(midiHigh)},
            {QStringLiteral("keys"), jsonOf(keys)},
            {QStringLiteral("times"), jsonOf(times)},
            {QStringLiteral("clefs"), jsonOf(clefs)},
            {QStringLiteral("tuplets"), static_cast<int>(tuplets)},
            {QStringLiteral("per_part"), perPart}};
}

} // namespace zarn::io
