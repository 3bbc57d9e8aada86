// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/model/ZarnBeatAttribute.h>

#include <functional>
#include <string>
#include <vector>

namespace test {

/// Draws values of attributes by what their ranges say. `below(n)` gives a number from 0 to n - 1.
class RandomAttribute {
public:
    explicit RandomAttribute(std::function<unsigned(unsigned)> below) : _below(std::move(below)) { }

    /// A value of the range, at times the default.
    zarn::AttributeValue value(const zarn::AttributeRange &range) const
    {
        return std::visit([&](const auto &kind) { return draw(kind, range); },
                          range.sample().held());
    }

    std::string text() const
    {
        static const std::vector<std::string> words = {"",       "a",       "la",         "\"x\\",
                                                       "\u00e9", "\u266d7", "ritardando", "{1}"};
        return words[_below(static_cast<unsigned>(words.size()))];
    }

private:
    bool maybe() const { return _below(2) == 0; }
    int between(int lowest, int highest) const
    {
        const unsigned span = static_cast<unsigned>(highest) - static_cast<unsigned>(lowest);
        const unsigned step = _below(span + 1 == 0 ? span : span + 1);
        return static_cast<int>(static_cast<unsigned>(lowest) + step);
    }

    zarn::AttributeValue draw(bool, const zarn::AttributeRange &) const { return maybe(); }
    zarn::AttributeValue draw(int, const zarn::AttributeRange &range) const
    {
        int number = 0;
        do
            number = between(static_cast<int>(range.lowest), static_cast<int>(range.highest));
        while (range.isGap(number));
        return number;
    }
    zarn::AttributeValue draw(double, const zarn::AttributeRange &range) const
    {
        const float step = static_cast<float>(between(0, 1000)) / 1000.0F;
        return static_cast<double>(static_cast<float>(range.lowest)
                                   + step * static_cast<float>(range.highest - range.lowest));
    }
    zarn::AttributeValue draw(const std::string &, const zarn::AttributeRange &) const
    {
        return text();
    }
    zarn::AttributeValue draw(const zarn::RhythmValue &, const zarn::AttributeRange &) const
    {
        return zarn::RhythmValue{static_cast<zarn::RhythmValue::NoteValue>(_below(11)), _below(4)};
    }
    zarn::AttributeValue draw(const zarn::ChordMark &, const zarn::AttributeRange &) const
    {
        zarn::ChordMark chord{text(), nullptr};
        if (maybe()) {
            zarn::ChordDiagram diagram;
            diagram.name = text();
            diagram.frets = {-1, 0, 2, 2, 1, 0};
            chord.diagram = std::make_shared<const zarn::ChordDiagram>(diagram);
        }
        return chord;
    }
    zarn::AttributeValue draw(const zarn::Strum &, const zarn::AttributeRange &) const
    {
        zarn::Strum strum;
        strum.direction = static_cast<zarn::Direction>(_below(3));
        if (strum.direction != zarn::Direction::None && maybe()) {
            strum.length = static_cast<std::uint16_t>(_below(3841));
            strum.anchor = static_cast<zarn::StrumAnchor>(_below(2));
        }
        return strum;
    }
    zarn::PitchCurve curve(int lowest, int highest) const
    {
        zarn::PitchCurve::Points points;
        const auto add = [&](unsigned position) {
            points.push_back({static_cast<std::uint8_t>(position),
                              static_cast<std::int16_t>(between(lowest, highest))});
        };
        for (unsigned position = 0; position < 60; position += 1 + _below(40))
            if (points.size() < 15)
                add(position);
        add(60);
        return zarn::PitchCurve(std::move(points));
    }
    zarn::AttributeValue draw(const zarn::WhammyBar &, const zarn::AttributeRange &) const
    {
        const auto type = static_cast<zarn::WhammyBarType>(_below(6));
        if (type == zarn::WhammyBarType::NoWhammyBar)
            return zarn::WhammyBar();
        return zarn::WhammyBar{type, curve(zarn::WhammyBar::Lowest, zarn::WhammyBar::Highest)};
    }
    zarn::AttributeValue draw(const zarn::Bend &, const zarn::AttributeRange &) const
    {
        const auto type = static_cast<zarn::BendType>(_below(8));
        if (type == zarn::BendType::NoBend)
            return zarn::Bend();
        return zarn::Bend{type, curve(0, zarn::Bend::Highest)};
    }
    zarn::AttributeValue draw(const zarn::Barre &, const zarn::AttributeRange &) const
    {
        zarn::Barre barre;
        barre.fret = static_cast<std::uint8_t>(_below(13));
        if (barre.fret != 0 && maybe())
            barre.strings = static_cast<std::uint16_t>(_below(16));
        return barre;
    }
    zarn::AttributeValue draw(const zarn::Syllables &, const zarn::AttributeRange &) const
    {
        zarn::Syllables syllables;
        for (unsigned line = 0; line < zarn::Syllable::LineCount; ++line)
            if (_below(3) == 0)
                syllables.push_back({static_cast<std::uint8_t>(line),
                                     static_cast<zarn::Syllabic>(_below(4)), maybe(), text()});
        return syllables;
    }
    zarn::AttributeValue draw(const zarn::SlurEnds &, const zarn::AttributeRange &) const
    {
        zarn::SlurEnds ends;
        for (unsigned i = _below(3); i > 0; --i)
            ends.push_back({static_cast<std::uint8_t>(1 + _below(16)), maybe(),
                            static_cast<zarn::SlurLine>(_below(3)),
                            static_cast<zarn::SlurSide>(_below(3))});
        return ends;
    }
    zarn::AttributeValue draw(const zarn::AccentFlags &, const zarn::AttributeRange &) const
    {
        zarn::AccentFlags flags;
        for (unsigned i = _below(4); i > 0; --i)
            flags = flags.with(static_cast<zarn::AccentFlag>(1U << _below(6)));
        return flags;
    }
    zarn::AttributeValue draw(const zarn::Trill &, const zarn::AttributeRange &) const
    {
        zarn::Trill trill;
        trill.interval = static_cast<std::uint8_t>(_below(13));
        if (trill.interval != 0)
            trill.speed = static_cast<zarn::Trill::Speed>(
                static_cast<unsigned>(zarn::Trill::Speed::Sixteenth) + _below(3));
        return trill;
    }
    zarn::AttributeValue draw(const zarn::Harmonic &, const zarn::AttributeRange &) const
    {
        const auto type = static_cast<zarn::HarmonicType>(_below(7));
        if (type == zarn::HarmonicType::NoHarmonic)
            return zarn::Harmonic();
        return zarn::Harmonic{type, static_cast<std::uint8_t>(2 + _below(11))};
    }
    zarn::AttributeValue draw(const zarn::TimeSignature &, const zarn::AttributeRange &) const
    {
        return zarn::TimeSignature{1 + _below(12), 1U << _below(5)};
    }
    zarn::AttributeValue draw(const zarn::KeySignature &, const zarn::AttributeRange &) const
    {
        return zarn::KeySignature{between(-7, 7), maybe(), maybe()};
    }
    zarn::AttributeValue draw(const std::optional<utils::rational> &,
                              const zarn::AttributeRange &) const
    {
        if (maybe())
            return std::optional<utils::rational>();
        return std::optional<utils::rational>(
            utils::rational{1 + static_cast<int>(_below(20)), 1 + static_cast<int>(_below(30))});
    }
    zarn::AttributeValue draw(const zarn::Section &, const zarn::AttributeRange &) const
    {
        zarn::Section section{text(), text(), maybe()};
        section.isCircled = section.isCircled && !section.letter.empty();
        return section;
    }
    zarn::AttributeValue draw(const zarn::BeamGroups &, const zarn::AttributeRange &) const
    {
        return maybe() ? zarn::BeamGroups() : zarn::BeamGroups({2, 2});
    }
    zarn::AttributeValue draw(const zarn::FermataMarks &, const zarn::AttributeRange &) const
    {
        zarn::FermataMarks marks;
        for (unsigned i = _below(3); i > 0; --i) {
            const utils::rational from = marks.empty() ? 0 : marks.back().position;
            const utils::rational position =
                from + utils::rational(1 + static_cast<int>(_below(8)), 8);
            auto mark = zarn::FermataMark::at(position, static_cast<zarn::Fermata>(_below(3)));
            if (maybe())
                mark.stretch = static_cast<std::uint16_t>(_below(1001));
            marks.push_back(mark);
        }
        return marks;
    }
    zarn::AttributeValue draw(const std::vector<zarn::ClefChange> &,
                              const zarn::AttributeRange &) const
    {
        std::vector<zarn::ClefChange> changes;
        if (maybe())
            changes.push_back({utils::rational(1, 2), zarn::ClefType::F4});
        return changes;
    }

    std::function<unsigned(unsigned)> _below;
};

} // namespace test
