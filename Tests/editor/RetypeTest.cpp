// SPDX-License-Identifier: MIT
#include "editor/EditorDriver.h"

#include <ZarnCore/model/ZarnScoreModel.h>

#include <gtest/gtest.h>

namespace {

using namespace zarn;
using test::EditorDriver;

/// The keys that a guitarist presses to write the bars of a voice, the cursor being at the begin of
/// the first one, on the highest string.
class Typist {
public:
    /// `rhythm` is what is entered before any of them.
    QStringList keysOf(const Staff &staff, unsigned bars, unsigned voice, const RhythmValue &rhythm)
    {
        _keys.clear();
        _rhythm = rhythm;
        const auto top = static_cast<int>(staff.tuning().stringCount()) - 1;
        _string = top;
        for (unsigned bar = 0; bar < bars; ++bar) {
            const auto beats = staff.bar(bar)->voice(voice);
            const unsigned count = beats != nullptr ? beats->beatCount() : 0;
            for (unsigned i = 0; i < count; ++i) {
                _keys += i > 0 ? QStringList{QStringLiteral("Right")} : QStringList();
                type(*beats->beat(i));
            }
            if (bar + 1 < bars)
                _keys << QStringLiteral("Ctrl+Right");
        }
        return _keys;
    }

private:
    void type(const Beat &beat)
    {
        choose(beat.rhythmValue());
        if (!beat.hasNotes())
            _keys << QStringLiteral("R");
        for (const auto &note : beat.notes()) {
            for (; _string > note->string(); --_string)
                _keys << QStringLiteral("Down");
            for (; _string < note->string(); ++_string)
                _keys << QStringLiteral("Up");
            for (const QChar digit : QString::number(note->fret()))
                _keys << QString(digit);
        }
        if (beat.hasNotes() && beat.note(0)->isTied())
            _keys << QStringLiteral("L");
    }

    void choose(const RhythmValue &rhythm)
    {
        const bool isOther = rhythm.getNoteValue() != _rhythm.getNoteValue();
        if (isOther)
            _keys << QStringLiteral("Ctrl+Alt+%1")
                         .arg(static_cast<int>(rhythm.getNoteValue())
                              - static_cast<int>(RhythmValue::NoteValue::Whole) + 1);
        if (rhythm.getAugmentationDot() != (isOther ? 0 : _rhythm.getAugmentationDot()))
            _keys << QStringLiteral(".");
        if (rhythm.hasPrimaryTuplet() != _rhythm.hasPrimaryTuplet())
            _keys << QStringLiteral("/");
        _rhythm = rhythm;
    }

    QStringList _keys;
    RhythmValue _rhythm;
    int _string = 0;
};

TEST(RetypeTest, aPageIsWrittenByKeysAlone)
{
    constexpr unsigned bars = 16;
    EditorDriver source(QStringLiteral(ZARN_SOURCE_DIR "/Samples/romance-guitar-study.musicxml"));
    const Staff &staff = *source.model().track(0)->staff(0);
    EditorDriver target;
    target.answers().fields = {{QStringLiteral("beats"), 3}};
    ASSERT_TRUE(target.trigger(QStringLiteral("bar.time")));
    Typist typist;
    for (unsigned voice = 0; voice < 2; ++voice) {
        target.type(QStringLiteral("Ctrl+Home Alt+%1 Up Up Up Up Up").arg(voice + 1));
        target.type(typist.keysOf(staff, bars, voice, target.document().entry().rhythm)
                        .join(QLatin1Char(' ')));
        EXPECT_EQ(target.bars(0, bars - 1, 0, voice), source.bars(0, bars - 1, 0, voice)) << voice;
    }
    unsigned steps = 0;
    for (; target.document().canUndo(); ++steps)
        target.document().undo();
    EXPECT_FALSE(target.document().isModified());
    EXPECT_GT(steps, bars * 9);
}

} // namespace
