"""ctypes binding of libqvaclient, the certificate-validation client.

    from qvaclient import Client

    with Client("127.0.0.1", 9000, "user01") as client:
        result = client.verify("CERT", der_bytes)
        if not result.ok:
            print(result.code, result.general, result.detail)

The shared library is found by the ``library`` argument, else the
environment variable ``QVA_CLIENT_LIBRARY``, else ``ctypes.util.find_library``.
"""

from __future__ import annotations

import ctypes
import ctypes.util
import os
import threading
from dataclasses import dataclass
from typing import Dict, Optional, Union

__all__ = ["Client", "Result", "QVAError", "load_library", "LIBRARY_ENV", "MISUSE"]

#: Environment variable naming the shared library's path.
LIBRARY_ENV = "QVA_CLIENT_LIBRARY"
#: Result of a call with a null argument or a too small text buffer.
MISUSE = 2000

# Library texts are CP949; a server's texts are passed through as received,
# so bytes that are not CP949 are replaced rather than raising.
_ENCODING = "cp949"
_FIRST_BUFFER = 4096
# The getters do not report the length they need; doubling stops here so a
# broken library cannot make us allocate without bound.
_MAX_BUFFER = 16 * 1024 * 1024
_INT_MAX = 2**31 - 1

_loaded: Dict[str, ctypes.CDLL] = {}
_lock = threading.Lock()


class QVAError(Exception):
    """A call the library refused (null handle, bad buffer) or could not do."""

    def __init__(self, message: str, code: Optional[int] = None) -> None:
        super().__init__(message if code is None else f"{message} ({code})")
        self.code = code


@dataclass(frozen=True)
class Result:
    """The outcome of one request: 0 when the server accepted it.

    ``general`` is set for a failed request only; ``detail`` holds the
    failing layers or the server's own explanation. The ``*_bytes`` fields
    hold the texts exactly as the library returned them.
    """

    code: int
    general: str
    detail: str
    general_bytes: bytes = b""
    detail_bytes: bytes = b""

    @property
    def ok(self) -> bool:
        return self.code == 0


def _declare(lib: ctypes.CDLL) -> ctypes.CDLL:
    vp, cp, ip = ctypes.c_void_p, ctypes.c_char_p, ctypes.c_int
    lib.QVA_Initialize.argtypes = [ctypes.POINTER(vp), cp, ip, cp]
    lib.QVA_Verify.argtypes = [vp, cp, ctypes.c_char_p, ip]
    lib.QVA_RegisterCert.argtypes = [vp, ctypes.c_char_p, ip]
    lib.QVA_FreeItem.argtypes = [ctypes.POINTER(vp)]
    lib.QVA_GetGeneralErrorMsg.argtypes = [vp, ctypes.c_char_p, ctypes.POINTER(ip)]
    lib.QVA_GetDetailErrorMsg.argtypes = [vp, ctypes.c_char_p, ctypes.POINTER(ip)]
    lib.QVA_Release.argtypes = [vp]
    for name in ("QVA_Initialize", "QVA_Verify", "QVA_RegisterCert", "QVA_FreeItem",
                 "QVA_GetGeneralErrorMsg", "QVA_GetDetailErrorMsg", "QVA_Release"):
        getattr(lib, name).restype = ip
    return lib


def load_library(path: Optional[str] = None) -> ctypes.CDLL:
    """Loads libqvaclient: ``path``, else $QVA_CLIENT_LIBRARY, else the system's search."""
    path = path or os.environ.get(LIBRARY_ENV) or ctypes.util.find_library("qvaclient")
    if not path:
        raise QVAError(f"libqvaclient not found: pass library=, set {LIBRARY_ENV} or install it")
    with _lock:
        if path not in _loaded:
            try:
                _loaded[path] = _declare(ctypes.CDLL(path))
            except (OSError, AttributeError) as e:
                raise QVAError(f"cannot load {path}: {e}") from e
        return _loaded[path]


def _text(value: Union[str, bytes, None]) -> Optional[bytes]:
    if value is None or isinstance(value, bytes):
        return value
    return value.encode(_ENCODING)


def _length(data: Optional[bytes]) -> int:
    if data is None:
        return 0
    # The library takes an int length: refuse what it cannot describe.
    if len(data) > _INT_MAX:
        raise ValueError("data longer than 2 GiB - 1")
    return len(data)


class Client:
    """One handle of libqvaclient for one validation server.

    Use it as a context manager, or call :meth:`close`. Each request opens
    its own connection; a Client is used by one thread at a time.
    """

    def __init__(self, host: str, port: int, roaming_id: Union[str, bytes] = "",
                 library: Optional[str] = None) -> None:
        self._lib = load_library(library)
        handle = ctypes.c_void_p()
        rc = self._lib.QVA_Initialize(ctypes.byref(handle), host.encode("utf-8"), int(port), _text(roaming_id))
        if rc != 0:
            raise QVAError("QVA_Initialize failed", rc)
        self._handle: Optional[int] = handle.value

    def __enter__(self) -> "Client":
        return self

    def __exit__(self, *exc: object) -> None:
        self.close()

    def __del__(self) -> None:
        try:
            self.close()
        except Exception:
            pass

    def close(self) -> None:
        """Releases the handle; later requests raise QVAError."""
        handle, self._handle = getattr(self, "_handle", None), None
        if handle is not None:
            self._lib.QVA_Release(handle)

    def verify(self, first_item: Union[str, bytes, None], data: bytes) -> Result:
        """Sends a validation request with ``first_item`` (e.g. "CERT") and ``data``."""
        rc = self._lib.QVA_Verify(self._handle, _text(first_item), data, _length(data))
        return self._result(rc, "QVA_Verify", data)

    def register(self, cert: bytes) -> Result:
        """Sends a DER certificate for registration."""
        rc = self._lib.QVA_RegisterCert(self._handle, cert, _length(cert))
        return self._result(rc, "QVA_RegisterCert", cert)

    def _result(self, rc: int, what: str, data: Optional[bytes]) -> Result:
        # The library answers a null handle or null data with 2000 and touches
        # no text; any other 2000 is a server's own result.
        if rc == MISUSE and (self._handle is None or data is None):
            raise QVAError(f"{what} on a closed client" if self._handle is None else f"{what} without data", rc)
        detail = self._get(self._lib.QVA_GetDetailErrorMsg)
        # The general text outlives a later success, so it belongs to failures only.
        general = self._get(self._lib.QVA_GetGeneralErrorMsg) if rc != 0 else b""
        return Result(rc, general.decode(_ENCODING, "replace"), detail.decode(_ENCODING, "replace"),
                      general, detail)

    def _get(self, getter: ctypes._CFuncPtr) -> bytes:  # type: ignore[name-defined]
        size = _FIRST_BUFFER
        while True:
            buf = ctypes.create_string_buffer(size)
            n = ctypes.c_int(size)
            rc = getter(self._handle, buf, ctypes.byref(n))
            if rc == 0:
                return buf.raw[: n.value]
            if rc != MISUSE or size >= _MAX_BUFFER:
                raise QVAError(f"{getter.__name__} failed", rc)
            size *= 2
