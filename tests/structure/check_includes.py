#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Holds the include lines of the sources against the plan of the house.

usage: check_includes.py ROOT COMPILER [FLAG...]

Every room below may include itself and the rooms that it names, nothing else; no header includes itself through others;
no two headers have one name. ksundo.h includes all that is public. What a detail folder holds is for the library alone:
ksundo.h includes none of it directly, and a public header only what it does not compile without, which COMPILER with its
FLAGs tells.
Prints each fault with its file and exits with 1 when there is one.
"""
import concurrent.futures
import os
import pathlib
import re
import subprocess
import sys
import tempfile

OPENSG = ["platform/opensg"]
EXTENSION = OPENSG + ["platform/extension"]
PLATFORM = EXTENSION + ["platform/application"]
CORE = PLATFORM + ["ksundo/core"]
LIBRARY_FOLDERS = ["constraint", "core", "field", "light", "material", "tag", "transform"]
LIBRARY = PLATFORM + ["ksundo"] + [f"ksundo/{folder}" for folder in LIBRARY_FOLDERS]
SCENE = LIBRARY + ["editor", "editor/scene"]
EDITS = SCENE + ["editor/edits", "editor/history"]
EDITOR = EDITS + ["editor/import", "editor/export", "editor/script", "editor/session"]
DOCUMENT = EDITOR + ["editor/document"]

ROOMS = {
    "platform/opensg": [],
    "platform/extension": OPENSG,
    "platform/application": EXTENSION,
    "ksundo/core": PLATFORM,
    "ksundo/field": CORE,
    "ksundo/transform": CORE,
    "ksundo/tag": CORE,
    "ksundo/constraint": CORE,
    "ksundo/material": CORE + ["ksundo/field"],
    "ksundo/light": CORE + ["ksundo/transform"],
    "ksundo": LIBRARY,
    "editor": ["editor/session", "editor/window"],
    "editor/scene": LIBRARY + ["editor"],
    "editor/edits": SCENE,
    "editor/history": SCENE,
    "editor/import": EDITS + ["editor/export"],
    "editor/export": SCENE,
    "editor/script": EDITS + ["editor/export", "editor/import"],
    "editor/session": EDITOR,
    "editor/document": EDITOR,
    "editor/viewport": DOCUMENT,
    "editor/inspector": DOCUMENT,
    "editor/window": DOCUMENT + ["editor/viewport", "editor/inspector"],
    "checker": ["checker/session"],
    "checker/history": EDITOR,
    "checker/tour": EDITOR + ["checker/history"],
    "checker/session": EDITOR + ["checker/history", "checker/tour"],
}
# Nobody's include lines lead into these; their headers need names of their own all the same.
OUTSIDE = ["tests", "benchmarks"]

INCLUDE_LINE = re.compile(r'^[ \t]*#[ \t]*include[ \t]*[<"]([^>"]+)[>"].*\n', re.MULTILINE)
# The header of a class in the list of commands.
COMMAND_ROW = re.compile(r"^\| `[^`]+` \| `([^`]+)` \|", re.MULTILINE)


def room_of(path):
    """The innermost room around a file; None when it lies in a folder that the plan does not know."""
    folders = path.parts[:-1]
    room = "/".join(folders[:2])
    return room if room in ROOMS else None


def is_detail(path):
    return "detail" in path.parts


def is_public(path):
    return path.suffix == ".h" and path.parts[0] == "ksundo" and not is_detail(path)


class Tree:
    """The sources of a checkout and where their include lines lead, by paths relative to its root."""

    def __init__(self, root):
        self.root = root
        top_folders = sorted({room.split("/")[0] for room in ROOMS} | set(OUTSIDE))
        files = [
            path.relative_to(root)
            for folder in top_folders
            for path in sorted((root / folder).rglob("*"))
            if path.suffix in (".h", ".cpp")
        ]
        self.headers_by_name = {}
        for path in files:
            if path.suffix == ".h":
                self.headers_by_name.setdefault(path.name, []).append(path)
        self.includes = {path: self.included_by(path) for path in files if path.parts[0] not in OUTSIDE}

    def included_by(self, path):
        """The headers of the tree that a file includes, each with the include line."""
        lines = INCLUDE_LINE.finditer((self.root / path).read_text())
        return [(header, line) for line in lines for header in self.headers_meant(path, line[1])]

    def headers_meant(self, path, written):
        """None for a header from elsewhere. Include paths differ between targets, so it is the name that counts."""
        beside = pathlib.Path(os.path.normpath(path.parent / written))
        named = self.headers_by_name.get(beside.name, [])
        if beside in named:
            return [beside]
        return [header for header in named if len(named) == 1 and header.match(written)]


def name_faults(tree):
    for name, paths in sorted(tree.headers_by_name.items()):
        if len(paths) > 1:
            yield f"{name}: one name for {', '.join(map(str, paths))}"


def plan_faults(tree):
    for path, included in tree.includes.items():
        room = room_of(path)
        if room is None:
            yield f"{path}: lies in no room of the plan"
            continue
        for header, _ in included:
            target = room_of(header)
            if target != room and target not in ROOMS[room]:
                yield f"{path}: {room} may not include {header}"
            elif is_detail(header) and not room.startswith("ksundo"):
                yield f"{path}: {header} is for the library alone"
            elif is_detail(header) and room == "ksundo":
                yield f"{path}: includes {header} directly"


def public_faults(tree):
    """What ksundo.h includes by itself, and through the header that the build makes from the list of commands."""
    everything = pathlib.Path("ksundo/ksundo.h")
    commands = (tree.root / "docs/commands.md").read_text()
    reached = {everything} | {pathlib.Path("ksundo") / header for header in COMMAND_ROW.findall(commands)}
    unread = list(reached)
    while unread:
        included = {header for header, _ in tree.includes.get(unread.pop(), [])} - reached
        reached |= included
        unread += included
    for path in tree.includes:
        if is_public(path) and path not in reached:
            yield f"{everything}: does not include {path}"


def circle_faults(tree):
    """One circle for each include line that closes one."""
    finished = set()
    trail = []

    def visit(path):
        trail.append(path)
        for header, _ in tree.includes.get(path, []):
            if header in trail:
                circle = trail[trail.index(header) :] + [header]
                yield f"{header}: includes itself: {' -> '.join(map(str, circle))}"
            elif header not in finished:
                yield from visit(header)
        trail.pop()
        finished.add(path)

    for path in tree.includes:
        if path not in finished:
            yield from visit(path)


class Compiler:
    def __init__(self, command):
        self.command = command

    def accepts(self, text):
        """Whether a header of this text compiles on its own."""
        with tempfile.NamedTemporaryFile("w", suffix=".cpp") as source:
            source.write(text.replace("#pragma once", ""))
            source.flush()
            run = subprocess.run(
                self.command + ["-fsyntax-only", source.name], stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL
            )
            return run.returncode == 0


def detail_faults(tree, compiler):
    """Tries the public headers that include details, once as they are and once without each of these lines."""
    tries = []
    for path, included in tree.includes.items():
        details = [(header, line) for header, line in included if is_detail(header)]
        if not is_public(path) or not details:
            continue
        text = (tree.root / path).read_text()
        tries.append((text, False, f"{path}: does not compile on its own"))
        for header, line in details:
            without = text[: line.start()] + text[line.end() :]
            tries.append((without, True, f"{path}: does not need {header}"))
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        accepted = pool.map(compiler.accepts, [text for text, _, _ in tries])
        for compiles, (_, fault_when, fault) in zip(accepted, tries):
            if compiles == fault_when:
                yield fault


def main():
    root, *command = sys.argv[1:]
    tree = Tree(pathlib.Path(root))
    if not tree.includes:
        sys.exit(f"{root}: there are no sources")
    faults = [
        *name_faults(tree),
        *plan_faults(tree),
        *public_faults(tree),
        *circle_faults(tree),
        *detail_faults(tree, Compiler(command)),
    ]
    print(*faults, sep="\n")
    print(f"{len(tree.includes)} files, {len(faults)} faults")
    sys.exit(1 if faults else 0)


if __name__ == "__main__":
    main()
