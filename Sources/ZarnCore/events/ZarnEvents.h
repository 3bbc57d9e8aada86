// SPDX-License-Identifier: MIT
#pragma once

/// All events of a score. An event says what changed and where, in coordinates that hold once the
/// change is done; it is sent inside the command that changes, under the command stack's lock. Undo
/// sends what undo did: the opposite event where there is one, else the same event again with old
/// and new exchanged.

#include <ZarnCore/events/ZarnAutomationEvents.h>
#include <ZarnCore/events/ZarnBarEvents.h>
#include <ZarnCore/events/ZarnCommandEvents.h>
#include <ZarnCore/events/ZarnEffectEvents.h>
#include <ZarnCore/events/ZarnMasterBarEvents.h>
#include <ZarnCore/events/ZarnScoreEvents.h>
#include <ZarnCore/events/ZarnScoreViewEvents.h>
#include <ZarnCore/events/ZarnSoundEvents.h>
#include <ZarnCore/events/ZarnTrackEvents.h>
