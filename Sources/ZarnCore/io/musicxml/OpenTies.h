// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/io/musicxml/WrittenMusic.h>

#include <vector>

namespace zarn::io {

class ImportContext;

/// The ties of a part that have begun and not ended.
///
/// A tie ends at the next note of its pitch that says so. One that no note ends is held all the
/// same where its pitch follows at once in its voice, struck on the same drum where it has one;
/// what is left then is reported.
class OpenTies {
public:
    explicit OpenTies(ImportContext &context) : _context(context) { }

    void startPart();

    /// `lengthBefore` is what the notes of the measure before reached.
    void startMeasure(const utils::rational &lengthBefore) { _lengthBefore = lengthBefore; }

    /// Takes a note with its place and length; marks one that is held into without saying so.
    void follow(WrittenNote &note);

    void finishPart();

private:
    struct Tie {
        int pitch;
        int voice;
        int bar;
        utils::rational end; ///< in the bar
        pugi::xml_node node;
        const char *instrument;
    };

    bool isFollowedBy(const Tie &tie, const WrittenNote &note) const;
    bool stop(const WrittenNote &note);
    bool hold(const WrittenNote &note);

    ImportContext &_context;
    std::vector<Tie> _ties;
    utils::rational _lengthBefore;
};

} // namespace zarn::io
