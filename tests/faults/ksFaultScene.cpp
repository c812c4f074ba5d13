// SPDX-License-Identifier: MIT
#include "ksFaultScene.h"

#include <OpenSG/OSGGroup.h>
#include <OpenSG/OSGSimpleAttachments.h>
#include <ksLog.h>
#include <ksNodeUtils.h>
#include <ksOpenSGUtils.h>
#include <ksSceneDataManager.h>
#include <ksTextureManager.h>

#include <set>
#include <sstream>
#include <support/ksContainersSince.h>
#include <support/ksFieldTexts.h>
#include <transform/ksFillTransform.h>
#include <transform/ksTransformValueRow.h>

namespace {

osg::ConstraintObjectPtr objectFor(const osg::NodePtr &node)
{
    const osg::ConstraintObjectPtr object = osg::ConstraintObject::create();
    object->setNode(node);
    return object;
}

osg::TransformVariantPtr variantCalled(const char *name)
{
    const osg::TransformVariantPtr variant = osg::TransformVariant::create();
    variant->setName(name);
    variant->setTransform(osg::Transform3D::create());
    return variant;
}

osg::ImagePtr imageOf(osg::UInt8 shade)
{
    const osg::ImagePtr image = osg::Image::create();
    image->set(osg::Image::OSG_L_PF, 1, 1, 1, 1, 1, 0, &shade);
    return image;
}

template <class... Types>
bool watchTypes()
{
    (ksWatched<Types>::watchType(), ...);
    return true;
}

/// Lets all containers of a scene be watched.
bool watchScenes()
{
    using namespace osg;
    static const bool isWatched =
        watchTypes<Node, Name, Group, Transform3D, TransformVariantsAttachment, TransformVariant, UberLight,
                   LightLinkSet, TagAttachment, AimConstraint, PointConstraint, ConstraintObject,
                   ProbeContainer, UberMaterial, ColorComponent, ColorComponentSettings, Image, UBRDFMaterial,
                   SimpleMaterial, Bystander>();
    return isWatched;
}

/// The fields whose handles are counted.
bool isCounted(const std::string &fieldName)
{
    static const std::set<std::string> names = {"attachments",
                                                "children",
                                                "core",
                                                "transform",
                                                "variants",
                                                "lights",
                                                "sceneNodes",
                                                "visibilityReference",
                                                "image",
                                                "environment",
                                                "sources",
                                                "colorComponentData",
                                                "componentSettings",
                                                "target",
                                                "upVectorSources"};
    return names.count(fieldName) > 0;
}

/// The container ids in the text of a field with handles.
std::vector<osg::UInt32> idsIn(const std::string &fieldName, std::string text)
{
    std::replace(text.begin(), text.end(), ',', ' ');
    std::istringstream stream(text);
    std::vector<osg::UInt32> ids;
    for (osg::UInt32 number = 0; stream >> number;) {
        // Each attachment's id comes after its key.
        if (fieldName == "attachments")
            stream >> number;
        ids.push_back(number);
    }
    return ids;
}

} // namespace

