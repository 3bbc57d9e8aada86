// SPDX-License-Identifier: MIT
// Properties, headers and footers, and the layout list of the score model.
#include <ZarnCore/model/ZarnScoreModel.h>

namespace zarn {
namespace {

const std::string noText;

} // namespace

const std::string &ScoreModel::property(ScoreProperty property) const noexcept
{
    const auto index = static_cast<unsigned>(property);
    return index < PropertyCount ? _properties[index] : noText;
}

void ScoreModel::setScoreProperty(ScoreProperty property, const std::string &value)
{
    const auto index = static_cast<unsigned>(property);
    ZARN_ASSERT_IN("zarn::ScoreModel::setScoreProperty", index < PropertyCount);
    _properties[index] = value;
}

const std::string &ScoreModel::headerAndFooter(HeaderAndFooter place) const noexcept
{
    const auto index = static_cast<unsigned>(place);
    return index < HeaderAndFooterCount ? _headersAndFooters[index] : noText;
}

void ScoreModel::setHeaderAndFooter(HeaderAndFooter place, const std::string &text)
{
    const auto index = static_cast<unsigned>(place);
    ZARN_ASSERT_IN("zarn::ScoreModel::setHeaderAndFooter", index < HeaderAndFooterCount);
    _headersAndFooters[index] = text;
}

std::string ScoreModel::formatHeaderAndFooter(const std::string &text, unsigned page,
                                              unsigned pageCount) const
{
    // The words: nothing for one that is not known.
    const auto valueOf = [&](const std::string &word) -> std::pair<bool, std::string> {
        if (word.empty())
            return {true, "%"};
        if (word == "Page")
            return {true, std::to_string(page)};
        if (word == "Pages")
            return {true, std::to_string(pageCount)};
        for (unsigned i = 0; i < PropertyCount; ++i)
            if (scorePropertyToQString(static_cast<ScoreProperty>(i)).toStdString() == word)
                return {true, _properties[i]};
        return {false, {}};
    };

    std::string result;
    std::size_t at = 0;
    while (at < text.size()) {
        const std::size_t open = text.find('%', at);
        const std::size_t close = open == std::string::npos ? open : text.find('%', open + 1);
        if (close == std::string::npos)
            break;
        result.append(text, at, open - at);
        const auto value = valueOf(text.substr(open + 1, close - open - 1));
        // A percent sign that opens no word may still close none: go on behind it alone.
        result += value.first ? value.second : "%";
        at = value.first ? close + 1 : open + 1;
    }
    return result.append(text, at, std::string::npos);
}

std::string ScoreModel::formatedHeaderAndFooter(HeaderAndFooter place, unsigned page,
                                                unsigned pageCount) const
{
    return formatHeaderAndFooter(headerAndFooter(place), page, pageCount);
}

int ScoreModel::popInFullScoreSystemsLayout()
{
    if (_systemsLayout.empty())
        return 0;
    const int last = _systemsLayout.back();
    _systemsLayout.pop_back();
    return last;
}

} // namespace zarn
