"""Reads the first sheet of a workbook and writes it as CSV: FILE.xlsx OUT.csv"""
import csv
import sys

import openpyxl

book = openpyxl.load_workbook(sys.argv[1], read_only=True)
with open(sys.argv[2], "w", encoding="utf-8", newline="") as out:
    csv.writer(out).writerows(book.worksheets[0].iter_rows(values_only=True))
