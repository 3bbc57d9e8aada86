// SPDX-License-Identifier: MIT
#include "ToolRun.h"

#include "edit/Commands.h"

#include <set>

namespace {

using namespace zarn::test;

/// Every command that changes a score, once, on the band.
const char *const EveryCommand = R"(
add-beat 19:2 quarter t2
fret 19:2 2 3 t2
pitch 19:2 E5 t2
pitch 19:2 F5 E5 t2
remove-note 19:2 F5 t2
rhythm 19:1-2 half t2
dynamic 19:1-2 mp t2
rest 19:1 t2
remove-beats 19:1 t2
add-bars 20 2
bars 23
remove-bars 2-3
time 5-8 3/4
key 9-12 Em
feel all triplet-8th
free-time 6 on
double-bar 4 on
movement 3 on
repeat-start 4 on
repeat-end 6 3
endings 5-6 1,3
direction segno 3
directions 8 coda fine
directions 8 none
directions 8 coda
direction da-segno 9
direction segno
section 7 C "Another part"
section 8 D --frame circle
no-section 1
clef all bass t1
add-track electricBass 2
copy-track 1
remove-track 1
strings 5 t1
write 2:1 "[1:2 2:2]e~ 1:2 2:xq" 2 t1
append "6:0e 6:3 6:5q" t2
write 4:1 "6:0q 6:3 6:5" t2
slur 4:1-3 t2
hairpin 4:1-3 cresc t2
hammer 4:1-3 t2
slide 4:2 shift --string 6 t2
tie 4:3 --string 6 t2
tie-notes 4:3 off t2
tie-notes 4:3 t2
tie-notes 4:3 off --string 6 t2
grace 4:1 before t2
dead-slap 4:2 t2
clear 4:3 t2
write 5:1 "6:3q 6:5 6:7" t2
repeat-beat 5:1 t2
name 1 "Low one"
short-name 1 Low
notations 1 staff,slash
icon 1 electricBass
tuning D2 A2 D3 G3 B3 D4 t2
retune E2 A2 D3 G3 B3 E4 t2
capo 3 t2
add-sound 1 Fretless 36
remove-sound 1 1
add-sound 1 Fretless 36
add-sound 1 Slapped 37
set-sound 1 1 Muted
swap-sounds 1 1 2
force-sound 1 2
volume 1 0.75
pan master -0.5
master 0.9 0.25
set-effect 1 1 eq "0.5 0.2" --sound 2
knobs 1 1 "0.1 0.3" --sound 2
bypass 1 1
copy-effects 1 master
swap-effects 1 1 4
remove-effect 1 4
clear-effects master
set-effect master 4 masterReverb "0.5 0.5"
automate-volume 2 0.5 t1
automate-pan 3 -1 t1
move-automations 2 4
move-track 1 2
move-track 2 1
color 1 E0A030
staves 2 2
midi 1 4 5 2
channel-per-string 2
playing-style 2 fingers
playback 2 solo
bypass-automations 1 volume
auto-accents 1
auto-brush 2 on
ring-throughout 2
mute-strength 2 0.75
property words-and-music Nobody
title "The Saints"
set-properties album Gospel "copyright" "nobody at all"
artist "The Band"
page-text header-left "%Title%"
concert-tone 442
tempo 3 140 half "Più mosso"
no-tempo 3
bypass-tempo on
effect 2 3 0.5 t1
master-effect 2 1 0.25
no-reverb
text 2:1 dolce t2
chord 2:1 C --shape best t2
chord 3:1 G7 --shape 320001 t2
no-chord 3:1 t2
lyrics 2 "when the saints__ go mar-ching in" t2
lyrics-start 3 t2
show-lyrics 1-2 t2
list-lyrics t2
write 20:1 "[1:0 2:1 3:0]q r [1:0 2:1 3:0]h" t2
brush 20:1 down 120 t2
arpeggio 20:3 up t2
pick 20:1 up t2
rasgueado 20:3 ami_1 t2
golpe 20:1 thumb t2
tremolo 20:3 32nd t2
barre 20:1-3 5 1-3 t2
bass-attack 20:1 pop t2
bar-vibrato 20:1 wide t2
whammy 20:1 dive -2 t2
wah 20:1 open t2
fade 20:1 in t2
ottava 20:1-3 8va t2
slashed 20:1 t2
timer 20:1 on t2
stem 20:1 down t2
set 20:1 pedal start t2
set-several 20:1 dynamic ff cue on text "dolce mesto" t2
set 20:1 vibrato wide t2
unset 20:1 vibrato t2
toggle 20:1 cue t2
step 20:1 dynamic 1 t2
set-bars 20 bar-line dashed
set-several-bars 20 bar-line dotted double-bar off
set-several-bars 20 clef F4 ottavia 8va t2
unset-bars 20 bar-line
simile 10 simple t2
layout continuous
multi-rest on
page A5 landscape --margin 10 --staff-size 6
systems 4,4,3
even-systems 3 t2
auto-systems t2
bar-widths 2 1,0.5
beams 2 1+3
fermata 20:1 long t2
stretch-fermata 20:1 40 t2
name-chords 2-4 bar t1
suggest-chords 2-4 bar
finger 2:1-3:1 t2
alternatives 2:1 t2
select 2:1 - 3:1 t2
cursor 2:1 t2
next
previous
free-time 7
write 2:1 "6:5q 5:7 [4:2 3:2] 2:8" t2
set-fret 2:1 7 t2
string-pitch 2:1 6 A2 t2
trill 2:1 B2 16th --string 6 t2
no-trill 2:1 t2
shift-string 2:2 down t2
shift-pitch 2:1-4 1 t2
accidental 2:1 flat t2
respell 2:1 t2
tuplet 2:3 3/2 t2
dots 2:3 1 t2
note-value 2:3 eighth t2
longer 2:3 t2
shorter 2:3 2 t2
rhythm-velocity 2:3 q 90 t2
bend 2:1 1/2 release --string 6 t2
vibrato 2:1 wide t2
harmonic 2:2 pinch 4 t2
let-ring 2:1-2 t2
palm-mute 2:1 t2
let-ring-passage 2:1-4 5,6 t2
palm-mute-passage 2:1-4 5,6 off t2
dead 2:4 t2
ghost 2:2 normal t2
accent 2:2 heavy t2
velocity 2:2 99 t2
tap 2:1 left t2
ornament 2:1 mordent t2
ornament 2:1 turn on t2
ornament 2:1 turn off t2
left-finger 2:1 1 t2
right-finger 2:1 p t2
show-string 2:1 t2
add-drum 2:1 20 t4
drum-line 2:1 49 3 t4
remove-drum 2:1 49 3 t4
shift-drum 2:3 up t4
transpose 2 refinger t2
transposition 0 t5
transpose-score -2
select none
copy 8:1-9:1 t2
paste 10:1 t2
paste 12:1 --merge t2
paste 11:1 --insert t2
copy-bars 3-4
paste 1 --times 2
remove-bars 1-2
copy-bars 3 t2
paste 6 --replace t2
cut 9:1 t2
repeat-bar 22 t2
repeat-bar 23
move-voice 14:1 2 t2
swap-voices 14-15 1 2 t2
rest 16:1 t2
rhythm 16:1 32nd t2
complete-bars 16 t2
time 9-12 2/4
arrange 9-12
)";

