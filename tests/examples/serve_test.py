#!/usr/bin/env python3
"""Runs serve with real clients and with clients that misbehave.

    serve_test.py [LAUNCHER...] PROGRAM
"""

import concurrent.futures
import os
import signal
import socket
import struct
import subprocess
import sys
import time

from harness import check, finish, own_folder, run, write_all

BIG = os.urandom(5_000_000)
FILES = {"index.html": b"<p>home", "big": BIG, "a b.txt": b"blank", "sub/index.html": b"sub"}

# Request, status, body (None: not checked).
ANSWERS = [
    ("GET / HTTP/1.0", 200, FILES["index.html"]),
    ("GET /big?query#x HTTP/1.1", 200, BIG),
    ("GET /a%20b.txt HTTP/1.1", 200, b"blank"),
    ("GET /sub HTTP/1.1", 200, b"sub"),
    ("HEAD /big HTTP/1.1", 200, b""),
    ("GET /%2e%2e/secret HTTP/1.1", 404, None),
    ("GET /sub/../../secret HTTP/1.1", 404, None),
    ("GET /%zz HTTP/1.1", 400, None),
    ("POST / HTTP/1.1", 405, None),
    ("rubbish", 400, None),
]


def connect(port):
    return socket.create_connection(("127.0.0.1", port), timeout=30)


def rest(connection):
    return b"".join(iter(lambda: connection.recv(65536), b""))


def check_answer(port, request, status, body):
    """The request arrives byte by byte."""
    with connect(port) as connection:
        for byte in f"{request}\r\n\r\n".encode():
            connection.send(bytes([byte]))
        head, _, got = rest(connection).partition(b"\r\n\r\n")
    check(head.startswith(b"HTTP/1.1 %d " % status), f"{request}: {head}")
    check(body is None or got == body, f"{request}: {len(got)} bytes")
    check(body is None or b"Content-Length: %d" % len(got or BIG) in head, f"{request}: another length: {head}")


def check_crowd(port, server, handles):
    """Clients that connect while the server is stopped, or reset an answer, leak nothing."""
    with open("site/huge", "wb") as file:
        file.truncate(1 << 28)  # more than the system buffers for the server
    before = len(os.listdir(handles))
    server.send_signal(signal.SIGSTOP)
    try:
        clients = [connect(port) for _ in range(200)]
    finally:
        server.send_signal(signal.SIGCONT)
    for client in clients[:20]:
        client.sendall(b"GET /huge HTTP/1.1\r\n\r\n")
        client.recv(1)
        client.setsockopt(socket.SOL_SOCKET, socket.SO_LINGER, struct.pack("ii", 1, 0))
        client.close()
    for client in clients[20:]:
        client.sendall(b"GET / HTTP/1.1\r\n\r\n")
        check(rest(client).endswith(b"<p>home"), "one of 200 got another answer")
        client.close()
    end = time.monotonic() + 10
    while len(os.listdir(handles)) > before and time.monotonic() < end:
        time.sleep(0.01)
    check(len(os.listdir(handles)) <= before, "connections are kept")


def main(program):
    with own_folder():
        os.makedirs("site/sub")
        write_all({f"site/{name}": content for name, content in {**FILES, "../secret": b"secret"}.items()})
        server = subprocess.Popen(program + ["site"], stdin=subprocess.PIPE, stdout=subprocess.PIPE)
        address = server.stdout.readline().decode().strip()
        check(address.startswith("http://127.0.0.1:"), f"the first line is {address}")
        port = int(address.strip("/").split(":")[-1])
        silent = [connect(port) for _ in range(20)]  # still open when the server ends
        with concurrent.futures.ThreadPoolExecutor() as clients:
            for done in [clients.submit(check_answer, port, *row) for row in ANSWERS + 20 * [ANSWERS[1]]]:
                done.result()
        if not program[-1].endswith(".exe"):  # its launcher would be a different process
            check_crowd(port, server, f"/proc/{server.pid}/fd")
        for arguments, code in ["--port 70000 .", 2], ["none", 1], [f"--port {port} .", 1]:
            run(program, arguments.split(), code, error=" ", stdin=subprocess.DEVNULL)
        server.stdin.close()
        check(server.wait(30) == 0, f"ended with {server.returncode}")
        for each in silent:
            each.close()
    finish()


main(sys.argv[1:])
