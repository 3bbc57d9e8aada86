// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/NoteMover.h>

#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/model/notes/Ties.h>
#include <ZarnCore/model/places/ZarnRangeSpanIterator.h>
#include <ZarnCore/music/ZarnKeyTransposition.h>

#include <algorithm>
#include <memory>
#include <utility>

namespace zarn {

namespace {

/// Whether two notes are pieces of one chain, when both say that they are tied.
bool arePieces(const NotePosition &left, const NotePosition &right) noexcept
{
    return left.midi == right.midi && sameLocation(left, right);
}

} // namespace

NoteMover::NoteMover(MoveNotes &command, Mode mode, const ScoreModelRange &range)
    : _command(command), _mode(mode), _range(range), _named(range)
{
}

bool NoteMover::Line::isFollowedBy(const BeatSpan &span) const
{
    if (voice == nullptr)
        return false;
    return span.bar == bar
        ? span.firstBeat == endBeat
        : span.bar == bar + 1 && span.firstBeat == 0 && endBeat == voice->beatCount();
}

bool NoteMover::run()
{
    const ScoreModel &model = _command.model();
    for (RangeSpanIterator it(rangeIn(_command.model(), _range)); it.oneStep();) {
        const BeatSpan span = it.span();
        const Staff &staff = *model.tracks()[span.track]->staves()[span.staff];
        const bool isOtherStaff = &staff != _staff;
        if (isOtherStaff) {
            if (!finishStaff())
                return false;
            _staff = &staff;
            _place.emplace(staff);
            _trackIndex = span.track;
            _staffIndex = span.staff;
            _command._fretboard.reset();
            if (_place->isFretted)
                _command._fretboard.emplace(staff);
            _command.enterStaff(staff);
        }
        if (isOtherStaff || _bar != span.bar) {
            _bar = span.bar;
            enterStretch(_bar, false);
            _command.enterBar(*staff.bars()[_bar]);
            if (_mode == Mode::Change && !_command._range)
                _shift = _command.shift();
        }
        if (!moveSpan(it.voice(), span))
            return false;
    }
    return finishStaff();
}

/// What is tied out of the range goes along when its voice has been walked.
bool NoteMover::finishStaff()
{
    for (Line &line : _lines) {
        if (line.voice != nullptr
            && !moveTied(*line.voice, line.endBeat, std::move(line.held), Direction::Forwards))
            return false;
        line = Line();
    }
    return true;
}

bool NoteMover::moveSpan(const Voice &voice, const BeatSpan &span)
{
    Line &line = _lines[span.voice];
    const bool isBeginning = !line.isFollowedBy(span);
    if (isBeginning && line.voice != nullptr) {
        if (!moveTied(*line.voice, line.endBeat, std::move(line.held), Direction::Forwards))
            return false;
        line.held.clear();
    }
    for (unsigned i = span.firstBeat; i <= span.lastBeat; ++i) {
        if (_mode == Mode::Change)
            _command.enterBeat(span, *voice.beats()[i]);
        if (_shift && line.held.empty() && shiftBeat(*voice.beats()[i]))
            continue;
        _isBeginning = isBeginning && i == span.firstBeat;
        if (!moveBeat(*voice.beats()[i], line.held))
            return false;
        if (_areAnyTied)
            line.held = heldOn(Direction::Forwards);
        else
            line.held.clear();
        if (_mode == Mode::Change)
            write();
        if (_isBeginning && !moveTied(voice, i, heldOn(Direction::Backwards), Direction::Backwards))
            return false;
    }
    line.voice = &voice;
    line.bar = span.bar;
    line.endBeat = span.lastBeat + 1;
    return true;
}

/// Widens the stretch of the staff at hand to a bar.
void NoteMover::enterStretch(unsigned bar, bool areStringsChanged)
{
    if (_mode == Mode::Check)
        return;
    auto &all = _command._stretches;
    if (all.empty() || all.back().track != _trackIndex || all.back().staff != _staffIndex)
        all.push_back({_trackIndex, _staffIndex, bar, bar, false});
    MoveNotes::Stretch &stretch = all.back();
    stretch.firstBar = std::min(stretch.firstBar, bar);
    stretch.lastBar = std::max(stretch.lastBar, bar);
    stretch.areStringsChanged = stretch.areStringsChanged || areStringsChanged;
}

void NoteMover::read(const Beat &beat)
{
    const auto &notes = beat.notes();
    _movers.resize(notes.size());
    _areAnyTied = false;
    for (std::size_t i = 0; i < notes.size(); ++i) {
        Note &note = *notes[i];
        const NotePosition position(note);
        _movers[i] = {&note, position, position, std::nullopt, false};
        _areAnyTied = _areAnyTied || note.isTied() || note.isTieOrigin();
    }
}

/// Moves the notes of a beat that all go by the shift of the bar. False, and none has moved, when
/// one of them may go another way.
bool NoteMover::shiftBeat(const Beat &beat)
{
    const int by = _shift->semitones;
    const bool areStringsFree = !_command._fretboard;
    for (const auto &note : beat.notes()) {
        const int midi = note->midi();
        const bool isKey =
            midi == Note::Unset || (midi + by >= 0 && midi + by <= MoveNotes::highestKey);
        const bool isFree = areStringsFree || note->string() == Note::Unset;
        if (!isKey || !isFree || note->isTied() || note->isTieOrigin())
            return false;
    }
    for (const auto &note : beat.notes()) {
        const NotePosition from(*note);
        _command._kept.keep(from);
        if (from.midi != Note::Unset)
            note->setMidi(from.midi + by);
        note->setSpellingNumber(_shift->spellings->spelling(from.spelling));
    }
    _isAnyTaken = _isAnyTaken || beat.hasNotes();
    if (beat.hasNotes() && _command._options.announced == MoveNotes::Announced::Changes)
        _command._touched.add(_trackIndex, _staffIndex, _bar, _bar);
    return true;
}

/// Decides where the notes of a beat go.
bool NoteMover::moveBeat(const Beat &beat, const std::vector<Held> &held)
{
    read(beat);
    takeFrom(held, Direction::Forwards);
    bool areAnySought = false;
    for (Mover &mover : _movers) {
        if (mover.isMoved || !_named.has(*_place, *mover.note)
            || !_command.takes(*_place, *mover.note))
            continue;
        const auto move = _command.moved(*_place, *mover.note, mover.from);
        if (!move)
            return false;
        mover.to = move->to;
        mover.soughtPitch = move->soughtPitch;
        mover.isMoved = true;
        _isAnyTaken = true;
        areAnySought = areAnySought || mover.soughtPitch;
    }
    if (_movers.size() > 1 && !areApart())
        return false;
    return !areAnySought || findHomes(beat);
}

/// Whether the notes that know where they go leave each other their places.
bool NoteMover::areApart() const
{
    if (_command._options.homeless == MoveNotes::Homeless::WithoutPlace)
        return true;
    for (std::size_t i = 1; i < _movers.size(); ++i) {
        for (std::size_t k = 0; k < i; ++k) {
            const Mover &left = _movers[k];
            const Mover &right = _movers[i];
            if (!left.soughtPitch && !right.soughtPitch && sameLocation(left.to, right.to)
                && !sameLocation(left.from, right.from))
                return false;
        }
    }
    return true;
}

bool NoteMover::findHomes(const Beat &beat)
{
    for (Mover &mover : _movers) {
        if (!mover.soughtPitch)
            continue;
        mover.to.string = Note::Unset;
        mover.to.fret = Note::Unset;
        if (!findHome(beat, mover) && _command._options.homeless == MoveNotes::Homeless::Refused)
            return false;
        mover.soughtPitch.reset();
    }
    return true;
}

bool NoteMover::findHome(const Beat &beat, Mover &mover) const
{
    if (!_place->isFretted)
        return false;
    const auto isTaken = [this](int string) {
        return std::any_of(_movers.begin(), _movers.end(), [string](const Mover &other) {
            return !other.soughtPitch && other.to.string == string;
        });
    };
    const fingering::StaffFrets &fretboard = _command.fretboard();
    for (int string = 0; string < fretboard.stringCount(); ++string) {
        const int fret = fretboard.fret(string, *mover.soughtPitch);
        const bool isBetter = mover.to.fret == Note::Unset || fret < mover.to.fret;
        if (fret >= 0 && isBetter && !isTaken(string) && isFreeAlongTies(beat, mover, string)) {
            mover.to.string = static_cast<std::int8_t>(string);
            mover.to.fret = static_cast<std::int8_t>(fret);
        }
    }
    return mover.to.string != Note::Unset;
}

bool NoteMover::isFreeAlongTies(const Beat &beat, const Mover &mover, int string) const
{
    return isFreeAlongTies(beat, mover, string, Direction::Forwards)
        && (!_isBeginning || isFreeAlongTies(beat, mover, string, Direction::Backwards));
}

/// Whether no beat that the note is tied to has another note on a string.
bool NoteMover::isFreeAlongTies(const Beat &beat, const Mover &mover, int string,
                                Direction direction)
{
    const bool isForwards = direction == Direction::Forwards;
    const Note *piece = mover.note;
    std::shared_ptr<Voice> voice = beat.parentVoice();
    unsigned index = beat.index();
    while (piece != nullptr && (isForwards ? piece->isTieOrigin() : piece->isTied())) {
        const auto next =
            isForwards ? beatBehindJoint(*voice, index + 1) : beatInFrontOfJoint(*voice, index);
        piece = nullptr;
        if (next == nullptr)
            break;
        bool isFree = true;
        for (const auto &note : next->notes()) {
            const bool isPiece = (isForwards ? note->isTied() : note->isTieOrigin())
                && arePieces(NotePosition(*note), mover.from);
            if (isPiece)
                piece = note.get();
            else
                isFree = isFree && note->string() != string;
        }
        if (piece != nullptr && !isFree)
            return false;
        voice = next->parentVoice();
        index = next->index();
    }
    return true;
}

/// Gives the notes of the beat at hand that continue a chain what the piece before them has.
void NoteMover::takeFrom(const std::vector<Held> &held, Direction direction)
{
    if (held.empty())
        return;
    for (Mover &mover : _movers) {
        const bool isTied =
            direction == Direction::Forwards ? mover.note->isTied() : mover.note->isTieOrigin();
        if (!isTied)
            continue;
        const auto piece = std::find_if(held.begin(), held.end(), [&mover](const Held &other) {
            return arePieces(other.from, mover.from);
        });
        if (piece == held.end())
            continue;
        const NotePosition own = mover.from;
        mover.to = piece->to;
        mover.isMoved = true;
        if (_command._options.kept == KeptPositions::Parts::Pitches) {
            mover.to.articulation = own.articulation;
            mover.to.staffLine = own.staffLine;
            mover.to.head = own.head;
        }
    }
}

/// The pieces of the beat at hand that go on in a direction.
std::vector<NoteMover::Held> NoteMover::heldOn(Direction direction) const
{
    std::vector<Held> held;
    if (!_areAnyTied)
        return held;
    for (const Mover &mover : _movers) {
        const bool isHeld =
            direction == Direction::Forwards ? mover.note->isTieOrigin() : mover.note->isTied();
        if (isHeld && mover.isMoved)
            held.push_back({mover.from, mover.to});
    }
    return held;
}

void NoteMover::write()
{
    bool isAnyChanged = false;
    for (const Mover &mover : _movers) {
        _command._kept.keep(mover.from);
        if (mover.to == mover.from)
            continue;
        mover.to.giveTo(*mover.note, mover.from);
        isAnyChanged = true;
        if (mover.to.string != mover.from.string)
            enterStretch(_bar, true);
    }
    if (isAnyChanged && _command._options.announced == MoveNotes::Announced::Changes)
        _command._touched.add(_trackIndex, _staffIndex, _bar, _bar);
}

/// Follows chains of ties out of the range, from a joint of a voice on.
bool NoteMover::moveTied(const Voice &voice, unsigned joint, std::vector<Held> held,
                         Direction direction)
{
    std::shared_ptr<const Voice> owner;
    const Voice *at = &voice;
    while (!held.empty()) {
        const auto beat = direction == Direction::Forwards ? beatBehindJoint(*at, joint)
                                                           : beatInFrontOfJoint(*at, joint);
        if (beat == nullptr)
            break;
        if (!moveTied(*beat, held, direction))
            return false;
        held = heldOn(direction);
        owner = beat->parentVoice();
        at = owner.get();
        joint = direction == Direction::Forwards ? beat->index() + 1 : beat->index();
    }
    return true;
}

bool NoteMover::moveTied(const Beat &beat, const std::vector<Held> &held, Direction direction)
{
    read(beat);
    takeFrom(held, direction);
    if (!areApart())
        return false;
    if (_mode == Mode::Check)
        return true;
    const auto voice = beat.parentVoice();
    const unsigned bar = voice->parentBar()->index();
    for (std::size_t i = 0; i < _movers.size(); ++i) {
        const Mover &mover = _movers[i];
        if (mover.to == mover.from)
            continue;
        _command._tied.push_back({_trackIndex, _staffIndex, bar, voice->index(), beat.index(),
                                  static_cast<unsigned>(i)});
        _command._keptTied.keep(mover.from);
        mover.to.giveTo(*mover.note, mover.from);
        _command._touched.add(_trackIndex, _staffIndex, bar, bar);
        enterStretch(bar, mover.to.string != mover.from.string);
    }
    return true;
}

} // namespace zarn
