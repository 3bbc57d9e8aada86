// SPDX-License-Identifier: MIT
#include "editor/RandomUser.h"

#include "actions/ActionSet.h"
#include "actions/ActionTable.h"

#include <ZarnCore/model/ZarnModelCheck.h>
#include <ZarnCore/model/ZarnScoreModel.h>

namespace test {

using namespace zarn;
using namespace zarn::editor;

namespace {

/// What asks nobody and leaves the window alone.
const std::vector<const Action *> &unattended()
{
    static const std::vector<const Action *> all = [] {
        std::vector<const Action *> list;
        for (const ActionGroup &group : actionTable())
            for (const Action &action : group.actions)
                if (!action.isAsking)
                    list.push_back(&action);
        return list;
    }();
    return all;
}

const char *const keys[] = {
    "0",         "1",      "2",      "3",          "5",         "7",           "Right",
    "Right",     "Right",  "Left",   "Up",         "Down",      "C",           "E",
    "G",         "+",      "-",      ".",          "/",         "L",           "R",
    "Del",       "H",      "S",      "Ctrl+Right", "Ctrl+Left", "Shift+Right", "Shift+Left",
    "Ctrl+C",    "Ctrl+V", "Ctrl+X", "Esc",        "Ctrl+Z",    "Ctrl+Z",      "Ctrl+Shift+Z",
    "Backspace", "Ins",    "PgDown"};

} // namespace

RandomUser::RandomUser(EditorDriver &driver, unsigned seed)
    : _driver(driver), _random(seed), _start(driver.text())
{
}

bool RandomUser::hasGrownTooLarge() const
{
    constexpr unsigned most = 200;
    const Voice *const voice = _driver.document().cursor().findVoice();
    return _driver.model().masterTrack()->masterBarCount() > most
        || (voice != nullptr && voice->beatCount() > most);
}

std::string RandomUser::act()
{
    // Who copies all and pastes it again and again has a score that no machine holds.
    if (hasGrownTooLarge()) {
        _driver.document().undo();
        _driver.settle();
        return "undo";
    }
    if (_random.percent(45))
        return press();
    return _random.percent(35) ? click() : chooseFromMenus();
}

std::string RandomUser::press()
{
    const char *const key = keys[_random.below(static_cast<unsigned>(std::size(keys)))];
    _driver.type(QLatin1String(key));
    return std::string("key ") + key;
}

std::string RandomUser::click()
{
    QWidget *const view = _driver.view().viewport();
    const QPoint at(static_cast<int>(_random.below(static_cast<unsigned>(view->width()))),
                    static_cast<int>(_random.below(static_cast<unsigned>(view->height()))));
    const auto modifier = _random.percent(30) ? Qt::ShiftModifier : Qt::NoModifier;
    if (_random.percent(5))
        QTest::mouseDClick(view, Qt::LeftButton, modifier, at);
    else
        QTest::mouseClick(view, Qt::LeftButton, modifier, at);
    _driver.settle();
    return "click at " + std::to_string(at.x()) + "," + std::to_string(at.y());
}

std::string RandomUser::chooseFromMenus()
{
    const Action &action = *unattended()[_random.below(static_cast<unsigned>(unattended().size()))];
    _driver.trigger(action.id);
    return "action " + action.id.toStdString();
}

std::string RandomUser::checkPicture()
{
    _driver.settle();
    const auto &shown = _driver.view().layouts();
    layout::LayoutOptions options = shown.options();
    const unsigned count = _driver.model().trackCount();
    options.tracks.erase(std::remove_if(options.tracks.begin(), options.tracks.end(),
                                        [count](unsigned track) { return track >= count; }),
                         options.tracks.end());
    if (*shown.layout() != *layout::layOut(_driver.model(), options))
        return "the picture is stale";
    const auto faults = checkModel(_driver.model());
    return faults.empty() ? std::string() : "the score is broken: " + faults.front();
}

std::string RandomUser::checkUndo()
{
    const std::string end = _driver.text();
    unsigned steps = 0;
    for (; _driver.document().canUndo(); ++steps)
        _driver.document().undo();
    if (_driver.text() != _start)
        return "undo does not lead back to the start";
    for (; steps > 0; --steps)
        _driver.document().redo();
    return _driver.text() == end ? std::string() : "redo does not lead to the same score again";
}

} // namespace test
