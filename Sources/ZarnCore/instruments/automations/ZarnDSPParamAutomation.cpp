// SPDX-License-Identifier: MIT
#include <ZarnCore/instruments/automations/ZarnDSPParamAutomation.h>

#include <ZarnCore/ZarnAssert.h>

namespace zarn {

DSPParamAutomation::DSPParamAutomation(Type type) : Automation(type)
{
    ZARN_ASSERT_IN("zarn::DSPParamAutomation::DSPParamAutomation",
                   type >= DSPParam_00 && type <= DSPParam_31);
}

DSPParamAutomation::~DSPParamAutomation() = default;

std::unique_ptr<Automation> DSPParamAutomation::cloneAutomation() const
{
    return std::make_unique<DSPParamAutomation>(*this);
}

} // namespace zarn
