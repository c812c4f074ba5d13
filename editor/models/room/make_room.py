#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Writes the demo model: room.gltf, room.bin and four PNG textures.

Usage: make_room.py [FOLDER]      (default: the folder of this script)

Every run gives identical bytes on every machine: coordinates are rounded before they are stored, and the textures are
stored without compression, whose result would depend on the version of zlib.
"""

import json
import math
import struct
import sys
import zlib
from pathlib import Path

FLOAT, USHORT = 5126, 5123
ARRAY_BUFFER, ELEMENT_ARRAY_BUFFER = 34962, 34963
REPEAT, LINEAR, LINEAR_MIPMAP_LINEAR = 10497, 9729, 9987


# ---------------------------------------------------------------------------------------------------------- textures


def png(width, height, pixel):
    """An RGB PNG whose colour at (x, y), counted from the top left, is pixel(x, y)."""
    rows = b"".join(b"\0" + b"".join(bytes(pixel(x, y)) for x in range(width)) for y in range(height))

    def chunk(kind, data):
        return struct.pack(">I", len(data)) + kind + data + struct.pack(">I", zlib.crc32(kind + data))

    def stored(data, last):
        return struct.pack("<BHH", last, len(data), len(data) ^ 0xFFFF) + data

    blocks = [rows[i:i + 0xFFFF] for i in range(0, len(rows), 0xFFFF)]
    deflated = b"".join(stored(block, block is blocks[-1]) for block in blocks)
    stream = b"\x78\x01" + deflated + struct.pack(">I", zlib.adler32(rows))
    header = struct.pack(">IIBBBBB", width, height, 8, 2, 0, 0, 0)
    return b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", header) + chunk(b"IDAT", stream) + chunk(b"IEND", b"")


def grain(x, y):
    """A repeatable number from 0 to 15 for the position (x, y)."""
    n = (x * 374761393 + y * 668265263) & 0xFFFFFFFF
    n = ((n ^ (n >> 13)) * 1274126177) & 0xFFFFFFFF
    return (n ^ (n >> 16)) & 15


def planks(x, y):
    if y % 16 == 0 or (x + 29 * (y // 16)) % 64 == 0:
        return 74, 48, 28
    shade = grain(x // 8, y) + 6 * (y // 16 % 3)
    return 150 + shade, 104 + shade, 62 + shade // 2


def plaster(x, y):
    shade = grain(x, y) // 2
    return 226 + shade, 221 + shade, 208 + shade


def painting(x, y):
    if (x - 44) ** 2 + (y - 14) ** 2 < 64:
        return 250, 214, 92
    if y < 28 + 6 * ((x // 8) % 3):
        return 96 + y, 150 + y, 214
    return 66 + grain(x, y), 118 - y // 2 + grain(y, x), 60


def fabric(x, y):
    return (158, 52, 48) if (x // 4 + y // 4) % 2 else (196, 150, 92)


TEXTURES = [("planks", 64, 64, planks), ("plaster", 32, 32, plaster), ("painting", 64, 48, painting),
            ("fabric", 32, 32, fabric)]


# ------------------------------------------------------------------------------------------------------------ meshes


class Mesh:
    """Vertices with position, normal and texture coordinates, and triangles that index them."""

    def __init__(self):
        self.positions, self.normals, self.coordinates, self.indices = [], [], [], []

    def quad(self, corners, normal, repeat=(1, 1)):
        """A rectangle; the corners run counter-clockwise, from the texture's lower left."""
        first = len(self.positions)
        self.positions += corners
        self.normals += [normal] * 4
        self.coordinates += [(0, repeat[1]), (repeat[0], repeat[1]), (repeat[0], 0), (0, 0)]
        self.indices += [first, first + 1, first + 2, first, first + 2, first + 3]
        return self

    def box(self, low, high, repeat=(1, 1)):
        (x, y, z), (X, Y, Z) = low, high
        self.quad([(x, y, Z), (X, y, Z), (X, Y, Z), (x, Y, Z)], (0, 0, 1), repeat)
        self.quad([(X, y, z), (x, y, z), (x, Y, z), (X, Y, z)], (0, 0, -1), repeat)
        self.quad([(X, y, Z), (X, y, z), (X, Y, z), (X, Y, Z)], (1, 0, 0), repeat)
        self.quad([(x, y, z), (x, y, Z), (x, Y, Z), (x, Y, z)], (-1, 0, 0), repeat)
        self.quad([(x, Y, Z), (X, Y, Z), (X, Y, z), (x, Y, z)], (0, 1, 0), repeat)
        self.quad([(x, y, z), (X, y, z), (X, y, Z), (x, y, Z)], (0, -1, 0), repeat)
        return self

    def lathe(self, profile, sides):
        """The (radius, height) points of profile, from bottom to top, turned about the Y axis."""
        first = len(self.positions)
        for i, (radius, height) in enumerate(profile):
            before, after = profile[max(i - 1, 0)], profile[min(i + 1, len(profile) - 1)]
            out, up = after[1] - before[1], before[0] - after[0]
            length = math.hypot(out, up)
            for side in range(sides + 1):
                angle = 2 * math.pi * side / sides
                c, s = math.cos(angle), math.sin(angle)
                self.positions.append((radius * c, height, -radius * s))
                self.normals.append((c * out / length, up / length, -s * out / length))
                self.coordinates.append((side / sides, 1 - i / (len(profile) - 1)))
        for i in range(len(profile) - 1):
            for side in range(sides):
                a = first + i * (sides + 1) + side
                b = a + sides + 1
                self.indices += [a, a + 1, b + 1, a, b + 1, b]
        return self


