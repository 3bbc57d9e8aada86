// SPDX-License-Identifier: MIT
#include <ZarnCore/instruments/tunings/UserTuningXml.h>

#include <QXmlStreamWriter>

#include <algorithm>

namespace zarn {

namespace {

const QString rootName = QStringLiteral("UserTunings");
const QString tuningName = QStringLiteral("Tuning");
const QString midiNumberName = QStringLiteral("MidiNumber");

const QString instrumentAttribute = QStringLiteral("Instrument");
const QString nameAttribute = QStringLiteral("Name");
const QString isFlatAttribute = QStringLiteral("IsFlat");
const QString droneAttribute = QStringLiteral("HasShortDroneString");
const QString offsetAttribute = QStringLiteral("MidiOffset");
const QString numberAttribute = QStringLiteral("Number");
const QString indexAttribute = QStringLiteral("Index");

/// No pitches lie further apart.
constexpr int largestOffset = 127;

/// A text without the characters that no XML document may hold.
QString writableText(const std::string &text)
{
    auto written = QString::fromStdString(text);
    for (int i = 0; i < written.size(); ++i) {
        const auto sign = written.at(i).unicode();
        const bool isPair = written.at(i).isHighSurrogate() && i + 1 < written.size()
            && written.at(i + 1).isLowSurrogate();
        if (isPair)
            ++i;
        else if ((sign < 0x20 && sign != '\t' && sign != '\n' && sign != '\r') || sign >= 0xFFFE
                 || written.at(i).isSurrogate())
            written[i] = QChar::ReplacementCharacter;
    }
    return written;
}

/// A text as it stands between quotes.
QByteArray attributeText(const std::string &text)
{
    const QString writable = writableText(text);
    const auto isPlain = [](QChar sign) {
        const auto code = sign.unicode();
        return code >= 0x20 && code != '<' && code != '>' && code != '&' && code != '"';
    };
    if (std::all_of(writable.begin(), writable.end(), isPlain))
        return writable.toUtf8();
    QString element;
    QXmlStreamWriter writer(&element);
    writer.writeEmptyElement(tuningName);
    writer.writeAttribute(nameAttribute, writable);
    const int first = element.indexOf(QLatin1Char('"')) + 1;
    return element.mid(first, element.lastIndexOf(QLatin1Char('"')) - first).toUtf8();
}

QByteArray numberText(int value)
{
    return QByteArray::number(value);
}

} // namespace

QByteArray UserTuningText::elementOf(const GuitarTuning &tuning)
{
    // Most of a tuning is numbers, which a general writer takes ten times as long for.
    QByteArray text = "\n  <Tuning Instrument=\""
        + numberText(static_cast<int>(tuning.instrument())) + "\" Name=\""
        + attributeText(tuning.name()) + "\" IsFlat=\"" + numberText(tuning.isFlat() ? 1 : 0)
        + "\" HasShortDroneString=\"" + numberText(tuning.hasShortDroneString() ? 1 : 0)
        + "\" MidiOffset=\"" + numberText(tuning.midiOffset()) + '"';
    if (tuning.stringCount() == 0)
        return text.append("/>");
    text.append('>');
    for (unsigned string = 0; string < tuning.stringCount(); ++string)
        text.append("\n    <MidiNumber Number=\"")
            .append(numberText(tuning.tuning(string)))
            .append("\" Index=\"")
            .append(numberText(static_cast<int>(string)))
            .append("\"/>");
    return text.append("\n  </Tuning>");
}

void UserTuningText::append(unsigned stringCount, const QByteArray &element)
{
    _parts[stringCount].append(element);
}

QByteArray UserTuningText::document() const
{
    QByteArray text = "<UserTunings>";
    for (const auto &part : _parts)
        text.append(part.second);
    return text.append(_tail).append("\n</UserTunings>\n");
}

UserTuningDocument::UserTuningDocument(const QByteArray &text) : _reader(text)
{
    _reader.setNamespaceProcessing(false);
    if (_reader.readNextStartElement())
        readRoot();
    while (!_reader.atEnd())
        _reader.readNext();
    if (!_reader.hasError())
        return;
    _tunings.clear();
    _isList = false;
    _fault = QStringLiteral("line %1, column %2: %3")
                 .arg(_reader.lineNumber())
                 .arg(_reader.columnNumber())
                 .arg(_reader.errorString());
}

void UserTuningDocument::readRoot()
{
    _isList = _reader.qualifiedName() == rootName;
    if (!_isList) {
        report(_reader.lineNumber(),
               QStringLiteral("the root is \"%1\", not \"%2\"")
                   .arg(_reader.qualifiedName().toString(), rootName));
        return;
    }
    while (_reader.readNext() != QXmlStreamReader::EndElement && !_reader.hasError()) {
        if (_reader.isStartElement() && _reader.qualifiedName() == tuningName) {
            readTuning();
        } else if (_reader.isStartElement()) {
            report(_reader.lineNumber(),
                   QStringLiteral("\"%1\" is no tuning").arg(_reader.qualifiedName().toString()));
            _reader.skipCurrentElement();
        } else if (!_reader.isComment() && !_reader.isWhitespace()) {
            report(_reader.lineNumber(),
                   QStringLiteral("%1 is no tuning").arg(_reader.tokenString()));
        }
    }
}

void UserTuningDocument::readTuning()
{
    const Start start{_reader.attributes(), _reader.lineNumber()};
    const std::vector<Pitch> pitches = readPitches();
    if (pitches.size() > GuitarTuning::maximumStringCount) {
        report(start.line,
               QStringLiteral("a tuning has %1 strings, and at most %2 are possible")
                   .arg(pitches.size())
                   .arg(GuitarTuning::maximumStringCount));
        return;
    }
    auto tuning = std::make_shared<GuitarTuning>(static_cast<unsigned>(pitches.size()));
    if (!setPitches(*tuning, pitches)) {
        report(start.line, QStringLiteral("a string of a tuning has no pitch"));
        return;
    }
    const int instrument = number(start, instrumentAttribute);
    if (instrument >= 0 && instrument <= static_cast<int>(GuitarTuning::Contrabass))
        tuning->setInstrument(static_cast<GuitarTuning::Instrument>(instrument));
    else
        report(start.line, QStringLiteral("no instrument has the number %1").arg(instrument));
    tuning->setName(start.attributes.value(nameAttribute).toUtf8().toStdString());
    tuning->setFlat(number(start, isFlatAttribute) != 0);
    tuning->setShortDroneString(number(start, droneAttribute) != 0);
    const int offset = number(start, offsetAttribute);
    if (offset >= -largestOffset && offset <= largestOffset)
        tuning->setMidiOffset(offset);
    else
        report(start.line, QStringLiteral("no tuning is %1 semitones too low").arg(offset));
    _tunings.push_back(std::move(tuning));
}

/// Those of all elements up to the end of the tuning, however deep they stand.
std::vector<UserTuningDocument::Pitch> UserTuningDocument::readPitches()
{
    std::vector<Pitch> pitches;
    pitches.reserve(GuitarTuning::maximumStringCount);
    for (int depth = 1; depth > 0 && !_reader.hasError();) {
        const auto token = _reader.readNext();
        if (token == QXmlStreamReader::EndElement)
            --depth;
        if (token != QXmlStreamReader::StartElement)
            continue;
        ++depth;
        if (_reader.qualifiedName() != midiNumberName)
            continue;
        const Start start{_reader.attributes(), _reader.lineNumber()};
        Pitch pitch{0, 0, start.line, true};
        pitch.string = number(start, indexAttribute, &pitch.isNumber);
        pitch.midi = number(start, numberAttribute, &pitch.isNumber);
        pitches.push_back(pitch);
    }
    return pitches;
}

bool UserTuningDocument::setPitches(GuitarTuning &tuning, const std::vector<Pitch> &pitches)
{
    std::vector<bool> isSet(pitches.size());
    for (const Pitch &pitch : pitches) {
        if (!pitch.isNumber)
            continue;
        const auto string = static_cast<std::size_t>(pitch.string); // huge when negative
        if (string >= isSet.size() || isSet[string])
            report(pitch.line, QStringLiteral("no string for the index %1").arg(pitch.string));
        if (string >= isSet.size())
            continue;
        tuning.setTuning(static_cast<unsigned>(string), pitch.midi);
        isSet[string] = true;
    }
    return std::find(isSet.begin(), isSet.end(), false) == isSet.end();
}

int UserTuningDocument::number(const Start &start, const QString &attribute, bool *isNumber)
{
    const auto text = start.attributes.value(attribute);
    bool isRight = true;
    const int number = text.isEmpty() ? 0 : text.toInt(&isRight, 10);
    if (!isRight) {
        report(start.line,
               QStringLiteral("%1 \"%2\" is no number").arg(attribute, text.toString()));
        if (isNumber != nullptr)
            *isNumber = false;
    }
    return number;
}

void UserTuningDocument::report(qint64 line, const QString &fault)
{
    if (_fault.isEmpty())
        _fault = QStringLiteral("line %1: %2").arg(line).arg(fault);
}

} // namespace zarn
