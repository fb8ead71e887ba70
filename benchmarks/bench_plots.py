"""Draws the plots of docs/images from what bench_sizes.py measured: small, the same bytes for the same figures, text as text."""
import math
from pathlib import Path

import matplotlib
from matplotlib import pyplot
from matplotlib.ticker import FuncFormatter, LogLocator, NullFormatter

IMAGES = Path(__file__).resolve().parent.parent / "docs" / "images"
WIDTH, HEIGHT = 8.6, 3.5  # inches of 72 px: the width of a page's text
INK, QUIET, GRID, PAPER = "#24292f", "#57606a", "#e4e7eb", "#ffffff"
# Colour, width and dashes of a line; told apart without colours too, by the names at their ends.
LINES = {
    "ours": ("#0b62c4", 2.4, "-"),
    "floor": ("#57606a", 1.6, (0, (4, 2))),
    "first peer": ("#b35900", 1.4, "-"),
    "second peer": ("#7a3fa0", 1.4, "-"),
    "third peer": ("#1a7f4b", 1.4, "-"),
}
matplotlib.use("svg")
pyplot.rcParams.update({
    "xtick.minor.bottom": False, "svg.fonttype": "none", "svg.hashsalt": "panel", "font.family": "sans-serif",
    "font.sans-serif": ["DejaVu Sans", "Arial"], "font.size": 10, "axes.edgecolor": QUIET, "axes.labelcolor": INK,
    "axes.titlesize": 11, "axes.titleweight": "bold", "axes.titlecolor": INK, "axes.titlelocation": "left",
    "xtick.color": QUIET, "ytick.color": QUIET, "axes.spines.top": False, "axes.spines.right": False, "axes.grid": True,
    "grid.color": GRID, "axes.axisbelow": True, "figure.facecolor": PAPER,
})


def in_words(value, _=None):
    return f"{value:,.0f}" if value >= 1e3 else f"{value:g}"


def spread(wanted, distance=13.0):
    """Places that keep a distance, in the order of those wanted and about there."""
    groups = []
    for place in wanted:
        group = [place]
        while groups:
            needed = distance * (len(group) + len(groups[-1])) / 2
            if sum(group) / len(group) - sum(groups[-1]) / len(groups[-1]) >= needed:
                break
            group = groups.pop() + group
        groups.append(group)
    return [sum(group) / len(group) + distance * (i - (len(group) - 1) / 2) for group in groups for i in range(len(group))]


def label_ends(axes, ends):
    """Names at the ends of lines, moved apart where they would touch; above the end of a line that is shorter than others."""
    last = max(x for x, *_ in ends)
    for x, y, name, color in ends:
        if x < last:
            axes.annotate(name, (x, y), xytext=(0, 7), textcoords="offset points", color=color, ha="center", fontsize=9.5,
                          bbox={"facecolor": PAPER, "edgecolor": "none", "alpha": 0.8, "pad": 0.5})
    pixels = sorted((axes.transData.transform((x, y))[1], x, name, color) for x, y, name, color in ends if x == last)
    for height, (_, x, name, color) in zip(spread([place for place, *_ in pixels]), pixels):
        at = axes.transData.inverted().transform((0, height))[1]
        axes.annotate(name, (x, at), xytext=(6, 0), textcoords="offset points", color=color, va="center", fontsize=9.5,
                      fontweight="bold" if name == "ours" else "normal", annotation_clip=False)


def decades(lines):
    values = [y for _, _, points in lines for _, y in points]
    return math.log10(max(values) / min(values))


def panel(axes, title, size, unit, lines, ticks=None, is_log=True):
    """One diagram. Lines are (name, style, points); ticks are the sizes that are marked."""
    axes.set_title(title, pad=10)
    axes.set_xscale("log")
    axes.set_xlabel(size)
    axes.set_ylabel(unit)
    if is_log:
        axes.set_yscale("log")
        axes.margins(y=0.12)
        axes.yaxis.set_major_locator(LogLocator(subs=(1, 2, 5), numticks=12) if decades(lines) < 2.5 else LogLocator(numticks=12))
        axes.yaxis.set_minor_formatter(NullFormatter())
    else:
        axes.set_ylim(0, 1.1 * max(y for _, _, points in lines for _, y in points))
    axes.yaxis.set_major_formatter(FuncFormatter(in_words))
    axes.xaxis.set_major_formatter(FuncFormatter(in_words))
    axes.xaxis.set_minor_formatter(NullFormatter())
    if ticks:
        axes.set_xticks(ticks)
    axes.tick_params(which="minor", length=0)
    ends = []
    for name, style, points in lines:
        color, width, dashes = LINES[style]
        sizes, values = zip(*points)
        axes.plot(sizes, values, color=color, linewidth=width, linestyle=dashes, marker="o", markersize=3.5,
                  zorder=4 if style == "ours" else 3)
        ends.append((sizes[-1], values[-1], name, color))
    return ends


