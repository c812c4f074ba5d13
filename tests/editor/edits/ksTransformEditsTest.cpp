// SPDX-License-Identifier: MIT
#include <editor/edits/ksTransformEdits.h>
#include <tests/editor/ksTransformScene.h>

#include <ksNodeUtils.h>

#include <memory>
#include <set>

namespace {

using osg::Transform3D;

class ksTransformEditsTest : public ksTransformScene
{
protected:
    static const ksTransformProperty &property(const char *name)
    {
        return *ksTransformEdits::find(QString::fromLatin1(name));
    }

    static std::unique_ptr<ksUndoCommand> make(const ksTransformProperty &property,
                                               const ksTransformTarget &target, const osg::Vec3f &value)
    {
        return std::unique_ptr<ksUndoCommand>(property.make(target, value, {}, nullptr));
    }

    void addVariant() const
    {
        ksNodeUtils::createTransformVariantsAttachment(child);
        ksNodeUtils::insertTransformVariant(child, 0, ksTransformEdits::makeVariant(child, "One"));
    }
};

} // namespace

TEST_F(ksTransformEditsTest, EditsTheFieldThatTheNameSays)
{
    std::set<int> ids;
    for (const ksTransformProperty &each : ksTransformEdits::properties()) {
        SCOPED_TRACE(each.name);
        EXPECT_EQ(&property(each.name), &each);
        EXPECT_STREQ(Transform3D::getClassType().getFieldDescription(each.field)->getCName(), each.name);
        const auto &field = static_cast<const osg::SFVec3f &>(*transformOf(child)->getField(each.field));
        const osg::Vec3f before = field.getValue();
        const std::unique_ptr<ksUndoCommand> command = make(each, {child}, {1, 2, 3});
        command->redo();
        EXPECT_EQ(field.getValue(), osg::Vec3f(1, 2, 3));
        EXPECT_EQ(each.read({child}), osg::Vec3f(1, 2, 3));
        command->undo();
        EXPECT_EQ(field.getValue(), before);
        ids.insert(command->id());
    }
    EXPECT_EQ(ids.size(), 10u);
    EXPECT_EQ(ksTransformEdits::find(QStringLiteral("matrix")), nullptr);
}

TEST_F(ksTransformEditsTest, EditsInWorldSpaceWhatHasASpace)
{
    for (const ksTransformProperty &each : ksTransformEdits::properties()) {
        SCOPED_TRACE(each.name);
        EXPECT_EQ(each.hasSpace, std::string(each.name) == "translation" ||
                                     std::string(each.name) == "scalePivot" ||
                                     std::string(each.name) == "rotatePivot");
        const ksTransformTarget inWorld{child, -1, true};
        make(each, inWorld, {12, 24, 36})->redo();
        EXPECT_EQ(each.read(inWorld), osg::Vec3f(12, 24, 36));
        EXPECT_EQ(each.read({child}), each.hasSpace ? osg::Vec3f(1, 2, 3) : osg::Vec3f(12, 24, 36));
    }
}

TEST_F(ksTransformEditsTest, EditsTheTransformsOfVariants)
{
    addVariant();
    for (const ksTransformProperty &each : ksTransformEdits::properties()) {
        SCOPED_TRACE(each.name);
        EXPECT_EQ(each.hasIndex, std::string(each.name) != "shear");
        const osg::Vec3f own = each.read({child});
        make(each, {child, 0}, {1, 2, 3})->redo();
        EXPECT_EQ(each.read({child, 0}), osg::Vec3f(1, 2, 3));
        EXPECT_EQ(each.read({child}), each.hasIndex ? own : osg::Vec3f(1, 2, 3));
    }
}

TEST_F(ksTransformEditsTest, PassesCallbacksOn)
{
    for (const ksTransformProperty &each : ksTransformEdits::properties()) {
        int calls = 0;
        const std::unique_ptr<ksUndoCommand> command(each.make(
            {child}, {1, 2, 3}, [&calls](unsigned int, const osg::Vec3f &, int) { ++calls; }, nullptr));
        command->redo();
        EXPECT_EQ(calls, each.hasCallback ? 1 : 0) << each.name;
    }
}

TEST_F(ksTransformEditsTest, SetsAxisAndSwitchOfADirection)
{
    make(property("rotationDirection"), {child, -1, false, 2, false}, {1, 2, 3})->redo();
    EXPECT_EQ(transformOf(child)->getRotationDirectionMode(), 2);
    EXPECT_FALSE(transformOf(child)->getRotationDirectionOn());
}

