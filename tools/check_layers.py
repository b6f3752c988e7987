#!/usr/bin/env python3
"""Holds every #include and a few words against the plan of the house (docs/architecture.md)."""
import pathlib
import re
import sys

FLOORS = [
    {"store"},
    {"shell"},
    {"output"},
    {"chart", "web", "pictures"},
    {"ledger", "stats", "notes", "books"},
    {"app"},
    {"agent", "tools", "tests", "data"},
]
FLOOR_OF = {room: floor for floor, rooms in enumerate(FLOORS) for room in rooms}
TOP = len(FLOORS) - 1
UMBRELLAS = {"QtCore", "QtGui", "QtWidgets", "QtNetwork", "QtSvg", "QtPrintSupport", "QtTest", "QtConcurrent"}
SQL = re.compile(r'u?"\s*(select\b.*\bfrom|insert\s+into|update\s+\w+\s+set|delete\s+from|create\s+table|drop\s+table)\b', re.I)
UI_SOURCES = re.compile(r"target_sources\(\s*ui\b([^)]*)\)")


def includes(text):
    return re.findall(r'^\s*#\s*include\s*[<"]([^>"]+)[>"]', text, re.M)


def without_comments(text):
    return re.sub(r"//[^\n]*|/\*.*?\*/", "", text, flags=re.S)


def joined(code):
    """Literals that stand side by side are one text: a statement may be broken over lines."""
    return re.sub(r'"(_s)?\s*(\+\s*)?u?"', "", code)


def windows(root):
    """The sources of ui, as the build lists them, and their headers."""
    found = set()
    for lists in root.glob("*/**/CMakeLists.txt"):
        if lists.relative_to(root).parts[0].startswith("build"):
            continue
        for block in UI_SOURCES.findall(lists.read_text(encoding="utf-8")):
            for name in re.findall(r"[\w/]+\.cpp", block):
                path = (lists.parent / name).relative_to(root)
                found |= {path.as_posix(), path.with_suffix(".h").as_posix()}
    return found


def check(root, path, ui):
    rel = path.relative_to(root).as_posix()
    room = rel.split("/")[0]
    text = path.read_text(encoding="utf-8")
    code = without_comments(text)
    for name in includes(text):
        target = name.split("/")[0]
        if name in UMBRELLAS:
            yield f"umbrella include <{name}>"
        if target in FLOOR_OF and target != room and FLOOR_OF[target] >= FLOOR_OF[room] and FLOOR_OF[room] < TOP:
            yield f"{room} may not look at {name}"
        if room == "shell" and re.match(r"(?!shell/).*frm_", name):
            yield f"the shell knows no foreign window: {name}"
        if name == "sqlite3.h" and not rel.startswith("store/connection") and FLOOR_OF[room] < TOP:
            yield "sqlite3 belongs to store/connection alone"
    if FLOOR_OF[room] >= TOP:
        return
    if not rel.startswith("store/connection") and re.search(r"\bthrow\b", code):
        yield "throw belongs to store/connection alone"
    may_catch = rel.startswith(("store/connection", "store/errors")) or rel == "app/main.cpp"
    if not may_catch and re.search(r"\btry\s*\{", code):
        yield "try is not for this file"
    if rel in ui and SQL.search(joined(code)):
        yield "a window builds a statement"
    if rel != "shell/job_yield.cpp" and "processEvents" in code:
        yield "processEvents outside the job's yield"


def rings(graph):
    """Each ring of includes once, as the files from one to itself again."""
    state = {}

    def walk(file, trail):
        state[file] = "open"
        for other in sorted(graph.get(file, ())):
            if state.get(other) == "open":
                yield trail[trail.index(other):] + [other]
            elif other not in state:
                yield from walk(other, trail + [other])
        state[file] = "done"

    for file in sorted(graph):
        if file not in state:
            yield from walk(file, [file])


def stem(path):
    return path.with_suffix("").as_posix().replace("/kestro_", "/")


def modules(root, files):
    """What each module includes of the others; the tests see everything. A module is a header with its source, and the
    parts that go on with its name and that nobody else includes: connection, connection_core."""
    wanted = {}
    for file in files:
        name = stem(file.relative_to(root))
        if not name.startswith("tests/"):
            found = {stem(pathlib.PurePosixPath(i)) for i in includes(file.read_text(encoding="utf-8"))}
            wanted.setdefault(name, set()).update(found - {name})

    def owner(name):
        wholes = [whole for whole in wanted if name.startswith(whole + "_")]
        users = [user for user, found in wanted.items() if name in found]
        for whole in sorted(wholes, key=len):
            if all(user == whole or user.startswith(whole + "_") for user in users):
                return whole
        return name

    owners = {name: owner(name) for name in wanted}
    graph = {}
    for name, found in wanted.items():
        graph.setdefault(owners[name], set()).update({owners[f] for f in found if f in owners} - {owners[name]})
    return graph


def main():
    root = pathlib.Path(sys.argv[1]).resolve()
    ui = windows(root)
    faults = []
    files = []
    for path in sorted(root.glob("*/**/*")):
        room = path.relative_to(root).parts[0]
        if path.suffix not in (".cpp", ".h") or room.startswith("build"):
            continue
        if room not in FLOOR_OF:
            faults.append(f"{path.relative_to(root)}: no floor for this folder")
            continue
        files.append(path)
        faults += [f"{path.relative_to(root)}: {fault}" for fault in check(root, path, ui)]
    faults += ["a ring of includes: " + " > ".join(ring) for ring in rings(modules(root, files))]
    for fault in faults:
        print(fault)
    sys.exit(1 if faults else 0)


if __name__ == "__main__":
    main()
