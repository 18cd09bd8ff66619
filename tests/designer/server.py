#!/usr/bin/env python3
"""What the designer's server answers to requests that aren't its page's, over plain sockets.
Usage: server.py BUILD_FOLDER"""
import atexit
import http.client
import json
import os
import re
import resource
import signal
import socket
import subprocess
import sys
import tempfile
import time

build = sys.argv[1]
failures = []
PATIENCE = 60


def check(what, seen, wanted):
    if seen != wanted:
        failures.append(f"{what}: {seen!r} instead of {wanted!r}")


home = tempfile.TemporaryDirectory()
with open(f"{home.name}/passwd", "w", encoding="utf-8") as file:
    file.write(f"user:x:{os.getuid()}:{os.getgid()}::{home.name}:/bin/sh\n")
with open(f"{home.name}/xdg-open", "w", encoding="utf-8") as file:
    file.write(f'#!/bin/sh\necho "$1" > {home.name}/opened\n')
os.chmod(f"{home.name}/xdg-open", 0o755)
with open(f"{home.name}/systemd-run", "w", encoding="utf-8") as file:
    file.write("#!/bin/sh\nexit 1\n")
os.chmod(f"{home.name}/systemd-run", 0o755)
environment = {**os.environ, "LD_PRELOAD": "libnss_wrapper.so", "NSS_WRAPPER_PASSWD": f"{home.name}/passwd",
               "NSS_WRAPPER_GROUP": "/etc/group", "XDG_STATE_HOME": f"{home.name}/state",
               "XDG_CONFIG_HOME": f"{home.name}/config",
               "ASAN_OPTIONS": "verify_asan_link_order=0", "PATH": f"{home.name}:{os.environ['PATH']}"}
designer = subprocess.Popen([f"{build}/orvel", "design", "--no-browser"], env=environment, stdout=subprocess.PIPE, text=True)
atexit.register(designer.kill)
address = designer.stdout.readline().strip()
origin, token = address.split("/?token=")
host = origin.removeprefix("http://")
port = int(host.split(":")[1])
entry = http.client.HTTPConnection("127.0.0.1", port, timeout=PATIENCE)
entry.request("GET", f"/?token={token}", headers={"Host": host})
given = entry.getresponse()
cookie, _, attributes = given.getheader("Set-Cookie").partition("; ")
# The folder's name is a secret of its own, so that the cookie isn't shown to other accounts' servers on this machine.
folder = attributes.split("Path=")[1].split(";")[0].rstrip("/")
check("the cookie", re.sub("[0-9a-f]{32}", "*", f"{cookie}; {attributes}"), "orvel-designer=*; Path=/*/; HttpOnly; SameSite=Strict")
check("two secrets", folder.strip("/") in (token, cookie.split("=")[1]), False)
check("it leads to the page", f"url={folder}/\"" in given.read().decode(), True)
ours = {"Host": host, "Cookie": cookie}
page = {**ours, "Origin": origin, "Content-Type": "application/json"}


def raw(data):
    """The whole answer to these bytes, until the server closes."""
    with socket.create_connection(("127.0.0.1", port), timeout=PATIENCE) as client:
        client.sendall(data)
        answer = b""
        while part := client.recv(65536):
            answer += part
        return answer


def ask(method, path, headers, body=None):
    connection = http.client.HTTPConnection("127.0.0.1", port, timeout=PATIENCE)
    connection.putrequest(method, path, skip_host=True, skip_accept_encoding=True)
    for name, value in headers.items():
        connection.putheader(name, value)
    if body is not None:
        connection.putheader("Content-Length", str(len(body)))
    connection.endheaders(body.encode() if body is not None else None)
    response = connection.getresponse()
    return response.status, response.read(), response.headers


def without(headers, name):
    return {key: value for key, value in headers.items() if key != name}


