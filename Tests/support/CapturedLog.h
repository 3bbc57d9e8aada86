// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QLoggingCategory>
#include <QString>
#include <QtGlobal>

#include <mutex>
#include <string>
#include <vector>

namespace zarn::test {

/// What the library logs while this lives, from whatever thread, in its order; it is not printed.
/// Everything of "zarn.core" is turned on, debug messages too. One at a time.
class CapturedLog {
public:
    struct Line {
        std::string category;
        QtMsgType type;
        std::string text;
    };

    CapturedLog()
    {
        current() = this;
        QLoggingCategory::setFilterRules(QStringLiteral("zarn.core*=true"));
        _before = qInstallMessageHandler(&CapturedLog::take);
    }
    ~CapturedLog()
    {
        qInstallMessageHandler(_before);
        QLoggingCategory::setFilterRules(QString());
        current() = nullptr;
    }
    CapturedLog(const CapturedLog &) = delete;
    CapturedLog &operator=(const CapturedLog &) = delete;

    std::vector<Line> lines() const
    {
        const std::lock_guard<std::mutex> lock(_mutex);
        return _lines;
    }

    /// The texts of one category.
    std::vector<std::string> texts(const std::string &category) const
    {
        std::vector<std::string> found;
        for (const Line &line : lines()) {
            if (line.category == category)
                found.push_back(line.text);
        }
        return found;
    }

    /// Whether a warning, or worse, of the category has all the parts.
    bool hasWarning(const std::string &category, const std::vector<std::string> &parts) const
    {
        for (const Line &line : lines()) {
            bool fits =
                line.category == category && line.type != QtDebugMsg && line.type != QtInfoMsg;
            for (const std::string &part : parts)
                fits = fits && line.text.find(part) != std::string::npos;
            if (fits)
                return true;
        }
        return false;
    }

private:
    static CapturedLog *&current()
    {
        static CapturedLog *log = nullptr;
        return log;
    }

    static void take(QtMsgType type, const QMessageLogContext &context, const QString &text)
    {
        CapturedLog &log = *current();
        const std::lock_guard<std::mutex> lock(log._mutex);
        log._lines.push_back({context.category, type, text.toStdString()});
    }

    mutable std::mutex _mutex;
    std::vector<Line> _lines;
    QtMessageHandler _before;
};

} // namespace zarn::test
