// SPDX-License-Identifier: MIT
#include "support/DrawnSample.h"

#include <ZarnLayout/export/ZarnLayoutDump.h>
#include <ZarnLayout/export/ZarnSvgWriter.h>

#include <gtest/gtest.h>

#include <QBuffer>

#include <functional>
#include <string>
#include <thread>
#include <vector>

namespace {

using namespace zarn;
using namespace zarn::layout;

TEST(SharedLayoutTest, threadsMeasureAndWriteAtTheSameTime)
{
    struct Result {
        QByteArray svg;
        std::string dump;
        Unit width = 0;

        bool operator==(const Result &other) const
        {
            return svg == other.svg && dump == other.dump && width == other.width;
        }
    };
    const auto layout = zarn::test::drawnSample();
    const auto work = [&layout](Result &result) {
        QBuffer buffer(&result.svg);
        buffer.open(QIODevice::WriteOnly);
        SvgWriter().write(*layout, 0, buffer);
        result.dump = layoutDump(*layout);
        for (int i = 0; i < 200; ++i) // half of them were measured by another thread before
            result.width +=
                builtInTextMeasure().measure("Text " + std::to_string(i / 2), {}).advance;
    };
    std::vector<Result> results(4);
    std::vector<std::thread> threads;
    for (Result &result : results)
        threads.emplace_back(work, std::ref(result));
    for (std::thread &thread : threads)
        thread.join();
    Result alone;
    work(alone);
    EXPECT_FALSE(alone.svg.isEmpty());
    for (const Result &result : results)
        EXPECT_TRUE(result == alone);
}

} // namespace
