// SPDX-License-Identifier: MIT
#pragma once

#include "ksSuiteScene.h"

#include <QUndoCommand>

#include <functional>

/// What commands of one class do on every platform.
struct ksSuiteKind
{
    /// As in the list of commands.
    std::string name;

    /// Builds a command that changes the scene, or one without a target.
    std::function<QUndoCommand *(ksSuiteScene &scene, bool hasTarget)> make;

    /// What the message tells besides the id: keys, with the id of the container that they are to hold.
    using Keys = std::map<std::string, osg::UInt32>;
    std::function<Keys(const ksSuiteScene &)> tells{};

    /// Keys of the message that hold other things.
    std::vector<std::string> flags{};

    /// Takes the target away.
    std::function<void(ksSuiteScene &)> dropTarget{};

    /// The id in the message.
    std::function<int()> id{};

    /// What one step calls back, and what one step without its target does.
    std::vector<std::string> events{};
    std::vector<std::string> idleEvents{};

    /// On what the command holds references.
    std::function<std::vector<osg::FieldContainerPtr>(const ksSuiteScene &)> held{};

    /// A field that follows from another one, and does not come back to the last digit.
    std::string derivedField{};

    bool merges = false;
    bool needsTarget = false;
    bool changesNothing = false;
    bool undoIsEmpty = false;

    /// Lets the class's sync function tell the scene, or nobody.
    std::function<void(ksSuiteScene *)> setSync{};

    friend std::ostream &operator<<(std::ostream &stream, const ksSuiteKind &kind)
    {
        return stream << kind.name;
    }
};

/// One for each class, and more where that is not enough.
std::vector<ksSuiteKind> ksSuiteKinds();
