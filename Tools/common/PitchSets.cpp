// SPDX-License-Identifier: MIT
#include "common/PitchSets.h"

#include "common/Arguments.h"
#include "common/Failure.h"
#include "common/MusicReader.h"

#include <ZarnCore/chords/ZarnKeySpelling.h>

#include <QJsonArray>
#include <QJsonDocument>
#include <QRegularExpression>

#include <iostream>
#include <string>

namespace zarn::tool {

namespace {

std::string line(const QStringList &names, bool asJson)
{
    if (!asJson)
        return names.join(QStringLiteral("  ")).toStdString();
    return QJsonDocument(QJsonArray::fromStringList(names))
        .toJson(QJsonDocument::Compact)
        .toStdString();
}

} // namespace

std::vector<int> pitchesOf(const QString &text)
{
    static const QRegularExpression separators(QStringLiteral("[,;\\s]+"));
    std::vector<int> pitches;
    for (const QString &word : text.split(separators, Qt::SkipEmptyParts)) {
        const auto pitch = parsePitch(word);
        if (!pitch)
            throw Failure("\"" + word.toStdString()
                          + "\" is no pitch; pitches are MIDI numbers, 0 to 127, or names such as "
                            "C4, middle C");
        pitches.push_back(pitch->midi);
    }
    return pitches;
}

KeySignature keyOf(const Arguments &arguments)
{
    if (!arguments.has(QStringLiteral("key")))
        return KeySignature();
    const QString text = arguments.value(QStringLiteral("key"));
    const auto key = chord::KeySpelling::keyFromText(text.toStdString());
    if (!key)
        throw UsageError{QStringLiteral("\"%1\" is no key; keys are named by their tonic, minor "
                                        "ones in lower case: Bb, f#")
                             .arg(text)};
    return *key;
}

int printNames(const Arguments &arguments,
               const std::function<QStringList(const std::vector<int> &)> &namesOf,
               const QString &nothing)
{
    const bool asJson = arguments.has(QStringLiteral("json"));
    const QString given = arguments.value(QStringLiteral("notes"));
    if (given != QStringLiteral("-")) {
        const QStringList names = namesOf(pitchesOf(given));
        if (asJson)
            std::cout << line(names, true) << '\n';
        else if (names.isEmpty())
            throw Failure(nothing.toStdString());
        for (const QString &name : asJson ? QStringList() : names)
            std::cout << name.toStdString() << '\n';
        return Done;
    }
    int code = Done;
    int number = 0;
    for (std::string text; std::getline(std::cin, text);) {
        ++number;
        QStringList names;
        try {
            names = namesOf(pitchesOf(QString::fromStdString(text)));
        } catch (const Failure &failure) {
            std::cerr << "zarn: standard input: line " << number << ": " << failure.what() << '\n';
            code = Failed;
        }
        std::cout << line(names, asJson) << '\n';
    }
    return code;
}

} // namespace zarn::tool
