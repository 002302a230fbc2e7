"""The documentation of an installation: its lookup index and its products."""

import errno
import json
import os
from collections.abc import Iterable, Iterator, Mapping
from dataclasses import dataclass
from typing import Optional, Union

from . import _library
from ._library import Settings
from ._reader import read_record
from .account import LoadAccount
from .errors import ItemNotFound, ProductNotFound
from .records import Header, IndexEntry, Item, LookupRecord, Section

Folder = Union[str, "os.PathLike[str]"]


@dataclass(frozen=True)
class Product:
    """All full records of a product."""

    name: str
    sections: Mapping[str, Section]  #: by key: the help folder or base code of the section
    account: LoadAccount  #: the files that were read and those that were not, and why

    def items(self) -> Iterator[Item]:
        """Iterates over all items, section by section.

        >>> product = open("samples").product("Cellar")
        >>> [item.href for item in product.items() if item.deprecation_status != "none"]
        ['ref/rack.html']
        """
        for section in self.sections.values():
            for items in section.items.values():
                yield from items

    def item(self, href: str) -> Item:
        """Returns the item with an href: the first one if a file repeats the href.

        Raises ItemNotFound.

        >>> open("samples").product("Orchard").item("ref/smooth.html").package_name
        'orchard.signal'
        """
        for section in self.sections.values():
            if href in section.items:
                return section.items[href][0]
        raise ItemNotFound(self.name, href)


@dataclass(frozen=True)
class Index:
    """The lookup index of all products."""

    entries: Mapping[str, tuple[IndexEntry, ...]]  #: by name; installed products come first
    account: LoadAccount  #: the files that were read and those that were not, and why


@dataclass(frozen=True)
class _ProductDocument:
    resources: Mapping[str, Section]


@dataclass(frozen=True)
class _LookupSection:
    header: Header
    items: Mapping[str, tuple[LookupRecord, ...]]


@dataclass(frozen=True)
class _IndexDocument:
    installed: Mapping[str, _LookupSection]
    not_installed: Mapping[str, _LookupSection]

    def entries(self) -> Iterator[IndexEntry]:
        for is_installed, sections in (True, self.installed), (False, self.not_installed):
            for key, section in sections.items():
                for records in section.items.values():
                    for record in records:
                        yield IndexEntry(
                            **vars(record),
                            section=key,
                            header=section.header,
                            is_installed=is_installed,
                        )


class _Kept:
    """What a `Documentation` has read since a refresh()."""

    def __init__(self) -> None:
        self.index: Optional[Index] = None
        self.products: dict[str, Product] = {}


