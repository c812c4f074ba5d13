// SPDX-License-Identifier: MIT
#pragma once

#include "ksFaultScene.h"

#include <QUndoCommand>

#include <functional>
#include <ostream>
#include <string>
#include <vector>

/// What commands of one class are required to do when something goes wrong.
struct ksFaultKind
{
    using Make = std::function<QUndoCommand *(ksFaultScene &)>;

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

    /// What the command keeps alive.
    std::function<std::vector<osg::FieldContainerPtr>(const ksFaultScene &)> held{};

    /// Undo is required to change nothing.
    bool undoIsEmpty = false;

    /// The command changes nothing in the scene.
    bool isEmpty = false;

    /// A field that follows from others, which come back exactly.
    std::string derivedField{};

    /// Switches the reports of the class's sync function to the scene's log on, or off for null.
    std::function<void(ksFaultScene *)> reportSync{};

    friend std::ostream &operator<<(std::ostream &stream, const ksFaultKind &kind)
    {
        return stream << kind.name;
    }
};

/// One of each command class, and several where a class can be aimed at several things.
std::vector<ksFaultKind> ksFaultKinds();
