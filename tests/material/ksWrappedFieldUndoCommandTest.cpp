// SPDX-License-Identifier: MIT
#include "ksMaterialFixture.h"

#include <ksundo/core/ksUndoStack.h>
#include <ksundo/material/ksColorComponentUndoCommand.h>
#include <ksundo/material/ksMaterialUndoCommand.h>

#include <memory>
#include <support/ksFieldTarget.h>
#include <support/ksVirtualSlot.h>

namespace {

struct OfMaterial
{
    using Command = ksMaterialUndoCommand;
    using Other = ksColorComponentUndoCommand;

    static constexpr const char *firstKey = "material";
    static constexpr const char *secondKey = "componentSettings";
};

struct OfComponent
{
    using Command = ksColorComponentUndoCommand;
    using Other = ksMaterialUndoCommand;

    static constexpr const char *firstKey = "component";
    static constexpr const char *secondKey = "parent";
};

/// Says that it can merge, but does not.
class ReluctantCommand : public ksFieldBaseUndoCommand
{
    KS_UNDO_COMMAND(ReluctantCommand)

public:
    using ksFieldBaseUndoCommand::ksFieldBaseUndoCommand;
};

/// What the commands around one field command have in common. Their two containers are the material and the
/// settings, whatever they call them.
template <class Kind>
class ksWrappedFieldUndoCommandTest : public ksMaterialFixture
{
protected:
    using Command = typename Kind::Command;

    std::unique_ptr<Command> make(ksFieldBaseUndoCommand *inner, const osg::FieldContainerPtr &first,
                                  const osg::FieldContainerPtr &second) const
    {
        return std::make_unique<Command>(QStringLiteral("text"), inner, first, second);
    }

    std::unique_ptr<Command> make(ksFieldBaseUndoCommand *inner) const
    {
        return make(inner, material.get(), settings.get());
    }

    std::unique_ptr<Command> make(float weight) const { return make(weightCommand(weight)); }
};

/// Two commands that merge; each test changes one thing about the newer one.
template <class Kind>
class ksWrappedFieldCommandMerging : public ksWrappedFieldUndoCommandTest<Kind>
{
protected:
    using Command = typename Kind::Command;

    ksWrappedFieldCommandMerging()
    {
        older = this->make(olderInner = this->weightCommand(2));
        newer = this->make(newerInner = this->weightCommand(3));
        ksCommandTime::of(*olderInner) = 0.0;
        ksCommandTime::of(*newerInner) = 0.125;
        setTimes();
    }

    void setTimes()
    {
        ksCommandTime::of(*older) = 0.0;
        ksCommandTime::of(*newer) = 0.125;
    }

    void replaceNewer(const osg::FieldContainerPtr &first, const osg::FieldContainerPtr &second)
    {
        newer = this->make(newerInner = this->weightCommand(3), first, second);
        ksCommandTime::of(*newerInner) = 0.125;
        setTimes();
    }

    void expectMerge()
    {
        EXPECT_TRUE(older->canMergeWith(newer.get()));
        EXPECT_TRUE(older->mergeWith(newer.get()));
        EXPECT_EQ(ksCommandTime::of(*older), 0.125);
        EXPECT_EQ(ksCommandTime::of(*olderInner), 0.125);
    }

    void expectNoMerge()
    {
        EXPECT_FALSE(older->canMergeWith(newer.get()));
        EXPECT_FALSE(older->mergeWith(newer.get()));
        EXPECT_EQ(ksCommandTime::of(*older), 0.0);
        EXPECT_EQ(ksCommandTime::of(*olderInner), 0.0);
    }

    std::unique_ptr<Command> older;
    std::unique_ptr<Command> newer;
    ksFieldBaseUndoCommand *olderInner;
    ksFieldBaseUndoCommand *newerInner;
};

using Kinds = testing::Types<OfMaterial, OfComponent>;
TYPED_TEST_SUITE(ksWrappedFieldUndoCommandTest, Kinds);
TYPED_TEST_SUITE(ksWrappedFieldCommandMerging, Kinds);

} // namespace

