// SPDX-License-Identifier: MIT
#include <editor/edits/ksFieldRanges.h>
#include <tests/editor/ksEditorFixture.h>

#include <OSGTransform3D.h>
#include <OSGUBRDFMaterial.h>
#include <OSGUberLight.h>
#include <OpenSG/OSGPointLight.h>
#include <OpenSG/OSGRefPtr.h>

#include <limits>

namespace {

template <class PtrT>
std::string errorOf(const PtrT &container, const char *field, const std::vector<double> &numbers)
{
    const osg::RefPtr<PtrT> held(container);
    return ksErrorOf([&] { ksFieldRanges::check(held.get(), QString::fromLatin1(field), numbers); });
}

constexpr double Infinity = std::numeric_limits<double>::infinity();

} // namespace

TEST(ksFieldRangesTest, RefuseWhatIsNotFinite)
{
    EXPECT_EQ(errorOf(osg::ksNodeSettings::create(), "timeOffset", {-1e300, 0, 1e300}), "");
    EXPECT_EQ(errorOf(osg::ksNodeSettings::create(), "timeOffset", {Infinity}),
              "'timeOffset' takes finite numbers, not Infinity");
    EXPECT_EQ(errorOf(osg::ksNodeSettings::create(), "timeOffset", {0, std::nan("")}),
              "'timeOffset' takes finite numbers, not NaN");
    EXPECT_EQ(errorOf(osg::UberLight::create(), "intensity", {Infinity}),
              "'intensity' takes numbers of at least 0, not Infinity");
}

TEST(ksFieldRangesTest, KnowWhatMakesSense)
{
    EXPECT_EQ(errorOf(osg::UberLight::create(), "intensity", {0, 1e30}), "");
    EXPECT_EQ(errorOf(osg::UberLight::create(), "intensity", {-0.5}),
              "'intensity' takes numbers of at least 0, not -0.5");
    EXPECT_EQ(errorOf(osg::UberLight::create(), "diffuse", {0, 0, -1}),
              "'diffuse' takes numbers of at least 0, not -1");
    EXPECT_EQ(errorOf(osg::UberLight::create(), "attenuation", {3}),
              "'attenuation' takes numbers from 0 to 2, not 3");
    EXPECT_EQ(errorOf(osg::UberLight::create(), "coneAngle", {0, 360}), "");
    EXPECT_EQ(errorOf(osg::UberLight::create(), "coneAngle", {360.5}),
              "'coneAngle' takes numbers from 0 to 360, not 360.5");
    EXPECT_EQ(errorOf(osg::UBRDFMaterial::create(), "roughness", {1.5}),
              "'roughness' takes numbers from 0 to 1, not 1.5");
    EXPECT_EQ(errorOf(osg::Transform3D::create(), "rotationDirectionMode", {-1}),
              "'rotationDirectionMode' takes numbers from 0 to 2, not -1");
    EXPECT_EQ(errorOf(osg::Transform3D::create(), "translation", {-1, 0, 1}), "");
}

/// Of classes that are not known as well.
TEST(ksFieldRangesTest, KnowColours)
{
    EXPECT_EQ(errorOf(osg::PointLight::create(), "ambient", {0, 0, -1, 1}),
              "'ambient' takes numbers of at least 0, not -1");
    EXPECT_EQ(errorOf(osg::PointLight::create(), "position", {0, 0, -1}), "");
}
