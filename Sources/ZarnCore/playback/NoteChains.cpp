// SPDX-License-Identifier: MIT
#include <ZarnCore/playback/NoteChains.h>

#include <ZarnCore/model/notes/Ties.h>
#include <ZarnCore/model/notes/ZarnWrittenPitch.h>

#include <algorithm>
#include <cstdlib>

namespace zarn::playback {

namespace {

constexpr int widestSlide = 24; ///< semitones that a pitch can be moved by

int keyOf(const Note &note)
{
    return note.midi() != Note::Unset ? note.midi() : writtenMidi(note);
}

bool isOnString(const Note &note)
{
    return note.string() != Note::Unset;
}

bool isSlideToTarget(const Note &note)
{
    return note.slideOut() == SlideOut::Shift || note.slideOut() == SlideOut::Legato;
}

/// Struck once and at once, so that it can go on from a slide without an attack.
bool isPlainlyStruck(const Beat &beat, const Note &note)
{
    return beat.tremolo() == 0 && beat.tremoloToNext() == 0
        && beat.rasgueado() == RasgueadoType::None && note.trill().interval == 0
        && note.ornament() == Ornament::NoOrnament && !note.isDead();
}

class ChainBuilder {
public:
    explicit ChainBuilder(const PlayedBeats &beats) : _beats(beats) { }

    NoteChains build()
    {
        constexpr std::size_t usualNotes = 2; // of a beat
        _result.pieces.reserve(usualNotes * _beats.size());
        _result.chains.reserve(usualNotes * _beats.size());
        for (std::uint32_t i = 0; i < _beats.size(); ++i)
            readBeat(i);
        letGo(_held);
        return std::move(_result);
    }

private:
    /// A chain that ends with a note of the beat before.
    struct Held {
        std::uint32_t chain;
        bool isFound = false;
    };

    /// A note from which a hammer-on or a slide leads on.
    struct Leading {
        std::uint32_t piece;
        std::uint32_t chain;
        bool isUsed;
    };

    void readBeat(std::uint32_t index)
    {
        const PlayedBeat &played = _beats[index];
        const Beat &beat = *played.beat;
        if (!played.isJoined) {
            letGo(_held);
            _leading.clear();
        }
        if (beat.isCue() || !beat.hasNotes()) {
            if (beat.isGrace())
                return;
            letGo(_held);
            _leading.clear();
            return;
        }
        _next.clear();
        std::uint16_t number = 0;
        const std::size_t leadingCount = _leading.size();
        for (const auto &note : beat.notes())
            readNote({note.get(), index, NotePiece::None, number++, 0, 0}, beat, leadingCount);
        dropUsed(leadingCount, beat);
        // What is held sounds on over grace notes.
        for (const Held &held : _held)
            if (!held.isFound && beat.isGrace())
                _next.push_back(held);
            else if (!held.isFound)
                letGo(held);
        _held.swap(_next);
    }

    void readNote(const NotePiece &piece, const Beat &beat, std::size_t leadingCount)
    {
        const Note &note = *piece.note;
        const auto place = static_cast<std::uint32_t>(_result.pieces.size());
        _result.pieces.push_back(piece);
        if (!_held.empty() && note.isTied() && continueTie(place))
            return;
        Approach approach = Approach::Struck;
        if (leadingCount != 0 && arrive(place, beat, leadingCount, approach))
            return;
        NoteChain chain;
        chain.first = chain.last = place;
        chain.approach = approach;
        chain.isLooseAtStart = note.isTied();
        _result.chains.push_back(chain);
        holdOn(static_cast<std::uint32_t>(_result.chains.size() - 1), place);
    }

    bool continueTie(std::uint32_t place)
    {
        const Note &note = *_result.pieces[place].note;
        for (Held &held : _held) {
            const NotePiece &last = _result.pieces[_result.chains[held.chain].last];
            if (held.isFound || !sameLocation(*last.note, note)
                || !(last.note->isTieOrigin() || isWrittenBehind(last, place)))
                continue;
            append(held, place, last.shift);
            return true;
        }
        return false;
    }

