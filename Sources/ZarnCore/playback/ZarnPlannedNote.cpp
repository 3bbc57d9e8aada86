// SPDX-License-Identifier: MIT
#include <ZarnCore/playback/ZarnPlannedNote.h>

#include <ZarnCore/utils/EnumTable.h>

namespace zarn::playback {

namespace {

constexpr auto techniques = utils::enumTable<Technique>(utils::KeyMatch::Exact,
                                                        {
                                                            {Technique::Plucked, "plucked"},
                                                            {Technique::HammeredOn, "hammered on"},
                                                            {Technique::PulledOff, "pulled off"},
                                                            {Technique::Tapped, "tapped"},
                                                            {Technique::Slapped, "slapped"},
                                                            {Technique::Popped, "popped"},
                                                            {Technique::PalmMuted, "palm muted"},
                                                            {Technique::Harmonic, "harmonic"},
                                                            {Technique::Dead, "dead"},
                                                            {Technique::Knock, "knock"},
                                                        });
static_assert(techniques.isConsistent());

} // namespace

std::string techniqueText(Technique technique)
{
    return std::string(techniques.text(technique).value_or(""));
}

} // namespace zarn::playback
