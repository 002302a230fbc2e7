"""Runs the benchmark programs and turns their output into figures."""

import dataclasses
import json
import math
import resource
import shutil
import statistics
import subprocess
import sys

import roots

LANGUAGES = ("en", "de", "ja", "ru")
SINGLE_FILE_PAGES = 8700


@dataclasses.dataclass(frozen=True)
class Effort:
    processes: int      # that time the rows of each root
    repetitions: int    # of each row in a process, all rows shuffled
    seconds: float      # at least, for each repetition
    first_calls: int    # processes for each row


FULL = Effort(processes=4, repetitions=3, seconds=0.1, first_calls=15)
QUICK = Effort(processes=1, repetitions=2, seconds=0.02, first_calls=5)


@dataclasses.dataclass
class Times:
    """The seconds of one root's rows: "group:name" to a list with an element per repetition."""
    seconds: dict
    bytes: dict = dataclasses.field(default_factory=dict)

    def median(self, row):
        return statistics.median(self.seconds[row])

    def ratio(self, row, base):
        """The median of the ratios of repetitions that ran together."""
        return statistics.median(a / b for a, b in zip(self.seconds[row], self.seconds[base]))


@dataclasses.dataclass
class Report:
    root: str
    warm: Times
    first: Times
    memory: dict
    growth: dict = dataclasses.field(default_factory=dict)
    single: "Report" = None
    checks: list = dataclasses.field(default_factory=list)

    def rows(self, group):
        return [row for row in self.warm.seconds if row.split(":")[0] == group]

    def groups(self):
        return list(dict.fromkeys(row.split(":")[0] for row in self.warm.seconds))


def run(program, *arguments):
    print("==", program.name, *arguments, file=sys.stderr, flush=True)
    done = subprocess.run([str(program), *map(str, arguments)], stdout=subprocess.PIPE, text=True)
    if done.returncode != 0:
        sys.exit(f"{program} failed with status {done.returncode}")
    return done.stdout


def generate(root, *counts):
    shutil.rmtree(root, ignore_errors=True)
    roots.generate(root, *counts)
    return root


def run_rows(program, root, *options):
    """Yields (row, result) for each repetition, in the order of the rows."""
    results = json.loads(run(program, root, "--benchmark_format=json", *options))["benchmarks"]
    results = [result for result in results if result["run_type"] == "iteration"]
    results.sort(key=lambda each: (each["family_index"], each["repetition_index"]))
    for result in results:
        yield result["run_name"].removesuffix("/manual_time"), result


def measure_times(programs, root, effort):
    times = Times({})
    for _ in range(effort.processes):
        for row, result in run_rows(programs / "docparser_benchmark", root,
                                    f"--benchmark_repetitions={effort.repetitions}",
                                    f"--benchmark_min_time={effort.seconds}",
                                    "--benchmark_enable_random_interleaving=true"):
            times.seconds.setdefault(row, []).append(result["real_time"] / 1e3)
            times.bytes[row] = result["bytes"]
    return times


def measure_first_calls(programs, root, rows, effort):
    """Each row in a process of its own, all rows in turn."""
    times = Times({row: [] for row in rows})
    for turn in range(effort.first_calls):
        for row in rows[turn % len(rows):] + rows[:turn % len(rows)]:
            seconds = run(programs / "docparser_benchmark", root, "--first-call", row)
            times.seconds[row].append(float(seconds))
    return times


def measure_memory(programs, root):
    return dict(run_rows(programs / "docparser_memory", root, "--benchmark_min_time=0"))


def measure_root(programs, root, effort):
    warm = measure_times(programs, root, effort)
    first_rows = [row for row in warm.seconds if not row.endswith("parse and copy")]
    return Report(root=str(root), warm=warm,
                  first=measure_first_calls(programs, root, first_rows, effort),
                  memory=measure_memory(programs, root))


def growth_of(sizes):
    """For each row the exponent of time over bytes, by least squares of the logarithms."""
    return {row: exponent([(times.bytes[row], times.median(row)) for times in sizes])
            for row in sizes[0].seconds if all(row in times.seconds for times in sizes)}


def exponent(points):
    sizes, times = zip(*((math.log(size), math.log(time)) for size, time in points))
    return statistics.linear_regression(sizes, times).slope


def measure_check(programs, root, languages, limit, effort):
    """What `refdoc check` of a root costs, as a process, compared with loading the root."""
    refdoc = programs.parent / "tools/refdoc/refdoc"
    loads = []
    checks = []
    for _ in range(effort.first_calls):
        loads.append(float(run(programs / "docparser_benchmark", root, "--load", *languages)))
        before = resource.getrusage(resource.RUSAGE_CHILDREN)
        summary = subprocess.run([str(refdoc), "check", "--langs", ",".join(languages), str(root)],
                                 stdout=subprocess.PIPE, text=True).stdout.splitlines()[-1]
        after = resource.getrusage(resource.RUSAGE_CHILDREN)
        checks.append(after.ru_utime + after.ru_stime - before.ru_utime - before.ru_stime)
    return {"root": root.name, "languages": len(languages), "load": statistics.median(loads),
            "check": statistics.median(checks), "findings": summary, "limit": limit,
            "ratio": statistics.median(check / load for check, load in zip(checks, loads))}


def measure_generated(programs, folder, effort):
    sizes = [generate(folder / str(count), count) for count in (50, 200, 800)]
    single = generate(folder / "single", 1, SINGLE_FILE_PAGES)
    report = measure_root(programs, sizes[1], effort)
    fewer = dataclasses.replace(effort, processes=1)
    report.growth = growth_of([measure_times(programs, sizes[0], fewer), report.warm,
                               measure_times(programs, sizes[2], fewer)])
    report.single = Report(root=str(single), warm=measure_times(programs, single, fewer),
                           first=Times({}), memory=measure_memory(programs, single))
    report.checks = [measure_check(programs, root, languages, limit, effort)
                     for root in sizes[1:] for languages, limit in ((LANGUAGES, 2), (["en"], 4))]
    return report
