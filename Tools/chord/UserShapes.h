// SPDX-License-Identifier: MIT
#pragma once

#include "common/Arguments.h"

#include <ZarnCore/instruments/tunings/ZarnGuitarTuning.h>

#include <vector>

namespace zarn::tool {

class Terminal;

/// What a person does to chord shapes of his own: --add and --remove, for the strings that --tuning
/// names, and --shapes, which lists those for all strings.
class UserShapes {
public:
    static std::vector<Option> options();
    static bool isAskedFor(const Arguments &arguments);

    /// Raises `UsageError` for words that do not go together, and `Failure` for a tuning that is
    /// none.
    explicit UserShapes(const Arguments &arguments);

    /// Raises `Failure` for a chord or a shape that is none, one that is there already, or is not.
    int run(const Terminal &terminal) const;

private:
    int add(const Terminal &terminal) const;
    int remove() const;
    static int list(const Terminal &terminal);

    const Arguments &_arguments;
    GuitarTuning _tuning;
};

} // namespace zarn::tool
