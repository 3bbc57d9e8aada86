// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/io/musicxml/writer/XmlElement.h>
#include <ZarnCore/utils/rational.h>

#include <cstdint>
#include <vector>

namespace zarn::io {

/// The measure that is written, and the time that its elements have come to.
///
/// What stands at a time and not at a note waits here until the first voice comes past.
class MeasureCursor {
public:
    void start(pugi::xml_node measure, std::int64_t divisions);

    pugi::xml_node measure() const noexcept { return _measure; }
    const utils::rational &now() const noexcept { return _now; }

    pugi::xml_node add(const char *name) { return addElement(_measure, name); }

    /// Goes on by a length that is about to be written; returns it in divisions. Where these are
    /// too coarse the end is rounded, so that roundings do not add up.
    std::int64_t advance(const utils::rational &length);

    /// What the last length came to.
    std::int64_t lastDuration() const noexcept { return _lastDuration; }

    /// Goes to a time by <backup> or <forward>.
    void moveTo(const utils::rational &time);

    /// An element that stands at a time, to be filled by the caller; those of one time keep their
    /// order.
    pugi::xml_node addAt(const utils::rational &time, const char *name);

    /// The latest time that something waits for; 0 when nothing does.
    utils::rational latest() const { return _waiting.empty() ? 0 : _waiting.back().time; }

    /// Puts in what waits for a time up to this one, each at its own; without a time all of it.
    void passTo(const utils::rational &time);
    void passAll();

private:
    struct Waiting {
        utils::rational time;
        pugi::xml_node node;
    };

    void put(std::size_t count);
    std::int64_t inDivisions(const utils::rational &time) const;

    pugi::xml_node _measure;
    pugi::xml_node _room; ///< where elements wait, beside the measure
    std::int64_t _divisions = 1;
    utils::rational _now;
    std::int64_t _written = 0; ///< the same in divisions
    std::int64_t _lastDuration = 0;
    std::vector<Waiting> _waiting; ///< sorted
};

} // namespace zarn::io
