// SPDX-License-Identifier: MIT
#include "new/TuningWord.h"

#include "common/Arguments.h"
#include "common/BuiltIns.h"
#include "edit/MusicReader.h"
#include "edit/NearestWord.h"

#include <ZarnCore/instruments/tunings/ZarnGuitarTuningLibrary.h>
#include <ZarnCore/model/ZarnTrack.h>

#include <optional>

namespace zarn::tool {

namespace {

constexpr unsigned AllRoles = GuitarTuning::CoreRole | GuitarTuning::UserRole;

/// The named tuning of an instrument; of several, the one with a number of strings, if any.
std::shared_ptr<const GuitarTuning> namedTuning(const GuitarTuning &present, const QString &name,
                                                QStringList &names)
{
    std::shared_ptr<const GuitarTuning> found;
    for (const auto &tuning : loadedCore().tuningLibrary().getTunings(AllRoles)) {
        if (tuning->instrument() != present.instrument())
            continue;
        const QString known = QString::fromStdString(tuning->name());
        names.append(known);
        if (known.compare(name, Qt::CaseInsensitive) != 0)
            continue;
        if (tuning->stringCount() == present.stringCount())
            return tuning;
        if (!found)
            found = tuning;
    }
    return found;
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
    if (notes.empty() || static_cast<int>(notes.size()) > loadedCore().maxNoteStringsCount())
        return std::nullopt;
    return notes;
}

[[noreturn]] void failUnknown(const QString &word, const QStringList &names,
                              GuitarTuning::Instrument instrument)
{
    const QString nearest = nearestWord(word, names);
    const QString advice = nearest.isEmpty()
        ? QStringLiteral("see \"zarn catalog tunings --instrument %1\"")
              .arg(QString::fromStdString(GuitarTuning::instrumentToString(instrument)))
        : QStringLiteral("did you mean \"%1\"?").arg(nearest);
    throw UsageError{
        QStringLiteral("--tuning: \"%1\" is neither a tuning of this instrument nor the notes of "
                       "up to %2 strings; %3")
            .arg(word)
            .arg(loadedCore().maxNoteStringsCount())
            .arg(advice)};
}

} // namespace

void tune(Track &track, const QString &word)
{
    const GuitarTuning present = track.staff(0)->tuning();
    if (present.stringCount() == 0)
        throw UsageError{QStringLiteral("--tuning: \"%1\" has no strings to tune")
                             .arg(QString::fromStdString(track.name()))};
    QStringList names;
    GuitarTuning tuning = present;
    if (const auto named = namedTuning(present, word, names))
        tuning = *named;
    else if (const auto notes = notesOf(word))
        tuning.setMidiNumbers(*notes);
    else
        failUnknown(word, names, present.instrument());
    for (unsigned staff = 0; staff < track.staffCount(); ++staff)
        track.staff(staff)->setTuning(tuning);
}

} // namespace zarn::tool
