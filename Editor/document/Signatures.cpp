// SPDX-License-Identifier: MIT
#include "document/Signatures.h"

#include <ZarnCore/music/ZarnPitchClass.h>

#include <QCoreApplication>

#include <algorithm>

namespace zarn::editor {
namespace {

struct Text {
    Q_DECLARE_TR_FUNCTIONS(Signatures)
};

} // namespace

const std::vector<unsigned> &beatUnits()
{
    static const std::vector<unsigned> units = {1, 2, 4, 8, 16, 32, 64};
    return units;
}

QStringList beatUnitTexts()
{
    QStringList texts;
    for (const unsigned unit : beatUnits())
        texts << QStringLiteral("1/%1").arg(unit);
    return texts;
}

const std::vector<KeySignature> &usualKeys()
{
    static const std::vector<KeySignature> keys = [] {
        constexpr int most = 7;
        std::vector<KeySignature> all;
        for (const bool isMajor : {true, false})
            for (int count = -most; count <= most; ++count)
                all.emplace_back(count, isMajor);
        return all;
    }();
    return keys;
}

QStringList keyTexts()
{
    QStringList texts;
    for (const KeySignature &key : usualKeys()) {
        const QString tonic = PitchClass::fromPitch(key.rootNote()).symbol();
        texts << (key.isMajor() ? Text::tr("%1 major") : Text::tr("%1 minor")).arg(tonic);
    }
    return texts;
}

int placeOfKey(const KeySignature &key)
{
    const auto &keys = usualKeys();
    const auto found = std::find_if(keys.begin(), keys.end(), [&key](const KeySignature &each) {
        return each.accidentalCount() == key.accidentalCount() && each.isMajor() == key.isMajor();
    });
    return found == keys.end() ? 0 : static_cast<int>(found - keys.begin());
}

} // namespace zarn::editor
