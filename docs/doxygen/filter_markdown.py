"""Converts a Markdown page of the source tree for Doxygen.

  filter_markdown.py FILE    writes the page to standard output

- Headings get the anchors that links in the source tree use: "page" and "page-section".
- Links to pages, sections and public headers become references. Pages in a list or table of a README
  become its sub-pages.
- Other links into the source tree become plain text.
- Pictures lose the path to their folder, which Doxygen knows.
"""

import pathlib
import re
import sys

ROOT = pathlib.Path(__file__).resolve().parents[2]
PICTURE = re.compile(r"(!\[[^\]]*\]\()(?:\.\./)*pictures/")
LINK = re.compile(r"(?<!!)\[([^\]]*)\]\(([^)#]*)(?:#([^)]*))?\)")


def page_name(file):
    """Returns the name of a page, or None if the file is not a page."""
    path = file.relative_to(ROOT).with_suffix("")
    if path.name == "CHANGELOG":
        return "changelog"
    if path.parts[0] not in ("docs", "examples") or file.suffix != ".md" or not file.exists():
        return None
    parts = [part for part in path.parts if part not in ("docs", "README")]
    return "-".join(parts) or "mainpage"


def section_name(heading):
    """Returns the anchor that web views of the source tree generate for a heading."""
    words = re.sub(r"[^\w\- ]", "", heading.lower())
    return words.strip().replace(" ", "-")


def class_of(header):
    """Returns the qualified name of the main class of a public header, or None."""
    text = header.read_text(encoding="utf-8")
    namespace = re.search(r"^namespace ([\w:]+) \{", text, re.MULTILINE)
    name = re.search(rf"^(?:class|struct) (?:\w+ )?({header.stem})\b", text, re.MULTILINE)
    return f"{namespace[1]}::{name[1]}" if namespace and name else None


class Page:
    def __init__(self, file):
        self.file = file
        self.name = page_name(file)
        self.is_index = file.name == "README.md"

    def heading(self, line):
        marks, title = line.split(" ", 1)
        anchor = self.name if marks == "#" else f"{self.name}-{section_name(title)}"
        return f"{marks} {title} {{#{anchor}}}"

    def link(self, match, is_listed):
        text, path, section = match[1], match[2], match[3]
        if ":" in path:
            return match[0]
        target = (self.file.parent / path).resolve() if path else self.file
        page = page_name(target)
        reference = page or (class_of(target) if target.suffix == ".hpp" else None)
        if not target.exists():
            reference = path  # Doxygen warns that the target is missing.
        if reference is None:
            return text
        if section:
            reference += f"-{section}"
        command = "subpage" if page and is_listed and not section else "ref"
        quoted = text.replace("`", "").replace('"', "'")
        return f'@{command} {reference} "{quoted}"'

    def line(self, line):
        return self.heading(line) if re.match(r"#+ ", line) else line

    def prose(self, lines):
        """Converts text between code blocks. A link may span two lines."""
        text = PICTURE.sub(r"\1", "\n".join(map(self.line, lines)))

        def link(match):
            line_start = text.rfind("\n", 0, match.start()) + 1
            is_listed = self.is_index and text.startswith(("- [", "| ["), line_start)
            return self.link(match, is_listed)

        return LINK.sub(link, text)

    def blocks(self):
        lines = []
        is_code = False
        for line in self.file.read_text(encoding="utf-8").split("\n"):
            if line.startswith("```"):
                yield self.code(lines) if is_code else self.prose(lines)
                lines = [line] if not is_code else []
                is_code = not is_code
            else:
                lines.append(line)
        yield self.prose(lines)

    @staticmethod
    def code(lines):
        return "\n".join([*lines, "```"])


if __name__ == "__main__":
    print("\n".join(Page(pathlib.Path(sys.argv[1]).resolve()).blocks()))
