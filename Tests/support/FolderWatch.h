// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

#include <sys/inotify.h>
#include <unistd.h>

namespace zarn::test {

/// Sees what is written in a folder while it lives.
class FolderWatch {
public:
    explicit FolderWatch(const std::string &folder) : _queue(inotify_init1(IN_NONBLOCK))
    {
        inotify_add_watch(_queue, folder.c_str(), IN_CREATE | IN_MODIFY | IN_MOVED_TO);
    }
    ~FolderWatch() { ::close(_queue); }
    FolderWatch(const FolderWatch &) = delete;
    FolderWatch &operator=(const FolderWatch &) = delete;

    /// Names of the files that were made, changed or replaced since the last call, one for each
    /// time.
    std::vector<std::string> written()
    {
        std::vector<std::string> names;
        alignas(inotify_event) char buffer[16384];
        for (ssize_t size; (size = ::read(_queue, buffer, sizeof buffer)) > 0;)
            for (const char *at = buffer; at < buffer + size;) {
                const auto *event = reinterpret_cast<const inotify_event *>(at);
                names.emplace_back(event->len > 0 ? event->name : "(folder)");
                at += sizeof(inotify_event) + event->len;
            }
        return names;
    }

private:
    int _queue;
};

} // namespace zarn::test
