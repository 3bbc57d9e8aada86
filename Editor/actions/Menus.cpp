// SPDX-License-Identifier: MIT
#include "actions/Menus.h"

#include <QCoreApplication>

namespace zarn::editor {
namespace {

struct Text {
    Q_DECLARE_TR_FUNCTIONS(Menus)
};

QString title(Menu menu)
{
    switch (menu) {
    case Menu::File:
        return Text::tr("&File");
    case Menu::Edit:
        return Text::tr("&Edit");
    case Menu::Beat:
        return Text::tr("&Beat");
    case Menu::Note:
        return Text::tr("&Note");
    case Menu::Bar:
        return Text::tr("B&ar");
    case Menu::Track:
        return Text::tr("&Track");
    case Menu::Score:
        return Text::tr("&Score");
    case Menu::Move:
        return Text::tr("&Go");
    case Menu::Play:
        return Text::tr("&Play");
    case Menu::View:
        return Text::tr("&View");
    }
    return {};
}

} // namespace

QStringList titles(Menu menu, const QString &inner)
{
    QStringList all = {title(menu)};
    if (!inner.isEmpty())
        all << inner;
    return all;
}

} // namespace zarn::editor
