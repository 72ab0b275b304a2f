#!/usr/bin/env python3
"""A recording of two minutes of use, replayed twice: replay_test.py PATH-OF-THE-SIMULATOR.

What the window does to the phone is done here through its console: frame by frame, touches where a hand puts
them, keys in between. The replays must end with the same view tree and hook report and show the same
screen to the byte, at the end and in the middle.
"""

import pathlib
import random
import subprocess
import sys
import tempfile
import unittest

FRAME = 0.016666666666666666
SECONDS = 120
WIDTH, HEIGHT = 375, 812
SHOWN = '/var/mobile/Library/Preferences/com.ferolin.VantoriHistoryVersion.plist ["1.2.1"]'
PLAYED = '"A title" "An artist" "An album" "" com.apple.Music'
# What else someone does meanwhile, each between two gestures.
DEEDS = """home; open com.example.notes; open com.apple.Music; rotate landscape-left; rotate portrait; lock; unlock
appearance dark; appearance light; volume 0.3; ringer 0.7; brightness 0.8; toggle flashlight on; toggle lowpower on
toggle lowpower off; volume-key up; playing no; playing yes; post "a.name"; darwin VantoriPB/reloadSettings
setting layoutDirection 1; setting layoutDirection 3; do [[VNTSBToolBarController sharedInstance] isEnabled]"""


def use():
    """The lines of two minutes: gestures and deeds in a random order that is always the same."""
    hand = random.Random(14)
    deeds = DEEDS.replace("\n", ";").split(";")
    frames = 0

    def passing(count):
        nonlocal frames
        frames += count
        return [f"wait {FRAME}"] * count

    def stroke(x, y, to_x, to_y, steps):
        yield f"touch down {x} {y}"
        for step in range(1, steps + 1):
            part = step / steps
            yield f"touch move {x + (to_x - x) * part} {y + (to_y - y) * part} over 0"
            yield from passing(1)
        yield hand.choice(["touch up"] * 5 + ["touch cancel"])

    while frames < SECONDS / FRAME:
        kind = hand.random()
        x, y = hand.uniform(0, WIDTH), hand.uniform(0, HEIGHT)
        if kind < 0.3:  # from the bottom edge
            yield from stroke(x, HEIGHT - 1, x + hand.uniform(-40, 40), hand.uniform(200, 780), hand.randint(4, 20))
        elif kind < 0.5:
            yield from stroke(x, y, hand.uniform(0, WIDTH), hand.uniform(0, HEIGHT), hand.randint(2, 20))
        elif kind < 0.75:
            yield from stroke(x, y, x, y, hand.randint(1, 6))
        else:
            yield hand.choice(deeds).strip()
        yield from passing(hand.randint(5, 60))
    # The last picture is of something under way.
    yield from stroke(60, HEIGHT - 1, 60, 500, 8)
    yield from passing(3)


def with_picture(lines):
    """A picture under the finger that comes down in the middle."""
    places = [index for index, line in enumerate(lines) if line.startswith("touch down")]
    middle = places[len(places) // 2] + 1
    return [*lines[:middle], 'shot "middle.png"', *lines[middle:]]


class Replay(unittest.TestCase):
    simulator = ""

    def ended(self, command, lines):
        return subprocess.run(
            [self.simulator, *command], input="\n".join(lines), capture_output=True, text=True, check=False
        )

    def test_the_same_pictures_twice(self):
        with tempfile.TemporaryDirectory() as name:
            folder = pathlib.Path(name)
            recording = folder / "use.scenario"
            looks = ["tree", "print [VNTHookReport text]", 'shot "last.png"']
            played = with_picture([f"plist {SHOWN}", "boot", f"play {PLAYED}", *use()])
            lines = [*played, "record off", *looks]
            live = self.ended(["console", "--record", str(recording), "--out", str(folder / "live")], lines)
            self.assertEqual(live.returncode, 0, live.stdout[-2000:] + live.stderr)
            recorded = recording.read_text(encoding="utf-8").splitlines()
            self.assertGreater(len(recorded), 500)
            for again in ("first", "second"):
                file = folder / f"{again}.scenario"
                file.write_text("\n".join([*with_picture(recorded), *looks]), encoding="utf-8")
                run = self.ended(["run", str(file), "--out", str(folder / again)], [])
                self.assertEqual(run.returncode, 0, run.stdout[-2000:] + run.stderr)
                self.assertEqual(run.stdout.removesuffix("0 held, 0 failed\n"), live.stdout)
                for picture in ("middle.png", "last.png"):
                    self.assertEqual((folder / again / picture).read_bytes(), (folder / "live" / picture).read_bytes())


if __name__ == "__main__":
    Replay.simulator = sys.argv.pop(1)
    unittest.main()
