"""Tries small changes of the sources in copies of the project, and reports which of them no test notices."""

import argparse
import collections
import concurrent.futures
import contextlib
import functools
import hashlib
import json
import os
import pathlib
import queue
import random
import re
import resource
import shlex
import signal
import subprocess
import sys
import tempfile

import mutants

PROJECT = pathlib.Path(__file__).resolve().parents[2]
RESULTS = PROJECT / "build/mutation"
OUTCOMES = RESULTS / "outcomes.jsonl"
NPM_PACKAGES = "tests/system/refdoc/site/node_modules"
TEST_SECONDS = 60  # for tests that have no limit of their own
SLOW_SECONDS = 1.0
MEMORY_BYTES = 4 << 30  # for each process, because a change may make a loop endless


def git_files(*paths):
    """Returns the files of the checkout that git does not ignore, relative to it."""
    command = ["git", "ls-files", "-z", "--cached", "--others", "--exclude-standard", "--", *paths]
    names = subprocess.run(command, cwd=PROJECT, check=True, capture_output=True, text=True).stdout.split("\0")
    return sorted({name for name in names if (PROJECT / name).is_file()})


def digest(*parts):
    return hashlib.sha256(b"\0".join(parts)).hexdigest()


class Tree:
    """A copy of the project with a build folder, in which one change after the other is tried."""

    def __init__(self, number, threads):
        self.folder = RESULTS / str(number)
        self.build = self.folder / "build/mutation"
        self.threads = str(threads)
        self.cpu_seconds = 0.0
        self.passing, self.failing = set(), set()  # names of tests that ran without a change

    def run(self, *command):
        """Returns the status and output of a command. Ends the processes that it leaves behind."""
        with (tempfile.TemporaryDirectory(prefix="mutate-", ignore_cleanup_errors=True) as temporary,
              tempfile.TemporaryFile("w+", encoding="utf-8", errors="replace") as output):
            # The trees share entries of ccache, because it takes their paths relative to the tree.
            environment = os.environ | {"TMPDIR": temporary, "CCACHE_NOHASHDIR": "1",
                                        "CCACHE_BASEDIR": str(self.folder)}
            process = subprocess.Popen(command, cwd=self.build, env=environment, stdin=subprocess.DEVNULL,
                                       stdout=output, stderr=subprocess.STDOUT, start_new_session=True)
            _, status, usage = os.wait4(process.pid, 0)
            process.returncode = os.waitstatus_to_exitcode(status)
            with contextlib.suppress(ProcessLookupError):
                os.killpg(process.pid, signal.SIGKILL)
            self.cpu_seconds += usage.ru_utime + usage.ru_stime
            output.seek(0)
            return process.returncode, output.read()

    def ninja(self, *arguments):
        return self.run("ninja", "-j", self.threads, *arguments)

    def prepare(self):
        """Copies the files that differ from the checkout, and configures the build."""
        self.build.mkdir(parents=True, exist_ok=True)
        # Copies get a new time, so that ninja builds them again.
        subprocess.run(["rsync", "--checksum", "--links", "--perms", "--files-from=-", "--from0", ".", self.folder],
                       cwd=PROJECT, input="\0".join(git_files()).encode(), check=True)
        if (PROJECT / NPM_PACKAGES).is_dir() and not (self.folder / NPM_PACKAGES).exists():
            (self.folder / NPM_PACKAGES).symlink_to(PROJECT / NPM_PACKAGES)
        subprocess.run(["cmake", "--preset", "mutation", "--log-level=ERROR"], cwd=self.folder, check=True,
                       stdout=subprocess.DEVNULL)
        self.commands = collections.defaultdict(list)
        for entry in json.loads((self.build / "compile_commands.json").read_text(encoding="utf-8")):
            name = os.path.relpath(entry["file"], self.folder)
            self.commands[name].append(shlex.split(entry["command"]))
        targets = self.ninja("-t", "targets", "all")[1].splitlines()
        self.programs = {line.split(":")[0] for line in targets if "_LINKER__" in line}

    def changes(self, name):
        # The command is the compiler, its options, -o OBJECT -c SOURCE.
        options = [option for option in self.commands[name][0][1:-4] if not option.startswith("-W")]
        return mutants.find_changes(self.folder / name, options)

    def objects(self, name):
        return [command[command.index("-o") + 1] for command in self.commands[name]]

    @functools.cache
    def inputs(self, program):
        return set(self.ninja("-t", "inputs", program)[1].split())

    @functools.cache
    def dependents(self, name):
        """Returns the programs and libraries that a source is part of."""
        return {program for program in self.programs if self.inputs(program) & set(self.objects(name))}

    def compile(self, name):
        """Returns a digest of the objects of a source; None if it does not compile."""
        status, _ = self.ninja(*self.objects(name))
        return None if status else digest(*((self.build / path).read_bytes() for path in self.objects(name)))

    def build_programs(self, names):
        """Builds the programs and libraries that sources are part of, without a change."""
        print(f"== Building {self.build}; the first build takes a while", file=sys.stderr)
        status, output = self.run("ninja", *set().union(*map(self.dependents, names)))
        if status:
            sys.exit(f"{output[-4000:]}\nthe unchanged sources cannot be built")

    def links(self, name):
        return self.ninja(*self.dependents(name))[0] == 0

    def tests(self, name):
        """Returns the numbers of the tests that run a program with the source, by name; none if ctest fails."""
        status, output = self.run("ctest", "--show-only=json-v1")
        paths = [str(self.build / path) for path in self.dependents(name)]
        return {test["name"]: number
                for number, test in enumerate([] if status else json.loads(output)["tests"], start=1)
                if "command" in test and any(path in json.dumps(test) for path in paths)}

    def failed_test(self, numbers):
        """Runs tests until one fails, and returns its name; None if all pass."""
        selection = self.folder / "tests.txt"
        selection.write_text("0,0,0," + ",".join(map(str, numbers)) + "\n", encoding="utf-8")
        _, output = self.run("ctest", "--stop-on-failure", f"--timeout={TEST_SECONDS}", "--parallel", self.threads,
                             "-I", str(selection))
        failed = re.search(r"Test +#\d+: (\S+) \.[^\n*]*\*\*\*(?!Skipped|Not Run \(Disabled)", output)
        return failed and failed[1]

    def first_failure(self, name, tests, catchers):
        """Runs tests until one fails. Begins with those that caught a change of this folder or are named after the
        source, and ends with the slow ones."""
        costs = self.build / "Testing/Temporary/CTestCostData.txt"
        lines = costs.read_text(encoding="utf-8").partition("---")[0].splitlines() if costs.exists() else []
        slow = {line.split()[0] for line in lines if float(line.split()[-1]) > SLOW_SECONDS}
        stem = pathlib.PurePath(name).stem
        stages = collections.defaultdict(list)
        for test, number in tests.items():
            if test not in self.failing:
                stages[0 if test in catchers or stem in test else 2 if test in slow else 1].append(number)
        return next(filter(None, (self.failed_test(stages[stage]) for stage in sorted(stages))), None)

    def catcher(self, name, original, changed, catchers):
        """Returns the test that fails with a change but not without it; None if there is none."""
        while tests := self.tests(name):
            test = self.first_failure(name, tests, catchers)
            if test is None or test in self.passing:
                return test
            for content in (original, changed):
                (self.folder / name).write_bytes(content)
                self.links(name)
                if content == original and not self.failed_test([self.tests(name)[test]]):
                    self.passing.add(test)
                    return test
            self.failing.add(test)
            print(f"{test} fails without a change too, and is left out", file=sys.stderr)
        return "the list of the tests"

    def try_change(self, name, change, catchers):
        """Returns the outcome of a change, and the test that caught it."""
        file = self.folder / name
        original = file.read_bytes()
        changed = change.apply(original)
        self.cpu_seconds = 0.0
        before = self.compile(name)
        file.write_bytes(changed)
        try:
            after = self.compile(name)
            if after == before:
                return "not noticeable", None
            if not after or not self.links(name):
                return "not built", None
            test = self.catcher(name, original, changed, catchers)
            return ("caught", test) if test else ("survived", None)
        finally:
            file.write_bytes(original)


