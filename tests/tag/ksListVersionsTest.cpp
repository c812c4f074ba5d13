// SPDX-License-Identifier: MIT
#include <ksundo/tag/detail/ksListVersions.h>

#include <OpenSG/OSGMFBaseTypes.h>
#include <OpenSG/OSGMFSysTypes.h>

#include <gtest/gtest.h>
#include <rapidcheck.h>

namespace {

/// Lists of few different values, so that two of them begin and end alike now and then.
template <class T>
auto someList(const std::vector<T> &values)
{
    return rc::gen::container<std::vector<T>>(rc::gen::elementOf(values));
}

template <class Kept, class T>
bool givesBackWhatItIsMadeOf(const std::vector<T> &values)
{
    return rc::check([&values] {
        using List = osg::MField<T>;
        const List before(*someList(values));
        const List after(*someList(values));
        List field(*someList(values));
        const ksDetail::ksListVersions<Kept> versions(before, after);
        for (const bool isAfter : {true, false, true}) {
            versions.copyTo(field, isAfter);
            RC_ASSERT(field == (isAfter ? after : before));
        }
    });
}

} // namespace

TEST(ksListVersions, AreTheTwoListsOfStrings)
{
    const std::vector<std::string> texts{"", "a", "b", std::string("a\0b", 3),
                                         "a text that no string keeps inside itself"};
    EXPECT_TRUE(givesBackWhatItIsMadeOf<ksDetail::ksPackedStrings>(texts));
}

TEST(ksListVersions, AreTheTwoListsOfNumbers)
{
    const std::vector<osg::UInt64> numbers{0, 1, ~osg::UInt64(0)};
    EXPECT_TRUE(givesBackWhatItIsMadeOf<std::vector<osg::UInt64>>(numbers));
}

TEST(ksListVersions, AreEmptyAtFirst)
{
    osg::MField<std::string> field;
    field.push_back("a");
    const ksDetail::ksListVersions<ksDetail::ksPackedStrings> versions;
    versions.copyTo(field, true);
    EXPECT_TRUE(field.empty());
}
