// SPDX-License-Identifier: MIT
#include "common/TuningWord.h"

#include "common/BuiltIns.h"
#include "common/Failure.h"
#include "common/MusicReader.h"
#include "common/NearestWord.h"
#include "common/Terminal.h"
#include "common/Texts.h"

#include <ZarnCore/instruments/tunings/ZarnGuitarTuningLibrary.h>
#include <ZarnCore/model/ZarnTrack.h>

#include <QRegularExpression>

#include <algorithm>
#include <optional>

namespace zarn::tool {

namespace {

[[noreturn]] void fail(const QString &text)
{
    throw Failure(text.toStdString());
}

QString stringsText(unsigned count)
{
    return QString::fromStdString(counted(count, "string"));
}

[[noreturn]] void failOtherSize(const QString &what, unsigned present)
{
    fail(QStringLiteral("%1, but there are %2 to tune; ask for another number of strings first, "
                        "or for another tuning")
             .arg(what)
             .arg(stringsText(present)));
}

/// The tuning of a name; raises when there are only such with other numbers of strings.
std::shared_ptr<const GuitarTuning> named(const GuitarTuning &present, const QString &name,
                                          QStringList &names)
{
    QStringList sizes;
    const auto &library = loadedCore().tuningLibrary();
    for (const auto &tuning :
         library.getTunings(present.instrument(), GuitarTuningLibrary::allRoles)) {
        const QString known = QString::fromStdString(tuning->name());
        names.append(known);
        if (known.compare(name, Qt::CaseInsensitive) != 0)
            continue;
        if (tuning->stringCount() == present.stringCount())
            return tuning;
        sizes.append(QString::number(tuning->stringCount()));
    }
    if (!sizes.isEmpty())
        failOtherSize(QStringLiteral("\"%1\" is for %2 strings")
                          .arg(name, sizes.join(QStringLiteral(" or "))),
                      present.stringCount());
    return nullptr;
}

/// Notes such as "D2 A2 D3"; nothing when a word is no note that a string can have.
std::optional<std::vector<int>> notesOf(const QString &text)
{
    std::vector<int> notes;
    for (const QString &word : text.split(QLatin1Char(' '), Qt::SkipEmptyParts)) {
        const auto pitch = parsePitch(word);
        if (!pitch || pitch->midi < GuitarTuning::minimumMidi
            || pitch->midi > GuitarTuning::maximumMidi)
            return std::nullopt;
        notes.push_back(pitch->midi);
    }
    return notes.empty() ? std::nullopt : std::optional(notes);
}

void requireStrings(const GuitarTuning &present)
{
    if (present.stringCount() == 0)
        fail(QStringLiteral("there are no strings to tune"));
}

unsigned usualStringCount(GuitarTuning::Instrument instrument)
{
    switch (instrument) {
    case GuitarTuning::Guitar:
        return 6;
    case GuitarTuning::Banjo:
        return 5;
    case GuitarTuning::Shamisen:
        return 3;
    default:
        return 4;
    }
}

} // namespace

GuitarTuning presentTuning(const Staff &staff)
{
    GuitarTuning tuning = staff.tuning();
    const auto track = staff.track();
    if (tuning.instrument() == GuitarTuning::Undefined && track)
        tuning.setInstrument(Track(track->type()).staff(0)->tuning().instrument());
    return tuning;
}

GuitarTuning tuningOf(const GuitarTuning &present, const QString &words)
{
    requireStrings(present);
    if (const auto notes = notesOf(words)) {
        if (notes->size() != present.stringCount())
            failOtherSize(QString::fromStdString((notes->size() == 1 ? "this is " : "these are ")
                                                 + counted(notes->size(), "note")),
                          present.stringCount());
        GuitarTuning tuning = present;
        tuning.setMidiNumbers(*notes);
        tuning.setName({});
        return tuning;
    }
    QStringList names;
    if (const auto tuning = named(present, words, names))
        return *tuning;
    const QString nearest = nearestWord(words, names);
    fail(QStringLiteral("\"%1\" is neither the name of a tuning for this instrument nor the notes "
                        "of its strings; %2")
             .arg(words,
                  nearest.isEmpty()
                      ? QStringLiteral("see \"zarn catalog tunings --instrument %1\"")
                            .arg(QString::fromStdString(
                                GuitarTuning::instrumentToString(present.instrument())))
                      : QStringLiteral("did you mean \"%1\"?").arg(nearest)));
}

GuitarTuning anyTuning(const QString &words)
{
    const auto &library = loadedCore().tuningLibrary();
    if (const auto notes = notesOf(words)) {
        if (const auto known = library.findGuitarTuning(
                *notes, static_cast<unsigned>(notes->size()), GuitarTuningLibrary::allRoles))
            return *known;
        GuitarTuning tuning;
        tuning.setMidiNumbers(*notes);
        return tuning;
    }
    QStringList names;
    std::shared_ptr<const GuitarTuning> found;
    const auto isOfGuitar = [](const GuitarTuning &tuning) {
        return tuning.instrument() == GuitarTuning::Guitar
            && tuning.stringCount() == usualStringCount(GuitarTuning::Guitar);
    };
    for (const auto &tuning : library.getTunings(GuitarTuningLibrary::allRoles)) {
        const QString name = QString::fromStdString(tuning->name());
        const QString instrument =
            QString::fromStdString(GuitarTuning::instrumentToString(tuning->instrument()));
        names << name << instrument;
        if (instrument.compare(words, Qt::CaseInsensitive) == 0)
            return *library.defaultTuning(tuning->instrument(),
                                          usualStringCount(tuning->instrument()),
                                          GuitarTuningLibrary::allRoles);
        if (name.compare(words, Qt::CaseInsensitive) == 0
            && (!found || (isOfGuitar(*tuning) && !isOfGuitar(*found))))
            found = tuning;
    }
    if (found)
        return *found;
    const QString nearest = nearestWord(words, names);
    fail(QStringLiteral("\"%1\" is neither the name of a tuning or an instrument nor the notes of "
                        "strings; %2")
             .arg(words,
                  nearest.isEmpty() ? QStringLiteral("see \"zarn catalog tunings\"")
                                    : QStringLiteral("did you mean \"%1\"?").arg(nearest)));
}

GuitarTuning usualTuning(const GuitarTuning &present, unsigned stringCount)
{
    requireStrings(present);
    if (stringCount == present.stringCount())
        return present;
    const auto usual = loadedCore().tuningLibrary().defaultTuning(present.instrument(), stringCount,
                                                                  GuitarTuningLibrary::allRoles);
    if (usual)
        return *usual;
    const QString instrument =
        QString::fromStdString(GuitarTuning::instrumentToString(present.instrument()));
    fail(QStringLiteral("no tuning with %1 is known for this instrument; see \"zarn catalog "
                        "tunings --instrument %2\"")
             .arg(stringsText(stringCount), instrument));
}

} // namespace zarn::tool
