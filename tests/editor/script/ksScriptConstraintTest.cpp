// SPDX-License-Identifier: MIT
#include <tests/editor/script/ksScriptFixture.h>

#include <OSGAimConstraint.h>

namespace {

using ksScriptConstraintTest = ksScriptFixture<ksEditorFixture>;

} // namespace

TEST_F(ksScriptConstraintTest, RemovesNodesInEveryRole)
{
    EXPECT_EQ(
        printed("var child = scene.find('Child');"
                "var aim = scene.addAim('Aim', child, [child, scene.root], child);"
                "function show() {"
                "    print(aim.get('sources').length, aim.get('upVectorSources').length, aim.get('target'));"
                "}"
                "aim.remove(child); show(); history.undo(); print(aim.get('target') === child);"
                "print(aim.get('sources').length, aim.get('upVectorSources').length);"
                "history.redo(); show();"),
        "1 0 null\ntrue\n2 1\n1 0 null\n");
    EXPECT_EQ(stack.count(), 2);
    run("while (history.index > 0) history.undo();");
}

/// The last source needs no place at the end.
TEST_F(ksScriptConstraintTest, RemovesSeveralNodes)
{
    run("var child = scene.find('Child');"
        "var aim = scene.addAim('Aim', child, [child, scene.root], []);"
        "aim.remove([scene.root, child]); history.undo();");
    const auto aim = osg::AimConstraintPtr::dcast(ksFindNode(root, "Aim")->getCore());
    EXPECT_EQ(aim->getSources().size(), 2u);
    EXPECT_EQ(aim->getTarget(), child);
}

TEST_F(ksScriptConstraintTest, SaysWhatIsWrong)
{
    run("scene.addAim('Aim', scene.find('Child'), scene.root, []);");
    EXPECT_EQ(errorOf("\nscene.find('Aim').core.remove('Child');"), ":2: Error: 'Child' is no node");
    EXPECT_EQ(errorOf("\nscene.addAim('Aim', null, [], []);"), ":2: Error: nothing is no node");
    EXPECT_EQ(stack.count(), 1);
}
