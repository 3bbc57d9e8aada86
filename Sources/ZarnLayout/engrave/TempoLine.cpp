// SPDX-License-Identifier: MIT
#include <ZarnLayout/engrave/TempoLine.h>

#include <ZarnCore/model/form/ZarnMetronomeMark.h>

#include <QString>

#include <algorithm>
#include <cmath>

namespace zarn::engraving {

namespace {

Sign metronomeSign(RhythmValue::NoteValue value)
{
    using NoteValue = RhythmValue::NoteValue;
    switch (value) {
    case NoteValue::DWhole:
        return Sign::MetNoteDoubleWhole;
    case NoteValue::Whole:
        return Sign::MetNoteWhole;
    case NoteValue::Half:
        return Sign::MetNoteHalfUp;
    case NoteValue::Eighth:
        return Sign::MetNote8thUp;
    case NoteValue::Sixteenth:
        return Sign::MetNote16thUp;
    case NoteValue::ThirtySecond:
        return Sign::MetNote32ndUp;
    default:
        return Sign::MetNoteQuarterUp;
    }
}

/// The mark that a tempo without words of its own has.
MetronomeMark markOf(const TempoMark &tempo)
{
    using NoteValue = RhythmValue::NoteValue;
    MetronomeMark mark;
    mark.note.value = tempo.unit == TempoUnit::Eighth                          ? NoteValue::Eighth
        : tempo.unit == TempoUnit::Half || tempo.unit == TempoUnit::HalfDotted ? NoteValue::Half
                                                                               : NoteValue::Quarter;
    mark.note.dots =
        tempo.unit == TempoUnit::QuarterDotted || tempo.unit == TempoUnit::HalfDotted ? 1 : 0;
    mark.perMinute = tempo.value;
    return mark;
}

/// A line of words and metronome marks.
class TempoLine {
public:
    TempoLine(const Pen &pen, double x, double scale) : _pen(pen), _x(x), _scale(scale) { }

    void add(const std::string &words) { text(TextRole::Tempo, words, 0.8); }

    void add(const MetronomeMark &mark)
    {
        if (mark.isInParentheses)
            text(TextRole::PageText, "(", 0.1);
        add(mark.note);
        const double rounded = std::round(mark.perMinute * 10) / 10;
        const int decimals = rounded == std::floor(rounded) ? 0 : 1;
        _x += 0.2 * _scale;
        if (mark.equal) {
            text(TextRole::PageText, "=", 0.4);
            add(*mark.equal);
        } else {
            text(TextRole::PageText, "= " + QString::number(rounded, 'f', decimals).toStdString(),
                 0.1);
        }
        if (mark.isInParentheses)
            text(TextRole::PageText, ")", 0);
        _x += 0.7 * _scale;
    }

    Inks take() { return std::move(_inks); }

private:
    void add(const MetronomeMark::Note &note)
    {
        glyph(metronomeSign(note.value));
        for (int dot = 0; dot < note.dots; ++dot)
            glyph(Sign::MetAugmentationDot);
    }

    void glyph(Sign sign)
    {
        _inks.push_back(_pen.glyph(MarkKind::Tempo, sign, _x, -0.1, 0.75 * _scale));
        _x = _inks.back().box.right + 0.2 * _scale;
    }

    void text(TextRole role, const std::string &words, double gap)
    {
        for (Ink &ink : _pen.words(MarkKind::Tempo, role, words, _x, 0, Pen::Align::Begin, _scale))
            _inks.push_back(std::move(ink));
        _x = _inks.empty() ? _x : std::max(_x, _inks.back().box.right) + gap * _scale;
    }

    const Pen &_pen;
    double _x;
    double _scale;
    Inks _inks;
};

} // namespace

Inks tempoInks(const Pen &pen, const TempoMark &tempo, double x, double scale)
{
    TempoLine line(pen, x, scale);
    bool hasMark = false;
    for (const TempoPiece &piece : tempoPieces(tempo.text))
        if (const auto *const mark = std::get_if<MetronomeMark>(&piece)) {
            line.add(*mark);
            hasMark = true;
        } else {
            line.add(std::get<std::string>(piece));
        }
    if (!hasMark && tempo.value > 0 && tempo.unit != TempoUnit::None)
        line.add(markOf(tempo));
    return line.take();
}

} // namespace zarn::engraving
