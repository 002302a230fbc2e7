"""Compares the instructions of three fixed workloads with kept counts."""

import json
import os
import pathlib
import re
import shutil
import subprocess
import sys

KEPT = pathlib.Path("benchmarks/instruction-counts.json")
WORKLOADS = ("full", "lookup", "retrieval")
ALLOWED = 0.03

# The same code paths on every processor: the C library else picks its string functions by what
# the processor can do.
ENVIRONMENT = {
    "PATH": os.environ["PATH"],
    "LC_ALL": "C",
    "LD_BIND_NOW": "1",
    "GLIBC_TUNABLES": "glibc.cpu.hwcaps=-AVX512F,-AVX512VL,-AVX512BW,-AVX2,-AVX,-BMI1,-BMI2,"
                      "-LZCNT,-MOVBE,-RTM,-ERMS,-FSRM,-SSE4_2,-SSE4_1,-SSSE3,"
                      "-AVX_Fast_Unaligned_Load,-Prefer_No_VZEROUPPER",
}


def count(programs, workload, profile="/dev/null"):
    """Instructions of one workload; `profile` gets callgrind's file."""
    # A relative folder is as long on every machine.
    folder = pathlib.Path("build/guard") / workload
    shutil.rmtree(folder, ignore_errors=True)
    folder.mkdir(parents=True)
    program = os.path.relpath(programs / "docparser_workload")
    done = subprocess.run(
        ["setarch", "-R", "valgrind", "--tool=callgrind", "--toggle-collect=runMeasured",
         f"--callgrind-out-file={profile}", program, workload, str(folder)],
        env=ENVIRONMENT, stderr=subprocess.PIPE, text=True)
    found = re.search(r"Collected : (\d+)", done.stderr)
    if done.returncode != 0 or not found or int(found[1]) == 0:
        sys.exit(f"counting the instructions of {workload} failed:\n{done.stderr}")
    return int(found[1])


def count_all(programs):
    return {workload: count(programs, workload) for workload in WORKLOADS}


def package_version(package):
    done = subprocess.run(["dpkg-query", "--show", "--showformat=${Version}", package],
                          stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True)
    return done.stdout or "unknown"


def built_with():
    """What the counts hang on besides the project's own code."""
    compiler = subprocess.run(["c++", "--version"], stdout=subprocess.PIPE, text=True, check=True)
    packages = ("libboost1.81-dev", "libc6", "libdeflate0", "libstdc++6", "libzip4", "valgrind",
                "zlib1g")
    return {"compiler": compiler.stdout.splitlines()[0], "preset": "release",
            **{package: package_version(package) for package in packages}}


def update(programs):
    kept = {"built with": built_with(), "instructions": count_all(programs)}
    KEPT.write_text(json.dumps(kept, indent=4) + "\n", encoding="utf-8")
    print(f"kept in {KEPT}: {kept['instructions']}")
    return 0


def check(programs):
    kept = json.loads(KEPT.read_text(encoding="utf-8"))
    here = built_with()
    for tool, version in kept["built with"].items():
        if here.get(tool) != version:
            print(f"note: the kept counts come from {tool} {version}, here is {here.get(tool)}")
    is_good = True
    for workload, now in count_all(programs).items():
        before = kept["instructions"][workload]
        change = now / before - 1
        is_more = change > ALLOWED
        is_good = is_good and not is_more
        verdict = f"MORE THAN {ALLOWED:.0%} ABOVE" if is_more else "ok"
        print(f"{workload:10} {now:12,} instructions, kept {before:12,}, {change:+7.2%}  {verdict}")
    if not is_good:
        print("find out why, or keep the new counts: scripts/benchmark --check --update")
    return 0 if is_good else 1
