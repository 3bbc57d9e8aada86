// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem/FileHandle.h>
#include <streams/Stream.h>

#include <sndfile.h>

#include <memory>

namespace Halvec::audio {

struct CloseSndfile {
    void operator()(SNDFILE *file) const { sf_close(file); }
};
using Sndfile = std::unique_ptr<SNDFILE, CloseSndfile>;

/// Opens a stream for reading or a handle for writing; both outlive the file. Null when libsndfile
/// refuses, for the reason that `sf_strerror(nullptr)` gives.
Sndfile openSndfile(streams::Stream &stream, SF_INFO &info);
Sndfile openSndfile(filesystem::FileHandle &handle, SF_INFO &info);

} // namespace Halvec::audio
