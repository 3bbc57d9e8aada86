// SPDX-License-Identifier: MIT
// Headers that most tests use; never included by hand.
#pragma once

#include <QString>
#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <vector>
