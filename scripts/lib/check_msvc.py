"""Checks sources against the rules of Microsoft's compiler, as far as possible without its headers.

    check_msvc.py BUILD-FOLDER FOLDER...

Clang compiles the sources in the folders for Windows with Microsoft's ABI, whose rules then apply to
exported classes, tables and member functions. Extensions of GNU and Microsoft are errors. The headers
of the system and of the standard library are those of MinGW-w64.
"""

import concurrent.futures
import json
import os
import pathlib
import shlex
import subprocess
import sys

TRIPLET = "x86_64-w64-mingw32"
RULES = [
    "clang++-14", "--target=x86_64-pc-windows-msvc", "-fsyntax-only", "-std=c++20",
    # Only the attributes of exported names are Microsoft's; everything else is standard C++.
    "-fms-extensions", "-fno-ms-compatibility",
    "-Wall", "-Wextra", "-pedantic-errors", "-Wgnu", "-Wmicrosoft", "-Werror",
    # The headers of MinGW-w64 need these definitions with another compiler than GCC.
    "-U_MSC_VER", "-D__MINGW32__", "-D__MINGW64__", "-D__SEH__", "-D__declspec=__declspec",
    "-nostdinc++",
]


def header_folders():
    driver = [f"{TRIPLET}-g++-posix", "-print-file-name=include"]
    compiler = pathlib.Path(subprocess.check_output(driver, text=True).strip()) / "c++"
    return [compiler, compiler / TRIPLET, compiler / "backward"]


def check(entry, folders):
    words = shlex.split(entry["command"])
    settings = [word for word in words if word.startswith(("-D", "-I"))]
    settings += [option for pair in zip(words, words[1:]) if pair[0] == "-isystem" for option in pair]
    system = [f"-isystem{folder}" for folder in folders]
    # After the libraries, in the order of the compiler itself.
    last = [f"-isystem/usr/{TRIPLET}/include"]
    run = subprocess.run(RULES + system + settings + last + [entry["file"]],
                         cwd=entry["directory"], capture_output=True, text=True)
    return run.returncode, run.stderr


def main(build, *folders):
    entries = json.loads((pathlib.Path(build) / "compile_commands.json").read_text())
    below = tuple(f"{os.path.abspath(folder)}/" for folder in folders)
    entries = [entry for entry in entries if entry["file"].startswith(below)]
    headers = header_folders()
    failures = 0
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        for status, messages in pool.map(lambda entry: check(entry, headers), entries):
            failures += status != 0
            sys.stderr.write(messages)
    print(f"{len(entries)} sources checked, {failures} with errors")
    return 1 if failures or not entries else 0


sys.exit(main(*sys.argv[1:]))
