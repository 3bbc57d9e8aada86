// SPDX-License-Identifier: MIT
#include "edit/MusicWriter.h"

#include "common/Terminal.h"
#include "common/Texts.h"
#include "edit/EditSession.h"
#include "edit/ScriptLine.h"

#include <ZarnCore/ZarnException.h>
#include <ZarnCore/commands/Beat/ZarnWriteBeats.h>
#include <ZarnCore/io/ZarnScoreText.h>
#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/model/notes/ZarnFretting.h>

#include <QRegularExpression>

#include <algorithm>
#include <ostream>

namespace zarn::tool {

namespace {

using Beats = std::vector<std::shared_ptr<Beat>>;
using utils::rational;

rational timeOf(const Beat &beat)
{
    return beat.isGrace() ? rational() : beat.length();
}

/// What voice and bar hold, nothing for those that are not there yet.
const Beats &beatsAt(const Staff &staff, unsigned bar, unsigned voice)
{
    static const Beats none;
    const auto held = bar < staff.barCount() ? staff.bars()[bar]->voices()[voice] : nullptr;
    return held ? held->beats() : none;
}

/// Lays out music in the bars of a staff.
class Layout {
public:
    Layout(const EditSession &session, const Staff &staff, const Where &where,
           const BeatPlace &from, int column)
        : _master(*session.model().masterTrack()), _staff(staff), _track(*staff.track()),
          _start(from), _pen({where.voice, from.bar, rational()}), _column(column)
    {
        const Beats &present = beatsAt(staff, from.bar, where.voice);
        for (unsigned beat = 0; beat < from.beat; ++beat)
            _pen.offset += timeOf(*present.at(beat));
    }

    /// Adds bars behind what was added before.
    void add(const std::vector<std::shared_ptr<Bar>> &bars);

    /// How many bars the score needs.
    unsigned barCount() const;

    /// What is to be written, with rests for beats that are covered in part.
    std::vector<WrittenStretch> take();

private:
    /// The place in a voice where the next beat goes.
    struct Pen {
        unsigned voice = 0;
        unsigned bar = 0;
        rational offset;
    };

    void addBeat(Pen &pen, const std::shared_ptr<Beat> &beat);
    void leaveFullBar(Pen &pen) const;
    WrittenStretch &stretchAt(const Pen &pen);
    const MasterBar &masterBar(unsigned bar) const;
    rational lengthOf(unsigned bar) const;
    void prepare(Note &note, const Beat &beat) const;
    void findString(Note &note, const Beat &beat) const;
    [[noreturn]] void refuse(const QString &why) const { throw LineError(_column, why); }

