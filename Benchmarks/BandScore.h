// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/model/ZarnScoreModel.h>

#include <memory>

/// A band of seven staves: eighths, sixteenths, chords, dotted rhythms with ties, triplets, two
/// voices, in turn; about 75 notes in a bar of all of them, so 22,400 in 300 bars.
namespace bench::band {

inline constexpr unsigned trackCount = 7;

class BarFiller {
public:
    using NoteValue = zarn::RhythmValue::NoteValue;

    BarFiller(zarn::Bar &bar, unsigned track, unsigned number)
        : _bar(bar), _pitch(48 + static_cast<int>((track * 5 + number * 7) % 24))
    {
    }

    void fill(unsigned kind)
    {
        switch (kind % 5) {
        case 0:
            addEqual(8, NoteValue::Eighth);
            break;
        case 1:
            addEqual(16, NoteValue::Sixteenth);
            break;
        case 2:
            for (int i = 0; i < 4; ++i)
                add(zarn::RhythmValue(NoteValue::Quarter), 3);
            break;
        case 3:
            for (int i = 0; i < 2; ++i) {
                add(zarn::RhythmValue(NoteValue::Quarter, 1));
                add(zarn::RhythmValue(NoteValue::Eighth));
            }
            addSecondVoice();
            break;
        default:
            for (int i = 0; i < 12; ++i) {
                zarn::RhythmValue triplet(NoteValue::Eighth);
                triplet.setPrimaryTupletRatio({3, 2});
                add(triplet);
            }
            break;
        }
    }

private:
    void addEqual(int count, NoteValue value)
    {
        for (int i = 0; i < count; ++i)
            add(zarn::RhythmValue(value));
    }

    void add(const zarn::RhythmValue &rhythm, int noteCount = 1, unsigned voice = 0)
    {
        const auto beat = std::make_shared<zarn::Beat>(rhythm);
        _bar.ensureVoice(voice)->addBeat(beat);
        _step = (_step + 5) % 13;
        for (int i = 0; i < noteCount; ++i)
            beat->addNote(std::make_shared<zarn::Note>(_pitch + _step % 9 + 4 * i));
    }

    void addSecondVoice()
    {
        for (int i = 0; i < 2; ++i)
            add(zarn::RhythmValue(NoteValue::Half), 2, 1);
    }

    zarn::Bar &_bar;
    int _pitch;
    int _step = 0;
};

inline std::shared_ptr<zarn::ScoreModel> make(unsigned barCount)
{
    auto model = std::make_shared<zarn::ScoreModel>();
    model->insertEmptyBarColumns(0, barCount);
    for (unsigned t = 0; t < trackCount; ++t) {
        model->createAndInsertTrack(t, zarn::InstrumentSet::steelGuitar);
        model->track(t)->setChosenNotations(zarn::TrackNotations{true, false, false});
    }
    for (const auto &track : model->tracks())
        for (const auto &bar : track->bars(0))
            BarFiller(*bar, track->index(), bar->index()).fill(track->index() + bar->index());
    return model;
}

inline unsigned noteCount(const zarn::ScoreModel &model)
{
    unsigned count = 0;
    for (const auto &track : model.tracks())
        for (const auto &bar : track->bars(0))
            for (const auto &voice : bar->voices())
                for (unsigned i = 0; voice && i < voice->beatCount(); ++i)
                    count += voice->beats()[i]->noteCount();
    return count;
}

} // namespace bench::band
