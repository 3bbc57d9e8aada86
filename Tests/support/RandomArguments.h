// SPDX-License-Identifier: MIT
#pragma once

#include <QCommandLineParser>
#include <QCoreApplication>

#include <cstdint>
#include <string>
#include <vector>

/// What programs that edit scores at random are told: how often, from which seed, and on which
/// scores; on all that there are, without one.
class RandomArguments {
public:
    RandomArguments(const QString &description, unsigned edits);

    /// A switch of the program's own, or an option with a value.
    void add(const QCommandLineOption &option) { _parser.addOption(option); }
    bool has(const QCommandLineOption &option) const { return _parser.isSet(option); }
    QString value(const QCommandLineOption &option) const { return _parser.value(option); }

    /// Reads the command line. False when a number is none; that is told then.
    bool read(const QCoreApplication &application);

    unsigned edits() const noexcept { return _count; }
    std::uint64_t seed() const noexcept { return _start; }
    const std::vector<std::string> &paths() const noexcept { return _paths; }

private:
    QCommandLineParser _parser;
    QCommandLineOption _edits;
    QCommandLineOption _seed;
    unsigned _count = 0;
    std::uint64_t _start = 0;
    std::vector<std::string> _paths;
};
