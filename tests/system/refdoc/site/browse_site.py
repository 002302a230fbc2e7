"""Uses the sites of the samples and of 200 products in Chromium.

usage: browse_site.py REFDOC SAMPLES SCREENSHOTS

Leaves pictures of the pages in the folder SCREENSHOTS.
"""

import pathlib
import random
import sys

from selenium.webdriver.common.by import By
from selenium.webdriver.common.keys import Keys

from browser import NARROW, SAMPLES, WIDE, BrowserTest, main, pages_of, write_large_site, write_site

SCREENSHOTS = pathlib.Path(sys.argv[3])


class SampleTest(BrowserTest):
    """Tests the site of the samples."""

    @classmethod
    def setUpClass(cls):
        if not hasattr(SampleTest, "address"):
            SampleTest.address = write_site("sample-site", "--install", SAMPLES)


class SearchTest(SampleTest):

    def test_start_page_has_the_focus_in_the_search(self):
        self.open("index.html")
        self.search("smooth", ["smooth", "mavg"])
        self.press(Keys.ARROW_DOWN)
        self.press(Keys.ENTER)
        self.wait_for_page("orchard/ref/smooth.html")

    def test_slash_focuses_and_enter_opens_the_best_result(self):
        self.open("de/cellar/index.html")
        self.one("body").send_keys("/")
        self.search("smooth", ["smooth"])
        self.press(Keys.ENTER)
        self.wait_for_page("de/orchard/ref/smooth.html")

    def test_arrows_move_and_escape_clears(self):
        self.open("index.html")
        self.search("series", ["series", "series"])
        self.press(Keys.ARROW_DOWN)
        self.press(Keys.ARROW_DOWN)
        self.assertEqual(self.focused(), self.all(".search li a")[1])
        self.press(Keys.ARROW_UP)
        self.press(Keys.ARROW_UP)
        self.assertEqual(self.focused(), self.one(".search input"))
        self.press(Keys.ESCAPE)
        self.assertEqual(self.all(".search li"), [])
        self.assertEqual(self.one("[role=status]").text, "")

    def test_nothing_is_loaded_before_the_search_is_used(self):
        self.open("index.html")
        self.assertEqual([address for address in self.requests() if "/search/" in address], [])
        self.search("smooth", ["smooth"])
        self.assertNotEqual([address for address in self.requests() if "/search/" in address], [])


