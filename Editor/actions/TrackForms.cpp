// SPDX-License-Identifier: MIT
#include "actions/TrackForms.h"

#include "app/Editor.h"
#include "app/MainWindow.h"
#include "document/Document.h"

#include <ZarnCore/model/ZarnAudioTrack.h>
#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/model/lyrics/ZarnLyricLine.h>

#include <QColor>
#include <QCoreApplication>
#include <QFileInfo>

#include <algorithm>
#include <cmath>
#include <map>

namespace zarn::editor {
namespace {

struct Text {
    Q_DECLARE_TR_FUNCTIONS(TrackForms)
};

constexpr std::uint32_t rgb = 0xFFFFFF;

unsigned trackOf(const ActionContext &context)
{
    return static_cast<unsigned>(std::max(context.document.cursor().trackIndex(), 0));
}

/// In the order of `PlayingStyle`.
QStringList styles()
{
    return {Text::tr("As usual"),       Text::tr("Pick"),    Text::tr("Fingers"),
            Text::tr("Finger picking"), Text::tr("Slap"),    Text::tr("Brush"),
            Text::tr("Sticks"),         Text::tr("Hot rods")};
}

/// In the order of `ZarnIconID`, which begins with 1.
QStringList icons()
{
    return {Text::tr("Steel guitar"),
            Text::tr("Acoustic guitar"),
            Text::tr("Twelve-string guitar"),
            Text::tr("Electric guitar"),
            Text::tr("Electric bass"),
            Text::tr("Upright bass"),
            Text::tr("Ukulele"),
            Text::tr("Banjo"),
            Text::tr("Mandolin"),
            Text::tr("Piano"),
            Text::tr("Bowed strings"),
            Text::tr("Synthesizer"),
            Text::tr("Brass"),
            Text::tr("Reeds"),
            Text::tr("Woodwind"),
            Text::tr("Voice"),
            Text::tr("Pitched percussion"),
            Text::tr("Drum kit"),
            Text::tr("Idiophone"),
            Text::tr("Drum"),
            Text::tr("Effects"),
            Text::tr("Folk guitar"),
            Text::tr("Classical guitar"),
            Text::tr("Electric guitar, humbucker"),
            Text::tr("Electric guitar, single coil"),
            Text::tr("Electric guitar, two single coils")};
}

constexpr int firstIcon = static_cast<int>(ZarnIconID::SteelGuitar);

/// Several steps as one, all or none.
Change allOf(std::vector<Change> steps)
{
    return [steps = std::move(steps)](Score &score) {
        return std::all_of(steps.begin(), steps.end(),
                           [&score](const Change &step) { return step(score); });
    };
}

QString listText(const std::vector<int> &systems)
{
    QStringList words;
    for (const int bars : systems)
        words << QString::number(bars);
    return words.join(QLatin1Char(' '));
}

/// Nothing for words that are no numbers.
std::optional<std::vector<int>> listOf(const QString &text)
{
    std::vector<int> list;
    for (const QString &word : text.split(QLatin1Char(' '), Qt::SkipEmptyParts)) {
        bool isNumber = false;
        list.push_back(word.toInt(&isNumber));
        if (!isNumber)
            return std::nullopt;
    }
    return list;
}

std::optional<QString> askSystems(const ActionContext &context, const QString &title,
                                  const std::vector<int> &present)
{
    Form form(title);
    form.text(
        "systems", Text::tr("&Bars in each system"), listText(present),
        Text::tr("From the first system on, such as 3 4 4; later systems hold as many as fit."));
    const auto given = ask(context, form);
    return given ? std::optional<QString>(given->value(QStringLiteral("systems")).toString())
                 : std::nullopt;
}

/// A line of lyrics as it is typed.
QString lyricsOf(const Track &track, unsigned line)
{
    return QString::fromStdString(lyricsToText(LyricLine(track, line).syllables()));
}

} // namespace

Change askTrackSettings(const ActionContext &context)
{
    const auto shown = context.document.cursor().track();
    if (shown == nullptr)
        return nullptr;
    const unsigned track = trackOf(context);
    const TrackSettings old = shown->settings();
    const MidiConnection wire = shown->midiConnection();
    const int oldIcon = static_cast<int>(shown->iconID()) - firstIcon;
    const QString oldColour = QColor(QRgb(shown->color())).name();
    constexpr int ports = MidiConnection::PortCount;
    constexpr int channels = MidiConnection::ChannelCount;
    Form form(Text::tr("Settings of %1").arg(QString::fromStdString(shown->name())));
    form.text("name", Text::tr("&Name"), QString::fromStdString(shown->name()))
        .text("shortName", Text::tr("&Short name"), QString::fromStdString(shown->shortName()))
        .choice("icon", Text::tr("&Picture"), icons(), oldIcon)
        .text("colour", Text::tr("&Colour"), oldColour, Text::tr("Such as #3070c0."))
        .choice("style", Text::tr("&Played with"), styles(), static_cast<int>(old.playingStyle))
        .turn("letRing", Text::tr("All notes &ring on"), old.letRingThroughout)
        .turn("accents", Text::tr("&Beats are accented by the meter"), old.autoAccentuation)
        .turn("brush", Text::tr("Chords are str&ummed"), old.autoBrush)
        .turn("ownMidi", Text::tr("A &MIDI connection of its own"), old.midiConnection.has_value())
        .number("port", Text::tr("MIDI p&ort"), wire.port + 1, 1, ports)
        .number("channel", Text::tr("Cha&nnel"), wire.channel + 1, 1, channels)
        .number("bendChannel", Text::tr("Channel of b&ent notes"), wire.bendChannel + 1, 1,
                channels)
        .turn("channelPerString", Text::tr("One channel for each str&ing"),
              old.oneChannelPerString);
    if (shown->isFretted())
        form.decimal("palmMute", Text::tr("Palm muting &dampens, 0 to 1"),
                     static_cast<double>(old.palmMuteStrength), 0, 1);
    const auto given = ask(context, form);
    if (!given)
        return nullptr;
    const auto text = [&](const char *id) { return given->value(QLatin1String(id)).toString(); };
    const auto isOn = [&](const char *id) { return given->value(QLatin1String(id)).toBool(); };
    const auto number = [&](const char *id) { return given->value(QLatin1String(id)).toInt(); };
    std::optional<MidiConnection> connection;
    if (isOn("ownMidi")) {
        connection.emplace();
        connection->port = static_cast<std::uint8_t>(number("port") - 1);
        connection->channel = static_cast<std::uint8_t>(number("channel") - 1);
        connection->bendChannel = static_cast<std::uint8_t>(number("bendChannel") - 1);
    }
    // Each setting is a step of its own inside of this one: those that stay are left alone.
    std::vector<Change> steps;
    const auto add = [&](bool isOther, const Change &step) {
        if (isOther)
            steps.push_back(step);
    };
    const QString name = text("name");
    const QString shortName = text("shortName");
    const QColor colour(text("colour"));
    const auto style = static_cast<PlayingStyle>(number("style"));
    const auto strength = static_cast<float>(given->value(QStringLiteral("palmMute")).toDouble());
    const auto icon = static_cast<ZarnIconID>(number("icon") + firstIcon);
    add(name != QString::fromStdString(shown->name()),
        [=](Score &score) { return score.setTrackName(track, name); });
    add(shortName != QString::fromStdString(shown->shortName()),
        [=](Score &score) { return score.setTrackShortName(track, shortName); });
    add(number("icon") != oldIcon, [=](Score &score) { return score.setTrackIcon(track, icon); });
    add(text("colour") != oldColour, [=](Score &score) {
        return colour.isValid() && score.setTrackColor(track, colour.rgb() & rgb);
    });
    add(style != old.playingStyle,
        [=](Score &score) { return score.setPlayingStyle(track, style); });
    add(shown->isFretted() && std::abs(strength - old.palmMuteStrength) > 0.0005F,
        [=](Score &score) { return score.setPalmMute(track, strength); });
    add(isOn("letRing") != old.letRingThroughout, [=, ring = isOn("letRing")](Score &score) {
        return score.setLetRingThroughout(track, ring);
    });
    add(isOn("accents") != old.autoAccentuation, [=, accents = isOn("accents")](Score &score) {
        return score.setAutoAccentuation(track, accents);
    });
    add(isOn("brush") != old.autoBrush,
        [=, brushes = isOn("brush")](Score &score) { return score.setAutoBrush(track, brushes); });
    add(connection != old.midiConnection,
        [=](Score &score) { return score.setTrackMidiConnection(track, connection); });
    add(isOn("channelPerString") != old.oneChannelPerString,
        [=, isEach = isOn("channelPerString")](Score &score) {
            return score.setOneChannelPerString(track, isEach);
        });
    return allOf(std::move(steps));
}

Change askLyrics(const ActionContext &context)
{
    const auto shown = context.document.cursor().track();
    if (shown == nullptr)
        return nullptr;
    const auto textId = [](unsigned line) { return QStringLiteral("line%1").arg(line + 1); };
    const auto shownId = [](unsigned line) { return QStringLiteral("shown%1").arg(line + 1); };
    Form form(Text::tr("Lyrics"));
    for (unsigned line = 0; line < Syllable::LineCount; ++line) {
        const bool isLast = line + 1 == Syllable::LineCount;
        form.longText(
            textId(line).toLatin1().constData(), Text::tr("Line &%1").arg(line + 1),
            lyricsOf(*shown, line),
            isLast ? Text::tr("A - parts syllables, a _ holds one over another note, a ~ joins two "
                              "words on a note. A new line begins at the bar of the cursor.")
                   : QString());
        form.turn(shownId(line).toLatin1().constData(), Text::tr("Line %1 is shown").arg(line + 1),
                  (shown->lyricsVisible() >> line & 1) != 0);
    }
    const auto given = ask(context, form);
    if (!given)
        return nullptr;
    const unsigned track = trackOf(context);
    const auto cursorBar = static_cast<unsigned>(std::max(context.document.cursor().barIndex(), 0));
    std::vector<Change> steps;
    unsigned visible = 0;
    for (unsigned line = 0; line < Syllable::LineCount; ++line) {
        if (given->value(shownId(line)).toBool())
            visible |= 1U << line;
        const QString words = given->value(textId(line)).toString();
        const unsigned from = LyricLine(*shown, line).firstBar().value_or(cursorBar);
        if (words != lyricsOf(*shown, line))
            steps.push_back(
                [=](Score &score) { return score.setLyrics(track, line, words, from); });
    }
    if (visible != shown->lyricsVisible())
        steps.push_back([=](Score &score) { return score.setLyricsVisible(track, visible); });
    return allOf(std::move(steps));
}

Change askLyricsStart(const ActionContext &context)
{
    const auto shown = context.document.cursor().track();
    if (shown == nullptr)
        return nullptr;
    Form form(Text::tr("Lyrics"));
    form.number("line", Text::tr("&Line"), 1, 1, Syllable::LineCount)
        .number("bar", Text::tr("Begins in &bar"), context.document.cursor().barIndex() + 1, 1,
                static_cast<int>(std::max(shown->barCount(), 1U)));
    const auto given = ask(context, form);
    if (!given)
        return nullptr;
    const auto line = static_cast<unsigned>(given->value(QStringLiteral("line")).toInt() - 1);
    const auto bar = static_cast<unsigned>(given->value(QStringLiteral("bar")).toInt() - 1);
    return [=, track = trackOf(context)](Score &score) {
        return score.setLyricsOffset(track, line, bar);
    };
}

Change askTrackSystems(const ActionContext &context)
{
    const auto shown = context.document.cursor().track();
    const auto text = shown == nullptr
        ? std::nullopt
        : askSystems(context, Text::tr("Systems of the track"), shown->systemsLayout());
    if (!text)
        return nullptr;
    return [track = trackOf(context), list = listOf(*text)](Score &score) {
        return list && score.setTrackSystemsLayout(track, *list);
    };
}

Change askScoreSystems(const ActionContext &context)
{
    const auto text = askSystems(context, Text::tr("Systems of the full score"),
                                 context.document.model().fullScoreSystemsLayout());
    if (!text)
        return nullptr;
    return [list = listOf(*text)](Score &score) {
        return list && score.setFullScoreSystemsLayout(*list);
    };
}

Change askInformation(const ActionContext &context)
{
    struct Row {
        ScoreProperty property;
        const char *id;
        QString label;
        bool isLong;
    };
    const Row rows[] = {
        {ScoreProperty::Title, "title", Text::tr("&Title"), false},
        {ScoreProperty::Subtitle, "subtitle", Text::tr("&Subtitle"), false},
        {ScoreProperty::Artist, "artist", Text::tr("&Artist"), false},
        {ScoreProperty::Album, "album", Text::tr("Al&bum"), false},
        {ScoreProperty::Words, "words", Text::tr("&Words by"), false},
        {ScoreProperty::Music, "music", Text::tr("&Music by"), false},
        {ScoreProperty::WordsAndMusic, "wordsAndMusic", Text::tr("Wor&ds and music by"), false},
        {ScoreProperty::Copyright, "copyright", Text::tr("&Copyright"), false},
        {ScoreProperty::Tabber, "tabber", Text::tr("Tablature b&y"), false},
        {ScoreProperty::Instructions, "instructions", Text::tr("&Instructions"), true},
        {ScoreProperty::Notice, "notice", Text::tr("&Notes"), true},
    };
    const ScoreModel &model = context.document.model();
    Form form(Text::tr("About the score"));
    for (const Row &row : rows) {
        const QString present = QString::fromStdString(model.property(row.property));
        if (row.isLong)
            form.longText(row.id, row.label, present);
        else
            form.text(row.id, row.label, present);
    }
    const auto given = ask(context, form);
    if (!given)
        return nullptr;
    std::map<ScoreProperty, QString> texts;
    for (const Row &row : rows) {
        const QString text = given->value(QLatin1String(row.id)).toString();
        if (text != QString::fromStdString(model.property(row.property)))
            texts.emplace(row.property, text);
    }
    return [texts](Score &score) { return texts.empty() || score.changeProperties(texts); };
}

Change askPageTexts(const ActionContext &context)
{
    const QString columns[] = {Text::tr("left"), Text::tr("centre"), Text::tr("right")};
    const QString rows[] = {Text::tr("First page, top %1"), Text::tr("First page, bottom %1"),
                            Text::tr("Other pages, top %1"), Text::tr("Other pages, bottom %1")};
    constexpr unsigned columnCount = 3;
    const ScoreModel &model = context.document.model();
    Form form(Text::tr("Headers and footers"));
    for (unsigned i = 0; i < HeaderAndFooterCount; ++i) {
        const auto part = static_cast<HeaderAndFooter>(i);
        const bool isLast = i + 1 == HeaderAndFooterCount;
        form.text(headerAndFooterToQString(part).toLatin1().constData(),
                  rows[i / columnCount].arg(columns[i % columnCount]),
                  QString::fromStdString(model.headerAndFooter(part)),
                  isLast ? Text::tr(
                      "%Title%, %Artist%, %Page%, %Pages% and the like stand for what they name.")
                         : QString());
    }
    const auto given = ask(context, form);
    if (!given)
        return nullptr;
    std::map<HeaderAndFooter, QString> texts;
    for (unsigned i = 0; i < HeaderAndFooterCount; ++i) {
        const auto part = static_cast<HeaderAndFooter>(i);
        const QString text = given->value(headerAndFooterToQString(part)).toString();
        if (text != QString::fromStdString(model.headerAndFooter(part)))
            texts.emplace(part, text);
    }
    return [texts](Score &score) {
        return std::all_of(texts.begin(), texts.end(), [&score](const auto &text) {
            return score.changeHeaderAndFooter(text.first, text.second);
        });
    };
}

namespace {

constexpr double millisecondsASecond = 1000;

/// What can be said of a recording, as it is now.
Form recordingForm(const AudioTrack &track)
{
    constexpr double mostSeconds = 86400;
    constexpr double loudest = AudioTrack::MostVolume;
    Form form(Text::tr("Recording"));
    form.text("name", Text::tr("&Name"), QString::fromStdString(track.name()))
        .decimal("start", Text::tr("&Starts after, in seconds"),
                 static_cast<double>(track.startOffset()) / millisecondsASecond, -mostSeconds,
                 mostSeconds)
        .decimal("volume", Text::tr("&Volume, 1 as it is"), static_cast<double>(track.volume()), 0,
                 loudest)
        .decimal("pan", Text::tr("&Balance, from -1 (left) to 1 (right)"),
                 static_cast<double>(track.pan()), -1, 1)
        .turn("muted", Text::tr("&Muted"), track.isMuted());
    return form;
}

void take(const QVariantMap &given, AudioTrack &track)
{
    track.setName(given.value(QStringLiteral("name")).toString().toStdString());
    track.setStartOffset(
        qRound64(given.value(QStringLiteral("start")).toDouble() * millisecondsASecond));
    track.setVolume(static_cast<float>(given.value(QStringLiteral("volume")).toDouble()));
    track.setPan(static_cast<float>(given.value(QStringLiteral("pan")).toDouble()));
    track.setMuted(given.value(QStringLiteral("muted")).toBool());
}

/// Which recording of the score is meant; none where there is none, or none is chosen.
std::optional<unsigned> askWhichRecording(const ActionContext &context, const QString &question)
{
    const auto &tracks = context.document.model().audioTracks();
    QStringList names;
    for (const auto &track : tracks)
        names << QString::fromStdString(track->name());
    Form form(Text::tr("Recording"));
    form.choice("recording", question, names, 0);
    const auto given = names.isEmpty() ? std::nullopt : ask(context, form);
    if (!given)
        return std::nullopt;
    return static_cast<unsigned>(given->value(QStringLiteral("recording")).toInt());
}

} // namespace

Change askRecording(const ActionContext &context)
{
    const QString path = context.window.editor().questions().fileToOpen(
        &context.window,
        Text::tr("Sound files (%1)").arg(QStringLiteral("*.wav *.flac *.ogg *.oga")));
    if (path.isEmpty())
        return nullptr;
    const QFileInfo file(path);
    auto track = std::make_shared<AudioTrack>(file.completeBaseName().toStdString());
    track->setFilePath(file.absoluteFilePath().toStdString());
    const auto given = ask(context, recordingForm(*track));
    if (!given)
        return nullptr;
    take(*given, *track);
    const unsigned count = context.document.model().audioTrackCount();
    return [track, count](Score &score) { return score.createAudioTrack(count, track); };
}

Change askRecordingToChange(const ActionContext &context)
{
    const auto index = askWhichRecording(context, Text::tr("&Change"));
    if (!index)
        return nullptr;
    AudioTrack track = *context.document.model().audioTracks()[*index];
    const auto given = ask(context, recordingForm(track));
    if (!given)
        return nullptr;
    take(*given, track);
    return [index, track](Score &score) { return score.setAudioTrack(*index, track); };
}

Change askRecordingToRemove(const ActionContext &context)
{
    const auto index = askWhichRecording(context, Text::tr("&Remove"));
    if (!index)
        return nullptr;
    return [index](Score &score) { return score.removeAudioTrack(*index); };
}

} // namespace zarn::editor
