// SPDX-License-Identifier: MIT
#include <ksundo/core/ksUndoStack.h>

#include <QUndoStack>
#include <gmock/gmock.h>

#include <cstdlib>
#include <new>
#include <support/ksProbeCommand.h>

namespace {

int allocations = 0;

/// How many objects are allocated when \a stack steps back and forth.
template <class Stack>
int allocationsOfSteps(Stack &stack)
{
    allocations = 0;
    stack.undo();
    stack.redo();
    return allocations;
}

template <class Stack, class Push>
int allocationsOfSteps(Push push)
{
    int number = 0;
    Stack stack;
    (stack.*
     push)(new ksSetNumberCommand(QStringLiteral("a text that no string keeps inside itself"), number, 5));
    return allocationsOfSteps(stack);
}

bool receive(const char *, ksMessage &, int)
{
    return true;
}

} // namespace

void *operator new(std::size_t size)
{
    ++allocations;
    if (void *memory = std::malloc(size))
        return memory;
    throw std::bad_alloc();
}

void operator delete(void *memory) noexcept
{
    std::free(memory);
}

void operator delete(void *memory, std::size_t) noexcept
{
    std::free(memory);
}

TEST(ksMessageAllocation, IsNoneWithoutACallback)
{
    EXPECT_EQ(allocationsOfSteps<ksUndoStack>(&ksUndoStack::add),
              allocationsOfSteps<QUndoStack>(&QUndoStack::push));
}

TEST(ksMessageAllocation, IsCountedWithACallback)
{
    int number = 0;
    ksUndoStack stack;
    stack.add(new ksSetNumberCommand(QString(), number, 5));
    const int without = allocationsOfSteps(stack);
    stack.setMessageCallback(&receive);
    EXPECT_GT(allocationsOfSteps(stack), without);
}
