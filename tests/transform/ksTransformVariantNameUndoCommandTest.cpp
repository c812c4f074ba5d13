// SPDX-License-Identifier: MIT
#include "ksTransformFixture.h"

#include <ksundo/transform/ksTransformVariantNameUndoCommand.h>

#include <utility>

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
