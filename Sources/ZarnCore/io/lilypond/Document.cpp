// SPDX-License-Identifier: MIT
#include <ZarnCore/io/lilypond/Document.h>

#include <ZarnCore/io/lilypond/Frame.h>
#include <ZarnCore/io/lilypond/GlobalLine.h>
#include <ZarnCore/io/lilypond/TrackWriter.h>
#include <ZarnCore/io/lilypond/Words.h>
#include <ZarnCore/model/ZarnScoreModel.h>

#include <algorithm>
#include <array>
#include <set>
#include <vector>

namespace zarn::lilypond {

namespace {

struct HeaderField {
    const char *name;
    ScoreProperty property;
};

/// The first of two properties that is set has the field.
constexpr std::array headerFields = {
    HeaderField{"title", ScoreProperty::Title},
    HeaderField{"subtitle", ScoreProperty::Subtitle},
    HeaderField{"subsubtitle", ScoreProperty::Album},
    HeaderField{"composer", ScoreProperty::Music},
    HeaderField{"composer", ScoreProperty::WordsAndMusic},
    HeaderField{"composer", ScoreProperty::Artist},
    HeaderField{"poet", ScoreProperty::Words},
    HeaderField{"arranger", ScoreProperty::Tabber},
    HeaderField{"instrument", ScoreProperty::Instructions},
    HeaderField{"copyright", ScoreProperty::Copyright},
};

/// A chord symbol as it reads, whatever LilyPond would call its notes.
constexpr const char *chordSymbolFunction = R"(chordSymbol =
#(define-music-function (symbol chord) (markup? ly:music?)
   #{ \once \set chordNameFunction = #(lambda (pitches bass inversion context) symbol) #chord #})

)";

constexpr const char *layout =
    R"(    \context { \Score \override TextSpanner.bound-details.right.text = \markup \draw-line #'(0 . -1) }
    \context { \Score \override Hairpin.minimum-length = #6 }
    \context { \Staff \omit StringNumber }
  }
  % Without the percent sign, LilyPond makes a MIDI file too:
  % \midi { \context { \Score midiMergeUnisons = ##f midiChannelMapping = #'instrument } \context { \ChordNames \remove "Note_performer" } }
)";

/// LilyPond takes systems with lyrics and signs for lower than they are, and squeezes the pages
/// that it fills with them; where to break pages it finds out with some room between them.
constexpr const char *paper = R"(\paper {
  page-breaking-system-system-spacing.padding = #2
}

)";

/// Room for the names at the left, by the longest of them: what LilyPond leaves is for short ones.
std::string indents(const ScoreModel &model)
{
    constexpr int widthOfLetter = 2; // millimetres, about
    constexpr int most = 50;
    int longest = 6;
    int longestShort = 2;
    for (const auto &track : model.tracks()) {
        longest = std::max(longest, QString::fromStdString(track->name()).size());
        longestShort = std::max(longestShort, QString::fromStdString(track->shortName()).size());
    }
    const auto room = [&](int letters) {
        return std::to_string(std::min(most, letters * widthOfLetter + 4)) + "\\mm";
    };
    return "    indent = " + room(longest) + "\n    short-indent = " + room(longestShort) + '\n';
}

/// The usual sizes in points: parts for players large, scores of many staves small.
int staffSize(const ScoreModel &model)
{
    struct Size {
        unsigned staves; ///< at most
        int points;
    };
    constexpr std::array sizes = {Size{2, 20}, Size{4, 17}, Size{8, 15}, Size{12, 13}};
    constexpr int smallest = 11;
    unsigned staves = 0;
    for (const auto &track : model.tracks())
        staves += track->staffCount() * (track->notations().tablature ? 2 : 1);
    for (const Size &size : sizes)
        if (staves <= size.staves)
            return size.points;
    return smallest;
}

class Writer {
public:
    Writer(const ScoreModel &model, io::ExportReport &report)
        : _model(model), _report(report), _frame(frameOf(model))
    {
    }

    std::string write();

private:
    std::string header() const;
    std::string parts(std::size_t group, unsigned first, unsigned end);

    const ScoreModel &_model;
    io::ExportReport &_report;
    Frame _frame;
    std::set<std::string> _dynamics;
    DrumTable _drums;
    std::vector<TrackText> _tracks;
};

std::string Writer::header() const
{
    std::string text = "\\header {\n";
    std::set<std::string> written;
    for (const HeaderField &field : headerFields) {
        const std::string &value = _model.property(field.property);
        if (!value.empty() && written.insert(field.name).second)
            text += std::string("  ") + field.name + " = " + quoted(value) + '\n';
    }
    return text + "  tagline = ##f\n}\n\n";
}

std::string groupWords(const TrackGroup &group)
{
    std::string delimiter;
    switch (group.symbol) {
    case GroupSymbol::Brace:
        delimiter = "#'SystemStartBrace";
        break;
    case GroupSymbol::Line:
        delimiter = "#'SystemStartSquare";
        break;
    case GroupSymbol::None:
        delimiter = "#'SystemStartBar";
        break;
    case GroupSymbol::Bracket:
        delimiter = "#'SystemStartBracket";
        break;
    }
    std::string text = group.barsThrough ? "\\new StaffGroup" : "\\new ChoirStaff";
    text += " \\with { systemStartDelimiter = " + delimiter;
    if (!group.name.empty())
        text += " instrumentName = " + quoted(group.name);
    return text + " } <<\n";
}

/// The tracks `first` up to `end` with the groups inside, from the group with that number on.
std::string Writer::parts(std::size_t group, unsigned first, unsigned end)
{
    std::string text;
    const TrackGroups &groups = _model.trackGroups();
    while (first < end) {
        std::size_t inside = group;
        while (inside < groups.size()
               && (groups[inside].first != first || groups[inside].last >= end))
            ++inside;
        if (inside == groups.size()) {
            text += _tracks[first].score;
            ++first;
            continue;
        }
        const unsigned behind = groups[inside].last + 1;
        text += groupWords(groups[inside]) + parts(inside + 1, first, behind) + ">>\n";
        first = behind;
    }
    return text;
}

std::string Writer::write()
{
    if (_frame.bars.empty())
        return "\\version \"2.24.0\"\n" + header();
    std::string music =
        "global = {\n" + globalLineOf(*_model.masterTrack(), _frame, _report) + "}\n\n";
    bool hasChords = false;
    for (const auto &track : _model.tracks()) {
        _tracks.push_back(
            trackTextOf(*track, _frame, track->index() == 0, _drums, _dynamics, _report));
        music += _tracks.back().variables;
        hasChords = hasChords || _tracks.back().hasChords;
    }
    std::string text = "\\version \"2.24.0\"\n\n#(set-global-staff-size "
        + std::to_string(staffSize(_model)) + ")\n\n" + paper + header();
    for (const std::string &dynamic : _dynamics)
        text += dynamic + " = #(make-dynamic-script " + quoted(dynamic) + ")\n";
    if (hasChords)
        text += chordSymbolFunction;
    if (!_drums.isEmpty())
        text += _drums.toText();
    text += music + "\\score {\n<<\n";
    text += _tracks.empty() ? "\\new Staff \\global\n"
                            : parts(0, 0, static_cast<unsigned>(_tracks.size()));
    return text + ">>\n  \\layout {\n" + indents(_model) + layout + "}\n";
}

} // namespace

std::string documentOf(const ScoreModel &model, io::ExportReport &report)
{
    return Writer(model, report).write();
}

} // namespace zarn::lilypond
