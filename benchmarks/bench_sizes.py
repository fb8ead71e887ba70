"""Cost against size: measures series of sizes, notes them in benchmarks/sizes.tsv, and draws the plots of docs/images."""
import math
import shutil
import statistics
import subprocess
import sys
import tempfile
from pathlib import Path

from measurements import PROJECT
from table_making import LIBRARY, PLAIN_LIBRARY, TableMaking

FIGURES = PROJECT / "benchmarks" / "sizes.tsv"
HEAD = "series\twhat\twho\tsize\tfigure"
MESSAGES = (1000, 2000, 5000, 10000, 20000, 50000, 100000)
EDGES = (16, 32, 64, 128, 256, 512, 1024)
ENTRIES = (10, 100, 1000, 10000, 100000, 1000000)
HOSTS = (1, 2, 4, 8, 16, 32, 64)
TEXT_ROWS = range(2, 21998)
MOST_FOR_GENRB = 20000  # compares each key with all before it: a quarter of an hour for 100,000
ROUNDS = 3


def write_catalogue(folder, source, messages):
    """A catalogue of so many messages with the sample's texts, which begin again where the rows of texts end."""
    (folder / "texts").mkdir(parents=True)
    shutil.copy(f"{source}/images.tsv", folder)
    rows = TEXT_ROWS[:messages]
    with open(folder / "messages.tsv", "w", encoding="utf-8") as file:
        file.write("id\tname\trow\n")
        file.writelines(f"{i + 1}\tMSG_NORMAL_OTHER_{i + 1}\t{rows[i % len(rows)]}\n" for i in range(messages))
    texts = {path.name: dict(line.split("\t") for line in path.read_text(encoding="utf-8").splitlines())
             for path in Path(source, "texts").glob("*.tsv")}
    taken = [row for row in texts["en.tsv"] if row != "row"]
    for name, by_row in texts.items():
        lines = [f"{row}\t{by_row[taken[i % len(taken)]]}\n" for i, row in enumerate(rows) if taken[i % len(taken)] in by_row]
        (folder / "texts" / name).write_text("row\ttext\n" + "".join(lines), encoding="utf-8")


def make_peers(bench, folder, environment, messages):
    """The peers' catalogues of a library, as the build makes those of its own; none for ICU where genrb takes too long."""
    (folder / "de" / "LC_MESSAGES").mkdir(parents=True)
    bench.run("write_peer_catalogues", folder, 49, before=environment)
    commands = [["msgfmt", "-o", folder / "de" / "LC_MESSAGES" / "panel.mo", folder / "texts.po"],
                ["lrelease", "-silent", folder / "texts.ts", "-qm", folder / "texts.qm"]]
    if messages <= MOST_FOR_GENRB:
        commands.append(["genrb", "--quiet", "--encoding", "UTF-8", "--sourcedir", folder, "--destdir", folder, "root.txt"])
    for command in commands:
        subprocess.run(command, check=True, stdout=subprocess.DEVNULL)


def rounds_of(series):
    for number in range(ROUNDS):
        print(f"bench: {series}, round {number + 1} of {ROUNDS}", file=sys.stderr)
        yield number


def measure_catalogue(bench):
    making = TableMaking(bench.build)
    with tempfile.TemporaryDirectory(dir=bench.build) as name:
        for number in rounds_of("catalogue"):
            for messages in MESSAGES:
                folder = Path(name, str(messages))
                environment = ["env", f"LD_LIBRARY_PATH={folder}"]
                if number == 0:
                    write_catalogue(folder / "catalogue", making.catalogue, messages)
                costs = making.make_library(folder, folder / "catalogue")
                if number == 0:
                    make_peers(bench, folder / "peers", environment, messages)
                measured = {**bench.round_of("bench_texts", "text_any", environment, PEER_CATALOGUES=str(folder / "peers")),
                            **bench.loading(number, f"ours={folder}/{LIBRARY}.0", f"plain={folder}/{PLAIN_LIBRARY}")}
                for case, figure in measured.items():
                    work, who = case.split("/")
                    if work in ("text_any", "loading"):
                        yield "lookup" if work == "text_any" else work, who, messages, figure
                yield from (("making", what, messages, seconds) for what, (seconds, _) in zip(("generated", "compiled"), costs))


def measure_pictures(bench):
    for _ in rounds_of("pictures"):
        for case, figure in bench.round_of("bench_picture_sizes", ".", PICTURE_SIZES=" ".join(map(str, EDGES))).items():
            work, who = case.split("/")
            if not work.endswith("_allocations"):
                what, edge = work.rsplit("_", 1)
                yield what, who, int(edge), figure


def measure_documents(bench):
    for _ in rounds_of("documents"):
        for entries in ENTRIES:
            for case, figure in bench.round_of("bench_documents", "^xml/", DOCUMENT_ENTRIES=str(entries)).items():
                if case.startswith("xml/"):
                    yield "whole", case.split("/")[1], entries, figure * entries


def measure_hosts(bench):
    print("bench: hosts", file=sys.stderr)
    for who, hosts, rate, middle, slow in bench.hosts(*HOSTS):
        yield from ((what, who, int(hosts), figure) for what, figure in (("rate", rate), ("median", middle), ("slowest", slow)))


SERIES = {"catalogue": measure_catalogue, "pictures": measure_pictures, "documents": measure_documents, "hosts": measure_hosts}


def read():
    """{(series, what, who): [(size, figure), ...]}, ascending by size."""
    lines = FIGURES.read_text(encoding="utf-8").splitlines()[1:] if FIGURES.exists() else []
    figures = {}
    for series, what, who, size, figure in (line.split("\t") for line in lines):
        figures.setdefault((series, what, who), []).append((int(size), float(figure)))
    return {key: sorted(points) for key, points in figures.items()}


def write(figures):
    rows = [f"{series}\t{what}\t{who}\t{size}\t{figure:.5g}" for (series, what, who), points in figures.items()
            for size, figure in points]
    FIGURES.write_text("\n".join([HEAD, *sorted(rows, key=lambda row: row.split("\t")[:3])]) + "\n", encoding="utf-8")


def exponent(points, least):
    """The power of the size that fits the figures best, from a size on."""
    logs = [(math.log(size), math.log(figure)) for size, figure in points if size >= least]
    mean_x, mean_y = (statistics.fmean(column) for column in zip(*logs))
    return sum((x - mean_x) * (y - mean_y) for x, y in logs) / sum((x - mean_x) ** 2 for x, _ in logs)


def run(bench, wanted):
    """Measures the series wanted, none for None, and draws all. Returns the exit code."""
    for series in wanted or ():
        rounds, measured = {}, {}
        for what, who, size, figure in SERIES[series](bench):
            rounds.setdefault((what, who, size), []).append(figure)
        for (what, who, size), figures in rounds.items():
            measured.setdefault((series, what, who), []).append((size, statistics.median(figures)))
        write({**{key: points for key, points in read().items() if key[0] != series}, **measured})
    figures = read()
    for who in ("ours", "floor", "expat"):
        if ("documents", "whole", who) in figures:
            print(f"documents of 1,000 entries and more, {who}: time grows with the power "
                  f"{exponent(figures['documents', 'whole', who], 1000):.3f} of the entries")
    import bench_plots  # needs a package that the table does not
    bench_plots.draw(figures)
    return 0
