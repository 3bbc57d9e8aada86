<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de_DE" sourcelanguage="en">
<context>
    <name>AttributeActions</name>
    <message>
        <source>Nothing here takes &quot;%1&quot;.</source>
        <translation>Nichts hier nimmt „%1“ an.</translation>
    </message>
    <message>
        <source>&amp;Marks</source>
        <translation>&amp;Zeichen</translation>
    </message>
    <message>
        <source>%1...</source>
        <translation>%1 ...</translation>
    </message>
</context>
<context>
    <name>AttributeForms</name>
    <message>
        <source>&amp;On</source>
        <translation>&amp;An</translation>
    </message>
    <message>
        <source>&amp;Passes</source>
        <translation>&amp;Durchgänge</translation>
    </message>
    <message>
        <source>Such as 1, 2; empty for all.</source>
        <translation>Etwa 1, 2; leer für alle.</translation>
    </message>
    <message>
        <source>&amp;Value</source>
        <translation>&amp;Wert</translation>
    </message>
    <message>
        <source>&amp;Text</source>
        <translation>&amp;Text</translation>
    </message>
    <message>
        <source>&amp;Direction</source>
        <translation>&amp;Richtung</translation>
    </message>
    <message>
        <source>none</source>
        <translation>keine</translation>
    </message>
    <message>
        <source>upwards</source>
        <translation>aufwärts</translation>
    </message>
    <message>
        <source>downwards</source>
        <translation>abwärts</translation>
    </message>
    <message>
        <source>&amp;Length</source>
        <translation>&amp;Länge</translation>
    </message>
    <message>
        <source>From the first note to the last, in 960ths of a quarter; 0 for the usual length.</source>
        <translation>Von der ersten Note bis zur letzten, in 960steln eines Viertels; 0 für die übliche Länge.</translation>
    </message>
    <message>
        <source>On the &amp;beat</source>
        <translation>Auf dem &amp;Schlag</translation>
    </message>
    <message>
        <source>its first note</source>
        <translation>die erste Note</translation>
    </message>
    <message>
        <source>its last note</source>
        <translation>die letzte Note</translation>
    </message>
    <message>
        <source>&amp;Fret</source>
        <translation>&amp;Bund</translation>
    </message>
    <message>
        <source>0 for no barre.</source>
        <translation>0 heißt ohne Barré.</translation>
    </message>
    <message>
        <source>From &amp;string</source>
        <translation>&amp;Von Saite</translation>
    </message>
    <message>
        <source>&amp;To string</source>
        <translation>B&amp;is Saite</translation>
    </message>
    <message>
        <source>Staccato</source>
        <translation>Staccato</translation>
    </message>
    <message>
        <source>Staccatissimo</source>
        <translation>Staccatissimo</translation>
    </message>
    <message>
        <source>&amp;Weight</source>
        <translation>&amp;Betonung</translation>
    </message>
    <message>
        <source>Accent</source>
        <translation>Akzent</translation>
    </message>
    <message>
        <source>Heavy accent</source>
        <translation>Starker Akzent</translation>
    </message>
    <message>
        <source>Soft accent</source>
        <translation>Weicher Akzent</translation>
    </message>
    <message>
        <source>&amp;Tenuto</source>
        <translation>&amp;Tenuto</translation>
    </message>
    <message>
        <source>&amp;Quarters</source>
        <translation>&amp;Viertel</translation>
    </message>
    <message>
        <source>Such as 3 or 7/2; empty for what the meter says.</source>
        <translation>Etwa 3 oder 7/2; leer für das, was die Taktart sagt.</translation>
    </message>
    <message>
        <source>&amp;Beams</source>
        <translation>&amp;Balken</translation>
    </message>
    <message>
        <source>Beats joined by each beam, such as 2+2+3; empty for the usual grouping.</source>
        <translation>Schläge unter jedem Balken, etwa 2+2+3; leer für die übliche Gruppierung.</translation>
    </message>
    <message>
        <source>eighths</source>
        <translation>Achteln</translation>
    </message>
    <message>
        <source>sixteenths</source>
        <translation>Sechzehnteln</translation>
    </message>
    <message>
        <source>thirty-seconds</source>
        <translation>Zweiunddreißigsteln</translation>
    </message>
    <message>
        <source>sixty-fourths</source>
        <translation>Vierundsechzigsteln</translation>
    </message>
    <message>
        <source>&amp;In</source>
        <translation>&amp;In</translation>
    </message>
    <message>
        <source>This is no value of &quot;%1&quot;; nothing was changed.</source>
        <translation>Das ist kein Wert für „%1“; nichts wurde geändert.</translation>
    </message>
