// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QLockFile>
#include <QString>

#include <functional>
#include <optional>
#include <set>
#include <vector>

namespace zarn {

/// A file with what the user made, such as tunings, as bytes. It is replaced whole or not at all,
/// and changed by one program at a time: whoever changes it holds a lock and looks first at what it
/// holds by then.
///
/// What fails is logged on "zarn.core" with file and reason.
class UserFile {
public:
    /// Keeps other programs from changing the file while it lives; waits for those that do.
    class Lock {
    public:
        explicit Lock(const UserFile &file);

        /// False when the folder cannot be made, or another program does not let go of the file.
        bool isHeld() const noexcept { return _isHeld; }

    private:
        QLockFile _lock;
        bool _isHeld = false;
    };

    /// `owner` is the class that logs. The path is asked for again at every use, as the
    /// application's name may change.
    UserFile(const char *owner, QString (*path)()) : _owner(owner), _path(path) { }

    QString path() const { return _path(); }

    /// Nothing when the file is missing, which is no fault, or cannot be read.
    std::optional<QByteArray> read() const;

    bool exists() const;

    /// Writes a copy of a content beside the file, unless there is one; false when that failed.
    bool keep(const QByteArray &content) const;

    /// Writes the file; false when that failed.
    bool replace(const QByteArray &content) const;

    /// Logs something about the file, unless that was the last thing that was logged.
    void warn(const QString &reason) const;

private:
    bool makeFolder() const;
    QString tag() const;

    const char *_owner;
    QString (*_path)();
    mutable QString _lastWarning;
};

/// The elements of a file that it did not hold before, in their order; elements are the same when
/// `textOf` says the same of them.
template <typename Element, typename TextOf>
std::vector<Element> addedElements(const std::vector<Element> &before,
                                   const std::vector<Element> &now, TextOf textOf)
{
    std::multiset<QByteArray> known;
    for (const Element &element : before)
        known.insert(textOf(element));
    std::vector<Element> added;
    for (const Element &element : now) {
        const auto found = known.find(textOf(element));
        if (found != known.end())
            known.erase(found);
        else
            added.push_back(element);
    }
    return added;
}

/// What a program knows of a file of the user's: the text that it held when it was last read or
/// written here. What other programs put into it since is taken over before it is written.
class KnownUserText {
public:
    const QByteArray &text() const noexcept { return _text; }

    /// `isWhole` says whether all of it was understood or is kept beside.
    void set(const QByteArray &text, bool isWhole)
    {
        _text = text;
        _isWhole = isWhole;
    }

    /// Writes `text()` into the file, after `takeOver(content)` for a content that is not known;
    /// that answers false to leave the file alone.
    template <typename TakeOver, typename Text>
    void save(const UserFile &file, TakeOver takeOver, Text text)
    {
        const UserFile::Lock lock(file);
        if (!lock.isHeld())
            return;
        const auto content = file.read();
        if (!content && file.exists())
            return file.warn(QStringLiteral("is not replaced, as it cannot be read"));
        const bool isKnown = content == _text && _isWhole;
        if (!content || isKnown || takeOver(*content))
            replace(file, content, text());
    }

    /// Calls `add` for what the file holds by now and did not hold when it was known. What of it
    /// cannot be read is kept in a file beside; false when that failed. `elementsOf(document)`
    /// answers the elements of a `Document`, which is made of a content.
    template <typename Document, typename ElementsOf, typename TextOf, typename Add>
    bool takeOver(const UserFile &file, const QByteArray &content, ElementsOf elementsOf,
                  TextOf textOf, Add add)
    {
        const Document document(content);
        if (!document.fault().isEmpty() && !content.isEmpty() && !file.keep(content))
            return false;
        const Document before(_text);
        for (const auto &element : addedElements(std::invoke(elementsOf, before),
                                                 std::invoke(elementsOf, document), textOf))
            add(element);
        set(content, true);
        return true;
    }

    /// Writes a text in the place of another one; false when that failed.
    bool replace(const UserFile &file, const std::optional<QByteArray> &old,
                 const QByteArray &text);

private:
    QByteArray _text;
    bool _isWhole = true;
};

} // namespace zarn