TYPED_TEST(ksWrappedFieldUndoCommandTest, RunsItsInnerCommand)
{
    const auto command = this->make(2.0f);
    EXPECT_EQ(this->component->getWeight(), 1);
    for (int i = 0; i < 2; ++i) {
        command->redo();
        EXPECT_EQ(this->component->getWeight(), 2);
        command->undo();
        EXPECT_EQ(this->component->getWeight(), 1);
    }
}

TYPED_TEST(ksWrappedFieldUndoCommandTest, OwnsItsInnerCommand)
{
    class Watched : public ksFieldBaseUndoCommand
    {
    public:
        explicit Watched(int &gone)
            : ksFieldBaseUndoCommand(QString(), osg::NullFC, 1)
            , gone(gone)
        {}
        ~Watched() override { ++gone; }

    private:
        int &gone;
    };

    int gone = 0;
    auto command = this->make(new Watched(gone));
    command->redo();
    EXPECT_EQ(gone, 0);
    command.reset();
    EXPECT_EQ(gone, 1);
}

TYPED_TEST(ksWrappedFieldUndoCommandTest, MayBeDestroyedWithoutAnInnerCommand)
{
    auto command = this->make(nullptr);
    EXPECT_EQ(command->text(), QStringLiteral("text"));
    command.reset();
    EXPECT_EQ(this->recorder.take(), ksRecords());
}

TYPED_TEST(ksWrappedFieldUndoCommandTest, ChangesAndHoldsNothingBeforeItRuns)
{
    const auto before = this->scene();
    const auto command = this->make(2.0f);
    EXPECT_EQ(this->scene(), before);
    EXPECT_EQ(this->countOf(this->material.get()), 1);
    EXPECT_EQ(this->countOf(this->settings.get()), 2);
    EXPECT_EQ(this->countOf(this->component.get()), 2);
    this->expectStep({}, {});
}

TYPED_TEST(ksWrappedFieldUndoCommandTest, ChangesNothingButTheInnerCommandsField)
{
    auto expected = this->scene();
    const auto command = this->make(2.0f);
    command->redo();
    expected[this->recorder.idOf(this->component.get())]["weight"] = "2";
    EXPECT_EQ(this->scene(), expected);
}

TYPED_TEST(ksWrappedFieldUndoCommandTest, HasItsTextAndParent)
{
    QUndoCommand parent;
    const auto *command = new typename TypeParam::Command(
        QStringLiteral("own"), this->weightCommand(2), this->material.get(), this->settings.get(), &parent);
    ASSERT_EQ(parent.childCount(), 1);
    EXPECT_EQ(parent.child(0), command);
    EXPECT_EQ(command->text(), QStringLiteral("own"));
    parent.redo();
    EXPECT_EQ(this->component->getWeight(), 2);
}

TYPED_TEST(ksWrappedFieldUndoCommandTest, TellsItsContainersButNoNullOnes)
{
    const std::string inner = this->keyOf("container", this->component.get());
    const std::string id = "id=int:" + std::to_string(TypeParam::Command::commandId());
    const std::string first = this->keyOf(TypeParam::firstKey, this->material.get());
    const std::string second = this->keyOf(TypeParam::secondKey, this->settings.get());
    const auto keysOf = [this](const osg::FieldContainerPtr &first, const osg::FieldContainerPtr &second) {
        ksMessage message;
        this->make(this->weightCommand(2), first, second)->makeMessage(message);
        std::vector<std::string> keys;
        for (const auto &[key, value] : message.values())
            keys.push_back(key + '=' + ksDescribe(value));
        return keys;
    };
    using testing::UnorderedElementsAre;
    const osg::FieldContainerPtr null;
    EXPECT_THAT(keysOf(this->material.get(), this->settings.get()),
                UnorderedElementsAre(inner, id, first, second));
    EXPECT_THAT(keysOf(this->material.get(), null), UnorderedElementsAre(inner, id, first));
    EXPECT_THAT(keysOf(null, this->settings.get()), UnorderedElementsAre(inner, id, second));
    EXPECT_THAT(keysOf(null, null), UnorderedElementsAre(inner, id));
}