</context>
<context>
    <name>Attributes</name>
    <message>
        <source>15ma</source>
        <translation>15ma</translation>
    </message>
    <message>
        <source>15mb</source>
        <translation>15mb</translation>
    </message>
    <message>
        <source>8va</source>
        <translation>8va</translation>
    </message>
    <message>
        <source>8vb</source>
        <translation>8vb</translation>
    </message>
    <message>
        <source>Accents</source>
        <translation>Akzente</translation>
    </message>
    <message>
        <source>Accidental display</source>
        <translation>Anzeige des Vorzeichens</translation>
    </message>
    <message>
        <source>Alternate endings</source>
        <translation>Klammern</translation>
    </message>
    <message>
        <source>Anacrusis</source>
        <translation>Auftakt</translation>
    </message>
    <message>
        <source>Anti accent</source>
        <translation>Unbetont</translation>
    </message>
    <message>
        <source>Arpeggio</source>
        <translation>Arpeggio</translation>
    </message>
    <message>
        <source>Attack dynamic</source>
        <translation>Dynamik des Anschlags</translation>
    </message>
    <message>
        <source>Auto</source>
        <translation>Automatisch</translation>
    </message>
    <message>
        <source>Bar line</source>
        <translation>Taktstrich</translation>
    </message>
    <message>
        <source>Bar vibrato</source>
        <translation>Vibrato mit dem Hebel</translation>
    </message>
    <message>
        <source>Barre</source>
        <translation>Barré</translation>
    </message>
    <message>
        <source>Bass attack</source>
        <translation>Bassanschlag</translation>
    </message>
    <message>
        <source>Beam groups</source>
        <translation>Balkengruppen</translation>
    </message>
    <message>
        <source>Beam mode</source>
        <translation>Balken</translation>
    </message>
    <message>
        <source>Before beat</source>
        <translation>Vor dem Schlag</translation>
    </message>
    <message>
        <source>Begin</source>
        <translation>Anfang</translation>
    </message>
    <message>
        <source>Bend</source>
        <translation>Bending</translation>
    </message>
    <message>
        <source>Brackets</source>
        <translation>Eckige Klammern</translation>
    </message>
    <message>
        <source>Break</source>
        <translation>Trennen</translation>
    </message>
    <message>
        <source>Breath</source>
        <translation>Atemzeichen</translation>
    </message>
    <message>
        <source>Brush</source>
        <translation>Durchstreichen</translation>
    </message>
    <message>
        <source>C3</source>
        <translation>C3</translation>
    </message>
    <message>
        <source>C4</source>
        <translation>C4</translation>
    </message>
    <message>
        <source>Caesura</source>
        <translation>Zäsur</translation>
    </message>
    <message>
        <source>Change</source>
        <translation>Wechsel</translation>
    </message>
    <message>
        <source>Chord</source>
        <translation>Akkord</translation>
    </message>
    <message>
        <source>Clef</source>
        <translation>Schlüssel</translation>
    </message>
    <message>
        <source>Clef changes</source>
        <translation>Schlüsselwechsel</translation>
    </message>
    <message>
        <source>Closed</source>
        <translation>Geschlossen</translation>
    </message>
    <message>
        <source>Crescendo</source>
        <translation>Crescendo</translation>
    </message>
    <message>
        <source>Cue</source>
        <translation>Stichnote</translation>
    </message>
    <message>
        <source>Dashed</source>
        <translation>Gestrichelt</translation>
    </message>
    <message>
        <source>Dead</source>
        <translation>Tot</translation>
    </message>
    <message>
        <source>Dead slapped</source>
        <translation>Dead Slap</translation>
    </message>
    <message>
        <source>Decrescendo</source>
        <translation>Decrescendo</translation>
    </message>
    <message>
        <source>Dotted</source>
        <translation>Gepunktet</translation>
    </message>
    <message>
        <source>Dotted16th</source>
        <translation>Punktierte Sechzehntel</translation>
    </message>
    <message>
        <source>Dotted8th</source>
        <translation>Punktierte Achtel</translation>
    </message>
    <message>
        <source>Double</source>
        <translation>Doppelt</translation>
    </message>
    <message>
        <source>Double bar</source>
        <translation>Doppelstrich</translation>
    </message>
    <message>
        <source>Down</source>
        <translation>Nach unten</translation>
    </message>
    <message>
        <source>Downward</source>
        <translation>Abwärts</translation>
    </message>
    <message>
        <source>Downwards</source>
        <translation>Abwärts</translation>
    </message>
    <message>
        <source>Dynamic</source>
        <translation>Dynamik</translation>
    </message>
    <message>
        <source>End</source>
        <translation>Ende</translation>
    </message>
    <message>
        <source>F</source>
        <translation>F</translation>
    </message>
    <message>
        <source>F4</source>
        <translation>F4</translation>
    </message>
    <message>
        <source>FF</source>
        <translation>FF</translation>
    </message>
    <message>
        <source>FFF</source>
        <translation>FFF</translation>
    </message>
    <message>
        <source>FFFF</source>
        <translation>FFFF</translation>
    </message>
    <message>
        <source>FFFFF</source>
        <translation>FFFFF</translation>
    </message>
    <message>
        <source>FFFFFF</source>
        <translation>FFFFFF</translation>
    </message>
    <message>
        <source>FFFFFFF</source>
        <translation>FFFFFFF</translation>
    </message>
    <message>
        <source>Fadding</source>
        <translation>Blende</translation>
    </message>
    <message>
        <source>Fade in</source>
        <translation>Einblenden</translation>
    </message>
    <message>
        <source>Fade out</source>
        <translation>Ausblenden</translation>
    </message>
    <message>
        <source>Fermatas</source>
        <translation>Fermaten</translation>
    </message>
    <message>
        <source>Finger</source>
        <translation>Finger</translation>
    </message>
    <message>
        <source>First of double</source>
        <translation>Erster von zweien</translation>
    </message>
    <message>
        <source>Free time</source>
        <translation>Freies Metrum</translation>
    </message>
    <message>
        <source>From above</source>
        <translation>Von oben</translation>
    </message>
    <message>
        <source>From below</source>
        <translation>Von unten</translation>
    </message>
    <message>
        <source>G2</source>
        <translation>G2</translation>
    </message>
    <message>
        <source>Golpe</source>
        <translation>Golpe</translation>
    </message>
    <message>
        <source>Grace type</source>
        <translation>Art des Vorschlags</translation>
    </message>
    <message>
        <source>Hairpin</source>
        <translation>Gabel</translation>
    </message>
    <message>
        <source>Hairpin begins</source>
        <translation>Gabel beginnt</translation>
    </message>
    <message>
        <source>Harmonic</source>
        <translation>Flageolett</translation>
    </message>
    <message>
        <source>Heavy</source>
        <translation>Schwer</translation>
    </message>
    <message>
        <source>Hidden</source>
        <translation>Verborgen</translation>
    </message>
    <message>
        <source>Hopo</source>
        <translation>Hammer-on oder Pull-off</translation>
    </message>
    <message>
        <source>Inverted turn</source>
        <translation>Umgekehrter Doppelschlag</translation>
    </message>
    <message>
        <source>Join</source>
        <translation>Verbinden</translation>
    </message>
    <message>
        <source>Key signature</source>
        <translation>Tonart</translation>
    </message>
    <message>
        <source>Layout ratio</source>
        <translation>Breite im Satz</translation>
    </message>
    <message>
        <source>Left fingering</source>
        <translation>Finger der linken Hand</translation>
    </message>
    <message>
        <source>Left tap</source>
        <translation>Tapping links</translation>
    </message>
    <message>
        <source>Legato</source>
        <translation>Legato</translation>
    </message>
    <message>
        <source>Let ring</source>
        <translation>Ausklingen lassen</translation>
    </message>
    <message>
        <source>Lower mordent</source>
        <translation>Mordent</translation>
    </message>
    <message>
        <source>Lyrics</source>
        <translation>Liedtext</translation>
    </message>
    <message>
        <source>MF</source>
        <translation>MF</translation>
    </message>
    <message>
        <source>MP</source>
        <translation>MP</translation>
    </message>
    <message>
        <source>Movement start</source>
        <translation>Beginn eines Satzes</translation>
    </message>
    <message>
        <source>NONE</source>
        <translation>Keine</translation>
    </message>
    <message>
        <source>Neutral</source>
        <translation>Neutral</translation>
    </message>
    <message>
        <source>No fadding</source>
        <translation>Keine Blende</translation>
    </message>
    <message>
        <source>No hairpin</source>
        <translation>Keine Gabel</translation>
    </message>
    <message>
        <source>No ornament</source>
        <translation>Keine Verzierung</translation>
    </message>
    <message>
        <source>No triplet feel</source>
        <translation>Gerade</translation>
    </message>
    <message>
        <source>Non arpeggio</source>
        <translation>Kein Arpeggio</translation>
    </message>
    <message>
        <source>None</source>
        <translation>Keine</translation>
    </message>
    <message>
        <source>Normal</source>
        <translation>Normal</translation>
    </message>
    <message>
        <source>On beat</source>
        <translation>Auf dem Schlag</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Offen</translation>
    </message>
    <message>
        <source>Ornament</source>
        <translation>Verzierung</translation>
    </message>
    <message>
        <source>Ottavia</source>
        <translation>Oktavierung</translation>
    </message>
    <message>
        <source>Own length</source>
        <translation>Eigene Länge</translation>
    </message>
    <message>
        <source>P</source>
        <translation>P</translation>
    </message>
    <message>
        <source>PP</source>
        <translation>PP</translation>
    </message>
    <message>
        <source>PPP</source>
        <translation>PPP</translation>
    </message>
    <message>
        <source>PPPP</source>
        <translation>PPPP</translation>
    </message>
    <message>
        <source>PPPPP</source>
        <translation>PPPPP</translation>
    </message>
    <message>
        <source>PPPPPP</source>
        <translation>PPPPPP</translation>
    </message>
    <message>
        <source>PPPPPPP</source>
        <translation>PPPPPPP</translation>
    </message>
    <message>
        <source>Palm mute</source>
        <translation>Palm Mute</translation>
    </message>
    <message>
        <source>Parentheses</source>
        <translation>Runde Klammern</translation>
    </message>
    <message>
        <source>Pedal</source>
        <translation>Pedal</translation>
    </message>
    <message>
        <source>Pick scrape down</source>
        <translation>Pick Scrape abwärts</translation>
    </message>
    <message>
        <source>Pick scrape up</source>
        <translation>Pick Scrape aufwärts</translation>
    </message>
    <message>
        <source>Pick stroke</source>
        <translation>Anschlag</translation>
    </message>
    <message>
        <source>Place holder</source>
        <translation>Platzhalter</translation>
    </message>
    <message>
        <source>Pop</source>
        <translation>Pop</translation>
    </message>
    <message>
        <source>Rasgueado</source>
        <translation>Rasgueado</translation>
    </message>
    <message>
        <source>Repeat count</source>
        <translation>Anzahl der Wiederholungen</translation>
    </message>
    <message>
        <source>Repeat start</source>
        <translation>Beginn der Wiederholung</translation>
    </message>
    <message>
        <source>Rhythm</source>
        <translation>Rhythmus</translation>
    </message>
    <message>
        <source>Right fingering</source>
        <translation>Finger der rechten Hand</translation>
    </message>
    <message>
        <source>Right tap</source>
        <translation>Tapping rechts</translation>
    </message>
    <message>
        <source>Scottish16th</source>
        <translation>Schottische Sechzehntel</translation>
    </message>
    <message>
        <source>Scottish8th</source>
        <translation>Schottische Achtel</translation>
    </message>
    <message>
        <source>Second of double</source>
        <translation>Zweiter von zweien</translation>
    </message>
    <message>
        <source>Section</source>
        <translation>Abschnitt</translation>
    </message>
    <message>
        <source>Shift</source>
        <translation>Mit Anschlag</translation>
    </message>
    <message>
        <source>Short</source>
        <translation>Kurz</translation>
    </message>
    <message>
        <source>Show string</source>
        <translation>Saite zeigen</translation>
    </message>
    <message>
        <source>Shown</source>
        <translation>Gezeigt</translation>
    </message>
    <message>
        <source>Simile mark</source>
        <translation>Faulenzer</translation>
    </message>
    <message>
        <source>Simple</source>
        <translation>Einfach</translation>
    </message>
    <message>
        <source>Slap</source>
        <translation>Slap</translation>
    </message>
    <message>
        <source>Slashed</source>
        <translation>Rhythmusstriche</translation>
    </message>
    <message>
        <source>Slashed grace</source>
        <translation>Durchstrichener Vorschlag</translation>
    </message>
    <message>
        <source>Slide in</source>
        <translation>Hineingleiten</translation>
    </message>
    <message>
        <source>Slide out</source>
        <translation>Weitergleiten</translation>
    </message>
    <message>
        <source>Slight</source>
        <translation>Leicht</translation>
    </message>
    <message>
        <source>Slur begins</source>
        <translation>Bogen beginnt</translation>
    </message>
    <message>
        <source>Slur ends</source>
        <translation>Bogenenden</translation>
    </message>
    <message>
        <source>Slurred to next</source>
        <translation>Bogen zum nächsten</translation>
    </message>
    <message>
        <source>Slurred to previous</source>
        <translation>Bogen zum vorigen</translation>
    </message>
    <message>
        <source>Soft</source>
        <translation>Weich</translation>
    </message>
    <message>
        <source>Start</source>
        <translation>Anfang</translation>
    </message>
    <message>
        <source>Stem orientation</source>
        <translation>Halsrichtung</translation>
    </message>
    <message>
        <source>Stop</source>
        <translation>Ende</translation>
    </message>
    <message>
        <source>Strong</source>
        <translation>Stark</translation>
    </message>
    <message>
        <source>Swell</source>
        <translation>Schweller</translation>
    </message>
    <message>
        <source>Text</source>
        <translation>Text</translation>
    </message>
    <message>
        <source>Text span</source>
        <translation>Linie hinter dem Text</translation>
    </message>
    <message>
        <source>Thumb</source>
        <translation>Daumen</translation>
    </message>
    <message>
        <source>Tick</source>
        <translation>Häkchen</translation>
    </message>
    <message>
        <source>Tie origin</source>
        <translation>Beginn eines Haltebogens</translation>
    </message>
    <message>
        <source>Tied</source>
        <translation>Gebunden</translation>
    </message>
    <message>
        <source>Time signature</source>
        <translation>Taktart</translation>
    </message>
    <message>
        <source>Timer</source>
        <translation>Spielzeit</translation>
    </message>
    <message>
        <source>Tremolo</source>
        <translation>Tremolo</translation>
    </message>
    <message>
        <source>Tremolo to next</source>
        <translation>Tremolo zum nächsten</translation>
    </message>
    <message>
        <source>Trill</source>
        <translation>Triller</translation>
    </message>
    <message>
        <source>Triplet feel</source>
        <translation>Swing</translation>
    </message>
    <message>
        <source>Triplet16th</source>
        <translation>Triolische Sechzehntel</translation>
    </message>
    <message>
        <source>Triplet8th</source>
        <translation>Triolische Achtel</translation>
    </message>
    <message>
        <source>Turn</source>
        <translation>Doppelschlag</translation>
    </message>
    <message>
        <source>Undefined</source>
        <translation>Unbestimmt</translation>
    </message>
    <message>
        <source>Up</source>
        <translation>Nach oben</translation>
    </message>
    <message>
        <source>Upper mordent</source>
        <translation>Pralltriller</translation>
    </message>
    <message>
        <source>Upward</source>
        <translation>Aufwärts</translation>
    </message>
    <message>
        <source>Upwards</source>
        <translation>Aufwärts</translation>
    </message>
    <message>
        <source>Velocity</source>
        <translation>Anschlagstärke</translation>
    </message>
    <message>
        <source>Vibrato</source>
        <translation>Vibrato</translation>
    </message>
    <message>
        <source>Volume swell</source>
        <translation>Anschwellen</translation>
    </message>
    <message>
        <source>Wah</source>
        <translation>Wah</translation>
    </message>
    <message>
        <source>Whammy bar</source>
        <translation>Vibratohebel</translation>
    </message>
    <message>
        <source>Whole bar rest</source>
        <translation>Ganztaktpause</translation>
    </message>
    <message>
        <source>Wide</source>
        <translation>Weit</translation>
    </message>
    <message>
        <source>ami_1</source>
        <translation>ami_1</translation>
    </message>
    <message>
        <source>ami_2</source>
        <translation>ami_2</translation>
    </message>
    <message>
        <source>amii_1</source>
        <translation>amii_1</translation>
    </message>
    <message>
        <source>amip_1</source>
        <translation>amip_1</translation>
    </message>
    <message>
        <source>eami_1</source>
        <translation>eami_1</translation>
    </message>
    <message>
        <source>eamii_1</source>
        <translation>eamii_1</translation>
    </message>
    <message>
        <source>fp</source>
        <translation>fp</translation>
    </message>
    <message>
        <source>fz</source>
        <translation>fz</translation>
    </message>
    <message>
        <source>ieam_1</source>
        <translation>ieam_1</translation>
    </message>
    <message>
        <source>ii_1</source>
        <translation>ii_1</translation>
    </message>
    <message>
        <source>mi_1</source>
        <translation>mi_1</translation>
    </message>
    <message>
        <source>mii_1</source>
        <translation>mii_1</translation>
    </message>
    <message>
        <source>mii_2</source>
        <translation>mii_2</translation>
    </message>
    <message>
        <source>pai_1</source>
        <translation>pai_1</translation>
    </message>
    <message>
        <source>pai_2</source>
        <translation>pai_2</translation>
    </message>
    <message>
        <source>peami_1</source>
        <translation>peami_1</translation>
    </message>
    <message>
        <source>pei_1</source>
        <translation>pei_1</translation>
    </message>
    <message>
        <source>pei_2</source>
        <translation>pei_2</translation>
    </message>
    <message>
        <source>pf</source>
        <translation>pf</translation>
    </message>
    <message>
        <source>pmp_1</source>
        <translation>pmp_1</translation>
    </message>
    <message>
        <source>pmp_2</source>
        <translation>pmp_2</translation>
    </message>
    <message>
        <source>ppp_1</source>
        <translation>ppp_1</translation>
    </message>
    <message>
        <source>rf</source>
        <translation>rf</translation>
    </message>
    <message>
        <source>rfz</source>
        <translation>rfz</translation>
    </message>
    <message>
        <source>sf</source>
        <translation>sf</translation>
    </message>
    <message>
        <source>sffz</source>
        <translation>sffz</translation>
    </message>
    <message>
        <source>sfp</source>
        <translation>sfp</translation>
    </message>
    <message>
        <source>sfpp</source>
        <translation>sfpp</translation>
    </message>
    <message>
        <source>sfz</source>
        <translation>sfz</translation>
    </message>
    <message>
        <source>Common</source>
        <translation>C (Viervierteltakt)</translation>
    </message>
    <message>
        <source>Cut</source>
        <translation>C mit Strich (alla breve)</translation>
    </message>
    <message>
        <source>Meter sign</source>
        <translation>Taktzeichen</translation>
    </message>
    <message>
        <source>Numbers</source>
        <translation>Zahlen</translation>
    </message>
    <message>
        <source>Upper number</source>
        <translation>Obere Zahl</translation>
    </message>
    <message>
        <source>Slur line</source>
        <translation>Bogenlinie</translation>
    </message>
    <message>
        <source>Solid</source>
        <translation>Durchgezogen</translation>
    </message>
    <message>
        <source>Above</source>
        <translation>Darüber</translation>
    </message>
    <message>
        <source>Below</source>
        <translation>Darunter</translation>
    </message>
    <message>
        <source>Slur side</source>
        <translation>Lage des Bogens</translation>
    </message>
    <message>
        <source>Ending hidden</source>
        <translation>Klammer verborgen</translation>
    </message>
    <message>
        <source>Ending text</source>
        <translation>Klammertext</translation>
    </message>
    <message>
        <source>Further directions</source>
        <translation>Weitere Sprungzeichen</translation>
    </message>
    <message>
        <source>Jump text</source>
        <translation>Sprungtext</translation>
    </message>
    <message>
        <source>Begin below</source>
        <translation>Beginn darunter</translation>
    </message>
    <message>
        <source>Dynamic side</source>
        <translation>Lage der Dynamik</translation>
    </message>
    <message>
        <source>Filled</source>
        <translation>Gefüllt</translation>
    </message>
    <message>
        <source>Hairpin side</source>
        <translation>Lage der Gabel</translation>
    </message>
    <message>
        <source>Head</source>
        <translation>Notenkopf</translation>
    </message>
    <message>
        <source>Head fill</source>
        <translation>Füllung des Notenkopfs</translation>
    </message>
    <message>
        <source>Text below</source>
        <translation>Text darunter</translation>
    </message>
    <message>
        <source>arrow down</source>
        <translation>Pfeil abwärts</translation>
    </message>
    <message>
        <source>arrow up</source>
        <translation>Pfeil aufwärts</translation>
    </message>
    <message>
        <source>back slashed</source>
        <translation>rückwärts durchgestrichen</translation>
    </message>
    <message>
        <source>circle-x</source>
        <translation>Kreuz im Kreis</translation>
    </message>
    <message>
        <source>cluster</source>
        <translation>Cluster</translation>
    </message>
    <message>
        <source>cross</source>
        <translation>Kreuz</translation>
    </message>
    <message>
        <source>diamond</source>
        <translation>Raute</translation>
    </message>
    <message>
        <source>do</source>
        <translation>do</translation>
    </message>
    <message>
        <source>fa</source>
        <translation>fa</translation>
    </message>
    <message>
        <source>inverted triangle</source>
        <translation>umgekehrtes Dreieck</translation>
    </message>
    <message>
        <source>la</source>
        <translation>la</translation>
    </message>
    <message>
        <source>mi</source>
        <translation>mi</translation>
    </message>
    <message>
        <source>none</source>
        <translation>keiner</translation>
    </message>
    <message>
        <source>normal</source>
        <translation>normal</translation>
    </message>
    <message>
        <source>re</source>
        <translation>re</translation>
    </message>
    <message>
        <source>slash</source>
        <translation>Schrägstrich</translation>
    </message>
    <message>
        <source>slashed</source>
        <translation>durchgestrichen</translation>
    </message>
    <message>
        <source>so</source>
        <translation>so</translation>
    </message>
    <message>
        <source>square</source>
        <translation>Quadrat</translation>
    </message>
    <message>
        <source>ti</source>
        <translation>ti</translation>
    </message>
    <message>
        <source>triangle</source>
        <translation>Dreieck</translation>
    </message>
