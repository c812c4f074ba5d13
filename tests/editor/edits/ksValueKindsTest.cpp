// SPDX-License-Identifier: MIT
#include <editor/edits/ksValueKinds.h>
#include <tests/editor/ksEditorFixture.h>

#include <OpenSG/OSGSFBaseTypes.h>
#include <OpenSG/OSGSFNodePtr.h>
#include <OpenSG/OSGSFSysTypes.h>

#include <limits>

namespace {

std::string shown(const QVariant &value)
{
    return ksValueKinds::shown(value).toStdString();
}

std::string kindOf(const osg::Field &field)
{
    return ksValueKinds::ofField(field).toStdString();
}

} // namespace

TEST(ksValueKindsTest, NameWhatFieldsTake)
{
    EXPECT_EQ(kindOf(osg::SFReal32()), "a number");
    EXPECT_EQ(kindOf(osg::SFInt8()), "a whole number from -128 to 127");
    EXPECT_EQ(kindOf(osg::SFUInt32()), "a whole number from 0 to 4294967295");
    EXPECT_EQ(kindOf(osg::SFUInt64()), "a whole number from 0 to 18446744073709551615");
    EXPECT_EQ(kindOf(osg::SFColor3f()), "a colour [r, g, b]");
    EXPECT_EQ(kindOf(osg::SFString()), "a text");
    EXPECT_EQ(kindOf(osg::SFNodePtr()), "");
}

TEST(ksValueKindsTest, ShowValues)
{
    EXPECT_EQ(shown(300), "300");
    EXPECT_EQ(shown(0.1), "0.1");
    EXPECT_EQ(shown(std::numeric_limits<double>::quiet_NaN()), "NaN");
    EXPECT_EQ(shown(-std::numeric_limits<double>::infinity()), "-Infinity");
    EXPECT_EQ(shown(1e39), "1e+39, which is too large");
    EXPECT_EQ(shown(true), "true");
    EXPECT_EQ(shown(QStringLiteral("300")), "'300'");
    EXPECT_EQ(shown(QString(100, QLatin1Char('x'))), '\'' + std::string(57, 'x') + "...'");
    EXPECT_EQ(shown(QVariant()), "undefined");
    EXPECT_EQ(shown(QVariant::fromValue(nullptr)), "null");
    EXPECT_EQ(shown(QVariantList{1, 2}), "an array of 2");
    EXPECT_EQ(shown(QVariantMap()), "an object");
}

TEST(ksValueKindsTest, RefuseInOneForm)
{
    EXPECT_EQ(ksErrorOf([] {
                  ksValueKinds::refuse(QStringLiteral("layer"), QStringLiteral("a text"),
                                       QStringLiteral("5"));
              }),
              "'layer' is a text, not 5");
}
