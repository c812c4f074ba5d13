// SPDX-License-Identifier: MIT
#include <checker/session/ksCheckedSession.h>
#include <checker/tour/ksCommandClasses.h>
#include <editor/session/ksEditorOptions.h>
#include <tests/editor/ksEditorFixture.h>
#include <tests/editor/session/ksWatchedText.h>

#include <ksundo/core/ksUndoStack.h>

#include <csignal>
#include <sstream>

namespace {

using testing::HasSubstr;
using testing::StartsWith;

class ksCheckedSessionTest : public testing::Test
{
protected:
    int run(const QString &model, const std::string &script = {})
    {
        out.str({});
        errors.str({});
        options.model = model;
        options.script = script.empty() ? QString() : folder.write("script.js", script);
        return ksCheckedSession(out, errors).run(options);
    }

    /// Runs \a script when there is a difference that no step makes.
    int runWithDifference(const std::string &script)
    {
        // The prototype is a container like any other: writing it without an end of the edit leaves aspect 1
        // stale.
        const auto settings =
            osg::ksNodeSettingsPtr::dcast(osg::ksNodeSettings::getClassType().getPrototype());
        settings->setLayer(1);
        const int exitCode = run(ksRoomFile(), script);
        settings->setLayer(0);
        return exitCode;
    }

    ksEditorOptions options;
    ksTestFolder folder;
    std::ostringstream out;
    std::ostringstream errors;
};

} // namespace

TEST_F(ksCheckedSessionTest, ToursTheModel)
{
    const std::ptrdiff_t before = ksLivingContainers();
    EXPECT_EQ(run(ksRoomFile()), 0);
    EXPECT_EQ(errors.str(), "");
    EXPECT_THAT(out.str(),
                StartsWith("model room.gltf: 58 nodes; left out: 1 camera\nAdd what the scene lacks: "));
    const std::string all = std::to_string(ksCommandClasses::all().size());
    EXPECT_THAT(out.str(),
                testing::ContainsRegex(
                    "\nOK: [0-9]+ steps, 270 containers, 0 differences, [0-9]+ within tolerance, " + all +
                    " of " + all + " command classes, 0 warnings\n$"));
    EXPECT_EQ(ksLivingContainers(), before);
    EXPECT_TRUE(ksUndoStack::get(0)->isEmpty());
}

TEST_F(ksCheckedSessionTest, RunsAScriptInstead)
{
    EXPECT_EQ(run(ksRoomFile(), "print('hello');"), 0);
    EXPECT_EQ(out.str(), "model room.gltf: 58 nodes; left out: 1 camera\nhello\n"
                         "OK: 1 step, 270 containers, 0 differences, 0 within tolerance, 0 warnings\n");
}

TEST_F(ksCheckedSessionTest, WritesEveryStepWhenItIsVerbose)
{
    options.record.detail = ksRecordStyle::Verbose;
    EXPECT_EQ(run(ksRoomFile(), "print('hello');"), 0);
    EXPECT_EQ(out.str(), "model room.gltf: 58 nodes; left out: 1 camera\nhello\nstep 1: check\n"
                         "  check    index 0 of 0, 270 containers: no difference\n"
                         "OK: 1 step, 270 containers, 0 differences, 0 within tolerance, 0 warnings\n");
}

/// What a script prints stands before the step that comes next.
TEST_F(ksCheckedSessionTest, WritesAnObjectPerStep)
{
    options.record.json = true;
    EXPECT_EQ(run(ksRoomFile(), "check(); print('hello');"), 0);
    EXPECT_THAT(out.str(), HasSubstr(R"("step":1,"text":"check"})"
                                     "\n"
                                     R"({"event":"print","text":"hello"})"
                                     "\n"));
    EXPECT_THAT(
        out.str(),
        testing::EndsWith(R"("event":"verdict","steps":2,"verdict":"OK","warnings":0,"withinTolerance":0})"
                          "\n"));
}

