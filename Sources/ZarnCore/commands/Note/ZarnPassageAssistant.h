// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/ZarnChangeMarks.h>
#include <ZarnCore/model/ZarnBeat.h>
#include <ZarnCore/model/ZarnNoteAttribute.h>

#include <cstdint>

namespace zarn {

/// Base of commands that work out, for the notes on chosen strings of a passage, which of them are
/// played in some way, and which are not. Notes on other strings stay as they are, and staves
/// without strings are passed over.
class ZARNCORE_EXPORT PassageAssistant : public ChangeMarks<Beat> {
public:
    /// The strings by their bits, bit 0 the lowest. When not checked, the attribute is taken off
    /// all notes on them. False when no string is chosen, and when the range holds no note on one.
    bool init(Score *score, const ScoreModelRange &range, std::uint32_t strings, bool checked);

protected:
    /// The name of `init` with its namespace and class ends with that of the command.
    PassageAssistant(const char *function, const QString &name, NoteAttribute attribute);
    ~PassageAssistant() override;

    bool isChosen(const Note &note) const noexcept;

private:
    /// Whether a note on a chosen string is to have the attribute.
    virtual bool isFit(const Beat &beat, const Note &note) const = 0;

    bool takes(const MarkedPlace &place, const Beat &beat, const Beat &node) const final;
    void change(const MarkedPlace &place, Beat &beat, Beat &node) final;

    const char *_function;
    NoteAttribute _attribute;
    std::uint32_t _strings = 0;
    bool _isChecked = false;
};

} // namespace zarn