    const MasterTrack &_master;
    const Staff &_staff;
    const Track &_track;
    BeatPlace _start;
    Pen _pen; ///< of the first voice
    int _column;
    std::vector<WrittenStretch> _stretches;
};

/// Of a bar that is still missing, the one that it will be like.
const MasterBar &Layout::masterBar(unsigned bar) const
{
    return *_master.masterBars().at(std::min(bar, _master.masterBarCount() - 1));
}

rational Layout::lengthOf(unsigned bar) const
{
    const MasterBar &master = masterBar(bar);
    return bar < _master.masterBarCount() ? master.length() : master.timeSignature().barLength();
}

WrittenStretch &Layout::stretchAt(const Pen &pen)
{
    const auto found =
        std::find_if(_stretches.begin(), _stretches.end(), [&pen](const WrittenStretch &stretch) {
            return stretch.bar == pen.bar && stretch.voice == pen.voice;
        });
    if (found != _stretches.end())
        return *found;
    WrittenStretch stretch;
    stretch.bar = pen.bar;
    stretch.voice = pen.voice;
    stretch.firstBeat = pen.bar == _start.bar && pen.voice == _pen.voice ? _start.beat : 0;
    _stretches.push_back(std::move(stretch));
    return _stretches.back();
}

void Layout::findString(Note &note, const Beat &beat) const
{
    int best = Note::Unset;
    for (int string = 0; string < static_cast<int>(_staff.tuning().stringCount()); ++string) {
        const int fret = fretOfPitch(_staff, string, note.midi());
        if (fret >= 0 && beat.noteOnString(string) == nullptr && (best < 0 || fret < best)) {
            best = fret;
            note.setString(string);
            note.setFret(fret);
        }
    }
    if (best < 0) {
        const int sounding = note.midi() + _track.transpositionOffset();
        refuse(
            QStringLiteral("no free string can play %1")
                .arg(pitchText(PitchClass::fromPitch(sounding, true), sounding, Signs::Letters)));
    }
}

/// Typed as it sounds, held as it is written.
void Layout::prepare(Note &note, const Beat &beat) const
{
    constexpr int Octave = 12;
    constexpr int HighestKey = 127;
    if (note.string() != Note::Unset) {
        const int written = writtenPitch(_staff, note.string(), note.fret());
        if (written < 0)
            refuse(QStringLiteral("string %1 has no fret %2")
                       .arg(static_cast<int>(_staff.tuning().stringCount()) - note.string())
                       .arg(note.fret()));
        note.setMidi(written);
        return;
    }
    if (InstrumentSet::isUnpitched(_track.type()))
        return;
    const int written = note.midi() - _track.transpositionOffset();
    if (written < 0 || written > HighestKey)
        refuse(
            QStringLiteral("a note is too low or too high for track %1").arg(_track.index() + 1));
    note.setMidi(written);
    if (_track.transpositionOffset() % Octave != 0)
        note.clearSpelling();
    if (_staff.isFretted())
        findString(note, beat);
}

void Layout::leaveFullBar(Pen &pen) const
{
    if (masterBar(pen.bar).isFreeTime() || pen.offset < lengthOf(pen.bar))
        return;
    ++pen.bar;
    pen.offset = rational();
}

void Layout::addBeat(Pen &pen, const std::shared_ptr<Beat> &beat)
{
    leaveFullBar(pen);
    const rational time = timeOf(*beat);
    const rational room = lengthOf(pen.bar) - pen.offset;
    if (room < time && !masterBar(pen.bar).isFreeTime())
        refuse(QStringLiteral("bar %1 has only %2 left, too little for %3; write two shorter notes "
                              "with a tie (~) over the bar line")
                   .arg(pen.bar + 1)
                   .arg(quartersText(room), rhythmText(beat->rhythmValue())));
    for (const auto &note : beat->notes())
        prepare(*note, *beat);
    stretchAt(pen).beats.push_back(beat);
    pen.offset += time;
}

void Layout::add(const std::vector<std::shared_ptr<Bar>> &bars)
{
    for (std::size_t i = 0; i < bars.size(); ++i) {
        if (i > 0 && !_pen.offset.isZero()) {
            ++_pen.bar;
            _pen.offset = rational();
        }
        leaveFullBar(_pen);
        const Pen start = _pen;
        for (unsigned slot = 0; slot < Bar::MaxVoices; ++slot) {
            const auto &voice = bars[i]->voices()[slot];
            if (!voice || voice->isEmpty())
                continue;
            if (start.voice + slot >= Bar::MaxVoices)
                refuse(QStringLiteral("a bar has four voices; begin in one further up"));
            if (slot > 0 && !start.offset.isZero())
                refuse(QStringLiteral("music in several voices begins at the start of a bar"));
            Pen pen = start;
            pen.voice += slot;
            for (const auto &beat : voice->takeBeats(0, voice->beatCount() - 1))
                addBeat(pen, beat);
            if (slot == 0)
                _pen = pen;
        }
        // A bar that the text leaves empty.
        if (_pen.bar == start.bar && _pen.offset == start.offset)
            _pen.offset = lengthOf(_pen.bar);
    }
}

unsigned Layout::barCount() const
{
    unsigned count = 0;
    for (const WrittenStretch &stretch : _stretches)
        count = std::max(count, stretch.bar + 1);
    return count;
}

std::vector<WrittenStretch> Layout::take()
{
    for (WrittenStretch &stretch : _stretches) {
        rational written;
        for (const auto &beat : stretch.beats)
            written += timeOf(*beat);
        rational covered;
        const Beats &present = beatsAt(_staff, stretch.bar, stretch.voice);
        for (auto beat = stretch.firstBeat; beat < present.size() && covered < written; ++beat) {
            covered += timeOf(*present[beat]);
            ++stretch.replacedCount;
        }
        std::vector<RhythmValue> rests;
        if (written < covered)
            RhythmValue::rhythms(covered - written, rests);
        for (const RhythmValue &rest : rests)
            stretch.beats.push_back(std::make_shared<Beat>(rest));
    }
    return std::move(_stretches);
}

/// The library's message without the line, of which there is one, and its column in the line typed.
LineError inLine(const CoreException &error, int column)
{
    static const QRegularExpression place(QStringLiteral("^line 1, column ([0-9]+): "));
    const QString text = QString::fromStdString(error.message());
    const auto match = place.match(text);
    // The quote stands in front.
    return LineError(column + match.captured(1).toInt(), text.mid(match.capturedLength()));
}

std::vector<std::shared_ptr<Bar>> barsOf(const TypedMusic &music, const Staff &staff)
{
    try {
        return io::readBarsText(music.text.toStdString(), staff);
    } catch (const CoreException &error) {
        throw inLine(error, music.column);
    }
}

std::shared_ptr<Staff> staffAt(const EditSession &session, const Where &where, int column)
{
    const auto track = session.model().track(where.track);
    const auto staff = track ? track->staff(where.staff) : nullptr;
    if (!staff)
        throw LineError(column, QStringLiteral("the score has no tracks yet; add-track makes one"));
    return staff;
}

} // namespace

bool writeMusic(EditSession &session, const Where &where, const BeatPlace &from,
                const TypedMusic &music)
{
    const auto staff = staffAt(session, where, music.column);
    const MasterTrack &master = *session.model().masterTrack();
    if (!master.hasMasterBars())
        throw LineError(music.column,
                        QStringLiteral("the score has no bars yet; \"add-bars 1\" makes one"));
    Layout layout(session, *staff, where, from, music.column);
    for (int i = 0; i < music.times; ++i)
        layout.add(barsOf(music, *staff));
    const unsigned needed = layout.barCount();
    if (needed == 0)
        throw LineError(music.column, QStringLiteral("there is no music in this text"));
    auto stretches = layout.take();
    const unsigned present = master.masterBarCount();
    const unsigned missing = needed > present ? needed - present : 0;
    Transaction step(&session.score(), QStringLiteral("WriteMusic"));
    if (missing > 0 && !session.score().createBars(present, missing))
        return false;
    if (!session.score().writeBeats(where.track, where.staff, std::move(stretches)))
        return false;
    step.commit();
    if (missing > 0)
        session.out() << counted(missing, "bar") << " added: the score has "
                      << counted(needed, "bar") << " now.\n";
    return true;
}

BeatPlace endOfVoice(EditSession &session, const Where &where)
{
    const auto staff = staffAt(session, where, 1);
    for (unsigned bar = staff->barCount(); bar-- > 0;) {
        const Beats &beats = beatsAt(*staff, bar, where.voice);
        if (beats.empty())
            continue;
        const auto &master = *session.model().masterTrack()->masterBars()[bar];
        rational length;
        for (const auto &beat : beats)
            length += timeOf(*beat);
        const bool isFull = !master.isFreeTime() && !(length < master.length());
        return isFull ? BeatPlace{bar + 1, 0} : BeatPlace{bar, static_cast<unsigned>(beats.size())};
    }
    return {};
}

} // namespace zarn::tool
