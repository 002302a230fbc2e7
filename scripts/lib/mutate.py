"""Tries small changes of the sources in copies of the project, and reports which of them no test notices."""

import argparse
import collections
import contextlib
import hashlib
import itertools
import json
import multiprocessing
import os
import pathlib
import re
import resource
import shlex
import signal
import subprocess
import sys
import tempfile

import mutants

PROJECT = pathlib.Path(__file__).resolve().parents[2]
OUTCOMES = PROJECT / "build/mutation/outcomes.jsonl"
MEMORY_BYTES = 4 << 30  # for each process, because a change may make a loop endless


class Tree:
    """A copy of the project with a build folder, in which one change after the other is tried."""

    def __init__(self, number, threads):
        self.folder, self.threads = OUTCOMES.parent / str(number), str(threads)
        self.build = self.folder / "build/mutation"
        self.objects, self.options = collections.defaultdict(list), {}  # of each source
        self.folder.mkdir(parents=True, exist_ok=True)
        # Copies get a new time, so that ninja builds them again.
        subprocess.run(["rsync", "--recursive", "--links", "--perms", "--checksum", "--delete-after", "--exclude=.git",
                        "--include=node_modules", "--filter=:- .gitignore", f"{PROJECT}/", self.folder], check=True)
        subprocess.run(["cmake", "--preset", "mutation", "--log-level=ERROR"], cwd=self.folder, check=True,
                       stdout=subprocess.DEVNULL)
        for entry in json.loads((self.build / "compile_commands.json").read_text(encoding="utf-8")):
            name = os.path.relpath(entry["file"], self.folder)
            _, *self.options[name], _, path, _, _ = shlex.split(entry["command"])  # ... -o OBJECT -c SOURCE
            self.objects[name].append(path)

    def run(self, *command):
        """Returns the status and output of a command. Kills the processes that it leaves behind."""
        with (tempfile.TemporaryDirectory(prefix="mutate-", ignore_cleanup_errors=True) as temporary,
              tempfile.TemporaryFile("w+", encoding="utf-8", errors="replace") as output):
            process = subprocess.Popen(command, cwd=self.build, env=os.environ | {"TMPDIR": temporary}, stdout=output,
                                       stdin=subprocess.DEVNULL, stderr=subprocess.STDOUT, start_new_session=True)
            try:
                process.wait()
            finally:
                with contextlib.suppress(ProcessLookupError):
                    os.killpg(process.pid, signal.SIGKILL)
            output.seek(0)
            return process.returncode, output.read()

    def ninja(self, *targets):
        status, output = self.run("ninja", "-j", self.threads, *targets)
        return status == 0, output

    def ctest(self, *options):
        return self.run("ctest", "--timeout", "60", "-j", self.threads, *options)

    def time_tests(self):
        """Runs the tests without a change. Returns the numbers of those that pass, the fastest first."""
        print("== Running the tests without a change", file=sys.stderr)
        # Packages and pages do not depend on what the code does; other projects take minutes to build.
        _, output = self.ctest("-LE", "^(package|docs)$", "-E", "^host_libraries")
        passed = re.findall(r" #(\d+): \S+ \.* +Passed +([\d.]+)", output)
        return [number for number, _ in sorted(passed, key=lambda test: float(test[1]))]

    def failing_test(self, order):
        """Runs tests until one fails, and moves it to the front of the order."""
        # In batches, because ctest does not keep the order.
        for batch in filter(None, (order[:10], order[10:100], order[100:])):
            selection = self.folder / "build/tests.txt"
            # The first number, the last, the step, and the other numbers.
            selection.write_text(",".join([batch[0], batch[0], "1", *batch[1:]]) + "\n", encoding="utf-8")
            status, output = self.ctest("--stop-on-failure", "-I", str(selection))
            if status:
                failed = re.search(r" #(\d+): (\S+) \.[^\n*]*\*\*\*(?!Skipped)", output)
                order.sort(key=lambda test: not failed or test != failed[1])
                return failed[2] if failed else "the list of the tests"
        return None

    def compile(self, name):
        """Returns the objects of a source; None if it does not compile."""
        is_built, _ = self.ninja(*self.objects[name])
        return [(self.build / path).read_bytes() for path in self.objects[name]] if is_built else None

    def outcome(self, name, change, order):
        """Tries a change. Returns its outcome, and the test that caught it."""
        file = self.folder / name
        self.ninja()  # without the change before
        original, before = file.read_bytes(), self.compile(name)
        file.write_bytes(change.apply(original))
        try:
            after = self.compile(name)
            if after == before:
                return "not noticeable", None
            if not after or not self.ninja()[0]:
                return "not built", None
            test = self.failing_test(order)
            return "caught" if test else "survived", test
        finally:
            file.write_bytes(original)


