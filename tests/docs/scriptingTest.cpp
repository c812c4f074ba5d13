// SPDX-License-Identifier: MIT
#include <editor/history/ksRecord.h>
#include <editor/history/ksRecordedHistory.h>
#include <editor/script/ksScriptHost.h>
#include <editor/script/ksScriptRegistry.h>
#include <editor/session/ksEditorOptions.h>
#include <editor/session/ksEditorSession.h>
#include <tests/editor/ksEditorFixture.h>

#include <QMetaMethod>

#include <map>
#include <memory>
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

    ksTestFolder folder;
    std::string page;
};

/// What \a type declares for scripts beyond its base class.
std::set<std::string> membersOf(const QMetaObject &type)
{
    std::set<std::string> names;
    for (int i = type.propertyOffset(); i < type.propertyCount(); ++i)
        names.insert(type.property(i).name());
    for (int i = type.methodOffset(); i < type.methodCount(); ++i)
        names.insert(type.method(i).name().toStdString());
    return names;
}

/// The classes of the objects that scripts can get at, with their members.
std::map<std::string, std::set<std::string>> scriptClasses()
{
    std::map<std::string, std::set<std::string>> classes;
    const auto visit = [&classes](const QObject &object) {
        for (const QMetaObject *type = object.metaObject(); type != &QObject::staticMetaObject;
             type = type->superClass())
            classes[type->className()] = membersOf(*type);
    };

    const osg::NodeRefPtr root(osg::Node::create());
    std::ostringstream out;
    ksUndoStack stack;
    ksRecord record(out);
    ksRecordedHistory history(root.get(), record, &stack);
    QJSEngine engine;
    ksScriptHost host(engine, history, out);
    ksScriptRegistry::makeGlobals(
        host, [&visit](const char *, QObject *global) { visit(*std::unique_ptr<QObject>(global)); });
    auto &factory = *osg::FieldContainerFactory::the();
    for (auto type = factory.beginTypes(); type != factory.endTypes(); ++type) {
        const osg::RefPtr<osg::FieldContainerPtr> container(type->second->createFieldContainer());
        if (container.get() == osg::NullFC)
            continue;
        const std::unique_ptr<QObject> object(ksScriptRegistry::makeObject(host, container.get()));
        visit(*object);
        ksScriptRegistry::makeParts(host, container.get(), *object,
                                    [&visit](const char *, QObject *part) { visit(*part); });
    }
    return classes;
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

TEST_F(ksScriptingPage, NamesEverythingThatScriptsSee)
{
    const std::map<std::string, std::string> sections = {
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
    const auto classes = scriptClasses();
    for (const auto &[name, title] : sections)
        EXPECT_EQ(classes.count(name), 1u) << name;
    for (const auto &[name, members] : classes) {
        const auto place = sections.find(name);
        ASSERT_NE(place, sections.end()) << name << " has no section on the page";
        for (const std::string &member : members)
            EXPECT_TRUE(names(section(place->second), member)) << name << ": " << member;
    }
    EXPECT_TRUE(names(section("The history"), "macro"));
    EXPECT_TRUE(names(page, "print"));
}
