// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/io/ZarnSourceTally.h>

#include <cstddef>

namespace zarn::io {

/// Something in a document that was repaired, moved, left out or is doubtful, and where it stands.
struct ZARNCORE_EXPORT ImportProblem {
    std::string text;
    int part = -1;        ///< counted from 0; -1: not in a part
    int bar = -1;         ///< counted from 0; -1: not in a bar
    std::size_t line = 0; ///< counted from 1; 0: unknown

    /// "part 1, bar 12, line 345: text", parts and bars counted from 1.
    std::string toString() const;
};

/// What an import has to tell besides the score.
class ZARNCORE_EXPORT ImportReport {
public:
    /// In the order of the document.
    const std::vector<ImportProblem> &problems() const noexcept { return _problems; }
    bool hasProblem(const std::string &partOfText) const;

    /// How many elements of each name the tree has no place for.
    const std::map<std::string, std::uint32_t> &unheld() const noexcept { return _unheld; }

    const SourceTally &tally() const noexcept { return _tally; }

    void addProblem(ImportProblem problem);
    void addUnheld(const std::string &element, std::uint32_t count = 1);
    void setTally(SourceTally tally);

private:
    std::vector<ImportProblem> _problems;
    std::map<std::string, std::uint32_t> _unheld;
    SourceTally _tally;
};

} // namespace zarn::io
