// SPDX-License-Identifier: MIT
#include "ksFieldFixture.h"

#include <ksundo/core/ksUndoStack.h>
#include <ksundo/field/ksFieldUndoCommand.h>

#include <OSGColorComponent.h>

#include <cstring>
#include <limits>
#include <memory>
#include <support/ksAspects.h>

namespace {

/// Field commands on the probe's field that is exactly an osg::SField<T>.
template <class T>
class ksFieldUndoCommandTest : public ksFieldFixture
{
protected:
    ksFieldUndoCommandTest()
    {
        for (id = 1; dynamic_cast<osg::SField<T> *>(probe->getField(id)) == nullptr;)
            ++id;
        set(T(5));
    }

    osg::SField<T> &field() { return static_cast<osg::SField<T> &>(*probe->getField(id)); }
    T get() { return field().getValue(); }
    void set(T value) { field().setValue(value); }

    std::unique_ptr<ksFieldUndoCommand<T>> make(T value, QUndoCommand *parent = nullptr)
    {
        return std::make_unique<ksFieldUndoCommand<T>>(QStringLiteral("text"), container(),
                                                       static_cast<int>(id), value, parent);
    }

    osg::UInt32 id;
};

template <class T>
std::vector<T> extremes()
{
    using Limits = std::numeric_limits<T>;
    std::vector<T> result{T(0), T(1), T(-1), Limits::lowest(), Limits::min(), Limits::max()};
    if (!Limits::is_integer)
        result.insert(result.end(), {Limits::denorm_min(), Limits::infinity(), -Limits::infinity(), -T(0),
                                     Limits::quiet_NaN(), T(1) + Limits::epsilon()});
    return result;
}

template <class T>
bool areSameBits(T left, T right)
{
    return std::memcmp(&left, &right, sizeof(T)) == 0;
}

using Numbers = testing::Types<long long, unsigned long long, int, unsigned int, short, unsigned short,
                               signed char, unsigned char, float, double>;
TYPED_TEST_SUITE(ksFieldUndoCommandTest, Numbers);

using ksIntegerFieldTest = ksFieldUndoCommandTest<int>;

} // namespace

TYPED_TEST(ksFieldUndoCommandTest, ChangesOnlyItsFieldByItsId)
{
    QUndoCommand parent;
    auto *command = this->make(TypeParam(9), &parent).release();
    EXPECT_EQ(parent.child(0), command);
    this->expectForms(parent, this->id);
    auto others = this->values();
    command->redo();
    EXPECT_EQ(this->get(), TypeParam(9));
    const char *name = this->probe->getType().getFieldDescription(this->id)->getCName();
    EXPECT_NE(this->values()[name], others[name]);
    others[name] = this->values()[name];
    EXPECT_EQ(this->values(), others);
    command->undo();
    EXPECT_EQ(this->get(), TypeParam(5));
}

TYPED_TEST(ksFieldUndoCommandTest, KeepsEveryBitOfExtremeValues)
{
    for (const TypeParam before : extremes<TypeParam>())
        for (const TypeParam after : extremes<TypeParam>()) {
            this->set(before);
            const auto command = this->make(after);
            command->redo();
            EXPECT_TRUE(areSameBits(this->get(), after)) << +after;
            command->undo();
            EXPECT_TRUE(areSameBits(this->get(), before)) << +before;
        }
}

TEST_F(ksIntegerFieldTest, RestoresWhatItFindsNotWhatWasThereWhenBuilt)
{
    const auto command = make(9);
    set(6);
    command->redo();
    set(7);
    command->undo();
    EXPECT_EQ(get(), 6);
    command->redo();
    EXPECT_EQ(get(), 7);
}

TEST_F(ksIntegerFieldTest, EndsTheEditAlsoWhenTheValueStays)
{
    make(5)->redo();
    expectOneEdit(osg::ProbeContainer::Int32FieldMask, "5");
}

TEST_F(ksIntegerFieldTest, GivesItsContainerAndField)
{
    const auto command = make(9);
    EXPECT_EQ(command->getField().first, container());
    EXPECT_EQ(command->getField().second, &field());
    ksFieldTarget::idOfField(*command) = osg::ProbeContainer::UInt32FieldId;
    EXPECT_EQ(command->getField().first, container());
    EXPECT_EQ(command->getField().second, nullptr);
    destroy();
    EXPECT_EQ(command->getField().first, osg::NullFC);
    EXPECT_EQ(command->getField().second, nullptr);
}

TEST_F(ksIntegerFieldTest, MergesARunOfEditsIntoOneStep)
{
    ksUndoStack stack;
    for (const int value : {9, 10, 11}) {
        auto command = make(value);
        command->setMergeResponseDelta(-1.0);
        stack.add(command.release());
    }
    EXPECT_EQ(stack.count(), 1);
    stack.undo();
    EXPECT_EQ(get(), 5);
    stack.redo();
    EXPECT_EQ(get(), 11);
}

TEST_F(ksIntegerFieldTest, UndoesByTheRedoOfADerivedClass)
{
    struct Command : ksFieldUndoCommand<int>
    {
        using ksFieldUndoCommand<int>::ksFieldUndoCommand;
        void redo() override { ++runs; }
        int runs = 0;
    };

    Command command(QString(), container(), "q", 9);
    command.undo();
    EXPECT_EQ(command.runs, 1);
}

TEST(ksFieldUndoCommand, TakesAnyTypeThatHasAField)
{
    const osg::RefPtr<osg::ColorComponentPtr> component(osg::ColorComponent::create());
    const osg::Vec3f before = component->getColor();
    ksSyncAspects();
    ksFieldUndoCommand<osg::Vec3f> command(QString(), component.get(), "color", osg::Vec3f(1, 2, 3));
    EXPECT_NE(command.id(), ksFieldUndoCommand<float>::commandId());
    command.redo();
    EXPECT_EQ(component->getColor(), osg::Vec3f(1, 2, 3));
    ksExpectSync(component.get());
    command.undo();
    EXPECT_EQ(component->getColor(), before);
}
