// SPDX-License-Identifier: MIT
#include <ksundo/material/ksSetEnvironmentUndoCommand.h>

#include <OpenSG/OSGSimpleMaterial.h>

#include <support/ksSceneFixture.h>

namespace {

using Command = ksSetEnvironmentUndoCommand;

/// A material in the dusk, and the dawn. The test holds a reference on all of them.
class ksSetEnvironmentUndoCommandTest : public ksSceneFixture
{
protected:
    ksSetEnvironmentUndoCommandTest() { setEnvironment(dusk.get()); }

    void setEnvironment(const osg::MaterialPtr &environment)
    {
        material->setEnvironment(environment);
        forget();
    }

    osg::MaterialPtr environment() const { return material->getEnvironment(); }

    long long idOf(const osg::FieldContainerPtr &container) const { return recorder.idOf(container); }

    /// The record of the change of the material.
    ksRecords change() const { return ksRecords().change(idOf(material.get()), mask); }

    static constexpr osg::BitVector mask = osg::UBRDFMaterial::EnvironmentFieldMask;

    osg::RefPtr<osg::UBRDFMaterialPtr> material{osg::UBRDFMaterial::create()};
    osg::RefPtr<osg::MaterialPtr> dusk{osg::SimpleMaterial::create()};
    osg::RefPtr<osg::MaterialPtr> dawn{osg::UBRDFMaterial::create()};
};

} // namespace

TEST_F(ksSetEnvironmentUndoCommandTest, BringsBackThatThereWasNone)
{
    setEnvironment(osg::NullFC);
    Command command(material, dawn);
    command.redo();
    EXPECT_EQ(environment(), dawn.get());
    EXPECT_EQ(recorder.take(), change().addRef(idOf(dawn.get())));
    command.undo();
    EXPECT_EQ(environment(), osg::NullFC);
    EXPECT_EQ(recorder.take(), change().subRef(idOf(dawn.get())));
}

TEST_F(ksSetEnvironmentUndoCommandTest, BringsBackWhatWasThereWhenItWasBuilt)
{
    Command command(material, dawn);
    setEnvironment(osg::NullFC);
    command.redo();
    command.undo();
    EXPECT_EQ(environment(), dusk.get());
}

TEST_F(ksSetEnvironmentUndoCommandTest, AnnouncesAlsoAnEnvironmentThatIsThereAlready)
{
    Command command(material, dusk);
    command.redo();
    EXPECT_EQ(recorder.take(), change());
    EXPECT_EQ(countOf(dusk.get()), 2) << "of the test and the field";
}

TEST_F(ksSetEnvironmentUndoCommandTest, LetsAnEnvironmentGoThatNobodyElseHolds)
{
    const long long id = idOf(dusk.get());
    Command command(material, dawn);
    dusk = osg::NullFC;
    forget();
    command.redo();
    EXPECT_EQ(recorder.take(), change().addRef(idOf(dawn.get())).destroy(id));
    command.undo();
    EXPECT_EQ(environment(), osg::NullFC) << "the old environment has gone";
    EXPECT_EQ(recorder.take(), change().subRef(idOf(dawn.get())));
    command.redo();
    EXPECT_EQ(environment(), dawn.get());
}

TEST_F(ksSetEnvironmentUndoCommandTest, LosesAnEnvironmentThatOnlyThePresentOneHolds)
{
    osg::RefPtr<osg::UBRDFMaterialPtr> sky(osg::UBRDFMaterial::create());
    sky->setEnvironment(dawn);
    setEnvironment(sky.get());
    Command command(material, dawn);
    const long long skyId = idOf(sky.get());
    const long long dawnId = idOf(dawn.get());
    sky = osg::NullFC;
    dawn = osg::NullFC;
    forget();
    command.redo();
    EXPECT_EQ(environment(), osg::NullFC);
    EXPECT_EQ(recorder.take(), change().destroy(skyId).destroy(dawnId));
    command.undo();
    EXPECT_EQ(environment(), osg::NullFC);
    EXPECT_EQ(recorder.take(), change());
}
