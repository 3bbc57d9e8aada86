// SPDX-License-Identifier: MIT
#include <ZarnCore/io/midi/PitchSpeller.h>

#include <algorithm>
#include <array>
#include <cstdlib>

namespace zarn::io {

namespace {

// The line of fifths that double accidentals reach: F double flat to B double sharp.
constexpr int lowestFifth = -15;
constexpr int highestFifth = 19;

/// Notes on either side that are listened to.
constexpr std::size_t context = 12;

// Costs. What a step of the line of fifths between two notes costs, near and far.
constexpr int perFifthOfNeighbour = 6;
constexpr int perFifthOfKey = 30;

/// Leading on by a semitone on the same letter, or by more than an augmented step.
constexpr int chromaticStep = 150;

constexpr int keysPerOctave = 12;

/// The fifth of a key among the twelve from `first` on.
int fifthFrom(int key, int first)
{
    const int fifth = key * 7;
    return first + ((fifth - first) % keysPerOctave + keysPerOctave) % keysPerOctave;
}

/// The key's own seven fifths are first to first + 6.
int firstOfKey(const KeyChange &key)
{
    return key.fifths - 1;
}

/// What the mode adds: the raised sixth and seventh of minor.
bool isOfMinor(const KeyChange &key, int fifth)
{
    const int tonic = key.fifths + 3;
    return key.isMinor && (fifth == tonic + 5 || fifth == tonic + 3);
}

/// Notes around a place: how much farther they are, in fifths, from each spelling of a key than
/// from the one twelve fifths below. Notes come in and go out one by one.
class Neighbourhood {
public:
    void add(int fifth) noexcept { change(fifth, 1); }
    void remove(int fifth) noexcept { change(fifth, -1); }

    /// Of all notes but those of the same key.
    int farther(int fifth) const noexcept
    {
        int sum = _sums[placeOf(fifth)];
        for (int same = fifth % keysPerOctave - 2 * keysPerOctave; same <= highestFifth;
             same += keysPerOctave)
            if (same >= lowestFifth)
                sum -= _counts[placeOf(same)] * difference(fifth, same);
        return sum;
    }

private:
    static constexpr std::size_t size = highestFifth - lowestFifth + 1;
    using Row = std::array<std::int16_t, size>;

    static constexpr std::size_t placeOf(int fifth) noexcept
    {
        return static_cast<std::size_t>(fifth - lowestFifth);
    }

    /// How much farther a note is from a fifth than from the one twelve below.
    static constexpr int difference(int fifth, int note) noexcept
    {
        const int toOwn = note > fifth ? note - fifth : fifth - note;
        const int flat = fifth - keysPerOctave;
        return toOwn - (note > flat ? note - flat : flat - note);
    }

    static constexpr std::array<Row, size> allRows() noexcept
    {
        std::array<Row, size> rows = {};
        for (std::size_t note = 0; note < size; ++note)
            for (std::size_t fifth = 0; fifth < size; ++fifth)
                rows[note][fifth] = static_cast<std::int16_t>(difference(
                    static_cast<int>(fifth) + lowestFifth, static_cast<int>(note) + lowestFifth));
        return rows;
    }

    void change(int fifth, int by) noexcept
    {
        static constexpr std::array<Row, size> rows = allRows();
        const Row &row = rows[placeOf(fifth)];
        for (std::size_t i = 0; i < size; ++i)
            _sums[i] = static_cast<std::int16_t>(_sums[i] + by * row[i]);
        _counts[placeOf(fifth)] += by;
    }

    Row _sums = {};
    std::array<int, size> _counts = {};
};

class Speller {
public:
    explicit Speller(PlayedNotes &notes) : _notes(notes) { }

    void spellByKey(std::size_t index, const KeyChange &key)
    {
        // Seven of the key, then the usual ones: three sharps and two flats.
        constexpr int flats = 2;
        int fifth = fifthFrom(_notes[index].key, firstOfKey(key) - flats);
        if (key.isMinor && isOfMinor(key, fifth + keysPerOctave))
            fifth += keysPerOctave;
        choose(index, fifth);
    }

    /// Begins to go through all notes again.
    void listenFromStart()
    {
        _around = {};
        for (std::size_t i = 0; i < std::min(context, _notes.size()); ++i)
            _around.add(_notes[i].fifth);
    }

