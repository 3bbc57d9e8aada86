// SPDX-License-Identifier: MIT
#include <ZarnCore/io/sheet/TrackText.h>

#include <ZarnCore/io/sheet/OpenStrings.h>
#include <ZarnCore/io/sheet/Texts.h>
#include <ZarnCore/model/ZarnScoreModel.h>

namespace zarn::sheet {

namespace {

void addOnce(QStringList &details, const QString &detail)
{
    if (!details.contains(detail))
        details.append(detail);
}

QString firstSet(const ScoreModel &model, std::initializer_list<ScoreProperty> properties)
{
    for (const ScoreProperty property : properties)
        if (!model.property(property).empty())
            return QString::fromStdString(model.property(property));
    return QString();
}

} // namespace

QString transpositionText(int semitones)
{
    if (semitones == 0)
        return QString();
    const QString direction = semitones < 0 ? QStringLiteral("higher") : QStringLiteral("lower");
    const int size = semitones < 0 ? -semitones : semitones;
    if (size == 12)
        return QStringLiteral("written an octave %1").arg(direction);
    return QStringLiteral("written %1 semitone%2 %3")
        .arg(size)
        .arg(size == 1 ? QString() : QStringLiteral("s"), direction);
}

QString tuningText(const Track &track, unsigned staffIndex, Signs signs)
{
    const auto staff = track.staff(staffIndex);
    return staff ? openStrings(staff->tuning(), signs).join(QLatin1Char(' ')) : QString();
}

QString trackText(const Track &track, Signs signs)
{
    QStringList details;
    if (track.type() != InstrumentSet::unknown)
        details.append(QString::fromStdString(InstrumentSet::typeName(track.type())));
    for (const auto &staff : track.staves()) {
        const QString tuning = tuningText(track, staff->index(), signs);
        if (!tuning.isEmpty())
            addOnce(details, QStringLiteral("tuning ") + tuning);
        if (staff->capoFret() != 0)
            addOnce(details, QStringLiteral("capo %1").arg(staff->capoFret()));
    }
    const QString transposition = transpositionText(track.transpositionOffset());
    if (!transposition.isEmpty())
        details.append(transposition);
    const QString name = track.name().empty() ? QStringLiteral("(no name)")
                                              : QString::fromStdString(track.name()).simplified();
    const QString number = QStringLiteral("%1 %2").arg(track.index() + 1).arg(name);
    return details.isEmpty() ? number
                             : number + QStringLiteral(": ") + details.join(QStringLiteral(", "));
}

QStringList titleLines(const ScoreModel &model, std::optional<unsigned> shown, Signs signs)
{
    QStringList lines;
    const QString title = firstSet(model, {ScoreProperty::Title});
    const QString author = firstSet(
        model, {ScoreProperty::Music, ScoreProperty::WordsAndMusic, ScoreProperty::Artist});
    const QString between = title.isEmpty() || author.isEmpty() ? QString() : QStringLiteral(", ");
    if (!(title + author).isEmpty())
        lines.append(title + between + author);
    if (!model.property(ScoreProperty::Subtitle).empty())
        lines.append(QString::fromStdString(model.property(ScoreProperty::Subtitle)));
    for (const auto &track : model.tracks())
        if (!shown || *shown == track->index())
            lines.append(trackText(*track, signs));
    return lines;
}

} // namespace zarn::sheet
