#!/usr/bin/env python3
"""Plants single changes in the sources, one at a time, and tells which of them the tests do not see.

    mutate.py [--sample N [--seed S]] BUILD_DIRECTORY [FILE...]

FILE is a source of common/, kit/, managers/ or plugin/; all of them unless told. A change counts as caught when one of
the tests beside those folders fails or does not end; what the compiler refuses does not count at all. Changes that no
test could see stand with the reason in equivalent.txt. Exit: 0 when at least 97 % were caught.

The tree must be built. It is not touched: each change is made in a layer that lies over it for one process only. Leave
it alone, too, until the end.
"""

import argparse
import collections
import concurrent.futures
import dataclasses
import json
import os
import pathlib
import random
import subprocess
import sys
import tempfile

from changes import changes_of
from planting import CAUGHT, REFUSED, SURVIVED, Test

GOAL = 97
FOLDERS = ("common", "kit", "managers", "plugin")
# Whose tests are run. Those of the tools reach the same code, much later.
TESTED = ("fuzz", "tests/common", "tests/contract", "tests/kit", "tests/managers", "tests/plugin", "tests/stress")


def tests_of(build):
    """The tests of the built tree."""
    listed = subprocess.run(["ctest", "--test-dir", build, "--show-only=json-v1"], stdout=subprocess.PIPE, check=True)
    tests = []
    for entry in json.loads(listed.stdout)["tests"]:
        properties = {item["name"]: item["value"] for item in entry["properties"]}
        folder = pathlib.Path(properties["WORKING_DIRECTORY"])
        is_near = any(folder.is_relative_to(build / name) for name in TESTED)
        labels = properties.get("LABELS", [])
        # A lock that is missing is seen by the race checkers; the rest of what takes minutes sees nothing more.
        if not is_near or ("prove" in labels and "stress" not in labels) or entry["name"].startswith("PlantedRace"):
            continue
        if "command" not in entry:
            sys.exit(f"mutate: {entry['name']} is not built")
        programs = [word for word in entry["command"] if word.startswith(f"{build}/bin/")]
        if programs:  # or it looks at how the files were linked
            environment = dict(setting.split("=", 1) for setting in properties.get("ENVIRONMENT", []))
            tests.append(Test(entry["name"], entry["command"], str(folder), environment, pathlib.Path(programs[0]).name))
    return tests


def equivalents(text):
    """The changes that no test can see, as (file, before, after): paragraphs of a file's path, a line after "- ", one
    after "+ ", and the reason."""
    found = set()
    for paragraph in text.split("\n\n"):
        lines = [line for line in paragraph.splitlines() if line and not line.startswith("#")]
        if not lines:
            continue
        if len(lines) < 4 or not lines[1].startswith("- ") or not lines[2].startswith("+ "):
            sys.exit(f"mutate: equivalent.txt: not a path, a line before, a line after and a reason:\n{paragraph}")
        found.add((lines[0], lines[1][2:], lines[2][2:]))
    return found


def in_layer(source, layer, command):
    """The command, run in a layer over the tree, which keeps in the directory layer what is written."""
    mount = 'mount -t overlay overlay -o "lowerdir=$1,upperdir=$2/new,workdir=$2/work" "$1" && cd "$1" && shift 2 && exec "$@"'
    mounted = ["sh", "-c", mount, "sh", source, layer]
    if os.geteuid() == 0:
        return ["unshare", "--mount", *mounted, *command]
    # Root of a namespace may mount; the tests are to see the user that they always see.
    oneself = ["unshare", "--user", f"--map-user={os.geteuid()}", f"--map-group={os.getegid()}"]
    return ["unshare", "--user", "--map-root-user", "--mount", *mounted, *oneself, *command]


def try_all(source, build, tests, changes):
    """Yields what became of each of the changes (file, change): file, change, outcome and the test that caught it."""
    with tempfile.TemporaryDirectory(prefix="mutate-", dir="/var/tmp") as layer:
        for name in ("new", "work"):
            os.mkdir(f"{layer}/{name}")
        planting = pathlib.Path(__file__).with_name("planting.py")
        with subprocess.Popen(
            in_layer(source, layer, [sys.executable, planting]), stdin=subprocess.PIPE, stdout=subprocess.PIPE, text=True
        ) as process:
            job = {
                "build": str(build),
                "tests": [dataclasses.asdict(test) for test in tests],
                "changes": [[str(file), change.start, change.end, change.replacement] for file, change in changes],
            }
            process.stdin.write(json.dumps(job))
            process.stdin.close()
            for (file, change), line in zip(changes, process.stdout):
                outcome, test = json.loads(line)
                yield file, change, outcome, test
            if process.wait() != 0:
                sys.exit("mutate: the changes could not be tried in a layer over the tree")