ksFaultScene::ksFaultScene()
    : isWatched(watchScenes())
    , listener([this](const std::string &event) { log(event); })
{
    ksLog::setErrorHandler([this](const std::string &line) { log("error: " + line); });

    root = keep(osg::Node::create());
    root->setCore(osg::Group::create());
    ksOpenSGUtils::setRoot(root);
    ksSceneDataManager::setSceneRoot(0, root);

    const osg::Transform3DPtr transform = osg::Transform3D::create();
    // The direction command leaves switch and axis as it sets them.
    transform->setRotationDirectionOn(ksTransformValueRow::directionFlag);
    transform->setRotationDirectionMode(ksTransformValueRow::directionAxis);
    box = addNode("Box", transform);
    ksNodeUtils::createTransformVariantsAttachment(box);
    for (const osg::TransformVariantPtr &variant :
         {variantA = variantCalled("a"), variantB = variantCalled("b"), variantC = variantCalled("c")})
        ksNodeUtils::insertTransformVariant(box, ksNodeUtils::getTransformVariantCount(box), variant);
    looseVariant = keep(variantCalled("x"));
    ksFillTransform(looseVariant->getTransform(), 5);

    lamp = addNode("Lamp", osg::UberLight::create());
    mark = addNode("Mark", osg::Group::create());
    linked = addNode("Linked", osg::LightLinkSet::create());
    listed = addNode("Listed", osg::Group::create());

    tagged = addNode("Tagged", osg::Group::create());
    tagged->addAttachment(osg::TagAttachment::create());
    tags()->getMFUserTags()->push_back("old");
    tags()->getMFTagValues()->push_back(1);

    constrained = addNode("Constrained", osg::AimConstraint::create());
    for (const osg::NodePtr &node : {listed, constrained, mark})
        linkSet()->addSceneNode(node);
    pinned = addNode("Pinned", osg::PointConstraint::create());
    source = addNode("Source", osg::Group::create());
    constraint()->addSourceObject(aimSource = objectFor(source));
    constraint()->addUpVectorObject(aimUpVector = objectFor(source));
    constraint()->setTarget(source);
    pointConstraint()->addSourceObject(pointSource = objectFor(source));
    pointConstraint()->setTarget(source);

    spot = addNode("Spot", osg::UberLight::create());
    shade = addNode("Shade", osg::Group::create());
    spotLight()->setVisibilityReference(shade);
    shade->setExternalFlags(0x10);

    probe = keep(osg::ProbeContainer::create());
    component = osg::ColorComponent::create();
    component->setImage(oldImage = imageOf(1));
    newImage = keep(imageOf(2));
    settings = osg::ColorComponentSettings::create();
    material = keep(osg::UberMaterial::create());
    material->addColorComponent(component);
    material->setComponentSettings(settings);
    brdf = keep(osg::UBRDFMaterial::create());
    environment = keep(osg::MaterialPtr(osg::SimpleMaterial::create()));
    brdf->setEnvironment(environment);
    newEnvironment = keep(osg::MaterialPtr(osg::SimpleMaterial::create()));
    bystander = keep(osg::Bystander::create());

    for (const osg::FieldContainerPtr &container : ksContainersSince(recorder)) {
        osg::endEditCP(container);
        EXPECT_THAT(takeHandlerCalls(), testing::Not(testing::IsEmpty()))
            << container->getType().getCName() << " is not watched";
    }
}

ksFaultScene::~ksFaultScene()
{
    ksLog::setErrorHandler({});
    ksOpenSGUtils::setRoot(osg::NullFC);
    ksSceneDataManager::setSceneRoot(0, osg::NullFC);
    ksTextureManager::the()->clear();
    osg::FieldContainerPtr::_ignore_change = false;
}

void ksFaultScene::drop(const osg::FieldContainerPtr &container)
{
    if (const auto node = osg::NodePtr::dcast(container)) {
        const osg::NodePtr parent = node->getParent();
        const osg::CPEditor edit(parent, osg::Node::ChildrenFieldMask);
        parent->subChild(node);
    } else if (const auto core = osg::NodeCorePtr::dcast(container)) {
        const osg::NodePtr owner = core->getParents()[0];
        const osg::CPEditor edit(owner, osg::Node::CoreFieldMask);
        owner->setCore(osg::NullFC);
    } else if (container == tags()) {
        const osg::CPEditor edit(tagged, osg::Node::AttachmentsFieldMask);
        tagged->subAttachment(tags());
    } else if (container == variantB) {
        ksNodeUtils::removeTransformVariant(box, 1);
    } else if (container == component) {
        const osg::CPEditor edit(material, osg::UberMaterial::ColorComponentDataFieldMask);
        material->subColorComponent(component);
    } else {
        kept.erase(container.getFieldContainerId());
    }
}

