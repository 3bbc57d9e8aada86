// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>

namespace zarn {

class AutomationContainer;

/// A change of one playback parameter at a place of the score.
///
/// Made detached and handed to an `AutomationContainer`, which owns it from then on. A copy is
/// detached.
class ZARNCORE_EXPORT Automation {
public:
    // The order is the numbering.
    // clang-format off
    enum Type : std::uint32_t {
        Unknown = 0,
        DSPParam_00 = 256, DSPParam_01, DSPParam_02, DSPParam_03, DSPParam_04, DSPParam_05,
        DSPParam_06, DSPParam_07, DSPParam_08, DSPParam_09, DSPParam_10, DSPParam_11,
        DSPParam_12, DSPParam_13, DSPParam_14, DSPParam_15, DSPParam_16, DSPParam_17,
        DSPParam_18, DSPParam_19, DSPParam_20, DSPParam_21, DSPParam_22, DSPParam_23,
        DSPParam_24, DSPParam_25, DSPParam_26, DSPParam_27, DSPParam_28, DSPParam_29,
        DSPParam_30, DSPParam_31,
        Tempo = 512,
        Sound = 1024,
    };
    // clang-format on

    /// Number of slots that a container keeps automations in.
    static constexpr unsigned automationTypeCount = 35;

    /// How many automations are alive in the process.
    static std::atomic<int> AutomationInstanceCount;

    explicit Automation(Type type);
    Automation(const Automation &other);
    Automation &operator=(const Automation &) = delete;

    virtual ~Automation();

    /// Same class, type, shape, value, text and visibility, and what the class adds; at any place.
    virtual bool equals(const Automation &other) const;

    /// A detached copy.
    virtual std::unique_ptr<Automation> cloneAutomation() const;

    /// Steps, start of bar 0, value 0, no text; visibility stays.
    virtual void reset();

    /// The value as a text that `valueFromString` reads back.
    virtual std::string valueToString() const;

    /// False, and nothing changes, for a text that is no value.
    virtual bool valueFromString(const std::string &text);

    /// A new automation of the class that belongs to the type; a plain one for unknown types.
    static std::unique_ptr<Automation> create(Type type);

    Type type() const noexcept { return _type; }

    /// Slot of this automation's type.
    unsigned idType() const noexcept { return typeId(_type); }

    /// Container that owns this automation; null while detached.
    AutomationContainer *parent() const noexcept { return _parent; }

    /// For containers alone; to move an automation, insert it somewhere else.
    void setParent(AutomationContainer *parent) noexcept { _parent = parent; }

    /// Whether the value slides on to the next automation of the type; otherwise it steps.
    bool isLinear() const noexcept { return _linear; }
    void setLinear(bool linear) noexcept { _linear = linear; }

    /// Index of the bar. Changing the place moves an automation inside its container, but does
    /// not replace one that stands there: inserting it again does.
    std::uint32_t index() const noexcept { return _index; }
    void setIndex(std::uint32_t index);

    /// Quarters from the start of the bar. Raises a `CoreException` for what is no number.
    float position() const noexcept { return _position; }
    void setPosition(float position);

    float value() const noexcept { return _value; }
    void setValue(float value) noexcept { _value = value; }

    /// What stands in the score beside the change, such as "Allegro".
    const std::string &text() const noexcept { return _text; }
    void setText(const std::string &text) { _text = text; }

    /// Whether the score shows the change.
    bool isVisible() const noexcept { return _visible; }
    void setVisible(bool visible) noexcept { _visible = visible; }

    /// Neighbours of the same type in the container; null at the ends and while detached.
    Automation *nextAutomation() const;
    Automation *previousAutomation() const;

    /// "DSPParam_00" to "DSPParam_31", "Tempo", "Sound"; "Unknown" for any other type.
    static std::string typeToString(Type type);

    /// The type of one of these texts in upper case; `Unknown` for any other text.
    static Type typeFromString(const std::string &text);

    /// Slot of a type: 1 to 32 for the effect parameters, 33 tempo, 34 sound, 0 for all others.
    static unsigned typeId(Type type) noexcept;

    /// Type of a slot; `Unknown` for slot 0 and past the last.
    static Type idType(unsigned slot) noexcept;

private:
    friend class AutomationContainer;
    friend class AutomationSlot;

    void moveTo(std::uint32_t index, float position);

    AutomationContainer *_parent = nullptr;
    Type _type;
    bool _linear = false;
    std::uint32_t _index = 0;
    float _position = 0;
    float _value = 0;
    std::string _text;
    bool _visible = true;
    /// Where the container keeps its ownership of this automation.
    std::size_t _ownedAt = 0;
};

/// By bar, then by position; automations at the same place are equal for this order.
ZARNCORE_EXPORT bool operator<(const Automation &a, const Automation &b) noexcept;

} // namespace zarn
