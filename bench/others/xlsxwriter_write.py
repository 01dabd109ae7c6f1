"""Writes a CSV file as a workbook: FILE.csv OUT.xlsx"""
import sys

import xlsxwriter
from typed import rows

book = xlsxwriter.Workbook(sys.argv[2], {"default_date_format": "yyyy-mm-dd", "constant_memory": True})
sheet = book.add_worksheet()
for number, row in enumerate(rows(sys.argv[1])):
    sheet.write_row(number, 0, row)
book.close()
