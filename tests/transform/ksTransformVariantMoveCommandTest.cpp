// SPDX-License-Identifier: MIT
#include "ksTransformFixture.h"

#include <ksundo/core/ksUndoStack.h>
#include <ksundo/transform/ksTransformVariantMoveCommand.h>

#include <algorithm>
#include <functional>
#include <memory>
#include <numeric>
#include <support/ksEchoTranslator.h>

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

TEST_F(ksTransformVariantMoveCommandTest, MovesTheLastToTheFirstPlace)
{
    Command command = move(3, 0);
    command.redo();
    command.undo();
    EXPECT_THAT(take(), testing::ElementsAre("[3] -> [0]: DABC", "[0] -> [3]: ABCD"));
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

TEST_F(ksTransformVariantMoveCommandTest, RefusesSeveralThatWouldEndUpBeyondTheList)
{
    Command command = move({2, 3}, 3);
    expectRejected(command);
}

TEST_F(ksTransformVariantMoveCommandTest, TakesSeveralThatJustFit)
{
    Command command = move({0, 1}, 2);
    command.redo();
    EXPECT_THAT(take(), testing::ElementsAre("[0 1] -> [2 3]: CDAB"));
}

TEST_F(ksTransformVariantMoveCommandTest, RefusesIndexesOutOfRange)
{
    const int least = std::numeric_limits<int>::min();
    const int greatest = std::numeric_limits<int>::max();
    for (const auto &[from, to] : std::vector<std::pair<int, int>>{{0, 4},
                                                                   {0, 5},
                                                                   {0, greatest},
                                                                   {0, -1},
                                                                   {0, least},
                                                                   {-1, 0},
                                                                   {least, 0},
                                                                   {4, 0},
                                                                   {greatest, 0},
                                                                   {-1, -1}}) {
        SCOPED_TRACE(std::to_string(from) + " to " + std::to_string(to));
        Command single = move(from, to);
        expectRejected(single);
    }
    for (const int to : {4, 5, greatest, -1, -2, least}) {
        SCOPED_TRACE(to);
        Command several = move(Indexes{0}, to);
        expectRejected(several);
    }
}

TEST_F(ksTransformVariantMoveCommandTest, RefusesAnEmptyListOfIndexes)
{
    for (const int to : {0, 3}) {
        Command command = move(Indexes(), to);
        expectRejected(command);
    }
}

TEST_F(ksTransformVariantMoveCommandTest, RefusesMoreIndexesThanVariants)
{
    Command command = move({0, 1, 2, 3, 7}, 0);
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

TEST_F(ksTransformVariantMoveCommandTest, ChangesNoReferenceCount)
{
    Command command = move({3, 1}, 0);
    for (const auto step : {&QUndoCommand::redo, &QUndoCommand::undo, &QUndoCommand::redo}) {
        (command.*step)();
        for (unsigned long i = 0; i < 4; ++i)
            EXPECT_EQ(countOf(at(i)), 1);
    }
}

TEST_F(ksTransformVariantMoveCommandTest, HoldsNothingBetweenTheSteps)
{
    forget();
    {
        const Command command = move({3, 1}, 0);
        EXPECT_EQ(countOf(at(3)), 1);
    }
    EXPECT_EQ(recorder.take(), ksRecords());
}

TEST_F(ksTransformVariantMoveCommandTest, SkipsAVariantThatHasGone)
{
    Command command = move({3, 1, 2}, 0);
    ksNodeUtils::removeTransformVariant(node, 3);
    command.redo();
    EXPECT_THAT(take(), testing::ElementsAre("[1 2 3] -> [1 2 0]: ABC"));
    command.undo();
    EXPECT_THAT(take(), testing::ElementsAre("[1 2 0] -> [1 2 3]: ABC"));
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

TEST_F(ksTransformVariantMoveCommandTest, SkipsAnIdThatNamesAnotherKindOfContainer)
{
    Command command = move({0, 1}, 2);
    {
        const ksSlotSwap swap(at(1).getFieldContainerId(), node.get());
        command.redo();
        EXPECT_EQ(order(), "BCAD");
        command.undo();
    }
    EXPECT_EQ(order(), "ABCD");
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

TEST_F(ksTransformVariantMoveCommandTest, IsIdleWithoutANode)
{
    Command nowhere(osg::NullFC, 0, 2, nullptr, notification());
    Command severalNowhere(osg::NullFC, Indexes{0}, 2, nullptr, notification());
    Command fresh = move(0, 2);
    Command undone = move(0, 2);
    undone.redo();
    undone.undo();
    Command applied = move(0, 2);
    applied.redo();
    {
        const ksSlotSwap swap(nodeId(), node->getCore());
        take();
        expectIdle(fresh);
    }
    destroyNode();
    for (Command *command : {&nowhere, &severalNowhere, &fresh, &undone, &applied})
        expectIdle(*command);
    EXPECT_THAT(take(), testing::IsEmpty());
}

TEST_F(ksTransformVariantMoveCommandTest, ThrowsAfterItHasMovedWithoutANotification)
{
    Command command(node, 0, 2, nullptr, {});
    EXPECT_THROW(command.redo(), std::bad_function_call);
    EXPECT_EQ(order(), "BCAD");
    EXPECT_THROW(command.undo(), std::bad_function_call);
    EXPECT_EQ(order(), "ABCD");
    for (unsigned long i = 0; i < 4; ++i)
        EXPECT_EQ(countOf(at(i)), 1);
    Command rejected(node, Indexes(), 0, nullptr, {});
    EXPECT_THROW(rejected.redo(), std::bad_function_call);
    destroyNode();
    EXPECT_NO_THROW(command.redo());
}

TEST_F(ksTransformVariantMoveCommandTest, LetsGoOfItsNotification)
{
    auto held = std::make_shared<int>();
    const std::weak_ptr<int> watch = held;
    {
        const Command command(node, 0, 1, nullptr,
                              [held](unsigned int, const QList<int> &, const QList<int> &) {});
        held.reset();
        EXPECT_FALSE(watch.expired());
    }
    EXPECT_TRUE(watch.expired());
}

TEST_F(ksTransformVariantMoveCommandTest, IsCalledByTheNodeUntranslated)
{
    const ksEchoTranslator translator;
    EXPECT_EQ(move(0, 1).text(), QStringLiteral("Move transform variant 'Box'"));
    EXPECT_EQ(move(Indexes{0}, 9).text(), QStringLiteral("Move transform variant 'Box'"));
    osg::setName(node.get(), "K\xc3\xb6rper %1");
    EXPECT_EQ(move(0, 1).text().toStdString(), "Move transform variant 'K\xc3\xb6rper %1'");
    EXPECT_EQ(Command(child, 0, 1, nullptr, {}).text(),
              QStringLiteral("Move transform variant 'Transform3D'"));
    EXPECT_EQ(Command(osg::NullFC, 0, 1, nullptr, {}).text(), QStringLiteral("Move transform variant ''"));
}

TEST_F(ksTransformVariantMoveCommandTest, TellsItsIdAndBelongsToItsParent)
{
    QUndoCommand parent;
    const ksUndoCommand *const commands[] = {new Command(node, 0, 1, &parent, {}),
                                             new Command(node, Indexes{0}, 1, &parent, {})};
    ASSERT_EQ(parent.childCount(), 2);
    for (int i = 0; i < 2; ++i) {
        EXPECT_EQ(parent.child(i), commands[i]);
        EXPECT_EQ(commands[i]->id(), Command::commandId());
        EXPECT_EQ(ksMessageOf(*commands[i]), "id=int:" + std::to_string(Command::commandId()));
    }
}

TEST_F(ksTransformVariantMoveCommandTest, NeverMerges)
{
    Command older = move(0, 1);
    Command newer = move(0, 1);
    expectNoMerge(older, newer);

    ksUndoStack stack;
    for (int i = 0; i < 3; ++i) {
        auto *command = new Command(node, i, i + 1, nullptr, notification());
        command->setMergeResponseDelta(-1.0);
        stack.add(command);
    }
    EXPECT_EQ(stack.count(), 3);
    EXPECT_EQ(order(), "BCDA");
    stack.undo();
    EXPECT_EQ(order(), "BCAD");
}
