// SPDX-License-Identifier: MIT
#include <ZarnLayout/draw/ZarnMarkKind.h>

#include <ZarnCore/utils/EnumTable.h>

namespace zarn::layout {
namespace {

constexpr auto texts =
    utils::enumTable<MarkKind>(utils::KeyMatch::Exact,
                               {
                                   {MarkKind::StaffLine, "staffLine"},
                                   {MarkKind::LedgerLine, "ledgerLine"},
                                   {MarkKind::BarLine, "barLine"},
                                   {MarkKind::RepeatDots, "repeatDots"},
                                   {MarkKind::SystemLine, "systemLine"},
                                   {MarkKind::Bracket, "bracket"},
                                   {MarkKind::Brace, "brace"},
                                   {MarkKind::Clef, "clef"},
                                   {MarkKind::KeySignature, "keySignature"},
                                   {MarkKind::TimeSignature, "timeSignature"},
                                   {MarkKind::Tuning, "tuning"},
                                   {MarkKind::NoteHead, "noteHead"},
                                   {MarkKind::Fret, "fret"},
                                   {MarkKind::Slash, "slash"},
                                   {MarkKind::Rest, "rest"},
                                   {MarkKind::MultiRest, "multiRest"},
                                   {MarkKind::Simile, "simile"},
                                   {MarkKind::Accidental, "accidental"},
                                   {MarkKind::AugmentationDot, "augmentationDot"},
                                   {MarkKind::Stem, "stem"},
                                   {MarkKind::Flag, "flag"},
                                   {MarkKind::Beam, "beam"},
                                   {MarkKind::Tremolo, "tremolo"},
                                   {MarkKind::GraceSlash, "graceSlash"},
                                   {MarkKind::Tuplet, "tuplet"},
                                   {MarkKind::Tie, "tie"},
                                   {MarkKind::Slur, "slur"},
                                   {MarkKind::HammerOn, "hammerOn"},
                                   {MarkKind::Slide, "slide"},
                                   {MarkKind::Bend, "bend"},
                                   {MarkKind::Whammy, "whammy"},
                                   {MarkKind::Vibrato, "vibrato"},
                                   {MarkKind::Trill, "trill"},
                                   {MarkKind::Ornament, "ornament"},
                                   {MarkKind::Articulation, "articulation"},
                                   {MarkKind::Fermata, "fermata"},
                                   {MarkKind::Breath, "breath"},
                                   {MarkKind::Fingering, "fingering"},
                                   {MarkKind::StringNumber, "stringNumber"},
                                   {MarkKind::Stroke, "stroke"},
                                   {MarkKind::Arpeggio, "arpeggio"},
                                   {MarkKind::Harmonic, "harmonic"},
                                   {MarkKind::PalmMute, "palmMute"},
                                   {MarkKind::LetRing, "letRing"},
                                   {MarkKind::Technique, "technique"},
                                   {MarkKind::Pedal, "pedal"},
                                   {MarkKind::Ottava, "ottava"},
                                   {MarkKind::Dynamic, "dynamic"},
                                   {MarkKind::Hairpin, "hairpin"},
                                   {MarkKind::Lyric, "lyric"},
                                   {MarkKind::ChordSymbol, "chordSymbol"},
                                   {MarkKind::ChordDiagram, "chordDiagram"},
                                   {MarkKind::Text, "text"},
                                   {MarkKind::Tempo, "tempo"},
                                   {MarkKind::TripletFeel, "tripletFeel"},
                                   {MarkKind::Section, "section"},
                                   {MarkKind::Direction, "direction"},
                                   {MarkKind::Ending, "ending"},
                                   {MarkKind::BarNumber, "barNumber"},
                                   {MarkKind::TrackName, "trackName"},
                                   {MarkKind::Title, "title"},
                                   {MarkKind::Header, "header"},
                                   {MarkKind::Footer, "footer"},
                                   {MarkKind::Timer, "timer"},
                                   {MarkKind::Enclosure, "enclosure"},
                               });
static_assert(texts.isConsistent());

} // namespace

std::string_view markKindText(MarkKind kind) noexcept
{
    return texts.text(kind).value_or("unknown");
}

} // namespace zarn::layout
