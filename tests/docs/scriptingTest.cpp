// SPDX-License-Identifier: MIT
#include <checker/session/ksCheckedSession.h>
#include <editor/script/ksScriptDescription.h>
#include <editor/script/ksScriptRegistry.h>
#include <editor/session/ksEditorOptions.h>
#include <editor/session/ksEditorSession.h>
#include <tests/editor/ksEditorFixture.h>

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QMetaMethod>
#include <QMetaProperty>

#include <algorithm>
#include <map>
#include <set>
#include <sstream>

namespace {

/// The page on scripts, as it is in the source tree.
class ksScriptingPage : public testing::Test
{
protected:
    ksScriptingPage()
    {
        std::ostringstream content;
        content << std::ifstream(KS_SCRIPTING_PAGE).rdbuf();
        page = content.str();
    }

    /// The blocks of code in the language \a name.
    std::vector<std::string> blocks(const std::string &name) const
    {
        std::vector<std::string> found;
        std::istringstream lines(page);
        bool isInBlock = false;
        bool isWanted = false;
        for (std::string line; std::getline(lines, line);) {
            if (line.rfind("```", 0) == 0) {
                isInBlock = !isInBlock;
                isWanted = isInBlock && line.substr(3) == name;
                if (isWanted)
                    found.emplace_back();
            } else if (isWanted) {
                found.back() += line + '\n';
            }
        }
        return found;
    }

    /// The section with the heading \a title.
    std::string section(const std::string &title) const
    {
        const std::size_t start = page.find("\n## " + title + '\n');
        return start == std::string::npos ? std::string()
                                          : page.substr(start, page.find("\n## ", start + 1) - start);
    }

    /// Whether \a text names the member \a name, with or without arguments.
    static bool names(const std::string &text, const std::string &name)
    {
        return text.find('`' + name + '`') != std::string::npos ||
               text.find('`' + name + '(') != std::string::npos;
    }

    /// Runs the script \a code on the room and returns the record.
    std::string run(const std::string &code)
    {
        ksEditorOptions options;
        options.model = ksRoomFile();
        options.script = folder.write("example.js", code);
        std::ostringstream out;
        std::ostringstream errors;
        EXPECT_EQ(ksEditorSession(out, errors).run(options), ksEditorSession::Done) << code;
        EXPECT_EQ(errors.str(), "") << code;
        return out.str();
    }

    /// Expects that the page names \a object's members, and those of objects in it.
    void expectNames(const QJsonObject &object) const
    {
        for (auto member = object.begin(); member != object.end(); ++member) {
            EXPECT_TRUE(names(section("The command line and the record"), member.key().toStdString()))
                << member.key().toStdString();
            for (const QJsonValue &entry : member->toArray())
                expectNames(entry.toObject());
        }
    }

    /// Runs \a session, whose record goes to \a out, and expects that the page names all that it writes.
    /// Returns the events.
    std::set<std::string> eventsOf(ksHeadlessSession &&session, std::ostringstream &out,
                                   const ksEditorOptions &options) const
    {
        session.run(options);
        std::set<std::string> events;
        std::istringstream lines(out.str());
        for (std::string line; std::getline(lines, line);) {
            const QJsonObject object = QJsonDocument::fromJson(QByteArray::fromStdString(line)).object();
            const std::string event = object.value(QStringLiteral("event")).toString().toStdString();
            EXPECT_TRUE(names(section("The command line and the record"), event)) << line;
            expectNames(object);
            events.insert(event);
        }
        return events;
    }

    ksTestFolder folder;
    std::string page;
};

/// The table that the page is to have for \a type, from the descriptions of its members.
std::string tableOf(const QMetaObject &type)
{
    std::string table = "| Member | What it is |\n|---|---|\n";
    for (const ksScriptMember &member : ksScriptDescription::ownMembersOf(type))
        table += "| `" + member.signature.toStdString() + "` | " + member.about.toStdString() + " |\n";
    return table;
}

} // namespace

TEST_F(ksScriptingPage, HasExamplesThatRun)
{
    const std::vector<std::string> examples = blocks("js");
    EXPECT_GT(examples.size(), 10u);
    for (const std::string &example : examples)
        EXPECT_THAT(run(example), testing::ContainsRegex("\nOK: [0-9]+ steps?, 0 warnings\n$"));
}

TEST_F(ksScriptingPage, ShowsWhatTheFirstExampleWrites)
{
    EXPECT_EQ(blocks("").at(1), run(blocks("js").at(0)));
}

