// SPDX-License-Identifier: MIT
#include <ZarnCore/instruments/soundbanks/ZarnSoundbank.h>

#include <ZarnCore/ZarnAssert.h>
#include <ZarnCore/instruments/soundbanks/ZarnHVSoundFont.h>

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

namespace zarn {

namespace {

struct FixedName {
    std::string_view id;
    std::string_view name;
};

constexpr std::array<FixedName, 8> fixedNames{{
    {"Vocal-Pad", "Vocal"},
    {"MetaChoir-Pad", "Meta Choir"},
    {"Classic-Lead", "Classic"},
    {"DXPiano1-Key", "DX Piano 1"},
    {"FMSyn-Bass", "FM"},
    {"Harpy-Seq", "Harpy"},
    {"Huge-Pad", "Huge"},
    {"Simple-Brass", "Simple"},
}};

} // namespace

Soundbank::Soundbank(std::shared_ptr<const HVSoundFont> soundfont)
    : _soundfont(std::move(soundfont))
{
    ZARN_ASSERT_IN("zarn::Soundbank::Soundbank", _soundfont != NULL);
    const auto fixed = std::find_if(fixedNames.begin(), fixedNames.end(),
                                    [this](const FixedName &row) { return row.id == id(); });
    _name = fixed != fixedNames.end() ? std::string(fixed->name) : _soundfont->name();
}

const std::string &Soundbank::id() const noexcept
{
    return _soundfont->id();
}

const std::string &Soundbank::description() const noexcept
{
    return _soundfont->description();
}

const std::string &Soundbank::instrument() const noexcept
{
    return _soundfont->instrument();
}

double Soundbank::velocity() const noexcept
{
    return _soundfont->velocity();
}

QString Soundbank::velocityString() const
{
    return QStringLiteral("%1 dB").arg(velocity());
}

bool Soundbank::isUsable() const noexcept
{
    return _soundfont->isUsable();
}

bool Soundbank::isPitched() const noexcept
{
    return Instrument::isPitched(_soundfont->instrumentType());
}

bool Soundbank::isUnpitched() const noexcept
{
    return Instrument::isUnpitched(_soundfont->instrumentType());
}

const std::shared_ptr<const GuitarPickupSet> &Soundbank::guitarPickupSet() const noexcept
{
    return _soundfont->guitarPickupSet();
}

} // namespace zarn