class Documentation:
    """The documentation in one folder and one language, as open() returns it.

    The index and each product are read when they are first needed, and kept until refresh(). Results
    are immutable. Any thread may call any method. The settings of the library belong to the process, so
    the package applies those of the object before it reads, and only one thread reads at a time. Other
    threads run Python code meanwhile.
    """

    def __init__(self, settings: Settings) -> None:
        self._settings = settings
        self.refresh()

    def __repr__(self) -> str:
        return f"<Documentation {self._settings}>"

    def refresh(self) -> None:
        """Forgets what was read, so that the next call sees files that have changed.

        Raises DocparserError if `installation.json` is malformed.
        """
        _library.apply(self._settings)
        # Replaced, not cleared: a thread that is reading keeps its result where no later call finds it.
        self._kept = _Kept()

    def lookup(self, name: str) -> list[IndexEntry]:
        """Returns the entries of a name, those of installed products first; empty if it has none.

        Letter case matters. item() returns the full record of an entry.

        >>> for entry in open("samples").lookup("smooth"):
        ...     print(entry.header.product_name, entry.href, entry.ref_purpose, sep=" | ")
        Orchard Toolkit | ref/smooth.html | Smooth a series with a moving window
        """
        return list(self.index().entries.get(name, ()))

    def names(self) -> list[str]:
        """Returns the names in the index, sorted.

        >>> [name for name in open("samples").names() if name.startswith("sm")]
        ['smooth']
        """
        return sorted(self.index().entries)

    def products(self) -> list[str]:
        """Returns the products in the index, sorted: arguments for product().

        >>> open("samples").products()
        ['Cellar', 'HiveScale', 'Market', 'Orchard']
        """
        entries = self.index().entries.values()
        return sorted({entry.header.product for group in entries for entry in group})

    def item(self, entry: IndexEntry) -> Item:
        """Returns the full record of an entry.

        Raises ProductNotFound or ItemNotFound, which are both LookupError, if there is none: a product
        may have an index without full records.

        >>> documentation = open("samples", language="de")
        >>> [entry] = documentation.lookup("smooth")
        >>> for group in documentation.item(entry).syntax_groups:
        ...     print(*group.syntaxes, sep="\\n")
        y = smooth(x)
        y = smooth(x, window)
        y = smooth(x, window, shape: name)
        y = smooth(x, window, ends: rule)
        """
        return self.product(entry.header.product).item(entry.href)

    def product(self, name: str) -> Product:
        """Returns all full records of a product, by the name of its file, such as "Orchard".

        Raises ProductNotFound if no file of the product can be used. Its account has the reasons.

        >>> list(open("samples").product("Orchard").sections)
        ['orchard', 'rainmast', 'sensorkit']
        """
        products = self._kept.products
        if name not in products:
            products[name] = self._read_product(name)
        return products[name]

    def index(self) -> Index:
        """Returns the lookup index of all products.

        >>> open("samples").index().account.problems
        ()
        """
        kept = self._kept
        if kept.index is None:
            kept.index = self._read_index()
        return kept.index

    def _read_product(self, name: str) -> Product:
        try:
            records, account = _library.get_product(self._settings, name)
        except _library.NotFound as missing:
            raise ProductNotFound(str(missing), name, _read_account(missing.account)) from None
        document = read_record(_ProductDocument, json.loads(records))
        return Product(name, document.resources, _read_account(account))

    def _read_index(self) -> Index:
        index, account = _library.get_index(self._settings)
        entries: dict[str, list[IndexEntry]] = {}
        for entry in read_record(_IndexDocument, json.loads(index)).entries():
            entries.setdefault(entry.name, []).append(entry)
        return Index(
            {name: tuple(group) for name, group in entries.items()}, _read_account(account)
        )


def open(
    folder: Optional[Folder] = None,
    *,
    language: Optional[str] = None,
    languages: Optional[Iterable[str]] = None,
) -> Documentation:
    """Opens the documentation in a folder.

    The folder is an install folder, which contains `installation.json`, or a reference root, which
    contains `docCatalog`. A root belongs to the install folder around it. Without a folder, the
    documentation is that of the installed library.

    `language` is the documentation language, such as "de", and `languages` are all languages that files
    are translated into. Both default to those of `installation.json`. Without that file, `languages` is
    needed if there are translations: files in other languages count as further products. Records
    without a translation are in English.

    Raises FileNotFoundError if there is no documentation in the folder, and DocparserError if
    `installation.json` is malformed.

    >>> open("samples/help", language="de").lookup("smooth")[0].ref_purpose
    'Zeitreihe mit einem gleitenden Fenster glätten'
    """
    if isinstance(languages, str):
        raise TypeError("languages must be several strings, not one")
    install_folder, root = _locate(folder)
    return Documentation(
        Settings(install_folder, root, language, None if languages is None else tuple(languages))
    )


def _locate(folder: Optional[Folder]) -> tuple[Optional[str], Optional[str]]:
    """Returns the install folder and the reference root. None is the default of the library."""
    if folder is None:
        return None, None
    # The current folder may change later.
    path = os.path.abspath(folder)
    if os.path.exists(os.path.join(path, "installation.json")):
        return path, None
    if os.path.isdir(os.path.join(path, "docCatalog")):
        return os.path.dirname(path), path
    raise FileNotFoundError(
        errno.ENOENT, "the folder contains neither installation.json nor docCatalog", path
    )


def _read_account(account: bytes) -> LoadAccount:
    return read_record(LoadAccount, json.loads(account))