TEST_F(ksScriptingPage, NamesWhatIsInARecordOfJson)
{
    ksEditorOptions options;
    options.model = folder.write("m.obj", "v 0 0 0\nv 1 0 0\nv 0 1 0\nf 1 2 3\n");
    options.record = {ksRecordStyle::Verbose, true, false};
    std::ostringstream errors;
    std::ostringstream tour;
    EXPECT_THAT(eventsOf(ksCheckedSession(tour, errors), tour, options),
                testing::UnorderedElementsAre("model", "step", "part", "verdict"));
    EXPECT_EQ(errors.str(), "");
    options.script =
        folder.write("script.js", "print('hello'); var own = scene.root.attachment('ksNodeSettings');"
                                  "own.drag('layer', [1, 2]); history.mark(); history.undo(); history.redo();"
                                  "history.batch('a', [[own, 'layer', 3]], false);"
                                  "history.batch('a', [[own, 'layer', 4]], true); history.clear();");
    options.output = folder.path("out.glb");
    std::ostringstream edits;
    EXPECT_THAT(eventsOf(ksEditorSession(edits, errors), edits, options),
                testing::UnorderedElementsAre("model", "print", "add", "merge", "undo", "redo", "clear",
                                              "other", "saved", "verdict"));
    EXPECT_EQ(errors.str(), "");
    options.script = folder.write("script.js", "nothing();");
    std::ostringstream error;
    EXPECT_THAT(eventsOf(ksEditorSession(error, errors), error, options),
                testing::UnorderedElementsAre("model", "verdict"));
}

TEST_F(ksScriptingPage, HasTheReferenceOfTheCode)
{
    const std::map<std::string, std::string> sections = {
        {"ksScriptConsole", "Output"},
        {"ksScriptScene", "The scene"},
        {"ksScriptHistory", "The history"},
        {"ksScriptContainer", "Containers"},
        {"ksScriptNode", "Nodes"},
        {"ksScriptVariants", "Variants of a node"},
        {"ksScriptTags", "Tags of a node"},
        {"ksScriptLight", "Lights"},
        {"ksScriptLinkSet", "Light link sets"},
        {"ksScriptMaterial", "Materials"},
        {"ksScriptSurface", "Materials"},
        {"ksScriptConstraint", "Constraints"},
    };
    std::set<std::string> seen;
    ksScriptRegistry::visitClasses([&](const QMetaObject &type, const QStringList &parts) {
        const auto place = sections.find(type.className());
        ASSERT_NE(place, sections.end()) << type.className() << " has no section on the page";
        EXPECT_THAT(section(place->second), testing::HasSubstr('\n' + tableOf(type) + '\n')) << tableOf(type);
        for (const QString &part : parts)
            EXPECT_TRUE(names(page, part.toStdString())) << part.toStdString();
        seen.insert(type.className());
    });
    EXPECT_EQ(seen.size(), sections.size());
    for (const char *function : {"print", "help"})
        EXPECT_TRUE(names(section("Output"), function));
}

/// A description without the member that it is of would promise what is not there.
TEST_F(ksScriptingPage, DescribesWhatThereIs)
{
    ksScriptRegistry::visitClasses([](const QMetaObject &type, const QStringList &) {
        for (const ksScriptMember &member : ksScriptDescription::ownMembersOf(type)) {
            const QByteArray name = member.name.toLatin1();
            if (member.isProperty) {
                EXPECT_GE(type.indexOfProperty(name.constData()), 0)
                    << type.className() << ' ' << name.toStdString();
                continue;
            }
            int least = 1000;
            int most = -1;
            for (int i = type.methodOffset(); i < type.methodCount(); ++i)
                if (type.method(i).name() == name) {
                    least = std::min(least, type.method(i).parameterCount());
                    most = std::max(most, type.method(i).parameterCount());
                }
            // What is said in JavaScript has no method.
            if (most < 0) {
                EXPECT_TRUE(member.isVariadic || name == "macro")
                    << type.className() << ' ' << name.toStdString();
                continue;
            }
            EXPECT_EQ(member.least, least) << type.className() << ' ' << name.toStdString();
            EXPECT_EQ(static_cast<int>(member.parameters.size()), most)
                << type.className() << ' ' << name.toStdString();
        }
    });
}

/// One that is not described cannot be seen by scripts, which is right for what the prelude calls only.
TEST_F(ksScriptingPage, DescribesEverything)
{
    const std::set<std::string> internal = {"label",      "write",     "complain",  "openMacro",
                                            "closeMacro", "openBatch", "closeBatch"};
    ksScriptRegistry::visitClasses([&internal](const QMetaObject &type, const QStringList &) {
        std::set<std::string> described = internal;
        for (const ksScriptMember &member : ksScriptDescription::ownMembersOf(type))
            described.insert(member.name.toStdString());
        for (int i = type.propertyOffset(); i < type.propertyCount(); ++i)
            EXPECT_EQ(described.count(type.property(i).name()), 1u)
                << type.className() << ' ' << type.property(i).name();
        for (int i = type.methodOffset(); i < type.methodCount(); ++i)
            EXPECT_EQ(described.count(type.method(i).name().toStdString()), 1u)
                << type.className() << ' ' << type.method(i).name().toStdString();
    });
}
