#!/usr/bin/env python3
"""Requests over HTTPS to good and bad servers that the test starts.

    https_test.py [LAUNCHER...] HTTPS_FETCH

The test creates the authority: SSL_CERT_FILE names it, and for Wine it is added to the user's certificates.
"""

import gzip
import http.server
import os
import pathlib
import re
import socket
import ssl
import subprocess
import sys
import tempfile
import threading
import time
import warnings

warnings.simplefilter("ignore", DeprecationWarning)  # the test needs the old TLS
IS_WINE = sys.argv[-1].endswith(".exe")
CONTENT = os.urandom(1_000_000)
DATE = "Tue, 12 Mar 2024 08:30:00 GMT"
SAN = "DNS:localhost,IP:127.0.0.1"
CONFIG = """[ca]
default_ca=x
[x]
database={0}.index
serial={0}.serial
new_certs_dir=.
default_md=sha256
policy=p
[p]
commonName=supplied
"""
problems = []


def openssl(*arguments):
    subprocess.run(["openssl", *arguments], check=True, capture_output=True)


def key(name):
    openssl("genpkey", "-algorithm", "EC", "-pkeyopt", "ec_paramgen_curve:prime256v1", "-out", name + ".key")


def authority(name):
    key(name)
    openssl("req", "-x509", "-new", "-key", name + ".key", "-subj", "/CN=Quorvel test " + name, "-days", "30",
            "-out", name + ".pem", "-addext", "basicConstraints=critical,CA:TRUE",
            "-addext", "keyUsage=critical,keyCertSign,cRLSign")


def certificate(name, issuer, names=SAN, begin="20200101000000Z", end="20400101000000Z"):
    """Certificate and key in NAME.pem, with a validity that `openssl x509` cannot set."""
    key(name)
    openssl("req", "-new", "-key", name + ".key", "-subj", "/CN=" + name, "-out", name + ".csr")
    pathlib.Path(name + ".ext").write_text("basicConstraints=CA:FALSE\nextendedKeyUsage=serverAuth\n"
                                           f"subjectAltName={names}\n")
    pathlib.Path(name + ".index").write_text("")
    pathlib.Path(name + ".serial").write_text(os.urandom(7).hex().join(("01", "")) + "\n")
    pathlib.Path(name + ".cnf").write_text(CONFIG.format(name))
    openssl("ca", "-batch", "-notext", "-config", name + ".cnf", "-cert", issuer + ".pem", "-keyfile",
            issuer + ".key", "-in", name + ".csr", "-out", name + ".crt", "-extfile", name + ".ext",
            "-startdate", begin, "-enddate", end)
    pathlib.Path(name + ".pem").write_text(pathlib.Path(name + ".crt").read_text() +
                                           pathlib.Path(name + ".key").read_text())


def trust_in_wine(command):
    tool = pathlib.Path(__file__).resolve().parents[2] / "tools" / "wine_authority.py"
    subprocess.run([sys.executable, tool, command, "root.pem", *sys.argv[1:-1]], check=True)


