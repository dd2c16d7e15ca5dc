#!/usr/bin/env python3
"""Downloads from the web servers that are installed here, whose answers differ in format.

    web_servers_test.py [LAUNCHER...] FETCH
"""

import os
import shutil
import socket
import subprocess
import sys
import time

from harness import check, finish, own_folder, read, write_all

FILES = {"list.xml": b"<rss/>", "big.xml": os.urandom(3_000_000), "empty.xml": b""}
STATUSES = ["3", "4", "8", "1000", "14"]  # address, connection, request, header, end
NGINX = b"""daemon off; master_process off; pid pid; user root; events {}
http { access_log off; server { listen 127.0.0.1:PORT; root site; } client_body_temp_path temp; proxy_temp_path temp;
fastcgi_temp_path temp; uwsgi_temp_path temp; scgi_temp_path temp; }"""
SERVERS = [("nginx -p . -e stderr -c config", NGINX), ("busybox httpd -f -p 127.0.0.1:PORT -h site", b"")]
FETCH = [os.path.abspath(each) if os.path.exists(each) else each for each in sys.argv[1:]]


def check_downloads(name, port):
    for path in [*FILES, "none.xml"]:
        for arguments in [], ["file"]:  # the header, all
            ran = subprocess.run([*FETCH, port, "/" + path, *arguments], capture_output=True, text=True, timeout=60)
            # The number of receives depends on the network.
            statuses = [each for each in ran.stdout.split() if each != "9" and each[:3] != "10:"]
            check(statuses == STATUSES, f"{name}: {path} {arguments}: {ran}")
        answer = read("file")
        is_right = answer.endswith(b"\r\n\r\n" + FILES[path]) if path in FILES else b" 404 " in answer
        reported = sum(int(each[3:]) for each in ran.stdout.split() if each.startswith("10:"))
        check(is_right and reported == len(answer), f"{name}: {path}: {len(answer)} bytes, {reported} reported")


def check_server(command, config):
    with socket.socket() as free:
        free.bind(("127.0.0.1", 0))
        port = str(free.getsockname()[1])
    write_all({"config": config.replace(b"PORT", port.encode())})
    with subprocess.Popen(command.replace("PORT", port).split(), stdout=subprocess.DEVNULL) as server:
        deadline = time.monotonic() + 20
        with socket.socket() as probe:
            while probe.connect_ex(("127.0.0.1", int(port))) != 0 and time.monotonic() < deadline:
                time.sleep(0.05)
        check_downloads(command, port)  # a server that does not answer gives other statuses
        server.terminate()


os.environ["PATH"] += ":/usr/sbin"
with own_folder():
    os.mkdir("site")
    write_all({"site/" + name: content for name, content in FILES.items()})
    for each, config_text in SERVERS:
        if shutil.which(each.split()[0]):
            check_server(each, config_text)
        else:
            print(f"skipped: {each} is not installed")
finish()
