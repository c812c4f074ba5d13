// SPDX-License-Identifier: MIT
#include <OpenSG/OSGLog.h>

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

namespace {

using namespace osg;

std::vector<std::string> linesOf(const std::function<void()> &work)
{
    std::vector<std::string> lines;
    const LogSink previous = setLogSink([&](const std::string &line) { lines.push_back(line); });
    work();
    setLogSink(previous);
    return lines;
}

TEST(OSGLog, IsPrintedTo)
{
    EXPECT_EQ(linesOf([] {
                  FLOG(("%d nodes\n", 5));
                  FNOTICE(("no line end"));
                  FWARNING(("%s is %s\n", "this", "wrong"));
                  FFATAL(("\n"));
              }),
              (std::vector<std::string>{"5 nodes", "no line end", "WARNING: this is wrong", "WARNING: "}));
}

TEST(OSGLog, IsStreamedTo)
{
    EXPECT_EQ(linesOf([] {
                  SLOG << 5 << " nodes" << endLog;
                  SNOTICE << "line end" << std::endl;
                  SWARNING << "wrong";
                  SFATAL << "worse" << endLog;
              }),
              (std::vector<std::string>{"5 nodes", "line end", "WARNING: wrong", "WARNING: worse"}));
}

} // namespace