    /// A tie that ends says enough where no jump leads to it.
    bool isWrittenBehind(const NotePiece &last, std::uint32_t place) const
    {
        const std::uint32_t bar = _beats[last.beat].bar;
        const std::uint32_t here = _beats[_result.pieces[place].beat].bar;
        return here == bar || here == bar + 1;
    }

    void append(Held &held, std::uint32_t place, int shift)
    {
        NoteChain &chain = _result.chains[held.chain];
        _result.pieces[chain.last].next = place;
        _result.pieces[place].shift = static_cast<std::int8_t>(shift);
        chain.last = place;
        held.isFound = true;
        holdOn(held.chain, place);
    }

    /// Keeps a chain open, and remembers from where a hammer-on or a slide leads on.
    void holdOn(std::uint32_t chain, std::uint32_t place)
    {
        const Note &note = *_result.pieces[place].note;
        _next.push_back({chain});
        if (note.isHopo() || isSlideToTarget(note))
            _leading.push_back({place, chain, false});
    }

    /// The note is where a hammer-on or a slide leads to; answers whether it is no new attack.
    bool arrive(std::uint32_t place, const Beat &beat, std::size_t leadingCount, Approach &approach)
    {
        const Note &note = *_result.pieces[place].note;
        for (std::size_t i = 0; i < leadingCount; ++i) {
            Leading &leading = _leading[i];
            NotePiece &from = _result.pieces[leading.piece];
            const bool isAim = isOnString(*from.note)
                ? from.note->string() == note.string()
                : from.number == _result.pieces[place].number || beat.noteCount() == 1;
            if (leading.isUsed || !isAim)
                continue;
            leading.isUsed = true;
            const int rise = keyOf(note) - keyOf(*from.note);
            if (from.note->isHopo())
                approach = rise >= 0 ? Approach::HammeredOn : Approach::PulledOff;
            if (!isSlideToTarget(*from.note) || std::abs(rise) > widestSlide)
                return false;
            from.slideTo = static_cast<std::int8_t>(rise);
            return from.note->slideOut() == SlideOut::Legato && slideOn(leading, place, beat);
        }
        return false;
    }

    bool slideOn(const Leading &leading, std::uint32_t place, const Beat &beat)
    {
        const NotePiece from = _result.pieces[leading.piece];
        const int shift = from.shift + from.slideTo;
        const bool follows = from.beat + 1 == _result.pieces[place].beat;
        if (!follows || _result.chains[leading.chain].last != leading.piece
            || std::abs(shift) > widestSlide || !isPlainlyStruck(beat, *_result.pieces[place].note)
            || !isPlainlyStruck(*_beats[from.beat].beat, *from.note))
            return false;
        Held held{leading.chain};
        append(held, place, shift);
        return true;
    }

    /// Takes out what has arrived; what leads from a note without a string leads to the next beat
    /// alone.
    void dropUsed(std::size_t count, const Beat &beat)
    {
        const auto end = _leading.begin() + static_cast<std::ptrdiff_t>(count);
        const auto kept = std::remove_if(_leading.begin(), end, [&](const Leading &leading) {
            const Note &from = *_result.pieces[leading.piece].note;
            return leading.isUsed || (!isOnString(from) && !beat.isGrace());
        });
        _leading.erase(kept, end);
    }

    void letGo(const Held &held)
    {
        NoteChain &chain = _result.chains[held.chain];
        chain.isLooseAtEnd = _result.pieces[chain.last].note->isTieOrigin();
    }
    void letGo(std::vector<Held> &held)
    {
        for (const Held &each : held)
            letGo(each);
        held.clear();
    }

    const PlayedBeats &_beats;
    NoteChains _result;
    std::vector<Held> _held;
    std::vector<Held> _next;
    std::vector<Leading> _leading;
};

} // namespace

NoteChains NoteChains::of(const PlayedBeats &beats)
{
    return ChainBuilder(beats).build();
}

} // namespace zarn::playback