TEST_F(ksCheckedSessionTest, EndsTheTourThatTakesTooLong)
{
    const std::ptrdiff_t before = ksLivingContainers();
    options.timeLimit = 1e-9;
    EXPECT_EQ(run(ksRoomFile()), ksCheckedSession::ScriptError);
    EXPECT_EQ(errors.str(), "ks-checker: " + ksRoomFile().toStdString() + ": ended after 1e-09 seconds\n");
    EXPECT_THAT(out.str(), testing::ContainsRegex("\nFAILED: [0-9]+ steps?, 270 containers, 0 differences, "
                                                  "[0-9]+ within tolerance, 0 warnings\n$"));
    EXPECT_EQ(ksLivingContainers(), before);
}

TEST_F(ksCheckedSessionTest, EndsTheTourThatIsInterrupted)
{
    const std::ptrdiff_t before = ksLivingContainers();
    ksWatchedText record("Add what the scene lacks: ", [] { std::raise(SIGINT); });
    std::ostream stream(&record);
    options.model = ksRoomFile();
    EXPECT_EQ(ksCheckedSession(stream, errors).run(options), ksCheckedSession::ScriptError);
    EXPECT_EQ(errors.str(), "ks-checker: " + ksRoomFile().toStdString() + ": interrupted\n");
    EXPECT_THAT(record.text(),
                testing::ContainsRegex("\nFAILED: [0-9]+ steps, 270 containers, 0 differences"));
    EXPECT_EQ(ksLivingContainers(), before);
}

TEST_F(ksCheckedSessionTest, SavesTheScene)
{
    options.output = folder.path("out.glb");
    EXPECT_EQ(run(ksRoomFile(), "scene.find('Table').set('travMask', 1);"), 0);
    EXPECT_THAT(out.str(), HasSubstr("\nsaved out.glb\nOK: "));
    const QString saved = std::exchange(options.output, {});
    EXPECT_EQ(run(saved, "if (scene.find('Table').get('travMask') !== 1) throw new Error();"), 0)
        << errors.str();
}

/// A constraint below its own target, and a light below its own visibility reference.
TEST_F(ksCheckedSessionTest, ReleasesContainersThatReferToEachOther)
{
    const std::ptrdiff_t before = ksLivingContainers();
    EXPECT_EQ(run(ksRoomFile(), "scene.addAim('Aim', scene.root, [], []);"
                                "scene.find('LampBulb').light.visibilityReference = scene.find('Lamp');"),
              0);
    EXPECT_EQ(ksLivingContainers(), before);
}

TEST_F(ksCheckedSessionTest, RunsTheScriptOfTheRoom)
{
    options.model = ksRoomFile();
    options.script = QStringLiteral(KS_ROOM_SCRIPT);
    EXPECT_EQ(ksCheckedSession(out, errors).run(options), 0) << errors.str();
    EXPECT_THAT(out.str(), HasSubstr("\nOK: "));
}

TEST_F(ksCheckedSessionTest, ReportsAScriptsError)
{
    const std::ptrdiff_t before = ksLivingContainers();
    EXPECT_EQ(run(ksRoomFile(), "var table = scene.find('Table').attachment('ksNodeSettings');\n"
                                "table.set('layer', 3);\ntable.set('layer', 'three');\n"),
              ksCheckedSession::ScriptError);
    EXPECT_EQ(errors.str(), "ks-checker: " + folder.path("script.js").toStdString() +
                                ":3: Error: 'layer' is a whole number from 0 to 255, not 'three'\n");
    EXPECT_THAT(out.str(),
                testing::EndsWith(
                    "\nFAILED: 2 steps, 270 containers, 0 differences, 0 within tolerance, 0 warnings\n"));
    EXPECT_EQ(ksLivingContainers(), before);
    EXPECT_TRUE(ksUndoStack::get(0)->isEmpty());
}

/// A script that catches the error of a failed check does not make it undone.
TEST_F(ksCheckedSessionTest, FailsWhenACheckFailed)
{
    EXPECT_EQ(runWithDifference("try { check(); } catch (error) {}"), ksCheckedSession::DifferenceFound);
    EXPECT_EQ(errors.str(), "");
    EXPECT_THAT(out.str(), HasSubstr("  STALE    ksNodeSettings "));
    EXPECT_THAT(out.str(), testing::ContainsRegex("\nFAILED: 2 steps, 270 containers, [1-9][0-9]* "
                                                  "differences?, 0 within tolerance, 0 warnings\n$"));
}

