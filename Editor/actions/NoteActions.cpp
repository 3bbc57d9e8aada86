// SPDX-License-Identifier: MIT
#include "actions/ActionTable.h"
#include "actions/Menus.h"
#include "actions/NoteForms.h"
#include "actions/ScoreStep.h"
#include "app/Editor.h"
#include "app/MainWindow.h"
#include "document/Document.h"
#include "entry/NoteEntry.h"

#include <ZarnCore/fingering/ZarnPassageReader.h>
#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/music/ZarnNoteAccidental.h>

#include <QCoreApplication>

/// What joins notes, moves them and plays them in a certain way.
namespace zarn::editor {
namespace {

struct Text {
    Q_DECLARE_TR_FUNCTIONS(NoteActions)
};

/// Whether the beat at the cursor has something.
template <auto Get>
std::function<bool(const ActionContext &)> onBeat()
{
    return [](const ActionContext &context) {
        const Beat *const beat = context.document.cursor().findBeat();
        return beat != nullptr && (beat->*Get)();
    };
}

/// Whether the note at the cursor has something.
template <auto Get>
std::function<bool(const ActionContext &)> onNote()
{
    return [](const ActionContext &context) {
        const Note *const note = context.document.cursor().findNote();
        return note != nullptr && (note->*Get)();
    };
}

/// Turns what is selected on, or off when the cursor's has it.
Action switching(const char *id, const QString &text, const char *keys,
                 std::function<bool(const ActionContext &)> isOn,
                 bool (*set)(Score &, const ActionContext &, bool))
{
    Action action =
        scoreStep(id, text, keys, [isOn, set](const ActionContext &context, Score &score) {
            return set(score, context, !isOn(context));
        });
    action.isChecked = std::move(isOn);
    return action;
}

ScoreModelRange beatsOf(const ActionContext &context)
{
    return context.document.selection().beats(context.document.score());
}

ScoreModelRange notesOf(const ActionContext &context)
{
    return context.document.selection().notes(context.document.score());
}

Action hairpin(const char *id, const QString &text, const char *keys, Hairpin kind)
{
    Action action = scoreStep(id, text, keys, [kind](const ActionContext &context, Score &score) {
        const Beat *const beat = context.document.cursor().findBeat();
        const bool isOff = beat != nullptr && beat->hairpin() == kind;
        return score.setBeatHairpin(beatsOf(context), isOff ? Hairpin::NoHairpin : kind);
    });
    action.isChecked = [kind](const ActionContext &context) {
        const Beat *const beat = context.document.cursor().findBeat();
        return beat != nullptr && beat->hairpin() == kind;
    };
    return action;
}

/// Turns on or off what leads to the next note. While that is not written yet, it waits for it.
Action leadingOn(const char *id, const QString &text, const char *keys,
                 const std::function<bool(const ActionContext &)> &isOn,
                 const std::function<bool(Score &, const ScoreModelRange &, bool)> &set)
{
    Action action = scoreStep(id, text, keys, nullptr);
    action.isChecked = isOn;
    action.run = [title = plainText(text), isOn, set](const ActionContext &context) {
        Document &document = context.document;
        const bool isWanted = !isOn(context);
        if (document.edit(title,
                          [&](Score &score) { return set(score, notesOf(context), isWanted); }))
            return;
        const ScoreModelIndex &from = document.cursor();
        if (!isWanted || !document.selection().isEmpty() || from.findNote() == nullptr) {
            Q_EMIT document.refused(Text::tr("\"%1\" is not possible here.").arg(title));
            return;
        }
        document.setAwaitedLink(AwaitedLink{from, [set, range = notesOf(context)](Score &score) {
                                                return set(score, range, true);
                                            }});
        context.window.say(Text::tr("\"%1\" waits for the next note on this string.").arg(title));
    };
    return action;
}

Action slide(const char *id, const QString &text, const char *keys, SlideOut out)
{
    return leadingOn(
        id, text, keys,
        [out](const ActionContext &context) {
            const Note *const note = context.document.cursor().findNote();
            return note != nullptr && note->slideOut() == out;
        },
        [out](Score &score, const ScoreModelRange &range, bool isOn) {
            return score.setStringedNoteSlide(range, std::nullopt, isOn ? out : SlideOut::None);
        });
}

Action accent(const char *id, const QString &text, const char *keys, AccentFlag flag)
{
    const auto has = [flag](const ActionContext &context) {
        const Note *const note = context.document.cursor().findNote();
        return note != nullptr && note->accents().has(flag);
    };
    Action action =
        scoreStep(id, text, keys, [has, flag](const ActionContext &context, Score &score) {
            return score.setNoteAccentFlag(notesOf(context), flag, !has(context));
        });
    action.isChecked = has;
    return action;
}

Action semitones(const char *id, const QString &text, const char *keys, int count)
{
    return scoreStep(id, text, keys, [count](const ActionContext &context, Score &score) {
        return score.shiftSemitone(notesToMove(context.document), count);
    });
}

/// On drums the next place that plays something.
Action string(const char *id, const QString &text, const char *keys, Shift shift)
{
    return scoreStep(id, text, keys, [shift](const ActionContext &context, Score &score) {
        return score.shiftOneString(notesOf(context), shift)
            || score.shiftOneElement(notesOf(context), shift);
    });
}

Action accidental(const char *id, const QString &text, NoteAccidental::Value value)
{
    return scoreStep(id, text, "", [value](const ActionContext &context, Score &score) {
        return score.setNoteSoundingAccidental(notesOf(context), NoteAccidental(value));
    });
}

Action grace(const char *id, const QString &text, const char *keys, GraceType type)
{
    Action action = scoreStep(id, text, keys, [type](const ActionContext &context, Score &score) {
        const Beat *const beat = context.document.cursor().findBeat();
        const bool isOff = beat != nullptr && beat->graceType() == type;
        return score.setBeatGraceNotes(beatsOf(context), isOff ? GraceType::None : type);
    });
    action.isChecked = [type](const ActionContext &context) {
        const Beat *const beat = context.document.cursor().findBeat();
        return beat != nullptr && beat->graceType() == type;
    };
    return action;
}

/// A bend of so many quarter-tones, or none where there is this one.
Action bend(const char *id, const QString &text, const char *keys, int height)
{
    const auto isThis = [height](const ActionContext &context) {
        const Note *const note = context.document.cursor().findNote();
        return note != nullptr && note->bend() == Bend::of(BendType::Bend, height);
    };
    Action action =
        scoreStep(id, text, keys, [isThis, height](const ActionContext &context, Score &score) {
            return score.setStringedNoteBend(
                notesOf(context), isThis(context) ? Bend() : Bend::of(BendType::Bend, height));
        });
    action.isChecked = isThis;
    return action;
}

/// All strings.
constexpr std::uint32_t everyString = 0xFFF;

} // namespace

std::vector<ActionGroup> noteActions()
{
    const std::vector<Action> links = {
        leadingOn("note.hopo", Text::tr("&Hammer-on or pull-off"), "H", onNote<&Note::isHopo>(),
                  [](Score &score, const ScoreModelRange &range, bool isOn) {
                      return score.setStringedNoteHopo(range, isOn);
                  }),
        switching("beat.slur", Text::tr("&Slur"), "Shift+S", onBeat<&Beat::isSlurredToNext>(),
                  [](Score &score, const ActionContext &context, bool isOn) {
                      return score.setBeatLegato(beatsOf(context), isOn);
                  }),
        slide("note.shiftSlide", Text::tr("Shift s&lide"), "S", SlideOut::Shift),
        slide("note.legatoSlide", Text::tr("L&egato slide"), "", SlideOut::Legato),
        slide("note.slideDown", Text::tr("Slide out &down"), "", SlideOut::Downwards),
        slide("note.slideUp", Text::tr("Slide out &up"), "", SlideOut::Upwards),
        hairpin("beat.crescendo", Text::tr("&Crescendo"), "<", Hairpin::Crescendo),
        hairpin("beat.decrescendo", Text::tr("Decrescend&o"), ">", Hairpin::Decrescendo),
        hairpin("beat.swell", Text::tr("S&well"), "", Hairpin::Swell),
    };
    Action dead = scoreStep("note.dead", Text::tr("&Dead note"), "X", nullptr);
    dead.run = [](const ActionContext &context) { enterDeadNote(context.document); };
    dead.isChecked = onNote<&Note::isDead>();
    const std::vector<Action> playing = {
        dead,
        switching("note.palmMute", Text::tr("&Palm mute"), "P", onNote<&Note::isPalmMuted>(),
                  [](Score &score, const ActionContext &context, bool isOn) {
                      return score.setStringedNotePalmMute(notesOf(context), isOn);
                  }),
        switching("note.letRing", Text::tr("Let &ring"), "I", onNote<&Note::letsRing>(),
                  [](Score &score, const ActionContext &context, bool isOn) {
                      return score.setNoteLetring(notesOf(context), isOn);
                  }),
        switching("beat.deadSlap", Text::tr("Dead s&lap"), "", onBeat<&Beat::isDeadSlapped>(),
                  [](Score &score, const ActionContext &context, bool isOn) {
                      return score.setBeatDeadSlapped(beatsOf(context), isOn);
                  }),
        scoreStep("note.palmMutePassage", Text::tr("Palm mute the passa&ge"), "",
                  [](const ActionContext &context, Score &score) {
                      return score.palmMuteAssistant(beatsOf(context), everyString, true);
                  }),
        scoreStep("note.letRingPassage", Text::tr("Let the passage r&ing"), "",
                  [](const ActionContext &context, Score &score) {
                      return score.letRingAssistant(beatsOf(context), everyString, true);
                  }),
        grace("beat.graceBefore", Text::tr("Grace note &before the beat"), "Ctrl+G",
              GraceType::BeforeBeat),
        grace("beat.graceOn", Text::tr("Grace note &on the beat"), "", GraceType::OnBeat),
    };
    const std::vector<Action> shaping = {
        bend("note.bendHalf", Text::tr("Bend &half a tone"), "Ctrl+Alt+D", 2),
        bend("note.bendFull", Text::tr("&Bend a whole tone"), "Ctrl+D", 4),
        askedStep("note.bend", Text::tr("Be&nd"), "Ctrl+Shift+D", askBend),
        askedStep("beat.whammyBar", Text::tr("&Whammy bar"), "", askWhammyBar),
        askedStep("note.harmonic", Text::tr("Har&monic"), "Ctrl+H", askHarmonic),
        askedStep("note.trill", Text::tr("&Trill"), "", askTrill),
    };
    const std::vector<Action> accents = {
        accent("note.staccato", Text::tr("&Staccato"), "!", AccentFlag::Staccato),
        accent("note.staccatissimo", Text::tr("Stacca&tissimo"), "", AccentFlag::Staccatissimo),
        accent("note.accent", Text::tr("&Accent"), ";", AccentFlag::Accent),
        accent("note.heavyAccent", Text::tr("&Heavy accent"), ":", AccentFlag::HeavyAccent),
        accent("note.tenuto", Text::tr("T&enuto"), "_", AccentFlag::Tenuto),
        accent("note.softAccent", Text::tr("So&ft accent"), "", AccentFlag::SoftAccent),
    };
    const std::vector<Action> moving = {
        semitones("note.up", Text::tr("Semitone &up"), "Shift+Up", 1),
        semitones("note.down", Text::tr("Semitone &down"), "Shift+Down", -1),
        semitones("note.octaveUp", Text::tr("&Octave up"), "Ctrl+Shift+Up; '", 12),
        semitones("note.octaveDown", Text::tr("O&ctave down"), "Ctrl+Shift+Down; ,", -12),
        string("note.stringUp", Text::tr("To the string &above"), "Alt+Up", Shift::Up),
        string("note.stringDown", Text::tr("To the string &below"), "Alt+Down", Shift::Down),
        scoreStep("note.respell", Text::tr("Spell in another &way"), "J",
                  [](const ActionContext &context, Score &score) {
                      return score.switchNoteAccidental(notesOf(context));
                  }),
        scoreStep("note.finger", Text::tr("Find strings and &frets"), "",
                  [](const ActionContext &context, Score &score) {
                      return score.automaticFingerPositioning(beatsOf(context), {});
                  }),
    };
    using Value = NoteAccidental::Value;
    const std::vector<Action> accidentals = {
        accidental("note.natural", Text::tr("&Natural"), Value::Natural),
        accidental("note.sharp", Text::tr("&Sharp"), Value::Sharp),
        accidental("note.flat", Text::tr("&Flat"), Value::Flat),
        accidental("note.doubleSharp", Text::tr("&Double sharp"), Value::DoubleSharp),
        accidental("note.doubleFlat", Text::tr("Dou&ble flat"), Value::DoubleFlat),
    };
    return {{titles(Menu::Note), links},
            {titles(Menu::Note), playing},
            {titles(Menu::Note), shaping},
            {titles(Menu::Note, Text::tr("&Accents")), accents},
            {titles(Menu::Note, Text::tr("A&ccidental")), accidentals},
            {titles(Menu::Note), moving}};
}

} // namespace zarn::editor
