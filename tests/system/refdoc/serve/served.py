"""Runs refdoc serve on a copy of the samples."""

import pathlib
import re
import shutil
import signal
import socket
import subprocess
import tempfile
import time

PRODUCT = "help/docCatalog/referenceapi/Orchard.json"


class Served:
    """A running server, which close() ends."""

    def __init__(self, refdoc, samples, *options):
        self.temporary = tempfile.TemporaryDirectory()
        self.folder = pathlib.Path(self.temporary.name) / "samples"
        shutil.copytree(samples, self.folder)
        self.process = subprocess.Popen([refdoc, "--install", self.folder, "serve", "--port", "0", *options],
                                        stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True)
        self.url = self.process.stdout.readline().strip()
        self.port = int(re.fullmatch(r"http://127\.0\.0\.1:(\d+)/", self.url)[1])

    def close(self, signal_number=signal.SIGINT):
        """Returns the exit status, the rest of the output and the seconds until the end."""
        start = time.monotonic()
        self.process.send_signal(signal_number)
        output = self.process.communicate(timeout=30)
        seconds = time.monotonic() - start
        self.temporary.cleanup()
        return self.process.returncode, output, seconds

    def kill(self):
        """Ends a server that a failed test has left."""
        if self.process.poll() is None:
            self.process.kill()
            self.process.communicate()
            self.temporary.cleanup()

    def connect(self):
        return socket.create_connection(("127.0.0.1", self.port), timeout=30)

    def send(self, request):
        """Sends bytes and returns everything that the server answers."""
        with self.connect() as connection:
            connection.sendall(request)
            return receive_all(connection)

    def request(self, path, method="GET", host=None, headers=""):
        """Returns the status, the headers and the body of a response."""
        host = f"127.0.0.1:{self.port}" if host is None else host
        return parse(self.send(f"{method} {path} HTTP/1.1\r\nHost: {host}\r\n{headers}\r\n".encode()))

    def page(self, path):
        status, _, body = self.request(path)
        assert status == 200, (path, status, body)
        return body

    def memory(self):
        """The resident memory of the server in KiB."""
        status = pathlib.Path(f"/proc/{self.process.pid}/status").read_text(encoding="ascii")
        return int(re.search(r"VmRSS:\s*(\d+) kB", status)[1])

    def wait_for_page(self, path, part):
        """Waits until a page contains a string."""
        end = time.monotonic() + 30
        while part not in self.request(path)[2]:
            assert time.monotonic() < end, (path, part)
            time.sleep(0.05)

    def replace(self, old, new, file=PRODUCT):
        """Edits a file in place."""
        path = self.folder / file
        text = path.read_text(encoding="utf-8")
        assert old in text, old
        path.write_text(text.replace(old, new), encoding="utf-8")


def receive_all(connection):
    chunks = []
    while chunk := connection.recv(65536):
        chunks.append(chunk)
    return b"".join(chunks)


def parse(response):
    head, _, body = response.partition(b"\r\n\r\n")
    lines = head.decode("ascii").split("\r\n")
    status = int(re.match(r"HTTP/1\.1 (\d{3}) ", lines[0])[1])
    headers = {name.lower(): value for name, value in (line.split(": ", 1) for line in lines[1:])}
    return status, headers, body.decode("utf-8")
