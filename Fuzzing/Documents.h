// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <string>
#include <string_view>

namespace zarn {
class ScoreModel;
namespace io {
class Importer;
class ImportReport;
} // namespace io
} // namespace zarn

namespace fuzz {

/// Reads bytes as a file of this name; null when the importer refused them as it promises: with an
/// `ImportException` that names the document, the place and the reason.
std::shared_ptr<zarn::ScoreModel> readDocument(const zarn::io::Importer &importer,
                                               const std::string &name, std::string_view bytes,
                                               zarn::io::ImportReport &report);

/// The laws of a model that was read from outside: written as a native document it is read back as
/// an equal one, which gives the same bytes; and whatever asks about it gets an answer.
void expectToComeBack(const zarn::ScoreModel &model);
void expectToBeUsable(const zarn::ScoreModel &model);

/// No rule of the tree is broken.
void expectToBeSound(const zarn::ScoreModel &model);

} // namespace fuzz
