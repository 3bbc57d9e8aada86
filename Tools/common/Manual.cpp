// SPDX-License-Identifier: MIT
#include "common/Manual.h"

#include "common/Program.h"
#include "common/TrackWord.h"
#include "edit/Commands.h"

namespace zarn::tool {

namespace {

/// A text as it stands, safe from being read as a request.
QString escaped(QString text)
{
    text.replace(QLatin1Char('\\'), QStringLiteral("\\e"));
    text.replace(QLatin1Char('-'), QStringLiteral("\\-"));
    QStringList lines = text.split(QLatin1Char('\n'));
    for (QString &line : lines)
        if (line.startsWith(QLatin1Char('.')) || line.startsWith(QLatin1Char('\'')))
            line.prepend(QStringLiteral("\\&"));
    return lines.join(QLatin1Char('\n'));
}

QString optionHead(const Option &option)
{
    QString head = option.shortName.isEmpty()
        ? QString()
        : QStringLiteral("\\fB\\-%1\\fR, ").arg(escaped(option.shortName));
    head += QStringLiteral("\\fB\\-\\-%1\\fR").arg(escaped(option.name));
    return option.valueName.isEmpty()
        ? head
        : head + QStringLiteral(" \\fI%1\\fR").arg(escaped(option.valueName));
}

QString pageOf(const Subcommand &command)
{
    QString page = QStringLiteral(".SS zarn %1\n%2\n.PP\n")
                       .arg(escaped(command.name), escaped(command.summary));
    if (!command.details.isEmpty())
        page += QStringLiteral(".nf\n%1\n.fi\n").arg(escaped(command.details));
    for (const Option &option : command.options)
        page += QStringLiteral(".TP\n%1\n%2\n").arg(optionHead(option), escaped(option.text));
    return page;
}

QStringList namesOfSubcommands()
{
    QStringList names;
    for (const Subcommand &command : subcommands())
        names.append(command.name);
    return names;
}

QStringList optionWords(const Subcommand &command)
{
    QStringList words(QStringLiteral("--help"));
    for (const Option &option : command.options)
        words.append(QStringLiteral("--") + option.name);
    return words;
}

/// "-t|--track" with the words that the option takes.
QString valueCase(const Option &option, const QStringList &words)
{
    const QString names = option.shortName.isEmpty()
        ? QStringLiteral("--") + option.name
        : QStringLiteral("-%1|--%2").arg(option.shortName, option.name);
    return QStringLiteral("        %1) words='%2' ;;\n").arg(names, words.join(QLatin1Char('\n')));
}

QStringList valuesOf(const Subcommand &command, const Option &option)
{
    if (option.name == QStringLiteral("track") && command.name == QStringLiteral("new"))
        return trackWords();
    if (option.name != QStringLiteral("command"))
        return {};
    QStringList names;
    for (const CommandArea &area : commandAreas())
        for (const Command &known : area.commands)
            names.append(known.name);
    return names;
}

} // namespace

QString manualPage()
{
    QString page = QStringLiteral(".TH ZARN 1\n"
                                  ".SH NAME\n"
                                  "zarn \\- make, look into, show, edit and convert music scores\n"
                                  ".SH SYNOPSIS\n");
    for (const Subcommand &command : subcommands())
        page += QStringLiteral(".B zarn %1\n%2%3\n.br\n")
                    .arg(escaped(command.name),
                         command.options.empty() ? QString() : QStringLiteral("[OPTION...] "),
                         escaped(command.operands));
    page += QStringLiteral(".B zarn help\n[COMMAND]\n.SH COMMANDS\n");
    for (const Subcommand &command : subcommands())
        page += pageOf(command);
    page += QStringLiteral(
        ".SH EXIT STATUS\n"
        "0 done, 1 a document or an edit had an error, 2 wrong usage.\n"
        ".SH ENVIRONMENT\n"
        "COLUMNS is the width of what is not printed on a terminal, 80 when it is not set. With\n"
        "NO_COLOR, nothing is coloured.\n");
    return page;
}

QString bashCompletion()
{
    QString script =
        QStringLiteral(
            "# bash completion for zarn\n"
            "_zarn()\n"
            "{\n"
            "    local word=${COMP_WORDS[COMP_CWORD]} before=${COMP_WORDS[COMP_CWORD-1]} words=\n"
            "    local IFS=$'\\n'\n"
            "    COMPREPLY=()\n"
            "    if ((COMP_CWORD == 1)); then\n"
            "        COMPREPLY=($(compgen -W '%1' -- \"$word\"))\n"
            "        return\n"
            "    fi\n"
            "    case ${COMP_WORDS[1]} in\n")
            .arg((namesOfSubcommands() + QStringList(QStringLiteral("help")))
                     .join(QLatin1Char('\n')));
    script += QStringLiteral("    help) words='%1' ;;\n")
                  .arg(namesOfSubcommands().join(QLatin1Char('\n')));
    for (const Subcommand &command : subcommands()) {
        script += QStringLiteral("    %1)\n        case $before in\n").arg(command.name);
        for (const Option &option : command.options)
            if (const QStringList values = valuesOf(command, option); !values.isEmpty())
                script += valueCase(option, values);
        script += QStringLiteral("        *) [[ $word != -* ]] || words='%1' ;;\n"
                                 "        esac ;;\n")
                      .arg(optionWords(command).join(QLatin1Char('\n')));
    }
    return script
        + QStringLiteral("    esac\n"
                         "    if [[ -n $words ]]; then\n"
                         "        COMPREPLY=($(compgen -W \"$words\" -- \"$word\"))\n"
                         "    else\n"
                         "        COMPREPLY=($(compgen -f -- \"$word\"))\n"
                         "    fi\n"
                         "}\n"
                         "complete -o filenames -F _zarn zarn\n");
}

} // namespace zarn::tool
