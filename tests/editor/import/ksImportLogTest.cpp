// SPDX-License-Identifier: MIT
#include <editor/import/ksImportLog.h>

#include <assimp/DefaultLogger.hpp>
#include <gmock/gmock.h>

#include <string>
#include <vector>

namespace {

std::vector<std::string> reportOf(const ksImportLog &log)
{
    std::vector<std::string> lines;
    log.report([&lines](const QString &text) { lines.push_back(text.toStdString()); });
    return lines;
}

} // namespace

TEST(ksImportLog, TakesWarningsAndErrors)
{
    const ksImportLog log;
    Assimp::DefaultLogger::get()->warn("odd: colon");
    Assimp::DefaultLogger::get()->error("wrong");
    Assimp::DefaultLogger::get()->info("nobody cares");
    EXPECT_THAT(reportOf(log), testing::ElementsAre("odd: colon", "wrong"));
}

TEST(ksImportLog, SaysTheSameOnceAndNotTooMuch)
{
    const ksImportLog log;
    for (int i = 0; i < 12; ++i)
        for (int j = 0; j < 2; ++j)
            Assimp::DefaultLogger::get()->warn(std::to_string(i).c_str());
    const std::vector<std::string> lines = reportOf(log);
    ASSERT_EQ(lines.size(), 11u);
    EXPECT_EQ(lines[9], "9");
    EXPECT_EQ(lines[10], "... and 2 more of the reader's complaints");
}
