// SPDX-License-Identifier: MIT
#include <ZarnCore/chords/ZarnHandModel.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>
#include <numeric>

namespace zarn::chord {

namespace {

constexpr int fingerCount = HandModel::fingerCount;

/// Highest fret, relative to nut or capo, of what is held in first position.
constexpr int lastFretOfFirstPosition = 4;

/// How much of the hand's reach lies between two fingers, by the lower and the higher one.
constexpr float reachShares[fingerCount + 1][fingerCount + 1] = {
    {},
    {0, 0, .75F, .95F, 1},
    {0, 0, 0, .7F, .8F},
    {0, 0, 0, 0, .7F},
};

constexpr int farthestFret = 48;

/// Distance of each fret from the nut in string lengths: twelve equal semitones.
constexpr std::array<float, farthestFret + 1> fretPlaces()
{
    constexpr double semitone = 1.0594630943592953; // the twelfth root of 2
    std::array<float, farthestFret + 1> places{};
    double left = 1; // from the fret to the bridge
    for (std::size_t fret = 0; fret < places.size(); ++fret, left /= semitone)
        places[fret] = static_cast<float>(1 - left);
    return places;
}

constexpr auto placeOfFret = fretPlaces();

float placeOf(int fret) noexcept
{
    return placeOfFret[static_cast<std::size_t>(std::clamp(fret, 0, farthestFret))];
}

struct Stop {
    std::int8_t string;
    std::int8_t fret;
};

/// A finger, and the stops that it holds.
struct Press {
    int finger;
    int fret;
    int firstString;
    int lastString;
};

/// Tries all fingers for the stops of a row, from the lowest fret up. `Found` is called with every
/// complete shape, and answers the cost that a shape must not reach from then on.
template <typename Found>
class FingerSearch {
public:
    FingerSearch(const HandProfile &profile, const FretRow &frets, int capo,
                 const FingerRow &wanted, Found found)
        : _profile(profile), _frets(frets), _wanted(wanted), _found(found)
    {
        int highest = 0;
        for (std::size_t string = 0; string < frets.size(); ++string) {
            const auto fret = frets[string];
            _hasOpen = _hasOpen || fret == FretRow::open;
            if (fret <= FretRow::open)
                continue;
            _stops[_stopCount++] = {static_cast<std::int8_t>(string), fret};
            highest = std::max<int>(highest, fret);
        }
        // Few and mostly in order.
        std::stable_sort(_stops.begin(), _stops.begin() + _stopCount,
                         [](Stop left, Stop right) { return left.fret < right.fret; });
        _capo = capo;
        _isFirstPosition = _hasOpen && highest - capo <= lastFretOfFirstPosition;
    }

    void run()
    {
        HandShape shape;
        place(0, 0, shape);
    }

private:
    void place(int stop, int pressCount, const HandShape &before)
    {
        if (stop == _stopCount) {
            HandShape shape = before;
            if (pressCount > 0)
                shape.position = positionOf(_presses[0]);
            _limit = _found(shape);
            return;
        }
        const int firstFinger = pressCount == 0 ? 1 : _presses[pressCount - 1].finger + 1;
        for (int finger = firstFinger; finger <= fingerCount; ++finger) {
            const Stop &first = _stops[stop];
            Press press{finger, first.fret, first.string, first.string};
            HandShape shape = before;
            for (int next = stop; next < _stopCount && extend(press, next, stop, shape); ++next) {
                if (!isInReach(press, pressCount))
                    break;
                HandShape pressed = shape;
                addPress(press, next - stop + 1, pressCount, pressed);
                if (pressed.cost >= _limit)
                    continue;
                _presses[pressCount] = press;
                place(next + 1, pressCount + 1, pressed);
            }
        }
    }

    /// Lets a finger hold one more stop; false when it cannot.
    bool extend(Press &press, int next, int first, HandShape &shape) const
    {
        const Stop &stop = _stops[next];
        const auto string = static_cast<std::size_t>(stop.string);
        if (stop.fret != press.fret || (_wanted[string] != 0 && _wanted[string] != press.finger))
            return false;
        if (next > first) {
            for (int between = press.lastString + 1; between < stop.string; ++between) {
                const auto fret = _frets[static_cast<std::size_t>(between)];
                if (fret != FretRow::notPlayed && fret < press.fret)
                    return false;
            }
            const int strings = stop.string - press.firstString + 1;
            if (strings
                > (press.finger == 1 ? _profile.barredStrings : HandModel::stringsOfOtherBarre))
                return false;
        }
        press.lastString = stop.string;
        shape.fingers[string] = static_cast<std::uint8_t>(press.finger);
        return true;
    }

    bool isInReach(const Press &press, int pressCount) const
    {
        for (int i = 0; i < pressCount; ++i) {
            const Press &other = _presses[i];
            if (press.fret - other.fret > _profile.mostFrets
                || (placeOf(press.fret) - placeOf(other.fret)) * _profile.stringLength
                    > _profile.reach * reachShares[other.finger][press.finger])
                return false;
        }
        return true;
    }

