// SPDX-License-Identifier: MIT
#include "ksSession.h"

#include <ksCommandList.h>

#include <gmock/gmock.h>
#include <rapidcheck.h>
#include <rapidcheck/state.h>

#include <array>
#include <cstdint>
#include <iostream>
#include <iterator>
#include <memory>
#include <numeric>
#include <random>
#include <string>
#include <utility>
#include <vector>

namespace {

/// One line of a session: which operation it is, and all that an operation may take.
struct Line
{
    std::size_t operation = 0;
    int stack = 0;
    int number = 0;
    ksCommandRequest request{};
};

/// An operation of sessions. Those on a stack take that first, then a number or a command.
struct Operation
{
    const char *name;
    int weight;

    /// What it takes: s for a stack, c for a command, k for a class, n for a number.
    const char *arguments;

    /// The numbers that it takes, the simplest first.
    std::vector<int> numbers;

    void (*run)(ksSession &session, const Line &line);
};

template <void (ksSession::*function)(int)>
void onStack(ksSession &session, const Line &line)
{
    (session.*function)(line.stack);
}

template <void (ksSession::*function)(int)>
void onNumber(ksSession &session, const Line &line)
{
    (session.*function)(line.number);
}

template <void (ksSession::*function)(int, int)>
void onBoth(ksSession &session, const Line &line)
{
    (session.*function)(line.stack, line.number);
}

std::vector<int> everyPlace()
{
    std::vector<int> places(ksPlain::Scene::emptyPlaces().size());
    std::iota(places.begin(), places.end(), 0);
    return places;
}

const std::vector<Operation> &operations()
{
    static const std::vector<Operation> all = {
        {"push",
         100,
         "sc",
         {0},
         [](ksSession &session, const Line &line) { session.push(line.stack, line.request); }},
        {"build", 6, "c", {0}, [](ksSession &session, const Line &line) { session.build(line.request); }},
        {"pushBuilt", 8, "s", {0}, &onStack<&ksSession::pushBuilt>},
        {"undo", 40, "s", {0}, &onStack<&ksSession::undo>},
        {"redo", 30, "s", {0}, &onStack<&ksSession::redo>},
        {"mark", 4, "s", {0}, &onStack<&ksSession::mark>},
        {"reset", 4, "s", {0}, &onStack<&ksSession::reset>},
        {"setClean", 4, "s", {0}, &onStack<&ksSession::setClean>},
        {"clear", 1, "s", {0}, &onStack<&ksSession::clear>},
        {"forgetUndone", 2, "s", {0}, &onStack<&ksSession::forgetUndone>},
        {"beginMacro", 6, "s", {0}, &onStack<&ksSession::beginMacro>},
        {"endMacro", 10, "s", {0}, &onStack<&ksSession::endMacro>},
        {"beginGesture", 6, "s", {0}, &onStack<&ksSession::beginGesture>},
        {"endGesture", 5, "s", {0}, &onStack<&ksSession::endGesture>},
        {"takeBackGesture", 4, "s", {0}, &onStack<&ksSession::takeBackGesture>},
        {"setLimit", 3, "sn", {0, 1, 2, 5}, &onBoth<&ksSession::setLimit>},
        {"retell", 6, "sn", {0, 1, 2, 3, 4}, &onBoth<&ksSession::retell>},
        {"receive", 2, "sn", {0, 1, 2}, &onBoth<&ksSession::receive>},
        {"sync",
         6,
         "kn",
         {1, 2, 0},
         [](ksSession &session, const Line &line) { session.sync(line.request.className, line.number); }},
        {"tick",
         30,
         "n",
         {100, 399, 400, 401, 2000, -100, -1000, 3600000, -3600000},
         &onNumber<&ksSession::tick>},
        {"make", 8, "n", everyPlace(), &onNumber<&ksSession::make>},
        {"drop", 6, "n", everyPlace(), &onNumber<&ksSession::drop>},
        {"attach", 4, "n", everyPlace(), &onNumber<&ksSession::attach>},
        {"detach", 4, "n", everyPlace(), &onNumber<&ksSession::detach>},
    };
    return all;
}

std::ostream &operator<<(std::ostream &stream, const Line &line)
{
    const Operation &operation = operations()[line.operation];
    stream << "session." << operation.name << '(';
    const char *separator = "";
    for (const char argument : std::string(operation.arguments)) {
        stream << std::exchange(separator, ", ");
        if (argument == 's')
            stream << line.stack;
        else if (argument == 'n')
            stream << line.number;
        else if (argument == 'k')
            stream << '"' << line.request.className << '"';
        else
            stream << line.request;
    }
    return stream << ");";
}

/// What the next line may refer to: how many there are, and the last command, so that commands of one kind
/// follow each other.
struct Past
{
    int count = 0;
    ksCommandRequest last{};
};

/// What the lines of a session have in common: the classes of most of its commands, and the limits of the
/// stacks that it begins with, if any.
struct Plan
{
    std::vector<std::string> classNames;
    std::vector<int> limits{};
};

class Step : public rc::state::Command<Past, ksSession>
{
public:
    explicit Step(const Line &line)
        : line(line)
    {}

