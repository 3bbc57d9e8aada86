// SPDX-License-Identifier: MIT
#include <ZarnCore/ZarnCoreUtils.h>

#include <ZarnCore/instruments/effects/ZarnHVVolumePan.h>
#include <ZarnCore/instruments/effects/ZarnVolumePan.h>
#include <ZarnCore/io/ZarnScoreText.h>
#include <ZarnCore/model/ZarnBar.h>
#include <ZarnCore/model/ZarnMasterBar.h>
#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/score/ZarnScore.h>

#include <algorithm>
#include <cmath>

namespace zarn {

namespace {

/// The answer of the track's score; false when there is none.
bool askScore(const Track *track, bool (Score::*question)(unsigned) const)
{
    const auto model = track != nullptr ? track->parentScoreModel() : nullptr;
    const Score *const score = model != nullptr ? model->parentScore() : nullptr;
    return score != nullptr && (score->*question)(track->index());
}

} // namespace

void ZarnCoreUtils::set_clef(BarIterator first, BarIterator last, ClefType clef)
{
    for (; first != last; ++first)
        (*first)->setClef(clef);
}

void ZarnCoreUtils::set_key_signature(MasterBarIterator first, MasterBarIterator last,
                                      const KeySignature &key)
{
    for (; first != last; ++first)
        (*first)->setConcertKeySignature(key);
}

void ZarnCoreUtils::set_time_signature(MasterBarIterator first, MasterBarIterator last,
                                       const TimeSignature &signature)
{
    for (; first != last; ++first)
        (*first)->setTimeSignature(signature);
}

Halvec::audio::HVVolumePan
ZarnCoreUtils::convertZarnVolumePanToHVVolumePan(const ZarnVolumePan &volumePan) noexcept
{
    return {20 * std::log10(double(volumePan.volume())), double(volumePan.pan())};
}

ZarnVolumePan
ZarnCoreUtils::convertHVVolumePanToZarnVolumePan(const Halvec::audio::HVVolumePan &volumePan)
{
    const double gain =
        std::isnan(volumePan.decibels) ? 0 : std::pow(10.0, std::min(volumePan.decibels, 0.0) / 20);
    const double pan = std::isnan(volumePan.pan) ? 0 : std::clamp(volumePan.pan, -1.0, 1.0);
    return {static_cast<float>(gain), static_cast<float>(pan)};
}

bool ZarnCoreUtils::trackHasSlash(const Track *track)
{
    return askScore(track, &Score::hasSlash);
}

bool ZarnCoreUtils::trackHasStdNotation(const Track *track)
{
    return askScore(track, &Score::hasStdNotation);
}

bool ZarnCoreUtils::trackHasTablature(const Track *track)
{
    return askScore(track, &Score::hasTablature);
}

std::unique_ptr<Score> ZarnCoreUtils::make_from_string(const std::string &text)
{
    auto score = std::make_unique<Score>();
    io::readScoreText(text, *score->scoreModel());
    return score;
}

} // namespace zarn
