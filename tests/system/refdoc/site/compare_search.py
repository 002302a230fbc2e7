"""Checks that the search of a site ranks as the command search does.

usage: compare_search.py REFDOC NODE

Writes a reference root whose index has several parts, and its site. Then 200 queries must have the
same results in the same order in both: exact names, prefixes, parts, typing errors, several words
and other letter case, in several scripts.
"""

import json
import pathlib
import random
import subprocess
import sys
import tempfile

MATCHES = ("exact", "prefix", "word", "substring", "near")
QUERY_COUNT = 200
LARGEST_PART = 200_000

WORDS = ("align", "batch", "graft", "prune", "smooth", "series", "window", "Straße", "GRÖSSE", "ἄνθος",
         "ΟΔΟΣ", "όδος", "İzmir", "ısı", "ﬁlter", "ĸæl", "ᎠᎡᎢ", "ꭰꭱꭲ", "木の枝", "𐐀𐐁", "𐐨𐐩", "Kelvin", "ǅul",
         "dǆep", "naïve", "nai\u0308ve", "x", "y1", "a_b", "fit2d", "ß", "ſet", "set", "ŉop")


class Generator:
    """Makes the entries and the queries, the same in every run."""

    def __init__(self):
        self.random = random.Random(17)

    def name(self):
        parts = [self.random.choice(WORDS) for _ in range(self.random.randint(1, 3))]
        return self.random.choice((".", "_", "", " ")).join(parts)

    def entry(self, number):
        entry = {"name": self.name(), "href": f"ref/{self.random.choice(WORDS[:7])}{number % 40}.html",
                 "refpurpose": f"{self.name()} {self.name()} no. {number}",
                 "type": self.random.choice(("function", "class", "operator"))}
        if self.random.random() < 0.2:
            entry["deprecated"] = True
        return entry

    def mistyped(self, text):
        at = self.random.randrange(len(text))
        return self.random.choice((text[:at] + text[at + 1:], text[:at] + "q" + text[at:],
                                   text[:at] + text[at:][1::-1] + text[at + 2:],
                                   text[:at] + "q" + text[at + 1:]))

    def part(self, text):
        start = self.random.randrange(len(text))
        return text[start:start + self.random.randint(1, 6)]

    def query(self, entries):
        entry = self.random.choice(entries)
        name = entry["name"]
        return self.random.choice((
            lambda: name,
            lambda: name[:self.random.randint(1, len(name))],
            lambda: self.part(name),
            lambda: self.mistyped(name),
            lambda: self.mistyped(self.mistyped(name)),
            lambda: name.upper(),
            lambda: name.lower(),
            lambda: self.part(entry["refpurpose"]),
            lambda: entry["href"][4:],
            lambda: f"{self.part(name)} {self.part(entry['refpurpose'])}",
            lambda: self.random.choice(WORDS).swapcase() + " " + self.random.choice(WORDS)))()


def write_lookup(folder, product, entries):
    section = {"productName": product.upper(), "baseCode": product, "helpFolder": product,
               "helpLocation": f"help/{product}", "refItems": entries}
    (folder / f"{product}.json").write_text(json.dumps(section), encoding="utf-8")


def write_install_folder(folder, entries):
    """The first half of the entries is installed. One item makes it a site."""
    catalog = folder / "help/docCatalog"
    for name in ("referenceapi", "referenceapi_lookup"):
        (catalog / name).mkdir(parents=True)
    half = len(entries) // 2
    write_lookup(catalog / "referenceapi_lookup", "orchard", entries[:half])
    write_lookup(catalog / "referenceapi_lookup", "cellar", entries[half:])
    write_lookup(catalog / "referenceapi", "orchard", [{"href": "a", "refpurpose": "b"}])
    manifest = {"topLevelProducts": [{"shortName": "orchard"}]}
    (folder / "installation.json").write_text(json.dumps(manifest), encoding="utf-8")


def results_of_command(refdoc, install, query):
    """[match, name, purpose, flags], as rank_in_node.js prints them."""
    run = subprocess.run([refdoc, "--install", install, "--jsonl", "search", "--limit", "0", "--",
                          *query.split()], stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, check=False,
                         timeout=60)
    assert run.returncode <= 1, run
    results = []
    for line in run.stdout.decode("utf-8").split("\n")[:-1]:
        result = json.loads(line)
        record = result["record"]
        flags = (0 if result["installed"] else 1) + (2 if record["deprecated"] else 0)
        results.append([MATCHES.index(result["match"]), record["name"], record["refPurpose"], flags])
    return results


def results_of_site(node, site, queries):
    script = pathlib.Path(__file__).parent / "rank_in_node.js"
    run = subprocess.run([node, script, site, "en"], input=json.dumps(queries).encode("utf-8"),
                         stdout=subprocess.PIPE, check=True, timeout=120)
    return json.loads(run.stdout)


def main(refdoc, node):
    generator = Generator()
    entries = [generator.entry(number) for number in range(6000)]
    queries = []
    while len(queries) < QUERY_COUNT:
        query = generator.query(entries).strip()
        if query and query not in queries:
            queries.append(query)
    with tempfile.TemporaryDirectory() as folder:
        install = pathlib.Path(folder) / "install"
        site = pathlib.Path(folder) / "site"
        write_install_folder(install, entries)
        subprocess.run([refdoc, "--install", install, "site", site], stdout=subprocess.DEVNULL,
                       check=True, timeout=60)
        sizes = [part.stat().st_size for part in (site / "refdoc-site/search/en").iterdir()]
        assert len(sizes) > 2 and max(sizes) <= LARGEST_PART, sizes
        found = results_of_site(node, site, queries)
        matches = set()
        for query, results in zip(queries, found, strict=True):
            expected = results_of_command(refdoc, install, query)
            matches.update(result[0] for result in expected)
            if results != expected:
                first = next(pair for pair in zip(results + [None], expected + [None]) if pair[0] != pair[1])
                print(f"{query!r}: {len(results)} results, expected {len(expected)}; first difference:", *first,
                      sep="\n  ")
                return 1
        assert len(matches) == len(MATCHES), matches
    return 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
