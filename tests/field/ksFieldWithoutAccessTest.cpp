// SPDX-License-Identifier: MIT
#include "ksMethodReceiver.h"

#include <ksundo/core/ksMultiCommand.h>
#include <ksundo/core/ksUndoStack.h>
#include <ksundo/field/ksFieldUndoCommand.h>
#include <ksundo/field/ksImageFieldUndoCommand.h>
#include <ksundo/field/ksInvokeBoolFieldUndoCommand.h>
#include <ksundo/field/ksStringFieldUndoCommand.h>
#include <ksundo/field/ksStringsFieldUndoCommand.h>
#include <ksundo/field/ksUndoUtil.h>

#include <OpenSG/OSGFieldContainerType.h>
#include <OpenSG/OSGFieldDescription.h>
#include <OpenSG/OSGLog.h>

#include <gmock/gmock.h>

#include <memory>
#include <support/OSGProbeContainer.h>
#include <support/ksRecords.h>

namespace {

/// A container that tells of one field, but not how to reach it.
class ksSecretive : public osg::ProbeContainer
{
public:
    static osg::ProbeContainerPtr create() { return newContainer<ksSecretive>(); }

    osg::FieldContainerType &getType() override { return type; }
    const osg::FieldContainerType &getType() const override { return type; }

private:
    static osg::FieldDescription secret;
    static osg::FieldDescription *descriptions[];
    static osg::FieldContainerType type;
};

osg::FieldDescription ksSecretive::secret(osg::SFInt32::getClassType(), "secret", 1, 2, false,
                                          osg::FieldAccessMethod(nullptr));
osg::FieldDescription *ksSecretive::descriptions[] = {&secret};
osg::FieldContainerType ksSecretive::type("ksSecretive", "FieldContainer", "", nullptr, nullptr, descriptions,
                                          sizeof(descriptions));

class ksFieldWithoutAccessTest : public testing::Test
{
protected:
    ksFieldWithoutAccessTest()
        : previous(osg::setLogSink([this](const std::string &line) { lines.push_back(line); }))
    {
        recorder.take();
        osg::ProbeContainer::takeCalls();
    }
    ~ksFieldWithoutAccessTest() override { osg::setLogSink(std::move(previous)); }

    /// Expects that the field was asked for, and that nothing came of it.
    void expectWarningsOnly()
    {
        EXPECT_THAT(std::exchange(lines, {}),
                    testing::AllOf(testing::SizeIs(testing::Ge(1u)),
                                   testing::Each("WARNING: field 'secret' has no access method")));
        EXPECT_EQ(recorder.take(), ksRecords());
        EXPECT_EQ(osg::ProbeContainer::takeCalls().size(), 0u);
    }

    std::vector<std::string> lines;
    osg::LogSink previous;
    const osg::RefPtr<osg::ProbeContainerPtr> container{ksSecretive::create()};
    ksRecorder recorder;
};

} // namespace

TEST_F(ksFieldWithoutAccessTest, LeavesCommandsOfAllClassesIdle)
{
    ksMethodReceiver receiver;
    const std::unique_ptr<ksFieldBaseUndoCommand> commands[] = {
        std::make_unique<ksFieldUndoCommand<int>>(QString(), container.get(), "secret", 1),
        std::make_unique<ksBoolFieldUndoCommand>(container.get(), "secret", true),
        std::make_unique<ksStringFieldUndoCommand>(container.get(), "secret", "new"),
        std::make_unique<ksStringsFieldUndoCommand>(container.get(), "secret", osg::MFString()),
        std::make_unique<ksImageFieldUndoCommand>(container.get(), "secret", osg::NullFC),
        std::make_unique<ksInvokeBoolFieldUndoCommand>(container.get(), "secret", true, &receiver,
                                                       "take(bool)"),
    };
    for (const auto &command : commands) {
        EXPECT_EQ(command->containerId(), container.get().getFieldContainerId()) << "it has an aim";
        command->redo();
        command->undo();
        command->redo();
        expectWarningsOnly();
    }
    EXPECT_EQ(receiver.takeCalls().size(), 2u);
}

TEST_F(ksFieldWithoutAccessTest, LetsTheFactoriesMakeNothing)
{
    ksMultiCommand parent{QString()};
    for (QUndoCommand *each : {static_cast<QUndoCommand *>(nullptr), static_cast<QUndoCommand *>(&parent)}) {
        ksUndoUtil::makeIntTypeCommand(QString(), container.get(), "secret", 1, each);
        expectWarningsOnly();
        ksUndoUtil::makeFloatTypeCommand(QString(), container.get(), "secret", 1.0, each);
        expectWarningsOnly();
    }
    EXPECT_EQ(parent.childCount(), 0);
    EXPECT_TRUE(ksUndoStack::get(0)->isEmpty());
}
