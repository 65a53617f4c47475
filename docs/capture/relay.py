# Loopback relay used to capture the traffic shown in docs/protocol.md:
#   python3 relay.py LISTEN_PORT SERVER_PORT LOGFILE
# accepts one client on 127.0.0.1, forwards both ways to the server, and
# writes each forwarded chunk as "C>S hex" or "S>C hex".
import socket, sys, threading
lport, rport, log = int(sys.argv[1]), int(sys.argv[2]), sys.argv[3]
s = socket.socket(); s.setsockopt(socket.SOL_SOCKET, socket.SO_REUSEADDR, 1)
s.bind(("127.0.0.1", lport)); s.listen(1)
c, _ = s.accept()
u = socket.create_connection(("127.0.0.1", rport))
out = open(log, "w")
lock = threading.Lock()
def pump(a, b, tag):
    while True:
        d = a.recv(65536)
        if not d:
            try: b.shutdown(socket.SHUT_WR)
            except OSError: pass
            return
        with lock:
            out.write(tag + " " + d.hex() + "\n"); out.flush()
        b.sendall(d)
t = threading.Thread(target=pump, args=(u, c, "S>C")); t.start()
pump(c, u, "C>S"); t.join(); out.close()
