// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem/DiskFileSystem.h>

namespace zarn::editor {

/// How the program is called, which also says where its settings lie.
void nameApplication();

/// What a process needs once before its first window: the core with its formats and catalogues, and
/// the language of the user. Needs a `QApplication`, and must outlive its windows.
class Setup {
public:
    Setup();
    ~Setup();
    Setup(const Setup &) = delete;
    Setup &operator=(const Setup &) = delete;

private:
    filesystem::DiskFileSystem _files;
};

} // namespace zarn::editor
