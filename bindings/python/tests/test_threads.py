"""Objects with different settings in one process."""

import threading
from concurrent.futures import ThreadPoolExecutor
from pathlib import Path

import docparser

PURPOSES = {
    "en": "Smooth a series with a moving window",
    "de": "Zeitreihe mit einem gleitenden Fenster glätten",
}
ROUNDS = 50


def test_each_thread_gets_the_language_of_its_object(samples: Path) -> None:
    workers = 4
    start = threading.Barrier(workers)

    def read(language: str) -> set[str]:
        documentation = docparser.open(samples, language=language)
        start.wait()
        found = set()
        for _ in range(ROUNDS):
            documentation.refresh()
            [entry] = documentation.lookup("smooth")
            found |= {entry.ref_purpose, documentation.item(entry).ref_purpose}
        return found

    with ThreadPoolExecutor(workers) as pool:
        results = [(language, pool.submit(read, language)) for language in [*PURPOSES] * 2]
        for language, found in results:
            assert found.result() == {PURPOSES[language]}


def test_threads_share_an_object_that_others_refresh(samples: Path) -> None:
    documentation = docparser.open(samples, language="de")
    expected = docparser.open(samples, language="de").product("Orchard")

    def read(worker: int) -> bool:
        same = True
        for round in range(ROUNDS):
            if worker == 0:
                documentation.refresh()
            same = same and documentation.product("Orchard") == expected
        return same

    with ThreadPoolExecutor(4) as pool:
        assert all(pool.map(read, range(4)))