    void add(HandShape &shape, HandReason reason, float amount) const
    {
        shape.amounts[static_cast<std::size_t>(reason)] += amount;
        shape.cost += amount * _profile.weight(reason);
    }

    void addPress(const Press &press, int stringCount, int pressCount, HandShape &shape) const
    {
        add(shape, HandReason::Finger, 1);
        if (press.finger == fingerCount)
            add(shape, HandReason::LittleFinger, 1);
        if (stringCount > 1)
            addBarre(press, shape);
        if (_isFirstPosition)
            add(shape, HandReason::OffNumber,
                static_cast<float>(std::abs(press.fret - _capo - press.finger)));
        if (pressCount == 0) {
            if (press.finger > 1)
                add(shape, HandReason::NoIndexFinger, 1);
            return;
        }
        const Press &other = _presses[pressCount - 1];
        const int fingers = press.finger - other.finger;
        const float beyond = static_cast<float>(press.fret - other.fret)
            - _profile.spacing * static_cast<float>(fingers);
        const auto squeeze =
            static_cast<HandReason>(static_cast<int>(HandReason::SqueezeFirst) + other.finger - 1);
        add(shape, beyond > 0 ? HandReason::Stretch : squeeze, std::abs(beyond));
        add(shape, HandReason::SkippedFinger, static_cast<float>(fingers - 1));
        if (press.fret == other.fret)
            add(shape, HandReason::Spread,
                static_cast<float>(press.firstString - other.lastString - 1));
    }

    void addBarre(const Press &press, HandShape &shape) const
    {
        int muted = 0;
        int stopped = 0;
        for (int string = press.firstString; string <= press.lastString; ++string) {
            const auto fret = _frets[static_cast<std::size_t>(string)];
            muted += fret == FretRow::notPlayed ? 1 : 0;
            stopped += fret > press.fret ? 1 : 0;
        }
        const auto beyondTwo =
            static_cast<float>(std::max(0, press.lastString - press.firstString - 1));
        add(shape, press.finger == 1 ? HandReason::Barre : HandReason::OtherBarre, 1);
        add(shape, HandReason::BarreWidth, beyondTwo);
        if (_hasOpen)
            add(shape, HandReason::BarreUnderOpen, 1);
        add(shape, HandReason::BarreOverMuted, static_cast<float>(muted));
        add(shape, HandReason::BarreOverStopped, static_cast<float>(stopped));
    }

    std::int8_t positionOf(const Press &lowest) const
    {
        const auto below = std::lround(_profile.spacing * static_cast<float>(lowest.finger - 1));
        return static_cast<std::int8_t>(std::max<long>(_capo + 1, lowest.fret - below));
    }

    const HandProfile &_profile;
    const FretRow &_frets;
    const FingerRow &_wanted;
    Found _found;
    std::array<Stop, FretRow::mostStrings> _stops{};
    int _stopCount = 0;
    std::array<Press, fingerCount> _presses{};
    int _capo = 0;
    bool _hasOpen = false;
    bool _isFirstPosition = false;
    float _limit = std::numeric_limits<float>::infinity();
};

} // namespace

bool HandShape::hasBarre() const noexcept
{
    return amount(HandReason::Barre) + amount(HandReason::OtherBarre) > 0;
}

bool HandModel::reaches(int lowestFret, int highestFret) const noexcept
{
    return highestFret - lowestFret <= _profile->mostFrets
        && (placeOf(highestFret) - placeOf(lowestFret)) * _profile->stringLength <= _profile->reach;
}

std::optional<HandShape> HandModel::bestShape(const FretRow &frets, int capo,
                                              const FingerRow &wanted) const noexcept
{
    std::optional<HandShape> best;
    const auto keep = [&best](const HandShape &shape) {
        best = shape; // only cheaper ones are found from here on
        return shape.cost;
    };
    FingerSearch<decltype(keep)>(*_profile, frets, capo, wanted, keep).run();
    return best;
}

std::vector<HandShape> HandModel::shapes(const FretRow &frets, int capo,
                                         const FingerRow &wanted) const
{
    std::vector<HandShape> all;
    findShapes(frets, capo, wanted, all);
    std::stable_sort(all.begin(), all.end(), [](const HandShape &left, const HandShape &right) {
        return left.cost < right.cost;
    });
    return all;
}

void HandModel::findShapes(const FretRow &frets, int capo, const FingerRow &wanted,
                           std::vector<HandShape> &found) const
{
    found.clear();
    const auto keep = [&found](const HandShape &shape) {
        found.push_back(shape);
        return std::numeric_limits<float>::infinity();
    };
    FingerSearch<decltype(keep)>(*_profile, frets, capo, wanted, keep).run();
}

} // namespace zarn::chord
