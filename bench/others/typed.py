"""The rows of a CSV file with numbers, booleans and dates as such."""
import csv
import datetime


def converters(samples):
    """A function a column that takes its values; text where they aren't all of one kind."""
    def boolean(text):
        return {"true": True, "false": False}[text]

    result = []
    for column in zip(*samples):
        for convert in (int, float, boolean, datetime.date.fromisoformat, str):
            try:
                if convert is int and any(v.startswith("0") and v != "0" for v in column):
                    continue
                for value in column:
                    convert(value)
            except (ValueError, KeyError):
                continue
            result.append(convert)
            break
    return result


def rows(path):
    with open(path, encoding="utf-8", newline="") as file:
        lines = csv.reader(file)
        yield next(lines)
        first = [line for line, _ in zip(lines, range(100))]
        kinds = converters(first)
        for line in first:
            yield [kind(value) for kind, value in zip(kinds, line)]
        for line in lines:
            yield [kind(value) for kind, value in zip(kinds, line)]
