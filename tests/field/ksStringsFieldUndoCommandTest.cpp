// SPDX-License-Identifier: MIT
#include "ksFieldFixture.h"

#include <ksundo/field/ksStringsFieldUndoCommand.h>

namespace {

class ksStringsFieldUndoCommandTest : public ksFieldFixture
{
protected:
    using Strings = std::vector<std::string>;

    static osg::MFString fieldWith(const Strings &strings)
    {
        osg::MFString field;
        ksStringsFieldUndoCommand::setStdStrings(strings, &field);
        return field;
    }

    static Strings stringsOf(const osg::MFString &field)
    {
        Strings strings{"left over"};
        ksStringsFieldUndoCommand::getStdStrings(&field, strings);
        return strings;
    }
};

} // namespace

TEST_F(ksStringsFieldUndoCommandTest, HasAConstructorWithAndWithoutText)
{
    QUndoCommand parent;
    const osg::MFString strings = fieldWith({"x", "y"});
    for (ksStringsFieldUndoCommand *command :
         {new ksStringsFieldUndoCommand(QStringLiteral("text"), container(), "words", strings, &parent),
          new ksStringsFieldUndoCommand(container(), "words", strings, &parent)}) {
        command->redo();
        EXPECT_EQ(stringsOf(probe->getWords()), Strings({"x", "y"}));
        command->undo();
        EXPECT_EQ(stringsOf(probe->getWords()), Strings());
    }
    ASSERT_EQ(parent.childCount(), 2);
    expectForms(parent, osg::ProbeContainer::WordsFieldId);
}

TEST_F(ksStringsFieldUndoCommandTest, CopiesTheStringsThatItIsGiven)
{
    *probe->getMFWords() = fieldWith({"x", "y"});
    ksStringsFieldUndoCommand command(container(), "words", probe->getWords());
    *probe->getMFWords() = fieldWith({"z"});
    command.redo();
    EXPECT_EQ(stringsOf(probe->getWords()), Strings({"x", "y"}));
}

TEST_F(ksStringsFieldUndoCommandTest, KeepsTheBoundsOfStringsWhenItMerges)
{
    ksStringsFieldUndoCommand older(container(), "words", fieldWith({"a", "bc"}));
    for (const Strings &strings : {Strings{"ab", "c"}, {"abc"}, {"a", "bc", ""}, {"a", "b", "c"}}) {
        *probe->getMFWords() = fieldWith(strings);
        ksStringsFieldUndoCommand newer(container(), "words", fieldWith({}));
        newer.setMergeResponseDelta(-1.0);
        EXPECT_FALSE(older.canMergeWith(&newer)) << testing::PrintToString(strings);
    }
}

TEST_F(ksStringsFieldUndoCommandTest, CarriesStringsBetweenFieldsAndLists)
{
    const Strings strings{"b", "a", "", "a", std::string("\0", 1)};
    osg::MFString field = fieldWith({"left over"});
    ksStringsFieldUndoCommand::setStdStrings(strings, &field);
    EXPECT_EQ(Strings(field.begin(), field.end()), strings);
    EXPECT_EQ(stringsOf(field), strings);
    ksStringsFieldUndoCommand::setStdStrings({}, &field);
    EXPECT_EQ(field.size(), 0u);
    EXPECT_EQ(stringsOf(field), Strings());
}
