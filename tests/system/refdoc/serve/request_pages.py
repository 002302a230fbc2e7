"""Sends requests to refdoc serve: usual ones, hostile ones, many at once, and some while files change.

usage: request_pages.py REFDOC SAMPLES [--sanitized]

With --sanitized, memory is not measured: sanitizers keep freed memory and have stacks of their own.
"""

import json
import os
import pathlib
import shutil
import signal
import socket
import subprocess
import sys
import tempfile
import threading
import time
import unittest
from concurrent.futures import ThreadPoolExecutor

from served import PRODUCT, Served, receive_all

REFDOC, SAMPLES = (pathlib.Path(argument) for argument in sys.argv[1:3])
MEASURES_MEMORY = "--sanitized" not in sys.argv

GERMAN_PRODUCT = "help/docCatalog/referenceapi/Orchard_de.json"
ITEM = "/orchard/ref/smooth.html"
EVENTS = "/refdoc-site/events"
PURPOSE = "Smooth a series with a moving window"


class ServeTest(unittest.TestCase):

    def setUp(self):
        self.server = Served(REFDOC, SAMPLES)
        self.addCleanup(self.server.kill)

    def status(self, *arguments, **options):
        return self.server.request(*arguments, **options)[0]

    def assert_memory_grew_less(self, before, limit):
        if MEASURES_MEMORY:
            self.assertLess(self.server.memory() - before, limit)

    def assert_serves(self):
        self.assertIn(PURPOSE, self.server.page(ITEM))


class PagesTest(ServeTest):

    def assert_pages_are_those_of_a_site(self):
        with tempfile.TemporaryDirectory() as folder:
            site = pathlib.Path(folder) / "site"
            subprocess.run([REFDOC, "--install", self.server.folder, "site", site], stdout=subprocess.DEVNULL,
                           stderr=subprocess.DEVNULL, check=True)
            files = [file for file in site.rglob("*") if file.is_file() and file.name != ".refdoc-site"]
            self.assertGreater(len(files), 50)
            for file in files:
                served = self.server.page("/" + file.relative_to(site).as_posix())
                if file.suffix == ".html":
                    start = served.index('<script src="/refdoc-site/live.js"')
                    served = served[:start] + served[served.index("</head>"):]
                self.assertEqual(served, file.read_text(encoding="utf-8"), file)

    def test_pages_are_those_of_a_site(self):
        self.assert_pages_are_those_of_a_site()

    def test_pages_with_a_broken_translation_are_those_of_a_site(self):
        self.server.close()
        with tempfile.TemporaryDirectory() as folder:
            samples = shutil.copytree(SAMPLES, pathlib.Path(folder) / "samples")
            (samples / GERMAN_PRODUCT).write_text("]", encoding="utf-8")
            self.server = Served(REFDOC, samples)
            self.addCleanup(self.server.kill)
            self.assertIn("Orchard_de.json:1:1", self.server.page("/de" + ITEM))
            self.assert_pages_are_those_of_a_site()

    def test_folders_are_their_start_pages(self):
        for folder in ("/", "/de/", "/orchard/", "/ja/orchard/"):
            self.assertEqual(self.server.page(folder), self.server.page(folder + "index.html"))

    def test_headers_keep_pages_apart_from_other_sites(self):
        for path in ("/", "/missing", "/refdoc-site/script.js"):
            headers = self.server.request(path)[1]
            self.assertIn("default-src 'none'", headers["content-security-policy"])
            self.assertIn("frame-ancestors 'none'", headers["content-security-policy"])
            self.assertEqual(headers["x-content-type-options"], "nosniff")
            self.assertEqual(headers["cache-control"], "no-store")
            self.assertEqual(headers["referrer-policy"], "no-referrer")
            self.assertEqual(headers["cross-origin-resource-policy"], "same-origin")

    def test_files_have_their_types(self):
        for path, expected in (("/", "text/html; charset=utf-8"),
                               ("/refdoc-site/style.css", "text/css; charset=utf-8"),
                               ("/refdoc-site/script.js", "text/javascript; charset=utf-8"),
                               ("/refdoc-site/icon.svg", "image/svg+xml")):
            self.assertEqual(self.server.request(path)[1]["content-type"], expected)

    def test_head_has_the_headers_of_get(self):
        _, get, body = self.server.request(ITEM)
        status, head, nothing = self.server.request(ITEM, method="HEAD")
        self.assertEqual((status, nothing), (200, ""))
        self.assertEqual(head["content-length"], get["content-length"])
        self.assertEqual(int(get["content-length"]), len(body.encode()))

    def test_only_files_of_the_site_exist(self):
        for path in ("/missing", "/orchard", "/orchard/ref/missing.html", "/fr/index.html", "/../installation.json",
                     "/%2e%2e/installation.json", "/orchard/%2E%2E%2Findex.html", "//etc/passwd", "/refdoc-site/",
                     "/refdoc-site/../index.html", "/refdoc-site/search/en/row99.js", "/index.html%00", "/%ff%fe", "?a"):
            self.assertEqual(self.status(path), 404, path)

    def test_product_of_a_name_with_special_characters_has_its_page(self):
        section = {"productName": "Odd", "baseCode": "odd", "helpFolder": "odd %3F?", "helpLocation": "help",
                   "refItems": [{"href": "a b?.html", "refpurpose": "odd purpose"}]}
        path = self.server.folder / "help/docCatalog/referenceapi/Odd.json"
        path.write_text(json.dumps(section), encoding="utf-8")
        self.server.wait_for_page("/", "Odd")
        self.assertIn("odd purpose", self.server.page("/odd%20%25253F%253F/a%20b%253F.html"))


