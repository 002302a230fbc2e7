"""Writes reference roots that the tests need besides the samples."""

import json
import random

WORDS = ("align", "batch", "graft", "harvest", "label", "mulch", "plant", "prune", "ripen", "smooth", "store", "water")
TYPES = ("function", "class", "method", "property", "operator", "constant", "app")
STATUSES = ("discouraged", "deprecated", "removed")
# Names that a system may refuse or an address has to encode.
AWKWARD_HREFS = ("ref/a b.html", "ref/100%.html", "ref/a#b.html", "ref/a?b.html", "ref/a&b.html", "ref/con.html",
                 "ref/Größe.html", "noextension", "ref/../up.html", "ref/A B.html", "ref/'quoted'.html", "ref/item0.html.")

MARKUP = ("<script>alert(document.title='run')</script>'\"><img src=x onerror=\"alert(document.title='run')\">"
          "<style>*{display:none}</style><!--")
# The end of an isolate that has no beginning, then an override and an isolate without end.
BIDI = "\u2069\u202e\u2067"
HOSTILE = f"{BIDI}{MARKUP}"
HOSTILE_AS_SHOWN = f"\u202e\u2067{MARKUP}\u2069"
SCRIPT_LINK = "javascript:alert(document.title='run')"
LONG = "b" * 1_000_000


def write_files(catalog, product, section, entries, suffix=""):
    """Writes the resource file and the lookup file of a product."""
    for folder, items in (("referenceapi", section["refItems"]), ("referenceapi_lookup", entries)):
        (catalog / folder).mkdir(parents=True, exist_ok=True)
        text = json.dumps({**section, "refItems": items}, ensure_ascii=False)
        (catalog / folder / f"{product}{suffix}.json").write_text(text, encoding="utf-8")


def write_malformed_file(catalog, product):
    """Writes a resource file that the library cannot use. The error is in a line of markup."""
    text = '{"productName":\n"' + HOSTILE.replace('"', '\\"') + '" "x"\n}'
    (catalog / f"referenceapi/{product}.json").write_text(text, encoding="utf-8")


def entries_of(items):
    """Returns an entry of the lookup index for each entity of the items."""
    return [{"name": entity["name"], "href": item["href"], "refpurpose": item["refpurpose"], "type": entity["type"]}
            for item in items for entity in item["refentity"]]


