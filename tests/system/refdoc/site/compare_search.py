"""Checks that the search of a site ranks as the command search does, and what it loads.

usage: compare_search.py REFDOC NODE

Writes a reference root of 200 products with 6000 lookup entries, and its site. Then 200 queries must
have the same first results in the same order in both: exact names, prefixes, parts, typing errors,
links, several words, short texts, other letter case and texts without a match, in several scripts.
No query may load more than 200 kB of the index. A query of several texts that nearly all entries match has
partial results, which must be results of the command.
"""

import json
import pathlib
import random
import subprocess
import sys
import tempfile

MATCHES = ("exact", "prefix", "word", "substring", "near")
QUERY_COUNT = 200
RESULT_COUNT = 20
GENERAL_QUERY = "a e i n"
LIMIT = 200_000
LARGEST_PART = 8_000
PRODUCT_COUNT = 200
ENTRY_COUNT = 6000

SYLLABLES = ("al", "ba", "cor", "de", "el", "fi", "gra", "hu", "in", "jo", "ka", "lor", "mi", "no", "pru", "smo")
RARE_WORDS = ("align", "batch", "graft", "prune", "smooth", "series", "window", "Straße", "GRÖSSE", "ἄνθος",
              "ΟΔΟΣ", "όδος", "İzmir", "ısı", "ﬁlter", "ĸæl", "ᎠᎡᎢ", "ꭰꭱꭲ", "木の枝", "𐐀𐐁", "𐐨𐐩", "Kelvin",
              "ǅul", "dǆep", "naïve", "nai\u0308ve", "x", "y1", "a_b", "fit2d", "ß", "ſet", "set", "ŉop", "->",
              "a--b", "C++", "...")
FREQUENT_WORDS = ("the", "of", "a", "and")


class Generator:
    """Makes the entries and the queries, the same in every run."""

    def __init__(self):
        self.random = random.Random(17)
        self.words = list(RARE_WORDS)
        while len(self.words) < 1500:
            self.words.append("".join(self.random.choices(SYLLABLES, k=self.random.randint(2, 4))))

    def word(self):
        return self.random.choice(self.random.choice((RARE_WORDS, self.words, self.words)))

    def name(self):
        parts = [self.word() for _ in range(self.random.randint(1, 3))]
        return self.random.choice((".", "_", "", " ")).join(parts)

    def entry(self, number):
        purpose = [self.word() for _ in range(5)] + self.random.choices(FREQUENT_WORDS, k=3)
        self.random.shuffle(purpose)
        name = self.name()
        entry = {"name": name, "href": f"ref/{name.lower().replace(' ', '-')}.html#{number % 40}",
                 "refpurpose": " ".join(purpose), "type": self.random.choice(("function", "class", "operator"))}
        if self.random.random() < 0.2:
            entry["deprecated"] = True
        return entry

    def mistyped(self, text):
        at = self.random.randrange(len(text))
        return self.random.choice((text[:at] + text[at + 1:], text[:at] + "q" + text[at:],
                                   text[:at] + text[at:][1::-1] + text[at + 2:],
                                   text[:at] + "q" + text[at + 1:]))

    def part(self, text, most=6):
        start = self.random.randrange(len(text))
        return text[start:start + self.random.randint(1, most)]

    def query(self, entries):
        entry = self.random.choice(entries)
        name = entry["name"]
        words = entry["refpurpose"].split()
        return self.random.choice((
            lambda: name,
            lambda: name[:self.random.randint(1, len(name))],
            lambda: self.part(name),
            lambda: self.part(name, 3),
            lambda: self.mistyped(name),
            lambda: self.mistyped(self.mistyped(name)),
            lambda: name.upper(),
            lambda: name.lower(),
            lambda: self.part(entry["refpurpose"]),
            lambda: self.random.choice(words),
            lambda: entry["href"],
            lambda: entry["href"][4:],
            lambda: f"{self.part(name)} {self.random.choice(words)}",
            lambda: " ".join(self.random.sample(words, 2)),
            lambda: self.random.choice(RARE_WORDS).swapcase() + " " + self.word(),
            lambda: "qz" + name))()