class RefusedRequestTest(ServeTest):

    def test_other_methods_are_not_allowed(self):
        for method in ("POST", "PUT", "DELETE", "OPTIONS", "PATCH", "TRACE", "CONNECT", "PROPFIND", "get"):
            status, headers, _ = self.server.request("/", method=method)
            self.assertEqual((status, headers.get("allow")), (405, "GET, HEAD"), method)

    def test_body_is_not_read(self):
        self.assertEqual(self.status("/", method="POST", headers=f"Content-Length: {10 ** 15}\r\n"), 405)
        self.assertEqual(self.status("/", method="POST", headers="Transfer-Encoding: chunked\r\n"), 405)
        self.assert_serves()

    def test_host_must_be_this_machine(self):
        port = self.server.port
        for host in ("127.0.0.1", f"127.0.0.1:{port}", "localhost", f"LOCALHOST:{port}", "[::1]", f"[::1]:{port}"):
            self.assertEqual(self.status("/", host=host), 200, host)
        for host in ("example.org", f"example.org:{port}", f"127.0.0.1:{port + 1}", "127.0.0.1.example.org",
                     "localhost.example.org", "192.168.1.1", "0.0.0.0", f"user@127.0.0.1:{port}"):
            self.assertEqual(self.status("/", host=host), 421, host)

    def test_request_has_exactly_one_host(self):
        for request in (b"GET / HTTP/1.1\r\n\r\n", b"GET / HTTP/1.0\r\n\r\n", b"GET / HTTP/1.1\r\nHost:\r\n\r\n",
                        b"GET / HTTP/1.1\r\nHost: localhost\r\nHost: localhost\r\n\r\n"):
            self.assertTrue(self.server.send(request).startswith(b"HTTP/1.1 400 "), request)

    def test_malformed_requests_are_refused(self):
        for request in (b"\r\n\r\n", b"GET\r\n\r\n", b"GET /\r\n\r\n", b"GET / HTTP/9.9\r\n\r\n",
                        b"\x16\x03\x01\x02\x00\x01\x00\x01\xfc\x03\x03\r\n\r\n", b"GET / HTTP/1.1 \x00\r\n\r\n",
                        b"GET http://example.org/ HTTP/1.1\r\nHost: example.org\r\n\r\n",
                        b"GET / HTTP/1.1\r\nHost: localhost\r\nRange: bytes=x\r\n\r\n"):
            answer = self.server.send(request)
            self.assertRegex(answer[:13], rb"\AHTTP/1\.1 4\d\d |\A\Z", request)
        self.assert_serves()

    def test_request_that_ends_early_gets_no_page(self):
        for request in (b"", b"G", b"GET / HTTP/1.1", b"GET / HTTP/1.1\r\nHost: localhost\r\n"):
            with self.server.connect() as connection:
                connection.sendall(request)
                connection.shutdown(socket.SHUT_WR)
                self.assertNotIn(b" 200 ", receive_all(connection), request)
        self.assert_serves()

    def test_ranges_are_not_used(self):
        for ranges in ("0-0", ",".join(["0-"] * 2000), ",".join(["0-0"] * 1900)):
            status, headers, _ = self.server.request(ITEM, headers=f"Range: bytes={ranges}\r\n")
            self.assertEqual((status, headers.get("content-range")), (200, None))

    def test_endless_requests_end(self):
        for start in (b"GET /", b"GET / HTTP/1.1\r\nHost: localhost\r\nX-Long: ",
                      b"GET / HTTP/1.1\r\nHost: localhost\r\n" + b"X-Short: 1\r\n" * 1000):
            before = self.server.memory()
            with self.server.connect() as connection:
                answer = b""
                try:
                    connection.sendall(start)
                    for _ in range(64):
                        connection.sendall(b"a" * 1_000_000)
                except OSError:
                    pass  # The server has stopped reading.
                try:
                    answer = connection.recv(100)
                except OSError:
                    pass
                self.assertRegex(answer, rb"\AHTTP/1\.1 4\d\d |\A\Z")
            self.assert_memory_grew_less(before, 8_000)
        self.assert_serves()

    def test_slightly_too_long_requests_get_an_answer(self):
        self.assertEqual(self.status("/" + "a" * 9000), 414)
        self.assertEqual(self.status("/", headers="X: " + "a" * 9000 + "\r\n"), 400)
        self.assertEqual(self.status("/?" + "a" * 7000), 200)


