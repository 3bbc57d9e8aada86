// SPDX-License-Identifier: MIT
#include <ZarnCore/io/musicxml/XmlText.h>

#include <ZarnCore/io/ZarnImportException.h>
#include <ZarnCore/io/ZarnImportReport.h>

#include <QTextCodec>

#include <algorithm>
#include <cstdint>
#include <string_view>
#include <utility>

namespace zarn::io {

namespace {

/// What the first bytes of a file say about its encoding (XML 1.0, appendix F).
struct Signature {
    std::string_view bytes;
    std::string_view encoding;
    std::size_t markLength;
};

using namespace std::string_view_literals;
constexpr Signature signatures[] = {
    {"\x00\x00\xFE\xFF"sv, "UTF-32BE", 4},
    {"\xFF\xFE\x00\x00"sv, "UTF-32LE", 4},
    {"\xEF\xBB\xBF"sv, "UTF-8", 3},
    {"\xFE\xFF"sv, "UTF-16BE", 2},
    {"\xFF\xFE"sv, "UTF-16LE", 2},
    {"\x00\x00\x00<"sv, "UTF-32BE", 0},
    {"<\x00\x00\x00"sv, "UTF-32LE", 0},
    {"\x00<"sv, "UTF-16BE", 0},
    {"<\x00"sv, "UTF-16LE", 0},
};

Signature signatureOf(std::string_view bytes)
{
    for (const auto &signature : signatures)
        if (bytes.substr(0, signature.bytes.size()) == signature.bytes)
            return signature;
    return {{}, {}, 0};
}

std::string upper(std::string_view text)
{
    std::string result(text);
    for (auto &letter : result)
        if (letter >= 'a' && letter <= 'z')
            letter = static_cast<char>(letter - 'a' + 'A');
    return result;
}

/// The encoding that an XML declaration names, in upper case; nothing without one.
std::string declaredEncoding(std::string_view text)
{
    if (text.substr(0, 5) != "<?xml")
        return {};
    const auto declaration = text.substr(0, text.find("?>"));
    auto at = declaration.find("encoding");
    if (at == declaration.npos)
        return {};
    at = declaration.find_first_of("\"'", at);
    if (at == declaration.npos)
        return {};
    const auto end = declaration.find(declaration[at], at + 1);
    return end == declaration.npos ? std::string()
                                   : upper(declaration.substr(at + 1, end - at - 1));
}

std::string place(std::string_view text, std::size_t at)
{
    const auto line = std::count(text.begin(), text.begin() + static_cast<long>(at), '\n') + 1;
    return "line " + std::to_string(line);
}

std::string hexByte(char byte)
{
    constexpr char digits[] = "0123456789ABCDEF";
    const auto value = static_cast<unsigned char>(byte);
    return std::string("0x") + digits[value >> 4] + digits[value & 15];
}

/// Length of the well-formed UTF-8 sequence that starts at a byte above 0x7F (Unicode 15,
/// table 3-7); 0 when there is none.
std::size_t sequenceLength(std::string_view text, std::size_t at)
{
    const auto byte = [&](std::size_t i) {
        return i < text.size() ? static_cast<unsigned char>(text[i]) : 0u;
    };
    const auto continues = [&](std::size_t i) { return (byte(i) & 0xC0) == 0x80; };
    const auto first = byte(at);
    const auto second = byte(at + 1);
    if (first < 0xC2 || first > 0xF4 || !continues(at + 1))
        return 0;
    if (first < 0xE0)
        return 2;
    if (!continues(at + 2))
        return 0;
    if (first < 0xF0) {
        const bool overlong = first == 0xE0 && second < 0xA0;
        const bool surrogate = first == 0xED && second > 0x9F;
        return overlong || surrogate ? 0 : 3;
    }
    const bool outside = (first == 0xF0 && second < 0x90) || (first == 0xF4 && second > 0x8F);
    return outside || !continues(at + 3) ? 0 : 4;
}

constexpr std::size_t blockSize = 240; ///< a byte counts to 255

struct BlockContent {
    bool isPlain;      ///< all bytes are ASCII and none is zero
    std::uint8_t tags; ///< that begin or end in it
};

/// Without a way out, the loop is done on many bytes at once.
BlockContent contentOf(const char *block) noexcept
{
    unsigned char odd = 0;
    std::uint8_t tags = 0;
    for (std::size_t i = 0; i < blockSize; ++i) {
        odd |= static_cast<unsigned char>(static_cast<signed char>(block[i]) <= 0);
        tags = static_cast<std::uint8_t>(tags + (block[i] == '<' ? 1 : 0));
    }
    return {odd == 0, tags};
}

/// Position of the first byte that is not well-formed UTF-8, or is zero; or `npos`. Counts the tags
/// up to there.
std::size_t firstInvalidByte(std::string_view text, std::size_t &tags)
{
    std::size_t at = 0;
    tags = 0;
    while (at < text.size()) {
        if (at + blockSize <= text.size())
            if (const auto content = contentOf(text.data() + at); content.isPlain) {
                at += blockSize;
                tags += content.tags;
                continue;
            }
        for (const auto end = std::min(at + blockSize, text.size()); at < end;) {
            const auto byte = static_cast<unsigned char>(text[at]);
            const bool isPlain = byte != 0 && byte < 0x80;
            const std::size_t length = isPlain ? 1 : sequenceLength(text, at);
            if (length == 0)
                return at;
            tags += byte == '<';
            at += length;
        }
    }
    return text.npos;
}

/// Where decoding failed: at the first replacement character, else where the text is cut off.
std::string lineOfFault(const QString &text)
{
    const int bad = text.indexOf(QChar(QChar::ReplacementCharacter));
    return "line " + std::to_string(text.left(bad).count(QLatin1Char('\n')) + 1);
}

std::string converted(const std::string &document, std::string_view bytes,
                      const std::string &encoding)
{
    auto *codec = QTextCodec::codecForName(QByteArray::fromStdString(encoding));
    if (!codec)
        ZARN_REFUSE_IN("zarn::io::decodeXml", document, "line 1",
                       "the encoding \"" + encoding + "\" is not known");
    QTextCodec::ConverterState state(QTextCodec::IgnoreHeader);
    const auto text = codec->toUnicode(bytes.data(), static_cast<int>(bytes.size()), &state);
    if (state.invalidChars > 0 || state.remainingChars > 0)
        ZARN_REFUSE_IN("zarn::io::decodeXml", document, lineOfFault(text),
                       "the text is not " + encoding + ", or it is cut off in a character");
    return text.toStdString();
}

} // namespace

XmlText decodeXml(const std::string &document, std::string bytes, ImportReport &report)
{
    const auto signature = signatureOf(bytes);
    std::string encoding(signature.encoding);
    if (signature.markLength > 0)
        bytes.erase(0, signature.markLength);
    const bool wide = !encoding.empty() && encoding != "UTF-8";
    if (wide)
        bytes = converted(document, bytes, encoding);

    const auto declared = declaredEncoding(bytes);
    const bool declaredWide = declared.compare(0, 5, "UTF-1") == 0
        || declared.compare(0, 5, "UTF-3") == 0 || declared.compare(0, 4, "UCS-") == 0;
    const bool contradicted = !declared.empty()
        && (encoding.empty() ? declaredWide : encoding.compare(0, declared.size(), declared) != 0);
    if (contradicted)
        report.addProblem({"the declaration says " + declared + ", but the text is "
                               + (encoding.empty() ? "UTF-8" : encoding) + "; read as such",
                           -1, -1, 1});

    const bool plain = declared.empty() || declared == "UTF-8" || declared == "US-ASCII"
        || declared == "ASCII" || contradicted;
    if (!wide && encoding.empty() && !plain)
        bytes = converted(document, bytes, declared);
    std::size_t tags = 0;
    const auto bad = firstInvalidByte(bytes, tags);
    if (bad == bytes.npos)
        return {std::move(bytes), tags};
    ZARN_REFUSE_IN("zarn::io::decodeXml", document, place(bytes, bad),
                   bytes[bad] == '\0' ? std::string("a zero byte stands in the text")
                                      : "the text is not UTF-8 (byte " + hexByte(bytes[bad])
                           + "); the declaration should name its encoding");
}

std::string rootElementName(const std::string &start)
{
    // Names of interest are ASCII: dropping the zero bytes reads the wide encodings, too.
    const auto signature = signatureOf(start);
    std::string text = start.substr(signature.markLength);
    text.erase(std::remove(text.begin(), text.end(), '\0'), text.end());
    std::size_t at = 0;
    while ((at = text.find_first_not_of(" \t\r\n", at)) != text.npos && text[at] == '<') {
        const std::string_view rest = std::string_view(text).substr(at);
        if (rest.substr(0, 4) == "<!--") {
            at = text.find("-->", at);
        } else if (rest.substr(0, 2) == "<?") {
            at = text.find("?>", at);
        } else if (rest.substr(0, 2) == "<!") {
            const auto subset = text.find('[', at);
            at = text.find('>', at);
            if (subset < at)
                at = text.find("]>", subset);
        } else {
            const auto end = text.find_first_of(" \t\r\n/>", at + 1);
            return end == text.npos ? std::string() : text.substr(at + 1, end - at - 1);
        }
        if (at == text.npos)
            break;
        at = text.find('>', at) + 1;
    }
    return {};
}

} // namespace zarn::io
