"""Full records, compared with those of refdoc, and the reading of records."""

import pickle
from dataclasses import FrozenInstanceError, dataclass
from pathlib import Path
from typing import Optional

import docparser
import pytest
from conftest import Refdoc
from docparser import DocparserError, EntityType, SeeAlso
from docparser._reader import read_record
from json_form import to_json


@pytest.mark.parametrize("language", ["en", "de", "ja"])
@pytest.mark.parametrize("name", ["Orchard", "Cellar", "HiveScale"])
def test_every_field_is_that_of_refdoc(
    samples: Path, refdoc: Refdoc, language: str, name: str
) -> None:
    product = docparser.open(samples, language=language).product(name)
    assert {"product": product.name, "resources": to_json(product.sections)} == refdoc(
        "--lang", language, "show", name
    )


def test_fields_have_the_types_of_their_hints(samples: Path) -> None:
    item = docparser.open(samples).product("Orchard").item("ref/smooth.html")
    [entity] = item.ref_entities
    assert entity.entity_type is docparser.EntityType.FUNCTION
    assert item.deprecation_status is docparser.DeprecationStatus.NONE
    assert item.inputs[2] == docparser.Input(
        name="shape",
        purpose="Shape of the weights 𝑤",
        values=("box", "triangle", "gauss"),
        href="ref/smooth.html#arg-shape",
        syntax_type=docparser.SyntaxType.FUNCTION,
        default_value='"box"',
        is_name_value_pair=True,
    )


def test_items_are_in_the_order_of_the_sections(samples: Path) -> None:
    product = docparser.open(samples).product("Orchard")
    hrefs = [item.href for item in product.items()]
    assert hrefs.count("ref/plus.html") == 2
    assert hrefs == [
        item.href
        for section in product.sections.values()
        for items in section.items.values()
        for item in items
    ]


def test_item_of_a_repeated_href_is_the_first(samples: Path) -> None:
    product = docparser.open(samples).product("Orchard")
    assert product.item("ref/plus.html") is product.sections["orchard"].items["ref/plus.html"][0]


def test_missing_item_is_an_error(samples: Path) -> None:
    with pytest.raises(
        docparser.ItemNotFound, match="the product Cellar has no item ref/none.html"
    ):
        docparser.open(samples).product("Cellar").item("ref/none.html")


def test_words_are_strings() -> None:
    word: str = EntityType.CLASS
    assert word == f"{word}" == str(word) == "class"


def test_records_are_immutable_values(samples: Path) -> None:
    product = docparser.open(samples).product("Orchard")
    assert pickle.loads(pickle.dumps(product)) == product
    item = product.item("ref/smooth.html")
    assert hash(item) == hash(pickle.loads(pickle.dumps(item)))
    with pytest.raises(FrozenInstanceError):
        item.href = "other.html"  # type: ignore[misc]


@dataclass(frozen=True)
class Spot:
    entity_type: EntityType
    at: Optional[int]
    links: tuple[SeeAlso, ...]


SPOT = {"entityType": "app", "at": None, "links": [{"url": "a", "name": "b"}]}


def test_unknown_members_are_ignored() -> None:
    expected = Spot(EntityType.APP, None, (SeeAlso("a", "b"),))
    assert read_record(Spot, SPOT) == expected
    assert read_record(Spot, {**SPOT, "added": 1}) == expected


@pytest.mark.parametrize(
    "change, message",
    [
        ({"entityType": "robot"}, "unknown EntityType: 'robot'"),
        ({"entityType": None}, "unknown EntityType: None"),
        ({"entityType": []}, "unknown EntityType: []"),
        ({"at": "1"}, "expected int, found str"),
        ({"links": {}}, "expected list, found dict"),
        ({"links": ["a"]}, "expected dict, found str"),
        ({"links": [{"url": "a"}]}, "SeeAlso has no member 'name'"),
    ],
)
def test_invalid_member_is_an_error(change: dict[str, object], message: str) -> None:
    with pytest.raises(DocparserError) as raised:
        read_record(Spot, {**SPOT, **change})
    assert str(raised.value) == message


def test_record_without_its_base_is_an_error() -> None:
    with pytest.raises(DocparserError, match="Parameter has no member 'objectInfo'"):
        read_record(docparser.Parameter, {"defaultValue": ""})
