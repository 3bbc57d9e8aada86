// SPDX-License-Identifier: MIT
#include "actions/ActionTable.h"
#include "actions/Menus.h"
#include "app/MainWindow.h"
#include "app/Playing.h"

#include <QCoreApplication>

namespace zarn::editor {
namespace {

struct Text {
    Q_DECLARE_TR_FUNCTIONS(PlayActions)
};

constexpr double speedStep = 0.1;

Action action(const char *id, const QString &text, const char *keys,
              std::function<void(Playing &)> run)
{
    Action made;
    made.id = QLatin1String(id);
    made.text = text;
    made.keys = QKeySequence::listFromString(QLatin1String(keys), QKeySequence::PortableText);
    made.scope = KeyScope::Score;
    made.isAsking = true; // of the sound device
    made.run = [run = std::move(run)](const ActionContext &context) {
        run(context.window.playing());
    };
    return made;
}

} // namespace

std::vector<ActionGroup> playActions()
{
    Action play = action("play.play", Text::tr("&Play or pause"), "Space",
                         [](Playing &playing) { playing.playOrPause(); });
    play.isChecked = [](const ActionContext &context) {
        return context.window.playing().isPlaying();
    };
    const Action stop = action("play.stop", Text::tr("&Stop"), "Ctrl+Space",
                               [](Playing &playing) { playing.stop(); });
    Action metronome = action("play.metronome", Text::tr("&Metronome"), "", [](Playing &playing) {
        playing.setMetronome(!playing.hasMetronome());
    });
    metronome.isChecked = [](const ActionContext &context) {
        return context.window.playing().hasMetronome();
    };
    Action loop = action("play.loop", Text::tr("&Loop the selection"), "",
                         [](Playing &playing) { playing.setLooping(!playing.isLooping()); });
    loop.isChecked = [](const ActionContext &context) {
        return context.window.playing().isLooping();
    };
    const Action slower = action("play.slower", Text::tr("Slo&wer"), "", [](Playing &playing) {
        playing.setSpeed(playing.speed() - speedStep);
    });
    const Action faster = action("play.faster", Text::tr("Fas&ter"), "", [](Playing &playing) {
        playing.setSpeed(playing.speed() + speedStep);
    });
    return {{titles(Menu::Play), {play, stop}},
            {titles(Menu::Play), {metronome, loop, slower, faster}}};
}

} // namespace zarn::editor
