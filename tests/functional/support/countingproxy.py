"""Stands between program and database server, and counts how often the program waits for an answer."""

import os
import socket
import struct
import threading

NAME = ".s.PGSQL.5432"  # of a server's socket in its directory


class CountingProxy:
    """Its directory stands for the server's in an address."""

    def __init__(self, directory, server_directory):
        self.directory = str(directory)
        self._server = os.path.join(server_directory, NAME)
        os.makedirs(self.directory, exist_ok=True)
        self._listener = socket.socket(socket.AF_UNIX, socket.SOCK_STREAM)
        self._listener.bind(os.path.join(self.directory, NAME))
        self._listener.listen()
        self._lock = threading.Lock()
        self._trips = 0
        threading.Thread(target=self._serve, daemon=True).start()

    def trips(self):
        """Since the last time that somebody asked: what is sent in one go and waited for is one."""
        with self._lock:
            trips, self._trips = self._trips, 0
            return trips

    def close(self):
        self._listener.close()

    def _serve(self):
        while True:
            try:
                client, _ = self._listener.accept()
            except OSError:
                return
            server = socket.socket(socket.AF_UNIX, socket.SOCK_STREAM)
            server.connect(self._server)
            threading.Thread(target=self._forward, args=(client, server, True), daemon=True).start()
            threading.Thread(target=self._forward, args=(server, client, False), daemon=True).start()

    def _forward(self, source, target, counts):
        messages = b""
        begun = False
        try:
            while data := source.recv(65536):
                if counts:
                    messages, begun = self._count(messages + data, begun)
                target.sendall(data)
        except OSError:
            pass
        for each in (source, target):
            try:
                each.shutdown(socket.SHUT_RDWR)
            except OSError:
                pass

    def _count(self, data, begun):
        """What is left of data behind its whole messages. The first one has no kind; the end of what is sent in one go is
        marked by S, a statement sent by itself is Q."""
        while True:
            head = 1 if begun else 0
            if len(data) < head + 4:
                return data, begun
            length = head + struct.unpack_from(">I", data, head)[0]
            if len(data) < length:
                return data, begun
            if begun and data[:1] in (b"S", b"Q"):
                with self._lock:
                    self._trips += 1
            data, begun = data[length:], True
