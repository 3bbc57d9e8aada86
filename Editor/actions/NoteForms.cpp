// SPDX-License-Identifier: MIT
#include "actions/NoteForms.h"

#include "app/Editor.h"
#include "app/MainWindow.h"
#include "document/Attributes.h"
#include "document/Document.h"

#include <ZarnCore/model/ZarnBeatAttribute.h>
#include <ZarnCore/model/ZarnNoteAttribute.h>
#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/model/attributes/ZarnBend.h>
#include <ZarnCore/model/attributes/ZarnHarmonic.h>
#include <ZarnCore/model/attributes/ZarnTrill.h>
#include <ZarnCore/model/attributes/ZarnWhammyBar.h>

#include <QCoreApplication>

#include <algorithm>

namespace zarn::editor {
namespace {

struct Text {
    Q_DECLARE_TR_FUNCTIONS(NoteForms)
};

/// In the order of `BendType`.
QStringList bends()
{
    return {Text::tr("None"),
            Text::tr("Bend"),
            Text::tr("Bent before the stroke"),
            Text::tr("Held"),
            Text::tr("Released"),
            Text::tr("Bend and release"),
            Text::tr("Bent before the stroke, and further"),
            Text::tr("Bent before the stroke, and released")};
}

/// In the order of `WhammyBarType`.
QStringList dives()
{
    return {Text::tr("None"),
            Text::tr("Dive"),
            Text::tr("Dip"),
            Text::tr("Held"),
            Text::tr("Dived before the stroke"),
            Text::tr("Dived before the stroke, and further")};
}

/// In the order of `HarmonicType`.
QStringList harmonics()
{
    return {Text::tr("None"),   Text::tr("Natural"), Text::tr("Artificial"), Text::tr("Pinched"),
            Text::tr("Tapped"), Text::tr("Semi"),    Text::tr("Feedback")};
}

/// Heights of bends: in quarter-tones from one on.
QStringList heights()
{
    QStringList names;
    static const char *const parts[] = {"", "¼", "½", "¾"};
    constexpr int quarterTonesOfStep = 4;
    constexpr int most = 12;
    for (int amount = 1; amount <= most; ++amount) {
        const int whole = amount / quarterTonesOfStep;
        names << (whole > 0 ? QString::number(whole) : QString())
                + QString::fromUtf8(parts[amount % quarterTonesOfStep]);
    }
    return names;
}

} // namespace

Change askBend(const ActionContext &context)
{
    constexpr int wholeTone = 4;
    const auto held = valueAtCursor<Note>(context.document, NoteAttribute::Bend);
    const Bend present = held ? held->to<Bend>() : Bend();
    int height = 0;
    for (const CurvePoint &point : present.curve.points())
        height = std::max<int>(height, point.value);
    const bool isBent = present.type != BendType::NoBend;
    const QStringList amounts = heights();
    Form form(Text::tr("Bend"));
    form.choice("kind", Text::tr("&Kind"), bends(),
                static_cast<int>(isBent ? present.type : BendType::Bend))
        .choice("height", Text::tr("&Whole tones"), amounts,
                std::clamp(height > 0 ? height : wholeTone, 1, amounts.size()) - 1)
        .text("curve", Text::tr("&Curve"),
              isBent ? QString::fromStdString(present.curve.toString()) : QString(),
              Text::tr("Times from 0 to 60 with quarter-tones, such as 0:0 30:4 60:4; empty or "
                       "unchanged for the usual curve."));
    const auto given = ask(context, form);
    if (!given)
        return nullptr;
    const auto kind = static_cast<BendType>(given->value(QStringLiteral("kind")).toInt());
    const QString curve = given->value(QStringLiteral("curve")).toString().trimmed();
    const bool isUsual = kind == BendType::NoBend || curve.isEmpty()
        || curve == QString::fromStdString(present.curve.toString());
    const auto bend = isUsual
        ? Bend::of(kind, given->value(QStringLiteral("height")).toInt() + 1)
        : Bend::fromString(bendTypeToString(kind) + " " + curve.toStdString());
    return [&document = context.document, bend](Score &score) {
        return bend && score.setStringedNoteBend(document.selection().notes(score), *bend);
    };
}

Change askWhammyBar(const ActionContext &context)
{
    constexpr int usual = -4;
    const auto held = valueAtCursor<Beat>(context.document, BeatAttribute::WhammyBar);
    const WhammyBar present = held ? held->to<WhammyBar>() : WhammyBar();
    int depth = 0;
    for (const CurvePoint &point : present.curve.points())
        depth = std::min<int>(depth, point.value);
    const bool isUsed = present.type != WhammyBarType::NoWhammyBar;
    Form form(Text::tr("Whammy bar"));
    form.choice("kind", Text::tr("&Kind"), dives(),
                static_cast<int>(isUsed ? present.type : WhammyBarType::Dive))
        .number("depth", Text::tr("&Depth in quarter-tones"), depth != 0 ? depth : usual,
                WhammyBar::Lowest, WhammyBar::Highest, Text::tr("-4 is a whole tone down."));
    const auto given = ask(context, form);
    if (!given)
        return nullptr;
    const auto kind = static_cast<WhammyBarType>(given->value(QStringLiteral("kind")).toInt());
    const WhammyBar bar = kind == WhammyBarType::NoWhammyBar
        ? WhammyBar()
        : WhammyBar::of(kind, given->value(QStringLiteral("depth")).toInt());
    return [&document = context.document, bar](Score &score) {
        return score.setStringedBeatWhammyBar(document.selection().beats(score), bar);
    };
}

Change askHarmonic(const ActionContext &context)
{
    const auto held = valueAtCursor<Note>(context.document, NoteAttribute::Harmonic);
    const Harmonic present = held ? held->to<Harmonic>() : Harmonic();
    const bool isOne = present.type != HarmonicType::NoHarmonic;
    const Note *const note = context.document.cursor().findNote();
    const unsigned usual =
        note != nullptr && note->fret() > 0 ? Harmonic::partialAtFret(note->fret()) : 0;
    Form form(Text::tr("Harmonic"));
    form.choice("kind", Text::tr("&Kind"), harmonics(),
                static_cast<int>(isOne ? present.type : HarmonicType::Natural))
        .number(
            "partial", Text::tr("&Partial"),
            static_cast<int>(isOne ? present.partial : std::max(usual, Harmonic::LowestPartial)),
            Harmonic::LowestPartial, Harmonic::HighestPartial,
            Text::tr("2 sounds an octave higher, 3 an octave and a fifth, 4 two octaves."));
    const auto given = ask(context, form);
    if (!given)
        return nullptr;
    const auto kind = static_cast<HarmonicType>(given->value(QStringLiteral("kind")).toInt());
    const auto partial = static_cast<unsigned>(given->value(QStringLiteral("partial")).toInt());
    return [&document = context.document, kind, partial](Score &score) {
        const ScoreModelRange notes = document.selection().notes(score);
        switch (kind) {
        case HarmonicType::NoHarmonic:
            return score.setStringedNoteNaturalHarmonic(notes, false);
        case HarmonicType::Natural:
            return score.setStringedNoteNaturalHarmonic(notes, true, partial);
        default:
            return score.setStringedNoteArtificialHarmonic(notes, kind, partial);
        }
    };
}

Change askTrill(const ActionContext &context)
{
    const auto held = valueAtCursor<Note>(context.document, NoteAttribute::Trill);
    const Trill present = held ? held->to<Trill>() : Trill();
    constexpr int wholeTone = 2;
    Form form(Text::tr("Trill"));
    form.number("interval", Text::tr("&Semitones to the upper note"),
                present.interval != 0 ? present.interval : wholeTone, 0,
                static_cast<int>(Trill::WidestInterval), Text::tr("0 for no trill."))
        .choice("speed", Text::tr("&In"),
                {Text::tr("sixteenths"), Text::tr("thirty-seconds"), Text::tr("sixty-fourths")},
                static_cast<int>(present.speed) - static_cast<int>(Trill::Speed::Sixteenth));
    const auto given = ask(context, form);
    if (!given)
        return nullptr;
    Trill trill;
    trill.interval = static_cast<std::uint8_t>(given->value(QStringLiteral("interval")).toInt());
    if (trill.interval != 0)
        trill.speed = static_cast<Trill::Speed>(given->value(QStringLiteral("speed")).toInt()
                                                + static_cast<int>(Trill::Speed::Sixteenth));
    return [&document = context.document, trill](Score &score) {
        return score.setNoteAttribute(document.selection().notes(score), NoteAttribute::Trill,
                                      trill);
    };
}

} // namespace zarn::editor