    /// For one note after the other.
    void spellByContext(std::size_t index, const KeyChange &key)
    {
        if (index + context < _notes.size())
            _around.add(_notes[index + context].fifth);
        if (index > context)
            _around.remove(_notes[index - context - 1].fifth);
        const PlayedNote &note = _notes[index];
        const int own = fifthFrom(note.key, firstOfKey(key));
        if (own <= firstOfKey(key) + 6)
            return;
        const int flat = own - keysPerOctave;
        const PlayedNote *const next = nextOfVoice(index);
        const int cost = perFifthOfNeighbour * _around.farther(own) + costOf(note, own, next, key)
            - costOf(note, flat, next, key);
        const int fifth = cost <= 0 ? own : flat;
        if (fifth == note.fifth)
            return;
        _around.remove(note.fifth);
        _around.add(fifth);
        choose(index, fifth);
    }

private:
    void choose(std::size_t index, int fifth)
    {
        _notes[index].fifth = static_cast<std::int8_t>(fifth);
    }

    static int costOf(const PlayedNote &note, int fifth, const PlayedNote *next,
                      const KeyChange &key)
    {
        constexpr int never = 1'000'000;
        if (fifth < lowestFifth || fifth > highestFifth)
            return never;
        const int middle = firstOfKey(key) + 3;
        int cost = perFifthOfKey * std::abs(fifth - middle);
        if (isOfMinor(key, fifth))
            cost -= 2 * perFifthOfKey;
        if (next != nullptr) {
            const int semitones = std::abs(next->key - note.key);
            // A step of a semitone has five fifths, the alteration of a letter seven.
            if (semitones == 1 && std::abs(next->fifth - fifth) == 7)
                cost += chromaticStep;
            if (semitones == 2 && std::abs(next->fifth - fifth) > 2)
                cost += chromaticStep / 2;
        }
        return cost;
    }

    const PlayedNote *nextOfVoice(std::size_t index) const
    {
        const PlayedNote &note = _notes[index];
        const std::size_t end = std::min(_notes.size(), index + 2 * context);
        const PlayedNote *nearest = nullptr;
        for (std::size_t i = index + 1; i < end; ++i) {
            const PlayedNote &next = _notes[i];
            if (next.start <= note.start || next.voice != note.voice)
                continue;
            if (nearest != nullptr && next.start > nearest->start)
                break;
            if (nearest == nullptr
                || std::abs(next.key - note.key) < std::abs(nearest->key - note.key))
                nearest = &next;
        }
        return nearest;
    }

    PlayedNotes &_notes;
    Neighbourhood _around;
};

} // namespace

void spell(PlayedNotes &notes, const std::vector<KeyChange> &keys)
{
    Speller speller(notes);
    const auto forEach = [&](auto act) {
        KeyChange key;
        auto next = keys.begin();
        for (std::size_t i = 0; i < notes.size(); ++i) {
            for (; next != keys.end() && next->time <= notes[i].start; ++next)
                key = *next;
            act(i, key);
        }
    };
    forEach([&](std::size_t i, const KeyChange &key) { speller.spellByKey(i, key); });
    for (int pass = 0; pass < 2; ++pass) {
        speller.listenFromStart();
        forEach([&](std::size_t i, const KeyChange &key) { speller.spellByContext(i, key); });
    }
}

PitchClass spellingOfFifth(int fifth) noexcept
{
    // F C G D A E B by their steps above C.
    constexpr std::array<int, 7> letters = {3, 0, 4, 1, 5, 2, 6};
    const int place = std::clamp(fifth, lowestFifth, highestFifth) - lowestFifth;
    return PitchClass(static_cast<NoteName::Value>(letters[static_cast<std::size_t>(place % 7)]),
                      static_cast<NoteAccidental::Value>(place / 7));
}

int fifthOf(const PitchClass &spelling) noexcept
{
    constexpr std::array<int, 7> fifths = {0, 2, 4, -1, 1, 3, 5}; // of C D E F G A B
    constexpr int fifthsOfSharp = 7;
    return fifths[static_cast<std::size_t>(spelling.note().value())]
        + fifthsOfSharp * spelling.alterationSemitones();
}

int fifthsOfTransposition(int offset) noexcept
{
    const int fifths = ((-7 * offset) % keysPerOctave + keysPerOctave) % keysPerOctave;
    return fifths > keysPerOctave / 2 ? fifths - keysPerOctave : fifths;
}

} // namespace zarn::io
