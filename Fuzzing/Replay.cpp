// SPDX-License-Identifier: MIT
#include <QDir>
#include <QDirIterator>
#include <QFile>

#include <sys/resource.h>

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <ctime>

extern "C" int LLVMFuzzerInitialize(int *argc, char ***argv);
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size);

namespace {

/// An input is small; what takes more than this is not in proportion to it.
constexpr double maximumSeconds = 20;
constexpr long maximumMegabytes = 2048;

QStringList filesOf(const char *path)
{
    const QString name = QString::fromLocal8Bit(path);
    if (!QFileInfo(name).isDir())
        return {name};
    QStringList files;
    QDirIterator walk(name, QDir::Files, QDirIterator::Subdirectories);
    while (walk.hasNext())
        files.append(walk.next());
    files.sort();
    return files;
}

bool replay(const QString &path)
{
    std::printf("%s\n", path.toLocal8Bit().constData());
    std::fflush(stdout); // so that a crash is behind the name of its input
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        std::printf("  cannot be read: %s\n", file.errorString().toLocal8Bit().constData());
        return false;
    }
    const QByteArray input = file.readAll();
    const std::clock_t start = std::clock();
    LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t *>(input.constData()),
                           static_cast<std::size_t>(input.size()));
    const double seconds = static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
    rusage usage = {};
    getrusage(RUSAGE_SELF, &usage);
    const long megabytes = usage.ru_maxrss / 1024;
    if (seconds <= maximumSeconds && megabytes <= maximumMegabytes)
        return true;
    std::printf("  took %.1f s, and the process %ld MB\n", seconds, megabytes);
    return false;
}

} // namespace

/// Tries the files, and all files of the folders, that the arguments name: what the fuzzers do, on
/// inputs that are known.
int main(int argc, char *argv[])
{
    LLVMFuzzerInitialize(&argc, &argv);
    int count = 0;
    int failures = 0;
    for (int i = 1; i < argc; ++i) {
        for (const QString &path : filesOf(argv[i])) {
            ++count;
            failures += replay(path) ? 0 : 1;
        }
    }
    std::printf("%d inputs, %d failures\n", count, failures);
    return count > 0 && failures == 0 ? 0 : 1;
}
