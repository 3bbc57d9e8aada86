// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/io/musicxml/PartFacts.h>
#include <ZarnCore/io/musicxml/PartList.h>
#include <ZarnCore/io/musicxml/WrittenMusic.h>

#include <map>
#include <memory>
#include <optional>
#include <string>

namespace zarn {
class Note;
}

namespace zarn::io {

class ImportContext;

/// Makes the notes of the tree from written ones.
class NoteMaker {
public:
    NoteMaker(ImportContext &context, const PartList &list);

    /// `facts` says how many strings a staff has; it is read while the part is.
    void startPart(const PartFacts &facts, const ListedPart &part);

    /// Reports the keys of percussion that were guessed.
    void finishPart();

    std::shared_ptr<Note> make(const WrittenNote &written);

private:
    void setFingering(const WrittenNote &written, Note &note);
    void setUnpitched(const WrittenNote &written, Note &note);
    void setHead(const WrittenNote &written, Note &note);

    ImportContext &_context;
    const PartList &_list;
    const PartFacts *_facts = nullptr;
    std::string _onlyInstrument;         ///< id of the instrument of notes that name none
    std::optional<PercussionUse> _usual; ///< of a part without instruments, by its name
    std::map<std::string, std::pair<int, std::size_t>> _guesses; ///< key and notes by the name
};

/// Number of strings that a staff has, as far as it is said: by its tuning, else by its lines.
int stringCount(const WrittenStaff &staff) noexcept;

} // namespace zarn::io
