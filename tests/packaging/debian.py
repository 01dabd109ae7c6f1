#!/usr/bin/env python3
"""Makes the Debian package of a build and has lintian look at it: debian.py BUILD_FOLDER"""
import pathlib
import shutil
import subprocess
import sys
import tempfile


def main():
    build = pathlib.Path(sys.argv[1]).resolve()
    with tempfile.TemporaryDirectory(prefix="package-") as folder:
        subprocess.run([shutil.which("cpack"), "-G", "DEB", "--config", build / "CPackConfig.cmake", "-B", folder], check=True,
                       cwd=build, stdout=subprocess.DEVNULL)
        package = next(pathlib.Path(folder).glob("*.deb"))
        depends = subprocess.run(["dpkg-deb", "-f", package, "Depends"], check=True, capture_output=True, text=True).stdout
        for library in ("libqt5widgets5", "libqt5charts5", "libqt5svg5", "libzip4", "libgsf-1-114", "libc6"):
            assert library in depends, f"{library} isn't among the dependencies: {depends}"
        return subprocess.run(["lintian", "--allow-root", "--fail-on", "error", package], check=False).returncode


sys.exit(main())
