"""A web server on the loopback with an authority of its own, which misbehaves as its paths say.

Usage: https_server.py FOLDER

Makes FOLDER/authority.pem, the certificate to trust, and prints one line with the ports: of the server,
of one without encryption, and of those that nobody should trust. Ends with its standard input.
"""

import http.server
import os
import ssl
import subprocess
import sys
import threading
import time
import urllib.parse


def openssl(*arguments):
    subprocess.run(["openssl", *arguments], check=True, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)


def make_authority(path):
    openssl("req", "-x509", "-newkey", "ec", "-pkeyopt", "ec_paramgen_curve:P-256", "-nodes", "-days", "2",
            "-subj", "/CN=authority", "-keyout", path + ".key", "-out", path + ".pem")


def make_certificate(path, authority, names, days="2"):
    openssl("req", "-newkey", "ec", "-pkeyopt", "ec_paramgen_curve:P-256", "-nodes",
            "-subj", "/CN=server", "-keyout", path + ".key", "-out", path + ".request")
    with open(path + ".extensions", "w") as file:
        file.write("subjectAltName=" + names)
    openssl("x509", "-req", "-in", path + ".request", "-CA", authority + ".pem", "-CAkey", authority + ".key",
            "-CAcreateserial", "-days", days, "-extfile", path + ".extensions", "-out", path + ".pem")
    return path


class Handler(http.server.BaseHTTPRequestHandler):
    protocol_version = "HTTP/1.1"
    disable_nagle_algorithm = True  # which would keep each answer back for 40 ms
    folder = ""
    hits = 0

    def do_GET(self):
        type(self).hits += 1
        path, _, query = self.path.partition("?")
        kind, _, rest = path.lstrip("/").partition("/")
        getattr(self, "serve_" + kind)(rest, urllib.parse.parse_qs(query))

    def contents(self, name):
        with open(os.path.join(self.folder, name), "rb") as file:
            return file.read()

    def send(self, status, body=b"", length=None, **headers):
        self.send_response(status)
        for name, value in headers.items():
            self.send_header(name.replace("_", "-"), value)
        self.send_header("Content-Length", str(len(body) if length is None else length))
        self.end_headers()
        self.wfile.write(body)

    def send_rest(self, body, begin, claimed):
        self.send(206, body[begin:], Content_Range=f"bytes {claimed}-{len(body) - 1}/{len(body)}")

    def asked_begin(self):
        wanted = self.headers.get("Range", "")
        return int(wanted.removeprefix("bytes=").rstrip("-")) if wanted else None

    def serve_file(self, name, _):
        body, begin = self.contents(name), self.asked_begin()
        with open(os.path.join(self.folder, "ranges"), "a") as file:
            file.write(f"{begin}\n")
        if begin is None:
            self.send(200, body)
        elif begin >= len(body):
            self.send(416, Content_Range=f"bytes */{len(body)}")
        else:
            self.send_rest(body, begin, begin)

    def serve_whole(self, name, _):
        self.send(200, self.contents(name))

    def serve_shifted(self, name, _):
        body, begin = self.contents(name), self.asked_begin()
        if begin is None:
            self.send(200, body)
        else:
            self.send_rest(body, 0, 0)

    def serve_norange(self, name, _):
        body = self.contents(name)
        self.send(416) if self.asked_begin() is not None else self.send(200, body)

    def serve_break(self, name, _):
        body = self.contents(name)
        self.send(200, body[:len(body) // 2], length=len(body))
        self.close_connection = True

    def serve_status(self, number, _):
        self.send(int(number), b"not for you")

    def serve_to(self, _, query):
        self.send(302, Location=query["url"][0])

    def serve_loop(self, _, __):
        self.send(302, Location=self.path)

    def serve_hits(self, _, __):
        self.send(200, str(type(self).hits).encode())

    def serve_cookie(self, _, __):
        self.send(302, Location="/headers", Set_Cookie="who=you; Path=/")

    def serve_headers(self, _, __):
        self.send(200, "".join(f"{name}: {value}\n" for name, value in self.headers.items()).encode())

    def serve_packed(self, _, __):
        self.send(200, b"\x1f\x8b packed", Content_Encoding="gzip")

    def serve_endless(self, _, __):
        self.send_response(200)
        self.end_headers()
        self.close_connection = True
        block = b"x" * 65536
        try:
            while True:
                self.wfile.write(block)
        except OSError:
            pass

    def serve_drip(self, _, __):
        self.send_response(200)
        self.send_header("Content-Length", "100000")
        self.end_headers()
        self.close_connection = True
        try:
            while True:
                self.wfile.write(b"x")
                time.sleep(0.05)
        except OSError:
            pass

    def serve_hang(self, _, __):
        self.close_connection = True
        time.sleep(20)

    def log_message(self, *_):
        pass


class Plain(Handler):
    """Counts for itself who comes without encryption."""

    hits = 0


class Server(http.server.ThreadingHTTPServer):
    daemon_threads = True

    def handle_error(self, *_):
        pass  # clients that do not trust it break off


def start(handler, certificate=None):
    server = Server(("127.0.0.1", 0), handler)
    if certificate:
        context = ssl.SSLContext(ssl.PROTOCOL_TLS_SERVER)
        context.load_cert_chain(certificate + ".pem", certificate + ".key")
        server.socket = context.wrap_socket(server.socket, server_side=True, do_handshake_on_connect=False)
    threading.Thread(target=server.serve_forever, daemon=True).start()
    return server.server_address[1]


def main(folder):
    at = lambda name: os.path.join(folder, name)
    make_authority(at("authority"))
    make_authority(at("stranger"))
    here = "IP:127.0.0.1,DNS:localhost"
    Handler.folder = Plain.folder = folder
    ports = [
        start(Handler, make_certificate(at("server"), at("authority"), here)),
        start(Plain),
        start(Handler, make_certificate(at("foreign"), at("stranger"), here)),
        start(Handler, make_certificate(at("elsewhere"), at("authority"), "DNS:example.org")),
        start(Handler, make_certificate(at("expired"), at("authority"), here, days="-1")),
    ]
    print(*ports, flush=True)
    sys.stdin.read()


main(sys.argv[1])
