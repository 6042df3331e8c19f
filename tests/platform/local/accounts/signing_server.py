#!/usr/bin/python3
"""signing_server.py DIRECTORY CONSUMER_KEY CONSUMER_SECRET TOKEN TOKEN_SECRET HOST

An HTTPS server on 127.0.0.1 for the name HOST, whose certificate it makes and leaves as
DIRECTORY/certificate.pem. Prints its port, then a line of JSON for each request, before it answers. Checks
signatures by oauthlib: 200 where one is right, else 401. Paths with a meaning of their own: /silent never answers,
/slow takes half a second, /redirect leads to /elsewhere. Ends when its standard input does.
"""

import http.server
import json
import os
import ssl
import subprocess
import sys
import threading
import time
import urllib.parse

from oauthlib.oauth1 import RequestValidator, ResourceEndpoint

directory, consumer_key, consumer_secret, token, token_secret, host = sys.argv[1:]


class Validator(RequestValidator):
    """Knows one client with one token. Lengths and characters of nonces are oauthlib's own rule."""

    client_key_length = access_token_length = (1, 100)
    dummy_client = dummy_access_token = "dummy"

    def __init__(self, endpoint=None):
        super().__init__()
        self.seen = set()
        self.lock = threading.Lock()

    def validate_timestamp_and_nonce(self, client_key, timestamp, nonce, request, request_token=None, access_token=None):
        with self.lock:
            fresh = (timestamp, nonce) not in self.seen
            self.seen.add((timestamp, nonce))
        return fresh and abs(int(timestamp) - time.time()) < 300

    def validate_client_key(self, client_key, request):
        return client_key == consumer_key

    def validate_access_token(self, client_key, token_, request):
        return token_ == token

    def validate_realms(self, *arguments, **named):
        return True

    def get_client_secret(self, client_key, request):
        return consumer_secret

    def get_access_token_secret(self, client_key, token_, request):
        return token_secret


endpoint = ResourceEndpoint(Validator())
printing = threading.Lock()


def tell(**fields):
    with printing:
        print(json.dumps(fields), flush=True)


class Handler(http.server.BaseHTTPRequestHandler):
    protocol_version = "HTTP/1.1"

    def answer(self):
        body = self.rfile.read(int(self.headers.get("Content-Length") or 0)).decode()
        uri = f"https://{self.headers['Host']}{self.path}"
        valid, _ = endpoint.validate_protected_resource_request(uri, self.command, body, dict(self.headers.items()))
        url = urllib.parse.urlsplit(self.path)
        pairs = urllib.parse.parse_qsl(url.query, True) + urllib.parse.parse_qsl(body, True)
        tell(valid=valid, method=self.command, path=url.path, query=url.query, body=body, parameters=pairs,
             headers={name.lower(): value for name, value in self.headers.items()})
        status = 200 if valid else 401
        if url.path == "/silent":
            threading.Event().wait()
        if url.path == "/slow":
            time.sleep(0.5)
        if url.path == "/redirect":
            status = 302
        self.send_response(status)
        if status == 302:
            self.send_header("Location", f"https://{host}/elsewhere")
        self.send_header("Content-Length", "3")
        self.end_headers()
        self.wfile.write(b"{}\n")

    do_GET = do_POST = answer

    def log_message(self, *arguments):
        pass


class Server(http.server.ThreadingHTTPServer):
    daemon_threads = True

    def get_request(self):
        connection, address = super().get_request()
        return tls.wrap_socket(connection, server_side=True, do_handshake_on_connect=False), address

    def handle_error(self, request, client_address):
        """A client that does not trust the certificate, or goes, is what some tests are about."""


key, certificate = os.path.join(directory, "key.pem"), os.path.join(directory, "certificate.pem")
subprocess.run(
    ["openssl", "req", "-x509", "-newkey", "ec", "-pkeyopt", "ec_paramgen_curve:prime256v1", "-nodes", "-days", "2",
     "-subj", f"/CN={host}", "-addext", f"subjectAltName=DNS:{host}", "-keyout", key, "-out", certificate],
    check=True, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
tls = ssl.SSLContext(ssl.PROTOCOL_TLS_SERVER)
tls.load_cert_chain(certificate, key)
server = Server(("127.0.0.1", 0), Handler)
threading.Thread(target=server.serve_forever, daemon=True).start()
print(server.server_port, flush=True)
sys.stdin.read()
