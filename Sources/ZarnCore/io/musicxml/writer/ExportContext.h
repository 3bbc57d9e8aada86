// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/io/ZarnExportReport.h>
#include <ZarnCore/io/musicxml/writer/XmlElement.h>

#include <string>

namespace zarn::io {

/// Where the writing stands, and the way to the report from there.
class ExportContext {
public:
    explicit ExportContext(ExportReport &report) : _report(report) { }

    /// Track and bar of what is written next, counted from 0; -1 for none.
    void setPlace(int track, int bar) noexcept { _place = {track, bar}; }
    int track() const noexcept { return _place.part; }
    int bar() const noexcept { return _place.bar; }

    /// Something that MusicXML has no word for, by its kind: "whammy bar".
    void addUnheld(const std::string &kind) { _report.addUnheld(kind, _place); }
    void addUnheldIf(bool isThere, const char *kind)
    {
        if (isThere)
            addUnheld(kind);
    }

    void addProblem(const std::string &text)
    {
        _report.addProblem({text, _place.part, _place.bar});
    }

    /// A text as XML can hold it, and as readers take it; the report tells when that is less.
    std::string text(const std::string &text)
    {
        auto held = xmlText(text);
        if (held.size() != text.size())
            addProblem("characters that XML cannot hold were left out of a text");
        if (trimXmlSpace(held))
            addProblem("white space around a text was left out");
        return held;
    }

private:
    ExportReport &_report;
    FormatPlace _place;
};

} // namespace zarn::io