</context>
<context>
    <name>BarActions</name>
    <message>
        <source>In pass %1</source>
        <translation>Im Durchgang %1</translation>
    </message>
    <message>
        <source>Swap with voice %1</source>
        <translation>Mit Stimme %1 tauschen</translation>
    </message>
    <message>
        <source>Move to voice %1</source>
        <translation>In Stimme %1 verschieben</translation>
    </message>
    <message>
        <source>&amp;Insert bar</source>
        <translation>Takt &amp;einfügen</translation>
    </message>
    <message>
        <source>Insert bar &amp;behind</source>
        <translation>Takt da&amp;hinter einfügen</translation>
    </message>
    <message>
        <source>&amp;Remove bars</source>
        <translation>Takte &amp;löschen</translation>
    </message>
    <message>
        <source>&amp;Pour into the meter</source>
        <translation>In die &amp;Taktart umbrechen</translation>
    </message>
    <message>
        <source>&amp;Fill with rests</source>
        <translation>Mit &amp;Pausen auffüllen</translation>
    </message>
    <message>
        <source>Repeat the beat to the &amp;end</source>
        <translation>Schlag bis zum Takt&amp;ende wiederholen</translation>
    </message>
    <message>
        <source>&amp;Meter</source>
        <translation>Takta&amp;rt</translation>
    </message>
    <message>
        <source>&amp;Key</source>
        <translation>Tonart (&amp;K)</translation>
    </message>
    <message>
        <source>&amp;Section</source>
        <translation>&amp;Abschnitt</translation>
    </message>
    <message>
        <source>Re&amp;peat</source>
        <translation>&amp;Wiederholung</translation>
    </message>
    <message>
        <source>&amp;Treble</source>
        <translation>&amp;Violinschlüssel</translation>
    </message>
    <message>
        <source>&amp;Bass</source>
        <translation>&amp;Bassschlüssel</translation>
    </message>
    <message>
        <source>&amp;Alto</source>
        <translation>&amp;Altschlüssel</translation>
    </message>
    <message>
        <source>T&amp;enor</source>
        <translation>&amp;Tenorschlüssel</translation>
    </message>
    <message>
        <source>&amp;Percussion</source>
        <translation>&amp;Schlagzeug</translation>
    </message>
    <message>
        <source>&amp;Fermata</source>
        <translation>&amp;Fermate</translation>
    </message>
    <message>
        <source>&amp;Short fermata</source>
        <translation>&amp;Kurze Fermate</translation>
    </message>
    <message>
        <source>&amp;Long fermata</source>
        <translation>&amp;Lange Fermate</translation>
    </message>
    <message>
        <source>&amp;No fermata</source>
        <translation>&amp;Ohne Fermate</translation>
    </message>
    <message>
        <source>&amp;Clef</source>
        <translation>&amp;Schlüssel</translation>
    </message>
    <message>
        <source>&amp;Ending</source>
        <translation>&amp;Klammer</translation>
    </message>
    <message>
        <source>&amp;Jump</source>
        <translation>Sp&amp;rung</translation>
    </message>
    <message>
        <source>Fer&amp;mata</source>
        <translation>Fer&amp;mate</translation>
    </message>
    <message>
        <source>&amp;Voices</source>
        <translation>&amp;Stimmen</translation>
    </message>
    <message>
        <source>Te&amp;mpo</source>
        <translation>Te&amp;mpo</translation>
    </message>
    <message>
        <source>Ferma&amp;ta anywhere</source>
        <translation>Ferma&amp;te an anderer Stelle</translation>
    </message>
</context>
<context>
    <name>Clipping</name>
    <message>
        <source>Paste</source>
        <translation>Einfügen</translation>
    </message>
</context>
<context>
    <name>DocumentFiles</name>
    <message>
        <source>This is a folder.</source>
        <translation>Das ist ein Ordner.</translation>
    </message>
    <message>
        <source>This is no score in a format that can be read.</source>
        <translation>Das ist keine Partitur in einem lesbaren Format.</translation>
    </message>
    <message>
        <source>No format that can be written has this suffix.</source>
        <translation>Zu dieser Endung gehört kein Format, das geschrieben werden kann.</translation>
    </message>
    <message>
        <source>All scores</source>
        <translation>Alle Partituren</translation>
    </message>
    <message>
        <source>All files</source>
        <translation>Alle Dateien</translation>
    </message>
    <message>
        <source>left out: %1 (%2)</source>
        <translation>weggelassen: %1 (%2)</translation>
    </message>
    <message>
        <source>, the first in %1</source>
        <translation>, zuerst in %1</translation>
    </message>
</context>
<context>
    <name>Drawings</name>
    <message>
        <source>Pages as PDF (*.pdf)</source>
        <translation>Seiten als PDF (*.pdf)</translation>
    </message>
    <message>
        <source>Pages as SVG (*.svg)</source>
        <translation>Seiten als SVG (*.svg)</translation>
    </message>
    <message>
        <source>Pages as PNG (*.png)</source>
        <translation>Seiten als PNG (*.png)</translation>
    </message>
</context>
<context>
    <name>DrumEntry</name>
    <message>
        <source>This instrument has no %1.</source>
        <translation>Dieses Instrument hat kein %1.</translation>
    </message>
</context>
<context>
    <name>EditActions</name>
    <message>
        <source>&amp;Undo</source>
        <translation>&amp;Rückgängig</translation>
    </message>
    <message>
        <source>&amp;Undo: %1</source>
        <translation>&amp;Rückgängig: %1</translation>
    </message>
    <message>
        <source>&amp;Redo</source>
        <translation>&amp;Wiederherstellen</translation>
    </message>
    <message>
        <source>&amp;Redo: %1</source>
        <translation>&amp;Wiederherstellen: %1</translation>
    </message>
    <message>
        <source>Cut</source>
        <translation>Ausschneiden</translation>
    </message>
    <message>
        <source>This cannot be pasted here.</source>
        <translation>Das lässt sich hier nicht einfügen.</translation>
    </message>
    <message>
        <source>Cu&amp;t</source>
        <translation>&amp;Ausschneiden</translation>
    </message>
    <message>
        <source>&amp;Copy</source>
        <translation>&amp;Kopieren</translation>
    </message>
    <message>
        <source>&amp;Paste</source>
        <translation>&amp;Einfügen</translation>
    </message>
    <message>
        <source>Paste &amp;in front</source>
        <translation>Da&amp;vor einfügen</translation>
    </message>
    <message>
        <source>Paste int&amp;o</source>
        <translation>H&amp;ineinmischen</translation>
    </message>
    <message>
        <source>Select &amp;all</source>
        <translation>A&amp;lles auswählen</translation>
    </message>
    <message>
        <source>Select the &amp;bar</source>
        <translation>&amp;Takt auswählen</translation>
    </message>
    <message>
        <source>Select the bar of all &amp;tracks</source>
        <translation>Takt aller &amp;Spuren auswählen</translation>
    </message>
    <message>
        <source>Select &amp;nothing</source>
        <translation>&amp;Nichts auswählen</translation>
    </message>
    <message>
        <source>&amp;Shortcuts...</source>
        <translation>Tastenkür&amp;zel ...</translation>
    </message>
    <message>
        <source>How many times:</source>
        <translation>Wie oft:</translation>
    </message>
    <message>
        <source>Paste se&amp;veral times...</source>
        <translation>&amp;Mehrmals einfügen ...</translation>
    </message>
</context>
<context>
    <name>EntryActions</name>
    <message>
        <source>%1 in the time of %2</source>
        <translation>%1 in der Zeit von %2</translation>
    </message>
    <message>
        <source>Add note %1</source>
        <translation>Note %1 dazu</translation>
    </message>
    <message>
        <source>Note %1</source>
        <translation>Note %1</translation>
    </message>
    <message>
        <source>&amp;Whole</source>
        <translation>&amp;Ganze</translation>
    </message>
    <message>
        <source>&amp;Half</source>
        <translation>&amp;Halbe</translation>
    </message>
    <message>
        <source>&amp;Quarter</source>
        <translation>&amp;Viertel</translation>
    </message>
    <message>
        <source>&amp;Eighth</source>
        <translation>&amp;Achtel</translation>
    </message>
    <message>
        <source>&amp;Sixteenth</source>
        <translation>&amp;Sechzehntel</translation>
    </message>
    <message>
        <source>&amp;Thirty-second</source>
        <translation>&amp;Zweiunddreißigstel</translation>
    </message>
    <message>
        <source>Si&amp;xty-fourth</source>
        <translation>Vierundse&amp;chzigstel</translation>
    </message>
    <message>
        <source>&amp;Longer</source>
        <translation>&amp;Länger</translation>
    </message>
    <message>
        <source>Sh&amp;orter</source>
        <translation>&amp;Kürzer</translation>
    </message>
    <message>
        <source>&amp;Dotted</source>
        <translation>&amp;Punktiert</translation>
    </message>
    <message>
        <source>Do&amp;uble dotted</source>
        <translation>&amp;Doppelt punktiert</translation>
    </message>
    <message>
        <source>&amp;Rest</source>
        <translation>Pa&amp;use</translation>
    </message>
    <message>
        <source>&amp;Insert beat</source>
        <translation>Schlag &amp;einfügen</translation>
    </message>
    <message>
        <source>Re&amp;move beats</source>
        <translation>Schläge &amp;löschen</translation>
    </message>
    <message>
        <source>&amp;Tie</source>
        <translation>&amp;Haltebogen</translation>
    </message>
    <message>
        <source>&amp;Delete</source>
        <translation>&amp;Löschen</translation>
    </message>
    <message>
        <source>&amp;Tuplet</source>
        <translation>&amp;N-tole</translation>
    </message>
    <message>
        <source>&amp;Letter</source>
        <translation>Buchs&amp;tabe</translation>
    </message>
    <message>
        <source>Fret or drum %1</source>
        <translation>Bund oder Trommel %1</translation>
    </message>
    <message>
        <source>&amp;Fret or drum</source>
        <translation>&amp;Bund oder Trommel</translation>
    </message>
    <message>
        <source>&amp;Chord...</source>
        <translation>A&amp;kkord ...</translation>
    </message>
</context>
<context>
    <name>FileActions</name>
    <message>
        <source>Open again:</source>
        <translation>Wieder öffnen:</translation>
    </message>
    <message>
        <source>&amp;New</source>
        <translation>&amp;Neu</translation>
    </message>
    <message>
        <source>&amp;Open...</source>
        <translation>Ö&amp;ffnen ...</translation>
    </message>
    <message>
        <source>Open &amp;recent...</source>
        <translation>&amp;Zuletzt geöffnet ...</translation>
    </message>
    <message>
        <source>&amp;Save</source>
        <translation>&amp;Speichern</translation>
    </message>
    <message>
        <source>Save &amp;as...</source>
        <translation>Speichern &amp;unter ...</translation>
    </message>
    <message>
        <source>&amp;Export...</source>
        <translation>&amp;Exportieren ...</translation>
    </message>
    <message>
        <source>Pa&amp;ge setup...</source>
        <translation>Seite ein&amp;richten ...</translation>
    </message>
    <message>
        <source>Print pre&amp;view...</source>
        <translation>Druck&amp;vorschau ...</translation>
    </message>
    <message>
        <source>&amp;Print...</source>
        <translation>&amp;Drucken ...</translation>
    </message>
    <message>
        <source>New &amp;window</source>
        <translation>Neues &amp;Fenster</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>S&amp;chließen</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>&amp;Beenden</translation>
    </message>
    <message>
        <source>New from &amp;tracks...</source>
        <translation>Neu mit S&amp;puren ...</translation>
    </message>
</context>
<context>
    <name>Main</name>
    <message>
        <source>Writes and reads scores in notation and tablature.</source>
        <translation>Schreibt und liest Partituren in Noten und Tabulatur.</translation>
    </message>
    <message>
        <source>files</source>
        <translation>Dateien</translation>
    </message>
    <message>
        <source>Scores to open: documents, MusicXML, MIDI.</source>
        <translation>Partituren, die geöffnet werden: Dokumente, MusicXML, MIDI.</translation>
    </message>
    <message>
        <source>A picture of the first window, after which the program ends.</source>
        <translation>Ein Bild des ersten Fensters, wonach das Programm endet.</translation>
    </message>
