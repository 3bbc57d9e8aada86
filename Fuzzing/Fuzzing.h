// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <string>
#include <string_view>

/// What the fuzzers share. Each program of `harnesses/` feeds inputs to one part of the library and
/// holds it to laws: a crash is a fault, and so is a broken law or an exception that is no answer.
namespace fuzz {

/// Defined by each harness: tries one input. Whatever it raises is a fault.
void check(std::string_view input);

/// Ends the process with the law and what was seen, so that nothing on the way can swallow it.
[[noreturn]] void breakLaw(const std::string &law, const std::string &seen = {});

inline void expect(bool holds, const char *law)
{
    if (!holds)
        breakLaw(law);
}

/// Shows where the texts part.
void expectEqual(std::string_view expected, std::string_view found, const char *law);

/// Runs what may be refused with a `CoreException` that says why; true when it was not refused.
/// Other exceptions pass.
bool isAccepted(const std::function<void()> &act);

} // namespace fuzz