class LargeRoot:
    """Products in English and Arabic, the same in every run. Every second one is installed, and a file is malformed."""

    ITEMS = 6

    def __init__(self, product_count):
        self.random = random.Random(200)
        self.products = [f"{WORDS[number % len(WORDS)]}{number:03}" for number in range(product_count)]

    def write(self, folder):
        """Writes an install folder."""
        for product in self.products:
            hrefs = self.random.sample(AWKWARD_HREFS, self.ITEMS // 2)
            hrefs += [f"ref/item{number}.html" for number in range(self.ITEMS - len(hrefs))]
            items = [self.item(product, number, hrefs) for number in range(self.ITEMS)]
            self.write_product(folder, product, f"{product.capitalize()} Tools", items)
            translated = [{**item, "refpurpose": f"وصف {item['refpurpose']}"} for item in items[::2]]
            self.write_product(folder, product, f"أدوات {product}", translated, suffix="_ar")
        write_malformed_file(folder / "help/docCatalog", "broken")
        manifest = {"supportedDocLanguages": ["en", "ar"],
                    "topLevelProducts": [{"shortName": product} for product in self.products[::2]]}
        (folder / "installation.json").write_text(json.dumps(manifest), encoding="utf-8")

    def write_product(self, folder, product, display_name, items, suffix=""):
        section = {"productName": display_name, "baseCode": product.upper(), "helpFolder": product,
                   "helpLocation": f"help/{product}", "refItems": items}
        write_files(folder / "help/docCatalog", product, section, entries_of(items), suffix)

    def item(self, product, number, hrefs):
        name = f"{product}.{self.random.choice(WORDS)}{number}"
        return {"href": hrefs[number], "refpurpose": f"{self.random.choice(WORDS)} {number} of {product}",
                "description": " ".join(self.random.choices(WORDS, k=40)),
                "refentity": [{"type": self.random.choice(TYPES), "name": name}],
                "deprecationstatus": self.random.choice(("none", "none", *STATUSES)),
                "syntaxgroup": [{"title": "Call", "syntax": [f"y = {name}(x)", f"y = {name}(x, {name * 8})"]}],
                "inputs": [{"name": "x", "purpose": "a value", "value": ["1", "2"], "defaultvalue": "1",
                            "htmlid": "arg x"},
                           {"namevaluepairs": [{"name": "rule", "purpose": "a rule", "htmlid": "arg-rule"}]}],
                "outputs": [{"name": "y", "purpose": "the result", "htmlid": "out-y"}],
                "classpropertygroup": [{"title": "Size", "classproperty": [{"name": "Size", "purpose": "a size"}]}],
                "seealso": [{"url": url, "name": url} for url in self.links(hrefs)],
                "examples": [{"url": "examples/first.html", "open_command": "open first", "title": "First"}]}

    def links(self, hrefs):
        other = self.random.choice(self.products)
        return (*hrefs, "item0.html#arg-rule", "#arg x", "../ref/item1.html#prop_Size", "missing.html",
                f"../../{other}/ref/item0.html#out-y", f"help/{other}/ref/item0.html", "https://example.org/a?b&c#d")


def hostile_argument(name):
    return {"name": name, "purpose": HOSTILE, "value": [HOSTILE], "defaultvalue": HOSTILE, "syntaxtype": HOSTILE,
            "htmlid": f"\" onclick=\"alert(1)\" {name}"}


def hostile_item(href, name):
    argument = hostile_argument(name)
    group = {"title": HOSTILE, "syntaxtype": HOSTILE, "inputs": [argument], "classproperty": [argument]}
    links = [SCRIPT_LINK, f" {SCRIPT_LINK}", "JaVaScRiPt\t:alert(1)", "data:text/html,<script>alert(1)</script>",
             "vbscript:x", "//example.org/x", "\\\\example.org\\x", "file:///etc/passwd", HOSTILE, f"#{HOSTILE}",
             "https://example.org/\" onclick=\"alert(1)"]
    return {"href": href, "refpurpose": HOSTILE, "packagename": HOSTILE, "introduced": HOSTILE,
            "description": f"\u0000\u0007\u2028 {HOSTILE}", "deprecationstatus": HOSTILE,
            "refentity": [{"type": "class", "fcntype": HOSTILE, "name": name}],
            "appthumbnail": {"fileref": SCRIPT_LINK, "alt": HOSTILE},
            "syntaxgroup": [{"title": HOSTILE, "syntaxtype": HOSTILE, "syntax": [HOSTILE]}],
            "inputs": [argument, {"namevaluepairs": [argument]}], "inputgroup": [group],
            "outputs": [argument], "parameters": [argument], "classpropertygroup": [group],
            "seealso": [{"url": link, "name": HOSTILE} for link in links],
            "examples": [{"url": link, "open_command": HOSTILE, "title": HOSTILE} for link in links]}


def hostile_section(name, key, items):
    return {"schema": HOSTILE, "schemaVersion": HOSTILE, "productName": name, "baseCode": key, "helpFolder": key,
            "helpLocation": HOSTILE, "refItems": items}


def write_hostile_root(root):
    """Writes a product whose strings are markup, scripts in links and directional characters."""
    items = [hostile_item(f"ref/{HOSTILE}.html", HOSTILE), hostile_item(SCRIPT_LINK, SCRIPT_LINK)]
    write_files(root / "docCatalog", "Hostile", hostile_section(HOSTILE, HOSTILE, items), entries_of(items))
    write_malformed_file(root / "docCatalog", "Broken")


def write_long_root(root):
    """Writes a product whose names and links have a million letters."""
    items = [hostile_item(f"{LONG}.html", LONG)]
    write_files(root / "docCatalog", "Long", hostile_section(LONG, LONG, items), entries_of(items))
