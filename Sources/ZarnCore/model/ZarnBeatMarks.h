// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnTypes.h>
#include <ZarnCore/model/ZarnPackedField.h>
#include <ZarnCore/model/ZarnPackedMarks.h>
#include <ZarnCore/music/ZarnNoteDynamic.h>

#include <type_traits>

namespace zarn {

/// The attributes that the marks of a beat hold: a getter and a setter each, for the marks by
/// themselves and for a beat. A setter given what is outside the range of its attribute raises.
/// None takes another attribute off; see `setAttribute` for that.
template <class Self>
class BeatMarkAccessors {
    using DynamicBits = PackedField<NoteDynamic::Value, 0, 5, 16>;
    using GraceBits = PackedField<GraceType, DynamicBits::end, 2, 2>;
    using SlashedGraceBits = PackedFlag<GraceBits::end>;
    using OttaviaBits = PackedField<Ottavia, SlashedGraceBits::end, 3, 4, Ottavia::None>;
    using PlaceHolderBits = PackedFlag<OttaviaBits::end>;
    using WholeBarRestBits = PackedFlag<PlaceHolderBits::end>;
    using HairpinBits = PackedField<Hairpin, WholeBarRestBits::end, 2, 3>;
    using HairpinBeginsBits = PackedFlag<HairpinBits::end>;
    using FaddingBits = PackedField<Fadding, HairpinBeginsBits::end, 2, 3>;
    using PickStrokeBits = PackedField<Direction, FaddingBits::end, 2, 2>;
    using BrushBits = PackedField<Direction, PickStrokeBits::end, 2, 2>;
    using ArpeggioBits = PackedField<Direction, BrushBits::end, 2, 2>;
    using RasgueadoBits = PackedField<RasgueadoType, ArpeggioBits::end, 5, 19>;
    using BassAttackBits = PackedField<BassAttack, RasgueadoBits::end, 2, 2>;
    using BarVibratoBits = PackedField<Vibrato, BassAttackBits::end, 2, 2, Vibrato::None>;
    using WahBits = PackedField<WahWah, BarVibratoBits::end, 2, 2, WahWah::None>;
    using GolpeBits = PackedField<ZarnGolpeType, WahBits::end, 2, 2, ZarnGolpeType::None>;
    using DeadSlappedBits = PackedFlag<GolpeBits::end>;
    using SlashedBits = PackedFlag<DeadSlappedBits::end>;
    using TremoloBits = PackedField<unsigned, SlashedBits::end, 3, 4>;
    using TimerBits = PackedFlag<TremoloBits::end>;
    using StemBits =
        PackedField<ZarnStemOrientation, TimerBits::end, 2, 3, ZarnStemOrientation::Undefined>;
    using BeamBits = PackedField<BeamMode, StemBits::end, 2, 2>;
    using SlurToNextBits = PackedFlag<BeamBits::end>;
    using SlurToPreviousBits = PackedFlag<SlurToNextBits::end>;
    using SlurBeginsBits = PackedFlag<SlurToPreviousBits::end>;
    using PedalBits = PackedField<PedalChange, SlurBeginsBits::end, 2, 3>;
    using BreathBits = PackedField<BreathSign, PedalBits::end, 2, 2>;
    using AttackBits = PackedField<AttackDynamic, BreathBits::end, 4, 10>;
    using TremoloToNextBits = PackedField<unsigned, AttackBits::end, 3, 4>;
    using NonArpeggioBits = PackedFlag<TremoloToNextBits::end>;
    using CueBits = PackedFlag<NonArpeggioBits::end>;

public:
    /// How loud from here on; none is as before.
    NoteDynamic dynamic() const noexcept { return get<DynamicBits>(); }
    void setDynamic(const NoteDynamic &dynamic) { set<DynamicBits>(dynamic.value()); }

    GraceType graceType() const noexcept { return get<GraceBits>(); }
    void setGraceType(GraceType type) { set<GraceBits>(type); }
    bool isGrace() const noexcept { return graceType() != GraceType::None; }

    /// A grace beat that is drawn with a stroke through the stem.
    bool isSlashedGrace() const noexcept { return get<SlashedGraceBits>(); }
    void setSlashedGrace(bool slashed) { set<SlashedGraceBits>(slashed); }

    /// Changes what is drawn, not what the notes are.
    Ottavia ottavia() const noexcept { return get<OttaviaBits>(); }
    void setOttavia(Ottavia ottavia) { set<OttaviaBits>(ottavia); }

    // Marks that mean something on a beat without notes alone.

    bool hasPlaceHolderMark() const noexcept { return get<PlaceHolderBits>(); }
    void setPlaceHolder(bool placeHolder) { set<PlaceHolderBits>(placeHolder); }
    bool hasWholeBarRestMark() const noexcept { return get<WholeBarRestBits>(); }
    void setWholeBarRest(bool wholeBar) { set<WholeBarRestBits>(wholeBar); }

    /// One hairpin is a run of beats with the same kind; a swell lies on one beat.
    Hairpin hairpin() const noexcept { return get<HairpinBits>(); }
    void setHairpin(Hairpin hairpin) { set<HairpinBits>(hairpin); }

    /// Parts a hairpin from one of the same kind that ends at the beat before.
    bool beginsHairpin() const noexcept { return get<HairpinBeginsBits>(); }
    void setHairpinBegins(bool begins) { set<HairpinBeginsBits>(begins); }

    Fadding fadding() const noexcept { return get<FaddingBits>(); }
    void setFadding(Fadding fadding) { set<FaddingBits>(fadding); }

    Direction pickStroke() const noexcept { return get<PickStrokeBits>(); }
    void setPickStroke(Direction direction) { set<PickStrokeBits>(direction); }

