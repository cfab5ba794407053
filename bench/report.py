#!/usr/bin/env python3
"""Makes pages of what bench/run printed: the tables, a picture and notes for each, and an index of pages.

    bench/run ... | bench/report.py PAGE.md NAME "command that prints it"     NAME.FAMILY.svg beside the page: the pictures
    bench/report.py --index README.md PAGE.md...                              one line a family: its ratios on each page

Needs gnuplot. Notes stand in notes.txt.
"""
import datetime
import fnmatch
import os
import pathlib
import re
import statistics
import subprocess
import sys

LONG = 1000  # elements from which on a call's own cost counts for little
BEHIND = 1.08  # ratio beyond which a row of so many wants a note: differences below come and go between runs
OWN = "arkpx"


def cells(line):
    return [cell.strip() for cell in line.strip().strip("|").split("|")]


def is_rule(line):
    return set(line) <= set("|-: ")


class Table:
    """Lines of a table in Markdown: titles, and a dictionary for each row."""

    def __init__(self, lines):
        self.titles, self.rule = cells(lines[0]), cells(lines[1])
        self.rows = [dict(zip(self.titles, cells(line))) for line in lines[2:]]

    def lines(self):
        """Without columns that are empty in every row."""
        kept = [i for i, title in enumerate(self.titles) if i == 0 or any(row[title] for row in self.rows)]
        grid = [[self.titles[i] for i in kept]] + [[row[self.titles[i]] for i in kept] for row in self.rows]
        widths = [max(map(len, column)) for column in zip(*grid)]
        numeric = [self.rule[i].endswith(":") for i in kept]
        grid.insert(1, ["-" * (w - n) + ":" * n for w, n in zip(widths, numeric)])
        return ["| " + " | ".join(cell.rjust(w) if n else cell.ljust(w) for cell, w, n in zip(row, widths, numeric)) + " |"
                for row in grid]

    def ratios(self):
        """(case, n, ratio) of the rows that have one."""
        if "ratio" not in self.titles:
            return []
        return [(row[""], int(row["n"]), float(row["ratio"])) for row in self.rows if row["ratio"]]

    def contenders(self):
        return self.titles[2:self.titles.index("ratio")]

    def gains(self):
        """{case: [(n, times as fast as the fastest peer)]}"""
        curves = {}
        for case, n, ratio in self.ratios():
            curves.setdefault(case, []).append((n, 1 / max(ratio, .005)))
        return curves

    def costs(self):
        """{(case, contender): [(n, time, or operations in that time)]}: the library's, and of its peers the fastest's."""
        curves = {}
        for row in self.rows:
            times = {name: float(row[name]) for name in self.contenders() if row[name]}
            peers = [time for name, time in times.items() if name != OWN]
            for name, time in [(OWN, times[OWN])] + ([("fastest peer", min(peers))] if peers else []):
                value = float(row["Gop/s"]) * times[OWN] / time if row.get("Gop/s") else time
                curves.setdefault((row[""], name), []).append((int(row["n"]), value))
        return curves


def parts(text):
    """Lists of lines: each a table, or what stands between two."""
    found = []
    for line in text:
        if not found or line.startswith("|") != found[-1][0].startswith("|"):
            found.append([])
        found[-1].append(line)
    return found


# ---- pictures ----


def quoted(text):
    return '"' + text.replace('"', "'").replace("_", r"\\_") + '"'


def draw(path, title, height, script, plots, data):
    head = [f"set terminal svg size 900,{height} font 'sans,13' background rgb 'white'", f"set output {quoted(str(path))}",
            f"set title {quoted(title)}", "set grid lc rgb '#dddddd'", "set style fill solid"]
    text = "\n".join(head + script + ["plot " + ", ".join(plots)] + data) + "\n"
    subprocess.run(["gnuplot"], input=text, text=True, check=True)


def draw_gains(path, title, curves):
    """Curves over n where there are many sizes, else bars."""
    if max(map(len, curves.values())) >= 5:
        script = ["set logscale x 2", "set logscale y 2", "set format x '2^{%L}'", "set xlabel 'elements'",
                  "set ylabel 'times as fast as the fastest peer'", "set key outside bottom center horizontal"]
        plots, data = ["1 with lines lc rgb '#888888' notitle"], []
        for case, points in curves.items():
            plots.append(f"'-' with linespoints lw 2 pt 7 ps 0.4 title {quoted(case)}")
            data += [f"{n} {gain}" for n, gain in points] + ["e"]
        draw(path, title, 460, script, plots, data)
        return
    bars = [(case, n, gain) for case, points in curves.items() for n, gain in points]
    labels = ", ".join(f"{quoted(f'{case}, {n}')} {i}" for i, (case, n, _) in enumerate(bars))
    script = [f"set yrange [{len(bars)}:-1]", f"set ytics ({labels}) font 'sans,11'", "set logscale x 2",
              "set xlabel 'times as fast as the fastest peer'", "set arrow from 1, graph 0 to 1, graph 1 nohead front",
              "set xrange [*<0.5:2<*]"]
    plots = ["'-' using (($1 + 1) / 2):2:(($1 < 1 ? $1 : 1)):(($1 < 1 ? 1 : $1)):($2 - .35):($2 + .35) with boxxyerror"
             " lc rgb '#3070b0' notitle"]
    draw(path, title, 90 + 17 * len(bars), script, plots, [f"{gain} {i}" for i, (_, _, gain) in enumerate(bars)] + ["e"])


