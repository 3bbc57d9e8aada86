// SPDX-License-Identifier: MIT
#include <ZarnCore/io/native/Json.h>

#include <ZarnCore/utils/JsonNumber.h>

#include <rapidjson/error/en.h>
#include <rapidjson/reader.h>

namespace zarn::io::native {

/// Takes what RapidJSON's reader finds.
class JsonBuilder : public rapidjson::BaseReaderHandler<rapidjson::UTF8<>, JsonBuilder> {
public:
    JsonBuilder(std::vector<Json> &values, JsonStream &stream)
        : _values(values), _stream(stream) { }

    bool Null() { return add(Json::Kind::Null); }
    bool Bool(bool value)
    {
        Json json;
        json._whole = value ? 1 : 0;
        return add(Json::Kind::Bool, json);
    }
    bool RawNumber(const char *text, rapidjson::SizeType size, bool)
    {
        const auto whole = utils::jsonWhole({text, size});
        if (!whole)
            return addText(Json::Kind::Real, text, size);
        Json json;
        json._whole = *whole;
        return add(Json::Kind::Whole, json);
    }
    bool String(const char *text, rapidjson::SizeType size, bool)
    {
        return addText(Json::Kind::Text, text, size);
    }
    bool StartObject() { return open(Json::Kind::Object); }
    bool StartArray() { return open(Json::Kind::Array); }
    bool EndObject(rapidjson::SizeType count) { return close(count); }
    bool EndArray(rapidjson::SizeType count) { return close(count); }

private:
    /// An array or object whose end has not come.
    struct Open {
        std::size_t index;
        bool isStreamed;
        std::uint32_t taken; ///< elements that the stream has got
    };

    bool add(Json::Kind kind, Json value = {})
    {
        value._kind = kind;
        _values.push_back(value);
        return deliver(_values.size() - 1);
    }

    bool addText(Json::Kind kind, const char *text, rapidjson::SizeType size)
    {
        Json json;
        json._text = text;
        json._size = size;
        return add(kind, json);
    }

    bool open(Json::Kind kind)
    {
        if (_open.size() == maximumJsonDepth)
            return false;
        const bool isStreamed = kind == Json::Kind::Array && isTakenByStream();
        _open.push_back({_values.size(), isStreamed, 0});
        _values.emplace_back()._kind = kind;
        return true;
    }

    bool close(rapidjson::SizeType count)
    {
        const Open ended = _open.back();
        _open.pop_back();
        Json &value = _values[ended.index];
        value._size = count;
        value._span = static_cast<std::int64_t>(_values.size() - ended.index);
        if (ended.isStreamed) {
            value._kind = Json::Kind::Streamed;
            value._span = static_cast<std::int64_t>(_stream.endArray());
        }
        return deliver(ended.index);
    }

    /// Whether the stream takes the array that begins behind a key.
    bool isTakenByStream()
    {
        return !_open.empty() && _values[_open.back().index].isObject()
            && _stream.takesArray(
                _values.back().text(), _open.size(), [this] { return path(); }, _values.front());
    }

    /// Hands the last value to the stream when it is an element of a streamed array.
    bool deliver(std::size_t index)
    {
        if (_open.empty() || !_open.back().isStreamed)
            return true;
        _stream.takeElement(_values[index],
                            [this] { return path() + "/" + std::to_string(_open.back().taken); });
        _values.resize(index);
        ++_open.back().taken;
        return true;
    }

    /// JSON pointer to the innermost array or object whose end has not come.
    std::string path() const;

    std::vector<Json> &_values;
    JsonStream &_stream;
    std::vector<Open> _open;
};

JsonStream::~JsonStream() = default;

std::string JsonBuilder::path() const
{
    std::string text;
    for (std::size_t level = 0; level + 1 < _open.size(); ++level) {
        const std::size_t inner = _open[level + 1].index;
        std::size_t at = _open[level].index + 1;
        std::size_t element = 0;
        const bool isObject = _values[_open[level].index].isObject();
        const std::size_t key = isObject ? 1 : 0; // what stands in front of each value
        for (; at + key != inner; ++element)
            at = static_cast<std::size_t>(_values[at + key].behind() - _values.data());
        text += "/" + (isObject ? std::string(_values[at].text()) : std::to_string(element));
    }
    return text;
}

namespace {

/// The start of a long text, for messages.
std::string shortened(std::string_view text)
{
    constexpr std::size_t longest = 40;
    if (text.size() <= longest)
        return std::string(text);
    std::size_t end = longest;
    while (end > 0 && (static_cast<unsigned char>(text[end]) & 0xC0) == 0x80)
        --end; // not inside a character
    return std::string(text.substr(0, end)) + "...";
}

} // namespace

const Json *Json::find(std::string_view key) const noexcept
{
    for (const Member member : members())
        if (member.key == key)
            return &member.value;
    return nullptr;
}

double Json::number() const noexcept
{
    return isWhole() ? static_cast<double>(_whole) : utils::jsonReal(text());
}

std::string Json::description() const
{
    switch (_kind) {
    case Kind::Null:
        return "null";
    case Kind::Bool:
        return boolean() ? "true" : "false";
    case Kind::Whole:
        return std::to_string(_whole);
    case Kind::Real:
        return shortened(text());
    case Kind::Text:
        return "the text " + quoted(text());
    case Kind::Array:
    case Kind::Streamed:
        return "an array";
    case Kind::Object:
        return "an object";
    }
    return {};
}

namespace {

/// Whether all bytes are below 128: then there is no encoding to validate.
bool isAscii(const char *text, std::size_t size) noexcept
{
    unsigned char bits = 0;
    for (std::size_t i = 0; i < size; ++i)
        bits |= static_cast<unsigned char>(text[i]);
    return bits < 0x80;
}

/// RapidJSON's reader calls itself for each level; the builder ends that before it goes too deep.
template <unsigned Flags>
rapidjson::ParseResult parse(char *text, JsonBuilder &builder)
{
    rapidjson::Reader reader;
    rapidjson::InsituStringStream input(text);
    return reader
        .Parse<Flags | rapidjson::kParseInsituFlag | rapidjson::kParseNumbersAsStringsFlag>(
            input, builder);
}

} // namespace

JsonError parseJson(std::string &text, std::size_t start, std::vector<Json> &values,
                    JsonStream &stream)
{
    values.clear();
    JsonBuilder builder(values, stream);
    const bool validates = !isAscii(text.data() + start, text.size() - start);
    // The validation takes all bytes of a letter, also when the text ends in the middle of it.
    constexpr std::size_t longestLetter = 4;
    if (validates)
        text.append(longestLetter, '\0');
    const auto result = validates
        ? parse<rapidjson::kParseValidateEncodingFlag>(&text[start], builder)
        : parse<0>(&text[start], builder);
    if (!result.IsError())
        return {};
    if (result.Code() == rapidjson::kParseErrorTermination)
        return {result.Offset(),
                "nested more than " + std::to_string(maximumJsonDepth) + " levels deep"};
    return {result.Offset(), rapidjson::GetParseError_En(result.Code())};
}

std::string quoted(std::string_view text)
{
    return '"' + shortened(text) + '"';
}

} // namespace zarn::io::native
