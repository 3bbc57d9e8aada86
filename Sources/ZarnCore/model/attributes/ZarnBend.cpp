// SPDX-License-Identifier: MIT
#include <ZarnCore/model/attributes/ZarnBend.h>

#include <ZarnCore/ZarnAssert.h>
#include <ZarnCore/model/attributes/TypedCurve.h>

namespace zarn {

Bend Bend::of(BendType type, int amount)
{
    ZARN_ASSERT_IN("zarn::Bend::of", amount >= 0 && amount <= Highest);
    const auto v = static_cast<std::int16_t>(amount);
    const auto half = static_cast<std::int16_t>(amount / 2);
    switch (type) {
    case BendType::Bend:
        return {type, {{0, 0}, {30, v}, {60, v}}};
    case BendType::PreBend:
    case BendType::HoldBend:
        return {type, {{0, v}, {60, v}}};
    case BendType::Release:
    case BendType::PreBendNRelease:
        return {type, {{0, v}, {30, 0}, {60, 0}}};
    case BendType::BendNRelease:
        return {type, {{0, 0}, {15, v}, {30, v}, {45, 0}, {60, 0}}};
    case BendType::PreBendNBend:
        return {type, {{0, half}, {30, v}, {60, v}}};
    case BendType::NoBend:
        break;
    }
    return {};
}

bool Bend::isValid() const noexcept
{
    return type <= BendType::PreBendNRelease && (type == BendType::NoBend) == curve.isEmpty()
        && curve.isWithin(0, Highest);
}

std::string Bend::toString() const
{
    return typedCurveText<bendTypeToString>(*this);
}

std::optional<Bend> Bend::fromString(std::string_view text)
{
    return typedCurveFromText<bendTypeToString, bendTypeFromString, Bend>(text);
}

} // namespace zarn
