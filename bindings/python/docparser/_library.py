"""Calls the C interface through ctypes.

The settings of the library apply to the whole process, so a call runs under a lock, after the settings
that it needs.
"""

import functools
import os
import sys
import threading
from collections.abc import Iterator
from ctypes import CDLL, POINTER, byref, c_char_p, c_int, c_size_t
from dataclasses import dataclass
from pathlib import Path
from typing import Any, Optional

from .errors import DocparserError

_OK, _NOT_FOUND, _OUT_OF_MEMORY = 0, 2, 4

_TEXT_POINTER = POINTER(c_char_p)
_PROTOTYPES: Any = {
    "docparser_version": (c_char_p, []),
    "docparser_last_error": (c_char_p, []),
    "docparser_set_install_folder": (c_int, [c_char_p]),
    "docparser_set_root": (c_int, [c_char_p]),
    "docparser_set_language": (c_int, [c_char_p, _TEXT_POINTER, c_size_t]),
    "docparser_get_product": (c_int, [c_char_p, _TEXT_POINTER, _TEXT_POINTER]),
    "docparser_get_index": (c_int, [_TEXT_POINTER, _TEXT_POINTER]),
    "docparser_free": (None, [c_char_p]),
}


@dataclass(frozen=True)
class Settings:
    """What a call depends on besides its arguments. None is the default of the library."""

    install_folder: Optional[str]
    root: Optional[str]
    language: Optional[str]
    languages: Optional[tuple[str, ...]]


class NotFound(Exception):
    """The library has found no usable file; the account says which it has tried."""

    def __init__(self, message: str, account: bytes) -> None:
        super().__init__(message)
        self.account = account


# Guards _settings_in_force and the settings of the library.
_lock = threading.Lock()
_settings_in_force: Optional[Settings] = None


def version() -> str:
    """Returns the version of the library, such as "1.1.0"."""
    text: bytes = _library().docparser_version()
    return text.decode()


def apply(settings: Settings) -> None:
    """Applies settings even if they are in force, so that `installation.json` is read again."""
    with _lock:
        _apply(settings)


def get_product(settings: Settings, product: str) -> tuple[bytes, bytes]:
    """Returns the records and the account, as JSON. Raises NotFound."""
    return _retrieve(settings, _library().docparser_get_product, _encode(product))


def get_index(settings: Settings) -> tuple[bytes, bytes]:
    """Returns the lookup index and the account, as JSON."""
    return _retrieve(settings, _library().docparser_get_index)


def _retrieve(settings: Settings, function: Any, *arguments: bytes) -> tuple[bytes, bytes]:
    result, account = c_char_p(), c_char_p()
    with _lock:
        if settings != _settings_in_force:
            _apply(settings)
        try:
            status = function(*arguments, byref(result), byref(account))
            if status == _NOT_FOUND:
                raise NotFound(_last_error(), account.value or b"")
            _check(status)
            return result.value or b"", account.value or b""
        finally:
            _library().docparser_free(result)
            _library().docparser_free(account)


def _apply(settings: Settings) -> None:
    global _settings_in_force
    # Unknown if one of the calls fails.
    _settings_in_force = None
    library = _library()
    _check(library.docparser_set_install_folder(_encode_optional(settings.install_folder)))
    if settings.root is not None:
        _check(library.docparser_set_root(_encode(settings.root)))
    supported = None
    if settings.languages is not None:
        supported = (c_char_p * len(settings.languages))(*map(_encode, settings.languages))
    count = len(supported) if supported is not None else 0
    _check(library.docparser_set_language(_encode_optional(settings.language), supported, count))
    _settings_in_force = settings


def _check(status: int) -> None:
    if status == _OUT_OF_MEMORY:
        raise MemoryError(_last_error())
    if status != _OK:
        raise DocparserError(_last_error())


def _last_error() -> str:
    message: bytes = _library().docparser_last_error()
    return message.decode()


def _encode(text: str) -> bytes:
    # ctypes passes the address only, so C would take the part before the NUL for the whole string.
    if "\0" in text:
        raise ValueError("embedded null character")
    return text.encode()


def _encode_optional(text: Optional[str]) -> Optional[bytes]:
    return None if text is None else _encode(text)


@functools.lru_cache(maxsize=None)
def _library() -> CDLL:
    reasons = []
    for candidate in _candidates():
        try:
            library = CDLL(candidate)
        except OSError as reason:
            reasons.append(str(reason))
            continue
        for name, (result, arguments) in _PROTOTYPES.items():
            function = getattr(library, name)
            function.restype, function.argtypes = result, arguments
        return library
    raise DocparserError(
        "cannot load the shared library of docparser; set DOCPARSER_LIBRARY to its path: "
        + "; ".join(reasons)
    )


def _candidates() -> Iterator[str]:
    """The path in DOCPARSER_LIBRARY; without it, the library near the package, then the loader's."""
    chosen = os.environ.get("DOCPARSER_LIBRARY")
    if chosen:
        yield chosen
        return
    name = "docparser_c.dll" if sys.platform == "win32" else "libdocparser_c.so.1"
    package = Path(__file__).resolve().parent
    # Beside the package, or in lib/ or bin/ of a tree with the package in lib/python3/dist-packages.
    for folder in (package, package / "../../..", package / "../../../../bin"):
        if (folder / name).exists():
            yield str(folder / name)
    yield name
