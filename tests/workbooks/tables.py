"""Random tables, and what a workbook has to hold of them."""
import csv
import datetime
import io
import random
import urllib.parse

COLUMNS = ("text", "long", "number", "day", "yes", "at", "link", "plain")
FORMATS = {"text": 5, "long": 5, "number": 4, "day": 2, "yes": 1, "at": 7, "link": 8, "plain": 3}

FIRST_DAY = datetime.date(1900, 3, 1)  # days before it are counted in two ways
LONGEST = 32767  # UTF-16 units in a cell

EMOJI = "\U0001F600\U0001F4A9\U0001F9D1\U0001F1E9"
RARE = "\U00020000\U0002A6DF\U0002F800\U00030000"
TRICKY = ["_x0041_", " blanks around ", "tab\tinside", "line\nbreak", "\"quoted\"", "'apostrophe", "=1+1",
          "007", "1e5", "TRUE", "#N/A", "2024-02-30", "&amp; <b>", "]]>", "\u00e9\u20ac", "e\u0301", "\u202eright to left",
          "-", "0", "nan"]


class RandomTable:
    """Rows of texts in the order of COLUMNS. The same seed makes the same table."""

    def __init__(self, seed):
        self.random = random.Random(seed)
        self.rows = [self.row() for _ in range(self.random.randint(60, 120))]

    def row(self):
        cells = [getattr(self, column)() for column in COLUMNS]
        return [("" if self.random.random() < 0.1 else cell) for cell in cells]

    def text(self):
        if self.random.random() < 0.3:
            return self.random.choice(TRICKY)
        alphabet = self.random.choice(["abc xyz", EMOJI, RARE, "\u00e9\u4e00" + EMOJI, "a" + EMOJI + RARE])
        return self.some(alphabet, self.random.randint(1, 60))

    def long(self):
        """Over several records of the old kind, whose borders fall anywhere, into a pair of surrogates too."""
        if self.random.random() < 0.7:
            return self.some("\u00e9" + EMOJI + RARE, self.random.randint(500, 3000))
        text = "x" * self.random.randint(0, 1) + self.some(EMOJI + RARE, LONGEST // 2)
        return text[:LONGEST // 2]

    def some(self, alphabet, count):
        return "".join(self.random.choices(alphabet, k=count)).strip() or "x"

    def number(self):
        return self.random.choice([
            lambda: str(self.random.randint(-1000, 1000)), lambda: repr(self.random.uniform(-1e6, 1e6)),
            lambda: repr(self.random.uniform(-1, 1) * 10.0 ** self.random.randint(-300, 300)),
            lambda: f"{self.random.randint(-10**7, 10**7) / 100:.2f}", lambda: str(self.random.randint(-2**53, 2**53)),
            lambda: str(self.random.choice([0, 2**29 - 1, 2**29, -2**29, -2**29 - 1, 1e15])), lambda: "none"
        ])()

    def day(self):
        if self.random.random() < 0.1:
            return self.random.choice(["1850-06-01", "later", "2023-02-29"])
        return (FIRST_DAY + datetime.timedelta(days=self.random.randint(0, 2900000))).isoformat()

    def yes(self):
        return self.random.choice(["true", "false", "true", "false", "maybe"])

    def at(self):
        return "%02d:%02d:%02d" % (self.random.randint(0, 23), self.random.randint(0, 59), self.random.randint(0, 59))

    def link(self):
        return self.random.choice([
            "https://example.org/a?b=1&c=2#d", "https://m\u00fcnchen.example/\u4e00/" + self.some(EMOJI, 5),
            "http://example.org/" + self.some("ab%20", 40), "http://example.org/" + self.some("\u00e9" + RARE, 600),
            "mailto:a@example.org", "https://example.org/with blank"
        ])

    def plain(self):
        return self.text()

    def as_csv(self):
        out = io.StringIO()
        writer = csv.writer(out, quoting=csv.QUOTE_ALL, lineterminator="\n")
        writer.writerow(COLUMNS)
        writer.writerows(self.rows)
        return out.getvalue().encode("utf-8")


def value(column, text):
    """What a cell holds for a text: a text, a number, a truth, or a day or time as the number that stands for it."""
    try:
        if column == "number":
            return float(text)
        if column == "day":
            day = datetime.date.fromisoformat(text)
            return float((day - datetime.date(1899, 12, 30)).days) if day >= FIRST_DAY else text
        if column == "at":
            hours, minutes, seconds = map(int, text.split(":"))
            return ((hours * 60 + minutes) * 60 + seconds) * 1000 / 86400000
    except ValueError:
        return text
    if column == "yes" and text in ("true", "false"):
        return text == "true"
    return text


def expected_cells(tables):
    """Values and links, without percent signs for characters, by (row, column), both from 0, of tables one below the
    other under a header."""
    cells = {(0, i): name for i, name in enumerate(COLUMNS)}
    links = {}
    row = 0
    for table in tables:
        for texts in table.rows:
            row += 1
            for i, text in enumerate(texts):
                if text:
                    cells[row, i] = value(COLUMNS[i], text)
                if text and COLUMNS[i] == "link":
                    links[row, i] = urllib.parse.unquote(text)
    return cells, links
