// SPDX-License-Identifier: MIT
#include "Fuzzing.h"
#include "Scratch.h"

#include <ZarnCore/core/LogFiles.h>

#include <QFile>

/// The input is a packed log, and then a log to pack.
void fuzz::check(std::string_view input)
{
    static const ScratchFolder folder;
    const QString packed = folder.path("log.lgz");
    const QString log = folder.path("log.log");
    const QString unpacked = folder.path("unpacked.log");

    QFile::remove(unpacked);
    folder.write(packed, input);
    if (!zarn::LogFiles::unpack(packed, unpacked))
        expect(!QFile::exists(unpacked), "what is no packed log unpacks to nothing");

    folder.write(log, input);
    zarn::LogFiles::wasThereACrash(log);
    expect(zarn::LogFiles::pack(log, packed), "a log can be packed");
    expect(zarn::LogFiles::unpack(packed, unpacked), "what was packed can be unpacked");
    expectEqual(input, folder.read(unpacked), "a log comes back as it was");
}
