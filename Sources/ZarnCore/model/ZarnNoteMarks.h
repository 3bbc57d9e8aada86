// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnTypes.h>
#include <ZarnCore/model/ZarnPackedField.h>
#include <ZarnCore/model/ZarnPackedMarks.h>
#include <ZarnCore/model/attributes/ZarnAccentFlags.h>
#include <ZarnCore/model/attributes/ZarnHarmonic.h>
#include <ZarnCore/model/attributes/ZarnTrill.h>

#include <type_traits>

namespace zarn {

/// The attributes that the marks of a note hold: a getter and a setter each, for the marks by
/// themselves and for a note. A setter given what is outside the range of its attribute raises.
/// None takes another attribute off; see `setAttribute` for that.
template <class Self>
class NoteMarkAccessors {
    using TiedBits = PackedFlag<0>;
    using TieOriginBits = PackedFlag<TiedBits::end>;
    using DeadBits = PackedFlag<TieOriginBits::end>;
    using AccentBits = PackedField<unsigned, DeadBits::end, 6, AccentFlags::AllBits>;
    using AntiAccentBits = PackedField<AntiAccent, AccentBits::end, 2, 3>;
    using VelocityBits = PackedField<unsigned, AntiAccentBits::end, 7, 127>;
    using LetRingBits = PackedFlag<VelocityBits::end>;
    using PalmMuteBits = PackedFlag<LetRingBits::end>;
    using HopoBits = PackedFlag<PalmMuteBits::end>;
    using LeftTapBits = PackedFlag<HopoBits::end>;
    using RightTapBits = PackedFlag<LeftTapBits::end>;
    using SlideInBits = PackedField<SlideIn, RightTapBits::end, 2, 2>;
    using SlideOutBits = PackedField<SlideOut, SlideInBits::end, 3, 6>;
    using VibratoBits = PackedField<Vibrato, SlideOutBits::end, 2, 2, Vibrato::None>;
    using TrillBits = PackedField<unsigned, VibratoBits::end, 4, Trill::WidestInterval>;
    using TrillSpeedBits = PackedField<unsigned, TrillBits::end, 2, 2, 1>;
    using OrnamentBits = PackedField<Ornament, TrillSpeedBits::end, 3, 4>;
    using HarmonicBits = PackedField<HarmonicType, OrnamentBits::end, 3, 6>;
    using PartialBits = PackedField<unsigned, HarmonicBits::end, 4, Harmonic::HighestPartial>;
    using LeftFingerBits = PackedField<Fingering, PartialBits::end, 3, 6>;
    using RightFingerBits = PackedField<Fingering, LeftFingerBits::end, 3, 6>;
    using ShowStringBits = PackedFlag<RightFingerBits::end>;
    using AccidentalBits = PackedField<AccidentalDisplay, ShowStringBits::end, 3, 4>;
    using HiddenBits = PackedFlag<AccidentalBits::end>;

public:
    /// True when the note sounds on from the note before it in its voice.
    bool isTied() const noexcept { return get<TiedBits>(); }
    void setTied(bool tied) { set<TiedBits>(tied); }

    /// True when the note is held into the next one of its voice.
    bool isTieOrigin() const noexcept { return get<TieOriginBits>(); }
    void setTieOrigin(bool origin) { set<TieOriginBits>(origin); }

    /// Struck on muted strings: an x in place of a pitch.
    bool isDead() const noexcept { return get<DeadBits>(); }
    void setDead(bool dead) { set<DeadBits>(dead); }

    AccentFlags accents() const noexcept { return AccentFlags(get<AccentBits>()); }
    void setAccents(AccentFlags accents)
    {
        if (!accents.isValid())
            raiseOutOfRange();
        set<AccentBits>(accents.bits());
    }

    /// How much softer a ghost note is than the others.
    AntiAccent antiAccent() const noexcept { return get<AntiAccentBits>(); }
    void setAntiAccent(AntiAccent accent) { set<AntiAccentBits>(accent); }
    bool isGhost() const noexcept { return antiAccent() != AntiAccent::None; }
    void setGhost(bool ghost) { setAntiAccent(ghost ? AntiAccent::Normal : AntiAccent::None); }

    /// Loudness by itself, 1 to 127; 0 leaves it to the dynamic.
    unsigned velocity() const noexcept { return get<VelocityBits>(); }
    void setVelocity(unsigned velocity) { set<VelocityBits>(velocity); }

    bool letsRing() const noexcept { return get<LetRingBits>(); }
    void setLetRing(bool letRing) { set<LetRingBits>(letRing); }

