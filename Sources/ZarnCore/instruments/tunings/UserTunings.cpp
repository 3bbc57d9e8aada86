// SPDX-License-Identifier: MIT
#include <ZarnCore/instruments/tunings/UserTunings.h>

#include <ZarnCore/instruments/tunings/UserTuningXml.h>

#include <algorithm>
#include <vector>

namespace zarn {

void UserTunings::load()
{
    _store.clear();
    _known.set({}, true);
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
    _known.set(content, true);
    return true;
}

/// Saves after each tuning as `addTuning` would, where that changes anything.
void UserTunings::loadAndRewrite(const QByteArray &content, bool rewrites)
{
    const UserTuningDocument document(content);
    bool isWhole = document.fault().isEmpty();
    _known.set(content, isWhole);
    if (!isWhole)
        _file.warn((document.isList() ? QStringLiteral("is read in part: ")
                                      : QStringLiteral("is not read: "))
                   + document.fault());
    const auto &tunings = document.tunings();
    std::vector<QByteArray> elements;
    QByteArray unread;
    for (const auto &tuning : tunings) {
        elements.push_back(UserTuningText::elementOf(*tuning));
        unread.append(elements.back());
    }
    UserTuningText text;
    unsigned mostStrings = 0;
    for (std::size_t i = 0; i < tunings.size(); ++i) {
        const unsigned stringCount = tunings[i]->stringCount();
        const bool moves = i == 0 || stringCount < mostStrings;
        mostStrings = std::max(mostStrings, stringCount);
        add(tunings[i]);
        text.append(stringCount, elements[i]);
        unread.remove(0, elements[i].size());
        if (!rewrites || !moves)
            continue;
        text.setTail(unread);
        rewrites = (isWhole || _file.keep(content))
            && _known.replace(_file, _known.text(), text.document());
        isWhole = isWhole || rewrites;
    }
}

void UserTunings::save()
{
    _known.save(
        _file, [this](const QByteArray &content) { return takeOver(content); },
        [this] { return text(); });
}

bool UserTunings::takeOver(const QByteArray &content)
{
    return _known.takeOver<UserTuningDocument>(
        _file, content, &UserTuningDocument::tunings,
        [](const auto &tuning) { return UserTuningText::elementOf(*tuning); },
        [this](const auto &tuning) { add(tuning); });
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

} // namespace zarn
