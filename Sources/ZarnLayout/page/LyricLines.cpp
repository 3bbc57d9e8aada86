// SPDX-License-Identifier: MIT
#include <ZarnLayout/page/LyricLines.h>

#include <ZarnLayout/engrave/SungWords.h>
#include <ZarnLayout/engrave/WrittenText.h>

#include <algorithm>
#include <cmath>
#include <iterator>
#include <map>
#include <utility>
#include <vector>

namespace zarn::engraving {

namespace {

constexpr int lyricLine = 100;

struct Sung {
    const PlacedChord *chord;
    const Syllable *syllable;
    Box box;
    std::size_t number; ///< among the carriers
};

using Carriers = std::vector<const PlacedChord *>;

/// By verse and voice.
using SungLines = std::map<std::pair<unsigned, unsigned>, std::vector<Sung>>;

/// Those that the first notes of the system are still sung on.
OpenSyllables heldFromBefore(const RowDraft &row, const SystemDraft &draft, std::uint8_t visible)
{
    OpenSyllables held;
    const unsigned staff = draft.score.staffOfRow[row.number];
    for (const OpenSyllable &open : draft.openSyllables) {
        if (open.staff != staff || (visible >> open.verse & 1) == 0)
            continue;
        const VoiceSource *const voice =
            voiceOf(draft.score.source(row.number, draft.first), open.voice);
        if (voice != nullptr && holds(voice->beats.front(), open.verse))
            held.push_back(open);
    }
    return held;
}

/// Whether what is sung at the end of the system is held in the next one.
bool isHeldBehind(const RowDraft &row, const SystemDraft &draft, unsigned verse, unsigned number)
{
    if (!draft.knowsBehind)
        return false;
    const VoiceSource *const voice = voiceOf(draft.score.source(row.number, draft.end), number);
    return voice != nullptr && holds(voice->beats.front(), verse);
}

double widthOf(const Sung &sung, const Pen &pen)
{
    const Inks inks = sungInks(pen, *sung.syllable, {*sung.syllable}, 0);
    return inks.empty() ? 0 : boxOf(inks).width();
}

/// Whether two syllables have room beside one another.
bool areApart(const Sung &left, const Sung &right, const Pen &pen)
{
    constexpr double farAway = 20; // no syllable is longer
    const double way = std::abs(left.chord->headCentre() - right.chord->headCentre());
    return way > farAway
        || way > std::max(2.0, (widthOf(left, pen) + widthOf(right, pen)) / 2 + 0.2);
}

/// Voices whose syllables would meet have lines of their own; others take turns on one.
SungLines sungLinesOf(const Carriers &carriers, std::uint8_t visible, const Pen &pen)
{
    SungLines lines;
    for (std::size_t i = 0; i < carriers.size(); ++i)
        if (const auto &details = carriers[i]->beat().details)
            for (const Syllable &syllable : details->lyrics)
                if ((visible >> syllable.line & 1) != 0)
                    lines[{syllable.line, carriers[i]->chord->voice}].push_back(
                        {carriers[i], &syllable, {}, i});
    for (auto line = lines.begin(); line != lines.end();) {
        const auto first = lines.find({line->first.first, 0});
        const bool isSecond = line->first.second > 0 && first != lines.end();
        const bool isAlone = isSecond
            && std::all_of(line->second.begin(), line->second.end(), [&](const Sung &sung) {
                                 return std::all_of(
                                     first->second.begin(), first->second.end(),
                                     [&](const Sung &other) { return areApart(sung, other, pen); });
                             });
        if (isAlone)
            first->second.insert(first->second.end(), line->second.begin(), line->second.end());
        line = isAlone ? lines.erase(line) : std::next(line);
    }
    for (auto &line : lines)
        std::stable_sort(
            line.second.begin(), line.second.end(),
            [](const Sung &left, const Sung &right) { return left.chord->x < right.chord->x; });
    return lines;
}

/// The notes from one on that are sung on a syllable in front of them.
struct HeldNotes {
    double right;
    const PlacedChord *last = nullptr; ///< null for none
    bool reachEnd = true;              ///< of the system
};

/// `next` is what is sung behind them; null for nothing.
HeldNotes heldNotes(const Carriers &carriers, std::size_t first, unsigned voice, const Sung *next)
{
    HeldNotes notes = {-1e9};
    for (std::size_t i = first; i < carriers.size(); ++i) {
        const PlacedChord &chord = *carriers[i];
        if (chord.chord->voice != voice)
            break;
        if (chord.chord->isRest() || (next && chord.x >= next->chord->x)) {
            notes.reachEnd = false;
            break;
        }
        notes.right = rightOf(chord);
        notes.last = &chord;
    }
    return notes;
}

/// Draws one line of words.
class LyricLine {
public:
    LyricLine(const RowDraft &row, const SystemDraft &draft, const Carriers &carriers, int line)
        : _row(row), _draft(draft), _carriers(carriers), _line(line),
          _letters(draft.pen.fonts().textBox("lp", TextRole::Lyric))
    {
    }

