"""How the build makes the library's tables: its own commands, run in another folder, as they are but for ccache."""
import os
import re
import subprocess
import tempfile
from pathlib import Path

from measurements import fail

LIBRARY = "libpanel_view_support.so"
PLAIN_LIBRARY = "libpanel_view_support_plain.so"
PACKING = "-Wl,-z,pack-relative-relocs"
MEGABYTE = 1024.0  # of the kilobytes that the system counts


class TableMaking:
    def __init__(self, build):
        self.build = build
        cache = (build / "CMakeCache.txt").read_text(encoding="utf-8")
        self.catalogue = re.search(r"^PANEL_VIEW_CATALOGUE_DIR:PATH=(.*)$", cache, re.MULTILINE).group(1)
        self.sources = f"{build}/resource_manager/catalogue/tables"
        self.objects = "resource_manager/catalogue/CMakeFiles/panel_view_tables.dir/tables"
        listed = subprocess.run(["ninja", "-C", build, "-t", "commands", "panel_view_support"], stdout=subprocess.PIPE,
                                text=True, check=True).stdout.splitlines()
        commands = [re.sub(r"(^|&& )\S*/?ccache ", r"\1", line) for line in listed]
        of_tables = [command for command in commands if self.sources in command]
        self.generation = [command for command in of_tables if "/panel_resource_compiler " in command]
        self.compilation = [command for command in of_tables if command not in self.generation]
        self.link = next(command for command in commands if f" -o lib/{LIBRARY}" in command)

    def run(self, commands, folder, catalogue):
        """Runs commands of the build for another folder. Returns CPU seconds and the megabytes of the largest process."""
        seconds, megabytes = 0.0, 0.0
        for command in commands:
            command = command.replace(self.sources, f"{folder}/tables").replace(self.objects, f"{folder}/objects")
            command = command.replace(f"--catalogue {self.catalogue}", f"--catalogue {catalogue}")
            process = subprocess.Popen(["sh", "-c", command], cwd=self.build, env=dict(os.environ, CCACHE_DISABLE="1"))
            _, status, usage = os.wait4(process.pid, 0)
            process.returncode = os.waitstatus_to_exitcode(status)
            if process.returncode != 0:
                fail(f"{command}: ended with {process.returncode}")
            seconds += usage.ru_utime + usage.ru_stime
            megabytes = max(megabytes, usage.ru_maxrss / MEGABYTE)
        return seconds, megabytes

    def make(self, folder, catalogue=None):
        """Makes the tables' objects in a folder. Returns the costs of generation and of compilation."""
        for name in ("tables", "objects"):
            (folder / name).mkdir(parents=True, exist_ok=True)
        catalogue = catalogue or self.catalogue
        return self.run(self.generation, folder, catalogue), self.run(self.compilation, folder, catalogue)

    def make_library(self, folder, catalogue):
        """
        Makes the library with the tables of a catalogue, which a program finds in LD_LIBRARY_PATH, and one without packed
        relocations beside it. Returns as make().
        """
        cost = self.make(folder, catalogue)
        link = re.sub(rf" -o lib/{re.escape(LIBRARY)}\S*", f" -o {folder}/{LIBRARY}.0", self.link)
        plain = link.replace(PACKING, "").replace(f"{folder}/{LIBRARY}.0", f"{folder}/{PLAIN_LIBRARY}")
        self.run([link, plain], folder, catalogue)
        return cost

    def costs(self, rounds):
        """CPU seconds and megabytes of making the tables of the build, by round."""
        figures = {}
        for number in range(rounds):
            with tempfile.TemporaryDirectory(dir=self.build) as folder:
                (seconds_1, megabytes_1), (seconds_2, megabytes_2) = self.make(Path(folder))
            for work, figure in (("tables_generated", seconds_1), ("tables_compiled", seconds_2),
                                 ("tables_made", seconds_1 + seconds_2), ("tables_memory", max(megabytes_1, megabytes_2))):
                figures.setdefault(work + "/ours", {})[number] = figure
        return figures
