// SPDX-License-Identifier: MIT
#include "ksFuzzTarget.h"
#include <editor/scene/ksFieldReferences.h>
#include <editor/scene/ksReferenceCycles.h>

#include <OSGAimConstraint.h>
#include <OSGLightLinkSet.h>
#include <OSGTransform3D.h>
#include <OSGTransformVariant.h>
#include <OSGTransformVariantsAttachment.h>
#include <OSGUBRDFMaterial.h>
#include <OSGUberLight.h>
#include <OSGUberMaterial.h>
#include <OpenSG/OSGChangeList.h>
#include <OpenSG/OSGGroup.h>
#include <OpenSG/OSGRefPtr.h>
#include <OpenSG/OSGSimpleAttachments.h>

#include <algorithm>
#include <array>
#include <support/ksContainersSince.h>
#include <support/ksFieldTexts.h>
#include <vector>

namespace {

/// Some containers, which an input edits step by step. What the thread records goes to aspect 1 at once, or
/// later in one with what comes then.
class Scene
{
public:
    explicit Scene(std::string_view text)
        : input(text)
    {}

    void run()
    {
        for (int steps = 0; !input.isAtEnd() && steps < MostSteps; ++steps)
            step();
        requireAspectsInStep();
        pool.clear();
        counted.clear();
        synchronise();
        ksRequire(ksContainersSince(recorder).empty(), "containers are left");
    }

private:
    static constexpr int MostSteps = 200;
    static constexpr std::size_t MostContainers = 24;

    static osg::ChangeList &recorded() { return *osg::Thread::getCurrentChangeList(); }

    void step()
    {
        using Step = void (Scene::*)();
        static constexpr std::array<Step, 16> Steps = {
            &Scene::create,     &Scene::create,      &Scene::copy,      &Scene::drop,
            &Scene::addChild,   &Scene::subChild,    &Scene::setCore,   &Scene::attach,
            &Scene::detach,     &Scene::refer,       &Scene::writeText, &Scene::holdOrLetGo,
            &Scene::recordMore, &Scene::synchronise, &Scene::setAside,  &Scene::requireAspectsInStep};
        (this->*Steps[input.below(Steps.size())])();
    }

    void add(const osg::FieldContainerPtr &container)
    {
        const osg::RefPtr<osg::FieldContainerPtr> held(container);
        if (pool.size() < MostContainers && container != osg::NullFC)
            pool.push_back(held);
    }

    /// One of the containers of the class; null when the input means another one.
    template <class PtrT>
    PtrT one()
    {
        return pool.empty() ? PtrT() : PtrT::dcast(pool[input.below(pool.size())].get());
    }

    void create()
    {
        static constexpr std::array<const char *, 16> Types = {"Node",
                                                               "Group",
                                                               "Transform3D",
                                                               "UberLight",
                                                               "LightLinkSet",
                                                               "AimConstraint",
                                                               "Name",
                                                               "TransformVariant",
                                                               "UberMaterial",
                                                               "TransformVariantsAttachment",
                                                               "UBRDFMaterial",
                                                               "ColorComponent",
                                                               "ConstraintObject",
                                                               "TagAttachment",
                                                               "Image",
                                                               "Switch"};
        add(osg::FieldContainerFactory::the()->createFieldContainer(Types[input.below(Types.size())]));
    }

    void copy()
    {
        if (const auto container = one<osg::FieldContainerPtr>(); container != osg::NullFC)
            add(container->shallowCopy());
    }

    void drop()
    {
        if (!pool.empty())
            pool.erase(pool.begin() + static_cast<std::ptrdiff_t>(input.below(pool.size())));
    }

    /// Has \a edit change the fields \a mask of \a holder, so that it holds \a held, unless that would close
    /// a circle.
    template <class HolderPtr, class HeldPtr, class Edit>
    static void hold(const HolderPtr &holder, const HeldPtr &held, osg::BitVector mask, const Edit &edit)
    {
        if (holder == osg::NullFC || held == osg::NullFC || ksReferenceCycles::wouldClose(holder, held))
            return;
        const osg::CPEditor scope(holder, mask);
        edit();
    }

    void addChild()
    {
        const auto parent = one<osg::NodePtr>();
        const auto child = one<osg::NodePtr>();
        const std::size_t place = input.byte();
        hold(parent, child, osg::Node::ChildrenFieldMask, [&] {
            parent->insertChild(static_cast<osg::UInt32>(place % (parent->getNChildren() + 1)), child);
        });
    }

    void subChild()
    {
        const auto parent = one<osg::NodePtr>();
        if (parent == osg::NullFC || parent->getNChildren() == 0)
            return;
        const osg::CPEditor edit(parent, osg::Node::ChildrenFieldMask);
        parent->subChild(static_cast<osg::UInt32>(input.below(parent->getNChildren())));
    }

    void setCore()
    {
        const auto node = one<osg::NodePtr>();
        const auto core = one<osg::NodeCorePtr>();
        hold(node, core, osg::Node::CoreFieldMask, [&] { node->setCore(core); });
    }