    /// `isFirst` and `isLast` among the lines of words below the row.
    void addWords(std::vector<Sung> &sung, bool isFirst, bool isLast)
    {
        _hasNoWords = sung.empty();
        for (Sung &entry : sung) {
            SideItem item;
            item.side = Side::Below;
            item.line = _line;
            item.gap = isFirst ? 0.7 : 0.3;
            item.inks = sungInks(_draft.pen, *entry.syllable, entry.chord->beat().details->lyrics,
                                 entry.chord->headCentre());
            reportMissingSigns(entry.syllable->text, _draft.pen.fonts(),
                               placeOf(_row, *entry.chord), _draft.problems);
            for (Ink &ink : item.inks) {
                ink.place = placeOf(_row, *entry.chord);
                if (!isFirst)
                    ink.box.top = std::min(ink.box.top, _letters.top);
                if (!isLast)
                    ink.box.bottom = std::max(ink.box.bottom, _letters.bottom);
            }
            const double centre = entry.chord->headCentre();
            entry.box = item.inks.empty() ? Box{centre, 0, centre, 0} : boxOf(item.inks);
            _items.push_back(std::move(item));
        }
    }

    /// What leads from each syllable to the next one, or over the end of the system.
    void addLinks(const std::vector<Sung> &sung, unsigned verse)
    {
        for (std::size_t i = 0; i < sung.size(); ++i) {
            const Sung &entry = sung[i];
            const Sung *const next = i + 1 < sung.size() ? &sung[i + 1] : nullptr;
            if (isWordUnfinished(*entry.syllable)) {
                addHyphens(entry.box.right, leftOf(next), *entry.chord);
            } else if (entry.syllable->hasMelisma) {
                const unsigned voice = entry.chord->chord->voice;
                const HeldNotes notes = heldNotes(_carriers, entry.number + 1, voice, next);
                const bool goesOn = notes.reachEnd && isHeldBehind(_row, _draft, verse, voice);
                const double right = goesOn ? _draft.musicRight() : notes.right;
                addHeldLine(entry.box.right + 0.2, std::min(right, leftOf(next) - 0.4),
                            *entry.chord);
            }
        }
    }

    /// What comes from the system in front.
    void addStart(const std::vector<Sung> &sung, const OpenSyllable &held)
    {
        const auto first =
            std::find_if(_carriers.begin(), _carriers.end(), [&](const PlacedChord *carrier) {
                return carrier->chord->voice == held.voice;
            });
        if (first == _carriers.end())
            return;
        const Sung *const next = sung.empty() ? nullptr : &sung.front();
        const HeldNotes notes = heldNotes(
            _carriers, static_cast<std::size_t>(first - _carriers.begin()), held.voice, next);
        if (notes.last == nullptr)
            return;
        if (held.isWordUnfinished) {
            addHyphens(_draft.musicLeft, leftOf(next), **first);
        } else {
            const bool goesOn =
                notes.reachEnd && isHeldBehind(_row, _draft, held.verse, held.voice);
            const double right = goesOn ? _draft.musicRight() : notes.right;
            addHeldLine(_draft.musicLeft, std::min(right, leftOf(next) - 0.4), **first);
        }
    }

    SideItems take() { return std::move(_items); }

private:
    /// Of what is sung next, or of the end of the system.
    double leftOf(const Sung *next) const { return next ? next->box.left : _draft.right; }

    void addHyphens(double left, double right, const PlacedChord &chord)
    {
        constexpr double least = 0.85; // less than columns keep free behind such words
        const double room = right - left;
        const int count = std::max(1, static_cast<int>(room / 12));
        for (int k = 0; k < count && room > least; ++k) {
            const double x = left + room * (k + 0.5) / count;
            add(_draft.pen.line(MarkKind::Lyric, {x - 0.35, -0.5}, {x + 0.35, -0.5}, 0.16), chord);
        }
    }

    void addHeldLine(double left, double right, const PlacedChord &chord)
    {
        if (right > left + 0.6)
            add(_draft.pen.line(MarkKind::Lyric, {left, 0}, {right, 0}, 0.16), chord);
    }

    void add(Ink ink, const PlacedChord &chord)
    {
        SideItem item;
        item.side = Side::Below;
        item.line = _line;
        item.gap = 0.2;
        ink.place = placeOf(_row, chord);
        // Where no words stand it is as far down as they would be.
        if (_hasNoWords)
            ink.box.top = std::min(ink.box.top, _letters.top);
        item.inks.push_back(std::move(ink));
        _items.push_back(std::move(item));
    }

    const RowDraft &_row;
    const SystemDraft &_draft;
    const Carriers &_carriers;
    int _line;
    Box _letters; ///< verses stand evenly below one another, whatever their letters are
    bool _hasNoWords = false;
    SideItems _items;
};

} // namespace

void addLyrics(RowDraft &row, const SystemDraft &draft)
{
    if (!row.row->isFirstOfStaff)
        return;
    const std::uint8_t visible = draft.score.tracks[row.row->track].lyricsVisible;
    const Carriers &carriers = row.carriers;
    SungLines lines = sungLinesOf(carriers, visible, draft.pen);
    // A verse of which nothing new is sung has a line for what it holds.
    std::map<std::pair<unsigned, unsigned>, OpenSyllables> held;
    for (const OpenSyllable &syllable : heldFromBefore(row, draft, visible)) {
        auto key = std::make_pair(syllable.verse, syllable.voice);
        if (lines.find(key) == lines.end() && lines.count({syllable.verse, 0}) > 0)
            key.second = 0;
        lines[key];
        held[key].push_back(syllable);
    }
    int number = 0;
    for (auto &[key, sung] : lines) {
        const int line = lyricLine + number++;
        LyricLine words(row, draft, carriers, line);
        words.addWords(sung, number == 1, number == static_cast<int>(lines.size()));
        words.addLinks(sung, key.first);
        for (const OpenSyllable &syllable : held[key])
            words.addStart(sung, syllable);
        place(row, words.take(),
              lyricLine + static_cast<int>(key.first * Bar::MaxVoices + key.second));
    }
}

} // namespace zarn::engraving
