// SPDX-License-Identifier: MIT
#include "BarText.h"

#include <ZarnCore/model/ZarnBar.h>
#include <ZarnCore/model/ZarnMasterBar.h>
#include <ZarnCore/music/ZarnMusic.h>
#include <ZarnCore/music/ZarnTone.h>

namespace {

/// The written pitch, middle C being C4; "x" for a note that has none.
std::string textOf(const zarn::Note &note)
{
    const int midi = zarn::Music::midi(note);
    const std::string pitch = midi == zarn::Note::Unset
        ? "x"
        : zarn::Tone(midi).toString(true).toStdString() + std::to_string(midi / 12 - 1);
    return note.isTied() ? "~" + pitch : pitch;
}

std::string textOf(const zarn::Beat &beat)
{
    std::string notes;
    for (const auto &note : beat.notes())
        notes += (notes.empty() ? "" : " ") + textOf(*note);
    if (beat.noteCount() > 1)
        notes = "[" + notes + "]";
    else if (!beat.hasNotes())
        notes = beat.isPlaceHolder() ? "." : "r";
    return notes + ":" + beat.length().toString();
}

std::string textOf(const zarn::Voice &voice)
{
    std::string beats;
    for (const auto &beat : voice.beats())
        beats += (beats.empty() ? "" : " ") + textOf(*beat);
    return beats;
}

} // namespace

std::string textOf(const zarn::MasterBar &column)
{
    const zarn::TimeSignature &time = column.timeSignature();
    std::string text = column.isFreeTime()
        ? "free"
        : std::to_string(time.getNumerator()) + "/" + std::to_string(time.getDenominator());
    if (column.hasSection())
        text += " [" + column.section().letter + column.section().text + "]";
    if (column.isRepeatStart())
        text += " |:";
    if (column.isRepeatEnd())
        text += " :|x" + std::to_string(column.repeatCount());
    if (column.hasDoubleBar())
        text += " ||";
    return text;
}

std::string textOf(const zarn::Bar &bar)
{
    if (bar.isSimile())
        return "%";
    std::string voices;
    for (const auto &voice : bar.voices())
        if (voice && !voice->isEmpty())
            voices += (voices.empty() ? "" : " & ") + textOf(*voice);
    return voices.empty() ? "-" : voices;
}
