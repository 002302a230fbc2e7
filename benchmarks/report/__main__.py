"""Measures the library next to floors and peers and reports it; see scripts/benchmark."""

import argparse
import pathlib
import sys

import document
import guard
import measure
import picture
import tables

GENERATED = (50, 200, 800)


def parse_arguments():
    parser = argparse.ArgumentParser(prog="scripts/benchmark", description=__doc__)
    parser.add_argument("roots", nargs="*", metavar="ROOT", type=pathlib.Path,
                        help="reference roots to measure instead of generated ones")
    parser.add_argument("--quick", action="store_true", help="fewer repetitions")
    parser.add_argument("--svg", metavar="FILE", type=pathlib.Path,
                        help="draw the table's times into FILE")
    parser.add_argument("--docs", action="store_true",
                        help="put the figures and the picture into docs/performance.md")
    parser.add_argument("--check", action="store_true",
                        help="compare instruction counts with the kept ones instead")
    parser.add_argument("--update", action="store_true",
                        help="with --check: keep today's instruction counts")
    parser.add_argument("--build", type=pathlib.Path, required=True, help=argparse.SUPPRESS)
    arguments = parser.parse_args()
    if arguments.update and not arguments.check:
        parser.error("--update goes with --check")
    if arguments.docs and (arguments.roots or arguments.quick):
        parser.error("--docs takes the generated roots and all repetitions")
    return arguments


def print_tables(report):
    for text in tables.all_tables(report):
        print()
        print(text)


def measure_generated(programs, effort):
    folder = programs.parent.parent / "benchmark-roots"
    roots = [measure.generate(programs, folder / str(count), count) for count in GENERATED]
    single = measure.generate_single(programs, folder / "single", 10_000_000)
    report = measure.measure_root(programs, roots[1], effort)
    others = [measure.measure_growth(programs, root, effort) for root in (roots[0], roots[2])]
    report.growth = measure.growth_of([others[0], report.warm, others[1]])
    report.single = measure.measure_single(programs, single, effort)
    report.merge = measure.measure_merge(programs)
    return report


def main():
    arguments = parse_arguments()
    programs = arguments.build / "benchmarks"
    if arguments.check:
        return guard.update(programs) if arguments.update else guard.check(programs)

    effort = measure.QUICK if arguments.quick else measure.FULL
    if arguments.roots:
        reports = [measure.measure_root(programs, root, effort) for root in arguments.roots]
        if len(reports) > 1:
            growth = measure.growth_of([report.warm for report in reports])
            for report in reports:
                report.growth = growth
    else:
        reports = [measure_generated(programs, effort)]
    for report in reports:
        print_tables(report)
    if arguments.svg:
        arguments.svg.write_text(picture.draw(reports[0]), encoding="utf-8")
    if arguments.docs:
        document.write(reports[0], programs)
    return 0


if __name__ == "__main__":
    sys.exit(main())
