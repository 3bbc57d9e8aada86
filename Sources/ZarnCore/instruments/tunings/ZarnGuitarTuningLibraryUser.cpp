// SPDX-License-Identifier: MIT
// The user's tunings and their file.
#include <ZarnCore/instruments/tunings/ZarnGuitarTuningLibrary.h>

#include <ZarnCore/instruments/tunings/UserTuningFile.h>
#include <ZarnCore/instruments/tunings/UserTuningXml.h>

#include <QStandardPaths>

namespace zarn {

QString GuitarTuningLibrary::userTuningsPath()
{
    return QStandardPaths::writableLocation(QStandardPaths::AppDataLocation)
        + QLatin1String("/userTuningLibrary.xml");
}

void GuitarTuningLibrary::saveUserTunings()
{
    UserTuningText text;
    for (const auto &strings : _userTunings) {
        for (const auto &entry : strings.second)
            text.append(*entry.second);
    }
    _userFile->save(text.document());
}

void GuitarTuningLibrary::loadUserTunings()
{
    _userTunings.clear();
    const auto content = _userFile->read();
    if (!content)
        return;
    const UserTuningDocument document(*content);
    if (!document.fault().isEmpty())
        _userFile->warn((document.isList() ? QStringLiteral("is read in part: ")
                                           : QStringLiteral("is not read: "))
                        + document.fault());
    else
        _userFile->setKnown(*content);
    // Each is saved as `addTuning` would, but what was written before is not written anew.
    UserTuningText text;
    const auto &elements = document.elementsText();
    for (const auto &element : document.elements()) {
        const auto &tuning = element.tuning;
        tuning->setRole(GuitarTuning::UserRole);
        _userTunings[tuning->stringCount()][tuning->id()] = tuning;
        text.append(*tuning);
        _userFile->save(
            text.document(elements.constData() + element.tail, elements.size() - element.tail));
    }
}

} // namespace zarn
