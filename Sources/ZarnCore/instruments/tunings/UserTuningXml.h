// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/instruments/tunings/ZarnGuitarTuning.h>

#include <QByteArray>
#include <QXmlStreamReader>

#include <map>
#include <memory>
#include <vector>

namespace zarn {

/// The text of the user's tunings, always the same for the same tunings.
class UserTuningText {
public:
    /// What stands in the document for a tuning.
    static QByteArray elementOf(const GuitarTuning &tuning);

    /// Puts a tuning behind those with as many strings; those with fewer strings come first.
    void append(unsigned stringCount, const QByteArray &element);
    void append(const GuitarTuning &tuning) { append(tuning.stringCount(), elementOf(tuning)); }

    /// What stands at the end whatever its strings are: elements of tunings that are not read yet.
    void setTail(const QByteArray &elements) { _tail = elements; }

    /// The whole document.
    QByteArray document() const;

private:
    std::map<unsigned, QByteArray> _parts; ///< elements by the number of strings
    QByteArray _tail;
};

/// The user's tunings as they were read from a text.
class UserTuningDocument {
public:
    /// Empty, with a fault, when the text is no list of tunings.
    explicit UserTuningDocument(const QByteArray &text);

    const std::vector<std::shared_ptr<GuitarTuning>> &tunings() const noexcept { return _tunings; }

    bool isList() const noexcept { return _isList; }

    /// What was not understood first; empty when everything was.
    const QString &fault() const noexcept { return _fault; }

private:
    /// Where a string's pitch is to go.
    struct Pitch {
        int string;
        int midi;
        qint64 line;
        bool isNumber;
    };

    /// The start of an element.
    struct Start {
        QXmlStreamAttributes attributes;
        qint64 line;
    };

    void readRoot();
    void readTuning();
    std::vector<Pitch> readPitches();

    /// False when a string was left without a pitch.
    bool setPitches(GuitarTuning &tuning, const std::vector<Pitch> &pitches);
    int number(const Start &start, const QString &attribute, bool *isNumber = nullptr);
    void report(qint64 line, const QString &fault);

    QXmlStreamReader _reader;
    std::vector<std::shared_ptr<GuitarTuning>> _tunings;
    QString _fault;
    bool _isList = false;
};

} // namespace zarn
