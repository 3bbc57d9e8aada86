// SPDX-License-Identifier: MIT
#include <ZarnCore/io/sheet/OverStaff.h>

#include <ZarnCore/io/sheet/BeatSigns.h>
#include <ZarnCore/io/sheet/Glyphs.h>
#include <ZarnCore/io/sheet/Legend.h>
#include <ZarnCore/model/ZarnMasterBar.h>

#include <QStringList>

#include <algorithm>
#include <array>

namespace zarn::sheet {

namespace {

/// Slides that are not struck again are under a slur, as are the beats that say so. In posted
/// tablature the signs of slides, hammer-ons and pull-offs say it by themselves.
bool isJoinedToNext(const Beat &beat, const Glyphs &glyphs)
{
    const auto leadsOn = [](const auto &note) {
        return note->isHopo() || note->slideOut() == SlideOut::Legato
            || note->slideOut() == SlideOut::Shift;
    };
    if (glyphs.isPosted)
        return beat.isSlurredToNext()
            && std::none_of(beat.notes().begin(), beat.notes().end(), leadsOn);
    return beat.isSlurredToNext()
        || std::any_of(beat.notes().begin(), beat.notes().end(),
                       [](const auto &note) { return note->slideOut() == SlideOut::Legato; });
}

/// By `Fermata`; the usual length is not named.
constexpr std::array<const char *, 3> fermataLengths = {" short", "", " long"};

} // namespace

OverStaff::OverStaff(Sheet &sheet, const Lanes &lanes, const Glyphs &glyphs, Legend &legend)
    : _sheet(sheet), _lanes(lanes), _glyphs(glyphs), _legend(legend)
{
    const StretchRun run(sheet);
    _voices.assign(Bar::MaxVoices, {run, run, std::vector<StretchRun>(runKinds().size(), run)});
}

Stretch OverStaff::stretch(int lane, Stretch::Style style, const BeatPlace &place) const
{
    Stretch stretch;
    stretch.lane = lane;
    stretch.style = style;
    stretch.first = place.column;
    stretch.ink = Ink::Rhythm;
    return stretch;
}

void OverStaff::write(const BeatPlace &place, SheetBar &into)
{
    writeText(place, into);
    writeTechniques(place, into);
    writeSlur(place, into);
    _numberedSlurs->add(_sheet, place, _lanes.slurs);
}

void OverStaff::writeText(const BeatPlace &place, SheetBar &into)
{
    StretchRun &run = _voices[place.voice].text;
    const TextSpan span = place.beat.textSpan();
    if (span == TextSpan::End && run.isOpen()) {
        run.extendTo(place.column, into);
        run.end();
    }
    // A page of text has one lane for words, over the staff.
    QString dashed;
    for (const TextSpan side : {TextSpan::Begin, TextSpan::BeginBelow}) {
        const bool isOver = side == TextSpan::Begin;
        const QString text =
            QString::fromStdString(isOver ? place.beat.text() : place.beat.textBelow())
                .simplified();
        if (span == side)
            dashed = text;
        else if (!text.isEmpty())
            putWords(_sheet, into, _lanes.texts, place.column, text);
    }
    if (!begins(span))
        return;
    Stretch dashes = stretch(_lanes.texts, Stretch::Style::Dashes, place);
    dashes.words = dashed;
    dashes.ink = Ink::Plain;
    run.begin(dashes, into);
}

void OverStaff::writeTechniques(const BeatPlace &place, SheetBar &into)
{
    const Beat &beat = place.beat;
    for (const QString &words : techniquesOf(beat, _glyphs, _legend))
        putWords(_sheet, into, _lanes.techniques, place.column, words, Ink::Rhythm);
    const auto &kinds = runKinds();
    for (std::size_t i = 0; i < kinds.size(); ++i) {
        StretchRun &run = _voices[place.voice].techniques[i];
        const QString words = kinds[i].words(beat, _glyphs);
        const bool lastsToEnd = kinds[i].style == Stretch::Style::Wave;
        const ColumnKey reach = lastsToEnd ? place.end() : place.column;
        if (words.isEmpty()) {
            if (!beat.isRest())
                run.end();
            continue;
        }
        if (run.isOpen() && run.stretch().words == words
            && (kinds[i].goesOn == nullptr || kinds[i].goesOn(beat))) {
            run.extendTo(reach, into);
            continue;
        }
        if (*kinds[i].explanation != '\0')
            _legend.use(QLatin1String(kinds[i].explanation));
        Stretch line = stretch(_lanes.techniques, kinds[i].style, place);
        line.words = words;
        run.begin(line, into);
        run.extendTo(reach, into);
    }
}

void OverStaff::writeSlur(const BeatPlace &place, SheetBar &into)
{
    StretchRun &run = _voices[place.voice].slur;
    const bool isFirstShown = _sheet.bars.empty() && place.column.onset == utils::rational(0);
    if (isFirstShown && place.beat.isSlurredToPrevious() && !run.isOpen()) {
        Stretch open = stretch(_lanes.slurs, Stretch::Style::Slur, place);
        open.begins = false;
        run.begin(open, into);
    }
    const bool goesOn = isJoinedToNext(place.beat, _glyphs);
    const bool wasOpen = run.isOpen();
    if (wasOpen)
        run.extendTo(place.column, into);
    if (!goesOn || place.beat.beginsSlur())
        run.end();
    if (!goesOn || run.isOpen())
        return;
    Stretch slur = stretch(_lanes.slurs, Stretch::Style::Slur, place);
    slur.inset = wasOpen ? 1 : 0;
    run.begin(slur, into);
}

void OverStaff::writeFermatas(const MasterBar &bar, SheetBar &into)
{
    constexpr Glyph sign = {"\u2312", "(.)"};
    for (const FermataMark &mark : bar.fermatas()) {
        if (into.length < mark.position)
            continue;
        const ColumnKey column{mark.position};
        into.columns[column];
        putWords(_sheet, into, _lanes.techniques, column,
                 _glyphs.of(sign)
                     + QLatin1String(fermataLengths.at(static_cast<std::size_t>(mark.kind))),
                 Ink::Rhythm);
        _legend.use(_glyphs.of(sign) + QStringLiteral(" fermata"));
    }
}

void OverStaff::endBar(SheetBar &into)
{
    for (VoiceRuns &runs : _voices) {
        for (StretchRun &run : runs.techniques)
            run.endIfAbsent();
        runs.slur.endIfAbsent();
        for (StretchRun *const known : {&runs.slur, &runs.text})
            if (known->isOpen())
                known->extendOverBarLine(into);
    }
}

} // namespace zarn::sheet
