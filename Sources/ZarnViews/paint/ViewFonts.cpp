// SPDX-License-Identifier: MIT
#include <ZarnViews/paint/ViewFonts.h>

#include <ZarnCore/ZarnAssert.h>

#include <QFontDatabase>
#include <QGuiApplication>

namespace zarn::views {
namespace {

constexpr auto function = "zarn::views::ViewFonts";

QString familyOf(std::string_view file)
{
    const int id = QFontDatabase::addApplicationFontFromData(layout::builtInFontFile(file));
    const QStringList families = QFontDatabase::applicationFontFamilies(id);
    if (id < 0 || families.isEmpty())
        ZARN_RAISE_IN(function,
                      "The platform \"" + QGuiApplication::platformName().toStdString()
                          + "\" has no fonts; \"offscreen\" has, and needs no display");
    return families.first();
}

QFont withoutHinting(const QString &family, int pixels)
{
    QFont font(family);
    font.setPixelSize(std::max(1, pixels));
    font.setHintingPreference(QFont::PreferNoHinting);
    font.setStyleStrategy(QFont::StyleStrategy(QFont::PreferOutline | QFont::ForceOutline));
    return font;
}

} // namespace

ViewFonts::ViewFonts()
{
    if (qobject_cast<QGuiApplication *>(QCoreApplication::instance()) == nullptr)
        ZARN_RAISE_IN(function, "Fonts need a QGuiApplication");
    _music = familyOf("bravura/bravura.otf");
    for (const auto face : {layout::TextFace::Roman, layout::TextFace::Italic,
                            layout::TextFace::Bold, layout::TextFace::BoldItalic})
        _text = familyOf(layout::fontFileOf(face));
}

const ViewFonts &ViewFonts::instance()
{
    static const ViewFonts fonts;
    return fonts;
}

QFont ViewFonts::music(int pixels) const
{
    return withoutHinting(_music, pixels);
}

QFont ViewFonts::text(layout::TextFace face, int pixels) const
{
    QFont font = withoutHinting(_text, pixels);
    font.setItalic(face == layout::TextFace::Italic || face == layout::TextFace::BoldItalic);
    font.setBold(face == layout::TextFace::Bold || face == layout::TextFace::BoldItalic);
    return font;
}

} // namespace zarn::views