FEED = json.dumps({"text": json.dumps({"command": "touch /tmp/x", "every": "1h", "timeout": "10s"})})
SAVE = ("POST", f"{folder}/api/save")
for what, method, path, headers, body, status in [
    ("its own page", "GET", f"{folder}/", ours, None, 200),
    ("the entrance without its token", "GET", "/", ours, None, 403),
    ("another folder", "GET", folder[:-1] + "x/", ours, None, 403),
    ("no folder", "GET", "/api/state", ours, None, 403),
    ("the address with its token", "GET", f"/?token={token}", {"Host": host}, None, 200),
    ("the same from another site's link", "GET", f"/?token={token}", {"Host": host, "Sec-Fetch-Site": "cross-site"}, None, 200),
    ("no token", "GET", f"{folder}/", {"Host": host}, None, 403),
    ("a wrong token", "GET", "/?token=" + "0" * 32, {"Host": host}, None, 403),
    ("the token's beginning", "GET", f"/?token={token[:-1]}", {"Host": host}, None, 403),
    ("the token anywhere but at the page", "GET", f"{folder}/api/state?token={token}", {"Host": host}, None, 403),
    ("no token for a file", "GET", f"{folder}/style.css", {"Host": host}, None, 403),
    ("another cookie", "GET", f"{folder}/api/state", {"Host": host, "Cookie": f"orvel={token}"}, None, 403),
    ("a wrong cookie", "GET", f"{folder}/api/state", {"Host": host, "Cookie": cookie[:-1] + "x"}, None, 403),
    ("another name of this machine", "GET", "/", {**ours, "Host": f"localhost:{port}"}, None, 421),
    ("a name made to lead here", "GET", "/", {**ours, "Host": f"evil.example:{port}"}, None, 421),
    ("no Host", "GET", "/", {"Cookie": cookie}, None, 421),
    ("another site reads", "GET", f"{folder}/api/state", {**ours, "Origin": "https://evil.example"}, None, 403),
    ("another site includes", "GET", f"{folder}/api/state", {**ours, "Sec-Fetch-Site": "cross-site"}, None, 403),
    ("another port's page includes", "GET", f"{folder}/api/state", {**ours, "Sec-Fetch-Site": "same-site"}, None, 403),
    ("another site writes", *SAVE, {**page, "Origin": "https://evil.example"}, "{}", 403),
    ("a hidden site writes", *SAVE, {**page, "Origin": "null"}, "{}", 403),
    ("nobody says who writes", *SAVE, without(page, "Origin"), "{}", 403),
    ("a form writes", *SAVE, {**page, "Content-Type": "text/plain"}, "{}", 415),
    ("another site sets a command", "POST", f"{folder}/api/feeds/put", {**page, "Origin": "https://evil.example"}, FEED, 403),
    ("another port sets a command", "POST", f"{folder}/api/feeds/put", {**page, "Sec-Fetch-Site": "same-site"}, FEED, 403),
    ("a command without the cookie", "POST", f"{folder}/api/feeds/put", without(page, "Cookie"), FEED, 403),
    ("a form sets a command", "POST", f"{folder}/api/feeds/put", {**page, "Content-Type": "application/x-www-form-urlencoded"}, FEED, 415),
    ("a command for a design that isn't stored", "POST", f"{folder}/api/feeds/put", page, FEED, 422),
    ("no JSON", *SAVE, page, "{", 400),
    ("a wrong type", "POST", f"{folder}/api/type", page, '{"fields":{"title":[1]}}', 400),
    ("a draft of yesterday", "POST", f"{folder}/api/type", page, '{"revision":999,"fields":{"title":"x"}}', 409),
    ("an unknown design", "POST", f"{folder}/api/edit", page, '{"id":"nobody"}', 422),
    ("an unknown operation", "POST", f"{folder}/api/erase", page, "{}", 404),
    ("another method", "DELETE", "/", ours, None, 405),
    ("a way out", "GET", f"{folder}/../../etc/passwd", ours, None, 404),
    ("a way out, escaped", "GET", f"{folder}/%2e%2e/%2e%2e/etc/passwd", ours, None, 404),
    ("an unknown form of picture", "GET", f"{folder}/api/card?format=exe", ours, None, 400),
    ("the source of a file", "GET", f"{folder}/page/main.js", ours, None, 404),
    ("a NUL", "GET", f"{folder}/style.css%00.js", ours, None, 400),
    ("a large body", "POST", f"{folder}/api/type", page, "x" * (2 << 20), 413),
]:
    seen, answer, headers = ask(method, path, headers, body)
    check(what, seen, status)
    if status != 200 and not json.loads(answer).get("reason"):
        failures.append(f"{what}: no reason")
    check(f"{what}: no other origin's content", "'none'" in headers["Content-Security-Policy"], True)

