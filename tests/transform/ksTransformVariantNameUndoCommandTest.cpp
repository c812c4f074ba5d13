// SPDX-License-Identifier: MIT
#include "ksTransformFixture.h"

#include <ksundo/core/ksUndoStack.h>
#include <ksundo/transform/ksTransformVariantNameUndoCommand.h>

#include <functional>
#include <support/ksEchoTranslator.h>

namespace {

using Command = ksTransformVariantNameUndoCommand;

/// A variant with the name A, and a log of what notifications are told and find.
class ksTransformVariantNameUndoCommandTest : public ksTransformFixture
{
protected:
    Command command(const std::string &name)
    {
        return Command(variant, name, nullptr, [this](const std::string &before, const std::string &after) {
            notified.push_back(before + " -> " + after + " at " + this->name());
        });
    }

    std::string name() const { return variant->getName(); }

    ksRecords edit() const
    {
        return ksRecords().change(recorder.idOf(variant), osg::TransformVariant::NameFieldMask);
    }

    ksTransformEvents take() { return std::exchange(notified, {}); }

    osg::TransformVariantRefPtr variant{ksTransformFixture::variant("A")};
    ksTransformEvents notified;
};

} // namespace

TEST_F(ksTransformVariantNameUndoCommandTest, RenamesThenNotifiesAtEveryStep)
{
    Command command = this->command("B");
    EXPECT_EQ(name(), "A");
    command.redo();
    EXPECT_THAT(take(), testing::ElementsAre("A -> B at B"));
    command.undo();
    EXPECT_THAT(take(), testing::ElementsAre("B -> A at A"));
    command.redo();
    EXPECT_THAT(take(), testing::ElementsAre("A -> B at B"));
}

TEST_F(ksTransformVariantNameUndoCommandTest, CapturesTheOldNameWhenItIsBuilt)
{
    Command command = this->command("B");
    variant->setName("C");
    command.redo();
    EXPECT_THAT(take(), testing::ElementsAre("A -> B at B"));
    variant->setName("D");
    command.undo();
    EXPECT_THAT(take(), testing::ElementsAre("B -> A at A"));
}

TEST_F(ksTransformVariantNameUndoCommandTest, SetsTheOldNameWhenUndoComesFirst)
{
    Command command = this->command("B");
    variant->setName("C");
    command.undo();
    EXPECT_THAT(take(), testing::ElementsAre("B -> A at A"));
}

TEST_F(ksTransformVariantNameUndoCommandTest, RenamesAndNotifiesAlsoWhenTheNameIsThere)
{
    Command command = this->command("A");
    forget();
    command.redo();
    EXPECT_EQ(recorder.take(), edit());
    command.undo();
    EXPECT_EQ(recorder.take(), edit());
    EXPECT_THAT(take(), testing::ElementsAre("A -> A at A", "A -> A at A"));
}

TEST_F(ksTransformVariantNameUndoCommandTest, TakesNamesAsTheyAre)
{
    for (const std::string next : {"", "%1", "K\xc3\xb6rper"}) {
        const std::string before = name();
        Command command = this->command(next);
        command.redo();
        EXPECT_EQ(name(), next);
        command.undo();
        EXPECT_EQ(name(), before);
        command.redo();
    }
}

TEST_F(ksTransformVariantNameUndoCommandTest, RecordsOneEditPerStepAndHoldsNoReference)
{
    forget();
    {
        Command command = this->command("B");
        EXPECT_EQ(recorder.take(), ksRecords());
        EXPECT_EQ(countOf(variant), 1);
        command.redo();
        EXPECT_EQ(recorder.take(), edit());
        command.undo();
        EXPECT_EQ(recorder.take(), edit());
    }
    EXPECT_EQ(recorder.take(), ksRecords());
    EXPECT_EQ(countOf(variant), 1);
}

TEST_F(ksTransformVariantNameUndoCommandTest, IsIdleWhenTheVariantHasGone)
{
    Command fresh = command("B");
    Command undone = command("B");
    undone.redo();
    undone.undo();
    Command applied = command("B");
    applied.redo();
    {
        const ksSlotSwap swap(variant.get().getFieldContainerId(), node.get());
        take();
        expectIdle(fresh);
    }
    variant = osg::NullFC;
    for (Command *command : {&fresh, &undone, &applied})
        expectIdle(*command);
    EXPECT_THAT(take(), testing::IsEmpty());
}

TEST_F(ksTransformVariantNameUndoCommandTest, ThrowsAfterItHasWrittenWithoutANotification)
{
    Command command(variant, "B", nullptr, {});
    EXPECT_THROW(command.redo(), std::bad_function_call);
    EXPECT_EQ(name(), "B");
    EXPECT_THROW(command.undo(), std::bad_function_call);
    EXPECT_EQ(name(), "A");
    variant = osg::NullFC;
    EXPECT_NO_THROW(command.redo());
}

TEST_F(ksTransformVariantNameUndoCommandTest, IsCalledByATranslatedText)
{
    EXPECT_EQ(command("B").text(), QStringLiteral("Transform Variant Name"));
    const ksEchoTranslator translator;
    EXPECT_EQ(command("B").text(),
              QStringLiteral("ksTransformVariantNameUndoCommand|Transform Variant Name"));
}

TEST_F(ksTransformVariantNameUndoCommandTest, TellsItsIdAndBelongsToItsParent)
{
    QUndoCommand parent;
    const auto *command = new Command(variant, "B", &parent, {});
    EXPECT_EQ(parent.child(0), command);
    EXPECT_EQ(command->id(), Command::commandId());
    EXPECT_EQ(ksMessageOf(*command), "id=int:" + std::to_string(Command::commandId()));
}

TEST_F(ksTransformVariantNameUndoCommandTest, NeverMerges)
{
    Command older = command("B");
    Command newer = command("C");
    expectNoMerge(older, newer);

    ksUndoStack stack;
    for (const char *next : {"B", "C"}) {
        auto *command = new Command(variant, next, nullptr, [](const std::string &, const std::string &) {});
        command->setMergeResponseDelta(-1.0);
        stack.add(command);
    }
    EXPECT_EQ(stack.count(), 2);
    stack.undo();
    EXPECT_EQ(name(), "B");
    stack.undo();
    EXPECT_EQ(name(), "A");
}
