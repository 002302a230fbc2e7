"""Draws the times of the table as bars, as multiples of the best peer's."""

import html

import tables

WIDTH = 860
LABEL = 170        # room for the names of the rows
VALUE = 150        # room for the figures after the bars
BAR = 16
STEP = 22
GROUP_GAP = 44
LONGEST = 2.5      # longer bars are cut
COLORS = {"library": "#1f6f8b"} | dict.fromkeys(tables.PEERS, "#8fa3ad")
FLOOR_COLOR = "#b8c4cc"
FONT = 'font-family="sans-serif" font-size="13"'


def text(x, y, content, extra=""):
    return f'<text x="{x:.0f}" y="{y:.0f}" {FONT} fill="#222" {extra}>{html.escape(content)}</text>'


def bar(y, name, ratio, suffix):
    room = WIDTH - LABEL - VALUE
    length = room * min(ratio, LONGEST) / LONGEST
    weight = 'font-weight="bold"' if name == "library" else ""
    shapes = [
        text(LABEL - 10, y + 13, name, f'text-anchor="end" {weight}'),
        f'<rect x="{LABEL}" y="{y}" width="{length:.1f}" height="{BAR}" '
        f'fill="{COLORS.get(name, FLOOR_COLOR)}"/>',
        text(LABEL + length + 8, y + 13, f"{ratio:.2f}{suffix}", weight),
    ]
    if ratio > LONGEST:
        # A gap shows that the bar is cut.
        x = LABEL + length - 14
        shapes.append(f'<path d="M{x} {y + BAR} l6 -{BAR} h4 l-6 {BAR} z" fill="#fff"/>')
    return shapes


def draw(report):
    shapes = []
    y = 64
    for group in report.groups():
        shapes.append(text(20, y - 8, tables.TITLES[group], 'font-weight="bold"'))
        for row in report.rows(group):
            name = row.split(":")[1]
            values = tables.figures(report, row)
            peak = f"  (peak {values['peak']:.1f} B/B)"
            shapes += bar(y, name, values["best"], peak)
            y += STEP
        y += GROUP_GAP
    height = y
    one = LABEL + (WIDTH - LABEL - VALUE) / LONGEST
    line = (f'<line x1="{one:.1f}" y1="52" x2="{one:.1f}" y2="{height - GROUP_GAP}" '
            'stroke="#666" stroke-dasharray="3 3"/>')
    title = text(20, 26, "Processor time as a multiple of the time of the best other JSON library",
                 'font-weight="bold"')
    return "\n".join([
        f'<svg xmlns="http://www.w3.org/2000/svg" width="{WIDTH}" height="{height}" '
        f'viewBox="0 0 {WIDTH} {height}">',
        f'<rect width="{WIDTH}" height="{height}" fill="#fff"/>',
        title, *shapes, line, "</svg>", ""])
