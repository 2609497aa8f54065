#!/usr/bin/env python3
"""A language server for tests that does what a scenario says: README.md beside this file has the table of steps.

A client starts it as it starts any server, with --socket=PORT and nothing else. The scenario is in the environment
variable SCRIPTED_SERVER, as JSON text or as the name of a file. To add a step: a row in scenario.py, an operation
do_NAME here, a row in README.md."""

import json
import os
import queue
import re
import resource
import signal
import subprocess
import sys
import time

sys.dont_write_bytecode = True
import scenario as scenarios  # noqa: E402
import wire  # noqa: E402

LIFETIME = 300  # seconds after which a server that everybody forgot ends itself
METHOD_NOT_FOUND = -32601


class Log:
    """A JSON object a line. Each is one write at the end of the file, so lines of threads and processes stay whole."""

    def __init__(self, path):
        self.folder = os.path.dirname(path or "")
        self.file = os.open(path, os.O_WRONLY | os.O_CREAT | os.O_APPEND, 0o666) if path else None

    def __call__(self, event, **fields):
        if self.file is not None:
            os.write(self.file, json.dumps({"event": event, **fields}).encode() + b"\n")


def is_set_up(process):
    """Whether a new process shows its environment, by which tests know it; for a moment after its start it does not."""
    with open(f"/proc/{process}/environ", "rb") as file:
        return file.read() != b""


