// SPDX-License-Identifier: MIT
#include <ZarnCore/instruments/tunings/UserTunings.h>

#include <ZarnCore/instruments/tunings/UserTuningXml.h>

#include <algorithm>
#include <iterator>

namespace zarn {

void UserTunings::load()
{
    _store.clear();
    _knownText.clear();
    _isTextWhole = true;
    auto content = _file.read();
    if (!content || loadUsualForm(*content))
        return;
    const UserFile::Lock lock(_file);
    content = _file.read(); // another program may have changed it
    if (content)
        loadAndRewrite(*content, lock.isHeld());
}

/// Loads a file that saving would not change; nothing is written and no other program waits.
bool UserTunings::loadUsualForm(const QByteArray &content)
{
    const UserTuningDocument document(content);
    UserTuningText text;
    for (const auto &tuning : document.tunings())
        text.append(*tuning);
    if (!document.fault().isEmpty() || text.document() != content)
        return false;
    for (const auto &tuning : document.tunings())
        add(tuning);
    _knownText = content;
    return true;
}

/// Saves after each tuning as `addTuning` would, where that changes anything.
void UserTunings::loadAndRewrite(const QByteArray &content, bool rewrites)
{
    const UserTuningDocument document(content);
    _knownText = content;
    _isTextWhole = document.fault().isEmpty();
    if (!_isTextWhole)
        _file.warn((document.isList() ? QStringLiteral("is read in part: ")
                                      : QStringLiteral("is not read: "))
                   + document.fault());
    UserTuningText text;
    const auto &tunings = document.tunings();
    unsigned mostStrings = 0;
    for (auto tuning = tunings.begin(); tuning != tunings.end(); ++tuning) {
        const unsigned stringCount = (*tuning)->stringCount();
        const bool moves = tuning == tunings.begin() || stringCount < mostStrings;
        mostStrings = std::max(mostStrings, stringCount);
        add(*tuning);
        text.append(**tuning);
        if (!rewrites || !moves)
            continue;
        text.setTail(std::next(tuning), tunings.end());
        rewrites =
            (_isTextWhole || _file.keep(content)) && replaceText(_knownText, text.document());
    }
}

void UserTunings::save()
{
    const UserFile::Lock lock(_file);
    if (!lock.isHeld())
        return;
    const auto content = _file.read();
    if (!content && _file.exists()) {
        _file.warn(QStringLiteral("is not replaced, as it cannot be read"));
        return;
    }
    const bool isKnown = content == _knownText && _isTextWhole;
    if (content && !isKnown && !takeOver(*content))
        return;
    replaceText(content, text());
}

/// Adds what the file holds by now and did not hold when it was last read or written here. What of
/// it is no tuning is kept in a file beside; false when that failed.
bool UserTunings::takeOver(const QByteArray &content)
{
    const UserTuningDocument document(content);
    if (!document.fault().isEmpty() && !content.isEmpty() && !_file.keep(content))
        return false;
    const UserTuningDocument before(_knownText);
    const auto textOf = [](const auto &tuning) { return UserTuningText::of(*tuning); };
    for (const auto &tuning : addedElements(before.tunings(), document.tunings(), textOf))
        add(tuning);
    _knownText = content;
    _isTextWhole = true;
    return true;
}

void UserTunings::add(const std::shared_ptr<GuitarTuning> &tuning)
{
    tuning->setRole(GuitarTuning::UserRole);
    _store.add(tuning);
}

QByteArray UserTunings::text() const
{
    UserTuningText text;
    auto append = [&text](const std::shared_ptr<GuitarTuning> &tuning) {
        text.append(*tuning);
        return true;
    };
    _store.visit(TuningStore::anyStringCount, append);
    return text.document();
}

bool UserTunings::replaceText(const std::optional<QByteArray> &old, const QByteArray &text)
{
    if (old != text && !_file.replace(text))
        return false;
    _knownText = text;
    _isTextWhole = true;
    return true;
}

} // namespace zarn
