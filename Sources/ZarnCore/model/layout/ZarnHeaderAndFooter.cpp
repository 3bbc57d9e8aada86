// SPDX-License-Identifier: MIT
#include <ZarnCore/model/layout/ZarnHeaderAndFooter.h>

#include <ZarnCore/utils/EnumTable.h>

namespace zarn {
namespace {

using Place = HeaderAndFooter;

// clang-format off
constexpr auto texts = utils::enumTable<Place>(utils::KeyMatch::Exact, {
    {Place::FirstPageHeaderLeft, "FirstPageHeaderLeft"},
    {Place::FirstPageHeaderCenter, "FirstPageHeaderCenter"},
    {Place::FirstPageHeaderRight, "FirstPageHeaderRight"},
    {Place::FirstPageFooterLeft, "FirstPageFooterLeft"},
    {Place::FirstPageFooterCenter, "FirstPageFooterCenter"},
    {Place::FirstPageFooterRight, "FirstPageFooterRight"},
    {Place::HeaderLeft, "HeaderLeft"},
    {Place::HeaderCenter, "HeaderCenter"},
    {Place::HeaderRight, "HeaderRight"},
    {Place::FooterLeft, "FooterLeft"},
    {Place::FooterCenter, "FooterCenter"},
    {Place::FooterRight, "FooterRight"},
});
// clang-format on
static_assert(texts.isConsistent());
static_assert(texts.rows().size() == HeaderAndFooterCount);

} // namespace

QString headerAndFooterToQString(HeaderAndFooter place)
{
    const auto text = texts.text(place);
    if (!text)
        return QStringLiteral("Unknown (%0)").arg(static_cast<int>(place));
    return QString::fromLatin1(text->data(), static_cast<int>(text->size()));
}

} // namespace zarn
