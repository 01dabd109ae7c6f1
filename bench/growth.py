"""How the time of each kind of transform grows with the table, in runs of the real program (scripts/bench growth).

Writes the tables and a document for each kind and shape itself. Times are cpu seconds of whole runs less those of a run
without a transform on the same table; the exponent is that of the table's size: 1 is linear, 2 quadratic."""
import csv
import math
import random
import tempfile
from collections import namedtuple
from pathlib import Path
from urllib.parse import quote

SEPARATOR = "\x1f"
ALL = "all columns"  # stands for the numbers of all columns, which a longer table than the first has more of
WIDE, EDITED, UNIQUE, REPEATED = "columns", "columns, edited", "rows, unique keys", "rows, repeated keys"
SHAPES = (WIDE, EDITED, UNIQUE, REPEATED)
ROWS_OF_WIDE = 20
SMALLER_COUNT = 10  # rows of the second table where all pairs of rows are made

# kind, what the case shows (or ""), options, whether it has a second input: "" none, "same" the same size, "few" few rows
Case = namedtuple("Case", "kind what options second shapes")
Case.__new__.__defaults__ = ("", {}, "", SHAPES)

KEY, NUMBER, FRACTION, DATE, WORDS, SPARSE, NAME, GROUP, SMALL = range(1, 10)  # the columns of long tables

