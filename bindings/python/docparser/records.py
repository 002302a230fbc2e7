"""The records of the documentation, as immutable dataclasses.

The names are those of the resource format in snake case: `refPurpose` is `ref_purpose`. A string or a
list that a file leaves out is empty.
"""

from collections.abc import Mapping
from dataclasses import dataclass


from .words import DeprecationStatus, EntityType, FunctionType, SyntaxType


@dataclass(frozen=True)
class Header:
    """The header of a section."""

    schema: str
    schema_version: str
    product_name: str  #: the name to display, such as "Orchard Toolkit"
    base_code: str
    help_folder: str
    help_location: str
    product: str  #: the argument of `Documentation.product()`, such as "Orchard"


@dataclass(frozen=True)
class LookupRecord:
    """What the lookup index says about a name."""

    name: str
    entity_type: EntityType
    ref_purpose: str
    deprecated: bool
    href: str
    function_type: FunctionType


@dataclass(frozen=True)
class IndexEntry(LookupRecord):
    """A record of the lookup index, and the section that it is in."""

    section: str  #: the key of the section, such as "orchard"
    header: Header
    is_installed: bool  #: whether the product or support package of the section is installed


@dataclass(frozen=True)
class RefEntity:
    """A function, class or other entity that an item documents."""

    entity_type: EntityType
    name: str
    function_type: FunctionType


@dataclass(frozen=True)
class AppThumbnail:
    """A picture."""

    file_ref: str
    alt: str


@dataclass(frozen=True)
class SyntaxGroup:
    """Forms of syntax under a common title."""

    title: str
    syntax_type: SyntaxType
    syntaxes: tuple[str, ...]


@dataclass(frozen=True)
class ObjectInfo:
    """What arguments, results, parameters and properties have in common."""

    name: str
    purpose: str
    values: tuple[str, ...]  #: the allowed values; empty if there is no such list
    href: str


@dataclass(frozen=True)
class Input(ObjectInfo):
    """An argument."""

    syntax_type: SyntaxType
    default_value: str
    is_name_value_pair: bool


@dataclass(frozen=True)
class InputGroup:
    """Arguments under a common title."""

    title: str
    inputs: tuple[Input, ...]


@dataclass(frozen=True)
class Output(ObjectInfo):
    """A result."""

    syntax_type: SyntaxType


@dataclass(frozen=True)
class Parameter(ObjectInfo):
    """A parameter."""

    default_value: str


@dataclass(frozen=True)
class ClassProperty(ObjectInfo):
    """A property of a class."""

    default_value: str


@dataclass(frozen=True)
class ClassPropertyGroup:
    """Properties under a common title."""

    title: str
    properties: tuple[ClassProperty, ...]


@dataclass(frozen=True)
class SeeAlso:
    """A link."""

    url: str
    name: str


@dataclass(frozen=True)
class Example:
    """An example."""

    url: str
    open_command: str
    title: str


@dataclass(frozen=True)
class Item:
    """The full record of an item."""

    href: str
    ref_entities: tuple[RefEntity, ...]
    package_name: str
    ref_purpose: str
    introduced: str
    description: str
    app_thumbnail: AppThumbnail
    deprecation_status: DeprecationStatus
    syntax_groups: tuple[SyntaxGroup, ...]
    inputs: tuple[Input, ...]
    input_groups: tuple[InputGroup, ...]
    outputs: tuple[Output, ...]
    class_property_groups: tuple[ClassPropertyGroup, ...]
    see_also: tuple[SeeAlso, ...]
    examples: tuple[Example, ...]
    parameters: tuple[Parameter, ...]


@dataclass(frozen=True)
class Section:
    """A section of a product: its header, and its items by href. Items may share an href."""

    header: Header
    items: Mapping[str, tuple[Item, ...]]
