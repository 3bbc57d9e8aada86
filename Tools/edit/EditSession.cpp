// SPDX-License-Identifier: MIT
#include "edit/EditSession.h"

#include "common/Documents.h"
#include "common/Failure.h"
#include "common/Problems.h"
#include "common/Terminal.h"
#include "edit/EventPrinter.h"

#include <ZarnCore/events/ZarnScoreEvents.h>
#include <ZarnCore/model/ZarnScoreModel.h>

#include <algorithm>
#include <ostream>

namespace zarn::tool {

namespace {

/// Steps that a session can undo.
constexpr std::uint32_t MaximumUndo = 10000;
constexpr std::size_t ShownAround = 30;

/// What stands around a byte of a document, on one line.
std::string excerpt(const std::string &text, std::size_t at)
{
    const std::size_t from = at > ShownAround ? at - ShownAround : 0;
    return printable(text.substr(from, 2 * ShownAround));
}

} // namespace

EditSession::EditSession(const OpenedDocument &document, const std::string &output,
                         const Terminal &terminal, std::ostream &out)
    : _document(document), _output(output), _terminal(terminal), _out(out)
{
    *_score.scoreModel() = *document.model;
    _score.commandStack().setMaximumUndo(MaximumUndo);
    _opened = nativeText(model());
    // Places of a document mean nothing in another one.
    _score.connect<evt::ScoreChanged>(this,
                                      [this](const evt::ScoreChanged &) { _selection.reset(); });
}

EditSession::~EditSession() = default;

Where EditSession::where() const
{
    const ScoreCursor &cursor = _score.scoreCursor();
    if (!cursor.isValid())
        return _where;
    return {static_cast<unsigned>(cursor.index().trackIndex()), cursor.index().staffIndex(),
            cursor.index().voiceIndex()};
}

void EditSession::setWhere(const Where &where)
{
    _where = where;
    ScoreCursor &cursor = _score.scoreCursor();
    if (!cursor.isValid())
        return;
    const auto there = cursor.cloneScoreCursor();
    there->to(CursorStep::Track, static_cast<int>(where.track));
    there->to(CursorStep::Staff, static_cast<int>(where.staff));
    there->to(CursorStep::Voice, static_cast<int>(where.voice));
    cursor.moveToCursor(*there);
}

void EditSession::beginGroup(const QString &name)
{
    _groups.push_back(
        std::make_unique<Transaction>(&_score, name.isEmpty() ? QStringLiteral("Group") : name));
}

void EditSession::commitGroup()
{
    requireGroup();
    _groups.back()->commit();
    _groups.pop_back();
}

void EditSession::abandonGroup()
{
    requireGroup();
    _groups.pop_back();
}

void EditSession::requireGroup() const
{
    if (_groups.empty())
        throw Failure("no group is open; begin opens one");
}

void EditSession::printEvents(EventDetail detail)
{
    _events.reset();
    if (detail != EventDetail::None)
        _events = std::make_unique<EventPrinter>(_score, _out, detail);
}

void EditSession::compare()
{
    const std::string now = nativeText(model());
    if (now == _opened) {
        _out << "The score is what it was when it was opened: " << now.size()
             << " bytes as a native document, all equal.\n";
        return;
    }
    _hasComparedDifferent = true;
    const auto differing = std::mismatch(now.begin(), now.end(), _opened.begin(), _opened.end());
    const auto at = static_cast<std::size_t>(differing.first - now.begin());
    _out << "The score is not what it was when it was opened. As native documents the two differ "
            "from byte "
         << at << " on:\n  then ..." << excerpt(_opened, at) << "...\n  now  ..."
         << excerpt(now, at) << "...\n";
}

std::string EditSession::defaultPath() const
{
    if (!_output.empty())
        return _output;
    const bool holdsAll = isNativeFormat(_document.path) && !isStandardStream(_document.path);
    return holdsAll ? _document.path : std::string();
}

void EditSession::save(const std::string &path)
{
    const std::string to = path.empty() ? defaultPath() : path;
    if (to.empty())
        throw Failure(_document.path.empty()
                          ? "the score has no file yet; name one, such as save song.zarn"
                          : _document.path + ": " + _document.format
                              + " does not hold all of a score; name a file, such as save "
                                "song.zarn");
    warnOfLosses(saveDocument(model(), to, _terminal), to);
    // Pages of text are no place to come back to.
    if (isReadableFormat(to))
        _score.commandStack().setClean();
    else
        _hasExported = true;
    if (!isStandardStream(to))
        _out << "Saved to " << to << ".\n";
}

} // namespace zarn::tool
