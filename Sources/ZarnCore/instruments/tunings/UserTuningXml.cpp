// SPDX-License-Identifier: MIT
#include <ZarnCore/instruments/tunings/UserTuningXml.h>

namespace zarn {

namespace {

constexpr QLatin1String rootName("UserTunings", 11);
constexpr QLatin1String tuningName("Tuning", 6);
constexpr QLatin1String midiNumberName("MidiNumber", 10);

constexpr QLatin1String instrumentAttribute("Instrument", 10);
constexpr QLatin1String nameAttribute("Name", 4);
constexpr QLatin1String isFlatAttribute("IsFlat", 6);
constexpr QLatin1String droneAttribute("HasShortDroneString", 19);
constexpr QLatin1String offsetAttribute("MidiOffset", 10);
constexpr QLatin1String numberAttribute("Number", 6);
constexpr QLatin1String indexAttribute("Index", 5);

constexpr int indentation = 2;

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

QString flagText(bool flag)
{
    return flag ? QStringLiteral("1") : QStringLiteral("0");
}

} // namespace

UserTuningText::Part::Part() : writer(&text)
{
    writer.setAutoFormatting(true);
    writer.setAutoFormattingIndent(indentation);
    writer.writeStartElement(rootName);
}

void UserTuningText::Part::append(const GuitarTuning &tuning)
{
    writer.writeStartElement(tuningName);
    writer.writeAttribute(instrumentAttribute,
                          QString::number(static_cast<unsigned>(tuning.instrument())));
    writer.writeAttribute(nameAttribute, writableText(tuning.name()));
    writer.writeAttribute(isFlatAttribute, flagText(tuning.isFlat()));
    writer.writeAttribute(droneAttribute, flagText(tuning.hasShortDroneString()));
    writer.writeAttribute(offsetAttribute, QString::number(tuning.midiOffset()));
    for (unsigned string = 0; string < tuning.stringCount(); ++string) {
        writer.writeEmptyElement(midiNumberName);
        writer.writeAttribute(numberAttribute, QString::number(tuning.tuning(string)));
        writer.writeAttribute(indexAttribute, QString::number(string));
    }
    writer.writeEndElement();
}

void UserTuningText::append(const GuitarTuning &tuning)
{
    _parts[tuning.stringCount()].append(tuning);
}

QByteArray UserTuningText::of(const GuitarTuning &tuning)
{
    UserTuningText text;
    text.append(tuning);
    return text.document();
}

void UserTuningText::setTail(Tunings::const_iterator first, Tunings::const_iterator last)
{
    _tail.reset();
    if (first != last)
        _tail = std::make_unique<Part>();
    for (; first != last; ++first)
        _tail->append(**first);
}

void UserTuningText::appendElements(QByteArray &text, const Part &part)
{
    const int start = part.text.indexOf('>') + 1;
    text.append(part.text.constData() + start, part.text.size() - start);
}

QByteArray UserTuningText::document() const
{
    QByteArray text = "<UserTunings>";
    for (const auto &[stringCount, part] : _parts)
        appendElements(text, part);
    if (_tail != nullptr)
        appendElements(text, *_tail);
    return text.append("\n</UserTunings>\n");
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
    setPitches(*tuning, pitches);
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

void UserTuningDocument::setPitches(GuitarTuning &tuning, const std::vector<Pitch> &pitches)
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
}

int UserTuningDocument::number(const Start &start, QLatin1String attribute, bool *isNumber)
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
