// SPDX-License-Identifier: MIT
#include "LayoutLaw.h"

#include "RandomEditor.h"

#include <ZarnCore/score/ZarnScore.h>
#include <ZarnLayout/session/ZarnLayoutSession.h>

#include <algorithm>
#include <chrono>
#include <set>

using namespace zarn;
using namespace zarn::layout;

namespace {

std::string placeOf(std::size_t page, std::size_t system)
{
    return "page " + std::to_string(page + 1) + ", system " + std::to_string(system + 1);
}

std::string textOf(const DrawMark &mark)
{
    return std::string(markKindText(mark.kind)) + " of track " + std::to_string(mark.place.track)
        + ", bar " + std::to_string(mark.place.bar) + ", beat " + std::to_string(mark.place.beat)
        + " at " + std::to_string(mark.at.x) + ", " + std::to_string(mark.at.y);
}

std::string differenceOfMarks(const DrawList &expected, const DrawList &found)
{
    const auto &a = expected.marks();
    const auto &b = found.marks();
    for (std::size_t i = 0; i < std::min(a.size(), b.size()); ++i)
        if (a[i] != b[i])
            return textOf(b[i]) + " instead of " + textOf(a[i]);
    if (a.size() != b.size())
        return std::to_string(b.size()) + " marks instead of " + std::to_string(a.size());
    return expected == found ? std::string() : "points or letters";
}

using Drawings = std::set<const SystemDrawing *>;

Drawings drawingsOf(const Layout &layout)
{
    Drawings drawings;
    for (const LayoutPage &page : layout.pages())
        for (const PlacedSystem &system : page.systems)
            drawings.insert(system.drawing.get());
    return drawings;
}

/// Finds a system of a page that another one has not at the same place, outside of all boxes.
std::string unnamed(const Layout &layout, std::size_t page, const LayoutPage &other,
                    const std::vector<PlacedBox> &named)
{
    const auto &systems = layout.pages()[page].systems;
    for (std::size_t i = 0; i < systems.size(); ++i) {
        const PlacedSystem &system = systems[i];
        const Box box = system.drawing->marks.box(layout.font()).movedBy(system.at);
        const bool isThere =
            std::any_of(other.systems.begin(), other.systems.end(), [&](const PlacedSystem &found) {
                return found.at == system.at && *found.drawing == *system.drawing;
            });
        const bool isNamed = std::any_of(named.begin(), named.end(), [&](const PlacedBox &around) {
            return around.page == page && around.box.left <= box.left && around.box.top <= box.top
                && around.box.right >= box.right && around.box.bottom >= box.bottom;
        });
        if (!isThere && !isNamed)
            return placeOf(page, i) + " changed, and nobody was told";
    }
    return {};
}

std::string unnamedChange(const Layout &before, const LayoutUpdate &update)
{
    const Layout &after = *update.layout;
    std::string fault;
    for (std::size_t i = 0; i < std::min(before.pages().size(), after.pages().size()); ++i) {
        // At another scale nothing of the sheets before is left to be painted over.
        if (fault.empty() && before.staffSpace() == after.staffSpace())
            fault = unnamed(before, i, after.pages()[i], update.changed);
        if (fault.empty())
            fault = unnamed(after, i, before.pages()[i], update.changed);
    }
    return fault;
}

/// One session of a score that is edited at random.
class Run {
public:
    Run(const LayoutLaw &law, LayoutLaw::Result &result)
        : _law(law), _result(result), _session(_score, law.options)
    {
        *_score.scoreModel() = law.model;
    }

    void go()
    {
        RandomEditor editor(_score, _law.seed, 2 * _law.edits + 64);
        compare(_session.update());
        for (unsigned step = 0; editor.tally().edits < _law.edits && _result.fault.empty();
             ++step) {
            editor.step();
            // Now and then several steps come to one layout, or a job lays out what was before.
            if (step % 11 == 5)
                continue;
            if (step % 7 == 3)
                compareJob(editor);
            else
                compare(_session.update());
            if (!_result.fault.empty())
                _result.fault += " (step " + std::to_string(step) + ": " + editor.lastStep() + ")";
            _result.edits = editor.tally().edits;
        }
    }

private:
    void compareJob(RandomEditor &editor)
    {
        while (!_session.read(std::chrono::microseconds(50)))
            continue;
        const auto job = _session.startJob();
        const auto expected = layOut(*_score.scoreModel(), _law.options);
        editor.step();
        job->run();
        compare(*expected, _session.finishJob(*job));
        if (_result.fault.empty())
            compare(_session.update());
    }

    void compare(const LayoutUpdate &update)
    {
        compare(*layOut(*_score.scoreModel(), _law.options), update);
        if (_result.fault.empty() && _session.isOutdated())
            _result.fault = "the session is outdated behind its update";
    }

    void compare(const Layout &expected, const LayoutUpdate &update)
    {
        ++_result.layouts;
        _result.fault = differenceOf(expected, *update.layout);
        if (_result.fault.empty() && _before)
            _result.fault = unnamedChange(*_before, update);
        const Drawings drawings = drawingsOf(*update.layout);
        _result.systems += drawings.size();
        if (_before) {
            const Drawings before = drawingsOf(*_before);
            _result.keptSystems += static_cast<std::size_t>(
                std::count_if(drawings.begin(), drawings.end(), [&](const SystemDrawing *drawing) {
                    return before.count(drawing) > 0;
                }));
        }
        _before = update.layout;
    }

    const LayoutLaw &_law;
    LayoutLaw::Result &_result;
    Score _score;
    LayoutSession _session;
    std::shared_ptr<const Layout> _before;
};

} // namespace

std::string differenceOf(const Layout &expected, const Layout &found)
{
    if (expected == found)
        return {};
    if (expected.pages().size() != found.pages().size())
        return std::to_string(found.pages().size()) + " pages instead of "
            + std::to_string(expected.pages().size());
    for (std::size_t i = 0; i < found.pages().size(); ++i) {
        const LayoutPage &a = expected.pages()[i];
        const LayoutPage &b = found.pages()[i];
        if (a.systems.size() != b.systems.size())
            return "page " + std::to_string(i + 1) + ": " + std::to_string(b.systems.size())
                + " systems instead of " + std::to_string(a.systems.size());
        for (std::size_t k = 0; k < b.systems.size(); ++k) {
            const SystemDrawing &drawn = *b.systems[k].drawing;
            const std::string marks = differenceOfMarks(a.systems[k].drawing->marks, drawn.marks);
            if (!marks.empty())
                return placeOf(i, k) + ": " + marks;
            if (!(*a.systems[k].drawing == drawn))
                return placeOf(i, k) + ": frames";
            if (a.systems[k].at != b.systems[k].at)
                return placeOf(i, k) + " stands elsewhere";
        }
        if (a.marks != b.marks && a.marks && b.marks) {
            const std::string marks = differenceOfMarks(*a.marks, *b.marks);
            if (!marks.empty())
                return "texts of page " + std::to_string(i + 1) + ": " + marks;
        }
    }
    if (!(expected.problems() == found.problems()))
        return "other problems: " + std::to_string(found.problems().size()) + " instead of "
            + std::to_string(expected.problems().size());
    return "sheets or title";
}

LayoutLaw::Result LayoutLaw::run() const
{
    Result result;
    Run(*this, result).go();
    return result;
}
