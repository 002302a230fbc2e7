"""The memory of many calls."""

import gc
import os
import tracemalloc
from pathlib import Path
from typing import Callable

import docparser
from conftest import SaveProduct

CALLS = 10_000
# A call that does not free one of its strings leaks at least this much.
LEAK_PER_CALL = 300


def resident_bytes() -> int:
    pages = int(Path("/proc/self/statm").read_text().split()[1])
    return pages * os.sysconf("SC_PAGE_SIZE")


def check_growth(call: Callable[[], None]) -> None:
    for _ in range(CALLS // 10):
        call()
    gc.collect()
    tracemalloc.start()
    traced, resident = tracemalloc.get_traced_memory()[0], resident_bytes()
    for _ in range(CALLS):
        call()
    gc.collect()
    traced_growth = tracemalloc.get_traced_memory()[0] - traced
    tracemalloc.stop()
    assert traced_growth < CALLS
    assert resident_bytes() - resident < CALLS * LEAK_PER_CALL / 2


def test_reading_a_product_leaves_nothing(save_product: SaveProduct) -> None:
    root = save_product("Press", {"href": "a.html", "refpurpose": "Press apples"})
    documentation = docparser.open(root)
    other = docparser.open(root, language="de")

    def call() -> None:
        documentation.refresh()
        documentation.product("Press")
        other.refresh()

    check_growth(call)


def test_missing_product_leaves_nothing(save_product: SaveProduct) -> None:
    root = save_product("Press", {"href": "a.html", "refpurpose": "Press apples"})
    documentation = docparser.open(root)

    def call() -> None:
        try:
            documentation.product("Mill")
        except docparser.ProductNotFound:
            pass

    check_growth(call)