    void apply(Past &past) const override
    {
        ++past.count;
        if (line.operation == 0)
            past.last = line.request;
    }

    void run(const Past &, ksSession &session) const override
    {
        ++count;
        operations()[line.operation].run(session, line);
    }

    void show(std::ostream &stream) const override { stream << line; }

    /// How many have been run.
    static inline long long count = 0;

private:
    Line line;
};

using StepPtr = std::shared_ptr<const rc::state::Command<Past, ksSession>>;

/// Draws lines, most of them of a few classes.
class LineMaker
{
public:
    LineMaker(rc::Random random, const Past &past, const Plan &plan)
        : random(std::move(random))
        , past(past)
        , plan(plan)
    {}

    Line make()
    {
        const auto place = static_cast<std::size_t>(past.count);
        if (place < plan.limits.size())
            return limit(past.count, plan.limits[place]);
        Line line;
        line.operation = drawOperation();
        const Operation &operation = operations()[line.operation];
        line.stack = below(4) == 0 ? 1 : 0;
        line.number = pick(operation.numbers);
        line.request = drawCommand(mostParts);
        return line;
    }

private:
    static Line limit(int stack, int number)
    {
        Line line;
        while (operations()[line.operation].name != std::string("setLimit"))
            ++line.operation;
        line.stack = stack;
        line.number = number;
        return line;
    }

    int below(int limit) { return static_cast<int>(random.next() % static_cast<std::uint64_t>(limit)); }

    template <class T>
    const T &pick(const std::vector<T> &choices)
    {
        return choices[random.next() % choices.size()];
    }

    std::size_t drawOperation()
    {
        static const int sum =
            std::accumulate(operations().begin(), operations().end(), 0,
                            [](int total, const Operation &operation) { return total + operation.weight; });
        int rest = below(sum);
        std::size_t place = 0;
        while (rest >= operations()[place].weight)
            rest -= operations()[place++].weight;
        return place;
    }

    ksCommandRequest drawCommand(int depth)
    {
        const bool isPart = depth < mostParts;
        if (!isPart && below(2) == 0 && !past.last.className.empty())
            return again(past.last);
        ksCommandRequest request;
        request.className = isPart && below(2) == 0 ? pick(ksPlain::classes()).name : pick(plan.classNames);
        request.target = below(8);
        request.value = below(5000);
        request.merging = drawMerging();
        const ksPlain::Mechanics mechanics = ksPlain::classOf(request.className).mechanics;
        if (mechanics == ksPlain::Mechanics::composite || mechanics == ksPlain::Mechanics::plain)
            for (int count = below(depth + 1); count > 0; --count)
                request.parts.push_back(drawCommand(depth - 1));
        return request;
    }

    /// The same, sometimes with other values or other merging.
    ksCommandRequest again(ksCommandRequest request)
    {
        if (below(3) == 0)
            request.value = below(5000);
        if (below(4) == 0)
            request.merging = drawMerging();
        for (ksCommandRequest &part : request.parts)
            part = again(part);
        return request;
    }

    int drawMerging() { return below(3) == 0 ? below(5) : 0; }

    /// How many parts a composite has at most; each of those one less.
    static constexpr int mostParts = 3;

