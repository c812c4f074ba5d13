// SPDX-License-Identifier: MIT
#include <editor/history/ksPrintStream.h>
#include <editor/ksEditorError.h>

#include <gmock/gmock.h>

#include <vector>

TEST(ksPrintStream, HandsOverWholeLines)
{
    std::vector<std::string> lines;
    bool hasFailed = false;
    ksPrintStream stream([&lines](const QString &line) { lines.push_back(line.toStdString()); },
                         [&hasFailed] { hasFailed = true; });
    stream << "K\xc3"
           << "\xbc"
              "che "
           << 1;
    EXPECT_TRUE(lines.empty());
    stream << '\n' << "a\nb" << '\n' << '\n';
    EXPECT_THAT(lines, testing::ElementsAre("K\xc3\xbc"
                                            "che 1",
                                            "a\nb", ""));
    EXPECT_TRUE(stream.good());
    EXPECT_FALSE(hasFailed);
}

TEST(ksPrintStream, GoesBadWithALineThatIsNotTaken)
{
    int failures = 0;
    ksPrintStream stream([](const QString &) { throw ksOutputError("full"); }, [&failures] { ++failures; });
    stream << "a" << '\n';
    EXPECT_FALSE(stream.good());
    EXPECT_EQ(failures, 1);
    stream << "b" << '\n';
    EXPECT_EQ(failures, 1);
}
