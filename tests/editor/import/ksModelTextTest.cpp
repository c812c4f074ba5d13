// SPDX-License-Identifier: MIT
#include <editor/import/ksModelText.h>

#include <assimp/types.h>
#include <gtest/gtest.h>

TEST(ksModelText, EndsWithAWholeCharacter)
{
    const std::string characters[] = {"a", "\xc3\xbc", "\xe2\x82\xac", "\xf0\x9f\x92\xa1"};
    for (const std::string &character : characters) {
        const std::string text = "x" + character;
        EXPECT_EQ(ksModelText::whole(aiString(text)), text);
        for (std::size_t cut = 1; cut < character.size(); ++cut)
            EXPECT_EQ(ksModelText::whole(aiString(text.substr(0, text.size() - cut))), "x");
    }
    EXPECT_EQ(ksModelText::whole(aiString()), "");
    EXPECT_EQ(ksModelText::shown(aiString("\xc3\xbc\xc3")).toStdString(), "\xc3\xbc");
}

TEST(ksModelText, KnowsWhatMayBeCut)
{
    EXPECT_FALSE(ksModelText::mayBeCut(aiString(std::string(1022, 'x'))));
    EXPECT_TRUE(ksModelText::mayBeCut(aiString(std::string(1023, 'x'))));
    EXPECT_TRUE(ksModelText::mayBeCut(aiString(std::string(2000, 'x'))));
}
