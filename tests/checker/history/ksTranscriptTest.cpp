// SPDX-License-Identifier: MIT
#include <checker/history/ksTranscript.h>

#include <gmock/gmock.h>

#include <sstream>

TEST(ksTranscript, WritesABlockPerStep)
{
    std::ostringstream out;
    ksTranscript transcript(out);
    transcript.line(QStringLiteral("model"));
    transcript.step(QStringLiteral("undo"));
    transcript.note(QStringLiteral("check"), QStringLiteral("fine"));
    transcript.step(QStringLiteral("redo"));
    EXPECT_EQ(out.str(), "model\nstep 1: undo\n  check    fine\nstep 2: redo\n");
    EXPECT_EQ(transcript.stepCount(), 2);
}
