"""Puts the figures into docs/performance.md, between the marks that are there for them."""

import datetime
import pathlib
import re
import subprocess

import instructions
import picture
import tables

PAGE = pathlib.Path("docs/performance.md")
PICTURE = pathlib.Path("docs/performance.svg")


def processor():
    for line in pathlib.Path("/proc/cpuinfo").read_text(encoding="utf-8").splitlines():
        if line.startswith("model name"):
            return line.split(":")[1].strip()
    return "unknown processor"


def compiler():
    return subprocess.run(["c++", "--version"], stdout=subprocess.PIPE, text=True,
                          check=True).stdout.splitlines()[0]


def put(page, mark, content):
    pattern = re.compile(f"(<!-- {mark} -->\n).*?(<!-- end of {mark} -->)", re.DOTALL)
    replaced, count = pattern.subn(lambda found: f"{found[1]}{content}\n{found[2]}", page)
    if count != 1:
        raise ValueError(f"{PAGE} has no place for {mark}")
    return replaced


def write(report, programs):
    page = PAGE.read_text(encoding="utf-8")
    page = put(page, "machine", f"Measured on {datetime.date.today():%d %B %Y}: {processor()}, "
                                f"{compiler()}.")
    page = put(page, "figures", tables.main_table(report))
    page = put(page, "parts", tables.parts_table(report))
    page = put(page, "single", tables.single_table(report))
    page = put(page, "merge", tables.merge_table(report))
    page = put(page, "profile", instructions.table(instructions.measure(programs)))
    page = put(page, "targets", tables.target_table(report))
    PAGE.write_text(page, encoding="utf-8")
    PICTURE.write_text(picture.draw(report), encoding="utf-8")
