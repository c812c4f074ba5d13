// SPDX-License-Identifier: MIT
#include "ksFieldFixture.h"

#include <ksundo/core/ksMultiCommand.h>
#include <ksundo/core/ksUndoStack.h>
#include <ksundo/field/ksBoolFieldUndoCommand.h>
#include <ksundo/field/ksFieldUndoCommand.h>
#include <ksundo/field/ksUndoUtil.h>

#include <cmath>
#include <limits>
#include <type_traits>
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

    /// Expects that the field called \a name gets as many of the low bits of numbers as it has room for.
    template <class T>
    void expectInteger(const char *name)
    {
        for (const long long value : {-3LL, 3LL, 300LL, 65537LL, huge, tiny}) {
            makeInt(name, value);
            expectPushed<ksFieldUndoCommand<T>>();
            const T written = static_cast<osg::SField<T> *>(probe->getField(name))->getValue();
            using Bits = std::make_unsigned_t<T>;
            EXPECT_EQ(static_cast<Bits>(written), static_cast<Bits>(value)) << value;
        }
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

TEST_F(ksUndoUtilTest, MakesTheIntegerCommandOfTheFieldAndCutsTheNumberToItsWidth)
{
    expectInteger<long long>("int64");
    expectInteger<unsigned long long>("uint64");
    expectInteger<int>("int32");
    expectInteger<unsigned int>("uint32");
    expectInteger<short>("int16");
    expectInteger<unsigned short>("uint16");
    expectInteger<signed char>("int8");
    expectInteger<unsigned char>("uint8");
    EXPECT_TRUE(ksUndoStack::get(1)->isEmpty());
    makeInt("int8", 200);
    EXPECT_EQ(probe->getInt8(), -56);
    makeInt("uint32", -2);
    EXPECT_EQ(probe->getUInt32(), 4294967294u);
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

TEST_F(ksUndoUtilTest, MakesNothingForOtherFieldsUnknownNamesAndNoContainer)
{
    ksMultiCommand batch{QString()};
    for (QUndoCommand *parent : {static_cast<QUndoCommand *>(nullptr), static_cast<QUndoCommand *>(&batch)}) {
        for (const char *name : {"text", "glEnum", "time", "numbers", "", "unknown", "INT32", "REAL32"}) {
            makeInt(name, 9, parent);
            makeFloat(name, 9.0, parent);
        }
        for (const char *name : {"real32", "real64"})
            makeInt(name, 9, parent);
        for (const char *name :
             {"int64", "uint64", "int32", "uint32", "int16", "uint16", "int8", "uint8", "flag"})
            makeFloat(name, 9.0, parent);
        ksUndoUtil::makeIntTypeCommand(QString(), osg::NullFC, "int32", 9, parent);
        ksUndoUtil::makeFloatTypeCommand(QString(), osg::NullFC, "real32", 9.0, parent);
    }
    EXPECT_EQ(batch.childCount(), 0);
    expectNothingBuilt();
}