class PageTest(SampleTest):

    def test_language_links_keep_the_place(self):
        self.open("orchard/ref/smooth.html", "#arg-shape")
        for language in ("de", "ja", "en"):
            self.one(f".languages a[hreflang={language}]").click()
            folder = "" if language == "en" else f"{language}/"
            self.wait_for_page(f"{folder}orchard/ref/smooth.html#arg-shape")
            self.assertEqual(self.one(":target dt code").text, "shape")

    def test_language_links_follow_the_anchor(self):
        self.open("orchard/ref/smooth.html")
        self.run_script("location.hash = 'out-y'")
        self.wait(lambda: self.all(".languages a[hreflang=de][href$='#out-y']"))

    def test_anchors_land_on_their_argument(self):
        self.emulate(width=NARROW)
        self.open("orchard/ref/smooth.html", "#arg-ends")
        target = self.one(":target")
        self.assertEqual(target.find_element(By.CSS_SELECTOR, "dt code").text, "ends")
        top, bottom = self.run_script("const box = arguments[0].getBoundingClientRect();"
                                      "return [box.top, innerHeight - box.bottom]", target)
        self.assertGreater(self.run_script("return scrollY"), 0)
        self.assertGreater(top, -1)
        self.assertGreater(bottom, -1)

    def test_the_first_tab_stop_skips_to_the_content(self):
        self.open("orchard/ref/smooth.html")
        self.one("body").send_keys(Keys.TAB)
        self.assertEqual(self.focused(), self.one(".skip"))
        self.assertGreaterEqual(self.focused().rect["x"], 0)
        self.press(Keys.ENTER)
        self.wait_for_page("orchard/ref/smooth.html#refdoc-content")

    def test_filter_hides_items_and_empty_types(self):
        self.open("orchard/index.html")
        self.one(".filter input").send_keys("SERIES unit")
        shown = [item.text for item in self.all(".items li") if item.is_displayed()]
        self.assertTrue(shown)
        for text in shown:
            self.assertIn("unit", text.lower())
        headings = [heading.text for heading in self.all(".items h2") if heading.is_displayed()]
        self.assertIn("properties", [heading.lower() for heading in headings])
        self.assertNotIn("operators", [heading.lower() for heading in headings])

    def test_pages_work_without_script(self):
        self.emulate(script=False)
        self.open("index.html")
        self.assertFalse(self.one(".search").is_displayed())
        self.one("main a[href='orchard/index.html']").click()
        self.wait_for_page("orchard/index.html")
        self.assertFalse(self.one(".filter").is_displayed())
        self.one("main a[href='ref/smooth.html']").click()
        self.wait_for_page("orchard/ref/smooth.html")
        self.one(".languages a[hreflang=de]").click()
        self.wait_for_page("de/orchard/ref/smooth.html")
        is_shown = "return document.querySelector('.origin li').checkVisibility()"
        self.assertFalse(self.run_script(is_shown))
        self.one(".origin summary").click()
        self.assertTrue(self.run_script(is_shown))

    def test_paper_shows_only_the_content_dark_on_light(self):
        color = "return getComputedStyle(document.body).color"
        for page in ("orchard/index.html", "orchard/ref/smooth.html"):
            self.emulate()
            self.open(page)
            color_on_screen = self.run_script(color)
            self.emulate(media="print", scheme="dark")
            self.assertTrue(self.one("main h1").is_displayed())
            self.assertEqual([element.get_attribute("class") for element in
                              self.all(".skip, .languages, .search, .filter") if element.is_displayed()], [])
            self.assertEqual(self.run_script(color), color_on_screen)

    def test_pages_fit_the_window(self):
        SCREENSHOTS.mkdir(parents=True, exist_ok=True)
        for page in ("index.html", "orchard/index.html", "orchard/ref/smooth.html", "ja/orchard/ref/series.html"):
            self.open(page)
            for width in (NARROW, WIDE):
                for scheme in ("light", "dark"):
                    with self.subTest(page, width=width, scheme=scheme):
                        self.emulate(width=width, scheme=scheme)
                        name = f"{page.removesuffix('.html').replace('/', '-')}-{width}-{scheme}.png"
                        self.browser.save_screenshot(str(SCREENSHOTS / name))
                        self.assert_fits_window()


class LargeSiteTest(BrowserTest):
    """Tests a site of 200 products, in English and Arabic."""

    @classmethod
    def setUpClass(cls):
        cls.root, cls.address = write_large_site()

    def test_start_page_lists_the_installed_products_first(self):
        self.open("index.html")
        names = self.run_script("return [...document.querySelectorAll('tbody th a')].map(e => e.textContent)")
        expected = [f"{product.capitalize()} Tools" for product in self.root.products]
        self.assertEqual(sorted(names[:100]), sorted(expected[::2]))
        self.assertEqual(sorted(names[100:]), sorted([*expected[1::2], "broken"]))

    def test_every_product_is_found(self):
        self.open("index.html")
        for product in random.Random(1).sample(self.root.products, 3):
            self.one(".search input").clear()
            self.one(".search input").send_keys(product)
            self.wait(lambda: len(self.results()) == self.root.ITEMS
                      and all(name.startswith(product) for name in self.results()))

    def test_sampled_pages_fit_the_window(self):
        for page in random.Random(2).sample(pages_of(self.address), 12):
            self.open(page)
            for width in (NARROW, WIDE):
                with self.subTest(page, width=width):
                    self.emulate(width=width)
                    self.assert_fits_window()
            self.assertEqual(self.run_script("return document.documentElement.dir"),
                             "rtl" if page.startswith("ar/") else "ltr")


if __name__ == "__main__":
    main()