CASES = [
    Case("Bin", options={"Column": NUMBER}),
    Case("Calculate", options={"Operation": "+ Add", "Type1": "Column", "Column1": NUMBER, "Type2": "Column",
                               "Column2": FRACTION}),
    Case("Case", options={"Columns": ALL, "Case": "Upper case"}),
    Case("Chop", options={"Columns": ALL, "Length": "2"}),
    Case("Clone", options={}),
    Case("Cluster", options={"Column": GROUP, "Clustering": "Manual", "Terms": "g1\ng2\ng3"}),
    Case("Cluster", "automatic", {"Column": KEY}),
    Case("Compare_Cols", options={"Column1": KEY, "Column2": GROUP}),
    Case("Concat", options={"Columns": ALL, "Delimiter": " "}),
    Case("Concat_Rows", "fixed", {"Mode": "Fixed", "Rows": "2"}),
    Case("Concat_Rows", "by key", {"Mode": "By key", "Key_Column": KEY}),
    Case("Concat_Rows", "by distinct values", {"Mode": "By key", "Key_Column": GROUP}, shapes=(REPEATED,)),
    Case("Copy", options={"Columns": ALL, "Copies": "1"}),
    Case("Correlate", "2 columns", {"Columns": f"{NUMBER}{SEPARATOR}{FRACTION}"}),
    Case("Count", options={"Column": KEY}),
    Case("Cross", second="few"),
    Case("Date_Format", options={"Columns": ALL, "Input": "yyyy-MM-dd", "Output": "d/M/yyyy"}),
    Case("Decode", options={"Columns": ALL, "Decode": "From escaped HTML"}),
    Case("Dedupe", options={"Columns": KEY}),
    Case("Dedupe", "all columns", {"Columns": ALL}),
    Case("Difference", "by key", {"Top_Key_Column": KEY, "Bottom_Key_Column": KEY}, "same"),
    Case("Extract", options={"Columns": ALL, "Using": "Position", "Length": "2"}),
    Case("Extract", "regex", {"Columns": WORDS, "Using": "Regex", "Matching": "[a-c]+"}),
    Case("Fill", "down", {"Columns": ALL, "Direction": "Down"}),
    Case("Fill", "right", {"Columns": ALL, "Direction": "Right"}),
    Case("Fill", "left", {"Columns": ALL, "Direction": "Left"}),
    Case("Filter", options={"Columns": SEPARATOR.join(["1", "1", str(KEY), "4", "0"])}),
    Case("Filter", "any column", {"Columns": SEPARATOR.join(["1", "1", "0", "4", "0"])}),
    Case("Gather", options={"Columns": ALL, "Key_Column": "Key", "Value_Column": "Value"}),
    Case("Hash", options={"Columns": ALL}),
    Case("Header", options={"Num_Rows": "2", "Mode": "Append", "Delimiter": "-"}),
    Case("Header", "100 rows", {"Num_Rows": "100", "Mode": "Append", "Delimiter": "-"}),
    Case("If", options={"New_Name": "Size", "If": SEPARATOR.join(
        ["*StartIf*", str(KEY), "4", "0", "*EndIf*", "$(%d)" % KEY, "no"])}),
    Case("Impute", "mode of all", {"Columns": ALL, "Using": "Mode", "Of": "All rows"}),
    Case("Impute", "exact match", {"Columns": SPARSE, "Using": "Mode", "Of": "Rows with matching values for:",
                                   "Matching_Columns": f"{KEY}{SEPARATOR}{GROUP}", "Match_Type": "Exact match"}),
    Case("Impute", "best match", {"Columns": SPARSE, "Using": "Mode", "Of": "Rows with matching values for:",
                                  "Matching_Columns": f"{KEY}{SEPARATOR}{GROUP}", "Match_Type": "Best match"}),
    Case("Impute", "best match, average", {"Columns": SPARSE, "Using": "Average",
                                           "Of": "Rows with matching values for:",
                                           "Matching_Columns": f"{KEY}{SEPARATOR}{GROUP}",
                                           "Match_Type": "Best match"}),
    Case("Impute", "best match, no column", {"Columns": SPARSE, "Using": "Median",
                                             "Of": "Rows with matching values for:",
                                             "Matching_Columns": KEY, "Match_Type": "Best match"}),
    Case("Insert", options={"Columns": ALL, "With": "At start", "Insert": "x"}),
    Case("Intersect", options={"Column_1": KEY, "Column_2": KEY}, second="same"),
    Case("Interpolate", options={"Top_Sample_Column": NUMBER, "Bottom_Sample_Column": NUMBER,
                                 "Bottom_Value_Column": FRACTION}, second="same"),
    Case("Javascript", options={"Script": "return $(%d) + 1;" % KEY}),
    Case("Join", "by key", {"By": "Key", "Column_1": KEY, "Column_2": KEY}, "same", (WIDE, EDITED, UNIQUE)),
    Case("Join", "by number", {"By": "Row number"}, "same"),
    Case("Join", "few keys", {"By": "Key", "Column_1": KEY, "Column_2": KEY, "Include_Non_Matching_1": "1",
                              "Detailed_Report": "1"}, "few"),
    Case("List", options={"Column": WORDS, "Delimiter": " ", "Operation": "SortAscending"}),
    Case("Lookup", options={"Top_Lookup_Column": KEY, "Bottom_Lookup_Column": KEY, "Bottom_Value_Column": FRACTION},
         second="same"),
    Case("Moving", options={"Column": FRACTION, "Interval": "10"}),
    Case("Moving", "interval of a tenth", {"Column": FRACTION, "Interval": "tenth"}),
    Case("Moving", "median", {"Column": FRACTION, "Calculation": "Median", "Interval": "tenth"}),
    Case("New_Col", options={"New_Name": "new", "New_Value": "$(1)"}),
    Case("New_Rows", options={"Number_Const_Name": "1"}),
    Case("Ngram", options={"Column": WORDS}),
    Case("Num_Base", options={"Columns": ALL, "From": "10", "To": "16"}),
    Case("Num_Format", options={"Columns": ALL}),
    Case("Offset", "down", {"Columns": ALL, "Offset_Direction": "Down", "Offset_Amount": "1"}),
    Case("Offset", "right", {"Columns": ALL, "Offset_Direction": "Right", "Offset_Amount": "1"}),
    Case("Outliers", options={"Column": FRACTION}),
    Case("Pad", options={"Columns": ALL, "Length": "12"}),
    Case("Pivot", options={"Rows": SMALL, "Columns": KEY, "Sum": NUMBER}),
    Case("Pivot", "wide", {"Rows": KEY, "Columns": SMALL, "Sum": NUMBER}),
    Case("Pseudonym", options={"Column": KEY}),
    Case("Random"),
    Case("Remove", options={"Columns": "1"}),
    Case("Remove", "half", {"Columns": "half"}),
    Case("Rename_Cols", options={"RenameColumns": "names"}),
    Case("Reorder", options={"Columns": "backwards"}),
    Case("Replace_Multi", "text", {"Columns": ALL, "Replace": SEPARATOR.join(["0", "a", "b"])}),
    Case("Replace_Multi", "regex", {"Columns": ALL, "Replace": SEPARATOR.join(["2", "[a-c]+", "x"])}),
    Case("Reshape", options={"New_Size": "3"}),
    Case("Row_Num"),
    Case("Sample", options={"Rows": "1000"}),
    Case("Scale", "columns", {"Columns": ALL, "By": "Columns"}),
    Case("Scale", "rows", {"Columns": ALL, "By": "Rows"}),
    Case("Sequence", options={"Col_Name": NUMBER}),
    Case("Slice", options={"From_Mode": "Start plus", "From_Plus": "2"}),
    Case("Slide", "up", {"Columns": ALL, "Direction": "Up"}),
    Case("Slide", "left", {"Columns": ALL, "Direction": "Left"}),
    Case("Slide", "right", {"Columns": ALL, "Direction": "Right"}),
    Case("Sort", options={"Columns": KEY}),
    Case("Sort", "all columns, ranked", {"Columns": ALL, "Rank_Add": "1"}),
    Case("Split", "columns", {"Columns": WORDS, "Into": "Columns", "Delimiter": " "}),
    Case("Split", "rows", {"Columns": WORDS, "Into": "Rows", "Delimiter": " "}),
    Case("Split", "count vectors", {"Columns": WORDS, "Into": "Count vectors", "Delimiter": " "}),
    Case("Split", "multi hot", {"Columns": GROUP, "Into": "Multi hot encoding", "Delimiter": ",",
                                "Max_New_Cols": "200"}),
    Case("Split", "one hot", {"Columns": GROUP, "Into": "One hot encoding", "Max_New_Cols": "200"}),
    Case("Split_Name", options={"Column": NAME}),
    Case("Split_Rows", "names", {"Split_Rows": SEPARATOR.join(["0", "2", "1", "1", "8", "00$"])}),
    Case("Split_Rows", "every column", {"Split_Rows": SEPARATOR.join(["2", "2", "2", "1", "0", ""])}),
    Case("Spread", options={"Key_Column": SMALL, "Value_Column": FRACTION}),
    Case("Stack", "by name", {"Align_Cols": "Header name"}, "same"),
    Case("Stack", "by number", {"Align_Cols": "Column number"}, "same"),
    Case("Stamp", options={"Format": "'x'", "Position": "Every row"}),
    Case("Stats", options={"Columns": ALL, "Calculation": "Median", "On": "Columns and rows"}),
    Case("Substitute", options={"New_Name": "Text", "Script": "$(1)/$(2)/$(nothing)"}),
    Case("Subtract", options={"Column_1": KEY, "Column_2": KEY}, second="same"),
    Case("Summary", options={"Columns": ALL}),
    Case("Total", options={"Column": FRACTION, "By": KEY}),
    Case("Transpose"),
    Case("Unfill", "down", {"Columns": ALL, "Direction": "Down"}),
    Case("Unfill", "right", {"Columns": ALL, "Direction": "Right"}),
    Case("Unfill", "left", {"Columns": ALL, "Direction": "Left"}),
    Case("Unique", options={"Column_Options": "keep key"}),
    Case("Unique", "sums", {"Column_Options": "sum by group"}),
    Case("Units", options={"Columns": ALL, "Dimension": "Temperature", "UnitsFrom7": "Celsius/Centigrade",
                           "UnitsTo7": "Fahrenheit"}),
    Case("UUID"),
    Case("Verify", options={"Rules": SEPARATOR.join(["1", str(KEY), "0", "38", "n", "1", "1"])}),
    Case("Verify", "each column", {"Rules": "each column"}),
    Case("Whitespace", options={"Columns": ALL}),
]


