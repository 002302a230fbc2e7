"""The words of the resource format and of the load account, as enumerations."""

from enum import Enum


class Word(str, Enum):
    """A word of the format. It is equal to its string: `EntityType.CLASS == "class"`."""

    __str__ = str.__str__


class EntityType(Word):
    """What an entity is."""

    FUNCTION = "function"
    CLASS = "class"
    METHOD = "method"
    PROPERTY = "property"
    EVENT = "event"
    ENUMERATION = "enumeration"
    NAMESPACE = "namespace"
    INTERFACE = "interface"
    TYPE = "type"
    CONSTANT = "constant"
    OPERATOR = "operator"
    COMMAND = "command"
    COMPONENT = "component"
    APP = "app"
    MODULE = "module"
    KEYWORD = "keyword"


class FunctionType(Word):
    """What a function is."""

    FUNCTION = "function"
    METHOD = "method"
    CONSTRUCTOR = "constructor"
    STATIC = "static"
    OPERATOR = "operator"
    MACRO = "macro"
    CALLBACK = "callback"


class SyntaxType(Word):
    """How a syntax is written."""

    FUNCTION = "function"
    COMMAND = "command"
    CONSTRUCTOR = "constructor"
    OPERATOR = "operator"


class DeprecationStatus(Word):
    """Whether an item should still be used."""

    NONE = "none"
    DISCOURAGED = "discouraged"
    DEPRECATED = "deprecated"
    REMOVED = "removed"


class Fate(Word):
    """What became of a file or package entry."""

    USED = "used"  #: none of its sections was combined with another
    OVERLAY = "overlay"  #: used; a section replaced one with the same key
    MERGED = "merged"  #: used; a section was added to one with the same key
    SKIPPED_LANGUAGE = "skipped-language"  #: a translation into another language
    SKIPPED_NAME = "skipped-name"  #: the name is not that of a product file
    MISSING = "missing"
    UNREADABLE = "unreadable"
    NOT_REGULAR = "not-regular"  #: a folder, pipe, socket or device
    MALFORMED = "malformed"  #: invalid JSON, or not in the resource format
    OVER_LIMIT = "over-limit"  #: too large
    FAILED = "failed"  #: not the fault of the file, such as a lack of memory


class FileRole(Word):
    """What a file was considered as."""

    RESOURCES = "resources"  #: the full resources of one product
    LOOKUP = "lookup"  #: a lookup file, in a folder or in a package
    PACKAGE = "package"  #: a zip package of lookup files


class SectionFate(Word):
    """What became of a section of a file that was read."""

    NEW = "new"  #: the first section with its key
    OVERLAY = "overlay"  #: a translation, placed on top of the section that had its key
    MERGED = "merged"  #: added to the section that had its key
    KEY_TAKEN = "key-taken"  #: dropped: an earlier section of the file has its key
    UNUSED = "unused"  #: dropped: reading failed before the section was placed


class RecordFate(Word):
    """What became of a record when two sections were combined."""

    ADDED_NAME = "added-name"  #: kept: the section on top has no record of the name
    ADDED_HREF = "added-href"  #: kept: the section on top has no record of the name with the href
    DROPPED_HREF = "dropped-href"  #: dropped: the section on top has a record with the href
    DROPPED_COUNT = "dropped-count"  #: dropped: the section on top has as many records or more
    REPLACED = "replaced"  #: dropped: the translation has records of the href
