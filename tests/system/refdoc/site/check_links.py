"""Checks that every link of a site leads to a file and an anchor of the site, or to the web.

usage: check_links.py REFDOC SAMPLES

Checks the sites of the samples and of 200 products.
"""

import functools
import html.parser
import pathlib
import subprocess
import sys
import tempfile
from urllib.parse import unquote, urlsplit

from roots import LargeRoot


class Page(html.parser.HTMLParser):
    """The links and anchors of a page."""

    def __init__(self, file):
        super().__init__()
        self.links = []
        self.anchors = set()
        self.feed(file.read_text(encoding="utf-8"))

    def handle_starttag(self, tag, attrs):
        for name, value in attrs:
            if name in ("href", "src"):
                self.links.append(value)
            elif name == "id":
                self.anchors.add(value)


class Site:
    """The files of a site."""

    def __init__(self, folder):
        self.folder = folder
        self.pages = sorted(folder.rglob("*.html"))
        self.page = functools.cache(Page)

    def broken_links(self):
        return [f"{page.relative_to(self.folder)}: {link}" for page in self.pages
                for link in set(self.page(page).links) if not self.is_right(page, link)]

    def is_right(self, page, link):
        address = urlsplit(link)
        if address.scheme:
            return address.scheme in ("http", "https")
        target = (page.parent / unquote(address.path)).resolve() if address.path else page
        return (not address.netloc and target.is_relative_to(self.folder) and target.is_file()
                and (not address.fragment or unquote(address.fragment) in self.page(target).anchors))


def check_site(refdoc, install, site):
    """Writes a site, and returns whether all its links are right."""
    subprocess.run([refdoc, "--install", install, "site", site], stdout=subprocess.DEVNULL, check=True)
    pages = Site(site)
    broken = pages.broken_links()
    print(f"{install.name}: {len(pages.pages)} pages, {len(broken)} broken links", *broken[:20], sep="\n  ")
    return pages.pages and not broken


def main(refdoc, samples):
    with tempfile.TemporaryDirectory() as name:
        folder = pathlib.Path(name).resolve()
        large = folder / "large"
        LargeRoot(200).write(large)
        are_right = [check_site(refdoc, install, folder / f"{install.name}-site")
                     for install in (pathlib.Path(samples), large)]
        return 0 if all(are_right) else 1


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
