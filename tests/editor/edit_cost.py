#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Expects that an edit costs what it changes and not what the scene holds: one of a script, or one in the window.

usage: edit_cost.py script EDITOR
       edit_cost.py window WINDOW_COST

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


def instructions(program, arguments, options=()):
    """What a run of the program takes."""
    run = subprocess.run(
        ["valgrind", "--tool=callgrind", "--callgrind-out-file=/dev/null", *options, program, *arguments],
        stdout=subprocess.DEVNULL,
        stderr=subprocess.PIPE,
        text=True,
    )
    collected = re.search(r"Collected : (\d+)", run.stderr)
    if run.returncode != 0 or collected is None:
        sys.exit(run.stderr)
    return int(collected[1])


def cost_of_a_scripted_edit(editor, folder, model):
    script = folder / "edits.js"
    script.write_text(SCRIPT)
    few, many = (
        instructions(editor, ["--headless", model, "--script", script, "--", str(edits)]) for edits in (EDITS, 3 * EDITS)
    )
    # What it costs to open the model, and to compile what the script calls, is in both.
    return (many - few) / (2 * EDITS)


def cost_of_an_edit_in_the_window(program, _, model):
    # Of the window, everything but painting is in the function that is counted.
    return instructions(program, [model, "Node", str(EDITS)], ["--toggle-collect=ksWindowCostEdit*"]) / EDITS


def cost_of_an_edit(folder, count):
    nodes = [{"name": "Root", "children": [1, 2, *range(4, count)]}, {"name": "Left", "children": [3]}, {"name": "Right"}]
    nodes += [{"name": "Node"}] + [{"name": f"Node {i}"} for i in range(4, count)]
    model = folder / "model.gltf"
    model.write_text(json.dumps({"asset": {"version": "2.0"}, "nodes": nodes, "scenes": [{"nodes": [0]}], "scene": 0}))
    measure = {"script": cost_of_a_scripted_edit, "window": cost_of_an_edit_in_the_window}[sys.argv[1]]
    return measure(sys.argv[2], folder, model)


def main():
    with tempfile.TemporaryDirectory() as name:
        few, many = (cost_of_an_edit(pathlib.Path(name), count) for count in (FEW, MANY))
    print(f"instructions of a few edits: {few:.0f} among {FEW} nodes, {many:.0f} among {MANY}")
    if few == 0:
        sys.exit("nothing was counted")
    sys.exit(0 if abs(many - few) <= TOLERANCE * few else 1)


if __name__ == "__main__":
    main()
