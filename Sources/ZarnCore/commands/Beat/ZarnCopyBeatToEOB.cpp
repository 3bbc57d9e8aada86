// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Beat/ZarnCopyBeatToEOB.h>

#include <ZarnCore/ZarnAssert.h>
#include <ZarnCore/commands/EmptyBeats.h>
#include <ZarnCore/model/ZarnBeatAttribute.h>
#include <ZarnCore/model/ZarnScoreModel.h>

namespace zarn::cmd {

namespace {

using utils::rational;

/// What stands at the beat alone, and is not said again with each copy.
constexpr BeatAttributeSet saidOnce = {
    BeatAttribute::Dynamic,       BeatAttribute::Text,     BeatAttribute::Chord,
    BeatAttribute::HairpinBegins, BeatAttribute::Timer,    BeatAttribute::SlurredToNext,
    BeatAttribute::SlurBegins,    BeatAttribute::Lyrics,   BeatAttribute::SlurredToPrevious,
    BeatAttribute::Pedal,         BeatAttribute::Breath,   BeatAttribute::TremoloToNext,
    BeatAttribute::SlurEnds,      BeatAttribute::TextSpan, BeatAttribute::SlurLine,
    BeatAttribute::SlurSide,      BeatAttribute::TextBelow};

/// The beat of an index, and the time behind it in its bar.
struct Room {
    std::shared_ptr<Beat> beat;
    rational left;
};

Room roomAt(ScoreModelIndex index, ScoreModel &model)
{
    index.setModel(&model);
    const auto beat = index.beat();
    const auto bar = index.bar();
    const auto master = bar ? bar->masterBar() : nullptr;
    if (!beat || !master || beat->isGrace() || master->isFreeTime())
        return {};
    const rational end = index.voice()->beatDrawingOffset(*beat) + beat->length();
    return {beat, master->length() - end};
}

/// Of few copies: what is left when no whole one fits any more.
rational restOf(const Room &room)
{
    rational left = room.left;
    while (!(left < room.beat->length()))
        left = left - room.beat->length();
    return left;
}

std::shared_ptr<Beat> copyOf(const Beat &beat)
{
    auto copy = beat.clone();
    for (const BeatAttributeRow &row : beatAttributes())
        if (saidOnce.has(row.id))
            reset(*copy, row);
    for (const auto &note : copy->notes()) {
        note->setTied(false);
        note->setTieOrigin(false);
    }
    return copy;
}

} // namespace

CopyBeatToEOB::CopyBeatToEOB() : ReplaceBeats(QStringLiteral("CopyBeatToEOB")) { }
CopyBeatToEOB::~CopyBeatToEOB() = default;

bool CopyBeatToEOB::init(Score *score, const ScoreModelIndex &index)
{
    ZARN_ASSERT_IN("zarn::cmd::CopyBeatToEOB::init", score != NULL);
    addArg(QStringLiteral("Index"), index.toQString());
    return prepare(score, index);
}

bool CopyBeatToEOB::isPossible() const
{
    const Room room = roomAt(range().first(), model());
    if (!room.beat || room.left < room.beat->length())
        return false;
    const rational length = room.beat->length();
    return rational() < length && !(length * rational(MostCopies) < room.left)
        && rhythmsOf(restOf(room));
}

ReplaceBeats::Replacements CopyBeatToEOB::replacements() const
{
    const ScoreModelIndex &index = range().first();
    const Room room = roomAt(index, model());
    const Beat &beat = *room.beat;
    Replacement copies;
    copies.place = {static_cast<unsigned>(index.trackIndex()), index.staffIndex(),
                    static_cast<unsigned>(index.barIndex()), index.voiceIndex(), beat.index() + 1};
    copies.count = voiceOf(model(), copies.place)->beatCount() - copies.place.firstBeat;
    rational left = room.left;
    for (; !(left < beat.length()); left = left - beat.length())
        copies.beats.push_back(copyOf(beat));
    const auto rests = rhythmsOf(left);
    for (const RhythmValue &rest : *rests)
        copies.beats.push_back(std::make_shared<Beat>(rest));
    return {std::move(copies)};
}

} // namespace zarn::cmd
