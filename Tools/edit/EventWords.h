// SPDX-License-Identifier: MIT
#pragma once

#include "edit/PlaceText.h"

#include <ZarnCore/ZarnTypes.h>
#include <ZarnCore/events/ZarnEvents.h>

#include <QString>
#include <QStringList>

#include <type_traits>

/// What events carry, in words. An event class is asked for what it has by the names that all
/// event classes share; places are counted from 1, as people count.
namespace zarn::tool {

/// What the entries of a list are that `index()`, `first()` and `second()` of an event count.
template <class E>
constexpr const char *countedThing = "entry";
template <>
inline constexpr const char *countedThing<evt::AddBars> = "bar";
template <>
inline constexpr const char *countedThing<evt::RemoveBars> = "bar";
template <>
inline constexpr const char *countedThing<evt::RequestAddTracks> = "track";
template <>
inline constexpr const char *countedThing<evt::SwapTrack> = "track";
template <>
inline constexpr const char *countedThing<evt::AddAudioTrack> = "audio track";
template <>
inline constexpr const char *countedThing<evt::RemoveAudioTrack> = "audio track";
template <>
inline constexpr const char *countedThing<evt::AudioTrackChanged> = "audio track";
template <>
inline constexpr const char *countedThing<evt::RequestMasterTrackChannelStripParameterChange> =
    "parameter";
template <>
inline constexpr const char *countedThing<evt::RequestSwapSounds> = "sound";
template <>
inline constexpr const char *countedThing<evt::RequestEffectsSwap> = "slot";

/// Collects the words of one event.
class EventWords {
public:
    QString text() const { return _words.join(QStringLiteral(", ")); }

    /// Adds a value that an event has: `read` answers it, or cannot be called with the event.
    template <class E, class Read>
    void add(const char *name, const E &event, Read read)
    {
        if constexpr (std::is_invocable_v<Read, const E &>)
            append(name, wordOf(read(event)));
    }

    /// The same for a place counted from 0; negative ones are none.
    template <class E, class Read>
    void addPlace(const char *name, const E &event, Read read)
    {
        if constexpr (std::is_invocable_v<Read, const E &>)
            append(name, placeWord(read(event)));
    }

private:
    void append(const char *name, const QString &word)
    {
        _words.append(QStringLiteral("%1 %2").arg(QLatin1String(name), word));
    }

    static QString placeWord(int place)
    {
        return place < 0 ? QStringLiteral("none") : QString::number(place + 1);
    }
    static QString wordOf(const QString &text)
    {
        return QLatin1Char('"') + text + QLatin1Char('"');
    }
    static QString wordOf(int number) { return QString::number(number); }
    static QString wordOf(double number) { return QString::number(number); }
    static QString wordOf(bool isOn) { return isOn ? QStringLiteral("on") : QStringLiteral("off"); }
    static QString wordOf(DirectionMark mark) { return directionMarkToQString(mark); }
    static QString wordOf(ScoreProperty property) { return scorePropertyToQString(property); }
    static QString wordOf(HeaderAndFooter part) { return headerAndFooterToQString(part); }
    static QString wordOf(Automation::Type type)
    {
        return QString::fromStdString(Automation::typeToString(type));
    }
    static QString wordOf(const ScoreModelIndex &place) { return placeText(place); }

    QStringList _words;
};

/// "track 1, staff 1, first bar 3, last bar 4"; empty for an event without content.
template <class E>
QString eventWords(const E &e)
{
    EventWords words;
    // clang-format off
    words.add("command", e, [](const auto &of) -> decltype(of.name()) { return of.name(); });
    words.addPlace("track", e, [](const auto &of) -> decltype(of.trackIndex()) { return of.trackIndex(); });
    words.addPlace("staff", e, [](const auto &of) -> decltype(of.staffIndex()) { return of.staffIndex(); });
    words.addPlace("sound", e, [](const auto &of) -> decltype(of.soundIndex()) { return of.soundIndex(); });
    words.addPlace("first bar", e, [](const auto &of) -> decltype(of.firstBar()) { return of.firstBar(); });
    words.addPlace("last bar", e, [](const auto &of) -> decltype(of.lastBar()) { return of.lastBar(); });
    words.addPlace(countedThing<E>, e, [](const auto &of) -> decltype(of.index()) { return of.index(); });
    words.add("count", e, [](const auto &of) -> decltype(of.count()) { return of.count(); });
    words.addPlace(countedThing<E>, e, [](const auto &of) -> decltype(of.first()) { return of.first(); });
    words.addPlace(countedThing<E>, e, [](const auto &of) -> decltype(of.second()) { return of.second(); });
    words.add("direction", e, [](const auto &of) -> decltype(of.mark()) { return of.mark(); });
    words.addPlace("from bar", e, [](const auto &of) -> decltype(of.oldBar()) { return of.oldBar(); });
    words.addPlace("to bar", e, [](const auto &of) -> decltype(of.newBar()) { return of.newBar(); });
    words.addPlace("from", e, [](const auto &of) -> decltype(of.oldIndex()) { return of.oldIndex(); });
    words.addPlace("to", e, [](const auto &of) -> decltype(of.newIndex()) { return of.newIndex(); });
    words.add("from", e, [](const auto &of) -> decltype(of.oldValue()) { return of.oldValue(); });
    words.add("to", e, [](const auto &of) -> decltype(of.newValue()) { return of.newValue(); });
    words.add("from", e, [](const auto &of) -> decltype(of.oldZoom()) { return of.oldZoom(); });
    words.add("to", e, [](const auto &of) -> decltype(of.newZoom()) { return of.newZoom(); });
    words.add("property", e, [](const auto &of) -> decltype(of.property()) { return of.property(); });
    words.add("part", e, [](const auto &of) -> decltype(of.part()) { return of.part(); });
    words.addPlace("slot", e, [](const auto &of) -> decltype(of.slot()) { return of.slot(); });
    words.addPlace("parameter", e, [](const auto &of) -> decltype(of.parameter()) { return of.parameter(); });
    words.add("automation", e, [](const auto &of) -> decltype(of.automationType()) { return of.automationType(); });
    words.add("bypass", e, [](const auto &of) -> decltype(of.isBypassed()) { return of.isBypassed(); });
    words.add("switch", e, [](const auto &of) -> decltype(of.isEnabled()) { return of.isEnabled(); });
    words.add("place", e, [](const auto &of) -> decltype(of.place()) { return of.place(); });
    // clang-format on
    return words.text();
}

} // namespace zarn::tool
