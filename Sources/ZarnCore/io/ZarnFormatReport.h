// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>

#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <vector>

namespace zarn::io {

/// A place in a document or a score, as exactly as it is known.
struct ZARNCORE_EXPORT FormatPlace {
    int part = -1;        ///< counted from 0: a track of the score; -1: not in a part
    int bar = -1;         ///< counted from 0; -1: not in a bar
    std::size_t line = 0; ///< of a text, counted from 1; 0: unknown

    /// "part 1, bar 12, line 345", parts and bars counted from 1; empty when nothing is known.
    /// `partWord` names what a reader of the message counts: parts or tracks.
    std::string toString(const std::string &partWord = "part") const;
};

/// Something that was repaired, moved, left out or is doubtful, and where it stands.
struct ZARNCORE_EXPORT FormatProblem {
    std::string text;
    int part = -1;        ///< as in `FormatPlace`
    int bar = -1;         ///< as in `FormatPlace`
    std::size_t line = 0; ///< as in `FormatPlace`

    FormatPlace place() const { return {part, bar, line}; }

    /// "part 1, bar 12, line 345: text".
    std::string toString(const std::string &partWord = "part") const;
};

/// What the way between a score and a format has to tell: an import of the document, an export of
/// the score.
class ZARNCORE_EXPORT FormatReport {
public:
    /// In the order in which they were found.
    const std::vector<FormatProblem> &problems() const noexcept { return _problems; }
    bool hasProblem(const std::string &partOfText) const;

    /// How many things of each kind the other side has no place for.
    const std::map<std::string, std::uint32_t> &unheld() const noexcept { return _unheld; }

    /// Where the first of a kind stands, if that was told; else a place that is unknown.
    FormatPlace firstUnheld(const std::string &kind) const;

    void addProblem(FormatProblem problem);
    void addUnheld(const std::string &kind, std::uint32_t count = 1);
    void addUnheld(const std::string &kind, const FormatPlace &place);

protected:
    FormatReport() = default;
    FormatReport(const FormatReport &) = default;
    FormatReport(FormatReport &&) = default;
    FormatReport &operator=(const FormatReport &) = default;
    FormatReport &operator=(FormatReport &&) = default;
    ~FormatReport() = default;

private:
    std::vector<FormatProblem> _problems;
    std::map<std::string, std::uint32_t> _unheld;
    std::map<std::string, FormatPlace> _firstUnheld;
};

} // namespace zarn::io
