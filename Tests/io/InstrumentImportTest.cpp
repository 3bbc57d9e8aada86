// SPDX-License-Identifier: MIT
// What parts are played on, from what documents say about them.
#include "MusicXmlText.h"

#include <ZarnCore/model/ZarnTrack.h>

#include <gtest/gtest.h>

#include <iterator>
#include <vector>

namespace {

using Set = zarn::InstrumentSet;

struct Part {
    std::string name;
    std::string more; ///< in <score-part> behind the name
    std::string note; ///< in <note> behind the pitch
    bool unpitched = false;
};

std::string sound(const std::string &name, const std::string &sound)
{
    return "<score-instrument id=\"I\"><instrument-name>" + name + "</instrument-name>"
        + (sound.empty() ? "" : "<instrument-sound>" + sound + "</instrument-sound>")
        + "</score-instrument>";
}

std::string program(int number)
{
    return "<midi-instrument id=\"I\"><midi-program>" + std::to_string(number)
        + "</midi-program></midi-instrument>";
}

std::vector<Set::Type> typesOf(const std::vector<Part> &parts)
{
    std::string list;
    std::string music;
    for (std::size_t i = 0; i < parts.size(); ++i) {
        const auto id = "\"P" + std::to_string(i) + "\"";
        list += "<score-part id=" + id + "><part-name>" + parts[i].name + "</part-name>"
            + parts[i].more + "</score-part>";
        music += "<part id=" + id + "><measure><note>"
            + (parts[i].unpitched ? "<unpitched/>"
                                  : "<pitch><step>C</step><octave>4</octave></pitch>")
            + "<duration>4</duration>" + parts[i].note + "</note></measure></part>";
    }
    zarn::io::ImportReport report;
    const auto model = musicxml::import("<score-partwise><part-list>" + list + "</part-list>"
                                            + music + "</score-partwise>",
                                        report);
    std::vector<Set::Type> types;
    for (const auto &track : model->tracks())
        types.push_back(track->type());
    return types;
}

struct NameRow {
    const char *name;
    Set::Type type;
};

/// Names as they stand in published scores and in documents of notation programs.
// clang-format off
const NameRow pitchedNames[] = {
    {"Flute", Set::flute}, {"Flutes 1 &amp; 2", Set::flute}, {"Flauto I", Set::flute},
    {"2 Flauti", Set::flute}, {"Flöte", Set::flute}, {"Große Flöte", Set::flute},
    {"Querflöte", Set::flute}, {"Flûte", Set::flute}, {"1ère Flûte", Set::flute},
    {"Flauta", Set::flute}, {"Fløyte", Set::flute}, {"Alto Flute", Set::flute},
    {"Flute (Anna)", Set::flute}, {"Fl. 2", Set::flute}, {"Flute/Piccolo", Set::flute},
    {"Pan Flute", Set::flute}, {"Tin Whistle", Set::flute}, {"Флейта", Set::flute},
    {"Piccolo", Set::piccolo}, {"Flauto piccolo", Set::piccolo}, {"Kleine Flöte", Set::piccolo},
    {"Petite flûte", Set::piccolo}, {"Ottavino", Set::piccolo}, {"Piccolo in Db", Set::piccolo},
    {"Alto Recorder", Set::recorder}, {"Blockflöte", Set::recorder},
    {"Flûte à bec", Set::recorder}, {"Flauto dolce", Set::recorder},
    {"Oboe", Set::oboe}, {"Hautbois 1", Set::oboe}, {"Oboi I, II", Set::oboe},
    {"Oboe d'amore", Set::oboe}, {"Hoboe", Set::oboe},
    {"English Horn", Set::englishHorn}, {"Cor anglais", Set::englishHorn},
    {"Corno inglese", Set::englishHorn}, {"Englischhorn", Set::englishHorn},
    {"C. Ang.", Set::englishHorn},
    {"Clarinet", Set::clarinet}, {"Clarinet in Bb", Set::clarinet}, {"B♭ Clarinet 2", Set::clarinet},
    {"Bass Clarinet", Set::clarinet}, {"Klarinette in A", Set::clarinet},
    {"Es-Klarinette", Set::clarinet}, {"Bassklarinette", Set::clarinet},
    {"Clarinette en Sib", Set::clarinet}, {"Clarinetto basso", Set::clarinet},
    {"Clarinete", Set::clarinet}, {"Basset Horn", Set::clarinet}, {"Bassetthorn", Set::clarinet},
    {"Bassoon", Set::bassoon}, {"Fagott 1", Set::bassoon}, {"Fagotti", Set::bassoon},
    {"Basson", Set::bassoon}, {"Fagot", Set::bassoon}, {"Bsn.", Set::bassoon},
    {"Contrabassoon", Set::contrabassoon}, {"Double Bassoon", Set::contrabassoon},
    {"Contra-Bassoon", Set::contrabassoon}, {"Kontrafagott", Set::contrabassoon},
    {"Contrafagotto", Set::contrabassoon}, {"Contrebasson", Set::contrabassoon},
    {"Alto Saxophone", Set::saxophone}, {"Tenor Sax 1", Set::saxophone},
    {"Baritone Sax", Set::saxophone}, {"Saxophone soprano", Set::saxophone},
    {"Altsaxophon", Set::saxophone}, {"Sax contralto", Set::saxophone}, {"Saxofón", Set::saxophone},
    {"Horn", Set::frenchHorn}, {"Horn in F 3", Set::frenchHorn}, {"French Horn", Set::frenchHorn},
    {"Corni in Es", Set::frenchHorn}, {"Corno III", Set::frenchHorn}, {"Cors en fa", Set::frenchHorn},
    {"Waldhorn", Set::frenchHorn}, {"Trompa", Set::frenchHorn}, {"Tenor Horn", Set::frenchHorn},
    {"Flugelhorn", Set::flugelHorn}, {"Flügelhorn", Set::flugelHorn}, {"Flicorno", Set::flugelHorn},
    {"Trumpet in Bb", Set::trumpet}, {"Trompete", Set::trumpet}, {"Trompette en ut", Set::trumpet},
    {"Trombe I. II.", Set::trumpet}, {"Piccolo Trumpet", Set::trumpet}, {"Cornet", Set::trumpet},
    {"Tpt. 2", Set::trumpet}, {"Trompeta", Set::trumpet},
    {"Trombone", Set::trombone}, {"Bass Trombone", Set::trombone}, {"Posaune 3", Set::trombone},
    {"Tromboni tenori", Set::trombone}, {"Bassposaune", Set::trombone}, {"Trombón", Set::trombone},
    {"Tuba", Set::tuba}, {"Basstuba", Set::tuba}, {"Euphonium", Set::tuba},
    {"Baritone Horn", Set::tuba}, {"Sousaphone", Set::tuba},
    {"Timpani", Set::timpani}, {"Pauken in D und A", Set::timpani}, {"Timbales", Set::timpani},
    {"Xylophone", Set::xylophone}, {"Glockenspiel", Set::xylophone}, {"Marimba", Set::xylophone},
    {"Tubular Bells", Set::xylophone}, {"Röhrenglocken", Set::xylophone},
    {"Vibraphone", Set::vibraphone}, {"Vibraphon", Set::vibraphone}, {"Celesta", Set::celesta},
    {"Harp", Set::harp}, {"Harfe", Set::harp}, {"Harpe", Set::harp}, {"Arpa", Set::harp},
    {"Harpsichord", Set::harpsichord}, {"Cembalo", Set::harpsichord}, {"Clavecin", Set::harpsichord},
    {"Basso continuo", Set::harpsichord},
    {"Piano", Set::acousticPiano}, {"Klavier", Set::acousticPiano}, {"Pianoforte", Set::acousticPiano},
    {"Flügel", Set::acousticPiano}, {"Piano (right hand)", Set::acousticPiano},
    {"Grand Piano", Set::acousticPiano}, {"Pno.", Set::acousticPiano},
    {"Electric Piano", Set::electricPiano}, {"E-Piano", Set::electricPiano},
    {"Piano électrique", Set::electricPiano}, {"Fender Rhodes", Set::electricPiano},
    {"Organ", Set::pipeOrgan}, {"Orgel", Set::pipeOrgan}, {"Orgue", Set::pipeOrgan},
    {"Organo", Set::pipeOrgan}, {"Hammond Organ", Set::electricOrgan},
    {"Accordion", Set::accordion}, {"Akkordeon", Set::accordion}, {"Fisarmonica", Set::accordion},
    {"Accordéon", Set::accordion}, {"Bandoneón", Set::bandoneon}, {"Harmonica", Set::harmonica},
    {"Synth Lead", Set::leadSynthesizer}, {"Synth Pad", Set::padSynthesizer},
    {"Synthesizer 1", Set::keySynthesizer}, {"Keyboard", Set::keySynthesizer},
    {"Guitar", Set::steelGuitar}, {"Acoustic Guitar (steel)", Set::steelGuitar},
    {"Steel Guitar", Set::steelGuitar}, {"12-string Guitar", Set::steelGuitar},
    {"Classical Guitar", Set::nylonGuitar}, {"Guitar (nylon)", Set::nylonGuitar},
    {"Guitare", Set::nylonGuitar}, {"Gitarre", Set::nylonGuitar}, {"Chitarra", Set::nylonGuitar},
    {"Guitarra española", Set::nylonGuitar}, {"Konzertgitarre", Set::nylonGuitar},
    {"Lute", Set::nylonGuitar}, {"Laute", Set::nylonGuitar}, {"Theorbo", Set::nylonGuitar},
    {"Electric Guitar", Set::electricGuitar}, {"E-Gitarre", Set::electricGuitar},
    {"Guitare électrique", Set::electricGuitar}, {"Chitarra elettrica", Set::electricGuitar},
    {"Guitarra eléctrica", Set::electricGuitar}, {"Lead Guitar", Set::electricGuitar},
    {"Distortion Guitar", Set::electricGuitar}, {"Dobro", Set::resonatorGuitar},
    {"Bass Guitar", Set::electricBass}, {"Electric Bass", Set::electricBass},
    {"5-string Bass Guitar", Set::electricBass}, {"E-Bass", Set::electricBass},
    {"Guitare basse", Set::electricBass}, {"Bajo eléctrico", Set::electricBass},
    {"Basse électrique", Set::electricBass}, {"Fretless Bass", Set::fretlessBass},
    {"Acoustic Bass", Set::acousticBass}, {"Synth Bass", Set::synthBass},
    {"Upright Bass", Set::uprightBass},
    {"Banjo", Set::banjo}, {"Tenor Banjo", Set::banjo}, {"Mandolin", Set::mandolin},
    {"Mandoline", Set::mandolin}, {"Bouzouki", Set::mandolin}, {"Ukulele", Set::ukulele},
    {"Sitar", Set::electricSitar},
    {"Violin", Set::violin}, {"Violin1", Set::violin}, {"Violine II", Set::violin},
    {"Violino primo", Set::violin}, {"2. Geige", Set::violin}, {"Violon", Set::violin},
    {"Violín", Set::violin}, {"Fiddle", Set::violin}, {"Vln. I", Set::violin},
    {"Solo Violin", Set::violin}, {"Скрипка", Set::violin},
    {"Viola", Set::viola}, {"Bratsche", Set::viola}, {"Viole", Set::viola}, {"Vla.", Set::viola},
    {"Violoncello", Set::cello}, {"Cello", Set::cello}, {"Violoncelle", Set::cello},
    {"Vc. e B.", Set::cello}, {"Viola da gamba", Set::cello},
    {"Contrabass", Set::contrabass}, {"Double Bass", Set::contrabass},
    {"Kontrabass", Set::contrabass}, {"Contrebasse", Set::contrabass},
    {"Contrabbasso", Set::contrabass}, {"Contrabajo", Set::contrabass},
    {"String Bass", Set::contrabass}, {"Violone", Set::contrabass},
    {"Voice", Set::voice}, {"Chant\nVoice", Set::voice}, {"Singstimme", Set::voice},
    {"Gesang", Set::voice}, {"Canto", Set::voice}, {"Voix", Set::voice}, {"Voz", Set::voice},
    {"Lead Vocals", Set::voice}, {"Soprano", Set::voice}, {"Mezzosopran", Set::voice},
    {"Alto II", Set::voice}, {"Ténor", Set::voice}, {"Baritone", Set::voice},
    {"Bass (voice)", Set::voice},
    {"Choir", Set::choir}, {"Chœur", Set::choir}, {"Frauenchor", Set::choir}, {"Coro", Set::choir},
    // What only contains the letters of an instrument is none.
    {"Absolutely", Set::acousticPiano}, {"Harpo", Set::acousticPiano},
    {"Hornby", Set::acousticPiano}, {"", Set::acousticPiano},
};

const NameRow unpitchedNames[] = {
    {"Drumset", Set::drumKit}, {"Schlagzeug", Set::drumKit}, {"Batterie", Set::drumKit},
    {"Batería", Set::drumKit}, {"Percussion 2", Set::drumKit}, {"Music", Set::drumKit},
    {"Snare Drum", Set::snare}, {"Kleine Trommel", Set::snare}, {"Caisse claire", Set::snare},
    {"Bass Drum", Set::grancassa}, {"Große Trommel", Set::grancassa}, {"Gran Cassa", Set::grancassa},
    {"Cymbals", Set::piatti}, {"Becken", Set::piatti}, {"Triangle", Set::triangle},
    {"Tambourine", Set::tambourine}, {"Congas", Set::congas}, {"Bongos", Set::bongos},
    {"Timbales", Set::timbales}, {"Cowbell", Set::cowbell}, {"Wood Blocks", Set::woodblocks},
    {"Hi-hat", Set::hiHat}, {"Maracas", Set::maracas}, {"Timpani", Set::drumKit},
};
// clang-format on

} // namespace

