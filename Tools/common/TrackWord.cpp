// SPDX-License-Identifier: MIT
#include "common/TrackWord.h"

#include "common/BuiltIns.h"
#include "common/Choices.h"
#include "common/Failure.h"
#include "common/NearestWord.h"

#include <ZarnCore/instruments/sounds/ZarnSound.h>
#include <ZarnCore/model/ZarnScoreModel.h>

#include <algorithm>

namespace zarn::tool {

namespace {

constexpr unsigned DrumKitKey = 35;

/// What people say most, and the program or key that it stands for.
struct ShortWord {
    const char *word;
    TrackTemplate::Kind kind;
    unsigned number;
};

constexpr ShortWord ShortWords[] = {
    {"guitar", TrackTemplate::Kind::Program, 25},
    {"bass", TrackTemplate::Kind::Program, 33},
    {"piano", TrackTemplate::Kind::Program, 0},
    {"drums", TrackTemplate::Kind::PercussionKey, DrumKitKey},
};

template <class Condition>
const TrackTemplate *findTemplate(Condition condition)
{
    const auto &all = trackTemplates();
    const auto found = std::find_if(all.begin(), all.end(), condition);
    return found == all.end() ? nullptr : &*found;
}

const TrackTemplate *templateOf(TrackTemplate::Kind kind, unsigned number)
{
    return findTemplate(
        [&](const TrackTemplate &made) { return made.kind == kind && made.number == number; });
}

bool isSame(const QString &left, const QString &right)
{
    return left.compare(right, Qt::CaseInsensitive) == 0;
}

const TrackTemplate *templateOf(const QString &word)
{
    for (const ShortWord &known : ShortWords)
        if (isSame(word, QLatin1String(known.word)))
            return templateOf(known.kind, known.number);
    bool isNumber = false;
    const unsigned number = word.toUInt(&isNumber);
    if (isNumber)
        return templateOf(TrackTemplate::Kind::Program, number - 1);
    return findTemplate([&](const TrackTemplate &made) { return isSame(made.name, word); });
}

QString nameOf(InstrumentSet::Type type)
{
    return QString::fromStdString(InstrumentSet::typeName(type));
}

/// Whether a template's track is what its category is by itself.
bool isPlain(const Track &made, const Track &plain)
{
    return made.type() == plain.type() && made.iconID() == plain.iconID()
        && made.transpositionOffset() == plain.transpositionOffset()
        && made.staffCount() == plain.staffCount()
        && made.staff(0)->tuning() == plain.staff(0)->tuning();
}

/// The template that lends a track of a category its sound, short name and color: one that has the
/// category's own name, else the first that differs from it in nothing else.
const TrackTemplate *lenderFor(const Track &plain)
{
    const auto *const named = findTemplate([&](const TrackTemplate &made) {
        return made.track->type() == plain.type() && made.track->name() == plain.name();
    });
    if (named != nullptr)
        return named;
    return findTemplate([&](const TrackTemplate &made) { return isPlain(*made.track, plain); });
}

std::shared_ptr<Track> trackOfCategory(InstrumentSet::Type type)
{
    auto track = ScoreModel::createTrack(type);
    if (const TrackTemplate *const lender = lenderFor(*track)) {
        track->setShortName(lender->track->shortName());
        track->setColor(lender->track->color());
        auto sound = std::make_shared<Sound>(*lender->track->sounds().front());
        sound->setName(track->name());
        track->addSound(sound);
    } else if (InstrumentSet::isUnpitched(type)) {
        const auto *const kit = templateOf(TrackTemplate::Kind::PercussionKey, DrumKitKey);
        track->addSound(std::make_shared<const Sound>(track->name(),
                                                      kit->track->sounds().front()->midiSound()));
    }
    return track;
}

/// Raises; names categories and programs that are spelled much like the word.
[[noreturn]] void failUnknown(const QString &word)
{
    QStringList words = trackWords();
    for (const auto &[category, type] : instrumentChoices())
        words << nameOf(static_cast<InstrumentSet::Type>(type));
    for (const TrackTemplate &made : trackTemplates())
        words << made.name;
    const QString nearest = nearestWord(word, words);
    throw Failure(QStringLiteral("\"%1\" is not an instrument; %2")
                      .arg(word,
                           nearest.isEmpty() ? QStringLiteral(
                               "see \"zarn catalog gm\" and \"zarn catalog instruments\"")
                                             : QStringLiteral("did you mean \"%1\"?").arg(nearest))
                      .toStdString());
}

} // namespace

QStringList trackWords()
{
    QStringList words;
    for (const ShortWord &known : ShortWords)
        words << QLatin1String(known.word);
    for (const auto &[category, type] : instrumentChoices())
        words << category;
    return words;
}

std::shared_ptr<Track> makeTrack(const QString &word)
{
    for (const auto &[category, value] : instrumentChoices()) {
        const auto type = static_cast<InstrumentSet::Type>(value);
        if (isSame(word, category) || isSame(word, nameOf(type)))
            return trackOfCategory(type);
    }
    if (const TrackTemplate *const made = templateOf(word))
        return made->track->clone();
    failUnknown(word);
}

} // namespace zarn::tool
