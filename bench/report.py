#!/usr/bin/env python3
"""Makes the page on performance from the results of the benchmark program.

usage: report.py RESULTS [PILLOW] >PAGE

RESULTS is the program's JSON; repeated benchmarks count with their median. PILLOW is the output of
pillow_dither.py. The file targets.json beside this script has what each benchmark is compared with
(another benchmark, or a limit), and how much of that it may take.

The status is 1 if a benchmark has no entry in targets.json, or an entry no benchmark.
"""
import json
import math
import os
import re
import sys

ARGUMENT = re.compile(r"^([a-z_]+:)?\d+$")
NOT_IN_NAMES = re.compile(r"/((real|manual|process)_time|min_time:[\d.]+|(iterations|repeats):\d+)")
UNITS = {"ns": 1, "us": 1e3, "ms": 1e6, "s": 1e9}


class Results:
    """Times in nanoseconds by the name of the benchmark with its arguments."""

    def __init__(self, data, pillow):
        self.times = {}
        medians = set()
        for run in data["benchmarks"]:
            if run.get("error_occurred"):
                raise SystemExit(f"report: {run['name']}: {run.get('error_message')}")
            run_name = run.get("run_name", run["name"])
            name = NOT_IN_NAMES.sub("", run_name)
            median = run.get("aggregate_name") == "median"
            if not median and (run["run_type"] != "iteration" or name in medians):
                continue
            if median:
                medians.add(name)
            clock = "real_time" if re.search(r"/(real|manual)_time", run_name) else "cpu_time"
            self.times[name] = run[clock] * UNITS[run["time_unit"]]
        for line in pillow.splitlines():
            name, milliseconds = line.split()[:2]
            self.times[name] = float(milliseconds) * 1e6

    def of(self, name):
        """[(arguments, time)] of a benchmark, smallest arguments first."""
        found = []
        for key, time in self.times.items():
            if key == name:
                found.append(("", time))
            elif key.startswith(name + "/"):
                arguments = key[len(name) + 1:]
                if all(ARGUMENT.match(part) for part in arguments.split("/")):
                    found.append((arguments, time))
        return sorted(found, key=lambda entry: numbers(entry[0]))

    def peer(self, name, arguments):
        """The peer's time for the same arguments, or its only time if it has no arguments."""
        return self.times.get(f"{name}/{arguments}" if arguments else name, self.times.get(name))


def numbers(arguments):
    return [int(part.split(":")[-1]) for part in arguments.split("/") if part]


def shown_time(nanoseconds):
    for unit in ("s", "ms", "us"):
        if nanoseconds >= UNITS[unit]:
            value = nanoseconds / UNITS[unit]
            break
    else:
        unit, value = "ns", nanoseconds
    return f"{value:.3g} {unit}" if value < 1000 else f"{value:.0f} {unit}"


def shown_ratio(ratio):
    return f"{ratio:.2f}" if ratio >= 0.095 else f"1/{1 / ratio:.0f}"


def growth(sizes):
    """The power of the first argument with which the time grows, from smallest to largest."""
    first, last = sizes[0], sizes[-1]
    if ":" in first[0]:
        return None  # an option, not a size
    few, many = numbers(first[0]), numbers(last[0])
    if len(few) == 0 or few[0] == 0 or few[0] == many[0] or few[1:] != many[1:]:
        return None
    return math.log(last[1] / first[1]) / math.log(many[0] / few[0])