class Run:
    """Tries changes in several trees at once, and keeps the outcomes of all runs."""

    def __init__(self, trees):
        self.trees = queue.SimpleQueue()
        for tree in trees:
            self.trees.put(tree)
        lines = OUTCOMES.read_text(encoding="utf-8").splitlines() if OUTCOMES.exists() else []
        self.outcomes = {row["key"]: row for row in map(json.loads, lines)}
        # A change that survived is tried again if the tests or other sources are different.
        self.suite = digest(*((PROJECT / name).read_bytes() for name in git_files() if not name.endswith(".md")))

    def examine(self, place):
        """Tries a change unless its outcome is known; prints and returns its row."""
        name, change, source = place
        key = digest(name.encode(), source, repr(change).encode())
        row = self.outcomes.get(key)
        if not row or (row["outcome"] == "survived" and row["suite"] != self.suite):
            row = {"key": key, "suite": self.suite, "file": name, "line": change.line, "column": change.column,
                   "change": change.describe(source)} | self.outcome(name, change)
            self.outcomes[key] = row
            with OUTCOMES.open("a", encoding="utf-8") as file:
                file.write(json.dumps(row, ensure_ascii=False) + "\n")
        test = f"  [{row['test']}]" if row["test"] else ""
        # In one string, because the others print at the same time.
        print(f"{row['outcome']:<15} {name}:{change.line}:{change.column}  {row['change']}{test}\n", end="", flush=True)
        return row

    def outcome(self, name, change):
        folder = os.path.dirname(name)
        catchers = {row["test"] for row in list(self.outcomes.values()) if os.path.dirname(row["file"]) == folder}
        tree = self.trees.get()
        try:
            outcome, test = tree.try_change(name, change, catchers)
            return {"outcome": outcome, "test": test, "cpu_seconds": round(tree.cpu_seconds, 1)}
        finally:
            self.trees.put(tree)