ksFaultScene::State ksFaultScene::state(osg::UInt32 aspect) const
{
    State result;
    for (const osg::FieldContainerPtr &container : ksContainersSince(recorder)) {
        const std::string prefix = prefixOf(container);
        for (const auto &[name, text] : ksFieldTextsOf(container, aspect))
            result[prefix + name] = text;
        result[prefix + referenceCount] = std::to_string(container.getRefCount());
    }
    return result;
}

ksFaultScene::State ksFaultScene::fieldState(const osg::FieldContainerPtr &container, const std::string &name,
                                             const std::string &text) const
{
    return {{prefixOf(container) + name, text}};
}

ksFaultScene::State ksFaultScene::fieldState(const osg::FieldContainerPtr &container, const std::string &name,
                                             const std::vector<osg::FieldContainerPtr> &containers) const
{
    std::string text;
    for (const osg::FieldContainerPtr &entry : containers)
        text += (text.empty() ? "" : ", ") + std::to_string(entry.getFieldContainerId());
    return fieldState(container, name, text);
}

ksFaultScene::State ksFaultScene::moved(State state, const State &from, const State &to)
{
    for (const auto &[key, text] : from)
        if (to.count(key) == 0)
            state.erase(key);
    for (const auto &[key, text] : to) {
        const auto before = from.find(key);
        if (before == from.end() || before->second != text)
            state[key] = text;
    }
    return state;
}

ksFaultScene::State ksFaultScene::without(const std::vector<long long> &ids, const State &state)
{
    State result;
    for (const auto &[key, text] : state)
        if (std::count(ids.begin(), ids.end(), std::stoll(key)) == 0)
            result[key] = text;
    return result;
}

std::vector<std::string> ksFaultScene::differences(const State &actual, const State &expected)
{
    const auto textIn = [](const State &state, const std::string &key) {
        const auto entry = state.find(key);
        return entry == state.end() ? std::string("nothing") : '"' + entry->second + '"';
    };
    State all = actual;
    all.insert(expected.begin(), expected.end());
    std::vector<std::string> lines;
    for (const auto &[key, text] : all)
        if (textIn(actual, key) != textIn(expected, key))
            lines.push_back(key + " is " + textIn(actual, key) + " instead of " + textIn(expected, key));
    return lines;
}

void ksFaultScene::expectCounts(const std::vector<osg::UInt32> &held) const
{
    std::map<osg::UInt32, int> counts;
    for (const osg::UInt32 id : held)
        ++counts[id];
    for (const auto &[id, reference] : kept)
        ++counts[id];
    const std::vector<osg::FieldContainerPtr> containers = ksContainersSince(recorder);
    for (const osg::FieldContainerPtr &container : containers)
        for (const auto &[name, text] : ksFieldTextsOf(container))
            if (isCounted(name))
                for (const osg::UInt32 id : idsIn(name, text))
                    ++counts[id];
    for (const osg::FieldContainerPtr &container : containers)
        EXPECT_EQ(container.getRefCount(), counts[container.getFieldContainerId()])
            << container->getType().getCName() << ' ' << recorder.idOf(container);
}

osg::TagAttachmentPtr ksFaultScene::tags() const
{
    return osg::TagAttachmentPtr::dcast(tagged->findAttachment(osg::TagAttachment::getClassGroupId()));
}

osg::TransformVariantsAttachmentPtr ksFaultScene::variants() const
{
    return ksNodeUtils::getTransformVariantsAttachment(box);
}

std::string ksFaultScene::prefixOf(const osg::FieldContainerPtr &container) const
{
    return std::to_string(recorder.idOf(container)) + ' ' + container->getType().getCName() + '.';
}

template <class PtrT>
PtrT ksFaultScene::keep(const PtrT &container)
{
    kept.emplace(container.getFieldContainerId(), container);
    return container;
}

osg::NodePtr ksFaultScene::addNode(const char *name, const osg::NodeCorePtr &core)
{
    const osg::NodePtr node = osg::Node::create();
    node->setCore(core);
    osg::setName(node, name);
    root->addChild(node);
    return node;
}
