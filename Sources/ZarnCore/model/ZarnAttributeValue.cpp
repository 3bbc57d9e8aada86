// SPDX-License-Identifier: MIT
#include <ZarnCore/model/ZarnAttributeValue.h>

#include <ZarnCore/ZarnAssert.h>

namespace zarn {

namespace {

bool isValidPart(const SlurEnds &ends) noexcept
{
    return areValid(ends);
}
bool isValidPart(const Syllables &syllables) noexcept
{
    return areValid(syllables);
}
bool isValidPart(const FermataMarks &marks) noexcept
{
    return areValid(marks);
}
template <class T>
auto isValidPart(const T &value) noexcept -> decltype(value.isValid())
{
    return value.isValid();
}
bool isValidPart(...) noexcept
{
    return true;
}

} // namespace

bool AttributeValue::isValid() const noexcept
{
    return std::visit([](const auto &value) { return isValidPart(value); }, _held);
}

void AttributeValue::raiseOtherKind()
{
    ZARN_RAISE_IN("zarn::AttributeValue::to", "The value is of another kind than the attribute.");
}

bool operator==(const AttributeValue &left, const AttributeValue &right)
{
    return left._held == right._held;
}

} // namespace zarn
