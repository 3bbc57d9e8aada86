// SPDX-License-Identifier: MIT
#include <ZarnLayout/export/ZarnSvgWriter.h>

#include <ZarnCore/ZarnAssert.h>
#include <ZarnLayout/export/SvgPage.h>

#include <QIODevice>

namespace zarn::layout {

void SvgWriter::write(const Layout &layout, std::size_t page, QIODevice &device) const
{
    ZARN_ASSERT_IN("zarn::layout::SvgWriter::write", page < layout.pages().size());
    const QByteArray bytes = SvgPage(layout, layout.pages()[page], _text).write();
    if (device.write(bytes) != bytes.size())
        ZARN_RAISE_IN("zarn::layout::SvgWriter::write",
                      "The page could not be written: " + device.errorString().toStdString());
}

} // namespace zarn::layout
