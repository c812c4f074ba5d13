// SPDX-License-Identifier: MIT
#include <editor/session/ksEditorOptions.h>
#include <tests/editor/ksEditorFixture.h>

namespace {

ksEditorOptions parse(const char *line)
{
    return ksEditorOptions::parse(QString::fromUtf8(line).split(QLatin1Char(' '), Qt::SkipEmptyParts));
}

std::string refusal(const char *line)
{
    return ksErrorOf([line] { parse(line); });
}

} // namespace

TEST(ksEditorOptions, TakesAModelAndAScript)
{
    EXPECT_EQ(parse("--headless room.gltf").model, QStringLiteral("room.gltf"));
    EXPECT_EQ(parse("--headless room.gltf").script, QString());
    for (const char *line :
         {"--headless room.gltf --script room.js", "--script room.js room.gltf --headless"}) {
        EXPECT_EQ(parse(line).model, QStringLiteral("room.gltf"));
        EXPECT_EQ(parse(line).script, QStringLiteral("room.js"));
    }
}

TEST(ksEditorOptions, TakesAFileToSaveIn)
{
    EXPECT_EQ(parse("--headless room.gltf").output, QString());
    EXPECT_EQ(parse("--headless --output out.glb room.gltf").output, QStringLiteral("out.glb"));
}

TEST(ksEditorOptions, TakesAQuestionAboutTheProgram)
{
    EXPECT_EQ(parse("--headless room.gltf").task, ksEditorOptions::EditModel);
    EXPECT_EQ(parse("--help").task, ksEditorOptions::ShowHelp);
    EXPECT_EQ(parse("--version --what").task, ksEditorOptions::ShowVersion);
}

TEST(ksEditorOptions, TakesArgumentsOfTheScript)
{
    const ksEditorOptions options = parse("--headless room.gltf --script room.js -- --quiet a.obj -- --help");
    EXPECT_EQ(options.model, QStringLiteral("room.gltf"));
    EXPECT_EQ(options.task, ksEditorOptions::EditModel);
    EXPECT_EQ(options.record.detail, ksRecordStyle::Short);
    EXPECT_EQ(options.scriptArguments.join(QLatin1Char(' ')), QStringLiteral("--quiet a.obj -- --help"));
    EXPECT_TRUE(parse("--headless room.gltf --script room.js --").scriptArguments.isEmpty());
}

TEST(ksEditorOptions, TakesHowTheRecordIsWritten)
{
    EXPECT_EQ(parse("--headless room.gltf").record.detail, ksRecordStyle::Short);
    EXPECT_EQ(parse("--headless room.gltf --quiet").record.detail, ksRecordStyle::Quiet);
    EXPECT_EQ(parse("--headless --verbose room.gltf").record.detail, ksRecordStyle::Verbose);
    EXPECT_FALSE(parse("--headless room.gltf").record.json);
    EXPECT_TRUE(parse("--json --headless room.gltf").record.json);
}

TEST(ksEditorOptions, TakesLimits)
{
    EXPECT_EQ(parse("--headless room.gltf").timeLimit, 0);
    EXPECT_EQ(parse("--headless room.gltf --time-limit 0.5").timeLimit, 0.5);
    EXPECT_EQ(parse("--headless room.gltf --memory-limit 512").memoryLimit, 512);
}

TEST(ksEditorOptions, TakesWhatTheWindowShows)
{
    const auto parseWithWindow = [](const char *line) {
        return ksEditorOptions::parse(QString::fromUtf8(line).split(QLatin1Char(' '), Qt::SkipEmptyParts),
                                      ksEditorOptions::Window::Offered);
    };
    EXPECT_EQ(parseWithWindow("").task, ksEditorOptions::ShowWindow);
    EXPECT_EQ(parseWithWindow("").model, QString());
    const ksEditorOptions options = parseWithWindow("room.gltf --select Table --screenshot room.png");
    EXPECT_EQ(options.task, ksEditorOptions::ShowWindow);
    EXPECT_EQ(options.model, QStringLiteral("room.gltf"));
    EXPECT_EQ(options.selected, QStringLiteral("Table"));
    EXPECT_EQ(options.screenshot, QStringLiteral("room.png"));
    EXPECT_EQ(parseWithWindow("--headless room.gltf").task, ksEditorOptions::EditModel);
    for (const char *line :
         {"--script a.js", "--output a.glb", "--quiet", "--json", "--time-limit 1", "-- a"})
        EXPECT_EQ(ksErrorOf([&] { parseWithWindow(line); }),
                  "--headless is missing, which the other options need");
    EXPECT_EQ(ksErrorOf([&] { parseWithWindow("--select Table"); }),
              "--select is for a model, and none is given");
    for (const char *line : {"--headless a.obj --select b", "--headless a.obj --screenshot b.png"})
        EXPECT_EQ(ksErrorOf([&] { parseWithWindow(line); }),
                  "--screenshot and --select are for the window, which --headless goes without");
}

TEST(ksEditorOptions, RefusesAnythingElse)
{
    EXPECT_EQ(refusal(""), "--headless is missing");
    EXPECT_EQ(refusal("room.gltf"), "--headless is missing");
    EXPECT_EQ(refusal("--headless"), "no model is given");
    EXPECT_EQ(refusal("--headless a.obj b.obj"), "more than one model");
    EXPECT_EQ(refusal("--headless room.gltf --fast"), "unknown option --fast");
    EXPECT_EQ(refusal("--headless room.gltf --script a.js --script b.js"), "more than one script");
    for (const char *line : {"--headless room.gltf --", "--headless room.gltf -- a"})
        EXPECT_EQ(refusal(line), "there are arguments for a script, but there is no script") << line;
    EXPECT_EQ(refusal("--headless room.gltf --quiet --verbose"), "--quiet and --verbose exclude each other");
    for (const char *number : {" 0", " -1", " nan", " inf", " soon"})
        EXPECT_EQ(refusal((std::string("--headless room.gltf --time-limit") + number).c_str()),
                  "--time-limit needs a number of seconds above 0");
    EXPECT_EQ(refusal("--headless room.gltf --time-limit 1 --time-limit 2"), "more than one time limit");
    EXPECT_EQ(refusal("--headless room.gltf --memory-limit 1 --memory-limit 1"),
              "more than one memory limit");
    EXPECT_EQ(refusal("--headless room.gltf --memory-limit 0"),
              "--memory-limit needs a number of megabytes above 0");
    EXPECT_EQ(refusal("--headless room.gltf --output a.glb --output b.glb"), "more than one output");
}

/// What begins as an option is none; a file of such a name has a path.
TEST(ksEditorOptions, MissesTheValueOfAnOption)
{
    const std::pair<const char *, const char *> cases[] = {
        {"--script", "--script needs a file"},
        {"--output", "--output needs a file"},
        {"--time-limit", "--time-limit needs a number of seconds"},
        {"--memory-limit", "--memory-limit needs a number of megabytes"}};
    for (const auto &[option, error] : cases)
        for (const char *rest : {"", " --quiet", " --"})
            EXPECT_EQ(refusal((std::string("--headless room.gltf ") + option + rest).c_str()), error);
    EXPECT_EQ(parse("--headless room.gltf --script ./--quiet").script, QStringLiteral("./--quiet"));
}
