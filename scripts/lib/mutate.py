"""Tries small changes of the sources in copies of the project, and reports which of them no test notices."""

import argparse
import collections
import hashlib
import json
import multiprocessing
import os
import pathlib
import re
import shlex
import signal
import subprocess
import sys
import tempfile

import mutants

OUTCOMES = pathlib.Path.cwd() / "build/mutation/outcomes.jsonl"
ROW = "{outcome:<15} {change}  {test}"


class Tree:
    """A copy of the project with a build folder, in which one change after the other is tried."""

    def __init__(self, number, threads):
        self.folder = OUTCOMES.parent / str(number)
        self.build, self.commands = self.folder / "build/mutation", collections.defaultdict(list)
        # A test that fails runs again, because the machine may be slow or suspended for a while.
        self.ctest = ["ctest", "--timeout", "60", "--repeat", "until-pass:2", "-j", str(threads)]
        print(f"== Building {self.folder} without a change", file=sys.stderr)
        self.folder.mkdir(parents=True, exist_ok=True)
        # Copies get a new time, so that ninja builds them again.
        subprocess.run(["rsync", "--recursive", "--links", "--perms", "--checksum", "--delete-after", "--exclude=.git",
                        "--include=node_modules", "--filter=:- .gitignore", "./", self.folder], check=True)
        subprocess.run(["cmake", "--preset", "mutation"], cwd=self.folder, check=True, stdout=subprocess.DEVNULL)
        subprocess.run(["ninja", "--quiet"], cwd=self.build, check=True)
        for entry in json.loads((self.build / "compile_commands.json").read_bytes()):
            self.commands[os.path.relpath(entry["file"], self.folder)].append(shlex.split(entry["command"]))

    def run(self, *command):
        """Returns the status and output of a command. Kills the processes that it leaves behind."""
        with (tempfile.TemporaryDirectory(prefix="mutate-", ignore_cleanup_errors=True) as temporary,
              tempfile.TemporaryFile("w+", encoding="utf-8", errors="replace") as output):
            os.chmod(temporary, 0o755)  # Some tests give up the rights of root.
            # Limits for each process, because a change may make a loop endless.
            process = subprocess.Popen(["prlimit", "--cpu=60", f"--data={4 << 30}", *command], cwd=self.build,
                                       env=os.environ | {"TMPDIR": temporary}, start_new_session=True,
                                       stdin=subprocess.DEVNULL, stdout=output, stderr=output)
            try:
                os.waitid(os.P_PID, process.pid, os.WEXITED | os.WNOWAIT)
            finally:
                os.killpg(process.pid, signal.SIGKILL)
            output.seek(0)
            return process.wait(), output.read()

    def time_tests(self):
        """Runs the tests without a change. Returns those that pass, the fastest first."""
        print("== Running the tests without a change", file=sys.stderr)
        # Packages and pages do not depend on what the code does; other projects take minutes to build.
        _, output = self.run(*self.ctest, "-LE", "^(package|docs|host_libraries)$")
        listed = json.loads(self.run("ctest", "--show-only=json-v1")[1])["tests"]
        return sorted((float(seconds), number, os.path.relpath(listed[int(number) - 1]["command"][0], self.build))
                      for number, seconds in re.findall(r" #(\d+): .+ \.+ +Passed +([\d.]+)", output))

    def compile(self, name):
        """Returns the objects of a source; None if it does not compile."""
        objects = [command[-3] for command in self.commands[name]]  # ... -o OBJECT -c SOURCE
        status, _ = self.run("ninja", *objects)
        return None if status else [(self.build / path).read_bytes() for path in objects]

    def outcome(self, name, before, order):
        """Returns the outcome of a change and the test that caught it, which moves to the front unless it is slow."""
        after = self.compile(name)
        if after == before:
            return "not noticeable", ""
        if not after or self.run("ninja")[0]:
            return "not built", ""
        inputs = {program: self.run("ninja", "-t", "inputs", program) for _, _, program in set(order)}
        # Ninja does not know programs of the system, such as Python.
        tests = [test for _, test, program in order if inputs[program][0] or f"/{name}\n" in inputs[program][1]]
        # In batches, because ctest does not keep the order. 0,0,0 is an empty range.
        for batch in filter(None, (tests[:10], tests[10:100], tests[100:])):
            status, output = self.run(*self.ctest, "--stop-on-failure", "-I", ",".join(["0,0,0", *batch]))
            if status:
                failed = re.search(r"tests FAILED:\n\s*(\d+) - (\S+)", output)
                order.sort(key=lambda test: not failed or test[1] != failed[1] or test[0] > 1)
                return "caught", failed[2] if failed else "the list of the tests"
        return "survived", ""

    def try_changes(self, places, order):
        for row, change in places:
            file = self.folder / row["file"]
            original, before = file.read_bytes(), self.compile(row["file"])
            file.write_bytes(change.apply(original))
            row["outcome"], row["test"] = self.outcome(row["file"], before, order)
            file.write_bytes(original)
            with OUTCOMES.open("a", encoding="utf-8") as outcomes:
                outcomes.write(json.dumps(row) + "\n")
            print(ROW.format_map(row), flush=True)


