// SPDX-License-Identifier: MIT
#include <ksundo/tag/detail/ksListVersions.h>

#include <OpenSG/OSGMFBaseTypes.h>
#include <OpenSG/OSGMFSysTypes.h>

#include <gtest/gtest.h>
#include <rapidcheck.h>

namespace {

/// A list of few different values.
template <class T>
std::vector<T> someList(const std::vector<T> &values)
{
    return *rc::gen::resize(6, rc::gen::container<std::vector<T>>(rc::gen::elementOf(values)));
}

/// \a list with some other values in place of some of its own.
template <class T>
std::vector<T> edited(std::vector<T> list, const std::vector<T> &values)
{
    const auto begin = list.begin() + *rc::gen::inRange<long>(0, long(list.size()) + 1);
    const auto end = begin + *rc::gen::inRange<long>(0, list.end() - begin + 1);
    const std::vector<T> others = someList(values);
    list.insert(list.erase(begin, end), others.begin(), others.end());
    return list;
}

template <class Kept, class T>
bool givesBackWhatItIsMadeOf(const std::vector<T> &values)
{
    return rc::check([&values] {
        using List = osg::MField<T>;
        const List before(someList(values));
        const List after(edited(before.getValues(), values));
        List field(someList(values));
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
