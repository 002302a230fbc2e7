"""Folders and programs that the tests share. The variables REFDOC_PROGRAM and SAMPLES_FOLDER name them."""

import json
import os
import subprocess
from pathlib import Path
from typing import Any, Callable, Union

import pytest

Refdoc = Callable[..., Any]
Item = dict[str, Any]
SaveProduct = Callable[[str, Union[Item, str]], Path]


@pytest.fixture
def samples() -> Path:
    return Path(os.environ["SAMPLES_FOLDER"])


@pytest.fixture
def refdoc(samples: Path) -> Refdoc:
    """Returns what refdoc prints for the samples with --json, parsed."""

    def run(*arguments: str) -> Any:
        command = [os.environ["REFDOC_PROGRAM"], "--install", str(samples), "--json", *arguments]
        return json.loads(subprocess.run(command, check=True, capture_output=True).stdout)

    return run


@pytest.fixture
def save_product(tmp_path: Path) -> SaveProduct:
    """Writes the full resources of a product, which are one item or a string as it is.

    Returns the reference root.
    """

    def save(product: str, content: Union[Item, str]) -> Path:
        root = tmp_path / "help"
        folder = root / "docCatalog" / "referenceapi"
        folder.mkdir(parents=True, exist_ok=True)
        if not isinstance(content, str):
            content = json.dumps(
                {
                    "productName": f"{product} Tools",
                    "baseCode": "PT",
                    "helpFolder": product.lower(),
                    "helpLocation": f"help/{product.lower()}",
                    "refItems": [content],
                }
            )
        (folder / f"{product}.json").write_text(content, encoding="utf-8")
        return root

    return save
