// SPDX-License-Identifier: MIT
#include "editor/RandomUser.h"

#include "actions/ActionSet.h"
#include "actions/ActionTable.h"

#include <ZarnCore/model/ZarnModelCheck.h>
#include <ZarnCore/model/ZarnScoreModel.h>

#include <algorithm>

namespace test {

using namespace zarn;
using namespace zarn::editor;

namespace {

/// What leaves the window alone, and asks no more than forms.
const std::vector<const Action *> &unattended()
{
    static const std::vector<const Action *> all = [] {
        std::vector<const Action *> list;
        for (const ActionGroup &group : actionTable())
            for (const Action &action : group.actions) {
                const QString menu = action.id.section(QLatin1Char('.'), 0, 0);
                const bool isOfScore = QStringList{QStringLiteral("beat"), QStringLiteral("note"),
                                                   QStringLiteral("bar"), QStringLiteral("track"),
                                                   QStringLiteral("score")}
                                           .contains(menu);
                if (!action.isAsking || isOfScore)
                    list.push_back(&action);
            }
        return list;
    }();
    return all;
}

/// Something that a field takes, sensible or not.
QVariant anything(const FormField &field, Random &random)
{
    static const char *const texts[] = {"",      "x",        "2",    "3+2", "0:0 30:4 60:4",
                                        "4 4 3", "la-la la", "true", "-1"};
    const auto below = [&random](double least, double most) {
        const auto count = static_cast<unsigned>(std::min(most - least + 1, 1000.0));
        return least + random.below(std::max(count, 1U));
    };
    switch (field.kind) {
    case FormField::Kind::Text:
    case FormField::Kind::LongText:
        if (random.percent(40))
            return field.value;
        return QLatin1String(texts[random.below(static_cast<unsigned>(std::size(texts)))]);
    case FormField::Kind::Number:
        return static_cast<int>(below(field.least, field.most));
    case FormField::Kind::Decimal:
        return below(field.least, field.most);
    case FormField::Kind::Choice:
        return static_cast<int>(below(0, std::max(field.choices.size() - 1, 0)));
    case FormField::Kind::Switch:
        break;
    }
    return random.percent(50);
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
    _driver.answers().fill = [this](const FormField &field) { return anything(field, _random); };
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
    if (*shown.layout() != *layout::layOut(_driver.model(), shown.shownOptions()))
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
