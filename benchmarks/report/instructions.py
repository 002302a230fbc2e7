"""What the instructions of the guard's workloads are spent on."""

import re
import subprocess
import tempfile

import guard
import tables

# A function belongs to the first pattern that its line matches.
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
    """Yields (instructions, function), without the instructions of called functions."""
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
    """Returns the fraction of each share, by workload."""
    result = {}
    for workload in guard.WORKLOADS:
        counts = dict.fromkeys([name for name, _ in SHARES] + ["the rest"], 0)
        for instructions, function in annotate(programs, workload):
            counts[share_of(function)] += instructions
        total = sum(counts.values())
        result[workload] = {name: count / total for name, count in counts.items()}
    return result


def table(profile):
    names = next(iter(profile.values()))
    rows = [[name] + [f"{shares[name] * 100:.0f} %" for shares in profile.values()]
            for name in names]
    return tables.format_table(["instructions spent on"] + list(profile), rows)