class Page:
    def __init__(self, results):
        self.results = results
        self.used = set()
        self.faults = []
        self.behind = []
        self.judged = 0
        self.lines = []

    def use(self, name, arguments):
        self.used.add(f"{name}/{arguments}" if arguments else name)

    def judge(self, row, arguments, good):
        self.judged += 1
        if good:
            return ""
        self.behind.append(" ".join(filter(None, [row["what"], arguments])))
        return " **missed**"

    def line(self, row, arguments, time, group_growth):
        self.use(row["run"], arguments)
        size = arguments or row["run"].rpartition("/")[2]
        size = size.replace("/", ", ") if ARGUMENT.match(size.split("/")[0]) else "-"
        cells = [row["what"], size, shown_time(time)]
        if "peer" in row:
            same = "/".join(filter(None, [arguments, row.get("peer_size")]))
            peer = self.results.peer(row["peer"], same)
            if peer is None:
                self.faults.append(f"{row['run']}: no benchmark {row['peer']} for '{same}'")
                return
            self.used.update([row["peer"], f"{row['peer']}/{same}"])
            ratio = time / peer
            wanted, verdict = "-", ""
            if "most" in row:
                wanted = f"at most {row['most']:g}"
                verdict = self.judge(row, arguments, ratio <= row["most"])
            cells += [f"{row['beside']}, {shown_time(peer)}", shown_ratio(ratio), wanted + verdict]
        elif "limit" in row:
            verdict = self.judge(row, arguments, time <= row["limit"])
            cells += ["limit", shown_ratio(time / row["limit"]),
                      f"at most {shown_time(row['limit'])}{verdict}"]
        else:
            cells += ["-", "-", "-"]
        if group_growth is None:
            cells.append("-")
        else:
            verdict = ""
            if "growth" in row:
                verdict = self.judge(row, "growth", group_growth <= row["growth"])
            cells.append(f"n^{group_growth:.2f}{verdict}")
        self.lines.append("| " + " | ".join(cells) + " |")

    def group(self, group):
        self.lines += ["", f"## {group['title']}", "", group["about"], "",
                       "| what | size | time | peer | ratio | target | growth |",
                       "|---|---|---|---|---|---|---|"]
        for row in group["rows"]:
            sizes = self.results.of(row["run"])
            if not sizes:
                if not row.get("optional"):
                    self.faults.append(f"no benchmark {row['run']}")
                continue
            for arguments, time in sizes:
                last = arguments == sizes[-1][0]
                self.line(row, arguments, time, growth(sizes) if last and len(sizes) > 1 else None)


def processor():
    with open("/proc/cpuinfo", encoding="utf-8") as cpus:
        for line in cpus:
            if line.startswith("model name"):
                return line.split(":", 1)[1].strip()
    return "unknown processor"


def head(context, page, repeated):
    cpus, load = context["num_cpus"], context.get("load_avg", [0])[0]
    machine = f"{processor()}, {cpus} cores"
    busy = (f"The machine was busy with other work: {load:.1f} programs competed for its {cpus} "
            "cores when the run started. Times that include waiting for the disk, for other "
            "programs or for the clock are therefore longer; the ratios, from the same run, are "
            "what counts."
            if load > cpus / 4 else "The machine had nothing else to do.")
    verdict = (f"{page.judged} figures have a target; all are met." if not page.behind else
               f"{page.judged} figures have a target; {len(page.behind)} miss it: " +
               ", ".join(page.behind) + ".")
    return ["# Performance", "",
            "Made by `scripts/bench --report`; the targets are in "
            "[targets.json](../bench/targets.json).",
            "",
            f"Measured on {context['date'][:10]} on {machine}, optimised build" +
            (", medians of repeated runs" if repeated else "") + f". {busy}", "",
            verdict, "",
            "**Time** is processor time; for operations that wait for files or run programs it is "
            "elapsed time. **Peer** is what the operation is compared with in the same run, and "
            "its time; **ratio** is the one divided by the other. Where there is no **target** the "
            "peer only does part of the work, and shows what the rest costs. **Growth** is the "
            "power of the size (the first number) with which the time grows from the smallest size "
            "to the largest: 1 is linear."]


def main(results, pillow=None):
    with open(results, encoding="utf-8") as file:
        data = json.load(file)
    text = ""
    if pillow:
        with open(pillow, encoding="utf-8") as file:
            text = file.read()
    page = Page(Results(data, text))
    here = os.path.dirname(os.path.abspath(__file__))
    with open(os.path.join(here, "targets.json"), encoding="utf-8") as file:
        for group in json.load(file):
            page.group(group)
    repeated = any(run.get("aggregate_name") == "median" for run in data["benchmarks"])
    print("\n".join(head(data["context"], page, repeated) + page.lines))
    page.faults += [f"{name} is not in targets.json"
                    for name in sorted(set(page.results.times) - page.used)]
    for fault in page.faults:
        print("report:", fault, file=sys.stderr)
    return 1 if page.faults else 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
