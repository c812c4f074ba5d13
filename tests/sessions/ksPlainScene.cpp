// SPDX-License-Identifier: MIT
#include "ksPlainScene.h"

#include <algorithm>
#include <cmath>
#include <cstdio>

namespace ksPlain {

namespace {

constexpr double degreesOfRadian = 57.29577951308232;

Value vec(double all)
{
    return Vec{all, all, all, 0};
}

} // namespace

std::string textOf(const Value &value)
{
    char text[64];
    if (const auto *number = std::get_if<double>(&value)) {
        std::snprintf(text, sizeof text, "%g", *number);
        return text;
    }
    if (const auto *vec = std::get_if<Vec>(&value)) {
        // The sum makes 0 of -0.
        std::snprintf(text, sizeof text, "(%g %g %g)", (*vec)[0] + 0, (*vec)[1] + 0, (*vec)[2] + 0);
        return text;
    }
    if (const auto *string = std::get_if<std::string>(&value))
        return *string;
    std::string line = "[";
    if (const auto *strings = std::get_if<Texts>(&value))
        for (const std::string &string : *strings)
            line += string + ' ';
    else
        for (const int entry : std::get<List>(value))
            line += std::to_string(entry) + ' ';
    return line + ']';
}

const std::vector<Field> &fieldsOf(Kind kind)
{
    // clang-format off
    static const std::vector<std::vector<Field>> fields = {
        {},
        {},
        {},
        {{"attachments", List(), true}, {"parent", List()}, {"children", List(), true},
         {"core", List(), true}, {"externalFlags"}},
        {{"name", ""}},
        {{"translation", vec(0)}, {"eulerRotation", vec(0), false, true}, {"scale", vec(1)},
         {"shear", vec(0)}, {"scalePivot", vec(0)}, {"rotatePivot", vec(0)},
         {"scalePivotTranslation", vec(0)}, {"rotatePivotTranslation", vec(0)}, {"inheritType"},
         {"eulerRotationOrder", "XYZ"}, {"rotationDirectionOn"}, {"rotationDirection", vec(0)},
         {"rotationDirectionMode"}, {"rotationOrientation", vec(0)},
         {"rotation", Vec{0, 0, 0, 1}, false, true}},
        {{"variants", List(), true}},
        {{"name", ""}, {"applyFlags", 4095.0}, {"transform", List(), true}},
        {{"diffuse", vec(1)}, {"glossy", vec(1)}, {"intensity", 1.0}, {"penumbraAngle"}, {"coneAngle", 180.0},
         {"attenuation"}, {"visibilityReference", List(), true}},
        {{"lights", List(), true}, {"sceneNodes", List(), true}},
        {{"sources", List(), true}, {"target", List(), true}, {"upVectorSources", List(), true}},
        {{"sources", List(), true}, {"target", List(), true}},
        {{"nodeId", List()}},
        {{"userTags", Texts()}, {"layerTags", Texts()}, {"tagValues", List()}},
        {{"int64"}, {"uint64"}, {"int32"}, {"uint32"}, {"int16"}, {"uint16"}, {"int8"}, {"uint8"}, {"real32"},
         {"real64"}, {"flag"}, {"text", ""}, {"label", ""}, {"words", Texts()}, {"tags", Texts()}},
        {{"colorComponentData", List(), true}, {"componentSettings", List(), true}},
        {{"weight", 1.0}, {"enabled", 1.0}, {"image", List(), true}},
        {{"planarProjection"}},
        {{"name", ""}},
        {{"environment", List(), true}},
        {}};
    // clang-format on
    return fields[static_cast<std::size_t>(kind)];
}

Scene::Scene()
    : containers(1)
{
    const int transform = create(Kind::transform);
    link(create(Kind::node), core, transform);
    take(root);
    edit(transform, allFields);
    edit(root, allFields);
    for (std::size_t place = 0; place < places.size(); ++place)
        make(place);
}

std::vector<Place> Scene::emptyPlaces()
{
    using Kind = Place::Kind;
    return {{Kind::mark},        {Kind::mark},       {Kind::box},   {Kind::box},      {Kind::lamp},
            {Kind::lamp},        {Kind::twin},       {Kind::links}, {Kind::tagged},   {Kind::aim},
            {Kind::point},       {Kind::probe},      {Kind::probe}, {Kind::material}, {Kind::brdf},
            {Kind::environment}, {Kind::environment}};
}

void Scene::make(std::size_t place)
{
    if (places[place].container != 0)
        return;
    const int first = static_cast<int>(containers.size());
    const Place::Kind kind = places[place].kind;
    const std::string number = std::to_string(place);
    int made = 0;
    switch (kind) {
    case Place::Kind::box:
        made = addNode("Box" + number, create(Kind::transform3D));
        if (place % 2 == 0) {
            addAttachment(made, create(Kind::variants));
            for (int i = 0; i < 3; ++i)
                insertVariant(made, i, createVariant(std::string(1, static_cast<char>('a' + i))));
        }
        break;
    case Place::Kind::lamp:
        made = addNode("Lamp" + number, create(Kind::light));
        break;
    case Place::Kind::twin: {
        const int lamp = at(Place::Kind::lamp, 0);
        made = addNode("Twin", lamp == 0 ? create(Kind::light) : coreOf(lamp));
        field(made, flags) = instanceFlag;
        break;
    }
    case Place::Kind::mark:
        made = addNode("M\xc3\xa4rk" + number, create(Kind::group));
        break;
    case Place::Kind::links:
        made = addNode("Links", create(Kind::linkSet));
        break;
    case Place::Kind::tagged:
        made = addNode("Tagged", create(Kind::group));
        link(made, attachments, create(Kind::tags));
        break;
    case Place::Kind::aim:
    case Place::Kind::point: {
        const bool aims = kind == Place::Kind::aim;
        const int constraint = create(aims ? Kind::aim : Kind::point);
        made = addNode("Constraint", constraint);
        for (const int which : {0, 1})
            if (const int mark = at(Place::Kind::mark, which)) {
                link(constraint, sources, createObject(mark));
                refer(constraint, constraintTarget, mark);
                if (aims)
                    link(constraint, upVectors, createObject(mark));
            }
        break;
    }
    case Place::Kind::probe:
        made = create(Kind::probe);
        break;
    case Place::Kind::material:
        made = create(Kind::material);
        link(made, colorComponents, create(Kind::component));
        link(made, materialSettings, create(Kind::settings));
        break;
    case Place::Kind::brdf:
        made = create(Kind::brdf);
        break;
    case Place::Kind::environment:
        made = create(Kind::environment);
        break;
    }
    take(made);
    for (int id = first; id < static_cast<int>(containers.size()); ++id)
        edit(id, allFields);
    places[place].container = made;
    attach(place);
}

void Scene::drop(std::size_t place)
{
    detach(place);
    if (const int gone = std::exchange(places[place].container, 0))
        release(gone);
}

void Scene::attach(std::size_t place)
{
    const int id = places[place].container;
    if (!lives(id, Kind::node) || places[place].isAttached)
        return;
    places[place].isAttached = true;
    link(root, children, id);
    field(id, parent) = List{root};
    edit(id, bit(parent));
    edit(root, bit(children));
}

void Scene::detach(std::size_t place)
{
    if (!std::exchange(places[place].isAttached, false))
        return;
    const int id = places[place].container;
    field(id, parent) = List();
    edit(id, bit(parent));
    unlink(root, children, id);
    edit(root, bit(children));
}

int Scene::at(Place::Kind kind, int which) const
{
    if (which % 8 == 7)
        return 0;
    List found;
    for (const Place &place : places)
        if (place.kind == kind)
            found.push_back(place.container);
    return found[index(which) % found.size()];
}

int Scene::create(Kind kind)
{
    Container container;
    container.kind = kind;
    container.lives = true;
    for (const Field &field : fieldsOf(kind))
        container.fields[0].push_back(field.first);
    container.fields[1] = container.fields[0];
    containers.push_back(std::move(container));
    return static_cast<int>(containers.size()) - 1;
}

void Scene::take(int id)
{
    if (id == 0)
        return;
    ++containers[index(id)].references;
    ++containers[index(id)].taken;
}

/// A copy for aspect 1 that goes releases the references of that aspect itself, of which the record of the
/// first copy's must not tell that aspect again.
void Scene::release(int id, std::size_t aspect)
{
    if (id == 0)
        return;
    Container &container = containers[index(id)];
    if (--container.references <= 0)
        destroy(id);
    else if (!isReplaying)
        container.released += aspect == 0 ? 1 : -1;
}

void Scene::destroy(int id)
{
    // References may be released while they are walked through.
    const Container gone = containers[index(id)];
    containers[index(id)].lives = false;
    for (std::size_t aspect = 0; aspect < gone.fields.size(); ++aspect)
        for (std::size_t place = 0; place < gone.fields[aspect].size(); ++place)
            if (fieldsOf(gone.kind)[place].counts)
                for (const int held : std::get<List>(gone.fields[aspect][place]))
                    release(held, aspect);
}

void Scene::refer(int id, int place, int to)
{
    const int from = entry(id, place);
    if (from == to)
        return;
    release(from);
    field(id, place) = to == 0 ? List() : List{to};
    take(to);
}

void Scene::link(int id, int place, int to)
{
    list(id, place).push_back(to);
    take(to);
}

bool Scene::unlink(int id, int place, int to)
{
    List &list = this->list(id, place);
    const auto found = std::find(list.begin(), list.end(), to);
    if (found == list.end())
        return false;
    list.erase(found);
    release(to);
    return true;
}

void Scene::sync()
{
    for (const auto &[id, fields] : records) {
        Container &container = containers[index(id)];
        for (std::size_t place = 0; container.lives && place < container.fields[0].size(); ++place)
            if (fields & bit(static_cast<int>(place)))
                container.fields[1][place] = container.fields[0][place];
    }
    records.clear();
    isReplaying = true;
    for (Container &container : containers)
        container.references += std::exchange(container.taken, 0);
    for (std::size_t id = 1; id < containers.size(); ++id)
        for (int count = std::exchange(containers[id].released, 0); count > 0 && containers[id].lives;
             --count)
            release(static_cast<int>(id));
    isReplaying = false;
}

std::string Scene::nameOf(int node) const
{
    const int attachment = node == 0 ? 0 : attachmentOf(node, Kind::name);
    return attachment == 0 ? std::string() : std::get<std::string>(field(attachment, nameText));
}

int Scene::attachmentOf(int node, Kind kind) const
{
    for (const int attachment : list(node, attachments))
        if (lives(attachment, kind))
            return attachment;
    return 0;
}

void Scene::addAttachment(int node, int attachment)
{
    const int previous = attachmentOf(node, kindOf(attachment));
    if (previous == attachment)
        return;
    link(node, attachments, attachment);
    if (previous != 0)
        unlink(node, attachments, previous);
    std::sort(list(node, attachments).begin(), list(node, attachments).end());
    edit(node, bit(attachments));
}

void Scene::removeAttachment(int node, int attachment)
{
    unlink(node, attachments, attachment);
    edit(node, bit(attachments));
}

int Scene::transformOf(int node, int place) const
{
    if (place == -1)
        return lives(coreOf(node), Kind::transform3D) ? coreOf(node) : 0;
    const int variant = variantAt(node, place);
    return variant == 0 ? 0 : entry(variant, variantTransform);
}

int Scene::variantAt(int node, int place) const
{
    return place < 0 || place >= variantCount(node)
               ? 0
               : list(attachmentOf(node, Kind::variants), variantList)[index(place)];
}

int Scene::variantCount(int node) const
{
    const int attachment = lives(node, Kind::node) ? attachmentOf(node, Kind::variants) : 0;
    return attachment == 0 ? 0 : static_cast<int>(list(attachment, variantList).size());
}

void Scene::insertVariant(int node, int place, int variant)
{
    const int attachment = attachmentOf(node, Kind::variants);
    if (attachment == 0)
        return;
    List &list = this->list(attachment, variantList);
    list.insert(list.begin() + std::min<std::ptrdiff_t>(place, std::ptrdiff_t(list.size())), variant);
    take(variant);
    edit(attachment, bit(variantList));
}

void Scene::removeVariant(int node, int place)
{
    const int variant = variantAt(node, place);
    if (variant == 0)
        return;
    const int attachment = attachmentOf(node, Kind::variants);
    List &list = this->list(attachment, variantList);
    list.erase(list.begin() + place);
    release(variant);
    edit(attachment, bit(variantList));
}

int Scene::createVariant(const std::string &name)
{
    const int variant = create(Kind::variant);
    field(variant, variantName) = name;
    link(variant, variantTransform, create(Kind::transform3D));
    edit(variant, allFields);
    edit(entry(variant, variantTransform), allFields);
    return variant;
}

void Scene::setEulerRotation(int transform, const Vec &angles)
{
    field(transform, eulerRotation) = angles;
    field(transform, rotation) = quaternionOf(angles);
}

Vec Scene::quaternionOf(const Vec &angles)
{
    Vec quaternion = {0, 0, 0, 1};
    for (std::size_t axis = 0; axis < 3; ++axis)
        if (angles[axis] != 0) {
            quaternion[axis] = std::sin(angles[axis] / 2 / degreesOfRadian);
            quaternion[3] = std::cos(angles[axis] / 2 / degreesOfRadian);
        }
    return quaternion;
}

Vec Scene::anglesOf(const Vec &quaternion)
{
    Vec angles = {0, 0, 0, 0};
    for (std::size_t axis = 0; axis < 3; ++axis)
        angles[axis] = 2 * std::atan2(quaternion[axis], quaternion[3]) * degreesOfRadian;
    return angles;
}

int Scene::addNode(const std::string &name, int core)
{
    const int node = create(Kind::node);
    link(node, ksPlain::core, core);
    const int attachment = create(Kind::name);
    field(attachment, nameText) = name;
    link(node, attachments, attachment);
    edit(node, bit(attachments));
    edit(attachment, bit(nameText));
    return node;
}

int Scene::createObject(int node)
{
    const int object = create(Kind::constraintObject);
    field(object, objectNode) = List{node};
    return object;
}

} // namespace ksPlain
