// SPDX-License-Identifier: MIT
#include <ZarnCore/io/sheet/TabWriter.h>

#include <ZarnCore/io/sheet/Glyphs.h>
#include <ZarnCore/io/sheet/Legend.h>
#include <ZarnCore/io/sheet/OpenStrings.h>
#include <ZarnCore/io/sheet/Texts.h>
#include <ZarnCore/model/ZarnStaff.h>

#include <algorithm>

namespace zarn::sheet {

namespace {

bool hasPlace(const Note &note, int stringCount)
{
    return note.string() >= 0 && note.string() < stringCount && (note.fret() >= 0 || note.isDead());
}

/// Whether, from the highest string down, the voices come in their order.
template <typename Frets>
bool voicesCross(const Frets &frets)
{
    for (const auto &upper : frets)
        for (const auto &lower : frets)
            if (upper.string > lower.string && upper.voice > lower.voice)
                return true;
    return false;
}

} // namespace

TabWriter::TabWriter(Sheet &sheet, const Staff &staff, const QString &name, const Glyphs &glyphs,
                     Legend &legend)
    : StaffWriter(sheet, name, glyphs, legend),
      _stringCount(static_cast<int>(staff.tuning().stringCount()))
{
    addRhythmLanes(0, RhythmSide::Above);
    const Signs signs = glyphs.isUtf8 ? Signs::Symbols : Signs::Letters;
    const QStringList names =
        glyphs.isPosted ? postedStrings(staff.tuning()) : openStrings(staff.tuning(), signs);
    for (int string = _stringCount - 1; string >= 0; --string) {
        const int added = addLane(Lane::Kind::String, names.at(string));
        lane(added).isOptional = false;
        const bool isMiddle = string == _stringCount / 2 || string == (_stringCount - 1) / 2;
        lane(added).hasRepeatDots = _stringCount > 2 ? isMiddle : true;
        if (string == _stringCount - 1)
            _topLane = added;
    }
    _strayLane = addLane(Lane::Kind::Text, QStringLiteral("no fret"));
    for (unsigned voice = 1; voice < Bar::MaxVoices; ++voice)
        addRhythmLanes(voice, RhythmSide::Below);
    addLanesBelow();
}

void TabWriter::beginBar(const Bar &bar)
{
    _pitch = SoundingPitch(bar);
    _frets.clear();
}

QString TabWriter::fretText(const Note &note, const BeatPlace &place) const
{
    if (note.isDead())
        legend().use(Legend::Sign::Dead);
    return signedText(note.isDead() ? QStringLiteral("x") : QString::number(note.fret()), note,
                      place);
}

void TabWriter::writeDeadSlap(const BeatPlace &place, SheetBar &into)
{
    legend().use(Legend::Sign::Dead);
    for (int string = 0; string < _stringCount; ++string)
        into.put(place.column, laneOf(string), QStringLiteral("x"), Ink::Note);
}

void TabWriter::writeNotes(const BeatPlace &place, SheetBar &into)
{
    for (const auto &note : place.beat.notes()) {
        if (hasPlace(*note, _stringCount)) {
            _frets[place.column].push_back({note->string(), place.voice, fretText(*note, place)});
        } else if (note->midi() >= 0) {
            const Signs signs = glyphs().isUtf8 ? Signs::Symbols : Signs::Letters;
            const QString name = signedText(_pitch.text(*note, signs), *note, place);
            const bool isFirst = into.columns[place.column].count(_strayLane) == 0;
            into.put(place.column, _strayLane, isFirst ? name : QLatin1Char(' ') + name, Ink::Note);
        }
    }
}

void TabWriter::endBar(SheetBar &into)
{
    for (auto &[column, frets] : _frets) {
        const bool isCrossed = voicesCross(frets);
        std::stable_sort(frets.begin(), frets.end(),
                         [](const Fret &a, const Fret &b) { return a.string > b.string; });
        for (std::size_t i = 0; i < frets.size(); ++i) {
            const Fret &fret = frets[i];
            const bool sharesString = i > 0 && frets[i - 1].string == fret.string;
            if (sharesString && frets[i - 1].text == fret.text)
                continue;
            if (sharesString)
                legend().use(Legend::Sign::SharedString);
            QString text = fret.text;
            if (fret.voice > 0 && (isCrossed || sharesString)) {
                legend().use(Legend::Sign::OtherVoice);
                text += QString(static_cast<int>(fret.voice), QLatin1Char('\''));
            }
            into.put(column, laneOf(fret.string), sharesString ? QLatin1Char('/') + text : text,
                     fret.voice == 0 ? Ink::Note : Ink::SecondNote);
        }
    }
}

bool isShownAsTab(const Staff &staff)
{
    if (!staff.isFretted())
        return false;
    const int stringCount = static_cast<int>(staff.tuning().stringCount());
    bool hasNotes = false;
    for (const auto &bar : staff.bars())
        for (const auto &voice : bar->voices()) {
            if (!voice)
                continue;
            for (const auto &beat : voice->beats())
                for (const auto &note : beat->notes()) {
                    if (hasPlace(*note, stringCount))
                        return true;
                    hasNotes = true;
                }
        }
    return !hasNotes;
}

} // namespace zarn::sheet
