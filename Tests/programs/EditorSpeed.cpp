// SPDX-License-Identifier: MIT
// How long the editor takes from the start to the first page and to a score that is laid out for
// edits, how long opening a score keeps a window from answering, and how long it takes from a key
// to the repaint. Usage: zarn_editor_speed [--keys N] FILE
#include "editor/EditorDriver.h"
#include "editor/EditorHome.h"

#include <ZarnCore/model/ZarnScoreModel.h>

#include <QCommandLineParser>
#include <QElapsedTimer>

#include <algorithm>
#include <ctime>
#include <iostream>
#include <vector>

namespace {

double milliseconds(const QElapsedTimer &since)
{
    return static_cast<double>(since.nsecsElapsed()) / 1e6;
}

/// What this thread has worked, which other programs do not change as they do the time.
double workedMilliseconds()
{
    timespec now{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) * 1e3 + static_cast<double>(now.tv_nsec) / 1e6;
}

/// Measures how long the event loop does not come round.
class Heartbeat : public QObject {
public:
    Heartbeat()
    {
        _since.start();
        _worked = workedMilliseconds();
        startTimer(0);
    }

    double longest() const noexcept { return _longest; }
    double mostWork() const noexcept { return _mostWork; }

protected:
    void timerEvent(QTimerEvent *) override
    {
        const double worked = workedMilliseconds();
        _longest = std::max(_longest, milliseconds(_since));
        _mostWork = std::max(_mostWork, worked - _worked);
        _since.start();
        _worked = worked;
    }

private:
    QElapsedTimer _since;
    double _worked = 0;
    double _longest = 0;
    double _mostWork = 0;
};

/// Tells when a score is painted for the first time.
class FirstPaint : public QObject {
public:
    explicit FirstPaint(const QElapsedTimer &since) : _since(since)
    {
        QCoreApplication::instance()->installEventFilter(this);
    }

    bool eventFilter(QObject *watched, QEvent *event) override
    {
        const auto *const view = event->type() == QEvent::Paint
            ? qobject_cast<const zarn::views::ScoreCanvas *>(watched->parent())
            : nullptr;
        if (view == nullptr || watched != view->viewport() || view->layout() == nullptr)
            return false;
        QCoreApplication::instance()->removeEventFilter(this);
        QMetaObject::invokeMethod( // behind the paint
            this, [this] { _after = milliseconds(_since); }, Qt::QueuedConnection);
        return false;
    }

    double after() const noexcept { return _after; }

private:
    const QElapsedTimer &_since;
    double _after = 0;
};

/// Lets the event loop run until all layouts of a window are done.
void finish(const zarn::editor::MainWindow &window)
{
    do
        QCoreApplication::processEvents();
    while (window.view().layouts().isBusy());
}

/// Tells the longest time that the window of a new score does not answer while a file is opened
/// beside it, shown and laid out for edits.
void measureOpening(const QString &path)
{
    test::EditorDriver driver;
    zarn::editor::MainWindow *opened = nullptr;
    QObject::connect(&driver.editor(), &zarn::editor::Editor::opened,
                     [&opened](zarn::editor::MainWindow *window) { opened = window; });
    const Heartbeat heartbeat;
    driver.editor().open(path, &driver.window());
    while (driver.editor().isOpening() || opened == nullptr)
        QCoreApplication::processEvents();
    finish(*opened);
    std::cout << "longest block while opening: " << heartbeat.longest() << " ms, of them worked "
              << heartbeat.mostWork() << " ms\n";
}

/// What keys took until what they did was on the screen.
struct Times {
    std::vector<double> passed;
    std::vector<double> worked; ///< by the thread of the window
};

void press(test::EditorDriver &driver, Qt::Key key, Times &times)
{
    QElapsedTimer since;
    since.start();
    const double worked = workedMilliseconds();
    QTest::keyClick(&driver.view(), key);
    finish(driver.window());
    driver.view().viewport()->repaint();
    times.passed.push_back(milliseconds(since));
    times.worked.push_back(workedMilliseconds() - worked);
}

double part(const std::vector<double> &sorted, double share)
{
    return sorted[static_cast<std::size_t>(share * static_cast<double>(sorted.size() - 1))];
}

void print(const char *name, Times &times)
{
    std::cout << name << " to repaint:";
    for (auto *const list : {&times.passed, &times.worked}) {
        std::sort(list->begin(), list->end());
        std::cout << (list == &times.worked ? "; worked: " : " ") << "median " << part(*list, 0.5)
                  << " ms, 99 % " << part(*list, 0.99) << " ms, longest " << list->back() << " ms";
    }
    std::cout << '\n';
}

} // namespace

int main(int argc, char **argv)
{
    QElapsedTimer start;
    start.start();
    test::EditorHome home(argc, argv);
    QCommandLineParser arguments;
    arguments.addOption({QStringLiteral("keys"), QStringLiteral("How many are pressed."),
                         QStringLiteral("N"), QStringLiteral("300")});
    arguments.addPositionalArgument(QStringLiteral("file"), QStringLiteral("A score."));
    arguments.process(home.application());
    const QString path = arguments.positionalArguments().value(0);
    const FirstPaint firstPaint(start);
    test::EditorDriver driver(path); // until all is laid out
    std::cout << "start to first page: " << firstPaint.after() << " ms\n"
              << "start to laid out for edits: " << milliseconds(start) << " ms\n";

    const int count = std::max(arguments.value(QStringLiteral("keys")).toInt(), 1);
    Times digits;
    Times arrows;
    for (int i = 0; i < count; ++i) {
        press(driver, static_cast<Qt::Key>(Qt::Key_2 + i % 8), digits);
        press(driver, Qt::Key_Right, arrows);
    }
    print("fret", digits);
    print("arrow", arrows);
    measureOpening(path);
    return 0;
}
