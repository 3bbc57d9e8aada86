// SPDX-License-Identifier: MIT
#include <ZarnCore/io/lilypond/TrackWriter.h>

#include <ZarnCore/io/ZarnExportReport.h>
#include <ZarnCore/io/lilypond/ChordLine.h>
#include <ZarnCore/io/lilypond/LyricsLine.h>
#include <ZarnCore/io/lilypond/MidiInstruments.h>
#include <ZarnCore/io/lilypond/StaffContext.h>
#include <ZarnCore/io/lilypond/StaffLine.h>
#include <ZarnCore/io/lilypond/VoiceWriter.h>
#include <ZarnCore/io/lilypond/Words.h>
#include <ZarnCore/io/sheet/DrumWriter.h>
#include <ZarnCore/io/sheet/TabWriter.h>
#include <ZarnCore/model/ZarnTrack.h>
#include <ZarnCore/music/ZarnMusic.h>

#include <algorithm>
#include <map>
#include <vector>

namespace zarn::lilypond {

namespace {

constexpr int octave = 12;
constexpr int middleC = 60;

struct VoiceName {
    unsigned voice;
    std::string variable;
};

/// Semitones from written pitches to what strings and frets sound: the transposition, but not in
/// documents that write tablature otherwise. The first notes tell.
int stringOffset(const Staff &staff)
{
    constexpr int enough = 20;
    const auto track = staff.track();
    const int usual = track ? track->transpositionOffset() : 0;
    const auto &keys = staff.tuning().midiNumbers();
    std::map<int, int> counts;
    int seen = 0;
    for (const auto &bar : staff.bars())
        for (const auto &voice : bar->voices()) {
            if (!voice || seen > enough)
                continue;
            for (const auto &beat : voice->beats())
                for (const auto &note : beat->notes()) {
                    const auto string = static_cast<std::size_t>(note->string());
                    if (note->string() < 0 || string >= keys.size() || note->fret() < 0
                        || note->midi() < 0)
                        continue;
                    ++counts[keys[string] + static_cast<int>(staff.capoFret()) + note->fret()
                             - note->midi()];
                    ++seen;
                }
        }
    const auto most =
        std::max_element(counts.begin(), counts.end(), [](const auto &left, const auto &right) {
            return left.second < right.second;
        });
    return most == counts.end() || counts.count(usual) != 0 ? usual : most->first;
}

class Writer {
public:
    Writer(const Track &track, const Frame &frame, bool hasGlobal, DrumTable &drums,
           std::set<std::string> &dynamics, io::ExportReport &report)
        : _track(track), _frame(frame), _hasGlobal(hasGlobal), _drums(drums), _dynamics(dynamics),
          _report(report), _part("part" + romanNumber(track.index() + 1))
    {
    }

    TrackText write();

private:
    struct StaffText {
        std::string notation;
        std::string tablature;
    };

    void tellUnheld(const Staff &staff);
    StaffText writeStaff(const Staff &staff);
    std::string lyricsOf(const Staff &staff, const std::vector<VoiceName> &voices);
    std::string tabOf(const StaffContext &context, const std::vector<VoiceName> &voices,
                      bool isAlone) const;
    std::vector<int> openStringsOf(const Staff &staff) const;
    std::vector<int> tablatureStringsOf(const Staff &staff, bool hasTab) const;
    std::string transpositionOf(const StaffContext &context) const;
    std::string names() const;
    void define(const std::string &name, const std::string &mode, const std::string &music)
    {
        _text.variables += name + " = " + mode + "{\n" + music + "}\n\n";
    }

    /// Semitones by which the notes of a staff are entered higher than they are written.
    int shiftOf(const Staff &staff) const
    {
        const int offset = _track.transpositionOffset();
        return staff.isFretted() && offset % octave == 0 && stringOffset(staff) == offset ? offset
                                                                                          : 0;
    }

