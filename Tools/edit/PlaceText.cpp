// SPDX-License-Identifier: MIT
#include "edit/PlaceText.h"

#include "common/MusicReader.h"
#include "common/SoundingPitch.h"
#include "common/Terminal.h"
#include "common/Texts.h"

#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/model/places/ZarnRangeBeatIterator.h>
#include <ZarnCore/model/places/ZarnScoreModelRange.h>
#include <ZarnCore/score/ZarnScoreCursor.h>

#include <QStringList>

#include <algorithm>

namespace zarn::tool {

namespace {

QString beatPlace(const ScoreModelIndex &index)
{
    if (index.beatIndex() < 0)
        return QStringLiteral("bar %1").arg(index.barIndex() + 1);
    return QStringLiteral("%1:%2").arg(index.barIndex() + 1).arg(index.beatIndex() + 1);
}

enum class Tracks { ByNumber, ByName };

/// "track 1 (Guitar)", with the staff where there are several.
QString staffText(const ScoreModelIndex &first, unsigned lastStaff, Tracks tracks)
{
    const auto track = first.track();
    QString text = QStringLiteral("track %1").arg(first.trackIndex() + 1);
    if (track == nullptr)
        return text;
    if (tracks == Tracks::ByName)
        text += QStringLiteral(" (%1)").arg(QString::fromStdString(printable(track->name())));
    const unsigned firstStaff = std::min(first.staffIndex(), lastStaff);
    lastStaff = std::max(first.staffIndex(), lastStaff);
    if (firstStaff != lastStaff)
        text += QStringLiteral(", staves %1 to %2").arg(firstStaff + 1).arg(lastStaff + 1);
    else if (track->staffCount() > 1)
        text += QStringLiteral(", staff %1").arg(firstStaff + 1);
    return text;
}

unsigned stringCount(const ScoreModelIndex &index)
{
    const auto staff = index.staff();
    return staff ? staff->tuning().stringCount() : 0;
}

/// "B4 on string 2 fret 0", "E4", "dead".
QString noteText(const Note &note, const ScoreModelIndex &index)
{
    const auto bar = index.bar();
    QString text = note.isDead() ? QStringLiteral("dead note") : QString();
    if (text.isEmpty() && note.midi() != Note::Unset)
        text = SoundingPitch(*bar).text(note, Signs::Letters);
    const int strings = static_cast<int>(stringCount(index));
    if (note.string() == Note::Unset || note.string() >= strings)
        return text;
    text += QStringLiteral(" on string %1").arg(strings - note.string());
    return note.fret() == Note::Unset ? text : text + QStringLiteral(" fret %1").arg(note.fret());
}

QString beatText(const Beat &beat, const ScoreModelIndex &index)
{
    QStringList notes;
    for (const auto &note : beat.notes())
        notes.append(noteText(*note, index));
    const QString what = beat.hasNotes() ? notes.join(QStringLiteral(", "))
        : beat.isPlaceHolder()           ? QStringLiteral("nothing yet")
                                         : QStringLiteral("rest");
    return QStringLiteral("%1%2, %3")
        .arg(beat.isGrace() ? QStringLiteral("grace ") : QString(),
             writtenRhythm(beat.rhythmValue()), what);
}

/// The string of a fretted staff, or the note that the place names.
QString lineText(const ScoreModelIndex &index)
{
    const unsigned strings = stringCount(index);
    if (strings != 0)
        return index.noteString() < strings
            ? QStringLiteral(", string %1").arg(strings - index.noteString())
            : QString();
    const auto note = index.note();
    return note ? QStringLiteral(", note %1").arg(noteText(*note, index)) : QString();
}

QString lineOfStaffText(const ScoreModelIndex &place, Tracks tracks)
{
    if (place.trackIndex() < 0 || place.barIndex() < 0)
        return QStringLiteral("nowhere");
    return QStringLiteral("%1 in %2, voice %3%4")
        .arg(beatPlace(place), staffText(place, place.staffIndex(), tracks))
        .arg(place.voiceIndex() + 1)
        .arg(lineText(place));
}

QString contentText(const ScoreModelIndex &index)
{
    if (const auto beat = index.beat())
        return QStringLiteral(": ") + beatText(*beat, index);
    if (index.beatIndex() < 0)
        return QString();
    return index.beatIndex() == 0 ? QStringLiteral(": no beats yet")
                                  : QStringLiteral(": behind the last beat");
}

struct Counts {
    std::size_t beats = 0;
    std::size_t notes = 0;
};

Counts countsOf(const ScoreModelRange &range)
{
    Counts counts;
    for (RangeBeatIterator it(range); it.oneStep();) {
        ++counts.beats;
        counts.notes += it.beat()->noteCount();
    }
    return counts;
}

/// "3:2 to 4:1 in track 1 (Guitar), voice 1".
QString extentText(const ScoreModelRange &range)
{
    const ScoreModelIndex &first = range.first();
    const ScoreModelIndex &last = range.second();
    const bool isWholeBars =
        range.isMultiVoice() || (first.beatIndex() < 0 && last.beatIndex() < 0);
    QString text;
    if (isWholeBars)
        text = range.barCount() == 1
            ? QStringLiteral("bar %1").arg(first.barIndex() + 1)
            : QStringLiteral("bars %1 to %2").arg(first.barIndex() + 1).arg(last.barIndex() + 1);
    else
        text = first.equalBeat(last)
            ? beatPlace(first)
            : QStringLiteral("%1 to %2").arg(beatPlace(first), beatPlace(last));
    if (range.isMultiTrack())
        return text + QStringLiteral(" in all tracks");
    text += QStringLiteral(" in ") + staffText(first, last.staffIndex(), Tracks::ByName);
    return range.isMultiVoice() ? text + QStringLiteral(", all voices")
                                : text + QStringLiteral(", voice %1").arg(first.voiceIndex() + 1);
}

} // namespace

QString placeText(const ScoreModelIndex &place)
{
    return lineOfStaffText(place, Tracks::ByNumber);
}

QString cursorText(const ScoreCursor &cursor)
{
    return cursor.isValid()
        ? lineOfStaffText(cursor.index(), Tracks::ByName) + contentText(cursor.index())
        : QStringLiteral("nowhere");
}

QString selectionText(const ScoreModelRange &range)
{
    const Counts counts = countsOf(range);
    return QStringLiteral("%1: %2, %3, %4")
        .arg(extentText(range), QString::fromStdString(counted(range.barCount(), "bar")),
             QString::fromStdString(counted(counts.beats, "beat")),
             QString::fromStdString(counted(counts.notes, "note")));
}

} // namespace zarn::tool
