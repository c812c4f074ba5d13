// SPDX-License-Identifier: MIT
#include "ksMaterialFixture.h"

#include <ksundo/material/ksColorComponentUndoCommand.h>
#include <ksundo/material/ksMaterialUndoCommand.h>

#include <memory>
#include <support/ksFieldTarget.h>

namespace {

struct OfMaterial
{
    using Command = ksMaterialUndoCommand;

    static constexpr const char *firstKey = "material";
    static constexpr const char *secondKey = "componentSettings";
};

struct OfComponent
{
    using Command = ksColorComponentUndoCommand;

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

TYPED_TEST(ksWrappedFieldUndoCommandTest, RunsItsInnerCommandInTheSameDirection)
{
    class Logging : public ksFieldBaseUndoCommand
    {
    public:
        explicit Logging(std::string &log)
            : ksFieldBaseUndoCommand(QString(), osg::NullFC, 1)
            , log(log)
        {}
        void undo() override { log += "undo "; }
        void redo() override { log += "redo "; }

    private:
        std::string &log;
    };

    std::string log;
    const auto command = this->make(new Logging(log));
    command->redo();
    command->undo();
    EXPECT_EQ(log, "redo undo ");
}

TYPED_TEST(ksWrappedFieldUndoCommandTest, MayBeDestroyedWithoutAnInnerCommand)
{
    auto command = this->make(nullptr);
    EXPECT_EQ(command->text(), QStringLiteral("text"));
    command.reset();
    EXPECT_EQ(this->recorder.take(), ksRecords());
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

TYPED_TEST(ksWrappedFieldUndoCommandTest, TouchesAContainerByItsIdWhenAsked)
{
    const auto command = this->make(this->weightCommand(2));
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

TYPED_TEST(ksWrappedFieldCommandMerging, IsRefusedForOtherContainers)
{
    using Pair = std::pair<osg::FieldContainerPtr, osg::FieldContainerPtr>;
    const osg::FieldContainerPtr null;
    for (const auto &[first, second] : {Pair(this->component, this->settings), Pair(null, this->settings),
                                        Pair(this->material, this->component), Pair(this->material, null),
                                        Pair(this->settings, this->material)}) {
        this->replaceNewer(first, second);
        this->expectNoMerge();
    }
}

TYPED_TEST(ksWrappedFieldCommandMerging, IsRefusedWhenOnlyTheInnerCommandsCanMerge)
{
    this->newer->setMergeEnabled(false);
    this->expectNoMerge();
    this->newer->setMergeEnabled(true);
    ksCommandTime::of(*this->newer) = 0.4;
    this->expectNoMerge();
}

TYPED_TEST(ksWrappedFieldCommandMerging, IsRefusedWhenTheInnerCommandsCannotMerge)
{
    ksFieldTarget::idOfContainer(*this->newerInner) = this->idOf(this->material.get());
    this->expectNoMerge();
    this->replaceNewer(this->material.get(), this->settings.get());
    ksCommandTime::of(*this->newerInner) = 0.4;
    this->expectNoMerge();
}

TYPED_TEST(ksWrappedFieldCommandMerging, HappensWithinOneGestureWheneverTheInnerCommandsWereMade)
{
    this->older->setGesture(1);
    this->newer->setGesture(1);
    ksCommandTime::of(*this->newerInner) = 0.125;
    ksCommandTime::of(*this->olderInner) = -3600.0;
    this->expectMerge();
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
