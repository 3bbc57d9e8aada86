// SPDX-License-Identifier: MIT
#include <ZarnCore/io/ZarnExporter.h>

namespace zarn::io {

Exporter::~Exporter() = default;

} // namespace zarn::io
