// SPDX-License-Identifier: MIT
#include <ZarnCore/io/musicxml/NoteMaker.h>

#include <ZarnCore/io/musicxml/ImportContext.h>
#include <ZarnCore/io/musicxml/PartList.h>
#include <ZarnCore/io/musicxml/PercussionKeys.h>
#include <ZarnCore/io/musicxml/Wording.h>
#include <ZarnCore/model/ZarnNote.h>
#include <ZarnCore/music/ZarnMusic.h>

#include <algorithm>
#include <string_view>

namespace zarn::io {

namespace {

constexpr int guitarStrings = 6;
constexpr int mostFrets = 127;

constexpr int middleLine = 4;

/// Heads that MusicXML and the tree call by other names.
bool isCrossHead(std::string_view head)
{
    return head == "x" || head == "cross";
}

/// The clef that holds on a staff at a time of a bar, as far as the part has been read. Under a
/// percussion clef places are those of the treble clef (MusicXML 4.0, display-step).
ClefType clefAt(const PartFacts &facts, int staff, int bar, const utils::rational &time)
{
    const auto clef =
        std::find_if(facts.clefs.rbegin(), facts.clefs.rend(), [&](const WrittenClef &written) {
            return written.staff == staff && (written.bar < bar || written.position <= time);
        });
    return clef == facts.clefs.rend() || clef->tablature ? ClefType::G2 : clef->clef;
}

} // namespace

int stringCount(const WrittenStaff &staff) noexcept
{
    if (!staff.tuning.empty())
        return static_cast<int>(staff.tuning.size());
    return staff.tablature && staff.lines > 0 ? staff.lines : guitarStrings;
}

NoteMaker::NoteMaker(ImportContext &context, const PartList &list) : _context(context), _list(list)
{
}

void NoteMaker::startPart(const PartFacts &facts, const ListedPart &part)
{
    _facts = &facts;
    _onlyInstrument = part.instruments.size() == 1 ? part.instruments.front().id : std::string();
    _usual.reset();
    if (part.instruments.empty())
        if (const auto key = usualPercussionKey({part.id, part.name, {}}))
            _usual = PercussionUse{*key, part.name};
    _guesses.clear();
}

void NoteMaker::finishPart()
{
    for (const auto &[name, guess] : _guesses) {
        const auto [key, count] = guess;
        _context.addProblem({},
                            std::to_string(count) + (count == 1 ? " note" : " notes") + " of \""
                                + name + "\", which names no key, got the usual one, "
                                + std::to_string(key));
    }
}

std::shared_ptr<Note> NoteMaker::make(const WrittenNote &written)
{
    auto note = std::make_shared<Note>();
    note->setMarks(written.marks);
    if (written.kind == NoteKind::Pitched) {
        note->setMidi(written.midi);
        if (written.alter >= -2 && written.alter <= 2)
            note->setSpelling(PitchClass(static_cast<NoteName::Value>(written.step),
                                         static_cast<NoteAccidental::Value>(written.alter + 2)));
        else
            _context.addProblem(written.node,
                                "a note altered by " + std::to_string(written.alter)
                                    + " semitones is spelled anew as the key has it");
        if (written.string != WrittenNote::Unset || written.fret != WrittenNote::Unset)
            setFingering(written, *note);
    } else {
        setUnpitched(written, *note);
    }
    note->setTied(written.tieStop);
    note->setTieOrigin(written.tieStart);
    if (written.ghost)
        note->setAntiAccent(note->antiAccent() == AntiAccent::Soft ? AntiAccent::Strong
                                                                   : AntiAccent::Normal);
    if (*written.head != '\0')
        setHead(written, *note);
    if (written.headFill != HeadFill::Auto)
        note->setHeadFill(written.headFill);
    return note;
}

void NoteMaker::setFingering(const WrittenNote &written, Note &note)
{
    const auto &staff = _facts->staves[static_cast<std::size_t>(written.staff)];
    const int strings = stringCount(staff);
    if (written.fret == WrittenNote::Unset) {
        // A string number over plain notation: the tree places a note by string and fret.
        _context.addUnheld(written.node, Tag::String);
    } else if (written.string == WrittenNote::Unset) {
        _context.addUnheld(written.node, Tag::Fret);
        _context.addProblem(written.node,
                            "a fret without a string, " + std::to_string(written.fret)
                                + ", was left out");
    } else if (written.string < 1 || written.string > strings || written.fret < 0
               || written.fret > mostFrets) {
        _context.addUnheld(written.node, Tag::Fret);
        _context.addProblem(written.node,
                            "string " + std::to_string(written.string) + ", fret "
                                + std::to_string(written.fret) + " is not on the instrument, which "
                                + "has " + counted(static_cast<std::size_t>(strings), "string"));
    } else {
        note.setString(strings - written.string);
        note.setFret(written.fret);
    }
}

void NoteMaker::setUnpitched(const WrittenNote &written, Note &note)
{
    const std::string_view named = written.instrument;
    const auto *use = _list.percussion(named.empty() ? _onlyInstrument : named);
    if (!use && _usual)
        use = &*_usual;
    if (use) {
        note.setMidi(use->key);
        if (!use->guess.empty())
            ++_guesses.insert({use->guess, {use->key, 0}}).first->second.second;
    }
    int line = middleLine;
    if (written.step != WrittenNote::Unset)
        line = Music::staffLineOfNote(static_cast<NoteName::Value>(written.step),
                                      clefAt(*_facts, written.staff, _context.bar(), written.onset),
                                      written.octave
                                          + 1); // that of MIDI key 0 is 0 there, and -1 in MusicXML
    note.setStaffLine(std::clamp(line, -127, 127));
}

void NoteMaker::setHead(const WrittenNote &written, Note &note)
{
    const std::string_view head = written.head;
    if (head == "normal")
        return;
    if (isCrossHead(head)) {
        if (written.marks.isDead() && head == "x")
            return; // The cross is its sign, and says nothing of the head.
        note.setDead(note.isDead() || written.fret != WrittenNote::Unset);
        note.setNoteHead(NoteHead::Cross);
        return;
    }
    const auto value = noteHeadFromString(std::string(head));
    if (noteHeadToString(value) == head)
        note.setNoteHead(value);
    else
        _context.addUnheld(written.node, Tag::Notehead);
}

} // namespace zarn::io
