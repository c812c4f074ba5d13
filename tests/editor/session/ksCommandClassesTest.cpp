// SPDX-License-Identifier: MIT
#include <editor/history/ksCheckedHistory.h>
#include <editor/history/ksTranscript.h>
#include <editor/session/ksCommandClasses.h>
#include <tests/editor/ksEditorFixture.h>

#include <ksundo/core/ksMultiCommand.h>
#include <ksundo/field/ksBoolFieldUndoCommand.h>

#include <QDirIterator>
#include <QFile>
#include <QRegularExpression>

#include <set>
#include <sstream>

namespace {

using testing::HasSubstr;
using testing::Not;

std::set<std::string> matchesIn(const QString &text, const QString &pattern)
{
    std::set<std::string> found;
    auto matches = QRegularExpression(pattern, QRegularExpression::MultilineOption).globalMatch(text);
    while (matches.hasNext())
        found.insert(matches.next().captured(1).toStdString());
    return found;
}

/// The classes with an id of their own that the library's headers declare, and the instances that they name
/// of those that are templates.
std::set<std::string> declaredClasses()
{
    QString text;
    QDirIterator headers(QStringLiteral(KSUNDO_SOURCES), {QStringLiteral("*.h")}, QDir::Files,
                         QDirIterator::Subdirectories);
    while (headers.hasNext()) {
        QFile file(headers.next());
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        text += QString::fromUtf8(file.readAll());
    }
    std::set<std::string> classes = matchesIn(text, QStringLiteral("^    KS_UNDO_COMMAND\\((\\w+)\\)"));
    for (const std::string &instance :
         matchesIn(text, QStringLiteral("^extern template class KSUNDO_EXPORT (\\w+<.+>);")))
        if (classes.count(instance.substr(0, instance.find('<'))) > 0)
            classes.insert(instance);
    for (auto entry = classes.begin(); entry != classes.end();) {
        const auto instance = classes.lower_bound(*entry + '<');
        const bool isTemplate = instance != classes.end() && instance->rfind(*entry + '<', 0) == 0;
        entry = isTemplate ? classes.erase(entry) : std::next(entry);
    }
    return classes;
}

} // namespace

TEST(ksCommandClasses, AreThoseOfTheLibrary)
{
    std::set<std::string> names;
    std::set<int> ids;
    for (const ksCommandClass &commandClass : ksCommandClasses::all()) {
        names.insert(commandClass.name);
        ids.insert(commandClass.id());
    }
    EXPECT_EQ(names, declaredClasses());
    EXPECT_GT(names.size(), 50u);
    EXPECT_EQ(ids.size(), names.size());
}

using ksCommandClassesTest = ksEditorFixture;

TEST_F(ksCommandClassesTest, AreMissedByName)
{
    std::ostringstream out;
    ksTranscript transcript(out);
    ksUndoStack stack;
    ksCheckedHistory history(root, transcript, &stack);
    EXPECT_EQ(ksCommandClasses::countIn(history), 0);

    auto *batch = new ksMultiCommand(QStringLiteral("Lock"));
    new ksBoolFieldUndoCommand(childSettings(), "locked", true, batch);
    history.add(batch);
    EXPECT_EQ(ksCommandClasses::countIn(history), 2);
    ksCommandClasses::verifyIn(history);
    EXPECT_EQ(history.differenceCount(), static_cast<int>(ksCommandClasses::all().size()) - 2);
    EXPECT_THAT(out.str(), HasSubstr("FAILS    there is a ksFieldUndoCommand<unsigned char>\n"));
    EXPECT_THAT(out.str(), Not(HasSubstr("there is a ksMultiCommand\n")));
    EXPECT_THAT(out.str(), Not(HasSubstr("there is a ksBoolFieldUndoCommand\n")));
}
