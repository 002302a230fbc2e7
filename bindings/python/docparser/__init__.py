"""Reference documentation of installed products.

    >>> import docparser
    >>> documentation = docparser.open("samples", language="de")
    >>> for entry in documentation.lookup("smooth"):
    ...     print(documentation.item(entry).ref_purpose)
    Zeitreihe mit einem gleitenden Fenster glätten

open() returns a `Documentation`. Its lookup index leads from a name to entries, and from an entry to
the full record of the item.
"""

from ._library import version
from .account import FileAccount, LoadAccount, RecordAccount, SectionAccount, TextPlace
from .documentation import Documentation, Index, Product, open
from .errors import DocparserError, ItemNotFound, ProductNotFound
from .records import (
    AppThumbnail,
    ClassProperty,
    ClassPropertyGroup,
    Example,
    Header,
    IndexEntry,
    Input,
    InputGroup,
    Item,
    LookupRecord,
    ObjectInfo,
    Output,
    Parameter,
    RefEntity,
    Section,
    SeeAlso,
    SyntaxGroup,
)
from .words import (
    DeprecationStatus,
    EntityType,
    Fate,
    FileRole,
    FunctionType,
    RecordFate,
    SectionFate,
    SyntaxType,
)

__all__ = [
    "AppThumbnail",
    "ClassProperty",
    "ClassPropertyGroup",
    "DeprecationStatus",
    "DocparserError",
    "Documentation",
    "EntityType",
    "Example",
    "Fate",
    "FileAccount",
    "FileRole",
    "FunctionType",
    "Header",
    "Index",
    "IndexEntry",
    "Input",
    "InputGroup",
    "Item",
    "ItemNotFound",
    "LoadAccount",
    "LookupRecord",
    "ObjectInfo",
    "Output",
    "Parameter",
    "Product",
    "ProductNotFound",
    "RecordAccount",
    "RecordFate",
    "RefEntity",
    "Section",
    "SectionAccount",
    "SectionFate",
    "SeeAlso",
    "SyntaxGroup",
    "SyntaxType",
    "TextPlace",
    "open",
    "version",
]
