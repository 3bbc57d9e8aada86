// SPDX-License-Identifier: MIT
#include <ZarnCore/io/instruments/InstrumentWords.h>

#include <iterator>
#include <unordered_map>

namespace zarn::io {

namespace {

using Set = InstrumentSet;

/// Words of one meaning, with spaces between them.
struct Nouns {
    Set::Type type;
    std::string_view words;
    bool isOpen = false;
};

struct Traits {
    Trait trait;
    std::string_view words;
};

struct Ranges {
    NamedInstrument::Range range;
    std::string_view words;
};

// English, German, French, Italian, Spanish, Portuguese, the Scandinavian languages, Dutch, Polish
// and Czech, Russian, and the abbreviations of scores. Words that a name may write in two are here
// in one: "englishhorn" is found in "English Horn" and "English-horn".
// clang-format off
constexpr Nouns nouns[] = {
    // Woodwind.
    {Set::flute,
     "flute flutes fl flotes flote floten floete floeten flauto flauti flauta flautas fluit "
     "fluiten flojte floyte flojt flet fletna флеита traverso traversiere flutetraversiere "
     "querflote querfloete traversflote traversflojt tverrfloyte altflote altfloete bassflote "
     "bassfloete panflute panflote panpipe panpipes ocarina okarina fife shakuhachi tinwhistle "
     "irishwhistle lowwhistle pennywhistle quena dizi bansuri"},
    {Set::piccolo,
     "piccolo piccolos picc pikkolo pic ottavino flautopiccolo flautin flautim flutepiccolo "
     "petiteflute kleineflote pikkoloflote piccoloflote piccolofloete pikolo piccolofluit "
     "pikkoloflojte"},
    {Set::recorder,
     "recorder recorders rec blockflote blockfloten blockfloete blockflojt blokfluit "
     "blokflojte blokkfloyte flutebec fluteabec flautodolce flautidolci flautadulce flautadoce "
     "flautadebisel altblockflote tenorblockflote bassblockflote sopranblockflote fletprosty"},
    {Set::oboe,
     "oboe oboes ob oboi hautbois htb hoboe hoboen hobo oboj obo гобои oboedamore oboedacaccia "
     "hautboisdamour shawm schalmei heckelphone bombarde duduk crumhorn krummhorn cromorne "
     "suona shehnai zurna"},
    {Set::englishHorn,
     "englishhorn coranglais cang corsanglais corai corang cornoinglese corniinglesi "
     "cornoingles corneingles englischhorn engelskthorn engelskhorn engelsehoorn althobo "
     "altoboe rozekangielski anglickyroh англиискиирожок enghn enghrn ehn eh"},
    {Set::clarinet,
     "clarinet clarinets cl clar clarinette clarinettes clarinetto clarinetti clarinete "
     "clarinetes klarinette klarinetten klar klarinet klarinett klarnet кларнет bassklarinette "
     "altklarinette bassetthorn bassethorn cordebasset cornodibassetto bassettklarinette "
     "chalumeau basclarinet basklarinet bassklarinett kontrabassklarinette bcl piccoloclarinet"},
    {Set::bassoon,
     "bassoon bassoons bsn bn bssn fagott fagotte fagotto fagotti fg fag fgt basson bassons "
     "fagot fagote fagotes фагот dulcian dulzian curtal"},
    {Set::contrabassoon,
     "contrabassoon contrabassoons cbsn cbn contrafagotto contrafagotti kontrafagott "
     "kontrafagotte contrebasson contrafagote contrafagot kontrafagot cfg kfg контрафагот"},
    {Set::saxophone,
     "saxophone saxophones sax saxes saxofon saxofono saxofoni saxofones saxofone sassofono "
     "sassofoni saxophon saxophons saksofon altsaxophon tenorsaxophon baritonsaxophon "
     "sopransaxophon altsaxofon tenorsaxofon barytonsaxofon altsax asax tsax bsax ssax barisax "
     "bari саксофон"},
    // Brass.
    {Set::frenchHorn,
     "horn horns hn hns hrn frenchhorn cor cors corno corni trompa trompas hoorn hoorns horner "
     "waldhorn waldhorner naturhorn ventilhorn valthorn valdhorn rog waltornia lesnirohy "
     "lesniroh валторна cordharmonie mellophone althorn tenorhorn altohorn alphorn posthorn "
     "saxhorn fhn frhn tenorhorner"},
    {Set::flugelHorn,
     "flugelhorn flugelhorns flugel fluegelhorn flghn flhn flicorno fliscorno fiscorn "
     "flygelhorn fliscorne bugleabouche"},
    {Set::trumpet,
     "trumpet trumpets tpt tpts tr trp trpt trompete trompeten trompette trompettes trpte "
     "tromba trombe trompeta trompetas trompet trumpetti trabka trubka trubky труба cornet "
     "cornets cnt crt cornetapistons cornetto cornetti cornett kornett kornet zink clarino "
     "clarini clairon bugle corneta cornetas piccolotrumpet piccolotrompete basstrompete brass "
     "blechblaser cuivres ottoni metales metais clarin"},
    {Set::trombone,
     "trombone trombones tbn tbns trbn trb tromboni posaune posaunen pos trombon bassposaune "
     "tenorposaune altposaune puzon pozoun pozouny basun basuner тромбон sackbut sackbutt "
     "saqueboute btbn"},
    {Set::tuba,
     "tuba tubas tba tuben basstuba kontrabasstuba tubi туба euphonium euph euphonion eufonio "
     "baritonehorn baritonhorn tenortuba wagnertuba wagnertuben sousaphone sousafon bombardon "
     "ophicleide ophikleide serpent serpente cimbasso helicon suzafon"},
    // Other reeds and organs.
    {Set::accordion,
     "accordion accordions akkordeon accordeon fisarmonica acordeon acordeao dragspil "
     "trekkspill harmonika ziehharmonika pianoaccordion bayan akordeon баян аккордеон "
     "concertina konzertina harmonium reedorgan acc akk"},
    {Set::bandoneon, "bandoneon bandonion"},
    {Set::harmonica,
     "harmonica harmonicas mundharmonika mundharp armonica gaitadeboca mouthorgan melodica "
     "melodika munnspill"},
    {Set::bagpipe,
     "bagpipe bagpipes dudelsack cornemuse cornamusa gaita uilleannpipes sackpfeife sekkepipe"},
    {Set::pipeOrgan,
     "organ organs org orgel orgue orgues organo organi organy varhany orgao pipeorgan "
     "churchorgan kirchenorgel орган positiv", true},
    {Set::electricOrgan,
     "hammond hammondorgan hammondorgel electricorgan drawbarorgan rockorgan percussiveorgan "
     "elektronischeorgel"},
    // Voices.
    {Set::voice,
     "voice voices vocal vocals vocalist vox voc voz vozes voces voce voci voix chant gesang "
     "singstimme singstimmen stimme stimmen singer singers sang zang canto cantus chanteur "
     "chanteuse sangerin sanger rost stemme stemmer stem solosang solostimme vokal glos hlas "
     "spiew zpev голос countertenor countertenore hautecontre altus contratenor bassus quintus "
     "sextus child narrator sprecher recitant"},
    {Set::choir,
     "choir choirs chorus chor chore choeur choeurs coro cori coros koor kor frauenchor "
     "mannerchor kinderchor gemischterchor women men womens mens frauen manner donne uomini "
     "femmes hommes girls boys children knaben sbor hor хор choral satb ssa ssaa ttbb sab"},
    // Keyboards.
    {Set::acousticPiano,
     "piano pianos pno pf pfte pianoforte fortepiano klavier klaviere klav hammerklavier "
     "flügel fluegel hammerflugel grandpiano uprightpiano flygel pianino fortepian klavir "
     "фортепиано рояль pft honkytonk", true},
    {Set::electricPiano,
     "electricpiano epiano epno rhodes wurlitzer wurli fenderrhodes clavinet clav "
     "pianoelettrico pianoelectrico pianoelectrique elektropiano stagepiano elpiano dx7"},
    {Set::harpsichord,
     "harpsichord hpsd hpschd cembalo cemb clavicembalo clavecin clavicordio clavichord "
     "klavichord spinet spinett virginal virginals klavecimbel cravo klawesyn clavecino "
     "continuo bassocontinuo generalbass klavecin"},
    {Set::celesta, "celesta celeste cel musicbox spieluhr handbells handbell"},
    // Plucked strings.
    {Set::harp,
     "harp harps hp harpe harpes harfe harfen hrf arpa arpe arpas harpa harfa арфа lyre leier "
     "zither zithern psaltery dulcimer kora kantele koto autoharp cimbalom santur"},
    {Set::steelGuitar, "guitar guitars gtr gtrs guit gt gtar", true},
    {Set::nylonGuitar,
     "guitare guitares gitarre gitarren guitarre git chitarra chitarre chit guitarra guitarras "
     "gitaar gitara gitary gitarr kytara kitara гитара violao concertguitar", true},
    {Set::nylonGuitar,
     "konzertgitarre lute lutes luth laute lauten liuto laud luit lutnia theorbo tiorba "
     "theorbe vihuela archlute chitarrone oud requinto cuatro"},
    {Set::electricGuitar,
     "egitarre electricguitar elgitarr elgitar elgitarre egtr eguitar elecgtr elgtr "
     "stromgitarre"},
    {Set::steelGuitar,
     "akustikgitarre westerngitarre steelguitar pedalsteel lapsteel acousticguitar agtr"},
    {Set::resonatorGuitar, "dobro resonator resonatorguitar resophonic"},
    {Set::electricBass,
     "ebass elbass elbas bassguitar bassgitarre basgitaar bassgtr basgitara bassgitarr "
     "guitarebasse guitarrabaixo fingerbass slapbass bassgit bgtr bassgitar pickedbass "
     "fingeredbass contrabaixoeletrico bajoelectrico"},
    {Set::acousticBass, "acousticbass guitarron acousticbassguitar"},
    {Set::banjo, "banjo banjos bjo bj banjolele shamisen"},
    {Set::mandolin,
     "mandolin mandolins mandoline mandolinen mandolines mandolino mandolini mandolina mand "
     "mandola mandole mandocello bouzouki balalaika charango domra bandurria octavemandolin"},
    {Set::ukulele, "ukulele ukuleles uke uk ukelele ukulelen cavaquinho cavaco timple"},
    {Set::electricSitar, "sitar electricsitar"},
    // Bowed strings.
    {Set::violin,
     "violin violins vln vlns vn vl vni vno violine violinen violino violini violon violons "
     "viool violen violines fiolin fiolines fiol skrzypce housle скрипка скрипки geige geigen "
     "fiddle soloviolin solovioline strings str streicher cordes archi cuerdas cordas strykere "
     "stringsection rabeca hardangerfiddle rebec erhu"},
    {Set::viola,
     "viola violas vla vlas va vle bratsche bratschen br brat altviool altfiol bratsj altowka "
     "viole violadamore violetta violette violettas"},
    {Set::cello,
     "cello cellos vc vlc vcl vcs violoncello violoncelli violoncelle violoncelles violoncelo "
     "violonchelo violoncell violoncellen celli wiolonczela виолончель violadagamba gamba "
     "gambe violedegambe viol viols celo chelo"},
    {Set::contrabass,
     "contrabass contrabasses cb cbs kb dbs kontrabass kontrabasse kontrabas kontrabassi "
     "contrebasse contrebasses contrabbasso contrabbassi contrabasso contrabajo contrabajos "
     "contrabaixo contrabaixos doublebass doublebasses stringbass violone kbass контрабас "
     "bassgeige basgeige"},
    {Set::uprightBass, "uprightbass standupbass bullfiddle"},
    // Synthesizers.
    {Set::padSynthesizer, "pad pads synthpad synthstrings"},
    {Set::keySynthesizer, "keyboard keyboards kbd keys", true},
    {Set::leadSynthesizer, "synthlead leadsynth theremin ondesmartenot"},
    {Set::brassSynthesizer, "synthbrass"},
    {Set::synthBass, "synthbass bassynth basssynth"},
    // Percussion with pitches.
    {Set::timpani,
     "timpani timp timpano pauke pauken pk kettledrums kettledrum pukor puker kotly tympany "
     "timpanos литавры"},
    {Set::xylophone,
     "xylophone xyl xylo xylophon xilofono xilofon xilofone ksylofon xylofon marimba mar "
     "marimbaphon glockenspiel glock glsp glockensp campanelli jeudetimbres lira klokkespill "
     "klockspel klokkenspel tubularbells tubbells tubularchimes chimes rohrenglocken "
     "rohrenglocke cloches glocken campane campanas kalimba balafon xilofoni ксилофон crotales"},
    {Set::vibraphone,
     "vibraphone vib vibes vibr vibraphon vibrafono vibrafon vibrafone steeldrum steeldrums "
     "steelpan steelpans metallophone"},
    // Percussion without.
    {Set::drumKit,
     "drum drums drumset drumkit dr drs kit schlagzeug schlgz schlagwerk schlagw schlz "
     "batterie bateria batteria trommel trommeln trommer slagverk slagwerk slagtoj trummor "
     "percussion percussions perc percussione percussioni percusion perkussion percussao "
     "perkusja perkuse bici bicinastroje ударные jazzset drumline"},
    {Set::snare,
     "snare snares snaredrum snaredrums sidedrum kleinetrommel caisseclaire tambour caja "
     "tamburo rullante caixa rullo lilletromme snr fielddrum militarydrum tambourmilitaire"},
    {Set::kickDrum, "kick kickdrum"},
    {Set::grancassa,
     "bassdrum bassdrums concertbassdrum grossetrommel grossecaisse grancassa cassa bombo "
     "stortromme grotetrom"},
    {Set::piatti,
     "cymbal cymbals cym cymb becken cymbales cymbale piatti piatto platillos platillo pratos "
     "bekkens suspendedcymbal clashcymbals crashcymbals"},
    {Set::crash, "crash crashcymbal"},
    {Set::ride, "ride ridecymbal"},
    {Set::splash, "splash splashcymbal"},
    {Set::china, "china chinacymbal"},
    {Set::hiHat, "hihat hihats charleston hh"},
    {Set::tom, "tom toms tomtom tomtoms"},
    {Set::triangle, "triangle triangles tri trgl triangel triangolo triangulo trojkat"},
    {Set::tambourine,
     "tambourine tambourines tamb tambourin tamburin tamburino tamburello schellentrommel "
     "pandereta pandeiro tamburine tamboerijn tambourindebasque tamburobasco"},
    {Set::castanets,
     "castanets castanet kastagnetten castagnettes castanuelas nacchere castagnette "
     "castanholas"},
    {Set::claves, "claves clavesticks klanghoelzer"},
    {Set::cowbell, "cowbell cowbells cencerro kuhglocke kuhglocken"},
    {Set::guiro, "guiro recoreco"},
    {Set::maracas, "maracas maraca"},
    {Set::shaker, "shaker shakers eggshaker"},
    {Set::woodblocks, "woodblock woodblocks holzblock templeblock templeblocks tempelblock"},
    {Set::agogos, "agogo agogos agogobells"},
    {Set::bongos, "bongo bongos"},
    {Set::congas, "conga congas tumba tumbadora tumbadoras"},
    {Set::timbales, "timbale timbales"},
    {Set::cabasa, "cabasa afuche"},
    {Set::vibraslap, "vibraslap"},
    {Set::handClap, "handclap handclaps claps clap palmas"},
    {Set::jingleBell, "sleighbells jinglebell jinglebells schellen sonagli grelots"},
    {Set::whistles, "whistle whistles"},
    {Set::bellTree, "belltree"},
    {Set::surdo, "surdo surdos"},
    {Set::cuica, "cuica"},
    {Set::taikoDrum, "taiko taikos taikodrum"},
    {Set::synthDrum, "synthdrum synthdrums"},
    {Set::africaKit, "djembe djembes"},
    {Set::latinoKit, "latinpercussion percusionlatina"},
    {Set::sambaKit, "sambakit"},
};

constexpr Traits traits[] = {
    {Electric,
     "electric electrique electrica electrico eletrica eletrico elettrica elettrico "
     "elektrische elektrisch elektrisk elektro elec clean distortion distorted dist overdriven "
     "overdrive od jazz rhythm fuzz rock fingered picked slap"},
    {Acoustic,
     "acoustic acoustique acustica acustico akustische akustisk akustik acoust ac folk western "
     "steel"},
    {Nylon,
     "nylon classical classic classique clasica classica klassische klassisk klassieke konzert "
     "spanish spanische espanola flamenco espagnole"},
    {Double, "contra kontra contre double"},
    {English, "english anglais inglese ingles englisch englisches"},
    {Synthetic,
     "synth synthesizer synthesiser synthetizer synthetiseur sintetizador sintetizzatore "
     "synthi syn"},
    {Fretless, "fretless bundlos"},
    {Upright, "upright standup"},
    {Lead, "lead"},
};

constexpr Ranges ranges[] = {
    {NamedInstrument::Range::High,
     "soprano sopranos sopran sopraan soprani sopranen sop soprane tiple mezzo mezzosoprano "
     "mezzosopran mez discantus diskant superius dessus treble trebles descant сопрано меццо"},
    {NamedInstrument::Range::Alto, "alto altos alt alten alti contralto contraltos альт"},
    {NamedInstrument::Range::Tenor,
     "tenor tenors tenore tenori tenores tenoren ten tenr taille тенор"},
    {NamedInstrument::Range::Baritone,
     "baritone baritones bariton baritono baritoni bar baryton баритон"},
    {NamedInstrument::Range::Bass,
     "bass basses basse basso bassi bajo bajos baixo baixos bas bs basy бас"},
};

/// Words that say which of several, how, or for whom.
constexpr std::string_view idleWords =
    "i ii iii iv v vi vii viii ix x xi xii st nd rd th er ere eme e ra no nr n num first second "
    "third fourth fifth erste erster erstes zweite zweiter zweites dritte dritter vierte premier "
    "premiere deuxieme seconde troisieme primo prima secondo seconda terzo terza quarto primero "
    "primera segundo segunda tercero tercera cuarto a b c d f g h as es is ais bb eb ab db gb cis "
    "dis fis gis ces des ges sib mib lab reb solb do re mi fa sol la si ut flat sharp bemol "
    "bemolle diese diesis moll dur in en im de di da del della dei degli der die das den du le "
    "les il lo gli el los las the of for and und et y og och ou or oder o z con mit with avec "
    "solo soli soloist solist soliste principal principale ripieno concertino obbligato obligato "
    "ad lib div divisi section sezione left right hand lh rh main gauche droite upper lower top "
    "high low unison clef key staff tc bc muted mute sordino sord open dark bright concert small "
    "grand large piccola grande petit petite gross grosse klein kleine backing background old new "
    "string chamber symphonic marching church kirchen reed pipe baroque barock natural naturale "
    "male female mixed soloists stage live modern vintage rotary drawbar percussive finger pick";
// clang-format on

/// All words of the tables; a word that stands twice means what its first row says.
std::unordered_map<std::string_view, InstrumentWord> allWords()
{
    std::unordered_map<std::string_view, InstrumentWord> words;
    const auto add = [&](std::string_view text, InstrumentWord word) {
        for (std::size_t at = 0; at < text.size();) {
            const auto end = std::min(text.find(' ', at), text.size());
            word.word = text.substr(at, end - at);
            if (!word.word.empty())
                words.insert({word.word, word});
            at = end + 1;
        }
    };
    using Range = NamedInstrument::Range;
    for (const auto &row : nouns)
        add(row.words, {{}, row.type, row.isOpen, NoTrait, Range::None});
    for (const auto &row : traits)
        add(row.words, {{}, Set::unknown, false, row.trait, Range::None});
    for (const auto &row : ranges)
        add(row.words,
            {{}, Set::unknown, false, row.range == Range::Bass ? Low : NoTrait, row.range});
    add(idleWords, {});
    return words;
}

} // namespace

const InstrumentWord *findInstrumentWord(std::string_view word)
{
    static const auto words = allWords();
    const auto found = words.find(word);
    return found == words.end() ? nullptr : &found->second;
}

} // namespace zarn::io