class LoadTest(ServeTest):

    def test_parallel_requests_get_their_pages(self):
        paths = [ITEM, "/", "/de/orchard/index.html", "/missing", "/refdoc-site/search/ja/start.js"] * 40
        with ThreadPoolExecutor(200) as threads:
            statuses = list(threads.map(self.status, paths))
        self.assertEqual(statuses, [200, 200, 200, 404, 200] * 40)

    def test_slow_connections_do_not_stop_other_requests(self):
        self.assert_serves()
        before = self.server.memory()
        slow = [self.server.connect() for _ in range(200)]
        for number, connection in enumerate(slow):
            self.addCleanup(connection.close)
            connection.sendall(b"GET / HTTP/1.1\r\nHost: localhost\r\n"[:number % 30])
        for _ in range(20):
            start = time.monotonic()
            self.assert_serves()
            self.assertLess(time.monotonic() - start, 5)
        self.assert_memory_grew_less(before, 20_000)
        status, _, seconds = self.server.close()
        self.assertEqual(status, 0)
        self.assertLess(seconds, 5)

    def test_slow_request_is_closed(self):
        with self.server.connect() as connection:
            start = time.monotonic()
            try:
                while time.monotonic() - start < 60:
                    connection.sendall(b"a")
                    time.sleep(0.2)
            except OSError:
                pass
            self.assertLess(time.monotonic() - start, 30)

    def test_memory_stays_in_ten_thousand_requests(self):
        paths = [ITEM, "/", "/missing", "/cellar/index.html", "/de/orchard/ref/smooth.html"]
        with ThreadPoolExecutor(8) as threads:
            list(threads.map(self.status, paths * 100))
            before = self.server.memory()
            list(threads.map(self.status, paths * 2000))
        self.assert_memory_grew_less(before, 10_000)

    def test_event_streams_are_limited_and_leave_room_for_pages(self):
        request = f"GET {EVENTS} HTTP/1.1\r\nHost: localhost\r\n\r\n".encode()
        answers = []
        for _ in range(100):
            connection = self.server.connect()
            self.addCleanup(connection.close)
            connection.sendall(request)
            answers.append(connection.recv(12))
        self.assertEqual((answers.count(b"HTTP/1.1 200"), answers.count(b"HTTP/1.1 503")), (64, 36))
        self.assert_serves()


class EventReader:
    """Reads the events of one stream."""

    def __init__(self, server, query=""):
        self.connection = server.connect()
        self.connection.sendall(f"GET {EVENTS}{query} HTTP/1.1\r\nHost: localhost\r\n\r\n".encode())
        self.stream = self.connection.makefile("rb")
        while self.stream.readline() != b"\r\n":
            pass

    def next_version(self):
        while not (line := self.stream.readline()).startswith(b"data: "):
            assert line, "the stream has ended"
        return int(line[6:])

    def close(self):
        self.stream.close()
        self.connection.close()


