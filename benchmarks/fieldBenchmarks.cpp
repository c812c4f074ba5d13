// SPDX-License-Identifier: MIT
#include "Fixtures.h"
#include "Meter.h"
#include "Topics.h"

#include <ksundo/field/ksUndoUtil.h>

#include <OpenSG/OSGNode.h>
#include <OpenSG/OSGSwitch.h>

namespace {

const std::string choiceName = "choice";

void findByLibrary(Meter &meter)
{
    const MaterialScene scene(1);
    const osg::FieldDescription *found = nullptr;
    meter.measure(stepCount,
                  [&](int) { found = ksFieldBaseUndoCommand::findField(scene.target(0), fieldName); });
    meter.require(found != nullptr, "the field was not found");
}

void findByHand(Meter &meter)
{
    const MaterialScene scene(1);
    const osg::FieldDescription *found = nullptr;
    meter.measure(stepCount,
                  [&](int) { found = scene.target(0)->getType().findFieldDescription(fieldName.c_str()); });
    meter.require(found != nullptr, "the field was not found");
}

/// Lets \a makeByLibrary(container, value), which pushes onto the application's stack, make a command each
/// time.
template <class PtrT, class Make>
auto factoryCase(Make makeByLibrary)
{
    return [makeByLibrary](Meter &meter) {
        const Scene<PtrT> scene(2);
        ksUndoStack &stack = *ksUndoStack::get(0);
        const auto make = [&](int i) { makeByLibrary(scene.target(i), i); };
        make(0);
        make(1);
        meter.measure(stepCount, make);
        meter.require(stack.count() == stepCount + 2, "a command is missing");
        stack.clear();
    };
}

/// The same for a command of the type that the field is known to have.
template <class PtrT, class T>
auto handWrittenCase(const std::string &name)
{
    return [name](Meter &meter) {
        const Scene<PtrT> scene(2);
        ByHand edits;
        const auto make = [&](int i) {
            edits.push(new HandWrittenCommand<T>(editText(), scene.target(i), name, static_cast<T>(i)));
        };
        make(0);
        make(1);
        meter.measure(stepCount, make);
        meter.require(edits.count() == stepCount + 2, "a command is missing");
    };
}

/// The names of the first three of many nodes.
void listNames(Meter &meter, int number)
{
    const osg::NodeRefPtr node(osg::Node::create());
    const std::vector<osg::NodePtr> nodes(static_cast<std::size_t>(number), node);
    QString names;
    meter.measure(stepCount, [&](int) { names = ksUndoUtil::makeNameList(nodes, 3); });
    meter.require(names == QStringLiteral("'', '', '', ..."), "the names are not those of three nodes");
}

} // namespace

void addFieldBenchmarks()
{
    for (const int number : {10, 100'000})
        addCase("names/" + std::to_string(number), [=](Meter &meter) { listNames(meter, number); });
    addCase("field/find by name", findByLibrary, findByHand);
    addCase("field/make int command",
            factoryCase<osg::SwitchPtr>([](const osg::SwitchPtr &container, int value) {
                ksUndoUtil::makeIntTypeCommand(editText(), container, choiceName, value);
            }),
            handWrittenCase<osg::SwitchPtr, osg::Int32>(choiceName));
    addCase("field/make float command",
            factoryCase<osg::SimpleMaterialPtr>([](const osg::SimpleMaterialPtr &container, int value) {
                ksUndoUtil::makeFloatTypeCommand(editText(), container, fieldName, value);
            }),
            handWrittenCase<osg::SimpleMaterialPtr, osg::Real32>(fieldName));
}