</context>
<context>
    <name>Menus</name>
    <message>
        <source>&amp;File</source>
        <translation>&amp;Datei</translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <translation>&amp;Bearbeiten</translation>
    </message>
    <message>
        <source>&amp;Beat</source>
        <translation>&amp;Schlag</translation>
    </message>
    <message>
        <source>&amp;Note</source>
        <translation>&amp;Note</translation>
    </message>
    <message>
        <source>B&amp;ar</source>
        <translation>&amp;Takt</translation>
    </message>
    <message>
        <source>&amp;Track</source>
        <translation>S&amp;pur</translation>
    </message>
    <message>
        <source>&amp;Score</source>
        <translation>Partit&amp;ur</translation>
    </message>
    <message>
        <source>&amp;Go</source>
        <translation>&amp;Gehe zu</translation>
    </message>
    <message>
        <source>&amp;Play</source>
        <translation>&amp;Wiedergabe</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>&amp;Ansicht</translation>
    </message>
</context>
<context>
    <name>MoveActions</name>
    <message>
        <source>Voice %1</source>
        <translation>Stimme %1</translation>
    </message>
    <message>
        <source>&amp;Next beat</source>
        <translation>&amp;Nächster Schlag</translation>
    </message>
    <message>
        <source>&amp;Previous beat</source>
        <translation>&amp;Voriger Schlag</translation>
    </message>
    <message>
        <source>String or note &amp;above</source>
        <translation>Saite oder Note &amp;darüber</translation>
    </message>
    <message>
        <source>String or note &amp;below</source>
        <translation>Saite oder Note dar&amp;unter</translation>
    </message>
    <message>
        <source>Next b&amp;ar</source>
        <translation>Nächster &amp;Takt</translation>
    </message>
    <message>
        <source>Previous ba&amp;r</source>
        <translation>Voriger Ta&amp;kt</translation>
    </message>
    <message>
        <source>&amp;Begin of the bar</source>
        <translation>&amp;Anfang des Taktes</translation>
    </message>
    <message>
        <source>&amp;End of the bar</source>
        <translation>&amp;Ende des Taktes</translation>
    </message>
    <message>
        <source>&amp;First bar</source>
        <translation>&amp;Erster Takt</translation>
    </message>
    <message>
        <source>&amp;Last bar</source>
        <translation>&amp;Letzter Takt</translation>
    </message>
    <message>
        <source>Next &amp;staff</source>
        <translation>Nächstes &amp;System</translation>
    </message>
    <message>
        <source>Previous s&amp;taff</source>
        <translation>Voriges S&amp;ystem</translation>
    </message>
    <message>
        <source>Next trac&amp;k</source>
        <translation>Nächste S&amp;pur</translation>
    </message>
    <message>
        <source>Previous tra&amp;ck</source>
        <translation>Vorige Sp&amp;ur</translation>
    </message>
    <message>
        <source>To the next beat</source>
        <translation>Bis zum nächsten Schlag</translation>
    </message>
    <message>
        <source>To the previous beat</source>
        <translation>Bis zum vorigen Schlag</translation>
    </message>
    <message>
        <source>To the next bar</source>
        <translation>Bis zum nächsten Takt</translation>
    </message>
    <message>
        <source>To the previous bar</source>
        <translation>Bis zum vorigen Takt</translation>
    </message>
    <message>
        <source>To the first bar</source>
        <translation>Bis zum ersten Takt</translation>
    </message>
    <message>
        <source>To the last bar</source>
        <translation>Bis zum letzten Takt</translation>
    </message>
    <message>
        <source>&amp;Voice</source>
        <translation>&amp;Stimme</translation>
    </message>
    <message>
        <source>&amp;Extend the selection</source>
        <translation>Auswahl er&amp;weitern</translation>
    </message>
    <message>
        <source>Notation or tablat&amp;ure</source>
        <translation>Noten oder Tab&amp;ulatur</translation>
    </message>
</context>
<context>
    <name>NoteActions</name>
    <message>
        <source>&amp;Hammer-on or pull-off</source>
        <translation>&amp;Hammer-on oder Pull-off</translation>
    </message>
    <message>
        <source>&amp;Slur</source>
        <translation>&amp;Bindebogen</translation>
    </message>
    <message>
        <source>Shift s&amp;lide</source>
        <translation>Slide mit &amp;Anschlag</translation>
    </message>
    <message>
        <source>L&amp;egato slide</source>
        <translation>&amp;Legato-Slide</translation>
    </message>
    <message>
        <source>Slide out &amp;down</source>
        <translation>Slide nach &amp;unten heraus</translation>
    </message>
    <message>
        <source>Slide out &amp;up</source>
        <translation>Slide nach &amp;oben heraus</translation>
    </message>
    <message>
        <source>&amp;Crescendo</source>
        <translation>&amp;Crescendo</translation>
    </message>
    <message>
        <source>Decrescend&amp;o</source>
        <translation>&amp;Decrescendo</translation>
    </message>
    <message>
        <source>S&amp;well</source>
        <translation>Sch&amp;weller</translation>
    </message>
    <message>
        <source>&amp;Dead note</source>
        <translation>&amp;Tote Note</translation>
    </message>
    <message>
        <source>&amp;Palm mute</source>
        <translation>&amp;Palm Mute</translation>
    </message>
    <message>
        <source>Let &amp;ring</source>
        <translation>Aus&amp;klingen lassen</translation>
    </message>
    <message>
        <source>Dead s&amp;lap</source>
        <translation>Dead S&amp;lap</translation>
    </message>
    <message>
        <source>Palm mute the passa&amp;ge</source>
        <translation>Pass&amp;age mit Palm Mute</translation>
    </message>
    <message>
        <source>Let the passage r&amp;ing</source>
        <translation>Passage aus&amp;klingen lassen</translation>
    </message>
    <message>
        <source>Grace note &amp;before the beat</source>
        <translation>Vorschlag &amp;vor dem Schlag</translation>
    </message>
    <message>
        <source>Grace note &amp;on the beat</source>
        <translation>Vorschlag &amp;auf dem Schlag</translation>
    </message>
    <message>
        <source>&amp;Staccato</source>
        <translation>&amp;Staccato</translation>
    </message>
    <message>
        <source>Stacca&amp;tissimo</source>
        <translation>Stacca&amp;tissimo</translation>
    </message>
    <message>
        <source>&amp;Accent</source>
        <translation>&amp;Akzent</translation>
    </message>
    <message>
        <source>&amp;Heavy accent</source>
        <translation>&amp;Starker Akzent</translation>
    </message>
    <message>
        <source>T&amp;enuto</source>
        <translation>T&amp;enuto</translation>
    </message>
    <message>
        <source>So&amp;ft accent</source>
        <translation>&amp;Weicher Akzent</translation>
    </message>
    <message>
        <source>Semitone &amp;up</source>
        <translation>Halbton &amp;höher</translation>
    </message>
    <message>
        <source>Semitone &amp;down</source>
        <translation>Halbton &amp;tiefer</translation>
    </message>
    <message>
        <source>&amp;Octave up</source>
        <translation>&amp;Oktave höher</translation>
    </message>
    <message>
        <source>O&amp;ctave down</source>
        <translation>O&amp;ktave tiefer</translation>
    </message>
    <message>
        <source>To the string &amp;above</source>
        <translation>Auf die Saite dar&amp;über</translation>
    </message>
    <message>
        <source>To the string &amp;below</source>
        <translation>Auf die Saite dar&amp;unter</translation>
    </message>
    <message>
        <source>Spell in another &amp;way</source>
        <translation>&amp;Anders schreiben</translation>
    </message>
    <message>
        <source>Find strings and &amp;frets</source>
        <translation>Saiten und &amp;Bünde finden</translation>
    </message>
    <message>
        <source>&amp;Natural</source>
        <translation>&amp;Auflösungszeichen</translation>
    </message>
    <message>
        <source>&amp;Sharp</source>
        <translation>&amp;Kreuz</translation>
    </message>
    <message>
        <source>&amp;Flat</source>
        <translation>&amp;Be</translation>
    </message>
    <message>
        <source>&amp;Double sharp</source>
        <translation>&amp;Doppelkreuz</translation>
    </message>
    <message>
        <source>Dou&amp;ble flat</source>
        <translation>D&amp;oppel-Be</translation>
    </message>
    <message>
        <source>&amp;Accents</source>
        <translation>&amp;Akzente</translation>
    </message>
    <message>
        <source>A&amp;ccidental</source>
        <translation>&amp;Vorzeichen</translation>
    </message>
    <message>
        <source>Bend &amp;half a tone</source>
        <translation>&amp;Halbton ziehen</translation>
    </message>
    <message>
        <source>&amp;Bend a whole tone</source>
        <translation>&amp;Ganzton ziehen</translation>
    </message>
    <message>
        <source>Be&amp;nd</source>
        <translation>Zi&amp;ehen</translation>
    </message>
    <message>
        <source>&amp;Whammy bar</source>
        <translation>&amp;Tremolohebel</translation>
    </message>
    <message>
        <source>Har&amp;monic</source>
        <translation>Fla&amp;geolett</translation>
    </message>
    <message>
        <source>&amp;Trill</source>
        <translation>&amp;Triller</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not possible here.</source>
        <translation>„%1“ ist hier nicht möglich.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; waits for the next note on this string.</source>
        <translation>„%1“ wartet auf die nächste Note dieser Saite.</translation>
    </message>
</context>
<context>
    <name>NoteEntry</name>
    <message>
        <source>Fret %1</source>
        <translation>Bund %1</translation>
    </message>
    <message>
        <source>This string has no fret %1.</source>
        <translation>Diese Saite hat keinen Bund %1.</translation>
    </message>
    <message>
        <source>Note %1</source>
        <translation>Note %1</translation>
    </message>
    <message>
        <source>This note cannot be written here.</source>
        <translation>Diese Note lässt sich hier nicht schreiben.</translation>
    </message>
    <message>
        <source>Rest</source>
        <translation>Pause</translation>
    </message>
    <message>
        <source>Note value</source>
        <translation>Notenwert</translation>
    </message>
    <message>
        <source>Dots</source>
        <translation>Punkte</translation>
    </message>
    <message>
        <source>Tuplet</source>
        <translation>N-tole</translation>
    </message>
    <message>
        <source>Longer</source>
        <translation>Länger</translation>
    </message>
    <message>
        <source>Shorter</source>
        <translation>Kürzer</translation>
    </message>
    <message>
        <source>Tie</source>
        <translation>Haltebogen</translation>
    </message>
    <message>
        <source>There is nothing in front that it could be tied to.</source>
        <translation>Davor ist nichts, woran es gebunden werden könnte.</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Löschen</translation>
    </message>
    <message>
        <source>Remove beats</source>
        <translation>Schläge löschen</translation>
    </message>
    <message>
        <source>Insert beat</source>
        <translation>Schlag einfügen</translation>
    </message>
    <message>
        <source>Add bar</source>
        <translation>Takt anfügen</translation>
    </message>
    <message>
        <source>Dead note</source>
        <translation>Tote Note</translation>
    </message>
    <message>
        <source>A dead note is not possible here.</source>
        <translation>Eine tote Note ist hier nicht möglich.</translation>
    </message>
