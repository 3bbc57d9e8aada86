// SPDX-License-Identifier: MIT
// Delivering an event: against a Qt signal with direct connections, and against a plain loop over a
// vector of functions.
#include "RatioReport.h"

#include <ZarnCore/events/ZarnBarEvents.h>
#include <ZarnCore/score/ZarnScore.h>

#include <QObject>

#include <functional>
#include <memory>
#include <vector>

namespace {

class Emitter : public QObject {
    Q_OBJECT
public:
    void send(int index, int count) { Q_EMIT barsAdded(index, count); }

Q_SIGNALS:
    void barsAdded(int index, int count);
};

class Receiver : public QObject {
    Q_OBJECT
public:
    void take(int index, int count) { sum += index + count; }
    long sum = 0;
};

struct Listener {
    long sum = 0;
};

void qtSignal(benchmark::State &state, int listeners)
{
    Emitter emitter;
    std::vector<std::unique_ptr<Receiver>> receivers;
    for (int i = 0; i < listeners; ++i) {
        receivers.push_back(std::make_unique<Receiver>());
        QObject::connect(&emitter, &Emitter::barsAdded, receivers.back().get(), &Receiver::take,
                         Qt::DirectConnection);
    }
    int index = 0;
    for (auto _ : state)
        emitter.send(++index, 2);
    for (const auto &receiver : receivers)
        benchmark::DoNotOptimize(receiver->sum);
}

void functionLoop(benchmark::State &state, int listeners)
{
    std::vector<Listener> objects(static_cast<std::size_t>(listeners));
    std::vector<std::function<void(const zarn::evt::AddBars &)>> functions;
    for (Listener &object : objects) {
        functions.emplace_back([&object](const zarn::evt::AddBars &event) {
            object.sum += event.index() + event.count();
        });
    }
    int index = 0;
    for (auto _ : state) {
        const zarn::evt::AddBars event(++index, 2);
        for (const auto &function : functions)
            function(event);
    }
    benchmark::DoNotOptimize(objects.data());
}

void scoreEvent(benchmark::State &state, int listeners)
{
    zarn::Score score;
    std::vector<Listener> objects(static_cast<std::size_t>(listeners));
    for (Listener &object : objects) {
        score.connect<zarn::evt::AddBars>(&object, [&object](const zarn::evt::AddBars &event) {
            object.sum += event.index() + event.count();
        });
    }
    int index = 0;
    for (auto _ : state)
        score.notify(&state, zarn::evt::AddBars(++index, 2));
    benchmark::DoNotOptimize(objects.data());
}

} // namespace

int main(int argc, char **argv)
{
    using namespace std::placeholders;
    bench::RatioReport report;
    report.compare("nobody listening / Qt", 0.4, std::bind(qtSignal, _1, 0),
                   std::bind(scoreEvent, _1, 0));
    report.compare("one listener / Qt", 0.2, std::bind(qtSignal, _1, 1),
                   std::bind(scoreEvent, _1, 1));
    report.compare("eight listeners / Qt", 0.2, std::bind(qtSignal, _1, 8),
                   std::bind(scoreEvent, _1, 8));
    report.compare("eight listeners / loop of functions", 1.5, std::bind(functionLoop, _1, 8),
                   std::bind(scoreEvent, _1, 8));
    return report.run(argc, argv);
}

#include "EventsBenchmark.moc"
