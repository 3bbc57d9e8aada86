// SPDX-License-Identifier: MIT
#include <ZarnLayout/export/ZarnLayoutDump.h>

#include <ZarnLayout/draw/ZarnDrawListBuilder.h>
#include <ZarnLayout/draw/ZarnPolygons.h>

#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>

#include <set>

namespace zarn::layout {
namespace {

class Dump {
public:
    explicit Dump(const Layout &layout) : _layout(layout) { _json.SetMaxDecimalPlaces(6); }

    std::string write()
    {
        _json.StartObject();
        number("staffSpace", _layout.staffSpace() / 1000.0);
        text("font", _layout.font().fontName());
        text("title", _layout.title());
        _json.Key("pages");
        _json.StartArray();
        for (const LayoutPage &page : _layout.pages())
            writePage(page);
        _json.EndArray();
        _json.Key("marks");
        _json.StartArray();
        writeMarks();
        _json.EndArray();
        _json.Key("glyphs");
        _json.StartObject();
        for (const GlyphId glyph : _glyphs)
            writeGlyph(glyph);
        _json.EndObject();
        _json.Key("problems");
        _json.StartArray();
        for (const LayoutProblem &problem : _layout.problems()) {
            _json.StartObject();
            place(problem.place);
            text("message", problem.message);
            _json.EndObject();
        }
        _json.EndArray();
        _json.EndObject();
        return {_buffer.GetString(), _buffer.GetSize()};
    }

private:
    void number(const char *name, double value)
    {
        _json.Key(name);
        _json.Double(value);
    }
    void integer(const char *name, std::int64_t value)
    {
        _json.Key(name);
        _json.Int64(value);
    }
    void text(const char *name, std::string_view value)
    {
        _json.Key(name);
        _json.String(value.data(), static_cast<rapidjson::SizeType>(value.size()));
    }
    void numbers(const char *name, std::initializer_list<std::int64_t> values)
    {
        _json.Key(name);
        _json.StartArray();
        for (const std::int64_t value : values)
            _json.Int64(value);
        _json.EndArray();
    }
    void place(const DrawPlace &place)
    {
        numbers("place",
                {place.track, place.bar, place.staff, place.voice, place.beat, place.note});
    }
    void polygons(const std::vector<Polygon> &polygons, Point offset)
    {
        _json.Key("ink");
        _json.StartArray();
        for (const Polygon &polygon : polygons) {
            _json.StartArray();
            for (const Point &point : polygon) {
                _json.Int(point.x + offset.x);
                _json.Int(point.y + offset.y);
            }
            _json.EndArray();
        }
        _json.EndArray();
    }

    void writePage(const LayoutPage &page)
    {
        _json.StartObject();
        number("width", page.width / 1000.0);
        number("height", page.height / 1000.0);
        _json.Key("margins");
        _json.StartObject();
        number("left", page.leftMargin / 1000.0);
        number("top", page.topMargin / 1000.0);
        number("right", page.rightMargin / 1000.0);
        number("bottom", page.bottomMargin / 1000.0);
        _json.EndObject();
        _json.Key("systems");
        _json.StartArray();
        for (const PlacedSystem &system : page.systems)
            writeSystem(system);
        _json.EndArray();
        _json.EndObject();
    }

    void writeSystem(const PlacedSystem &system)
    {
        const Point at = system.at;
        _json.StartObject();
        numbers("at", {at.x, at.y});
        _json.Key("staves");
        _json.StartArray();
        for (const StaffFrame &staff : system.drawing->staves) {
            static constexpr const char *kinds[] = {"notation", "tablature", "slash", "percussion"};
            _json.StartObject();
            integer("track", staff.track);
            integer("staff", staff.staff);
            text("kind", kinds[static_cast<std::size_t>(staff.kind)]);
            integer("lines", staff.lineCount);
            integer("top", staff.top + at.y);
            integer("bottom", staff.bottom + at.y);
            _json.EndObject();
        }
        _json.EndArray();
        _json.Key("bars");
        _json.StartArray();
        for (const BarFrame &bar : system.drawing->bars) {
            _json.StartObject();
            integer("first", bar.firstBar);
            integer("count", bar.barCount);
            integer("left", bar.left + at.x);
            integer("right", bar.right + at.x);
            _json.Key("columns");
            _json.StartArray();
            for (const ColumnFrame &column : bar.columns) {
                _json.StartArray();
                _json.Int64(column.offset.numerator());
                _json.Int64(column.offset.denominator());
                _json.Int(column.x + at.x);
                _json.EndArray();
            }
            _json.EndArray();
            _json.EndObject();
        }
        _json.EndArray();
        _json.EndObject();
    }

    void writeMarks()
    {
        int pageIndex = 0;
        for (const LayoutPage &page : _layout.pages()) {
            if (page.marks != nullptr)
                writeList(*page.marks, pageIndex, -1, {});
            int systemIndex = 0;
            for (const PlacedSystem &system : page.systems)
                writeList(system.drawing->marks, pageIndex, systemIndex++, system.at);
            ++pageIndex;
        }
    }

    void writeList(const DrawList &list, int page, int system, Point offset)
    {
        for (const DrawMark &mark : list.marks()) {
            _json.StartObject();
            integer("page", page);
            integer("system", system);
            text("kind", markKindText(mark.kind));
            writeShape(list, mark, offset);
            place(mark.place);
            const Box box = list.box(mark, _layout.font()).movedBy(offset);
            numbers("box", {box.left, box.top, box.right, box.bottom});
            _json.EndObject();
        }
    }

    void writeShape(const DrawList &list, const DrawMark &mark, Point offset)
    {
        switch (mark.shape) {
        case MarkShape::Glyph:
            text("shape", "glyph");
            text("glyph", _layout.font().name(mark.glyph));
            numbers("at", {mark.at.x + offset.x, mark.at.y + offset.y});
            if (mark.to != GlyphForm().scale)
                numbers("scale", {mark.to.x, mark.to.y});
            if (mark.detail != 0)
                integer("turns", mark.detail);
            _glyphs.insert(mark.glyph);
            break;
        case MarkShape::Line:
            text("shape", "line");
            numbers("at", {mark.at.x + offset.x, mark.at.y + offset.y});
            numbers("to", {mark.to.x + offset.x, mark.to.y + offset.y});
            integer("thickness", mark.thickness);
            break;
        case MarkShape::Path:
            text("shape", "path");
            if (mark.thickness != 0)
                integer("thickness", mark.thickness);
            polygons(polygonsOf(list, mark), offset);
            break;
        case MarkShape::Text:
            text("shape", "text");
            text("text", list.characters(mark));
            integer("size", list.textOf(mark).style.size);
            integer("face", static_cast<int>(list.textOf(mark).style.face));
            numbers("at", {mark.at.x + offset.x, mark.at.y + offset.y});
            break;
        }
    }

    void writeGlyph(GlyphId glyph)
    {
        const std::string &name = _layout.font().name(glyph);
        _json.Key(name.data(), static_cast<rapidjson::SizeType>(name.size()));
        _json.StartObject();
        integer("codePoint", _layout.font().codePoint(glyph));
        polygons(polygonsOf(_layout.font(), glyph), {});
        _json.EndObject();
    }

    const Layout &_layout;
    rapidjson::StringBuffer _buffer;
    rapidjson::Writer<rapidjson::StringBuffer> _json{_buffer};
    std::set<GlyphId> _glyphs;
};

} // namespace

std::string layoutDump(const Layout &layout)
{
    return Dump(layout).write();
}

} // namespace zarn::layout
