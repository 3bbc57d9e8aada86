// SPDX-License-Identifier: MIT
#include <ZarnCore/fingering/ZarnStaffFrets.h>

#include <ZarnCore/model/ZarnStaff.h>
#include <ZarnCore/model/notes/ZarnFretting.h>

#include <algorithm>

namespace zarn::fingering {

StaffFrets::StaffFrets(const Staff &staff)
    : _strings(std::min<std::size_t>(staff.tuning().stringCount(), MostStrings)),
      _hasDrone(staff.hasShortDroneString())
{
    constexpr unsigned mostFrets = 127;
    const unsigned fretCount = std::min(staff.fretCount(), mostFrets);
    const auto &partial = staff.partialCapoStringFlags();
    for (unsigned number = 0; number < _strings.size(); ++number) {
        String &string = _strings[number];
        string.frets.fill(-1);
        string.pitches.fill(-1);
        for (unsigned fret = fretCount + 1; fret-- > 0;) {
            const int pitch = writtenPitch(staff, static_cast<int>(number), static_cast<int>(fret));
            string.pitches[fret] = static_cast<std::int8_t>(pitch);
            if (pitch >= 0)
                string.frets[static_cast<std::size_t>(pitch)] = static_cast<std::int8_t>(fret);
        }
        const bool isHeld = number < partial.size() && partial[number];
        const unsigned above = isHeld && staff.partialCapoFret() > staff.capoFret()
            ? staff.partialCapoFret() - staff.capoFret()
            : 0;
        string.capo = static_cast<std::int8_t>(std::min(above, mostFrets));
    }
}

int StaffFrets::fret(int string, int midi) const noexcept
{
    if (string < 0 || string >= stringCount() || midi < 0 || midi >= KeyCount)
        return -1;
    return _strings[static_cast<std::size_t>(string)].frets[static_cast<std::size_t>(midi)];
}

int StaffFrets::pitch(int string, int fret) const noexcept
{
    if (string < 0 || string >= stringCount() || fret < 0 || fret >= KeyCount)
        return -1;
    return _strings[static_cast<std::size_t>(string)].pitches[static_cast<std::size_t>(fret)];
}

int StaffFrets::neckFret(int string, int fret) const noexcept
{
    return fret <= 0 ? 0 : fret + _strings[static_cast<std::size_t>(string)].capo;
}

} // namespace zarn::fingering
