// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/instruments/tunings/ZarnGuitarTuning.h>

#include <QByteArray>
#include <QDomElement>
#include <QXmlStreamWriter>

#include <map>
#include <memory>
#include <vector>

namespace zarn {

/// The text of the user's tunings. Tunings join it one by one, so that the text can be had after
/// each of them without building it anew.
class UserTuningText {
public:
    /// Puts a tuning behind those with as many strings; those with fewer strings come first.
    void append(const GuitarTuning &tuning);

    /// The whole document, with the `tail` of it, elements as text, behind the tunings.
    QByteArray document(const char *tail, int tailSize) const;
    QByteArray document() const { return document("", 0); }

private:
    struct Part {
        Part();

        /// The document with the tunings of one string count, its end left open.
        QByteArray text;
        QXmlStreamWriter writer;
    };

    std::map<unsigned, Part> _parts;
};

/// The user's tunings as they were read from a text.
class UserTuningDocument {
public:
    struct Element {
        std::shared_ptr<GuitarTuning> tuning;
        /// Where in the text what is not read yet begins: the elements behind this one; the end
        /// for the last tuning.
        int tail;
    };

    /// Empty, with a fault, when the text is no list of tunings.
    explicit UserTuningDocument(const QByteArray &text);

    const std::vector<Element> &elements() const noexcept { return _elements; }
    const QByteArray &elementsText() const noexcept { return _text; }

    bool isList() const noexcept { return _isList; }

    /// What was not understood first; empty when everything was.
    const QString &fault() const noexcept { return _fault; }

private:
    void read(const QDomElement &root);
    std::shared_ptr<GuitarTuning> readTuning(const QDomElement &element);
    int number(const QDomElement &element, const QString &attribute, bool &isRight);
    void report(const QDomNode &node, const QString &fault);

    std::vector<Element> _elements;
    QByteArray _text;
    QString _fault;
    bool _isList = false;
};

} // namespace zarn