</context>
<context>
    <name>NoteForms</name>
    <message>
        <source>None</source>
        <translation>Keines</translation>
    </message>
    <message>
        <source>Bend</source>
        <translation>Ziehen</translation>
    </message>
    <message>
        <source>Bent before the stroke</source>
        <translation>Vor dem Anschlag gezogen</translation>
    </message>
    <message>
        <source>Held</source>
        <translation>Gehalten</translation>
    </message>
    <message>
        <source>Released</source>
        <translation>Losgelassen</translation>
    </message>
    <message>
        <source>Bend and release</source>
        <translation>Ziehen und loslassen</translation>
    </message>
    <message>
        <source>Bent before the stroke, and further</source>
        <translation>Vor dem Anschlag gezogen, dann weiter</translation>
    </message>
    <message>
        <source>Bent before the stroke, and released</source>
        <translation>Vor dem Anschlag gezogen, dann losgelassen</translation>
    </message>
    <message>
        <source>Dive</source>
        <translation>Senken</translation>
    </message>
    <message>
        <source>Dip</source>
        <translation>Kurz senken</translation>
    </message>
    <message>
        <source>Dived before the stroke</source>
        <translation>Vor dem Anschlag gesenkt</translation>
    </message>
    <message>
        <source>Dived before the stroke, and further</source>
        <translation>Vor dem Anschlag gesenkt, dann weiter</translation>
    </message>
    <message>
        <source>Natural</source>
        <translation>Natürlich</translation>
    </message>
    <message>
        <source>Artificial</source>
        <translation>Künstlich</translation>
    </message>
    <message>
        <source>Pinched</source>
        <translation>Pinch</translation>
    </message>
    <message>
        <source>Tapped</source>
        <translation>Getappt</translation>
    </message>
    <message>
        <source>Semi</source>
        <translation>Halb</translation>
    </message>
    <message>
        <source>Feedback</source>
        <translation>Rückkopplung</translation>
    </message>
    <message>
        <source>&amp;Kind</source>
        <translation>&amp;Art</translation>
    </message>
    <message>
        <source>&amp;Whole tones</source>
        <translation>&amp;Ganztöne</translation>
    </message>
    <message>
        <source>&amp;Curve</source>
        <translation>&amp;Verlauf</translation>
    </message>
    <message>
        <source>Whammy bar</source>
        <translation>Tremolohebel</translation>
    </message>
    <message>
        <source>-4 is a whole tone down.</source>
        <translation>-4 ist ein Ganzton abwärts.</translation>
    </message>
    <message>
        <source>Harmonic</source>
        <translation>Flageolett</translation>
    </message>
    <message>
        <source>&amp;Partial</source>
        <translation>&amp;Teilton</translation>
    </message>
    <message>
        <source>2 sounds an octave higher, 3 an octave and a fifth, 4 two octaves.</source>
        <translation>2 klingt eine Oktave höher, 3 eine Oktave und eine Quinte, 4 zwei Oktaven.</translation>
    </message>
    <message>
        <source>Trill</source>
        <translation>Triller</translation>
    </message>
    <message>
        <source>&amp;Semitones to the upper note</source>
        <translation>&amp;Halbtöne bis zur oberen Note</translation>
    </message>
    <message>
        <source>0 for no trill.</source>
        <translation>0 heißt ohne Triller.</translation>
    </message>
    <message>
        <source>&amp;In</source>
        <translation>&amp;In</translation>
    </message>
    <message>
        <source>sixteenths</source>
        <translation>Sechzehnteln</translation>
    </message>
    <message>
        <source>thirty-seconds</source>
        <translation>Zweiunddreißigsteln</translation>
    </message>
    <message>
        <source>sixty-fourths</source>
        <translation>Vierundsechzigsteln</translation>
    </message>
    <message>
        <source>Times from 0 to 60 with quarter-tones, such as 0:0 30:4 60:4; empty or unchanged for the usual curve.</source>
        <translation>Zeiten von 0 bis 60 mit Vierteltönen, etwa 0:0 30:4 60:4; leer oder unverändert für den üblichen Verlauf.</translation>
    </message>
    <message>
        <source>&amp;Depth in quarter-tones</source>
        <translation>&amp;Tiefe in Vierteltönen</translation>
    </message>
</context>
<context>
    <name>PanelTable</name>
    <message>
        <source>Tracks</source>
        <translation>Spuren</translation>
    </message>
    <message>
        <source>Mixer</source>
        <translation>Mischpult</translation>
    </message>
    <message>
        <source>Sections</source>
        <translation>Abschnitte</translation>
    </message>
    <message>
        <source>Properties</source>
        <translation>Eigenschaften</translation>
    </message>
    <message>
        <source>Fretboard</source>
        <translation>Griffbrett</translation>
    </message>
    <message>
        <source>Chords</source>
        <translation>Akkorde</translation>
    </message>
    <message>
        <source>Tuning</source>
        <translation>Stimmung</translation>
    </message>
    <message>
        <source>Sounds and effects</source>
        <translation>Klänge und Effekte</translation>
    </message>
    <message>
        <source>Automation</source>
        <translation>Automation</translation>
    </message>
</context>
<context>
    <name>PlaceText</name>
    <message>
        <source>bar %1</source>
        <translation>Takt %1</translation>
    </message>
    <message>
        <source>beat %1</source>
        <translation>Schlag %1</translation>
    </message>
    <message>
        <source>voice %1</source>
        <translation>Stimme %1</translation>
    </message>
    <message>
        <source>string %1</source>
        <translation>Saite %1</translation>
    </message>
    <message>
        <source>%1 of %2 quarters</source>
        <translation>%1 von %2 Vierteln</translation>
    </message>
</context>
<context>
    <name>PlayActions</name>
    <message>
        <source>&amp;Play or pause</source>
        <translation>&amp;Abspielen oder anhalten</translation>
    </message>
    <message>
        <source>&amp;Stop</source>
        <translation>&amp;Stopp</translation>
    </message>
    <message>
        <source>&amp;Metronome</source>
        <translation>&amp;Metronom</translation>
    </message>
    <message>
        <source>&amp;Loop the selection</source>
        <translation>Auswahl in &amp;Schleife</translation>
    </message>
    <message>
        <source>Slo&amp;wer</source>
        <translation>&amp;Langsamer</translation>
    </message>
    <message>
        <source>Fas&amp;ter</source>
        <translation>&amp;Schneller</translation>
    </message>
</context>
<context>
    <name>Questions</name>
    <message>
        <source>&quot;%1&quot; has changes that are not saved.</source>
        <translation>„%1“ hat Änderungen, die nicht gespeichert sind.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is there already. Replace it?</source>
        <translation>„%1“ gibt es schon. Ersetzen?</translation>
    </message>
</context>
<context>
    <name>ScoreActions</name>
    <message>
        <source>&amp;About the score</source>
        <translation>Ü&amp;ber die Partitur</translation>
    </message>
    <message>
        <source>&amp;Headers and footers</source>
        <translation>&amp;Kopf- und Fußzeilen</translation>
    </message>
    <message>
        <source>T&amp;ranspose</source>
        <translation>T&amp;ransponieren</translation>
    </message>
    <message>
        <source>Semitones:</source>
        <translation>Halbtöne:</translation>
    </message>
    <message>
        <source>C&amp;oncert pitch</source>
        <translation>K&amp;ammerton</translation>
    </message>
    <message>
        <source>Hertz of the a&apos;:</source>
        <translation>Hertz des a&apos;:</translation>
    </message>
    <message>
        <source>&amp;Systems of the full score</source>
        <translation>&amp;Systeme der Partitur</translation>
    </message>
    <message>
        <source>Bars in each s&amp;ystem</source>
        <translation>Takte in jedem S&amp;ystem</translation>
    </message>
    <message>
        <source>Bars in each system:</source>
        <translation>Takte in jedem System:</translation>
    </message>
    <message>
        <source>&amp;Break systems by itself</source>
        <translation>Systeme &amp;von selbst umbrechen</translation>
    </message>
    <message>
        <source>&amp;Pages</source>
        <translation>&amp;Seiten</translation>
    </message>
    <message>
        <source>&amp;One long page</source>
        <translation>&amp;Eine lange Seite</translation>
    </message>
    <message>
        <source>One &amp;line</source>
        <translation>Eine &amp;Zeile</translation>
    </message>
    <message>
        <source>Add a re&amp;cording</source>
        <translation>A&amp;ufnahme hinzufügen</translation>
    </message>
    <message>
        <source>Remove a recor&amp;ding</source>
        <translation>Aufnahme &amp;entfernen</translation>
    </message>
    <message>
        <source>Opens &amp;as</source>
        <translation>Öffnet sich a&amp;ls</translation>
    </message>
    <message>
        <source>&amp;Multi-bar rests</source>
        <translation>&amp;Mehrtaktpausen</translation>
    </message>
    <message>
        <source>Chan&amp;ge a recording</source>
        <translation>Aufnahme &amp;ändern</translation>
    </message>
</context>
<context>
    <name>ScoreStep</name>
    <message>
        <source>&quot;%1&quot; is not possible here.</source>
        <translation>„%1“ ist hier nicht möglich.</translation>
    </message>
</context>
<context>
    <name>SignForms</name>
    <message>
        <source>until the next change</source>
        <translation>bis zum nächsten Wechsel</translation>
    </message>
    <message>
        <source>in the selected bars</source>
        <translation>in den ausgewählten Takten</translation>
    </message>
    <message>
        <source>to the end of the piece</source>
        <translation>bis zum Ende des Stücks</translation>
    </message>
    <message>
        <source>Meter</source>
        <translation>Taktart</translation>
    </message>
    <message>
        <source>&amp;Beats of a bar</source>
        <translation>&amp;Schläge eines Takts</translation>
    </message>
    <message>
        <source>Be&amp;ams</source>
        <translation>&amp;Balken</translation>
    </message>
    <message>
        <source>Key</source>
        <translation>Tonart</translation>
    </message>
    <message>
        <source>&amp;Key, as it sounds</source>
        <translation>&amp;Tonart, wie sie klingt</translation>
    </message>
    <message>
        <source>Section</source>
        <translation>Abschnitt</translation>
    </message>
    <message>
        <source>Rehearsal &amp;letter</source>
        <translation>&amp;Probenbuchstabe</translation>
    </message>
    <message>
        <source>&amp;Title</source>
        <translation>&amp;Titel</translation>
    </message>
    <message>
        <source>Repeat</source>
        <translation>Wiederholung</translation>
    </message>
    <message>
        <source>Tempo</source>
        <translation>Tempo</translation>
    </message>
    <message>
        <source>&amp;Unit</source>
        <translation>&amp;Einheit</translation>
    </message>
    <message>
        <source>Eighth</source>
        <translation>Achtel</translation>
    </message>
    <message>
        <source>Quarter</source>
        <translation>Viertel</translation>
    </message>
    <message>
        <source>Dotted quarter</source>
        <translation>Punktierte Viertel</translation>
    </message>
    <message>
        <source>Half</source>
        <translation>Halbe</translation>
    </message>
    <message>
        <source>Dotted half</source>
        <translation>Punktierte Halbe</translation>
    </message>
    <message>
        <source>&amp;Words</source>
        <translation>&amp;Worte</translation>
    </message>
    <message>
        <source>Such as Allegro; shown above the staff.</source>
        <translation>Etwa Allegro; steht über dem System.</translation>
    </message>
    <message>
        <source>&amp;From</source>
        <translation>&amp;Von</translation>
    </message>
    <message>
        <source>the beat of the cursor</source>
        <translation>der Zählzeit des Cursors</translation>
    </message>
    <message>
        <source>S&amp;hown in the score</source>
        <translation>In der Partitur &amp;gezeigt</translation>
    </message>
    <message>
        <source>Fermata</source>
        <translation>Fermate</translation>
    </message>
    <message>
        <source>&amp;Kind</source>
        <translation>&amp;Art</translation>
    </message>
    <message>
        <source>Short</source>
        <translation>Kurz</translation>
    </message>
    <message>
        <source>Usual</source>
        <translation>Üblich</translation>
    </message>
    <message>
        <source>Long</source>
        <translation>Lang</translation>
    </message>
    <message>
        <source>Such as 3 or 3/2.</source>
        <translation>Etwa 3 oder 3/2.</translation>
    </message>
    <message>
        <source>&amp;Applies</source>
        <translation>&amp;Gilt</translation>
    </message>
    <message>
        <source>in this bar only</source>
        <translation>nur in diesem Takt</translation>
    </message>
    <message>
        <source>Beat &amp;unit</source>
        <translation>Schlag&amp;wert</translation>
    </message>
    <message>
        <source>Beats joined by each beam, such as 2+2+3; empty for the usual grouping.</source>
        <translation>Schläge unter jedem Balken, etwa 2+2+3; leer für die übliche Gruppierung.</translation>
    </message>
    <message>
        <source>&amp;Free time</source>
        <translation>&amp;Freies Metrum</translation>
    </message>
    <message>
        <source>Such as Verse or Solo. Leave both empty to remove the section.</source>
        <translation>Etwa Strophe oder Solo. Bleibt beides leer, verschwindet der Abschnitt.</translation>
    </message>
    <message>
        <source>&amp;Times played</source>
        <translation>So oft &amp;gespielt</translation>
    </message>
    <message>
        <source>1 means no repeat.</source>
        <translation>1 heißt ohne Wiederholung.</translation>
    </message>
    <message>
        <source>&amp;Beats per minute</source>
        <translation>&amp;Schläge in der Minute</translation>
    </message>
    <message>
        <source>the beginning of the bar</source>
        <translation>dem Beginn des Takts</translation>
    </message>
    <message>
        <source>Changes gradua&amp;lly to the next tempo</source>
        <translation>&amp;Gleitet zum nächsten Tempo</translation>
    </message>
    <message>
        <source>&amp;Remove this tempo</source>
        <translation>Dieses Tempo &amp;entfernen</translation>
    </message>
    <message>
        <source>&amp;Position in the bar, in quarters</source>
        <translation>&amp;Stelle im Takt, in Vierteln</translation>
    </message>
    <message>
        <source>&amp;Longer by, in percent</source>
        <translation>&amp;Länger um, in Prozent</translation>
    </message>
    <message>
        <source>&amp;Written as</source>
        <translation>&amp;Geschrieben als</translation>
    </message>
    <message>
        <source>Both numbers</source>
        <translation>Beide Zahlen</translation>
    </message>
    <message>
        <source>C</source>
        <translation>C</translation>
    </message>
    <message>
        <source>C with a stroke</source>
        <translation>C mit Strich</translation>
    </message>
    <message>
        <source>Upper number alone</source>
        <translation>Nur die obere Zahl</translation>
    </message>
    <message>
        <source>Nothing</source>
        <translation>Nichts</translation>
    </message>
    <message>
        <source>No number, words alone</source>
        <translation>Keine Zahl, nur Worte</translation>
    </message>
    <message>
        <source>Letter in a &amp;circle</source>
        <translation>Buchstabe im &amp;Kreis</translation>
    </message>
</context>
<context>
    <name>Signatures</name>
    <message>
        <source>%1 major</source>
        <translation>%1-Dur</translation>
    </message>
    <message>
        <source>%1 minor</source>
        <translation>%1-Moll</translation>
    </message>
