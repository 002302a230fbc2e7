"""The inverse of reading a record."""

from dataclasses import fields, is_dataclass
from typing import Any

from docparser import ObjectInfo


def to_json(value: Any) -> Any:
    """Returns the JSON that a record is made from."""
    if is_dataclass(value):
        members = {
            camel_case(field.name): to_json(getattr(value, field.name)) for field in fields(value)
        }
        if not isinstance(value, ObjectInfo):
            return members
        inherited = [camel_case(field.name) for field in fields(ObjectInfo)]
        return {"objectInfo": {name: members.pop(name) for name in inherited}, **members}
    if isinstance(value, tuple):
        return [to_json(element) for element in value]
    if isinstance(value, dict):
        return {key: to_json(element) for key, element in value.items()}
    return value


def camel_case(name: str) -> str:
    words = name.title().replace("_", "")
    return words[0].lower() + words[1:]