class Handler(http.server.BaseHTTPRequestHandler):
    protocol_version = "HTTP/1.1"

    def log_message(self, *_):
        pass

    def head(self, status, *fields):
        # Without the field Wine sends the next request on a connection that is closed by then.
        self.wfile.write(f"HTTP/1.1 {status} x\r\nConnection: close\r\n".encode() +
                         "".join(field + "\r\n" for field in fields).encode() + b"\r\n")
        self.close_connection = True

    def send(self, *fields, body=b""):
        self.head(200, f"Last-Modified: {DATE}", *fields)
        if self.command == "GET":
            self.wfile.write(body)

    def wait(self):
        self.wfile.flush()
        self.connection.recv(1)  # until the client closes

    def do_GET(self):
        kind, _, rest = self.path[1:].partition("/")
        length = f"Content-Length: {len(CONTENT)}"
        if kind == "good":
            self.send(length, body=CONTENT)
        elif kind == "chunked":
            self.send("Transfer-Encoding: chunked", body=b"%x\r\n%s\r\n0\r\n\r\n" % (len(CONTENT), CONTENT))
        elif kind == "gzip" and "gzip" in self.headers.get("Accept-Encoding", ""):
            packed = gzip.compress(CONTENT, 1)
            self.send("Content-Encoding: gzip", f"Content-Length: {len(packed)}", body=packed)
        elif kind == "gzip":
            self.send(length, body=CONTENT)
        elif kind == "short":  # closed as if it were complete
            self.send(length, body=CONTENT[:1000])
        elif kind == "short-chunk":
            self.send("Transfer-Encoding: chunked", body=b"%x\r\n%s" % (len(CONTENT), CONTENT[:1000]))
        elif kind == "no-head":
            self.wait()
        elif kind == "stall":
            self.send(length, body=CONTENT[:1000])
            self.wait()
        elif kind == "to":
            self.head(302, "Location: " + rest.replace("!", "://"), "Content-Length: 0")
        elif kind == "loop":
            self.head(302, "Location: /loop", "Content-Length: 0")
        elif kind == "hop":
            self.head(302, f"Location: /hop/{int(rest) - 1}" if rest != "0" else "Location: /good", "Content-Length: 0")
        else:
            self.head(404, "Content-Length: 0")

    do_HEAD = do_GET


class Server(http.server.ThreadingHTTPServer):
    daemon_threads = True

    def __init__(self, pem=None, newest=None):
        super().__init__(("127.0.0.1", 0), Handler)
        self.context = None
        if pem:
            self.context = ssl.SSLContext(ssl.PROTOCOL_TLS_SERVER)
            self.context.load_cert_chain(pem)
        if newest:
            self.context.set_ciphers("DEFAULT@SECLEVEL=0")
            self.context.minimum_version = newest
            self.context.maximum_version = newest
        threading.Thread(target=self.serve_forever, daemon=True).start()

    def finish_request(self, request, client_address):
        if self.context:
            request = self.context.wrap_socket(request, server_side=True)
        super().finish_request(request, client_address)

    def handle_error(self, *_):
        pass

    def url(self, path):
        return f"http{'s' if self.context else ''}://localhost:{self.server_address[1]}/{path}"


def silent_server(answer=b""):
    """Accepts connections and sends at most this."""
    listener = socket.create_server(("127.0.0.1", 0))
    kept = []

    def accept():
        while True:
            kept.append(listener.accept()[0])
            kept[-1].sendall(answer)

    threading.Thread(target=accept, daemon=True).start()
    return listener.getsockname()[1]


def fetch(url, *options, **environment):
    pathlib.Path("got").write_bytes(b"")
    return subprocess.run([*sys.argv[1:], url, "got", *options], capture_output=True, timeout=120,
                          env={**os.environ, "SSL_CERT_FILE": os.path.abspath("root.pem"), **environment})


def require(label, holds, seen):
    if not holds:
        problems.append(f"{label}: {seen}")


def expect(label, url, status, *options, content=None, error=False, text="", **environment):
    begin = time.monotonic()
    ran = fetch(url, *options, **environment)
    lines = ran.stdout.decode(errors="replace").splitlines() + [""] * 5
    got = pathlib.Path("got").read_bytes()
    holds = (ran.returncode == 0 and lines[0] == str(status) and (lines[2] != "0") == error and
             (content is None or got == content) and int(lines[1]) == len(got) and
             re.search(text, "\n".join(lines[4:])) and time.monotonic() - begin < 20)
    require(label, holds, f"{ran.returncode} {lines} {len(got)} bytes, {time.monotonic() - begin:.1f} s, {ran.stderr!r}")


def transfers(good, plain):
    expect("download", good.url("good"), 200, content=CONTENT)
    expect("head", good.url("good"), 200, "--head", content=b"")
    expect("chunked", good.url("chunked"), 200, content=CONTENT)
    expect("gzip", good.url("gzip"), 200, content=CONTENT)
    expect("plain http", plain.url("good"), 200, content=CONTENT)
    expect("missing", good.url("none"), 404)
    expect("short", good.url("short"), 200, "--stall", "2000", error=True)
    # Wine treats a connection that is closed inside a chunk as the end of the body.
    expect("short chunk", good.url("short-chunk"), 200, "--stall", "2000", error=not IS_WINE)
    expect("nobody", "http://localhost:1/", 0, error=True)
    expect("no such host", "https://nobody.invalid/", 0, error=True)