class ChangeTest(ServeTest):

    def events(self, query=""):
        reader = EventReader(self.server, query)
        self.addCleanup(reader.close)
        return reader

    def assert_shown_soon(self, path, part, change):
        events = self.events()
        start = time.monotonic()
        change()
        events.next_version()
        self.assertIn(part, self.server.page(path))
        seconds = time.monotonic() - start
        print(f"{self.id().split('.')[-1]}: {seconds:.3f} s", file=sys.stderr)
        self.assertLess(seconds, 5)

    def test_saved_file_is_shown(self):
        self.assert_shown_soon(ITEM, "Press apples", lambda: self.server.replace(PURPOSE, "Press apples"))

    def test_file_saved_by_renaming_is_shown(self):
        def save():
            path = self.server.folder / PRODUCT
            new = path.with_suffix(".new")
            new.write_text(path.read_text(encoding="utf-8").replace(PURPOSE, "Press pears"), encoding="utf-8")
            os.replace(new, path)
        self.assert_shown_soon(ITEM, "Press pears", save)

    def test_pages_are_served_while_files_are_checked(self):
        self.add_large_product()
        self.server.wait_for_page("/", "Large")
        self.server.replace(f'"{PURPOSE}"', f'"{PURPOSE}", "refpurpos": ""')
        start = end = time.monotonic()
        longest = 0
        has_finding = False
        while not has_finding:
            begin = end
            has_finding = "refpurpos&quot;" in self.server.page(ITEM)
            end = time.monotonic()
            longest = max(longest, end - begin)
            self.assertLess(end - start, 60)
        seconds = end - start
        print(f"findings after {seconds:.3f} s, pages after at most {longest:.3f} s", file=sys.stderr)
        self.assertLess(longest, seconds / 2)

    def add_large_product(self):
        """Adds a product whose check takes much longer than a page."""
        items = [{"href": f"{number}.html", "refpurpose": "page", "refentity": [{"name": f"n{number}"}]}
                 for number in range(60_000)]
        section = {"productName": "Large", "baseCode": "LA", "helpFolder": "large", "helpLocation": "help/large",
                   "refItems": items}
        path = self.server.folder / "help/docCatalog/referenceapi/Large.json"
        path.write_text(json.dumps(section), encoding="utf-8")

    def test_new_and_removed_products_are_shown(self):
        path = self.server.folder / "help/docCatalog/referenceapi/Press.json"
        section = {"productName": "New Press", "baseCode": "PR", "helpFolder": "press", "helpLocation": "help/press",
                   "refItems": [{"href": "a.html", "refpurpose": "press"}]}
        self.assert_shown_soon("/", "New Press", lambda: path.write_text(json.dumps(section), encoding="utf-8"))
        self.assertEqual(self.status("/press/a.html"), 200)
        path.unlink()
        end = time.monotonic() + 30
        while "New Press" in self.server.page("/") and time.monotonic() < end:
            time.sleep(0.05)
        self.assertEqual(self.status("/press/a.html"), 404)

    def test_broken_file_shows_its_error_on_the_pages_of_its_product(self):
        text = (self.server.folder / PRODUCT).read_text(encoding="utf-8")
        line = text[:text.index(PURPOSE)].count("\n") + 1
        self.assert_shown_soon(ITEM, "This file cannot be used",
                               lambda: self.server.replace(f'"{PURPOSE}"', PURPOSE))
        for path in (ITEM, "/orchard/index.html", "/orchard/ref/any.html"):
            page = self.server.page(path)
            self.assertIn(f"Orchard.json:{line}:", page)
            self.assertRegex(page, r"<pre[^>]*>[^<]*Smooth a series[^<]*\n *\^</pre>")
        self.assertIn("file cannot be used", self.server.page("/"))
        self.assertNotIn("cannot be used", self.server.page("/cellar/index.html"))
        self.assert_shown_soon(ITEM, PURPOSE, lambda: self.server.replace(PURPOSE, f'"{PURPOSE}"'))

    def test_broken_translation_shows_its_error_above_the_english_records(self):
        german = self.server.folder / GERMAN_PRODUCT
        self.assert_shown_soon("/de" + ITEM, "Orchard_de.json:1:1", lambda: german.write_text("]", encoding="utf-8"))
        page = self.server.page("/de" + ITEM)
        self.assertLess(page.index("Orchard_de.json:1:1"), page.index("<article>"))
        self.assertIn(PURPOSE, page)
        self.assertNotIn("cannot be used", self.server.page(ITEM))
        missing = self.server.page("/de/orchard/ref/missing.html")
        self.assertIn("Orchard_de.json:1:1", missing)
        self.assertIn('<link rel="stylesheet" href="../../../refdoc-site/style.css">', missing)

    def test_file_that_was_broken_at_the_start_has_a_page(self):
        self.server.close()
        with tempfile.TemporaryDirectory() as folder:
            catalog = pathlib.Path(folder) / "docCatalog/referenceapi"
            catalog.mkdir(parents=True)
            (catalog / "Press.json").write_text("{", encoding="utf-8")
            self.server = Served(REFDOC, SAMPLES, "--root", folder)
            self.addCleanup(self.server.kill)
            self.assertIn("Press.json:1:2", self.server.page("/Press/index.html"))

    def test_search_index_follows_lookup_files(self):
        lookup = "help/docCatalog/referenceapi_lookup/Cellar.json"
        name = json.loads((self.server.folder / lookup).read_text(encoding="utf-8"))["refItems"][0]["name"]
        self.assertIn(name, self.server.page("/refdoc-site/search/en/row0.js"))
        self.assert_shown_soon("/refdoc-site/search/en/row0.js", "!first",
                               lambda: self.server.replace(f'"{name}"', '"!first"', lookup))

    def test_manifest_changes_languages(self):
        manifest = self.server.folder / "installation.json"
        content = json.loads(manifest.read_text(encoding="utf-8"))
        content["supportedDocLanguages"] = ["en", "de"]
        self.assertEqual(self.status("/ja/index.html"), 200)
        self.assert_shown_soon("/", "hreflang=\"de\"",
                               lambda: manifest.write_text(json.dumps(content), encoding="utf-8"))
        self.assertEqual(self.status("/ja/index.html"), 404)

    def test_malformed_manifest_is_ignored(self):
        self.assert_shown_soon(ITEM, PURPOSE,
                               lambda: (self.server.folder / "installation.json").write_text("{", encoding="utf-8"))

    def shown_version(self):
        return int(self.server.page(ITEM).split("events?since=")[1].split('"')[0])

    def test_other_files_are_no_change(self):
        before = self.shown_version()
        ((self.server.folder / PRODUCT).parent / ".Orchard.json.swp").write_text("a", encoding="utf-8")
        time.sleep(1)
        self.assertEqual(self.shown_version(), before)

    def test_stream_with_an_old_version_has_an_event_at_once(self):
        self.assertGreater(self.events("?since=1").next_version(), 1)

    def test_page_has_the_version_that_it_shows(self):
        before = self.shown_version()
        events = self.events()
        self.server.replace(PURPOSE, "Press apples")
        version = events.next_version()
        self.assertGreater(version, before)
        # The findings of a check may have another version.
        self.assertGreaterEqual(self.shown_version(), version)

    def test_pages_stay_complete_while_files_change(self):
        stop = threading.Event()
        statuses = set()

        def read():
            while not stop.is_set():
                statuses.add(self.status(ITEM))
        readers = [threading.Thread(target=read) for _ in range(4)]
        for reader in readers:
            reader.start()
        for number in range(30):
            self.server.replace(PURPOSE if number == 0 else f"Press {number - 1}", f"Press {number}")
            time.sleep(0.03)
        stop.set()
        for reader in readers:
            reader.join()
        self.assertLessEqual(statuses, {200, 500})
        self.server.wait_for_page(ITEM, "Press 29")