def frame(width, height, bar, depth):
    """Four bars around an opening of width x height, centred on the origin in the XY plane."""
    w, h = width / 2, height / 2
    mesh = Mesh()
    mesh.box((-w - bar, h, 0), (w + bar, h + bar, depth))
    mesh.box((-w - bar, -h - bar, 0), (w + bar, -h, depth))
    mesh.box((-w - bar, -h, 0), (-w, h, depth))
    mesh.box((w, -h, 0), (w + bar, h, depth))
    return mesh


def pane(width, height):
    w, h = width / 2, height / 2
    return Mesh().quad([(-w, -h, 0), (w, -h, 0), (w, h, 0), (-w, h, 0)], (0, 0, 1))


def chair_legs():
    mesh = Mesh()
    for x in (-0.2, 0.16):
        for z in (-0.2, 0.16):
            mesh.box((x, 0, z), (x + 0.04, 0.43, z + 0.04))
    return mesh


MESHES = {
    "FloorPlate": ("Planks", Mesh().box((-2.5, -0.1, -2), (2.5, 0, 2), (4, 4))),
    "CeilingPlate": ("Plaster", Mesh().box((-2.5, 0, -2), (2.5, 0.1, 2), (4, 4))),
    "LongWall": ("Plaster", Mesh().box((-2.5, 0, -0.1), (2.5, 2.6, 0), (5, 3))),
    "ShortWall": ("Plaster", Mesh().box((-2, 0, -0.1), (2, 2.6, 0), (4, 3))),
    "WindowBars": ("Walnut", frame(1.2, 1.0, 0.06, 0.08)),
    "WindowPane": ("Glass", pane(1.2, 1.0)),
    "PictureBars": ("Brass", frame(0.8, 0.6, 0.04, 0.03)),
    "Canvas": ("Painting", pane(0.8, 0.6)),
    "RugPlate": ("Fabric", Mesh().box((-0.9, 0, -0.6), (0.9, 0.01, 0.6), (3, 2))),
    "TableTop": ("Walnut", Mesh().box((-0.8, 0.7, -0.45), (0.8, 0.74, 0.45))),
    "TableLeg": ("Walnut", Mesh().lathe([(0.02, 0), (0.035, 0.35), (0.03, 0.7)], 10)),
    "VaseBody": ("Porcelain", Mesh().lathe([(0.05, 0), (0.1, 0.1), (0.06, 0.22), (0.08, 0.26)], 16)),
    "FlowerStem": ("Leaf", Mesh().lathe([(0.006, 0), (0.005, 0.25), (0.04, 0.28), (0.001, 0.3)], 8)),
    "BookBlock": ("Fabric", Mesh().box((-0.1, 0, -0.14), (0.1, 0.03, 0.14))),
    "SeatPlate": ("Fabric", Mesh().box((-0.22, 0.43, -0.22), (0.22, 0.47, 0.22))),
    "BackPlate": ("Walnut", Mesh().box((-0.22, 0, -0.02), (0.22, 0.5, 0.02))),
    "ChairLegBars": ("Walnut", chair_legs()),
    "PoleRod": ("Brass", Mesh().lathe([(0.15, 0), (0.15, 0.02), (0.012, 0.03), (0.012, 1.5)], 12)),
    "ShadeCone": ("Shade", Mesh().lathe([(0.25, 0), (0.12, 0.3)], 20)),
    "ClockFace": ("Brass", Mesh().lathe([(0.15, 0), (0.15, 0.03), (0.001, 0.03)], 24)),
}


