// SPDX-License-Identifier: MIT
#pragma once

#include "common/Terminal.h"
#include "show/ShowCommand.h"

#include <ZarnCore/ZarnCoreUtils.h>
#include <ZarnCore/model/ZarnBeatAttribute.h>
#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/score/ZarnScore.h>

#include <QStringList>

#include <gtest/gtest.h>

#include <algorithm>
#include <initializer_list>
#include <memory>

namespace zarn::test {

/// A score in the short notation with marks on it, one a text: "1.2 Hairpin=Crescendo" for the
/// second beat of the first bar, "1.2.1 PalmMute=true" for its first note, "1.2/2 ..." for voice 2.
/// Enumerators without a text go by their numbers, "#1".
class MarkedScore {
public:
    explicit MarkedScore(const char *notation) : _score(ZarnCoreUtils::make_from_string(notation))
    {
    }

    ScoreModel &model() { return *_score->scoreModel(); }

    Beat &beat(unsigned bar, unsigned beat, unsigned voice = 1)
    {
        return *model().track(0)->bar(bar - 1)->voice(voice - 1)->beat(beat - 1);
    }

    MarkedScore &mark(std::initializer_list<const char *> marks)
    {
        for (const char *const text : marks)
            markOne(QString::fromUtf8(text));
        return *this;
    }

    MarkedScore &sing(unsigned bar, unsigned beatNumber, const char *text,
                      Syllabic syllabic = Syllabic::Single, bool hasMelisma = false,
                      std::uint8_t line = 0)
    {
        Syllables syllables = beat(bar, beatNumber).lyrics();
        syllables.push_back({line, syllabic, hasMelisma, text});
        beat(bar, beatNumber).setLyrics(syllables);
        return *this;
    }

    std::string picture(int width, bool asUtf8 = true)
    {
        sheet::ShownPart part;
        part.lastBar = model().masterTrack()->masterBarCount();
        return tool::pictureOf(model(), part, tool::Terminal(width, asUtf8, false));
    }

private:
    template <class Rows, class Set>
    static void setByName(const Rows &rows, const QString &name, const QString &text, Set set)
    {
        const auto row = std::find_if(rows.begin(), rows.end(), [&](const auto &candidate) {
            return candidate.name == name.toStdString();
        });
        ASSERT_NE(row, rows.end()) << name.toStdString();
        const auto value = text.startsWith(QLatin1Char('#'))
            ? AttributeValue(text.mid(1).toInt())
            : row->range.fromText(text.toStdString());
        ASSERT_TRUE(value) << name.toStdString() << ' ' << text.toStdString();
        set(row->id, *value);
    }

    void markOne(const QString &text)
    {
        const QStringList words = text.split(QLatin1Char(' '));
        const QStringList place =
            words.first().section(QLatin1Char('/'), 0, 0).split(QLatin1Char('.'));
        const unsigned voice = std::max(1U, words.first().section(QLatin1Char('/'), 1, 1).toUInt());
        const QString setting = text.section(QLatin1Char(' '), 1);
        const QString name = setting.section(QLatin1Char('='), 0, 0);
        const QString value = setting.section(QLatin1Char('='), 1);
        Beat &marked = beat(place.at(0).toUInt(), place.at(1).toUInt(), voice);
        if (place.size() > 2)
            setByName(noteAttributes(), name, value, [&](NoteAttribute id, const auto &given) {
                setAttribute(marked, *marked.note(place.at(2).toUInt() - 1), id, given);
            });
        else
            setByName(beatAttributes(), name, value, [&](BeatAttribute id, const auto &given) {
                setAttribute(marked, id, given);
            });
    }

    std::unique_ptr<Score> _score;
};

} // namespace zarn::test
