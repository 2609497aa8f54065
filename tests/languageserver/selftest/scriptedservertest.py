#!/usr/bin/env python3
"""Plays the client's end against the scripted server: what it writes, what it logs and how it ends."""

import json
import os
import signal
import socket
import subprocess
import sys
import tempfile
import time
import unittest
from pathlib import Path

sys.dont_write_bytecode = True
SERVERS = Path(__file__).resolve().parent.parent
sys.path.insert(0, str(SERVERS))
import wire  # noqa: E402

PATIENCE = 60  # seconds; far beyond need, so that a test that fails also ends


class Client:
    """The client's end: listens, starts the server with the scenario and takes its connection."""

    def __init__(self, test, scenario=None, accept=True, arguments=None):
        folder = tempfile.TemporaryDirectory()
        test.addCleanup(folder.cleanup)
        self.folder = Path(folder.name)
        if isinstance(scenario, dict) or scenario is None:
            scenario = json.dumps({"log": str(self.folder / "log"), **(scenario or {})})
        self.listener = socket.create_server(("127.0.0.1", 0))
        self.listener.settimeout(PATIENCE)
        test.addCleanup(self.listener.close)
        port = self.listener.getsockname()[1]
        self.process = subprocess.Popen(
            [sys.executable, SERVERS / "scriptedserver.py", *(arguments or [f"--socket={port}"])],
            env={**os.environ, "SCRIPTED_SERVER": scenario}, stdout=subprocess.PIPE, stderr=subprocess.PIPE)
        test.addCleanup(self.process.communicate)
        test.addCleanup(self.process.kill)
        if accept:
            self.socket = self.accept(test)

    def accept(self, test):
        connection, _ = self.listener.accept()
        connection.settimeout(PATIENCE)
        test.addCleanup(connection.close)
        return connection

    def send(self, message):
        self.socket.sendall(wire.frames(wire.body_of(message)))

    def request(self, method, params=None, number=0):
        self.send({"jsonrpc": "2.0", "id": number, "method": method, "params": params or {}})

    def notify(self, method):
        self.send({"jsonrpc": "2.0", "method": method})

    def read(self, size):
        """So many bytes, or what there is before the end."""
        data = bytearray()
        while len(data) < size and (piece := self.socket.recv(min(size - len(data), 1 << 16))):
            data += piece
        return bytes(data)

    def read_all(self):
        return self.read(sys.maxsize)

    def read_message(self):
        header = b""
        while not header.endswith(b"\r\n\r\n"):
            byte = self.socket.recv(1)
            if not byte:
                raise EOFError(header)
            header += byte
        return json.loads(self.read(wire.FrameReader.length_in(header)))

    def ask(self, method, params=None, number=0):
        self.request(method, params, number)
        return self.read_message()

    def exit_code(self):
        return self.process.wait(PATIENCE)

    def log(self):
        log = self.folder / "log"
        return [json.loads(line) for line in (log.read_text() if log.exists() else "").split("\n")[:-1]]

    def events(self):
        return [line["event"] for line in self.log()]

    def wait_for(self, event):
        end = time.monotonic() + PATIENCE
        while event not in self.events():
            if time.monotonic() > end:
                raise TimeoutError(f"no {event} in {self.events()}")
            time.sleep(0.002)
        return next(line for line in self.log() if line["event"] == event)


