// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Note/ZarnSetStringedNoteHopo.h>

#include <ZarnCore/commands/NotePlaces.h>

#include <map>
#include <tuple>

namespace zarn::cmd {

SetStringedNoteHopo::SetStringedNoteHopo() : SetByTable(QStringLiteral("SetStringedNoteHopo")) { }
SetStringedNoteHopo::~SetStringedNoteHopo() = default;

bool SetStringedNoteHopo::init(Score *score, const ScoreModelRange &range, bool checked)
{
    ZARN_ASSERT_IN("zarn::cmd::SetStringedNoteHopo::init", score != NULL);
    return prepare(score, range, {{NoteAttribute::Hopo, checked}});
}

void SetStringedNoteHopo::begin(ScoreModel &model)
{
    std::map<std::tuple<const Staff *, unsigned, int>, const Note *> last;
    std::size_t count = 0;
    visitNodes(model, range(), static_cast<const Note *>(nullptr),
               [&](const MarkedPlace &place, const Beat &beat, const Note &note) {
                   const auto voice = beat.parentVoice();
                   last[{&place.staff, voice->index(), note.string()}] = &note;
                   ++count;
                   return true;
               });
    _lastOnString.clear();
    if (count != last.size())
        for (const auto &[string, note] : last)
            _lastOnString.insert(note);
}

bool SetStringedNoteHopo::takes(const MarkedPlace &place, const Beat &beat, const Note &note) const
{
    return SetByTable::takes(place, beat, note)
        && (given()[0].isDefault || _lastOnString.count(&note) == 0);
}

void SetStringedNoteHopo::change(const MarkedPlace &place, Beat &beat, Note &note)
{
    SetByTable::change(place, beat, note);
    if (note.isHopo() && note.slideOut() == SlideOut::Legato)
        note.setSlideOut(SlideOut::None);
}

} // namespace zarn::cmd
