// SPDX-License-Identifier: MIT
#include "ksFieldFixture.h"

#include <ksundo/core/ksMultiCommand.h>
#include <ksundo/core/ksUndoStack.h>
#include <ksundo/field/ksBoolFieldUndoCommand.h>
#include <ksundo/field/ksFieldUndoCommand.h>
#include <ksundo/field/ksUndoUtil.h>

#include <cmath>
#include <limits>
#include <typeinfo>

namespace {

constexpr long long huge = std::numeric_limits<long long>::max();
constexpr long long tiny = std::numeric_limits<long long>::min();

class ksUndoUtilTest : public ksFieldFixture
{
protected:
    ~ksUndoUtilTest() override { ksUndoStack::clearAll(); }

    void makeInt(const char *fieldName, long long value, QUndoCommand *parent = nullptr)
    {
        ksUndoUtil::makeIntTypeCommand(QStringLiteral("set"), container(), fieldName, value, parent);
    }

    void makeFloat(const char *fieldName, double value, QUndoCommand *parent = nullptr)
    {
        ksUndoUtil::makeFloatTypeCommand(QStringLiteral("set"), container(), fieldName, value, parent);
    }

    /// Expects that the latest command pushed is exactly a \a Command.
    template <class Command>
    void expectPushed()
    {
        const QUndoCommand *command = ksUndoStack::get(0)->currentCommand();
        ASSERT_NE(command, nullptr);
        EXPECT_EQ(typeid(*command), typeid(Command));
        EXPECT_EQ(command->text(), QStringLiteral("set"));
    }

    /// Expects that nothing was built since the beginning of the test.
    void expectNothingBuilt()
    {
        EXPECT_TRUE(ksUndoStack::get(0)->isEmpty());
        EXPECT_TRUE(ksUndoStack::get(1)->isEmpty());
        EXPECT_EQ(values(), initial);
        expectNoEdit();
    }

    const ksFieldTexts initial = values();
};

} // namespace

TEST_F(ksUndoUtilTest, MakesTheIntegerCommandOfTheField)
{
    makeInt("int64", -3);
    expectPushed<ksFieldUndoCommand<long long>>();
    EXPECT_EQ(probe->getInt64(), -3);
    makeInt("uint64", 3);
    expectPushed<ksFieldUndoCommand<unsigned long long>>();
    EXPECT_EQ(probe->getUInt64(), 3u);
    makeInt("int32", -3);
    expectPushed<ksFieldUndoCommand<int>>();
    EXPECT_EQ(probe->getInt32(), -3);
    makeInt("uint32", 3);
    expectPushed<ksFieldUndoCommand<unsigned int>>();
    EXPECT_EQ(probe->getUInt32(), 3u);
    makeInt("int16", -3);
    expectPushed<ksFieldUndoCommand<short>>();
    EXPECT_EQ(probe->getInt16(), -3);
    makeInt("uint16", 3);
    expectPushed<ksFieldUndoCommand<unsigned short>>();
    EXPECT_EQ(probe->getUInt16(), 3u);
    makeInt("int8", -3);
    expectPushed<ksFieldUndoCommand<signed char>>();
    EXPECT_EQ(probe->getInt8(), -3);
    makeInt("uint8", 3);
    expectPushed<ksFieldUndoCommand<unsigned char>>();
    EXPECT_EQ(probe->getUInt8(), 3u);
    EXPECT_EQ(ksUndoStack::get(0)->count(), 8);
    EXPECT_TRUE(ksUndoStack::get(1)->isEmpty());
}

TEST_F(ksUndoUtilTest, CutsIntegersToTheWidthOfTheField)
{
    makeInt("int64", tiny);
    EXPECT_EQ(probe->getInt64(), tiny);
    makeInt("uint64", -1);
    EXPECT_EQ(probe->getUInt64(), std::numeric_limits<unsigned long long>::max());
    makeInt("int32", huge);
    EXPECT_EQ(probe->getInt32(), -1);
    makeInt("uint32", -2);
    EXPECT_EQ(probe->getUInt32(), 4294967294u);
    makeInt("int16", 32768);
    EXPECT_EQ(probe->getInt16(), -32768);
    makeInt("uint16", 65537);
    EXPECT_EQ(probe->getUInt16(), 1);
    makeInt("int8", 200);
    EXPECT_EQ(probe->getInt8(), -56);
    makeInt("uint8", 300);
    EXPECT_EQ(probe->getUInt8(), 44);
}

TEST_F(ksUndoUtilTest, MakesABoolCommandForABoolField)
{
    makeInt("flag", 2);
    expectPushed<ksBoolFieldUndoCommand>();
    EXPECT_TRUE(probe->getFlag());
    makeInt("flag", 0);
    EXPECT_FALSE(probe->getFlag());
    makeInt("flag", tiny);
    EXPECT_TRUE(probe->getFlag());
    makeInt("flag", 0);
    makeInt("flag", 1LL << 32);
    EXPECT_TRUE(probe->getFlag());
}

