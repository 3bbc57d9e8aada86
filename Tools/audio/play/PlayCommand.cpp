// SPDX-License-Identifier: MIT
#include "audio/play/PlayCommand.h"

#include "audio/SoundOptions.h"
#include "audio/play/Keys.h"
#include "common/BarRange.h"
#include "common/Documents.h"
#include "common/Failure.h"
#include "common/Interrupt.h"
#include "common/Problems.h"
#include "common/Terminal.h"

#include <ZarnAudio/ZarnPlayer.h>
#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/playback/ZarnPlaybackPlan.h>

#include <algorithm>
#include <cmath>
#include <iomanip>
#include <iostream>
#include <sstream>

namespace zarn::tool {

namespace {

using Halvec::audio::Player;

constexpr int pollMilliseconds = 30;
constexpr double mostSpeed = 2;
constexpr double leastSpeed = 0.25;

QString option(const char *name)
{
    return QString::fromLatin1(name);
}

/// "75" or "75%" of the tempo.
double speedOf(const Arguments &arguments)
{
    if (!arguments.has(option("speed")))
        return 1;
    QString text = arguments.value(option("speed"));
    if (text.endsWith(QLatin1Char('%')))
        text.chop(1);
    bool isNumber = false;
    const double percent = text.toDouble(&isNumber);
    if (!isNumber || !(percent >= 100 * leastSpeed && percent <= 100 * mostSpeed))
        throw UsageError{QStringLiteral("--speed: \"%1\" is no percentage from 25 to 200")
                             .arg(arguments.value(option("speed")))};
    return percent / 100;
}

std::string clockText(double seconds)
{
    const auto whole = static_cast<int>(std::max(0.0, seconds));
    std::ostringstream text;
    text << whole / 60 << ':' << std::setw(2) << std::setfill('0') << whole % 60;
    return text.str();
}

/// One line of the terminal that says where the music is.
class PlaceLine {
public:
    PlaceLine(const Player &player, const ScoreModel &model, const Terminal &terminal)
        : _player(player), _barCount(model.masterTrack()->masterBarCount()),
          _isShown(terminal.showsProgress()), _width(static_cast<std::size_t>(terminal.width()))
    {
    }
    ~PlaceLine() { clear(); }
    PlaceLine(const PlaceLine &) = delete;
    PlaceLine &operator=(const PlaceLine &) = delete;

    void clear()
    {
        if (_isShown)
            std::cerr << "\r\x1b[K" << std::flush;
        _drawn.clear();
    }

    void draw()
    {
        if (!_isShown)
            return;
        std::string line = text();
        line.resize(std::min(line.size(), _width - 1));
        if (line == _drawn)
            return;
        std::cerr << '\r' << line << "\x1b[K" << std::flush;
        _drawn = line;
    }

private:
    std::string text() const
    {
        const auto place = _player.place();
        if (!place)
            return "There is nothing to play.";
        const auto plan = _player.plan();
        const double second = _player.second();
        const double speed = _player.speed();
        std::ostringstream line;
        line << (_player.state() == Player::State::Stopped ? "Paused " : "Playing") << "  bar "
             << place->bar + 1 << " of " << _barCount;
        if (const unsigned pass = plan->bars().bars()[place->playedBar].pass; pass > 0)
            line << " (time " << pass + 1 << ')';
        line << ", beat " << static_cast<int>(place->offset.toDouble()) + 1 << "   "
             << clockText(second / speed) << " / "
             << clockText(plan->tempo().secondsAt(plan->end()) / speed) << "   tempo "
             << std::lround(plan->tempo().tempoAt(plan->tempo().quartersAt(second)) * speed);
        if (speed != 1)
            line << " (" << std::lround(100 * speed) << " %)";
        if (_player.state() == Player::State::CountingIn)
            line << "   counting in";
        if (const unsigned late = _player.lateBlocks(); late > 0)
            line << "   " << counted(late, "gap");
        return line.str();
    }

