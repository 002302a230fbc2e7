"""Uses a site in Chromium, as files: the samples and records that try to become markup.

usage: browse_site.py REFDOC SAMPLES OUT

Leaves screenshots in the folder OUT.
"""

import json
import pathlib
import subprocess
import sys
import tempfile
import unittest
from urllib.parse import quote, unquote, urlsplit

from selenium import webdriver
from selenium.webdriver.common.by import By
from selenium.webdriver.common.keys import Keys
from selenium.webdriver.support.ui import WebDriverWait

REFDOC, SAMPLES, OUT = (pathlib.Path(argument) for argument in sys.argv[1:4])

HOSTILE = "<script>document.title='run'</script>\"><img src=x onerror=\"document.title='run'\">"


def hostile_product():
    """Every string of the records is markup, and some are a script in a link or very long."""
    argument = {"name": HOSTILE, "purpose": HOSTILE, "value": [HOSTILE], "defaultvalue": HOSTILE,
                "htmlid": "\" onclick=\"document.title='run'"}
    item = {"href": f"ref/{HOSTILE}.html", "refpurpose": HOSTILE, "packagename": HOSTILE,
            "description": "\u202e\u2067 right to left \u0000 " + HOSTILE,
            "refentity": [{"type": "class", "name": HOSTILE}],
            "appthumbnail": {"fileref": "javascript:document.title='run'", "alt": HOSTILE},
            "syntaxgroup": [{"title": HOSTILE, "syntax": [HOSTILE]}],
            "inputs": [argument], "outputs": [argument], "parameters": [argument],
            "classpropertygroup": [{"title": HOSTILE, "classproperty": [argument]}],
            "seealso": [{"url": "javascript:document.title='run'", "name": HOSTILE},
                        {"url": "https://example.org/\" onclick=\"document.title='run'", "name": "web"}],
            "examples": [{"url": "data:text/html,<script>alert(1)</script>", "open_command": HOSTILE,
                          "title": HOSTILE}]}
    long_item = {"href": "long.html", "refpurpose": "a" * 1_000_000,
                 "refentity": [{"name": "b" * 1_000_000}]}
    return {"productName": HOSTILE, "baseCode": HOSTILE, "helpFolder": "hostile",
            "helpLocation": HOSTILE, "refItems": [item, long_item]}


def write_hostile_root(root):
    catalog = root / "docCatalog"
    for name in ("referenceapi", "referenceapi_lookup"):
        (catalog / name).mkdir(parents=True)
    product = hostile_product()
    (catalog / "referenceapi/Hostile.json").write_text(json.dumps(product), encoding="utf-8")
    product["refItems"] = [{"name": HOSTILE, "href": product["refItems"][0]["href"],
                            "refpurpose": HOSTILE}]
    (catalog / "referenceapi_lookup/Hostile.json").write_text(json.dumps(product), encoding="utf-8")


def write_site(option, root, site):
    subprocess.run([REFDOC, option, root, "site", site], stdout=subprocess.DEVNULL, check=True)


class BrowserTest(unittest.TestCase):
    """One browser and one site of the samples for all tests."""

    @classmethod
    def setUpClass(cls):
        cls.folder = tempfile.TemporaryDirectory()
        folder = pathlib.Path(cls.folder.name)
        cls.site = folder / "site"
        write_site("--install", SAMPLES, cls.site)
        cls.hostile_site = folder / "hostile-site"
        write_hostile_root(folder / "hostile")
        write_site("--root", folder / "hostile", cls.hostile_site)
        options = webdriver.ChromeOptions()
        for argument in ("--headless=new", "--no-sandbox", "--disable-gpu", "--disable-dev-shm-usage",
                         f"--user-data-dir={folder / 'profile'}"):
            options.add_argument(argument)
        options.set_capability("goog:loggingPrefs", {"browser": "ALL"})
        cls.browser = webdriver.Chrome(options=options)
        OUT.mkdir(parents=True, exist_ok=True)

    @classmethod
    def tearDownClass(cls):
        cls.browser.quit()
        cls.folder.cleanup()

    def tearDown(self):
        self.assertEqual(self.browser.get_log("browser"), [])

    def open(self, path):
        # Without this, only the fragment of an open page changes.
        self.browser.get("about:blank")
        self.browser.get(self.site.as_uri() + "/" + path)

    def here(self):
        return unquote(urlsplit(self.browser.current_url).path).removeprefix(f"{self.site}/")

    def all(self, selector):
        return self.browser.find_elements(By.CSS_SELECTOR, selector)

    def one(self, selector):
        return self.browser.find_element(By.CSS_SELECTOR, selector)

    def wait(self, condition):
        WebDriverWait(self.browser, 30).until(lambda _: condition())

    def press(self, *keys):
        self.browser.switch_to.active_element.send_keys(*keys)

    def results(self):
        names = "return [...document.querySelectorAll('.search li > :first-child')].map(e => e.textContent)"
        return self.browser.execute_script(names)

    def search(self, text, first):
        """Types a text and waits until the results begin with these names."""
        self.press(text)
        self.wait(lambda: self.results()[:len(first)] == first)
        self.wait(lambda: self.one("[role=status]").text.endswith(("result", "results")))


