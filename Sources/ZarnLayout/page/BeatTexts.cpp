// SPDX-License-Identifier: MIT
#include <ZarnLayout/page/BeatTexts.h>

#include <ZarnLayout/engrave/WrittenText.h>
#include <ZarnLayout/page/Stretches.h>

#include <algorithm>

namespace zarn::engraving {

namespace {

using Carriers = std::vector<const PlacedChord *>;

/// The words of a row on one side.
class Texts {
public:
    Texts(const RowDraft &row, const SystemDraft &draft, Side side)
        : _row(row), _draft(draft), _side(side), _carriers(row.carriers)
    {
    }

    SideItems items() const
    {
        SideItems items;
        const MarkSide open = _side == Side::Above ? MarkSide::Above : MarkSide::Below;
        if (_row.openWords == open && !_carriers.empty())
            items.push_back(openDashes());
        for (std::size_t i = 0; i < _carriers.size(); ++i)
            if (const auto &details = _carriers[i]->beat().details;
                details && !textOf(*details).empty())
                items.push_back(wordsOf(i));
        return items;
    }

private:
    const std::string &textOf(const BeatDetails &details) const
    {
        return _side == Side::Above ? details.text : details.textBelow;
    }
    bool hasDashes(const BeatDetails &details) const
    {
        return details.textSpan == (_side == Side::Above ? TextSpan::Begin : TextSpan::BeginBelow);
    }

    SideItem itemOf(Inks inks, const PlacedChord &chord) const
    {
        SideItem item;
        item.side = _side;
        item.gap = 0.6;
        item.inks = std::move(inks);
        for (Ink &ink : item.inks)
            ink.place = placeOf(_row, chord);
        return item;
    }

    Inks dashes(double left, double right) const
    {
        Inks inks = dashed(_draft.pen, MarkKind::Text, "", left, right, 0);
        move(inks, 0, -0.5);
        return inks;
    }

    /// Dashes behind words that stand in a system before.
    SideItem openDashes() const
    {
        const PlacedChord *end = nullptr;
        for (const PlacedChord *carrier : _carriers)
            if (const auto &details = carrier->beat().details;
                details && details->textSpan != TextSpan::None && (!end || carrier->x < end->x))
                end = carrier;
        const double right = !end                            ? _draft.right
            : end->beat().details->textSpan == TextSpan::End ? rightOf(*end)
                                                             : end->x - 0.5;
        return itemOf(dashes(_draft.musicLeft, right), *_carriers.front());
    }

    /// One line under the other; the one that is nearest to the staff stands on the base line.
    Inks linesOf(const std::string &text, double x, double scale) const
    {
        constexpr double apart = 2.2;
        Inks inks;
        double y = 0;
        for (std::size_t at = 0; at < text.size();) {
            const std::size_t end = std::min(text.find('\n', at), text.size());
            if (at > 0 && !inks.empty() && _side == Side::Above)
                move(inks, 0, -apart * scale);
            else if (at > 0)
                y += apart * scale;
            for (Ink &ink :
                 _draft.pen.words(MarkKind::Text, TextRole::Words, text.substr(at, end - at), x, y,
                                  Pen::Align::Begin, scale))
                inks.push_back(std::move(ink));
            at = end + 1;
        }
        return inks;
    }

    SideItem wordsOf(std::size_t number) const
    {
        const PlacedChord &chord = *_carriers[number];
        const BeatDetails &details = *chord.beat().details;
        const std::string &text = textOf(details);
        // What is longer than the line becomes smaller.
        const auto words = [&](double scale) { return linesOf(text, chord.x, scale); };
        Inks inks = words(1);
        reportMissingSigns(text, _draft.pen.fonts(), placeOf(_row, chord), _draft.problems);
        if (inks.empty())
            return {};
        if (const double width = boxOf(inks).right - chord.x; width > _draft.room)
            inks = words(_draft.room / width);
        // A text at the end of a line stays on the sheet.
        if (const double end = boxOf(inks).right; end > _draft.right)
            move(inks, std::max(_draft.staffLeft - chord.x, _draft.right - end), 0);
        if (hasDashes(details))
            for (Ink &ink : dashes(boxOf(inks).right + 0.5, endOfDashes(number)))
                inks.push_back(std::move(ink));
        return itemOf(std::move(inks), chord);
    }

    double endOfDashes(std::size_t number) const
    {
        for (std::size_t i = number + 1; i < _carriers.size(); ++i)
            if (const auto &other = _carriers[i]->beat().details;
                other && other->textSpan == TextSpan::End)
                return rightOf(*_carriers[i]);
        return _draft.right;
    }

    const RowDraft &_row;
    const SystemDraft &_draft;
    Side _side;
    const Carriers &_carriers;
};

} // namespace

void addWords(RowDraft &row, const SystemDraft &draft)
{
    if (!row.row->isFirstOfStaff)
        return;
    // Each keeps as near to the staff as those before it let it.
    for (SideItem &item : Texts(row, draft, Side::Above).items())
        place(row, {std::move(item)});
}

SideItems wordsBelow(const RowDraft &row, const SystemDraft &draft)
{
    return Texts(row, draft, Side::Below).items();
}

} // namespace zarn::engraving