# --------------------------------------------------------------------------------------------- materials and objects

MATERIALS = [
    {"name": "Planks", "texture": "planks", "color": [1, 1, 1, 1], "metallic": 0, "roughness": 0.6},
    {"name": "Plaster", "texture": "plaster", "color": [0.95, 0.95, 0.9, 1], "metallic": 0, "roughness": 0.9},
    {"name": "Painting", "texture": "painting", "color": [1, 1, 1, 1], "metallic": 0, "roughness": 0.8},
    {"name": "Fabric", "texture": "fabric", "color": [0.9, 0.9, 0.9, 1], "metallic": 0, "roughness": 1,
     "mapping": {"scale": [2, 3], "offset": [0.25, 0.125]}},
    {"name": "Walnut", "color": [0.32, 0.19, 0.1, 1], "metallic": 0, "roughness": 0.5},
    {"name": "Brass", "color": [0.8, 0.6, 0.25, 1], "metallic": 1, "roughness": 0.25},
    {"name": "Porcelain", "color": [0.92, 0.94, 0.97, 1], "metallic": 0, "roughness": 0.1},
    {"name": "Leaf", "color": [0.2, 0.5, 0.15, 1], "metallic": 0, "roughness": 0.7},
    {"name": "Glass", "color": [0.7, 0.85, 0.9, 0.25], "metallic": 0, "roughness": 0},
    {"name": "Shade", "color": [0.9, 0.85, 0.7, 1], "metallic": 0, "roughness": 0.8, "emissive": [0.6, 0.5, 0.25]},
]

LIGHTS = [
    {"name": "BulbLight", "type": "point", "color": [1, 0.8, 0.5], "intensity": 40, "range": 6},
    {"name": "SpotLight", "type": "spot", "color": [1, 1, 0.9], "intensity": 120,
     "spot": {"innerConeAngle": 0.25, "outerConeAngle": 0.5}},
    {"name": "SunLight", "type": "directional", "color": [1, 0.95, 0.85], "intensity": 3},
]


def turn(axis, degrees):
    """The quaternion (x, y, z, w) of a turn about axis "x", "y" or "z"."""
    half = math.radians(degrees) / 2
    return [math.sin(half) if axis == name else 0 for name in "xyz"] + [math.cos(half)]


def node(name, *children, **properties):
    return {"name": name, "children": children, **properties}


