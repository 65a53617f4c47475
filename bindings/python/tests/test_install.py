"""pip installs the package offline into a folder, from which it imports.

QVA_BINDING_SOURCE (set by CTest) is the package's source folder.
"""

import os
import shutil
import subprocess
import sys
import tempfile
import unittest


class InstallTest(unittest.TestCase):
    def test_pip_install_into_target(self) -> None:
        with tempfile.TemporaryDirectory() as tmp:
            src = os.path.join(tmp, "src")
            shutil.copytree(os.environ["QVA_BINDING_SOURCE"], src,
                            ignore=shutil.ignore_patterns("tests", "*.egg-info", "build", "__pycache__"))
            target = os.path.join(tmp, "target")
            subprocess.run([sys.executable, "-m", "pip", "install", "-q", "--root-user-action", "ignore", "--no-build-isolation", "--no-deps",
                            "--no-index", "--target", target, src], check=True)
            out = subprocess.run([sys.executable, "-c", "import qvaclient; print(qvaclient.__file__)"], cwd=tmp,
                                 env=dict(os.environ, PYTHONPATH=target), check=True, capture_output=True,
                                 text=True).stdout
            self.assertTrue(out.strip().startswith(target), out)
            self.assertTrue(os.path.exists(os.path.join(target, "qvaclient", "py.typed")))


if __name__ == "__main__":
    unittest.main()
