// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Note/ZarnPassageAssistant.h>

#include <ZarnCore/ZarnAssert.h>

#include <algorithm>

namespace zarn {

PassageAssistant::PassageAssistant(const char *function, const QString &name,
                                   NoteAttribute attribute)
    : ChangeMarks(name), _function(function), _attribute(attribute)
{
}
PassageAssistant::~PassageAssistant() = default;

bool PassageAssistant::init(Score *score, const ScoreModelRange &range, std::uint32_t strings,
                            bool checked)
{
    ZARN_ASSERT_IN(_function, score != NULL);
    addArg(QStringLiteral("Range"), range.toQString());
    addArg(QStringLiteral("Strings"), QString::number(strings, 2));
    addArg(QStringLiteral("Checked"), checked ? QStringLiteral("true") : QStringLiteral("false"));
    _strings = strings;
    _isChecked = checked;
    AlsoKept also;
    also.otherMarks = true;
    return strings != 0 && prepare(score, range, also);
}

bool PassageAssistant::isChosen(const Note &note) const noexcept
{
    constexpr int mostStrings = 32;
    return note.string() >= 0 && note.string() < mostStrings
        && (_strings >> static_cast<unsigned>(note.string()) & 1U) != 0;
}

bool PassageAssistant::takes(const MarkedPlace &place, const Beat &beat, const Beat &) const
{
    const auto &notes = beat.notes();
    return place.isFretted && std::any_of(notes.begin(), notes.end(), [this](const auto &note) {
               return isChosen(*note);
           });
}

void PassageAssistant::change(const MarkedPlace &, Beat &beat, Beat &)
{
    for (const auto &note : beat.notes())
        if (isChosen(*note))
            setAttribute(beat, *note, _attribute, _isChecked && isFit(beat, *note));
}

} // namespace zarn
