// SPDX-License-Identifier: MIT
#pragma once

namespace zarn {
class ScoreModel;
}

namespace zarn::io {

class ExportReport;
class XmlSink;

/// Writes a model as a MusicXML 4.0 document, partwise. What MusicXML has no word for stands in
/// the report. The same model gives the same bytes. Raises for a score without tracks or bars
/// before anything is written.
void writeScore(const ScoreModel &model, XmlSink &sink, ExportReport &report);

} // namespace zarn::io
