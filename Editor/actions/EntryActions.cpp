// SPDX-License-Identifier: MIT
#include "actions/ActionTable.h"
#include "actions/Menus.h"
#include "app/MainWindow.h"
#include "document/Document.h"
#include "entry/DrumEntry.h"
#include "entry/NoteEntry.h"

#include <ZarnCore/model/ZarnScoreModel.h>

#include <QCoreApplication>

namespace zarn::editor {
namespace {

struct Text {
    Q_DECLARE_TR_FUNCTIONS(EntryActions)
};

using NoteValue = RhythmValue::NoteValue;

bool hasPlace(const ActionContext &context)
{
    return context.document.cursor().isBarValid();
}

bool hasBeat(const ActionContext &context)
{
    return context.document.cursor().isBeatValid() || !context.document.selection().isEmpty();
}

bool isOnStrings(const ActionContext &context)
{
    const auto staff = context.document.cursor().staff();
    return staff != nullptr && staff->isFretted();
}

Action onScore(const char *id, const QString &text, const char *keys,
               std::function<void(const ActionContext &)> run,
               std::function<bool(const ActionContext &)> isEnabled = hasPlace)
{
    return {QLatin1String(id),
            text,
            QKeySequence::listFromString(QLatin1String(keys), QKeySequence::PortableText),
            std::move(run),
            std::move(isEnabled),
            KeyScope::Score};
}

Action noteValue(const char *id, const QString &text, const char *keys, NoteValue value)
{
    Action action = onScore(id, text, keys, [value](const ActionContext &context) {
        enterNoteValue(context.document, value);
    });
    action.isChecked = [value](const ActionContext &context) {
        return context.document.entry().rhythm.getNoteValue() == value;
    };
    return action;
}

Action dots(const char *id, const QString &text, const char *keys, unsigned count)
{
    Action action = onScore(id, text, keys, [count](const ActionContext &context) {
        enterDots(context.document, count);
    });
    action.isChecked = [count](const ActionContext &context) {
        return context.document.entry().rhythm.getAugmentationDot() == count;
    };
    return action;
}

Action tuplet(int first, int second, const char *keys)
{
    const RhythmValue::TupletRatio ratio(first, second);
    Action action =
        onScore("", Text::tr("%1 in the time of %2").arg(first).arg(second), keys,
                [ratio](const ActionContext &context) { enterTuplet(context.document, ratio); });
    action.id = QStringLiteral("beat.tuplet%1-%2").arg(first).arg(second);
    action.isChecked = [ratio](const ActionContext &context) {
        return context.document.entry().rhythm.getPrimaryTupletRatio() == ratio;
    };
    return action;
}

bool isOnDrums(const ActionContext &context)
{
    const Track *const track = context.document.cursor().findTrack();
    return track != nullptr && InstrumentSet::isUnpitched(track->type()) && hasPlace(context);
}

bool isOnNotation(const ActionContext &context)
{
    return context.document.entry().staffKind == layout::StaffKind::Notation && hasPlace(context);
}

std::vector<Action> letters()
{
    std::vector<Action> actions;
    for (const char *letter = "CDEFGAB"; *letter != 0; ++letter) {
        const QString sign = QString(QLatin1Char(*letter));
        for (const Adding adding : {Adding::Replaces, Adding::Adds}) {
            const bool isAdded = adding == Adding::Adds;
            Action action = onScore(
                "", isAdded ? Text::tr("Add note %1").arg(sign) : Text::tr("Note %1").arg(sign), "",
                [sign, adding](const ActionContext &context) {
                    enterLetter(context.document, NoteName::fromString(sign), adding);
                },
                isOnNotation);
            action.id =
                (isAdded ? QStringLiteral("note.add") : QStringLiteral("note.letter")) + sign;
            action.keys = {QKeySequence(isAdded ? QStringLiteral("Shift+") + sign : sign)};
            actions.push_back(std::move(action));
        }
    }
    return actions;
}

/// Frets on strings, drums on a drum kit.
std::vector<Action> digits()
{
    std::vector<Action> actions;
    for (int digit = 0; digit <= 9; ++digit) {
        const QString sign = QString::number(digit);
        Action action = onScore(
            "", Text::tr("Fret or drum %1").arg(digit), "",
            [digit](const ActionContext &context) {
                if (isOnDrums(context))
                    enterDrum(context.document, digit);
                else
                    enterFretDigit(context.document, digit);
            },
            [](const ActionContext &context) {
                return isOnStrings(context) || isOnDrums(context);
            });
        action.id = QStringLiteral("note.fret") + sign;
        action.keys = {QKeySequence(sign)};
        actions.push_back(std::move(action));
    }
    return actions;
}

} // namespace

std::vector<ActionGroup> entryActions()
{
    const std::vector<Action> values = {
        noteValue("beat.whole", Text::tr("&Whole"), "Ctrl+Alt+1", NoteValue::Whole),
        noteValue("beat.half", Text::tr("&Half"), "Ctrl+Alt+2", NoteValue::Half),
        noteValue("beat.quarter", Text::tr("&Quarter"), "Ctrl+Alt+3", NoteValue::Quarter),
        noteValue("beat.eighth", Text::tr("&Eighth"), "Ctrl+Alt+4", NoteValue::Eighth),
        noteValue("beat.sixteenth", Text::tr("&Sixteenth"), "Ctrl+Alt+5", NoteValue::Sixteenth),
        noteValue("beat.thirtySecond", Text::tr("&Thirty-second"), "Ctrl+Alt+6",
                  NoteValue::ThirtySecond),
        noteValue("beat.sixtyFourth", Text::tr("Si&xty-fourth"), "Ctrl+Alt+7",
                  NoteValue::SixtyFourth),
        onScore("beat.longer", Text::tr("&Longer"), "-; [",
                [](const ActionContext &context) { enterLonger(context.document, 1); }),
        onScore("beat.shorter", Text::tr("Sh&orter"), "+; ]",
                [](const ActionContext &context) { enterLonger(context.document, -1); }),
        dots("beat.dot", Text::tr("&Dotted"), ".", 1),
        dots("beat.doubleDot", Text::tr("Do&uble dotted"), "Alt+.", 2),
    };
    const std::vector<Action> tuplets = {tuplet(3, 2, "/"), tuplet(5, 4, ""), tuplet(6, 4, ""),
                                         tuplet(7, 4, ""),  tuplet(9, 8, ""), tuplet(2, 3, "")};
    const Action chord =
        onScore("beat.chord", Text::tr("&Chord..."), "K", [](const ActionContext &context) {
            context.window.showPanel(QStringLiteral("chords"));
        });
    const std::vector<Action> beats = {
        onScore("beat.rest", Text::tr("&Rest"), "R",
                [](const ActionContext &context) { enterRest(context.document); }),
        onScore("beat.insert", Text::tr("&Insert beat"), "Ins",
                [](const ActionContext &context) { insertBeat(context.document); }),
        onScore(
            "beat.remove", Text::tr("Re&move beats"), "Ctrl+Del; Backspace",
            [](const ActionContext &context) { removeBeats(context.document); }, hasBeat),
        chord,
    };
    const std::vector<Action> notes = {
        onScore("note.tie", Text::tr("&Tie"), "L",
                [](const ActionContext &context) { enterTie(context.document); }),
        onScore(
            "note.delete", Text::tr("&Delete"), "Del",
            [](const ActionContext &context) { removeNotes(context.document); }, hasBeat),
    };
    return {{titles(Menu::Beat), values},
            {titles(Menu::Beat, Text::tr("&Tuplet")), tuplets},
            {titles(Menu::Beat), beats},
            {titles(Menu::Note), notes},
            {titles(Menu::Note, Text::tr("&Fret or drum")), digits()},
            {titles(Menu::Note, Text::tr("&Letter")), letters()}};
}

} // namespace zarn::editor