    /// Down is the way of the hand: the lowest string first.
    Direction brushDirection() const noexcept { return get<BrushBits>(); }
    void setBrushDirection(Direction direction) { set<BrushBits>(direction); }

    /// Up is the way of the pitches: the lowest note first.
    Direction arpeggioDirection() const noexcept { return get<ArpeggioBits>(); }
    void setArpeggioDirection(Direction direction) { set<ArpeggioBits>(direction); }

    RasgueadoType rasgueado() const noexcept { return get<RasgueadoBits>(); }
    void setRasgueado(RasgueadoType type) { set<RasgueadoBits>(type); }

    BassAttack bassAttack() const noexcept { return get<BassAttackBits>(); }
    void setBassAttack(BassAttack attack) { set<BassAttackBits>(attack); }

    /// A vibrato with the whammy bar.
    Vibrato barVibrato() const noexcept { return get<BarVibratoBits>(); }
    void setBarVibrato(Vibrato vibrato) { set<BarVibratoBits>(vibrato); }

    /// The pedal from here on.
    WahWah wah() const noexcept { return get<WahBits>(); }
    void setWah(WahWah wah) { set<WahBits>(wah); }

    ZarnGolpeType golpe() const noexcept { return get<GolpeBits>(); }
    void setGolpe(ZarnGolpeType type) { set<GolpeBits>(type); }

    /// All strings are slapped dead: a beat that sounds without notes.
    bool isDeadSlapped() const noexcept { return get<DeadSlappedBits>(); }
    void setDeadSlapped(bool slapped) { set<DeadSlappedBits>(slapped); }

    /// A rhythm slash is drawn in place of the heads.
    bool isSlashed() const noexcept { return get<SlashedBits>(); }
    void setSlashed(bool slashed) { set<SlashedBits>(slashed); }

    /// How fast the beat is repeated: 1 for eighths to 4 for 64ths, 0 for no tremolo.
    unsigned tremolo() const noexcept { return get<TremoloBits>(); }
    void setTremolo(unsigned speed) { set<TremoloBits>(speed); }

    /// Shows the playing time at the beat.
    bool hasTimer() const noexcept { return get<TimerBits>(); }
    void setTimer(bool timer) { set<TimerBits>(timer); }

    ZarnStemOrientation stemOrientation() const noexcept { return get<StemBits>(); }
    void setStemOrientation(ZarnStemOrientation orientation) { set<StemBits>(orientation); }

    /// To the next beat.
    BeamMode beamMode() const noexcept { return get<BeamBits>(); }
    void setBeamMode(BeamMode mode) { set<BeamBits>(mode); }

    // The outermost slur of the voice: both sides of a joint that it crosses say so.

    bool isSlurredToNext() const noexcept { return get<SlurToNextBits>(); }
    void setSlurredToNext(bool slurred) { set<SlurToNextBits>(slurred); }
    bool isSlurredToPrevious() const noexcept { return get<SlurToPreviousBits>(); }
    void setSlurredToPrevious(bool slurred) { set<SlurToPreviousBits>(slurred); }

    /// Parts a slur from one that ends at the same beat.
    bool beginsSlur() const noexcept { return get<SlurBeginsBits>(); }
    void setSlurBegins(bool begins) { set<SlurBeginsBits>(begins); }

    PedalChange pedal() const noexcept { return get<PedalBits>(); }
    void setPedal(PedalChange change) { set<PedalBits>(change); }

    /// Behind the beat.
    BreathSign breath() const noexcept { return get<BreathBits>(); }
    void setBreath(BreathSign sign) { set<BreathBits>(sign); }

    AttackDynamic attackDynamic() const noexcept { return get<AttackBits>(); }
    void setAttackDynamic(AttackDynamic dynamic) { set<AttackBits>(dynamic); }

    /// Strokes of a tremolo between this beat and the next, of the same value; 0 for none.
    unsigned tremoloToNext() const noexcept { return get<TremoloToNextBits>(); }
    void setTremoloToNext(unsigned strokes) { set<TremoloToNextBits>(strokes); }

    /// A bracket in front of the chord: struck at once.
    bool isNonArpeggio() const noexcept { return get<NonArpeggioBits>(); }
    void setNonArpeggio(bool nonArpeggio) { set<NonArpeggioBits>(nonArpeggio); }

    /// Small notes that show what others play; unheard.
    bool isCue() const noexcept { return get<CueBits>(); }
    void setCue(bool cue) { set<CueBits>(cue); }

protected:
    BeatMarkAccessors() = default;
    ~BeatMarkAccessors() = default;

    /// What has to do with the length of the beat.
    static constexpr std::uint64_t lengthMask = GraceBits::mask | WholeBarRestBits::mask;
    /// What leads on to other beats and is marked at its ends alone.
    static constexpr std::uint64_t spanMask = PedalBits::mask;
    static constexpr std::uint64_t emptyBeatMask = PlaceHolderBits::mask | WholeBarRestBits::mask;

    /// What scores have had from the start.
    static constexpr std::uint64_t commonMask = (std::uint64_t(1) << WholeBarRestBits::end) - 1;

private:
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

/// How a beat is marked, beside what is rare (`BeatDetails`): a value of eight bytes.
class BeatMarks final : public PackedMarks<BeatMarks, BeatMarkAccessors> {
public:
    constexpr BeatMarks() noexcept = default;

private:
    friend class Beat;

    constexpr explicit BeatMarks(std::uint64_t marks) noexcept : PackedMarks(marks) { }
};
static_assert(sizeof(BeatMarks) == 8 && std::is_trivially_copyable_v<BeatMarks>);

} // namespace zarn
