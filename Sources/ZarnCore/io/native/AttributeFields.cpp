// SPDX-License-Identifier: MIT
#include <ZarnCore/io/native/AttributeFields.h>

namespace zarn::io::native {

void writeAttribute(DocumentWriter &writer, const AttributeRange &range,
                    const AttributeValue &value)
{
    const AttributeValue::Held &held = value.held();
    if (!range.contains(value))
        throw Misfit{{}, range.toText(value) + " is not " + range.description()};
    const int *const number = std::get_if<int>(&held);
    if (const bool *const flag = std::get_if<bool>(&held))
        writer.Bool(*flag);
    else if (const double *const real = std::get_if<double>(&held))
        writer.real(static_cast<float>(*real));
    else if (number != nullptr
             && (range.texts == nullptr
                 || range.texts()[static_cast<std::size_t>(*number)].empty()))
        writer.Int64(*number);
    else
        writer.text(range.toText(value));
}

AttributeValue readAttribute(DocumentReader &reader, const Json &json, const AttributeRange &range)
{
    std::optional<AttributeValue> value;
    const AttributeValue::Held &kind = range.sample().held();
    const bool isNumber = std::holds_alternative<int>(kind);
    if (std::holds_alternative<bool>(kind) && json.isBool()) {
        value = json.boolean();
    } else if (std::holds_alternative<double>(kind) && json.isNumber()) {
        value = json.number();
    } else if (isNumber && json.isWhole() && json.whole() >= range.lowest
               && json.whole() <= range.highest) {
        const auto number = static_cast<int>(json.whole());
        if (range.texts == nullptr || range.texts()[static_cast<std::size_t>(number)].empty())
            value = number;
    } else if (json.isText()) {
        // Only what is written is read: each value in one way.
        value = range.fromText(json.text());
        if (value && range.toText(*value) != json.text())
            value.reset();
    }
    if (!value || !range.contains(*value))
        reader.refuseKind(range.description(), json);
    return *value;
}

} // namespace zarn::io::native
