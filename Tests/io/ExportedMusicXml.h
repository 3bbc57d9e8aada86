// SPDX-License-Identifier: MIT
#pragma once

#include "MusicXmlText.h"

#include "../support/NativeDocument.h"

#include <ZarnCore/io/ZarnExportReport.h>
#include <ZarnCore/io/ZarnMusicXmlExporter.h>
#include <ZarnCore/model/ZarnScoreModel.h>

#include <gtest/gtest.h>

#include <pugixml.hpp>

/// What the tests of the MusicXML export share: small documents, and how they are written.
namespace musicxml {

inline std::string exported(const zarn::ScoreModel &model)
{
    zarn::io::ExportReport report;
    return zarn::io::MusicXmlExporter().toText(model, report);
}

inline std::shared_ptr<zarn::ScoreModel> readFrom(const std::string &text)
{
    zarn::io::ImportReport report;
    return import(text, report);
}

/// The export of a score that is written as MusicXML here.
class Exported {
public:
    explicit Exported(const zarn::ScoreModel &model) : _text(exported(model))
    {
        _document.load_string(_text.c_str());
    }
    explicit Exported(const std::string &measures, const std::string &listed = {})
        : Exported(*readFrom(score(measures, listed)))
    {
    }

    const std::string &text() const { return _text; }
    std::size_t count(const std::string &path) const
    {
        return _document.select_nodes(path.c_str()).size();
    }
    bool has(const std::string &path) const { return count(path) > 0; }

    /// The texts of all nodes of a path, with spaces between them.
    std::string all(const std::string &path) const
    {
        std::string texts;
        for (const auto &found : _document.select_nodes(path.c_str())) {
            const std::string text =
                found.node() ? found.node().text().get() : found.attribute().value();
            texts += (texts.empty() ? "" : " ") + text;
        }
        return texts;
    }

private:
    std::string _text;
    pugi::xml_document _document;
};

inline std::string quarters(int divisions, const std::string &content)
{
    return measure(attributes("<divisions>" + std::to_string(divisions) + "</divisions>")
                   + content);
}

inline std::string notated(const std::string &notations, const char *step = "C")
{
    return note(step, 4, 1, "quarter</type><notations>" + notations + "</notations><type>quarter");
}

inline std::string tuplet(const char *step, int actual, int normal, const std::string &ends = {})
{
    return "<note><pitch><step>" + std::string(step)
        + "</step><octave>4</octave></pitch><duration>4</duration><type>eighth</type>"
          "<time-modification><actual-notes>"
        + std::to_string(actual) + "</actual-notes><normal-notes>" + std::to_string(normal)
        + "</normal-notes></time-modification>"
        + (ends.empty() ? "" : "<notations>" + ends + "</notations>") + "</note>";
}

/// The export of a document, which is read again as the same score.
inline std::string exportedWhole(const std::string &measures, const char *path,
                                 const std::string &listed = {})
{
    const auto model = readFrom(score(measures, listed));
    const Exported written(*model);
    EXPECT_EQ(test::writeNative(*readFrom(written.text())), test::writeNative(*model)) << path;
    return written.all(path);
}

} // namespace musicxml
