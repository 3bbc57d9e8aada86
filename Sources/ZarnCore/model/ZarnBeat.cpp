// SPDX-License-Identifier: MIT
#include <ZarnCore/model/ZarnBeat.h>

#include <ZarnCore/model/ZarnBar.h>
#include <ZarnCore/model/ZarnVoice.h>

#include <algorithm>

namespace zarn {

Beat::Beat(const RhythmValue &rhythm) : _rhythm(rhythm)
{
    _rhythm.getLength();
}

Beat &Beat::operator=(const Beat &other)
{
    if (this == &other)
        return *this;
    _dynamic = other._dynamic;
    _graceType = other._graceType;
    _ottavia = other._ottavia;
    _placeHolder = other._placeHolder;
    _wholeBarRest = other._wholeBarRest;
    _slashedGrace = other._slashedGrace;
    _rhythm = other._rhythm;
    _notes = other._notes;
    _words = other._words;
    markOrphans();
    lengthChanged();
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

/// The rhythm computes its length here, so that threads that read it later find it done.
void Beat::setRhythmValue(const RhythmValue &rhythm)
{
    _rhythm = rhythm;
    _rhythm.getLength();
    lengthChanged();
}

void Beat::setWholeBarRest(bool wholeBar) noexcept
{
    _wholeBarRest = wholeBar;
    lengthChanged();
}

void Beat::setGraceType(GraceType type) noexcept
{
    _graceType = type;
    lengthChanged();
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

void Beat::setText(const std::string &text)
{
    Words words = _words.get();
    words.text = text;
    _words.set(std::move(words));
}

void Beat::setChordSymbol(const std::string &symbol)
{
    Words words = _words.get();
    words.chordSymbol = symbol;
    _words.set(std::move(words));
}

bool operator==(const Beat &left, const Beat &right)
{
    return left._rhythm == right._rhythm && left._dynamic == right._dynamic
        && left._graceType == right._graceType && left._ottavia == right._ottavia
        && left._slashedGrace == right._slashedGrace
        && left.isPlaceHolder() == right.isPlaceHolder()
        && left.isWholeBarRest() == right.isWholeBarRest() && left._words == right._words
        && left._notes == right._notes;
}

} // namespace zarn
