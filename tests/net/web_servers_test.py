#!/usr/bin/env python3
"""Downloads from the web servers that are installed here, whose answers differ in format.

    web_servers_test.py [LAUNCHER...] FETCH
"""

import http.server
import os
import pathlib
import shutil
import socket
import subprocess
import sys
import tempfile
import threading
import time

FILES = {"list.xml": b"<rss/>", "big.xml": os.urandom(3_000_000), "empty.xml": b""}
STATUSES = ["3", "4", "8", "1000", "14"]  # address, connection, request, header, end
NGINX = """daemon off; master_process off; pid pid; user root; events {}
http { access_log off; server { listen 127.0.0.1:PORT; root site; } client_body_temp_path temp; proxy_temp_path temp;
fastcgi_temp_path temp; uwsgi_temp_path temp; scgi_temp_path temp; }"""
SERVERS = [("nginx -p . -e stderr -c config", NGINX), ("busybox httpd -f -p 127.0.0.1:PORT -h site", "")]
FETCH = [os.path.abspath(each) if os.path.exists(each) else each for each in sys.argv[1:]]
problems = []


class Odd(http.server.BaseHTTPRequestHandler):
    """No date, names in lower case, and a body even for a HEAD request."""

    def do_GET(self):
        content = FILES.get(self.path[1:])
        self.wfile.write(b"HTTP/1.0 404 No\r\n\r\n" if content is None else b"HTTP/1.0 200 Yes\r\n"
                         b"content-length: %d\r\n\r\n%s" % (len(content), content))

    do_HEAD = do_GET


def check(name, port):
    for path in [*FILES, "none.xml"]:
        for arguments in [], ["file"]:  # the header, all
            ran = subprocess.run([*FETCH, str(port), "/" + path, *arguments], capture_output=True, text=True, timeout=60)
            # The number of receives depends on the network.
            if [each for each in ran.stdout.split() if each != "9" and each[:3] != "10:"] != STATUSES:
                problems.append(f"{name}: {path} {arguments}: {ran}")
        answer = pathlib.Path("file").read_bytes()
        is_right = answer.endswith(b"\r\n\r\n" + FILES[path]) if path in FILES else b" 404 " in answer
        told = sum(int(each[3:]) for each in ran.stdout.split() if each.startswith("10:"))
        if not is_right or told != len(answer):
            problems.append(f"{name}: {path}: {len(answer)} bytes, {told} told")


def check_server(command, config):
    with socket.socket() as free:
        free.bind(("127.0.0.1", 0))
        port = free.getsockname()[1]
    pathlib.Path("config").write_text(config.replace("PORT", str(port)))
    with subprocess.Popen(command.replace("PORT", str(port)).split(), stdout=subprocess.DEVNULL) as server:
        deadline = time.monotonic() + 20
        with socket.socket() as probe:
            while probe.connect_ex(("127.0.0.1", port)) != 0 and server.poll() is None and time.monotonic() < deadline:
                time.sleep(0.05)
        check(command, port)  # a server that does not answer gives other statuses
        server.terminate()


os.environ["PATH"] += ":/usr/sbin"
with tempfile.TemporaryDirectory() as folder:
    os.chdir(folder)
    os.mkdir("site")
    for file, text in FILES.items():
        pathlib.Path("site", file).write_bytes(text)
    odd = http.server.ThreadingHTTPServer(("127.0.0.1", 0), Odd)
    threading.Thread(target=odd.serve_forever, daemon=True).start()
    check("odd", odd.server_address[1])
    for each, config_text in SERVERS:
        if shutil.which(each.split()[0]):
            check_server(each, config_text)
        else:
            print(f"skipped: {each} is not installed")
    os.chdir("/")
print("\n".join(problems) or "no problems")
sys.exit(1 if problems else 0)
