// SPDX-License-Identifier: MIT
// Reading MusicXML into the tree against the bare token pass of QXmlStreamReader over the same
// bytes, which builds nothing; and how the time grows from 200 to 2,000 bars.
#include "RatioReport.h"

#include <ZarnCore/io/ZarnImportReport.h>
#include <ZarnCore/io/ZarnMusicXmlImporter.h>
#include <ZarnCore/model/ZarnScoreModel.h>
#include <filesystem/RAMFileSystem.h>

#include <QXmlStreamReader>

#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string>

namespace {

constexpr int partCount = 8;

/// Whether notes carry a slur, an articulation, a fingering and a syllable each.
enum class Notes { Plain, Marked };

/// Writes a score as notation programs do: one element per line, indented.
class Generator {
public:
    explicit Generator(int bars, Notes notes = Notes::Plain) : _bars(bars), _notes(notes) { }

    std::string document()
    {
        _text = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<score-partwise version=\"4.0\">\n";
        _text += " <part-list>\n";
        for (int part = 1; part <= partCount; ++part)
            _text += "  <score-part id=\"P" + std::to_string(part) + "\"><part-name>Part "
                + std::to_string(part) + "</part-name></score-part>\n";
        _text += " </part-list>\n";
        for (int part = 1; part <= partCount; ++part) {
            _text += " <part id=\"P" + std::to_string(part) + "\">\n";
            for (int bar = 0; bar < _bars; ++bar)
                measure(part, bar);
            _text += " </part>\n";
        }
        return std::move(_text) + "</score-partwise>\n";
    }

private:
    void measure(int part, int bar)
    {
        _text += "  <measure number=\"" + std::to_string(bar + 1) + "\">\n";
        if (bar == 0)
            _text += "   <attributes>\n    <divisions>12</divisions>\n    <key><fifths>1</fifths>"
                     "</key>\n    <time><beats>4</beats><beat-type>4</beat-type></time>\n"
                     "    <clef><sign>G</sign><line>2</line></clef>\n   </attributes>\n";
        _pitch = (part * 5 + bar * 3) % 21;
        switch ((part + bar) % 4) {
        case 0:
            for (int i = 0; i < 8; ++i)
                note(6, "eighth", false, i % 2 == 0 ? "begin" : "end", "");
            break;
        case 1:
            note(18, "quarter", false, nullptr, "    <dot/>\n");
            note(6, "eighth", false, nullptr, "");
            rest(12, "quarter");
            note(12, "quarter", false, nullptr, "");
            note(12, "quarter", true, nullptr, "");
            note(12, "quarter", true, nullptr, "");
            break;
        case 2:
            for (int i = 0; i < 6; ++i)
                note(4, "eighth", false, nullptr,
                     "    <time-modification>\n     <actual-notes>3</actual-notes>\n"
                     "     <normal-notes>2</normal-notes>\n    </time-modification>\n");
            note(24, "half", false, nullptr, "");
            break;
        default:
            note(24, "half", false, nullptr, "");
            note(24, "half", true, nullptr, "");
            _text += "   <backup><duration>24</duration></backup>\n"
                     "   <forward><duration>24</duration></forward>\n";
            note(24, "half", false, nullptr, "");
        }
        _text += "  </measure>\n";
    }

    void note(int duration, const char *type, bool chord, const char *beam, const char *more)
    {
        _pitch = (_pitch + 2) % 21;
        _text += chord ? "   <note>\n    <chord/>\n" : "   <note>\n";
        _text += "    <pitch>\n     <step>";
        _text += "CDEFGAB"[_pitch % 7];
        _text +=
            "</step>\n     <octave>" + std::to_string(3 + _pitch / 7) + "</octave>\n    </pitch>\n";
        close(duration, type, more);
        _text += "    <stem>up</stem>\n";
        if (beam)
            _text += std::string("    <beam number=\"1\">") + beam + "</beam>\n";
        if (_notes == Notes::Marked)
            mark(chord);
        _text += "   </note>\n";
    }

