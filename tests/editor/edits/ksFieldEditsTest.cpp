// SPDX-License-Identifier: MIT
#include <editor/edits/ksFieldEdits.h>
#include <tests/editor/ksEditorFixture.h>

#include <ksundo/core/ksUndoStack.h>
#include <ksundo/field/ksBoolFieldUndoCommand.h>
#include <ksundo/field/ksFieldUndoCommand.h>

#include <memory>

namespace {

class ksFieldEditsTest : public ksEditorFixture
{
protected:
    ~ksFieldEditsTest() override { ksUndoStack::clearAll(); }

    std::unique_ptr<ksUndoCommand> make(const char *field, const QVariant &value) const
    {
        return std::unique_ptr<ksUndoCommand>(ksFieldEdits::make(
            QStringLiteral("Edit"), childSettings(), QString::fromLatin1(field), value, ksMerging::Never));
    }

    template <class CommandT>
    void expectCommand(const char *field, const QVariant &value) const
    {
        EXPECT_NE(dynamic_cast<CommandT *>(make(field, value).get()), nullptr) << field;
    }

    std::string refusal(const char *field, const QVariant &value) const
    {
        return ksErrorOf([&] { make(field, value); });
    }

    void push(float opacity, ksMerging merging) const
    {
        ksUndoStack::get(0)->add(
            ksFieldEdits::make(QString(), childSettings(), QStringLiteral("opacity"), opacity, merging));
    }
};

} // namespace

TEST_F(ksFieldEditsTest, PickTheCommandForTheField)
{
    expectCommand<ksFieldUndoCommand<osg::UInt8>>("layer", 1);
    expectCommand<ksFieldUndoCommand<osg::Int8>>("lodBias", 1);
    expectCommand<ksFieldUndoCommand<osg::Int16>>("renderOrder", 1);
    expectCommand<ksFieldUndoCommand<osg::UInt16>>("stencilReference", 1);
    expectCommand<ksFieldUndoCommand<osg::UInt32>>("pickId", 1);
    expectCommand<ksFieldUndoCommand<osg::Int32>>("sortKey", 1);
    expectCommand<ksFieldUndoCommand<osg::UInt64>>("userFlags", 1);
    expectCommand<ksFieldUndoCommand<osg::Int64>>("revision", 1);
    expectCommand<ksFieldUndoCommand<osg::Real32>>("opacity", 1);
    expectCommand<ksFieldUndoCommand<osg::Real64>>("timeOffset", 1);
    expectCommand<ksBoolFieldUndoCommand>("locked", true);
}

TEST_F(ksFieldEditsTest, SetTheValue)
{
    make("userFlags", QStringLiteral("18446744073709551615"))->redo();
    EXPECT_EQ(childSettings()->getUserFlags(), 18446744073709551615u);
    make("locked", true)->redo();
    EXPECT_TRUE(childSettings()->getLocked());
}

TEST_F(ksFieldEditsTest, RefuseWhatDoesNotFit)
{
    EXPECT_EQ(refusal("layer", 256), "'layer' is a whole number from 0 to 255, not 256");
    EXPECT_EQ(refusal("layer", 0.5), "'layer' is a whole number from 0 to 255, not 0.5");
    EXPECT_EQ(refusal("opacity", QStringLiteral("half")), "'opacity' is a number, not 'half'");
    EXPECT_EQ(refusal("locked", 1), "'locked' is true or false, not 1");
    EXPECT_EQ(refusal("layer", QStringLiteral("7")), "'layer' is a whole number from 0 to 255, not '7'");
    EXPECT_EQ(refusal("layer", {}), "'layer' is a whole number from 0 to 255, not undefined");
}

TEST_F(ksFieldEditsTest, RefuseFieldsThatCannotBeEdited)
{
    const std::string label = ksContainers::label(childSettings()).toStdString();
    EXPECT_EQ(refusal("layers", 1), label + " has no field 'layers' that can be edited");
    EXPECT_EQ(refusal("parents", 1), label + " has no field 'parents' that can be edited");
    EXPECT_EQ(ksErrorOf([this] {
                  ksFieldEdits::make(QString(), child, QStringLiteral("core"), 1, ksMerging::Never);
              }),
              "the field 'core' of " + ksContainers::label(child).toStdString() + " cannot be edited");
}

TEST_F(ksFieldEditsTest, MergeOnlyWhenAsked)
{
    push(0.5F, ksMerging::Never);
    push(0.25F, ksMerging::Never);
    EXPECT_EQ(ksUndoStack::get(0)->count(), 2);
    push(0.125F, ksMerging::WithPrevious);
    EXPECT_EQ(ksUndoStack::get(0)->count(), 2);
    ksUndoStack::get(0)->undo();
    EXPECT_EQ(childSettings()->getOpacity(), 0.5F);
}

TEST_F(ksFieldEditsTest, HaveADefaultText)
{
    EXPECT_EQ(ksFieldEdits::defaultText(childSettings(), QStringLiteral("layer")),
              QStringLiteral("Set layer of 'Child'"));
}
