"""Where the instructions of the guard's workloads go, by what they are spent on."""

import re
import subprocess
import tempfile

import guard
import tables

# The first pattern that a function's line matches has its instructions.
SHARES = (
    ("allocator", r"malloc\.c|arena\.c|operator (new|delete)"),
    ("inflating", r"libz\.so|libzip|libdeflate"),
    ("validating UTF-8", r"isWellFormed|isValidatedInAdvance"),
    ("making text", r"fl::i18n|getFluString|StringConverters|platform::.*(toUtf16|::decode\()"),
    ("JSON parser and document", r"libboost_json|^[^(]*\bboost::json::"),
    ("copying and comparing memory", r"/multiarch/|/string/|wmem"),
    ("records: keys, maps, vectors", r"docparser_workload|libdocparser|libstdc\+\+"),
)
LINE = re.compile(r"^\s*([\d,]+) \([ \d.]+%\)\s+(\S.*)$")


def annotate(programs, workload):
    """Lines of (instructions, function), each function's own instructions alone."""
    with tempfile.NamedTemporaryFile() as profile:
        guard.count(programs, workload, profile.name)
        output = subprocess.run(["callgrind_annotate", "--threshold=100", profile.name],
                                stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True,
                                check=True).stdout
    for line in output.splitlines():
        found = LINE.match(line)
        if found and "PROGRAM TOTALS" not in line:
            yield int(found[1].replace(",", "")), found[2]


def share_of(function):
    return next((name for name, pattern in SHARES if re.search(pattern, function)), "the rest")


def measure(programs):
    """For each workload the part of its instructions that each share has."""
    result = {}
    for workload in guard.WORKLOADS:
        sums = dict.fromkeys([name for name, _ in SHARES] + ["the rest"], 0)
        for instructions, function in annotate(programs, workload):
            sums[share_of(function)] += instructions
        total = sum(sums.values())
        result[workload] = {name: count / total for name, count in sums.items()}
    return result


def table(profile):
    names = next(iter(profile.values()))
    rows = [[name] + [f"{shares[name] * 100:.0f} %" for shares in profile.values()]
            for name in names]
    return tables.format_table(["instructions spent on"] + list(profile), rows)
