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

/// The spellings along the line of fifths, as notes keep them.
constexpr std::array<std::uint8_t, spelling::spellingCount> spellingNumbers() noexcept
{
    // F C G D A E B by their steps above C.
    constexpr std::array<int, spelling::letterCount> letters = {3, 0, 4, 1, 5, 2, 6};
    std::array<std::uint8_t, spelling::spellingCount> numbers = {};
    for (std::size_t place = 0; place < numbers.size(); ++place) {
        const auto accidental = static_cast<int>(place / letters.size());
        numbers[place] = static_cast<std::uint8_t>(
            letters[place % letters.size()] * spelling::accidentalCount + accidental);
    }
    return numbers;
}

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

/// Notes around a place, which come in and go out one by one: how much farther they are, in fifths,
/// from each spelling of a key than from the one twelve fifths below.
class Neighbourhood {
public:
    void add(int fifth) noexcept { ++_counts[placeOf(fifth)]; }
    void remove(int fifth) noexcept { --_counts[placeOf(fifth)]; }

    /// Of all notes but those of the same key.
    int farther(int fifth) const noexcept;

private:
    static constexpr std::size_t size = highestFifth - lowestFifth + 1;
    static constexpr std::size_t rowSize = (size + 7) / 8 * 8; ///< whole vectors of a processor
    using Row = std::array<std::int16_t, rowSize>;

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

    /// By fifth, for each note.
    static constexpr std::array<Row, size> allRows() noexcept
    {
        std::array<Row, size> rows = {};
        for (int fifth = lowestFifth; fifth <= highestFifth; ++fifth)
            for (int note = lowestFifth; note <= highestFifth; ++note)
                if ((fifth - note) % keysPerOctave != 0)
                    rows[placeOf(fifth)][placeOf(note)] =
                        static_cast<std::int16_t>(difference(fifth, note));
        return rows;
    }

    Row _counts = {};
};

int Neighbourhood::farther(int fifth) const noexcept
{
    static constexpr std::array<Row, size> rows = allRows();
    const Row &row = rows[placeOf(fifth)];
    int sum = 0;
    for (std::size_t i = 0; i < rowSize; ++i)
        sum += _counts[i] * row[i];
    return sum;
}

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

    /// For one note after the other; answers whether the note is spelled anew.
    bool spellByContext(std::size_t index, const KeyChange &key)
    {
        if (index + context < _notes.size())
            _around.add(_notes[index + context].fifth);
        if (index > context)
            _around.remove(_notes[index - context - 1].fifth);
        const PlayedNote &note = _notes[index];
        const int own = fifthFrom(note.key, firstOfKey(key));
        if (own <= firstOfKey(key) + 6)
            return false;
        const int flat = own - keysPerOctave;
        const PlayedNote *const next = nextOfVoice(index);
        const int cost = perFifthOfNeighbour * _around.farther(own) + costOf(note, own, next, key)
            - costOf(note, flat, next, key);
        const int fifth = cost <= 0 ? own : flat;
        if (fifth == note.fifth)
            return false;
        _around.remove(note.fifth);
        _around.add(fifth);
        choose(index, fifth);
        return true;
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
    // Another time for what was heard with the old spellings of others.
    bool isChanged = true;
    for (int pass = 0; pass < 2 && isChanged; ++pass) {
        isChanged = false;
        speller.listenFromStart();
        forEach([&](std::size_t i, const KeyChange &key) {
            isChanged = speller.spellByContext(i, key) || isChanged;
        });
    }
}

std::uint8_t spellingNumberOfFifth(int fifth) noexcept
{
    static constexpr auto numbers = spellingNumbers();
    return numbers[static_cast<std::size_t>(std::clamp(fifth, lowestFifth, highestFifth)
                                            - lowestFifth)];
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
