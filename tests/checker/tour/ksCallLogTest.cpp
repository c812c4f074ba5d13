// SPDX-License-Identifier: MIT
#include <checker/tour/ksCallLog.h>
#include <tests/editor/ksEditorFixture.h>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

} // namespace

TEST(ksCallLog, WritesCallsAsLines)
{
    ksCallLog log;
    const osg::NodeRefPtr node(osg::Node::create());
    const std::string id = std::to_string(node.get().getFieldContainerId());
    log.writer("nothing")();
    log.writer("placed")(node.get(), osg::Vec3f(0.1F, -2, 1e10F), -1);
    log.writer("moved")(QList<int>{3, 1}, QList<int>(), std::string("ZYX"), true);
    EXPECT_THAT(log.take(), ElementsAre("nothing", "placed " + id + " 0.100000001 -2 1e+10 -1",
                                        "moved [ 3 1 ] [ ] ZYX 1"));
    EXPECT_EQ(ksCallLog::line("placed", node.get(), 7), "placed " + id + " 7");
}

TEST(ksCallLog, GivesEveryLineOnce)
{
    ksCallLog log;
    const auto write = log.writer("call");
    write(1);
    EXPECT_THAT(log.take(), ElementsAre("call 1"));
    EXPECT_THAT(log.take(), IsEmpty());
    write(2);
    EXPECT_THAT(log.take(), ElementsAre("call 2"));
}

TEST(ksCallLog, GoesBeforeItsWriters)
{
    const auto write = ksCallLog().writer("call");
    write(1);
}
