// SPDX-License-Identifier: MIT
#include <ZarnCore/utils/JsonMembers.h>

namespace utils {

JsonError::JsonError(const std::string &place, const std::string &reason, const char *function)
    : CoreException(place.empty() ? reason : place + ": " + reason, __FILE__, function, __LINE__),
      _place(place), _reason(reason)
{
}

JsonError::~JsonError() = default;

JsonError JsonError::within(std::string_view outer) const
{
    std::string place(outer);
    if (!_place.empty())
        place += (_place.front() == '[' ? "" : ".") + _place;
    return JsonError(place, _reason, function().c_str());
}

JsonMembers::JsonMembers(const rapidjson::Value &object, const char *function)
    : _object(object), _function(function)
{
    if (!object.IsObject())
        raise("is no object");
}

const rapidjson::Value *JsonMembers::find(const char *name) const noexcept
{
    const auto found = _object.FindMember(name);
    return found == _object.MemberEnd() ? nullptr : &found->value;
}

std::string_view JsonMembers::text(const char *name) const
{
    return jsonText(member(name, &rapidjson::Value::IsString, "string"), _function);
}

std::string_view JsonMembers::textOr(const char *name, std::string_view fallback) const
{
    return find(name) == nullptr ? fallback : text(name);
}

std::int32_t JsonMembers::integer(const char *name) const
{
    return member(name, &rapidjson::Value::IsInt, "whole number").GetInt();
}

std::int32_t JsonMembers::integerOr(const char *name, std::int32_t fallback) const
{
    return find(name) == nullptr ? fallback : integer(name);
}

std::uint32_t JsonMembers::count(const char *name) const
{
    return member(name, &rapidjson::Value::IsUint, "whole number from 0 up").GetUint();
}

bool JsonMembers::flagOr(const char *name, bool fallback) const
{
    return find(name) == nullptr ? fallback
                                 : member(name, &rapidjson::Value::IsBool, "boolean").GetBool();
}

unsigned JsonMembers::sizeOf(const char *name) const noexcept
{
    const rapidjson::Value *const found = find(name);
    return found != nullptr && found->IsArray() ? found->Size() : 0;
}

void JsonMembers::raise(const std::string &reason) const
{
    throw JsonError({}, reason, _function);
}

const rapidjson::Value &JsonMembers::member(const char *name, Check isRight, const char *kind) const
{
    const rapidjson::Value *const found = find(name);
    if (found == nullptr || !(found->*isRight)())
        raise(std::string("member \"") + name + "\" is missing or no " + kind);
    return *found;
}

std::int32_t jsonInteger(const rapidjson::Value &value, const char *function)
{
    if (!value.IsInt())
        throw JsonError({}, "is no whole number", function);
    return value.GetInt();
}

std::string_view jsonText(const rapidjson::Value &value, const char *function)
{
    if (!value.IsString())
        throw JsonError({}, "is no string", function);
    return {value.GetString(), value.GetStringLength()};
}

} // namespace utils