def write(path, header, rows):
    with open(path, "w", encoding="utf-8", newline="") as out:
        writer = csv.writer(out, lineterminator="\n")
        writer.writerow(header)
        writer.writerows(rows)


def make_wide(path, count, is_second):
    """Cells of texts, numbers and nothing; the second table names the same columns in another order and case."""
    header = [f"c{i}" for i in range(1, count + 1)]
    if is_second:
        header = [name if i % 2 else name.upper() for i, name in enumerate(reversed(header))]
    random_numbers = random.Random(count)
    write(path, header, [[random_numbers.choice(["", "", "abc", "x1", str(random_numbers.randrange(10000)),
                                                 f"{random_numbers.randrange(10000)}.25"]) for _ in range(count)]
                         for _ in range(ROWS_OF_WIDE)])


def make_long(path, count, repeated, is_second):
    numbers = random.Random(count)

    def row(i):
        key = i % 100 if repeated else i
        words = " ".join(numbers.choice(["alpha", "beta", "gamma", "delta", "epsilon"]) for _ in range(4))
        return [f"key{key:07}", key, f"{numbers.random() * 1000:.3f}", f"20{i % 25:02}-{i % 12 + 1:02}-{i % 28 + 1:02}",
                words, "" if i % 2 else f"v{numbers.randrange(50)}", f"Anna B{key} Clark", f"g{i % 150}", f"s{i % 40}"]

    order = list(range(count))
    if is_second:
        numbers.shuffle(order)
    write(path, ["key", "number", "fraction", "date", "words", "sparse", "name", "group", "small"],
          [row(i) for i in order])


