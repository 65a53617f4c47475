"""The binding against a real qva-server on loopback.

Environment (set by CTest): QVA_CLIENT_LIBRARY, QVA_SERVER, QVA_MAKE_PKI,
and QVA_MESSAGES_H, QVA_PKI_DIR.
"""

import codecs
import os
import re
import shutil
import socket
import subprocess
import tempfile
import threading
import unittest

from qvaclient import Client, QVAError, Result

ENV = os.environ


def message(name: str) -> bytes:
    """The bytes of a message constant of the messages header."""
    with open(ENV["QVA_MESSAGES_H"], encoding="utf-8") as f:
        m = re.search(r"\b%s\[\] = \"([^\"]*)\";" % name, f.read())
    assert m, name
    return codecs.escape_decode(m.group(1).encode("ascii"))[0]


def make_pki() -> str:
    pki = ENV["QVA_PKI_DIR"]
    if not os.path.exists(os.path.join(pki, "leaves", "revoked.der")):
        fresh = "%s.new.%d" % (pki, os.getpid())
        subprocess.run(["bash", ENV["QVA_MAKE_PKI"], fresh], check=True, stdout=subprocess.DEVNULL)
        shutil.rmtree(pki, ignore_errors=True)
        os.rename(fresh, pki)
    return pki


class Server:
    """A qva-server on a free loopback port, its output drained as it comes."""

    def __init__(self, pki: str, *extra: str) -> None:
        args = [ENV["QVA_SERVER"], "--port", "0", "--anchors", pki + "/anchors", "--intermediates",
                pki + "/intermediates", "--crls", pki + "/crls", "--policy", "1.2.410.200.1.1", *extra]
        self.proc = subprocess.Popen(args, stdout=subprocess.PIPE, text=True)
        m = re.match(r"listening on 127\.0\.0\.1:(\d+)", self.proc.stdout.readline())
        self.port = int(m.group(1)) if m else 0
        self.reader = threading.Thread(target=self.proc.stdout.read)
        self.reader.start()

    def stop(self) -> None:
        self.proc.terminate()
        self.proc.wait()
        self.reader.join()
        self.proc.stdout.close()


def leaf(pki: str, name: str) -> bytes:
    with open(os.path.join(pki, "leaves", name), "rb") as f:
        return f.read()


class ClientTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls) -> None:
        cls.pki = make_pki()
        cls.tmp = tempfile.mkdtemp()
        cls.server = Server(cls.pki, "--db", os.path.join(cls.tmp, "reg.db"))
        assert cls.server.port, "qva-server did not report its port"

    @classmethod
    def tearDownClass(cls) -> None:
        cls.server.stop()
        shutil.rmtree(cls.tmp)

    def test_verify_verdicts(self) -> None:
        general = message("kVerifyRequestFailed").decode("cp949")
        self.assertEqual(general, "검증데이터 요청에 실패하였습니다.")
        with Client("127.0.0.1", self.server.port, "user01") as client:
            ok = client.verify("CERT", leaf(self.pki, "valid.der"))
            self.assertIsInstance(ok, Result)
            self.assertEqual((ok.code, ok.general, ok.detail, ok.ok), (0, "", "", True))

            refused = client.verify("CERT", leaf(self.pki, "revoked.der"))
            self.assertTrue(5001 <= refused.code <= 5099, refused)
            self.assertEqual(refused.general, general)
            self.assertEqual(refused.general_bytes, message("kVerifyRequestFailed"))
            self.assertTrue(refused.detail.startswith(message("kSrvRevoked").decode("cp949") + " / "), refused.detail)
            self.assertEqual(refused.detail.encode("cp949"), refused.detail_bytes)
            with self.assertRaises(Exception):
                refused.code = 0  # frozen

            # A later success empties the detail; the general text is a failure's only.
            again = client.verify(b"CERT", leaf(self.pki, "valid.der"))
            self.assertEqual((again.code, again.general, again.detail), (0, "", ""))

    def test_register(self) -> None:
        with Client("127.0.0.1", self.server.port, b"user01") as client:
            self.assertEqual(client.register(leaf(self.pki, "valid.der")).code, 0)
            refused = client.register(leaf(self.pki, "revoked.der"))
            self.assertTrue(5001 <= refused.code <= 5099, refused)
            self.assertNotEqual(refused.detail, "")

    def test_unreachable_server(self) -> None:
        with socket.socket() as s:
            s.bind(("127.0.0.1", 0))
            port = s.getsockname()[1]
        with Client("127.0.0.1", port) as client:
            r = client.verify("CERT", b"x")
        self.assertEqual(r.code, 155)
        self.assertEqual(r.general_bytes, message("kVerifyRequestFailed"))
        self.assertIn("(155)", r.detail)

    def test_errors(self) -> None:
        client = Client("127.0.0.1", self.server.port)
        with self.assertRaises(QVAError) as e:
            client.verify("CERT", None)  # type: ignore[arg-type]
        self.assertEqual(e.exception.code, 2000)
        client.close()
        with self.assertRaises(QVAError) as e:
            client.register(b"x")
        self.assertEqual(e.exception.code, 2000)
        with self.assertRaises(QVAError):
            Client("127.0.0.1", 1, library=os.path.join(self.tmp, "no-such-library.so"))


if __name__ == "__main__":
    unittest.main()
