// SPDX-License-Identifier: MIT
#include <ZarnCore/instruments/automations/ZarnAutomation.h>

#include <ZarnCore/ZarnAssert.h>
#include <ZarnCore/instruments/automations/ZarnAutomationContainer.h>
#include <ZarnCore/instruments/automations/ZarnDSPParamAutomation.h>
#include <ZarnCore/instruments/automations/ZarnSoundAutomation.h>
#include <ZarnCore/instruments/automations/ZarnTempoAutomation.h>

#include <charconv>
#include <cmath>
#include <locale>
#include <sstream>
#include <typeinfo>

namespace zarn {

namespace {

constexpr unsigned firstParameterSlot = 1;
constexpr unsigned tempoSlot = 33;
constexpr unsigned soundSlot = 34;

constexpr bool isParameter(Automation::Type type)
{
    return type >= Automation::DSPParam_00 && type <= Automation::DSPParam_31;
}

} // namespace

std::atomic<int> Automation::AutomationInstanceCount{0};

Automation::Automation(Type type) : _type(type)
{
    ++AutomationInstanceCount;
}

Automation::Automation(const Automation &other)
    : _type(other._type), _linear(other._linear), _index(other._index), _position(other._position),
      _value(other._value), _text(other._text), _visible(other._visible)
{
    ++AutomationInstanceCount;
}

Automation::~Automation()
{
    --AutomationInstanceCount;
}

bool Automation::equals(const Automation &other) const
{
    return typeid(*this) == typeid(other) && _type == other._type && _linear == other._linear
        && _value == other._value && _text == other._text && _visible == other._visible;
}

std::unique_ptr<Automation> Automation::cloneAutomation() const
{
    return std::make_unique<Automation>(*this);
}

void Automation::reset()
{
    _linear = false;
    moveTo(0, 0);
    _value = 0;
    _text.clear();
}

std::string Automation::valueToString() const
{
    // The shortest digits that read back as the same number, whatever the locale.
    char digits[32];
    const auto end = std::to_chars(digits, digits + sizeof digits, _value).ptr;
    return std::string(digits, end);
}

bool Automation::valueFromString(const std::string &text)
{
    std::istringstream stream(text);
    stream.imbue(std::locale::classic());
    float value = 0;
    if (!(stream >> value))
        return false;
    _value = value;
    return true;
}

std::unique_ptr<Automation> Automation::create(Type type)
{
    if (type == Tempo)
        return std::make_unique<TempoAutomation>();
    if (type == Sound)
        return std::make_unique<SoundAutomation>();
    if (isParameter(type))
        return std::make_unique<DSPParamAutomation>(type);
    return std::make_unique<Automation>(type);
}

void Automation::setIndex(std::uint32_t index)
{
    moveTo(index, _position);
}

void Automation::setPosition(float position)
{
    ZARN_ASSERT_IN("zarn::Automation::setPosition", std::isfinite(position));
    moveTo(_index, position + 0.0f); // no -0
}

void Automation::moveTo(std::uint32_t index, float position)
{
    if (_parent != nullptr) {
        _parent->move(*this, index, position);
        return;
    }
    _index = index;
    _position = position;
}

Automation *Automation::nextAutomation() const
{
    return _parent != nullptr ? _parent->nextAutomation(_type, _index, _position) : nullptr;
}

Automation *Automation::previousAutomation() const
{
    return _parent != nullptr ? _parent->previousAutomation(_type, _index, _position) : nullptr;
}

std::string Automation::typeToString(Type type)
{
    if (type == Tempo)
        return "Tempo";
    if (type == Sound)
        return "Sound";
    if (!isParameter(type))
        return "Unknown";
    const auto number = type - DSPParam_00;
    return std::string("DSPParam_") + static_cast<char>('0' + number / 10)
        + static_cast<char>('0' + number % 10);
}

Automation::Type Automation::typeFromString(const std::string &text)
{
    if (text == "TEMPO")
        return Tempo;
    if (text == "SOUND")
        return Sound;
    const std::string prefix = "DSPPARAM_";
    if (text.size() != prefix.size() + 2 || text.compare(0, prefix.size(), prefix) != 0)
        return Unknown;
    unsigned number = 0;
    const char *end = text.data() + text.size();
    const auto parsed = std::from_chars(text.data() + prefix.size(), end, number);
    if (parsed.ec != std::errc() || parsed.ptr != end || number > DSPParam_31 - DSPParam_00)
        return Unknown;
    return static_cast<Type>(DSPParam_00 + number);
}

unsigned Automation::typeId(Type type) noexcept
{
    if (type == Tempo)
        return tempoSlot;
    if (type == Sound)
        return soundSlot;
    return isParameter(type) ? firstParameterSlot + (type - DSPParam_00) : 0;
}

Automation::Type Automation::idType(unsigned slot) noexcept
{
    if (slot == tempoSlot)
        return Tempo;
    if (slot == soundSlot)
        return Sound;
    if (slot < firstParameterSlot || slot > soundSlot)
        return Unknown;
    return static_cast<Type>(DSPParam_00 + (slot - firstParameterSlot));
}

bool operator<(const Automation &a, const Automation &b) noexcept
{
    return a.index() != b.index() ? a.index() < b.index() : a.position() < b.position();
}

} // namespace zarn
