"""Generates reference roots like those of real documentation, the same in every run.

Items have 18 strings on average. Every lookup record and every link leads to an item. A translation
lacks one page in twelve, and one product in twenty has a section of a support package.
"""

import dataclasses
import json
import zipfile

import words


@dataclasses.dataclass(frozen=True)
class Section:
    """A product or a support package, which has the same pages in every language."""
    name: str
    seed: int
    page_count: int

    def page(self, index):
        """A page's name and link, and the random numbers that decide what its records have."""
        random = words.Random(self.seed * 1_000_003 + index)
        name = f"{random.identifier(1 + random.below(3))}{index}"
        return name, f"ref/{name}.html", random

    def pages(self, language):
        return (self.page(index) for index in range(self.page_count)
                if language == "en" or index % 12 != 5)


class ItemWriter:
    """Writes the item of one page in one language."""

    def __init__(self, section, page, language):
        self.section = section
        self.name, self.href, self.random = page
        self.language = language
        # Prose has random numbers of its own, so that an item is the same in every language.
        self.words = words.Random(f"{self.href} {language}")

    def prose(self, size):
        return self.words.prose(self.language, size)

    def long_prose(self, size):
        return self.words.long_prose(self.language, size)

    def item(self):
        random = self.random
        item = {"href": self.href, "refpurpose": self.long_prose(84), "refentity": [self.entity()]}
        if random.chance(0.3):
            item["packagename"] = f"{self.section.name}.{random.identifier(1)}"
        if random.chance(0.7):
            item["introduced"] = f"version {1 + random.below(18)}.{random.below(6)}"
        if random.chance(0.4):
            item["description"] = self.long_prose(520)
        if random.chance(0.03):
            item["appthumbnail"] = {"fileref": f"images/{self.name}.png",
                                    "alt": self.long_prose(40)}
        if random.chance(0.04):
            item["deprecationstatus"] = random.pick(["discouraged", "deprecated"])
        if random.chance(0.75):
            item["syntaxgroup"] = self.list(self.syntax_group, 1 + random.count(0.08))
        item["inputs"] = self.list(self.argument, random.count(0.75))
        if random.chance(0.06):
            item["inputs"].append({"namevaluepairs": self.list(self.argument, 1 + random.count(2))})
        if random.chance(0.02):
            item["inputgroup"] = [{"title": self.prose(24),
                                   "inputs": self.list(self.argument, 1 + random.count(2))}]
        item["outputs"] = self.list(self.output, random.count(0.45))
        if random.chance(0.06):
            item["classpropertygroup"] = [{
                "title": self.prose(20),
                "classproperty": self.list(self.property, 1 + random.count(3))}]
        item["seealso"] = self.list(self.link, random.count(1.2))
        item["examples"] = self.list(self.example, random.count(0.22))
        if random.chance(0.05):
            item["parameters"] = self.list(self.argument, 1 + random.count(1))
        return shuffle_some({key: value for key, value in item.items() if value}, random)

    def list(self, make, count):
        return [make() for _ in range(count)]

    def entity(self):
        types = ["function", "function", "function", "method", "class", "property", "component"]
        entity = {"type": self.random.pick(types)}
        if self.random.chance(0.3):
            entity["fcntype"] = "method"
        return entity | {"name": self.name}

    def syntax_group(self):
        names = [self.random.identifier(2) for _ in range(3)]
        lines = [f"value = {self.name}({','.join(names[:count])})" for count in range(3, 0, -1)]
        return {"syntaxtype": self.random.pick(["function"] * 9 + ["command"]),
                "title": self.prose(18), "syntax": lines[:1 + self.random.count(1.2)]}

    def output(self):
        name = self.random.identifier(1 + self.random.below(2))
        output = {"name": name, "purpose": self.long_prose(96)}
        if self.random.chance(0.2):
            output["value"] = [self.prose(10) for _ in range(1 + self.random.count(1.5))]
        if self.random.chance(0.9):
            output["htmlid"] = f"argument_{name}_{self.random.below(99999)}"
        return output

    def argument(self):
        default = {"defaultvalue": self.prose(8)} if self.random.chance(0.2) else {}
        return self.output() | default

    def property(self):
        default = {"defaultvalue": self.prose(8)} if self.random.chance(0.4) else {}
        return {"name": self.random.identifier(2), "purpose": self.long_prose(70)} | default

    def link(self):
        name, href, _ = self.section.page(self.random.below(self.section.page_count))
        return {"url": href, "name": name}

    def example(self):
        name = self.random.identifier(3)
        return {"url": f"../{self.section.name}/ug/{name}.html", "open_command": f"example {name}",
                "title": self.long_prose(44)}


