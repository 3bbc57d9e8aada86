// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/instruments/automations/ZarnAutomation.h>

namespace zarn {

/// A change of one of the 32 effect parameters, which its type names.
class ZARNCORE_EXPORT DSPParamAutomation : public Automation {
public:
    /// Raises a `CoreException` for a type that is no effect parameter.
    explicit DSPParamAutomation(Type type = DSPParam_00);
    DSPParamAutomation(const DSPParamAutomation &other) = default;
    ~DSPParamAutomation() override;

    std::unique_ptr<Automation> cloneAutomation() const override;

    /// 256 for every effect parameter: the type without its number. The number of the parameter
    /// is `type() - DSPParam_00`.
    std::uint32_t parameterId() const noexcept { return type() & DSPParam_00; }
};

} // namespace zarn
