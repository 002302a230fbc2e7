"""Opens the pages of sites in Chromium, for the test programs of this folder.

Each of these programs starts with the arguments REFDOC SAMPLES.
"""

import functools
import json
import pathlib
import subprocess
import sys
import tempfile
import unittest
from urllib.parse import quote, unquote, urlsplit

from selenium import webdriver
from selenium.webdriver.common.by import By
from selenium.webdriver.support.ui import WebDriverWait

from roots import LargeRoot

REFDOC, SAMPLES = (pathlib.Path(argument) for argument in sys.argv[1:3])

NARROW = 400
WIDE = 1280


@functools.cache
def temporary_folder():
    """Returns a folder for all tests of the program."""
    folder = tempfile.TemporaryDirectory()
    unittest.addModuleCleanup(folder.cleanup)
    return pathlib.Path(folder.name)


def write_site(name, *options):
    """Writes a site in the temporary folder with these options of refdoc, and returns its address."""
    site = temporary_folder() / name
    subprocess.run([REFDOC, *options, "site", site], stdout=subprocess.DEVNULL, check=True)
    return f"{site.as_uri()}/"


def write_large_site():
    """Writes a site of 200 products in English and Arabic, and returns their root and the site's address."""
    install = temporary_folder() / "large"
    root = LargeRoot(200)
    root.write(install)
    return root, write_site("large-site", "--install", install)


def pages_of(address):
    """Returns the paths of all pages of a site of files."""
    site = pathlib.Path(unquote(urlsplit(address).path))
    return sorted(page.relative_to(site).as_posix() for page in site.rglob("*.html"))


@functools.cache
def chromium():
    """Returns one browser for all tests of the program. It records console messages and requests."""
    options = webdriver.ChromeOptions()
    for argument in ("--headless=new", "--no-sandbox", "--disable-gpu", "--disable-dev-shm-usage",
                     f"--user-data-dir={temporary_folder() / 'profile'}"):
        options.add_argument(argument)
    options.set_capability("goog:loggingPrefs", {"browser": "ALL", "performance": "ALL"})
    options.add_experimental_option("perfLoggingPrefs", {"enableNetwork": True, "enablePage": False})
    browser = webdriver.Chrome(options=options)
    unittest.addModuleCleanup(browser.quit)
    browser.set_script_timeout(120)
    return browser


class BrowserTest(unittest.TestCase):
    """Tests the pages of one site.

    A test fails if a page writes to the console, violates its Content-Security-Policy, opens a
    dialogue, or requests anything outside the site.
    """

    address: str  # of the site, with a slash at the end

    def setUp(self):
        self.browser = chromium()
        self.browser.get("about:blank")
        self.emulate()
        self.messages()
        self.requests()

    def tearDown(self):
        self.assertEqual(self.messages(), [])
        self.assertEqual([address for address in self.requests() if not address.startswith(self.address)], [])

    def emulate(self, width=WIDE, scheme="light", media="screen", script=True):
        """Sets up the window. Each test starts with the defaults."""
        command = self.browser.execute_cdp_cmd
        command("Emulation.setDeviceMetricsOverride",
                {"width": width, "height": 1000, "deviceScaleFactor": 1, "mobile": False})
        command("Emulation.setEmulatedMedia",
                {"media": media, "features": [{"name": "prefers-color-scheme", "value": scheme}]})
        command("Emulation.setScriptExecutionDisabled", {"value": not script})

    def messages(self):
        """Returns the console messages since the last call. They include violations of the policy."""
        return [entry["message"] for entry in self.browser.get_log("browser")]

    def requests(self):
        """Returns the addresses that have been requested since the last call."""
        events = [json.loads(entry["message"])["message"] for entry in self.browser.get_log("performance")]
        return [event["params"]["request"]["url"] for event in events
                if event["method"] == "Network.requestWillBeSent"]

    def open(self, page, fragment=""):
        """Opens a page, given as its path below the site."""
        # Without this, only the fragment of an open page changes.
        self.browser.get("about:blank")
        self.browser.get(self.address + quote(page) + fragment)

    def here(self):
        """Returns the path of the open page below the site, with the fragment if there is one."""
        return unquote(self.browser.current_url.removeprefix(self.address))

    def all(self, selector):
        return self.browser.find_elements(By.CSS_SELECTOR, selector)

    def one(self, selector):
        return self.browser.find_element(By.CSS_SELECTOR, selector)

    def run_script(self, script, *arguments):
        return self.browser.execute_script(script, *arguments)

    def wait(self, condition):
        WebDriverWait(self.browser, 60).until(lambda _: condition())

    def wait_for_page(self, page):
        self.wait(lambda: self.here() == page)

    def focused(self):
        return self.browser.switch_to.active_element

    def press(self, *keys):
        self.focused().send_keys(*keys)

    def results(self):
        """Returns the names in the list of search results."""
        names = "return [...document.querySelectorAll('.search li > :first-child')].map(e => e.textContent)"
        return self.run_script(names)

    def search(self, text, first):
        """Types a string and waits until the results begin with these names."""
        self.press(text)
        self.wait(lambda: self.results()[:len(first)] == first)

    def assert_fits_window(self):
        overflow = "return document.documentElement.scrollWidth - document.documentElement.clientWidth"
        self.assertEqual(self.run_script(overflow), 0, "the page scrolls sideways")


def main():
    unittest.main(argv=sys.argv[:1])