def shuffle_some(record, random):
    """Changes the order of the keys of one record in seventeen."""
    if not random.chance(0.06):
        return record
    return dict(sorted(record.items(), key=lambda member: random.below(1000)))


def items(section, language):
    return [ItemWriter(section, page, language).item() for page in section.pages(language)]


def lookup_records(section, language):
    """Three names for two pages."""
    records = []
    for number, (name, href, random) in enumerate(section.pages(language)):
        prose = words.Random(f"{href} {language} lookup")
        for each in [name, f"{name}Variant"][:1 + (number + 1) % 2]:
            record = {"name": each}
            if random.chance(0.95):
                types = ["function", "function", "method", "class", "property"]
                record["type"] = random.pick(types)
            record |= {"refpurpose": prose.long_prose(language, 70), "href": href}
            if random.chance(0.6):
                record["fcntype"] = random.pick(["method", "function"])
            if random.chance(0.03):
                record["deprecated"] = True
            records.append(shuffle_some(record, random))
    return records


def make_section(section, language, make_records):
    title = words.Random(section.seed).prose(language, 8)
    return {"schema": "reference", "schemaVersion": "2.1", "productName": f"{section.name} {title}",
            "baseCode": f"{section.name}code", "helpFolder": section.name,
            "helpLocation": f"help/{section.name}", "refItems": make_records(section, language)}


def make_file(product, language, make_records):
    """The bytes of a full file (`items`) or of a lookup file (`lookup_records`)."""
    document = make_section(product, language, make_records)
    if product.seed % 20 == 7:
        package = Section(product.name + "kit", product.seed + 1, max(1, product.page_count // 4))
        document["supportPackages"] = [make_section(package, language, make_records)]
    return json.dumps(document, ensure_ascii=False, separators=(",", ":")).encode()


def write_zip(path, entries):
    with zipfile.ZipFile(path, "w", zipfile.ZIP_DEFLATED) as package:
        for name, content in entries:
            # Without a ZipInfo, the entry has the current time.
            package.writestr(zipfile.ZipInfo(name), content, zipfile.ZIP_DEFLATED)


def write_lookups(folder, index, files):
    """Packs the files of every third product: by turns one package per file, or one for all."""
    if index % 3 != 0:
        for name, content in files:
            (folder / name).write_bytes(content)
    elif index % 2 == 0:
        for name, content in files:
            write_zip((folder / name).with_suffix(".zip"), [(name, content)])
    else:
        metadata = [("[Content_Types].xml", "<Types/>"), ("_rels/.rels", "<Relationships/>")]
        write_zip((folder / files[0][0]).with_suffix(".zip"), files + metadata)


def products(count, page_count=None):
    """Without a page count, it is log-normally distributed around 27."""
    random = words.Random(20_240_607)
    for index in range(count):
        pages = page_count or max(2, int(random.log_normal(27, 0.85)))
        yield Section(words.product_name(index), 1000 + index, pages)


def generate(root, product_count, page_count=None):
    """Writes full and lookup files of each product, in English and in one other language."""
    full = root / "docCatalog/referenceapi"
    lookup = root / "docCatalog/referenceapi_lookup"
    full.mkdir(parents=True)
    lookup.mkdir()
    for index, product in enumerate(products(product_count, page_count)):
        # The second term gives each language some of the products in packages.
        translation = ("de", "ja", "ru")[(index + index // 3) % 3]
        names = {"en": f"{product.name}.json", translation: f"{product.name}_{translation}.json"}
        for language, name in names.items():
            (full / name).write_bytes(make_file(product, language, items))
        write_lookups(lookup, index, [(name, make_file(product, language, lookup_records))
                                      for language, name in names.items()])
