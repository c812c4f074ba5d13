// SPDX-License-Identifier: MIT
#include "ksMaterialFixture.h"

#include <ksundo/material/ksMaterialUndoCommand.h>

#include <OpenSG/OSGGroup.h>

#include <memory>
#include <support/ksSlotSwap.h>

namespace {

class ksMaterialUndoCommandTest : public ksMaterialFixture
{
protected:
    std::unique_ptr<ksMaterialUndoCommand> make(const osg::FieldContainerPtr &first,
                                                const osg::FieldContainerPtr &second) const
    {
        return std::make_unique<ksMaterialUndoCommand>(QString(), weightCommand(2), first, second);
    }
    std::unique_ptr<ksMaterialUndoCommand> make() const { return make(material.get(), settings.get()); }
};

} // namespace

TEST_F(ksMaterialUndoCommandTest, LetsTheMaterialTakeNoticeOfItsComponent)
{
    const osg::RefPtr<osg::ColorComponentPtr> red(osg::ColorComponent::create());
    red->setColor(osg::Vec3f(1, 0, 0));
    material->addColorComponent(red);
    const auto command = make();
    command->redo();
    EXPECT_EQ(material->getBlendedColor(), osg::Vec3f(1, 2, 2) * (1 / 3.0f) + osg::Vec3f(2 / 3.0f, 0, 0));
    command->undo();
    EXPECT_EQ(material->getBlendedColor(), osg::Vec3f(1, 0.5f, 0.5f));
}

TEST_F(ksMaterialUndoCommandTest, TouchesNoNullContainers)
{
    const auto onlyMaterial = make(material.get(), osg::NullFC);
    const auto onlySettings = make(osg::NullFC, settings.get());
    const auto neither = make(osg::NullFC, osg::NullFC);
    for (const auto step : {&QUndoCommand::redo, &QUndoCommand::undo}) {
        (onlyMaterial.get()->*step)();
        EXPECT_EQ(recorder.take(), weightEdit().change(recorder.idOf(material.get()), componentsMask));
        (onlySettings.get()->*step)();
        EXPECT_EQ(recorder.take(), weightEdit().change(recorder.idOf(settings.get()), projectionMask));
        (neither.get()->*step)();
        EXPECT_EQ(recorder.take(), weightEdit());
    }
}

TEST_F(ksMaterialUndoCommandTest, TouchesWhateverItsIdsName)
{
    const osg::GroupRefPtr group(osg::Group::create());
    const auto command = make();
    forget();
    const ksSlotSwap swap(idOf(settings.get()), group);
    command->redo();
    EXPECT_EQ(recorder.take(), weightEdit()
                                   .change(recorder.idOf(group.get()), projectionMask)
                                   .change(recorder.idOf(material.get()), componentsMask));
}
