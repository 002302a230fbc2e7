"""Configures git with the two lines of docs/diff.md, and compares what git diff prints with what refdoc should say.

Usage: diff_with_git.py REFDOC DOCS
"""

import json
import os
import pathlib
import re
import subprocess
import sys
import tempfile

REFDOC, DOCS = pathlib.Path(sys.argv[1]), pathlib.Path(sys.argv[2])
FULL = "help/docCatalog/referenceapi/Orchard.json"
LOOKUP = "help/docCatalog/referenceapi_lookup/Orchard_de.json"
PLAIN = "pages/orchard.json"


def section(*items):
    return json.dumps({"productName": "Orchard", "baseCode": "OR", "helpFolder": "orchard", "helpLocation": "help",
                       "refItems": list(items)})


def item(href, purpose):
    return {"href": href, "refpurpose": purpose}


def configuration():
    """The line of .gitattributes and the command, as the page shows them."""
    page = DOCS.joinpath("diff.md").read_text(encoding="utf-8")
    attribute = re.search(r"^\*\.json diff=refdoc$", page, re.MULTILINE)
    command = re.search(r"^git config diff\.refdoc\.command '(refdoc git-diff)'$", page, re.MULTILINE)
    return attribute.group(0), command.group(1)


class Repository:
    def __init__(self, folder):
        self.folder = pathlib.Path(folder)
        # Only the configuration of this test counts.
        self.environment = {**os.environ, "PATH": f"{REFDOC.parent}{os.pathsep}{os.environ['PATH']}",
                            "GIT_CONFIG_GLOBAL": os.devnull, "GIT_CONFIG_SYSTEM": os.devnull, "HOME": folder}
        attribute, command = configuration()
        self.git("init", "--quiet")
        self.git("config", "user.email", "a@example.org")
        self.git("config", "user.name", "A")
        self.git("config", "diff.refdoc.command", command)
        self.write(".gitattributes", attribute + "\n")

    def git(self, *arguments):
        result = subprocess.run(["git", *arguments], cwd=self.folder, env=self.environment, capture_output=True,
                                text=True, encoding="utf-8")
        assert result.returncode == 0, result.stderr
        return result

    def write(self, path, text):
        file = self.folder / path
        file.parent.mkdir(parents=True, exist_ok=True)
        file.write_text(text, encoding="utf-8")

    def commit(self):
        self.git("add", "--all")
        self.git("commit", "--quiet", "--message", "A version")

    def diff(self, *arguments):
        return self.git("--no-pager", "diff", "--ext-diff", *arguments)


def expect(condition, result):
    assert condition, f"{result.stdout}\n{result.stderr}"


def main():
    with tempfile.TemporaryDirectory() as folder:
        repository = Repository(folder)
        repository.write(FULL, section(item("graft.html", "Join two trees"), item("prune.html", "Cut")))
        repository.write(LOOKUP, section({"name": "graft", "href": "graft.html", "refpurpose": "Join"}))
        repository.write(PLAIN, section({"name": "graft", "href": "graft.html", "refpurpose": "Join"}))
        repository.commit()
        expect(repository.diff().stdout == "", repository.diff())

        # A changed full file, a changed lookup file, and one whose folder does not tell what it is.
        repository.write(FULL, section(item("graft.html", "Join three trees")))
        for path in (LOOKUP, PLAIN):
            repository.write(path, section({"name": "graft", "href": "graft.html", "refpurpose": "Bind"}))
        changed = repository.diff()
        for words in (f"{FULL}\n", "[-two-]{+three+} trees", "prune.html", f"{LOOKUP}\n", "Orchard_de", "[-Join-]{+Bind+}",
                      f"{PLAIN}\n"):
            expect(words in changed.stdout, changed)
        repository.commit()
        expect("{+three+}" in repository.diff("HEAD~1").stdout, repository.diff("HEAD~1"))

        # A new file, a removed one, and a renamed one.
        (repository.folder / FULL).unlink()
        repository.write("help/docCatalog/referenceapi/Cellar.json", section(item("press.html", "Press")))
        (repository.folder / PLAIN).rename(repository.folder / "pages/cellar.json")
        repository.git("add", "--all")
        files = repository.diff("--cached", "--find-renames")
        expect("product removed" in files.stdout and "product added" in files.stdout, files)
        repository.commit()

        # A damaged version is reported, and git goes on.
        repository.write(LOOKUP, "{")
        damaged = repository.diff()
        expect(f"refdoc: skipped in NEW: {LOOKUP}: " in damaged.stderr, damaged)
    return 0


sys.exit(main())
