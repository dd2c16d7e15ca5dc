#!/usr/bin/env python3
"""Runs serve with real clients and with clients that misbehave.

    serve_test.py [LAUNCHER...] PROGRAM
"""

import http.client
import os
import signal
import socket
import struct
import subprocess
import sys
import threading
import time

from harness import check, finish, own_folder, write_all

BIG = os.urandom(5_000_000)
FILES = {"index.html": b"<p>home", "big": BIG, "a b.txt": b"blank", "sub/index.html": b"sub"}

# Method, target, status, body (None: not checked).
ANSWERS = [
    ("GET", "/", 200, FILES["index.html"]),
    ("GET", "/big?query#x", 200, BIG),
    ("GET", "/a%20b.txt", 200, b"blank"),
    ("GET", "/sub", 200, b"sub"),
    ("HEAD", "/big", 200, b""),
    ("GET", "/%2e%2e/secret", 404, None),
    ("GET", "/sub/../../secret", 404, None),
    ("GET", "/%zz", 400, None),
    ("POST", "/", 405, None),
]

def ask(port, method, target):
    connection = http.client.HTTPConnection("127.0.0.1", port, timeout=30)
    connection.putrequest(method, target, skip_host=True)
    connection.endheaders()
    response = connection.getresponse()
    body = response.read()
    connection.close()
    return response, body


def raw(port, request):
    """The exact answer to a request that arrives byte by byte."""
    with socket.create_connection(("127.0.0.1", port), timeout=30) as connection:
        for byte in request:
            connection.send(bytes([byte]))
        return b"".join(iter(lambda: connection.recv(65536), b""))


def check_answers(port):
    for method, target, status, body in ANSWERS:
        response, got = ask(port, method, target)
        check(response.status == status, f"{method} {target}: {response.status}")
        check(body is None or got == body, f"{method} {target}: {len(got)} bytes")
    response, _ = ask(port, "HEAD", "/big")
    check(response.getheader("Content-Length") == str(len(BIG)), "HEAD tells another length")


def check_odd_clients(port):
    check(raw(port, b"GET / HTTP/1.0\r\n\r\n").endswith(b"<p>home"), "a request byte by byte")
    check(raw(port, b"rubbish\r\n\r\n").startswith(b"HTTP/1.1 400 "), "rubbish")
    silent = [socket.create_connection(("127.0.0.1", port)) for _ in range(20)]
    results = []

    def fetch():
        results.append(ask(port, "GET", "/big")[1] == BIG)

    threads = [threading.Thread(target=fetch) for _ in range(20)]
    for thread in threads:
        thread.start()
    for thread in threads:
        thread.join()
    check(results == [True] * 20, f"{results.count(True)} of 20 at once")
    return silent  # still open when the server ends


def await_handles(handles, count, label):
    end = time.monotonic() + 10
    while len(os.listdir(handles)) > count and time.monotonic() < end:
        time.sleep(0.01)
    check(len(os.listdir(handles)) <= count, f"{label} are kept")


def check_resets(port, handles):
    """Clients that reset the connection in the middle of an answer must not leak anything."""
    with open("site/huge", "wb") as file:
        file.truncate(1 << 28)  # more than the system buffers for the server
    before = len(os.listdir(handles))
    for _ in range(20):
        with socket.create_connection(("127.0.0.1", port), timeout=30) as connection:
            connection.sendall(b"GET /huge HTTP/1.1\r\n\r\n")
            connection.recv(1)
            connection.setsockopt(socket.SOL_SOCKET, socket.SO_LINGER, struct.pack("ii", 1, 0))
    await_handles(handles, before, "reset connections")


def check_refusals(program, port):
    rows = [(["--port", "70000", "."], 2), (["no such folder"], 1), (["--port", str(port), "."], 1)]
    for arguments, code in rows:
        run = subprocess.run(program + arguments, capture_output=True, stdin=subprocess.DEVNULL)
        check(run.returncode == code and run.stderr.startswith(b"serve: "), f"{arguments}: {run}")


def check_crowd(port, server, handles):
    """200 clients that connect while the server is stopped are all answered, and nothing leaks."""
    before = len(os.listdir(handles))
    server.send_signal(signal.SIGSTOP)
    try:
        clients = [socket.create_connection(("127.0.0.1", port), timeout=10) for _ in range(200)]
    except TimeoutError:
        return check(False, "200 clients at once cannot connect")
    finally:
        server.send_signal(signal.SIGCONT)
    for client in clients:
        client.sendall(b"GET / HTTP/1.1\r\n\r\n")
    for client in clients:
        check(b"".join(iter(lambda: client.recv(65536), b"")).endswith(b"<p>home"), "one of 200 got another answer")
        client.close()
    await_handles(handles, before, "200 clients")


def main(program):
    with own_folder():
        os.makedirs("site/sub")
        write_all({f"site/{name}": content for name, content in {**FILES, "../secret": b"secret"}.items()})
        server = subprocess.Popen(program + ["site"], stdin=subprocess.PIPE, stdout=subprocess.PIPE)
        address = server.stdout.readline().decode().strip()
        check(address.startswith("http://127.0.0.1:"), f"the first line is {address}")
        port = int(address.strip("/").split(":")[-1])
        check_answers(port)
        if not program[-1].endswith(".exe"):  # its launcher would be a different process
            check_resets(port, f"/proc/{server.pid}/fd")
            check_crowd(port, server, f"/proc/{server.pid}/fd")
        silent = check_odd_clients(port)
        check_refusals(program, port)
        server.stdin.close()
        check(server.wait(30) == 0, f"ended with {server.returncode}")
        for each in silent:
            each.close()
    finish()


main(sys.argv[1:])