</context>
<context>
    <name>TrackActions</name>
    <message>
        <source>Instrument:</source>
        <translation>Instrument:</translation>
    </message>
    <message>
        <source>&amp;Add</source>
        <translation>&amp;Hinzufügen</translation>
    </message>
    <message>
        <source>&amp;Remove</source>
        <translation>&amp;Entfernen</translation>
    </message>
    <message>
        <source>Move &amp;up</source>
        <translation>Nach &amp;oben</translation>
    </message>
    <message>
        <source>Move &amp;down</source>
        <translation>Nach &amp;unten</translation>
    </message>
    <message>
        <source>&amp;Notation</source>
        <translation>&amp;Noten</translation>
    </message>
    <message>
        <source>&amp;Tablature</source>
        <translation>&amp;Tabulatur</translation>
    </message>
    <message>
        <source>&amp;Slashes</source>
        <translation>&amp;Schrägstriche</translation>
    </message>
    <message>
        <source>&amp;Mute</source>
        <translation>Stu&amp;mm</translation>
    </message>
    <message>
        <source>S&amp;olo</source>
        <translation>Sol&amp;o</translation>
    </message>
    <message>
        <source>Sta&amp;ves</source>
        <translation>S&amp;ysteme</translation>
    </message>
    <message>
        <source>Staves:</source>
        <translation>Systeme:</translation>
    </message>
    <message>
        <source>Let it so&amp;und higher or lower</source>
        <translation>Höher oder tiefer &amp;klingen lassen</translation>
    </message>
    <message>
        <source>Semitones:</source>
        <translation>Halbtöne:</translation>
    </message>
    <message>
        <source>&amp;Write it higher or lower</source>
        <translation>Höher oder tiefer &amp;schreiben</translation>
    </message>
    <message>
        <source>Semitones from what is written to what sounds:</source>
        <translation>Halbtöne vom Geschriebenen zum Klingenden:</translation>
    </message>
    <message>
        <source>&amp;Lyrics</source>
        <translation>&amp;Liedtext</translation>
    </message>
    <message>
        <source>S&amp;ettings</source>
        <translation>&amp;Einstellungen</translation>
    </message>
    <message>
        <source>S&amp;ystems of the track</source>
        <translation>S&amp;ysteme der Spur</translation>
    </message>
    <message>
        <source>Where the lyrics be&amp;gin</source>
        <translation>Be&amp;ginn des Gesangstexts</translation>
    </message>
</context>
<context>
    <name>TrackForms</name>
    <message>
        <source>As usual</source>
        <translation>Wie üblich</translation>
    </message>
    <message>
        <source>Pick</source>
        <translation>Plektrum</translation>
    </message>
    <message>
        <source>Fingers</source>
        <translation>Finger</translation>
    </message>
    <message>
        <source>Finger picking</source>
        <translation>Zupfmuster</translation>
    </message>
    <message>
        <source>Slap</source>
        <translation>Slap</translation>
    </message>
    <message>
        <source>Brush</source>
        <translation>Besen</translation>
    </message>
    <message>
        <source>Sticks</source>
        <translation>Stöcke</translation>
    </message>
    <message>
        <source>Hot rods</source>
        <translation>Hot Rods</translation>
    </message>
    <message>
        <source>Steel guitar</source>
        <translation>Westerngitarre</translation>
    </message>
    <message>
        <source>Acoustic guitar</source>
        <translation>Akustische Gitarre</translation>
    </message>
    <message>
        <source>Twelve-string guitar</source>
        <translation>Zwölfsaitige Gitarre</translation>
    </message>
    <message>
        <source>Electric guitar</source>
        <translation>E-Gitarre</translation>
    </message>
    <message>
        <source>Electric bass</source>
        <translation>E-Bass</translation>
    </message>
    <message>
        <source>Upright bass</source>
        <translation>Kontrabass</translation>
    </message>
    <message>
        <source>Ukulele</source>
        <translation>Ukulele</translation>
    </message>
    <message>
        <source>Banjo</source>
        <translation>Banjo</translation>
    </message>
    <message>
        <source>Mandolin</source>
        <translation>Mandoline</translation>
    </message>
    <message>
        <source>Piano</source>
        <translation>Klavier</translation>
    </message>
    <message>
        <source>Bowed strings</source>
        <translation>Streicher</translation>
    </message>
    <message>
        <source>Synthesizer</source>
        <translation>Synthesizer</translation>
    </message>
    <message>
        <source>Brass</source>
        <translation>Blech</translation>
    </message>
    <message>
        <source>Reeds</source>
        <translation>Rohrblatt</translation>
    </message>
    <message>
        <source>Woodwind</source>
        <translation>Holz</translation>
    </message>
    <message>
        <source>Voice</source>
        <translation>Stimme</translation>
    </message>
    <message>
        <source>Pitched percussion</source>
        <translation>Schlagwerk mit Tonhöhe</translation>
    </message>
    <message>
        <source>Drum kit</source>
        <translation>Schlagzeug</translation>
    </message>
    <message>
        <source>Idiophone</source>
        <translation>Idiophon</translation>
    </message>
    <message>
        <source>Drum</source>
        <translation>Trommel</translation>
    </message>
    <message>
        <source>Effects</source>
        <translation>Effekte</translation>
    </message>
    <message>
        <source>Folk guitar</source>
        <translation>Folkgitarre</translation>
    </message>
    <message>
        <source>Classical guitar</source>
        <translation>Konzertgitarre</translation>
    </message>
    <message>
        <source>Electric guitar, humbucker</source>
        <translation>E-Gitarre, Humbucker</translation>
    </message>
    <message>
        <source>Electric guitar, single coil</source>
        <translation>E-Gitarre, Einzelspule</translation>
    </message>
    <message>
        <source>Electric guitar, two single coils</source>
        <translation>E-Gitarre, zwei Einzelspulen</translation>
    </message>
    <message>
        <source>&amp;Bars in each system</source>
        <translation>&amp;Takte in jedem System</translation>
    </message>
    <message>
        <source>Settings of %1</source>
        <translation>Einstellungen von %1</translation>
    </message>
    <message>
        <source>&amp;Name</source>
        <translation>&amp;Name</translation>
    </message>
    <message>
        <source>&amp;Short name</source>
        <translation>&amp;Kurzname</translation>
    </message>
    <message>
        <source>&amp;Picture</source>
        <translation>&amp;Bild</translation>
    </message>
    <message>
        <source>&amp;Colour</source>
        <translation>&amp;Farbe</translation>
    </message>
    <message>
        <source>Such as #3070c0.</source>
        <translation>Etwa #3070c0.</translation>
    </message>
    <message>
        <source>&amp;Played with</source>
        <translation>&amp;Gespielt mit</translation>
    </message>
    <message>
        <source>Palm muting &amp;dampens, 0 to 1</source>
        <translation>Palm Mute &amp;dämpft, 0 bis 1</translation>
    </message>
    <message>
        <source>All notes &amp;ring on</source>
        <translation>Alle Noten &amp;klingen aus</translation>
    </message>
    <message>
        <source>Chords are str&amp;ummed</source>
        <translation>A&amp;kkorde werden durchgestrichen</translation>
    </message>
    <message>
        <source>A &amp;MIDI connection of its own</source>
        <translation>Eigene &amp;MIDI-Verbindung</translation>
    </message>
    <message>
        <source>MIDI p&amp;ort</source>
        <translation>MIDI-An&amp;schluss</translation>
    </message>
    <message>
        <source>Cha&amp;nnel</source>
        <translation>Ka&amp;nal</translation>
    </message>
    <message>
        <source>Channel of b&amp;ent notes</source>
        <translation>Kanal g&amp;ezogener Noten</translation>
    </message>
    <message>
        <source>One channel for each str&amp;ing</source>
        <translation>Ein Kanal für jede Sa&amp;ite</translation>
    </message>
    <message>
        <source>Lyrics</source>
        <translation>Gesangstext</translation>
    </message>
    <message>
        <source>Line &amp;%1</source>
        <translation>Zeile &amp;%1</translation>
    </message>
    <message>
        <source>A - parts syllables, a _ holds one over another note, a ~ joins two words on a note. A new line begins at the bar of the cursor.</source>
        <translation>- trennt Silben, _ hält eine über eine weitere Note, ~ verbindet zwei Wörter auf einer Note. Eine neue Zeile beginnt beim Takt des Cursors.</translation>
    </message>
    <message>
        <source>Line %1 is shown</source>
        <translation>Zeile %1 wird gezeigt</translation>
    </message>
    <message>
        <source>&amp;Line</source>
        <translation>&amp;Zeile</translation>
    </message>
    <message>
        <source>Begins in &amp;bar</source>
        <translation>Beginnt in &amp;Takt</translation>
    </message>
    <message>
        <source>Systems of the track</source>
        <translation>Systeme der Spur</translation>
    </message>
    <message>
        <source>Systems of the full score</source>
        <translation>Systeme der Partitur</translation>
    </message>
    <message>
        <source>&amp;Title</source>
        <translation>&amp;Titel</translation>
    </message>
    <message>
        <source>&amp;Subtitle</source>
        <translation>&amp;Untertitel</translation>
    </message>
    <message>
        <source>&amp;Artist</source>
        <translation>&amp;Interpret</translation>
    </message>
    <message>
        <source>Al&amp;bum</source>
        <translation>Al&amp;bum</translation>
    </message>
    <message>
        <source>&amp;Words by</source>
        <translation>Te&amp;xt von</translation>
    </message>
    <message>
        <source>&amp;Music by</source>
        <translation>&amp;Musik von</translation>
    </message>
    <message>
        <source>Wor&amp;ds and music by</source>
        <translation>Text un&amp;d Musik von</translation>
    </message>
    <message>
        <source>&amp;Copyright</source>
        <translation>&amp;Copyright</translation>
    </message>
    <message>
        <source>Tablature b&amp;y</source>
        <translation>Tabulatur &amp;von</translation>
    </message>
    <message>
        <source>&amp;Instructions</source>
        <translation>&amp;Spielanweisungen</translation>
    </message>
    <message>
        <source>&amp;Notes</source>
        <translation>&amp;Notizen</translation>
    </message>
    <message>
        <source>About the score</source>
        <translation>Über die Partitur</translation>
    </message>
    <message>
        <source>left</source>
        <translation>links</translation>
    </message>
    <message>
        <source>centre</source>
        <translation>Mitte</translation>
    </message>
    <message>
        <source>right</source>
        <translation>rechts</translation>
    </message>
    <message>
        <source>First page, top %1</source>
        <translation>Erste Seite, oben %1</translation>
    </message>
    <message>
        <source>First page, bottom %1</source>
        <translation>Erste Seite, unten %1</translation>
    </message>
    <message>
        <source>Other pages, top %1</source>
        <translation>Andere Seiten, oben %1</translation>
    </message>
    <message>
        <source>Other pages, bottom %1</source>
        <translation>Andere Seiten, unten %1</translation>
    </message>
    <message>
        <source>Headers and footers</source>
        <translation>Kopf- und Fußzeilen</translation>
    </message>
    <message>
        <source>%Title%, %Artist%, %Page%, %Pages% and the like stand for what they name.</source>
        <translation>%Title%, %Artist%, %Page%, %Pages% und dergleichen stehen für das, was sie nennen.</translation>
    </message>
    <message>
        <source>Sound files (%1)</source>
        <translation>Klangdateien (%1)</translation>
    </message>
    <message>
        <source>Recording</source>
        <translation>Aufnahme</translation>
    </message>
    <message>
        <source>&amp;Volume, 1 as it is</source>
        <translation>&amp;Lautstärke, 1 wie sie ist</translation>
    </message>
    <message>
        <source>&amp;Remove</source>
        <translation>&amp;Entfernen</translation>
    </message>
    <message>
        <source>From the first system on, such as 3 4 4; later systems hold as many as fit.</source>
        <translation>Vom ersten System an, etwa 3 4 4; spätere Systeme fassen, was Platz hat.</translation>
    </message>
    <message>
        <source>&amp;Beats are accented by the meter</source>
        <translation>Die &amp;Schläge der Taktart sind betont</translation>
    </message>
    <message>
        <source>&amp;Starts after, in seconds</source>
        <translation>&amp;Beginnt nach, in Sekunden</translation>
    </message>
    <message>
        <source>&amp;Balance, from -1 (left) to 1 (right)</source>
        <translation>&amp;Balance, von -1 (links) bis 1 (rechts)</translation>
    </message>
    <message>
        <source>&amp;Muted</source>
        <translation>&amp;Stumm</translation>
    </message>
    <message>
        <source>&amp;Change</source>
        <translation>Än&amp;dern</translation>
    </message>
