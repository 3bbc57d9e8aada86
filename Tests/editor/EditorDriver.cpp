// SPDX-License-Identifier: MIT
#include "editor/EditorDriver.h"

#include "actions/ActionSet.h"
#include "document/Places.h"

#include <ZarnCore/io/ZarnNativeExporter.h>
#include <ZarnCore/model/ZarnScoreModel.h>

#include <QAction>
#include <QSignalSpy>

#include <stdexcept>

namespace test {

using namespace zarn;
using namespace zarn::editor;

EditorDriver::EditorDriver() : _answers(new GivenAnswers)
{
    _editor = std::make_unique<Editor>(std::unique_ptr<Questions>(_answers));
    _window = _editor->showNew();
    begin();
}

EditorDriver::EditorDriver(const QString &path) : _answers(new GivenAnswers)
{
    _editor = std::make_unique<Editor>(std::unique_ptr<Questions>(_answers));
    QObject::connect(_editor.get(), &Editor::opened,
                     [this](MainWindow *window) { _window = window; });
    QSignalSpy idle(_editor.get(), &Editor::idle);
    _editor->open(path);
    constexpr int patience = 60000;
    if (!idle.wait(patience) || _window == nullptr)
        throw std::runtime_error(path.toStdString() + ": was not opened: "
                                 + _answers->details.join(QLatin1Char('\n')).toStdString());
    begin();
}

EditorDriver::~EditorDriver() = default;

void EditorDriver::begin()
{
    _window->activateWindow();
    if (!QTest::qWaitForWindowActive(_window))
        throw std::runtime_error("the window does not become active");
    view().setFocus();
    settle();
}

void EditorDriver::type(const QString &keys)
{
    view().setFocus();
    for (const QString &word : keys.split(QLatin1Char(' '), Qt::SkipEmptyParts)) {
        const QKeySequence key = QKeySequence::fromString(word, QKeySequence::PortableText);
        if (key.isEmpty())
            throw std::runtime_error(word.toStdString() + " is no key");
        QTest::keySequence(&view(), key);
    }
    settle();
}

bool EditorDriver::trigger(const QString &id)
{
    QAction *const action = _window->actions().find(id);
    if (action == nullptr)
        throw std::runtime_error("there is no action " + id.toStdString());
    if (!action->isEnabled())
        return false;
    action->trigger();
    settle();
    return true;
}

void EditorDriver::settle()
{
    constexpr int patience = 60000;
    QCoreApplication::processEvents();
    for (MainWindow *const window : _editor->windows())
        if (!QTest::qWaitFor([window] { return !window->view().layouts().isBusy(); }, patience))
            throw std::runtime_error("a layout does not come to its end");
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

std::string EditorDriver::text()
{
    return io::NativeExporter().toText(model());
}

std::string EditorDriver::bars(unsigned first, unsigned last, unsigned track, unsigned voice)
{
    static const char *const lengths[] = {"L", "D", "w", "h", "q", "e", "s", "t", "x", "y", "z"};
    std::string text;
    const auto staff = model().track(track)->staff(0);
    for (unsigned bar = first; bar <= last; ++bar) {
        text += bar > first ? " | " : "";
        const auto beats = staff->bar(bar)->voice(voice);
        for (unsigned i = 0; beats != nullptr && i < beats->beatCount(); ++i) {
            const auto beat = beats->beat(i);
            text += i > 0 ? " " : "";
            for (unsigned n = 0; n < beat->noteCount(); ++n) {
                const auto note = beat->note(n);
                text += n > 0 ? "+" : "";
                if (note->string() >= 0)
                    text += std::to_string(staff->tuning().stringCount()
                                           - static_cast<unsigned>(note->string()))
                        + "." + std::to_string(note->fret());
                else
                    text += "m" + std::to_string(note->midi());
                text += note->isTied() ? "~" : "";
            }
            const RhythmValue &rhythm = beat->rhythmValue();
            text += beat->hasNotes() ? "" : "r";
            text += lengths[static_cast<int>(rhythm.getNoteValue())];
            text += std::string(rhythm.getAugmentationDot(), '.');
            if (rhythm.hasPrimaryTuplet())
                text += "/" + std::to_string(rhythm.getPrimaryTupletRatio().first);
        }
    }
    return text;
}

QPoint EditorDriver::pointOf(const ScoreModelIndex &place)
{
    const auto box =
        layout::boxOfSpot(*view().layout(), spotOfPlace(place, document().entry().staffKind));
    if (!box)
        throw std::runtime_error("the place is not drawn");
    return view().viewRect(*box).center().toPoint();
}

} // namespace test
