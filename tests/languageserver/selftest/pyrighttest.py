#!/usr/bin/env python3
"""Starts the installed language server the way the client does and has it answer: it connects to the port that it is
given, says what it can do, and goes when told to."""

import json
import os
import socket
import subprocess
import sys
import unittest
from pathlib import Path

sys.dont_write_bytecode = True
sys.path.insert(0, str(Path(__file__).resolve().parent.parent))
import wire  # noqa: E402

PATIENCE = 60  # seconds


class Pyright(unittest.TestCase):
    def setUp(self):
        self.assertTrue(os.access(PROGRAM, os.X_OK),
                        f"{PROGRAM} is not installed: run scripts/install-language-server")

    def test_connects_and_answers(self):
        with socket.create_server(("127.0.0.1", 0)) as listener:
            listener.settimeout(PATIENCE)
            server = subprocess.Popen([PROGRAM, f"--socket={listener.getsockname()[1]}"])
            self.addCleanup(server.wait)
            self.addCleanup(server.kill)
            connection, _ = listener.accept()
        with connection:
            connection.settimeout(PATIENCE)
            messages = self.messages_of(connection)
            self.send(connection, id=0, method="initialize",
                      params={"processId": os.getpid(), "rootUri": None, "capabilities": {}})
            capabilities = self.answer(messages, 0)["result"]["capabilities"]
            for name in ("completionProvider", "hoverProvider", "signatureHelpProvider"):
                self.assertIn(name, capabilities)
            self.send(connection, method="initialized", params={})
            self.send(connection, id=1, method="shutdown")
            self.assertIsNone(self.answer(messages, 1)["result"])
            self.send(connection, method="exit")
            self.assertEqual(server.wait(PATIENCE), 0)

    @staticmethod
    def send(connection, **message):
        connection.sendall(wire.frames(wire.body_of({"jsonrpc": "2.0", **message})))

    @staticmethod
    def messages_of(connection):
        reader = wire.FrameReader()
        while data := connection.recv(1 << 16):
            for _, body in reader.feed(data):
                yield json.loads(body)

    @staticmethod
    def answer(messages, number):
        return next(message for message in messages if message.get("id") == number and "method" not in message)


if __name__ == "__main__":
    PROGRAM = sys.argv.pop(1)
    unittest.main()
