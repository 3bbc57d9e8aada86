// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnLayout/font/ZarnFontFace.h>

#include <QFont>
#include <QString>

namespace zarn::views {

/// The fonts that the library carries, as Qt knows them. Needs a `QGuiApplication`, of a platform
/// that has fonts.
class ViewFonts {
public:
    /// Hands the font files to Qt when it is called first. Raises `CoreException` when there is no
    /// application, or when its platform takes no fonts.
    static const ViewFonts &instance();

    /// Bravura, `pixels` to the em.
    QFont music(int pixels) const;
    QFont text(layout::TextFace face, int pixels) const;

private:
    ViewFonts();

    QString _music;
    QString _text;
};

} // namespace zarn::views
