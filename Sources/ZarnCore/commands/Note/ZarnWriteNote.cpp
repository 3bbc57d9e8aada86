// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Note/ZarnWriteNote.h>

#include <ZarnCore/commands/ZarnRangeNodes.h>
#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/model/notes/Links.h>
#include <ZarnCore/model/notes/StringLinks.h>
#include <ZarnCore/model/notes/Ties.h>
#include <ZarnCore/score/ZarnScoreBase.h>

namespace zarn {

WriteNote::~WriteNote() = default;

bool WriteNote::prepare(Score *score, const ScoreModelIndex &index)
{
    setScore(score);
    _index = index;
    _index.setModel(&model());
    return canExist(index) && index.beatIndex() >= 0
        && expectPlace([this] { return find().has_value(); });
}

std::optional<WriteNote::Placement> WriteNote::find() const
{
    const auto beat = _index.beat();
    return beat != nullptr ? placement(*_index.staff(), *beat) : std::nullopt;
}

WriteNote::Placement WriteNote::placementOf(std::shared_ptr<Note> replaced, int midi)
{
    Placement placement = {std::move(replaced), NotePosition()};
    NotePosition &to = *placement.to;
    if (placement.replaced != nullptr)
        to = NotePosition(*placement.replaced);
    if (to.midi != midi)
        to.spelling = NotePosition::NoSpelling;
    to.midi = static_cast<std::int8_t>(midi);
    return placement;
}

std::shared_ptr<Note> WriteNote::makeNote(const Note *old, const NotePosition &position)
{
    auto note = old != nullptr ? std::make_shared<Note>(*old) : std::make_shared<Note>();
    if (note->midi() != position.midi) {
        strikeAnew(*note);
        note->setTieOrigin(false);
    }
    position.giveTo(*note);
    return note;
}

void WriteNote::apply()
{
    const auto place = find();
    requirePlace(place.has_value());
    const auto voice = _index.voice();
    const auto beat = _index.beat();
    const Note *const old = place->replaced.get();
    _links.emplace(*voice, beat->index(), beat->index() + 1);
    _before = beat->marks();
    _isWritten = place->to.has_value();
    if (beat->isWholeBarRest()) // which beats beside it came in time
        keepSpans(static_cast<unsigned>(_index.trackIndex()), _index.staffIndex(),
                  static_cast<unsigned>(_index.barIndex()),
                  static_cast<unsigned>(_index.barIndex()));
    _noteIndex =
        old != nullptr ? static_cast<unsigned>(beat->indexOfNote(*old)) : beat->noteCount();
    if (old != nullptr) {
        _replaced = beat->removeNote(_noteIndex);
        if (!_isWritten || _replaced->midi() != place->to->midi)
            releaseTies(*voice, beat->index(), *_replaced);
    }
    if (_isWritten) {
        beat->setPlaceHolder(false);
        beat->setWholeBarRest(false);
        beat->setDeadSlapped(false);
        // The same note again after an undo.
        beat->insertNote(_noteIndex, _written != nullptr ? _written : makeNote(old, *place->to));
        _written.reset();
        mendStringLinks(*voice, beat->index(), beat->index() + 1);
    } else {
        mendThroughout(*voice, beat->index(), beat->index() + 1);
    }
    const BeatSpan bar{static_cast<unsigned>(_index.trackIndex()), _index.staffIndex(),
                       static_cast<unsigned>(_index.barIndex())};
    _touched.clear();
    _touched.add(bar.track, bar.staff, bar.bar, bar.bar);
    _links->settle(bar, _touched);
}

void WriteNote::revert()
{
    const auto beat = _index.beat();
    if (_isWritten)
        _written = beat->removeNote(_noteIndex);
    if (_replaced != nullptr)
        beat->insertNote(_noteIndex, std::move(_replaced));
    _replaced.reset();
    beat->setMarks(_before);
    _links->putBack(*_index.voice());
}

void WriteNote::announceApplied()
{
    _touched.announce(score(), this);
}

void WriteNote::announceReverted()
{
    announceApplied();
}

} // namespace zarn
