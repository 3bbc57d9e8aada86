// SPDX-License-Identifier: MIT
#include <ZarnCore/io/sheet/UnderStaff.h>

#include <ZarnCore/io/sheet/CharacterRow.h>
#include <ZarnCore/io/sheet/Fingers.h>
#include <ZarnCore/io/sheet/Glyphs.h>
#include <ZarnCore/io/sheet/Legend.h>
#include <ZarnCore/io/sheet/Texts.h>
#include <ZarnCore/model/ZarnBeat.h>

#include <QStringList>

namespace zarn::sheet {

static_assert(UnderStaff::lyricLines == Syllable::LineCount);

UnderStaff::UnderStaff(Sheet &sheet, const Lanes &lanes, const Glyphs &glyphs, Legend &legend)
    : _sheet(sheet), _lanes(lanes), _glyphs(glyphs), _legend(legend),
      _voices(Bar::MaxVoices, VoiceState(sheet)), _pedal(sheet)
{
}

void UnderStaff::write(const BeatPlace &place, SheetBar &into)
{
    writeFingers(place, into);
    writeLyrics(place, into);
    writeDynamics(place, into);
    if (place.beat.pedal() != PedalChange::None)
        _pedalChanges.emplace(place.column, place.beat.pedal());
}

void UnderStaff::writeFingers(const BeatPlace &place, SheetBar &into)
{
    const auto put = [&](int lane, const QString &fingers, const char *explanation) {
        if (fingers.isEmpty())
            return;
        Cell &cell = into.columns[place.column][lane];
        cell.text.prepend(fingers); // lower voices have the lower notes
        cell.ink = Ink::Rhythm;
        _legend.use(QLatin1String(explanation));
    };
    put(_lanes.rightHand, rightHandOf(place.beat), "p i m a c fingers that pluck");
    put(_lanes.leftHand, leftHandOf(place.beat), "T 1-4 fingers that stop the strings");
}

/// Lines that several voices sing stand once; where they sing different words, beside each other.
void UnderStaff::writeLyrics(const BeatPlace &place, SheetBar &into)
{
    const Beat &beat = place.beat;
    auto &sungOn = _voices[place.voice].sungOn;
    if (beat.isRest())
        sungOn.fill(QString());
    if (!beat.hasNotes() || beat.isGrace())
        return;
    std::array<QString, lyricLines> texts = sungOn;
    for (const Syllable &syllable : beat.lyrics()) {
        const bool goesOn =
            syllable.syllabic == Syllabic::Begin || syllable.syllabic == Syllabic::Middle;
        const QString line = syllable.hasMelisma ? QStringLiteral("_")
            : goesOn                             ? QStringLiteral("-")
                                                 : QString();
        sungOn.at(syllable.line) = line;
        texts.at(syllable.line) = QString::fromStdString(syllable.text).simplified() + line;
    }
    for (unsigned line = 0; line < lyricLines; ++line) {
        if (texts[line].isEmpty() || (_shownLyrics >> line & 1U) == 0)
            continue;
        const auto &cells = into.columns[place.column];
        const auto written = cells.find(_lanes.lyrics[line]);
        if (written == cells.end())
            into.put(place.column, _lanes.lyrics[line], texts[line], Ink::Plain);
        else if (written->second.text != texts[line] && texts[line] != sungOn[line])
            into.put(place.column, _lanes.lyrics[line], QLatin1Char('/') + texts[line], Ink::Plain);
    }
}

/// What a player is told at a beat: a dynamic that is another than before, an attack.
QString UnderStaff::newDynamic(const Beat &beat, unsigned voice)
{
    QStringList told;
    const QString dynamic = dynamicText(beat.dynamic());
    if (!dynamic.isEmpty() && dynamic != _voices[voice].dynamic) {
        _voices[voice].dynamic = dynamic;
        if (voice == _mainVoice || dynamic != _voices[_mainVoice].dynamic)
            told.append(dynamic);
    }
    if (beat.attackDynamic() != AttackDynamic::None)
        told.append(QString::fromStdString(attackDynamicToString(beat.attackDynamic())).toLower());
    return told.join(QLatin1Char(' '));
}

void UnderStaff::writeDynamics(const BeatPlace &place, SheetBar &into)
{
    const Beat &beat = place.beat;
    VoiceState &voice = _voices[place.voice];
    QString dynamic = newDynamic(beat, place.voice);
    const Hairpin hairpin = beat.hairpin();
    if (hairpin == Hairpin::Swell) {
        dynamic += dynamic.isEmpty() ? QStringLiteral("<>") : QStringLiteral(" <>");
        _legend.use(QStringLiteral("<> swell"));
    }
    if (!dynamic.isEmpty())
        putWords(_sheet, into, _lanes.dynamics, place.column, dynamic);

    if (hairpin == Hairpin::NoHairpin || hairpin == Hairpin::Swell)
        return voice.hairpin.end();
    const bool grows = hairpin == Hairpin::Crescendo;
    const auto style = grows ? Stretch::Style::Opening : Stretch::Style::Closing;
    if (voice.hairpin.isOpen() && voice.hairpin.stretch().style == style && !beat.beginsHairpin())
        return voice.hairpin.extendTo(place.end(), into);
    Stretch line;
    line.lane = _lanes.dynamics;
    line.style = style;
    line.first = place.column;
    line.inset = dynamic.isEmpty() ? 0 : displayWidth(dynamic) + 1;
    voice.hairpin.begin(line, into);
    voice.hairpin.extendTo(place.end(), into);
    voice.dynamic.clear();
    _legend.use(grows ? _glyphs.of({"<\u2500 crescendo", "<- crescendo"})
                      : _glyphs.of({"\u2500> decrescendo", "-> decrescendo"}));
}

void UnderStaff::beginPedal(const ColumnKey &column, const QString &words, SheetBar &into)
{
    Stretch line;
    line.lane = _lanes.pedal;
    line.style = Stretch::Style::Pedal;
    line.first = column;
    line.words = words;
    line.inset = words.isEmpty() ? 1 : 0;
    _pedal.begin(line, into);
}

void UnderStaff::writePedal(const ColumnKey &column, PedalChange change, SheetBar &into)
{
    const bool wasDown = _pedal.isOpen();
    const bool isLifted = change == PedalChange::Stop;
    if (wasDown) {
        _pedal.extendTo(column, into);
        _pedal.endAs(isLifted ? Stretch::Style::Pedal : Stretch::Style::PedalToChange, into);
        _legend.use(isLifted ? QStringLiteral("* pedal up")
                             : QStringLiteral("^ pedal up and down"));
    }
    if (!isLifted)
        beginPedal(column, wasDown ? QString() : QStringLiteral("Ped."), into);
}

void UnderStaff::endBar(SheetBar &into)
{
    for (const auto &[column, change] : _pedalChanges)
        writePedal(column, change, into);
    _pedalChanges.clear();
    if (_pedal.isOpen())
        _pedal.extendOverBarLine(into);
    for (VoiceState &voice : _voices)
        voice.hairpin.endIfAbsent();
}

} // namespace zarn::sheet
