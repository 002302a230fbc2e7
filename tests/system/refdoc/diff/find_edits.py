"""Edits a generated tree of 200 products, and compares the edits with the changes that refdoc diff finds.

Usage: find_edits.py REFDOC

Every edit must be found, and nothing else. Prints the number of edits, of changes, of those that were found (recall) and of
those that are edits (precision).
"""

import copy
import json
import pathlib
import random
import subprocess
import sys
import tempfile

PRODUCTS = 200
ITEMS = 12
WORDS = "sap graft prune water yield press hive scale batch cellar bloom frost soil trunk probe row".split()


class Tree:
    """The full records and the lookup records of each product, as in the files."""

    def __init__(self, generator):
        self.generator = generator
        self.full = {}
        self.lookup = {}
        for number in range(PRODUCTS):
            self.add_product(f"Product{number:03}")

    def text(self, size=8):
        return " ".join(self.generator.choice(WORDS) for _ in range(size))

    def add_product(self, name):
        key = name.lower()
        items = [self.item(f"{key}{index}") for index in range(ITEMS)]
        entries = [{"name": item["refentity"][0]["name"], "href": item["href"], "refpurpose": item["refpurpose"]}
                   for item in items]
        header = {"productName": name, "baseCode": f"{key}-base", "helpFolder": key, "helpLocation": f"help/{key}"}
        self.full[name] = {**header, "refItems": items}
        self.lookup[name] = {**header, "refItems": entries}

    def item(self, name):
        return {
            "href": f"ref/{name}.html", "refpurpose": self.text(), "description": self.text(30),
            "refentity": [{"name": name}],
            "syntaxgroups": [{"title": "", "syntaxes": [{"syntax": f"y = {name}(x)"}, {"syntax": f"{name}(x, n)"}]}],
        }

    def write(self, root):
        for folder, products in (("referenceapi", self.full), ("referenceapi_lookup", self.lookup)):
            path = root / "docCatalog" / folder
            path.mkdir(parents=True)
            for name, product in products.items():
                (path / f"{name}.json").write_text(json.dumps(product), encoding="utf-8")


class Editor:
    """Makes edits, each of which is one change: an id, a product, a link and a JSON pointer."""

    def __init__(self, tree):
        self.tree = tree
        self.generator = tree.generator
        self.expected = []

    def note(self, change_class, change_id, product, href="", field=""):
        self.expected.append((change_class, change_id, product, href, field))

    def edit_all(self):
        edits = [self.purpose, self.description, self.deprecation, self.introduction, self.move, self.remove_item,
                 self.add_item, self.entry_purpose, self.entry_deprecation, self.remove_entry, self.add_entry,
                 self.header]
        for number, product in enumerate(list(self.tree.full)):
            if number % 5 == 0:
                continue # stays as it is
            if number % 41 == 1:
                self.remove_product(product)
                continue
            # Each edit is at another item, so that none hides another.
            for index, edit in enumerate(self.generator.sample(edits, 4)):
                edit(product, index)
        self.tree.add_product("Product999")
        self.note("notable", "product-added", "Product999")

    def remove_product(self, product):
        del self.tree.full[product], self.tree.lookup[product]
        self.note("breaking", "product-removed", product)

    def change_item(self, product, index, key, value, change_class, pointer):
        item = self.tree.full[product]["refItems"][index]
        item[key] = value
        self.note(change_class, "item-changed", product, item["href"], pointer)

    def purpose(self, product, index):
        self.change_item(product, index, "refpurpose", self.tree.text(9), "textual", "/refPurpose")

    def description(self, product, index):
        self.change_item(product, index, "description", self.tree.text(31), "textual", "/description")

    def deprecation(self, product, index):
        self.change_item(product, index, "deprecationstatus", "deprecated", "notable", "/deprecationStatus")

    def introduction(self, product, index):
        self.change_item(product, index, "introduced", "R2", "textual", "/introduced")

    def move(self, product, index):
        item = self.tree.full[product]["refItems"][index]
        self.note("breaking", "item-moved", product, item["href"], "/href")
        item["href"] = item["href"].replace("ref/", "moved/")

    def remove_item(self, product, index):
        items = self.tree.full[product]["refItems"]
        # The last items, so that the index of the others stays.
        item = items.pop()
        self.note("breaking", "item-removed", product, item["href"])

    def add_item(self, product, index):
        item = self.tree.item(f"new{index}")
        self.tree.full[product]["refItems"].insert(6, item)
        self.note("notable", "item-added", product, item["href"])

    def change_entry(self, product, index, key, value, change_class, pointer):
        entry = self.tree.lookup[product]["refItems"][index]
        entry[key] = value
        self.note(change_class, "lookup-changed", product, entry["href"], pointer)

    def entry_purpose(self, product, index):
        self.change_entry(product, index, "refpurpose", self.tree.text(9), "textual", "/refPurpose")

    def entry_deprecation(self, product, index):
        self.change_entry(product, index, "deprecated", True, "notable", "/deprecated")

    def remove_entry(self, product, index):
        entry = self.tree.lookup[product]["refItems"].pop()
        self.note("breaking", "lookup-removed", product, entry["href"])

    def add_entry(self, product, index):
        entry = {"name": f"extra{index}", "href": f"ref/extra{index}.html", "refpurpose": self.tree.text()}
        self.tree.lookup[product]["refItems"].insert(6, entry)
        self.note("notable", "lookup-added", product, entry["href"])

    def header(self, product, index):
        for files in (self.tree.full, self.tree.lookup):
            files[product]["productName"] += " 2"
        self.note("textual", "section-changed", product, "", "/productName")


def found_changes(refdoc, old, new):
    result = subprocess.run([refdoc, "diff", "--jsonl", old, new], capture_output=True, text=True, check=True,
                            encoding="utf-8")
    assert result.stderr == "", result.stderr
    changes = [json.loads(line) for line in result.stdout.splitlines()]
    return [(change["class"], change["id"], change["product"], change["href"], change["field"]) for change in changes]


def main():
    refdoc = sys.argv[1]
    with tempfile.TemporaryDirectory() as folder:
        old, new = pathlib.Path(folder, "old"), pathlib.Path(folder, "new")
        tree = Tree(random.Random(4))
        tree.write(old)
        editor = Editor(copy.deepcopy(tree))
        editor.edit_all()
        editor.tree.write(new)
        assert found_changes(refdoc, old, old) == []
        found = found_changes(refdoc, old, new)
    expected = editor.expected
    missed = sorted(set(expected) - set(found))
    wrong = sorted(set(found) - set(expected))
    hits = len(set(found) & set(expected))
    print(f"{len(expected)} edits, {len(found)} changes, recall {hits / len(set(expected)):.3f}, "
          f"precision {hits / len(set(found)):.3f}")
    for title, changes in (("missed", missed), ("wrong", wrong)):
        for change in changes[:20]:
            print(f"{title}: {change}")
    return 1 if missed or wrong or len(found) != len(expected) else 0


sys.exit(main())
