// SPDX-License-Identifier: MIT
#include <ZarnCore/ZarnCoreUtils.h>

#include <ZarnCore/io/ZarnScoreText.h>
#include <ZarnCore/model/ZarnBar.h>
#include <ZarnCore/model/ZarnMasterBar.h>
#include <ZarnCore/score/ZarnScore.h>

namespace zarn {

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

std::unique_ptr<Score> ZarnCoreUtils::make_from_string(const std::string &text)
{
    auto score = std::make_unique<Score>();
    io::readScoreText(text, *score->scoreModel());
    return score;
}

} // namespace zarn
