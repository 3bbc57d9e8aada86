// SPDX-License-Identifier: MIT
#include <ZarnLayout/page/FormSigns.h>

#include <ZarnLayout/engrave/TempoLine.h>
#include <ZarnLayout/page/SideItem.h>

#include <ZarnCore/model/attributes/ZarnFermataSpan.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>

namespace zarn::engraving {

namespace {

/// Place of a time of a bar: between its columns in proportion.
double placeOfTime(const SystemDraft &draft, const BarPlace &bar, double time)
{
    const Onsets &onsets = draft.score.spaced(bar.shownBar).onsets;
    double x = bar.left + 0.6;
    for (std::size_t i = 0; i < onsets.size(); ++i) {
        const double onset = onsets[i].toDouble();
        if (onset > time + 1e-6)
            break;
        x = bar.columns[i];
        if (onset < time - 1e-6) {
            const double nextX = i + 1 < onsets.size() ? bar.columns[i + 1] : bar.right;
            const double next = i + 1 < onsets.size()
                ? onsets[i + 1].toDouble()
                : draft.score.column(bar.shownBar).length.toDouble();
            if (next > onset)
                x += (nextX - x) * std::min(1.0, (time - onset) / (next - onset));
        }
    }
    return x;
}

MarkPlace placeOfBar(unsigned bar)
{
    MarkPlace place;
    place.bar = static_cast<std::int32_t>(bar);
    return place;
}

void putAbove(RowDraft &row, Inks inks, const MarkPlace &where, double gap)
{
    SideItem item;
    item.gap = gap;
    item.inks = std::move(inks);
    for (Ink &ink : item.inks)
        ink.place = where;
    place(row, {std::move(item)});
}

/// Whether a bracket begins at a bar that has endings.
bool startsEnding(const EngravedScore &score, unsigned shown)
{
    return shown == 0 || score.lastColumn(shown - 1).endings != score.column(shown).endings
        || score.lastColumn(shown - 1).repeatCount > 0;
}

/// A bracket has a hook where its ending is left: at a repeat sign, and in front of another ending.
/// The one that the music goes on from is open.
void addEndings(SystemDraft &draft, RowDraft &row)
{
    // Where no number stands below it the line keeps near to the music.
    const bool hasNumbers =
        std::any_of(draft.bars.begin(), draft.bars.end(), [&](const BarPlace &bar) {
            return draft.score.column(bar.shownBar).endings != 0
                && startsEnding(draft.score, bar.shownBar);
        });
    const double height = hasNumbers ? 2.2 : 1.0;
    SideItems items;
    for (std::size_t i = 0; i < draft.bars.size();) {
        const BarPlace &first = draft.bars[i];
        const std::uint32_t passes = draft.score.column(first.shownBar).endings;
        std::size_t end = i + 1;
        const auto closes = [&](std::size_t number) {
            return draft.score.lastColumn(draft.bars[number].shownBar).repeatCount > 0;
        };
        while (passes != 0 && end < draft.bars.size() && !closes(end - 1)
               && draft.score.column(draft.bars[end].shownBar).endings == passes)
            ++end;
        if (passes != 0) {
            const unsigned shown = first.shownBar;
            const bool isStart = startsEnding(draft.score, shown);
            const BarPlace &last = draft.bars[end - 1];
            const unsigned next = last.shownBar + 1;
            const std::uint32_t others =
                next < draft.score.shown.size() ? draft.score.column(next).endings : 0;
            const bool isLeft = closes(end - 1) || (others != 0 && others != passes);
            const double left = first.left + 0.2;
            const double right = last.right - 0.1;
            SideItem item;
            item.gap = 0.4;
            item.line = 9;
            std::vector<Point> line;
            if (isStart)
                line.push_back({left, 0});
            line.push_back({left, -height});
            line.push_back({right, -height});
            if (isLeft)
                line.push_back({right, 0});
            item.inks.push_back(draft.pen.polyline(MarkKind::Ending, std::move(line), 0.16));
            if (isStart)
                for (Ink &ink :
                     draft.pen.words(MarkKind::Ending, TextRole::Ending,
                                     draft.score.column(shown).endingText, left + 0.5, -0.55))
                    item.inks.push_back(std::move(ink));
            for (Ink &ink : item.inks)
                ink.place = placeOfBar(draft.score.shown[shown].bar);
            items.push_back(std::move(item));
        }
        i = end;
    }
    place(row, std::move(items));
}

/// What `make` makes of a scale: smaller where it would be longer than the line.
template <class Make>
Inks fitted(const SystemDraft &draft, Make make)
{
    Inks inks = make(1);
    const double width = inks.empty() ? 0 : boxOf(inks).width();
    return width > draft.room ? make(draft.room / width) : inks;
}

void addDirections(SystemDraft &draft, RowDraft &row)
{
    for (const BarPlace &bar : draft.bars) {
        const ColumnSource &column = draft.score.column(bar.shownBar);
        const MarkPlace where = placeOfBar(draft.score.shown[bar.shownBar].bar);
        double x = bar.left;
        for (const DirectionMark mark : column.directions) {
            constexpr std::array<Sign, 4> signs = {Sign::Coda, Sign::CodaSquare, Sign::Segno,
                                                   Sign::SegnoSerpent1};
            Ink sign =
                draft.pen.glyph(MarkKind::Direction, signs[static_cast<std::size_t>(mark)], x, 0);
            x = sign.box.right + 0.8;
            putAbove(row, {std::move(sign)}, where, 0.8);
        }
        for (const std::string &words : column.jumps) {
            Inks text = fitted(draft, [&](double scale) {
                return draft.pen.words(MarkKind::Direction, TextRole::Direction, words, bar.right,
                                       0, Pen::Align::End, scale);
            });
            if (text.empty())
                continue;
            move(text, std::max(0.0, draft.staffLeft - boxOf(text).left), 0);
            putAbove(row, std::move(text), where, 0.8);
        }
    }
}

const char *feelText(TripletFeel feel)
{
    switch (feel) {
    case TripletFeel::Triplet8th:
        return "Swing 8ths";
    case TripletFeel::Triplet16th:
        return "Swing 16ths";
    case TripletFeel::Dotted8th:
        return "Dotted 8ths";
    case TripletFeel::Dotted16th:
        return "Dotted 16ths";
    case TripletFeel::Scottish8th:
        return "Scottish 8ths";
    case TripletFeel::Scottish16th:
        return "Scottish 16ths";
    case TripletFeel::NoTripletFeel:
        break;
    }
    return "Straight";
}

constexpr double enclosureGap = 0.4; ///< around rehearsal letters
constexpr double enclosureThickness = 0.16;

Ink boxAround(const Pen &pen, const Box &letters, double scale)
{
    const double gap = enclosureGap * scale;
    const Box box = {letters.left - gap, letters.top - gap, letters.right + gap, gap};
    return pen.polyline(MarkKind::Enclosure,
                        {{box.left, box.top},
                         {box.right, box.top},
                         {box.right, box.bottom},
                         {box.left, box.bottom},
                         {box.left, box.top}},
                        enclosureThickness);
}

/// A circle around many letters would be a ring of nothing: they have a box.
bool fitsCircle(const Box &letters)
{
    return letters.width() < 3 * letters.height();
}

Ink circleAround(const Pen &pen, const Box &letters, double scale)
{
    constexpr int corners = 64;
    constexpr double pi = 3.14159265358979323846;
    const Point centre = {(letters.left + letters.right) / 2, letters.top / 2};
    const double radius = std::hypot(letters.width(), letters.top) / 2 + enclosureGap * scale;
    std::vector<Point> points;
    for (int i = 0; i <= corners; ++i) {
        const double angle = 2 * pi * i / corners;
        points.push_back(
            {centre.x + radius * std::cos(angle), centre.y + radius * std::sin(angle)});
    }
    return pen.polyline(MarkKind::Enclosure, std::move(points), enclosureThickness);
}

/// A rehearsal letter and the name of a section.
Inks sectionInks(const Pen &pen, const Section &section, double x, double scale)
{
    Inks inks;
    if (!section.letter.empty()) {
        inks.push_back(pen.text(MarkKind::Section, TextRole::SectionLetter, section.letter, x + 0.4,
                                0, Pen::Align::Begin, scale));
        const Box &letters = inks.back().box;
        Ink frame = section.isCircled && fitsCircle(letters) ? circleAround(pen, letters, scale)
                                                             : boxAround(pen, letters, scale);
        inks.push_back(std::move(frame));
        move(inks, x - boxOf(inks).left, 0);
        x = boxOf(inks).right + 0.7 * scale;
    }
    if (!section.text.empty())
        for (Ink &ink : pen.words(MarkKind::Section, TextRole::Section, section.text, x, 0,
                                  Pen::Align::Begin, scale))
            inks.push_back(std::move(ink));
    return inks;
}

void addTempos(SystemDraft &draft, RowDraft &row)
{
    for (const BarPlace &bar : draft.bars) {
        const ColumnSource &column = draft.score.column(bar.shownBar);
        const MarkPlace where = placeOfBar(draft.score.shown[bar.shownBar].bar);
        const auto keepInside = [&](Inks inks) {
            keepOnLine(inks, draft);
            return inks;
        };
        for (const TempoMark &tempo : column.tempos) {
            const double x = tempo.position > 0
                ? placeOfTime(draft, bar, static_cast<double>(tempo.position))
                : bar.left - (bar.shownBar == draft.first ? 1.0 : 0.0);
            Inks inks =
                fitted(draft, [&](double scale) { return tempoInks(draft.pen, tempo, x, scale); });
            if (!inks.empty())
                putAbove(row, keepInside(std::move(inks)), where, 0.9);
        }
        if (column.newFeel)
            putAbove(row,
                     keepInside({draft.pen.text(MarkKind::TripletFeel, TextRole::Words,
                                                feelText(*column.newFeel), bar.left, 0)}),
                     where, 0.8);
        if (column.startsFreeTime)
            putAbove(row,
                     keepInside({draft.pen.text(MarkKind::Tempo, TextRole::Words, "Free time",
                                                bar.left, 0)}),
                     where, 0.8);
        if (!column.section.isEmpty()) {
            const double x = bar.left - (bar.shownBar == draft.first ? 1.0 : 0.0);
            Inks inks = fitted(draft, [&](double scale) {
                return sectionInks(draft.pen, column.section, x, scale);
            });
            putAbove(row, keepInside(std::move(inks)), where, 0.9);
        }
    }
}

/// Tunings and capos, above the first row of each track.
void addStringsTexts(SystemDraft &draft)
{
    for (std::size_t i = 0; i < draft.rows.size(); ++i) {
        RowDraft &row = draft.rows[i];
        const unsigned track = row.row->track;
        const std::string &text = draft.score.tracks[track].strings;
        if (text.empty() || (i > 0 && draft.rows[i - 1].row->track == track))
            continue;
        MarkPlace where;
        where.track = static_cast<std::int16_t>(track);
        where.staff = static_cast<std::int8_t>(row.row->staff);
        putAbove(row,
                 fitted(draft,
                        [&](double scale) {
                            return Inks{draft.pen.text(MarkKind::Tuning, TextRole::Tuning, text,
                                                       draft.staffLeft, 0, Pen::Align::Begin,
                                                       scale)};
                        }),
                 where, 0.7);
    }
}

/// Where a bar's fermatas stand over the staves.
class FermataPlaces {
public:
    FermataPlaces(const SystemDraft &draft, unsigned shownBar) : _draft(draft), _bar(shownBar) { }

