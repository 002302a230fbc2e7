"""Compares the instructions of three fixed workloads with the recorded counts."""

import json
import os
import pathlib
import re
import shutil
import subprocess
import sys

import roots

RECORDED = pathlib.Path("benchmarks/instruction-counts.json")
WORKLOADS = ("full", "lookup", "retrieval")
ALLOWED = 0.03

# Makes the C library choose the same string functions on every x86-64 processor.
ENVIRONMENT = {
    "PATH": os.environ["PATH"],
    "LC_ALL": "C",
    "LD_BIND_NOW": "1",
    "GLIBC_TUNABLES": "glibc.cpu.hwcaps=-AVX512F,-AVX512VL,-AVX512BW,-AVX2,-AVX,-BMI1,-BMI2,"
                      "-LZCNT,-MOVBE,-RTM,-ERMS,-FSRM,-SSE4_2,-SSE4_1,-SSSE3,"
                      "-AVX_Fast_Unaligned_Load,-Prefer_No_VZEROUPPER",
}


def prepare(workload, folder):
    """Writes the input of a workload and returns the program's arguments."""
    product = roots.Section("copperbridge", seed=4711, page_count=600)
    if workload == "retrieval":
        product = next(roots.products(1))
        roots.generate(folder, 2, page_count=13)
        # One plain file and one package remain, so that the system's order does not matter.
        lookup = folder / "docCatalog/referenceapi_lookup"
        next(lookup.glob("*_ja.json")).unlink()
        next(lookup.glob("*_de.zip")).unlink()
        return folder, product.name
    folder.mkdir(parents=True)
    make_records = roots.items if workload == "full" else roots.lookup_records
    (folder / "file.json").write_bytes(roots.make_file(product, "de", make_records))
    return folder / "file.json", product.name


def count(programs, workload, profile="/dev/null"):
    """Returns the instructions of one workload; `profile` is callgrind's output file."""
    # A relative path has the same length on every machine.
    folder = pathlib.Path("build/guard") / workload
    shutil.rmtree(folder, ignore_errors=True)
    program = os.path.relpath(programs / "docparser_workload")
    arguments = [str(argument) for argument in prepare(workload, folder)]
    done = subprocess.run(
        ["setarch", "-R", "valgrind", "--tool=callgrind", "--toggle-collect=runMeasured",
         f"--callgrind-out-file={profile}", program, workload, *arguments],
        env=ENVIRONMENT, stderr=subprocess.PIPE, text=True)
    found = re.search(r"Collected : (\d+)", done.stderr)
    if done.returncode != 0 or not found or int(found[1]) == 0:
        sys.exit(f"counting the instructions of {workload} failed:\n{done.stderr}")
    return int(found[1])


def count_all(programs):
    return {workload: count(programs, workload) for workload in WORKLOADS}


def compiler():
    done = subprocess.run(["c++", "--version"], stdout=subprocess.PIPE, text=True, check=True)
    return done.stdout.splitlines()[0]


def built_with():
    """What the counts depend on besides the project's own code."""
    packages = ("libboost1.81-dev", "libc6", "libdeflate0", "libstdc++6", "libzip4", "valgrind",
                "zlib1g")
    versions = subprocess.run(["dpkg-query", "--show", "--showformat=${Package} ${Version}\\n",
                               *packages], stdout=subprocess.PIPE, text=True).stdout.splitlines()
    return {"compiler": compiler(), "preset": "release"} | dict(map(str.split, versions))


def update(programs):
    recorded = {"built with": built_with(), "instructions": count_all(programs)}
    RECORDED.write_text(json.dumps(recorded, indent=4) + "\n", encoding="utf-8")
    print(f"recorded in {RECORDED}: {recorded['instructions']}")
    return 0


def check(programs):
    recorded = json.loads(RECORDED.read_text(encoding="utf-8"))
    here = built_with()
    for tool, version in recorded["built with"].items():
        if here.get(tool) != version:
            print(f"note: recorded with {tool} {version}, now {here.get(tool)}")
    is_good = True
    for workload, now in count_all(programs).items():
        before = recorded["instructions"][workload]
        change = now / before - 1
        is_more = change > ALLOWED
        is_good = is_good and not is_more
        verdict = f"MORE THAN {ALLOWED:.0%} ABOVE" if is_more else "ok"
        print(f"{workload:10} {now:12,} instructions, recorded {before:12,}, {change:+7.2%}  "
              f"{verdict}")
    if not is_good:
        print("find the cause, or record the new counts: scripts/benchmark --check --update")
    return 0 if is_good else 1
