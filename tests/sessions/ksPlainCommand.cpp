// SPDX-License-Identifier: MIT
#include "ksPlainCommand.h"

#include <algorithm>
#include <utility>

namespace ksPlain {

namespace {

using PlaceKind = Place::Kind;

const Vec zero = {0, 0, 0, 0};
const Vec identity = {0, 0, 0, 1};

constexpr unsigned directionBits = bit(direction) | bit(directionMode) | bit(directionOn);

/// The fields of a transformation, in the order in which it is given.
constexpr int transformationFields[] = {
    translation,           eulerRotation,          scale,       shear,      scalePivot,  rotatePivot,
    scalePivotTranslation, rotatePivotTranslation, inheritType, eulerOrder, directionOn, direction,
    directionMode};

Value vecOf(int number)
{
    const double x = number;
    return Vec{x, x / 2, -x, 0};
}

/// Turns about one axis, whose angles are those in every order.
Vec anglesOf(int number)
{
    static const Vec angles[] = {{0, 0, 0, 0}, {30, 0, 0, 0}, {0, -45, 0, 0}, {0, 0, 60, 0}};
    return angles[number % 4];
}

std::string orderOf(int number)
{
    static const char *const orders[] = {"XYZ", "ZXY", "YZX", "odd"};
    return orders[number % 4];
}

Texts textsOf(const char *prefix, int number)
{
    Texts texts;
    for (int i = 0; i < number; ++i)
        texts.push_back(prefix + std::to_string(i));
    return texts;
}

void setMerging(Command &command, int merging)
{
    static constexpr double windows[] = {0.4, 0.4, 2, -1, 0};
    command.merges = merging != 1;
    command.window = windows[merging % 5];
}

unsigned unsignedOf(const Value &value)
{
    return static_cast<unsigned>(std::get<double>(value));
}

/// The values of a command on \a field of a transform, read from a number.
Value transformValueOf(int field, int number)
{
    if (field == eulerRotation)
        return anglesOf(number);
    if (field == eulerOrder)
        return orderOf(number);
    return vecOf(number);
}

} // namespace

const std::vector<Class> &classes()
{
    using M = Mechanics;
    static const std::vector<Class> all = {
        {"ksMultiCommand", M::composite},
        {"ksInvokeMultiCommand", M::composite},
        {"ksMaterialMultiUndoCommand", M::composite},
        {"ksFieldUndoCommand<long long>", M::number, int64},
        {"ksFieldUndoCommand<unsigned long long>", M::number, uint64},
        {"ksFieldUndoCommand<int>", M::number, int32},
        {"ksFieldUndoCommand<unsigned int>", M::number, uint32},
        {"ksFieldUndoCommand<short>", M::number, int16},
        {"ksFieldUndoCommand<unsigned short>", M::number, uint16},
        {"ksFieldUndoCommand<signed char>", M::number, int8},
        {"ksFieldUndoCommand<unsigned char>", M::number, uint8},
        {"ksFieldUndoCommand<float>", M::number, real32},
        {"ksFieldUndoCommand<double>", M::number, real64},
        {"ksBoolFieldUndoCommand", M::flag},
        {"ksInvokeBoolFieldUndoCommand", M::flag},
        {"ksStringFieldUndoCommand", M::content, text},
        {"ksStringsFieldUndoCommand", M::content, words},
        {"ksImageFieldUndoCommand", M::image, componentImage, "Set Texture"},
        {"ksTranslationUndoCommand", M::transformValue, translation, "Translate", true, true, true, false},
        {"ksRotationUndoCommand", M::transformValue, eulerRotation, "Rotate", false, true, true, false},
        {"ksScaleUndoCommand", M::transformValue, scale, "Scale", false, true, true, false},
        {"ksScalePivotUndoCommand", M::transformValue, scalePivot, "Change Scale Pivot", true, false, true,
         true},
        {"ksRotationPivotUndoCommand", M::transformValue, rotatePivot, "Change Rotation Pivot", true, false,
         true, true},
        {"ksScalePivotTranslationUndoCommand", M::transformValue, scalePivotTranslation,
         "Change Scale Pivot Translation", false, false, true, true},
        {"ksRotationPivotTranslationUndoCommand", M::transformValue, rotatePivotTranslation,
         "Change Rotation Pivot Translation", false, false, true, true},
        {"ksRotationPivotOrientationUndoCommand", M::transformValue, orientation, "Change Rotation Pivot",
         false, false, true, false},
        {"ksRotationPivotDirectionUndoCommand", M::transformValue, direction, "Change Rotation Pivot", false,
         false, true, false},
        {"ksShearUndoCommand", M::transformValue, shear, "Shear", false, false, false, true},
        {"ksEulerRotationOrderUndoCommand", M::transformValue, eulerOrder, "Translate", false, true, true,
         false},
        {"ksRotationAsQuaternionUndoCommand", M::quaternion},
        {"ksTransformationUndoCommand", M::transformation, 0, "Apply transformation to "},
        {"ksAddTransformVariantUndoCommand", M::addVariant, 0, "Insert transform variant"},
        {"ksRemoveTransformSwitchVariantUndoCommand", M::removeVariant, 0, "Remove transform variant"},
        {"ksTransformVariantMoveCommand", M::moveVariant, 0, "Move transform variant"},
        {"ksTransformVariantNameUndoCommand", M::variantName, 0, "Transform Variant Name"},
        {"ksTransformVariantOptionsUndoCommand", M::variantOptions, 0, "Transform Variant Options"},
        {"ksLightDiffuseUndoCommand", M::lightValue, diffuse},
        {"ksLightGlossyUndoCommand", M::lightValue, glossy},
        {"ksLightIntensityUndoCommand", M::lightValue, intensity},
        {"ksLightPenumbraAngleUndoCommand", M::lightValue, penumbraAngle},
        {"ksLightConeAngleUndoCommand", M::lightValue, coneAngle},
        {"ksLightAttenuationUndoCommand", M::lightValue, attenuation},
        {"ksAddNodeToLightLinkSetUndoCommand", M::linkSet},
        {"ksAddNodeAsVisibilityReferenceUndoCommand", M::visibility, 0, "Add Node as Visibility Reference"},
        {"ksMaterialUndoCommand", M::wrapper},
        {"ksColorComponentUndoCommand", M::wrapper},
        {"ksSetEnvironmentUndoCommand", M::environment, 0, "Change Environment"},
        {"ksAddTagUndoCommand", M::tag},
        {"ksSubTagUndoCommand", M::tag},
        {"ksAddEmptyTagUndoCommand", M::emptyTag},
        {"ksSubEmptyTagUndoCommand", M::emptyTag},
        {"ksDeleteConstraintReferenceUndoCommand", M::constraint, 0, "Remove References from Constraint"},
        {"QUndoCommand", M::plain},
    };
    return all;
}

const Class &classOf(const std::string &name)
{
    return *std::find_if(classes().begin(), classes().end(),
                         [&](const Class &type) { return type.is(name.c_str()); });
}

std::unique_ptr<Command> Workshop::build(const ksCommandRequest &request, const std::string &givenText)
{
    auto command = std::make_unique<Command>();
    command->type = &classOf(request.className);
    command->time = now;
    command->text = givenText;
    setMerging(*command, request.merging);
    if (!decode(*command, request) || !capture(*command))
        return nullptr;
    const Mechanics mechanics = command->type->mechanics;
    if (mechanics == Mechanics::composite || mechanics == Mechanics::plain)
        for (const ksCommandRequest &part : request.parts) {
            // Some classes know no parents.
            const Mechanics own = classOf(part.className).mechanics;
            if (own != Mechanics::composite && own != Mechanics::tag && own != Mechanics::emptyTag)
                if (auto built = build(part, givenText))
                    command->parts.push_back(std::move(built));
        }
    return command;
}

/// Reads target and values from the numbers of \a request.
bool Workshop::decode(Command &command, const ksCommandRequest &request)
{
    const Class &type = *command.type;
    int rest = request.value;
    const auto next = [&rest](int count) {
        const int digit = rest % count;
        rest /= count;
        return digit;
    };
    const auto at = [&](PlaceKind kind) { return scene.at(kind, request.target); };
    const auto componentAt = [&] {
        const int material = at(PlaceKind::material);
        return material == 0 ? 0 : scene.entry(material, colorComponents);
    };
    const auto nodeAt = [&](PlaceKind kind) { return next(9) == 8 ? at(PlaceKind::mark) : at(kind); };
    const auto setName = [&] {
        if (type.verb != nullptr)
            command.text = type.verb + (" '" + scene.nameOf(command.target) + '\'');
    };
    if (type.verb != nullptr)
        command.text = type.verb;
    switch (type.mechanics) {
    case Mechanics::plain:
    case Mechanics::emptyTag:
        return true;
    case Mechanics::composite:
        command.calls = next(3) > 0;
        if (type.is("ksMaterialMultiUndoCommand")) {
            command.other = at(PlaceKind::material);
            command.third = command.other == 0 ? 0 : scene.entry(command.other, materialSettings);
        }
        return true;
    case Mechanics::number: {
        const bool isReal = type.field == real32 || type.field == real64;
        command.value = next(4) / (isReal ? 2.0 : 1.0);
        const bool isWeight = type.field == real32 && next(2) == 1;
        command.target = isWeight ? componentAt() : at(PlaceKind::probe);
        command.field = isWeight ? static_cast<int>(weight) : type.field;
        return true;
    }
    case Mechanics::flag: {
        static constexpr int fields[] = {flag, int16, real32};
        const int which = next(4);
        command.value = next(2) * 1.0;
        command.target = which == 3 ? componentAt() : at(PlaceKind::probe);
        command.field = which == 3 ? static_cast<int>(enabled) : fields[which];
        command.calls = next(3) > 0;
        return true;
    }
    case Mechanics::content:
        command.target = at(PlaceKind::probe);
        command.field = type.field + next(2);
        if (type.field == text)
            command.value = "t" + std::to_string(next(3));
        else
            command.value = textsOf("w", next(3));
        return true;
    case Mechanics::image:
        command.target = componentAt();
        command.field = componentImage;
        command.notified = next(2);
        command.given = {next(4)};
        return true;
    case Mechanics::transformValue: {
        static constexpr int indexes[] = {-1, -1, 0, 1, 2, 7};
        command.target = nodeAt(PlaceKind::box);
        command.value = transformValueOf(type.field, next(4));
        const int which = next(6);
        command.index = type.hasIndex ? indexes[which] : -1;
        command.calls = type.hasCallback && next(2) == 1;
        command.mode = type.hasMode && next(2) == 1;
        command.positions = {next(3)};
        command.isOn = next(2) == 1;
        setName();
        return true;
    }
    case Mechanics::quaternion:
        command.target = nodeAt(PlaceKind::box);
        command.value = Scene::quaternionOf(anglesOf(next(4)));
        return true;
    case Mechanics::transformation: {
        command.target = nodeAt(PlaceKind::box);
        const int number = next(4);
        for (const int field : transformationFields) {
            Value value = transformValueOf(field, number);
            if (field == inheritType || field == directionOn || field == directionMode)
                value = number % 2 * 1.0;
            command.values.push_back(value);
        }
        command.index = next(4) - 1;
        command.isOn = next(2) == 1;
        command.calls = next(2) == 1;
        command.text = type.verb + scene.nameOf(command.target);
        return true;
    }
    case Mechanics::addVariant: {
        command.target = at(PlaceKind::box);
        const int which = next(5);
        command.other = which == 4 ? 0 : which == 3 ? scene.variantAt(command.target, 0) : -1;
        command.index = next(5);
        setName();
        return true;
    }
    case Mechanics::removeVariant:
        command.target = at(PlaceKind::box);
        command.index = next(4);
        setName();
        return true;
    case Mechanics::moveVariant: {
        command.target = at(PlaceKind::box);
        command.index = next(4);
        const int count = next(4);
        const int first = next(5) - 1;
        for (int i = 0; i < count; ++i)
            command.ids.push_back(first + (i * 2) % 5);
        setName();
        return true;
    }
    case Mechanics::variantName:
    case Mechanics::variantOptions:
        command.target = scene.variantAt(at(PlaceKind::box), next(3));
        if (type.mechanics == Mechanics::variantName)
            command.value = "v" + std::to_string(next(3));
        else
            command.value = next(4) * 1.0;
        return command.target != 0;
    case Mechanics::lightValue: {
        command.target = nodeAt(next(4) == 3 ? PlaceKind::twin : PlaceKind::lamp);
        const int number = next(3);
        if (type.field == diffuse || type.field == glossy)
            command.value = vecOf(number);
        else
            command.value = number * 1.0;
        return true;
    }
    case Mechanics::linkSet: {
        command.target = scene.coreOf(at(PlaceKind::links));
        command.field = next(2) == 1 ? lights : sceneNodes;
        command.isOn = next(2) == 1;
        const int choices[] = {scene.at(PlaceKind::mark, 0), scene.at(PlaceKind::lamp, 0),
                               scene.at(PlaceKind::twin, 0), scene.at(PlaceKind::mark, 1),
                               scene.at(PlaceKind::box, 0),  Scene::root,
                               scene.at(PlaceKind::lamp, 1), 0};
        command.mode = next(2) == 1; // whether several nodes are given
        const int count = command.mode ? next(4) : 1;
        const int first = next(8);
        for (int i = 0; i < count; ++i)
            command.given.push_back(choices[(first + 3 * i) % 8]);
        command.text = command.mode ? "Add Nodes to Light Link Set" : "Add Node to Light Link Set";
        return true;
    }
    case Mechanics::visibility: {
        command.isOn = next(2) == 1;
        const int light = scene.coreOf(at(PlaceKind::lamp));
        command.target = light;
        command.other = scene.at(PlaceKind::mark, next(5) == 4 ? 7 : next(2));
        return true;
    }
    case Mechanics::wrapper: {
        const int component = componentAt();
        const int material = at(PlaceKind::material);
        const int settings = next(3) == 2 || material == 0 ? 0 : scene.entry(material, materialSettings);
        const bool isMaterial = type.is("ksMaterialUndoCommand");
        command.other = isMaterial ? material : component;
        command.third = isMaterial ? settings : material;
        auto inner = std::make_unique<Command>();
        const bool isFlag = next(4) == 3;
        inner->type = &classOf(isFlag ? "ksBoolFieldUndoCommand" : "ksFieldUndoCommand<float>");
        inner->text = command.text;
        inner->time = now;
        inner->target = component;
        inner->field = isFlag ? enabled : weight;
        setMerging(*inner, next(2) == 1 ? 3 : 0);
        inner->value = next(2) * 1.0;
        command.parts.push_back(std::move(inner));
        return true;
    }
    case Mechanics::environment:
        command.target = at(PlaceKind::brdf);
        command.other = scene.at(PlaceKind::environment, next(2));
        return command.target != 0 && command.other != 0;
    case Mechanics::tag:
        command.target = at(PlaceKind::tagged);
        command.field = next(2) == 1 ? userTags : layerTags;
        command.isOn = next(2) == 1; // whether the values are announced
        command.values = {textsOf("g", next(3)), List(static_cast<std::size_t>(next(3)), 5)};
        if (next(9) == 8)
            command.field = -1;
        return command.target != 0;
    case Mechanics::constraint: {
        command.target = scene.coreOf(at(next(2) == 1 ? PlaceKind::aim : PlaceKind::point));
        command.given = {scene.at(PlaceKind::mark, next(5) == 4 ? 7 : next(2))};
        return true;
    }
    }
    return false;
}

/// Reads from the scene what the command keeps of it, and takes the references that it holds.
bool Workshop::capture(Command &command)
{
    const Class &type = *command.type;
    switch (type.mechanics) {
    case Mechanics::flag:
        if (type.is("ksInvokeBoolFieldUndoCommand") && !command.calls)
            events.push_back("error Method not found: ksHearer::missing(bool)");
        break;
    case Mechanics::composite:
        if (type.is("ksInvokeMultiCommand") && !command.calls)
            events.push_back("error Method not found: ksHearer::missing()");
        break;
    case Mechanics::content:
        if (command.target != 0)
            command.old = scene.field(command.target, command.field);
        else if (type.field == text)
            command.old = std::string();
        else
            command.old = Texts();
        break;
    case Mechanics::image:
        captureImage(command);
        break;
    case Mechanics::transformation: {
        int governing = command.target;
        while (governing != 0 && scene.transformOf(governing, -1) == 0)
            governing = scene.entry(governing, parent);
        const int transform = governing == 0 ? 0 : scene.transformOf(governing, command.index);
        for (const int field : transformationFields) {
            Value value = fieldsOf(Kind::transform3D)[static_cast<std::size_t>(field)].first;
            if (field == scale)
                value = zero;
            else if (field == eulerOrder)
                value = std::string();
            command.olds.push_back(transform == 0 ? value : scene.field(transform, field));
        }
        break;
    }
    case Mechanics::addVariant:
        if (command.other == -1)
            command.other = scene.createVariant("new");
        scene.take(command.other);
        break;
    case Mechanics::removeVariant:
        if (const int variant = scene.variantAt(command.target, command.index)) {
            command.other = variant;
            command.third = scene.attachmentOf(command.target, Kind::variants);
            scene.take(command.other);
            scene.take(command.third);
        }
        break;
    case Mechanics::moveVariant:
        captureMove(command);
        break;
    case Mechanics::variantName:
        command.old = scene.field(command.target, variantName);
        break;
    case Mechanics::variantOptions:
        command.old = scene.field(command.target, applyFlags);
        break;
    case Mechanics::linkSet:
        captureLinks(command);
        break;
    case Mechanics::environment:
        command.third = scene.entry(command.target, brdfEnvironment);
        break;
    case Mechanics::tag: {
        scene.take(command.target);
        const int tags = scene.attachmentOf(command.target, Kind::tags);
        if (command.field != -1)
            command.olds = {scene.field(tags, command.field), scene.field(tags, tagValues)};
        break;
    }
    case Mechanics::constraint:
        captureReferences(command);
        break;
    default:
        break;
    }
    return true;
}

/// The texture manager answers with an equal image that it knows already; the caller's goes then.
void Workshop::captureImage(Command &command)
{
    const int shade = command.given.front();
    if (shade < 3) {
        command.other = scene.create(Kind::image);
        scene.field(command.other, imageName) = "shade" + std::to_string(shade);
        scene.edit(command.other, allFields);
    }
    int answer = command.other;
    if (answer != 0) {
        const auto known = std::find_if(knownImages.begin(), knownImages.end(), [&](int image) {
            return scene.lives(image) && scene.field(image, imageName) == scene.field(answer, imageName);
        });
        if (known == knownImages.end())
            knownImages.push_back(answer);
        else
            answer = *known;
    }
    const int present = command.target == 0 ? 0 : scene.entry(command.target, componentImage);
    scene.take(present);
    if (answer != command.other)
        scene.release(command.other);
    scene.take(answer);
    command.old = List{present};
    command.value = List{answer};
}

void Workshop::captureMove(Command &command)
{
    const int count = scene.variantCount(command.target);
    const int first = command.index;
    if (count <= first || static_cast<int>(command.ids.size()) + first > count)
        return;
    int place = first;
    for (const int index : command.ids)
        if (const int variant = scene.variantAt(command.target, index)) {
            command.moves[index] = place;
            command.from[index] = variant;
            command.to[place] = variant;
            ++place;
        }
}

void Workshop::captureLinks(Command &command)
{
    if (command.target != 0)
        for (int node : command.given) {
            if (node == Scene::root)
                events.push_back("error Cannot add Root to Light Link Set.");
            if (node == 0 || node == Scene::root)
                continue;
            if (command.field == lights && unsignedOf(scene.field(node, flags)) & unsigned(instanceFlag)) {
                List substitutes;
                for (int id = 1; id < static_cast<int>(scene.containers.size()); ++id)
                    if (scene.lives(id, Kind::node) && scene.coreOf(id) == scene.coreOf(node) &&
                        !(unsignedOf(scene.field(id, flags)) & unsigned(instanceFlag)) &&
                        scene.entry(id, parent) == Scene::root)
                        substitutes.push_back(id);
                if (substitutes.size() != 1)
                    continue;
                node = substitutes.front();
            }
            const List &present = scene.list(command.target, command.field);
            const auto found = std::find(present.begin(), present.end(), node);
            if (command.isOn)
                command.positions.push_back(
                    found == present.end() ? -1 : static_cast<int>(found - present.begin()));
            else if (found != present.end())
                continue;
            command.ids.push_back(node);
        }
}

void Workshop::captureReferences(Command &command)
{
    const int node = command.given.front();
    command.ids = {0};
    if (command.target == 0 || node == 0)
        return;
    const auto objectFor = [&](int field) {
        for (const int object : scene.list(command.target, field))
            if (scene.entry(object, objectNode) == node)
                return object;
        return 0;
    };
    command.other = objectFor(sources);
    if (scene.entry(command.target, constraintTarget) == node)
        command.ids = {node};
    if (scene.kindOf(command.target) == Kind::aim)
        command.third = objectFor(upVectors);
    for (const int held : {command.other, command.third, command.ids.front()})
        scene.take(held);
}

void Workshop::destroy(const Command &command)
{
    switch (command.type->mechanics) {
    case Mechanics::image:
        scene.release(std::get<List>(command.value).front());
        scene.release(std::get<List>(command.old).front());
        break;
    case Mechanics::addVariant:
    case Mechanics::removeVariant:
        scene.release(command.other);
        scene.release(command.third);
        break;
    case Mechanics::tag:
        scene.release(command.target);
        break;
    case Mechanics::constraint:
        for (const int held : {command.other, command.third, command.ids.front()})
            scene.release(held);
        break;
    default:
        break;
    }
    for (const auto &part : command.parts)
        destroy(*part);
}

void Workshop::retell(Command &command, int number)
{
    setMerging(command, number);
    command.notified = number % 3;
    const Mechanics mechanics = command.type->mechanics;
    if (mechanics == Mechanics::composite || mechanics == Mechanics::plain)
        for (const auto &part : command.parts)
            retell(*part, number);
}

bool Workshop::canMerge(const Command &older, const Command &newer)
{
    const bool isInTime = older.gesture != 0 || newer.window < 0 || older.time > newer.time - newer.window;
    if (older.type != newer.type || !newer.merges || older.gesture != newer.gesture || !isInTime)
        return false;
    switch (older.type->mechanics) {
    case Mechanics::number:
        return older.target == newer.target && (older.target == 0 || older.field == newer.field);
    case Mechanics::content:
        return newer.old == older.value;
    case Mechanics::transformValue:
    case Mechanics::quaternion:
    case Mechanics::lightValue:
        return older.target == newer.target && older.mode == newer.mode && older.index == newer.index;
    case Mechanics::wrapper:
        return older.other == newer.other && older.third == newer.third &&
               canMerge(*older.parts.front(), *newer.parts.front());
    default:
        return false;
    }
}

bool Workshop::merge(Command &older, const Command &newer)
{
    if (older.type->mechanics == Mechanics::composite) {
        if (older.type != newer.type || older.parts.size() != newer.parts.size() ||
            older.other != newer.other || older.third != newer.third)
            return false;
        for (std::size_t i = 0; i < older.parts.size(); ++i)
            if (!canMerge(*older.parts[i], *newer.parts[i]))
                return false;
        for (std::size_t i = 0; i < older.parts.size(); ++i)
            merge(*older.parts[i], *newer.parts[i]);
        return true;
    }
    if (!canMerge(older, newer))
        return false;
    older.time = newer.time;
    if (older.type->mechanics == Mechanics::content)
        older.value = newer.value;
    if (older.type->mechanics == Mechanics::wrapper)
        merge(*older.parts.front(), *newer.parts.front());
    return true;
}

std::map<std::string, std::string> Workshop::keysOf(const Command &command)
{
    std::map<std::string, std::string> keys;
    const auto tell = [&keys](const char *key, int id, bool always) {
        if (always || id != 0)
            keys[key] = "container:" + std::to_string(id);
    };
    const Class &type = *command.type;
    if (type.mechanics == Mechanics::plain)
        return keys;
    if (type.mechanics != Mechanics::composite)
        keys["id"] = type.name;
    switch (type.mechanics) {
    case Mechanics::composite:
        if (!command.parts.empty())
            keys = keysOf(*command.parts.front());
        tell("material", command.other, false);
        tell("componentSettings", command.third, false);
        break;
    case Mechanics::number:
    case Mechanics::flag:
    case Mechanics::content:
    case Mechanics::image:
        tell("container", command.target, true);
        keys["fieldId"] = "field:" + std::to_string(command.target == 0 ? -1 : command.field);
        break;
    case Mechanics::transformValue:
        tell("node", command.target, true);
        keys["transformCommand"] = "bool:1";
        break;
    case Mechanics::quaternion:
        keys["transformCommand"] = "bool:1";
        break;
    case Mechanics::lightValue:
        keys["lightCommand"] = "bool:1";
        break;
    case Mechanics::visibility:
        tell("lightCommand", command.target, true);
        break;
    case Mechanics::linkSet:
        tell("lightlinkset", command.target, true);
        break;
    case Mechanics::wrapper: {
        const bool isMaterial = type.is("ksMaterialUndoCommand");
        tell("container", command.parts.front()->target, true);
        tell(isMaterial ? "material" : "component", command.other, false);
        tell(isMaterial ? "componentSettings" : "parent", command.third, false);
        break;
    }
    case Mechanics::environment:
        tell("material", command.target, false);
        break;
    default:
        break;
    }
    return keys;
}

void Workshop::step(Command &command, bool undoing)
{
    const Class &type = *command.type;
    switch (type.mechanics) {
    case Mechanics::plain:
    case Mechanics::composite:
        return runParts(command, undoing);
    case Mechanics::number:
        return stepNumber(command);
    case Mechanics::flag: {
        if (!type.is("ksInvokeBoolFieldUndoCommand"))
            return stepFlag(command);
        if (undoing)
            return;
        const std::string written = textOf(command.value);
        stepFlag(command);
        if (command.calls)
            events.push_back("switched " + written);
        return;
    }
    case Mechanics::content:
        if (scene.lives(command.target)) {
            scene.field(command.target, command.field) = undoing ? command.old : command.value;
            scene.edit(command.target, bit(command.field));
        }
        return;
    case Mechanics::image:
        if (scene.lives(command.target)) {
            stepImage(command.target, command.field,
                      std::get<List>(undoing ? command.old : command.value).front());
            if (command.notified != 0)
                events.push_back("notified " + std::to_string(command.notified));
        }
        return;
    case Mechanics::transformValue:
        return stepTransformValue(command);
    case Mechanics::quaternion:
        return stepQuaternion(command);
    case Mechanics::transformation:
        return stepTransformation(command, undoing ? command.olds : command.values);
    case Mechanics::addVariant:
        return undoing ? stepRemove(command) : stepAdd(command);
    case Mechanics::removeVariant:
        return undoing ? putBack(command) : stepRemove(command);
    case Mechanics::moveVariant:
        return stepMove(command, undoing);
    case Mechanics::variantName:
        if (scene.lives(command.target)) {
            const Value &to = undoing ? command.old : command.value;
            scene.field(command.target, variantName) = to;
            scene.edit(command.target, bit(variantName));
            events.push_back("named " + textOf(undoing ? command.value : command.old) + ' ' + textOf(to));
        }
        return;
    case Mechanics::variantOptions:
        if (scene.lives(command.target)) {
            scene.field(command.target, applyFlags) = undoing ? command.old : command.value;
            scene.edit(command.target, bit(applyFlags));
            events.push_back("options");
        }
        return;
    case Mechanics::lightValue:
        return stepLight(command);
    case Mechanics::linkSet:
        return stepLinks(command, command.isOn != undoing);
    case Mechanics::visibility:
        return stepVisibility(command, command.isOn != undoing);
    case Mechanics::wrapper:
        step(*command.parts.front(), undoing);
        if (type.is("ksMaterialUndoCommand"))
            touchMaterial(command);
        return;
    case Mechanics::environment:
        return stepEnvironment(command, undoing ? command.third : command.other);
    case Mechanics::tag:
        if (command.field != -1)
            stepTags(command, undoing ? command.olds[0] : command.values[0],
                     undoing ? command.olds[1] : command.values[1]);
        return;
    case Mechanics::emptyTag:
        return;
    case Mechanics::constraint:
        return stepReferences(command, !undoing);
    }
}

void Workshop::runParts(Command &command, bool undoing)
{
    if (undoing)
        std::for_each(command.parts.rbegin(), command.parts.rend(), [this](auto &part) { undo(*part); });
    else
        std::for_each(command.parts.begin(), command.parts.end(), [this](auto &part) { redo(*part); });
    if (command.type->is("ksMultiCommand") && command.calls)
        events.push_back("action");
    if (command.type->is("ksInvokeMultiCommand") && command.calls)
        events.push_back("finished");
    if (command.type->is("ksMaterialMultiUndoCommand"))
        touchMaterial(command);
}

void Workshop::touchMaterial(const Command &command)
{
    if (scene.lives(command.third))
        scene.edit(command.third, bit(planarProjection));
    if (scene.lives(command.other))
        scene.edit(command.other, bit(colorComponents));
}

void Workshop::stepNumber(Command &command)
{
    if (!scene.lives(command.target))
        return;
    std::swap(scene.field(command.target, command.field), command.value);
    scene.edit(command.target, bit(command.field));
}

/// An integer field takes 0 or 1 and gives whether it was another value than 0; any other field is left
/// alone.
void Workshop::stepFlag(Command &command)
{
    if (!scene.lives(command.target) || command.field == real32)
        return;
    Value &field = scene.field(command.target, command.field);
    const double was = std::get<double>(field) != 0 ? 1 : 0;
    field = std::exchange(command.value, was);
    scene.edit(command.target, bit(command.field));
}

void Workshop::stepImage(int target, int field, int image)
{
    const int previous = scene.entry(target, field);
    scene.field(target, field) = image == 0 ? List() : List{image};
    scene.edit(target, bit(field));
    scene.take(image);
    scene.release(previous);
}

void Workshop::syncClass(const Class &type, const std::string &what)
{
    if (const int function = syncs[type.name])
        events.push_back("sync " + std::to_string(function) + ' ' + type.name + ' ' + what);
}

void Workshop::stepTransformValue(Command &command)
{
    if (!scene.lives(command.target, Kind::node))
        return;
    const Class &type = *command.type;
    const int transform = scene.transformOf(command.target, command.index);
    const bool isWorld = command.mode && scene.entry(command.target, parent) == Scene::root;
    const Value written = command.value;
    if (transform == 0) {
        if (type.field == eulerOrder)
            command.value = std::string();
        else
            command.value = zero;
    } else {
        unsigned edited = bit(type.field);
        command.value = scene.field(transform, type.field);
        scene.field(transform, type.field) = written;
        if (isWorld)
            for (std::size_t i = 0; i < 3; ++i) {
                std::get<Vec>(command.value)[i] += Scene::rootTranslation[i];
                std::get<Vec>(scene.field(transform, type.field))[i] -= Scene::rootTranslation[i];
            }
        if (type.field == eulerRotation) {
            scene.setEulerRotation(transform, std::get<Vec>(written));
            edited |= bit(rotation);
        } else if (type.field == eulerOrder) {
            scene.setEulerRotation(transform, std::get<Vec>(scene.field(transform, eulerRotation)));
            edited |= bit(rotation);
        } else if (type.field == direction) {
            scene.field(transform, directionMode) = command.positions.front() * 1.0;
            scene.field(transform, directionOn) = command.isOn ? 1.0 : 0.0;
            edited = directionBits;
        }
        scene.edit(transform, edited);
    }
    // Angles that went through a quaternion are not exact.
    const std::string value = type.field == eulerRotation ? std::string() : textOf(written);
    const std::string node = std::to_string(command.target) + ' ' + value;
    if (command.calls)
        events.push_back("changed " + node + ' ' + std::to_string(command.index));
    if (type.syncsAlways || command.index == -1)
        syncClass(type, node + (type.hasMode ? command.mode ? " 1" : " 0" : ""));
}

void Workshop::stepQuaternion(Command &command)
{
    if (!scene.lives(command.target, Kind::node))
        return;
    const int transform = scene.transformOf(command.target, -1);
    if (transform == 0) {
        command.value = identity;
        return;
    }
    std::swap(scene.field(transform, rotation), command.value);
    scene.field(transform, eulerRotation) = Scene::anglesOf(std::get<Vec>(scene.field(transform, rotation)));
    scene.edit(transform, bit(rotation) | bit(eulerRotation));
}

void Workshop::stepTransformation(Command &command, const std::vector<Value> &values)
{
    if (!scene.lives(command.target, Kind::node))
        return;
    if (const int transform = scene.transformOf(command.target, command.index)) {
        std::size_t i = 0;
        for (const int field : transformationFields)
            scene.field(transform, field) = values[i++];
        scene.setEulerRotation(transform, std::get<Vec>(scene.field(transform, eulerRotation)));
        scene.edit(transform, allFields & ~bit(orientation));
    }
    if (command.calls)
        events.push_back("changed " + std::to_string(command.index));
    if (command.isOn && command.index == -1)
        syncClass(*command.type, std::to_string(command.target));
}

void Workshop::stepAdd(Command &command)
{
    if (!scene.lives(command.target, Kind::node) || !scene.lives(command.other))
        return;
    if (scene.attachmentOf(command.target, Kind::variants) == 0) {
        if (!scene.lives(command.third)) {
            command.third = scene.create(Kind::variants);
            scene.addAttachment(command.target, command.third);
            scene.take(command.third);
        } else {
            scene.addAttachment(command.target, command.third);
        }
    }
    scene.insertVariant(command.target, command.index, command.other);
    events.push_back("variant " + std::to_string(command.target) + ' ' + std::to_string(command.index));
}

/// The undo of an insertion takes only the command's own attachment away.
void Workshop::stepRemove(Command &command)
{
    if (!scene.lives(command.target, Kind::node))
        return;
    scene.removeVariant(command.target, command.index);
    const int attachment = scene.attachmentOf(command.target, Kind::variants);
    const bool removes = command.type->mechanics == Mechanics::removeVariant || scene.lives(command.third);
    if (attachment != 0 && scene.variantCount(command.target) == 0 && removes)
        scene.removeAttachment(command.target, attachment);
    events.push_back("variant " + std::to_string(command.target) + ' ' + std::to_string(command.index));
}

void Workshop::putBack(Command &command)
{
    if (!scene.lives(command.target, Kind::node) || !scene.lives(command.other) ||
        !scene.lives(command.third))
        return;
    if (scene.attachmentOf(command.target, Kind::variants) == 0)
        scene.addAttachment(command.target, command.third);
    scene.insertVariant(command.target, command.index, command.other);
    events.push_back("variant " + std::to_string(command.target) + ' ' + std::to_string(command.index));
}

void Workshop::stepMove(Command &command, bool undoing)
{
    if (!scene.lives(command.target, Kind::node))
        return;
    const std::map<int, int> &from = undoing ? command.to : command.from;
    const std::map<int, int> &to = undoing ? command.from : command.to;
    std::for_each(from.rbegin(), from.rend(), [this, &command](const auto &entry) {
        if (scene.lives(entry.second)) {
            scene.take(entry.second);
            scene.removeVariant(command.target, entry.first);
        }
    });
    for (const auto &[place, variant] : to)
        if (scene.lives(variant)) {
            scene.insertVariant(command.target, place, variant);
            scene.release(variant);
        }
    List before;
    List after;
    for (const auto &[key, place] : command.moves) {
        before.push_back(undoing ? place : key);
        after.push_back(undoing ? key : place);
    }
    events.push_back("moved " + std::to_string(command.target) + ' ' + textOf(before) + ' ' + textOf(after));
}

void Workshop::stepLight(Command &command)
{
    if (!scene.lives(command.target, Kind::node))
        return;
    const int light = scene.coreOf(command.target);
    const int field = command.type->field;
    if (!scene.lives(light, Kind::light)) {
        if (field == diffuse || field == glossy)
            command.value = zero;
        else
            command.value = 0.0;
        return;
    }
    std::swap(scene.field(light, field), command.value);
    if (field != attenuation)
        return scene.edit(light, bit(field));
    scene.edit(light, bit(attenuation) | bit(intensity));
    scene.edit(light, bit(intensity));
}

void Workshop::stepLinks(Command &command, bool removing)
{
    if (!scene.lives(command.target))
        return;
    for (std::size_t i = 0; i < command.ids.size(); ++i) {
        const int node = command.ids[i];
        if (!scene.lives(node))
            continue;
        List &list = scene.list(command.target, command.field);
        const bool hasPlace = i < command.positions.size() && command.positions[i] >= 0;
        const auto count = static_cast<std::ptrdiff_t>(list.size());
        if (removing) {
            if (!scene.unlink(command.target, command.field, node))
                continue;
        } else {
            list.insert(list.begin() +
                            (hasPlace ? std::min<std::ptrdiff_t>(command.positions[i], count) : count),
                        node);
            scene.take(node);
        }
        scene.edit(command.target, bit(command.field));
    }
}

void Workshop::stepVisibility(Command &command, bool removing)
{
    constexpr unsigned marks = 0x10;
    if (!scene.lives(command.target) || !scene.lives(command.other))
        return;
    scene.refer(command.target, visibilityReference, removing ? 0 : command.other);
    Value &nodeFlags = scene.field(command.other, flags);
    const unsigned others = unsignedOf(nodeFlags) & ~marks;
    nodeFlags = static_cast<double>(removing ? others : others | marks);
    if (!removing)
        scene.edit(command.other, bit(flags));
    scene.edit(command.target, bit(visibilityReference));
    scene.edit(command.other, bit(flags));
}

void Workshop::stepEnvironment(Command &command, int environment)
{
    if (!scene.lives(command.target))
        return;
    scene.refer(command.target, brdfEnvironment, scene.lives(environment) ? environment : 0);
    scene.edit(command.target, bit(brdfEnvironment));
}

/// Both edits announce what the command was told, though they are of different fields.
void Workshop::stepTags(Command &command, const Value &strings, const Value &numbers)
{
    const int tags = scene.attachmentOf(command.target, Kind::tags);
    const unsigned announced = bit(command.field) | (command.isOn ? bit(tagValues) : 0);
    scene.field(tags, command.field) = strings;
    scene.edit(tags, announced);
    scene.field(tags, tagValues) = numbers;
    scene.edit(tags, announced);
}

void Workshop::stepReferences(Command &command, bool removing)
{
    if (!scene.lives(command.target))
        return;
    const auto apply = [&](int field, int object) {
        if (object == 0)
            return;
        const List &list = scene.list(command.target, field);
        if (removing)
            scene.unlink(command.target, field, object);
        else if (std::find(list.begin(), list.end(), object) == list.end())
            scene.link(command.target, field, object);
        scene.edit(command.target, bit(field));
    };
    apply(sources, command.other);
    apply(upVectors, command.third);
    if (const int target = command.ids.front()) {
        scene.refer(command.target, constraintTarget, removing ? 0 : target);
        scene.edit(command.target, bit(constraintTarget));
    }
}

} // namespace ksPlain
