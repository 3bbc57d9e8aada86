// SPDX-License-Identifier: MIT
#include <ZarnLayout/font/ZarnFontFace.h>

#include <ZarnCore/ZarnAssert.h>

#include <QResource>
#include <QString>

// Resources of a library are registered by a function outside of all namespaces.
static void registerFonts()
{
    Q_INIT_RESOURCE(fonts);
}

namespace zarn::layout {

QByteArray builtInFontFile(std::string_view path)
{
    registerFonts();
    const auto name = QString::fromUtf8(path.data(), static_cast<int>(path.size()));
    const QResource file(QStringLiteral(":/fonts/") + name);
    if (!file.isValid())
        ZARN_RAISE_IN("zarn::layout::builtInFontFile",
                      "The library carries no font file " + std::string(path));
    return file.uncompressedData();
}

std::string_view fontFileOf(TextFace face) noexcept
{
    switch (face) {
    case TextFace::Roman:
        break;
    case TextFace::Italic:
        return "edwin/edwin-italic.otf";
    case TextFace::Bold:
        return "edwin/edwin-bold.otf";
    case TextFace::BoldItalic:
        return "edwin/edwin-bold-italic.otf";
    }
    return "edwin/edwin-roman.otf";
}

} // namespace zarn::layout