TYPED_TEST(ksWrappedFieldUndoCommandTest, TellsZeroForAnInnerCommandWithoutAnAim)
{
    const auto command = this->make(new ksFieldUndoCommand<float>(QString(), osg::NullFC, "weight", 2),
                                    osg::NullFC, osg::NullFC);
    EXPECT_EQ(ksMessageOf(*command),
              "container=uint:0 id=int:" + std::to_string(TypeParam::Command::commandId()));
}

TYPED_TEST(ksWrappedFieldUndoCommandTest, TellsItsContainersAlsoWhenTheyHaveGone)
{
    const auto command = this->make(2.0f);
    const std::string before = ksMessageOf(*command);
    this->destroyComponent();
    this->destroySettings();
    this->destroyMaterial();
    EXPECT_EQ(ksMessageOf(*command), before);
}

TYPED_TEST(ksWrappedFieldUndoCommandTest, HasAnIdOfItsOwn)
{
    const auto command = this->make(2.0f);
    EXPECT_EQ(command->id(), TypeParam::Command::commandId());
    EXPECT_EQ(command->id(), ksUndoCommand::makeId(typeid(*command)));
    EXPECT_NE(command->id(), TypeParam::Other::commandId());
}

TYPED_TEST(ksWrappedFieldUndoCommandTest, KeepsItsVirtualFunctionsInOrder)
{
    using Command = typename TypeParam::Command;
    EXPECT_EQ(ksVirtualSlot(&Command::undo), 2u);
    EXPECT_EQ(ksVirtualSlot(&Command::redo), 3u);
    EXPECT_EQ(ksVirtualSlot(&Command::id), 4u);
    EXPECT_EQ(ksVirtualSlot(&Command::mergeWith), 5u);
    EXPECT_EQ(ksVirtualSlot(&Command::makeMessage), 6u);
    EXPECT_EQ(ksVirtualSlot(&Command::canMergeWith), 7u);
}

TYPED_TEST(ksWrappedFieldUndoCommandTest, TouchesAContainerByItsIdWhenAsked)
{
    const auto command = this->make(2.0f);
    const osg::UInt32 id = this->idOf(this->settings.get());
    const osg::BitVector mask = osg::BitVector(1) << 40 | 2;
    const auto before = this->scene();
    command->touch(id, mask);
    this->expectStep(ksRecords().change(this->recorder.idOf(this->settings.get()), mask),
                     {{id, mask, 1, 1, "1"}});
    EXPECT_EQ(this->scene(), before);
    command->touch(0, mask);
    command->touch(~0u, mask);
    this->destroySettings();
    command->touch(id, mask);
    this->expectStep({}, {});
}

TYPED_TEST(ksWrappedFieldUndoCommandTest, UndoesADragAtOnce)
{
    ksUndoStack stack;
    for (const int step : {1, 2, 3}) {
        auto *inner = this->weightCommand(1 + static_cast<float>(step));
        auto command = this->make(inner);
        ksCommandTime::of(*inner) = 0.1 * step;
        ksCommandTime::of(*command) = 0.1 * step;
        stack.add(command.release());
    }
    EXPECT_EQ(stack.count(), 1);
    EXPECT_EQ(this->component->getWeight(), 4);
    stack.undo();
    EXPECT_EQ(this->component->getWeight(), 1);
    stack.redo();
    EXPECT_EQ(this->component->getWeight(), 4);
}

TYPED_TEST(ksWrappedFieldCommandMerging, MergesTheInnerCommandsAndSlidesBothWindows)
{
    this->expectMerge();
}

