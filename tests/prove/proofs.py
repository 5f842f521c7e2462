"""What is proved: each proof's command, and the figures that the page takes from what the command prints."""

import dataclasses
import re
from collections.abc import Callable


def says(text):
    """The text itself: that the command has ended well is all there is to say."""
    return lambda log: text


def found(pattern, form="{0}"):
    """The groups of the last match, in a form; None when there is none."""

    def figure(log):
        matches = list(re.finditer(pattern, log, re.MULTILINE))
        return form.format(*matches[-1].groups()) if matches else None

    return figure


def each(pattern, form="{0}", between=", "):
    """The groups of every match, each in a form; None when there is none."""

    def figure(log):
        matches = re.finditer(pattern, log, re.MULTILINE)
        return between.join(form.format(*match.groups()) for match in matches) or None

    return figure


def lines(pattern):
    """The lines that match, as they were printed; None when there is none."""
    return each(f"^({pattern})$", between="\n")


def tests(log):
    """How many of the tests of each of ctest's runs have passed."""
    runs = re.findall(r"tests passed, (\d+) tests failed out of (\d+)", log)
    return ", ".join(f"{int(total) - int(failed)} of {total}" for failed, total in runs) or None


@dataclasses.dataclass
class Proof:
    command: str  # of bash, in the root of the tree
    figures: dict[str, Callable[[str], str | None]]  # by the name that the page has; what the log says


WINDOW = (
    "cmake --preset release -B build/window -DTAV_BUILD_BENCHMARKS=ON -DBUILD_TESTING=OFF &&"
    " cmake --build build/window --target PageBusyTime && build/window/bin/PageBusyTime"
)
# More of them at a time than there are processors.
BUS = (
    "./dev build coverage && seq 8 | LLVM_PROFILE_FILE=/dev/null xargs -P $((2 * $(nproc))) -I{} build/coverage/bin/StressTest"
    " --gtest_filter='*EventsForAThread*' --gtest_repeat=250 --gtest_brief=1 --gtest_throw_on_failure"
    " && echo 2000 repetitions"
)
COUNTED = (
    "echo counted: $(grep -c '^  ' tests/contract/slots.txt) operations of"
    " $(grep -c '^[A-Z]' tests/contract/slots.txt) interfaces, $(grep -c '^[A-Z]' tests/contract/records.txt) records"
)

# In this order: what later ones need built is there then.
PROOFS = {
    "test": Proof("./dev test --all", {"tests": tests}),
    "scenarios": Proof("./dev build && ctest --preset dev -R '^Scenario\\.'", {"tests": tests}),
    "abi": Proof(
        f"./dev abi && {COUNTED}", {"counts": found("^counted: (.*)$", "{0} as listed"), "baseline": says("equal")}
    ),
    "memory": Proof(
        "./dev build && TAV_PROVE=1 build/dev/bin/HostileInputTest --gtest_filter='*Large*:*Smallest*' 2>/dev/null",
        {"peaks": each(r"^(.+): file ([\d.]+) MiB, peak (\d+) MiB", "{0} of {1} MiB: peak {2} MiB")},
    ),
    "findings": Proof(
        "./dev build && TAV_PROVE=1 build/dev/bin/FindingCountTest",
        {"costs": found(r"^([\d.]+ s and \d+ MiB), ([\d.]+ s and \d+ MiB), ", "20,000: {0}; 200,000: {1}")},
    ),
    "lint": Proof("./dev lint", {"checks": each("^lint: (.*: clean)$")}),
    "docs": Proof("./dev docs", {"warnings": says("no warning")}),
    "races": Proof("./dev races", {"tests": tests}),
    "release": Proof("./dev test release", {"tests": tests}),
    "soak": Proof("./dev soak 2", {"table": lines(r"[ a-z,]+(?:\(KiB\))? {2,}-?\d+")}),
    "window": Proof(WINDOW, {"table": lines(r"(?:ms of own|idle|a page|[\d,]+ calls).*")}),
    "bench": Proof("./dev bench", {"table": lines(r"  .*ratio.*|  .* +\d+\.\d{3}( .*)?|[a-z][a-z ,]+")}),
    "asan": Proof("./dev test --all asan", {"tests": tests}),
    "coverage": Proof("./dev coverage", {"table": lines(r"\w+ +(?:lines|branches) .*|    .*: (?:not reached|never).*")}),
    "bus": Proof(BUS, {"repetitions": found("^(2000 repetitions)$")}),
    "fuzz": Proof("./dev fuzz 60", {"table": lines(r"(?:target|\w+Fuzzer) +(?:executions|\d+) .*")}),
    "cross": Proof("./dev cross", {"tests": tests, "baseline": says("equal")}),
    "package": Proof(
        "./dev package && ./dev package cross && ./dev package test",
        {
            "bare": found("^packages: (installed, used and removed .*)$"),
            "run": found("^packages: tavctl run: (.*)$"),
            "guide": found("^packages: run as the guide prints them: (.*)$"),
            "page": found(r"^page-to-picture: .*: (\d+ s); "),
        },
    ),
    "emulated": Proof(
        "./dev package test cross",
        {"bare": found("^packages: (installed, used and removed .*)$"), "page": found(r"^page-to-picture: .*: (\d+ s); ")},
    ),
    "same": Proof("./dev package compare", {"packages": each("^same-packages: (.*): identical$")}),
    "mutate": Proof(
        "./dev mutate --sample 120",
        {
            "table": lines(r"(?:folder|common|kit|managers|plugin|together) .*"),
            "survivors": found(r"^(\d+ changes that no test has seen:(?:\n\w+/.*\n    - .*\n    \+ .*)*)"),
        },
    ),
}
