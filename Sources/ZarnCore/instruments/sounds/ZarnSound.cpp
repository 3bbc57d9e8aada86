// SPDX-License-Identifier: MIT
#include <ZarnCore/instruments/sounds/ZarnSound.h>

#include <ZarnCore/instruments/TextFields.h>
#include <ZarnCore/instruments/sets/ZarnInstrumentSet.h>
#include <ZarnCore/instruments/soundbanks/ZarnSoundbankPatch.h>

#include <utility>

namespace zarn {

namespace {

constexpr char separator = ';';

} // namespace

Sound::Sound(std::string name, const MIDISound &midiSound)
    : _name(std::move(name)), _midiSound(midiSound)
{
}

std::string Sound::path() const
{
    if (!_path.empty())
        return _path;
    const auto patch = _orkaSound.soundbankPatch();
    return patch != nullptr ? InstrumentSet::soundCategoryFallback(patch->instrumentSetType())
                            : std::string();
}

std::string Sound::fullName() const
{
    const auto place = path();
    return place.empty() ? _name : place + "/" + _name;
}

bool Sound::isEquivalent(const Sound &other) const noexcept
{
    return _role == other._role && !_path.empty() && _path == other._path;
}

std::string Sound::toString() const
{
    std::vector<std::string> fields = {_path, _name, roleToString(_role), _label};
    for (const auto number : {_midiSound.program(), _midiSound.msbBank(), _midiSound.lsbBank()})
        fields.push_back(std::to_string(number));
    fields.emplace_back(_guiExpanded ? "1" : "0");
    if (std::string orka = _orkaSound.toString(); !orka.empty())
        fields.push_back(std::move(orka));
    return detail::joinedFields(fields, separator);
}

std::optional<Sound> Sound::fromString(const std::string &text)
{
    const auto fields = detail::splitFields(text, separator);
    if (fields.size() != 8 && fields.size() != 9)
        return std::nullopt;
    const auto program = detail::numberFromText(fields[4]);
    const auto msbBank = detail::numberFromText(fields[5]);
    const auto lsbBank = detail::numberFromText(fields[6]);
    const auto orka = OrkaSound::fromString(fields.size() == 9 ? fields[8] : std::string());
    if (!program || !msbBank || !lsbBank || !orka)
        return std::nullopt;
    Sound sound(fields[1], MIDISound(*program, *msbBank, *lsbBank));
    sound.setPath(fields[0]);
    sound.setRole(roleFromString(fields[2]));
    sound.setLabel(fields[3]);
    sound.setGuiExpanded(fields[7] == "1");
    sound.setOrkaSound(*orka);
    return sound;
}

std::string Sound::roleToString(Role role)
{
    return role != Factory ? "User" : "Factory";
}

Sound::Role Sound::roleFromString(const std::string &text)
{
    return text == "User" ? User : Factory;
}

} // namespace zarn
