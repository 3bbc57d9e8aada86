// SPDX-License-Identifier: MIT
// Another library of the same process that uses the core, as a plug-in does.
#include "SecondLibrary.h"

#include <ZarnCore/ZarnCore.h>
#include <ZarnCore/ZarnLog.h>
#include <ZarnCore/instruments/sets/ZarnInstrumentSetLibrary.h>
#include <ZarnCore/utils/SignalContainer.h>

std::vector<const void *> addressesSeenByTheSecondLibrary()
{
    return {&zarn::Core::instance(), &zarn::log::core(), &zarn::log::soundfonts(),
            &utils::SignalContainerBase::priorityMap(), zarn::InstrumentSetLibrary::installed()};
}
