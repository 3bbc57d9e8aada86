// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Track/ZarnSetGuitarFullTuning.h>

#include <ZarnCore/ZarnAssert.h>
#include <ZarnCore/events/ZarnTrackEvents.h>
#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/model/notes/Links.h>
#include <ZarnCore/model/notes/ZarnFretting.h>
#include <ZarnCore/score/ZarnScoreBase.h>

namespace zarn::cmd {

namespace {

constexpr int highestKey = 127;

/// Calls `visit` with each note of a staff, its beat and its bar, in the order of the tree.
template <class Visit>
void forEachNote(const Staff &staff, Visit visit)
{
    for (const auto &bar : staff.bars()) {
        for (const auto &voice : bar->voices()) {
            if (voice == nullptr)
                continue;
            for (const auto &beat : voice->beats()) {
                for (const auto &note : beat->notes())
                    visit(*bar, *beat, *note);
            }
        }
    }
}

void place(Note &note, int midi, int string, int fret)
{
    if (note.midi() != midi)
        note.clearSpelling();
    note.setMidi(midi);
    note.setString(string);
    note.setFret(fret);
}

/// Puts a note on the free string that plays a pitch at the lowest fret, or on none.
void placeFreely(const Staff &staff, const Beat &beat, Note &note, int pitch)
{
    int bestString = Note::Unset;
    int bestFret = Note::Unset;
    for (int string = 0; string < static_cast<int>(staff.tuning().stringCount()); ++string) {
        const auto other = beat.noteOnString(string);
        const int fret = fretOfPitch(staff, string, pitch);
        if (fret < 0 || (other != nullptr && other.get() != &note))
            continue;
        if (bestFret < 0 || fret < bestFret) {
            bestString = string;
            bestFret = fret;
        }
    }
    place(note, note.midi(), bestString, bestFret);
}

} // namespace

SetGuitarFullTuning::SetGuitarFullTuning() : ScoreCommand(QStringLiteral("SetGuitarFullTuning")) { }
SetGuitarFullTuning::~SetGuitarFullTuning() = default;

bool SetGuitarFullTuning::init(Score *score, unsigned track, unsigned staff,
                               const GuitarTuning &tuning, unsigned capoFret, Retuning retuning)
{
    ZARN_ASSERT_IN("zarn::cmd::SetGuitarFullTuning::init", score != NULL);
    QStringList pitches;
    for (const int pitch : tuning.midiNumbers())
        pitches.append(QString::number(pitch));
    addArg(QStringLiteral("TrackIndex"), QString::number(track));
    addArg(QStringLiteral("StaffIndex"), QString::number(staff));
    addArg(QStringLiteral("Tuning"), pitches.join(QLatin1Char(' ')));
    addArg(QStringLiteral("Capo"), QString::number(capoFret));
    addArg(QStringLiteral("Type"),
           retuning == Retuning::KeepFrets ? QStringLiteral("KeepFrets")
                                           : QStringLiteral("KeepPitches"));
    setScore(score);
    _track = track;
    _staff = staff;
    _setting.tuning = tuning;
    _setting.capoFret = capoFret;
    _retuning = retuning;
    return tuning.stringCount() <= MostStrings && expectPlace([this] { return isPossible(); });
}

Staff *SetGuitarFullTuning::findStaff() const
{
    if (!model().hasTrackIndex(_track) || _staff >= model().tracks()[_track]->staffCount())
        return nullptr;
    return model().tracks()[_track]->staves()[_staff].get();
}

bool SetGuitarFullTuning::isPossible() const
{
    const Staff *const staff = findStaff();
    return staff != nullptr && _setting.capoFret <= staff->fretCount();
}

SetGuitarFullTuning::Setting SetGuitarFullTuning::settingOf(const Staff &staff)
{
    return {staff.tuning(), staff.capoFret(), staff.partialCapoFret(),
            staff.partialCapoStringFlags()};
}

void SetGuitarFullTuning::write(Staff &staff, const Setting &setting)
{
    staff.setTuning(setting.tuning);
    staff.setCapoFret(static_cast<std::uint8_t>(setting.capoFret));
    staff.setPartialCapoFret(static_cast<std::uint8_t>(setting.partialCapoFret));
    staff.setPartialCapoStringFlags(setting.partialCapoStrings);
}

void SetGuitarFullTuning::apply()
{
    requirePlace(isPossible());
    Staff &staff = *findStaff();
    _before = settingOf(staff);
    std::vector<int> pitches;
    forEachNote(staff, [&](const Bar &, const Beat &, const Note &note) {
        pitches.push_back(writtenPitch(staff, note.string(), note.fret()));
    });
    Setting setting = _setting;
    if (setting.tuning.stringCount() == _before.tuning.stringCount()) {
        setting.partialCapoFret = _before.partialCapoFret;
        setting.partialCapoStrings = _before.partialCapoStrings;
    }
    write(staff, setting);
    _links = {};
    const unsigned end = staff.barCount();
    keepStringLinks(staff, 0, end, _track, _links);
    refinger(staff, pitches);
    mendStringLinks(staff, 0, end);
    _links.settle();
    for (const KeptBeats::Place &changed : _links.changed())
        _touched.add(_track, _staff, changed.bar, changed.bar);
}

/// Adapts the notes; keeps those that change as they were.
void SetGuitarFullTuning::refinger(const Staff &staff, const std::vector<int> &pitchesBefore)
{
    _notesBefore.clear();
    _touched.clear();
    const Bar *lastTouched = nullptr;
    std::size_t number = 0;
    forEachNote(staff, [&](const Bar &bar, const Beat &beat, Note &note) {
        const NoteBefore before{number, note.midi(), note.string(), note.fret(), note.spelling()};
        if (!moveNote(staff, beat, note, pitchesBefore[number++]))
            return;
        _notesBefore.push_back(before);
        if (lastTouched != &bar)
            _touched.add(_track, _staff, bar.index(), bar.index());
        lastTouched = &bar;
    });
}

/// Gives a note its place and pitch on the new strings; false when it has no place to change. The
/// pitch of a note may differ from that of its fret, by an octave in many editions: it moves along.
bool SetGuitarFullTuning::moveNote(const Staff &staff, const Beat &beat, Note &note,
                                   int pitchBefore) const
{
    if (note.string() == Note::Unset)
        return false;
    if (_retuning == Retuning::KeepFrets) {
        const int pitch = writtenPitch(staff, note.string(), note.fret());
        const int midi = note.midi() + pitch - pitchBefore;
        if (pitch >= 0 && pitchBefore >= 0 && midi >= 0 && midi <= highestKey) {
            if (midi == note.midi())
                return false;
            place(note, midi, note.string(), note.fret());
            return true;
        }
    }
    const int pitch = pitchBefore >= 0 ? pitchBefore : note.midi();
    const int fret = fretOfPitch(staff, note.string(), pitch);
    if (fret >= 0 && fret == note.fret())
        return false;
    if (fret >= 0)
        place(note, note.midi(), note.string(), fret);
    else
        placeFreely(staff, beat, note, pitch);
    return true;
}

void SetGuitarFullTuning::revert()
{
    Staff &staff = *findStaff();
    write(staff, _before);
    std::size_t number = 0;
    auto next = _notesBefore.begin();
    forEachNote(staff, [&](const Bar &, const Beat &, Note &note) {
        const std::size_t here = number++;
        if (next == _notesBefore.end() || next->number != here)
            return;
        note.setMidi(next->midi);
        note.setString(next->string);
        note.setFret(next->fret);
        if (next->spelling.has_value())
            note.setSpelling(*next->spelling);
        ++next;
    });
    _links.putBack([&](const KeptBeats::Place &at) {
        return staff.bars()[at.bar]->voices()[at.voice]->beats()[at.beat].get();
    });
}

void SetGuitarFullTuning::announceApplied()
{
    score().notify(
        this, evt::GuitarFullTuningChanged(static_cast<int>(_track), static_cast<int>(_staff)));
    _touched.announce(score(), this);
}

void SetGuitarFullTuning::announceReverted()
{
    announceApplied();
}

} // namespace zarn::cmd
