"""A stand-in for the agent on the loopback port: it accepts connections and records the requests."""

import collections
import socket
import threading

ADDRESS = ("127.0.0.1", 18484)

Request = collections.namedtuple("Request", "method target host content_type content_length body")


def reload(path):
    """The request that announces a change, in the exact form that the agent relies on."""
    return Request("POST", path, "127.0.0.1:18484", "application/json", "2", b"{}")


class Agent:
    """Listens from creation to close(). `answer` is sent after each request, `delay` seconds later; None sends nothing.
    With `hangs_up` the agent closes the connection after each request."""

    OK = b"HTTP/1.1 200 OK\r\nContent-Length: 2\r\nContent-Type: application/json\r\n\r\n{}"

    def __init__(self, answer=OK, delay=0, hangs_up=False):
        self._answer = answer
        self._delay = delay
        self._hangs_up = hangs_up
        self._requests = []
        self._lock = threading.Lock()
        self._closed = threading.Event()
        self._connections = []
        self._listener = socket.create_server(ADDRESS, backlog=128)
        threading.Thread(target=self._accept, daemon=True).start()

    @property
    def requests(self):
        with self._lock:
            return list(self._requests)

    @property
    def targets(self):
        return [request.target for request in self.requests]

    def close(self):
        """Stops listening and closes all connections."""
        if self._listener.fileno() < 0:
            return
        self._closed.set()
        self._listener.shutdown(socket.SHUT_RDWR)
        self._listener.close()
        with self._lock:
            for connection in self._connections:
                connection.close()

    def _accept(self):
        while True:
            try:
                connection, _ = self._listener.accept()
            except OSError:
                return
            with self._lock:
                self._connections.append(connection)
            threading.Thread(target=self._serve, args=(connection,), daemon=True).start()

    def _serve(self, connection):
        try:
            stream = connection.makefile("rb")
            while self._read_request(stream):
                self._closed.wait(self._delay)  # interrupted by close()
                if self._answer is not None:
                    connection.sendall(self._answer)
                if self._hangs_up:
                    connection.shutdown(socket.SHUT_RDWR)
        except (OSError, ValueError):
            pass

    def _read_request(self, stream):
        first = stream.readline()
        if not first:
            return False
        method, target, _ = first.decode("latin-1").split(" ", 2)
        fields = {}
        while (line := stream.readline().decode("latin-1").strip()):
            name, _, value = line.partition(":")
            fields[name.lower()] = value.strip()
        body = stream.read(int(fields.get("content-length", 0)))
        request = Request(method, target, fields.get("host"), fields.get("content-type"),
                          fields.get("content-length"), body)
        with self._lock:
            self._requests.append(request)
        return True
