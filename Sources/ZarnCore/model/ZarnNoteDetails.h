// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/model/attributes/ZarnBend.h>

namespace zarn {

/// What few notes have: held apart from them, and only where there is any.
struct NoteDetails {
    Bend bend;

    friend bool operator==(const NoteDetails &left, const NoteDetails &right) noexcept
    {
        return left.bend == right.bend;
    }
    friend bool operator!=(const NoteDetails &left, const NoteDetails &right) noexcept
    {
        return !(left == right);
    }
};

} // namespace zarn