</context>
<context>
    <name>ViewActions</name>
    <message>
        <source>&amp;Pages</source>
        <translation>&amp;Seiten</translation>
    </message>
    <message>
        <source>&amp;One long page</source>
        <translation>&amp;Eine lange Seite</translation>
    </message>
    <message>
        <source>One &amp;line</source>
        <translation>Eine Zei&amp;le</translation>
    </message>
    <message>
        <source>This &amp;track alone</source>
        <translation>&amp;Diese Spur allein</translation>
    </message>
    <message>
        <source>Zoom &amp;in</source>
        <translation>Ver&amp;größern</translation>
    </message>
    <message>
        <source>Zoom &amp;out</source>
        <translation>Ver&amp;kleinern</translation>
    </message>
    <message>
        <source>As on pa&amp;per</source>
        <translation>Wie auf &amp;Papier</translation>
    </message>
    <message>
        <source>Fit the &amp;width</source>
        <translation>&amp;Breite einpassen</translation>
    </message>
    <message>
        <source>Fit the &amp;height</source>
        <translation>&amp;Höhe einpassen</translation>
    </message>
    <message>
        <source>Fit the pa&amp;ge</source>
        <translation>Se&amp;ite einpassen</translation>
    </message>
    <message>
        <source>&amp;Panels</source>
        <translation>&amp;Tafeln</translation>
    </message>
    <message>
        <source>&amp;As the system</source>
        <translation>&amp;Wie das System</translation>
    </message>
    <message>
        <source>&amp;Light</source>
        <translation>&amp;Hell</translation>
    </message>
    <message>
        <source>&amp;Dark</source>
        <translation>&amp;Dunkel</translation>
    </message>
    <message>
        <source>&amp;Appearance</source>
        <translation>&amp;Erscheinung</translation>
    </message>
    <message>
        <source>Percent of the size on paper:</source>
        <translation>Prozent der Größe auf dem Papier:</translation>
    </message>
    <message>
        <source>&amp;Zoom to...</source>
        <translation>&amp;Zoomen auf ...</translation>
    </message>
</context>
<context>
    <name>zarn::editor::AutomationsPanel</name>
    <message>
        <source>What</source>
        <translation>Was</translation>
    </message>
    <message>
        <source>Where</source>
        <translation>Wo</translation>
    </message>
    <message>
        <source>Value</source>
        <translation>Wert</translation>
    </message>
    <message>
        <source>Slides</source>
        <translation>Gleitet</translation>
    </message>
    <message>
        <source>Add...</source>
        <translation>Hinzufügen...</translation>
    </message>
    <message>
        <source>Edit...</source>
        <translation>Bearbeiten...</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>Entfernen</translation>
    </message>
    <message>
        <source>Tempo</source>
        <translation>Tempo</translation>
    </message>
    <message>
        <source>Sound of the track</source>
        <translation>Klang der Spur</translation>
    </message>
    <message>
        <source>Volume of the track</source>
        <translation>Lautstärke der Spur</translation>
    </message>
    <message>
        <source>Panning of the track</source>
        <translation>Panorama der Spur</translation>
    </message>
    <message>
        <source>Knob %1 of the whole mix</source>
        <translation>Regler %1 der ganzen Mischung</translation>
    </message>
    <message>
        <source>Knob %1 of the track&apos;s effects</source>
        <translation>Regler %1 der Effekte der Spur</translation>
    </message>
    <message>
        <source>%1 quarters a minute</source>
        <translation>%1 Viertel in der Minute</translation>
    </message>
    <message>
        <source>bar %1</source>
        <translation>Takt %1</translation>
    </message>
    <message>
        <source>bar %1, after %2 quarters</source>
        <translation>Takt %1, nach %2 Vierteln</translation>
    </message>
    <message>
        <source>yes</source>
        <translation>ja</translation>
    </message>
    <message>
        <source>&amp;Bar</source>
        <translation>&amp;Takt</translation>
    </message>
    <message>
        <source>&amp;Sound</source>
        <translation>&amp;Klang</translation>
    </message>
    <message>
        <source>&amp;Value</source>
        <translation>&amp;Wert</translation>
    </message>
    <message>
        <source>A knob of the whole mix</source>
        <translation>Ein Regler der ganzen Mischung</translation>
    </message>
    <message>
        <source>A knob of the track&apos;s effects</source>
        <translation>Ein Regler der Effekte der Spur</translation>
    </message>
    <message>
        <source>&amp;What changes</source>
        <translation>&amp;Was sich ändert</translation>
    </message>
    <message>
        <source>This is not possible here.</source>
        <translation>Das ist hier nicht möglich.</translation>
    </message>
    <message>
        <source>Automation</source>
        <translation>Automation</translation>
    </message>
    <message>
        <source>Add automation</source>
        <translation>Automation hinzufügen</translation>
    </message>
    <message>
        <source>Change automation</source>
        <translation>Automation ändern</translation>
    </message>
    <message>
        <source>Remove automation</source>
        <translation>Automation entfernen</translation>
    </message>
    <message>
        <source>Switch automation</source>
        <translation>Automation schalten</translation>
    </message>
    <message>
        <source>&amp;Position in the bar, in quarters</source>
        <translation>&amp;Stelle im Takt, in Vierteln</translation>
    </message>
    <message>
        <source>Changes gradua&amp;lly to the next one</source>
        <translation>&amp;Gleitet zum nächsten</translation>
    </message>
    <message>
        <source>Nu&amp;mber of the knob</source>
        <translation>&amp;Nummer des Reglers</translation>
    </message>
    <message>
        <source>This one cannot be removed.</source>
        <translation>Diese lässt sich nicht entfernen.</translation>
    </message>
</context>
<context>
    <name>zarn::editor::ChordsPanel</name>
    <message>
        <source>&amp;Write</source>
        <translation>&amp;Schreiben</translation>
    </message>
    <message>
        <source>Symbol &amp;only</source>
        <translation>Nur das S&amp;ymbol</translation>
    </message>
    <message>
        <source>&amp;Remove</source>
        <translation>&amp;Entfernen</translation>
    </message>
    <message>
        <source>&amp;Chord:</source>
        <translation>&amp;Akkord:</translation>
    </message>
    <message>
        <source>Am7, F#m7b5/E</source>
        <translation>Am7, F#m7b5/E</translation>
    </message>
    <message>
        <source>Chord symbol</source>
        <translation>Akkordsymbol</translation>
    </message>
    <message>
        <source>Names of the notes of the beat</source>
        <translation>Namen der Noten des Schlags</translation>
    </message>
    <message>
        <source>What the notes of the beat may be called</source>
        <translation>Wie die Noten des Schlags heißen können</translation>
    </message>
    <message>
        <source>Ways to play the chord</source>
        <translation>Griffe des Akkords</translation>
    </message>
    <message>
        <source>Writes the symbol with the chosen diagram over the beat</source>
        <translation>Schreibt das Symbol mit dem gewählten Griffbild über den Schlag</translation>
    </message>
    <message>
        <source>No chord that is known; it is written as it stands.</source>
        <translation>Kein bekannter Akkord; er wird geschrieben, wie er dasteht.</translation>
    </message>
    <message>
        <source>No chord</source>
        <translation>Kein Akkord</translation>
    </message>
    <message>
        <source>&amp;Forget shape</source>
        <translation>Griff &amp;vergessen</translation>
    </message>
    <message>
        <source>&amp;Keep shape</source>
        <translation>Griff &amp;behalten</translation>
    </message>
    <message>
        <source>Shapes that you keep come first wherever the chord is played on these strings</source>
        <translation>Griffe, die Sie behalten, kommen zuerst, wo immer der Akkord auf diesen Saiten gespielt wird</translation>
    </message>
    <message>
        <source>Chord %1</source>
        <translation>Akkord %1</translation>
    </message>
    <message>
        <source>Remove chord</source>
        <translation>Akkord entfernen</translation>
    </message>
</context>
<context>
    <name>zarn::editor::DiagramModel</name>
    <message>
        <source>%1 as %2, fingers %3</source>
        <translation>%1 als %2, Finger %3</translation>
    </message>
</context>
<context>
    <name>zarn::editor::Document</name>
    <message>
        <source>Untitled</source>
        <translation>Ohne Titel</translation>
    </message>
</context>
<context>
    <name>zarn::editor::Editor</name>
    <message>
        <source>&quot;%1&quot; cannot be opened.</source>
        <translation>„%1“ lässt sich nicht öffnen.</translation>
    </message>
    <message>
        <source>Opening &quot;%1&quot;...</source>
        <translation>„%1“ wird geöffnet ...</translation>
    </message>
    <message>
        <source>a new score</source>
        <translation>eine neue Partitur</translation>
    </message>
    <message>
        <source>The program ended before all was saved (%1). Open what it kept?</source>
        <translation>Das Programm endete, bevor alles gespeichert war (%1). Öffnen, was es aufgehoben hat?</translation>
    </message>
</context>
<context>
    <name>zarn::editor::FretboardPanel</name>
    <message>
        <source>&amp;Scale:</source>
        <translation>&amp;Tonleiter:</translation>
    </message>
    <message>
        <source>Fretboard</source>
        <translation>Griffbrett</translation>
    </message>
    <message>
        <source>Click a place to write it; arrow keys and Return do the same</source>
        <translation>Ein Klick schreibt die Stelle; Pfeiltasten und Eingabe tun dasselbe</translation>
    </message>
    <message>
        <source>Tonic of the scale</source>
        <translation>Grundton der Tonleiter</translation>
    </message>
    <message>
        <source>None</source>
        <translation>Keine</translation>
    </message>
    <message>
        <source>Kind of scale</source>
        <translation>Art der Tonleiter</translation>
    </message>
    <message>
        <source>Rest</source>
        <translation>Pause</translation>
    </message>
    <message>
        <source>Fret %1</source>
        <translation>Bund %1</translation>
    </message>
</context>
<context>
    <name>zarn::editor::MainWindow</name>
    <message>
        <source>Zarn documents (*.%1)</source>
        <translation>Zarn-Dokumente (*.%1)</translation>
    </message>
    <message>
        <source>&quot;%1&quot; cannot be saved.</source>
        <translation>„%1“ lässt sich nicht speichern.</translation>
    </message>
    <message>
        <source>Saved.</source>
        <translation>Gespeichert.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; cannot be written.</source>
        <translation>„%1“ lässt sich nicht schreiben.</translation>
    </message>
    <message>
        <source>The format has no word for all of it.</source>
        <translation>Das Format kann nicht alles festhalten.</translation>
    </message>
    <message>
        <source>Exported.</source>
        <translation>Exportiert.</translation>
    </message>
    <message>
        <source>Nothing was printed.</source>
        <translation>Es wurde nichts gedruckt.</translation>
    </message>
    <message>
        <source>Page setup</source>
        <translation>Seite einrichten</translation>
    </message>
    <message>
        <source>Such margins leave no room for music.</source>
        <translation>Solche Ränder lassen keinen Platz für Musik.</translation>
    </message>
    <message>
        <source>Something of &quot;%1&quot; was changed or left out.</source>
        <translation>Etwas aus „%1“ wurde geändert oder ausgelassen.</translation>
    </message>
</context>
<context>
    <name>zarn::editor::MixerPanel</name>
    <message>
        <source>M</source>
        <comment>button that mutes a track</comment>
        <translation>M</translation>
    </message>
    <message>
        <source>Mute</source>
        <translation>Stumm</translation>
    </message>
    <message>
        <source>S</source>
        <comment>button that lets a track be heard alone</comment>
        <translation>S</translation>
    </message>
    <message>
        <source>Solo</source>
        <translation>Solo</translation>
    </message>
    <message>
        <source>Master</source>
        <translation>Summe</translation>
    </message>
    <message>
        <source>Volume of %1</source>
        <translation>Lautstärke von %1</translation>
    </message>
    <message>
        <source>Panning of %1</source>
        <translation>Panorama von %1</translation>
    </message>
    <message>
        <source>Panning</source>
        <translation>Panorama</translation>
    </message>
    <message>
        <source>Volume</source>
        <translation>Lautstärke</translation>
    </message>
    <message>
        <source>Mixer</source>
        <translation>Mischpult</translation>
    </message>
</context>
<context>
    <name>zarn::editor::NeckView</name>
    <message>
        <source>String %1, %2</source>
        <translation>Saite %1, %2</translation>
    </message>
    <message>
        <source>open</source>
        <translation>leer</translation>
    </message>
    <message>
        <source>fret %1</source>
        <translation>Bund %1</translation>
    </message>
    <message>
        <source>Capo %1</source>
        <translation>Kapodaster %1</translation>
    </message>
    <message>
        <source>This staff has no strings.</source>
        <translation>Dieses System hat keine Saiten.</translation>
    </message>
</context>
<context>
    <name>zarn::editor::NewScoreDialog</name>
    <message>
        <source>New score</source>
        <translation>Neue Partitur</translation>
    </message>
    <message>
        <source>Tracks</source>
        <translation>Spuren</translation>
    </message>
    <message>
        <source>&amp;Add</source>
        <translation>&amp;Hinzufügen</translation>
    </message>
    <message>
        <source>&amp;Remove</source>
        <translation>&amp;Entfernen</translation>
    </message>
    <message>
        <source>&amp;Title</source>
        <translation>&amp;Titel</translation>
    </message>
    <message>
        <source>&amp;Instrument</source>
        <translation>&amp;Instrument</translation>
    </message>
    <message>
        <source>&amp;Bars</source>
        <translation>T&amp;akte</translation>
    </message>
    <message>
        <source>Quarters per &amp;minute</source>
        <translation>Viertel in der &amp;Minute</translation>
    </message>
    <message>
        <source>none</source>
        <translation>keiner</translation>
    </message>
    <message>
        <source>Beat unit</source>
        <translation>Schlagwert</translation>
    </message>
    <message>
        <source>T&amp;uning</source>
        <translation>&amp;Stimmung</translation>
    </message>
    <message>
        <source>&amp;Capo at fret</source>
        <translation>&amp;Kapodaster am Bund</translation>
    </message>
    <message>
        <source>M&amp;eter</source>
        <translation>Takta&amp;rt</translation>
    </message>
    <message>
        <source>&amp;Key</source>
        <translation>T&amp;onart</translation>
    </message>
    <message>
        <source>, capo %1</source>
        <translation>, Kapodaster %1</translation>
    </message>
