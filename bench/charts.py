"""What drawing charts costs, in runs of the real program without a display (scripts/bench charts).

Cpu seconds that a chart of 10,000 points takes to become a PNG, beside a run that only reads the file, and cpu
milliseconds a file of a batch that draws each of its files."""
import random
import tempfile
from pathlib import Path
from urllib.parse import quote

POINTS = 10000
SIDES = (800, 600)
RUNS = 5
# name, chart type, most cpu seconds
KINDS = (("read only", 0, None), ("scatter", 1, 0.5), ("line", 2, 0.3), ("smooth line", 3, None), ("area", 4, None))
BATCH_FILES = 100
BATCH_ROWS = 20


def document(folder, kind, batch=""):
    chart = (f'<chart id="2" chart_type="{kind}" chart_x_column="1*0" chart_y_columns="2*0" write_file="1" alias="plot" '
             f'path="{quote(str(folder / "out.png"), safe="")}" chart_image_width="{SIDES[0]}" chart_image_height="{SIDES[1]}"/>') if kind else ""
    connection = '<connection start_id="1" end_id="2"/>' if kind else ""
    path = folder / "flow.transform"
    path.write_text(f"""<!DOCTYPE Quillmere>
<root><meta><version value="86"/></meta>
<inputs><input id="1" medium="0" header="1" file_type="0" delimiter="1" path="{quote(str(folder / "in.csv"), safe="")}" alias="in"/></inputs>
<transforms/><outputs/><charts>{chart}</charts><notes/><connections>{connection}</connections>{batch}</root>
""")
    return path


def write_points(path, count):
    path.write_text("x,y\n" + "".join(f"{i},{random.random() * 1000:.3f}\n" for i in range(count)))


def show_kinds(program, environment, measure, folder):
    """Prints a line for each kind; returns the names of those that miss their goals."""
    write_points(folder / "in.csv", POINTS)
    print(f"{POINTS:,} points to a PNG of {SIDES[0]} x {SIDES[1]} pixels")
    print(f"{'chart':<14}{'wall s':>8}{'cpu s':>8}{'MiB':>8}{'goal':>7}")
    missed = []
    for name, kind, goal in KINDS:
        flow = document(folder, kind)
        picture = folder / "out.png"
        picture.unlink(missing_ok=True)
        runs = [measure([str(program), str(flow), "-cli", "-verbosity", "0"], environment) for _ in range(RUNS)]
        if any(run[3] for run in runs) or (kind and not picture.exists()):
            raise SystemExit(f"{name}: failed, or nothing written")
        wall, cpu, memory = (min(run[i] for run in runs) for i in range(3))
        print(f"{name:<14}{wall:>8.3f}{cpu:>8.3f}{memory:>8.1f}{goal or '':>7}")
        if goal and cpu > goal:
            missed.append(name)
    return missed


def show_batch(program, environment, measure, folder):
    (folder / "parts").mkdir()
    (folder / "pictures").mkdir()
    for i in range(BATCH_FILES):
        write_points(folder / "parts" / f"f{i:03}.csv", BATCH_ROWS)
    cells = (("in", folder / "parts" / "*.csv"), ("plot", folder / "pictures" / "{in}.png"))
    values = "".join(f'<batch_value row="0" alias="{alias}" value="{quote(str(value), safe="")}"/>' for alias, value in cells)
    flow = document(folder, 2, f"<batch_values>{values}</batch_values>")
    wall, cpu, memory, code = measure([str(program), str(flow), "-cli", "-batch", "-verbosity", "1"], environment)
    written = sum(1 for _ in (folder / "pictures").iterdir())
    if code != 0 or written != BATCH_FILES:
        raise SystemExit(f"batch: exit code {code}, {written} pictures")
    print(f"batch of {BATCH_FILES} files, a line chart each: {wall:.2f} s, {cpu * 1000 / BATCH_FILES:.1f} cpu ms a file, "
          f"{memory:.1f} MiB")


def show(program, environment, measure):
    """`measure` runs a command and gives wall, cpu, MiB and exit code."""
    random.seed(3)
    environment = {k: v for k, v in environment.items() if k not in ("DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM")}
    with tempfile.TemporaryDirectory() as name:
        folder = Path(name)
        missed = show_kinds(program, environment, measure, folder)
        show_batch(program, environment, measure, folder)
    if missed:
        print("Goals missed: " + ", ".join(missed))
