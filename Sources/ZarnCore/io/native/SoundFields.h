// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/instruments/automations/ZarnAutomationContainer.h>
#include <ZarnCore/instruments/effects/ZarnMastering.h>
#include <ZarnCore/instruments/sounds/ZarnSound.h>
#include <ZarnCore/io/native/Codec.h>

namespace zarn::io::native {

template <>
struct Codec<Sound> {
    static void write(DocumentWriter &writer, const Sound &sound);
    static Sound read(DocumentReader &reader, const Json &json);
};

template <>
struct Codec<ZarnVolumePan> {
    static void write(DocumentWriter &writer, const ZarnVolumePan &volumePan);
    static ZarnVolumePan read(DocumentReader &reader, const Json &json);
};

/// An array with one element per slot; empty slots are null.
template <>
struct Codec<EffectChain> {
    static void write(DocumentWriter &writer, const EffectChain &chain);
    static EffectChain read(DocumentReader &reader, const Json &json);
};

/// Whatever patch it names, be it known here or not.
template <>
struct Codec<OrkaSound> {
    static void write(DocumentWriter &writer, const OrkaSound &sound);
    static OrkaSound read(DocumentReader &reader, const Json &json);
};

template <>
struct Codec<Mastering> {
    static void write(DocumentWriter &writer, const Mastering &mastering);
    static Mastering read(DocumentReader &reader, const Json &json);
};

/// "automations": by type, then by place.
void writeAutomations(DocumentWriter &writer, std::string_view key,
                      const AutomationContainer &container);
void readAutomations(DocumentReader &reader, const Json &json, AutomationContainer &container);

/// Takes out what stands behind the last bar and reports it; `owner` is the pointer to what has the
/// automations.
void leaveOutStrayAutomations(DocumentReader &reader, const std::string &owner,
                              AutomationContainer &container, unsigned barCount);

/// "bypassed": the types that playback leaves out.
void writeBypassed(DocumentWriter &writer, std::string_view key,
                   const AutomationContainer &container);
void readBypassed(DocumentReader &reader, const Json &json, AutomationContainer &container);

} // namespace zarn::io::native
