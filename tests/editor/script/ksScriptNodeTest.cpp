// SPDX-License-Identifier: MIT
#include <tests/editor/ksTransformScene.h>
#include <tests/editor/script/ksScriptFixture.h>

#include <ksNodeUtils.h>

namespace {

class ksScriptNodeTest : public ksScriptFixture<ksTransformScene>
{
protected:
    void expectError(const std::string &script, const std::string &error)
    {
        expectErrorAfter("", script, error);
    }

    const std::string label = ksContainers::label(child).toStdString();
};

} // namespace

TEST_F(ksScriptNodeTest, EditsValuesOfTransforms)
{
    run("var child = scene.find('Child'); child.translate([1, 2, 3]); child.rotate([0, 90, 0]);"
        "child.scale([1, 2, 4]); child.shear([0.5, 0, 0]); child.setTransform('rotatePivot', [7, 8, 9]);");
    EXPECT_EQ(stack.count(), 5);
    EXPECT_EQ(transformOf(child)->getTranslation(), osg::Vec3f(1, 2, 3));
    EXPECT_EQ(transformOf(child)->getEulerRotation(), osg::Vec3f(0, 90, 0));
    EXPECT_EQ(transformOf(child)->getScale(), osg::Vec3f(1, 2, 4));
    EXPECT_EQ(transformOf(child)->getShear(), osg::Vec3f(0.5F, 0, 0));
    EXPECT_EQ(transformOf(child)->getRotatePivot(), osg::Vec3f(7, 8, 9));
    EXPECT_EQ(run("print(scene.find('Child').getTransform('scale'));"), "1,2,4\n");
    run("while (history.index > 0) history.undo();");
    EXPECT_EQ(transformOf(child)->getMatrix(), osg::Matrix());
}

TEST_F(ksScriptNodeTest, EditsInWorldSpace)
{
    run("var child = scene.find('Child'); child.translate([12, 24, 36], { world: true });"
        "child.drag('scalePivot', [[0.1, 0, 0], [0.3, 0.7, 0.9]], { world: true });"
        "print(child.getTransform('translation', { world: true }));");
    EXPECT_EQ(transformOf(child)->getTranslation(), osg::Vec3f(1, 2, 3));
    EXPECT_EQ(stack.count(), 2);
    run("history.undo(); history.redo(); history.undo(); history.undo();");
}

TEST_F(ksScriptNodeTest, DragsAsOneStep)
{
    run("var child = scene.find('Child'); child.translate([5, 5, 5]);"
        "child.drag('translation', [[1, 0, 0], [2, 0, 0], [3, 0, 0]]);"
        "child.drag('travMask', [1, 2]);");
    EXPECT_EQ(stack.count(), 3);
    EXPECT_EQ(child->getTravMask(), 2u);
    run("history.undo(); history.undo();");
    EXPECT_EQ(transformOf(child)->getTranslation(), osg::Vec3f(5, 5, 5));
}

TEST_F(ksScriptNodeTest, SetsTheRotationOrder)
{
    EXPECT_EQ(run("var child = scene.find('Child'); print(child.rotationOrder);"), "XYZ\n");
    run("scene.find('Child').rotationOrder = 'ZYX';");
    EXPECT_EQ(transformOf(child)->getEulerRotationOrder(), "ZYX");
    run("history.undo();");
    EXPECT_EQ(transformOf(child)->getEulerRotationOrder(), "XYZ");
    expectError("scene.find('Child').rotationOrder = 'XYX';",
                "'XYX' is no order of rotations: these are XYZ, XZY, YXZ, YZX, ZXY, ZYX");
}

TEST_F(ksScriptNodeTest, TurnsByQuaternions)
{
    run("var child = scene.find('Child'); child.rotate([0.1, 45, 0.3]); child.turn([0, 0.6, 0, 0.8]);");
    EXPECT_EQ(transformOf(child)->getRotation(), osg::Quaternion(0, 0.6F, 0, 0.8F));
    run("history.undo();");
    run("scene.find('Child').turn([0, 3e38, 0, 0]);");
    EXPECT_EQ(transformOf(child)->getRotation(), osg::Quaternion(0, 1, 0, 0));
    run("scene.find('Child').turn([0, 0, 1e-40, 0]);");
    EXPECT_EQ(transformOf(child)->getRotation(), osg::Quaternion(0, 0, 1, 0));
    stack.clear();
    expectError("scene.find('Child').turn([0, 1, 0]);",
                "'quaternion' is an array [x, y, z, w] of numbers, not an array of 3");
}

TEST_F(ksScriptNodeTest, AppliesTransformations)
{
    run("scene.find('Child').apply({ translation: [1, 2, 3], eulerRotation: [0, 90, 0], scale: [1, 1, 2],"
        "  eulerRotationOrder: 'YXZ', inheritType: 3, rotationDirection: [0, 0, 1],"
        "  rotationDirectionOn: true, rotationDirectionMode: 2 });");
    const osg::Transform3DPtr transform = transformOf(child);
    EXPECT_EQ(stack.count(), 1);
    EXPECT_EQ(transform->getTranslation(), osg::Vec3f(1, 2, 3));
    EXPECT_EQ(transform->getEulerRotation(), osg::Vec3f(0, 90, 0));
    EXPECT_EQ(transform->getScale(), osg::Vec3f(1, 1, 2));
    EXPECT_EQ(transform->getEulerRotationOrder(), "YXZ");
    EXPECT_EQ(transform->getInheritType(), 3);
    EXPECT_TRUE(transform->getRotationDirectionOn());
    EXPECT_EQ(transform->getRotationDirectionMode(), 2);
    // An edit of the direction keeps axis and switch, which an undo could not restore.
    run("scene.find('Child').setTransform('rotationDirection', [1, 1, 1]); history.undo(); history.undo();");
    EXPECT_EQ(transform->getMatrix(), osg::Matrix());
}