def draw_costs(path, title, curves, is_rate):
    """The library's as lines, the fastest peer's dashed in the same colour."""
    colours = ["#1f77b4", "#d62728", "#2ca02c", "#9467bd", "#ff7f0e", "#8c564b", "#17becf"]
    cases = list(dict.fromkeys(case for case, _ in curves))
    script = ["set logscale x 10", "set logscale y 10", "set format x '10^{%L}'", "set xlabel 'n'",
              f"set ylabel '{'5 N log_2 N, or half of it, in Gop/s' if is_rate else 'nanoseconds'}'",
              "set key outside bottom center horizontal"]
    plots, data = [], []
    for (case, contender), points in curves.items():
        own = contender == OWN
        plots.append(f"'-' with {'linespoints pt 7 ps 0.4' if own else 'lines dt 2'} lw 2 lc rgb"
                     f" '{colours[cases.index(case) % len(colours)]}'"
                     + (f" title {quoted(case)}" if own else " notitle"))
        data += [f"{n} {value}" for n, value in points] + ["e"]
    draw(path, title + " (dashed: the fastest peer)", 560, script, plots, data)


# ---- notes ----


def notes():
    """(family, case, sets, text) of every note; see the head of the file."""
    found = []
    for line in pathlib.Path(__file__).with_name("notes.txt").read_text().splitlines():
        if line.startswith(" ") and found:
            found[-1][-1] += " " + line.strip()
        elif line and not line.startswith("#"):
            head, text = line.split(":", 1)
            found.append([part.strip() for part in head.split("|")] + [text.strip()])
    return found


def notes_of(family, kernels, table, known):
    """Lines about the rows that are behind; tells on the terminal of those that no note explains."""
    behind = [(case, n, ratio) for case, n, ratio in table.ratios() if n >= LONG and ratio > BEHIND]
    lines, explained = [], set()
    for of_family, of_case, sets, text in known:
        cases = [row for row in behind if kernels in sets.split() and fnmatch.fnmatch(family, of_family)
                 and fnmatch.fnmatch(row[0], of_case)]
        if cases:
            explained.update(cases)
            lines.append(f"- *{', '.join(dict.fromkeys(case for case, _, _ in cases))}*: {text}")
    for case, n, ratio in behind:
        if (case, n, ratio) not in explained:
            print(f"bench/report.py: no note says why '{family}', '{case}', {n} takes {ratio:.2f} of its peer's time"
                  f" on {kernels}", file=sys.stderr)
    return [""] + lines if lines else []


# ---- pages ----


def versions():
    """Of the peers' packages."""
    packages = ["libbenchmark-dev", "libvolk2-dev", "libeigen3-dev", "libfftw3-dev", "libkissfft-dev", "libliquid-dev",
                "libspandsp-dev", "libgsl-dev"]
    found = subprocess.run(["dpkg-query", "-W", "-f=${Package} ${Version}\\n", *packages], capture_output=True, text=True)
    return ", ".join(line.replace("lib", "", 1).replace("-dev", "") for line in found.stdout.splitlines())


def system():
    names = re.findall(r'^PRETTY_NAME="(.*)"', pathlib.Path("/etc/os-release").read_text(), re.M)
    return f"{names[0] if names else 'unknown system'}, {os.cpu_count()} processors"


PEERS_OF = {
    "avx2": "Peers that are compiled here are compiled for AVX2 and FMA; FFTW, which chooses for itself, has AVX in"
            " Debian's package, but neither AVX2 nor FMA.",
    "sse2": "Peers that are compiled here are compiled for SSE2, and FFTW, which chooses for itself, is kept from choosing"
            " AVX.",
}


TITLES = {"best": "Benchmarks", "avx2": "Benchmarks with AVX2", "sse2": "Benchmarks with SSE2",
          "scaling": "Benchmarks over lengths, and on two threads"}


