// SPDX-License-Identifier: MIT
#include <ZarnCore/instruments/ZarnSound.h>

#include <charconv>
#include <utility>
#include <vector>

namespace zarn {

namespace {

constexpr char separator = ';';
constexpr char escape = '\\';

std::string escaped(const std::string &text)
{
    std::string result;
    for (const char letter : text) {
        if (letter == separator || letter == escape)
            result += escape;
        result += letter;
    }
    return result;
}

std::vector<std::string> splitEscaped(const std::string &text)
{
    std::vector<std::string> fields(1);
    bool isEscaped = false;
    for (const char letter : text) {
        if (!isEscaped && letter == escape) {
            isEscaped = true;
            continue;
        }
        if (!isEscaped && letter == separator)
            fields.emplace_back();
        else
            fields.back() += letter;
        isEscaped = false;
    }
    return fields;
}

std::optional<std::int32_t> numberFromText(const std::string &text)
{
    std::int32_t number = 0;
    const char *end = text.data() + text.size();
    const auto parsed = std::from_chars(text.data(), end, number);
    if (parsed.ec != std::errc() || parsed.ptr != end)
        return std::nullopt;
    return number;
}

} // namespace

Sound::Sound(std::string name, const MIDISound &midiSound)
    : _name(std::move(name)), _midiSound(midiSound)
{
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
    std::string text;
    for (const auto &field : {_path, _name, roleToString(_role), _label})
        text += escaped(field) + separator;
    for (const auto number : {_midiSound.program(), _midiSound.msbBank(), _midiSound.lsbBank()})
        text += std::to_string(number) + separator;
    return text + (_guiExpanded ? "1" : "0");
}

std::optional<Sound> Sound::fromString(const std::string &text)
{
    const auto fields = splitEscaped(text);
    if (fields.size() != 8)
        return std::nullopt;
    const auto program = numberFromText(fields[4]);
    const auto msbBank = numberFromText(fields[5]);
    const auto lsbBank = numberFromText(fields[6]);
    if (!program || !msbBank || !lsbBank)
        return std::nullopt;
    Sound sound(fields[1], MIDISound(*program, *msbBank, *lsbBank));
    sound.setPath(fields[0]);
    sound.setRole(roleFromString(fields[2]));
    sound.setLabel(fields[3]);
    sound.setGuiExpanded(fields[7] == "1");
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
