#!/usr/bin/env python3
"""Runs the proofs on the commit that is checked out, and writes docs/quality.md with their figures.

    prove.py [NAME...]          all of them, or those named

The page is the record: a figure that it has of this commit is not taken again, also on another machine, when the page
was committed in between. Reasons may be added beside the figures later, in the same words in the template and in the
page. A proof that fails does not keep the others from running; the logs stand below build/prove.
Exit: 0 when all that were asked for have passed.
"""

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
PLACE = re.compile(r"\{\{([\w.]+)\}\}")


def output_of(*command):
    return subprocess.run(command, stdout=subprocess.PIPE, check=True, text=True).stdout.strip()


def refuse_changes():
    """Figures belong to a commit: there must be nothing else in the tree. The page itself is what is written here."""
    status = output_of("git", "status", "--porcelain").splitlines()
    changed = [line for line in status if line[2:].strip() != str(PAGE)]
    if changed:
        sys.exit("prove: the tree has changes that are in no commit:\n" + "\n".join(changed))


def prove(name, log):
    """Runs the proof, and gives its figures by their names; those that it owes are FAILED."""
    proof = PROOFS[name]
    log.parent.mkdir(parents=True, exist_ok=True)
    print(f"prove: {name}: {proof.command}", flush=True)
    start = time.monotonic()
    with log.open("w") as file:
        code = subprocess.run(["bash", "-c", proof.command], stdout=file, stderr=file, check=False).returncode
    seconds = round(time.monotonic() - start)
    print(f"prove: {name}: {'passed' if code == 0 else f'FAILED with {code}'} in {seconds} s: {log}", flush=True)
    text = log.read_text(errors="replace")
    figures = {figure: read(text) if code == 0 else None for figure, read in proof.figures.items()}
    figures["seconds"] = str(seconds) if code == 0 else None
    return {f"{name}.{figure}": FAILED if value is None else value for figure, value in figures.items()}


def has_passed(name, figures):
    values = [figures.get(f"{name}.{figure}", NOT_TAKEN) for figure in (*PROOFS[name].figures, "seconds")]
    return FAILED not in values and NOT_TAKEN not in values


def machine():
    cpu = re.search(r"^model name\s*: (.*)$", pathlib.Path("/proc/cpuinfo").read_text(), re.MULTILINE)
    memory = int(re.search(r"^MemTotal:\s*(\d+)", pathlib.Path("/proc/meminfo").read_text(), re.MULTILINE)[1])
    return (
        f"{output_of('nproc')} processors ({cpu[1] if cpu else platform.machine()}), {round(memory / 2**20)} GiB,"
        f" {platform.freedesktop_os_release()['PRETTY_NAME']}"
    )


def page(template, figures):
    """The template with every {{proof.figure}} filled in."""
    return PLACE.sub(lambda match: figures.get(match[1], NOT_TAKEN), template)


def figures_of(template, text):
    """The figures by their names that a page was filled with; none when it is not one of this template."""
    before, *rest = PLACE.split(template)
    figures, left = {}, text.removeprefix(before)
    for name, after in zip(rest[::2], rest[1::2]):
        figures[name], _, left = left.partition(after)
    return figures if page(template, figures) == text else {}


def main(names):
    unknown = [name for name in names if name not in PROOFS]
    if unknown:
        sys.exit(f"prove: {' '.join(unknown)}: no such proof; there are {' '.join(PROOFS)}")
    refuse_changes()
    proved = ("--", f":!{PAGE}", f":!{TEMPLATE}")
    commit, date = output_of("git", "log", "-1", "--abbrev=12", "--format=%h %cs", *proved).split()
    template = TEMPLATE.read_text()

    def figures():
        on_page = figures_of(template, PAGE.read_text()) if PAGE.exists() else {}
        return on_page if on_page.get("commit") == commit else {"commit": commit, "date": date, "machine": machine()}

    wanted = [name for name in PROOFS if name in names or not names]
    for name in wanted:
        if not has_passed(name, figures()):
            taken = prove(name, pathlib.Path("build/prove") / commit / f"{name}.log")
            # Read anew: others may have proved beside this one.
            known = figures()
            if machine() not in known["machine"]:
                known["machine"] += f"; {machine()}"
            PAGE.write_text(page(template, known | taken))

    failed = [name for name in wanted if not has_passed(name, figures())]
    print(f"prove: see {PAGE}" + (f"; FAILED: {' '.join(failed)}" if failed else ""))
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
