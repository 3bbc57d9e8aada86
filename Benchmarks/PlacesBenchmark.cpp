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

/// Places of notes: all over the score, or in a few bars that stay in the cache.
std::vector<Place> makePlaces(zarn::ScoreModel &model, unsigned tracks, unsigned bars)
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
    return places;
}

/// The note at the end of the chain, as a plain pointer or as a shared one; and as the index
/// answers it.
template <class Result, class Answer>
void compareResolving(bench::RatioReport &report, const std::string &name, double target,
                      const std::shared_ptr<zarn::ScoreModel> &model, std::vector<Place> places,
                      Result (*result)(const std::shared_ptr<zarn::Note> &),
                      Answer (zarn::ScoreModelIndex::*note)() const)
{
    const auto shared = std::make_shared<const std::vector<Place>>(std::move(places));
    report.compare(
        name, target,
        [model, shared, result](benchmark::State &state) {
            for (auto _ : state)
                for (const Place &place : *shared)
                    benchmark::DoNotOptimize(result(model->tracks()[place.track]
                                                        ->staves()[0]
                                                        ->bars()[place.bar]
                                                        ->voices()[0]
                                                        ->beats()[place.beat]
                                                        ->notes()[place.note]));
        },
        [shared, note](benchmark::State &state) {
            for (auto _ : state)
                for (const Place &place : *shared)
                    benchmark::DoNotOptimize((place.index.*note)());
        });
}

/// What an index names, found by hand: the note of a string at the end of the chain. The chain
/// alone never looks at a note, which lies elsewhere in memory.
void compareStrings(bench::RatioReport &report, const std::string &name, double target,
                    const std::shared_ptr<zarn::ScoreModel> &model, std::vector<Place> places)
{
    const auto shared = std::make_shared<const std::vector<Place>>(std::move(places));
    report.compare(
        name, target,
        [model, shared](benchmark::State &state) {
            for (auto _ : state)
                for (const Place &place : *shared) {
                    const int string = 4 + static_cast<int>(place.note);
                    const auto &voice =
                        model->tracks()[place.track]->staves()[0]->bars()[place.bar]->voices()[0];
                    for (const auto &note : voice->beats()[place.beat]->notes())
                        if (note->string() == string) {
                            benchmark::DoNotOptimize(note.get());
                            break;
                        }
                }
        },
        [shared](benchmark::State &state) {
            for (auto _ : state)
                for (const Place &place : *shared)
                    benchmark::DoNotOptimize(place.index.findNote());
        });
}

zarn::Note *plain(const std::shared_ptr<zarn::Note> &note)
{
    return note.get();
}

std::shared_ptr<zarn::Note> held(const std::shared_ptr<zarn::Note> &note)
{
    return note;
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
    // A share of the node alone costs more, in the cache, than the whole chain.
    const auto few = makePlaces(*model, 1, 8);
    const auto all = makePlaces(*model, trackCount, barCount);
    const auto note = &zarn::ScoreModelIndex::note;
    const auto found = &zarn::ScoreModelIndex::findNote;
    compareResolving(report, "places: index to note", 5, model, all, &plain, note);
    compareResolving(report, "places: index to note, both held", 5, model, all, &held, note);
    compareResolving(report, "places: index to note, unshared", 2, model, all, &plain, found);
    compareStrings(report, "places: index to note by string, unshared", 2, model, all);
    compareResolving(report, "places: index to note, cached", 5, model, few, &plain, note);
    compareResolving(report, "places: index to note, cached, both held", 5, model, few, &held,
                     note);
    compareResolving(report, "places: index to note, cached, unshared", 2, model, few, &plain,
                     found);
    compareGrowth(report, "places: drawing offsets of 5,000 beats over 500", 13, 500,
                  &LongBar::drawingOffsets);
    // Growth with the square would be 100. Sorting and searching have their logarithm, 13 and 14 in
    // all, and in short lists the processor foresees how the comparisons turn out.
    compareGrowth(report, "places: 5,000 beats by their time over 500", 18, 500,
                  &LongBar::placesByTime);
    compareGrowth(report, "places: ordering 10,000 places over 1,000", 30, 500, &LongBar::order);
    return report.run(argc, argv);
}
