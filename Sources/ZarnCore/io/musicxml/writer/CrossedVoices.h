// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/io/musicxml/writer/VoiceRhythm.h>

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

namespace zarn {
class MasterTrack;
}

namespace zarn::io {

class PartPlan;

/// A voice slot of a staff of a part.
struct StaffVoice {
    std::size_t staff = 0;
    unsigned slot = 0;

    friend bool operator==(const StaffVoice &left, const StaffVoice &right)
    {
        return left.staff == right.staff && left.slot == right.slot;
    }
};

/// A beat of a voice that changes staves.
struct CrossedBeat {
    enum class Role : std::uint8_t {
        Alone,
        InChord,   ///< begins and ends with the beat in front of it
        FreeBegin, ///< time that the notes of the other staff fill: what is said where it begins
        FreeEnd,   ///< and where it ends
    };

    const Beat *beat = nullptr;
    utils::rational onset; ///< for a free end, that end
    unsigned index = 0;    ///< in its own voice
    bool isGuest = false;  ///< stands in the other staff
    Role role = Role::Alone;

    bool isFree() const noexcept { return role >= Role::FreeBegin; }
};

/// Those that take time.
std::vector<const Beat *> aloneOf(const std::vector<CrossedBeat> &beats);

/// Finds the voices of a part that change staves. In a score such a voice is one of each staff,
/// each with free time while the other has the notes. Written as one voice, its beams and tuplets
/// stay whole in other programs; it is found only where readers make the same two voices of it.
class CrossedVoices {
public:
    CrossedVoices(const PartPlan &plan, const MasterTrack &master);

    /// The voice of another staff that a voice goes on in; none for most.
    const StaffVoice *guestOf(const StaffVoice &host) const;
    const StaffVoice *hostOf(const StaffVoice &guest) const;

    /// Whether voices of other staves go on in a staff.
    bool hasGuests(std::size_t staff) const;

    bool hasBeats(const StaffVoice &place, unsigned bar) const { return voice(place, bar); }

    /// The beats of both in a bar, in the order in which they are written; none where the guest has
    /// no beats, or where they cannot be one voice.
    std::optional<std::vector<CrossedBeat>> join(const StaffVoice &host, const StaffVoice &guest,
                                                 unsigned bar) const;

private:
    struct Pair {
        StaffVoice host;
        StaffVoice guest;
    };

    bool isCrossing(const StaffVoice &host, const StaffVoice &guest) const;
    const Voice *voice(const StaffVoice &place, unsigned bar) const;
    bool areBeamed(const std::vector<CrossedBeat> &beats, unsigned bar) const;
    bool isFirstAt(const StaffVoice &place, const utils::rational &onset, unsigned bar) const;
    bool comesBack(const std::vector<CrossedBeat> &beats, bool isGuest, const Voice &voice,
                   unsigned bar) const;

    const PartPlan &_plan;
    const MasterTrack &_master;
    std::vector<Pair> _pairs;
};

} // namespace zarn::io
