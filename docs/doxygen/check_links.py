"""Checks that each link of the HTML documentation leads to a file and an anchor that exist.

usage: check_links.py FOLDER

Prints the other links, and exits with 1 if there are any. Links to web sites and scripts are not followed."""

import html.parser
import pathlib
import sys
import urllib.parse


class Page(html.parser.HTMLParser):
    """The anchors and links of a page."""

    def __init__(self, path):
        super().__init__()
        self.anchors = set()
        self.links = []
        self.feed(path.read_text(encoding="utf-8"))

    def handle_starttag(self, tag, attributes):
        for name, value in attributes:
            if name == "id" or (tag == "a" and name == "name"):
                self.anchors.add(value)
            elif name in ("href", "src"):
                self.links.append(value)


def broken_links(folder):
    pages = {path: Page(path) for path in sorted(folder.rglob("*.html"))}
    for path, page in pages.items():
        for link in page.links:
            url = urllib.parse.urlsplit(link)
            if url.scheme in ("http", "https", "mailto", "javascript"):
                continue
            target = (path.parent / urllib.parse.unquote(url.path)).resolve() if url.path else path
            fragment = urllib.parse.unquote(url.fragment)
            is_anchor = not fragment or target not in pages or fragment in pages[target].anchors
            if url.scheme or not target.exists() or not is_anchor:
                yield f"{path.relative_to(folder)}: {link}"


def main():
    broken = sorted(set(broken_links(pathlib.Path(sys.argv[1]).resolve())))
    print("\n".join(broken))
    return 1 if broken else 0


if __name__ == "__main__":
    sys.exit(main())
