// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>
#include <ZarnCore/music/ZarnRhythmValue.h>

#include <QStringList>

#include <set>

namespace zarn::sheet {

/// Collects the signs that a picture uses, so that it can explain them and no others.
class ZARNCORE_EXPORT Legend {
public:
    enum class Sign {
        Dot,
        Tuplet,
        Rest,
        WholeBarRest,
        Grace,
        Dead,
        OtherVoice,
        SharedString,
        Drum,
        CrossHead,
        Bell,
        NoPitch,
        Simile,
        DoubleSimile,
        PlayedTimes,
    };

    void use(Sign sign) { _signs.insert(sign); }
    void use(const RhythmValue &rhythm);

    /// A sign with its meaning, such as "T tapped".
    void use(const QString &explanation);

    /// "q quarter", ". dotted" and so on.
    QStringList texts() const;

private:
    std::set<int> _noteValues;
    std::set<Sign> _signs;
    QStringList _explanations; ///< in the order in which the music needs them
};

} // namespace zarn::sheet
