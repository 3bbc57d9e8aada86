// SPDX-License-Identifier: MIT
#include "Fuzzing.h"

#include <ZarnCore/ZarnException.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>

namespace fuzz {

void breakLaw(const std::string &law, const std::string &seen)
{
    std::fprintf(stderr, "BROKEN LAW: %s%s%s\n", law.c_str(), seen.empty() ? "" : "\n  ",
                 seen.c_str());
    std::abort();
}

void expectEqual(std::string_view expected, std::string_view found, const char *law)
{
    if (expected == found)
        return;
    const auto at = static_cast<std::size_t>(
        std::mismatch(expected.begin(), expected.end(), found.begin(), found.end()).first
        - expected.begin());
    const std::size_t from = at < 60 ? 0 : at - 60;
    breakLaw(law,
             "at byte " + std::to_string(at) + " there should be\n  "
                 + std::string(expected.substr(std::min(from, expected.size()), 160))
                 + "\n  and there is\n  "
                 + std::string(found.substr(std::min(from, found.size()), 160)));
}

bool isAccepted(const std::function<void()> &act)
{
    try {
        act();
        return true;
    } catch (const zarn::CoreException &error) {
        if (error.message().empty())
            breakLaw("a refusal says why", error.what());
        return false;
    }
}

} // namespace fuzz
