// SPDX-License-Identifier: MIT
#include <editor/scene/ksFieldReader.h>
#include <tests/editor/ksEditorFixture.h>

#include <OpenSG/OSGMFBaseTypes.h>
#include <OpenSG/OSGMFNodePtr.h>
#include <OpenSG/OSGSFMathTypes.h>
#include <OpenSG/OSGSFNodePtr.h>

#include <vector>

namespace {

class ksFieldReaderTest : public ksEditorFixture
{
protected:
    static std::string idText(const osg::FieldContainerPtr &container)
    {
        return std::to_string(container.getFieldContainerId());
    }
};

template <class FieldT>
FieldT listOf(const std::vector<typename FieldT::StoredType> &values)
{
    return FieldT(values);
}

} // namespace

TEST_F(ksFieldReaderTest, TellsContentsApartToTheBit)
{
    EXPECT_NE(ksFieldReader::content(osg::SFReal32(0.1F)),
              ksFieldReader::content(osg::SFReal32(0.10000001F)));
    EXPECT_NE(ksFieldReader::content(osg::SFReal64(0.0)), ksFieldReader::content(osg::SFReal64(-0.0)));
    EXPECT_NE(ksFieldReader::content(listOf<osg::MFPnt3f>({{0, 0, 1}})),
              ksFieldReader::content(listOf<osg::MFPnt3f>({{0, 1, 0}})));
    EXPECT_EQ(ksFieldReader::content(listOf<osg::MFUInt8>({1, 2})),
              ksFieldReader::content(listOf<osg::MFUInt8>({1, 2})));
}

TEST_F(ksFieldReaderTest, TellsListsOfTextsApartByTheirBounds)
{
    EXPECT_NE(ksFieldReader::content(listOf<osg::MFString>({"a, b"})),
              ksFieldReader::content(listOf<osg::MFString>({"a", "b"})));
    EXPECT_NE(ksFieldReader::content(listOf<osg::MFString>({"a", ""})),
              ksFieldReader::content(listOf<osg::MFString>({"a"})));
}

TEST_F(ksFieldReaderTest, ComparesWithWhatIsKnown)
{
    const std::vector<osg::FieldContainerPtr> containers{root, root->getCore(), rootSettings()};
    for (const osg::FieldContainerPtr &container : containers)
        for (osg::UInt32 id = 1; const osg::Field *field = container->getField(id); ++id) {
            EXPECT_TRUE(ksFieldReader::holds(*field, ksFieldReader::content(*field)));
            EXPECT_FALSE(ksFieldReader::holds(*field, "something else"));
        }
    const auto pixels = listOf<osg::MFUInt8>({1, 2, 3});
    EXPECT_TRUE(ksFieldReader::holds(pixels, "\1\2\3"));
    EXPECT_FALSE(ksFieldReader::holds(pixels, "\1\2"));
}

TEST_F(ksFieldReaderTest, ShowsValues)
{
    EXPECT_EQ(ksFieldReader::text(osg::SFUInt8(65)), "65");
    EXPECT_EQ(ksFieldReader::text(osg::SFBool(true)), "TRUE");
    EXPECT_EQ(ksFieldReader::text(osg::SFString("oak")), "\"oak\"");
    EXPECT_EQ(ksFieldReader::text(osg::SFVec3f(osg::Vec3f(1, 0.5F, -2))), "1 0.5 -2");
    EXPECT_EQ(ksFieldReader::text(listOf<osg::MFUInt32>({1, 2, 3})), "[1, 2, 3]");
    EXPECT_EQ(ksFieldReader::text(osg::MFUInt32()), "[]");
}

TEST_F(ksFieldReaderTest, ShowsContainersWithTheirClass)
{
    EXPECT_EQ(ksFieldReader::text(*child->getField("parent")), "Node " + idText(root.get()));
    EXPECT_EQ(ksFieldReader::text(*root->getField("parent")), "null");
    EXPECT_EQ(ksFieldReader::text(*root->getField("children")), "[Node " + idText(child) + ']');
    EXPECT_EQ(ksFieldReader::text(*child->getField("children")), "[]");
    EXPECT_THAT(ksFieldReader::text(*child->getField("attachments")),
                testing::HasSubstr("ksNodeSettings " + idText(childSettings())));
}

TEST_F(ksFieldReaderTest, CutsLongListsShort)
{
    const std::string one = ksFieldReader::text(osg::MFUInt8(std::vector<osg::UInt8>(100, 1)));
    const std::string other = ksFieldReader::text(osg::MFUInt8(std::vector<osg::UInt8>(100, 2)));
    EXPECT_LT(one.size(), 150u);
    EXPECT_THAT(one, testing::HasSubstr("100 values"));
    EXPECT_NE(one, other);
    EXPECT_THAT(
        ksFieldReader::text(osg::SFMatrix(osg::Matrix(
            -0.9063078F, 1.1099066e-16F, -0.4226183F, 12.345678F, -0.9063078F, 1.1099066e-16F, -0.4226183F,
            12.345678F, -0.9063078F, 1.1099066e-16F, -0.4226183F, 12.345678F, 0, 0, 0, 1))),
        testing::Not(testing::HasSubstr("...")));
    EXPECT_THAT(
        ksFieldReader::text(osg::MFString(std::vector<std::string>(50, "plank"))),
        testing::AllOf(testing::StartsWith("[\"plank\", \"plank\""), testing::HasSubstr("50 values")));
}
