// SPDX-License-Identifier: MIT
#include "ksMaterialFixture.h"

#include <ksundo/material/ksMaterialMultiUndoCommand.h>

#include <support/ksProbeCommand.h>
#include <type_traits>

static_assert(!std::is_base_of_v<ksUndoCommand, ksMaterialMultiUndoCommand>);
static_assert(!std::is_constructible_v<ksMaterialMultiUndoCommand, QString, osg::FieldContainerPtr,
                                       osg::FieldContainerPtr, QUndoCommand *>,
              "always a top-level command");

namespace {

using Command = ksMaterialMultiUndoCommand;

class ksMaterialMultiUndoCommandTest : public ksMaterialFixture
{
protected:
    std::string messageOf(const osg::FieldContainerPtr &first, const osg::FieldContainerPtr &second) const
    {
        return ksMessageOf(Command(QString(), first, second));
    }
};

} // namespace

TEST_F(ksMaterialMultiUndoCommandTest, TouchesTheSettingsThenTheMaterialAlsoWithoutChildren)
{
    Command command(QString(), material.get(), settings.get());
    for (const auto step : {&QUndoCommand::redo, &QUndoCommand::undo}) {
        (command.*step)();
        EXPECT_EQ(recorder.take(), ksRecords()
                                       .change(recorder.idOf(settings.get()), projectionMask)
                                       .change(recorder.idOf(material.get()), componentsMask));
    }
}

TEST_F(ksMaterialMultiUndoCommandTest, RunsItsChildrenForthAndBack)
{
    ksProbeLog log;
    Command command(QString(), material.get(), settings.get());
    for (const char *name : {"A", "B"})
        new ksProbeCommand<>(QString::fromLatin1(name), log, &command);
    command.redo();
    command.undo();
    EXPECT_EQ(log, (ksProbeLog{"redo A", "redo B", "undo B", "undo A"}));
}

TEST_F(ksMaterialMultiUndoCommandTest, TouchesNoNullContainers)
{
    Command onlyMaterial(QString(), material.get(), osg::NullFC);
    onlyMaterial.redo();
    EXPECT_EQ(recorder.take(), ksRecords().change(recorder.idOf(material.get()), componentsMask));
    Command onlySettings(QString(), osg::NullFC, settings.get());
    onlySettings.undo();
    EXPECT_EQ(recorder.take(), ksRecords().change(recorder.idOf(settings.get()), projectionMask));
    Command nothing(QString(), osg::NullFC, osg::NullFC);
    expectIdle(nothing);
}

TEST_F(ksMaterialMultiUndoCommandTest, TellsNoNullContainersAndNothingElseWithoutChildren)
{
    const osg::FieldContainerPtr null;
    EXPECT_EQ(messageOf(material.get(), settings.get()),
              keyOf("componentSettings", settings.get()) + ' ' + keyOf("material", material.get()));
    EXPECT_EQ(messageOf(material.get(), null), keyOf("material", material.get()));
    EXPECT_EQ(messageOf(null, settings.get()), keyOf("componentSettings", settings.get()));
    EXPECT_EQ(messageOf(null, null), "");
}

TEST_F(ksMaterialMultiUndoCommandTest, TouchesAContainerByItsIdWhenAsked)
{
    Command(QString(), osg::NullFC, osg::NullFC).touch(idOf(settings.get()), 4);
    expectStep(ksRecords().change(recorder.idOf(settings.get()), 4), {{idOf(settings.get()), 4, 1, 1, "1"}});
}

TEST_F(ksMaterialMultiUndoCommandTest, MergesOnlyWithTheSameContainers)
{
    const osg::FieldContainerPtr null;
    Command older(QString(), material.get(), settings.get());
    const Command same(QString(), material.get(), settings.get());
    EXPECT_TRUE(older.mergeWith(&same));
    for (const auto &[first, second] :
         {std::pair<osg::FieldContainerPtr, osg::FieldContainerPtr>(component, settings),
          {null, settings},
          {material, component},
          {material, null}}) {
        const Command other(QString(), first, second);
        EXPECT_FALSE(older.mergeWith(&other));
    }
    Command withChild(QString(), material.get(), settings.get());
    new QUndoCommand(&withChild);
    EXPECT_FALSE(older.mergeWith(&withChild)) << "nothing to merge the child into";
    Command bare(QString(), null, null);
    EXPECT_TRUE(bare.mergeWith(&bare));
}
