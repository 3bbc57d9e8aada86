// SPDX-License-Identifier: MIT
#include <ZarnCore/model/attributes/ZarnFermataMark.h>

#include <ZarnCore/model/attributes/EnumeratorWord.h>

#include <algorithm>

namespace zarn {

FermataMark FermataMark::at(const utils::rational &position, Fermata kind)
{
    const auto stretch = kind == Fermata::Short ? 50 : kind == Fermata::Long ? 200 : 100;
    return {position, kind, static_cast<std::uint16_t>(stretch)};
}

std::string FermataMark::toString() const
{
    return position.toString() + " " + fermataToString(kind) + " " + std::to_string(stretch);
}

std::optional<FermataMark> FermataMark::fromString(std::string_view text)
{
    utils::TextScanner scanner(text);
    FermataMark mark;
    const auto position = utils::rational::fromString(scanner.takeWord());
    if (!position || !scanner.take(" ")
        || !takeEnumerator<fermataToString, fermataFromString>(scanner, mark.kind))
        return std::nullopt;
    mark = at(*position, mark.kind);
    if (scanner.take(" ") && !scanner.takeNumber(mark.stretch))
        return std::nullopt;
    return scanner.isAtEnd() && mark.isValid() ? std::optional<FermataMark>(mark) : std::nullopt;
}

bool areValid(const FermataMarks &marks) noexcept
{
    const bool areInOrder = std::adjacent_find(marks.begin(), marks.end(),
                                               [](const auto &left, const auto &right) {
                                                   return left.position >= right.position;
                                               })
        == marks.end();
    return areInOrder && std::all_of(marks.begin(), marks.end(), [](const FermataMark &mark) {
               return mark.isValid();
           });
}

} // namespace zarn
