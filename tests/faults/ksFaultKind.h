// SPDX-License-Identifier: MIT
#pragma once

#include "ksFaultScene.h"

#include <ksundo/core/ksUndoCommand.h>

#include <QUndoCommand>

#include <cstddef>
#include <functional>
#include <ostream>
#include <set>
#include <string>
#include <support/ksClassNames.h>
#include <support/ksVirtualSlot.h>
#include <type_traits>
#include <utility>
#include <vector>

/// A container of a scene: a member of it, or a function of it.
using ksPlace = std::function<osg::FieldContainerPtr(const ksFaultScene &)>;

/// A container besides its target that a command finds again by its id, and what is required of the command
/// when it cannot: because the container has gone, or is of another type.
struct ksFurtherContainer
{
    using Changes = std::function<ksFaultScene::State(const ksFaultScene &)>;

    std::string name;
    ksPlace container;

    /// A container whose type is next to that of this one. None if the command takes one of any type.
    ksPlace impostor{};

    /// What the step changes without it, as fields after the step. None: what it changes otherwise, too.
    Changes redone{};
    Changes undone{};

    /// What is recorded then, if that is all that tells.
    std::function<ksRecords(const ksFaultScene &)> records{};

    /// What is called back then.
    ksFaultScene::Events redoEvents{};
    ksFaultScene::Events undoEvents{};

    /// Changes nothing.
    static ksFaultScene::State nothing(const ksFaultScene &) { return {}; }
};

/// What commands of one class are required to do, and to say of themselves.
struct ksFaultKind
{
    using Places = std::vector<ksPlace>;
    using Keys = std::vector<std::string>;

    enum class Merging
    {
        never,       ///< refuses to
        unsupported, ///< does not refuse, but does not either
        runs         ///< a run of commands on the same target becomes one step
    };

    std::string className;

    /// What tells kinds of one class apart.
    std::string variation{};

    int (*commandId)();

    /// Where the virtual functions stand, in the required order.
    std::vector<std::size_t> slots{};

    /// Builds a command that changes the scene.
    std::function<QUndoCommand *(ksFaultScene &, QUndoCommand *parent)> make;

    /// Builds one without a target; none for a class that requires one.
    std::function<QUndoCommand *(ksFaultScene &)> makeWithoutTarget;

    /// What the command finds again by its id at every step.
    ksPlace target;

    /// The text of commands that take any.
    static constexpr const char *anyText = "Edit '%1'";

    /// The text in the history; * stands for the target's name.
    std::string text = anyText;

    /// The text is translated in the context of the class.
    bool isTranslated = false;

    /// What the command adds to messages besides its id, when it was built for \a target.
    std::function<Keys(const ksFaultScene &, const osg::FieldContainerPtr &target)> keys{};

    /// The class whose id is in the messages, if that is not this one.
    int (*messageId)() = nullptr;

    Merging merging = Merging::never;

    /// The class knows no parents.
    bool isTopLevel = false;

    /// All that a step records.
    std::function<ksRecords(const ksFaultScene &, bool undoing)> records{};

    /// What is called back at a step.
    ksFaultScene::Events redoEvents{};
    ksFaultScene::Events undoEvents{};

    /// The same when the target cannot be found.
    ksFaultScene::Events idleRedoEvents{};
    ksFaultScene::Events idleUndoEvents{};

    /// What is recorded at a step all the same when the target cannot be found.
    std::function<ksRecords(const ksFaultScene &)> idleRecords{};

    /// What the command keeps alive, in the order in which it takes its references.
    Places held{};

    /// The same in the order in which it releases them, if that is another one.
    Places released{};

    /// What goes with the command when it is destroyed after redo.
    Places goneWhenDone{};

    /// Containers whose types are next to that of the target, but not it.
    Places impostors{};

    /// What the command finds besides its target.
    std::vector<ksFurtherContainer> further{};

    /// Undo is required to change nothing.
    bool undoIsEmpty = false;

    /// The command changes nothing in the scene.
    bool isEmpty = false;

    /// A field that follows from others, which come back exactly.
    std::string derivedField{};

    /// The fields that change handlers derive from those that the command writes.
    std::set<std::string> handlerFields{};

    /// Switches the reports of the class's sync function to the scene's log on, or off for null.
    std::function<void(ksFaultScene *)> reportSync{};

    friend std::ostream &operator<<(std::ostream &stream, const ksFaultKind &kind)
    {
        return stream << kind.className << ' ' << kind.variation;
    }
};

/// What is known of the kind from its class alone.
template <class Command>
ksFaultKind ksFaultKindOf(const std::string &variation = {})
{
    static_assert(ksClassName<Command> != nullptr, "the class is not in docs/commands.md");
    ksFaultKind kind;
    kind.className = ksClassName<Command>;
    kind.variation = variation;
    kind.commandId = &Command::commandId;
    kind.slots = {ksVirtualSlot(&Command::undo), ksVirtualSlot(&Command::redo), ksVirtualSlot(&Command::id),
                  ksVirtualSlot(&Command::mergeWith), ksVirtualSlot(&Command::makeMessage)};
    if constexpr (std::is_base_of_v<ksUndoCommand, Command>)
        kind.slots.push_back(ksVirtualSlot(&Command::canMergeWith));
    if constexpr (ksHasSync<Command>)
        kind.reportSync = [](ksFaultScene *scene) {
            if (scene == nullptr)
                Command::setSyncFunction({});
            else
                Command::setSyncFunction([scene](const auto &...) { scene->log("synced"); });
        };
    return kind;
}

/// The same for a class whose commands \a make builds of the scene, their target, which is at \a place, and
/// their parent.
template <class Command, class Place, class Make>
ksFaultKind ksFaultKindOf(Place place, Make make, const std::string &variation = {})
{
    using Target = std::decay_t<std::invoke_result_t<Place, const ksFaultScene &>>;
    ksFaultKind kind = ksFaultKindOf<Command>(variation);
    kind.target = place;
    kind.make = [=](ksFaultScene &scene, QUndoCommand *parent) {
        return make(scene, std::invoke(place, std::as_const(scene)), parent);
    };
    kind.makeWithoutTarget = [=](ksFaultScene &scene) { return make(scene, Target(), nullptr); };
    return kind;
}

/// One of each command class, and several where a class can be aimed at several things.
std::vector<ksFaultKind> ksFaultKinds();