def report(results, left_out):
    """Prints who has survived, and the shares; whether the goal is met."""
    survivors = [(file, change) for file, change, outcome, _ in results if outcome == SURVIVED]
    print(f"\n{len(survivors)} changes that no test has seen:")
    for file, change in sorted(survivors, key=lambda entry: (entry[0], entry[1].start)):
        print(f"{file}:{change.line}\n    - {change.before}\n    + {change.after}")
    outcomes = collections.defaultdict(collections.Counter)
    for file, _, outcome, _ in results:
        for row in (file.parts[0], "together"):
            outcomes[row][outcome] += 1
    print(f"\n{'folder':10} {CAUGHT:>8} {SURVIVED:>9} {'share':>8} {REFUSED:>9}")
    for folder, counts in sorted(outcomes.items(), key=lambda row: (row[0] == "together", row[0])):
        share = 100 * counts[CAUGHT] / max(counts[CAUGHT] + counts[SURVIVED], 1)
        print(f"{folder:10} {counts[CAUGHT]:8} {counts[SURVIVED]:9} {share:6.1f} % {counts[REFUSED]:9}")
    print(f"{left_out} more are known to be equivalent")
    total = outcomes["together"]
    return 100 * total[CAUGHT] >= GOAL * (total[CAUGHT] + total[SURVIVED])


def arguments_of(command_line):
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("build", type=pathlib.Path, metavar="BUILD_DIRECTORY")
    parser.add_argument("files", nargs="*", type=pathlib.Path, metavar="FILE", help="a source; all unless told")
    parser.add_argument("--sample", type=int, metavar="N", help="no more than N changes, drawn by lot")
    parser.add_argument("--seed", type=int, default=1, metavar="S", help="of the lot, 1 unless told")
    return parser.parse_intermixed_args(command_line)


def main(command_line):
    arguments = arguments_of(command_line)
    source, build = pathlib.Path.cwd(), arguments.build.resolve()
    tracked = subprocess.run(["git", "ls-files", *FOLDERS], stdout=subprocess.PIPE, check=True, text=True).stdout
    sources = [file for file in map(pathlib.Path, tracked.splitlines()) if file.suffix in (".h", ".cpp")]
    for file in arguments.files:
        if file not in sources:
            sys.exit(f"mutate: {file}: not a source of {', '.join(FOLDERS)}")
    everything = [(file, change) for file in arguments.files or sources for change in changes_of(file.read_text())]

    known = equivalents((source / "tests/mutate/equivalent.txt").read_text())
    key = lambda entry: (str(entry[0]), entry[1].before, entry[1].after)
    changes = [entry for entry in everything if key(entry) not in known]
    left_out = len(everything) - len(changes)
    looked_at = {entry for entry in known if not arguments.files or pathlib.Path(entry[0]) in arguments.files}
    stale = looked_at - set(map(key, everything))
    for file, before, after in sorted(stale):
        print(f"mutate: equivalent.txt: there is no such change in {file}: {before} -> {after}")
    if arguments.sample is not None and arguments.sample < len(changes):
        picked = random.Random(arguments.seed).sample(range(len(changes)), arguments.sample)
        changes = [changes[place] for place in sorted(picked)]

    print(f"mutate: {len(changes)} changes to try, after the tests as they are", flush=True)
    tests = tests_of(build)
    results = []

    def take(part):
        for file, change, outcome, test in try_all(source, build, tests, part):
            results.append((file, change, outcome, test))
            by = f" by {test}" if test else ""
            print(f"{file}:{change.line}: {outcome}{by}\n    - {change.before}\n    + {change.after}", flush=True)

    processors = len(os.sched_getaffinity(0))
    with concurrent.futures.ThreadPoolExecutor(processors) as pool:
        list(pool.map(take, [changes[first::processors] for first in range(processors)])) # raises what one has raised
    return 0 if report(results, left_out) and not stale else 1


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
