// SPDX-License-Identifier: MIT
#include "support/RandomArguments.h"

#include "support/ScoreFiles.h"

#include <cstdio>

RandomArguments::RandomArguments(const QString &description, unsigned edits)
    : _edits(QStringLiteral("edits"), QStringLiteral("Edits on each score."), QStringLiteral("N"),
             QString::number(edits)),
      _seed(QStringLiteral("seed"), QStringLiteral("Start of the random numbers."),
            QStringLiteral("S"), QStringLiteral("1"))
{
    _parser.setApplicationDescription(description);
    _parser.addHelpOption();
    _parser.addOptions({_edits, _seed});
    _parser.addPositionalArgument(QStringLiteral("FILE"),
                                  QStringLiteral("MusicXML files or native documents; all samples "
                                                 "and real scores that are there, without one."),
                                  QStringLiteral("[FILE...]"));
}

bool RandomArguments::read(const QCoreApplication &application)
{
    _parser.process(application);
    constexpr unsigned most = 1000000;
    bool isCount = false;
    bool isSeed = false;
    _count = _parser.value(_edits).toUInt(&isCount);
    _start = _parser.value(_seed).toULongLong(&isSeed);
    if (!isCount || !isSeed || _count > most) {
        std::fprintf(stderr, "--edits takes a number up to %u, --seed a number\n", most);
        return false;
    }
    for (const QString &path : _parser.positionalArguments())
        _paths.push_back(path.toStdString());
    if (_paths.empty())
        _paths = scoreFiles();
    return true;
}