TEST(EditCommands, everyCommandIsUndoneToTheByteAndRedone)
{
    std::set<QString> used;
    const QString commands = QString::fromUtf8(EveryCommand)
        + QStringLiteral("replace \"%1\"\nadd-beat 1:1 quarter\nadd-recording \"%1\" 1.5 0.8\n"
                         "remove-recording 1\nadd-recording \"%1\"\n"
                         "change-recording 1 -0.25 0.5 1\nmute-recording 1\n")
              .arg(romance());
    for (const QString &line : commands.split(QLatin1Char('\n')))
        used.insert(line.section(QLatin1Char(' '), 0, 0));
    for (const auto &area : zarn::tool::commandAreas()) {
        if (&area.commands == &zarn::tool::sessionCommands())
            continue;
        for (const auto &command : area.commands)
            EXPECT_TRUE(used.count(command.name)) << command.name.toStdString();
    }

    const Folder folder;
    const std::string once = commands.toStdString() + "save "
        + folder.file("once.zarn").toStdString() + "\nundo all\ncompare\nredo all\nsave "
        + folder.file("twice.zarn").toStdString() + "\nundo all\ncompare\n";
    const ToolRun run = runTool(
        {QStringLiteral("edit"), saints(), QStringLiteral("-o"), folder.file("end.zarn")}, once);
    EXPECT_EQ(run.code, 0) << run.err << run.out;
    EXPECT_EQ(contentOf(folder.file("once.zarn")), contentOf(folder.file("twice.zarn")));

    const ToolRun group =
        runTool({QStringLiteral("edit"), saints()},
                "begin\nname 1 A\nbegin\ntitle B\ncommit\nadd-bars 1\n"
                "write 1:1 \"6:0w\" t2\nfret 1:1 6 3 t2\ncommit\nundo\ncompare\n");
    EXPECT_EQ(group.code, 0) << group.err;
}

} // namespace
