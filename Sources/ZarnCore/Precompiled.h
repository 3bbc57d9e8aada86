// SPDX-License-Identifier: MIT
// Headers that most files of the library use; never included by hand.
#pragma once

#include <QString>
#include <QStringList>
#include <algorithm>
#include <array>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>
