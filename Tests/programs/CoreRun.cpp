// SPDX-License-Identifier: MIT
// A run of an application that ends as it is told, for the tests of the core.
//   zarn_core_run crash FOLDER    starts, keeps a log in FOLDER, and is killed
//   zarn_core_run end             starts, and ends at once, while the core still loads
#include <ZarnCore/ZarnCore.h>
#include <filesystem/DiskFileSystem.h>

#include <QFile>

#include <csignal>
#include <cstring>

int main(int argc, char **argv)
{
    filesystem::DiskFileSystem files;
    zarn::Core::initialize(&files);
    if (argc == 3 && std::strcmp(argv[1], "crash") == 0) {
        auto &core = zarn::Core::instance();
        core.initLogFiles(QString::fromLocal8Bit(argv[2]));
        core.logCommandStackFile()->write("in the middle of something\n");
        core.logCommandStackFile()->flush();
        std::raise(SIGKILL);
    }
    return argc == 2 && std::strcmp(argv[1], "end") == 0 ? 0 : 2;
}
