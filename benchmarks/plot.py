"""Draws curves over logarithmic axes as SVG."""

import html
import math

WIDTH, HEIGHT = 760, 460
LEFT, RIGHT, TOP, BOTTOM = 80, 200, 46, 56
# Told apart by those who do not see all colours, too.
COLOURS = ("#0072b2", "#d55e00", "#009e73", "#cc79a7", "#56b4e9", "#e69f00", "#000000", "#882255",
           "#999933", "#8c564b")
GRID = "#dddddd"
IDEAL = "#888888"
TIMES = ((1, "s"), (1e-3, "ms"), (1e-6, "µs"), (1e-9, "ns"))
COUNTS = ((1e9, " G"), (1e6, " M"), (1e3, " k"), (1, ""))


def time_label(seconds):
    return scaled(seconds, TIMES, " ")


def count_label(count):
    return scaled(count, COUNTS, "")


def scaled(value, units, gap):
    """A power of ten with the unit that needs the fewest digits."""
    for unit, name in units:
        if value >= unit * 0.999:
            return f"{value / unit:.0f}{gap}{name}"
    unit, name = units[-1]
    return f"{value / unit:g}{gap}{name}"


def decades(values):
    """The exponents of the powers of ten around the values, at least two."""
    low = math.floor(math.log10(min(values)) + 1e-9)
    high = math.ceil(math.log10(max(values)) - 1e-9)
    return low, max(high, low + 1)


class Plot:
    """Curves: {name: [(x, y), ...]} with numbers above 0."""

    def __init__(self, title, x_name, y_name, y_label, slope=1):
        self.title, self.x_name, self.y_name, self.y_label = title, x_name, y_name, y_label
        self.slope = slope  # of the ideal curve

    def draw(self, curves):
        if len(curves) > len(COLOURS):
            raise ValueError(f"{self.title}: {len(curves)} curves, {len(COLOURS)} colours")
        points = [point for curve in curves.values() for point in curve]
        self.x_range = decades([x for x, _ in points])
        self.y_range = decades([y for _, y in points])
        return "\n".join([
            f'<svg xmlns="http://www.w3.org/2000/svg" width="{WIDTH}" height="{HEIGHT}" '
            f'viewBox="0 0 {WIDTH} {HEIGHT}" font-family="sans-serif" font-size="13">',
            f'<rect width="{WIDTH}" height="{HEIGHT}" fill="white"/>',
            self.text(LEFT, 26, self.title, size=16),
            *self.axes(), *self.ideal(curves), *self.curves(curves), *self.legend(curves),
            "</svg>", ""])

    def x(self, value):
        low, high = self.x_range
        return LEFT + (math.log10(value) - low) / (high - low) * (WIDTH - LEFT - RIGHT)

    def y(self, value):
        low, high = self.y_range
        return HEIGHT - BOTTOM - (math.log10(value) - low) / (high - low) * (HEIGHT - TOP - BOTTOM)

    def axes(self):
        right, bottom = WIDTH - RIGHT, HEIGHT - BOTTOM
        for exponent in range(self.x_range[0], self.x_range[1] + 1):
            x = self.x(10.0 ** exponent)
            yield self.line(x, TOP, x, bottom, GRID)
            yield self.text(x, bottom + 18, count_label(10.0 ** exponent), "middle")
        for exponent in range(self.y_range[0], self.y_range[1] + 1):
            y = self.y(10.0 ** exponent)
            yield self.line(LEFT, y, right, y, GRID)
            yield self.text(LEFT - 8, y + 4, self.y_label(10.0 ** exponent), "end")
        yield self.text((LEFT + right) / 2, bottom + 42, self.x_name, "middle")
        yield (f'<text x="18" y="{(TOP + bottom) / 2:.1f}" text-anchor="middle" '
               f'transform="rotate(-90 18 {(TOP + bottom) / 2:.1f})">{html.escape(self.y_name)}'
               "</text>")

    def ideal(self, curves):
        """From the middle of all ends back to the left, cut off where it leaves the picture."""
        ends = [curve[-1] for curve in curves.values()]
        x = math.exp(sum(math.log(end[0]) for end in ends) / len(ends))
        y = math.exp(sum(math.log(end[1]) for end in ends) / len(ends))
        least = max(10.0 ** self.x_range[0],
                    x * (10.0 ** self.y_range[0] / y) ** (1 / self.slope) if self.slope else 0)
        yield self.line(self.x(least), self.y(y * (least / x) ** self.slope), self.x(x), self.y(y),
                        IDEAL, 'stroke-dasharray="2 5" stroke-width="2"')

    def curves(self, curves):
        for (_, curve), colour in zip(curves.items(), COLOURS):
            places = [(self.x(x), self.y(y)) for x, y in curve]
            path = " ".join(f"{x:.1f},{y:.1f}" for x, y in places)
            yield f'<polyline points="{path}" fill="none" stroke="{colour}" stroke-width="2"/>'
            for x, y in places:
                yield f'<circle cx="{x:.1f}" cy="{y:.1f}" r="3" fill="{colour}"/>'

    def legend(self, curves):
        names = [*zip(curves, COLOURS), ("ideal: constant" if self.slope == 0 else "ideal: linear",
                                         None)]
        for i, (name, colour) in enumerate(names):
            x, y = WIDTH - RIGHT + 18, TOP + 12 + 22 * i
            yield self.line(x, y, x + 24, y, colour or IDEAL,
                            'stroke-width="2"' if colour else
                            'stroke-dasharray="2 5" stroke-width="2"')
            yield self.text(x + 32, y + 4, name)

    @staticmethod
    def line(x1, y1, x2, y2, colour, style=""):
        return (f'<line x1="{x1:.1f}" y1="{y1:.1f}" x2="{x2:.1f}" y2="{y2:.1f}" '
                f'stroke="{colour}" {style}/>')

    @staticmethod
    def text(x, y, words, anchor="start", size=13):
        return (f'<text x="{x:.1f}" y="{y:.1f}" text-anchor="{anchor}" font-size="{size}">'
                f"{html.escape(words)}</text>")
