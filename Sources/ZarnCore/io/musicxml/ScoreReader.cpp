// SPDX-License-Identifier: MIT
#include <ZarnCore/io/musicxml/ScoreReader.h>

#include <ZarnCore/io/ZarnImportException.h>
#include <ZarnCore/io/ZarnImportReport.h>
#include <ZarnCore/io/musicxml/BarBuilder.h>
#include <ZarnCore/io/musicxml/FretPitches.h>
#include <ZarnCore/io/musicxml/ImportContext.h>
#include <ZarnCore/io/musicxml/InstrumentGuess.h>
#include <ZarnCore/io/musicxml/JumpPlacer.h>
#include <ZarnCore/io/musicxml/MasterBarBuilder.h>
#include <ZarnCore/io/musicxml/Movements.h>
#include <ZarnCore/io/musicxml/NoteMaker.h>
#include <ZarnCore/io/musicxml/PartList.h>
#include <ZarnCore/io/musicxml/PartReader.h>
#include <ZarnCore/io/musicxml/PartSources.h>
#include <ZarnCore/io/musicxml/ScoreHeader.h>
#include <ZarnCore/io/musicxml/TrackBuilder.h>
#include <ZarnCore/io/musicxml/TwinStaves.h>
#include <ZarnCore/io/musicxml/Wording.h>
#include <ZarnCore/io/musicxml/XmlDocument.h>
#include <ZarnCore/io/musicxml/signs/PartSigns.h>
#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/model/notes/LinkFaults.h>
#include <ZarnCore/model/notes/SpanFaults.h>
#include <ZarnCore/model/notes/Spans.h>

#include <algorithm>
#include <cstring>

namespace zarn::io {

namespace {

/// Joins a syllable behind a hyphen to its word, though it says that it stands alone: readers of
/// the page see the hyphen.
void joinSyllables(const Track &track, ImportContext &context)
{
    for (auto &[line, marks] : readSpans(track, 0, track.barCount()))
        for (std::size_t i = 1; line.kind == SpanKind::Word && i < marks.size(); ++i) {
            if (!marks[i - 1].leavesOpen || marks[i].needsOpen)
                continue;
            marks[i].needsOpen = true;
            rewrite(line, marks[i], marks[i]);
            context.addProblemInBar(static_cast<int>(marks[i].place.bar), {},
                                    "a syllable behind a hyphen was joined to its word");
        }
}

/// Takes away what leads to nothing, and says so.
void mendLinks(const Track &track, const JoiningSigns &kinds, ImportContext &context)
{
    if (kinds.links)
        for (const auto &staff : track.staves())
            for (const BrokenLink &link : takeBrokenLinksOff(*staff))
                context.addProblemInBar(static_cast<int>(link.bar), {},
                                        textOf(link.kind) + std::string(" was left out"));
    if (!kinds.spans)
        return;
    joinSyllables(track, context);
    for (const BrokenSpan &span : mendBrokenSpans(track))
        context.addProblemInBar(static_cast<int>(span.place.bar), {},
                                span.text + std::string(" was mended"));
}

/// Whether a document says that it has the beginnings of all systems.
bool hasAllSystems(pugi::xml_node root)
{
    const auto supported = root.child("identification").child("encoding").children("supports");
    return std::any_of(supported.begin(), supported.end(), [](pugi::xml_node supports) {
        const auto says = [supports](const char *attribute, const char *value) {
            return std::strcmp(supports.attribute(attribute).value(), value) == 0;
        };
        return says("element", "print") && says("attribute", "new-system") && says("type", "yes")
            && says("value", "yes");
    });
}

/// Reads one document: the parts one after another, then what they share.
class ScoreReader {
public:
    ScoreReader(const XmlDocument &document, ImportReport &report)
        : _document(document), _context(document, report),
          _list(document.root().child("part-list"), _context), _notes(_context, _list),
          _signs(_context), _builder(_context, _notes, _signs), _reader(_context, _tally),
          _model(std::make_shared<ScoreModel>())
    {
    }

    std::shared_ptr<ScoreModel> read(ImportReport &report);

private:
    void readPart(std::size_t part, const PartSource &source);
    void readMeasure(std::size_t part, std::size_t bar, pugi::xml_node frame,
                     pugi::xml_node content);
    void padBars();
    void fillBarsWithRests();
    void setSystems();

