// SPDX-License-Identifier: MIT
#include <editor/session/ksEditorOptions.h>
#include <editor/session/ksEditorSession.h>
#include <editor/session/ksVerdict.h>
#include <tests/editor/ksEditorFixture.h>
#include <tests/editor/session/ksWatchedText.h>

#include <QFile>

#include <csignal>
#include <new>
#include <sstream>
#include <stdexcept>

namespace {

using testing::EndsWith;
using testing::HasSubstr;

/// A session whose edits are a function.
class EditingSession : public ksHeadlessSession
{
public:
    EditingSession(std::ostream &record, std::ostream &errors, std::function<void()> edits)
        : ksHeadlessSession("ks-test", "", record, errors)
        , work(std::move(edits))
    {}

private:
    int edit(osg::NodeRefPtr, const ksEditorOptions &, ksRecord &, ksVerdict &verdict) override
    {
        verdict.count(2, QStringLiteral("step"), QStringLiteral("steps"));
        work();
        return Done;
    }

    const std::function<void()> work;
};

class ksHeadlessSessionTest : public testing::Test
{
protected:
    ksHeadlessSessionTest() { options.model = ksRoomFile(); }

    ksEditorOptions options;
    ksTestFolder folder;
    std::ostringstream out;
    std::ostringstream errors;
};

} // namespace

TEST_F(ksHeadlessSessionTest, SaysWhatEndedTheEdits)
{
    const std::ptrdiff_t before = ksLivingContainers();
    const std::string room = ksRoomFile().toStdString();
    EditingSession tooLong(out, errors, [] { throw std::length_error("too long"); });
    EXPECT_EQ(tooLong.run(options), ksHeadlessSession::ScriptError);
    EXPECT_EQ(errors.str(), "ks-test: " + room + ": too long\n");
    EXPECT_THAT(out.str(), EndsWith("\nFAILED: 2 steps, 0 warnings\n"));
    errors.str({});
    options.script = QStringLiteral("a.js");
    EditingSession tooMuch(out, errors, [] { throw std::bad_alloc(); });
    EXPECT_EQ(tooMuch.run(options), ksHeadlessSession::ScriptError);
    EXPECT_EQ(errors.str(), "ks-test: a.js: out of memory\n");
    EXPECT_EQ(ksLivingContainers(), before);
}

/// The model is read to its end; nothing is done with it then.
TEST_F(ksHeadlessSessionTest, EndsWhenItIsInterruptedWhileItOpensAModel)
{
    const std::ptrdiff_t before = ksLivingContainers();
    folder.write("m.mtl", "newmtl wood\nmap_Kd wood.png\n");
    options.model = folder.write("m.obj", "mtllib m.mtl\nv 0 0 0\nv 1 0 0\nv 0 1 0\nusemtl wood\nf 1 2 3\n");
    ksWatchedText warnings("warning", [] { std::raise(SIGINT); });
    std::ostream stream(&warnings);
    EXPECT_EQ(ksEditorSession(out, stream).run(options), ksHeadlessSession::ScriptError);
    EXPECT_THAT(warnings.text(), EndsWith("\nks-editor: " + options.model.toStdString() + ": interrupted\n"));
    EXPECT_THAT(out.str(), EndsWith("\nFAILED: 1 warning\n"));
    EXPECT_EQ(ksLivingContainers(), before);
}

/// The file is whole.
TEST_F(ksHeadlessSessionTest, EndsWhenItIsInterruptedWhileItSaves)
{
    options.output = folder.path("out.glb");
    ksWatchedText record("saved", [] { std::raise(SIGTERM); });
    std::ostream stream(&record);
    EXPECT_EQ(ksEditorSession(stream, errors).run(options), ksHeadlessSession::ScriptError);
    EXPECT_THAT(record.text(), EndsWith("\nsaved out.glb\nFAILED: 0 steps, 0 warnings\n"));
    EXPECT_EQ(errors.str(), "ks-editor: " + ksRoomFile().toStdString() + ": interrupted\n");
    options.model = std::exchange(options.output, {});
    EXPECT_EQ(ksEditorSession(out, errors).run(options), ksHeadlessSession::Done);
}

/// Nothing is saved.
TEST_F(ksHeadlessSessionTest, EndsWhenItIsInterruptedWhileItEdits)
{
    options.output = folder.path("out.glb");
    options.script = folder.write("script.js", "print('hello'); while (true) {}");
    ksWatchedText record("hello", [] { std::raise(SIGINT); });
    std::ostream stream(&record);
    EXPECT_EQ(ksEditorSession(stream, errors).run(options), ksHeadlessSession::ScriptError);
    EXPECT_THAT(record.text(), HasSubstr("\nhello\nFAILED: "));
    EXPECT_FALSE(QFile::exists(options.output));
}