class Player:
    def __init__(self, scenario, port, log):
        self.scenario = scenario
        self.port = port
        self.log = log
        self.connections = []
        self.inbox = queue.SimpleQueue()
        self.current = None  # the message that "respond" answers
        self.messages = {}  # the last one of each method, and those that a step named
        self.gathered = None  # what the steps inside "together" wrote
        with open(os.path.join(os.path.dirname(__file__), "answers.json"), encoding="utf-8") as file:
            self.answers = json.load(file)

    def run(self):
        self.play(self.scenario["start"])
        self.do_open()
        self.play(self.scenario["steps"])
        while True:
            self.handle(self.next_message())

    def play(self, steps):
        for step in steps:
            getattr(self, "do_" + scenarios.name_of(step))(step)

    def end(self, code, event="exit", **fields):
        self.log(event, code=code, **fields)
        sys.stdout.flush()
        os._exit(code)

    # what comes in

    def next_message(self):
        """The next message of the client. When the client has closed the connection, the server ends."""
        message = self.inbox.get()
        if message is None:
            self.end(0)
        if isinstance(message, dict) and "method" in message:
            self.messages[message["method"]] = message
        return message

    def handle(self, message):
        """Does for a message what the scenario says, or else what a server does that behaves well."""
        method = message.get("method") if isinstance(message, dict) else None
        outer, self.current = self.current, message
        if method in self.scenario["on"]:
            self.play(self.scenario["on"][method])
        elif method == "exit":
            self.end(0 if "shutdown" in self.messages else 1)
        elif method is not None and "id" in message:
            self.do_respond({"respond": self.answer_to(message)})
        self.current = outer

    def answer_to(self, message):
        method = message["method"]
        if method not in self.answers:
            return {"error": {"code": METHOD_NOT_FOUND, "message": "no such method: " + method}}
        if method == "completionItem/resolve":
            return {"result": {**message["params"], **self.answers[method]}}
        return {"result": self.answers[method]}

    def do_expect(self, step):
        wanted = step["expect"]
        wanted = {"method": wanted} if isinstance(wanted, str) else {"method": None, **wanted}
        while True:
            message = self.next_message()
            if isinstance(message, dict) and all(message.get(key) == value for key, value in wanted.items()):
                break
            self.handle(message)
        self.current = message
        if "as" in step:
            self.messages[step["as"]] = message

    # what goes out

    def emit(self, data, step):
        if self.gathered is not None:
            self.gathered += data
            return
        connection = self.connections[step.get("over", 0)]
        connection.write(data[:step.get("first", len(data))], step.get("cut"), step.get("delay", 0))

    def emit_frames(self, body, step):
        options = {key: step[key] for key in ("header", "repeat", "pad") if key in step}
        self.emit(wire.frames(body, **options), step)

    def do_respond(self, step):
        request = self.messages[step["to"]] if "to" in step else self.current
        self.emit_frames(wire.body_of({"jsonrpc": "2.0", "id": request.get("id"), **step["respond"]}), step)

    def do_send(self, step):
        self.emit_frames(wire.body_of(step["send"]), step)

    def do_notify(self, step):
        self.emit_frames(wire.body_of({"jsonrpc": "2.0", "method": step["notify"], "params": step.get("params", {})}),
                         step)

    def do_request(self, step):
        self.emit_frames(wire.body_of({"jsonrpc": "2.0", "id": step.get("id", 1), "method": step["request"],
                                       "params": step.get("params", {})}), step)

    def do_body(self, step):
        self.emit_frames(step["body"].encode(), step)

    def do_raw(self, step):
        data = step["raw"].encode() if isinstance(step["raw"], str) else bytes(step["raw"])
        self.emit(wire.frames(data, header="", repeat=step.get("repeat"), pad=step.get("pad", 0)), step)

    def do_together(self, step):
        self.gathered = bytearray()
        self.play(step["together"])
        data, self.gathered = bytes(self.gathered), None
        self.emit(data, step)

    def do_print(self, step):
        stream = getattr(sys, step.get("stream", "stdout"))
        stream.write(step["print"] * step.get("repeat", 1))
        stream.flush()

    # time, connections and processes

    def do_sleep(self, step):
        time.sleep(step["sleep"])

    def do_await(self, step):
        path = os.path.join(self.log.folder, step["await"])
        while not os.path.exists(path):
            time.sleep(0.002)

    def do_hang(self, _step):
        self.log("hanging")
        while True:
            time.sleep(LIFETIME)

    def do_open(self, _step=None):
        number = len(self.connections)
        hand_on = self.inbox.put if number == 0 else lambda message: None  # the others are only logged
        self.connections.append(wire.Connection(self.port, number, self.log, hand_on))

    def do_close(self, step):
        self.connections[step.get("over", 0)].close(step["close"])

    def do_exit(self, step):
        self.end(step["exit"])

    def do_kill(self, step):
        self.log("kill", signal=step["kill"])
        os.kill(os.getpid(), signal.Signals[step["kill"]])

    def do_ignore(self, step):
        for name in step["ignore"]:
            signal.signal(signal.Signals[name], signal.SIG_IGN)
        self.log("ignoring", signals=step["ignore"])

    def do_spawn(self, step):
        sockets = [connection.socket.fileno() for connection in self.connections] if step.get("sockets") else []
        # what this process ignores, the child ignores too; it holds the same standard streams
        child = subprocess.Popen(["sleep", str(LIFETIME)], stdin=subprocess.DEVNULL, pass_fds=sockets)
        while child.poll() is None and not is_set_up(child.pid):
            time.sleep(0.001)
        self.log("spawned", pid=child.pid)


def main():
    signal.alarm(LIFETIME)
    resource.setrlimit(resource.RLIMIT_CORE, (0, 0))
    try:
        scenario = scenarios.read_scenario(os.environ.get("SCRIPTED_SERVER", ""))
    except scenarios.WrongScenario as error:
        print(f"scripted server: {error}", file=sys.stderr)
        sys.exit(2)
    log = Log(scenario.get("log"))
    log("started", pid=os.getpid(), arguments=sys.argv[1:])
    match = re.fullmatch(r"--socket=(\d+)", sys.argv[1]) if len(sys.argv) == 2 else None
    player = Player(scenario, int(match.group(1)) if match else 0, log)
    if not match:
        print("scripted server: one argument is expected, --socket=PORT", file=sys.stderr)
        player.end(2)
    try:
        player.run()
    except OSError as error:  # the client is not there, or no longer
        player.end(1, "lost", text=str(error))
    except (KeyError, IndexError, TypeError, ValueError) as error:
        print(f"scripted server: the scenario cannot be played: {error!r}", file=sys.stderr)
        player.end(2, "mistake", text=repr(error))


if __name__ == "__main__":
    main()
