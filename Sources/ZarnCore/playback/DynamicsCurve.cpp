// SPDX-License-Identifier: MIT
#include <ZarnCore/playback/DynamicsCurve.h>

#include <ZarnCore/playback/PlayingTime.h>

#include <algorithm>
#include <array>
#include <map>
#include <set>
#include <tuple>
#include <utility>

namespace zarn::playback {

namespace {

using Value = NoteDynamic::Value;

/// By the number of the level.
constexpr std::array<int, 17> velocities{80, 1,  3,   5,   8,   16,  33,  49, 64,
                                         80, 96, 112, 126, 127, 127, 127, 127};

/// The level that goes on behind an attack; none where nothing changes.
NoteDynamic levelBehind(AttackDynamic attack) noexcept
{
    switch (attack) {
    case AttackDynamic::Fp:
    case AttackDynamic::Sfp:
        return Value::P;
    case AttackDynamic::Sfpp:
        return Value::PP;
    case AttackDynamic::Pf:
        return Value::F;
    default:
        return Value::None;
    }
}

/// A level, or a hairpin, of one voice.
struct Mark {
    utils::rational time;
    unsigned voice = 0; ///< staff * slots + slot
    NoteDynamic level;
    Hairpin hairpin = Hairpin::NoHairpin; ///< crescendo or decrescendo
    utils::rational end;                  ///< of the hairpin
    bool isParted = false;                ///< from a hairpin that ends where it begins
};

} // namespace

int velocityOf(NoteDynamic dynamic) noexcept
{
    return velocities[static_cast<std::size_t>(dynamic.value())];
}

/// Collects the marks of a track, and makes the curve of each voice of them.
class DynamicsReader {
public:
    void read(const Track &track, const PlayedBars &bars)
    {
        for (const auto &staff : track.staves())
            for (unsigned slot = 0; slot < Bar::MaxVoices; ++slot)
                readVoice(*staff, slot, bars);
        std::stable_sort(_marks.begin(), _marks.end(), [](const Mark &left, const Mark &right) {
            return left.time < right.time;
        });
        joinHairpins();
    }

    DynamicsCurve curveOf(unsigned voice) const
    {
        DynamicsCurve curve;
        double level = velocityOf(Value::None);
        utils::rational busyUntil = -1;
        for (auto mark = _marks.begin(); mark != _marks.end();) {
            const auto end = endOfTime(mark);
            if (const Mark *const own = pick(mark, end, voice, Hairpin::NoHairpin)) {
                level = velocityOf(own->level);
                if (own->time < busyUntil) // a hairpin runs to a dynamic inside of it
                    curve._points.pop_back();
                curve._points.push_back({own->time, level, false});
                busyUntil = own->time;
            }
            if (const Mark *const pin = pick(mark, end, voice, Hairpin::Crescendo);
                pin && pin->time >= busyUntil) {
                curve._points.push_back({pin->time, level, true});
                level = levelBehind(*pin, level, voice);
                curve._points.push_back({pin->end, level, false});
                busyUntil = pin->end;
            }
            mark = end;
        }
        return curve;
    }

private:
    using Marks = std::vector<Mark>;

    void readVoice(const Staff &staff, unsigned slot, const PlayedBars &bars)
    {
        Mark open;
        open.voice = staff.index() * Bar::MaxVoices + slot;
        for (unsigned index = 0; index < staff.barCount(); ++index) {
            const Voice *const voice = staff.bars()[index]->voices()[slot].get();
            if (!voice || voice->isEmpty()) {
                close(open);
                continue;
            }
            utils::rational offset;
            for (const auto &beat : voice->beats()) {
                if (!beat->isCommon() || beat->dynamic() != Value::None)
                    readBeat(*beat, bounded(bars.writtenStart(index) + offset), open);
                else
                    close(open);
                advance(offset, beat->length());
            }
        }
        close(open);
    }

    void readBeat(const Beat &beat, const utils::rational &time, Mark &open)
    {
        Mark mark;
        mark.time = time;
        mark.voice = open.voice;
        mark.level = beat.dynamic();
        if (mark.level == Value::None)
            mark.level = playback::levelBehind(beat.attackDynamic());
        if (mark.level != Value::None)
            _marks.push_back(mark);
        const bool isPin =
            beat.hairpin() == Hairpin::Crescendo || beat.hairpin() == Hairpin::Decrescendo;
        if (beat.hairpin() != open.hairpin || beat.beginsHairpin())
            close(open);
        if (!isPin)
            return;
        if (open.hairpin == Hairpin::NoHairpin) {
            open.hairpin = beat.hairpin();
            open.time = time;
            open.isParted = beat.beginsHairpin();
        }
        open.end = time;
        advance(open.end, beat.length());
    }

