#!/usr/bin/python3
"""Prints a workbook as its readers see it: page, widths, then each cell with its looks."""
import datetime
import sys

import openpyxl
import xlrd


def number(value):
    if isinstance(value, datetime.datetime):  # which only one of the readers makes
        value = (value - datetime.datetime(1899, 12, 30)).total_seconds() / 86400
    return f"{value:.10g}" if isinstance(value, (int, float)) else repr(value)


def xlsx(path):
    sheet = openpyxl.load_workbook(path, data_only=True).active
    margins, foot = sheet.page_margins, sheet.oddFooter
    yield [sheet.page_setup.paperSize, sheet.page_setup.orientation, *[
        round(m, 3) for m in (margins.left, margins.right, margins.top, margins.bottom, margins.footer)]]
    yield [sheet.print_title_rows, "".join(
        f"&{place}{part.text}" for place, part in zip("LCR", (foot.left, foot.center, foot.right)) if part.text)]
    yield [f"{name}:{round(width.width * 256)}" + ("h" if width.hidden else "")
           for name, width in sorted(sheet.column_dimensions.items())]
    for row in sheet.iter_rows(max_col=10):
        yield [(number(c.value) if c.value is not None else "") + f"[{c.font.name}{'b' * c.font.b}"
               f" {c.number_format} {'g' * (c.border.left.style == 'thin')}]" for c in row]


def xls(path):
    book = xlrd.open_workbook(path, formatting_info=True)
    sheet = book.sheet_by_index(0)
    yield from (["xlrd does not read the page"], [])
    yield [f"{xlrd.colname(at)}:{info.width}" + "h" * info.hidden for at, info in sorted(sheet.colinfo_map.items())]
    builtin = {14: "mm-dd-yy", 22: "m/d/yy h:mm"}
    for row in range(sheet.nrows):
        cells = []
        for at in range(10):
            look = "[Arial General ]"
            value = ""
            if at < sheet.ncols:
                form = book.xf_list[sheet.cell_xf_index(row, at)] if sheet.cell_type(row, at) else book.xf_list[15]
                font = book.font_list[form.font_index]
                name = builtin.get(form.format_key, book.format_map[form.format_key].format_str)
                look = f"[{font.name}{'b' * font.bold} {name} {'g' * (form.border.left_line_style == 1)}]"
                value = sheet.cell_value(row, at)
            cells.append((number(value) if value != "" else "") + look)
        yield cells


for file in sys.argv[1:]:
    for line in (xlsx if file.endswith("x") else xls)(file):
        while line and line[-1] == "[Arial General ]":
            line.pop()
        print("|".join(str(item) for item in line))
