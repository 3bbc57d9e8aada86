// SPDX-License-Identifier: MIT
#include <ZarnCore/io/sheet/Fingers.h>

#include <ZarnCore/model/ZarnBeat.h>

#include <algorithm>
#include <array>
#include <vector>

namespace zarn::sheet {

namespace {

/// By `Fingering`: thumb to little finger, and none for an open string.
constexpr std::array<char, 7> leftHand = {'-', 'T', '1', '2', '3', '4', '0'};
constexpr std::array<char, 7> rightHand = {'-', 'p', 'i', 'm', 'a', 'c', '0'};

template <auto Get>
QString fingersOf(const Beat &beat, const std::array<char, 7> &letters)
{
    std::vector<const Note *> notes;
    for (const auto &note : beat.notes())
        notes.push_back(note.get());
    std::stable_sort(notes.begin(), notes.end(), [](const Note *left, const Note *right) {
        return left->string() != right->string() ? left->string() < right->string()
                                                 : left->midi() < right->midi();
    });
    QString text;
    bool hasAny = false;
    for (const Note *const note : notes) {
        const Fingering finger = (note->*Get)();
        hasAny = hasAny || finger != Fingering::None;
        text += QLatin1Char(letters.at(static_cast<std::size_t>(finger)));
    }
    return hasAny ? text : QString();
}

} // namespace

QString leftHandOf(const Beat &beat)
{
    return fingersOf<&Note::leftFingering>(beat, leftHand);
}

QString rightHandOf(const Beat &beat)
{
    return fingersOf<&Note::rightFingering>(beat, rightHand);
}

} // namespace zarn::sheet
