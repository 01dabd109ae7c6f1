#!/usr/bin/env python3
"""Runs one whole document with the real program and compares what it wrote, byte for byte.

run.py PROGRAM CASE_FOLDER [--record]

A case folder holds flow.transform, its input files, expected/ with each file that the run must write and nothing else,
expected/run.log (the log at verbosity 4, with times and the folder's path taken out), and, where they differ from the
usual, `arguments` (one more argument a line; {dir} is the folder) and `exit` (the exit code, 0 by default).
A case with a file `example` runs the document of examples/ that it names instead, with all that lies there and an empty
folder results; its folder then holds no flow.transform.
The document's paths begin with /flows/<case>/, its doc_path with them, so that opening it elsewhere finds the files
beside it. A document then.transform is run after it in the same folder, with then.log: it reads back what the first one
wrote. Workbooks that are written are expected to be there, and compared by what is read back; of pictures only their kind and size are. --record writes expected/ anew: review the difference before committing it."""
import os
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile

TIMES = [
    (re.compile(r"^(Started|Finished): .*$", re.M), r"\1: {when}"),
    (re.compile(r"^(Elapsed|Total elapsed): [0-9.,]+ second\(s\)$", re.M), r"\1: {time} second(s)"),
    (re.compile(r"( processed in )<?[0-9.e-]+ second\(s\)"), r"\1{time} second(s)"),
    (re.compile(r"(cols?, )<?[0-9.,e-]+ second\(s\)(, )"), r"\1{time} second(s)\2"),
    (re.compile(r"(points?, )<?[0-9.,e-]+ second\(s\)(, )"), r"\1{time} second(s)\2"),
]


def picture_kind(data):
    """What a picture is and, for PNG, how large: its pixels depend on the fonts that are installed."""
    if data.startswith(b"\x89PNG"):
        width, height = (int.from_bytes(data[at:at + 4], "big") for at in (16, 20))
        return f"(PNG of {width} x {height})\n".encode()
    return b"(JPEG)\n" if data.startswith(b"\xff\xd8\xff") else b"(PDF)\n" if data.startswith(b"%PDF") else b"(no picture)\n"


EXAMPLES = pathlib.Path(__file__).resolve().parent.parent.parent / "examples"


def set_up(case, work):
    """Puts the case's files into the folder in which it runs; gives the document's name there."""
    for item in case.iterdir():
        if item.name not in ("expected", "arguments", "exit", "example"):
            (shutil.copytree if item.is_dir() else shutil.copy)(item, work / item.name)
    if not (case / "example").exists():
        return "flow.transform"
    for item in EXAMPLES.iterdir():
        if item.is_file():
            shutil.copy(item, work / item.name)
    (work / "results").mkdir()
    return (case / "example").read_text(encoding="utf-8").strip()


def run_case(program, case, work):
    document = set_up(case, work)
    before = {p.relative_to(work) for p in work.rglob("*") if p.is_file()}
    arguments = []
    if (case / "arguments").exists():
        arguments = (case / "arguments").read_text(encoding="utf-8").splitlines()
    arguments = [a.replace("{dir}", str(work)) for a in arguments]
    environment = {k: v for k, v in os.environ.items() if k not in ("DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM")}
    environment.update(LC_ALL="en_US.UTF-8", TZ="UTC", XDG_CONFIG_HOME=str(work / ".config"), HOME=str(work / ".config"))

    def run(document, log):
        return subprocess.run(
            [program, str(work / document), "-cli", "-verbosity", "4", "-log", str(work / log), *arguments],
            env=environment, cwd=work, stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.STDOUT,
            timeout=120)

    originals = {name: (work / name).read_bytes() for name in before}
    result = run(document, "run.log")
    if (work / "then.transform").exists() and result.returncode == 0:
        result = run("then.transform", "then.log")
    written = {}
    for path in sorted(work.rglob("*")):
        name = path.relative_to(work)
        if path.is_file() and name not in before and name.parts[0] != ".config":
            written[str(name)] = path.read_bytes()
    for name in sorted(str(b) for b in before):
        changed = (work / name).read_bytes()
        if changed != originals[pathlib.Path(name)]:
            written[name] = changed
    written = {name: data.replace(str(work).encode(), b"{dir}") for name, data in written.items()}
    for name in written:
        if name.endswith((".xlsx", ".xls")):
            written[name] = b"(workbook)"
        elif name.endswith((".png", ".jpg", ".pdf")):
            written[name] = picture_kind(written[name])
        elif name in ("run.log", "then.log"):
            text = written[name].decode("utf-8")
            for pattern, replacement in TIMES:
                text = pattern.sub(replacement, text)
            written[name] = text.encode("utf-8")
    return result, written


def record(case, written, code):
    shutil.rmtree(case / "expected", ignore_errors=True)
    for name, data in written.items():
        target = case / "expected" / name
        target.parent.mkdir(parents=True, exist_ok=True)
        target.write_bytes(data)
    if code:
        (case / "exit").write_text(f"{code}\n")
    elif (case / "exit").exists():
        (case / "exit").unlink()


def differences(case, written, code):
    expected_code = int((case / "exit").read_text()) if (case / "exit").exists() else 0
    if code != expected_code:
        yield f"exit code {code}, expected {expected_code}"
    folder = case / "expected"
    expected = {str(p.relative_to(folder)): p.read_bytes() for p in folder.rglob("*") if p.is_file()}
    for name in sorted(expected.keys() | written.keys()):
        if name not in written:
            yield f"{name}: not written"
        elif name not in expected:
            yield f"{name}: written, but not expected:\n{written[name][:2000].decode('utf-8', 'replace')}"
        elif expected[name] != written[name]:
            old = expected[name].decode("utf-8", "backslashreplace").splitlines(keepends=True)
            new = written[name].decode("utf-8", "backslashreplace").splitlines(keepends=True)
            place = next((i for i, (a, b) in enumerate(zip(old, new)) if a != b), min(len(old), len(new)))
            yield (f"{name}: differs from line {place + 1} on\n  expected: {old[place:place + 3]!r}"
                   f"\n  written:  {new[place:place + 3]!r}")


def main():
    program, case = sys.argv[1], pathlib.Path(sys.argv[2]).resolve()
    with tempfile.TemporaryDirectory(prefix="flow-") as folder:
        work = pathlib.Path(folder).resolve()
        result, written = run_case(os.path.abspath(program), case, work)
        if "--record" in sys.argv[3:]:
            record(case, written, result.returncode)
            return 0
        found = list(differences(case, written, result.returncode))
        for difference in found:
            print(difference)
        if found:
            print("The program said:")
            print(result.stdout.decode("utf-8", "replace"))
        return 1 if found else 0


sys.exit(main())
