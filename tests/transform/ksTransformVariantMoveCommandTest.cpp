// SPDX-License-Identifier: MIT
#include "ksTransformFixture.h"

#include <ksundo/transform/ksTransformVariantMoveCommand.h>

#include <algorithm>
#include <limits>
#include <numeric>
#include <utility>

namespace {

using Command = ksTransformVariantMoveCommand;
using Indexes = std::vector<int>;

constexpr osg::BitVector variantsMask = osg::TransformVariantsAttachment::VariantsFieldMask;

std::string textOf(const QList<int> &indexes)
{
    std::string text;
    for (const int index : indexes)
        text += (text.empty() ? "" : " ") + std::to_string(index);
    return '[' + text + ']';
}

/// Box has the variants A, B, C and D. Notifications are logged with what they are told and find.
class ksTransformVariantMoveCommandTest : public ksTransformFixture
{
protected:
    ksTransformVariantMoveCommandTest() { addVariants(node, "ABCD"); }

    Command::Notification notification()
    {
        return [this](unsigned int id, const QList<int> &before, const QList<int> &after) {
            EXPECT_EQ(id, nodeId());
            notified.push_back(textOf(before) + " -> " + textOf(after) + ": " + order());
        };
    }

    Command move(int from, int to) { return Command(node, from, to, nullptr, notification()); }
    Command move(const Indexes &indexes, int to)
    {
        return Command(node, indexes, to, nullptr, notification());
    }

    std::string order() const { return ksTransformFixture::order(node); }

    osg::TransformVariantPtr at(unsigned long index) const
    {
        return ksNodeUtils::getTransformVariant(node, index);
    }
    long long recordIdAt(unsigned long index) const { return recorder.idOf(at(index)); }
    osg::TransformVariantsAttachmentPtr attachment() const
    {
        return ksNodeUtils::getTransformVariantsAttachment(node);
    }

    /// Gives the node the variants \a names instead of those that it has.
    void replaceVariants(const std::string &names)
    {
        ksNodeUtils::removeTransformVariantsAttachment(node);
        addVariants(node, names);
    }

    /// Expects that \a command finds the node, moves nothing and says so.
    void expectRejected(Command &command)
    {
        const auto before = scene();
        forget();
        command.redo();
        command.undo();
        command.redo();
        const std::string event = "[] -> []: " + order();
        EXPECT_THAT(take(), testing::ElementsAre(event, event, event));
        EXPECT_EQ(scene(), before);
        EXPECT_EQ(recorder.take(), ksRecords());
    }

    ksTransformEvents take() { return std::exchange(notified, {}); }

    ksTransformEvents notified;
};

/// All ways to take \a count different numbers below \a limit, in any order.
std::vector<Indexes> selections(int count, int limit)
{
    std::vector<Indexes> result{{}};
    for (int i = 0; i < count; ++i) {
        std::vector<Indexes> longer;
        for (const Indexes &start : result)
            for (int next = 0; next < limit; ++next)
                if (std::find(start.begin(), start.end(), next) == start.end()) {
                    longer.push_back(start);
                    longer.back().push_back(next);
                }
        result = longer;
    }
    return result;
}

/// Where the variants \a names stand after those at \a indexes have been moved to \a to.
std::string moved(const std::string &names, const Indexes &indexes, int to)
{
    std::string rest;
    std::string taken;
    for (const int index : indexes)
        taken += names.at(static_cast<std::size_t>(index));
    std::copy_if(names.begin(), names.end(), std::back_inserter(rest),
                 [&](char name) { return taken.find(name) == std::string::npos; });
    return rest.insert(static_cast<std::size_t>(to), taken);
}

} // namespace

TEST_F(ksTransformVariantMoveCommandTest, MovesTheFirstToTheThirdPlace)
{
    Command command = move(0, 2);
    EXPECT_EQ(order(), "ABCD");
    command.redo();
    command.undo();
    command.redo();
    EXPECT_THAT(take(), testing::ElementsAre("[0] -> [2]: BCAD", "[2] -> [0]: ABCD", "[0] -> [2]: BCAD"));
}

TEST_F(ksTransformVariantMoveCommandTest, MovesSeveralInTheOrderOfTheirIndexes)
{
    Command command = move({3, 1}, 0);
    command.redo();
    command.undo();
    command.redo();
    EXPECT_THAT(take(),
                testing::ElementsAre("[1 3] -> [1 0]: DBAC", "[1 0] -> [1 3]: ABCD", "[1 3] -> [1 0]: DBAC"));
}