def draw(names, seed, count, changes_of):
    """Returns up to `count` changes, each with its source. Draws the sources by their numbers of lines."""
    generator = random.Random(seed)
    sources = {name: (PROJECT / name).read_bytes() for name in names}
    weights = [source.count(b"\n") for source in sources.values()]
    left, places = {}, []
    while len(places) < count and (len(left) < len(names) or any(left.values())):
        name = generator.choices(names, weights)[0]
        if name not in left:
            left[name] = mutants.draw_changes(changes_of(name), random.Random(f"{seed} {name}"))
        if left[name]:
            places.append((name, left[name].pop(), sources[name]))
    return places


def print_summary(rows):
    folders = collections.defaultdict(collections.Counter)
    for row in rows:
        for folder in pathlib.PurePosixPath(row["file"]).parents:
            folders[str(folder)][row["outcome"]] += 1
    print(f"\n{'folder':<32} drawn | not built | noticeable | caught | share")
    for folder, counts in sorted(folders.items()):
        noticeable = counts["caught"] + counts["survived"]
        share = f"{counts['caught'] / noticeable:.0%}" if noticeable else "–"
        print(f"{folder:<32} {counts.total():>5} | {counts['not built']:>9} | {noticeable:>10} | "
              f"{counts['caught']:>6} | {share:>5}")


def main():
    parser = argparse.ArgumentParser(prog="scripts/mutate", description=__doc__)
    parser.add_argument("--seed", type=int, default=1, metavar="N", help="seed of the draw; 1 by default")
    parser.add_argument("--count", type=int, default=20, metavar="N", help="number of changes; 20 by default")
    parser.add_argument("--room", default="", metavar="FOLDER", help="only sources in this folder, as in docparser/io")
    parser.add_argument("--jobs", type=int, default=1, metavar="N", help="changes tried at once; 1 by default")
    parser.add_argument("files", nargs="*", metavar="FILE", help="only these sources, as in docparser/Settings.cpp")
    arguments = parser.parse_args()
    resource.setrlimit(resource.RLIMIT_DATA, (MEMORY_BYTES, MEMORY_BYTES))
    threads = max(1, os.cpu_count() // arguments.jobs)
    trees = [Tree(number, threads) for number in range(1, arguments.jobs + 1)]
    for tree in trees:
        tree.prepare()
    names = [name for name in git_files("docparser", "platform", "tools/refdoc")
             if name in trees[0].commands and name.startswith(os.path.join(arguments.room, ""))
             and (not arguments.files or name in arguments.files)]
    unknown = set(arguments.files) - set(names)
    if unknown or not names:
        parser.error(f"not a source, or not in this room: {' '.join(sorted(unknown)) or arguments.room}")
    places = draw(names, arguments.seed, arguments.count, trees[0].changes)
    # One after the other: the first tree fills ccache for the others.
    for tree in trees:
        tree.build_programs({name for name, _, _ in places})
    with concurrent.futures.ThreadPoolExecutor(arguments.jobs) as executor:
        rows = list(executor.map(Run(trees).examine, places))
    print_summary(rows)
    sys.exit(any(row["outcome"] == "survived" for row in rows))


if __name__ == "__main__":
    try:
        main()
    except KeyboardInterrupt:
        sys.exit("interrupted; the same command continues the run")
