// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>

#include <QString>

#include <cstdint>

namespace zarn {

/// The texts at the top and bottom of the pages; the first page has its own.
enum class HeaderAndFooter : std::uint8_t {
    FirstPageHeaderLeft,
    FirstPageHeaderCenter,
    FirstPageHeaderRight,
    FirstPageFooterLeft,
    FirstPageFooterCenter,
    FirstPageFooterRight,
    HeaderLeft,
    HeaderCenter,
    HeaderRight,
    FooterLeft,
    FooterCenter,
    FooterRight,
};

constexpr unsigned HeaderAndFooterCount = 12;

/// "FirstPageHeaderLeft" and so on; "Unknown (%0)" with the number for other values.
ZARNCORE_EXPORT QString headerAndFooterToQString(HeaderAndFooter place);

} // namespace zarn
