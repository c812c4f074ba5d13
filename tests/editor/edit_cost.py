#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Expects that a scripted edit costs what it changes and not what the scene holds.

usage: edit_cost.py EDITOR

Counts the instructions of edits of one node among few and among many, and fails when they differ by more than a quarter.
"""
import json
import pathlib
import re
import subprocess
import sys
import tempfile

FEW, MANY = 1000, 50000
EDITS = 25
TOLERANCE = 0.25
SCRIPT = """
var node = scene.find("Node"), own = node.attachment("ksNodeSettings"), places = [scene.find("Left"), scene.find("Right")];
for (var i = 1; i <= Number(args[0]); ++i) {
    own.set("layer", i % 200);
    node.translate([i, 0, 0]);
    history.undo();
    node.name = "Name " + i;
    node.tags.add("tag");
    node.tags.remove("tag");
    node.moveTo(places[i % 2]);
    scene.find(node.name);
}
"""


def instructions(editor, model, script, edits):
    """What a run of the editor takes that makes so many edits."""
    run = subprocess.run(
        ["valgrind", "--tool=callgrind", "--callgrind-out-file=/dev/null", editor, "--headless", model]
        + ["--script", script, "--", str(edits)],
        stdout=subprocess.DEVNULL,
        stderr=subprocess.PIPE,
        text=True,
    )
    collected = re.search(r"Collected : (\d+)", run.stderr)
    if run.returncode != 0 or collected is None:
        sys.exit(run.stderr)
    return int(collected[1])


def cost_of_an_edit(editor, folder, count):
    nodes = [{"name": "Root", "children": [1, 2, *range(4, count)]}, {"name": "Left", "children": [3]}, {"name": "Right"}]
    nodes += [{"name": "Node"}] + [{"name": f"Node {i}"} for i in range(4, count)]
    model = folder / "model.gltf"
    model.write_text(json.dumps({"asset": {"version": "2.0"}, "nodes": nodes, "scenes": [{"nodes": [0]}], "scene": 0}))
    script = folder / "edits.js"
    script.write_text(SCRIPT)
    # What it costs to open the model, and to compile what the script calls, is in both.
    base = instructions(editor, model, script, EDITS)
    return (instructions(editor, model, script, 3 * EDITS) - base) / (2 * EDITS)


def main():
    with tempfile.TemporaryDirectory() as name:
        few, many = (cost_of_an_edit(sys.argv[1], pathlib.Path(name), count) for count in (FEW, MANY))
    print(f"instructions of six edits and an undo: {few:.0f} among {FEW} nodes, {many:.0f} among {MANY}")
    sys.exit(0 if abs(many - few) <= TOLERANCE * few else 1)


if __name__ == "__main__":
    main()
