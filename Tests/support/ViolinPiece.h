// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/instruments/sets/ZarnInstrumentSet.h>
#include <ZarnCore/model/ZarnScoreModel.h>

#include <memory>
#include <vector>

namespace test {

/// Bars for a violin that are filled voice by voice.
class ViolinPiece {
public:
    explicit ViolinPiece(unsigned bars = 1)
    {
        model->createAndInsertTrack(0, zarn::InstrumentSet::violin);
        model->track(0)->setChosenNotations(zarn::TrackNotations());
        model->insertEmptyBarColumns(0, bars);
    }

    /// Written keys; none for a rest.
    zarn::Beat &add(const std::vector<int> &keys, zarn::RhythmValue::NoteValue value,
                    unsigned dots = 0, unsigned voice = 0, unsigned bar = 0)
    {
        auto beat = std::make_shared<zarn::Beat>(zarn::RhythmValue(value, dots));
        for (const int key : keys)
            beat->addNote(std::make_shared<zarn::Note>(key));
        model->track(0)->bar(bar)->ensureVoice(voice)->addBeat(beat);
        return *beat;
    }

    static void tie(zarn::Beat &from, zarn::Beat &to, unsigned note = 0)
    {
        from.notes()[note]->setTieOrigin(true);
        to.notes()[note]->setTied(true);
    }

    std::shared_ptr<zarn::ScoreModel> model = std::make_shared<zarn::ScoreModel>();
};

} // namespace test