TEST_F(ksTransformEditsTest, AppliesWhatATransformHas)
{
    const osg::Transform3DPtr source = transformOf(root);
    {
        CPEditAll(source);
        osg::UInt32 next = 1;
        for (const ksTransformProperty &each : ksTransformEdits::properties())
            static_cast<osg::SFVec3f &>(*source->getField(each.field))
                .setValue(osg::Vec3f(static_cast<float>(next++), 2, 3));
        source->setRotationOrientation(osg::Vec3f());
        source->setInheritType(4);
        source->setEulerRotationOrder("ZXY");
        source->updateRotation();
        source->setRotationDirectionOn(true);
        source->setRotationDirectionMode(2);
    }
    int appliedTo = 0;
    const std::unique_ptr<ksUndoCommand> command(ksTransformEdits::makeApply(
        child, ksTransformation::of(source), -1, false, [&appliedTo](int index) { appliedTo = index; }));
    command->redo();
    EXPECT_EQ(appliedTo, -1);
    const osg::Transform3DPtr target = transformOf(child);
    for (const ksTransformProperty &each : ksTransformEdits::properties())
        EXPECT_EQ(each.read({child}), each.read({root})) << each.name;
    EXPECT_EQ(target->getInheritType(), 4);
    EXPECT_EQ(target->getEulerRotationOrder(), "ZXY");
    EXPECT_TRUE(target->getRotationDirectionOn());
    EXPECT_EQ(target->getRotationDirectionMode(), 2);
    EXPECT_EQ(target->getMatrix(), source->getMatrix());
    command->undo();
    EXPECT_EQ(target->getMatrix(), osg::Matrix());
}

TEST_F(ksTransformEditsTest, MakesVariantsLikeTheNode)
{
    const osg::RefPtr<osg::TransformVariantPtr> variant(ksTransformEdits::makeVariant(root, "Like"));
    EXPECT_EQ(variant->getName(), "Like");
    EXPECT_NE(variant->getTransform(), transformOf(root));
    EXPECT_EQ(variant->getTransform()->getMatrix(), transformOf(root)->getMatrix());
    EXPECT_EQ(variant->getTransform()->getScale(), osg::Vec3f(2, 2, 2));
    EXPECT_TRUE(variant->getTransform()->getParents().empty());

    const osg::NodeRefPtr bare(osg::Node::create());
    const osg::RefPtr<osg::TransformVariantPtr> plain(ksTransformEdits::makeVariant(bare, "Plain"));
    EXPECT_EQ(plain->getTransform()->getMatrix(), osg::Matrix());
}

TEST_F(ksTransformEditsTest, RefusesPlacesInTheWorldThatAreNoneForTheNode)
{
    constexpr float Far = 3e38F;
    const auto refusal = [&](const osg::Vec3f &position) {
        return ksErrorOf([&] { ksTransformEdits::refuseUnreachable(child, position); });
    };
    const auto scaleRoot = [&](const osg::Vec3f &scale) {
        CPEditAll(transformOf(root));
        transformOf(root)->setScale(scale);
    };
    EXPECT_EQ(refusal({Far, 0, 0}), "");
    scaleRoot({0.5F, 1, 1});
    EXPECT_THAT(refusal({Far, 0, 0}), testing::HasSubstr("so far away"));
    EXPECT_EQ(refusal({0, Far, 0}), "");
    scaleRoot({1, 0, 1});
    EXPECT_THAT(refusal({1, 2, 3}), testing::HasSubstr("flattened"));
}

TEST_F(ksTransformEditsTest, AppliesWhatTheFlagsOfAVariantSay)
{
    addVariant();
    const osg::TransformVariantPtr variant = ksNodeUtils::getTransformVariant(child, 0);
    for (const ksTransformProperty &each : ksTransformEdits::properties())
        if (each.hasIndex)
            make(each, {child, 0}, {1, 2, 3})->redo();
    make(property("shear"), {child}, {4, 5, 6})->redo();
    const auto apply = [&](osg::UInt64 flags) {
        {
            CPEdit(variant, osg::TransformVariant::ApplyFlagsFieldMask);
            variant->setApplyFlags(flags);
        }
        auto batch = std::make_unique<QUndoCommand>();
        ksTransformEdits::addApplied(child, variant, batch.get());
        batch->redo();
        return batch;
    };
    const auto none = apply(0);
    for (const ksTransformProperty &each : ksTransformEdits::properties())
        EXPECT_NE(each.read({child}), osg::Vec3f(1, 2, 3)) << each.name;
    const auto all = apply(osg::TransformVariantFlags::AllComponents & ~osg::TransformVariantFlags::Shear);
    for (const ksTransformProperty &each : ksTransformEdits::properties()) {
        const osg::Vec3f expected = each.hasIndex ? osg::Vec3f(1, 2, 3) : osg::Vec3f(4, 5, 6);
        EXPECT_EQ(each.read({child}), expected) << each.name;
    }
    all->undo();
    EXPECT_EQ(property("translation").read({child}), osg::Vec3f(0, 0, 0));
}
