// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>
#include <ZarnCore/instruments/sounds/ZarnMIDISound.h>
#include <ZarnCore/instruments/sounds/ZarnOrkaSound.h>

#include <cstdint>
#include <optional>
#include <string>
#include <tuple>

namespace zarn {

/// How a track is played back: one of the sounds that the track can switch between.
class ZARNCORE_EXPORT Sound {
public:
    enum Role : std::int32_t { Factory = 0, User = 1 };

    Sound() = default;
    explicit Sound(std::string name, const MIDISound &midiSound = MIDISound());

    const std::string &name() const noexcept { return _name; }
    void setName(const std::string &name) { _name = name; }

    /// Category path in the sound browser, with "/" between its components: the stored one, or
    /// that of the instrument set of the sampled sound's patch when none is stored; may be empty.
    std::string path() const;
    const std::string &storedPath() const noexcept { return _path; }
    void setPath(const std::string &path) { _path = path; }

    const std::string &label() const noexcept { return _label; }
    void setLabel(const std::string &label) { _label = label; }

    const MIDISound &midiSound() const noexcept { return _midiSound; }
    void setMidiSound(const MIDISound &midiSound) noexcept { _midiSound = midiSound; }

    const OrkaSound &orkaSound() const noexcept { return _orkaSound; }
    OrkaSound &mutableOrkaSound() noexcept { return _orkaSound; }
    void setOrkaSound(const OrkaSound &orkaSound) { _orkaSound = orkaSound; }

    Role role() const noexcept { return _role; }
    void setRole(Role role) noexcept { _role = role; }

    /// Whether the sound's panel is shown open.
    bool isGuiExpanded() const noexcept { return _guiExpanded; }
    void setGuiExpanded(bool expanded) noexcept { _guiExpanded = expanded; }

    /// `path()` and name with "/" between them; the name alone when the path is empty.
    std::string fullName() const;

    /// Same role and same stored path, which is not empty.
    bool isEquivalent(const Sound &other) const noexcept;

    /// All fields in one line, separated by ";": "path;name;role;label;program;msb;lsb;expanded",
    /// and `OrkaSound::toString` behind them when it is not empty. A ";" or "\" inside a text has a
    /// "\" in front.
    std::string toString() const;

    /// Reads what `toString` wrote; empty for anything else.
    static std::optional<Sound> fromString(const std::string &text);

    /// "User" for a value other than 0, "Factory" for 0.
    static std::string roleToString(Role role);
    /// `User` for exactly "User", `Factory` for any other text.
    static Role roleFromString(const std::string &text);

private:
    std::string _name;
    std::string _path;
    std::string _label;
    MIDISound _midiSound;
    OrkaSound _orkaSound;
    Role _role = Factory;
    bool _guiExpanded = false;

    auto fields() const noexcept
    {
        return std::tie(_name, _path, _label, _midiSound, _orkaSound, _role, _guiExpanded);
    }

public:
    /// All fields; an order by name first, for sorted containers.
    friend bool operator==(const Sound &a, const Sound &b) noexcept
    {
        return a.fields() == b.fields();
    }
    friend bool operator!=(const Sound &a, const Sound &b) noexcept { return !(a == b); }
    friend bool operator<(const Sound &a, const Sound &b) noexcept
    {
        return a.fields() < b.fields();
    }
};

} // namespace zarn
