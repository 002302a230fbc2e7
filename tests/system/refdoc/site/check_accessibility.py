"""Checks the pages of sites with axe-core in Chromium.

usage: check_accessibility.py REFDOC SAMPLES AXE

AXE is the script of axe-core, which `npm ci` installs in this folder.
"""

import pathlib
import sys

from browser import NARROW, SAMPLES, WIDE, BrowserTest, main, write_large_site, write_site

AXE = pathlib.Path(sys.argv[3])

VIOLATIONS = """
const done = arguments[0];
axe.run({ preload: false, resultTypes: ["violations"] }).then(({ violations }) => done(violations.flatMap(
  ({ id, nodes }) => nodes.map(({ html, failureSummary }) => `${id}: ${html}: ${failureSummary}`))));
"""


class AccessibilityTest(BrowserTest):

    def violations(self):
        """Returns what axe-core finds on the page as it is shown now."""
        if not self.run_script("return 'axe' in window"):
            self.run_script(AXE.read_text(encoding="utf-8"))
        return self.browser.execute_async_script(VIOLATIONS)

    def check(self):
        """Fails if there are violations in a window of any size and colour scheme."""
        for width in (NARROW, WIDE):
            for scheme in ("light", "dark"):
                with self.subTest(self.here(), width=width, scheme=scheme):
                    self.emulate(width=width, scheme=scheme)
                    self.assertEqual(self.violations(), [])


class SampleTest(AccessibilityTest):
    """Tests the samples, also from right to left."""

    @classmethod
    def setUpClass(cls):
        cls.address = write_site("sample-site", "--install", SAMPLES, "--langs", "en,de,ja,ar")

    def test_pages_have_no_violation(self):
        for folder in ("", "ar/"):
            for page in ("index.html", "orchard/index.html", "orchard/ref/smooth.html", "orchard/ref/series.html"):
                self.open(folder + page)
                self.check()

    def test_target_and_unfolded_origin_have_no_violation(self):
        self.open("orchard/ref/smooth.html", "#arg-shape")
        self.one(".origin summary").click()
        self.check()

    def test_results_have_no_violation(self):
        self.open("index.html")
        self.search("smooth", ["smooth"])
        self.check()

    def test_violations_are_noticed(self):
        self.open("orchard/ref/smooth.html")
        self.run_script("document.querySelector('.purpose').style.color = '#999999'")
        self.assertRegex(self.violations()[0], "^color-contrast: ")
        self.browser.refresh()
        self.run_script("document.querySelector('h1').remove()")
        self.assertRegex(self.violations()[0], "^page-has-heading-one: ")


class LargeSiteTest(AccessibilityTest):
    """Tests a start page with 200 products, and pages in Arabic."""

    @classmethod
    def setUpClass(cls):
        cls.root, cls.address = write_large_site()

    def test_pages_have_no_violation(self):
        for folder in ("", "ar/"):
            for page in ("index.html", "broken/index.html", "align000/index.html", "align000/ref/item0.html", "align000/ref/item1.html"):
                self.open(folder + page)
                self.check()


if __name__ == "__main__":
    if not AXE.exists():
        sys.exit(f"{AXE} is missing; run scripts/test, or npm ci in {pathlib.Path(__file__).parent}")
    main()
