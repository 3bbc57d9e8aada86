// SPDX-License-Identifier: MIT
// Does nothing but parse a score with pugixml, unpacking it first where it is packed: what
// `info_against_pugixml.py` measures `zarn info` against.
#include <pugixml.hpp>
#include <zip.h>

#include <cstdio>
#include <fstream>
#include <iterator>
#include <memory>
#include <string>

namespace {

struct Close {
    void operator()(zip_t *zip) const { zip_discard(zip); }
    void operator()(zip_file_t *file) const { zip_fclose(file); }
};

bool isScore(const std::string &name)
{
    const auto dot = name.rfind('.');
    const auto suffix = dot == name.npos ? std::string() : name.substr(dot);
    return (suffix == ".xml" || suffix == ".musicxml") && name.compare(0, 9, "META-INF/") != 0;
}

/// The first score of an archive; empty when there is none.
std::string unpacked(const char *path)
{
    std::string text;
    const std::unique_ptr<zip_t, Close> zip(zip_open(path, ZIP_RDONLY, nullptr));
    const auto count = zip ? zip_get_num_entries(zip.get(), 0) : 0;
    for (zip_int64_t i = 0; i < count; ++i) {
        zip_stat_t stat;
        const auto index = static_cast<zip_uint64_t>(i);
        if (zip_stat_index(zip.get(), index, 0, &stat) != 0 || !isScore(stat.name))
            continue;
        text.resize(stat.size);
        const std::unique_ptr<zip_file_t, Close> file(zip_fopen_index(zip.get(), index, 0));
        if (file && zip_fread(file.get(), &text[0], stat.size) >= 0)
            return text;
    }
    return {};
}

std::string content(const char *path)
{
    std::ifstream file(path, std::ios::binary);
    std::string bytes{std::istreambuf_iterator<char>(file), {}};
    return bytes.compare(0, 2, "PK") == 0 ? unpacked(path) : bytes;
}

} // namespace

int main(int argc, char **argv)
{
    for (int i = 1; i < argc; ++i) {
        auto text = content(argv[i]);
        pugi::xml_document document;
        if (!document.load_buffer_inplace(&text[0], text.size())) {
            std::fprintf(stderr, "pugixmlparse: %s cannot be parsed\n", argv[i]);
            return 1;
        }
    }
    return argc > 1 ? 0 : 2;
}
