#!/usr/bin/env python3
"""What each library of a room links, held against what its files include:
  LinksTest.py SOURCES

PUBLIC are those whose headers its own headers include, so that who links it finds them too; PRIVATE are those that only
its .cpp files include. Nothing is linked that no file uses.
"""
import re, sys
from pathlib import Path

SOURCES = Path(sys.argv[1])
SECTIONS = ("logic_links", "logic", "files", "windows_links", "windows")


class Library:
    def __init__(self, name, room, links, files, own):
        self.name, self.room, self.own = name, room, own
        self.public, self.private = links_of(links)
        self.files = [f"{room}/{name}" for name in files if "." in name]

    def headers(self):
        return [path for path in self.files if path.endswith(".h")]


def links_of(words):
    kinds = {"PUBLIC": [], "PRIVATE": []}
    kind = None
    for word in words:
        if word in kinds:
            kind = word
        else:
            kinds[kind].append(word)
    return kinds["PUBLIC"], kinds["PRIVATE"]


def libraries_of(path):
    """Those that a room's orvane_room(...) makes."""
    text = re.sub(r"#.*", "", path.read_text())
    room, *words = re.search(r"orvane_room\(([^)]*)\)", text)[1].split()
    parts, section = {name: [] for name in SECTIONS}, None
    for word in words:
        if word in parts:
            section = word
        else:
            parts[section].append(word)
    logic = Library(f"orvane_{room}", room, parts["logic_links"], parts["logic"] + parts["files"], [])
    windows = Library(f"orvane_{room}_windows", room, parts["windows_links"], parts["windows"], [logic.name])
    return [logic, windows] if windows.files else [logic]


LIBRARIES = {library.name: library for path in sorted(SOURCES.glob("*/CMakeLists.txt")) for library in libraries_of(path)}
OWNER = {header: library.name for library in LIBRARIES.values() for header in library.headers()}


def found_by_linking(names):
    """All whose headers are found by who links these."""
    found = set()
    waiting = list(names)
    while waiting:
        name = waiting.pop()
        if name in found or name not in LIBRARIES:
            continue
        found.add(name)
        waiting += LIBRARIES[name].public + LIBRARIES[name].own
    return found


def used_by(library, files):
    """The other libraries whose headers these files include, each with one such file."""
    used = {}
    for path in files:
        for header in re.findall(r'^#include "([^"]+)"', (SOURCES / path).read_text(), re.M):
            owner = OWNER.get(header)
            if owner is not None and owner != library.name and owner not in library.own:
                used[owner] = path
    return used


complaints = []
for library in LIBRARIES.values():
    by_headers = used_by(library, library.headers())
    by_all = used_by(library, library.files)
    public = found_by_linking(library.public + library.own)
    for owner in sorted(set(by_headers) - public):
        complaints.append(f"{library.name}: {by_headers[owner]} needs {owner}, which is not PUBLIC")
    for owner in sorted(set(by_all) - public - found_by_linking(library.private)):
        complaints.append(f"{library.name}: {by_all[owner]} needs {owner}, which is not linked")
    for name in library.public:
        if name in LIBRARIES and name not in by_headers:
            complaints.append(f"{library.name}: no header needs {name}, which is PUBLIC")
    for name in library.private:
        if name in LIBRARIES and name not in by_all:
            complaints.append(f"{library.name}: no file needs {name}")

if len(LIBRARIES) < 20:
    complaints.append(f"only {len(LIBRARIES)} libraries are found")
print("\n".join(complaints) or f"{len(LIBRARIES)} libraries link what they use.")
sys.exit(1 if complaints else 0)
