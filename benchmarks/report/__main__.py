"""Measures the library, floors and other JSON libraries, and reports the figures."""

import argparse
import pathlib
import sys

import document
import guard
import measure
import picture
import tables


def parse_arguments():
    parser = argparse.ArgumentParser(prog="scripts/benchmark", description=__doc__)
    parser.add_argument("roots", nargs="*", metavar="ROOT", type=pathlib.Path,
                        help="reference roots to measure instead of generated ones")
    parser.add_argument("--quick", action="store_true", help="measure with fewer repetitions")
    parser.add_argument("--svg", metavar="FILE", type=pathlib.Path,
                        help="draw the times of the table into FILE")
    parser.add_argument("--docs", action="store_true",
                        help="update the figures and the picture of docs/performance.md")
    parser.add_argument("--check", action="store_true",
                        help="compare instruction counts with the recorded ones instead")
    parser.add_argument("--update", action="store_true",
                        help="with --check: record the current instruction counts")
    parser.add_argument("--build", type=pathlib.Path, required=True, help=argparse.SUPPRESS)
    arguments = parser.parse_args()
    if arguments.update and not arguments.check:
        parser.error("--update requires --check")
    if arguments.docs and (arguments.roots or arguments.quick):
        parser.error("--docs requires the generated roots and all repetitions")
    return arguments


def main():
    arguments = parse_arguments()
    programs = arguments.build / "benchmarks"
    if arguments.check:
        return guard.update(programs) if arguments.update else guard.check(programs)

    effort = measure.QUICK if arguments.quick else measure.FULL
    if arguments.roots:
        reports = [measure.measure_root(programs, root, effort) for root in arguments.roots]
    else:
        folder = arguments.build.parent / "benchmark-roots"
        reports = [measure.measure_generated(programs, folder, effort)]
    for report in reports:
        print("", f"Root: {report.root}", *tables.all_tables(report).values(), sep="\n\n")
    if arguments.svg:
        arguments.svg.write_text(picture.draw(reports[0]), encoding="utf-8")
    if arguments.docs:
        document.write(reports[0], programs)
    return 0


if __name__ == "__main__":
    sys.exit(main())
