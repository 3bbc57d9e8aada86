// SPDX-License-Identifier: MIT
#include <ZarnCore/io/lilypond/StaffLine.h>

#include <ZarnCore/io/lilypond/DrumTable.h>
#include <ZarnCore/io/lilypond/Frame.h>
#include <ZarnCore/io/lilypond/StaffContext.h>
#include <ZarnCore/io/lilypond/TimedLine.h>
#include <ZarnCore/io/lilypond/Words.h>
#include <ZarnCore/model/ZarnMasterBar.h>
#include <ZarnCore/model/ZarnTrack.h>
#include <ZarnCore/music/ZarnMusic.h>

#include <algorithm>
#include <map>
#include <tuple>

namespace zarn::lilypond {

namespace {

constexpr int octave = 12;

const char *clefName(ClefType clef)
{
    switch (clef) {
    case ClefType::F4:
        return "bass";
    case ClefType::C3:
        return "alto";
    case ClefType::C4:
        return "tenor";
    case ClefType::Neutral:
        return "percussion";
    default:
        return "treble";
    }
}

std::string clefText(ClefType clef, int octaves)
{
    std::string text = clefName(clef);
    if (octaves != 0 && clef != ClefType::Neutral)
        text += std::string(octaves < 0 ? "_" : "^") + (std::abs(octaves) == 1 ? "8" : "15");
    return "\\clef " + quoted(text);
}

using Moment = std::pair<unsigned, utils::rational>; // bar and position

class Writer {
public:
    explicit Writer(const StaffContext &context) : _context(context), _line(context.frame) { }

    std::string write()
    {
        for (const auto &bar : _context.staff.bars()) {
            if (bar->index() >= _context.frame.bars.size())
                break;
            writeClefs(*bar);
            if (_context.drums == nullptr)
                writeKey(*bar);
            readBeats(*bar);
        }
        for (const auto &[moment, ottava] : _ottavas)
            setOttava(moment, ottava);
        writePedals();
        return _line.toText();
    }

private:
    void writeClef(unsigned bar, const utils::rational &position, ClefType clef, int octaves)
    {
        std::string text = clefText(clef, octaves + _context.shift / octave);
        if (text != _clef)
            _line.add(bar, position, text);
        _clef = std::move(text);
    }

    void writeClefs(const Bar &bar)
    {
        const int octaves = Music::ottaviaOctaves(bar.ottavia());
        writeClef(bar.index(), 0, bar.clef(), octaves);
        for (const ClefChange &change : bar.clefChanges())
            if (change.position < _context.frame.bars[bar.index()].length)
                writeClef(bar.index(), change.position, change.clef, octaves);
    }

    void writeKey(const Bar &bar)
    {
        const KeySignature key = Music::drawingKeySignatureForBar(bar);
        core::Pitch root = key.rootNote();
        root = core::Pitch(root.naturalStep(), root.alteration(), 4);
        const std::string text =
            "\\key " + pitchText(root) + (key.isMajor() ? " \\major" : " \\minor");
        if (text != _key)
            _line.add(bar.index(), 0, text);
        _key = text;
    }

    void readBeats(const Bar &bar);
    void setOttava(const Moment &moment, Ottavia ottava);
    void writePedals();

    const StaffContext &_context;
    TimedLine _line;
    std::string _clef;
    std::string _key;
    std::map<Moment, Ottavia> _ottavas;
    Ottavia _ottava = Ottavia::None;
    std::map<Moment, PedalChange> _pedals;
};

/// Where the ottavas and pedals of a bar change. The first voice that has an ottava in a bar speaks
/// for all.
void Writer::readBeats(const Bar &bar)
{
    bool isOttavaRead = false;
    for (const auto &voice : bar.voices()) {
        if (!voice || voice->isEmpty())
            continue;
        const bool hasOttava =
            std::any_of(voice->beats().begin(), voice->beats().end(),
                        [](const auto &beat) { return beat->ottavia() != Ottavia::None; });
        const bool isRead = hasOttava && !isOttavaRead;
        utils::rational onset;
        for (const auto &beat : voice->beats()) {
            const Moment moment{bar.index(), onset};
            if (isRead && !beat->isRest())
                _ottavas.emplace(moment, beat->ottavia());
            if (beat->pedal() != PedalChange::None)
                _pedals.emplace(moment, beat->pedal());
            onset += beat->length();
        }
        isOttavaRead = isOttavaRead || hasOttava;
    }
    if (!isOttavaRead)
        _ottavas.emplace(Moment{bar.index(), 0}, Ottavia::None);
}

void Writer::setOttava(const Moment &moment, Ottavia ottava)
{
    if (ottava == _ottava)
        return;
    _ottava = ottava;
    _line.add(moment.first, moment.second,
              "\\ottava #" + std::to_string(Music::ottaviaOctaves(ottava)));
}

void Writer::writePedals()
{
    bool isDown = false;
    for (const auto &[moment, change] : _pedals) {
        std::string events;
        if (isDown)
            events = "\\sustainOff";
        isDown = change != PedalChange::Stop;
        if (isDown)
            events += "\\sustainOn";
        if (!events.empty())
            _line.attach(moment.first, moment.second, events);
    }
}

} // namespace

std::string staffLineOf(const StaffContext &context)
{
    return Writer(context).write();
}

} // namespace zarn::lilypond