class SearchTest(BrowserTest):

    def test_start_page_has_the_focus_in_the_search(self):
        self.open("index.html")
        self.search("smooth", ["smooth", "mavg"])
        self.press(Keys.ARROW_DOWN)
        self.press(Keys.ENTER)
        self.wait(lambda: self.here() == "orchard/ref/smooth.html")

    def test_slash_focuses_and_enter_opens_the_best_result(self):
        self.open("de/cellar/index.html")
        self.one("body").send_keys("/")
        self.search("smooth", ["smooth"])
        self.press(Keys.ENTER)
        self.wait(lambda: self.here() == "de/orchard/ref/smooth.html")

    def test_arrows_move_and_escape_clears(self):
        self.open("index.html")
        self.search("series", ["series", "series"])
        self.press(Keys.ARROW_DOWN)
        self.press(Keys.ARROW_DOWN)
        links = self.all(".search li a")
        self.assertEqual(self.browser.switch_to.active_element, links[1])
        self.press(Keys.ARROW_UP)
        self.press(Keys.ARROW_UP)
        self.assertEqual(self.browser.switch_to.active_element, self.one(".search input"))
        self.press(Keys.ESCAPE)
        self.assertEqual(self.all(".search li"), [])
        self.assertEqual(self.one("[role=status]").text, "")

    def test_nothing_is_loaded_before_the_search_is_used(self):
        self.open("index.html")
        parts = "script[src*='/search/']"
        self.assertEqual(self.all(parts), [])
        self.search("smooth", ["smooth"])
        self.assertEqual(len(self.all(parts)), 2)


class PageTest(BrowserTest):

    def test_language_links_keep_the_place(self):
        self.open("orchard/ref/smooth.html")
        for language in ("de", "ja"):
            self.one(f".languages a[hreflang={language}]").click()
            self.assertEqual(self.here(), f"{language}/orchard/ref/smooth.html")

    def test_anchors_land_on_their_argument(self):
        self.open("orchard/ref/smooth.html#arg-ends")
        target = self.one(":target")
        self.assertEqual(target.find_element(By.CSS_SELECTOR, "dt code").text, "ends")
        top = self.browser.execute_script("return arguments[0].getBoundingClientRect().top", target)
        height = self.browser.execute_script("return innerHeight")
        self.assertTrue(-1 < top < height, top)

    def test_filter_hides_items_and_empty_types(self):
        self.open("orchard/index.html")
        self.one(".filter input").send_keys("SERIES unit")
        shown = [item.text for item in self.all(".items li") if item.is_displayed()]
        self.assertTrue(shown)
        for text in shown:
            self.assertIn("unit", text.lower())
        headings = [heading.text for heading in self.all(".items h2") if heading.is_displayed()]
        self.assertIn("properties", headings)
        self.assertNotIn("operators", headings)

    def test_pages_fit_the_window(self):
        for width in (400, 1280):
            self.browser.execute_cdp_cmd("Emulation.setDeviceMetricsOverride",
                                         {"width": width, "height": 1000, "deviceScaleFactor": 1,
                                          "mobile": False})
            self.addCleanup(self.browser.execute_cdp_cmd, "Emulation.clearDeviceMetricsOverride", {})
            for name in ("index.html", "orchard/index.html", "ja/orchard/ref/smooth.html"):
                self.open(name)
                self.browser.save_screenshot(str(OUT / f"{name.replace('/', '-')}-{width}.png"))
                overflow = "return document.documentElement.scrollWidth - document.documentElement.clientWidth"
                self.assertEqual(self.browser.execute_script(overflow), 0, (name, width))


class HostileTest(BrowserTest):

    def setUp(self):
        self.site = self.hostile_site

    def test_markup_in_records_stays_text(self):
        pages = sorted(self.site.rglob("*.html"))
        self.assertEqual(len(pages), 4)
        for page in pages:
            self.open(quote(page.relative_to(self.site).as_posix()))
            self.assertEqual(self.all("main script, main img, main style, main iframe, main svg"), [])
            self.assertNotEqual(self.browser.title, "run")
            attributes = ("return [...document.querySelectorAll('*')].flatMap(e => e.getAttributeNames())"
                          ".filter(name => name.startsWith('on'))")
            self.assertEqual(self.browser.execute_script(attributes), [])
            for link in self.all("a"):
                self.assertRegex(link.get_attribute("href"), "^(file|https):")

    def test_markup_in_results_stays_text(self):
        self.open("index.html")
        self.search("script", [HOSTILE])
        self.assertEqual(self.all(".search script, .search img"), [])
        self.press(Keys.ENTER)
        self.wait(lambda: self.here().startswith("hostile/ref/"))
        self.assertEqual(self.one("h1 bdi").text, HOSTILE)
        self.assertNotEqual(self.browser.title, "run")


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