    const Player &_player;
    unsigned _barCount;
    bool _isShown;
    std::size_t _width;
    std::string _drawn;
};

/// Goes by a bar of the plan.
void step(Player &player, int bars)
{
    const auto place = player.place();
    if (!place)
        return;
    const auto plan = player.plan();
    const auto &played = plan->bars().bars();
    auto bar = static_cast<std::ptrdiff_t>(place->playedBar) + bars;
    // Back from the middle of a bar is to its beginning.
    if (bars < 0 && place->offset > utils::rational(1))
        ++bar;
    bar = std::clamp<std::ptrdiff_t>(bar, 0, static_cast<std::ptrdiff_t>(played.size()) - 1);
    player.seekSecond(plan->tempo().secondsAt(played[static_cast<std::size_t>(bar)].start));
}

/// False when the key ends it all.
bool obey(Player &player, Keys::Key key)
{
    constexpr double speedStep = 0.05;
    switch (key) {
    case Keys::Key::Space:
        if (player.state() == Player::State::Stopped)
            player.play();
        else
            player.pause();
        return true;
    case Keys::Key::Left:
        step(player, -1);
        return true;
    case Keys::Key::Right:
        step(player, 1);
        return true;
    case Keys::Key::Home:
        player.seekSecond(0);
        return true;
    case Keys::Key::Slower:
        player.setSpeed(std::max(leastSpeed, player.speed() - speedStep));
        return true;
    case Keys::Key::Faster:
        player.setSpeed(std::min(mostSpeed, player.speed() + speedStep));
        return true;
    case Keys::Key::Metronome:
        player.setMetronome(!player.hasMetronome());
        return true;
    case Keys::Key::Quit:
        return false;
    case Keys::Key::None:
        return true;
    }
    return true;
}

/// "; there are A, B": what a user could have named.
std::string deviceList()
{
    std::string list;
    for (const std::string &name : Halvec::audio::outputDevices())
        list += (list.empty() ? "; there are \"" : ", \"") + name + '"';
    return list;
}

int runPlay(const Arguments &arguments, const Terminal &terminal)
{
    const double speed = speedOf(arguments);
    const auto gain = gainOption(arguments);
    const int countIn = arguments.number(option("count-in"), 0, 4, 0);
    const OpenedDocument document = openDocument(arguments.operand(0), terminal);
    const ScoreModel &model = *document.model;
    const playback::PlanOptions plan = soundPlanOptions(arguments, model);

    Player::Settings settings;
    settings.font = arguments.value(option("font")).toStdString();
    settings.device = arguments.value(option("device")).toStdString();
    settings.hasReverb = !arguments.has(option("no-reverb"));
    settings.folder = folderOf(document.path);
    loadBanksFor(model);
    Player player(settings);
    player.setScore(model, plan);
    player.setSpeed(speed);
    player.setMetronome(arguments.has(option("metronome")));
    player.setCountIn(countIn);
    if (gain)
        player.setGain(*gain);
    if (arguments.has(option("loop")) && model.masterTrack()->masterBarCount() > 0)
        player.setLoop(plan.bars ? plan.bars->first : 0,
                       plan.bars ? plan.bars->second : model.masterTrack()->masterBarCount() - 1);
    std::string error;
    if (!player.open(&error)) {
        if (!settings.device.empty())
            error += deviceList();
        throw Failure(error);
    }
    warnOfProblems(document);

    bool isDone = false;
    std::string failure;
    player.setFinishedCallback([&isDone] { isDone = true; });
    player.setFailedCallback([&failure](const std::string &reason) { failure = reason; });
    std::vector<std::string> problems;
    const Interrupt interrupt;
    {
        Keys keys;
        PlaceLine line(player, model, terminal);
        player.play();
        while (!isDone && failure.empty() && !Interrupt::isAsked()) {
            if (!obey(player, keys.next(pollMilliseconds)))
                break;
            player.poll();
            if (player.problems() != problems) {
                problems = player.problems();
                line.clear();
                for (const auto &problem : problems)
                    warn(problem);
            }
            line.draw();
        }
    }
    player.close();
    if (!failure.empty())
        throw Failure(failure);
    return Done;
}

} // namespace

Subcommand playCommand()
{
    return {
        QStringLiteral("play"),
        QStringLiteral("FILE"),
        1,
        1,
        QStringLiteral("Plays a score, by a General MIDI sound font."),
        QStringLiteral(
            "On a terminal a line says where the music is, and keys are heard: the space bar\n"
            "stops and goes on, the arrows go by a bar, Home to the beginning, - and + change\n"
            "the speed, m switches the metronome, q ends. Ctrl-C ends at any time. The font is\n"
            "the one of --font, else of the variable ZARN_SOUNDFONT, else the first that\n"
            "\"zarn catalog fonts\" lists."),
        {{option("bars"), QStringLiteral("b"), QStringLiteral("A-B"),
          QStringLiteral("Play bars A to B, or one bar, alone.")},
         {option("loop"), QStringLiteral("l"), QString(),
          QStringLiteral("Play them, or all of it, again and again.")},
         {option("speed"), QStringLiteral("s"), QStringLiteral("PERCENT"),
          QStringLiteral("Of the tempo, 25 to 200; the pitch stays.")},
         {option("metronome"), QStringLiteral("m"), QString(),
          QStringLiteral("Let the metronome click along.")},
         {option("count-in"), QStringLiteral("c"), QStringLiteral("BARS"),
          QStringLiteral("Count so many bars first, 1 to 4.")},
         trackOption(),
         muteOption(),
         soloOption(),
         {option("gain"), QStringLiteral("g"), QStringLiteral("DB"),
          QStringLiteral("Louder by so many decibels, 6 unless given.")},
         noReverbOption(),
         fontOption(),
         {option("device"), QStringLiteral("d"), QStringLiteral("NAME"),
          QStringLiteral("The sound device; the system's choice unless given.")}},
        runPlay,
    };
}

} // namespace zarn::tool
