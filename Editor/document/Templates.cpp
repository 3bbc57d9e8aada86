// SPDX-License-Identifier: MIT
#include "document/Templates.h"

#include <ZarnCore/ZarnCore.h>
#include <ZarnCore/model/ZarnTrack.h>

namespace zarn::editor {
namespace {

constexpr int programCount = 128;
constexpr int drumKit = -1;
constexpr unsigned drumKitKey = 35;

std::shared_ptr<Track> find(int program)
{
    const Core &core = Core::instance();
    return program == drumKit ? core.findGMPercussion(drumKitKey)
                              : core.findGMInstrument(static_cast<unsigned>(program));
}

} // namespace

const std::vector<TrackTemplate> &trackTemplates()
{
    static const std::vector<TrackTemplate> all = [] {
        std::vector<TrackTemplate> list;
        for (int number = 0; number <= programCount; ++number) {
            const int program = number < programCount ? number : drumKit;
            if (const auto track = find(program))
                list.push_back({QString::fromStdString(track->name()), program});
        }
        return list;
    }();
    return all;
}

std::shared_ptr<Track> makeTrack(const TrackTemplate &made)
{
    const auto track = find(made.program);
    return track != nullptr ? track->clone() : nullptr;
}

} // namespace zarn::editor
