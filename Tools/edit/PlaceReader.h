// SPDX-License-Identifier: MIT
#pragma once

#include "edit/Parameter.h"

#include <optional>

namespace zarn::tool {

// Readers of places in a score, by `Kind`. Each answers nothing for a word that is no place of its
// kind, and raises `LineError` for a place that does not exist.

/// A number typed from 1 as an index from 0, checked against a count.
unsigned readPlace(const QString &text, const Word &word, const char *thing, unsigned count);

/// The number of things that a place in a context can name.
unsigned barCount(const ReadingContext &context);
unsigned staffCount(const ReadingContext &context);

std::optional<Value> readBar(const Parameter &, const Word &word, const ReadingContext &context);
std::optional<Value> readBarGap(const Parameter &, const Word &word, const ReadingContext &context);
std::optional<Value> readBars(const Parameter &, const Word &word, const ReadingContext &context);
std::optional<Value> readBeat(const Parameter &, const Word &word, const ReadingContext &context);
std::optional<Value> readNewBeat(const Parameter &, const Word &word,
                                 const ReadingContext &context);
std::optional<Value> readBeats(const Parameter &, const Word &word, const ReadingContext &context);
std::optional<Value> readTrack(const Parameter &, const Word &word, const ReadingContext &context);
std::optional<Value> readTrackGap(const Parameter &, const Word &word,
                                  const ReadingContext &context);
std::optional<Value> readStrip(const Parameter &, const Word &word, const ReadingContext &context);
std::optional<Value> readString(const Parameter &, const Word &word, const ReadingContext &context);

} // namespace zarn::tool
