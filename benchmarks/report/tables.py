"""The figures as Markdown tables, aligned to be read as they stand."""

PEERS = ("simdjson", "RapidJSON", "nlohmann")
TITLES = {
    "full/text": "Full files, text to records",
    "lookup/text": "Lookup files, text to records",
    "full/en": "Full records of every product, English",
    "full/de": "Full records of every product, German over English",
    "lookup/en": "Lookup index of the root, English",
    "lookup/de": "Lookup index of the root, German over English",
}

# What the project wants of its "library" rows on the generated root of 200 products: the row, the
# figure, the most that it may be.
TARGETS = (
    ("full/text", "best", 1.0),
    ("lookup/text", "best", 1.1),
    ("full/en", "best", 0.92),
    ("full/de", "best", 0.97),
    ("lookup/en", "best", 0.95),
    ("lookup/de", "best", 0.95),
    ("full/en", "first", 1.0),
    ("full/de", "first", 1.0),
    ("lookup/en", "first", 1.0),
    ("lookup/de", "first", 1.0),
    ("full/text", "growth", 1.05),
    ("lookup/text", "growth", 1.05),
    ("full/en", "growth", 1.0),
    ("full/de", "growth", 1.0),
    ("lookup/en", "growth", 1.0),
    ("lookup/de", "growth", 1.0),
)
FIGURES = {
    "best": "time, times the best peer",
    "first": "first call, times the best peer",
    "growth": "exponent of growth",
}


def best_peer(times, group):
    """The peer whose median is the least."""
    rows = [f"{group}:{peer}" for peer in PEERS if f"{group}:{peer}" in times.times]
    return min(rows, key=times.seconds)


def figures(report, row):
    """Every figure of one row; a figure that it has not is left out."""
    group, name = row.split(":")
    memory = report.memory[row]
    result = {
        "parse": report.warm.ratio(row, f"{group}:parse"),
        "copy": report.warm.ratio(row, f"{group}:parse and copy"),
        "best": report.warm.ratio(row, best_peer(report.warm, group)),
        "peak": memory["peak"],
        "kept": memory["kept"],
        "allocations": memory["allocations"],
    }
    if row in report.first.times:
        result["ms"] = report.first.seconds(row) * 1e3
        result["first"] = report.first.ratio(row, best_peer(report.first, group))
    if row in report.growth:
        result["growth"] = report.growth[row]
    return result


def format_table(header, rows):
    cells = [header] + rows
    widths = [max(len(row[column]) for row in cells) for column in range(len(header))]
    lines = []
    for row in cells:
        padded = [row[0].ljust(widths[0])]
        padded += [cell.rjust(width) for cell, width in zip(row[1:], widths[1:])]
        lines.append(f"| {' | '.join(padded)} |")
    rule = ["-" * widths[0]] + [f"{'-' * (width - 1)}:" for width in widths[1:]]
    lines.insert(1, f"| {' | '.join(rule)} |")
    return "\n".join(lines)


def number(values, key, digits=2):
    return f"{values[key]:.{digits}f}" if key in values else ""


def main_table(report):
    header = ["", "× parse", "× parse and copy", "× best peer", "first call, ms", "× best peer",
              "peak B/B", "kept B/B", "allocs/KiB", "growth"]
    rows = []
    for group in report.groups():
        rows.append([f"**{TITLES[group]}**"] + [""] * (len(header) - 1))
        for row in report.rows(group):
            values = figures(report, row)
            rows.append([row.split(":")[1], number(values, "parse"), number(values, "copy"),
                         number(values, "best"), number(values, "ms", 3), number(values, "first"),
                         number(values, "peak"), number(values, "kept"),
                         number(values, "allocations", 1), number(values, "growth")])
    return format_table(header, rows)


def parts_table(report):
    rows = []
    for row in report.parts.times:
        group, name = row.split(":")
        share = report.parts.ratio(row, f"{group}:whole") * 100
        rows.append([f"{group.split('/')[0]} files: {name}", f"{share:.0f} %",
                     f"{report.parts.ratio(row, f'{group}:parse'):.2f}",
                     f"{report.memory[row]['peak']:.2f}"])
    return format_table(["part", "of the whole", "× parse", "peak B/B"], rows)


def single_table(report):
    rows = [[row.split(":")[1], f"{values['ms_per_mb']:.2f}", f"{values['ratio']:.2f}",
             f"{values['peak']:.2f}"] for row, values in report.single.items()]
    return format_table(["one file of 10 MB", "ms/MB", "× parse", "peak B/B"], rows)


def merge_table(report):
    rows = [[f"{names:,}".replace(",", " "), f"{time:.3f}",
             f"{time * 1e6 / names:.0f}"] for names, time in report.merge["times"].items()]
    rows.append([f"n log n fits within {report.merge['rms'] * 100:.0f} %", "", ""])
    return format_table(["names merged", "ms", "ns a name"], rows)


def target_table(report):
    rows = []
    for group, figure, most in TARGETS:
        value = figures(report, f"{group}:library")[figure]
        missed = value / most - 1
        # A figure is as exact as it is printed.
        verdict = "met" if round(value, 2) <= most else f"missed by {missed * 100:.0f} %"
        rows.append([TITLES[group], FIGURES[figure], f"{most:.2f}", f"{value:.2f}", verdict])
    return format_table(["work", "figure", "at most", "measured", ""], rows)


def all_tables(report):
    result = [f"Root: {report.root}", main_table(report), parts_table(report)]
    if report.single:
        result.append(single_table(report))
    if report.merge:
        result.append(merge_table(report))
    if report.growth and report.single:
        result.append(target_table(report))
    return result
