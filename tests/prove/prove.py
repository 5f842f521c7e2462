#!/usr/bin/env python3
"""Runs the proofs on the commit that is checked out, and writes docs/quality.md with their figures.

    prove.py [NAME...]          all of them, or those named

What has passed on this commit is not run again: after an interruption it goes on where it was. A proof that fails does
not keep the others from running; its log stands, as those of the others, below build/prove. Exit: 0 when all that were
asked for have passed.
"""

import datetime
import pathlib
import platform
import re
import subprocess
import sys
import time

from proofs import PROOFS

PAGE = pathlib.Path("docs/quality.md")
TEMPLATE = pathlib.Path("docs/quality.in.md")
FAILED, NOT_TAKEN = "**FAILED**", "not taken"
ENDED = re.compile(r"^prove: passed in (\d+) s on (\S+)$", re.MULTILINE)


def output_of(*command):
    return subprocess.run(command, stdout=subprocess.PIPE, check=True, text=True).stdout.strip()


def refuse_changes():
    """Figures belong to a commit: there must be nothing else in the tree. The page itself is what is written here."""
    status = output_of("git", "status", "--porcelain").splitlines()
    changed = [line for line in status if line[2:].strip() != str(PAGE)]
    if changed:
        sys.exit("prove: the tree has changes that are in no commit:\n" + "\n".join(changed))


def prove(name, log):
    """Runs the proof, and says how that ended."""
    log.parent.mkdir(parents=True, exist_ok=True)
    print(f"prove: {name}: {PROOFS[name].command}", flush=True)
    start = time.monotonic()
    with log.open("w") as file:
        code = subprocess.run(["bash", "-c", PROOFS[name].command], stdout=file, stderr=file, check=False).returncode
    seconds = round(time.monotonic() - start)
    if code == 0:
        with log.open("a") as file:
            file.write(f"\nprove: passed in {seconds} s on {datetime.date.today()}\n")
    print(f"prove: {name}: {'passed' if code == 0 else f'FAILED with {code}'} in {seconds} s: {log}", flush=True)


def figures_of(name, log):
    """The proof's figures by their names, or why there are none; and whether it has passed."""
    proof = PROOFS[name]
    names = [*proof.figures, "seconds"]
    if not log.exists():
        return dict.fromkeys(names, NOT_TAKEN), False
    text = log.read_text(errors="replace")
    ended = ENDED.search(text)
    if not ended:
        return dict.fromkeys(names, FAILED), False
    figures = {figure: read(text) for figure, read in proof.figures.items()}
    has_all = None not in figures.values()
    figures = {figure: FAILED if value is None else value for figure, value in figures.items()}
    return figures | {"seconds": ended[1]}, has_all


def machine():
    cpu = re.search(r"^model name\s*: (.*)$", pathlib.Path("/proc/cpuinfo").read_text(), re.MULTILINE)
    memory = int(re.search(r"^MemTotal:\s*(\d+)", pathlib.Path("/proc/meminfo").read_text(), re.MULTILINE)[1])
    return (
        f"{output_of('nproc')} processors ({cpu[1] if cpu else platform.machine()}), {round(memory / 2**20)} GiB,"
        f" {platform.freedesktop_os_release()['PRETTY_NAME']}"
    )


def page(template, figures):
    """The template with every {{proof.figure}} filled in."""
    return re.sub(r"\{\{([\w.]+)\}\}", lambda match: figures[match[1]], template)


def main(names):
    unknown = [name for name in names if name not in PROOFS]
    if unknown:
        sys.exit(f"prove: {' '.join(unknown)}: no such proof; there are {' '.join(PROOFS)}")
    refuse_changes()
    commit = output_of("git", "rev-parse", "--short=12", "HEAD")
    log = lambda name: pathlib.Path("build/prove") / commit / f"{name}.log"
    wanted = names or list(PROOFS)
    for name in PROOFS:
        if name in wanted and not figures_of(name, log(name))[1]:
            prove(name, log(name))

    figures = {"commit": commit, "date": output_of("git", "log", "-1", "--format=%cs"), "machine": machine()}
    for name in PROOFS:
        figures |= {f"{name}.{figure}": value for figure, value in figures_of(name, log(name))[0].items()}
    PAGE.write_text(page(TEMPLATE.read_text(), figures))
    failed = [name for name in wanted if not figures_of(name, log(name))[1]]
    print(f"prove: written: {PAGE}" + (f"; FAILED: {' '.join(failed)}" if failed else ""))
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