def draw_places(tree, arguments):
    """Draws changes. Returns each with the part of its row that is known before it is tried."""
    names = tuple(arguments.files) or os.path.join(arguments.room, "")
    sources = {name: (tree.folder / name).read_bytes() for name in tree.commands
               if name.startswith(("docparser/", "platform/", "tools/refdoc/")) and name.startswith(names)}
    tests = b"".join(path.read_bytes() for path in sorted(tree.folder.glob("tests/**/*")) if path.is_file())
    drawn = mutants.draw_changes(sources, arguments.seed, lambda name: mutants.find_changes(
        tree.folder / name, tree.commands[name][0][1:-4]))
    return [({"key": hashlib.sha256(sources[name] + repr((name, change)).encode()).hexdigest(),
              "tests": hashlib.sha256(tests).hexdigest(), "file": name,
              "change": f"{name}:{change.line}:{change.column}  {change.describe()}"}, change)
            for _, (name, change) in zip(range(arguments.count), drawn)]


def known_rows(places):
    """Returns the rows of the changes that need not be tried again, by key."""
    lines = OUTCOMES.read_text(encoding="utf-8").splitlines() if OUTCOMES.exists() else []
    outcomes = {row["key"]: row for row in map(json.loads, lines)}
    rows = [(outcomes.get(row["key"]), row["tests"]) for row, _ in places]
    return {row["key"]: row for row, tests in rows if row and (row["outcome"] != "survived" or row["tests"] == tests)}


def print_summary(rows):
    outcomes = ["not built", "not noticeable", "caught", "survived"]
    counts = collections.Counter((os.path.dirname(row["file"]), row["outcome"]) for row in rows)
    print(f"\n{'folder':<32}", *(f"{outcome:>14}" for outcome in outcomes))
    for folder in sorted({folder for folder, _ in counts}):
        print(f"{folder:<32}", *(f"{counts[folder, outcome]:>14}" for outcome in outcomes))


def main():
    parser = argparse.ArgumentParser(prog="scripts/mutate", description=__doc__)
    parser.add_argument("--seed", type=int, default=1, help="seed of the draw; 1 by default")
    parser.add_argument("--count", type=int, default=20, help="number of changes; 20 by default")
    parser.add_argument("--room", default="", help="only sources in this folder, as in docparser/io")
    parser.add_argument("--jobs", type=int, default=1, help="changes tried at once; 1 by default")
    parser.add_argument("files", nargs="*", metavar="FILE", help="only these sources, as in docparser/Settings.cpp")
    arguments = parser.parse_args()
    for number in (signal.SIGINT, signal.SIGTERM):
        signal.signal(number, lambda *_: sys.exit(130))
    # One more than processors, because some tests mostly wait.
    trees = [Tree(number, os.cpu_count() // arguments.jobs + 1) for number in range(1, arguments.jobs + 1)]
    places = draw_places(trees[0], arguments)
    if not places:
        parser.error("no changes in such sources")
    known = known_rows(places)
    for row in known.values():
        print(ROW.format_map(row))
    if left := [place for place in places if place[0]["key"] not in known]:
        order = trees[0].time_tests()
        shares = [(tree, left[first::arguments.jobs], order) for first, tree in enumerate(trees)]
        # Ctrl-C does not reach other sessions. It ends this process, which then ends the others.
        with multiprocessing.Pool(arguments.jobs, os.setsid) as pool:
            pool.starmap(Tree.try_changes, shares, chunksize=1)
    rows = known_rows(places).values()
    print_summary(rows)
    sys.exit(len(rows) < len(places) or any(row["outcome"] == "survived" for row in rows))


if __name__ == "__main__":
    main()
