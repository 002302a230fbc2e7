#!/usr/bin/env python3
"""Make the files of a generated reference root fit together, in place: make_consistent.py ROOT

The generator writes lookup records and see-also links by chance, so that nearly all of them lead
nowhere. Afterwards the records of a section lead to the items of the product's full resources in
turn, each link leads to the item that it stands in, and only items with a record have entities.
"""

import json
import pathlib
import sys
import zipfile

LANGUAGES = ("de", "ja", "ru")


def product_of(stem):
    name, _, language = stem.rpartition("_")
    return name if language in LANGUAGES else stem


def sections_of(document):
    return [(document["helpFolder"], document)] + [
        (section["baseCode"], section) for section in document.get("supportPackages", [])]


def write(path, document):
    path.write_text(json.dumps(document, ensure_ascii=False, separators=(",", ":")), "utf-8")


def repair_resources(folder):
    """Returns the links of the items by product and section."""
    links = {}
    for path in sorted(folder.glob("*.json")):
        document = json.loads(path.read_text("utf-8"))
        for key, section in sections_of(document):
            known = links.setdefault((product_of(path.stem), key), [])
            for item in section["refItems"]:
                for link in item.get("seealso", []):
                    link["url"] = item["href"]
                if item["href"] not in known:
                    known.append(item["href"])
        write(path, document)
    return links


def drop_unlisted_entities(folder, listed):
    for path in folder.glob("*.json"):
        document = json.loads(path.read_text("utf-8"))
        for key, section in sections_of(document):
            for item in section["refItems"]:
                if item["href"] not in listed.get((product_of(path.stem), key), ()):
                    item.pop("refentity", None)
        write(path, document)


def repair_lookup(stem, text, links, listed):
    document = json.loads(text)
    product = product_of(stem)
    for key, section in sections_of(document):
        known = links.get((product, key), [])
        records = {}
        for number, record in enumerate(section["refItems"] if known else []):
            # One record a name, with the link that the name has in every language.
            record["href"] = known[sum(record["name"].encode()) % len(known)]
            records.setdefault(record["name"], record)
            listed.setdefault((product, key), set()).add(record["href"])
        section["refItems"] = list(records.values())
    return json.dumps(document, ensure_ascii=False, separators=(",", ":"))


def main(root):
    catalogue = pathlib.Path(root) / "docCatalog"
    links = repair_resources(catalogue / "referenceapi")
    listed = {}
    for path in sorted((catalogue / "referenceapi_lookup").iterdir()):
        if path.suffix == ".json":
            path.write_text(repair_lookup(path.stem, path.read_text("utf-8"), links, listed), "utf-8")
            continue
        with zipfile.ZipFile(path) as package:
            entries = [(name, package.read(name).decode("utf-8")) for name in package.namelist()]
        with zipfile.ZipFile(path, "w", zipfile.ZIP_DEFLATED) as package:
            for name, text in entries:
                if name.endswith(".json"):
                    text = repair_lookup(pathlib.PurePosixPath(name).stem, text, links, listed)
                package.writestr(name, text)
    drop_unlisted_entities(catalogue / "referenceapi", listed)


if __name__ == "__main__":
    main(sys.argv[1])
