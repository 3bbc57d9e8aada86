// SPDX-License-Identifier: MIT
#include <ZarnCore/io/ZarnImportException.h>
#include <ZarnCore/io/native/DocumentReader.h>

namespace zarn::io::native {

namespace {

std::string escapedForPointer(std::string_view key)
{
    std::string text;
    for (const char letter : key) {
        if (letter == '~')
            text += "~0";
        else if (letter == '/')
            text += "~1";
        else
            text += letter;
    }
    return text;
}

} // namespace

std::string DocumentReader::pointer() const
{
    std::string text;
    for (const Step *step = _step; step != nullptr; step = step->_above) {
        const bool isMember = step->_key.data() != nullptr;
        text =
            "/" + (isMember ? escapedForPointer(step->_key) : std::to_string(step->_index)) + text;
    }
    if (_base != nullptr)
        text = (*_base)() + text;
    return text.empty() ? "/" : text;
}

void DocumentReader::refuse(const std::string &reason) const
{
    refuseAt(pointer(), reason);
}

void DocumentReader::refuseAt(const std::string &pointer, const std::string &reason) const
{
    ZARN_REFUSE_IN("zarn::io::NativeImporter::read", _document, pointer, reason);
}

void DocumentReader::refuseKind(const std::string &expected, const Json &found) const
{
    refuse("expected " + expected + ", found " + found.description());
}

void DocumentReader::meetUnknownKey(std::string_view key)
{
    const Step step(*this, key);
    if (!_isNewer)
        refuse("nothing of this name belongs here");
    const std::string name(key);
    if (_report.unheld().count(name) == 0)
        _report.addProblem({pointer() + " is unknown here and was left out", -1, -1, 0});
    _report.addUnheld(name);
}

} // namespace zarn::io::native
