// SPDX-License-Identifier: MIT
#include <ZarnCore/instruments/tunings/UserTuningXml.h>

#include <QDomDocument>
#include <QTextStream>
#include <QXmlStreamReader>

#include <set>

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

/// The document is three levels deep; the DOM would follow any depth by recursion.
constexpr int maximumDepth = 64;

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

/// Why the text cannot become a document; empty when it can.
QString faultOf(const QByteArray &text)
{
    QXmlStreamReader reader(text);
    for (int depth = 0; !reader.atEnd();) {
        const auto token = reader.readNext();
        if (token == QXmlStreamReader::StartElement)
            ++depth;
        else if (token == QXmlStreamReader::EndElement)
            --depth;
        if (depth > maximumDepth)
            return QStringLiteral("line %1: elements are nested too deeply")
                .arg(reader.lineNumber());
    }
    if (!reader.hasError())
        return QString();
    return QStringLiteral("line %1, column %2: %3")
        .arg(reader.lineNumber())
        .arg(reader.columnNumber())
        .arg(reader.errorString());
}

void collectMidiNumbers(const QDomElement &parent, std::vector<QDomElement> &found)
{
    for (auto child = parent.firstChildElement(); !child.isNull();
         child = child.nextSiblingElement()) {
        if (child.tagName() == midiNumberName)
            found.push_back(child);
        collectMidiNumbers(child, found);
    }
}

} // namespace

UserTuningText::Part::Part() : writer(&text)
{
    writer.setAutoFormatting(true);
    writer.setAutoFormattingIndent(indentation);
    writer.writeStartElement(rootName);
}

void UserTuningText::append(const GuitarTuning &tuning)
{
    auto &writer = _parts[tuning.stringCount()].writer;
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

QByteArray UserTuningText::document(const char *tail, int tailSize) const
{
    QByteArray text = "<UserTunings>";
    for (const auto &[stringCount, part] : _parts) {
        const int start = part.text.indexOf('>') + 1;
        text.append(part.text.constData() + start, part.text.size() - start);
    }
    text.append('\n').append(tail, tailSize).append("</UserTunings>\n");
    return text;
}

UserTuningDocument::UserTuningDocument(const QByteArray &text)
{
    _fault = faultOf(text);
    QDomDocument document;
    if (!_fault.isEmpty() || !document.setContent(text, &_fault))
        return;
    const auto root = document.documentElement();
    _isList = root.tagName() == rootName;
    if (_isList)
        read(root);
    else
        report(root,
               QStringLiteral("the root is \"%1\", not \"%2\"").arg(root.tagName(), rootName));
}

void UserTuningDocument::read(const QDomElement &root)
{
    QTextStream stream(&_text);
    stream.setCodec("UTF-8");
    for (auto node = root.firstChild(); !node.isNull(); node = node.nextSibling()) {
        if (node.isText() && node.nodeValue().trimmed().isEmpty())
            continue;
        node.save(stream, indentation);
        stream.flush();
        const auto element = node.toElement();
        if (element.tagName() == tuningName)
            _elements.push_back({readTuning(element), _text.size()});
        else if (!node.isComment())
            report(node, QStringLiteral("\"%1\" is no tuning").arg(node.nodeName()));
    }
    if (!_elements.empty())
        _elements.back().tail = _text.size();
}

std::shared_ptr<GuitarTuning> UserTuningDocument::readTuning(const QDomElement &element)
{
    std::vector<QDomElement> midiNumbers;
    collectMidiNumbers(element, midiNumbers);
    auto tuning = std::make_shared<GuitarTuning>(static_cast<unsigned>(midiNumbers.size()));
    std::set<int> strings;
    for (const auto &midiNumber : midiNumbers) {
        bool isRight = true;
        const int string = number(midiNumber, indexAttribute, isRight);
        const int midi = number(midiNumber, numberAttribute, isRight);
        if (!isRight)
            continue;
        if (string < 0 || static_cast<unsigned>(string) >= tuning->stringCount()
            || !strings.insert(string).second)
            report(midiNumber, QStringLiteral("no string for the index %1").arg(string));
        if (string >= 0)
            tuning->setTuning(static_cast<unsigned>(string), midi);
    }
    bool isRight = true;
    const int instrument = number(element, instrumentAttribute, isRight);
    if (instrument >= 0 && instrument <= static_cast<int>(GuitarTuning::Contrabass))
        tuning->setInstrument(static_cast<GuitarTuning::Instrument>(instrument));
    else
        report(element, QStringLiteral("no instrument has the number %1").arg(instrument));
    tuning->setName(element.attribute(nameAttribute).toStdString());
    tuning->setFlat(number(element, isFlatAttribute, isRight) != 0);
    tuning->setShortDroneString(number(element, droneAttribute, isRight) != 0);
    tuning->setMidiOffset(number(element, offsetAttribute, isRight));
    return tuning;
}

int UserTuningDocument::number(const QDomElement &element, const QString &attribute, bool &isRight)
{
    const auto text = element.attribute(attribute);
    bool isNumber = true;
    const int number = text.isEmpty() ? 0 : text.toInt(&isNumber, 10);
    if (!isNumber) {
        report(element, QStringLiteral("%1 \"%2\" is no number").arg(attribute, text));
        isRight = false;
    }
    return number;
}

void UserTuningDocument::report(const QDomNode &node, const QString &fault)
{
    if (_fault.isEmpty())
        _fault = QStringLiteral("line %1: %2").arg(node.lineNumber()).arg(fault);
}

} // namespace zarn
