// SPDX-License-Identifier: MIT
#pragma once

#include "ksPlainScene.h"

#include <OSGTransformVariant.h>
#include <OpenSG/OSGFieldContainerFactory.h>
#include <OpenSG/OSGImage.h>
#include <OpenSG/OSGNode.h>
#include <OpenSG/OSGRefPtr.h>

#include <QtGlobal>

#include <map>
#include <string>
#include <support/ksWatched.h>
#include <utility>
#include <vector>

/// The scene graph's own scene of a session. Its containers have the numbers that the plain scene gives them,
/// which are those of the order in which they are made.
class ksLiveScene
{
public:
    /// Keeps \a plain in view: the places of what is made next are those that it has then.
    explicit ksLiveScene(const ksPlain::Scene &plain);
    ~ksLiveScene();
    Q_DISABLE_COPY(ksLiveScene)

    void make(std::size_t place);
    void drop(std::size_t place);
    void attach(std::size_t place);
    void detach(std::size_t place);

    int numberOf(osg::UInt32 id) const { return id == 0 ? 0 : static_cast<int>(id - before); }
    int numberOf(const osg::FieldContainerPtrBase &container) const
    {
        return numberOf(container.getFieldContainerId());
    }

    /// The container with the number, null for 0 and one that has gone or is of another type.
    template <class PtrT = osg::FieldContainerPtr>
    PtrT at(int number) const
    {
        return number == 0 ? PtrT() : PtrT::dcast(find(number));
    }

    /// The place of the field with an id in the list of fields of a kind.
    static int placeOf(ksPlain::Kind kind, osg::UInt32 fieldId);

    using Edits = std::vector<std::pair<int, unsigned>>;

    /// The edits that the thread has recorded, in terms of the plain scene.
    Edits recordedEdits() const;

    /// Those that change handlers have heard of since the last time.
    Edits takeHandledEdits();

    /// Carries over to aspect 1 what the thread has recorded.
    void sync();

    /// What differs from the plain scene, empty for nothing.
    std::string difference() const;

private:
    osg::FieldContainerPtr find(int number) const;

    /// Adds the edit of a container that lives, of fields that the plain scene knows.
    void addEdit(Edits &edits, osg::UInt32 id, osg::BitVector mask) const;
    osg::NodePtr addNode(const std::string &name, const osg::NodeCorePtr &core) const;
    std::string differenceOf(int number) const;

    const ksPlain::Scene &plain;
    const bool isWatched;
    const osg::UInt32 before;
    ksHandlerCalls handlerCalls{[] { return std::string(); }};
    std::map<std::size_t, osg::RefPtr<osg::FieldContainerPtr>> kept;
    osg::NodeRefPtr root;
};

/// A new variant, and a new image, which nobody holds.
osg::TransformVariantPtr ksMakeVariant(const std::string &name);
osg::ImagePtr ksMakeImage(const std::string &name);
