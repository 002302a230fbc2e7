"""Measures the library, floors and other JSON libraries, and reports the figures."""

import argparse
import datetime
import pathlib
import re
import sys

import guard
import instructions
import measure
import picture
import tables

PAGE = pathlib.Path("docs/performance.md")


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


def processor():
    cpu = pathlib.Path("/proc/cpuinfo").read_text(encoding="utf-8")
    return re.search(r"^model name\s*: (.*)$", cpu, re.MULTILINE)[1]


def replace(page, mark, content):
    pattern = re.compile(f"(<!-- {mark} -->\n).*?(<!-- end of {mark} -->)", re.DOTALL)
    page, count = pattern.subn(lambda found: f"{found[1]}{content}\n{found[2]}", page)
    if count != 1:
        raise ValueError(f"{PAGE} has no place for {mark}")
    return page


def write_page(report, programs):
    """Puts the figures into the page, each between the comments that mark its place."""
    contents = tables.all_tables(report)
    contents["machine"] = (f"Measured on {datetime.date.today():%d %B %Y}: {processor()}, "
                           f"{guard.compiler()}.")
    contents["profile"] = instructions.table(instructions.measure(programs))
    page = PAGE.read_text(encoding="utf-8")
    for mark, content in contents.items():
        page = replace(page, mark, content)
    PAGE.write_text(page, encoding="utf-8")
    PAGE.with_suffix(".svg").write_text(picture.draw(report), encoding="utf-8")


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
        write_page(reports[0], programs)
    return 0


if __name__ == "__main__":
    sys.exit(main())
