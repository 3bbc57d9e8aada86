// SPDX-License-Identifier: MIT
#include <ZarnCore/io/sheet/PostedPage.h>

#include <ZarnCore/io/sheet/Glyphs.h>
#include <ZarnCore/io/sheet/Legend.h>
#include <ZarnCore/io/sheet/OpenStrings.h>
#include <ZarnCore/io/sheet/SheetBuilder.h>
#include <ZarnCore/io/sheet/SheetPainter.h>
#include <ZarnCore/io/sheet/TabWriter.h>
#include <ZarnCore/io/sheet/Texts.h>
#include <ZarnCore/io/sheet/TrackText.h>
#include <ZarnCore/io/sheet/WrappedText.h>
#include <ZarnCore/model/ZarnScoreModel.h>

#include <algorithm>
#include <array>

namespace zarn::sheet {

namespace {

struct NamedProperty {
    ScoreProperty property;
    const char *words;
};

/// What stands over the music, in this order.
constexpr std::array properties = {
    NamedProperty{ScoreProperty::Title, "%1"},
    NamedProperty{ScoreProperty::Subtitle, "%1"},
    NamedProperty{ScoreProperty::Artist, "by %1"},
    NamedProperty{ScoreProperty::Album, "from %1"},
    NamedProperty{ScoreProperty::WordsAndMusic, "Words and music: %1"},
    NamedProperty{ScoreProperty::Words, "Words: %1"},
    NamedProperty{ScoreProperty::Music, "Music: %1"},
    NamedProperty{ScoreProperty::Tabber, "Tabbed by %1"},
    NamedProperty{ScoreProperty::Copyright, "%1"},
    NamedProperty{ScoreProperty::Instructions, "%1"},
    NamedProperty{ScoreProperty::Notice, "%1"},
};

/// "x02210"; frets above 9 have hyphens between all: "x-10-12-12-11-x".
QString shapeText(const ChordDiagram &diagram)
{
    const bool isWide = std::any_of(diagram.frets.begin(), diagram.frets.end(),
                                    [](std::int8_t fret) { return fret > 9; });
    QStringList frets;
    for (const std::int8_t fret : diagram.frets)
        frets.append(fret < 0 ? QStringLiteral("x") : QString::number(fret));
    return frets.join(isWide ? QStringLiteral("-") : QString());
}

class PageWriter {
public:
    PageWriter(const ScoreModel &model, const PostedStyle &style) : _model(model), _style(style) { }

    std::string write()
    {
        writeTitle();
        for (const auto &track : _model.tracks())
            writeTrack(*track);
        writeLegend();
        std::string text;
        for (const CharacterRow &row : _rows)
            text += row.toText(false) + '\n';
        return text;
    }

private:
    void addLine(const QString &text) { addWrapped(_rows, text, _style.width, Ink::Plain); }

    void writeTitle();
    void writeTrack(const Track &track);
    void writeStrings(const Staff &staff);
    void writeShapes(const Staff &staff);
    void writeLegend();

    const ScoreModel &_model;
    const PostedStyle &_style;
    std::vector<CharacterRow> _rows;
    Legend _legend;
};

/// What says itself who did what, or from where: "Transcribed by Anna", "Copied from the print".
bool namesItsDeed(const QString &line)
{
    const QString second = line.section(QLatin1Char(' '), 1, 1);
    return second == QLatin1String("by")
        || (second == QLatin1String("from")
            && line.section(QLatin1Char(' '), 0, 0).endsWith(QLatin1String("ed")));
}

void PageWriter::writeTitle()
{
    for (const NamedProperty &named : properties)
        for (const QString &line : QString::fromStdString(_model.property(named.property))
                                       .split(QLatin1Char('\n'), Qt::SkipEmptyParts))
            addLine(namesItsDeed(line.simplified())
                        ? line.simplified()
                        : QString::fromLatin1(named.words).arg(line.simplified()));
}

void PageWriter::writeStrings(const Staff &staff)
{
    QStringList letters = postedStrings(staff.tuning());
    if (!letters.isEmpty())
        letters.last() = letters.last().at(0).toUpper() + letters.last().mid(1);
    QString line = QStringLiteral("Tuning: ") + letters.join(QLatin1Char(' '));
    if (!staff.tuning().name().empty())
        line += QStringLiteral(" (%1)").arg(QString::fromStdString(staff.tuning().name()));
    addLine(line);
    if (staff.capoFret() != 0)
        addLine(QStringLiteral("Capo: fret %1").arg(staff.capoFret()));
    if (staff.partialCapoFret() != 0)
        addLine(QStringLiteral("Capo over some strings: fret %1").arg(staff.partialCapoFret()));
}

/// The chords whose shapes the staff has, each once.
void PageWriter::writeShapes(const Staff &staff)
{
    std::vector<ChordDiagram> shapes;
    for (const auto &bar : staff.bars())
        for (const auto &voice : bar->voices()) {
            if (!voice)
                continue;
            for (const auto &beat : voice->beats())
                if (const auto &diagram = beat->chord().diagram) {
                    ChordDiagram shape = *diagram;
                    if (!beat->chordSymbol().empty())
                        shape.name = beat->chordSymbol();
                    if (std::find(shapes.begin(), shapes.end(), shape) == shapes.end())
                        shapes.push_back(shape);
                }
        }
    QStringList texts;
    for (const ChordDiagram &shape : shapes)
        texts.append(QString::fromStdString(shape.name) + QLatin1Char(' ') + shapeText(shape));
    if (texts.isEmpty())
        return;
    texts.first().prepend(QStringLiteral("Chords: "));
    addWrapped(_rows, texts, _style.width);
}

void PageWriter::writeTrack(const Track &track)
{
    const bool isTab = std::all_of(track.staves().begin(), track.staves().end(),
                                   [](const auto &staff) { return isShownAsTab(*staff); });
    if (!_rows.empty())
        _rows.emplace_back();
    if (isTab) {
        const QString name = QString::fromStdString(track.name()).simplified();
        if (!name.isEmpty())
            addLine(name);
        for (const auto &staff : track.staves()) {
            writeStrings(*staff);
            writeShapes(*staff);
        }
    } else {
        addLine(trackText(track, Signs::Letters));
    }
    _rows.emplace_back();
    ShownPart part;
    part.track = track.index();
    part.lastBar = std::max(1U, _model.masterTrack()->masterBarCount()) - 1;
    part.hasTabRhythm = _style.hasRhythm || !isTab;
    const Glyphs &glyphs = isTab ? Glyphs::posted() : Glyphs::ascii();
    const Sheet sheet = buildSheet(_model, part, glyphs, _legend);
    for (CharacterRow &row : paintSheet(sheet, glyphs, _style.width))
        _rows.push_back(std::move(row));
}

void PageWriter::writeLegend()
{
    QStringList texts = _legend.texts();
    if (texts.isEmpty())
        return;
    _rows.emplace_back();
    texts.first().prepend(QStringLiteral("Signs: "));
    addWrapped(_rows, texts, _style.width);
}

} // namespace

std::string postedPageOf(const ScoreModel &model, const PostedStyle &style)
{
    return PageWriter(model, style).write();
}

} // namespace zarn::sheet
