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
SQL = re.compile(r'u?"\s*(select .* from|insert into|update \w+ set|delete from|create table|drop table)\b', re.I)
WINDOW = re.compile(r"^(frm_|list_page|detail_panel|entry_ground|chart_panel|login_hero|windows)|^shell/controls/")


def includes(text):
    return re.findall(r'^\s*#\s*include\s*[<"]([^>"]+)[>"]', text, re.M)


def check(root, path):
    rel = path.relative_to(root).as_posix()
    room = rel.split("/")[0]
    text = path.read_text(encoding="utf-8")
    code = re.sub(r"//[^\n]*", "", text)
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
    if (WINDOW.match(path.name) or WINDOW.match(rel)) and SQL.search(code):
        yield "a window builds a statement"
    if rel not in ("shell/job_yield.cpp",) and "processEvents" in code:
        yield "processEvents outside the job's yield"


def main():
    root = pathlib.Path(sys.argv[1]).resolve()
    faults = 0
    for path in sorted(root.glob("*/**/*")):
        room = path.relative_to(root).parts[0]
        if path.suffix not in (".cpp", ".h") or room.startswith("build"):
            continue
        if room not in FLOOR_OF:
            print(f"{path.relative_to(root)}: no floor for this folder")
            faults += 1
            continue
        for fault in check(root, path):
            print(f"{path.relative_to(root)}: {fault}")
            faults += 1
    sys.exit(1 if faults else 0)


if __name__ == "__main__":
    main()
