// SPDX-License-Identifier: MIT
#include "scale/PositionPicture.h"

#include "common/Terminal.h"
#include "common/Texts.h"
#include "common/TuningWord.h"

#include <ZarnCore/instruments/tunings/ZarnGuitarTuning.h>

#include <QString>
#include <QStringList>

#include <algorithm>

namespace zarn::tool {

namespace {

constexpr int CellWidth = 5;

struct NeckGlyphs {
    QString string;
    QString fret;
    QString nut;
};

QString centred(const QString &text, QChar filling)
{
    const int left = (CellWidth - text.size()) / 2;
    return (QString(left, filling) + text).leftJustified(CellWidth, filling);
}

/// What a string has at a fret: a tone of the scale, or nothing.
QString toneText(const scale::Scale &scale, Tone tone, Signs signs)
{
    for (const PitchClass &member : scale.tones()) {
        if (member.tone() != tone)
            continue;
        const QString name = signs == Signs::Symbols ? member.symbol() : member.toString();
        return tone == scale.tonic().tone() ? QLatin1Char('(') + name + QLatin1Char(')') : name;
    }
    return {};
}

} // namespace

std::string positionPicture(const scale::Scale &scale,
                            const std::vector<scale::ScalePosition> &positions,
                            const GuitarTuning &tuning, const Terminal &terminal)
{
    const bool asSigns = terminal.showsUtf8();
    const NeckGlyphs glyphs = asSigns
        ? NeckGlyphs{QStringLiteral("\u2500"), QStringLiteral("\u253c"), QStringLiteral("\u2551")}
        : NeckGlyphs{QStringLiteral("-"), QStringLiteral("+"), QStringLiteral("|")};
    const Signs signs = asSigns ? Signs::Symbols : Signs::Letters;
    const QStringList strings = openStrings(tuning, signs);
    int nameWidth = 0;
    for (const QString &name : strings)
        nameWidth = std::max(nameWidth, name.size());
    QString text;
    for (const scale::ScalePosition &position : positions) {
        QString frets(nameWidth + 1, QLatin1Char(' '));
        for (int fret = position.firstFret; fret <= position.lastFret; ++fret)
            frets += QLatin1Char(' ') + centred(QString::number(fret), QLatin1Char(' '));
        text += QLatin1Char('\n');
        while (frets.endsWith(QLatin1Char(' ')))
            frets.chop(1);
        text += frets + QLatin1Char('\n');
        for (int string = strings.size() - 1; string >= 0; --string) {
            text += strings.at(string).leftJustified(nameWidth) + QLatin1Char(' ');
            const auto &held = position.frets[static_cast<std::size_t>(string)];
            for (int fret = position.firstFret; fret <= position.lastFret; ++fret) {
                const bool isHeld = std::find(held.begin(), held.end(), fret) != held.end();
                const Tone tone = tuning.tone(static_cast<unsigned>(string), fret);
                const QString name = isHeld ? toneText(scale, tone, signs) : QString();
                // The open strings stand in front of the nut.
                const bool isOpen = fret == 0;
                text += isOpen ? QStringLiteral(" ") : fret == 1 ? glyphs.nut : glyphs.fret;
                text += centred(name, isOpen ? QLatin1Char(' ') : glyphs.string.at(0));
            }
            text += glyphs.fret + QLatin1Char('\n');
        }
    }
    return text.toStdString();
}

} // namespace zarn::tool
