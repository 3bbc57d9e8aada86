// SPDX-License-Identifier: MIT
#include <ZarnCore/model/ZarnBeat.h>

#include <ZarnCore/ZarnAssert.h>
#include <ZarnCore/model/ZarnBar.h>
#include <ZarnCore/model/ZarnVoice.h>

#include <algorithm>

namespace zarn {

static_assert(sizeof(void *) != 8 || sizeof(Beat) == 104,
              "scores hold beats by the hundred thousand");

Beat::Beat(const RhythmValue &rhythm) : _rhythm(rhythm)
{
    _rhythm.getLength();
}

Beat &Beat::operator=(const Beat &other)
{
    if (this == &other)
        return *this;
    _marks = other._marks;
    _rhythm = other._rhythm;
    _notes = other._notes;
    _details = other._details;
    markOrphans();
    lengthChanged();
    spansChanged();
    return *this;
}

std::shared_ptr<Beat> Beat::clone() const
{
    return ChildLinkAccess::clone(*this);
}

std::shared_ptr<Note> Beat::noteOnString(int string) const
{
    for (const auto &note : notes())
        if (note->string() == string)
            return note;
    return {};
}

std::shared_ptr<Note> Beat::noteWithMidi(int midi) const
{
    for (const auto &note : notes())
        if (note->midi() == midi)
            return note;
    return {};
}

void Beat::addNote(const std::shared_ptr<Note> &note)
{
    insertNote(noteCount(), note);
}

void Beat::insertNote(unsigned index, const std::shared_ptr<Note> &note)
{
    _notes.insert(index, note, asParent());
    notesChanged();
}

void Beat::insertNotes(unsigned index, Notes notes)
{
    _notes.insert(index, std::move(notes), asParent());
    notesChanged();
}

std::shared_ptr<Note> Beat::removeNote(unsigned index)
{
    auto taken = _notes.take(index, index);
    notesChanged();
    return taken.empty() ? nullptr : std::move(taken.front());
}

bool Beat::removeNote(const std::shared_ptr<Note> &note)
{
    const int index = note ? indexOfNote(*note) : -1;
    return index >= 0 && removeNote(static_cast<unsigned>(index)) != nullptr;
}

Beat::Notes Beat::takeNotes()
{
    auto taken = hasNotes() ? _notes.take(0, noteCount() - 1) : Notes();
    notesChanged();
    return taken;
}

int Beat::indexOfNote(const Note &note) const noexcept
{
    const auto found = std::find_if(notes().begin(), notes().end(), [&](const auto &candidate) {
        return candidate.get() == &note;
    });
    return found == notes().end() ? -1 : static_cast<int>(found - notes().begin());
}

void Beat::lengthChanged() const noexcept
{
    if (const auto voice = parentVoice())
        voice->forgetOffsets();
}

bool Beat::hasSpanDetails() const noexcept
{
    const BeatDetails &held = details();
    return held.textSpan != TextSpan::None || !held.slurEnds.empty() || !held.lyrics.empty();
}

void Beat::spansChanged() const noexcept
{
    if (!hasSpanMarks())
        return;
    if (const auto voice = parentVoice())
        voice->_mayHoldSpans = true;
}

/// The rhythm computes its length here, so that threads that read it later find it done.
void Beat::setRhythmValue(const RhythmValue &rhythm)
{
    _rhythm = rhythm;
    _rhythm.getLength();
    lengthChanged();
}

void Beat::setWholeBarRest(bool wholeBar)
{
    BeatMarkAccessors::setWholeBarRest(wholeBar);
    lengthChanged();
}

void Beat::setGraceType(GraceType type)
{
    BeatMarkAccessors::setGraceType(type);
    lengthChanged();
}

void Beat::setPedal(PedalChange change)
{
    BeatMarkAccessors::setPedal(change);
    spansChanged();
}

void Beat::setMarks(const BeatMarks &marks) noexcept
{
    const std::uint64_t changed = _marks ^ marks._marks;
    _marks = marks._marks;
    if ((changed & lengthMask) != 0)
        lengthChanged();
    if ((changed & spanMask) != 0)
        spansChanged();
}

utils::rational Beat::length() const
{
    if (isGrace())
        return 0;
    if (isWholeBarRest())
        if (const auto voice = parentVoice())
            if (const auto bar = voice->parentBar())
                return bar->length();
    return _rhythm.getLength();
}

namespace {

bool areValid(const BeatDetails &details) noexcept
{
    return details.whammyBar.isValid() && areValid(details.lyrics) && areValid(details.slurEnds)
        && details.barre.isValid() && details.strumLength <= Strum::LongestLength
        && details.strumAnchor <= StrumAnchor::EndsOnBeat
        && details.textSpan <= TextSpan::BeginBelow && details.slurLine <= SlurLine::Dotted
        && details.slurSide <= SlurSide::Below && details.dynamicSide <= MarkSide::Below
        && details.hairpinSide <= MarkSide::Below;
}

} // namespace

void Beat::setDetails(BeatDetails details)
{
    ZARN_ASSERT_IN("zarn::Beat::setDetails", areValid(details));
    _details.set(std::move(details));
    spansChanged();
}

void Beat::setText(const std::string &text)
{
    _details.change([&](BeatDetails &details) { details.text = text; });
}

void Beat::setTextBelow(const std::string &text)
{
    _details.change([&](BeatDetails &details) { details.textBelow = text; });
}

void Beat::setTextSpan(TextSpan span)
{
    ZARN_ASSERT_IN("zarn::Beat::setTextSpan", span <= TextSpan::BeginBelow);
    _details.change([&](BeatDetails &details) { details.textSpan = span; });
    spansChanged();
}

void Beat::setSlurLine(SlurLine line)
{
    ZARN_ASSERT_IN("zarn::Beat::setSlurLine", line <= SlurLine::Dotted);
    _details.change([&](BeatDetails &details) { details.slurLine = line; });
}

void Beat::setSlurSide(SlurSide side)
{
    ZARN_ASSERT_IN("zarn::Beat::setSlurSide", side <= SlurSide::Below);
    _details.change([&](BeatDetails &details) { details.slurSide = side; });
}

void Beat::setDynamicSide(MarkSide side)
{
    ZARN_ASSERT_IN("zarn::Beat::setDynamicSide", side <= MarkSide::Below);
    _details.change([&](BeatDetails &details) { details.dynamicSide = side; });
}

void Beat::setHairpinSide(MarkSide side)
{
    ZARN_ASSERT_IN("zarn::Beat::setHairpinSide", side <= MarkSide::Below);
    _details.change([&](BeatDetails &details) { details.hairpinSide = side; });
}

void Beat::setChord(const ChordMark &chord)
{
    _details.change([&](BeatDetails &details) { details.chord = chord; });
}

void Beat::setChordSymbol(const std::string &symbol)
{
    _details.change([&](BeatDetails &details) { details.chord.symbol = symbol; });
}

Strum Beat::strum(Direction direction) const noexcept
{
    if (direction == Direction::None)
        return {};
    return {direction, details().strumLength, details().strumAnchor};
}

/// Brush and arpeggio share their length; the one that goes leaves it to the other.
void Beat::setStrum(const Strum &strum, Direction other)
{
    if (strum.direction == Direction::None && other != Direction::None)
        return;
    _details.change([&](BeatDetails &details) {
        details.strumLength = strum.length;
        details.strumAnchor = strum.anchor;
    });
}

void Beat::setBrush(const Strum &strum)
{
    ZARN_ASSERT_IN("zarn::Beat::setBrush", strum.isValid());
    setBrushDirection(strum.direction);
    setStrum(strum, arpeggioDirection());
}

void Beat::setArpeggio(const Strum &strum)
{
    ZARN_ASSERT_IN("zarn::Beat::setArpeggio", strum.isValid());
    setArpeggioDirection(strum.direction);
    setStrum(strum, brushDirection());
}

void Beat::setWhammyBar(const WhammyBar &bar)
{
    ZARN_ASSERT_IN("zarn::Beat::setWhammyBar", bar.isValid());
    _details.change([&](BeatDetails &details) { details.whammyBar = bar; });
}

void Beat::setBarre(const Barre &barre)
{
    ZARN_ASSERT_IN("zarn::Beat::setBarre", barre.isValid());
    _details.change([&](BeatDetails &details) { details.barre = barre; });
}

void Beat::setLyrics(const Syllables &syllables)
{
    ZARN_ASSERT_IN("zarn::Beat::setLyrics", areValid(syllables));
    _details.change([&](BeatDetails &details) { details.lyrics = syllables; });
    spansChanged();
}

void Beat::setSlurEnds(const SlurEnds &ends)
{
    ZARN_ASSERT_IN("zarn::Beat::setSlurEnds", areValid(ends));
    _details.change([&](BeatDetails &details) { details.slurEnds = ends; });
    spansChanged();
}

/// Marks of a beat without notes count only while it has none.
bool operator==(const Beat &left, const Beat &right)
{
    return left._rhythm == right._rhythm
        && ((left._marks ^ right._marks) & ~Beat::emptyBeatMask) == 0
        && left.isPlaceHolder() == right.isPlaceHolder()
        && left.isWholeBarRest() == right.isWholeBarRest() && left._details == right._details
        && left._notes == right._notes;
}

} // namespace zarn
