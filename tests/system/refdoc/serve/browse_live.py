"""Keeps pages of refdoc serve open in Chromium while files change.

usage: browse_live.py REFDOC SAMPLES
"""

import pathlib
import sys
import tempfile
import time
import unittest

from selenium import webdriver
from selenium.common.exceptions import StaleElementReferenceException
from selenium.webdriver.common.by import By
from selenium.webdriver.common.keys import Keys
from selenium.webdriver.support.ui import WebDriverWait

from served import Served

REFDOC, SAMPLES = (pathlib.Path(argument) for argument in sys.argv[1:3])

ITEM = "orchard/ref/smooth.html"
PURPOSE = "Smooth a series with a moving window"


class LiveTest(unittest.TestCase):

    @classmethod
    def setUpClass(cls):
        cls.profile = tempfile.TemporaryDirectory()
        options = webdriver.ChromeOptions()
        for argument in ("--headless=new", "--no-sandbox", "--disable-gpu", "--disable-dev-shm-usage",
                         f"--user-data-dir={cls.profile.name}"):
            options.add_argument(argument)
        options.set_capability("goog:loggingPrefs", {"browser": "ALL"})
        cls.browser = webdriver.Chrome(options=options)

    @classmethod
    def tearDownClass(cls):
        cls.browser.quit()
        cls.profile.cleanup()

    def setUp(self):
        self.server = Served(REFDOC, SAMPLES)
        self.addCleanup(self.server.kill)

    def tearDown(self):
        self.assertEqual(self.browser.get_log("browser"), [])
        self.browser.get("about:blank")
        self.assertEqual(self.server.close()[0], 0)

    def open(self, path):
        self.browser.get(self.server.url + path)

    def text(self):
        return self.browser.find_element(By.TAG_NAME, "main").text

    def wait_for(self, condition):
        WebDriverWait(self.browser, 30, poll_frequency=0.02,
                      ignored_exceptions=[StaleElementReferenceException]).until(lambda _: condition())

    def scroll_position(self):
        return self.browser.execute_script("return Math.round(scrollY)")

    def test_saved_edit_is_shown(self):
        self.open(ITEM)
        self.assertIn(PURPOSE, self.text())
        start = time.monotonic()
        self.server.replace(PURPOSE, "Press apples")
        self.wait_for(lambda: "Press apples" in self.text())
        print(f"saved edit: {time.monotonic() - start:.3f} s", file=sys.stderr)

    def test_broken_edit_shows_its_error_until_it_is_repaired(self):
        self.open(ITEM)
        start = time.monotonic()
        self.server.replace(f'"{PURPOSE}"', PURPOSE)
        self.wait_for(lambda: "This file cannot be used" in self.text())
        print(f"broken edit: {time.monotonic() - start:.3f} s", file=sys.stderr)
        line, marker = self.browser.find_element(By.TAG_NAME, "pre").get_attribute("textContent").split("\n")[:2]
        self.assertEqual(line.index("Smooth a series"), marker.index("^"))
        self.server.replace(PURPOSE, '"Press apples"')
        self.wait_for(lambda: "Press apples" in self.text())
        self.assertEqual(self.browser.current_url, self.server.url + ITEM)

    def test_scroll_position_is_kept(self):
        self.browser.set_window_size(600, 400)
        self.open(ITEM)
        self.browser.execute_script("scrollTo(0, 300)")
        self.wait_for(lambda: self.scroll_position() == 300)
        self.server.replace(PURPOSE, "Press apples")
        self.wait_for(lambda: "Press apples" in self.text())
        self.wait_for(lambda: self.scroll_position() == 300)

    def test_missing_page_is_shown_when_it_exists(self):
        self.server.replace('"ref/smooth.html"', '"ref/other.html"')
        self.server.wait_for_page("/" + ITEM, "Page not found")
        self.open(ITEM)
        self.wait_for(lambda: "Page not found" in self.text())
        self.server.replace('"ref/other.html"', '"ref/smooth.html"')
        self.wait_for(lambda: PURPOSE in self.text())
        # Chromium reports the missing page in its console.
        self.assertEqual({entry["source"] for entry in self.browser.get_log("browser")}, {"network"})

    def test_search_works(self):
        self.open("de/index.html")
        self.browser.switch_to.active_element.send_keys("smooth")
        self.wait_for(lambda: self.browser.find_elements(By.CSS_SELECTOR, ".search li a"))
        self.browser.switch_to.active_element.send_keys(Keys.ENTER)
        self.wait_for(lambda: self.browser.current_url == self.server.url + "de/" + ITEM)

    def test_many_open_pages_do_not_block_each_other(self):
        first = self.browser.current_window_handle
        for _ in range(8):
            self.browser.switch_to.new_window("tab")
            self.open(ITEM)
            self.assertIn(PURPOSE, self.text())
        self.server.replace(PURPOSE, "Press apples")
        for handle in self.browser.window_handles:
            self.browser.switch_to.window(handle)
            if handle == first:
                continue
            self.wait_for(lambda: "Press apples" in self.text())
            self.browser.close()
        self.browser.switch_to.window(first)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1], verbosity=2)
