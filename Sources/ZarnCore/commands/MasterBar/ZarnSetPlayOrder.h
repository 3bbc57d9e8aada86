// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/ZarnSetAttribute.h>

namespace zarn {

/// Sets an attribute of neighbouring master bars that decides about the order of playing: brings
/// the play list up to date, and sends `RequestMasterBarPlaylistUpdate` behind the other event.
template <auto Get, auto Set, class Event>
class SetPlayOrder : public SetOnMasterBars<Get, Set, Event> {
protected:
    using SetOnMasterBars<Get, Set, Event>::SetOnMasterBars;

private:
    void settle() override { this->model().masterTrack()->updatePlayList(); }

    void announce() override
    {
        SetOnMasterBars<Get, Set, Event>::announce();
        this->score().notify(this, evt::RequestMasterBarPlaylistUpdate());
    }
};

} // namespace zarn
