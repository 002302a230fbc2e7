#!/usr/bin/env python3
"""Types at a shell, presses Tab and compares the words on the line.

    complete_in_shell.py SHELL SCRIPT-FOLDER PROGRAM-FOLDER SAMPLES-FOLDER

SHELL is bash, zsh or fish; SCRIPT-FOLDER has the completion scripts refdoc.bash, refdoc.zsh and
refdoc.fish, PROGRAM-FOLDER the one with refdoc.
"""

import json
import os
import pathlib
import pty
import select
import shlex
import shutil
import signal
import sys
import tempfile
import time

DEADLINE_IN_SECONDS = 60


def cases(samples, home):
    """Pairs of the characters typed after "refdoc " and the words after the Tab key."""
    own = f"{home}/own"
    at = ["--install", samples]
    typed = f"--install {shlex.quote(samples)}"
    return [
        ("sho", ["show"]),
        ("--verb", ["--verbose"]),
        ("lookup --col", ["lookup", "--color"]),
        ("--color al", ["--color", "always"]),
        (f"{typed} show Orc", at + ["show", "Orchard"]),
        (f"{typed} show Orchard ref/smo", at + ["show", "Orchard", "ref/smooth.html"]),
        (f"{typed} --lang=d", at + ["--lang=de"]),
        (f"--install={shlex.quote(samples)} --lang j", [f"--install={samples}", "--lang", "ja"]),
        (f"{typed} --langs en,d", at + ["--langs", "en,de"]),
        (f"{typed} lookup Tank\\ B", at + ["lookup", "Tank Board"]),
        (f"{typed} lookup 'Tank B", at + ["lookup", "Tank Board"]),
        (f"--install {own} lookup gard", ["--install", own, "lookup", "gardens::bed"]),
        (f"--install {own} lookup gardens::b", ["--install", own, "lookup", "gardens::bed"]),
        (f"--install {own} lookup it", ["--install", own, "lookup", "it's $HOME"]),
        (f"--install {own}/on", ["--install", f"{own}/only here"]),
        (f"--install={own}/on", [f"--install={own}/only here"]),
        (f"check {own}/not", ["check", f"{own}/note.json"]),
        (f"check --baseline {own}/not", ["check", "--baseline", f"{own}/note.json"]),
        ("check --werror=miss", ["check", "--werror=missing-key"]),
        ("check --sar", ["check", "--sarif"]),
        ("check --ignore missing", ["check", "--ignore", "missing-key"]),
        ("--install ~/own show Orc", ["--install", f"{home}/own", "show", "Orchid"]),
        ("--install /nowhere show O", ["--install", "/nowhere", "show", "O"]),
    ]


def make_install_folder(folder):
    """An install folder with names that contain special characters of shells."""
    lookup = folder / "help/docCatalog/referenceapi_lookup"
    lookup.mkdir(parents=True)
    (folder / "help/docCatalog/referenceapi").mkdir()
    (folder / "help/docCatalog/referenceapi/Orchid.json").write_text("{}")
    (folder / "only here").mkdir()
    (folder / "note.json").write_text("{}")
    items = [{"name": name, "href": "a.html", "refpurpose": "b"}
             for name in ("gardens::bed", "it's $HOME")]
    header = dict.fromkeys(("productName", "baseCode", "helpFolder", "helpLocation"), "p")
    (lookup / "P.json").write_text(json.dumps(header | {"refItems": items}))


def start_up(shell, scripts, folder):
    """The command that starts the shell, and the first line to type."""
    script = shlex.quote(f"{scripts}/refdoc.{shell}")
    if shell == "bash":
        return (["bash", "--norc", "--noprofile", "-i"],
                f"bind 'set enable-bracketed-paste off'; source {script}")
    if shell == "zsh":
        functions = folder / "functions"
        functions.mkdir()
        shutil.copy(scripts / "refdoc.zsh", functions / "_refdoc")
        return (["zsh", "-f", "-i"],
                f"fpath=({shlex.quote(str(functions))} $fpath); autoload -Uz compinit; compinit -D -u")
    return ["fish", "--no-config", "-i"], f"source {script}"


class Shell:
    """A shell in a pseudo terminal. `record WORD...` writes its words to a file."""

    def __init__(self, command, folder, programs):
        self.words_file = folder / "words"
        record = folder / "bin/record"
        record.parent.mkdir()
        record.write_text('#!/bin/sh\nprintf "%s\\0" "$@" >"$WORDS.new" && mv "$WORDS.new" "$WORDS"\n')
        record.chmod(0o755)
        self.seen = b""
        self.process, self.terminal = pty.fork()
        if self.process == 0:
            for name in ("REFDOC_INSTALL", "REFDOC_ROOT", "REFDOC_LANG"):
                os.environ.pop(name, None)
            os.environ.update(PATH=f"{record.parent}:{programs}:{os.environ['PATH']}", TERM="dumb",
                              HOME=str(folder), WORDS=str(self.words_file), LC_ALL="C.UTF-8")
            os.execvp(command[0], command)

    def type(self, keys):
        os.write(self.terminal, keys.encode())

    def recorded_words(self):
        """The words of the next `record`."""
        deadline = time.monotonic() + DEADLINE_IN_SECONDS
        while not self.words_file.exists():
            if time.monotonic() > deadline:
                sys.exit(f"the shell does not answer; it printed:\n{self.seen.decode(errors='replace')}")
            self.drain(0.02)
        words = self.words_file.read_text().split("\0")[:-1]
        self.words_file.unlink()
        return words

    def drain(self, seconds):
        if select.select([self.terminal], [], [], seconds)[0]:
            self.seen += os.read(self.terminal, 65536)

    def end(self):
        os.kill(self.process, signal.SIGKILL)
        os.waitpid(self.process, 0)


def run(shell_name, scripts, programs, samples, folder):
    make_install_folder(folder / "own")
    command, first_line = start_up(shell_name, scripts, folder)
    shell = Shell(command, folder, programs)
    shell.type(f"{first_line}; record ready\n")
    shell.recorded_words()
    failures = 0
    for typed, expected in cases(str(samples), str(folder)):
        # Typed at the start of the line, `record` receives the words instead of refdoc.
        shell.type(f"refdoc {typed}\t\x01record \n")
        # Only some shells keep the separator that they append to a folder.
        words = [word.rstrip("/") for word in shell.recorded_words()[1:]]
        if words != expected:
            failures += 1
            print(f"refdoc {typed}<TAB>\n  expected {expected}\n  but got  {words}")
    shell.end()
    if b"refdoc:" in shell.seen:
        failures += 1
        print("the completion wrote a message to the terminal:", shell.seen.decode(errors="replace"))
    return failures


def main():
    shell_name, scripts, programs, samples = sys.argv[1:]
    with tempfile.TemporaryDirectory(prefix="refdoc-shell-") as folder:
        failures = run(shell_name, pathlib.Path(scripts), programs, pathlib.Path(samples),
                       pathlib.Path(folder))
    sys.exit(1 if failures else 0)


main()
