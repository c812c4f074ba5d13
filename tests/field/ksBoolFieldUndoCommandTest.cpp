// SPDX-License-Identifier: MIT
#include "ksFieldFixture.h"

#include <ksundo/field/ksBoolFieldUndoCommand.h>

#include <limits>

namespace {

using ksBoolFieldUndoCommandTest = ksFieldFixture;

/// Bool commands on the probe's integer field that is exactly an osg::SField<T>.
template <class T>
class ksBoolCommandOnAnInteger : public ksFieldFixture
{
protected:
    ksBoolCommandOnAnInteger()
    {
        for (id = 1; dynamic_cast<osg::SField<T> *>(probe->getField(id)) == nullptr;)
            ++id;
    }

    osg::SField<T> &field() { return static_cast<osg::SField<T> &>(*probe->getField(id)); }

    /// The values that the field has, after each other, when it holds \a before and a command with \a value
    /// runs forth, back and forth.
    std::vector<T> valuesOfRuns(T before, bool value)
    {
        field().setValue(before);
        ksBoolFieldUndoCommand command(container(), int(id), value);
        std::vector<T> result;
        command.redo();
        result.push_back(field().getValue());
        command.undo();
        result.push_back(field().getValue());
        command.redo();
        result.push_back(field().getValue());
        return result;
    }

    osg::UInt32 id;
};

using Integers = testing::Types<long long, unsigned long long, int, unsigned int, short, unsigned short,
                                signed char, unsigned char>;
TYPED_TEST_SUITE(ksBoolCommandOnAnInteger, Integers);

} // namespace

TEST_F(ksBoolFieldUndoCommandTest, SwitchesOff)
{
    probe->setFlag(true);
    ksBoolFieldUndoCommand command(QString(), container(), "flag", false);
    command.redo();
    EXPECT_FALSE(probe->getFlag());
    command.undo();
    EXPECT_TRUE(probe->getFlag());
}

TEST_F(ksBoolFieldUndoCommandTest, RestoresWhatItFindsNotWhatWasThereWhenBuilt)
{
    ksBoolFieldUndoCommand command(QString(), container(), "flag", true);
    probe->setFlag(true);
    command.redo();
    command.undo();
    EXPECT_TRUE(probe->getFlag());
}

TEST_F(ksBoolFieldUndoCommandTest, HasAConstructorPerWayToNameTheField)
{
    QUndoCommand parent;
    const int id = osg::ProbeContainer::FlagFieldId;
    for (ksBoolFieldUndoCommand *command :
         {new ksBoolFieldUndoCommand(QStringLiteral("text"), container(), "flag", true, &parent),
          new ksBoolFieldUndoCommand(container(), "flag", true, &parent),
          new ksBoolFieldUndoCommand(QStringLiteral("text"), container(), id, true, &parent),
          new ksBoolFieldUndoCommand(container(), id, true, &parent)}) {
        probe->setFlag(false);
        command->redo();
        EXPECT_TRUE(probe->getFlag());
    }
    ASSERT_EQ(parent.childCount(), 4);
    expectForms(parent, id);
}

TYPED_TEST(ksBoolCommandOnAnInteger, WritesOneAndZero)
{
    EXPECT_THAT(this->valuesOfRuns(0, true), testing::ElementsAre(1, 0, 1));
    EXPECT_THAT(this->valuesOfRuns(1, false), testing::ElementsAre(0, 1, 0));
    EXPECT_THAT(this->valuesOfRuns(0, false), testing::ElementsAre(0, 0, 0));
    EXPECT_THAT(this->valuesOfRuns(1, true), testing::ElementsAre(1, 1, 1));
}

TYPED_TEST(ksBoolCommandOnAnInteger, BringsEveryNumberBackAsOne)
{
    using Limits = std::numeric_limits<TypeParam>;
    for (const TypeParam number : {TypeParam(5), TypeParam(7), TypeParam(-1), TypeParam(2), TypeParam(64),
                                   TypeParam(Limits::max() / 2 + 1), Limits::max()})
        EXPECT_THAT(this->valuesOfRuns(number, false), testing::ElementsAre(0, 1, 0)) << +number;
}
