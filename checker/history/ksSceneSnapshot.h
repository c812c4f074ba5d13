// SPDX-License-Identifier: MIT
#pragma once

#include <OpenSG/OSGNode.h>

#include <memory>
#include <string>
#include <vector>

/// One thing in which two snapshots differ.
struct ksDifference
{
    /// The container's id and its type.
    osg::UInt32 container;
    std::string type;

    /// The field's id, or 0 when the container as a whole differs, and its name.
    osg::UInt32 field;
    std::string name;

    /// What it holds in the one snapshot and in the other.
    std::string expected;
    std::string actual;
};

/// What all containers hold at one moment, in the calling thread's aspect.
///
/// Snapshots share what has not changed between them, so that a history may keep one for every step.
class ksSceneSnapshot
{
public:
    /// Which containers a comparison looks at.
    enum class Scope
    {
        /// Those that can be reached from the scene's root. What is out of the scene is the affair of the
        /// commands that keep it.
        Scene,

        /// Those of the scene, and those that are out of it, but exist, in both snapshots: what commands keep
        /// must not change meanwhile.
        Kept,

        /// Those that exist.
        Everything
    };

    /// An empty snapshot.
    ksSceneSnapshot() = default;

    /// Takes a snapshot of the containers that exist, \a root being that of the scene. Shares with \a basis
    /// what is the same there.
    ksSceneSnapshot(const osg::NodePtr &root, const ksSceneSnapshot &basis);

    /// In what \a actual differs from this snapshot, in the order of container and field ids.
    std::vector<ksDifference> differences(const ksSceneSnapshot &actual, Scope scope) const;

    /// The number of containers within \a scope.
    int count(Scope scope) const;

    /// Takes over from \a other what the field \a field of the container \a container holds there. Does
    /// nothing when one of the two snapshots lacks the container.
    void adopt(const ksSceneSnapshot &other, osg::UInt32 container, osg::UInt32 field);

    /// What the field \a field of the container \a container holds, as text; empty when there is none.
    std::string text(osg::UInt32 container, osg::UInt32 field) const;

    /// The same as ksFieldReader::content().
    std::string content(osg::UInt32 container, osg::UInt32 field) const;

private:
    struct Field
    {
        std::string name;
        std::string content;
        std::string text;
    };

    struct Container
    {
        std::string type;
        std::vector<Field> fields;
    };

    struct Entry
    {
        osg::UInt32 id;
        bool inScene;
        std::shared_ptr<const Container> container;
    };

    static std::shared_ptr<const Container> read(const osg::FieldContainerPtr &source, const Entry *known);
    static bool holds(const osg::FieldContainerPtr &source, const Container &known);
    static bool isWithin(Scope scope, const Entry &entry, const Entry *counterpart);
    static void compare(const Entry *expected, const Entry *actual, std::vector<ksDifference> &differences);
    const Entry *find(osg::UInt32 id) const;
    const Field *find(osg::UInt32 container, osg::UInt32 field) const;

    /// By id.
    std::vector<Entry> entries;
};
