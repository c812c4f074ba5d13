// SPDX-License-Identifier: MIT
#include <editor/edits/ksLightEdits.h>
#include <tests/editor/ksEditorFixture.h>

#include <ksundo/core/ksUndoStack.h>

#include <OSGUberLight.h>
#include <ksLights.h>

#include <vector>

namespace {

using testing::ElementsAre;

class ksLightEditsTest : public ksEditorFixture
{
protected:
    ksLightEditsTest()
    {
        CPEdit(child, osg::Node::CoreFieldMask);
        child->setCore(osg::UberLight::create());
    }
};

} // namespace

TEST_F(ksLightEditsTest, KnowsAllValuesByTheirNames)
{
    std::vector<std::string> names;
    for (const ksLightProperty &property : ksLightEdits::properties()) {
        names.emplace_back(property.name);
        EXPECT_EQ(ksLightEdits::find(QString::fromLatin1(property.name)), &property);
        EXPECT_NE(osg::UberLight::getClassType().findFieldDescription(property.name), nullptr)
            << property.name;
    }
    EXPECT_THAT(names,
                ElementsAre("diffuse", "glossy", "intensity", "penumbraAngle", "coneAngle", "attenuation"));
    EXPECT_EQ(ksLightEdits::find(QStringLiteral("beacon")), nullptr);
}

TEST_F(ksLightEditsTest, SetsWhatItReads)
{
    ksUndoStack stack;
    for (const ksLightProperty &property : ksLightEdits::properties()) {
        SCOPED_TRACE(property.name);
        const ksLightValue before = property.read(child);
        const ksLightValue value =
            property.components == 3 ? ksLightValue(0.25F, 0.5F, 0.75F) : ksLightValue(2, 0, 0);
        ASSERT_NE(before, value);
        stack.add(property.make(QStringLiteral("Edit"), child, value, nullptr));
        EXPECT_EQ(stack.undoText(), QStringLiteral("Edit"));
        EXPECT_EQ(property.read(child), value);
        stack.undo();
        EXPECT_EQ(property.read(child), before);
        stack.redo();
    }
    EXPECT_EQ(ksLights::getDiffuse(child), osg::Vec3f(0.25F, 0.5F, 0.75F));
    EXPECT_EQ(ksLights::getLightValue(child), 2);
    EXPECT_EQ(ksLights::getAttenuation(child), osg::UberLight::Quadratic);
}

TEST_F(ksLightEditsTest, AcceptsOnlyModesAsAttenuation)
{
    const ksLightProperty &attenuation = *ksLightEdits::find(QStringLiteral("attenuation"));
    for (const float mode : {0.0F, 1.0F, 2.0F})
        EXPECT_TRUE(attenuation.accepts({mode, 0, 0})) << mode;
    for (const float mode : {-1.0F, 0.5F, 3.0F})
        EXPECT_FALSE(attenuation.accepts({mode, 0, 0})) << mode;
    EXPECT_TRUE(ksLightEdits::find(QStringLiteral("intensity"))->accepts({0.5F, 0, 0}));
}