GET = f"GET {folder}/api/state HTTP/1.1\r\nHost: {host}\r\nCookie: {cookie}\r\n".encode()
for what, data, status in [
    ("a long head", GET + b"X: " + b"x" * 20000 + b"\r\n\r\n", b"431"),
    ("many headers", GET + b"".join(b"X%d: y\r\n" % i for i in range(3000)) + b"\r\n", b"431"),
    ("two lengths", b"POST /api/save HTTP/1.1\r\nContent-Length: 1\r\nContent-Length: 2\r\n\r\n", b"400"),
    ("a length that is none", b"POST /api/save HTTP/1.1\r\nContent-Length: -1\r\n\r\n", b"400"),
    ("chunks", b"POST /api/save HTTP/1.1\r\nTransfer-Encoding: chunked\r\n\r\n", b"501"),
    ("a folded line", GET + b" folded: x\r\n\r\n", b"400"),
    ("another protocol", b"\x16\x03\x01\x02\x00\r\n\r\n", b"400"),
    ("a request behind another", GET + b"\r\n" + GET + b"Connection: close\r\n\r\n", b"200"),
]:
    check(what, raw(data)[9:12], status)

# Texts are taken as data, and a field with a wrong value is refused by name.
state = json.loads(ask("GET", f"{folder}/api/state", ours)[1])
typed = json.loads(ask("POST", f"{folder}/api/type", page, json.dumps(
    {"revision": state["draft"]["revision"], "fields": {"title": "</script>", "progress": "much", "items": ["a", "b"]}}))[1])
check("refused by name", [refusal["field"] for refusal in typed["refusals"]], ["progress"])
check("the others are taken", (typed["draft"]["record"]["title"], typed["draft"]["record"]["items"]), ("</script>", ["a", "b"]))

check("nobody has set a command", os.path.exists(f"{home.name}/config/orvel/feeds.json"), False)

# A body of a gigabyte is refused by its length, and the answer arrives while it is still being sent.
with socket.create_connection(("127.0.0.1", port), timeout=PATIENCE) as client:
    client.sendall(f"POST {folder}/api/type HTTP/1.1\r\nHost: {host}\r\nCookie: {cookie}\r\nOrigin: {origin}\r\n"
                   f"Content-Type: application/json\r\nContent-Length: {1 << 30}\r\n\r\n".encode())
    flood = b"x" * (1 << 20)
    for _ in range(64):
        client.sendall(flood)
    check("a gigabyte", client.recv(1000)[9:12], b"413")

# More clients than the limit: those that have been silent for longest are dropped, and a page is still answered.
resource.setrlimit(resource.RLIMIT_NOFILE, (min(4096, resource.getrlimit(resource.RLIMIT_NOFILE)[1]),) * 2)
crowd = [socket.create_connection(("127.0.0.1", port), timeout=PATIENCE) for _ in range(1000)]
check("among a thousand connections", ask("GET", f"{folder}/api/state", ours)[0], 200)
check("the longest silent one", crowd[0].recv(1), b"")
for client in crowd:
    client.close()

# A browser gets an address that works once, since everyone can read command lines.
subprocess.run([f"{build}/orvel", "design"], env={**environment, "DISPLAY": ":nowhere"}, check=True, timeout=PATIENCE)
once = ""
until = time.monotonic() + PATIENCE
while not once.endswith("\n") and time.monotonic() < until:
    time.sleep(0.05)
    if os.path.exists(f"{home.name}/opened"):
        with open(f"{home.name}/opened", encoding="utf-8") as file:
            once = file.read()
once = once.strip()
check("the same designer", once.startswith(origin), True)
check("another secret", token in once, False)
path = once.removeprefix(origin)
check("one visit", [ask("GET", path, {"Host": host})[0] for _ in range(2)], [200, 403])
check("who may read the address", os.stat(f"{home.name}/state/orvel/designer").st_mode & 0o777, 0o600)
taken = subprocess.run([f"{build}/orvel", "design", "--no-browser", "--port", str(port)],
                       env={**environment, "XDG_STATE_HOME": f"{home.name}/other"}, capture_output=True, text=True, timeout=PATIENCE)
check("a port that is taken", (taken.returncode, taken.stderr.count("\n"), str(port) in taken.stderr), (1, 1, True))

designer.send_signal(signal.SIGTERM)
check("it ends when it is told to", designer.wait(PATIENCE), 0)
check("what was typed is kept", '"</script>"' in subprocess.run(
    [f"{build}/orvel", "pending", "--json"], env=environment, capture_output=True, text=True).stdout.replace("\\/", "/"), True)
print("\n".join(failures) or "the server lets nobody else in")
sys.exit(bool(failures))