TEST_F(ksTransformVariantMoveCommandTest, RefusesIndexesOutOfRange)
{
    const int least = std::numeric_limits<int>::min();
    const int greatest = std::numeric_limits<int>::max();
    for (const int outside : {4, 5, greatest, -1, least}) {
        SCOPED_TRACE(outside);
        Command commands[] = {move(0, outside), move(outside, 0), move(Indexes{0}, outside)};
        for (Command &command : commands)
            expectRejected(command);
    }
}

TEST_F(ksTransformVariantMoveCommandTest, RefusesIndexesThatDoNotFit)
{
    Command commands[] = {move({2, 3}, 3), move(Indexes(), 0), move(Indexes(), 3), move({0, 1, 2, 3, 7}, 0)};
    for (Command &command : commands)
        expectRejected(command);
}

TEST_F(ksTransformVariantMoveCommandTest, RefusesWhereThereIsNoVariant)
{
    attachment()->insertVariant(1, osg::NullFC);
    Command single = move(1, 0);
    expectRejected(single);
    Command several = move(Indexes{1, -1, 9}, 0);
    expectRejected(several);
}

TEST_F(ksTransformVariantMoveCommandTest, RefusesOnANodeWithoutVariants)
{
    replaceVariants("");
    Command empty = move(0, 0);
    expectRejected(empty);
    ksNodeUtils::removeTransformVariantsAttachment(node);
    Command bare = move(0, 0);
    expectRejected(bare);
    Command several = move(Indexes{0}, 0);
    expectRejected(several);
}

TEST_F(ksTransformVariantMoveCommandTest, SkipsIndexesWithoutAVariantAndClosesTheGap)
{
    Command command = move({7, 3, -1, 1}, 0);
    command.redo();
    command.undo();
    EXPECT_THAT(take(), testing::ElementsAre("[1 3] -> [1 0]: DBAC", "[1 0] -> [1 3]: ABCD"));
}

TEST_F(ksTransformVariantMoveCommandTest, SkipsANullInTheListAndClosesTheGap)
{
    attachment()->insertVariant(1, osg::NullFC);
    Command command = move({1, 4}, 0);
    command.redo();
    EXPECT_EQ(at(0)->getName(), "D");
    command.undo();
    EXPECT_EQ(at(4)->getName(), "D");
    EXPECT_EQ(at(1), osg::NullFC);
    EXPECT_EQ(notified.size(), 2u);
}

TEST_F(ksTransformVariantMoveCommandTest, TakesOutAndPutsBackWhatStaysInItsPlace)
{
    const long long id = recordIdAt(1);
    const long long list = recorder.idOf(attachment());
    Command command = move(1, 1);
    forget();
    const ksRecords step = ksRecords()
                               .addRef(id)
                               .subRef(id)
                               .addRef(id)
                               .subRef(id)
                               .change(list, variantsMask)
                               .change(list, variantsMask);
    command.redo();
    EXPECT_EQ(recorder.take(), step);
    command.undo();
    EXPECT_EQ(recorder.take(), step);
    EXPECT_THAT(take(), testing::ElementsAre("[1] -> [1]: ABCD", "[1] -> [1]: ABCD"));
}

TEST_F(ksTransformVariantMoveCommandTest, TakesOutFromTheEndAndPutsBackFromTheStart)
{
    const std::vector<long long> ids{recordIdAt(0), recordIdAt(1), recordIdAt(2), recordIdAt(3)};
    Command command = move({1, 3, 0}, 1);
    forget();
    command.redo();
    ksRecords records = recorder.take();
    EXPECT_EQ(records.addRefd, (std::vector<long long>{ids[3], ids[1], ids[0], ids[1], ids[3], ids[0]}));
    EXPECT_EQ(records.subRefd, (std::vector<long long>{ids[3], ids[1], ids[0], ids[1], ids[3], ids[0]}));
    EXPECT_EQ(records.changed.size(), 6u);
    EXPECT_EQ(order(), "CBDA");

    command.undo();
    records = recorder.take();
    EXPECT_EQ(records.addRefd, (std::vector<long long>{ids[0], ids[3], ids[1], ids[0], ids[1], ids[3]}));
    EXPECT_EQ(records.subRefd, (std::vector<long long>{ids[0], ids[3], ids[1], ids[0], ids[1], ids[3]}));
    EXPECT_EQ(order(), "ABCD");
    EXPECT_THAT(take(), testing::ElementsAre("[0 1 3] -> [3 1 2]: CBDA", "[3 1 2] -> [0 1 3]: ABCD"));
}

TEST_F(ksTransformVariantMoveCommandTest, MovesAnySingleVariantAnywhere)
{
    replaceVariants("ABCDE");
    for (int from = 0; from < 5; ++from)
        for (int to = 0; to < 5; ++to) {
            Command command = move(from, to);
            command.redo();
            EXPECT_EQ(order(), moved("ABCDE", {from}, to)) << from << " to " << to;
            command.undo();
            EXPECT_EQ(order(), "ABCDE") << from << " to " << to;
        }
}

