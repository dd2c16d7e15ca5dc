#!/usr/bin/env python3
"""Adds an authority to the trusted certificates of a Wine prefix's user, or removes it.

    wine_authority.py add|remove FILE.pem LAUNCHER...

The launcher runs Windows programs in the prefix. The store is a key of the registry.
"""

import hashlib
import pathlib
import ssl
import struct
import subprocess
import sys
import tempfile

STORE = r"HKEY_CURRENT_USER\Software\Microsoft\SystemCertificates\Root\Certificates" + "\\"
DIGEST, CERTIFICATE = 3, 32  # properties of a stored certificate


def main(command, pem, *launcher):
    der = ssl.PEM_cert_to_DER_cert(pathlib.Path(pem).read_text())
    digest = hashlib.sha1(der).digest()
    text = f"Windows Registry Editor Version 5.00\r\n\r\n[{'-' * (command == 'remove')}{STORE}{digest.hex().upper()}]\r\n"
    if command == "add":
        blob = b"".join(struct.pack("<III", kind, 1, len(content)) + content
                        for kind, content in ((DIGEST, digest), (CERTIFICATE, der)))
        text += '"Blob"=hex:' + ",".join(f"{byte:02x}" for byte in blob) + "\r\n"
    with tempfile.TemporaryDirectory() as folder:
        file = pathlib.Path(folder, "store.reg")
        file.write_bytes(text.encode("utf-16"))
        subprocess.run([*launcher, "regedit.exe", "/S", str(file)], check=True, capture_output=True, cwd=folder)


if __name__ == "__main__":
    main(*sys.argv[1:])