TEST_F(ksScriptNodeTest, EditsVariants)
{
    run("var v = scene.find('Child').variants; v.add('One'); v.add('Three'); v.add('Two', 1);"
        "v.rename(0, 'First'); v.options(2, '18446744073709551615'); v.move(0, 2); v.move([2, 0], 0);");
    EXPECT_EQ(run("var v = scene.find('Child').variants; print(v.length, v.names, v.at(2).get('name'));"),
              "3 First,Two,Three Three\n");
    EXPECT_EQ(run("print(scene.find('Child').variants.at(2).get('applyFlags'));"), "18446744073709551615\n");
    run("var child = scene.find('Child'); child.scale([3, 3, 3], { index: 1 });"
        "child.apply({ translation: [4, 5, 6] }, { index: 1 });");
    EXPECT_EQ(transformOf(child)->getScale(), osg::Vec3f(1, 1, 1));
    const osg::Transform3DPtr stored = ksNodeUtils::getTransform3D(child, 1);
    EXPECT_EQ(stored->getScale(), osg::Vec3f(3, 3, 3));
    EXPECT_EQ(stored->getTranslation(), osg::Vec3f(4, 5, 6));
    run("var v = scene.find('Child').variants; v.remove(1); v.remove(1); v.remove(0);"
        "while (history.index > 0) history.undo(); while (history.index < history.count) history.redo();");
    EXPECT_EQ(ksNodeUtils::getTransformVariantsAttachment(child), osg::NullFC);
}

TEST_F(ksScriptNodeTest, RefusesWhatDoesNotFitATransform)
{
    expectError("scene.find('Child').translate([1, 2]);",
                "'translation' is an array [x, y, z] of numbers, not an array of 2");
    expectError("scene.find('Child').translate(5);", "'translation' is an array [x, y, z] of numbers, not 5");
    expectError("scene.find('Child').scale([1, 'two', 3]);",
                "'scale' is an array [x, y, z] of numbers, not an array with 'two'");
    expectError("scene.find('Child').scale([1, 1, 1 / 0]);",
                "'scale' is an array [x, y, z] of numbers, not an array with Infinity");
    expectError("scene.find('Child').scale([1, 1, 1], { world: true });", "'scale' has no world space");
    expectError("scene.find('Child').scale([1, 1, 1], { index: 0 });", label + " has no transform 0");
    expectError("scene.find('Child').scale([1, 1, 1], { inworld: 0 });", "there is no option 'inworld'");
    expectError("scene.find('Child').translate([1, 1, 1], { world: 1 });", "'world' is true or false, not 1");
    expectError("scene.find('Child').translate([1, 1, 1], 'world');", "'world' is no object with members");
    expectError("scene.find('Child').setTransform('size', [1, 1, 1]);", "transforms have no 'size'");
    expectError("scene.find('Child').getTransform('size');", "transforms have no 'size'");
    expectError("scene.find('Child').drag('scale', 1);", "the values of a drag are an array");
    expectError("scene.find('Child').apply({ size: 1 });", "a transformation has no 'size'");
    expectError("scene.find('Child').apply([1]);", "an array of 1 is no object with members");
    expectError("scene.find('Child').apply({}, { world: true });", "a transformation has no world space");
    expectError("scene.find('Child').apply({ inheritType: 1.5 });",
                "'inheritType' is a whole number from -2147483648 to 2147483647, not 1.5");
    {
        CPEdit(child, osg::Node::CoreFieldMask);
        child->setCore(osg::Group::create());
    }
    expectError("scene.find('Child').translate([1, 1, 1]);", label + " has no transform");
    expectError("scene.find('Child').rotationOrder = 'XYZ';", label + " has no transform");
}

TEST_F(ksScriptNodeTest, RefusesWhatDoesNotFitTheVariants)
{
    run("scene.find('Child').variants.add('One'); scene.find('Child').variants.add('Two');");
    const std::string none = label + " has no variant ";
    expectError("scene.find('Child').variants.remove(2);", none + "2");
    expectError("scene.find('Child').variants.rename(-1, 'Three');", none + "-1");
    expectError("scene.find('Child').variants.add('Three', 3);", none + "3");
    expectError("scene.find('Child').variants.at(2);", none + "2");
    expectError("scene.find('Child').variants.move(2, 0);", none + "2");
    expectError("scene.find('Child').variants.move(0, 2);", none + "2");
    expectError("scene.find('Child').variants.move([0, 'x'], 0);",
                "'from' is an index or an array of indexes, not 'x'");
    expectError("scene.find('Child').variants.options(0, 'all');",
                "'flags' is a whole number from 0 to 18446744073709551615, not 'all'");
    const std::string unfit = "the variants to move are different ones, and fit behind their new place";
    expectError("scene.find('Child').variants.move([0, 1], 1);", unfit);
    expectError("scene.find('Child').variants.move([0, 0], 0);", unfit);
    expectError("scene.find('Child').shear([1, 1, 1], { index: 0 });",
                "'shear' can be edited in the node's own transform only");
}
