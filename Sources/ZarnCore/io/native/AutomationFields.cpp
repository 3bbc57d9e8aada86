// SPDX-License-Identifier: MIT
#include <ZarnCore/instruments/automations/AutomationRange.h>
#include <ZarnCore/instruments/automations/ZarnPickupKnobAutomation.h>
#include <ZarnCore/instruments/automations/ZarnSoundAutomation.h>
#include <ZarnCore/instruments/automations/ZarnTempoAutomation.h>
#include <ZarnCore/io/native/Fields.h>
#include <ZarnCore/io/native/SoundFields.h>
#include <ZarnCore/model/ZarnMasterTrack.h>

#include <algorithm>
#include <memory>

namespace zarn::io::native {

template <>
const Automation &freshNode<Automation>()
{
    static const Automation node(Automation::Unknown);
    return node;
}

namespace {

/// The type that stands for the class of knob turns, which has no type of its own.
constexpr std::string_view pickupKnob = "PickupKnob";

/// Types that have no text, by their number.
using TypeNumber = Within<std::uint32_t, 0, std::numeric_limits<std::uint32_t>::max()>;

void writeType(DocumentWriter &writer, std::string_view key, const Automation &automation)
{
    writer.key(key);
    if (dynamic_cast<const PickupKnobAutomation *>(&automation) != nullptr)
        writer.text(pickupKnob);
    else if (Automation::typeId(automation.type()) != 0)
        writer.text(Automation::typeToString(automation.type()));
    else
        TypeNumber::write(writer, automation.type());
}

/// The type is read before the rest, because it decides on the class.
void skipType(DocumentReader &, const Json &, Automation &) { }

std::unique_ptr<Automation> makeAutomation(DocumentReader &reader, const Json &json)
{
    const DocumentReader::Step step(reader, "type");
    if (json.isText() && json.text() == pickupKnob)
        return std::make_unique<PickupKnobAutomation>();
    if (json.isText())
        for (unsigned slot = 1; slot < Automation::automationTypeCount; ++slot)
            if (Automation::typeToString(Automation::idType(slot)) == json.text())
                return Automation::create(Automation::idType(slot));
    if (json.isWhole()) {
        const auto type = static_cast<Automation::Type>(TypeNumber::read(reader, json));
        if (Automation::typeId(type) == 0)
            return Automation::create(type);
    }
    reader.refuseKind("an automation type such as \"Tempo\" or \"DSPParam_00\"", json);
}

/// A member that only one class of automations has.
template <typename Class, auto Get, auto Set, typename As = Codec<ValueOf<Get, Class>>>
constexpr Field<Automation> classField(std::string_view key)
{
    return {key,
            [](DocumentWriter &writer, std::string_view name, const Automation &automation) {
                const auto *own = dynamic_cast<const Class *>(&automation);
                if (own == nullptr || std::invoke(Get, *own) == std::invoke(Get, Class()))
                    return;
                writer.key(name);
                As::write(writer, std::invoke(Get, *own));
            },
            [](DocumentReader &reader, const Json &json, Automation &automation) {
                auto *own = dynamic_cast<Class *>(&automation);
                if (own == nullptr)
                    reader.refuse("automations of this type have no such member");
                std::invoke(Set, *own, As::read(reader, json));
            }};
}

} // namespace

template <>
struct Codec<std::shared_ptr<const Sound>> {
    static void write(DocumentWriter &writer, const std::shared_ptr<const Sound> &sound)
    {
        Codec<Sound>::write(writer, *sound);
    }
    static std::shared_ptr<const Sound> read(DocumentReader &reader, const Json &json)
    {
        return std::make_shared<const Sound>(Codec<Sound>::read(reader, json));
    }
};

namespace {

/// Quarters from the start of a bar.
struct Positions {
    static constexpr double lowest = 0;
    static constexpr double highest = highestAutomationPosition;
};

using TempoUnitNumber = Within<std::int32_t, 0, 5>;
using Pickup = Within<std::int32_t, -1, 255>;

constexpr std::array automationFields = {
    Field<Automation>{"type", writeType, skipType},
    field<Automation, &Automation::index, &Automation::setIndex,
          Within<std::uint32_t, 0, MasterTrack::MaxBars - 1>>("bar"),
    field<Automation, &Automation::position, &Automation::setPosition, Between<float, Positions>>(
        "position"),
    field<Automation, &Automation::value, &Automation::setValue, Between<float, AnyFloat>>("value"),
    classField<TempoAutomation, &TempoAutomation::unit, &TempoAutomation::setUnit, TempoUnitNumber>(
        "unit"),
    classField<PickupKnobAutomation, &PickupKnobAutomation::pickup,
               &PickupKnobAutomation::setPickup, Pickup>("pickup"),
    classField<SoundAutomation, &SoundAutomation::sound, &SoundAutomation::setSound>("sound"),
    field<Automation, &Automation::isLinear, &Automation::setLinear>("linear"),
    field<Automation, &Automation::text, &Automation::setText>("text"),
    field<Automation, &Automation::isVisible, &Automation::setVisible>("visible"),
};

std::unique_ptr<Automation> readAutomation(DocumentReader &reader, const Json &json)
{
    reader.expectObject(json);
    const Json *type = json.find("type");
    if (type == nullptr)
        reader.refuse("an automation needs a \"type\"");
    auto automation = makeAutomation(reader, *type);
    readObject(reader, json, *automation, automationFields);
    return automation;
}

} // namespace

void writeAutomations(DocumentWriter &writer, std::string_view key,
                      const AutomationContainer &container)
{
    if (!container.hasAutomations())
        return;
    writer.key(key);
    writer.StartArray();
    for (unsigned slot = 0; slot < Automation::automationTypeCount; ++slot)
        for (const Automation *automation : container.automations(Automation::idType(slot))) {
            writer.startLine();
            writeFields(writer, *automation, automationFields);
            writer.EndObject();
        }
    writer.EndArray();
}

void readAutomations(DocumentReader &reader, const Json &json, AutomationContainer &container)
{
    reader.expectArray(json);
    std::vector<std::unique_ptr<Automation>> automations;
    automations.reserve(json.size());
    for (const auto &element : json.elements()) {
        const DocumentReader::Step step(reader, static_cast<std::uint32_t>(automations.size()));
        automations.push_back(readAutomation(reader, element));
    }
    const auto kept = std::remove_if(automations.begin(), automations.end(),
                                     [](const auto &read) { return !isPositiveTempo(*read); });
    if (const auto count = automations.end() - kept; count > 0)
        reader.reportOddity(std::to_string(count)
                            + (count == 1 ? " tempo that is not above 0 was left out"
                                          : " tempos that are not above 0 were left out"));
    automations.erase(kept, automations.end());
    // In order, so that each goes to the end of its slot.
    std::stable_sort(automations.begin(), automations.end(), [](const auto &a, const auto &b) {
        return a->idType() != b->idType() ? a->idType() < b->idType() : *a < *b;
    });
    std::size_t replaced = 0;
    for (std::size_t i = 0; i < automations.size(); ++i) {
        const bool isLastOfItsPlace = i + 1 == automations.size()
            || automations[i]->idType() != automations[i + 1]->idType()
            || *automations[i] < *automations[i + 1];
        if (isLastOfItsPlace)
            container.restoreAutomation(std::move(automations[i]));
        else
            ++replaced;
    }
    if (replaced > 0)
        reader.reportOddity(std::to_string(replaced)
                            + " of them stand where a later one of their type does, which holds");
}

void leaveOutStrayAutomations(DocumentReader &reader, const std::string &owner,
                              AutomationContainer &container, unsigned barCount)
{
    const unsigned firstBehind = std::max(barCount, 1U); // without bars all stand at the first
    const std::size_t all = container.automationCount();
    container.clearAutomationsIf(
        [firstBehind](const Automation &automation) { return automation.index() >= firstBehind; });
    const std::size_t count = all - container.automationCount();
    if (count > 0)
        reader.report().addProblem(
            {owner + "/automations: " + std::to_string(count)
                 + (count == 1 ? " automation behind the last bar was left out"
                               : " automations behind the last bar were left out"),
             -1, -1, 0});
}

void writeBypassed(DocumentWriter &writer, std::string_view key,
                   const AutomationContainer &container)
{
    std::vector<std::string> bypassed;
    for (unsigned slot = 0; slot < Automation::automationTypeCount; ++slot)
        if (container.isTypeBypassed(Automation::idType(slot)))
            bypassed.push_back(Automation::typeToString(Automation::idType(slot)));
    if (bypassed.empty())
        return;
    writer.key(key);
    Codec<std::vector<std::string>>::write(writer, bypassed);
}

void readBypassed(DocumentReader &reader, const Json &json, AutomationContainer &container)
{
    reader.expectArray(json);
    std::uint32_t index = 0;
    for (const auto &element : json.elements()) {
        const DocumentReader::Step step(reader, index++);
        const std::string text = Codec<std::string>::read(reader, element);
        unsigned slot = 0;
        while (slot < Automation::automationTypeCount
               && Automation::typeToString(Automation::idType(slot)) != text)
            ++slot;
        if (slot == Automation::automationTypeCount)
            reader.refuseKind("an automation type", element);
        container.bypassType(Automation::idType(slot), true);
    }
}

} // namespace zarn::io::native
