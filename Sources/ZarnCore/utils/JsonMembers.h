// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnException.h>
#include <ZarnCore/ZarnExport.h>

#include <rapidjson/document.h>

#include <cstdint>
#include <string>
#include <string_view>

namespace utils {

/// What is wrong with a JSON document, and where: `sets[3].elements[2]: member "name" is missing or
/// no string`. Whoever reads a part of a document does not know what lies around it: the readers
/// around it add their places on the way out.
class ZARNCORE_EXPORT JsonError final : public zarn::CoreException {
public:
    /// `function` is the qualified name of the reader. `place` may be empty: the value itself.
    JsonError(const std::string &place, const std::string &reason, const char *function);
    JsonError(const JsonError &other) = default;
    JsonError &operator=(const JsonError &other) = default;
    ~JsonError() override;

    /// Way from the outermost value to the broken one: `sets[3].elements[2]`.
    const std::string &place() const noexcept { return _place; }
    const std::string &reason() const noexcept { return _reason; }

    /// The same error, seen from the value that holds the place under this name or number.
    JsonError within(std::string_view outer) const;

private:
    std::string _place;
    std::string _reason;
};

/// Reads the members of a JSON object. A member that is missing or of another type raises a
/// `JsonError`; RapidJSON's own assertions are never reached.
///
///     const utils::JsonMembers set(value, "zarn::InstrumentSet::parse"); // raises for no object
///     std::string name(set.text("name"));
///     set.forEach("elements", [&](const rapidjson::Value &element, unsigned index) { ... });
///
/// Neither the object nor what is read outlives the document.
class ZARNCORE_EXPORT JsonMembers {
public:
    JsonMembers(const rapidjson::Value &object, const char *function);

    /// Null when there is no such member; the first when there are several.
    const rapidjson::Value *find(const char *name) const noexcept;

    std::string_view text(const char *name) const;
    /// Stands in for a member that is missing; one of another type still raises.
    std::string_view textOr(const char *name, std::string_view fallback) const;

    std::int32_t integer(const char *name) const;
    std::int32_t integerOr(const char *name, std::int32_t fallback) const;
    std::uint32_t count(const char *name) const;
    bool flagOr(const char *name, bool fallback) const;

    /// Elements of a member that is an array; 0 for any other.
    unsigned sizeOf(const char *name) const noexcept;

    /// Calls `read(const JsonMembers &)` for a member that is an object.
    template <typename Read>
    void object(const char *name, Read read) const
    {
        const JsonMembers members(member(name, &rapidjson::Value::IsObject, "object"), _function);
        at(name, [&] { read(members); });
    }

    /// Calls `read(const rapidjson::Value &, unsigned index)` for the elements of an array.
    template <typename Read>
    void forEach(const char *name, Read read) const
    {
        forEachIn(member(name, &rapidjson::Value::IsArray, "array"), name, _function, read);
    }

    /// The same for an array that is no member, such as the root of a document, under the name
    /// that it has in messages. Raises when the value is no array.
    template <typename Read>
    static void forEachIn(const rapidjson::Value &array, const char *name, const char *function,
                          Read read)
    {
        if (!array.IsArray())
            throw JsonError(name, "is no array", function);
        for (unsigned index = 0; index < array.Size(); ++index) {
            try {
                read(array[index], index);
            } catch (const JsonError &error) {
                throw error.within(name + ("[" + std::to_string(index) + "]"));
            }
        }
    }

    /// Raises about this object.
    [[noreturn]] void raise(const std::string &reason) const;

private:
    template <typename Read>
    static void at(const char *name, Read read)
    {
        try {
            read();
        } catch (const JsonError &error) {
            throw error.within(name);
        }
    }

    using Check = bool (rapidjson::Value::*)() const;
    const rapidjson::Value &member(const char *name, Check isRight, const char *kind) const;

    const rapidjson::Value &_object;
    const char *_function;
};

/// The whole number that a value is, such as an element of an array; raises a `JsonError`.
ZARNCORE_EXPORT std::int32_t jsonInteger(const rapidjson::Value &value, const char *function);

/// The text that a value is; raises a `JsonError`.
ZARNCORE_EXPORT std::string_view jsonText(const rapidjson::Value &value, const char *function);

} // namespace utils
