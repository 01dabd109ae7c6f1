#!/usr/bin/env python3
"""Has the real program write random tables into workbooks, and compares them cell by cell as other programs read them:
.xlsx as openpyxl and gnumeric do, .xls as gnumeric does.

compare.py PROGRAM [SEED...]

Each seed makes a workbook of each kind three times over: written, appended to, and with a sheet overwritten beside
another one. Needs python3-openpyxl and gnumeric, and fails where they are missing."""
import math
import os
import pathlib
import shutil
import subprocess
import sys
import tempfile

from readers import read_with_gnumeric, read_with_openpyxl, run_where_openpyxl_is
from tables import COLUMNS, FORMATS, RandomTable, expected_cells

SEEDS = (1, 2, 3)
KINDS = {"xlsx": 1, "xls": 2}
OVERWRITE, APPEND = 1, 2
OTHER = "Other \U00020000 \u00e9"


def attribute(text):
    return "".join(c if c.isalnum() and c.isascii() else "".join(f"%{b:02X}" for b in c.encode()) for c in str(text))


def document(source, outputs):
    """A flow from a CSV file to outputs: (path, file type, mode, overwrites only the sheet, sheet)."""
    formats = attribute("^".join(str(FORMATS[column]) for column in COLUMNS))
    lines = [
        f'  <output id="{11 + i}" pos_v12="600{i * 120}" path="{attribute(path)}" file_type="{kind}" '
        f'enable_output="{mode}" write_header="{int(mode == OVERWRITE)}" overwrite_sheet="{int(of_sheet)}" '
        f'excel_output="2" excel_manual_col_formats="{formats}" worksheet="{attribute(sheet)}"/>'
        for i, (path, kind, mode, of_sheet, sheet) in enumerate(outputs)
    ]
    connections = [f'  <connection start_id="1" end_id="{11 + i}"/>' for i in range(len(outputs))]
    return "\n".join([
        "<!DOCTYPE Quillmere>", "<root>", ' <meta>', '  <version value="86"/>', '  <locale value="en_US"/>', " </meta>",
        " <inputs>",
        f'  <input id="1" pos_v12="00" medium="0" header="1" file_type="0" delimiter="1" quote="1" encoding="UTF-8" '
        f'trim="0" simplify="0" ignore_empty="0" path="{attribute(source)}"/>',
        " </inputs>", " <transforms/>", " <outputs>", *lines, " </outputs>", " <charts/>", " <notes/>",
        " <connections>", *connections, " </connections>", "</root>", ""
    ])


class Run:
    """The program in a folder of its own."""

    def __init__(self, program, folder):
        self.program = program
        self.folder = folder
        self.environment = {k: v for k, v in os.environ.items() if k not in ("DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM")}
        self.environment.update(LC_ALL="en_US.UTF-8", TZ="UTC", HOME=str(folder / "home"),
                                XDG_CONFIG_HOME=str(folder / "home"))

    def write(self, table, outputs):
        """Writes a table to each output."""
        source, flow = self.folder / "in.csv", self.folder / "flow.transform"
        source.write_bytes(table.as_csv())
        flow.write_text(document(source, outputs), encoding="utf-8")
        result = subprocess.run([self.program, str(flow), "-cli", "-verbosity", "4"], env=self.environment,
                                cwd=self.folder, stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
                                stderr=subprocess.STDOUT, timeout=120)
        if result.returncode != 0:
            raise SystemExit(f"exit code {result.returncode}:\n{result.stdout.decode('utf-8', 'replace')}")


def is_same(wanted, found):
    if isinstance(wanted, float) and isinstance(found, float):
        return found == wanted or math.isclose(found, wanted, rel_tol=1e-15, abs_tol=1e-300)
    return type(wanted) is type(found) and wanted == found


def differences(wanted, found):
    """Of two dictionaries of values by (row, column)."""
    for place in sorted(wanted.keys() | found.keys()):
        if not is_same(wanted.get(place), found.get(place)):
            yield f"  {place}: wanted {str(ascii(wanted.get(place)))[:200]}, found {str(ascii(found.get(place)))[:200]}"


def compare(what, path, wanted):
    """Prints what differs, and gives how many cells do. `wanted` are (cells, links) by sheet."""
    readers = {"gnumeric": read_with_gnumeric}
    if path.suffix == ".xlsx":
        readers["openpyxl"] = read_with_openpyxl
    count = 0
    for name, read in readers.items():
        found = read(path)
        if list(found) != list(wanted):
            print(f"{what}, read by {name}: sheets {list(found)}, wanted {list(wanted)}")
            count += 1
        for sheet, (cells, links) in wanted.items():
            found_cells, found_links = found.get(sheet, ({}, {}))
            faults = list(differences(cells, found_cells)) + list(differences(links, found_links))
            count += len(faults)
            if faults:
                print(f"{what}, sheet '{sheet}', read by {name}: {len(faults)} cell(s) differ")
                print("\n".join(faults[:5]))
    return count


def check(program, seed, kind, folder):
    run = Run(program, folder)
    path = folder / f"book.{kind}"
    first, second, third = (RandomTable(seed * 10 + i) for i in range(3))
    faults = 0
    run.write(first, [(path, KINDS[kind], OVERWRITE, False, "Data")])
    faults += compare(f"seed {seed}, {kind} written", path, {"Data": expected_cells([first])})
    run.write(second, [(path, KINDS[kind], APPEND, True, "Data"), (path, KINDS[kind], OVERWRITE, True, OTHER)])
    faults += compare(f"seed {seed}, {kind} appended to", path,
                      {"Data": expected_cells([first, second]), OTHER: expected_cells([second])})
    run.write(third, [(path, KINDS[kind], OVERWRITE, True, "Data")])
    faults += compare(f"seed {seed}, {kind} with a sheet overwritten", path,
                      {"Data": expected_cells([third]), OTHER: expected_cells([second])})
    return faults


def main():
    run_where_openpyxl_is()
    if not shutil.which("ssconvert"):
        raise SystemExit("gnumeric is not installed: scripts/install-packages gnumeric python3-openpyxl")
    program = os.path.abspath(sys.argv[1])
    faults = 0
    for seed in [int(argument) for argument in sys.argv[2:]] or SEEDS:
        for kind in KINDS:
            with tempfile.TemporaryDirectory(prefix="workbooks-") as folder:
                faults += check(program, seed, kind, pathlib.Path(folder).resolve())
    return 1 if faults else 0


sys.exit(main())