class EndTest(ServeTest):

    def test_signals_end_the_server_with_success(self):
        for signal_number in (signal.SIGINT, signal.SIGTERM):
            server = Served(REFDOC, SAMPLES)
            self.addCleanup(server.kill)
            status, output, seconds = server.close(signal_number)
            self.assertEqual((status, output), (0, ("", "")))
            self.assertLess(seconds, 5)

    def test_open_connections_do_not_delay_the_end(self):
        readers = [EventReader(self.server) for _ in range(10)]
        idle = [self.server.connect() for _ in range(10)]
        time.sleep(0.3)
        status, _, seconds = self.server.close()
        self.assertEqual(status, 0)
        self.assertLess(seconds, 5)
        for connection in readers + idle:
            connection.close()


class CommandTest(unittest.TestCase):

    def serve(self, *options):
        server = Served(REFDOC, SAMPLES, *options)
        self.addCleanup(server.kill)
        return server

    def run_command(self, *options):
        return subprocess.run([REFDOC, "--install", SAMPLES, "serve", *options], capture_output=True, text=True,
                              check=False, timeout=60)

    def test_used_port_is_an_error(self):
        server = self.serve()
        outcome = self.run_command("--port", str(server.port))
        self.assertEqual((outcome.returncode, outcome.stdout), (3, ""))
        self.assertEqual(outcome.stderr,
                         f"refdoc: can't listen on {server.url}; the port may be in use\n")

    def test_invalid_ports_are_wrong_usage(self):
        for port in ("65536", "-1", "http", ""):
            self.assertEqual(self.run_command(f"--port={port}").returncode, 2, port)

    def test_unusable_address_is_an_error(self):
        outcome = self.run_command("--bind", "192.0.2.1", "--port", "0")
        self.assertEqual(outcome.returncode, 3)

    def test_other_address_has_a_warning(self):
        server = self.serve("--bind", "0.0.0.0")
        self.assertEqual(server.request("/", host=f"192.0.2.1:{server.port}")[0], 200)
        self.assertEqual(server.request("/", host=f"example.org:{server.port}")[0], 421)
        status, (_, errors), _ = server.close()
        self.assertEqual(status, 0)
        self.assertEqual(errors,
                         f"refdoc: warning: other computers can read the documentation at {server.url}\n")

    def test_json_has_the_url(self):
        process = subprocess.Popen([REFDOC, "--install", SAMPLES, "--jsonl", "serve", "--port", "0"],
                                   stdout=subprocess.PIPE, text=True)
        document = json.loads(process.stdout.readline())
        process.send_signal(signal.SIGTERM)
        process.communicate()
        self.assertEqual(list(document), ["url"])
        self.assertRegex(document["url"], r"\Ahttp://127\.0\.0\.1:\d+/\Z")

    def test_folder_without_products_waits_for_them(self):
        with tempfile.TemporaryDirectory() as folder:
            server = self.serve("--root", folder, "--support-folder", folder)
            section = {"productName": "First", "baseCode": "F", "helpFolder": "first", "helpLocation": "help",
                       "refItems": []}
            self.assertNotIn("First", server.page("/"))
            catalog = pathlib.Path(folder) / "docCatalog/referenceapi"
            catalog.mkdir(parents=True)
            (catalog / "First.json").write_text(json.dumps(section), encoding="utf-8")
            server.wait_for_page("/", "First")
            _, (_, errors), _ = server.close()
            self.assertRegex(errors, r"\Arefdoc: no product has a full resource file in .* yet\n\Z")

    def test_open_starts_the_browser(self):
        with tempfile.TemporaryDirectory() as folder:
            opened = pathlib.Path(folder) / "opened"
            browser = pathlib.Path(folder) / "xdg-open"
            browser.write_text(f'#!/bin/sh\nprintf %s "$1" >{opened}.new && mv {opened}.new {opened}\n',
                               encoding="utf-8")
            browser.chmod(0o755)
            path = os.environ["PATH"]
            self.addCleanup(os.environ.__setitem__, "PATH", path)
            os.environ["PATH"] = f"{folder}:{path}"
            server = self.serve("--open")
            end = time.monotonic() + 30
            while not opened.exists() and time.monotonic() < end:
                time.sleep(0.05)
            self.assertEqual(opened.read_text(encoding="utf-8"), server.url)
            os.environ["PATH"] = folder
            browser.unlink()
            server = self.serve("--open")
            self.assertEqual(server.close()[1][1], "refdoc: can't start a browser; open the URL in one\n")


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1], verbosity=2)
