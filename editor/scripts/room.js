// SPDX-License-Identifier: MIT
// Edits the demo room by name: models/room/room.gltf.

function settings(name) {
    return scene.find(name).attachment("ksNodeSettings");
}

function expect(what, actual, wanted) {
    if (actual !== wanted)
        throw new Error(what + " is " + actual + ", not " + wanted);
}

print("The room has", scene.nodes().length, "nodes; on the table:",
      scene.find("Table").children.map(function (child) { return child.name; }).join(", "));

// What the model says about the table has become its settings.
var table = settings("Table");
expect("layer", table.get("layer"), 2);
expect("lodBias", table.get("lodBias"), -3);
expect("userFlags", table.get("userFlags"), 4294967301);
expect("comment", table.get("comment"), "oiled walnut");

print("Numbers of every width, one step each");
table.set("layer", 5);
table.set("lodBias", -100);
table.set("renderOrder", 32767);
table.set("stencilReference", 65535);
table.set("pickId", 4294967295);
table.set("sortKey", -1);
table.set("userFlags", "18446744073709551615", "Raise all flags");
table.set("revision", "-9223372036854775808", "Make a draft");
table.set("opacity", 0.5);
table.set("timeOffset", 1 / 3);
table.set("locked", true);
expect("userFlags", table.get("userFlags"), "18446744073709551615");
expect("revision", table.get("revision"), "-9223372036854775808");
expect("timeOffset", table.get("timeOffset"), 1 / 3);

print("A drag is one step");
var lamp = scene.find("LampBulb").light;
var before = history.count;
lamp.drag("intensity", [44, 48, 52, 56, 60], "Brighten the lamp");
expect("count", history.count, before + 1);
history.undo();
expect("intensity", lamp.get("intensity"), 40);
history.redo();

print("Materials and images");
var walnut = scene.find("LegFrontLeft").material;
expect("material", walnut.name, "Walnut");
walnut.set("roughness", 0.25, "Polish the walnut");
scene.find("Floor").image.set("resUnit", 1);

print("A batch over the four legs, merged twice");
var legs = scene.find("Legs").children.map(function (leg) { return leg.attachment("ksNodeSettings"); });
before = history.count;
[0.75, 0.5, 0.25].forEach(function (opacity, round) {
    history.batch("Fade the legs", legs.map(function (leg) { return [leg, "opacity", opacity]; }), round > 0);
});
expect("count", history.count, before + 1);

print("A macro over everything on layer 1");
history.macro("Hide layer 1", function () {
    scene.nodes().forEach(function (node) {
        var own = node.attachment("ksNodeSettings");
        if (own.get("layer") === 1)
            own.set("opacity", 0);
    });
});
expect("opacity", settings("Walls").get("opacity"), 0);

print("Back to a mark");
history.mark();
["Vase", "Book", "Clock"].forEach(function (name) { settings(name).set("locked", true, "Lock the " + name); });
history.reset();
expect("locked", settings("Clock").get("locked"), false);

function expectNear(what, actual, wanted) {
    actual.forEach(function (number, i) {
        if (Math.abs(number - wanted[i]) > 1e-5)
            throw new Error(what + " is " + actual + ", not " + wanted);
    });
}

print("The chair is pulled from the table, the book turned and the vase stretched");
var chair = scene.find("Chair");
before = history.index;
var place = chair.getTransform("translation");
var way = [];
for (var i = 1; i <= 60; ++i)
    way.push([place[0], place[1], place[2] + i / 100]);
chair.drag("translation", way);
expect("index", history.index, before + 1);
history.undo();
expect("translation", String(chair.getTransform("translation")), String(place));
history.redo();
var book = scene.find("Book");
book.rotate([0, 45, 0]);
book.rotationOrder = "ZYX";
book.setTransform("rotatePivot", [0.1, 0, 0.05]);
scene.find("Rug").turn([0, 0.6, 0, 0.8]);
var vase = scene.find("Vase");
vase.scale([1, 2, 1]);
vase.shear([0.25, 0, 0]);
vase.drag("scalePivot", [[0, 0.1, 0], [0, 0.2, 0]]);

print("The flower is moved in the room's space, wherever the vase is");
var flower = scene.find("Flower");
flower.translate([1, 1.5, -1], { world: true });
expectNear("translation", flower.getTransform("translation", { world: true }), [1, 1.5, -1]);