TYPED_TEST(ksWrappedFieldCommandMerging, HappensAlsoWhenTheContainersHaveGone)
{
    this->destroyComponent();
    this->destroySettings();
    this->destroyMaterial();
    this->expectMerge();
}

TYPED_TEST(ksWrappedFieldCommandMerging, HappensWithoutContainers)
{
    this->replaceNewer(osg::NullFC, osg::NullFC);
    this->expectNoMerge();
    this->older = this->make(this->olderInner = this->weightCommand(2), osg::NullFC, osg::NullFC);
    ksCommandTime::of(*this->olderInner) = 0.0;
    this->setTimes();
    this->expectMerge();
}

TYPED_TEST(ksWrappedFieldCommandMerging, IsRefusedWhenSwitchedOff)
{
    this->newer->setMergeEnabled(false);
    this->expectNoMerge();
}

TYPED_TEST(ksWrappedFieldCommandMerging, IsRefusedAtTheEndOfTheWindow)
{
    ksCommandTime::of(*this->newer) = 0.4;
    this->expectNoMerge();
}

TYPED_TEST(ksWrappedFieldCommandMerging, IsRefusedForAnotherClass)
{
    const typename TypeParam::Other other(QString(), this->weightCommand(3), this->material.get(),
                                          this->settings.get());
    EXPECT_FALSE(this->older->canMergeWith(&other));
    EXPECT_FALSE(this->older->mergeWith(&other));
}

TYPED_TEST(ksWrappedFieldCommandMerging, IsRefusedForAnotherFirstContainer)
{
    this->replaceNewer(this->component.get(), this->settings.get());
    this->expectNoMerge();
    this->replaceNewer(osg::NullFC, this->settings.get());
    this->expectNoMerge();
}

TYPED_TEST(ksWrappedFieldCommandMerging, IsRefusedForAnotherSecondContainer)
{
    this->replaceNewer(this->material.get(), this->component.get());
    this->expectNoMerge();
    this->replaceNewer(this->material.get(), osg::NullFC);
    this->expectNoMerge();
}

TYPED_TEST(ksWrappedFieldCommandMerging, IsRefusedForTheContainersInReverse)
{
    this->replaceNewer(this->settings.get(), this->material.get());
    this->expectNoMerge();
}

TYPED_TEST(ksWrappedFieldCommandMerging, IsRefusedWhenTheInnerCommandsAreOnDifferentContainers)
{
    ksFieldTarget::idOfContainer(*this->newerInner) = this->idOf(this->material.get());
    this->expectNoMerge();
}

TYPED_TEST(ksWrappedFieldCommandMerging, IsRefusedWhenTheInnerCommandsAreOnDifferentFields)
{
    ksFieldTarget::idOfField(*this->newerInner) = osg::ColorComponent::ColorFieldId;
    this->expectNoMerge();
}

TYPED_TEST(ksWrappedFieldCommandMerging, IsRefusedWhenTheInnerCommandIsOutOfItsWindow)
{
    ksCommandTime::of(*this->newerInner) = 0.4;
    this->expectNoMerge();
}

TYPED_TEST(ksWrappedFieldCommandMerging, IsRefusedWhenTheInnerCommandIsSwitchedOff)
{
    this->newerInner->setMergeEnabled(false);
    this->expectNoMerge();
}

TYPED_TEST(ksWrappedFieldCommandMerging, FailsWhenTheInnerCommandsDoNotMergeAfterAll)
{
    const auto reluctant = [this] {
        return new ReluctantCommand(QString(), this->component.get(), "weight");
    };
    this->older = this->make(reluctant());
    this->newer = this->make(reluctant());
    this->setTimes();
    EXPECT_TRUE(this->older->canMergeWith(this->newer.get()));
    EXPECT_FALSE(this->older->mergeWith(this->newer.get()));
    EXPECT_EQ(ksCommandTime::of(*this->older), 0.125) << "the window slides before the inner commands merge";
}