    void attach()
    {
        const auto holder = one<osg::AttachmentContainerPtr>();
        const auto attachment = one<osg::AttachmentPtr>();
        hold(holder, attachment, osg::AttachmentContainer::AttachmentsFieldMask,
             [&] { holder->addAttachment(attachment); });
    }

    void detach()
    {
        const auto holder = one<osg::AttachmentContainerPtr>();
        const auto attachment = one<osg::AttachmentPtr>();
        if (holder == osg::NullFC || attachment == osg::NullFC)
            return;
        const osg::CPEditor edit(holder, osg::AttachmentContainer::AttachmentsFieldMask);
        holder->subAttachment(attachment);
    }

    /// The references of the application's own classes.
    void refer()
    {
        const auto holder = one<osg::FieldContainerPtr>();
        const auto held = one<osg::FieldContainerPtr>();
        if (holder == osg::NullFC || held == osg::NullFC || ksReferenceCycles::wouldClose(holder, held))
            return;
        const osg::CPEditor edit(holder);
        const auto node = osg::NodePtr::dcast(held);
        if (const auto links = osg::LightLinkSetPtr::dcast(holder);
            links != osg::NullFC && node != osg::NullFC)
            input.below(2) == 0 ? links->addLight(node) : links->addSceneNode(node);
        if (const auto light = osg::UberLightPtr::dcast(holder); light != osg::NullFC)
            light->setVisibilityReference(node);
        if (const auto material = osg::UBRDFMaterialPtr::dcast(holder); material != osg::NullFC)
            material->setEnvironment(osg::MaterialPtr::dcast(held));
        if (const auto variant = osg::TransformVariantPtr::dcast(holder); variant != osg::NullFC)
            variant->setTransform(osg::Transform3DPtr::dcast(held));
        if (const auto component = osg::ColorComponentPtr::dcast(holder); component != osg::NullFC)
            component->setImage(osg::ImagePtr::dcast(held));
        const auto material = osg::UberMaterialPtr::dcast(holder);
        if (const auto component = osg::ColorComponentPtr::dcast(held);
            material != osg::NullFC && component != osg::NullFC)
            material->addColorComponent(component);
        const auto variants = osg::TransformVariantsAttachmentPtr::dcast(holder);
        if (const auto variant = osg::TransformVariantPtr::dcast(held);
            variants != osg::NullFC && variant != osg::NullFC)
            variants->insertVariant(0, variant);
        const auto constraint = osg::AimConstraintPtr::dcast(holder);
        if (const auto object = osg::ConstraintObjectPtr::dcast(held);
            constraint != osg::NullFC && object != osg::NullFC)
            input.below(2) == 0 ? constraint->addSourceObject(object) : constraint->addUpVectorObject(object);
    }

    /// Any text as the value of any field that is not one of handles.
    void writeText()
    {
        const auto container = one<osg::FieldContainerPtr>();
        if (container == osg::NullFC || container->getType().getNumFieldDescs() == 0)
            return;
        const auto id = static_cast<osg::UInt32>(1 + input.below(container->getType().getNumFieldDescs()));
        osg::Field &field = *container->getField(id);
        const std::string text = input.line();
        if (ksFieldReferences::arePossibleIn(field))
            return;
        const osg::CPEditor edit(container, container->getType().getFieldDescription(id)->getFieldMask());
        field.pushValueByStr(text.c_str());
    }

    void holdOrLetGo()
    {
        const auto container = one<osg::FieldContainerPtr>();
        if (container != osg::NullFC && counted.size() < MostContainers)
            counted.emplace_back(container);
        else if (!counted.empty())
            counted.erase(counted.begin());
    }

    /// Changes that are none, also of fields that do not exist.
    void recordMore()
    {
        if (const auto container = one<osg::FieldContainerPtr>(); container != osg::NullFC)
            recorded().addChanged(container, static_cast<osg::BitVector>(input.byte()) << input.below(32));
    }

    void setAside()
    {
        aside.merge(recorded());
        recorded().clearAll();
    }

    void synchronise()
    {
        setAside();
        aside.applyTo(1);
    }

    void requireAspectsInStep()
    {
        synchronise();
        for (const osg::FieldContainerPtr &container : ksContainersSince(recorder)) {
            const ksFieldTexts expected = ksFieldTextsOf(container);
            for (const auto &[field, text] : ksFieldTextsOf(container, 1))
                ksRequireEqual(text, expected.at(field),
                               std::string(container->getTypeName()) + '.' + field + " of aspect 1");
        }
    }

    ksFuzzInput input;
    const ksRecorder recorder;
    osg::ChangeList aside;
    std::vector<osg::RefPtr<osg::FieldContainerPtr>> pool;
    std::vector<osg::RefPtr<osg::FieldContainerPtr>> counted;
};

void applyChanges(std::string_view input)
{
    Scene(input).run();
}

const ksFuzzTarget changeLists("change-lists", &applyChanges);

} // namespace