    rc::Random random;
    const Past &past;
    const Plan &plan;
};

/// The commands that are a little simpler than \a request.
std::vector<ksCommandRequest> simplerRequests(const ksCommandRequest &request)
{
    std::vector<ksCommandRequest> simpler;
    const auto add = [&](auto change) {
        ksCommandRequest changed = request;
        change(changed);
        simpler.push_back(changed);
    };
    for (std::size_t i = 0; i < request.parts.size(); ++i)
        add([i](ksCommandRequest &changed) {
            changed.parts.erase(changed.parts.begin() + static_cast<std::ptrdiff_t>(i));
        });
    if (request.merging != 0)
        add([](ksCommandRequest &changed) { changed.merging = 0; });
    for (const int target : {0, request.target - 1})
        if (target >= 0 && target < request.target)
            add([target](ksCommandRequest &changed) { changed.target = target; });
    for (int value = 0; value < request.value; value = request.value - (request.value - value) / 2)
        add([value](ksCommandRequest &changed) { changed.value = value; });
    for (std::size_t i = 0; i < request.parts.size(); ++i)
        for (const ksCommandRequest &part : simplerRequests(request.parts[i]))
            add([&](ksCommandRequest &changed) { changed.parts[i] = part; });
    return simpler;
}

/// The lines that are a little simpler than \a line.
std::vector<Line> simplerLines(const Line &line)
{
    std::vector<Line> simpler;
    const auto add = [&](auto change) {
        Line changed = line;
        change(changed);
        simpler.push_back(changed);
    };
    const std::string arguments = operations()[line.operation].arguments;
    const std::vector<int> &numbers = operations()[line.operation].numbers;
    if (line.number != numbers.front())
        add([&numbers](Line &changed) { changed.number = numbers.front(); });
    if (line.stack != 0)
        add([](Line &changed) { changed.stack = 0; });
    if (arguments.find('c') != std::string::npos)
        for (const ksCommandRequest &request : simplerRequests(line.request))
            add([&](Line &changed) { changed.request = request; });
    return simpler;
}

rc::Gen<StepPtr> steps(const Past &past, const Plan &plan)
{
    return [past, &plan](const rc::Random &random, int) {
        auto lines = rc::shrinkable::shrinkRecur(LineMaker(random, past, plan).make(), [](const Line &line) {
            return rc::seq::fromContainer(simplerLines(line));
        });
        return rc::shrinkable::map(std::move(lines),
                                   [](const Line &line) -> StepPtr { return std::make_shared<Step>(line); });
    };
}

std::vector<std::string> allClassNames()
{
    std::vector<std::string> names;
    for (const ksPlain::Class &type : ksPlain::classes())
        names.push_back(type.name);
    return names;
}

/// Draws a few classes, or all, and limits in half of the plans.
Plan planOf(rc::Random random)
{
    static constexpr int limits[] = {1, 2, 5, 20};
    const std::vector<std::string> all = allClassNames();
    Plan plan;
    if (random.next() % 4 == 0)
        plan.classNames = all;
    else
        for (std::uint64_t count = 1 + random.next() % 6; count > 0; --count)
            plan.classNames.push_back(all[random.next() % all.size()]);
    if (random.next() % 2 == 0)
        for (int stack = 0; stack < 2; ++stack)
            plan.limits.push_back(limits[random.next() % std::size(limits)]);
    return plan;
}

} // namespace

TEST(ksSessions, KnowEveryClassOfTheList)
{
#define KS_CLASS_NAME_OF(Class) #Class,
    std::vector<std::string> listed = {KS_COMMAND_LIST(KS_CLASS_NAME_OF) "QUndoCommand"};
#undef KS_CLASS_NAME_OF
    EXPECT_THAT(allClassNames(), testing::UnorderedElementsAreArray(listed));
    EXPECT_THAT(ksLiveStacks::classNames(), testing::UnorderedElementsAreArray(listed));
}

// Other numbers, and a seed to repeat, come from RC_PARAMS.
TEST(ksSessions, AreAsThePlainOnes)
{
#ifdef __SANITIZE_ADDRESS__
    const std::string usual = "max_success=800";
#else
    const std::string usual = "max_success=10000";
#endif
    const std::string seed = std::to_string(std::random_device()());
    const std::string parameters =
        "max_size=200 seed=" + seed + ' ' + usual + ' ' + qgetenv("RC_PARAMS").toStdString();
    qputenv("RC_PARAMS", QByteArray::fromStdString(parameters));

    long long sessions = 0;
    const bool holds = rc::check([&sessions] {
        const Plan plan = planOf(*rc::gen::noShrink(rc::gen::arbitrary<std::uint64_t>()));
        ++sessions;
        ksSession session;
        rc::state::check(Past(), session, [&plan](const Past &past) { return steps(past, plan); });
        session.end();
    });
    std::cout << Step::count << " steps in " << sessions << " sessions, RC_PARAMS=\"" << parameters << "\"\n";
    EXPECT_TRUE(holds);
}
