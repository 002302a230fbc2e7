"""Makes records from JSON, as the type hints of their fields require."""

import functools
from collections.abc import Mapping
from dataclasses import fields, is_dataclass
from enum import Enum
from typing import Any, Callable, TypeVar, Union, get_args, get_origin, get_type_hints

from .errors import DocparserError

T = TypeVar("T")
Reader = Callable[[Any], Any]


def read_record(record_type: type[T], document: Any) -> T:
    """Makes a record from a JSON object. Members that the record does not have are ignored.

    Raises DocparserError if a member is missing or has another type.
    """
    hint: Any = record_type
    record: T = _reader_of(hint)(document)
    return record


@functools.lru_cache(maxsize=None)
def _reader_of(hint: Any) -> Reader:
    origin, arguments = get_origin(hint), get_args(hint)
    if origin is tuple:
        element = _reader_of(arguments[0])
        return lambda value: tuple(map(element, _expect(list, value)))
    if origin is Mapping:
        member = _reader_of(arguments[1])
        return lambda value: {key: member(item) for key, item in _expect(dict, value).items()}
    if origin is Union:
        present = _reader_of(arguments[0])
        return lambda value: None if value is None else present(value)
    if is_dataclass(hint):
        return _record_reader(hint)
    if issubclass(hint, Enum):
        return _word_reader(hint)
    return functools.partial(_expect, hint)


def _record_reader(record_type: Any) -> Reader:
    hints = get_type_hints(record_type)
    members = [
        (_json_name(field.name), _reader_of(hints[field.name])) for field in fields(record_type)
    ]
    # Inherited fields are in a member that is named after the base: "objectInfo".
    base = record_type.__base__.__name__
    inherited = base[0].lower() + base[1:] if is_dataclass(record_type.__base__) else None

    def read(value: Any) -> Any:
        value = _expect(dict, value)
        try:
            if inherited:
                value = {**value, **_expect(dict, value[inherited])}
            return record_type(*[reader(value[name]) for name, reader in members])
        except KeyError as missing:
            raise DocparserError(f"{record_type.__name__} has no member {missing}") from None

    return read


def _word_reader(word_type: type[Enum]) -> Reader:
    def read(value: Any) -> Any:
        try:
            return word_type(value)
        except ValueError:
            raise DocparserError(f"unknown {word_type.__name__}: {value!r}") from None

    return read


def _expect(expected: type[T], value: Any) -> T:
    if not isinstance(value, expected):
        raise DocparserError(f"expected {expected.__name__}, found {type(value).__name__}")
    return value


def _json_name(field: str) -> str:
    first, *others = field.split("_")
    return first + "".join(map(str.capitalize, others))
