// SPDX-License-Identifier: MIT
#include <ZarnCore/io/native/SoundFields.h>

#include <ZarnCore/io/native/Children.h>
#include <ZarnCore/io/native/EnumCodec.h>

namespace zarn::io::native {

namespace {

using Roles = EnumCodec<&Sound::roleToString, &Sound::roleFromString, 1>;

std::int32_t programOf(const Sound &sound)
{
    return sound.midiSound().program();
}
std::int32_t msbBankOf(const Sound &sound)
{
    return sound.midiSound().msbBank();
}
std::int32_t lsbBankOf(const Sound &sound)
{
    return sound.midiSound().lsbBank();
}

template <void (MIDISound::*Set)(std::int32_t) noexcept>
void setMidi(Sound &sound, std::int32_t number)
{
    MIDISound midi = sound.midiSound();
    (midi.*Set)(number);
    sound.setMidiSound(midi);
}

/// Programs and the bytes of banks.
using MidiByte = Within<std::int32_t, 0, 127>;

constexpr std::array soundFields = {
    field<Sound, &Sound::name, &Sound::setName>("name"),
    field<Sound, &Sound::storedPath, &Sound::setPath>("path"),
    field<Sound, &Sound::label, &Sound::setLabel>("label"),
    field<Sound, &Sound::role, &Sound::setRole, Roles>("role"),
    field<Sound, programOf, setMidi<&MIDISound::setProgram>, MidiByte>("program"),
    field<Sound, msbBankOf, setMidi<&MIDISound::setMsbBank>, MidiByte>("msbBank"),
    field<Sound, lsbBankOf, setMidi<&MIDISound::setLsbBank>, MidiByte>("lsbBank"),
    field<Sound, &Sound::orkaSound, &Sound::setOrkaSound>("orka"),
    field<Sound, &Sound::isGuiExpanded, &Sound::setGuiExpanded>("expanded"),
};

constexpr std::array volumePanFields = {
    field<ZarnVolumePan, &ZarnVolumePan::volume, &ZarnVolumePan::setVolume, Between<float, Levels>>(
        "volume"),
    field<ZarnVolumePan, &ZarnVolumePan::pan, &ZarnVolumePan::setPan, Between<float, Pans>>("pan"),
};

/// An effect as it is read: its parts make the effect at the end.
struct EffectParts {
    std::string identifier;
    std::string name;
    std::vector<float> parameters;
    bool isBypassed = false;
};

constexpr std::array effectFields = {
    member<EffectParts, &EffectParts::identifier>("effect"),
    member<EffectParts, &EffectParts::name>("name"),
    member<EffectParts, &EffectParts::parameters, ArrayOf<float, Between<float, AnyFloat>>>(
        "parameters"),
    member<EffectParts, &EffectParts::isBypassed>("bypassed"),
};

using Reproductions =
    EnumCodec<&OrkaSound::soundReproductionToString, &OrkaSound::soundReproductionFromString, 1>;

using LevelList = ArrayOf<float, Between<float, Levels>>;

/// Places of switches; -1 where none is chosen.
using Position = Within<std::int32_t, -1, 32767>;

constexpr std::array orkaSoundFields = {
    field<OrkaSound, &OrkaSound::soundbankPatchId, &OrkaSound::setSoundbankPatchId>("patch"),
    field<OrkaSound, &OrkaSound::soundReproduction, &OrkaSound::setSoundReproduction,
          Reproductions>("reproduction"),
    field<OrkaSound, &OrkaSound::pickupTones, &OrkaSound::setPickupTones, LevelList>("pickupTones"),
    field<OrkaSound, &OrkaSound::knobVolumes, &OrkaSound::setKnobVolumes, LevelList>("knobVolumes"),
    field<OrkaSound, &OrkaSound::switchPosition, &OrkaSound::setSwitchPosition, Position>("switch"),
    field<OrkaSound, &OrkaSound::overloudPosition, &OrkaSound::setOverloudPosition, Position>(
        "overloudPosition"),
    field<OrkaSound, &OrkaSound::overloudPickupIds, &OrkaSound::setOverloudPickupIds>(
        "overloudPickups"),
    field<OrkaSound, &OrkaSound::effectChain, &OrkaSound::setEffectChain>("effects"),
};

constexpr std::array masteringFields = {
    field<Mastering, &Mastering::effectChain, &Mastering::setEffectChain>("effects"),
    field<Mastering, &Mastering::volumePan, &Mastering::setVolumePan>("volumePan"),
};

} // namespace

void Codec<Sound>::write(DocumentWriter &writer, const Sound &sound)
{
    writeObject(writer, sound, soundFields);
}

Sound Codec<Sound>::read(DocumentReader &reader, const Json &json)
{
    return Struct<Sound, soundFields>::read(reader, json);
}

void Codec<ZarnVolumePan>::write(DocumentWriter &writer, const ZarnVolumePan &volumePan)
{
    writeObject(writer, volumePan, volumePanFields);
}

ZarnVolumePan Codec<ZarnVolumePan>::read(DocumentReader &reader, const Json &json)
{
    return Struct<ZarnVolumePan, volumePanFields>::read(reader, json);
}

void Codec<EffectChain>::write(DocumentWriter &writer, const EffectChain &chain)
{
    writer.StartArray();
    for (unsigned slot = 0; slot < chain.slotCount(); ++slot) {
        const Effect &effect = chain.effect(slot);
        if (effect.isEmpty())
            writer.Null();
        else
            writeObject(writer,
                        EffectParts{effect.identifier(), effect.name(), effect.parameters(),
                                    effect.isBypassed()},
                        effectFields);
    }
    writer.EndArray();
}

EffectChain Codec<EffectChain>::read(DocumentReader &reader, const Json &json)
{
    reader.expectArray(json);
    if (json.size() > EffectChain::maximumSlotCount)
        reader.refuse("a chain has at most " + std::to_string(EffectChain::maximumSlotCount)
                      + " effects");
    EffectChain chain;
    std::uint32_t slot = 0;
    for (const Json &element : json.elements()) {
        const std::uint32_t place = slot++;
        const DocumentReader::Step step(reader, place);
        if (element.isNull())
            continue;
        const auto parts = Struct<EffectParts, effectFields>::read(reader, element);
        if (parts.identifier.empty())
            reader.refuse("an effect needs the name of its kind in \"effect\"");
        Effect effect(parts.identifier, parts.name, parts.parameters);
        effect.setBypassed(parts.isBypassed);
        chain.setEffect(place, effect);
    }
    return chain;
}

void Codec<OrkaSound>::write(DocumentWriter &writer, const OrkaSound &sound)
{
    writeObject(writer, sound, orkaSoundFields);
}

OrkaSound Codec<OrkaSound>::read(DocumentReader &reader, const Json &json)
{
    return Struct<OrkaSound, orkaSoundFields>::read(reader, json);
}

void Codec<Mastering>::write(DocumentWriter &writer, const Mastering &mastering)
{
    writeObject(writer, mastering, masteringFields);
}

Mastering Codec<Mastering>::read(DocumentReader &reader, const Json &json)
{
    return Struct<Mastering, masteringFields>::read(reader, json);
}

} // namespace zarn::io::native
