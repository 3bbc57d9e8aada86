// SPDX-License-Identifier: MIT
#include <ZarnCore/io/musicxml/signs/BeatLinks.h>

#include <ZarnCore/io/musicxml/ImportContext.h>

#include <algorithm>
#include <string>
#include <string_view>

namespace zarn::io {

namespace {

/// Glyphs of SMuFL that say what a wavy line is; one of a trill says nothing.
struct Wave {
    std::string_view glyph;
    Vibrato vibrato;
    bool isOfBar; ///< of the whammy bar, not of the finger
};

constexpr Wave waves[] = {
    {"wiggleVibrato", Vibrato::Slight, false},
    {"wiggleVibratoWide", Vibrato::Wide, false},
    {"guitarVibratoStroke", Vibrato::Slight, true},
    {"guitarWideVibratoStroke", Vibrato::Wide, true},
};

Wave waveOf(std::string_view glyph)
{
    for (const auto &wave : waves)
        if (wave.glyph == glyph)
            return wave;
    const bool isWide = glyph.find("Wide") != glyph.npos || glyph.find("Large") != glyph.npos;
    return {glyph, isWide ? Vibrato::Wide : Vibrato::Slight, false};
}

} // namespace

const char *glyphOfWave(Vibrato vibrato, bool isOfBar)
{
    const auto *const wave =
        std::find_if(std::begin(waves), std::end(waves), [&](const Wave &candidate) {
            return candidate.vibrato == vibrato && candidate.isOfBar == isOfBar;
        });
    return wave->glyph.data();
}

bool BeatLinks::add(Tag tag, pugi::xml_node node, const NotePlace &place)
{
    if (tag != Tag::Tremolo && tag != Tag::WavyLine)
        return false;
    auto &matcher = tag == Tag::Tremolo ? _tremolos : _waves;
    if (!matcher.add({tag, node.attribute("number").as_int(1), place, node}))
        _context.addUnheld(node, tag);
    return true;
}

void BeatLinks::finishPart(const StaffBars &staves)
{
    const auto set = [&](SpanMatcher &matcher, auto setOne) {
        if (matcher.isEmpty())
            return;
        for (const auto &span : matcher.finish()) {
            const auto &begin = span.begin.place;
            if (begin.note)
                (this->*setOne)(span, staves[static_cast<std::size_t>(begin.staff)]);
            else
                leaveOut(span, " that begins at a rest was left out");
        }
    };
    set(_tremolos, &BeatLinks::setTremolo);
    set(_waves, &BeatLinks::setWave);
}

void BeatLinks::setTremolo(const SpanMatcher::Span &span, const Staff::Bars &bars)
{
    constexpr int mostStrokes = 4;
    const auto &begin = span.begin.place;
    const int strokes = _context.integer(span.begin.node, mostStrokes);
    int bar = begin.bar;
    unsigned index = begin.index;
    const auto *next = VoiceSlotLine(bars, begin.slot).next(bar, index);
    if (next != span.end.place.beat || strokes < 1)
        return leaveOut(span, " that does not lead to the next note was left out");
    if (!(next->rhythmValue() == begin.beat->rhythmValue()))
        return leaveOut(span, " between notes of different values was left out");
    if (strokes > mostStrokes)
        _context.addProblemInBar(begin.bar, span.begin.node,
                                 "a tremolo of more than 4 strokes got 4");
    begin.beat->setTremoloToNext(static_cast<unsigned>(std::min(strokes, mostStrokes)));
    begin.beat->setTremolo(0);
}

/// The line of a trill goes over the notes of its pitch, held or struck again; what follows them is
/// not trilled. It may end in another voice, or at a rest.
void BeatLinks::setWave(const SpanMatcher::Span &span, const Staff::Bars &bars)
{
    const auto &begin = span.begin.place;
    const VoiceSlotLine line(bars, begin.slot);
    const bool isInLine = begin.isInLineOf(span.end.place);
    const auto trill = begin.note->trill();
    if (trill.interval != 0 || span.begin.node.parent().child(tagName(Tag::TrillMark))) {
        int bar = begin.bar;
        unsigned index = begin.index;
        auto onset = begin.onset;
        bool isTrilled = true;
        for (Beat *beat = begin.beat;
             beat && isTrilled && std::make_tuple(bar, onset) <= span.end.place.inTime();) {
            isTrilled = false;
            for (const auto &note : beat->notes())
                if (note->midi() == begin.note->midi()) {
                    note->setTrill(trill);
                    isTrilled = true;
                }
            const int barBefore = bar;
            onset += beat->length();
            beat = line.next(bar, index);
            if (bar != barBefore)
                onset = 0;
        }
        return;
    }
    const auto wave = waveOf(span.begin.node.attribute("smufl").value());
    const bool isHeld = isInLine && line.visit(begin, span.end.place, [&](Beat &beat) {
        if (wave.isOfBar)
            beat.setBarVibrato(wave.vibrato);
        else
            for (const auto &note : beat.notes())
                note->setVibrato(wave.vibrato);
    });
    if (!isHeld)
        leaveOut(span, " to another voice was left out");
}

void BeatLinks::leaveOut(const SpanMatcher::Span &span, const char *what)
{
    _context.addUnheld(span.begin.node, span.begin.tag);
    _context.addUnheld(span.end.node, span.end.tag);
    _context.addProblemInBar(span.begin.place.bar, span.begin.node,
                             std::string("a ") + tagName(span.begin.tag) + what);
}

} // namespace zarn::io
