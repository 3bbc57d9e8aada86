// SPDX-License-Identifier: MIT
// Indexes that are resolved, in a score of 32 tracks of 2,000 bars of 4 beats of 2 notes, and the
// times of beats in long bars.
#include "RatioReport.h"

#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/model/places/ZarnScoreModelRange.h>

#include <algorithm>
#include <memory>
#include <random>
#include <vector>

namespace {

constexpr unsigned trackCount = 32;
constexpr unsigned barCount = 2000;
constexpr unsigned beatCount = 4;

std::shared_ptr<zarn::ScoreModel> makeModel()
{
    auto model = std::make_shared<zarn::ScoreModel>();
    model->insertEmptyBarColumns(0, barCount);
    for (unsigned t = 0; t < trackCount; ++t)
        model->createAndInsertTrack(t, zarn::InstrumentSet::steelGuitar);
    for (const auto &track : model->tracks())
        for (const auto &bar : track->bars(0))
            for (unsigned i = 0; i < beatCount; ++i) {
                const auto beat = std::make_shared<zarn::Beat>();
                bar->ensureVoice(0)->addBeat(beat);
                for (int string = 4; string < 6; ++string) {
                    const auto note = std::make_shared<zarn::Note>(60 + string);
                    note->setString(string);
                    beat->addNote(note);
                }
            }
    return model;
}

/// A place with what stands for it in the plain chain.
struct Place {
    zarn::ScoreModelIndex index;
    unsigned track, bar, beat, note;
};

using Places = std::shared_ptr<const std::vector<Place>>;

/// Places of notes: all over the score, or in a few bars that stay in the cache.
Places makePlaces(zarn::ScoreModel &model, unsigned tracks, unsigned bars)
{
    std::mt19937 random(5);
    std::vector<Place> places(4096);
    for (Place &place : places) {
        place.track = static_cast<unsigned>(random() % tracks);
        place.bar = static_cast<unsigned>(random() % bars);
        place.beat = static_cast<unsigned>(random() % beatCount);
        place.note = static_cast<unsigned>(random() % 2);
        place.index = {&model, int(place.track), int(place.bar), int(place.beat), 0, 0};
        place.index.setNoteString(4 + place.note);
    }
    return std::make_shared<const std::vector<Place>>(std::move(places));
}

const std::shared_ptr<zarn::Beat> &beatByHand(const zarn::ScoreModel &model, const Place &place)
{
    return model.tracks()[place.track]
        ->staves()[0]
        ->bars()[place.bar]
        ->voices()[0]
        ->beats()[place.beat];
}

/// An index names a note by its string: a chain by hand ends at the same one when it asks for that
/// too.
const std::shared_ptr<zarn::Note> &noteByHand(const zarn::ScoreModel &model, const Place &place)
{
    const int string = 4 + static_cast<int>(place.note);
    const auto &notes = beatByHand(model, place)->notes();
    std::size_t number = 0;
    while (notes[number]->string() != string)
        ++number;
    return notes[number];
}

/// A chain that is told which of the notes it is. It never looks at one, and they lie elsewhere in
/// memory.
const std::shared_ptr<zarn::Note> &noteByNumber(const zarn::ScoreModel &model, const Place &place)
{
    return beatByHand(model, place)->notes()[place.note];
}

/// The node at the end of a chain by hand, as a plain pointer or as a shared one; and as the index
/// answers it.
template <class Chain, class Answer>
void compareResolving(bench::RatioReport &report, const std::string &name, double target,
                      const std::shared_ptr<zarn::ScoreModel> &model, const Places &places,
                      Chain chain, Answer (zarn::ScoreModelIndex::*node)() const)
{
    report.compare(
        name, target,
        [model, places, chain](benchmark::State &state) {
            for (auto _ : state)
                for (const Place &place : *places)
                    benchmark::DoNotOptimize(chain(*model, place));
        },
        [places, node](benchmark::State &state) {
            for (auto _ : state)
                for (const Place &place : *places)
                    benchmark::DoNotOptimize((place.index.*node)());
        });
}

/// A bar with two voices of so many beats.
class LongBar {
public:
    explicit LongBar(unsigned count) : _model(std::make_shared<zarn::ScoreModel>())
    {
        _model->insertEmptyBarColumns(0, 1);
        _model->createAndInsertTrack(0, zarn::InstrumentSet::steelGuitar);
        for (unsigned voice = 0; voice < 2; ++voice) {
            zarn::Voice::Beats beats(count);
            for (auto &beat : beats)
                beat = std::make_shared<zarn::Beat>();
            this->bar().ensureVoice(voice)->insertBeats(0, beats);
            for (unsigned i = 0; i < count; ++i)
                _places.emplace_back(_model.get(), 0, 0, int(i), voice, 0);
        }
        std::shuffle(_places.begin(), _places.end(), std::mt19937(3));
    }

