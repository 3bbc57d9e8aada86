// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Note/ZarnSetNoteTrill.h>

#include <ZarnCore/commands/NotePlaces.h>

namespace zarn::cmd {

namespace {

bool isSpeed(Trill::Speed speed)
{
    return Trill{1, speed}.isValid();
}

} // namespace

SetNoteTrill::SetNoteTrill() : SetByTable(QStringLiteral("SetNoteTrill")) { }
SetNoteTrill::~SetNoteTrill() = default;

bool SetNoteTrill::init(Score *score, const ScoreModelRange &range, int key, Trill::Speed speed)
{
    ZARN_ASSERT_IN("zarn::cmd::SetNoteTrill::init", score != NULL);
    _key = key;
    _speed = speed;
    addArg(QStringLiteral("Key"), QString::number(key));
    return isSpeed(speed) && prepare(score, range, {{NoteAttribute::Trill, Trill()}});
}

void SetNoteTrill::begin(ScoreModel &model)
{
    if (_key == 0)
        return;
    int interval = 0;
    visitNodes(model, range(), static_cast<const Note *>(nullptr),
               [&](const MarkedPlace &, const Beat &, const Note &note) {
                   interval = note.midi() != Note::Unset ? _key - note.midi() : 0;
                   return false;
               });
    _isInReach = interval >= 1 && interval <= static_cast<int>(Trill::WidestInterval);
    if (_isInReach)
        setGiven(0, Trill{static_cast<std::uint8_t>(interval), _speed});
}

bool SetNoteTrill::takes(const MarkedPlace &place, const Beat &beat, const Note &note) const
{
    const int interval = given()[0].value.to<Trill>().interval;
    const bool isOnString = !place.isFretted || interval == 0
        || note.fret() + interval <= static_cast<int>(place.staff.fretCount());
    return _isInReach && isOnString && SetByTable::takes(place, beat, note);
}

} // namespace zarn::cmd
