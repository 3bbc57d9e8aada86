// SPDX-License-Identifier: MIT
#include <ZarnCore/music/ZarnPitchClass.h>

#include <ZarnCore/ZarnAssert.h>

#include <QDebug>
#include <QDomDocument>

#include <algorithm>
#include <array>

namespace zarn {

int PitchClass::alterationSemitones() const
{
    ZARN_ASSERT_IN("zarn::PitchClass::alterationSemitones", _accidental.isValid());
    return _accidental.alteration();
}

int PitchClass::midi(int octave) const
{
    return 12 * octave + _note.naturalSemitone() + alterationSemitones();
}

const std::vector<Interval> &PitchClass::interval(const PitchClass &other) const
{
    return Interval::fromPitchClasses(*this, other);
}

QSet<PitchClass> PitchClass::enharmonics() const
{
    return *this ? fromTone(tone()) : QSet<PitchClass>();
}

QString PitchClass::toString() const
{
    return *this ? _note.toString() + _accidental.toString(true) : QStringLiteral("Invalid");
}

QString PitchClass::symbol() const
{
    return QStringLiteral("%1%2").arg(_note.symbol(), _accidental.symbol());
}

QDomElement PitchClass::toXML(QDomDocument &document) const
{
    QDomElement element = document.createElement(QStringLiteral("PitchClass"));
    element.setAttribute(QStringLiteral("note"), _note.toString());
    element.setAttribute(QStringLiteral("accidental"), _accidental.toString(false));
    return element;
}

PitchClass PitchClass::fromPitch(const core::Pitch &pitch) noexcept
{
    const auto &naturals = spelling::naturalSemitones;
    const auto *const step = std::find(naturals.begin(), naturals.end(), pitch.naturalStep());
    if (step == naturals.end() || pitch.alteration() < -2 || pitch.alteration() > 2)
        return {};
    return PitchClass(static_cast<NoteName::Value>(step - naturals.begin()),
                      static_cast<NoteAccidental::Value>(pitch.alteration() + 2));
}

QSet<PitchClass> PitchClass::fromPitch(int midi)
{
    return fromTone(Tone(midi));
}

QSet<PitchClass> PitchClass::fromTone(Tone tone)
{
    static const auto sets = [] {
        std::array<QSet<PitchClass>, 12> result;
        for (int i = 0; i < spelling::spellingCount; ++i)
            result[static_cast<std::size_t>(spelling::toneOf(i))].insert(fromSpelling(i));
        return result;
    }();
    return sets[static_cast<std::size_t>(tone.value())];
}

PitchClass PitchClass::fromString(const QString &text)
{
    if (text.size() < 2)
        return PitchClass(NoteName::fromString(text));
    return PitchClass(NoteName::fromString(text.left(1)), NoteAccidental::fromString(text.mid(1)));
}

core::Pitch PitchClass::toPitch(const PitchClass &pitchClass, int octave)
{
    return core::Pitch(pitchClass._note.naturalSemitone(), pitchClass.alterationSemitones(),
                       octave);
}

QDebug operator<<(QDebug debug, const PitchClass &pitchClass)
{
    const QDebugStateSaver saver(debug);
    debug.nospace().noquote() << "PitchClass(" << pitchClass.toString() << ')';
    return debug;
}

} // namespace zarn