    const Track &_track;
    const Frame &_frame;
    bool _hasGlobal;
    DrumTable &_drums;
    std::set<std::string> &_dynamics;
    io::ExportReport &_report;
    std::string _part;
    TrackText _text;
};

std::string capoWords(const Track &track)
{
    for (const auto &staff : track.staves())
        if (staff->capoFret() != 0)
            return "Capo " + romanNumber(staff->capoFret());
    return {};
}

std::string Writer::names() const
{
    const std::string capo = capoWords(_track);
    std::string text;
    if (!capo.empty())
        text += " instrumentName = \\markup \\center-column { " + quoted(_track.name()) + ' '
            + quoted(capo) + " }";
    else if (!_track.name().empty())
        text += " instrumentName = " + quoted(_track.name());
    if (!_track.shortName().empty())
        text += " shortInstrumentName = " + quoted(_track.shortName());
    return text;
}

std::string Writer::lyricsOf(const Staff &staff, const std::vector<VoiceName> &voices)
{
    std::string score;
    for (unsigned line = 0; line < Syllable::LineCount; ++line) {
        if ((_track.lyricsVisible() >> line & 1U) == 0)
            continue;
        for (const VoiceName &voice : voices) {
            const std::string words = lyricsLineOf(staff, voice.voice, line);
            if (words.empty())
                continue;
            const std::string name = voice.variable + "Lyrics" + romanNumber(line + 1);
            define(name, "\\lyricmode ", "  \\set ignoreMelismata = ##t\n" + words);
            score += "\\new Lyrics \\lyricsto " + quoted(voice.variable) + " \\" + name + '\n';
        }
    }
    return score;
}

std::vector<int> Writer::openStringsOf(const Staff &staff) const
{
    std::vector<int> keys = staff.tuning().midiNumbers();
    const auto &partial = staff.partialCapoStringFlags();
    for (std::size_t i = 0; i < keys.size(); ++i) {
        const bool isUnderPartial =
            staff.partialCapoFret() != 0 && i < partial.size() && partial[i];
        keys[i] += static_cast<int>(isUnderPartial ? staff.partialCapoFret() : staff.capoFret())
            - (stringOffset(staff) - shiftOf(staff));
    }
    return keys;
}

/// LilyPond draws no frets of notes that lie below the strings that they name: such a string is
/// entered octaves lower, and the notes on it say their frets.
std::vector<int> Writer::tablatureStringsOf(const Staff &staff, bool hasTab) const
{
    auto keys = openStringsOf(staff);
    if (!hasTab)
        return keys;
    const int shift = shiftOf(staff);
    for (const auto &bar : staff.bars())
        for (const auto &voice : bar->voices()) {
            if (!voice)
                continue;
            for (const auto &beat : voice->beats())
                for (const auto &note : beat->notes()) {
                    const auto string = static_cast<std::size_t>(note->string());
                    if (note->string() < 0 || string >= keys.size() || note->fret() < 0)
                        continue;
                    const int midi = Music::midi(*note);
                    while (midi >= 0 && midi < keys[string] - shift)
                        keys[string] -= octave;
                }
        }
    return keys;
}

/// What MIDI makes of the pitches that are entered.
std::string Writer::transpositionOf(const StaffContext &context) const
{
    if (context.drums != nullptr || _track.transpositionOffset() == context.shift)
        return {};
    return "\\transposition " + keyText(middleC + _track.transpositionOffset(), true) + '\n';
}

std::string Writer::tabOf(const StaffContext &context, const std::vector<VoiceName> &voices,
                          bool isAlone) const
{
    std::string strings;
    for (const int key : context.tablatureStrings)
        strings += (strings.empty() ? "" : " ") + keyText(key, false);
    std::string text = "\\new TabStaff \\with {";
    if (isAlone)
        text += names() + " midiInstrument = "
            + quoted(midiInstrument(
                _track.sounds().empty() ? 0 : _track.sounds().front()->midiSound().program()));
    text += " stringTunings = \\stringTuning <" + strings + "> } <<\n";
    if (isAlone)
        text += std::string("\\tabFullNotation\n") + (_hasGlobal ? "\\global\n" : "")
            + transpositionOf(context);
    for (const VoiceName &voice : voices)
        text += "\\new TabVoice"
            + (isAlone ? " = " + quoted(voice.variable)
                       : std::string(" \\with { \\remove \"Note_performer\" }"))
            + " \\" + voice.variable + '\n';
    return text + ">>\n";
}

/// What the staff has that no word is written for; what single voices have is told as they are
/// written.
void Writer::tellUnheld(const Staff &staff)
{
    const auto track = static_cast<int>(_track.index());
    if (staff.partialCapoFret() != 0)
        _report.addUnheld("partial capo", {track, -1});
    for (const auto &bar : staff.bars())
        for (const auto &voice : bar->voices()) {
            if (!voice)
                continue;
            for (const auto &beat : voice->beats())
                if (hasFontSigns(beat->text()) || hasFontSigns(beat->textBelow())
                    || std::any_of(beat->lyrics().begin(), beat->lyrics().end(),
                                   [](const Syllable &sung) { return hasFontSigns(sung.text); }))
                    _report.addUnheld(fontSigns, {track, static_cast<int>(bar->index())});
        }
}

Writer::StaffText Writer::writeStaff(const Staff &staff)
{
    tellUnheld(staff);
    const bool isDrums = sheet::isShownAsDrums(_track, staff);
    const TrackNotations notations = _track.notations();
    const bool hasTab = !isDrums && notations.tablature && sheet::isShownAsTab(staff);
    const StaffContext context{_track,
                               staff,
                               _frame,
                               shiftOf(staff),
                               openStringsOf(staff),
                               tablatureStringsOf(staff, hasTab),
                               isDrums ? &_drums : nullptr,
                               _dynamics,
                               _report};
    const std::string name = _part + "Staff" + romanNumber(staff.index() + 1);
    define(name, "", staffLineOf(context));
    std::vector<VoiceName> voices;
    for (unsigned voice = 0; voice < Bar::MaxVoices; ++voice) {
        const bool isUsed =
            std::any_of(staff.bars().begin(), staff.bars().end(), [&](const auto &bar) {
                return bar->voices()[voice] && !bar->voices()[voice]->isEmpty();
            });
        if (!isUsed)
            continue;
        voices.push_back({voice, name + "Voice" + romanNumber(voice + 1)});
        define(voices.back().variable, isDrums ? "\\drummode " : "",
               VoiceWriter(context, voice).write());
    }
    const bool hasNotes = notations.standard || notations.slash || !hasTab;
    const bool isOnlyStaff = _track.staffCount() == 1 && !(hasTab && hasNotes);
    StaffText text;
    if (hasNotes) {
        text.notation = isDrums ? "\\new DrumStaff \\with {" : "\\new Staff \\with {";
        if (isOnlyStaff)
            text.notation += names();
        if (isDrums)
            text.notation += " drumStyleTable = #drumLooks drumPitchTable = #drumKeys";
        else
            text.notation += " midiInstrument = "
                + quoted(midiInstrument(
                    _track.sounds().empty() ? 0 : _track.sounds().front()->midiSound().program()));
        if (staff.isFretted() && !isDrums)
            text.notation += " fingeringOrientations = #'(left)";
        text.notation += " } <<\n";
        if (_hasGlobal)
            text.notation += "\\global\n";
        text.notation += transpositionOf(context) + '\\' + name + '\n';
        for (const VoiceName &voice : voices)
            text.notation += std::string(isDrums ? "\\new DrumVoice = " : "\\new Voice = ")
                + quoted(voice.variable) + " \\" + voice.variable + '\n';
        text.notation += ">>\n";
    }
    const std::string lyrics = lyricsOf(staff, voices);
    if (hasTab)
        text.tablature = tabOf(context, voices, !hasNotes);
    (hasNotes ? text.notation : text.tablature) += lyrics;
    _hasGlobal = false;
    return text;
}

TrackText Writer::write()
{
    const std::string chords = chordLineOf(_track, _frame);
    _text.hasChords = !chords.empty();
    if (_text.hasChords) {
        define(_part + "Chords", "", chords);
        _text.score += "\\new ChordNames \\" + _part + "Chords\n";
    }
    std::vector<StaffText> staves;
    for (const auto &staff : _track.staves())
        staves.push_back(writeStaff(*staff));
    std::string inside;
    bool hasTab = false;
    for (const StaffText &staff : staves) {
        inside += staff.notation + staff.tablature;
        hasTab = hasTab || (!staff.tablature.empty() && !staff.notation.empty());
    }
    if (hasTab)
        inside = "\\new StaffGroup \\with {" + names() + " } <<\n" + inside + ">>\n";
    else if (staves.size() > 1)
        inside = "\\new PianoStaff \\with {" + names() + " } <<\n" + inside + ">>\n";
    _text.score += inside;
    return std::move(_text);
}

} // namespace

TrackText trackTextOf(const Track &track, const Frame &frame, bool hasGlobal, DrumTable &drums,
                      std::set<std::string> &dynamics, io::ExportReport &report)
{
    return Writer(track, frame, hasGlobal, drums, dynamics, report).write();
}

} // namespace zarn::lilypond
