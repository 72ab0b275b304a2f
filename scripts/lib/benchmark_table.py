"""Prints the results of the measurements: a line for each subject, its floor beside it.

Times are those of the processor, as the measurements write them (JSON). What else was counted follows
in the last column, the subject's before the floor's.
"""

import json
import sys

FLOOR = "/floor"
KNOWN = {
    "name", "family_index", "per_family_instance_index", "run_name", "run_type", "repetitions",
    "repetition_index", "threads", "iterations", "real_time", "cpu_time", "time_unit",
}  # fmt: skip
NANOSECONDS = {"ns": 1, "us": 1e3, "ms": 1e6, "s": 1e9}


def name_of(run):
    parts = run["name"].split("/")
    return parts[0] + (FLOOR if "floor" in parts else "")


def nanoseconds(run):
    manual = "manual_time" in run["name"]
    return run["real_time" if manual else "cpu_time"] * NANOSECONDS[run["time_unit"]]


def readable(time):
    for unit, size in (("s", 1e9), ("ms", 1e6), ("us", 1e3)):
        if time >= size:
            return f"{time / size:.3g} {unit}"
    return f"{time:.3g} ns"


def counted(run):
    return {key: f"{value:.4g}" for key, value in run.items() if key not in KNOWN}


def notes(subject, floor):
    one, other = counted(subject), counted(floor)
    both = {key: (one.get(key), other.get(key)) for key in one | other}
    return ", ".join(
        f"{key} {' / '.join(value for value in values if value)}" for key, values in both.items()
    )


def rows(runs):
    for name, run in runs.items():
        if not name.endswith(FLOOR) and name + FLOOR in runs:
            floor = runs[name + FLOOR]
            ratio = nanoseconds(run) / nanoseconds(floor)
            yield (name, readable(nanoseconds(run)), readable(nanoseconds(floor)), f"{ratio:.2f}",
                   notes(run, floor))  # fmt: skip


def runs_of(path):
    """The runs that a measuring program wrote, in order. A filter that fits nothing leaves an empty file."""
    with open(path, encoding="utf-8") as file:
        text = file.read()
    for run in json.loads(text)["benchmarks"] if text.strip() else []:
        if run.get("error_occurred"):
            sys.exit(f"{run['name']}: {run['error_message']}")
        yield run


def main():
    runs = {name_of(run): run for path in sys.argv[1:] for run in runs_of(path)}
    table = [("", "time", "floor", "ratio", "counted / floor"), *rows(runs)]
    widths = [max(len(row[i]) for row in table) for i in range(4)]
    for row in table:
        cells = [row[0].ljust(widths[0]), *(row[i].rjust(widths[i]) for i in (1, 2, 3)), row[4]]
        print("  ".join(cells).rstrip())


if __name__ == "__main__":
    main()
