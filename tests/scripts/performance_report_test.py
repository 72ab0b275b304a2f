"""Tests of the report of what the library costs, on measurements made up for each case."""

import json
import pathlib
import sys
import tempfile
import unittest

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[2] / "scripts/lib"))

import performance_report as report  # noqa: E402 (found by the path above)


def taken(name, time, **counters):
    return {"name": name, "run_type": "iteration", "cpu_time": time, "real_time": time, "time_unit": "us", **counters}


def row(lowest, ratio, highest):
    return {"time": 1, "floor": 1, "ratio": ratio, "lowest": lowest, "highest": highest}


def of(rows, sizes=None, date="2030-01-02"):
    return {
        "date": date, "machine": "a machine", "ratios": rows, "sizes": sizes or {},
        "frames": [], "icons": [], "toggles": [], "memory": [],
    }  # fmt: skip


class ReportTest(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)

    def write(self, name, *runs):
        path = self.folder / name
        path.write_text(json.dumps({"benchmarks": runs}), encoding="utf-8")
        return path

    def test_ratio_is_the_median_of_the_repetitions(self):
        path = self.write(
            "some.json",
            *(taken("a pull", time) for time in (30, 24, 50)), *(taken("a pull/floor", time) for time in (10, 12, 10)),
        )  # fmt: skip
        self.assertEqual(
            report.ratios(report.times(path)),
            {"a pull": {"time": 30000, "floor": 10000, "ratio": 3, "lowest": 2, "highest": 5}},
        )

    def test_what_has_no_floor_is_no_row(self):
        path = self.write("some.json", taken("alone", 1), taken("another/floor", 1))
        self.assertEqual(report.ratios(report.times(path)), {})

    def test_openings_are_in_the_order_of_their_numbers(self):
        for count in (10, 2):
            self.write(f"icons-{count}.json", taken("opening the toolbar", 100 + count))
        self.assertEqual(report.numbered(self.folder, "icons"), [(2, 102), (10, 110)])

    def test_frames_are_in_the_order_of_their_pixels(self):
        path = self.write(
            "phone.json", taken("a drawn frame, application, 750 x 1600", 30), taken("a drawn frame, application, 750 x 1600/floor", 4),
            taken("a drawn frame, application, 100 x 200", 7), taken("a drawn frame, home screen, 100 x 200", 9),
        )  # fmt: skip
        self.assertEqual(report.frames(report.times(path)), [(20, 7), (1200, 30)])

    def test_memory_is_in_kibibytes(self):
        path = self.write("phone.json", taken("memory after openings/100/iterations:1", 1, bytes=3072))
        self.assertEqual(report.memory(path), [(100, 3)])

    def test_only_ratios_whose_ranges_lie_apart_have_moved(self):
        before = of({"one": row(1.0, 1.1, 1.2), "two": row(1.0, 1.1, 1.2), "gone": row(1, 1, 1)}, {"arm64": 1000})
        now = of({"one": row(1.19, 1.3, 1.4), "two": row(1.21, 1.3, 1.4), "more": row(1, 1, 1)}, {"arm64": 2000})
        self.assertEqual(
            list(report.moved(now, before)),
            [
                "two: 1.10 before, 1.30 now", "more: new", "gone: no longer measured",
                "the arm64 slice: 1,000 bytes before, 2,000 now",
            ],
        )  # fmt: skip

    def test_first_report_has_nothing_to_compare_with(self):
        text = "\n".join(report.text_of(of({"one": row(1.0, 1.1, 1.2)}), None))
        self.assertIn("Measured on 2030-01-02: a machine.", text)
        self.assertIn("| one | 1 ns | 1 ns | 1.10 | 1.00 to 1.20 |", text)
        self.assertIn("There is no earlier report", text)

    def test_second_report_says_so_when_nothing_moved(self):
        one = of({"one": row(1.0, 1.1, 1.2)})
        text = "\n".join(report.text_of(one, of(one["ratios"], date="2029-05-06")))
        self.assertIn("Against the report of 2029-05-06 (a machine), what moved beyond the noise:\n\n- nothing", text)


if __name__ == "__main__":
    unittest.main()
