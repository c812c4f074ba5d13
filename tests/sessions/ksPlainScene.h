// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <utility>
#include <variant>
#include <vector>

/// What a scene is required to be: containers as numbers with fields as plain values.
namespace ksPlain {

using Vec = std::array<double, 4>;
/// Containers, or numbers.
using List = std::vector<int>;
using Texts = std::vector<std::string>;
using Value = std::variant<double, Vec, std::string, Texts, List>;

std::string textOf(const Value &value);

// clang-format off
enum class Kind {
    null, transform, group, node, name, transform3D, variants, variant, light, linkSet, aim, point,
    constraintObject, tags, probe, material, component, settings, image, brdf, environment
};
// clang-format on

/// A field of a kind of containers.
struct Field
{
    const char *name;
    Value first{0.0};

    /// Each entry holds a reference.
    bool counts = false;

    /// Follows from other fields by sines and cosines.
    bool isApproximate = false;
};

const std::vector<Field> &fieldsOf(Kind kind);

/// Places in the lists of fields.
// clang-format off
enum NodeField { attachments, parent, children, core, flags };
enum NameField { nameText };
enum TransformField {
    translation, eulerRotation, scale, shear, scalePivot, rotatePivot, scalePivotTranslation,
    rotatePivotTranslation, inheritType, eulerOrder, directionOn, direction, directionMode, orientation,
    rotation
};
enum VariantsField { variantList };
enum VariantField { variantName, applyFlags, variantTransform };
enum LightField { diffuse, glossy, intensity, penumbraAngle, coneAngle, attenuation, visibilityReference };
enum LinkSetField { lights, sceneNodes };
enum ConstraintField { sources, constraintTarget, upVectors };
enum ConstraintObjectField { objectNode };
enum TagsField { userTags, layerTags, tagValues };
enum ProbeField {
    int64, uint64, int32, uint32, int16, uint16, int8, uint8, real32, real64, flag, text, label, words,
    tagWords
};
enum MaterialField { colorComponents, materialSettings };
enum ComponentField { weight, enabled, componentImage };
enum SettingsField { planarProjection };
enum ImageField { imageName };
enum BrdfField { brdfEnvironment };
// clang-format on

inline constexpr unsigned allFields = ~0u;
inline constexpr unsigned bit(int field)
{
    return 1u << field;
}

inline constexpr double instanceFlag = 0x2;

struct Container
{
    Kind kind = Kind::null;
    bool lives = false;

    /// Those of both aspects.
    int references = 0;

    /// References taken and released that aspect 1 has not heard of.
    int taken = 0;
    int released = 0;

    /// In each aspect.
    std::array<std::vector<Value>, 2> fields{};
};

/// A part of the scene that comes and goes as a whole: a node below the root with all that belongs to it, or
/// containers that only the scene's owner holds.
struct Place
{
    enum class Kind
    {
        box,
        lamp,
        twin,
        mark,
        links,
        tagged,
        aim,
        point,
        probe,
        material,
        brdf,
        environment
    };

    Kind kind;
    int container = 0; ///< null while it is gone
    bool isAttached = false;
};

/// The containers of a scene, numbered in the order in which they are made.
class Scene
{
public:
    Scene();

    /// The number of the scene's root.
    static constexpr int root = 2;

    /// What the root's transform adds to the places of its children.
    static constexpr Vec rootTranslation = {8, -4, 2, 0};

    // Places.
    static std::vector<Place> emptyPlaces();
    void make(std::size_t place);
    void drop(std::size_t place);
    void attach(std::size_t place);
    void detach(std::size_t place);

    /// The container at the place \a which of a kind, null for 7.
    int at(Place::Kind kind, int which) const;

    // Containers.
    int create(Kind kind);
    bool lives(int id, Kind kind) const { return lives(id) && containers[index(id)].kind == kind; }
    bool lives(int id) const { return containers[index(id)].lives; }
    Kind kindOf(int id) const { return containers[index(id)].kind; }
    Value &field(int id, int place) { return containers[index(id)].fields[0][index(place)]; }
    const Value &field(int id, int place) const { return containers[index(id)].fields[0][index(place)]; }
    List &list(int id, int place) { return std::get<List>(field(id, place)); }
    const List &list(int id, int place) const { return std::get<List>(field(id, place)); }

    /// The only entry of a field, or null.
    int entry(int id, int place) const
    {
        const List &entries = list(id, place);
        return entries.empty() ? 0 : entries.front();
    }

    void take(int id);
    void release(int id) { release(id, 0); }

    /// Adds an entry, or removes the first one if there is one, and announces nothing.
    void link(int id, int place, int to);
    bool unlink(int id, int place, int to);

    /// Lets a field of one entry refer to \a to, and announces nothing.
    void refer(int id, int place, int to);

    /// The end of an edit.
    void edit(int id, unsigned fields) { records.emplace_back(id, fields); }

    /// Carries over to aspect 1 what has been recorded.
    void sync();

    // Nodes.
    std::string nameOf(int node) const;
    int coreOf(int node) const { return lives(node, Kind::node) ? entry(node, core) : 0; }
    int attachmentOf(int node, Kind kind) const;
    void addAttachment(int node, int attachment);
    void removeAttachment(int node, int attachment);

    // Transforms and their variants.
    /// The transform of \a node that \a place means: its core for -1, or that of a variant.
    int transformOf(int node, int place) const;
    int variantAt(int node, int place) const;
    int variantCount(int node) const;
    void insertVariant(int node, int place, int variant);
    void removeVariant(int node, int place);
    int createVariant(const std::string &name);

    /// The angles are those of a turn about a single axis by less than a quarter: the order does not matter.
    void setEulerRotation(int transform, const Vec &angles);
    static Vec quaternionOf(const Vec &angles);
    static Vec anglesOf(const Vec &quaternion);

    std::vector<Container> containers;
    std::vector<std::pair<int, unsigned>> records;
    std::vector<Place> places = emptyPlaces();

private:
    static std::size_t index(int number) { return static_cast<std::size_t>(number); }

    int addNode(const std::string &name, int core);
    int createObject(int node);
    void release(int id, std::size_t aspect);
    void destroy(int id);

    bool isReplaying = false;
};

} // namespace ksPlain