def make_table(path, shape, count, is_second=False):
    if path.exists():
        return
    if shape in (WIDE, EDITED):
        make_wide(path, count, is_second)
    else:
        make_long(path, count, shape == REPEATED, is_second)


def option_text(value, shape, count):
    """A stored value: the words that stand for many columns become their numbers."""
    width = count if shape in (WIDE, EDITED) else SMALL
    if value == ALL:
        return SEPARATOR.join(str(i) for i in range(1, width + 1))
    if value == "half":
        return SEPARATOR.join(str(i) for i in range(1, width + 1, 2))
    if value == "backwards":
        return SEPARATOR.join(str(i) for i in range(width, 0, -1))
    if value == "names":
        return SEPARATOR.join(f"n{i}" for i in range(1, width + 1))
    if value == "keep key":
        return SEPARATOR.join(["0"] + ["1"] * (width - 1))
    if value == "sum by group":
        return SEPARATOR.join("0" if i == SMALL else "4" if i == FRACTION else "9" for i in range(1, width + 1))
    if value == "tenth":
        return str(max(1, count // 10))
    if value == "each column":
        columns = [SEPARATOR.join([str(i), "0", "38", "n", "1", "1"]) for i in range(1, width + 1)]
        return "1" + SEPARATOR + (SEPARATOR + "*Column*" + SEPARATOR).join(columns)
    return str(value)


def item(tag, number, attributes, content=""):
    text = " ".join(f'{name}="{value}"' for name, value in attributes.items())
    return f'<{tag} id="{number}" pos_v12="{number * 200}{SEPARATOR}{number * 120}" {text}' + (
        f">{content}</{tag}>" if content else "/>")


def document(case, shape, count, inputs, out):
    read = {"medium": 0, "header": 1, "file_type": 0, "delimiter": 1, "quote": 1, "encoding": "UTF-8", "trim": 0,
            "simplify": 0, "ignore_empty": 1}
    items = [item("input", i + 1, dict(read, path=quote(str(path), safe=""))) for i, path in enumerate(inputs)]
    first, last = list(range(1, len(inputs) + 1)), 1
    connections, transforms = [], ""
    if shape == EDITED:
        # Each column gets texts of its own, too long to lie in the cells; what is empty stays empty.
        parameters = {"Columns": ALL, "Replace": SEPARATOR.join(["2", "(.+)", "edited \\1"])}
        transforms += transform("Replace_Multi", 3, parameters, shape, count)
        connections.append((1, 3))
        first[0] = last = 3
    if case:
        transforms += transform(case.kind, 4, case.options, shape, count)
        connections += [(number, 4) for number in first]
        last = 4
    connections.append((last, 5))
    output = item("output", 5, {"path": quote(str(out), safe=""), "file_type": 0, "delimiter": 1, "line_endings": 2,
                                "quote": 0, "encoding": "UTF-8", "bom": 0, "enable_output": 1, "write_header": 1})
    lines = "".join(f'<connection start_id="{a}" end_id="{b}"/>' for a, b in connections)
    return ('<!DOCTYPE Quillmere><root><meta><version value="86"/><locale value="en_US"/><auto_run_on value="1"/></meta>'
            f"<inputs>{''.join(items)}</inputs><transforms>{transforms}</transforms><outputs>{output}</outputs>"
            f"<charts/><notes/><connections>{lines}</connections></root>")


def transform(kind, number, options, shape, count):
    parameters = "".join(f'<parameter name="{name}" value="{quote_parts(option_text(value, shape, count))}"/>'
                         for name, value in options.items())
    return item("transform", number, {"name": kind}, f"<parameters>{parameters}</parameters>")


def quote_parts(text):
    return SEPARATOR.join(quote(part, safe="*") for part in text.split(SEPARATOR))


class Growth:
    """Runs cases at two sizes and prints a line for each."""

    def __init__(self, program, environment, measure, arguments):
        self.program, self.measure, self.arguments = program, measure, arguments
        self.folder = Path(arguments.folder or Path(tempfile.gettempdir()) / "quillmere-growth")
        store = self.folder / "config" / "Marlwick"
        store.mkdir(parents=True, exist_ok=True)
        (store / "Quillmere.conf").write_text("[General]\nmax_memory_usage=64\ntotal_next_exp_rows_to_notify=99\n")
        self.environment = dict(environment, XDG_CONFIG_HOME=str(self.folder / "config"))
        self.baselines = {}

    def sizes(self, shape):
        return (1000, 16000) if shape in (WIDE, EDITED) else (10000, 160000)

    def seconds(self, case, shape, count):
        """Cpu seconds of one run; None past the time limit; "exit N" for a run that failed."""
        name = {WIDE: "wide", EDITED: "wide", UNIQUE: "unique", REPEATED: "repeated"}[shape]
        inputs = [self.folder / f"{name}{count}.csv"]
        make_table(inputs[0], shape, count)
        if case and case.second:
            few = case.second == "few" and shape in (UNIQUE, REPEATED)
            inputs.append(self.folder / f"{name}{SMALLER_COUNT if few else count}_second.csv")
            make_table(inputs[1], shape, SMALLER_COUNT if few else count, True)
        flow = self.folder / "flow.transform"
        flow.write_text(document(case, shape, count, inputs, self.folder / "out.csv"), encoding="utf-8")
        result = self.measure([str(self.program), str(flow), "-cli", "-verbosity", "0"], self.environment,
                              self.arguments.limit)
        if result is None:
            return None
        return result[1] if result[3] == 0 else f"exit {result[3]}"

    def baseline(self, shape, count):
        if (shape, count) not in self.baselines:
            self.baselines[shape, count] = min(self.seconds(None, shape, count) for _ in range(3))
        return self.baselines[shape, count]

    def line(self, case, shape):
        sizes = self.sizes(shape)
        both = [self.seconds(case, shape, count) for count in sizes]
        cells, net = [], []
        for count, result in zip(sizes, both):
            if result is None:
                cells.append(f">{self.arguments.limit:g}")
            elif isinstance(result, str):
                cells.append(result)
            else:
                net.append(max(result - self.baseline(shape, count), 0.005))
                cells.append(f"{net[-1]:.2f}")
        exponent = math.log(net[1] / net[0]) / math.log(sizes[1] / sizes[0]) if len(net) == 2 else None
        large = len(net) < 2 or net[1] >= self.arguments.least
        steep = large and (exponent is None or exponent > self.arguments.steep)
        shown = "?" if exponent is None else f"{exponent:.2f}" if large else "-"
        name = case.kind + (f", {case.what}" if case.what else "")
        print(f"{name:<34}{shape:<21}{cells[0]:>9}{cells[1]:>9}{shown:>9}{'  STEEP' if steep else ''}", flush=True)

    def run(self, words):
        print(f"{'kind':<34}{'shape':<21}{'small s':>9}{'large s':>9}{'exponent':>9}")
        for case in CASES:
            name = f"{case.kind} {case.what}".lower()
            if words and not any(word.lower() in name for word in words):
                continue
            for shape in case.shapes:
                if self.arguments.shape in (None, shape):
                    self.line(case, shape)
