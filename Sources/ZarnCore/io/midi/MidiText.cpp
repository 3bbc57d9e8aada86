// SPDX-License-Identifier: MIT
#include <ZarnCore/io/midi/MidiText.h>

#include <QString>
#include <QTextCodec>

namespace zarn::io {

std::string rawTextOfMidi(std::string_view bytes)
{
    const auto size = static_cast<int>(bytes.size());
    QTextCodec::ConverterState state;
    constexpr int mibOfUtf8 = 106;
    QString text = QTextCodec::codecForMib(mibOfUtf8)->toUnicode(bytes.data(), size, &state);
    if (state.invalidChars > 0 || state.remainingChars > 0)
        text = QString::fromLatin1(bytes.data(), size);
    QString kept;
    for (const QChar character : text)
        if (character.isSpace() || character.category() != QChar::Other_Control)
            kept += character;
    return kept.toStdString();
}

std::string textOfMidi(std::string_view bytes)
{
    return QString::fromStdString(rawTextOfMidi(bytes)).simplified().toStdString();
}

} // namespace zarn::io
