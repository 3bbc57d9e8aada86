// SPDX-License-Identifier: MIT
#include "ArchiveRecipe.h"

#include <io/ZipWriter.h>

#include <algorithm>
#include <charconv>
#include <utility>
#include <vector>

namespace fuzz {

namespace {

constexpr std::size_t maximumRepeated = std::size_t(2) << 20;

/// Takes a number and the blank behind it off a text; 0 when there is none.
std::size_t takeNumber(std::string_view &text)
{
    std::size_t number = 0;
    const auto result = std::from_chars(text.data(), text.data() + text.size(), number);
    text.remove_prefix(static_cast<std::size_t>(result.ptr - text.data()));
    text.remove_prefix(text.empty() ? 0 : 1);
    return number;
}

class Recipe {
public:
    void readLine(std::string_view line)
    {
        const std::string_view start = line.substr(0, 2);
        std::string_view rest = line.substr(start.size());
        if (start == "@ ") {
            _files.emplace_back(rest, QByteArray());
        } else if (start == "! ") {
            const std::size_t offset = takeNumber(rest);
            _patches.emplace_back(offset, static_cast<char>(takeNumber(rest)));
        } else if (start == "* ") {
            const std::size_t wanted = takeNumber(rest);
            const std::size_t count = std::min(wanted, _room / (rest.size() + 1));
            _room -= count * (rest.size() + 1);
            for (std::size_t i = 0; i < count; ++i)
                append(rest);
        } else {
            append(line);
        }
    }

    std::string archive() const
    {
        ZipWriter writer;
        for (const auto &[name, content] : _files)
            writer.add(name, content);
        std::string bytes = writer.archive().toStdString();
        for (const auto &[offset, byte] : _patches)
            bytes[offset % bytes.size()] = byte;
        return bytes;
    }

private:
    void append(std::string_view line)
    {
        if (!_files.empty())
            _files.back().second.append(line.data(), static_cast<int>(line.size())).append('\n');
    }

    std::vector<std::pair<std::string, QByteArray>> _files;
    std::vector<std::pair<std::size_t, char>> _patches;
    std::size_t _room = maximumRepeated;
};

} // namespace

std::string archiveOf(std::string_view recipe)
{
    Recipe read;
    while (!recipe.empty()) {
        const std::size_t end = std::min(recipe.find('\n'), recipe.size());
        read.readLine(recipe.substr(0, end));
        recipe.remove_prefix(std::min(end + 1, recipe.size()));
    }
    return read.archive();
}

} // namespace fuzz