def head_of(name, command, machine, kernels, tables):
    spreads = [float(row["spread"].rstrip("%")) for table in tables for row in table.rows if row.get("spread")]
    lines = ["# " + TITLES.get(name, name), "",
             f"Made by `{command}` on {datetime.date.today()}: {machine}; {system()}.", "", f"Peers: {versions()}, and plain loops."]
    if name in PEERS_OF:
        lines[-1] += " " + PEERS_OF[name]
    lines += ["", "All contenders of a row ran in turns on one core; the fastest of many repetitions counts. A ratio below 1 says"
              " that the library takes less time than its fastest peer."]
    if len(spreads) > 1:
        tenth = statistics.quantiles(spreads, n=10)[-1]
        lines[-1] += (f" Noise: the median repetition lies above the fastest by {statistics.median(spreads):.1f} % in the median"
                      f" row, by less than {tenth:.1f} % in nine of ten rows, by {max(spreads):.1f} % in the worst; each row's is"
                      " its *spread*.")
    return lines


def make_page(page, name, command):
    printed = []
    for line in sys.stdin:
        print(line, end="", flush=True)
        printed.append(line.rstrip("\n"))
    machine = next((line for line in printed if "kernels; peers" in line), "unknown machine")
    kernels = (re.findall(r"(\w+) kernels", machine) or ["avx512"])[0]
    text = [line for line in printed if "kernels; peers" not in line and not line.startswith("Noise: ")]

    known, body, tables, family = notes(), [], [], None
    for part in parts(text):
        if not part[0].startswith("|"):
            body += part
            family = next((line[3:] for line in reversed(part) if line.startswith("## ")), family)
            continue
        table = Table(part)
        tables.append(table)
        if table.ratios():
            file = f"{name}.{re.sub('[^a-z0-9]+', '-', family.lower()).strip('-')}.svg"
            if family.startswith("Scaling"):
                draw_costs(page.parent / file, family, table.costs(), "Gop/s" in table.titles)
            else:
                draw_gains(page.parent / file, family, table.gains())
            body += [f"![{family}]({file})", ""]
        body += table.lines() + notes_of(family, kernels, table, known)
    everything = "\n".join(head_of(name, command, machine, kernels, tables) + [""] + body)
    page.write_text(re.sub(r"\n{3,}", "\n\n", everything).rstrip() + "\n")


# ---- the index ----


def anchor(title):
    return re.sub(r"[^\w\- ]", "", title.lower()).replace(" ", "-")


def summary(ratios):
    return " / ".join(f"{f(ratios):.2f}" for f in (min, statistics.median, max)) if ratios else ""


def make_index(index, pages):
    sets, lengths = {"avx512": "AVX-512", "avx2": "AVX2", "sse2": "SSE2"}, (f"{LONG} or more", "fewer")
    found = {}  # family: {(set, length): cell}
    for page in pages:
        text = page.read_text()
        kernels, family = re.findall(r"(\w+) kernels; peers", text)[0], None
        for part in parts(text.splitlines()):
            family = next((line[3:] for line in reversed(part) if line.startswith("## ")), family)
            ratios = Table(part).ratios() if family and part[0].startswith("|") else []
            for length in lengths:
                cell = summary([ratio for _, n, ratio in ratios if (n >= LONG) == (length == lengths[0])])
                if cell:
                    found.setdefault(family, {})[kernels, length] = f"[{cell}]({page.name}#{anchor(family)})"
    columns = [(kernels, length) for length in lengths for kernels in sets
               if any((kernels, length) in row for row in found.values())]
    lines = ["# Benchmarks", "", "Pages: " + ", ".join(
                 f"[{page.read_text().splitlines()[0].lstrip('# ')}]({page.name})" for page in pages) + ".", "",
             "The library's time divided by its fastest peer's: the least / the median / the greatest of a family's cases."
             f" Below 1 the library is faster. Cases of fewer than {LONG} elements stand apart: they are mostly calls and"
             " checks of arguments, which the peers do not make. The pages have the tables, pictures, machine, versions and"
             " noise, and notes where the library is behind.", "",
             "| | " + " | ".join(f"{sets[kernels]}, {length}" for kernels, length in columns) + " |",
             "|---|" + "---|" * len(columns)]
    lines += [f"| {family} | " + " | ".join(row.get(column, "") for column in columns) + " |" for family, row in found.items()]
    index.write_text("\n".join(lines) + "\n")


if sys.argv[1] == "--index":
    make_index(pathlib.Path(sys.argv[2]), [pathlib.Path(page) for page in sys.argv[3:]])
else:
    make_page(pathlib.Path(sys.argv[1]), sys.argv[2], sys.argv[3])
