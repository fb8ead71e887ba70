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


def median(rounds):
    return statistics.median(rounds.values())


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


def measure_catalogue(bench):
    making = TableMaking(bench.build)
    for messages in MESSAGES:
        with tempfile.TemporaryDirectory(dir=bench.build) as name:
            folder = Path(name)
            write_catalogue(folder / "catalogue", making.catalogue, messages)
            costs = making.make_library(folder, folder / "catalogue")
            environment = ["env", f"LD_LIBRARY_PATH={folder}"]
            make_peers(bench, folder / "peers", environment, messages)
            times, _ = bench.rates("bench_texts", "text_any", ROUNDS, environment, PEER_CATALOGUES=str(folder / "peers"))
            loading = bench.loading(f"ours={folder}/{LIBRARY}.0", f"plain={folder}/{PLAIN_LIBRARY}")
            yield from (("lookup", case.split("/")[1], messages, median(rounds)) for case, rounds in times.items())
            yield from (("making", what, messages, seconds) for what, (seconds, _) in zip(("generated", "compiled"), costs))
            yield from (("loading", who, messages, median(loading["loading/" + who])) for who in ("ours", "plain"))


def measure_pictures(bench):
    times, _ = bench.rates("bench_picture_sizes", ".", ROUNDS, PICTURE_SIZES=" ".join(map(str, EDGES)))
    for case, rounds in times.items():
        work, who = case.split("/")
        what, edge = work.rsplit("_", 1)
        yield what, who, int(edge), median(rounds)


def measure_documents(bench):
    for entries in ENTRIES:
        times, _ = bench.rates("bench_documents", "^xml/", ROUNDS, DOCUMENT_ENTRIES=str(entries))
        yield from (("whole", case.split("/")[1], entries, median(rounds) * entries) for case, rounds in times.items())


def measure_hosts(bench):
    by_case = {}
    for who, hosts, rate, middle, slow in bench.hosts(*HOSTS):
        for what, figure in (("rate", rate), ("median", middle), ("slowest", slow)):
            by_case.setdefault((what, who, int(hosts)), []).append(figure)
    return ((*case, statistics.median(figures)) for case, figures in by_case.items())


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
        print(f"bench: {series}", file=sys.stderr)
        measured = {}
        for what, who, size, figure in SERIES[series](bench):
            measured.setdefault((series, what, who), []).append((size, figure))
        write({**{key: points for key, points in read().items() if key[0] != series}, **measured})
    figures = read()
    for who in ("ours", "floor", "expat"):
        if ("documents", "whole", who) in figures:
            print(f"documents of 1,000 entries and more, {who}: time grows with the power "
                  f"{exponent(figures['documents', 'whole', who], 1000):.3f} of the entries")
    import bench_plots  # needs a package that the table does not
    bench_plots.draw(figures)
    return 0
