// SPDX-License-Identifier: MIT
// The user's tunings and their file.
#include <ZarnCore/instruments/tunings/ZarnGuitarTuningLibrary.h>

#include <ZarnCore/instruments/UserFile.h>
#include <ZarnCore/instruments/tunings/UserTuningXml.h>

#include <QStandardPaths>

#include <algorithm>
#include <iterator>

namespace zarn {

QString GuitarTuningLibrary::userTuningsPath()
{
    return QStandardPaths::writableLocation(QStandardPaths::AppDataLocation)
        + QLatin1String("/userTuningLibrary.xml");
}

void GuitarTuningLibrary::loadUserTunings()
{
    _userTunings.clear();
    _knownUserText.clear();
    _isUserTextWhole = true;
    auto content = _userFile->read();
    if (!content || loadUsualForm(*content))
        return;
    const UserFile::Lock lock(*_userFile);
    content = _userFile->read(); // another program may have changed it
    if (content)
        loadAndRewrite(*content, lock.isHeld());
}

/// Loads a file that saving would not change; nothing is written and no other program waits.
bool GuitarTuningLibrary::loadUsualForm(const QByteArray &content)
{
    const UserTuningDocument document(content);
    UserTuningText text;
    for (const auto &tuning : document.tunings())
        text.append(*tuning);
    if (!document.fault().isEmpty() || text.document() != content)
        return false;
    for (const auto &tuning : document.tunings())
        storeUserTuning(tuning);
    _knownUserText = content;
    return true;
}

/// Saves after each tuning as `addTuning` would, where that changes anything.
void GuitarTuningLibrary::loadAndRewrite(const QByteArray &content, bool rewrites)
{
    const UserTuningDocument document(content);
    _knownUserText = content;
    _isUserTextWhole = document.fault().isEmpty();
    if (!_isUserTextWhole)
        _userFile->warn((document.isList() ? QStringLiteral("is read in part: ")
                                           : QStringLiteral("is not read: "))
                        + document.fault());
    UserTuningText text;
    const auto &tunings = document.tunings();
    unsigned mostStrings = 0;
    for (auto tuning = tunings.begin(); tuning != tunings.end(); ++tuning) {
        const unsigned stringCount = (*tuning)->stringCount();
        const bool moves = tuning == tunings.begin() || stringCount < mostStrings;
        mostStrings = std::max(mostStrings, stringCount);
        storeUserTuning(*tuning);
        text.append(**tuning);
        if (!rewrites || !moves)
            continue;
        text.setTail(std::next(tuning), tunings.end());
        rewrites = (_isUserTextWhole || _userFile->keep(content))
            && replaceUserText(_knownUserText, text.document());
    }
}

void GuitarTuningLibrary::saveUserTunings()
{
    const UserFile::Lock lock(*_userFile);
    if (!lock.isHeld())
        return;
    const auto content = _userFile->read();
    if (!content && _userFile->exists()) {
        _userFile->warn(QStringLiteral("is not replaced, as it cannot be read"));
        return;
    }
    const bool isKnown = content == _knownUserText && _isUserTextWhole;
    if (content && !isKnown && !takeOver(*content))
        return;
    replaceUserText(content, userText());
}

/// Adds what the file holds by now and did not hold when it was last read or written here. What of
/// it is no tuning is kept in a file beside; false when that failed.
bool GuitarTuningLibrary::takeOver(const QByteArray &content)
{
    const UserTuningDocument document(content);
    if (!document.fault().isEmpty() && !content.isEmpty() && !_userFile->keep(content))
        return false;
    const UserTuningDocument before(_knownUserText);
    const auto textOf = [](const auto &tuning) { return UserTuningText::of(*tuning); };
    for (const auto &tuning : addedElements(before.tunings(), document.tunings(), textOf))
        storeUserTuning(tuning);
    _knownUserText = content;
    _isUserTextWhole = true;
    return true;
}

void GuitarTuningLibrary::storeUserTuning(const std::shared_ptr<GuitarTuning> &tuning)
{
    tuning->setRole(GuitarTuning::UserRole);
    _userTunings[tuning->stringCount()][tuning->id()] = tuning;
}

QByteArray GuitarTuningLibrary::userText() const
{
    UserTuningText text;
    for (const auto &strings : _userTunings) {
        for (const auto &entry : strings.second)
            text.append(*entry.second);
    }
    return text.document();
}

bool GuitarTuningLibrary::replaceUserText(const std::optional<QByteArray> &old,
                                          const QByteArray &text)
{
    if (old != text && !_userFile->replace(text))
        return false;
    _knownUserText = text;
    _isUserTextWhole = true;
    return true;
}

} // namespace zarn