TEST(InstrumentImport, namesOfPartsAreReadByWholeWordsInManyLanguages)
{
    ASSERT_GE(std::size(pitchedNames) + std::size(unpitchedNames), 150u);
    const auto check = [](const NameRow &row, bool unpitched) {
        const auto types = typesOf({{row.name, {}, {}, unpitched}});
        ASSERT_EQ(types.size(), 1u);
        EXPECT_EQ(Set::typeToString(types.front()), Set::typeToString(row.type)) << row.name;
    };
    for (const auto &row : pitchedNames)
        check(row, false);
    for (const auto &row : unpitchedNames)
        check(row, true);
}

TEST(InstrumentImport, soundsAndProgramsDecideBeforeAPartOfAName)
{
    const struct {
        Part part;
        Set::Type type;
    } rows[] = {
        {{"Guitar", sound("Guitar", "pluck.guitar.nylon-string"), {}}, Set::nylonGuitar},
        {{"Guitar", sound("Guitar", "") + program(25), {}}, Set::nylonGuitar},
        {{"Guitar", sound("Classical Guitar", "") + program(27), {}}, Set::nylonGuitar},
        {{"Guitar", sound("Guitar", "pluck.guitar.electric") + program(25), {}},
         Set::electricGuitar},
        {{"Gitarre", program(30), {}}, Set::electricGuitar},
        {{"Guitar", sound("Acoustic Guitar (steel)", "pluck.guitar") + program(26), {}},
         Set::steelGuitar},
        {{"Solo", sound("", "wind.reed.english-horn"), {}}, Set::englishHorn},
        {{"Solo", sound("", "wind.flutes.flute.of-the-future"), {}}, Set::flute},
        {{"Solo", sound("", "effect.rain") + program(41), {}}, Set::violin},
        {{"Voice", program(69), {}}, Set::voice},
        {{"Reduction of the Flute concerto", program(1), {}}, Set::acousticPiano},
        {{"Anna's beloved Flute", {}, {}}, Set::flute},
        {{"Piano", program(5), {}}, Set::electricPiano},
        {{"Keyboard", program(20), {}}, Set::pipeOrgan},
        {{"Drums of yore", program(117), {}}, Set::taikoDrum},
        {{"Staff 1", sound("Oboe", ""), {}}, Set::oboe},
        {{"Women", sound("Women", "voice.female") + program(53), {}}, Set::choir},
        {{"Bongo part", sound("", "drum.bongo"), {}, true}, Set::bongos},
    };
    std::vector<Part> parts;
    for (const auto &row : rows)
        parts.push_back(row.part);
    const auto types = typesOf(parts);
    for (std::size_t i = 0; i < types.size(); ++i)
        EXPECT_EQ(Set::typeToString(types[i]), Set::typeToString(rows[i].type))
            << rows[i].part.name << " " << rows[i].part.more;
}