def write_lookup(folder, product, entries):
    section = {"productName": product.upper(), "baseCode": product, "helpFolder": product,
               "helpLocation": f"help/{product}", "refItems": entries}
    (folder / f"{product}.json").write_text(json.dumps(section), encoding="utf-8")


def write_install_folder(folder, entries):
    """Half of the products are installed. One item makes it a site."""
    catalog = folder / "help/docCatalog"
    for name in ("referenceapi", "referenceapi_lookup"):
        (catalog / name).mkdir(parents=True)
    products = [f"orchard{number}" for number in range(PRODUCT_COUNT)]
    for number, product in enumerate(products):
        write_lookup(catalog / "referenceapi_lookup", product, entries[number::PRODUCT_COUNT])
    write_lookup(catalog / "referenceapi", products[0], [{"href": "a", "refpurpose": "b"}])
    manifest = {"topLevelProducts": [{"shortName": product} for product in products[::2]]}
    (folder / "installation.json").write_text(json.dumps(manifest), encoding="utf-8")


def results_of_command(refdoc, install, query, limit):
    """[match, name, purpose, flags], as rank_in_node.js prints them."""
    run = subprocess.run([refdoc, "--install", install, "--jsonl", "search", "--limit", str(limit),
                          "--", *query.split()], stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, check=False,
                         timeout=60)
    assert run.returncode <= 1, run
    results = []
    for line in run.stdout.decode("utf-8").split("\n")[:-1]:
        result = json.loads(line)
        record = result["record"]
        flags = (0 if result["installed"] else 1) + (2 if record["deprecated"] else 0)
        results.append([MATCHES.index(result["match"]), record["name"], record["refPurpose"], flags])
    return results


def answers_of_site(node, site, queries):
    script = pathlib.Path(__file__).parent / "rank_in_node.js"
    run = subprocess.run([node, script, site, "en"], input=json.dumps(queries).encode("utf-8"),
                         stdout=subprocess.PIPE, check=True, timeout=120)
    return json.loads(run.stdout)


def differences(refdoc, install, query, answer):
    """Describes what is wrong with the answer of the site to a query."""
    if answer["bytes"] > LIMIT:
        yield f"loads {answer['bytes']} bytes"
    if answer["state"] != "complete":
        yield f"the results are {answer['state']}"
    expected = results_of_command(refdoc, install, query, RESULT_COUNT)
    for place, pair in enumerate(zip(answer["results"] + [None], expected + [None])):
        if pair[0] != pair[1]:
            yield f"result {place} is {pair[0]}, expected {pair[1]}"
            return


def differences_if_general(refdoc, install, query, answer):
    if answer["bytes"] > LIMIT:
        yield f"loads {answer['bytes']} bytes"
    if answer["state"] != "partial":
        yield f"the results are {answer['state']}"
    matches = results_of_command(refdoc, install, query, limit=0)
    if not all(result in matches for result in answer["results"]):
        yield "some of the partial results are wrong"


def check_site(refdoc, node, install, site, queries):
    answers = answers_of_site(node, site, queries + [GENERAL_QUERY])
    failures = [f"{GENERAL_QUERY!r}: {difference}"
                for difference in differences_if_general(refdoc, install, GENERAL_QUERY, answers[-1])]
    for query, answer in zip(queries, answers):
        failures += [f"{query!r}: {difference}" for difference in differences(refdoc, install, query, answer)]
    found = {result[0] for answer in answers for result in answer["results"]}
    assert len(found) == len(MATCHES), found
    sizes = sorted(answer["bytes"] for answer in answers)
    print(f"bytes loaded: {sizes[len(sizes) // 2]} for half of the queries, {sizes[-1]} at most")
    return failures


def main(refdoc, node):
    generator = Generator()
    entries = [generator.entry(number) for number in range(ENTRY_COUNT)]
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
        assert sum(sizes) > 10 * LIMIT and max(sizes) <= LARGEST_PART, (sum(sizes), max(sizes))
        failures = check_site(refdoc, node, install, site, queries)
        print(*failures, sep="\n")
        return 1 if failures else 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