class ScriptedServer(unittest.TestCase):
    maxDiff = None

    def written(self, *steps):
        """What these steps write until the server ends."""
        client = Client(self, {"steps": [*steps, {"exit": 0}]})
        return client.read_all()

    def test_behaves_well_without_a_scenario(self):
        client = Client(self, "")
        self.assertTrue(client.ask("initialize")["result"]["capabilities"]["hoverProvider"])
        client.notify("initialized")
        self.assertEqual(client.ask("textDocument/hover", number=1)["result"]["contents"]["value"], "a hover text")
        self.assertEqual(client.ask("completionItem/resolve", {"label": "alpha"}, 2)["result"]["label"], "alpha")
        self.assertEqual(client.ask("other/thing", number="text")["error"]["code"], -32601)
        self.assertEqual(client.ask("shutdown", number=3), {"jsonrpc": "2.0", "id": 3, "result": None})
        client.notify("exit")
        self.assertEqual(client.exit_code(), 0)

    def test_ends_with_1_when_told_to_exit_before_shutdown(self):
        client = Client(self)
        client.notify("exit")
        self.assertEqual(client.exit_code(), 1)

    def test_ends_when_the_client_closes(self):
        client = Client(self)
        client.socket.close()
        self.assertEqual(client.exit_code(), 0)
        self.assertEqual(client.events(), ["started", "connected", "closed", "exit"])

    def test_answers_one_method_otherwise_and_the_rest_as_ever(self):
        client = Client(self, {"on": {"textDocument/hover": [{"respond": {"error": {"code": 5, "message": "no"}}}],
                                      "textDocument/completion": []}})
        self.assertEqual(client.ask("textDocument/hover", number=4),
                         {"jsonrpc": "2.0", "id": 4, "error": {"code": 5, "message": "no"}})
        client.request("textDocument/completion", number=5)
        self.assertEqual(client.ask("shutdown", number=6)["id"], 6)

    def test_answers_late_twice_and_in_another_order(self):
        client = Client(self, {"steps": [
            {"expect": "first", "as": "one"}, {"expect": "first", "as": "two"}, {"expect": "released"},
            {"respond": {"result": 2}, "to": "two"}, {"respond": {"result": 1}, "to": "one"},
            {"respond": {"result": 0}, "to": "first", "repeat": 2}]})
        client.request("first", number=10)
        client.request("first", number=11)
        self.assertEqual(client.ask("textDocument/hover", number=12)["id"], 12)
        client.notify("released")
        answers = [client.read_message() for _ in range(4)]
        self.assertEqual([(answer["id"], answer["result"]) for answer in answers], [(11, 2), (10, 1), (11, 0), (11, 0)])

    def test_answers_with_ids_that_nobody_gave(self):
        client = Client(self, {"on": {"shutdown": [{"respond": {"id": strange, "result": None}}
                                                   for strange in (None, "text", 99, 1.5, {}, True)]}})
        client.request("shutdown", number=1)
        self.assertEqual([client.read_message()["id"] for _ in range(6)], [None, "text", 99, 1.5, {}, True])

    def test_asks_and_takes_the_answer(self):
        client = Client(self, {"steps": [
            {"request": "workspace/configuration", "id": "c", "params": {"items": [{"section": "python"}]}},
            {"expect": {"id": "c"}}, {"notify": "window/logMessage", "params": {"type": 3, "message": "taken"}}]})
        self.assertEqual(client.read_message()["params"], {"items": [{"section": "python"}]})
        client.request("shutdown", number="c")  # the same id, but no answer
        self.assertEqual(client.read_message()["result"], None)
        client.send({"jsonrpc": "2.0", "id": "c", "result": [None]})
        self.assertEqual(client.read_message()["params"]["message"], "taken")

    def test_waits_for_a_file(self):
        client = Client(self, {"steps": [{"await": "go"}, {"notify": "went"}]})
        client.request("shutdown")
        client.wait_for("received")
        self.assertNotIn("sent", client.events())
        (client.folder / "go").touch()
        self.assertEqual(client.read_message()["method"], "went")
        self.assertEqual(client.read_message()["id"], 0)

    def test_writes_headers_and_bodies_as_told(self):
        for step, expected in (
                ({"send": [1, "é"]}, b'Content-Length: 8\r\n\r\n[1,"\xc3\xa9"]'),
                ({"send": None}, b"Content-Length: 4\r\n\r\nnull"),
                ({"body": "no {JSON"}, b"Content-Length: 8\r\n\r\nno {JSON"),
                ({"body": "abc", "header": "Content-Length: -1\r\n\r\n"}, b"Content-Length: -1\r\n\r\nabc"),
                ({"body": "abc", "header": "X: y\r\nContent-Length: 2\r\nContent-Length: {length}\r\n\r\n"},
                 b"X: y\r\nContent-Length: 2\r\nContent-Length: 3\r\n\r\nabc"),
                ({"body": "abc", "header": ""}, b"abc"),
                ({"body": "abc", "first": 20}, b"Content-Length: 3\r\n\r"),
                ({"raw": "Content-Length: x\r\n\r\n{pad}", "pad": 2}, b"Content-Length: x\r\n\r\nxx"),
                ({"raw": [0, 255, 10]}, b"\0\xff\n"),
                ({"raw": "{n};", "repeat": 12}, b"0;1;2;3;4;5;6;7;8;9;10;11;"),
                ({"together": [{"raw": "a{n}"}, {"body": "b"}], "cut": [1, 2]}, b"a{n}Content-Length: 1\r\n\r\nb")):
            with self.subTest(step=step):
                self.assertEqual(self.written(step), expected)

    def test_cuts_at_the_given_sizes(self):
        self.assertEqual(wire.pieces(b"abcde", None), [b"abcde"])
        self.assertEqual(wire.pieces(b"abcde", 2), [b"ab", b"cd", b"e"])
        self.assertEqual(wire.pieces(b"abcde", [1, 3]), [b"a", b"bcd", b"e"])
        self.assertEqual(wire.pieces(b"abc", [2, 5]), [b"ab", b"c"])
        self.assertEqual(self.written({"raw": "abcd", "cut": 1, "delay": 0.001}), b"abcd")

    def test_waits_between_pieces(self):
        client = Client(self, {"steps": [{"raw": "abcd", "cut": 3, "delay": 10 * PATIENCE}]})
        self.assertEqual(client.read(3), b"abc")
        client.socket.settimeout(0.2)
        with self.assertRaises(socket.timeout):
            client.socket.recv(1)

    def test_writes_thousands_of_frames_at_once(self):
        data = self.written({"notify": "n", "params": "{n}", "repeat": 5000})
        bodies = [json.loads(body) for _, body in wire.FrameReader().feed(data)]
        self.assertEqual([body["params"] for body in bodies], [str(number) for number in range(5000)])

    def test_writes_a_body_of_50_MB(self):
        data = self.written({"notify": "n", "params": "{pad}", "pad": 50_000_000})
        ((_, body),) = wire.FrameReader().feed(data)
        self.assertEqual(len(json.loads(body)["params"]), 50_000_000)

    def test_logs_what_it_received_to_the_byte(self):
        client = Client(self)
        client.socket.sendall(b'Content-Type: utf-8\r\nContent-Length: 16\r\n\r\n{ "method":"a" }')
        client.notify("exit")
        client.exit_code()
        log = client.log()
        self.assertEqual(log[0]["arguments"], [f"--socket={client.listener.getsockname()[1]}"])
        self.assertEqual(log[0]["pid"], client.process.pid)
        self.assertEqual(log[2], {"event": "received", "connection": 0, "body": '{ "method":"a" }',
                                  "header": "Content-Type: utf-8\r\nContent-Length: 16\r\n\r\n",
                                  "message": {"method": "a"}})
        self.assertEqual(log[-1], {"event": "exit", "code": 1})

    def test_logs_what_is_not_the_protocol(self):
        for data in (b"X: y\r\n\r\n", b"Content-Length: 1\r\nContent-Length: 1\r\n\r\n1", b"Content-Length: a\r\n\r\n",
                     b"content-length: 2\r\n\r\n{}", b"Content-Length: 3\r\n\r\n{]}"):
            with self.subTest(data=data):
                client = Client(self)
                client.socket.sendall(data)
                self.assertEqual(client.exit_code(), 0)
                self.assertIn("malformed", client.events())

    def test_ends_at_every_stage(self):
        for scenario, messages, code, data in (
                ({"start": [{"exit": 3}]}, None, 3, None),
                ({"start": [{"kill": "SIGKILL"}]}, None, -9, None),
                ({"steps": [{"exit": 0}]}, [], 0, b""),
                ({"on": {"initialize": [{"respond": {"result": {}}, "first": 30}, {"kill": "SIGSEGV"}]}},
                 ["initialize"], -signal.SIGSEGV, b'Content-Length: 36\r\n\r\n{"jsonrp'),
                ({"on": {"shutdown": [{"exit": 9}]}}, ["shutdown"], 9, b"")):
            with self.subTest(scenario=scenario):
                client = Client(self, scenario, accept=messages is not None)
                for method in messages or []:
                    client.request(method)
                if messages is not None:
                    self.assertEqual(client.read_all(), data)
                self.assertEqual(client.exit_code(), code)

    def test_stays_when_told_to_exit(self):
        client = Client(self, {"on": {"exit": []}})
        self.assertIsNone(client.ask("shutdown")["result"])
        client.notify("exit")
        self.assertIsNone(client.ask("shutdown")["result"])

    def test_stays_alive_without_a_connection(self):
        client = Client(self, {"steps": [{"close": "end"}, {"hang": True}]})
        self.assertEqual(client.read_all(), b"")
        client.wait_for("hanging")
        self.assertIsNone(client.process.poll())

    def test_can_reset_its_connection(self):
        client = Client(self, {"steps": [{"close": "reset"}, {"hang": True}]})
        with self.assertRaises(ConnectionResetError):
            client.read_all()

    def test_can_keep_silent_and_ignore_signals(self):
        client = Client(self, {"start": [{"ignore": ["SIGTERM", "SIGINT"]}, {"hang": True}]}, accept=False)
        client.wait_for("hanging")
        client.process.terminate()
        client.process.send_signal(signal.SIGINT)
        with self.assertRaises(subprocess.TimeoutExpired):
            client.process.wait(0.2)
        self.assertNotIn("connected", client.events())

    def test_opens_another_connection_and_writes_over_it(self):
        client = Client(self, {"steps": [{"open": True}, {"raw": "two", "over": 1}, {"raw": "one"}]})
        second = client.accept(self)
        self.assertEqual((second.recv(3), client.socket.recv(3)), (b"two", b"one"))
        second.close()
        self.assertEqual(client.wait_for("closed")["connection"], 1)
        self.assertEqual(client.ask("shutdown")["result"], None)

    def test_leaves_a_child_that_may_hold_the_connection(self):
        for sockets in (False, True):
            with self.subTest(sockets=sockets):
                client = Client(self, {"steps": [{"spawn": True, "sockets": sockets}, {"exit": 0}]})
                self.assertEqual(client.exit_code(), 0)
                child = client.wait_for("spawned")["pid"]
                self.addCleanup(lambda pid=child: os.kill(pid, signal.SIGKILL))
                self.assertIn(b"sleep", Path(f"/proc/{child}/cmdline").read_bytes())
                client.socket.settimeout(0.2)
                if sockets:
                    with self.assertRaises(socket.timeout):
                        client.socket.recv(1)
                else:
                    self.assertEqual(client.socket.recv(1), b"")

    def test_prints(self):
        client = Client(self, {"steps": [{"print": "out"}, {"print": "err", "stream": "stderr", "repeat": 2},
                                         {"exit": 0}]})
        self.assertEqual(client.process.communicate(timeout=PATIENCE), (b"out", b"errerr"))

    def test_refuses_a_scenario_that_it_does_not_understand(self):
        for scenario, text in (
                ("no such file", "No such file"),
                ("{", "Expecting"),
                ({"stepz": []}, "a scenario has no stepz"),
                ({"steps": [{"expct": "a"}]}, "steps[0]: no step here is called expct"),
                ({"on": {"a": [{"exit": "b"}]}}, 'on a[0]: exit cannot be "b"'),
                ({"steps": [{"raw": "a", "header": ""}]}, "steps[0]: raw has no option header"),
                ({"steps": [{"raw": "a", "cut": "b"}]}, 'steps[0]: cut cannot be "b"'),
                ({"steps": [{"together": [{"exit": 1}]}]}, "steps[0][0]: no step here is called exit"),
                ({"steps": [{"kill": "SIGNO"}]}, "steps[0]: kill is none of"),
                ({"steps": [{"ignore": ["a"]}]}, "steps[0]: not names of signals"),
                ({"steps": [{}]}, "steps[0]: not a step")):
            with self.subTest(scenario=scenario):
                client = Client(self, scenario, accept=False)
                _, error = client.process.communicate(timeout=PATIENCE)
                self.assertIn(text, error.decode())
                self.assertEqual(client.exit_code(), 2)

    def test_says_what_it_cannot_play(self):
        client = Client(self, {"steps": [{"respond": {}, "to": "nobody"}]})
        self.assertEqual(client.exit_code(), 2)
        self.assertIn("nobody", client.wait_for("mistake")["text"])

    def test_takes_one_argument_only(self):
        for arguments in (["--stdio"], ["--socket=1", "more"], ["--socket="]):
            with self.subTest(arguments=arguments):
                client = Client(self, accept=False, arguments=arguments)
                self.assertEqual(client.exit_code(), 2)
                self.assertEqual(client.log()[0]["arguments"], arguments)


if __name__ == "__main__":
    unittest.main()