    /// When the note or rest begins in a staff that shows a fermata: one that begins with it, else
    /// one that ends with such a one of another staff, else what sounds there, if no staff has
    /// either. Nothing where a staff does without.
    std::optional<utils::rational> onsetUnder(const RowDraft &row,
                                              const utils::rational &time) const
    {
        FermataSpan span(time);
        for (const RowDraft &other : _draft.rows)
            forBeats(other, [&](const utils::rational &onset, const utils::rational &end) {
                span.add(onset, end);
            });
        std::optional<utils::rational> latest;
        forBeats(row, [&](const utils::rational &onset, const utils::rational &end) {
            const bool isUnder = span.hasBeats() ? span.isOver(onset, end) : !(time < onset);
            if (isUnder && (!latest || *latest < onset))
                latest = onset;
        });
        return latest;
    }

private:
    template <class Use>
    void forBeats(const RowDraft &row, const Use &use) const
    {
        for (const VoiceSource &voice : _draft.score.source(row.number, _bar).voices)
            for (const BeatSource &beat : voice.beats)
                if (!beat.isPlaceHolder)
                    use(beat.onset, beat.onset + beat.length);
    }

    const SystemDraft &_draft;
    unsigned _bar;
};

} // namespace

void addFermatas(RowDraft &row, const SystemDraft &draft)
{
    if (!row.row->isFirstOfStaff)
        return;
    for (const BarPlace &bar : draft.bars) {
        const FermataPlaces places(draft, bar.shownBar);
        const utils::rational &length = draft.score.column(bar.shownBar).length;
        const bool isWhole =
            bar.columns.empty() || !draft.score.bar(row.number, bar.shownBar).centred.empty();
        double lastX = -1e9;
        for (const FermataMark &mark : draft.score.column(bar.shownBar).fermatas) {
            const bool isAtEnd = !(mark.position < length);
            const auto onset = isAtEnd || isWhole ? std::optional(mark.position)
                                                  : places.onsetUnder(row, mark.position);
            if (!onset)
                continue;
            double x = isAtEnd ? bar.right
                : isWhole      ? (bar.left + bar.right) / 2
                               : placeOfTime(draft, bar, onset->toDouble()) + 0.59;
            const Sign sign = mark.kind == Fermata::Short ? Sign::FermataShortAbove
                : mark.kind == Fermata::Long              ? Sign::FermataLongAbove
                                                          : Sign::FermataAbove;
            const Box &box = draft.pen.fonts().box(sign);
            // In front of a line that leads to the staff above.
            if (isAtEnd && row.hasLinesAbove)
                x -= box.width() / 2 + 0.2;
            // Over the last line as far to the right as the margin allows.
            x = std::min(x - (box.left + box.right) / 2, draft.right + 0.3 - box.right);
            // A note or rest has one for all that are written over it.
            if (!isAtEnd && std::abs(x - lastX) < 0.5)
                continue;
            lastX = x;
            MarkPlace where = placeOfBar(draft.score.shown[bar.shownBar].bar);
            where.track = static_cast<std::int16_t>(row.row->track);
            where.staff = static_cast<std::int8_t>(row.row->staff);
            putAbove(row, {draft.pen.glyph(MarkKind::Fermata, sign, x, 0)}, where, 0.4);
        }
    }
}

void addFormSigns(SystemDraft &draft)
{
    if (draft.rows.empty())
        return;
    if (draft.isFirst)
        addStringsTexts(draft);
    RowDraft &row = draft.rows.front();
    addDirections(draft, row);
    addEndings(draft, row);
    addTempos(draft, row);
}

} // namespace zarn::engraving
