#!/usr/bin/env python3
"""Makes a page of what bench/run printed: the tables, and a picture for each.

    bench/run ... | bench/report.py PAGE.md NAME "command that prints it"

NAME.FAMILY.svg, beside the page, shows how many times as fast as its fastest peer the library is. Needs gnuplot.
"""
import datetime
import pathlib
import re
import subprocess
import sys


def cells(line):
    return [cell.strip() for cell in line.strip().strip("|").split("|")]


def quoted(text):
    return '"' + text.replace('"', "'").replace("_", r"\\_") + '"'


def picture(path, title, rows):
    """rows: (case, n, times as fast). Curves over n where there are many sizes, else bars."""
    curves = {}
    for case, n, gain in rows:
        curves.setdefault(case, []).append((n, gain))
    script = [f"set terminal svg size 900,{{height}} font 'sans,13' background rgb 'white'", f"set output {quoted(str(path))}",
              f"set title {quoted(title)}", "set grid lc rgb '#dddddd'", "set style fill solid"]
    data = []
    if max(map(len, curves.values())) >= 5:
        height = 460
        script += ["set logscale x 2", "set logscale y 2", "set format x '2^{%L}'", "set xlabel 'elements'",
                   "set ylabel 'times as fast as the fastest peer'", "set key outside bottom center horizontal"]
        plots = ["1 with lines lc rgb '#888888' notitle"]
        for case, points in curves.items():
            plots.append(f"'-' with linespoints lw 2 pt 7 ps 0.4 title {quoted(case)}")
            data += [f"{n} {gain}" for n, gain in points] + ["e"]
    else:
        height = 90 + 17 * len(rows)
        labels = ", ".join(f"{quoted(f'{case}, {n}')} {i}" for i, (case, n, _) in enumerate(rows))
        script += [f"set yrange [{len(rows)}:-1]", f"set ytics ({labels}) font 'sans,11'", "set logscale x 2",
                   "set xlabel 'times as fast as the fastest peer'", "set arrow from 1, graph 0 to 1, graph 1 nohead front",
                   "set xrange [*<0.5:2<*]"]
        plots = ["'-' using (($1 + 1) / 2):2:(($1 < 1 ? $1 : 1)):(($1 < 1 ? 1 : $1)):($2 - .35):($2 + .35) with boxxyerror"
                 " lc rgb '#3070b0' notitle"]
        data += [f"{gain} {i}" for i, (_, _, gain) in enumerate(rows)] + ["e"]
    script[0] = script[0].format(height=height)
    subprocess.run(["gnuplot"], input="\n".join(script + ["plot " + ", ".join(plots)] + data) + "\n", text=True, check=True)


def versions():
    """Of the peers' packages."""
    packages = ["libbenchmark-dev", "libvolk2-dev", "libeigen3-dev", "libfftw3-dev", "libkissfft-dev", "libliquid-dev",
                "libspandsp-dev"]
    found = subprocess.run(["dpkg-query", "-W", "-f=${Package} ${Version}\\n", *packages], capture_output=True, text=True)
    return ", ".join(line.replace("lib", "", 1).replace("-dev", "") for line in found.stdout.splitlines())


def main():
    page, name, command = pathlib.Path(sys.argv[1]), sys.argv[2], sys.argv[3]
    out = []
    family, rows, head = None, [], None

    def close():
        if family and rows:
            file = f"{name}.{re.sub('[^a-z0-9]+', '-', family.lower()).strip('-')}.svg"
            picture(page.parent / file, family, rows)
            out[place:place] = [f"![{family}]({file})", ""]

    noise = []
    for line in sys.stdin:
        line = line.rstrip("\n")
        print(line, flush=True)
        if line.startswith("## "):
            close()
            family, rows, head = line[3:], [], None
            out += ["", line, ""]
            place = len(out)
            continue
        if line.startswith("|") and family:
            row = cells(line)
            if head is None:
                head = row
            elif "ratio" in head and not row[0].startswith("--") and row[head.index("ratio")]:
                rows.append((row[0], int(row[1]), 1 / max(float(row[head.index("ratio")]), .005)))
        if line.startswith("Noise: "):
            noise.append(line[7:])
            continue
        if family is None or "kernels; peers" in line:
            if "kernels; peers" in line and not out:
                out += ["# Benchmarks", "", f"Made by `{command}` on {datetime.date.today()}: {line}.", "",
                        f"Peers: {versions()}, and plain loops.", "",
                        "All contenders of a row ran in turns on one core; the fastest of many repetitions counts. A ratio below"
                        " 1 says that the library takes less time than its fastest peer."]
            continue
        if line or (out and out[-1]):
            out.append(line)
    close()
    out += ["", "## Noise", ""] + [f"- {line}" for line in noise]
    page.write_text("\n".join(out) + "\n")


main()
