// SPDX-License-Identifier: MIT
#include <ZarnCore/instruments/sounds/OrkaSoundText.h>

#include <ZarnCore/ZarnException.h>
#include <ZarnCore/instruments/TextFields.h>

#include <algorithm>

namespace zarn {

namespace {

constexpr char fieldSeparator = '|';
constexpr char itemSeparator = ',';
constexpr char partSeparator = ':';
constexpr char parameterSeparator = ' ';

std::string textOfFloats(const std::vector<float> &numbers, char separator)
{
    std::vector<std::string> texts;
    for (const float number : numbers)
        texts.push_back(detail::textOfFloat(number));
    return detail::joinedList(texts, separator);
}

std::optional<std::vector<float>> floatsFromText(const std::string &text, char separator)
{
    const auto texts = detail::splitList(text, separator);
    if (!texts)
        return std::nullopt;
    std::vector<float> numbers;
    for (const std::string &item : *texts) {
        const auto number = detail::floatFromText(item);
        if (!number)
            return std::nullopt;
        numbers.push_back(*number);
    }
    return numbers;
}

std::string textOfEffect(const Effect &effect)
{
    return effect.isEmpty()
        ? std::string()
        : detail::joinedFields({effect.identifier(), effect.name(), effect.isBypassed() ? "1" : "0",
                                textOfFloats(effect.parameters(), parameterSeparator)},
                               partSeparator);
}

std::optional<Effect> effectFromText(const std::string &text)
{
    if (text.empty())
        return Effect();
    const auto parts = detail::splitFields(text, partSeparator);
    if (parts.size() != 4 || parts[0].empty() || (parts[2] != "0" && parts[2] != "1"))
        return std::nullopt;
    const auto parameters = floatsFromText(parts[3], parameterSeparator);
    if (!parameters)
        return std::nullopt;
    Effect effect(parts[0], parts[1], *parameters);
    effect.setBypassed(parts[2] == "1");
    return effect;
}

std::string textOfChain(const EffectChain &chain)
{
    std::vector<std::string> effects;
    for (unsigned slot = 0; slot < chain.slotCount(); ++slot)
        effects.push_back(textOfEffect(chain.effect(slot)));
    return detail::joinedList(effects, itemSeparator);
}

std::optional<EffectChain> chainFromText(const std::string &text)
{
    const auto effects = detail::splitList(text, itemSeparator);
    if (!effects || effects->size() > EffectChain::maximumSlotCount)
        return std::nullopt;
    EffectChain chain;
    for (unsigned slot = 0; slot < effects->size(); ++slot) {
        const auto effect = effectFromText((*effects)[slot]);
        if (!effect)
            return std::nullopt;
        chain.setEffect(slot, *effect);
    }
    return chain;
}

} // namespace

std::string textOfSound(const OrkaSound &sound)
{
    if (sound == OrkaSound())
        return {};
    return detail::joinedFields(
        {sound.soundbankPatchId(), OrkaSound::soundReproductionToString(sound.soundReproduction()),
         textOfFloats(sound.pickupTones(), itemSeparator),
         textOfFloats(sound.knobVolumes(), itemSeparator), std::to_string(sound.switchPosition()),
         std::to_string(sound.overloudPosition()),
         detail::joinedList(sound.overloudPickupIds(), itemSeparator),
         textOfChain(sound.effectChain())},
        fieldSeparator);
}

std::optional<OrkaSound> soundFromText(const std::string &text)
{
    if (text.empty())
        return OrkaSound();
    const auto fields = detail::splitFields(text, fieldSeparator);
    if (fields.size() != 8)
        return std::nullopt;
    const auto tones = floatsFromText(fields[2], itemSeparator);
    const auto volumes = floatsFromText(fields[3], itemSeparator);
    const auto switchPosition = detail::numberFromText(fields[4]);
    const auto overloudPosition = detail::numberFromText(fields[5]);
    const auto pickupIds = detail::splitList(fields[6], itemSeparator);
    const auto chain = chainFromText(fields[7]);
    if (!tones || !volumes || !switchPosition || !overloudPosition || !pickupIds || !chain)
        return std::nullopt;
    OrkaSound sound(fields[0]);
    sound.setSoundReproduction(OrkaSound::soundReproductionFromString(fields[1]));
    sound.setOverloudPosition(*overloudPosition);
    sound.setOverloudPickupIds(*pickupIds);
    sound.setEffectChain(*chain);
    try {
        sound.setPickupTones(*tones);
        sound.setKnobVolumes(*volumes);
        sound.setSwitchPosition(*switchPosition);
    } catch (const CoreException &) { // levels and positions that cannot be
        return std::nullopt;
    }
    return sound;
}

} // namespace zarn
