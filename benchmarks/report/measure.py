"""Runs the benchmark programs and makes figures of what they print."""

import dataclasses
import json
import math
import shutil
import statistics
import subprocess
import sys


@dataclasses.dataclass(frozen=True)
class Effort:
    processes: int      # of the timed program for each root
    repetitions: int    # of each row in a process, all rows shuffled
    seconds: float      # at least, for each repetition
    first_calls: int    # processes for each row


FULL = Effort(processes=4, repetitions=3, seconds=0.1, first_calls=15)
QUICK = Effort(processes=1, repetitions=2, seconds=0.02, first_calls=5)


@dataclasses.dataclass
class Warm:
    """Times of one root's rows, "group:name" to a list of seconds a repetition."""
    times: dict
    bytes: dict

    def ratio(self, row, base):
        """Median of the ratios of repetitions that ran side by side."""
        pairs = zip(self.times[row], self.times[base])
        return statistics.median(time / of for time, of in pairs)

    def seconds(self, row):
        return statistics.median(self.times[row])


@dataclasses.dataclass
class Report:
    root: str
    warm: Warm
    parts: Warm
    first: Warm
    memory: dict
    growth: dict = dataclasses.field(default_factory=dict)
    single: dict = dataclasses.field(default_factory=dict)
    merge: dict = dataclasses.field(default_factory=dict)

    def rows(self, group):
        return [row for row in self.warm.times if row.split(":")[0] == group]

    def groups(self):
        return list(dict.fromkeys(row.split(":")[0] for row in self.warm.times))


def say(text):
    print(f"== {text}", file=sys.stderr, flush=True)


def run(*command):
    done = subprocess.run([str(part) for part in command], stdout=subprocess.PIPE, text=True)
    if done.returncode != 0:
        sys.exit(f"{command[0]} failed with status {done.returncode}")
    return done.stdout


def generate(programs, root, count):
    say(f"Generating {root}")
    shutil.rmtree(root, ignore_errors=True)
    run(programs / "docparser_generate", root, count)
    return root


def generate_single(programs, root, size):
    say(f"Generating {root}")
    shutil.rmtree(root, ignore_errors=True)
    run(programs / "docparser_generate", "--single", root, size)
    return root


def timed_process(programs, root, effort, *options):
    """One process with every row shuffled among the others, as Google Benchmark's results."""
    output = run(programs / "docparser_benchmark", f"--root={root}", *options,
                 f"--benchmark_repetitions={effort.repetitions}",
                 f"--benchmark_min_time={effort.seconds}",
                 "--benchmark_enable_random_interleaving=true",
                 "--benchmark_format=json")
    results = json.loads(output)["benchmarks"]
    return [result for result in results if result["run_type"] == "iteration"]


def measure_warm(programs, root, effort, *options):
    times = {}
    sizes = {}
    for process in range(effort.processes):
        say(f"Timing {root}{' ' if options else ''}{' '.join(options)}, "
            f"process {process + 1} of {effort.processes}")
        for result in sorted(timed_process(programs, root, effort, *options),
                             key=lambda each: (each["family_index"], each["repetition_index"])):
            row = result["run_name"].removesuffix("/manual_time")
            seconds = result["real_time"] / 1e3
            times.setdefault(row, []).append(seconds)
            sizes[row] = result.get("bytes_per_second", 0) * seconds
    return Warm(times, sizes)


def measure_first_calls(programs, root, rows, effort):
    """Each row in a process of its own, all rows by turns."""
    say(f"Timing first calls of {root}")
    times = {row: [] for row in rows}
    for turn in range(effort.first_calls):
        for row in rows[turn % len(rows):] + rows[:turn % len(rows)]:
            times[row].append(float(run(programs / "docparser_first_call", root, row)))
    return Warm(times, {})


def measure_memory(programs, root):
    say(f"Counting the memory of {root}")
    lines = run(programs / "docparser_memory", root).splitlines()
    return {line["row"]: line for line in map(json.loads, lines)}


def measure_root(programs, root, effort):
    warm = measure_warm(programs, root, effort)
    first_rows = [row for row in warm.times if not row.endswith("parse and copy")]
    return Report(root=str(root), warm=warm,
                  parts=measure_warm(programs, root, effort, "--parts"),
                  first=measure_first_calls(programs, root, first_rows, effort),
                  memory=measure_memory(programs, root))


def measure_growth(programs, root, effort):
    fewer = dataclasses.replace(effort, processes=1)
    return measure_warm(programs, root, fewer)


def growth_of(sizes):
    """For each row the exponent of time over bytes, by least squares of the logarithms."""
    return {row: exponent([(size.bytes[row], size.seconds(row)) for size in sizes])
            for row in sizes[0].times if all(row in size.times for size in sizes)}


def exponent(points):
    logs = [(math.log(size), math.log(time)) for size, time in points]
    mean_size = statistics.fmean(size for size, _ in logs)
    mean_time = statistics.fmean(time for _, time in logs)
    spread = sum((size - mean_size) ** 2 for size, _ in logs)
    return sum((size - mean_size) * (time - mean_time) for size, time in logs) / spread


def measure_single(programs, root, effort):
    """The parts of reading one large file: milliseconds a MB and peak bytes a byte."""
    options = ("--parts", "--benchmark_filter=full/parts")
    warm = measure_warm(programs, root, effort, *options)
    memory = measure_memory(programs, root)
    return {row: {"ms_per_mb": warm.seconds(row) * 1e3 / (warm.bytes[row] / 1e6),
                  "ratio": warm.ratio(row, "full/parts:parse"),
                  "peak": memory[row]["peak"]}
            for row in warm.times}


def measure_merge(programs):
    """Milliseconds for n names, and how well n log n fits them."""
    say("Timing merges")
    output = run(programs / "docparser_merge_benchmark", "--benchmark_format=json")
    results = json.loads(output)["benchmarks"]
    return {"times": {int(each["name"].rsplit("/")[-1]): each["cpu_time"]
                      for each in results if each["run_type"] == "iteration"},
            "rms": next(each["rms"] for each in results if each["name"].endswith("_RMS"))}
