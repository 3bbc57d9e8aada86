// SPDX-License-Identifier: MIT
#include <ZarnCore/ZarnAssert.h>
#include <ZarnCore/io/native/DocumentWriter.h>

#include <QString>
#include <QTextCodec>

#include <array>
#include <charconv>
#include <cmath>

namespace zarn::io::native {

namespace {

bool isAscii(std::string_view text)
{
    for (const char letter : text)
        if (static_cast<unsigned char>(letter) >= 0x80)
            return false;
    return true;
}

bool isUtf8(std::string_view text)
{
    QTextCodec::ConverterState state(QTextCodec::IgnoreHeader);
    QTextCodec::codecForName("UTF-8")->toUnicode(text.data(), static_cast<int>(text.size()),
                                                 &state);
    return state.invalidChars == 0 && state.remainingChars == 0;
}

} // namespace

void DocumentWriter::text(std::string_view text)
{
    if (isAscii(text) || isUtf8(text)) {
        String(text.data(), static_cast<unsigned>(text.size()));
        return;
    }
    const QByteArray repaired =
        QString::fromUtf8(text.data(), static_cast<int>(text.size())).toUtf8();
    String(repaired.constData(), static_cast<unsigned>(repaired.size()));
}

template <typename Real>
void DocumentWriter::writeReal(Real number)
{
    if (!std::isfinite(number))
        ZARN_RAISE_IN("zarn::io::native::DocumentWriter::real",
                      "a number that is not finite cannot be written");
    std::array<char, 40> text;
    char *const limit = text.data() + text.size();
    char *end = std::to_chars(text.data(), limit, number).ptr;
    // Readers go through a double; where that rounds twice, more digits say what was meant.
    double read = 0;
    std::from_chars(text.data(), end, read);
    if (static_cast<Real>(read) != number)
        end = std::to_chars(text.data(), limit, static_cast<double>(number)).ptr;
    RawValue(text.data(), static_cast<std::size_t>(end - text.data()), rapidjson::kNumberType);
}

void DocumentWriter::real(float number)
{
    writeReal(number);
}

void DocumentWriter::real(double number)
{
    writeReal(number);
}

void DocumentWriter::startLine()
{
    Prefix(rapidjson::kObjectType);
    os_->Put('\n');
    new (level_stack_.template Push<Level>()) Level(false);
    WriteStartObject();
}

} // namespace zarn::io::native
