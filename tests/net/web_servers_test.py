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

# Program, its configuration, its arguments.
SERVERS = [
    ("nginx", """daemon off; master_process off; pid FOLDER/pid; user root; events {}
        http { access_log off; server { listen 127.0.0.1:PORT; root FOLDER/site; }
        client_body_temp_path temp; proxy_temp_path temp; fastcgi_temp_path temp; uwsgi_temp_path temp;
        scgi_temp_path temp; }""", ["-p", "FOLDER", "-e", "stderr", "-c", "FOLDER/config"]),
    ("lighttpd", 'server.document-root = "FOLDER/site"\nserver.bind = "127.0.0.1"\nserver.port = PORT',
     ["-D", "-f", "FOLDER/config"]),
    ("busybox", "", ["httpd", "-f", "-p", "127.0.0.1:PORT", "-h", "FOLDER/site"]),
    ("python3", "", ["-m", "http.server", "-b", "127.0.0.1", "-d", "FOLDER/site", "PORT"]),
]

problems = []


class Odd(http.server.BaseHTTPRequestHandler):
    """No date, names in lower case, and a body even for a HEAD request."""

    def do_GET(self):
        content = FILES.get(self.path[1:])
        self.wfile.write(b"HTTP/1.0 404 No\r\n\r\n" if content is None else b"HTTP/1.0 200 Yes\r\n"
                         b"content-length: %d\r\n\r\n%s" % (len(content), content))

    do_HEAD = do_GET


def check(name, port, fetch, file):
    for path in [*FILES, "none.xml"]:
        for arguments in [], [file]:  # the header, all
            ran = subprocess.run([*fetch, str(port), "/" + path, *arguments], capture_output=True, text=True, timeout=60)
            # The number of receives depends on the network.
            if [each for each in ran.stdout.split() if each != "9" and each[:3] != "10:"] != STATUSES:
                problems.append(f"{name}: {path} {arguments}: {ran}")
        answer = pathlib.Path(file).read_bytes()
        is_right = answer.endswith(b"\r\n\r\n" + FILES[path]) if path in FILES else b" 404 " in answer
        told = sum(int(each[3:]) for each in ran.stdout.split() if each.startswith("10:"))
        if not is_right or told != len(answer):
            problems.append(f"{name}: {path}: {len(answer)} bytes, {told} told")


def run_server(folder, program, config, arguments, fetch):
    with socket.socket() as free:
        free.bind(("127.0.0.1", 0))
        port = free.getsockname()[1]
    arguments = [each.replace("FOLDER", folder).replace("PORT", str(port)) for each in arguments]
    pathlib.Path(folder, "config").write_text(config.replace("FOLDER", folder).replace("PORT", str(port)))
    with subprocess.Popen([program, *arguments], stdout=subprocess.DEVNULL, stderr=subprocess.PIPE) as server:
        deadline = time.monotonic() + 20
        while server.poll() is None and time.monotonic() < deadline:
            with socket.socket() as probe:
                if probe.connect_ex(("127.0.0.1", port)) == 0:
                    check(program, port, fetch, f"{folder}/file")
                    break
            time.sleep(0.05)
        else:
            problems.append(f"{program} does not answer")
        server.terminate()
        if server.wait(30) and problems:
            problems.append(server.stderr.read().decode())


def main(fetch):
    with tempfile.TemporaryDirectory() as folder:
        os.mkdir(f"{folder}/site")
        for name, content in FILES.items():
            pathlib.Path(folder, "site", name).write_bytes(content)
        odd = http.server.ThreadingHTTPServer(("127.0.0.1", 0), Odd)
        threading.Thread(target=odd.serve_forever, daemon=True).start()
        check("odd", odd.server_address[1], fetch, f"{folder}/file")
        for name, config, arguments in SERVERS:
            program = shutil.which(name, path=os.environ["PATH"] + ":/usr/sbin")
            if program is not None:
                run_server(folder, program, config, arguments, fetch)
            else:
                print(f"skipped: {name} is not installed")
    print("\n".join(problems) or "no problems")
    sys.exit(1 if problems else 0)


main(sys.argv[1:])
