// SPDX-License-Identifier: MIT
#pragma once

#include "ksFaultScene.h"

#include <QUndoCommand>

#include <functional>
#include <ostream>
#include <set>
#include <string>
#include <vector>

/// A container besides its target that a command finds again by its id, and what is required of the command
/// when it cannot: because the container has gone, or is of another type.
struct ksFurtherContainer
{
    using Changes = std::function<ksFaultScene::State(const ksFaultScene &)>;

    std::string name;
    std::function<osg::FieldContainerPtr(const ksFaultScene &)> container;

    /// What the step changes without it, as fields after the step. None: what it changes otherwise, too.
    Changes redone{};
    Changes undone{};

    /// What is called back then.
    ksFaultScene::Events redoEvents{};
    ksFaultScene::Events undoEvents{};

    /// What is recorded then, if that is all that tells.
    std::function<ksRecords(const ksFaultScene &)> records{};

    /// A container whose type is next to that of this one. None if the command takes one of any type.
    std::function<osg::FieldContainerPtr(const ksFaultScene &)> impostor{};

    /// Changes nothing.
    static ksFaultScene::State nothing(const ksFaultScene &) { return {}; }
};

/// What commands of one class are required to do when something goes wrong.
struct ksFaultKind
{
    using Make = std::function<QUndoCommand *(ksFaultScene &)>;
    using Containers = std::function<std::vector<osg::FieldContainerPtr>(const ksFaultScene &)>;

    std::string name;

    /// Builds a command that changes the scene.
    Make make;

    /// Builds one without a target; none for a class that requires one.
    Make makeWithoutTarget;

    /// What the command finds again by its id at every step.
    std::function<osg::FieldContainerPtr(const ksFaultScene &)> target;

    /// What is called back at a step.
    ksFaultScene::Events redoEvents{};
    ksFaultScene::Events undoEvents{};

    /// The same when the target cannot be found.
    ksFaultScene::Events idleRedoEvents{};
    ksFaultScene::Events idleUndoEvents{};

    /// What is recorded at a step all the same when the target cannot be found.
    std::function<ksRecords(const ksFaultScene &)> idleRecords{};

    /// What the command keeps alive, in the order in which it takes its references.
    Containers held{};

    /// The same in the order in which it releases them, if that is another one.
    Containers released{};

    /// What goes with the command when it is destroyed after redo.
    Containers goneWhenDone{};

    /// Containers whose types are next to that of the target, but not it.
    Containers impostors{};

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
        return stream << kind.name;
    }
};

/// One of each command class, and several where a class can be aimed at several things.
std::vector<ksFaultKind> ksFaultKinds();
