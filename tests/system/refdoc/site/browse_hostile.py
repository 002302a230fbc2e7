"""Opens a site in Chromium whose records try to become markup, scripts and requests.

usage: browse_hostile.py REFDOC SAMPLES
"""

from selenium.common.exceptions import UnexpectedAlertPresentException
from selenium.webdriver.common.keys import Keys

from browser import NARROW, BrowserTest, main, pages_of, temporary_folder, write_site
from roots import HOSTILE_AS_SHOWN, LONG, MARKUP, write_hostile_root, write_long_root

# What only the frame of a page may contain.
FOREIGN_ELEMENTS = "main :is(script, style, img, iframe, svg, object, embed, form, base, meta, link)"

PRODUCT_LINK = "main a[href*=script]"

# The labels whose letters do not run from left to right.
REVERSED_LABELS = """
const reversed = [];
const walker = document.createTreeWalker(document.body, NodeFilter.SHOW_TEXT);
const rectangle = (node, at) => {
  const range = document.createRange();
  range.setStart(node, at);
  range.setEnd(node, at + 1);
  return range.getBoundingClientRect();
};
for (let node = walker.nextNode(); node !== null; node = walker.nextNode()) {
  if (node.parentElement.closest("bdi, script") || !/[a-z]{2}/iu.test(node.data)) continue;
  const at = node.data.search(/[a-z]{2}/iu);
  const [first, second] = [rectangle(node, at), rectangle(node, at + 1)];
  if (first.top === second.top && first.left > second.left) reversed.push(node.data);
}
return reversed;
"""


class HostileTest(BrowserTest):

    @classmethod
    def setUpClass(cls):
        root = temporary_folder() / "hostile"
        write_hostile_root(root)
        cls.address = write_site("hostile-site", "--root", root)

    def tearDown(self):
        self.assertNotEqual(self.browser.title, "run")
        super().tearDown()

    def assert_is_text(self):
        """Fails if the page has elements, attributes or links that only a string can have added."""
        self.assertEqual(self.all(FOREIGN_ELEMENTS), [])
        handlers = ("return [...document.querySelectorAll('*')].flatMap(e => e.getAttributeNames())"
                    ".filter(name => name.startsWith('on') || name === 'style')")
        self.assertEqual(self.run_script(handlers), [])
        schemes = "return [...new Set([...document.links].map(link => link.protocol))]"
        self.assertLessEqual(set(self.run_script(schemes)), {"file:", "https:"})
        self.assertEqual(self.run_script(REVERSED_LABELS), [])

    def test_strings_of_records_stay_text(self):
        pages = pages_of(self.address)
        self.assertEqual(len(pages), 5)
        for page in pages:
            with self.subTest(page):
                self.open(page)
                self.assertIn("<style>*{display:none}</style><!--", self.one("main").get_attribute("textContent"))
                self.assert_is_text()

    def test_links_lead_to_the_item(self):
        self.open("index.html")
        self.one(PRODUCT_LINK).click()
        self.wait(lambda: self.all(".items"))
        self.one(".items a").click()
        self.wait(lambda: self.all("article"))

    def test_strings_in_results_stay_text(self):
        self.open("index.html")
        self.search(MARKUP, [HOSTILE_AS_SHOWN])
        self.assertEqual(self.all(".search :is(script, style, img)"), [])
        self.assert_is_text()
        self.press(Keys.ENTER)
        self.wait(lambda: self.all("article"))

    def test_the_filter_takes_markup_as_text(self):
        self.open("index.html")
        self.one(PRODUCT_LINK).click()
        self.wait(lambda: self.all(".filter input"))
        self.one(".filter input").send_keys(MARKUP)
        self.assertEqual(len([item for item in self.all(".items li") if item.is_displayed()]), 2)
        self.assert_is_text()

    def test_the_address_is_not_copied_into_the_page(self):
        for suffix in ("#\"><img src=x onerror=alert(1)>", "?\"><script>alert(1)</script>"):
            self.open("index.html", suffix)
            self.assert_is_text()


class LongTest(BrowserTest):

    @classmethod
    def setUpClass(cls):
        root = temporary_folder() / "long"
        write_long_root(root)
        cls.address = write_site("long-site", "--root", root)

    def test_long_strings_fit_the_window(self):
        self.emulate(width=NARROW)
        for page in pages_of(self.address):
            with self.subTest(page):
                self.open(page)
                self.assertIn(LONG, self.one("main").get_attribute("textContent"))
                self.assert_fits_window()

    def test_long_names_are_found(self):
        self.open("index.html")
        self.search("bb", [LONG[:1500]])  # the index has the start of a string
        self.assert_fits_window()


class ChecksTest(BrowserTest):
    """Proves that the checks after each test notice what a page must not do."""

    @classmethod
    def setUpClass(cls):
        cls.folder = temporary_folder() / "checks"
        cls.folder.mkdir()
        cls.address = f"{cls.folder.as_uri()}/"

    def open_page(self, html):
        (self.folder / "page.html").write_text(f"<!DOCTYPE html><title>a</title>{html}", encoding="utf-8")
        self.open("page.html")

    def test_messages_in_the_console_are_noticed(self):
        self.open_page("<script>console.log('logged')</script>")
        self.assertIn("logged", self.messages()[0])

    def test_violations_of_the_policy_are_noticed(self):
        policy = "<meta http-equiv='Content-Security-Policy' content=\"default-src 'none'\">"
        self.open_page(f"{policy}<script>document.title='run'</script>")
        self.assertIn("Content Security Policy", self.messages()[0])

    def test_requests_are_noticed(self):
        self.open_page("<img src='http://127.0.0.1:9/a.png'>")
        self.assertIn("http://127.0.0.1:9/a.png", self.requests())
        self.messages()

    def test_dialogues_are_noticed(self):
        self.open_page("<script>setTimeout(() => alert(1))</script>")
        with self.assertRaises(UnexpectedAlertPresentException):
            self.wait(lambda: self.browser.title == "")


if __name__ == "__main__":
    main()