    const XmlDocument &_document;
    ImportContext _context;
    PartList _list;
    SourceTally _tally;
    NoteMaker _notes;
    PartSigns _signs;
    BarBuilder _builder;
    PartReader _reader;
    std::shared_ptr<ScoreModel> _model;
    std::size_t _barCount = 0;
    std::vector<PartFacts> _facts;
    std::vector<StaffBars> _bars; ///< by part
    std::vector<WholeMeasureRest> _rests;
    WrittenMeasure _measure;
};

std::shared_ptr<ScoreModel> ScoreReader::read(ImportReport &report)
{
    readScoreHeader(_document.root(), *_model, _context);
    const auto sources = partSources(_document.root(), _list, _context);
    _tally.parts.resize(sources.size());
    _facts.resize(sources.size());
    _bars.resize(sources.size());
    for (std::size_t part = 0; part < sources.size(); ++part)
        readPart(part, sources[part]);
    padBars();

    auto &master = *_model->masterTrack();
    MasterBarBuilder(_context, _facts, _tally.parts)
        .build(master, static_cast<unsigned>(_barCount));
    _context.setPlace(-1, -1);
    JumpPlacer(master).place(_facts);
    master.updatePlayList();
    reportUnplayedBars(master, _context);
    fillBarsWithRests();
    setSystems();
    const InstrumentGuesser guesser(_list);
    std::vector<std::string> parts;
    for (std::size_t part = 0; part < sources.size(); ++part) {
        _context.setPlace(static_cast<int>(part), -1);
        setClefs(_facts[part], _bars[part], _context);
        setSimileMarks(_facts[part], _bars[part], _context);
        const auto &listed = sources[part].listed;
        const auto type = guesser.guess(listed, _facts[part], _tally.parts[part].notes);
        _model->addTrack(makeTrack(type, listed, _facts[part], _tally.parts[part],
                                   std::move(_bars[part]), _context));
        parts.push_back(listed.id);
        tellFretsApart(*_model->tracks().back(), _context);
        mendLinks(*_model->tracks().back(), _facts[part].joining, _context);
    }
    _model->setTrackGroups(_list.groups(parts));
    _context.finish();
    report.setTally(std::move(_tally));
    return std::move(_model);
}

void ScoreReader::readPart(std::size_t part, const PartSource &source)
{
    auto &facts = _facts[part];
    auto &bars = _bars[part];
    auto &tally = _tally.parts[part];
    tally.id = source.listed.id;
    tally.name = source.listed.name;
    facts.staves.resize(1);
    _notes.startPart(facts, source.listed);
    _builder.startPart();
    _signs.startPart();
    _reader.startPart(facts, tally);
    bars.emplace_back();
    bars.front().reserve(_barCount);
    std::size_t bar = 0;
    const auto read = [&](const MeasureSource &measure) {
        if (bar == MasterTrack::MaxBars)
            _context.refuse(_document.root(),
                            "there are " + std::to_string(source.measureCount())
                                + " measures, and at most " + std::to_string(MasterTrack::MaxBars)
                                + " can be read");
        _context.setPlace(static_cast<int>(part), static_cast<int>(bar));
        try {
            readMeasure(part, bar, measure.frame, measure.content);
        } catch (const ImportException &) {
            throw;
        } catch (const CoreException &error) { // such as a fraction that nothing can hold
            _context.refuse(measure.content, error.message());
        }
        ++bar;
    };
    source.visitMeasures(read, [&](pugi::xml_node other) { _context.addUnheld(other); });
    _barCount = std::max(_barCount, bar);
    _context.setPlace(static_cast<int>(part), -1);
    _reader.finishPart();
    _notes.finishPart();
    _signs.finishPart(bars);
    facts.joining = _signs.kinds();
    TwinStaves(_context, facts, bars, tally).merge();
    const auto &rests = _builder.wholeMeasureRests();
    _rests.insert(_rests.end(), rests.begin(), rests.end());
}

void ScoreReader::readMeasure(std::size_t part, std::size_t bar, pugi::xml_node frame,
                              pugi::xml_node content)
{
    auto &bars = _bars[part];
    _reader.readMeasure(frame, content, _measure);
    while (bars.size() < _facts[part].staves.size()) {
        // A staff that turns up late was empty before.
        _context.addEmptyNodes(content, bar);
        bars.emplace_back();
        bars.back().reserve(std::max(_barCount, bar + 1));
        for (std::size_t i = 0; i < bar; ++i)
            bars.back().push_back(std::make_shared<Bar>());
    }
    _builder.build(_measure, bars);
}

void ScoreReader::padBars()
{
    for (std::size_t part = 0; part < _bars.size(); ++part) {
        auto &staves = _bars[part];
        const auto written = staves.front().size();
        if (written < _barCount) {
            _context.setPlace(static_cast<int>(part), static_cast<int>(written));
            _context.addProblem({},
                                "the part ends " + counted(_barCount - written, "bar")
                                    + " before the longest one; empty bars were added");
            _context.addEmptyNodes({}, (_barCount - written) * staves.size());
        }
        for (auto &staff : staves)
            while (staff.size() < _barCount)
                staff.push_back(std::make_shared<Bar>());
    }
}

void ScoreReader::fillBarsWithRests()
{
    const auto &bars = _model->masterTrack()->masterBars();
    for (const auto &rest : _rests)
        _context.addEmptyNodes({}, rest.fit(bars[rest.bar]->length()));
}

/// Systems of the full score begin where some part of the document says so. How long the last one
/// is the document says when it has all beginnings.
void ScoreReader::setSystems()
{
    std::vector<int> starts = {0};
    for (const auto &facts : _facts)
        starts.insert(starts.end(), facts.systemStarts.begin(), facts.systemStarts.end());
    const bool isSaid = starts.size() > 1;
    std::sort(starts.begin(), starts.end());
    starts.erase(std::unique(starts.begin(), starts.end()), starts.end());
    const bool hasAll = hasAllSystems(_document.root());
    if (starts.size() == 1 && !(hasAll && isSaid))
        return;
    if (hasAll)
        starts.push_back(static_cast<int>(_barCount));
    std::vector<int> systems;
    for (std::size_t i = 0; i + 1 < starts.size(); ++i)
        systems.push_back(starts[i + 1] - starts[i]);
    _model->setFullScoreSystemsLayout(systems);
}

} // namespace

std::shared_ptr<ScoreModel> readScore(const XmlDocument &document, ImportReport &report)
{
    const auto layout = tagOf(document.root().name());
    if (layout != Tag::ScorePartwise && layout != Tag::ScoreTimewise)
        document.refuse(document.root(),
                        std::string("the root element is <") + document.root().name()
                            + ">, not <score-partwise> or <score-timewise>");
    return ScoreReader(document, report).read(report);
}

} // namespace zarn::io
