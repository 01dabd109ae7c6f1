"""What a batch of many small files costs, in runs of the real program (scripts/bench batch).

Cpu milliseconds a file of 1,000 files, and how much more memory 10,000 files take than 100."""
import tempfile
from pathlib import Path
from urllib.parse import quote

SEPARATOR = "\x1f"
COUNTS = ((100, "f000*.csv"), (1000, "f00*.csv"), (10000, "f*.csv"))
ROWS = 20
MS_PER_FILE = 5
MORE_MIB = 20


def attribute(text):
    return quote(str(text), safe="")


def make_files(folder):
    for name in ("in", "out"):
        (folder / name).mkdir()
    for i in range(COUNTS[-1][0]):
        rows = "".join(f"{j},name {i} {j},city {j % 7}\n" for j in range(ROWS))
        (folder / "in" / f"f{i:05}.csv").write_text("id,name,city\n" + rows)


def document(folder, pattern):
    """Reads, sorts, changes the case of a column and writes; one row of a batch."""
    return f"""<!DOCTYPE Quillmere>
<root><meta><version value="86"/></meta>
<inputs><input id="1" medium="0" header="1" file_type="0" delimiter="1" path="in.csv" alias="in"/></inputs>
<transforms><transform id="2" name="Sort"/><transform id="3" name="Case"><parameters>
<parameter name="Columns" value="2"/><parameter name="Case" value="Upper case"/></parameters></transform></transforms>
<outputs><output id="4" file_type="0" delimiter="1" enable_output="1" path="out.csv" alias="out"/></outputs>
<charts/><notes/><connections><connection start_id="1" end_id="2"/><connection start_id="2" end_id="3"/>
<connection start_id="3" end_id="4"/></connections>
<batch_values><batch_value row="0" alias="in" value="{attribute(folder / 'in' / pattern)}"/>
<batch_value row="0" alias="out" value="{attribute(folder / 'out' / '{in}.csv')}"/></batch_values></root>
"""


def show(program, environment, measure):
    """Prints a line for each number of files; `measure` runs a command and gives wall, cpu, MiB and exit code."""
    with tempfile.TemporaryDirectory() as name:
        folder = Path(name)
        make_files(folder)
        flow = folder / "flow.transform"
        print(f"{'files':>7}{'wall s':>9}{'cpu s':>8}{'cpu ms a file':>15}{'MiB':>8}")
        results = {}
        for count, pattern in COUNTS:
            flow.write_text(document(folder, pattern))
            wall, cpu, memory, code = measure(
                [str(program), str(flow), "-cli", "-batch", "-verbosity", "2"], environment)
            written = sum(1 for _ in (folder / "out").iterdir())
            if code != 0 or written != count:
                raise SystemExit(f"{count} files: exit code {code}, {written} written")
            results[count] = cpu * 1000 / count, memory
            print(f"{count:>7}{wall:>9.2f}{cpu:>8.2f}{results[count][0]:>15.2f}{memory:>8.1f}")
        more = results[10000][1] - results[100][1]
        print(f"1,000 files: {results[1000][0]:.2f} ms a file (goal {MS_PER_FILE}); "
              f"10,000 files take {more:.1f} MiB more than 100 (goal {MORE_MIB})")
        if results[1000][0] > MS_PER_FILE or more > MORE_MIB:
            print("Goals missed")
