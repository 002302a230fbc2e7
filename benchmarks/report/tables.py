"""The figures as Markdown tables with aligned columns."""

PEERS = ("simdjson", "RapidJSON", "nlohmann")
TITLES = {
    "full/text": "Full files, text to records",
    "lookup/text": "Lookup files, text to records",
    "full/en": "Full records of every product, English",
    "full/de": "Full records of every product, German over English",
    "lookup/en": "Lookup index of the root, English",
    "lookup/de": "Lookup index of the root, German over English",
}
FIGURES = {
    "best": "time, times the best peer",
    "first": "first call, times the best peer",
    "growth": "exponent of growth",
}
# The most that a figure of the row "library" should be, on the generated root of 200 products.
TARGETS = {
    "best": {"full/text": 1.0, "lookup/text": 1.1, "full/en": 0.92, "full/de": 0.97,
             "lookup/en": 0.95, "lookup/de": 0.95},
    "first": {"full/en": 1.0, "full/de": 1.0, "lookup/en": 1.0, "lookup/de": 1.0},
    "growth": {"full/text": 1.05, "lookup/text": 1.05, "full/en": 1.0, "full/de": 1.0,
               "lookup/en": 1.0, "lookup/de": 1.0},
}


def best_peer(times, group):
    """The peer with the smallest median."""
    rows = [f"{group}:{peer}" for peer in PEERS if f"{group}:{peer}" in times.seconds]
    return min(rows, key=times.median)


def figures(report, row):
    """Every figure that a row has, by name."""
    group = row.split(":")[0]
    memory = report.memory[row]
    result = {
        "parse": report.warm.ratio(row, f"{group}:parse"),
        "copy": report.warm.ratio(row, f"{group}:parse and copy"),
        "best": report.warm.ratio(row, best_peer(report.warm, group)),
        "peak": memory["peak"],
        "kept": memory["kept"],
        "allocations": memory["allocations"],
    }
    if row in report.first.seconds:
        result["ms"] = report.first.median(row) * 1e3
        result["first"] = report.first.ratio(row, best_peer(report.first, group))
    if row in report.growth:
        result["growth"] = report.growth[row]
    return result


def format_table(header, rows):
    cells = [header] + rows
    widths = [max(map(len, column)) for column in zip(*cells)]
    lines = [[row[0].ljust(widths[0])]
             + [cell.rjust(width) for cell, width in zip(row[1:], widths[1:])] for row in cells]
    lines.insert(1, ["-" * widths[0]] + ["-" * (width - 1) + ":" for width in widths[1:]])
    return "\n".join(f"| {' | '.join(line)} |" for line in lines)


def main_table(report):
    columns = {"parse": ("× parse", ".2f"), "copy": ("× parse and copy", ".2f"),
               "best": ("× best peer", ".2f"), "ms": ("first call, ms", ".3f"),
               "first": ("× best peer", ".2f"), "peak": ("peak B/B", ".2f"),
               "kept": ("kept B/B", ".2f"), "allocations": ("allocs/KiB", ".1f"),
               "growth": ("growth", ".2f")}
    rows = []
    for group in report.groups():
        rows.append([f"**{TITLES[group]}**"] + [""] * len(columns))
        for row in report.rows(group):
            values = figures(report, row)
            rows.append([row.split(":")[1]]
                        + [format(values[key], style) if key in values else ""
                           for key, (_, style) in columns.items()])
    return format_table([""] + [title for title, _ in columns.values()], rows)


def single_table(report):
    single = report.single
    rows = [[row.split(":")[1],
             f"{single.warm.median(row) * 1e3 / (single.warm.bytes[row] / 1e6):.2f}",
             f"{single.warm.ratio(row, 'full/en:parse'):.2f}", f"{single.memory[row]['peak']:.2f}"]
            for row in single.rows("full/en")]
    return format_table(["one file of 10 MB", "ms/MB", "× parse", "peak B/B"], rows)


def check_table(report):
    rows = [[f"{check['root']} products, {check['languages']} language"
             + ("s" if check["languages"] > 1 else ""),
             check["findings"], f"{check['load']:.2f}", f"{check['check']:.2f}",
             f"{check['ratio']:.1f}", f"{check['limit']}"] for check in report.checks]
    return format_table(["root", "result", "loading, s", "checking, s", "times", "at most"], rows)


def target_table(report):
    rows = []
    for figure, targets in TARGETS.items():
        for group, most in targets.items():
            value = figures(report, f"{group}:library")[figure]
            # A figure is as exact as it is printed.
            is_met = round(value, 2) <= most
            rows.append([TITLES[group], FIGURES[figure], f"{most:.2f}", f"{value:.2f}",
                         "met" if is_met else f"missed by {(value / most - 1) * 100:.0f} %"])
    return format_table(["work", "figure", "at most", "measured", ""], rows)


def all_tables(report):
    """Every table that a report has figures for, by the name of its place on the page."""
    tables = {"figures": main_table(report)}
    if report.single:
        tables |= {"single": single_table(report), "check": check_table(report),
                   "targets": target_table(report)}
    return tables