/// The error is told all the same.
TEST_F(ksCheckedSessionTest, FailsForADifferenceRatherThanForAnError)
{
    for (const auto &[script, error] : {std::pair("check();", "Error: the scene differs from the history"),
                                        std::pair("nothing();", "ReferenceError: nothing is not defined")}) {
        EXPECT_EQ(runWithDifference(script), ksCheckedSession::DifferenceFound);
        EXPECT_EQ(errors.str(),
                  "ks-checker: " + folder.path("script.js").toStdString() + ":1: " + error + '\n');
        EXPECT_THAT(out.str(), HasSubstr("\nFAILED: "));
    }
}

TEST_F(ksCheckedSessionTest, WritesDifferencesAlsoWhenItIsQuiet)
{
    options.record.detail = ksRecordStyle::Quiet;
    EXPECT_EQ(runWithDifference("print('hello');"), ksCheckedSession::DifferenceFound);
    EXPECT_THAT(out.str(), StartsWith("hello\nstep 1: check\n  STALE    ksNodeSettings "));
    options.record.json = true;
    EXPECT_EQ(runWithDifference("print('hello');"), ksCheckedSession::DifferenceFound);
    EXPECT_THAT(out.str(), HasSubstr("\n{\"event\":\"step\",\"notes\":[{\"STALE\":\"ksNodeSettings "));
}

TEST_F(ksCheckedSessionTest, TellsWhatIsNotReleased)
{
    for (const bool isJson : {false, true}) {
        osg::NodeRefPtr kept;
        // All checks have been made then.
        ksWatchedText record("saved", [&kept] { kept = osg::NodeRefPtr(osg::Node::create()); });
        std::ostream stream(&record);
        options.model = ksRoomFile();
        options.script = folder.write("script.js", "");
        options.output = folder.path("out.glb");
        options.record.json = isJson;
        EXPECT_EQ(ksCheckedSession(stream, errors).run(options), ksCheckedSession::DifferenceFound);
        EXPECT_THAT(record.text(), HasSubstr(isJson ? "\n{\"containers\":1,\"event\":\"notReleased\"}\n"
                                                    : "\nNOT RELEASED: 1 container\nFAILED: "));
    }
}

/// It stands before the step, which stays whole.
TEST_F(ksCheckedSessionTest, WritesAStepWholeInWhichAScriptPrints)
{
    const std::string script = "var table = scene.find('Table');\nhistory.macro('Both', function () {\n"
                               "    table.set('travMask', 1);\n    print('hello');\n"
                               "    table.set('travMask', 2); });";
    options.record.json = true;
    EXPECT_EQ(run(ksRoomFile(), script), 0) << errors.str();
    const QString record = QString::fromStdString(out.str());
    std::vector<std::string> lines;
    for (const QString &line : record.split(QLatin1Char('\n'), Qt::SkipEmptyParts))
        lines.push_back(line.toStdString());
    EXPECT_THAT(lines, testing::ElementsAre(HasSubstr("\"model\""), HasSubstr("\"hello\""),
                                            testing::AllOf(HasSubstr("\"within\""), HasSubstr("\"check\"")),
                                            HasSubstr("\"step\":2"), HasSubstr("\"verdict\"")));
}

TEST_F(ksCheckedSessionTest, ReportsAModelThatCannotBeRead)
{
    const QString path = folder.path("missing.gltf");
    EXPECT_EQ(run(path), ksCheckedSession::ModelError);
    EXPECT_EQ(errors.str(), "ks-checker: " + path.toStdString() + ": no such file\n");
    EXPECT_EQ(out.str(), "FAILED: no scene, 0 warnings\n");
}

TEST_F(ksCheckedSessionTest, WarnsOfMissingTexturesAndGoesOn)
{
    folder.write("m.mtl", "newmtl wood\nmap_Kd wood.png\n");
    const QString model =
        folder.write("m.obj", "mtllib m.mtl\nv 0 0 0\nv 1 0 0\nv 0 1 0\nusemtl wood\nf 1 2 3\n");
    EXPECT_EQ(run(model), 0);
    EXPECT_EQ(errors.str(), "ks-checker: warning: texture wood.png: no such file\n");
    EXPECT_THAT(out.str(), HasSubstr("\nOK: "));
}