def try_changes(tree, places, order):
    for row, change in places:
        row["outcome"], row["test"] = tree.outcome(row["file"], change, order)
        with OUTCOMES.open("a", encoding="utf-8") as file:
            file.write(json.dumps(row) + "\n")
        print_row(row)


def try_in_parallel(trees, places):
    # One after the other: the first tree fills ccache for the others.
    for tree in trees:
        print(f"== Building {tree.folder} without a change", file=sys.stderr)
        is_built, output = tree.ninja()
        if not is_built:
            sys.exit(f"{output[-4000:]}\nthe unchanged sources cannot be built")
    order = trees[0].time_tests()
    workers = [multiprocessing.Process(target=try_changes, args=(tree, places[first::len(trees)], order), daemon=True)
               for first, tree in enumerate(trees)]
    for step in (multiprocessing.Process.start, multiprocessing.Process.join):
        for worker in workers:
            step(worker)


def draw_places(tree, arguments):
    """Draws changes. Returns each with the part of its row that is known before it is tried."""
    sources = {name: (tree.folder / name).read_bytes() for name in sorted(tree.objects)
               if name.startswith(("docparser/", "platform/", "tools/refdoc/"))
               and name.startswith(os.path.join(arguments.room, "")) and name in (arguments.files or [name])}
    if not set(arguments.files) <= sources.keys() or not sources:
        sys.exit("not a source, or not in this room")
    tests = b"".join(path.read_bytes() for path in sorted(tree.folder.glob("tests/**/*.?pp")))
    drawn = mutants.draw_changes(sources, arguments.seed, lambda name: mutants.find_changes(
        tree.folder / name, tree.options[name]))
    places = []
    for name, change in itertools.islice(drawn, arguments.count):
        key = hashlib.sha256(tests + sources[name] + repr((name, change)).encode()).hexdigest()
        places.append(({"key": key, "place": f"{name}:{change.line}:{change.column}", "file": name,
                        "change": change.describe(sources[name])}, change))
    return places


def read_outcomes():
    lines = OUTCOMES.read_text(encoding="utf-8").splitlines() if OUTCOMES.exists() else []
    return {row["key"]: row for row in map(json.loads, lines)}


def print_row(row):
    test = f"  [{row['test']}]" if row["test"] else ""
    print(f"{row['outcome']:<15} {row['place']}  {row['change']}{test}", flush=True)


def print_summary(rows):
    folders = collections.defaultdict(collections.Counter)
    for row in rows:
        for folder in pathlib.PurePath(row["file"]).parents:
            folders[str(folder)][row["outcome"]] += 1
    print(f"\n{'folder':<32} drawn | not built | noticeable | caught | share")
    for folder, counts in sorted(folders.items()):
        noticeable = counts["caught"] + counts["survived"]
        print(f"{folder:<32} {counts.total():>5} | {counts['not built']:>9} | {noticeable:>10} | "
              f"{counts['caught']:>6} | {counts['caught'] / max(1, noticeable):>5.0%}")


def main():
    parser = argparse.ArgumentParser(prog="scripts/mutate", description=__doc__)
    parser.add_argument("--seed", type=int, default=1, help="seed of the draw; 1 by default")
    parser.add_argument("--count", type=int, default=20, help="number of changes; 20 by default")
    parser.add_argument("--room", default="", help="only sources in this folder, as in docparser/io")
    parser.add_argument("--jobs", type=int, default=1, help="changes tried at once; 1 by default")
    parser.add_argument("files", nargs="*", metavar="FILE", help="only these sources, as in docparser/Settings.cpp")
    arguments = parser.parse_args()
    resource.setrlimit(resource.RLIMIT_DATA, (MEMORY_BYTES, MEMORY_BYTES))
    signal.signal(signal.SIGTERM, signal.default_int_handler)
    trees = [Tree(number, max(1, os.cpu_count() // arguments.jobs)) for number in range(1, arguments.jobs + 1)]
    places, outcomes = draw_places(trees[0], arguments), read_outcomes()
    for row in (outcomes[row["key"]] for row, _ in places if row["key"] in outcomes):
        print_row(row)
    if left := [place for place in places if place[0]["key"] not in outcomes]:
        try_in_parallel(trees, left)
    outcomes = read_outcomes()
    rows = [outcomes[row["key"]] for row, _ in places if row["key"] in outcomes]
    print_summary(rows)
    sys.exit(len(rows) < len(places) or any(row["outcome"] == "survived" for row in rows))


if __name__ == "__main__":
    try:
        main()
    except KeyboardInterrupt:
        sys.exit("interrupted; the same command continues the run")