def redirects(good, plain, expired):
    expect("to https", plain.url("to/" + good.url("good").replace("://", "!")), 200, content=CONTENT)
    expect("five", good.url("hop/4"), 200, content=CONTENT)
    for label, url in (("six", good.url("hop/5")), ("loop", good.url("loop")),
                       ("to http", good.url("to/" + plain.url("good").replace("://", "!"))),
                       ("to a file", good.url("to/file!/etc/passwd")),
                       ("to an expired certificate", good.url("to/" + expired.url("good").replace("://", "!")))):
        expect(label, url, 0, error=True, content=b"", text="." if IS_WINE else "redirect|expired")


def certificates():
    for name, text in (("expired", "expired"), ("wrong", "host name"), ("unknown", "issuer"), ("self", "self.signed")):
        expect(name, Server(name + ".pem").url("good"), 0, error=True, content=b"", text="." if IS_WINE else text)
    expect("TLS 1.0", Server("good.pem", ssl.TLSVersion.TLSv1).url("good"), 0, error=True, content=b"")


def stalls(good):
    handshake = f"https://localhost:{silent_server()}/"
    for label, url in (("handshake", handshake), ("header", good.url("no-head")), ("body", good.url("stall"))):
        expect("stalled " + label, url, 200 if label == "body" else 0, "--stall", "1500", error=True)
        ran = fetch(url, "--cancel", "300")
        took = ran.stdout.decode().strip()
        require("cancelled " + label, ran.returncode == 0 and int(took or 9999) < 100, f"{ran.returncode} {took}")


def others(good):
    liar = f"http://127.0.0.1:{silent_server(b'HTTP/1.1 200 OK' + bytes((13, 10, 13, 10)) + b'<rss/>')}"
    if not IS_WINE:  # Wine uses the system's settings
        expect("lying proxy", good.url("good"), 0, "--stall", "3000", error=True, content=b"", https_proxy=liar)
    # A file that is no library, found before the real one; Wine has a switch.
    library = "winhttp.dll" if IS_WINE else "libcurl.so.4"
    pathlib.Path("broken").mkdir()
    pathlib.Path("broken", library).write_bytes(b"no library")
    missing = {"WINEDLLOVERRIDES": "winhttp="} if IS_WINE else {"LD_LIBRARY_PATH": os.path.abspath("broken")}
    text = f"(?m)^Secure connections are not available here: {re.escape(library)} could not be loaded\\.$"
    expect("no library", good.url("good"), 0, error=True, content=b"", text=text, **missing)


def main():
    with tempfile.TemporaryDirectory(prefix="quorvel-https-") as folder:
        os.chdir(folder)
        requests()
        os.chdir("/")
    print("\n".join(problems) or "no problems")
    sys.exit(1 if problems else 0)


def requests():
    for name in ("root", "stranger"):
        authority(name)
    certificate("good", "root")
    certificate("expired", "root", end="20210101000000Z")
    certificate("wrong", "root", names="DNS:other.example")
    certificate("unknown", "stranger")
    key("self")
    openssl("req", "-x509", "-new", "-key", "self.key", "-subj", "/CN=localhost", "-addext", "subjectAltName=" + SAN,
            "-out", "self.crt")
    pathlib.Path("self.pem").write_text(pathlib.Path("self.crt").read_text() + pathlib.Path("self.key").read_text())
    if IS_WINE:
        trust_in_wine("add")
    try:
        good, plain = Server("good.pem"), Server()
        transfers(good, plain)
        redirects(good, plain, Server("expired.pem"))
        certificates()
        stalls(good)
        others(good)
    finally:
        if IS_WINE:
            trust_in_wine("remove")


main()
