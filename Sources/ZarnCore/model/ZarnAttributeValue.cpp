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
template <class T, class = void>
struct CanBeInvalid : std::false_type {
};
template <class T>
struct CanBeInvalid<T, std::void_t<decltype(std::declval<const T &>().isValid())>>
    : std::true_type {
};

template <class T>
bool isValidPart([[maybe_unused]] const T &value) noexcept
{
    if constexpr (CanBeInvalid<T>::value)
        return value.isValid();
    else
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
