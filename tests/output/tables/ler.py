#!/usr/bin/python3
# SPDX-License-Identifier: MIT
"""Reads tables back as others read them: a CSV file with Python's csv, a workbook with openpyxl. Prints
a JSON list of tables, each a list of rows of texts; before a workbook's texts stands what they are in
it, number, date or text, and before its rows the sheet's name, bold columns and frozen rows: ler FILE"""

import csv
import json
import sys

import openpyxl


def csv_tables(path):
    raw = open(path, "rb").read()
    assert raw.startswith(b"\xef\xbb\xbf"), "no byte order mark"
    assert raw.count(b"\r") == raw.count(b"\r\n")
    tables = [[]]
    for row in csv.reader(open(path, encoding="utf-8-sig", newline=""), delimiter=";", strict=True):
        if row:
            tables[-1].append(row)
        else:
            tables.append([])
    assert all(len({len(row) for row in table}) <= 1 for table in tables), "ragged"
    return tables


def text(cell):
    if cell.value is None:
        return ""
    if cell.data_type == "n":
        assert cell.number_format == "#,##0.00", cell.number_format
        return "n " + f"{cell.value:.2f}".replace(".", ",")
    if cell.data_type == "d":
        assert cell.number_format == "dd/mm/yyyy", cell.number_format
        return "d " + cell.value.strftime("%d/%m/%Y")
    assert cell.data_type == "s", cell.data_type
    return "s " + cell.value


def xlsx_tables(path):
    tables = []
    for sheet in openpyxl.load_workbook(path).worksheets:
        rows = list(sheet.iter_rows())
        bold = sum(cell.font.b for cell in rows[0]) if rows else 0
        name = [sheet.title, str(bold), str(sheet.freeze_panes)]
        tables.append([name] + [[text(cell) for cell in row] for row in rows])
    return tables


if __name__ == "__main__":
    read = xlsx_tables if sys.argv[1].endswith(".xlsx") else csv_tables
    print(json.dumps(read(sys.argv[1])))
