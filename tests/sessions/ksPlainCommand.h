// SPDX-License-Identifier: MIT
#pragma once

#include "ksCommandRequest.h"
#include "ksPlainScene.h"

#include <map>
#include <memory>
#include <string>
#include <vector>

namespace ksPlain {

/// What commands of several classes have in common.
enum class Mechanics
{
    plain,
    composite,
    number,
    flag,
    content,
    image,
    transformValue,
    quaternion,
    transformation,
    addVariant,
    removeVariant,
    moveVariant,
    variantName,
    variantOptions,
    lightValue,
    linkSet,
    visibility,
    wrapper,
    environment,
    tag,
    emptyTag,
    constraint
};

/// What is required of one class.
struct Class
{
    const char *name;
    Mechanics mechanics;

    /// What it edits.
    int field = 0;

    /// What its text begins with; null where the text is given.
    const char *verb = nullptr;

    // Of transform values.
    bool hasMode = false;
    bool hasCallback = false;
    bool hasIndex = false;
    bool syncsAlways = false;

    bool is(const char *className) const { return std::string(name) == className; }
};

/// All classes, and QUndoCommand.
const std::vector<Class> &classes();
const Class &classOf(const std::string &name);

/// A command as it is asked for, and then as it lives on.
struct Command
{
    const Class *type = nullptr;
    std::string text;

    double time = 0;
    double window = 0.4;
    bool merges = true;
    unsigned gesture = 0;

    int target = 0;
    int field = 0; ///< of the target; -1 if there is no such field
    int other = 0;
    int third = 0;
    int index = -1;
    bool mode = false;
    bool isOn = false;
    bool calls = false;
    int notified = 0; ///< which function hears of an image, 0 for none

    /// What is written next, or by redo; and by undo.
    Value value;
    Value old;
    std::vector<Value> values{};
    std::vector<Value> olds{};

    List given{};
    List ids{};
    List positions{};
    std::map<int, int> from{};
    std::map<int, int> to{};
    std::map<int, int> moves{};

    std::vector<std::unique_ptr<Command>> parts{};
};

using Events = std::vector<std::string>;

/// Commands at work on a scene.
class Workshop
{
public:
    /// Builds what is asked for, or null where there is no such command.
    std::unique_ptr<Command> build(const ksCommandRequest &request, const std::string &givenText);

    void redo(Command &command) { step(command, false); }
    void undo(Command &command) { step(command, true); }

    /// What the end of a command entails.
    void destroy(const Command &command);

    /// Tells a command that has been built, and its parts, anew about merging and whom to notify, by a
    /// number.
    static void retell(Command &command, int number);

    static bool canMerge(const Command &older, const Command &newer);
    static bool merge(Command &older, const Command &newer);

    /// What is in a message besides what the stack says.
    static std::map<std::string, std::string> keysOf(const Command &command);

    Scene scene;
    double now = 1000;
    Events events;

    /// Which function syncs a class, 0 for none.
    std::map<std::string, int> syncs;

private:
    void step(Command &command, bool undoing);
    void runParts(Command &command, bool undoing);

    bool decode(Command &command, const ksCommandRequest &request);
    bool capture(Command &command);
    void captureImage(Command &command);
    void captureMove(Command &command);
    void captureLinks(Command &command);
    void captureReferences(Command &command);

    void stepNumber(Command &command);
    void stepFlag(Command &command);
    void stepImage(int target, int field, int image);
    void stepTransformValue(Command &command);
    void stepQuaternion(Command &command);
    void stepTransformation(Command &command, const std::vector<Value> &values);
    void stepAdd(Command &command);
    void stepRemove(Command &command);
    void putBack(Command &command);
    void stepMove(Command &command, bool undoing);
    void stepLight(Command &command);
    void stepLinks(Command &command, bool removing);
    void stepVisibility(Command &command, bool removing);
    void stepEnvironment(Command &command, int environment);
    void stepTags(Command &command, const Value &strings, const Value &numbers);
    void stepReferences(Command &command, bool removing);

    void syncClass(const Class &type, const std::string &what);
    void touchMaterial(const Command &command);

    /// The images that the texture manager knows.
    List knownImages;
};

} // namespace ksPlain