</context>
<context>
    <name>zarn::editor::PageSetupDialog</name>
    <message>
        <source>Page setup</source>
        <translation>Seite einrichten</translation>
    </message>
    <message>
        <source>Another size</source>
        <translation>Andere Größe</translation>
    </message>
    <message>
        <source>Portrait</source>
        <translation>Hochformat</translation>
    </message>
    <message>
        <source>Landscape</source>
        <translation>Querformat</translation>
    </message>
    <message>
        <source>&amp;Sheet</source>
        <translation>&amp;Blatt</translation>
    </message>
    <message>
        <source>&amp;Width, upright</source>
        <translation>B&amp;reite, hochkant</translation>
    </message>
    <message>
        <source>&amp;Height, upright</source>
        <translation>&amp;Höhe, hochkant</translation>
    </message>
    <message>
        <source>&amp;Orientation</source>
        <translation>&amp;Ausrichtung</translation>
    </message>
    <message>
        <source>&amp;Left margin</source>
        <translation>Rand &amp;links</translation>
    </message>
    <message>
        <source>&amp;Top margin</source>
        <translation>Rand &amp;oben</translation>
    </message>
    <message>
        <source>&amp;Right margin</source>
        <translation>Rand r&amp;echts</translation>
    </message>
    <message>
        <source>&amp;Bottom margin</source>
        <translation>Rand &amp;unten</translation>
    </message>
    <message>
        <source>Between two staff l&amp;ines</source>
        <translation>&amp;Zwischen zwei Notenlinien</translation>
    </message>
</context>
<context>
    <name>zarn::editor::PropertiesPanel</name>
    <message>
        <source>Property</source>
        <translation>Eigenschaft</translation>
    </message>
    <message>
        <source>Value</source>
        <translation>Wert</translation>
    </message>
    <message>
        <source>Properties of the selection</source>
        <translation>Eigenschaften der Auswahl</translation>
    </message>
    <message>
        <source>Note</source>
        <translation>Note</translation>
    </message>
    <message>
        <source>Beat</source>
        <translation>Schlag</translation>
    </message>
    <message>
        <source>Bar of the staff</source>
        <translation>Takt des Systems</translation>
    </message>
    <message>
        <source>Bar of all staves</source>
        <translation>Takt aller Systeme</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not possible here.</source>
        <translation>„%1“ ist hier nicht möglich.</translation>
    </message>
</context>
<context>
    <name>zarn::editor::Recovery</name>
    <message>
        <source>There is no recovery copy: %1</source>
        <translation>Es gibt keine Sicherungskopie: %1</translation>
    </message>
</context>
<context>
    <name>zarn::editor::ScoreView</name>
    <message>
        <source>Score</source>
        <translation>Partitur</translation>
    </message>
    <message>
        <source>The pages of the score. Arrow keys move the cursor.</source>
        <translation>Die Seiten der Partitur. Pfeiltasten bewegen den Cursor.</translation>
    </message>
</context>
<context>
    <name>zarn::editor::SectionsPanel</name>
    <message>
        <source>Sections</source>
        <translation>Abschnitte</translation>
    </message>
    <message>
        <source>bars %1 to %2</source>
        <translation>Takte %1 bis %2</translation>
    </message>
</context>
<context>
    <name>zarn::editor::ShortcutsDialog</name>
    <message>
        <source>Shortcuts</source>
        <translation>Tastenkürzel</translation>
    </message>
    <message>
        <source>Search</source>
        <translation>Suchen</translation>
    </message>
    <message>
        <source>Action</source>
        <translation>Aktion</translation>
    </message>
    <message>
        <source>Keys</source>
        <translation>Tasten</translation>
    </message>
    <message>
        <source>Actions</source>
        <translation>Aktionen</translation>
    </message>
    <message>
        <source>New key</source>
        <translation>Neue Taste</translation>
    </message>
    <message>
        <source>&amp;Set</source>
        <translation>&amp;Setzen</translation>
    </message>
    <message>
        <source>As &amp;usual</source>
        <translation>Wie üb&amp;lich</translation>
    </message>
    <message>
        <source>&quot;%1&quot; has this key.</source>
        <translation>„%1“ hat diese Taste.</translation>
    </message>
</context>
<context>
    <name>zarn::editor::SoundsPanel</name>
    <message>
        <source>Sounds and effects</source>
        <translation>Klänge und Effekte</translation>
    </message>
    <message>
        <source>Sound...</source>
        <translation>Klang...</translation>
    </message>
    <message>
        <source>Adds a sound to the track</source>
        <translation>Fügt der Spur einen Klang hinzu</translation>
    </message>
    <message>
        <source>Effect...</source>
        <translation>Effekt...</translation>
    </message>
    <message>
        <source>Adds an effect</source>
        <translation>Fügt einen Effekt hinzu</translation>
    </message>
    <message>
        <source>Edit...</source>
        <translation>Bearbeiten...</translation>
    </message>
    <message>
        <source>Changes the sound, or turns the knobs of the effect</source>
        <translation>Ändert den Klang oder stellt die Regler des Effekts</translation>
    </message>
    <message>
        <source>Up</source>
        <translation>Auf</translation>
    </message>
    <message>
        <source>Moves it up</source>
        <translation>Schiebt es nach oben</translation>
    </message>
    <message>
        <source>Down</source>
        <translation>Ab</translation>
    </message>
    <message>
        <source>Moves it down</source>
        <translation>Schiebt es nach unten</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>Entfernen</translation>
    </message>
    <message>
        <source>Removes the sound or the effect</source>
        <translation>Entfernt den Klang oder den Effekt</translation>
    </message>
    <message>
        <source>Copy...</source>
        <translation>Übernehmen...</translation>
    </message>
    <message>
        <source>Clear</source>
        <translation>Leeren</translation>
    </message>
    <message>
        <source>Removes all effects</source>
        <translation>Entfernt alle Effekte</translation>
    </message>
    <message>
        <source>%1 (program %2)</source>
        <translation>%1 (Programm %2)</translation>
    </message>
    <message>
        <source>The whole mix</source>
        <translation>Die ganze Mischung</translation>
    </message>
    <message>
        <source>Add a sound</source>
        <translation>Klang hinzufügen</translation>
    </message>
    <message>
        <source>&amp;Name</source>
        <translation>&amp;Name</translation>
    </message>
    <message>
        <source>Empty for that of the instrument.</source>
        <translation>Leer für den des Instruments.</translation>
    </message>
    <message>
        <source>&amp;Instrument</source>
        <translation>&amp;Instrument</translation>
    </message>
    <message>
        <source>Add an effect</source>
        <translation>Effekt hinzufügen</translation>
    </message>
    <message>
        <source>&amp;Effect</source>
        <translation>&amp;Effekt</translation>
    </message>
    <message>
        <source>Reverb</source>
        <translation>Hall</translation>
    </message>
    <message>
        <source>Another one</source>
        <translation>Ein anderer</translation>
    </message>
    <message>
        <source>&amp;Name of another one</source>
        <translation>&amp;Name eines anderen</translation>
    </message>
    <message>
        <source>The effect needs a name and a free place.</source>
        <translation>Der Effekt braucht einen Namen und einen freien Platz.</translation>
    </message>
    <message>
        <source>Sound</source>
        <translation>Klang</translation>
    </message>
    <message>
        <source>&amp;Bank</source>
        <translation>&amp;Bank</translation>
    </message>
    <message>
        <source>Bank, &amp;fine</source>
        <translation>Bank, &amp;fein</translation>
    </message>
    <message>
        <source>Change a sound</source>
        <translation>Klang ändern</translation>
    </message>
    <message>
        <source>&amp;Mix</source>
        <translation>&amp;Anteil</translation>
    </message>
    <message>
        <source>&amp;Decay</source>
        <translation>A&amp;bklingen</translation>
    </message>
    <message>
        <source>Knob %1</source>
        <translation>Regler %1</translation>
    </message>
    <message>
        <source>Turn knobs</source>
        <translation>Regler stellen</translation>
    </message>
    <message>
        <source>Remove a sound</source>
        <translation>Klang entfernen</translation>
    </message>
    <message>
        <source>Remove an effect</source>
        <translation>Effekt entfernen</translation>
    </message>
    <message>
        <source>Remove all effects</source>
        <translation>Alle Effekte entfernen</translation>
    </message>
    <message>
        <source>Copy effects</source>
        <translation>Effekte übernehmen</translation>
    </message>
    <message>
        <source>&amp;From</source>
        <translation>&amp;Von</translation>
    </message>
    <message>
        <source>Move an effect</source>
        <translation>Effekt verschieben</translation>
    </message>
    <message>
        <source>Move a sound</source>
        <translation>Klang verschieben</translation>
    </message>
    <message>
        <source>Switch an effect</source>
        <translation>Effekt schalten</translation>
    </message>
    <message>
        <source>Play with one sound</source>
        <translation>Mit einem Klang spielen</translation>
    </message>
    <message>
        <source>Copies the effects of another sound</source>
        <translation>Übernimmt die Effekte eines anderen Klangs</translation>
    </message>
    <message>
        <source>When ticked, the whole track is played with it.</source>
        <translation>Angehakt wird die ganze Spur damit gespielt.</translation>
    </message>
    <message>
        <source>Effects of other programs are kept but not heard.</source>
        <translation>Effekte anderer Programme bleiben erhalten und sind nicht zu hören.</translation>
    </message>
    <message>
        <source>&amp;Number of knobs</source>
        <translation>&amp;Zahl der Regler</translation>
    </message>
    <message>
        <source>This sound cannot be removed.</source>
        <translation>Dieser Klang lässt sich nicht entfernen.</translation>
    </message>
</context>
<context>
    <name>zarn::editor::TracksPanel</name>
    <message>
        <source>Add...</source>
        <translation>Hinzufügen ...</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>Entfernen</translation>
    </message>
    <message>
        <source>Up</source>
        <translation>Nach oben</translation>
    </message>
    <message>
        <source>Down</source>
        <translation>Nach unten</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>Short name</source>
        <translation>Kurzname</translation>
    </message>
    <message>
        <source>Instrument</source>
        <translation>Instrument</translation>
    </message>
    <message>
        <source>Notation</source>
        <translation>Noten</translation>
    </message>
    <message>
        <source>Tablature</source>
        <translation>Tabulatur</translation>
    </message>
    <message>
        <source>Slashes</source>
        <translation>Schrägstriche</translation>
    </message>
    <message>
        <source>Mute</source>
        <translation>Stumm</translation>
    </message>
    <message>
        <source>Solo</source>
        <translation>Solo</translation>
    </message>
    <message>
        <source>Tracks</source>
        <translation>Spuren</translation>
    </message>
    <message>
        <source>Rename track</source>
        <translation>Spur umbenennen</translation>
    </message>
    <message>
        <source>Remove track</source>
        <translation>Spur entfernen</translation>
    </message>
    <message>
        <source>Move track</source>
        <translation>Spur verschieben</translation>
    </message>
</context>
<context>
    <name>zarn::editor::TuningPanel</name>
    <message>
        <source>Other</source>
        <translation>Andere</translation>
    </message>
    <message>
        <source>Keep the &amp;pitches of the notes</source>
        <translation>Die &amp;Tonhöhen der Noten behalten</translation>
    </message>
    <message>
        <source>Keep their &amp;frets</source>
        <translation>Ihre &amp;Bünde behalten</translation>
    </message>
    <message>
        <source>&amp;Tune</source>
        <translation>&amp;Stimmen</translation>
    </message>
    <message>
        <source>&amp;Instrument:</source>
        <translation>&amp;Instrument:</translation>
    </message>
    <message>
        <source>S&amp;earch:</source>
        <translation>S&amp;uchen:</translation>
    </message>
    <message>
        <source>&amp;Capo at fret:</source>
        <translation>&amp;Kapodaster am Bund:</translation>
    </message>
    <message>
        <source>Tunings</source>
        <translation>Stimmungen</translation>
    </message>
    <message>
        <source>Drop D, E2 A2</source>
        <translation>Drop D, E2 A2</translation>
    </message>
    <message>
        <source>none</source>
        <translation>keiner</translation>
    </message>
    <message>
        <source>String %1</source>
        <translation>Saite %1</translation>
    </message>
    <message>
        <source>Tune to %1</source>
        <translation>Auf %1 stimmen</translation>
    </message>
    <message>
        <source>This tuning is not possible with this capo.</source>
        <translation>Diese Stimmung ist mit diesem Kapodaster nicht möglich.</translation>
    </message>
</context>
</TS>
