// SPDX-License-Identifier: MIT
#include <ZarnCore/model/form/ZarnDirectionMark.h>

#include <ZarnCore/utils/EnumTable.h>

#include <QStringList>

#include <array>

namespace zarn {
namespace {

using Mark = DirectionMark;

// "Dble" stands in the texts alone.
// clang-format off
constexpr auto texts = utils::enumTable<Mark>(utils::KeyMatch::Exact, {
    {Mark::Coda, "Coda"},
    {Mark::DoubleCoda, "DoubleCoda"},
    {Mark::Segno, "Segno"},
    {Mark::SegnoSegno, "SegnoSegno"},
    {Mark::Fine, "Fine"},
    {Mark::DaCapo, "DaCapo"},
    {Mark::DaCapoAlCoda, "DaCapoAlCoda"},
    {Mark::DaCapoAlDoubleCoda, "DaCapoAlDbleCoda"},
    {Mark::DaCapoAlFine, "DaCapoAlFine"},
    {Mark::DaSegno, "DaSegno"},
    {Mark::DaSegnoAlCoda, "DaSegnoAlCoda"},
    {Mark::DaSegnoAlDoubleCoda, "DaSegnoAlDbleCoda"},
    {Mark::DaSegnoAlFine, "DaSegnoAlFine"},
    {Mark::DaSegnoSegno, "DaSegnoSegno"},
    {Mark::DaSegnoSegnoAlCoda, "DaSegnoSegnoAlCoda"},
    {Mark::DaSegnoSegnoAlDoubleCoda, "DaSegnoSegnoAlDbleCoda"},
    {Mark::DaSegnoSegnoAlFine, "DaSegnoSegnoAlFine"},
    {Mark::DaCoda, "DaCoda"},
    {Mark::DaDoubleCoda, "DaDbleCoda"},
    {Mark::NoDirection, "NoDirection"},
});
// clang-format on
static_assert(texts.isConsistent());
static_assert(texts.rows().size() == DirectionMarkCount + 1);

} // namespace

QString directionMarkToQString(DirectionMark mark)
{
    const auto text = texts.text(mark).value_or(*texts.text(Mark::NoDirection));
    return QString::fromLatin1(text.data(), static_cast<int>(text.size()));
}

DirectionMark directionMarkFromQString(const QString &text)
{
    return texts.value(text.toStdString()).value_or(Mark::NoDirection);
}

QString directionMarksToQString(const std::set<DirectionMark> &marks)
{
    QStringList words;
    for (const DirectionMark mark : marks)
        words.append(directionMarkToQString(mark));
    return words.join(QStringLiteral(", "));
}

bool isJump(DirectionMark mark) noexcept
{
    return mark >= Mark::DaCapo && mark < Mark::NoDirection;
}

DirectionMark targetOfDirection(DirectionMark mark) noexcept
{
    if (mark >= Mark::DaSegno && mark <= Mark::DaSegnoAlFine)
        return Mark::Segno;
    if (mark >= Mark::DaSegnoSegno && mark <= Mark::DaSegnoSegnoAlFine)
        return Mark::SegnoSegno;
    if (mark == Mark::DaCoda)
        return Mark::Coda;
    return mark == Mark::DaDoubleCoda ? Mark::DoubleCoda : Mark::NoDirection;
}

} // namespace zarn