    /// As after an edit: nothing is known of the offsets.
    void touch() const
    {
        for (const auto &voice : bar().voices())
            if (voice)
                voice->beats()[0]->setGraceType(zarn::GraceType::None);
    }

    void drawingOffsets() const
    {
        touch();
        const zarn::Voice &voice = *bar().voices()[0];
        for (const auto &beat : voice.beats())
            benchmark::DoNotOptimize(voice.beatDrawingOffset(*beat));
    }

    void placesByTime() const
    {
        touch();
        const zarn::Voice &voice = *bar().voices()[0];
        for (unsigned i = 0; i < voice.beatCount(); ++i)
            benchmark::DoNotOptimize(voice.beatAt(utils::rational(2 * i + 1, 2)));
    }

    void order() const
    {
        touch();
        auto places = _places;
        std::sort(places.begin(), places.end());
        benchmark::DoNotOptimize(places);
    }

private:
    zarn::Bar &bar() const { return *_model->tracks()[0]->staves()[0]->bars()[0]; }

    std::shared_ptr<zarn::ScoreModel> _model;
    std::vector<zarn::ScoreModelIndex> _places;
};

/// Ten times the beats over the beats.
void compareGrowth(bench::RatioReport &report, const std::string &name, double target,
                   unsigned beatCount, void (LongBar::*work)() const)
{
    const auto run = [work](unsigned count) {
        return [bar = std::make_shared<LongBar>(count), work](benchmark::State &state) {
            for (auto _ : state)
                ((*bar).*work)();
        };
    };
    report.compare(name, target, run(beatCount), run(10 * beatCount));
}

} // namespace

int main(int argc, char **argv)
{
    bench::RatioReport report;
    const auto model = makeModel();
    const auto few = makePlaces(*model, 1, 8);
    const auto all = makePlaces(*model, trackCount, barCount);
    using zarn::ScoreModel;
    const auto beat = [](const ScoreModel &score, const Place &place) {
        return beatByHand(score, place).get();
    };
    const auto note = [](const ScoreModel &score, const Place &place) {
        return noteByHand(score, place).get();
    };
    const auto heldNote = [](const ScoreModel &score, const Place &place) {
        return std::shared_ptr<zarn::Note>(noteByHand(score, place));
    };
    const auto numbered = [](const ScoreModel &score, const Place &place) {
        return noteByNumber(score, place).get();
    };
    using Index = zarn::ScoreModelIndex;
    compareResolving(report, "places: to a beat", 2, model, all, beat, &Index::findBeat);
    compareResolving(report, "places: to a beat, cached", 2, model, few, beat, &Index::findBeat);
    compareResolving(report, "places: to a note", 2, model, all, note, &Index::findNote);
    compareResolving(report, "places: to a note, cached", 2, model, few, note, &Index::findNote);
    compareResolving(report, "places: to a note, shared by both", 2, model, all, heldNote,
                     &Index::note);
    compareResolving(report, "places: to a note, cached, shared by both", 2, model, few, heldNote,
                     &Index::note);
    // Not like with like: the chain knows more than the index and does less. In the cache, a share
    // of the note alone costs more than the whole chain.
    compareResolving(report, "places: to a note, chain told its number", 3, model, all, numbered,
                     &Index::findNote);
    compareResolving(report, "places: to a note, cached, chain told its number", 2, model, few,
                     numbered, &Index::findNote);
    compareResolving(report, "places: to a shared note, chain told its number", 5, model, all,
                     numbered, &Index::note);
    compareResolving(report, "places: to a shared note, cached, chain told its number", 5, model,
                     few, numbered, &Index::note);
    compareGrowth(report, "places: drawing offsets of 5,000 beats over 500", 13, 500,
                  &LongBar::drawingOffsets);
    // Growth with the square would be 100. Sorting and searching have their logarithm, 13 and 14 in
    // all, and in short lists the processor foresees how the comparisons turn out.
    compareGrowth(report, "places: 5,000 beats by their time over 500", 18, 500,
                  &LongBar::placesByTime);
    compareGrowth(report, "places: ordering 10,000 places over 1,000", 30, 500, &LongBar::order);
    return report.run(argc, argv);
}