def figure_of(name, panels, right=0.875, between=0.64):
    """Draws diagrams beside each other: of each the arguments of panel(). The last one's names stand on the right."""
    figure, all_axes = pyplot.subplots(1, len(panels), figsize=(WIDTH, HEIGHT), squeeze=False)
    ends = [panel(axes, *arguments) for axes, arguments in zip(all_axes[0], panels)]
    figure.subplots_adjust(left=0.1, right=right, top=0.87, bottom=0.16, wspace=between)
    figure.canvas.draw()
    for axes, ends_of_axes in zip(all_axes[0], ends):
        label_ends(axes, ends_of_axes)
    figure.savefig(IMAGES / f"cost-{name}.svg", metadata={"Date": None, "Creator": None})
    pyplot.close(figure)


def scaled(figures, key, factor):
    return [(size, value * factor) for size, value in figures[key]]


def draw_catalogue(figures):
    def of(what, who, factor=1.0):
        return scaled(figures, ("catalogue", what, who), factor)
    ticks = [1000, 10000, 100000]
    figure_of("texts", [("A text by its id", "messages in the catalogue", "nanoseconds",
                         [("ours", "ours", of("lookup", "ours")), ("from UTF-8 alone", "floor", of("lookup", "floor")),
                          ("gettext", "first peer", of("lookup", "gettext")), ("ICU", "second peer", of("lookup", "icu")),
                          ("QTranslator", "third peer", of("lookup", "translator"))], ticks)])
    both = [(size, a + b) for (size, a), (_, b) in zip(of("making", "generated"), of("making", "compiled"))]
    figure_of("catalogue", [("Making the tables", "messages in the catalogue", "seconds of a processor",
                             [("both", "ours", both), ("compiled", "third peer", of("making", "compiled")),
                              ("generated", "first peer", of("making", "generated"))], ticks, False),
                            ("Loading the library", "messages in the catalogue", "milliseconds",
                             [("ours", "ours", of("loading", "ours", 1e-6)),
                              ("not packed", "floor", of("loading", "plain", 1e-6))], ticks, False)])


def draw_pictures(figures):
    def of(what, who, factor):
        return scaled(figures, ("pictures", what, who), factor)
    ticks = [16, 64, 256, 1024]
    figure_of("pictures", [("An SVG picture, drawn", "edge, px", "milliseconds",
                            [("ours", "ours", of("svg", "ours", 1e-6)), ("QSvgRenderer", "floor", of("svg", "floor", 1e-6)),
                             ("QIcon", "first peer", of("svg", "icon", 1e-6)),
                             ("librsvg", "second peer", of("svg", "librsvg", 1e-6))], ticks),
                           ("One from the cache", "edge, px", "nanoseconds",
                            [("ours", "ours", of("svg_cached", "ours", 1)), ("QCache", "floor", of("svg_cached", "floor", 1)),
                             ("QIcon", "first peer", of("svg_cached", "icon", 1))], ticks)])


def draw_documents(figures):
    def each(who):
        return [(size, 1e-3 * nanoseconds / size) for size, nanoseconds in figures["documents", "whole", who]]
    figure_of("documents", [("Each entry of a document, read and collected", "entries in the document", "microseconds",
                             [("ours", "ours", each("ours")), ("bare SAX", "floor", each("floor")),
                              ("expat", "first peer", each("expat"))], [10, 100, 1000, 10000, 100000, 1000000], False)])


def draw_hosts(figures):
    def of(what, who, factor=1e-3):
        return scaled(figures, ("hosts", what, who), factor)
    ticks = [1, 2, 4, 8, 16, 32, 64]
    figure_of("hosts", [("Requests served", "hosts at once", "thousands a second",
                         [("ours", "ours", of("rate", "ours")), ("bare socket", "floor", of("rate", "floor"))], ticks, False),
                        ("Time of a request", "hosts at once", "microseconds",
                         [("ours", "ours", of("median", "ours")), ("bare socket", "floor", of("median", "floor")),
                          ("ours, 99 of 100", "first peer", of("slowest", "ours")),
                          ("bare socket, 99 of 100", "second peer", of("slowest", "floor"))], ticks)], right=0.82, between=0.8)


def draw(figures):
    """Draws what was measured."""
    for series, draw_series in (("catalogue", draw_catalogue), ("pictures", draw_pictures), ("documents", draw_documents),
                                ("hosts", draw_hosts)):
        if any(key[0] == series for key in figures):
            draw_series(figures)