    /// A hairpin goes on in another voice of its staff where its own has no beats, unless a dynamic
    /// stands there.
    void joinHairpins()
    {
        std::map<std::tuple<utils::rational, unsigned, Hairpin>, std::size_t> ends;
        std::set<std::pair<utils::rational, unsigned>> levels;
        for (const Mark &mark : _marks)
            if (mark.hairpin == Hairpin::NoHairpin)
                levels.insert({mark.time, mark.voice / Bar::MaxVoices});
        Marks joined;
        for (const Mark &mark : _marks) {
            const unsigned staff = mark.voice / Bar::MaxVoices;
            if (mark.hairpin == Hairpin::NoHairpin) {
                joined.push_back(mark);
                continue;
            }
            const auto before = ends.find({mark.time, staff, mark.hairpin});
            const bool goesOn =
                before != ends.end() && !mark.isParted && levels.count({mark.time, staff}) == 0;
            const std::size_t index = goesOn ? before->second : joined.size();
            if (goesOn)
                joined[index].end = mark.end;
            else
                joined.push_back(mark);
            ends[{mark.end, staff, mark.hairpin}] = index;
        }
        _marks = std::move(joined);
    }

    void close(Mark &open)
    {
        if (open.hairpin != Hairpin::NoHairpin && open.end > open.time)
            _marks.push_back(open);
        open.hairpin = Hairpin::NoHairpin;
    }

    Marks::const_iterator endOfTime(Marks::const_iterator mark) const
    {
        return std::find_if(mark, _marks.end(),
                            [&](const Mark &other) { return other.time != mark->time; });
    }

    /// Of the marks of one time: the voice's own, else one of its staff, else the first.
    static const Mark *pick(Marks::const_iterator first, Marks::const_iterator end, unsigned voice,
                            Hairpin kind)
    {
        const Mark *best = nullptr;
        const auto nearness = [&](const Mark &mark) {
            return mark.voice == voice                                  ? 2
                : mark.voice / Bar::MaxVoices == voice / Bar::MaxVoices ? 1
                                                                        : 0;
        };
        for (; first != end; ++first) {
            const bool isPin = first->hairpin != Hairpin::NoHairpin;
            if (isPin == (kind != Hairpin::NoHairpin)
                && (!best || nearness(*first) > nearness(*best)))
                best = &*first;
        }
        return best;
    }

    double levelBehind(const Mark &pin, double level, unsigned voice) const
    {
        const bool rises = pin.hairpin == Hairpin::Crescendo;
        auto mark =
            std::lower_bound(_marks.begin(), _marks.end(), pin.end,
                             [](const Mark &other, const auto &time) { return other.time < time; });
        for (; mark != _marks.end() && mark->time <= pin.end + 4; mark = endOfTime(mark)) {
            const auto end = endOfTime(mark);
            if (const Mark *const aim = pick(mark, end, voice, Hairpin::NoHairpin)) {
                const double found = velocityOf(aim->level);
                if (rises ? found > level : found < level)
                    return found;
                break;
            }
            if (pick(mark, end, voice, Hairpin::Crescendo))
                break;
        }
        constexpr double loudest = 127;
        const double softest = std::min<double>(level, velocityOf(Value::PPP));
        return rises ? std::min(level + velocityStep, loudest)
                     : std::max(level - velocityStep, softest);
    }

    Marks _marks;
};

std::vector<DynamicsCurve> DynamicsCurve::ofTrack(const Track &track, const PlayedBars &bars)
{
    DynamicsReader reader;
    reader.read(track, bars);
    std::vector<DynamicsCurve> curves;
    for (unsigned voice = 0; voice < track.staffCount() * Bar::MaxVoices; ++voice)
        curves.push_back(reader.curveOf(voice));
    return curves;
}

std::vector<DynamicsCurve> DynamicsCurve::ofPlainTrack(const Track &track)
{
    return std::vector<DynamicsCurve>(track.staffCount() * Bar::MaxVoices);
}

bool DynamicsCurve::hasSlopes() const noexcept
{
    return std::any_of(_points.begin(), _points.end(),
                       [](const Point &point) { return point.isSlope; });
}

double DynamicsCurve::velocityAt(const utils::rational &bar, const utils::rational &offset) const
{
    if (_points.empty())
        return velocityOf(Value::None);
    const utils::rational written = bounded(bar + offset);
    const auto behind =
        std::upper_bound(_points.begin(), _points.end(), written,
                         [](const auto &time, const Point &point) { return time < point.time; });
    if (behind == _points.begin())
        return velocityOf(Value::None);
    const Point &point = behind[-1];
    if (!point.isSlope || behind == _points.end())
        return point.velocity;
    const double share = ((written - point.time) / (behind->time - point.time)).toDouble();
    return point.velocity + (behind->velocity - point.velocity) * share;
}

} // namespace zarn::playback
