"""Checks that the folders of a source tree include only what they declare.

usage: check_includes.py ROOT DECLARATIONS

DECLARATIONS is a file with a line for each folder, relative to ROOT: "FOLDER: PATH PATH ...". A
source or header in FOLDER may include the files of FOLDER, the headers of the C++ standard library,
and PATH, which is a file or a folder with all that lies below it, as #include spells it. A folder
below a declared one that holds sources or headers must be declared too.
"""

import pathlib
import re
import sys

INCLUDE = re.compile(r'\s*#\s*include\s*[<"]([^>"]+)[>"]')
STANDARD_HEADER = re.compile(r"[a-z_0-9]+")


def read_declarations(file):
    """Returns the paths that each folder may include."""
    lines = pathlib.Path(file).read_text(encoding="utf-8").splitlines()
    return {folder: paths.split() for folder, paths in (line.split(":") for line in lines)}


def may_include(folder, paths, header):
    """Returns whether a file in the folder may include the header."""
    is_own = str(pathlib.PurePosixPath(header).parent) == folder
    is_declared = any(header == path or header.startswith(path + "/") for path in paths)
    return is_own or is_declared or STANDARD_HEADER.fullmatch(header) is not None


def files_of(folder):
    """Returns the sources and headers directly in a folder, sorted."""
    return sorted(file for file in folder.iterdir() if file.suffix in (".h", ".hpp", ".cpp"))


def forbidden_includes(root, folder, paths):
    """Yields a message for each include of the folder's files that is not declared."""
    for file in files_of(root / folder):
        for number, line in enumerate(file.read_text(encoding="utf-8").splitlines(), start=1):
            include = INCLUDE.match(line)
            if include and not may_include(folder, paths, include[1]):
                name = file.relative_to(root).as_posix()
                yield f'{name}:{number}: error: {folder} must not include "{include[1]}"'


def undeclared_folders(root, declarations):
    """Yields a message for each folder below a declared one that is not declared itself."""
    below = {path for folder in declarations for path in (root / folder).rglob("*") if path.is_dir()}
    for path in sorted(below):
        name = path.relative_to(root).as_posix()
        if files_of(path) and name not in declarations:
            yield f"{name}: error: the folder does not declare what it may include"


def main(root, declarations_file):
    root = pathlib.Path(root)
    declarations = read_declarations(declarations_file)
    errors = list(undeclared_folders(root, declarations))
    for folder, paths in declarations.items():
        errors += forbidden_includes(root, folder, paths)
    print(*errors, sep="\n", end="\n" if errors else "")
    return 1 if errors else 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