ROOM = node(
    "Room",
    node("Floor", mesh="FloorPlate", extras={"layer": 1, "locked": True}),
    node("Ceiling", mesh="CeilingPlate", translation=[0, 2.6, 0], extras={"layer": 1, "opacity": 0.5}),
    node(
        "Walls",
        node(
            "NorthWall",
            node("Window",
                 node("WindowGlass", mesh="WindowPane", translation=[0, 0, 0.04],
                      extras={"renderOrder": 900, "opacity": 0.25}),
                 mesh="WindowBars", translation=[-1.2, 1.4, 0]),
            node("PictureFrame",
                 node("Picture", mesh="Canvas", translation=[0, 0, 0.005], extras={"stencilReference": 40000}),
                 mesh="PictureBars", translation=[1, 1.5, 0.001], rotation=turn("z", 2)),
            mesh="LongWall", translation=[0, 0, -2]),
        node("EastWall",
             node("Clock", mesh="ClockFace", translation=[0.4, 1.8, 0], rotation=turn("x", 90),
                  extras={"timeOffset": 0.1, "revision": 9007199254740993}),
             mesh="ShortWall", translation=[2.5, 0, 0], rotation=turn("y", -90)),
        extras={"layer": 1}),
    node("Rug", mesh="RugPlate", translation=[0.2, 0, 0.3], rotation=turn("y", 12), scale=[1.2, 1, 0.9]),
    node(
        "Table",
        node("Legs", *[node("Leg" + name, mesh="TableLeg", translation=[x, 0, z])
                       for name, x, z in (("FrontLeft", -0.7, 0.35), ("FrontRight", 0.7, 0.35),
                                          ("BackLeft", -0.7, -0.35), ("BackRight", 0.7, -0.35))]),
        node("Vase",
             node("Flower", mesh="FlowerStem", translation=[0, 0.2, 0], rotation=turn("z", -14)),
             mesh="VaseBody", translation=[0.3, 0.74, -0.1], scale=[1, 1.25, 1],
             extras={"pickId": 4000000000, "comment": "a gift", "maker": "unknown"}),
        node("Book", mesh="BookBlock", translation=[-0.35, 0.74, 0.1], rotation=turn("y", 25)),
        mesh="TableTop", translation=[0.2, 0.01, 0.3],
        extras={"layer": 2, "lodBias": -3, "renderOrder": -200, "stencilReference": 7, "pickId": 17, "sortKey": -70000,
                "userFlags": 4294967301, "revision": 12, "opacity": 0.75, "timeOffset": 2.5, "locked": False,
                "comment": "oiled walnut"}),
    node("Chair",
         node("Seat", mesh="SeatPlate"),
         node("Backrest", mesh="BackPlate", translation=[0, 0.47, -0.2], rotation=turn("x", -8)),
         node("ChairLegs", mesh="ChairLegBars"),
         translation=[0.1, 0.01, 1.1], rotation=turn("y", 205), extras={"layer": 2, "lodBias": 1}),
    node("Lamp",
         node("LampPole", mesh="PoleRod"),
         node("LampShade", mesh="ShadeCone", translation=[0, 1.35, 0]),
         node("LampBulb", light="BulbLight", translation=[0, 1.45, 0]),
         translation=[-1.9, 0, -1.4], scale=[1.1, 1.1, 1.1], extras={"layer": 3}),
    node("CeilingSpot", light="SpotLight", translation=[1, 2.55, -1.2], rotation=turn("x", -75)),
    node("Sun", light="SunLight", rotation=turn("x", -50)),
    node("Camera", camera="View", translation=[0, 1.6, 4.5], rotation=turn("x", -8)),
    extras={"layer": 0, "comment": "demo"})


# -------------------------------------------------------------------------------------------------------------- glTF


def rounded(values):
    return [round(value, 6) + 0.0 for value in values]


