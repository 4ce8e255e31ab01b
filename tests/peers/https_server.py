#!/usr/bin/env python3
"""A server to test an HTTP client against: HTTPS and HTTP on 127.0.0.1, whose paths decide what it does.

usage: https_server.py CERTIFICATE KEY

Prints "HTTPS-PORT HTTP-PORT" when it is ready.
"""
import http.server
import ssl
import sys
import threading
import time
import urllib.parse

CODE_OF_PASSWORD = {"right": 0, "wrong": 8, "locked": 37}
FOREVER = 600  # seconds; the server is stopped long before
asked = []  # every request and its scheme, in order


def reply_with(code):
    return f'<?xml version="1.0"?><quelmApiResponse><responseCode>{code}</responseCode></quelmApiResponse>'


class Handler(http.server.BaseHTTPRequestHandler):
    protocol_version = "HTTP/1.1"

    def do_GET(self):
        url = urllib.parse.urlsplit(self.path)
        self.query = dict(urllib.parse.parse_qsl(url.query))
        if url.path != "/asked":
            asked.append(f"{self.server.scheme} {self.path}")
        BEHAVIOURS.get(url.path, Handler.absent)(self)

    def answer(self, body, status=200, headers=()):
        body = body.encode()
        self.send_response(status)
        for name, value in headers:
            self.send_header(name, value)
        self.send_header("Content-Length", str(len(body)))
        self.end_headers()
        self.wfile.write(body)

    def command(self):
        """The service's command "verifyAccount", which goes by the password."""
        password = self.query.get("password", "")
        if password == "silence":
            self.silence()
        elif self.query.get("command") != "verifyAccount" or not self.query.get("clientId"):
            self.answer(reply_with(1))
        elif password in CODE_OF_PASSWORD:
            self.answer(reply_with(CODE_OF_PASSWORD[password]))
        else:
            self.answer("garbage")

    def redirect(self):
        """To "to"; with "after", so many seconds later."""
        time.sleep(float(self.query.get("after", 0)))
        self.answer("moved", 302, [("Location", self.query["to"]), ("Set-Cookie", "crumb=1")])

    def loop(self):
        """A redirect to itself; with "after", so many seconds later."""
        time.sleep(float(self.query.get("after", 0)))
        self.answer("moved", 302, [("Location", self.path)])

    def huge(self):
        """A body of so many bytes as "size" says, 100 MiB without."""
        left = int(self.query.get("size", 100 << 20))
        self.send_response(200)
        self.send_header("Content-Length", str(left))
        self.end_headers()
        while left > 0:
            left -= self.wfile.write(b"x" * min(left, 1 << 16))

    def header(self):
        self.send_response(200)
        self.flush_headers()
        while True:
            self.wfile.write(b"X-Header: " + b"x" * 1000 + b"\r\n")

    def half(self):
        self.send_response(200)
        self.send_header("Content-Length", "1000")
        self.end_headers()
        self.wfile.write(b"half")
        self.close_connection = True

    def nothing(self):
        self.close_connection = True

    def trickle(self):
        self.send_response(200)
        self.send_header("Content-Length", "1000000")
        self.end_headers()
        while True:
            self.wfile.write(b"x")
            time.sleep(0.02)

    def silence(self):
        """Tells /asked when the client has nothing left to do but wait."""
        time.sleep(0.4)
        asked.append("silence")
        time.sleep(FOREVER)

    def absent(self):
        self.answer("no such path", 404)

    def log_message(self, *_):
        pass


BEHAVIOURS = {
    "/QuelmWebApi": Handler.command,
    "/reply": lambda self: self.answer(reply_with(0)),
    "/slow": lambda self: (time.sleep(0.2), self.answer(reply_with(0))),
    "/redirect": Handler.redirect,
    "/loop": Handler.loop,
    "/500": lambda self: self.answer(reply_with(30), 500),
    "/not-xml": lambda self: self.answer("garbage"),
    "/no-code": lambda self: self.answer("<quelmApiResponse/>"),
    "/empty": lambda self: self.answer(""),
    "/huge": Handler.huge,
    "/header": Handler.header,
    "/half": Handler.half,
    "/nothing": Handler.nothing,
    "/trickle": Handler.trickle,
    "/silence": Handler.silence,
    "/headers": lambda self: self.answer(str(self.headers)),
    "/asked": lambda self: self.answer("\n".join(asked)),
}


class Server(http.server.ThreadingHTTPServer):
    daemon_threads = True
    request_queue_size = 64

    def __init__(self, scheme, context=None):
        super().__init__(("127.0.0.1", 0), Handler)
        self.scheme, self.context = scheme, context

    def finish_request(self, request, client_address):
        if self.context:  # in the connection's own thread: who does not shake hands holds up nobody
            request = self.context.wrap_socket(request, server_side=True)
        super().finish_request(request, client_address)

    def handle_error(self, *_):  # a client that goes away is what is tested
        pass


def main():
    context = ssl.SSLContext(ssl.PROTOCOL_TLS_SERVER)
    context.load_cert_chain(*sys.argv[1:3])
    servers = [Server("https", context), Server("http")]
    for server in servers:
        threading.Thread(target=server.serve_forever, daemon=True).start()
    print(*(server.server_address[1] for server in servers), flush=True)
    threading.Event().wait()


if __name__ == "__main__":
    main()
