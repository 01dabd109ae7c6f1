#!/usr/bin/env python3
"""Installs a build into a scratch root and uses what is there: installed.py BUILD_FOLDER"""
import gzip
import os
import pathlib
import shutil
import subprocess
import sys
import tempfile
import xml.etree.ElementTree

FILES = """
bin/quillmere
share/applications/quillmere.desktop
share/mime/packages/quillmere.xml
share/metainfo/com.marlwick.Quillmere.metainfo.xml
share/icons/hicolor/scalable/apps/quillmere.svg
share/icons/hicolor/scalable/mimetypes/application-x-quillmere-transform.svg
share/man/man1/quillmere.1.gz
share/doc/quillmere/copyright
share/doc/quillmere/changelog.gz
share/doc/quillmere/LICENSE
share/quillmere/examples/clean-contacts.transform
share/quillmere/examples/contacts.csv
""".split() + [f"share/icons/hicolor/{side}x{side}/{name}.png" for side in (16, 22, 24, 32, 48, 64, 128, 256)
               for name in ("apps/quillmere", "mimetypes/application-x-quillmere-transform")]


def run(program, home, *arguments):
    environment = {k: v for k, v in os.environ.items() if k not in ("DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM")}
    environment.update(HOME=str(home), XDG_CONFIG_HOME=str(home), LC_ALL="C.UTF-8", TZ="UTC")
    return subprocess.run([program, *arguments], env=environment, cwd=home, capture_output=True, text=True, timeout=120)


def check_files(usr):
    for name in FILES:
        assert (usr / name).is_file(), f"{name} isn't installed"
        if name.endswith(".png"):
            data = (usr / name).read_bytes()
            side = int(name.split("/")[3].split("x")[0])
            assert data.startswith(b"\x89PNG") and int.from_bytes(data[16:20], "big") == side, f"{name} has another size"
    assert not (usr / "share/quillmere/examples/results").exists(), "what examples wrote is installed"


def check_names(usr):
    """The entries of menu, file type and AppStream data mean the same program, type and icons."""
    lines = (usr / "share/applications/quillmere.desktop").read_text(encoding="utf-8").splitlines()
    entry = dict(line.split("=", 1) for line in lines if "=" in line)
    mime = xml.etree.ElementTree.parse(usr / "share/mime/packages/quillmere.xml").getroot()[0].get("type")
    assert entry["Exec"] == "quillmere %f" and entry["Icon"] == "quillmere"
    assert entry["MimeType"] == mime + ";", entry["MimeType"]
    assert (usr / f"share/icons/hicolor/scalable/mimetypes/{mime.replace('/', '-')}.svg").is_file()
    component = xml.etree.ElementTree.parse(usr / "share/metainfo/com.marlwick.Quillmere.metainfo.xml").getroot()
    assert component.findtext("launchable") == "quillmere.desktop"
    assert component.findtext("provides/mediatype") == mime


def check_manual(usr, program, home):
    """Each option that the program names is in the man page."""
    manual = gzip.decompress((usr / "share/man/man1/quillmere.1.gz").read_bytes()).decode("utf-8").replace("\\-", "-")
    usage = run(program, home, "--help").stdout.splitlines()
    options = [line.split()[0].rstrip(",") for line in usage if line.startswith("  -")]
    assert len(options) > 10, usage
    missing = [option for option in options if option not in manual]
    assert not missing, f"the man page doesn't have {missing}"


def check_program(usr, home):
    program = usr / "bin/quillmere"
    answer = run(program, home, "--version")
    assert answer.returncode == 0 and answer.stdout.startswith("Quillmere "), answer
    check_manual(usr, program, home)
    # The installed examples are read where they are, and what they write goes elsewhere.
    result = run(program, home, str(usr / "share/quillmere/examples/merge-lists.transform"), "-cli", "-verbosity", "1",
                 "-file", f"orders_with_customer={home}/with.csv", "-file", f"orders_without_customer={home}/without.csv",
                 "-file", f"customers_without_orders={home}/customers.csv")
    assert result.returncode == 0, result
    written = (home / "without.csv").read_text(encoding="utf-8").splitlines()
    assert written[1:] == ["5105,2024-03-05,C-1017,Paper rolls,31.00", "5110,2024-03-07,,Price tags,9.90"], written


def main():
    build = pathlib.Path(sys.argv[1]).resolve()
    with tempfile.TemporaryDirectory(prefix="installed-") as folder:
        root = pathlib.Path(folder).resolve()
        (root / "home").mkdir()
        subprocess.run([shutil.which("cmake"), "--install", build, "--prefix", "/usr", "--strip"], check=True,
                       env=dict(os.environ, DESTDIR=str(root / "system")), stdout=subprocess.DEVNULL)
        usr = root / "system/usr"
        check_files(usr)
        check_names(usr)
        check_program(usr, root / "home")


main()
