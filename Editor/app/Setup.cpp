// SPDX-License-Identifier: MIT
#include "app/Setup.h"

#include <ZarnCore/ZarnCore.h>

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>

/// Resources of a static library are there when they are asked for.
static void initTranslations()
{
    Q_INIT_RESOURCE(translations);
}

namespace zarn::editor {
namespace {

void installTranslation(const QString &name, const QString &folder)
{
    auto *const translator = new QTranslator(QCoreApplication::instance());
    if (translator->load(QLocale(), name, QStringLiteral("_"), folder))
        QCoreApplication::installTranslator(translator);
    else
        delete translator;
}

} // namespace

void nameApplication()
{
    QCoreApplication::setOrganizationName(QStringLiteral("Zarn"));
    QCoreApplication::setApplicationName(QStringLiteral("zarn-editor"));
    QCoreApplication::setApplicationVersion(QStringLiteral(ZARN_EDITOR_VERSION));
}

Setup::Setup()
{
    initTranslations();
    Core::initialize(&_files);
    installTranslation(QStringLiteral("qtbase"),
                       QLibraryInfo::location(QLibraryInfo::TranslationsPath));
    installTranslation(QStringLiteral("zarn-editor"), QStringLiteral(":/translations"));
}

Setup::~Setup()
{
    Core::instance().setFileSystem(nullptr);
}

} // namespace zarn::editor
