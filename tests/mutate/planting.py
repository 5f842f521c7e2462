"""Plants the changes of a job, one after the other, in the tree of the working directory, and tells of each what became
of it. Run by mutate.py, in a layer over the tree."""

import collections
import dataclasses
import json
import os
import pathlib
import signal
import subprocess
import sys
import time

CAUGHT, REFUSED, SURVIVED = "caught", "refused", "survived"

# A value that nobody uses any more is for the tests to see, not for the compiler to warn of.
UNWARNED = "".join(
    f'#pragma GCC diagnostic ignored "-Wunused-{what}"\n'
    for what in ("parameter", "variable", "but-set-variable", "but-set-parameter", "function", "value")
)


def run(command, seconds=None, **options):
    """The exit code of a command; None when it had to be ended, with all its children."""
    with subprocess.Popen(
        command, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL, start_new_session=True, **options
    ) as process:
        try:
            return process.wait(seconds)
        except subprocess.TimeoutExpired:
            return None
        finally:
            try:
                os.killpg(process.pid, signal.SIGKILL)  # what it has left behind, too
            except ProcessLookupError:
                pass


@dataclasses.dataclass
class Test:
    name: str
    command: list
    folder: str
    environment: dict
    target: str  # what is built for it
    seconds: float = 600  # that it takes when all is well

    def passes(self, seconds):
        return run(self.command, seconds, cwd=self.folder, env={**os.environ, **self.environment}) == 0

    def distance(self, path):
        """Sorts the tests of the file's class before those of its folder, and these before all others; what takes long
        comes last."""
        subject = path.stem.removeprefix("Tav")
        return (self.seconds > 30, subject not in self.name, f"/{path.parent.name}" not in self.folder, self.seconds)


def outcome_in(build, tests):
    """What becomes of the change that is in the tree, and the test that has caught it."""
    for test in tests:
        if run(["cmake", "--build", build, "--target", test.target]) != 0:
            return REFUSED, None
        # What waits for ever, waits longer than anything on a busy machine; and what fails for the change, fails again.
        limit = 20 + 10 * test.seconds
        if not test.passes(limit) and not test.passes(limit):
            return CAUGHT, test.name
    return SURVIVED, None


def main():
    job = json.load(sys.stdin)
    tests = [Test(**test) for test in job["tests"]]
    for test in tests:
        start = time.monotonic()
        if not test.passes(test.seconds) and not test.passes(test.seconds):
            sys.exit(f"mutate: {test.name} fails before anything is changed")
        test.seconds = time.monotonic() - start
    catches = collections.defaultdict(collections.Counter)
    for file, start, end, replacement in job["changes"]:
        path = pathlib.Path(file)
        original = path.read_text()
        path.write_text(UNWARNED + "#line 1\n" + original[:start] + replacement + original[end:])
        # The tests that have caught changes of this file before are tried first.
        tests.sort(key=lambda test: (-catches[file][test.name], test.distance(path)))
        outcome, test = outcome_in(job["build"], tests)
        catches[file][test] += 1
        path.write_text(original)
        print(json.dumps([outcome, test]), flush=True)


if __name__ == "__main__":
    main()
