// SPDX-License-Identifier: MIT
#include <editor/import/ksModelRepair.h>

#include <assimp/scene.h>
#include <gmock/gmock.h>

#include <limits>
#include <string>
#include <vector>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// Scenes such as no file of the tests gives.
class ksModelRepairTest : public testing::Test
{
protected:
    ksModelRepairTest()
    {
        scene.mRootNode = new aiNode("Root");
        scene.mMaterials = new aiMaterial *[1] { new aiMaterial };
        scene.mNumMaterials = 1;
        scene.mLights = new aiLight *[1] { new aiLight };
        scene.mNumLights = 1;
        light().mName = aiString("Lamp");
    }

    aiMaterial &material() { return *scene.mMaterials[0]; }
    aiLight &light() { return *scene.mLights[0]; }

    void repair()
    {
        warnings.clear();
        ksModelRepair::repair(scene, [this](const QString &text) { warnings.push_back(text.toStdString()); });
    }

    const double nowhere = std::numeric_limits<double>::quiet_NaN();
    aiScene scene;
    std::vector<std::string> warnings;
};

} // namespace

TEST_F(ksModelRepairTest, LeavesWhatIsSoundAsItIs)
{
    const double opacity = 0.5;
    material().AddProperty(&opacity, 1, AI_MATKEY_OPACITY);
    repair();
    EXPECT_THAT(warnings, IsEmpty());
    EXPECT_EQ(material().mNumProperties, 1u);
}

TEST_F(ksModelRepairTest, LeavesOutPropertiesOfEitherPrecision)
{
    const double opacity = nowhere;
    const auto shininess = static_cast<float>(nowhere);
    const float bumps = 0.25F;
    material().AddProperty(&opacity, 1, AI_MATKEY_OPACITY);
    material().AddProperty(&bumps, 1, AI_MATKEY_BUMPSCALING);
    material().AddProperty(&shininess, 1, AI_MATKEY_SHININESS);
    repair();
    EXPECT_THAT(warnings,
                ElementsAre("material '': $mat.shininess has numbers that are not finite, and is left out",
                            "material '': $mat.opacity has numbers that are not finite, and is left out"));
    EXPECT_EQ(material().mNumProperties, 1u);
    float left = 0;
    EXPECT_EQ(material().Get(AI_MATKEY_BUMPSCALING, left), aiReturn_SUCCESS);
    EXPECT_EQ(left, bumps);
}

TEST_F(ksModelRepairTest, NamesLightsByAnyOfTheirNumbers)
{
    for (ai_real *number : {&light().mColorAmbient.b, &light().mColorDiffuse.r, &light().mPosition.z,
                            &light().mAngleOuterCone}) {
        const ai_real before = *number;
        *number = static_cast<ai_real>(nowhere);
        repair();
        EXPECT_THAT(warnings, ElementsAre("light 'Lamp' has numbers that are not finite, which count as 0"));
        *number = before;
    }
    repair();
    EXPECT_THAT(warnings, IsEmpty());
}
