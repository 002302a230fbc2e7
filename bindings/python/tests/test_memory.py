"""The memory of many calls."""

import gc
import os
import tracemalloc
from pathlib import Path
from typing import Callable

import docparser
from conftest import SaveProduct

CALLS = 10_000
WARM_UP = 500
# A call that does not free one of its strings leaks at least this much.
LEAK_PER_CALL = 300


def resident_bytes() -> int:
    pages = int(Path("/proc/self/statm").read_text().split()[1])
    return pages * os.sysconf("SC_PAGE_SIZE")


def repeat(call: Callable[[], None], times: int) -> None:
    for _ in range(times):
        call()
    gc.collect()


def check_growth(call: Callable[[], None]) -> None:
    """Fails if memory of the library, or objects of the interpreter, grow with the number of calls."""
    repeat(call, WARM_UP)
    before = resident_bytes()
    repeat(call, CALLS)
    assert resident_bytes() - before < CALLS * LEAK_PER_CALL / 2

    tracemalloc.start()
    try:
        repeat(call, 2)
        traced = tracemalloc.get_traced_memory()[0]
        repeat(call, WARM_UP)
        assert tracemalloc.get_traced_memory()[0] - traced < 16 * WARM_UP
    finally:
        tracemalloc.stop()


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
