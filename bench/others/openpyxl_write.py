"""Writes a CSV file as a workbook: FILE.csv OUT.xlsx"""
import sys

import openpyxl
from typed import rows

book = openpyxl.Workbook(write_only=True)
sheet = book.create_sheet("Sheet1")
for row in rows(sys.argv[1]):
    sheet.append(row)
book.save(sys.argv[2])