TEST_F(ksTransformVariantMoveCommandTest, MovesAnySelectionAnywhere)
{
    for (int count = 1; count <= 4; ++count)
        for (const Indexes &indexes : selections(count, 4))
            for (int to = 0; to + count <= 4; ++to) {
                SCOPED_TRACE(testing::PrintToString(indexes) + " to " + std::to_string(to));
                Command command = move(indexes, to);
                for (int i = 0; i < 2; ++i) {
                    command.redo();
                    EXPECT_EQ(order(), moved("ABCD", indexes, to));
                    command.undo();
                    EXPECT_EQ(order(), "ABCD");
                }
            }
}

TEST_F(ksTransformVariantMoveCommandTest, MovesTheOthersAsRecordedWhenAVariantHasGone)
{
    replaceVariants("ABCDE");
    Command command = move({0, 4}, 2);
    ksNodeUtils::removeTransformVariant(node, 4);
    command.redo();
    EXPECT_EQ(order(), "BCAD");
    command.undo();
    EXPECT_EQ(order(), "ABCD");
}

TEST_F(ksTransformVariantMoveCommandTest, SkipsAVariantThatGoesBetweenTheSteps)
{
    Command command = move({0, 1}, 2);
    command.redo();
    ASSERT_EQ(order(), "CDAB");
    ksNodeUtils::removeTransformVariant(node, 3);
    command.undo();
    EXPECT_EQ(order(), "ACD");
    command.redo();
    EXPECT_EQ(order(), "CDA");
}

TEST_F(ksTransformVariantMoveCommandTest, AppliesItsRecordsWhenUndoComesFirst)
{
    Command command = move(0, 2);
    command.undo();
    EXPECT_THAT(take(), testing::ElementsAre("[2] -> [0]: AABD"));
}

TEST_F(ksTransformVariantMoveCommandTest, TakesTheListAsItIsWhenItRuns)
{
    Command command = move(0, 2);
    ksNodeUtils::insertTransformVariant(node, 0, variant("X"));
    command.redo();
    EXPECT_EQ(order(), "ABACD") << "what stands at the recorded index gives way to the recorded variant";
}

TEST_F(ksTransformVariantMoveCommandTest, RecordsARepeatedIndexAtBothPlaces)
{
    Command command = move({1, 1}, 0);
    command.redo();
    EXPECT_THAT(take(), testing::ElementsAre("[1] -> [1]: BBACD"));
    EXPECT_EQ(countOf(at(0)), 2);
    command.undo();
    EXPECT_THAT(take(), testing::ElementsAre("[1] -> [1]: ABCD"));
    EXPECT_EQ(countOf(at(1)), 1);
}

TEST_F(ksTransformVariantMoveCommandTest, HoldsAVariantOncePerPlaceThatItIsTakenFrom)
{
    ksNodeUtils::insertTransformVariant(node, 2, at(0));
    ASSERT_EQ(order(), "ABACD");
    const long long id = recordIdAt(0);
    Command command = move({0, 2}, 3);
    forget();
    command.redo();
    EXPECT_EQ(order(), "BCDAA");
    const std::vector<long long> fourTimes(4, id);
    const ksRecords records = recorder.take();
    EXPECT_EQ(records.addRefd, fourTimes);
    EXPECT_EQ(records.subRefd, fourTimes);
    command.undo();
    EXPECT_EQ(order(), "ABACD");
    EXPECT_EQ(countOf(at(0)), 2);
}

TEST_F(ksTransformVariantMoveCommandTest, CostsAsMuchAsItMovesHoweverLongTheListIs)
{
    for (const std::size_t length : {100, 1000, 10000}) {
        replaceVariants(std::string(length, 'a'));
        for (const std::size_t count : {1, 10, 50}) {
            Indexes indexes(count);
            std::iota(indexes.begin(), indexes.end(), 7);
            std::reverse(indexes.begin(), indexes.end());
            Command command(node, indexes, 40, nullptr,
                            [](unsigned int, const QList<int> &, const QList<int> &) {});
            forget();
            for (const auto step : {&QUndoCommand::redo, &QUndoCommand::undo}) {
                (command.*step)();
                const ksRecords records = recorder.take();
                EXPECT_EQ(records.changed.size(), 2 * count);
                EXPECT_EQ(records.addRefd.size(), 2 * count);
                EXPECT_EQ(records.subRefd.size(), 2 * count);
                EXPECT_TRUE(records.created.empty() && records.destroyed.empty());
            }
        }
    }
}