    bool isPalmMuted() const noexcept { return get<PalmMuteBits>(); }
    void setPalmMute(bool palmMute) { set<PalmMuteBits>(palmMute); }

    /// A hammer-on or a pull-off, as the frets are, leads to the next note on the string.
    bool isHopo() const noexcept { return get<HopoBits>(); }
    void setHopo(bool hopo) { set<HopoBits>(hopo); }

    bool isLeftHandTapped() const noexcept { return get<LeftTapBits>(); }
    void setLeftHandTapped(bool tapped) { set<LeftTapBits>(tapped); }
    bool isRightHandTapped() const noexcept { return get<RightTapBits>(); }
    void setRightHandTapped(bool tapped) { set<RightTapBits>(tapped); }

    SlideIn slideIn() const noexcept { return get<SlideInBits>(); }
    void setSlideIn(SlideIn slide) { set<SlideInBits>(slide); }
    SlideOut slideOut() const noexcept { return get<SlideOutBits>(); }
    void setSlideOut(SlideOut slide) { set<SlideOutBits>(slide); }

    /// Of the hand that stops the note.
    Vibrato vibrato() const noexcept { return get<VibratoBits>(); }
    void setVibrato(Vibrato vibrato) { set<VibratoBits>(vibrato); }

    Trill trill() const noexcept
    {
        return {static_cast<std::uint8_t>(get<TrillBits>()),
                static_cast<Trill::Speed>(get<TrillSpeedBits>() + slowestTrill)};
    }
    void setTrill(const Trill &trill)
    {
        if (!trill.isValid())
            raiseOutOfRange();
        set<TrillBits>(trill.interval);
        set<TrillSpeedBits>(static_cast<unsigned>(trill.speed) - slowestTrill);
    }

    Ornament ornament() const noexcept { return get<OrnamentBits>(); }
    void setOrnament(Ornament ornament) { set<OrnamentBits>(ornament); }

    Harmonic harmonic() const noexcept
    {
        return {get<HarmonicBits>(), static_cast<std::uint8_t>(get<PartialBits>())};
    }
    void setHarmonic(const Harmonic &harmonic)
    {
        if (!harmonic.isValid())
            raiseOutOfRange();
        set<HarmonicBits>(harmonic.type);
        set<PartialBits>(harmonic.partial);
    }

    Fingering leftFingering() const noexcept { return get<LeftFingerBits>(); }
    void setLeftFingering(Fingering finger) { set<LeftFingerBits>(finger); }
    Fingering rightFingering() const noexcept { return get<RightFingerBits>(); }
    void setRightFingering(Fingering finger) { set<RightFingerBits>(finger); }

    /// Shows the number of the string in a circle.
    bool showsString() const noexcept { return get<ShowStringBits>(); }
    void setShowString(bool shows) { set<ShowStringBits>(shows); }

    AccidentalDisplay accidentalDisplay() const noexcept { return get<AccidentalBits>(); }
    void setAccidentalDisplay(AccidentalDisplay display) { set<AccidentalBits>(display); }

    /// Sounds, and is not there to be seen. A beat of which all notes are hidden looks like a place
    /// holder.
    bool isHidden() const noexcept { return get<HiddenBits>(); }
    void setHidden(bool hidden) { set<HiddenBits>(hidden); }

protected:
    NoteMarkAccessors() = default;
    ~NoteMarkAccessors() = default;

    /// What scores have had from the start.
    static constexpr std::uint64_t commonMask =
        TiedBits::mask | TieOriginBits::mask | DeadBits::mask | AntiAccentBits::mask;

private:
    static constexpr unsigned slowestTrill = static_cast<unsigned>(Trill::Speed::Sixteenth);

    template <class Field>
    typename Field::Value get() const noexcept
    {
        return Field::get(static_cast<const Self &>(*this)._marks);
    }
    template <class Field>
    void set(typename Field::Value value)
    {
        Self &self = static_cast<Self &>(*this);
        self._marks = Field::set(self._marks, value);
    }
};

/// How a note is marked, beside what is rare (`NoteDetails`): a value of eight bytes.
class NoteMarks final : public PackedMarks<NoteMarks, NoteMarkAccessors> {
public:
    constexpr NoteMarks() noexcept = default;

private:
    friend class Note;

    constexpr explicit NoteMarks(std::uint64_t marks) noexcept : PackedMarks(marks) { }
};
static_assert(sizeof(NoteMarks) == 8 && std::is_trivially_copyable_v<NoteMarks>);

} // namespace zarn
