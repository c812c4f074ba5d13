// SPDX-License-Identifier: MIT
#include <editor/scene/ksFieldJson.h>

#include <OpenSG/OSGMFBaseTypes.h>
#include <OpenSG/OSGMFSysTypes.h>
#include <OpenSG/OSGMFVecTypes.h>
#include <OpenSG/OSGSFBaseTypes.h>
#include <OpenSG/OSGSFMathTypes.h>
#include <OpenSG/OSGSFVecTypes.h>

#include <QJsonArray>
#include <QJsonObject>
#include <gtest/gtest.h>

#include <limits>

namespace {

/// What comes back when \a field is written and read.
template <class FieldT>
FieldT again(const FieldT &field)
{
    FieldT result;
    EXPECT_TRUE(ksFieldJson::read(result, ksFieldJson::write(field)));
    return result;
}

template <class FieldT>
FieldT single(const typename FieldT::StoredType &value)
{
    FieldT field;
    field.setValue(value);
    return field;
}

template <class FieldT>
FieldT list(const std::vector<typename FieldT::StoredType> &values)
{
    FieldT field;
    field.setValues(values);
    return field;
}

QJsonValue base64(const char *text)
{
    return QJsonObject{{QStringLiteral("base64"), QLatin1String(text)}};
}

} // namespace

TEST(ksFieldJson, GivesNumbersBackExactly)
{
    constexpr auto Most = std::numeric_limits<osg::UInt64>::max();
    EXPECT_EQ(again(single<osg::SFUInt64>(Most)).getValue(), Most);
    EXPECT_EQ(again(single<osg::SFInt8>(-128)).getValue(), -128);
    EXPECT_EQ(again(single<osg::SFReal32>(0.1F)).getValue(), 0.1F);
    EXPECT_EQ(again(single<osg::SFReal64>(1.0 / 3)).getValue(), 1.0 / 3);
    EXPECT_EQ(again(single<osg::SFBool>(true)).getValue(), true);
    EXPECT_TRUE(again(single<osg::SFVec3f>({0.1F, -0.0F, 1e30F})).getValue().isSame({0.1F, -0.0F, 1e30F}));
    EXPECT_TRUE(std::isnan(again(single<osg::SFReal32>(std::numeric_limits<float>::quiet_NaN())).getValue()));
    EXPECT_EQ(again(list<osg::MFUInt32>({1, 2, 3})).getValues(), (std::vector<osg::UInt32>{1, 2, 3}));
    EXPECT_TRUE(again(list<osg::MFUInt32>({})).empty());
    EXPECT_EQ(again(list<osg::MFVec2f>({{1, 2}, {3, 4}})).size(), 2u);
}

TEST(ksFieldJson, GivesTextsAndBytesBackExactly)
{
    for (const std::string &text :
         {std::string(), std::string("\"quoted\", \\ \n\t\x01"), std::string("\xC3\xA4\xE2\x82\xAC"),
          std::string("\xFF\xFE"), std::string("a\0b", 3), std::string("\xEF\xBB\xBFmark")})
        EXPECT_EQ(again(single<osg::SFString>(text)).getValue(), text);
    const std::vector<std::string> texts{"one, two", "", "\xFF"};
    EXPECT_EQ(again(list<osg::MFString>(texts)).getValues(), texts);
    const std::vector<osg::UInt8> bytes{0, 255, 7};
    EXPECT_EQ(again(list<osg::MFUInt8>(bytes)).getValues(), bytes);
}

TEST(ksFieldJson, RefusesWhatDoesNotFit)
{
    const auto expectRefusal = [](auto field, const QJsonValue &value) {
        const QJsonValue before = ksFieldJson::write(field);
        EXPECT_FALSE(ksFieldJson::read(field, value)) << field.getType().getCName();
        EXPECT_EQ(ksFieldJson::write(field), before);
    };
    for (const QJsonValue &value : {QJsonValue(QStringLiteral("300")), QJsonValue(QStringLiteral("1.5")),
                                    QJsonValue(QString()), QJsonValue(7), QJsonValue()})
        expectRefusal(single<osg::SFUInt8>(7), value);
    expectRefusal(single<osg::SFVec3f>({1, 2, 3}), QStringLiteral("1 2"));
    expectRefusal(single<osg::SFVec3f>({1, 2, 3}), QStringLiteral("1 2 3 4"));
    expectRefusal(list<osg::MFUInt32>({1}), QStringLiteral("1, two"));
    expectRefusal(single<osg::SFString>("text"), 7);
    expectRefusal(single<osg::SFString>("text"), base64("?"));
    expectRefusal(list<osg::MFString>({"text"}), QStringLiteral("text"));
    expectRefusal(list<osg::MFString>({"text"}), QJsonArray{QStringLiteral("text"), 7});
    expectRefusal(list<osg::MFUInt8>({7}), QStringLiteral("7"));
    expectRefusal(list<osg::MFUInt8>({7}), base64("?"));
}
