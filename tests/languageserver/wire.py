"""The base protocol as the scripted server speaks it: frames that it writes, whole or damaged, and a strict reader of
the frames that the client writes."""

import json
import re
import socket
import threading
import time

HEADER = "Content-Length: {length}\r\n\r\n"
LENGTH = re.compile(rb"Content-Length: (\d+)")


class Malformed(Exception):
    """What the client wrote is not the base protocol."""


def body_of(message):
    return json.dumps(message, ensure_ascii=False, separators=(",", ":")).encode()


def frames(body, header=HEADER, repeat=None, pad=0):
    """The bytes of a message: its header, in which {length} stands for the length of the body, and the body. {pad} in
    the body becomes so many letters. With a number to repeat, {n} in the body counts the copies from 0."""
    body = body.replace(b"{pad}", b"x" * pad)
    copies = [body] if repeat is None else [body.replace(b"{n}", b"%d" % number) for number in range(repeat)]
    return b"".join(header.replace("{length}", str(len(copy))).encode() + copy for copy in copies)


def pieces(data, cut):
    """Data in pieces: all of one size for a number; of these sizes, and then the rest, for a list."""
    if not cut:
        return [data]
    if isinstance(cut, int):
        return [data[start:start + cut] for start in range(0, len(data), cut)]
    found, start = [], 0
    for size in cut:
        found.append(data[start:start + size])
        start += size
    return [piece for piece in found + [data[start:]] if piece]


class FrameReader:
    """Cuts a stream into frames. Takes what the protocol allows and nothing else, so that a test sees each slip."""

    def __init__(self):
        self.pending = bytearray()

    def feed(self, data):
        """Yields the header block and the body of each frame that is complete now."""
        self.pending += data
        while (end := self.pending.find(b"\r\n\r\n") + 4) > 3:
            header = bytes(self.pending[:end])
            length = self.length_in(header)
            if len(self.pending) < end + length:
                return
            body = bytes(self.pending[end:end + length])
            del self.pending[:end + length]
            yield header, body

    @staticmethod
    def length_in(header):
        lengths = []
        for line in header[:-4].split(b"\r\n"):
            match = LENGTH.fullmatch(line)
            if match:
                lengths.append(int(match.group(1)))
            elif not line.startswith(b"Content-Type: "):
                raise Malformed(f"header line {line!r}")
        if len(lengths) != 1:
            raise Malformed(f"{len(lengths)} lengths in {header!r}")
        return lengths[0]


class Connection:
    """A connection to the client. A thread of its own reads all the time, so that neither end ever blocks the other:
    it logs what arrives, in the order of arrival, and hands it on; None says that the connection has ended."""

    def __init__(self, port, number, log, hand_on):
        self.number = number
        self.log = log
        self.hand_on = hand_on
        self.closing = False
        self.socket = socket.create_connection(("127.0.0.1", port))
        self.socket.setsockopt(socket.IPPROTO_TCP, socket.TCP_NODELAY, 1)  # each piece leaves as it is written
        log("connected", connection=number)
        self.reader = threading.Thread(target=self.read, daemon=True)
        self.reader.start()

    def read(self):
        how = "end"
        try:
            frame_reader = FrameReader()
            while data := self.socket.recv(1 << 16):
                for header, body in frame_reader.feed(data):
                    self.take(header.decode("latin-1"), body)
        except Malformed as error:
            how = "malformed"
            self.log("malformed", connection=self.number, text=str(error))
        except OSError:
            how = "reset"
        if not self.closing:
            self.log("closed", connection=self.number, how=how)
        self.hand_on(None)

    def take(self, header, body):
        text = body.decode(errors="backslashreplace")
        try:
            message = json.loads(body)
        except ValueError:
            raise Malformed(f"body {text[:200]}") from None
        self.log("received", connection=self.number, header=header, body=text, message=message)
        self.hand_on(message)

    def write(self, data, cut=None, delay=0):
        self.log("sent", connection=self.number, bytes=len(data), start=data[:200].decode("latin-1"))
        for number, piece in enumerate(pieces(data, cut)):
            if number:
                time.sleep(delay)
            self.socket.sendall(piece)

    def close(self, how):
        """Ends the connection: "end" as one that is done, "reset" as one whose process is gone from its host."""
        self.closing = True
        self.log("closing", connection=self.number, how=how)
        self.socket.shutdown(socket.SHUT_RD if how == "reset" else socket.SHUT_RDWR)  # wakes the reader
        self.reader.join()
        if how == "reset":
            self.socket.setsockopt(socket.SOL_SOCKET, socket.SO_LINGER, b"\1\0\0\0\0\0\0\0")
        self.socket.close()
