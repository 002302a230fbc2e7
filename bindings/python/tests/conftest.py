"""Folders and programs that the tests share. The variables REFDOC_PROGRAM and SAMPLES_FOLDER name them."""

import json
import os
import subprocess
from pathlib import Path
from typing import Any, Callable

import pytest

Refdoc = Callable[..., Any]
SaveProduct = Callable[..., Path]


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
    """Writes the full resources of a product, and returns the reference root.

    The items are JSON objects; a string is the whole file instead.
    """

    def save(product: str, *items: "dict[str, Any] | str") -> Path:
        root = tmp_path / "help"
        folder = root / "docCatalog" / "referenceapi"
        folder.mkdir(parents=True, exist_ok=True)
        text = items[0]
        if not isinstance(text, str):
            text = json.dumps(
                {
                    "productName": f"{product} Tools",
                    "baseCode": "PT",
                    "helpFolder": product.lower(),
                    "helpLocation": f"help/{product.lower()}",
                    "refItems": items,
                }
            )
        (folder / f"{product}.json").write_text(text, encoding="utf-8")
        return root

    return save
