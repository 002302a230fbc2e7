"""The load account: what became of each file that the library considered, and why."""

from dataclasses import dataclass
from typing import Optional

from .words import Fate, FileRole, RecordFate, SectionFate

_UNUSABLE = {
    Fate.UNREADABLE,
    Fate.NOT_REGULAR,
    Fate.MALFORMED,
    Fate.OVER_LIMIT,
    Fate.FAILED,
}


@dataclass(frozen=True)
class RecordAccount:
    """What became of a record when two sections with the same key were combined."""

    name: str  #: the key of the record: its name, or its href in full resources
    href: str
    fate: RecordFate
    file: int  #: the file that it comes from, an index into `LoadAccount.files`
    winner: int  #: the file that it lost to; its own file if it was kept


@dataclass(frozen=True)
class SectionAccount:
    """What became of a section of a file."""

    key: str
    pointer: str  #: JSON pointer to the section in its file; empty for the main section
    fate: SectionFate
    is_installed: bool  #: always false for full resources
    other: int  #: the file of the earlier section with the key; this file if there is none
    records: tuple[RecordAccount, ...]


@dataclass(frozen=True)
class TextPlace:
    """A position in the text of a file."""

    offset: int  #: in bytes, from 0
    line: int  #: from 1
    column: int  #: in characters, from 1


@dataclass(frozen=True)
class FileAccount:
    """What became of a file or package entry. As a string, it is one line for people."""

    role: FileRole
    path: str  #: for an entry, the path of its package
    entry: str  #: the name of the entry in its package; empty for a file
    is_translation: bool
    fate: Fate
    reason: str  #: why it is not used; empty if the fate says everything
    pointer: str  #: JSON pointer to the invalid value of a malformed file
    place: Optional[TextPlace]  #: the position of the error in a malformed file
    sections: tuple[SectionAccount, ...]

    def __str__(self) -> str:
        name = f"{self.path}: {self.entry}" if self.entry else self.path
        if self.place:
            name += f":{self.place.line}:{self.place.column}"
        return f"{name}: {self.reason or self.fate}"


@dataclass(frozen=True)
class LoadAccount:
    """What became of each file that was considered, in the order of the decisions."""

    files: tuple[FileAccount, ...]
    is_complete: bool  #: false if memory ran out while the account was recorded

    @property
    def problems(self) -> tuple[FileAccount, ...]:
        """The files that exist and could not be used, except those that were skipped on purpose."""
        return tuple(file for file in self.files if file.fate in _UNUSABLE)
