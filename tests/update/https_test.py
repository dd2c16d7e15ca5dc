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
import threading
import time
import warnings

from harness import check, finish, own_folder, read, write_all

warnings.simplefilter("ignore", DeprecationWarning)  # the test needs the old TLS
IS_WINE = sys.argv[-1].endswith(".exe")
CONTENT = os.urandom(1_000_000)
DATE = "Tue, 12 Mar 2024 08:30:00 GMT"
LEAF = "basicConstraints=CA:FALSE\nextendedKeyUsage=serverAuth\nsubjectAltName="
SAN = LEAF + "DNS:localhost,IP:127.0.0.1"
AUTHORITY = "basicConstraints=critical,CA:TRUE\nkeyUsage=critical,keyCertSign,cRLSign"


def certificate(name, issuer=None, extensions=SAN, days=30):
    """Certificate and key in NAME.pem, signed by itself without an issuer."""
    write_all({name + ".ext": extensions.encode()})
    signer = f"-CA {issuer}.pem -CAkey {issuer}.key -CAcreateserial" if issuer else f"-signkey {name}.key"
    for command in (f"req -new -newkey ec -pkeyopt ec_paramgen_curve:prime256v1 -nodes -keyout {name}.key "
                    f"-subj /CN={name}.quorvel.test -out {name}.csr",
                    f"x509 -req -in {name}.csr {signer} -days {days} -extfile {name}.ext -out {name}.crt"):
        subprocess.run(["openssl", *command.split()], check=True, capture_output=True)
    write_all({name + ".pem": read(name + ".crt") + read(name + ".key")})


def trust_in_wine(command):
    if IS_WINE:
        tool = pathlib.Path(__file__).resolve().parents[2] / "tools" / "wine_authority.py"
        subprocess.run([sys.executable, tool, command, "root.crt", *sys.argv[1:-1]], check=True)


class Handler(http.server.BaseHTTPRequestHandler):
    protocol_version = "HTTP/1.1"

    def log_message(self, *_):
        pass

    def send(self, status, field, body=b""):
        # Without the first field Wine sends the next request on a connection that is closed by then.
        self.wfile.write(f"HTTP/1.1 {status} x\r\nConnection: close\r\nLast-Modified: {DATE}\r\n{field}\r\n\r\n".encode())
        if self.command == "GET":
            self.wfile.write(body)
        self.close_connection = True

    def do_GET(self):
        kind, _, rest = self.path[1:].partition("/")
        length, chunked = f"Content-Length: {len(CONTENT)}", "Transfer-Encoding: chunked"
        packed = gzip.compress(CONTENT, 1) if "gzip" in self.headers.get("Accept-Encoding", "") else None
        bodies = {
            "good": (length, CONTENT),
            "chunked": (chunked, b"%x\r\n%s\r\n0\r\n\r\n" % (len(CONTENT), CONTENT)),
            "gzip": (f"Content-Encoding: gzip\r\nContent-Length: {len(packed)}", packed) if packed else (length, CONTENT),
            "short": (length, CONTENT[:1000]),  # closed as if it were complete
            "short-chunk": (chunked, b"%x\r\n%s" % (len(CONTENT), CONTENT[:1000])),
            "stall": (length, CONTENT[:1000]),
        }
        targets = {"to": rest.replace("!", "://"), "loop": "/loop",
                   "hop": "/good" if rest == "0" else f"/hop/{int(rest) - 1}" if rest.isdigit() else ""}
        if kind in bodies:
            self.send(200, *bodies[kind])
        elif kind in targets:
            self.send(302, f"Content-Length: 0\r\nLocation: {targets[kind]}")
        elif kind != "no-head":
            self.send(404, "Content-Length: 0")
        if kind in ("stall", "no-head"):
            self.wfile.flush()
            self.connection.recv(1)  # until the client closes

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
    write_all({"got": b""})
    return subprocess.run([*sys.argv[1:], url, "got", *options], capture_output=True, timeout=120,
                          env={**os.environ, "SSL_CERT_FILE": os.path.abspath("root.crt"), **environment})


def expect(label, url, status, *options, content=None, error=False, text="", **environment):
    begin = time.monotonic()
    ran = fetch(url, *options, **environment)
    lines = ran.stdout.decode(errors="replace").splitlines() + [""] * 5
    took, got = time.monotonic() - begin, read("got")
    holds = (ran.returncode == 0 and lines[0] == str(status) and (lines[2] != "0") == error and
             (status != 200 or lines[3] == DATE) and (content is None or got == content) and
             int(lines[1]) == len(got) and re.search(text, "\n".join(lines[4:])) and took < 20)
    check(holds, f"{label}: {ran.returncode} {lines} {len(got)} bytes, {took:.1f} s, {ran.stderr!r}")


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
        check(ran.returncode == 0 and int(took or 9999) < 100, f"cancelled {label}: {ran.returncode} {took}")


def others(good):
    liar = f"http://127.0.0.1:{silent_server(b'HTTP/1.1 200 OK' + bytes((13, 10, 13, 10)) + b'<rss/>')}"
    if not IS_WINE:  # Wine uses the system's settings
        expect("lying proxy", good.url("good"), 0, "--stall", "3000", error=True, content=b"", https_proxy=liar)
    # A file that is no library, found before the real one; Wine has a switch.
    library = "winhttp.dll" if IS_WINE else "libcurl.so.4"
    os.mkdir("broken")
    write_all({"broken/" + library: b"no library"})
    missing = {"WINEDLLOVERRIDES": "winhttp="} if IS_WINE else {"LD_LIBRARY_PATH": os.path.abspath("broken")}
    text = f"(?m)^Secure connections are not available here: {re.escape(library)} could not be loaded\\.$"
    expect("no library", good.url("good"), 0, error=True, content=b"", text=text, **missing)


def requests():
    for authority in "root", "stranger":
        certificate(authority, extensions=AUTHORITY)
    certificate("good", "root")
    certificate("expired", "root", days=-1)
    certificate("wrong", "root", LEAF + "DNS:other.example")
    certificate("unknown", "stranger")
    certificate("self")
    trust_in_wine("add")
    try:
        good, plain = Server("good.pem"), Server()
        transfers(good, plain)
        redirects(good, plain, Server("expired.pem"))
        certificates()
        stalls(good)
        others(good)
    finally:
        trust_in_wine("remove")


with own_folder():
    requests()
finish()
