// SPDX-License-Identifier: MIT
#include <checker/history/ksTranscript.h>
#include <editor/history/ksRecord.h>

#include <gmock/gmock.h>

#include <sstream>

namespace {

/// Two parts of two steps, of which the last has a fault.
std::string transcriptIn(const ksRecordStyle &style)
{
    std::ostringstream out;
    ksRecord record(out, style);
    ksTranscript transcript(record);
    transcript.beginPart(QStringLiteral("Fields"));
    transcript.step(QStringLiteral("undo"));
    transcript.note(QStringLiteral("check"), QStringLiteral("fine"));
    transcript.step(QStringLiteral("redo"));
    transcript.beginPart(QStringLiteral("Texts"));
    transcript.step(QStringLiteral("add"));
    transcript.note(QStringLiteral("changed"), QStringLiteral("a"));
    transcript.fault(QStringLiteral("DIFFERS"), QStringLiteral("b"), 2);
    transcript.note(QStringLiteral("check"), QStringLiteral("c"));
    transcript.finish();
    EXPECT_EQ(transcript.stepCount(), 3);
    EXPECT_EQ(transcript.faultCount(), 2);
    return out.str();
}

} // namespace

TEST(ksTranscript, WritesABlockPerStepWhenItIsVerbose)
{
    EXPECT_EQ(transcriptIn({ksRecordStyle::Verbose}),
              "step 1: undo\n  check    fine\nstep 2: redo\nFields: 2 steps, no difference\n"
              "step 3: add\n  changed  a\n  DIFFERS  b\n  check    c\nTexts: 1 step, 2 DIFFERENCES\n");
}

TEST(ksTranscript, WritesPartsAndFaultySteps)
{
    EXPECT_EQ(transcriptIn({}), "Fields: 2 steps, no difference\n"
                                "step 3: add\n  changed  a\n  DIFFERS  b\n  check    c\n"
                                "Texts: 1 step, 2 DIFFERENCES\n");
}

TEST(ksTranscript, WritesFaultsAlsoWhenItIsQuiet)
{
    EXPECT_EQ(transcriptIn({ksRecordStyle::Quiet}),
              "step 3: add\n  changed  a\n  DIFFERS  b\n  check    c\n");
}

TEST(ksTranscript, WritesObjectsOfFaultsAlsoWhenItIsQuiet)
{
    EXPECT_EQ(
        transcriptIn({ksRecordStyle::Quiet, true}),
        R"({"event":"step","notes":[{"changed":"a"},{"DIFFERS":"b"},{"check":"c"}],"step":3,"text":"add"})"
        "\n");
}

/// What was to be said of the step has been said.
TEST(ksTranscript, WritesAFaultThatComesAfterItsStep)
{
    for (const auto &[isJson, expected] :
         {std::pair(false, "  FAILS    late\n"),
          std::pair(true,
                    "{\"event\":\"step\",\"notes\":[{\"FAILS\":\"late\"}],\"step\":1,\"text\":\"add\"}\n")}) {
        std::ostringstream out;
        ksRecord record(out, {ksRecordStyle::Quiet, isJson});
        ksTranscript transcript(record);
        transcript.step(QStringLiteral("add"));
        transcript.finishStep();
        transcript.fault(QStringLiteral("FAILS"), QStringLiteral("late"));
        transcript.finish();
        EXPECT_EQ(out.str(), expected);
    }
}

TEST(ksTranscript, WritesAnObjectPerStep)
{
    EXPECT_EQ(
        transcriptIn({ksRecordStyle::Short, true}),
        R"({"event":"step","notes":[{"check":"fine"}],"step":1,"text":"undo"})"
        "\n"
        R"({"event":"step","notes":[],"step":2,"text":"redo"})"
        "\n"
        R"({"differences":0,"event":"part","steps":2,"text":"Fields"})"
        "\n"
        R"({"event":"step","notes":[{"changed":"a"},{"DIFFERS":"b"},{"check":"c"}],"step":3,"text":"add"})"
        "\n"
        R"({"differences":2,"event":"part","steps":1,"text":"Texts"})"
        "\n");
}
