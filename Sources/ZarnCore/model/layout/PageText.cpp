// SPDX-License-Identifier: MIT
#include <ZarnCore/model/layout/PageText.h>

namespace zarn {

std::string
filledPageText(const std::string &text,
               const std::function<std::optional<std::string>(const std::string &word)> &valueOf)
{
    std::string result;
    std::size_t at = 0;
    while (at < text.size()) {
        const std::size_t open = text.find('%', at);
        const std::size_t close = open == std::string::npos ? open : text.find('%', open + 1);
        if (close == std::string::npos)
            break;
        result.append(text, at, open - at);
        const std::string word = text.substr(open + 1, close - open - 1);
        const auto value = word.empty() ? "%" : valueOf(word);
        // A percent sign that opens no word may still close none: go on behind it alone.
        result += value.value_or("%");
        at = value ? close + 1 : open + 1;
    }
    return result.append(text, at, std::string::npos);
}

} // namespace zarn
