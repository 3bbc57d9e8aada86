// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/io/musicxml/PartFacts.h>
#include <ZarnCore/io/musicxml/WrittenMusic.h>

#include <map>
#include <memory>
#include <string>

namespace zarn {
class Note;
}

namespace zarn::io {

class ImportContext;

/// Makes the notes of the tree from written ones.
class NoteMaker {
public:
    /// General MIDI percussion keys by the ids of the document's instruments.
    using PercussionKeys = std::map<std::string, int, std::less<>>;

    NoteMaker(ImportContext &context, const PercussionKeys &keys);

    /// `facts` says how many strings a staff has; it is read while the part is.
    void startPart(const PartFacts &facts) noexcept { _facts = &facts; }

    std::shared_ptr<Note> make(const WrittenNote &written);

private:
    void setFingering(const WrittenNote &written, Note &note);
    void setUnpitched(const WrittenNote &written, Note &note);
    void setHead(const WrittenNote &written, Note &note);

    ImportContext &_context;
    const PercussionKeys &_keys;
    const PartFacts *_facts = nullptr;
};

/// Number of strings that a staff has, as far as it is said: by its tuning, else by its lines.
int stringCount(const WrittenStaff &staff) noexcept;

} // namespace zarn::io
