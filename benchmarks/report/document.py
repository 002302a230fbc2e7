"""Puts the figures into docs/performance.md, each between the comments that mark its place."""

import datetime
import pathlib
import re

import guard
import instructions
import picture
import tables

PAGE = pathlib.Path("docs/performance.md")
PICTURE = pathlib.Path("docs/performance.svg")


def processor():
    cpu = pathlib.Path("/proc/cpuinfo").read_text(encoding="utf-8")
    return re.search(r"^model name\s*: (.*)$", cpu, re.MULTILINE)[1]


def replace(page, mark, content):
    pattern = re.compile(f"(<!-- {mark} -->\n).*?(<!-- end of {mark} -->)", re.DOTALL)
    page, count = pattern.subn(lambda found: f"{found[1]}{content}\n{found[2]}", page)
    if count != 1:
        raise ValueError(f"{PAGE} has no place for {mark}")
    return page


def write(report, programs):
    contents = tables.all_tables(report)
    contents["machine"] = (f"Measured on {datetime.date.today():%d %B %Y}: {processor()}, "
                           f"{guard.compiler()}.")
    contents["profile"] = instructions.table(instructions.measure(programs))
    page = PAGE.read_text(encoding="utf-8")
    for mark, content in contents.items():
        page = replace(page, mark, content)
    PAGE.write_text(page, encoding="utf-8")
    PICTURE.write_text(picture.draw(report), encoding="utf-8")
