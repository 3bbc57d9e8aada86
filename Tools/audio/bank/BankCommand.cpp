// SPDX-License-Identifier: MIT
#include "audio/bank/BankCommand.h"

#include "common/Failure.h"
#include "common/NearestWord.h"
#include "common/Progress.h"
#include "common/Terminal.h"
#include "common/TextTable.h"
#include "common/Texts.h"

#include <ZarnAudio/ZarnBankCheck.h>
#include <ZarnCore/instruments/soundbanks/ZarnHVSoundFont.h>
#include <ZarnCore/instruments/soundbanks/ZarnSoundbankPacking.h>
#include <filesystem/DiskFileSystem.h>

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <cmath>
#include <iostream>

namespace zarn::tool {

namespace {

using Halvec::audio::BankCheck;

QString text(const std::string &utf8)
{
    return QString::fromStdString(printable(utf8));
}

QString secondsText(const BankCheck::Sample &sample)
{
    return QString::number(static_cast<double>(sample.frames) / sample.rate, 'f', 3);
}

/// Decibels below full scale.
QString peakText(const BankCheck::Sample &sample)
{
    constexpr double decibels = 20;
    return sample.peak > 0 ? QString::number(decibels * std::log10(double(sample.peak)), 'f', 1)
                           : QStringLiteral("silent");
}

void printCheck(const BankCheck &check, const Terminal &terminal)
{
    if (check.bank != nullptr) {
        std::cout << printable(check.bank->id() + ": " + check.bank->name() + ", ")
                  << counted(check.bank->samples().size(), "sample") << ", "
                  << counted(check.bank->regions().size(), "region")
                  << (check.isPacked ? ", packed" : "") << '\n';
        using Side = TextTable::Side;
        TextTable table({{QStringLiteral("Sample")},
                         {QStringLiteral("Channels"), Side::Right},
                         {QStringLiteral("Rate"), Side::Right},
                         {QStringLiteral("Seconds"), Side::Right},
                         {QStringLiteral("Peak dB"), Side::Right}});
        for (const auto &sample : check.samples)
            table.addRow({text(sample.name), QString::number(sample.channels),
                          QString::number(sample.rate), secondsText(sample), peakText(sample)});
        if (!check.samples.empty())
            std::cout << table.text(terminal);
    }
    for (const auto &warning : check.warnings)
        std::cout << "warning: " << printable(warning) << '\n';
    std::cout.flush();
    for (const auto &error : check.errors)
        std::cerr << "zarn: " << printable(error) << '\n';
    if (check.errors.empty())
        std::cout << (check.warnings.empty() ? "All well.\n" : "It can be played.\n");
}

QJsonArray arrayOf(const std::vector<std::string> &texts)
{
    QJsonArray array;
    for (const auto &line : texts)
        array.append(text(line));
    return array;
}

void printJson(const BankCheck &check)
{
    QJsonArray samples;
    for (const auto &sample : check.samples)
        samples.append(QJsonObject{{QStringLiteral("name"), text(sample.name)},
                                   {QStringLiteral("frames"), double(sample.frames)},
                                   {QStringLiteral("channels"), sample.channels},
                                   {QStringLiteral("rate"), sample.rate},
                                   {QStringLiteral("peak"), double(sample.peak)}});
    QJsonObject object{{QStringLiteral("packed"), check.isPacked},
                       {QStringLiteral("samples"), samples},
                       {QStringLiteral("errors"), arrayOf(check.errors)},
                       {QStringLiteral("warnings"), arrayOf(check.warnings)}};
    if (check.bank != nullptr) {
        object.insert(QStringLiteral("id"), text(check.bank->id()));
        object.insert(QStringLiteral("name"), text(check.bank->name()));
        object.insert(QStringLiteral("regions"), static_cast<int>(check.bank->regions().size()));
    }
    std::cout << QJsonDocument(object).toJson().toStdString();
}

int runCheck(const Arguments &arguments, const Terminal &terminal)
{
    filesystem::DiskFileSystem files;
    const std::string path = arguments.operand(1);
    const auto check = [&] {
        const Progress progress(terminal, "checking " + path);
        return Halvec::audio::checkBank(files, path);
    }();
    if (arguments.has(QStringLiteral("json")))
        printJson(check);
    else
        printCheck(check, terminal);
    return check.errors.empty() ? Done : Failed;
}

int runPack(const Arguments &arguments, const Terminal &terminal)
{
    filesystem::DiskFileSystem files;
    const Progress progress(terminal, "packing " + arguments.operand(1));
    packSoundbank(files, arguments.operand(1), arguments.operand(2));
    return Done;
}

int runUnpack(const Arguments &arguments, const Terminal &terminal)
{
    filesystem::DiskFileSystem files;
    const Progress progress(terminal, "unpacking " + arguments.operand(1));
    unpackSoundbank(files, arguments.operand(1), arguments.operand(2));
    return Done;
}

struct Action {
    const char *name;
    const char *operands;
    int operandCount; ///< with the name
    int (*run)(const Arguments &, const Terminal &);
};

constexpr Action actions[] = {
    {"check", "BANK", 2, runCheck},
    {"pack", "FOLDER FILE", 3, runPack},
    {"unpack", "FILE FOLDER", 3, runUnpack},
};

const Action &actionOf(const QString &name)
{
    QStringList names;
    for (const Action &action : actions) {
        if (name == QLatin1String(action.name))
            return action;
        names.append(QLatin1String(action.name));
    }
    const QString nearest = nearestWord(name, names);
    throw UsageError{QStringLiteral("\"zarn bank\" cannot \"%1\"; %2")
                         .arg(name,
                              nearest.isEmpty()
                                  ? QStringLiteral("there are ") + names.join(QStringLiteral(", "))
                                  : QStringLiteral("did you mean \"%1\"?").arg(nearest))};
}

int runBank(const Arguments &arguments, const Terminal &terminal)
{
    const Action &action = actionOf(arguments.operands().first());
    if (arguments.operands().size() != action.operandCount)
        throw UsageError{QStringLiteral("\"zarn bank %1\" takes %2")
                             .arg(QLatin1String(action.name), QLatin1String(action.operands))};
    return action.run(arguments, terminal);
}

} // namespace

Subcommand bankCommand()
{
    return {
        QStringLiteral("bank"),
        QStringLiteral("ACTION FILE..."),
        1,
        3,
        QStringLiteral("Packs, unpacks and checks sound banks."),
        QStringLiteral(
            "A bank is a description (bank.json) and samples beside it, in WAV, FLAC, Ogg\n"
            "Vorbis or raw; or both in one archive (.zarn7bank).\n"
            "  check BANK          reads every sample to its end and tells what is wrong; BANK\n"
            "                      is an archive, a description or a folder\n"
            "  pack FOLDER FILE    makes one archive of the description and the samples that\n"
            "                      it names\n"
            "  unpack FILE FOLDER  takes an archive apart, into a folder that is new or empty\n"
            "Banks in the folder \"soundbanks\" of the user's data for zarn are installed: \"zarn\n"
            "catalog banks\" lists them."),
        {{QStringLiteral("json"), QStringLiteral("j"), QString(),
          QStringLiteral("For check: print JSON for programs.")}},
        runBank,
    };
}

} // namespace zarn::tool