    /// Slurs join the beats in pairs; a chord has one slur and one syllable.
    void mark(bool chord)
    {
        _text += "    <notations>\n";
        if (!chord) {
            _isSlurred = !_isSlurred;
            _text += std::string("     <slur number=\"1\" type=\"")
                + (_isSlurred ? "start" : "stop") + "\"/>\n";
        }
        _text += "     <articulations>\n      <accent/>\n     </articulations>\n"
                 "     <technical>\n      <fingering>2</fingering>\n     </technical>\n"
                 "    </notations>\n";
        if (!chord)
            _text += "    <lyric number=\"1\">\n     <syllabic>single</syllabic>\n"
                     "     <text>la</text>\n    </lyric>\n";
    }

    void rest(int duration, const char *type)
    {
        _text += "   <note>\n    <rest/>\n";
        close(duration, type, "");
        _text += "   </note>\n";
    }

    void close(int duration, const char *type, const char *more)
    {
        _text += "    <duration>" + std::to_string(duration)
            + "</duration>\n    <voice>1</voice>\n    <type>" + type + "</type>\n" + more;
    }

    int _bars;
    Notes _notes;
    bool _isSlurred = false;
    int _pitch = 0;
    std::string _text;
};

/// The same document on one line, which gives the token pass a third less to do.
std::string withoutIndent(const std::string &text)
{
    std::string line;
    bool atStart = true;
    for (const char letter : text) {
        atStart = letter == '\n' || (atStart && letter == ' ');
        if (!atStart)
            line += letter;
    }
    return line;
}

/// A generated score in a file in memory, for both readers.
class Document {
public:
    explicit Document(const std::string &text) : _bytes(QByteArray::fromStdString(text))
    {
        auto handle = _files.open("score.musicxml", filesystem::OpenMode::Write);
        handle->writeBlock(_bytes.constData(), _bytes.size());
        handle->close();
    }

    void passTokens() const
    {
        QXmlStreamReader reader(_bytes);
        std::size_t tokens = 0;
        while (!reader.atEnd()) {
            reader.readNext();
            ++tokens;
        }
        benchmark::DoNotOptimize(tokens);
    }

    std::shared_ptr<zarn::ScoreModel> import()
    {
        auto handle = _files.open("score.musicxml", filesystem::OpenMode::Read);
        zarn::io::ImportReport report;
        return zarn::io::MusicXmlImporter().read(*handle, report);
    }

private:
    QByteArray _bytes;
    filesystem::RAMFileSystem _files;
};

void passTokens(benchmark::State &state, const Document &document)
{
    for (auto _ : state) {
        const bench::IterationTimer timer(state);
        document.passTokens();
    }
}

void import(benchmark::State &state, Document &document)
{
    for (auto _ : state) {
        std::shared_ptr<zarn::ScoreModel> model; // destroyed outside of the time
        const bench::IterationTimer timer(state);
        model = document.import();
        benchmark::DoNotOptimize(model);
    }
}

} // namespace

int main(int argc, char **argv)
{
    Document small(Generator(200).document());
    Document large(Generator(2000).document());
    Document dense(withoutIndent(Generator(2000).document()));
    Document marked(Generator(2000, Notes::Marked).document());
    bench::RatioReport report;
    report.compare(
        "2,000 bars x 8 parts imported, against bare tokens", 0.3,
        [&](benchmark::State &state) { passTokens(state, large); },
        [&](benchmark::State &state) { import(state, large); }, bench::Timing::Manual);
    report.compare(
        "2,000 bars x 8 parts on one line, against bare tokens", 0.3,
        [&](benchmark::State &state) { passTokens(state, dense); },
        [&](benchmark::State &state) { import(state, dense); }, bench::Timing::Manual);
    report.compare(
        "200 bars x 8 parts imported, against bare tokens", 0.3,
        [&](benchmark::State &state) { passTokens(state, small); },
        [&](benchmark::State &state) { import(state, small); }, bench::Timing::Manual);
    report.compare(
        "2,000 bars with marks on every note, against bare tokens", 0.4,
        [&](benchmark::State &state) { passTokens(state, marked); },
        [&](benchmark::State &state) { import(state, marked); }, bench::Timing::Manual);
    report.compare(
        "2,000 bars against 200 bars (10 is linear)", 11,
        [&](benchmark::State &state) { import(state, small); },
        [&](benchmark::State &state) { import(state, large); }, bench::Timing::Manual);
    return report.run(argc, argv);
}
