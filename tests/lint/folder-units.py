#!/usr/bin/env python3
"""Writes a compilation database in which every folder's sources are one unit, and prints the units.

An analyser spends nearly all its time on Qt's headers, and so reads them once a folder. The price: within a folder,
names of unnamed namespaces must differ.

    folder-units.py BUILD_DIRECTORY OUT_DIRECTORY SOURCE...
"""
import json
import pathlib
import sys

build, out = (pathlib.Path(argument).resolve() for argument in sys.argv[1:3])
commands = {entry["file"]: entry for entry in json.loads((build / "compile_commands.json").read_text())}
folders = {}
for source in sys.argv[3:]:
    path = pathlib.Path(source).resolve()
    folders.setdefault(path.parent, []).append(path)

out.mkdir(parents=True, exist_ok=True)
units = []
for folder, sources in folders.items():
    unit = out / ("-".join(folder.relative_to(pathlib.Path.cwd()).parts) + ".cpp")
    unit.write_text("".join(f'#include "{source}" // NOLINT(bugprone-suspicious-include)\n' for source in sources))
    compiled = commands[str(sources[0])]
    units.append(compiled | {"file": str(unit), "command": compiled["command"].replace(compiled["file"], str(unit))})
(out / "compile_commands.json").write_text(json.dumps(units, indent=1))
print(*(unit["file"] for unit in units), sep="\n")
