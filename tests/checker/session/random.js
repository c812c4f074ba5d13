// SPDX-License-Identifier: MIT
// Edits of every kind in a random order, most of which make sense. What comes before says which: var seed = 1.

function random(count) {
    seed = (seed * 1103515245 + 12345) % 2147483648;
    return Math.floor(seed / 65536) % count;
}
function pick(values) { return values[random(values.length)]; }

var properties = ["translation", "eulerRotation", "scale", "shear", "scalePivot", "rotatePivot", "scalePivotTranslation",
                  "rotatePivotTranslation", "rotationOrientation", "rotationDirection"];
var kept = [null];

function node() { return pick(scene.nodes()); }
function own() { return node().attachment("ksNodeSettings"); }
function number() { return pick([0, 1, -1, 2, 0.5, 3, 90, 300, 1e6, 1e-3, NaN, 1 / 0, "5"]); }
function vector() {
    return random(10) > 0 ? [number(), number(), number()] : pick([[], [1], "x", null, undefined, [1, 2, 3, 4], {}]);
}
function options() { return pick([undefined, {}, { world: true }, { index: 0 }, { index: 1 }, { index: "x" }, 5]); }
function anything() {
    return pick([number(), vector(), node(), pick(kept), "Table", true, undefined, node().core, node().material, [node(), node()]]);
}
function value() { return pick([number(), vector(), "text", true, ["a", "b"]]); }
function repeat(count, work) {
    for (var i = 0; i < count; ++i)
        work();
}

var edits = [
    function () { node().setTransform(pick(properties), vector(), options()); },
    function () { node().translate(vector(), options()); },
    function () { node().rotate(vector(), options()); },
    function () { node().turn([number(), number(), number(), number()]); },
    function () { node().rotationOrder = pick(["XYZ", "ZYX", "YXZ", "XXX"]); },
    function () { node().drag(pick(properties.concat("travMask")), [vector(), vector(), vector()], options()); },
    function () {
        var values = { eulerRotationOrder: pick(["ZXY", "XYZ"]), rotationDirectionOn: pick([true, false]) };
        values[pick(properties)] = vector();
        node().apply(values, options());
    },
    function () { kept.push(node().add("New " + random(20))); },
    function () { if (scene.nodes().length < 200) kept.push(node().copy(node(), "Copy")); },
    function () { node().moveTo(node(), pick([-1, 0, 1, undefined])); },
    function () { kept.push(node(), node().core); kept[kept.length - 2].remove(); },
    function () { node().name = pick(["One", "Two", "Table", "", 5]); },
    function () { node().material = anything(); },
    function () { node().light[pick(["diffuse", "glossy"])] = vector(); },
    function () { node().light[pick(["intensity", "coneAngle", "penumbraAngle", "attenuation"])] = number(); },
    function () { node().light.visibilityReference = pick([node(), null, anything()]); },
    function () { node().light.drag("intensity", [number(), number()]); },
    function () { kept.push(scene.addLinkSet("Links")); },
    function () { kept.push(scene.addAim("Aim", anything(), anything(), anything())); },
    function () { pick(kept)[pick(["add", "remove", "addLights", "removeLights"])](anything()); },
    function () { node().material.setComponent(random(2), pick(["color", "weight", "enabled"]), value()); },
    function () { node().material.setComponentQuietly(0, "color", vector()); },
    function () { node().material.setAllComponents("weight", number()); },
    function () { node().material.setSettings("mappingRotation", number()); },
    function () { node().material.setImage(0, pick([null, node().image, anything()])); },
    function () { node().material.environment = pick([node().material, anything()]); },
    function () { node().material.set(pick(["roughness", "metalness", "baseColor"]), value()); },
    function () { node().variants.add("Variant", pick([undefined, 0, 1])); },
    function () { node().variants.remove(random(2)); },
    function () { node().variants.move(pick([0, 1, [0, 1], [1, 0]]), random(2)); },
    function () { node().variants.rename(0, pick(["One", "Two"])); },
    function () { node().variants.options(0, number()); },
    function () { node().tags[pick(["add", "remove", "addLayer", "removeLayer"])](pick(["wood", "old", ""])); },
    function () { var target = pick([own(), node(), node().core]); target.set(pick(target.fields), value()); },
    function () { own().switchFlag("locked", pick([true, false]), function () {}); },
    function () { scene.recordTag("wood", pick([true, false])); },
    function () {
        history.batch("Batch", [[node(), pick(properties), vector(), options()], [own(), "layer", number()],
                                [node(), "rotationOrder", "ZYX"]], pick([true, false]), pick([undefined, function () {}]));
    },
    function () { history.batch("Batch", function () { repeat(random(5), function () { pick(edits)(); }); }); },
    function () { history.macro("Macro", function () { repeat(random(5), function () { pick(edits)(); }); }); },
    function () { history.beginMacro("Macro"); own().set("layer", number()); history.endMacro(); },
    function () { history.undo(); },
    function () { history.redo(); },
    function () { repeat(30, history.undo); },
    function () { repeat(30, history.redo); },
    function () { history.mark(); },
    function () { if (random(3) === 0) history.reset(); },
    function () { if (random(20) === 0) history.clear(); }
];

repeat(300, function () {
    try {
        pick(edits)();
    } catch (error) {
        // The macro that it has begun, if any.
        try { history.endMacro(); } catch (none) {}
    }
});
check();
while (history.index > 0)
    history.undo();
while (history.index < history.count)
    history.redo();
check();