class Document:
    """Collects the parts of the glTF document and its binary buffer."""

    def __init__(self):
        self.binary = bytearray()
        self.views, self.accessors, self.nodes = [], [], []

    def accessor(self, rows, component, kind, target):
        code = {FLOAT: "f", USHORT: "H"}[component]
        data = b"".join(struct.pack("<%d%s" % (len(row), code), *row) for row in rows)
        self.views.append({"buffer": 0, "byteOffset": len(self.binary), "byteLength": len(data), "target": target})
        self.binary += data + b"\0" * (-len(data) % 4)
        accessor = {"bufferView": len(self.views) - 1, "componentType": component, "count": len(rows), "type": kind}
        if kind == "VEC3":
            stored = [struct.unpack("<3f", data[i:i + 12]) for i in range(0, len(data), 12)]
            accessor["min"] = [min(column) for column in zip(*stored)]
            accessor["max"] = [max(column) for column in zip(*stored)]
        self.accessors.append(accessor)
        return len(self.accessors) - 1

    def mesh(self, name, material, mesh):
        def vectors(rows, kind):
            return self.accessor([rounded(row) for row in rows], FLOAT, kind, ARRAY_BUFFER)

        attributes = {"POSITION": vectors(mesh.positions, "VEC3"), "NORMAL": vectors(mesh.normals, "VEC3"),
                      "TEXCOORD_0": vectors(mesh.coordinates, "VEC2")}
        indices = self.accessor([(i,) for i in mesh.indices], USHORT, "SCALAR", ELEMENT_ARRAY_BUFFER)
        return {"name": name, "primitives": [{"attributes": attributes, "indices": indices, "material": material}]}

    def add_node(self, tree):
        result = {"name": tree["name"]}
        index = len(self.nodes)
        self.nodes.append(result)
        for key in ("translation", "rotation", "scale"):
            if key in tree:
                result[key] = rounded(tree[key])
        if "mesh" in tree:
            result["mesh"] = list(MESHES).index(tree["mesh"])
        if "camera" in tree:
            result["camera"] = 0
        if "light" in tree:
            light = [entry["name"] for entry in LIGHTS].index(tree["light"])
            result["extensions"] = {"KHR_lights_punctual": {"light": light}}
        if "extras" in tree:
            result["extras"] = tree["extras"]
        if tree["children"]:
            result["children"] = [self.add_node(child) for child in tree["children"]]
        return index


def material(entry):
    surface = {"baseColorFactor": entry["color"], "metallicFactor": entry["metallic"],
               "roughnessFactor": entry["roughness"]}
    if "texture" in entry:
        surface["baseColorTexture"] = {"index": [name for name, *_ in TEXTURES].index(entry["texture"])}
        if "mapping" in entry:
            surface["baseColorTexture"]["extensions"] = {"KHR_texture_transform": entry["mapping"]}
    result = {"name": entry["name"], "pbrMetallicRoughness": surface}
    if "emissive" in entry:
        result["emissiveFactor"] = entry["emissive"]
    if entry["color"][3] < 1:
        result["alphaMode"] = "BLEND"
    return result


def write(folder):
    document = Document()
    names = [entry["name"] for entry in MATERIALS]
    meshes = [document.mesh(name, names.index(surface), mesh) for name, (surface, mesh) in MESHES.items()]
    root = document.add_node(ROOM)
    gltf = {
        "asset": {"version": "2.0", "generator": "make_room.py"},
        "extensionsUsed": ["KHR_lights_punctual", "KHR_texture_transform"],
        "extensions": {"KHR_lights_punctual": {"lights": LIGHTS}},
        "scene": 0,
        "scenes": [{"name": "Demo", "nodes": [root]}],
        "nodes": document.nodes,
        "cameras": [{"name": "View", "type": "perspective",
                     "perspective": {"yfov": 0.8, "aspectRatio": 1.5, "znear": 0.05, "zfar": 50}}],
        "meshes": meshes,
        "materials": [material(entry) for entry in MATERIALS],
        "textures": [{"name": name, "sampler": 0, "source": i} for i, (name, *_) in enumerate(TEXTURES)],
        "images": [{"name": name, "uri": name + ".png"} for name, *_ in TEXTURES],
        "samplers": [{"magFilter": LINEAR, "minFilter": LINEAR_MIPMAP_LINEAR, "wrapS": REPEAT, "wrapT": REPEAT}],
        "accessors": document.accessors,
        "bufferViews": document.views,
        "buffers": [{"uri": "room.bin", "byteLength": len(document.binary)}],
    }
    (folder / "room.gltf").write_text(json.dumps(gltf, indent=1) + "\n", encoding="utf-8", newline="\n")
    (folder / "room.bin").write_bytes(bytes(document.binary))
    for name, width, height, pixel in TEXTURES:
        (folder / (name + ".png")).write_bytes(png(width, height, pixel))


if __name__ == "__main__":
    write(Path(sys.argv[1]) if len(sys.argv) > 1 else Path(__file__).resolve().parent)
