"""Missing and damaged files, invalid arguments, and a missing library."""

import os
import pickle
import subprocess
import sys
from pathlib import Path
from typing import Any

import docparser
import pytest
from conftest import SaveProduct
from docparser import DocparserError, Fate, ProductNotFound

ITEM = {"href": "a.html", "refpurpose": "Press apples"}


def test_missing_product_has_an_account(save_product: SaveProduct) -> None:
    root = save_product("Press", ITEM)
    with pytest.raises(ProductNotFound) as raised:
        docparser.open(root, language="de").product("Mill")
    missing = raised.value
    folder = root / "docCatalog" / "referenceapi"
    assert missing.product == "Mill"
    assert [(file.path, file.fate) for file in missing.account.files][:2] == [
        (str(folder / "Mill.json"), Fate.MISSING),
        (str(folder / "Mill_de.json"), Fate.MISSING),
    ]
    assert missing.account.problems == ()
    assert str(missing).startswith("no usable resource file of the product Mill\n  ")


def test_not_found_is_a_lookup_error_that_can_be_pickled(save_product: SaveProduct) -> None:
    with pytest.raises(ProductNotFound) as raised:
        docparser.open(save_product("Press", ITEM)).product("Mill")
    assert isinstance(raised.value, LookupError)
    copy = pickle.loads(pickle.dumps(raised.value))
    assert (str(copy), copy.account) == (str(raised.value), raised.value.account)


def test_account_says_why_a_file_is_malformed(save_product: SaveProduct) -> None:
    save_product("Press", ITEM)
    root = save_product("Press_de", '{"productName": "Presse",\n  "baseCode": 1}')
    product = docparser.open(root, language="de").product("Press")
    assert [file.fate for file in product.account.files] == [Fate.USED, Fate.MALFORMED]
    [problem] = product.account.problems
    assert problem.is_translation
    assert problem.place is not None
    assert (problem.place.line, problem.pointer) == (2, "/baseCode")
    assert str(problem) == f"{problem.path}:2:{problem.place.column}: {problem.reason}"


def test_account_of_the_index_lists_package_entries(samples: Path) -> None:
    account = docparser.open(samples).index().account
    [skipped] = [str(file) for file in account.files if file.entry.endswith("Cellar_de.json")]
    package = samples / "help" / "docCatalog" / "referenceapi_lookup" / "Estate.zip"
    assert skipped == f"{package}: lookup/Cellar_de.json: skipped-language"


def test_malformed_installation_is_reported_when_it_is_opened(tmp_path: Path) -> None:
    (tmp_path / "installation.json").write_text('{"docLanguage": 1}')
    with pytest.raises(DocparserError, match="docLanguage"):
        docparser.open(tmp_path)


def test_failed_opening_does_not_affect_other_objects(
    tmp_path: Path, save_product: SaveProduct
) -> None:
    documentation = docparser.open(save_product("Press", ITEM))
    broken = tmp_path / "broken"
    broken.mkdir()
    (broken / "installation.json").write_text("{")
    with pytest.raises(DocparserError):
        docparser.open(broken)
    assert documentation.product("Press").item("a.html").ref_purpose == "Press apples"


def test_folder_without_documentation_is_an_error(tmp_path: Path) -> None:
    with pytest.raises(FileNotFoundError, match="neither installation.json nor docCatalog"):
        docparser.open(tmp_path)
    with pytest.raises(FileNotFoundError):
        docparser.open(tmp_path / "missing")


@pytest.mark.parametrize("text", ["a\0b", "\0", "\ud800", "a\udc80"])
def test_text_that_c_cannot_take_is_a_value_error(
    save_product: SaveProduct, samples: Path, text: str
) -> None:
    with pytest.raises(ValueError):
        docparser.open(save_product("Press", ITEM)).product(text)
    with pytest.raises(ValueError):
        docparser.open(samples, language=text)
    with pytest.raises(ValueError):
        docparser.open(samples, languages=["en", text])


def test_one_string_is_not_a_list_of_languages(samples: Path) -> None:
    with pytest.raises(TypeError, match="several strings"):
        docparser.open(samples, languages="de")


def test_unpaired_surrogate_makes_a_file_malformed(save_product: SaveProduct) -> None:
    # json.dumps() writes the surrogate as an escape.
    root = save_product("Press", {**ITEM, "refpurpose": "Half \ud83c of a tree"})
    with pytest.raises(ProductNotFound) as raised:
        docparser.open(root).product("Press")
    [problem] = raised.value.account.problems
    assert (problem.fate, problem.reason) == (Fate.MALFORMED, "syntax error")


def test_any_character_survives(save_product: SaveProduct) -> None:
    text = '\0\x01\x7f\x85\u2028"\\/🌳' + "".join(map(chr, range(0xFFF0, 0x10010)))
    root = save_product("Press", {**ITEM, "refpurpose": text})
    assert docparser.open(root).product("Press").item("a.html").ref_purpose == text


def run_python(code: str, **variables: str) -> "subprocess.CompletedProcess[str]":
    environment = {**os.environ, **variables}
    command = [sys.executable, "-c", code]
    return subprocess.run(command, env=environment, capture_output=True, text=True)


def test_missing_library_is_reported_when_it_is_needed(tmp_path: Path) -> None:
    library = str(tmp_path / "none.so")
    run = run_python("import docparser; docparser.version()", DOCPARSER_LIBRARY=library)
    assert run.returncode == 1
    last_line: Any = run.stderr.splitlines()[-1]
    assert last_line.startswith("docparser.errors.DocparserError: cannot load the shared library")
    assert library in last_line


def test_package_and_library_have_one_version() -> None:
    project = Path(__file__).parents[1] / "pyproject.toml"
    assert f'version = "{docparser.version()}"' in project.read_text().splitlines()
