"""The lookup index, compared with that of refdoc."""

from pathlib import Path
from typing import Any

import docparser
import pytest
from conftest import Refdoc, SaveProduct
from json_form import to_json

LANGUAGES = ["en", "de", "ja"]


def entries_of(document: dict[str, Any], name: str) -> list[dict[str, Any]]:
    """Returns the records of a name in a document of refdoc, as entries."""
    return [
        {**record, "section": key, "header": section["header"], "isInstalled": is_installed}
        for is_installed, member in ((True, "installed"), (False, "notInstalled"))
        for key, section in document[member].items()
        for record in section["items"].get(name, [])
    ]


@pytest.mark.parametrize("language", LANGUAGES)
def test_every_name_has_the_entries_of_refdoc(samples: Path, refdoc: Refdoc, language: str) -> None:
    documentation = docparser.open(samples, language=language)
    document = refdoc("--lang", language, "lookup")
    sections = [*document["installed"].values(), *document["notInstalled"].values()]
    assert documentation.names() == sorted({name for s in sections for name in s["items"]})
    for name in documentation.names():
        assert [to_json(entry) for entry in documentation.lookup(name)] == entries_of(
            document, name
        )


def test_entries_of_installed_products_come_first(samples: Path) -> None:
    documentation = docparser.open(samples)
    for entries in documentation.index().entries.values():
        order = [entry.is_installed for entry in entries]
        assert order == sorted(order, reverse=True)
    assert [entry.is_installed for entry in documentation.lookup("gradeOf")] == [False]


def test_unknown_name_has_no_entries(samples: Path) -> None:
    documentation = docparser.open(samples)
    assert [documentation.lookup(name) for name in ("nothing", "SMOOTH", "", "a\0b", "\ud800")] == [
        [] for _ in range(5)
    ]


def test_entry_leads_to_full_record(samples: Path) -> None:
    documentation = docparser.open(samples, language="ja")
    [entry] = documentation.lookup("sensorkit")[:1]
    item = documentation.item(entry)
    assert (entry.section, entry.header.product, item.href) == ("sensorkit", "Orchard", entry.href)
    assert item == documentation.product("Orchard").sections["sensorkit"].items[entry.href][0]


def test_entry_of_a_product_without_full_records_has_no_item(samples: Path) -> None:
    documentation = docparser.open(samples)
    [entry] = documentation.lookup("gradeOf")
    with pytest.raises(docparser.ProductNotFound):
        documentation.item(entry)


def test_reference_root_belongs_to_the_install_folder_around_it(samples: Path) -> None:
    of_root = docparser.open(samples / "help", language="ja").index()
    assert of_root == docparser.open(samples, language="ja").index()


def test_languages_replace_those_of_the_installation(samples: Path) -> None:
    documentation = docparser.open(samples, languages=["en", "de"])
    assert "Orchard_ja" in documentation.products()
    assert "Orchard_ja" not in docparser.open(samples).products()


def test_relative_folder_is_that_of_the_time_of_opening(
    samples: Path, tmp_path: Path, monkeypatch: pytest.MonkeyPatch
) -> None:
    monkeypatch.chdir(samples)
    documentation = docparser.open("help")
    monkeypatch.chdir(tmp_path)
    assert documentation.product("Cellar").name == "Cellar"


def test_results_are_kept_until_refresh(save_product: SaveProduct) -> None:
    item = {"href": "a.html", "refpurpose": "Old"}
    documentation = docparser.open(save_product("Press", item))
    product = documentation.product("Press")
    save_product("Press", {**item, "refpurpose": "New"})
    assert documentation.product("Press") is product
    documentation.refresh()
    assert documentation.product("Press").item("a.html").ref_purpose == "New"
