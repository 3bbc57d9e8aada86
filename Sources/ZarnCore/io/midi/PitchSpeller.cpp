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

/// What a step of the line of fifths between two notes costs, near and far.
constexpr double perFifthOfNeighbour = 0.12;
constexpr double perFifthOfKey = 0.6;

/// Leading on by a semitone on the same letter, or by more than an augmented step.
constexpr double chromaticStep = 3;

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

class Speller {
public:
    explicit Speller(PlayedNotes &notes) : _notes(notes)
    {
        _classes.reserve(notes.size());
        for (const PlayedNote &note : notes)
            _classes.push_back(static_cast<std::int8_t>(note.key % keysPerOctave));
        _fifths.assign(notes.size(), 0);
    }

    void spellByKey(std::size_t index, const KeyChange &key)
    {
        // Seven of the key, then the usual ones: three sharps and two flats.
        constexpr int flats = 2;
        int fifth = fifthFrom(_notes[index].key, firstOfKey(key) - flats);
        if (key.isMinor && isOfMinor(key, fifth + keysPerOctave))
            fifth += keysPerOctave;
        choose(index, fifth);
    }

    void spellByContext(std::size_t index, const KeyChange &key)
    {
        const PlayedNote &note = _notes[index];
        const int own = fifthFrom(note.key, firstOfKey(key));
        if (own <= firstOfKey(key) + 6)
            return;
        const int flat = own - keysPerOctave;
        const PlayedNote *const next = nextOfVoice(index);
        // Fifths to all that sound around it, for both.
        int ofOwn = 0;
        int ofFlat = 0;
        const std::size_t end = std::min(_notes.size(), index + context + 1);
        for (std::size_t i = index < context ? 0 : index - context; i < end; ++i) {
            const int counts = _classes[i] != _classes[index] ? 1 : 0;
            ofOwn += counts * std::abs(own - _fifths[i]);
            ofFlat += counts * std::abs(flat - _fifths[i]);
        }
        const double costOfOwn = perFifthOfNeighbour * ofOwn + costOf(note, own, next, key);
        const double costOfFlat = perFifthOfNeighbour * ofFlat + costOf(note, flat, next, key);
        choose(index, costOfOwn <= costOfFlat ? own : flat);
    }

private:
    void choose(std::size_t index, int fifth)
    {
        _notes[index].fifth = _fifths[index] = static_cast<std::int8_t>(fifth);
    }

    static double costOf(const PlayedNote &note, int fifth, const PlayedNote *next,
                         const KeyChange &key)
    {
        if (fifth < lowestFifth || fifth > highestFifth)
            return 1e9;
        const int middle = firstOfKey(key) + 3;
        double cost = perFifthOfKey * std::abs(fifth - middle);
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

    // By note, close together for those who look around.
    std::vector<std::int8_t> _classes; ///< keys within an octave
    std::vector<std::int8_t> _fifths;
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
    for (int pass = 0; pass < 2; ++pass)
        forEach([&](std::size_t i, const KeyChange &key) { speller.spellByContext(i, key); });
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
