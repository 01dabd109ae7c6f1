"""Workbooks as other programs read them: for each sheet its values and its links by (row, column), both from 0. Days and
times are the numbers that stand for them."""
import os
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile
import urllib.parse
import xml.etree.ElementTree as tree

GNUMERIC = "{http://www.gnumeric.org/v10.dtd}"
TRUTH, INTEGER, NUMBER, TEXT = "20", "30", "40", "60"  # the types of values in gnumeric's own files


def run_where_openpyxl_is():
    """Goes on in the interpreter that has the package, which need not be the first one of the path."""
    try:
        import openpyxl  # noqa: F401
        return
    except ImportError:
        pass
    tried = os.environ.get("WORKBOOK_READERS_TRIED", "").split(os.pathsep)
    folders = ["/usr/bin", *os.get_exec_path()]
    for program in [os.path.join(folder, "python3") for folder in folders]:
        if os.access(program, os.X_OK) and program not in tried:
            os.environ["WORKBOOK_READERS_TRIED"] = os.pathsep.join([*filter(None, tried), program])
            os.execv(program, [program, *sys.argv])
    raise SystemExit("python3-openpyxl is not installed: scripts/install-packages gnumeric python3-openpyxl")


def decoded(target):
    """Links are the same whether what may be encoded is."""
    return urllib.parse.unquote(target)


def read_with_openpyxl(path):
    import openpyxl
    from openpyxl.utils.datetime import to_excel

    sheets = {}
    for sheet in openpyxl.load_workbook(path).worksheets:
        cells, links = {}, {}
        for row in sheet.iter_rows():
            for cell in row:
                place = cell.row - 1, cell.column - 1
                if cell.value is not None:
                    cells[place] = plain_value(cell.value, to_excel)
                if cell.hyperlink:
                    links[place] = decoded(cell.hyperlink.target or "#" + cell.hyperlink.location)
        sheets[sheet.title] = cells, links
    return sheets


def plain_value(value, to_number):
    if isinstance(value, bool):
        return value
    if isinstance(value, (int, float)):
        return float(value)
    return value if isinstance(value, str) else float(to_number(value))


def read_with_gnumeric(path):
    with tempfile.TemporaryDirectory(prefix="gnumeric-") as folder:
        converted = pathlib.Path(folder) / "book.gnumeric"
        environment = {**os.environ, "HOME": folder, "LC_ALL": "C.UTF-8", "TZ": "UTC"}
        result = subprocess.run([shutil.which("ssconvert"), "-T", "Gnumeric_XmlIO:sax:0", str(path), str(converted)],
                                env=environment, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, timeout=120)
        if result.returncode != 0:
            raise SystemExit(f"gnumeric can't read the workbook:\n{result.stdout.decode('utf-8', 'replace')}")
        root = tree.parse(converted).getroot()
    is_escaped = path.suffix == ".xlsx"
    sheets = {}
    for sheet in root.iter(GNUMERIC + "Sheet"):
        cells = {(int(cell.get("Row")), int(cell.get("Col"))): gnumeric_value(cell, is_escaped)
                 for cell in sheet.iter(GNUMERIC + "Cell")}
        sheets[sheet.find(GNUMERIC + "Name").text] = cells, dict(gnumeric_links(sheet))
    return sheets


def unescaped(text):
    """The program leaves the form that .xlsx has for characters which XML can't hold."""
    return re.sub("_x([0-9A-Fa-f]{4})_", lambda match: chr(int(match[1], 16)), text)


def gnumeric_value(cell, is_escaped):
    kind, text = cell.get("ValueType"), cell.text or ""
    if kind == TEXT:
        return unescaped(text) if is_escaped else text
    return text == "TRUE" if kind == TRUTH else float(text) if kind in (INTEGER, NUMBER) else (kind, text)


def gnumeric_links(sheet):
    for region in sheet.iter(GNUMERIC + "StyleRegion"):
        for link in region.iter(GNUMERIC + "HyperLink"):
            for row in range(int(region.get("startRow")), int(region.get("endRow")) + 1):
                for column in range(int(region.get("startCol")), int(region.get("endCol")) + 1):
                    yield (row, column), decoded(link.get("target"))