print("Places for the lamp, as variants");
var lampPlaces = scene.find("Lamp").variants;
lampPlaces.add("Corner");
lampPlaces.add("Reading");
lampPlaces.add("Window", 0);
lampPlaces.rename(1, "By the wall");
lampPlaces.options(1, 3);
scene.find("Lamp").translate([2, 0, 2], { index: 2 });
scene.find("Lamp").apply({ translation: [0, 0, 1], eulerRotation: [0, 90, 0], eulerRotationOrder: "YXZ" }, { index: 0 });
lampPlaces.move(0, 2);
lampPlaces.move([2, 0], 0);
expect("names", String(lampPlaces.names), "Window,By the wall,Reading");
expect("applyFlags", lampPlaces.at(1).get("applyFlags"), 3);
while (lampPlaces.length > 0)
    lampPlaces.remove(0);
expect("attachment", scene.find("Lamp").attachment("TransformVariantsAttachment"), null);
history.undo();
expect("names", String(lampPlaces.names), "Reading");

print("The lamp is dimmed, and shines while its shade is visible");
before = history.index;
lamp.drag("diffuse", [[1, 0.75, 0.5], [1, 0.5, 0.25]], "Warm the lamp");
lamp.glossy = [1, 1, 1];
var spot = scene.find("CeilingSpot").light;
spot.drag("coneAngle", [30, 35, 40, 45]);
spot.penumbraAngle = 10;
var intensity = spot.intensity;
spot.attenuation = 0;
expect("intensity", spot.intensity, intensity);
expect("index", history.index, before + 5);
lamp.visibilityReference = scene.find("LampShade");
expect("reference", lamp.visibilityReference, scene.find("LampShade"));

print("The lamp and the spot shine on the table and what is on it only");
var links = scene.addLinkSet("Table lights");
links.addLights([lamp, spot].map(function (light) { return light.get("parents")[0]; }));
links.add(["Table", "Vase", "Flower", "Book", "Rug"].map(function (name) { return scene.find(name); }));
links.remove([scene.find("Vase"), scene.find("Book")]);
history.undo();
function namesOf(nodes) {
    return nodes.map(function (node) { return node.name; }).join(",");
}
expect("linked", namesOf(links.get("sceneNodes")), "Table,Vase,Flower,Book,Rug");
history.redo();
links.removeLights(scene.find("CeilingSpot light"));
expect("lights", namesOf(links.get("lights")), "LampBulb light");

print("The cloth is dyed, the picture hangs on the floor, and the brass mirrors the wall");
var cloth = scene.find("Rug").material;
cloth.dragComponent(0, "color", [[0.5, 0.5, 0.9], [0.25, 0.25, 0.9]]);
cloth.setSettings("mappingRotation", 45);
cloth.setAllComponents("weight", 0.5);
var floor = scene.find("Floor").material;
var planks = floor.components[0].image;
floor.setImage(0, scene.find("Picture").image);
expect("image", floor.image.name, "painting.png");
history.undo();
expect("image", floor.image, planks);
history.redo();
var brass = scene.find("Clock").material;
brass.environment = scene.find("EastWall").material;
brass.environment = cloth;
history.undo();
expect("environment", brass.environment.name, "Plaster");

print("Tags for the furniture");
["Table", "Chair", "Rug"].forEach(function (name) {
    var tags = scene.find(name).tags;
    tags.add("furniture");
    tags.addLayer("ground floor");
});
scene.find("Rug").tags.remove("furniture");
expect("tags", String(scene.find("Rug").tags.user), "");
history.undo();
expect("tags", String(scene.find("Rug").tags.user), "furniture");

print("The spot looks at the flower, until that is removed in every role");
var flowerNode = scene.find("Flower");
var aim = scene.addAim("Look at the flower", scene.find("CeilingSpot"), [flowerNode, vase], flowerNode);
aim.remove([flowerNode, scene.find("CeilingSpot")]);
expect("sources", aim.get("sources").length, 1);
expect("target", aim.get("target"), null);
history.undo();
expect("sources", aim.get("sources").length, 2);
expect("target", aim.get("target"), scene.find("CeilingSpot"));
expect("up vectors", aim.get("upVectorSources").length, 1);

print("All the way back and forth");
while (history.index > 0)
    history.undo();
expect("layer", table.get("layer"), 2);
while (history.index < history.count)
    history.redo();
expect("layer", table.get("layer"), 5);
expect("order", book.rotationOrder, "ZYX");