TEST_F(ksUndoUtilTest, MakesTheFloatCommandOfTheField)
{
    makeFloat("real32", 0.1);
    expectPushed<ksFieldUndoCommand<float>>();
    EXPECT_EQ(probe->getReal32(), 0.1f);
    makeFloat("real64", 0.1);
    expectPushed<ksFieldUndoCommand<double>>();
    EXPECT_EQ(probe->getReal64(), 0.1);
}

TEST_F(ksUndoUtilTest, RoundsToTheNearestFloat)
{
    makeFloat("real32", 16777217.0);
    EXPECT_EQ(probe->getReal32(), 16777216.0f);
    makeFloat("real32", 16777219.0);
    EXPECT_EQ(probe->getReal32(), 16777220.0f);
    makeFloat("real32", 1e-300);
    EXPECT_EQ(probe->getReal32(), 0.0f);
    makeFloat("real32", -std::numeric_limits<double>::infinity());
    EXPECT_EQ(probe->getReal32(), -std::numeric_limits<float>::infinity());
    makeFloat("real32", std::nan(""));
    EXPECT_TRUE(std::isnan(probe->getReal32()));
}

TEST_F(ksUndoUtilTest, FindsFieldsAsCommandsDo)
{
    makeInt("Int32", 9);
    EXPECT_EQ(probe->getInt32(), 9);
    makeInt("level", 9);
    EXPECT_EQ(probe->getFirstLevel(), 9);
    EXPECT_EQ(probe->getSecondLevel(), 0);
    makeFloat("Real64", 0.5);
    EXPECT_EQ(probe->getReal64(), 0.5);
}

TEST_F(ksUndoUtilTest, PushesWhatCanBeUndone)
{
    probe->setInt32(5);
    makeInt("int32", 9);
    EXPECT_EQ(ksUndoStack::get(0)->count(), 1);
    ksUndoStack::get(0)->undo();
    EXPECT_EQ(probe->getInt32(), 5);
    ksUndoStack::get(0)->redo();
    EXPECT_EQ(probe->getInt32(), 9);
}

TEST_F(ksUndoUtilTest, GivesTheCommandToItsParentWithoutRunningIt)
{
    ksMultiCommand parent{QString()};
    makeInt("int32", 9, &parent);
    makeInt("flag", 1, &parent);
    makeFloat("real32", 0.5, &parent);
    makeFloat("real64", 0.5, &parent);
    EXPECT_EQ(parent.childCount(), 4);
    EXPECT_EQ(parent.child(0)->text(), QStringLiteral("set"));
    expectNothingBuilt();

    parent.redo();
    EXPECT_EQ(probe->getInt32(), 9);
    EXPECT_TRUE(probe->getFlag());
    EXPECT_EQ(probe->getReal32(), 0.5f);
    EXPECT_EQ(probe->getReal64(), 0.5);
    parent.undo();
    EXPECT_EQ(values(), initial);
}

TEST_F(ksUndoUtilTest, MakesNoIntegerCommandForOtherFields)
{
    ksMultiCommand parent{QString()};
    for (const char *name : {"real32", "real64", "text", "glEnum", "time", "numbers"}) {
        makeInt(name, 9);
        makeInt(name, 9, &parent);
    }
    EXPECT_EQ(parent.childCount(), 0);
    expectNothingBuilt();
}

TEST_F(ksUndoUtilTest, MakesNoFloatCommandForOtherFields)
{
    ksMultiCommand parent{QString()};
    for (const char *name : {"int64", "uint64", "int32", "uint32", "int16", "uint16", "int8", "uint8", "flag",
                             "text", "glEnum", "time", "numbers"}) {
        makeFloat(name, 9.0);
        makeFloat(name, 9.0, &parent);
    }
    EXPECT_EQ(parent.childCount(), 0);
    expectNothingBuilt();
}

TEST_F(ksUndoUtilTest, MakesNothingForAnUnknownName)
{
    ksMultiCommand parent{QString()};
    for (const char *name : {"", "unknown", "INT32", "REAL32"}) {
        makeInt(name, 9);
        makeFloat(name, 9.0);
        makeInt(name, 9, &parent);
        makeFloat(name, 9.0, &parent);
    }
    EXPECT_EQ(parent.childCount(), 0);
    expectNothingBuilt();
}

TEST_F(ksUndoUtilTest, MakesNothingWithoutAContainer)
{
    ksMultiCommand parent{QString()};
    for (QUndoCommand *each : {static_cast<QUndoCommand *>(nullptr), static_cast<QUndoCommand *>(&parent)}) {
        ksUndoUtil::makeIntTypeCommand(QString(), osg::NullFC, "int32", 9, each);
        ksUndoUtil::makeFloatTypeCommand(QString(), osg::NullFC, "real32", 9.0, each);
    }
    EXPECT_EQ(parent.childCount(), 0);
    expectNothingBuilt();
}