TEST(InstrumentImport, whatBassAndAltoMeanIsToldByTheWordsAndByThePartsBesideThem)
{
    const std::string words = "<lyric><text>la</text></lyric>";
    const auto lastOf = [](const std::vector<Part> &parts) {
        return Set::typeToString(typesOf(parts).back());
    };
    EXPECT_EQ(lastOf({{"Soprano", {}, {}}, {"Alto", {}, {}}, {"Tenor", {}, {}}, {"Bass", {}, {}}}),
              "voice");
    EXPECT_EQ(lastOf({{"S", {}, {}}, {"A", {}, {}}, {"T", {}, {}}, {"B", {}, {}}}), "voice");
    EXPECT_EQ(
        lastOf(
            {{"Drums", {}, {}, true}, {"Voice", {}, words}, {"Guitar", {}, {}}, {"Bass", {}, {}}}),
        "electricBass");
    EXPECT_EQ(
        lastOf({{"Violin I", {}, {}}, {"Viola", {}, {}}, {"Cello", {}, {}}, {"Bass", {}, {}}}),
        "contrabass");
    EXPECT_EQ(lastOf({{"Violons", {}, {}}, {"Violoncelles", {}, {}}, {"Altos", {}, {}}}), "viola");
    EXPECT_EQ(lastOf({{"Alto Sax", {}, {}}, {"Tenor Sax", {}, {}}, {"Baritone", {}, {}}}),
              "saxophone");
    EXPECT_EQ(lastOf({{"Sax", {}, {}}, {"Soprano", {}, {}}, {"Tenor", {}, {}}, {"Bass", {}, {}}}),
              "voice");
    EXPECT_EQ(lastOf({{"Bass", {}, {}}}), "electricBass");
    EXPECT_EQ(lastOf({{"Bass", {}, words}}), "voice");
    EXPECT_EQ(lastOf({{"Bass", program(44), {}}}), "contrabass");
    EXPECT_EQ(lastOf({{"Soprano", {}, {}}, {"Tenor", {}, {}}, {"Bass", program(1), {}}}), "voice");
}
