// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/io/ZarnExporter.h>

namespace zarn::io {

/// Writes scores as texts that players read and post, in UTF-8, suffixes "tab" and "txt": fretted
/// tracks as tablature, drums as a grid, all others as note names, one track below the other.
class ZARNCORE_EXPORT TextExporter final : public Exporter {
public:
    /// Whether letters for the rhythm stand over the strings.
    enum class TabRhythm { Hidden, Shown };

    static constexpr int UsualWidth = 80;

    /// Lines are broken at `width` columns, 20 at least.
    explicit TextExporter(TabRhythm rhythm = TabRhythm::Hidden, int width = UsualWidth) noexcept;
    ~TextExporter() override;

    using Exporter::write;
    std::string description() const override;
    std::list<std::string> extensions() const override;
    void write(const ScoreModel &model, filesystem::FileHandle &handle,
               ExportReport &report) const override;

    std::string toText(const ScoreModel &model) const;

private:
    TabRhythm _rhythm;
    int _width;
};

} // namespace zarn::io
