// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/io/musicxml/PartFacts.h>

#include <optional>
#include <string>
#include <string_view>

namespace zarn::io {

class ImportContext;

/// The <bar-style> of a line of its own kind; null for the usual line.
const char *barStyleOf(BarLine line);

/// Whether a <bar-style> closes a piece or a movement.
bool isFinalBarStyle(std::string_view style);

/// Whether the text of an <ending> says no more than its numbers do.
bool isEndingNumbers(const std::string &text);

/// Reads <barline>: repeats, endings, double bars, and the signs on bar lines.
class BarlineReader {
public:
    explicit BarlineReader(ImportContext &context) : _context(context) { }

    void read(pugi::xml_node node, PartFacts &facts);

    /// Closes an ending that the part left open.
    void finishPart(PartFacts &facts);

private:
    void readStyle(pugi::xml_node style, bool left, bool repeats, PartFacts &facts);
    void readFermata(pugi::xml_node fermata, bool left, PartFacts &facts);
    void readRepeat(pugi::xml_node repeat, PartFacts &facts);
    void readEnding(pugi::xml_node ending, bool left, PartFacts &facts);
    void startEnding(pugi::xml_node ending, PartFacts &facts);
    void loseEnding(int last, PartFacts &facts);
    void settleUnbegun(PartFacts &facts, const WrittenEnding *next);
    std::uint32_t passesOf(pugi::xml_node ending);

    ImportContext &_context;
    std::optional<WrittenEnding> _open;

    /// An end without a beginning, until it is known whether one comes with the next bar.
    struct UnbegunEnding {
        WrittenEnding ending;
        pugi::xml_node node;
    };
    std::optional<UnbegunEnding> _unbegun;
};

} // namespace zarn::io
