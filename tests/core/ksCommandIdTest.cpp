// SPDX-License-Identifier: MIT
#include <ksundo/core/ksMultiCommand.h>

#include <gmock/gmock.h>

#include <support/ksProbeCommand.h>

/// The only test of its program, since ids are given out once per process.
TEST(ksCommandId, CountsFromOneInTheOrderOfAsking)
{
    EXPECT_EQ(ksProbeCommand<7>::commandId(), 1);
    EXPECT_EQ(ksMultiCommand::commandId(), 2);
    EXPECT_EQ(ksProbeCommand<3>::commandId(), 3);
    EXPECT_EQ(ksProbeCommand<7>::commandId(), 1);
    EXPECT_EQ(ksUndoCommand::makeId(typeid(ksMultiCommand)), 2);
    EXPECT_EQ(ksUndoCommand::makeId(typeid(int)), 4);
}
