// SPDX-License-Identifier: MIT
#include "actions/ActionTable.h"
#include "actions/Menus.h"
#include "app/ScoreView.h"
#include "document/Document.h"
#include "entry/NoteEntry.h"

#include <ZarnCore/score/ZarnScoreCursor.h>

#include <QCoreApplication>

namespace zarn::editor {
namespace {

struct Text {
    Q_DECLARE_TR_FUNCTIONS(MoveActions)
};

using Move = std::function<bool(ScoreCursor &)>;

bool hasPlace(const ActionContext &context)
{
    return context.document.cursor().isBarValid();
}

Action moveTo(const char *id, const QString &text, const char *keys, Move move,
              bool extends = false)
{
    return {QLatin1String(id),
            text,
            QKeySequence::listFromString(QLatin1String(keys), QKeySequence::PortableText),
            [move = std::move(move), extends](const ActionContext &context) {
                context.document.moveCursor(move, extends);
            },
            hasPlace,
            KeyScope::Score};
}

template <CursorStep step>
bool next(ScoreCursor &cursor)
{
    return cursor.next(step);
}

template <CursorStep step>
bool previous(ScoreCursor &cursor)
{
    return cursor.previous(step);
}

bool toStart(ScoreCursor &cursor)
{
    return cursor.toFirst(CursorStep::Bar) && cursor.toFirst(CursorStep::Beat);
}

bool toEnd(ScoreCursor &cursor)
{
    return cursor.toLast(CursorStep::Bar);
}

bool toBarStart(ScoreCursor &cursor)
{
    return cursor.toFirst(CursorStep::Beat);
}

bool toBarEnd(ScoreCursor &cursor)
{
    return cursor.toLast(CursorStep::Beat);
}

std::vector<Action> voices()
{
    std::vector<Action> actions;
    for (int voice = 0; voice < 4; ++voice) {
        Action action =
            moveTo("", Text::tr("Voice %1").arg(voice + 1), "",
                   [voice](ScoreCursor &cursor) { return cursor.to(CursorStep::Voice, voice); });
        action.id = QStringLiteral("go.voice%1").arg(voice + 1);
        action.keys = {QKeySequence(QStringLiteral("Alt+%1").arg(voice + 1))};
        action.isChecked = [voice](const ActionContext &context) {
            return static_cast<int>(context.document.cursor().voiceIndex()) == voice;
        };
        actions.push_back(std::move(action));
    }
    return actions;
}

} // namespace

std::vector<ActionGroup> moveActions()
{
    Action onward = moveTo("go.nextBeat", Text::tr("&Next beat"), "Right", next<CursorStep::Beat>);
    onward.run = [](const ActionContext &context) { goOn(context.document); };
    const std::vector<Action> beats = {
        onward,
        moveTo("go.previousBeat", Text::tr("&Previous beat"), "Left", previous<CursorStep::Beat>),
        moveTo("go.up", Text::tr("String or note &above"), "Up", previous<CursorStep::String>),
        moveTo("go.down", Text::tr("String or note &below"), "Down", next<CursorStep::String>),
    };
    const std::vector<Action> bars = {
        moveTo("go.nextBar", Text::tr("Next b&ar"), "Ctrl+Right", next<CursorStep::Bar>),
        moveTo("go.previousBar", Text::tr("Previous ba&r"), "Ctrl+Left", previous<CursorStep::Bar>),
        moveTo("go.barStart", Text::tr("&Begin of the bar"), "Home", toBarStart),
        moveTo("go.barEnd", Text::tr("&End of the bar"), "End", toBarEnd),
        moveTo("go.start", Text::tr("&First bar"), "Ctrl+Home", toStart),
        moveTo("go.end", Text::tr("&Last bar"), "Ctrl+End", toEnd),
    };
    const Action otherKind{QStringLiteral("go.otherKind"),
                           Text::tr("Notation or tablat&ure"),
                           {QKeySequence(QStringLiteral("Ctrl+Tab"))},
                           [](const ActionContext &context) { context.view.goToOtherKind(); },
                           hasPlace,
                           KeyScope::Score};
    const std::vector<Action> staves = {
        otherKind,
        moveTo("go.nextStaff", Text::tr("Next &staff"), "Ctrl+Alt+Down", next<CursorStep::Staff>),
        moveTo("go.previousStaff", Text::tr("Previous s&taff"), "Ctrl+Alt+Up",
               previous<CursorStep::Staff>),
        moveTo("go.nextTrack", Text::tr("Next trac&k"), "Ctrl+Down; PgDown",
               next<CursorStep::Track>),
        moveTo("go.previousTrack", Text::tr("Previous tra&ck"), "Ctrl+Up; PgUp",
               previous<CursorStep::Track>),
    };
    const std::vector<Action> extending = {
        moveTo("select.nextBeat", Text::tr("To the next beat"), "Shift+Right",
               next<CursorStep::Beat>, true),
        moveTo("select.previousBeat", Text::tr("To the previous beat"), "Shift+Left",
               previous<CursorStep::Beat>, true),
        moveTo("select.nextBar", Text::tr("To the next bar"), "Ctrl+Shift+Right",
               next<CursorStep::Bar>, true),
        moveTo("select.previousBar", Text::tr("To the previous bar"), "Ctrl+Shift+Left",
               previous<CursorStep::Bar>, true),
        moveTo("select.start", Text::tr("To the first bar"), "Ctrl+Shift+Home", toStart, true),
        moveTo("select.end", Text::tr("To the last bar"), "Ctrl+Shift+End", toEnd, true),
    };
    return {{titles(Menu::Move), beats},
            {titles(Menu::Move), bars},
            {titles(Menu::Move), staves},
            {titles(Menu::Move, Text::tr("&Voice")), voices()},
            {titles(Menu::Edit, Text::tr("&Extend the selection")), extending}};
}

} // namespace zarn::editor
