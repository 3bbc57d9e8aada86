// SPDX-License-Identifier: MIT
#include "edit/LineEditor.h"

#include <QDir>
#include <QFile>
#include <QStandardPaths>

#include <histedit.h>

#include <algorithm>
#include <cstdio>

namespace zarn::tool {

namespace {

constexpr int HistoryLength = 1000;

std::string historyFile()
{
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation)
        + QStringLiteral("/zarn");
    if (!QDir().mkpath(folder))
        return std::string();
    return QFile::encodeName(folder + QStringLiteral("/edit-history")).toStdString();
}

std::string commonStart(const std::vector<std::string> &words)
{
    std::string start = words.front();
    for (const std::string &word : words) {
        const auto differing = std::mismatch(start.begin(), start.end(), word.begin(), word.end());
        start.erase(differing.first, start.end());
    }
    return start;
}

struct EndEditLine {
    void operator()(EditLine *line) const { ::el_end(line); }
};
struct EndHistory {
    void operator()(History *history) const { ::history_end(history); }
};

} // namespace

struct LineEditor::Private {
    static char *promptOf(EditLine *line)
    {
        Private *self = nullptr;
        ::el_get(line, EL_CLIENTDATA, &self);
        return self->prompt.data();
    }

    static unsigned char complete(EditLine *line, int)
    {
        Private *self = nullptr;
        ::el_get(line, EL_CLIENTDATA, &self);
        return self->completeLine();
    }

    unsigned char completeLine();

    Completer completer;
    std::string prompt;
    std::string historyPath;
    std::unique_ptr<History, EndHistory> history;
    std::unique_ptr<EditLine, EndEditLine> line;
};

unsigned char LineEditor::Private::completeLine()
{
    const LineInfo *const info = ::el_line(line.get());
    const std::string text(info->buffer, info->cursor);
    const std::vector<std::string> words = completer(text);
    if (words.empty())
        return CC_ERROR;
    const auto wordStart = text.find_last_of(' ') + 1;
    std::string rest =
        commonStart(words).substr(std::min(text.size() - wordStart, commonStart(words).size()));
    if (words.size() == 1)
        rest += ' ';
    if (!rest.empty())
        return ::el_insertstr(line.get(), rest.c_str()) == 0 ? CC_REFRESH : CC_ERROR;
    std::fputc('\n', stdout);
    for (const std::string &word : words)
        std::fprintf(stdout, "%s  ", word.c_str());
    std::fputc('\n', stdout);
    std::fflush(stdout);
    return CC_REDISPLAY;
}

LineEditor::LineEditor(Completer completer) : _p(std::make_unique<Private>())
{
    _p->completer = std::move(completer);
    _p->history.reset(::history_init());
    _p->line.reset(::el_init("zarn", stdin, stdout, stderr));
    if (!_p->history || !_p->line)
        return;
    HistEvent event;
    ::history(_p->history.get(), &event, H_SETSIZE, HistoryLength);
    ::history(_p->history.get(), &event, H_SETUNIQUE, 1);
    _p->historyPath = historyFile();
    if (!_p->historyPath.empty())
        ::history(_p->history.get(), &event, H_LOAD, _p->historyPath.c_str());
    EditLine *const line = _p->line.get();
    ::el_set(line, EL_CLIENTDATA, _p.get());
    ::el_set(line, EL_PROMPT, &Private::promptOf);
    ::el_set(line, EL_EDITOR, "emacs");
    ::el_set(line, EL_SIGNAL, 1);
    ::el_set(line, EL_HIST, ::history, _p->history.get());
    // The form for narrow characters copies these two texts and never frees the copies.
    ::el_wset(line, EL_ADDFN, L"zarn-complete", L"Complete the word", &Private::complete);
    ::el_set(line, EL_BIND, "^I", "zarn-complete", nullptr);
    ::el_set(line, EL_BIND, "^R", "em-inc-search-prev", nullptr);
    ::el_source(line, nullptr);
}

LineEditor::~LineEditor()
{
    HistEvent event;
    if (_p->history && !_p->historyPath.empty())
        ::history(_p->history.get(), &event, H_SAVE, _p->historyPath.c_str());
}

std::optional<std::string> LineEditor::read(const std::string &prompt)
{
    if (!_p->line)
        return std::nullopt;
    _p->prompt = prompt;
    int count = 0;
    const char *const text = ::el_gets(_p->line.get(), &count);
    if (text == nullptr || count <= 0)
        return std::nullopt;
    std::string read(text, static_cast<std::size_t>(count));
    while (!read.empty() && (read.back() == '\n' || read.back() == '\r'))
        read.pop_back();
    HistEvent event;
    if (!read.empty())
        ::history(_p->history.get(), &event, H_ENTER, read.c_str());
    return read;
}

} // namespace zarn::tool
