// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnLayout/draw/ZarnDrawListBuilder.h>
#include <ZarnLayout/engrave/Fonts.h>
#include <ZarnLayout/engrave/Ink.h>
#include <ZarnLayout/engrave/Problems.h>

namespace zarn::engraving {

/// Writes marks into a draw list.
class Emitter {
public:
    /// Texts that the font cannot set are told.
    Emitter(layout::DrawListBuilder &builder, const Fonts &fonts, Problems &problems)
        : _builder(builder), _fonts(fonts), _problems(problems)
    {
    }

    void emit(const Inks &inks, double x, double y) const
    {
        for (const Ink &ink : inks)
            emit(ink, x, y);
    }
    void emit(const Ink &ink, double x, double y) const;

private:
    void emitCurve(const Ink &ink, double x, double y) const;
    void emitDashes(const Ink &ink, double x, double y) const;

    layout::DrawListBuilder &_builder;
    const Fonts &_fonts;
    Problems &_problems;
};

} // namespace zarn::engraving
