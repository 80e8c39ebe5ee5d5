#!/usr/bin/env python3
"""Measures a tab switch: from the key press of Ctrl+Tab to the other page's pixels on the screen.

Corvane and bench/bare (two plain engine views in a QStackedWidget, switched by the same key) take turns on the same virtual
screen, each with two pages of one colour. The key goes in through the XTEST extension, and one pixel of the screen's memory
is watched. A press that shows nothing within two seconds is an error, so none is dropped unseen.

Build first: cmake --preset bench && cmake --build --preset bench
"""

import argparse
import ctypes
import mmap
import pathlib
import statistics
import struct
import sys
import time

sys.dont_write_bytecode = True
sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent.parent / "tools"))

from stage import Home, Program, Screen, Site, StageError, find_program, wait_until  # noqa: E402

COLOURS = {"/1": (200, 40, 30), "/2": (20, 60, 200)}
SIZE = (1280, 900)
CONTROL, TAB = 0xFFE3, 0xFF09


class Keys:
    """Key presses without another program in between."""

    def __init__(self, display):
        self.x, self.test = ctypes.CDLL("libX11.so.6"), ctypes.CDLL("libXtst.so.6")
        self.x.XOpenDisplay.restype = ctypes.c_void_p
        self.display = ctypes.c_void_p(self.x.XOpenDisplay(display.encode()))
        self.codes = {key: self.x.XKeysymToKeycode(self.display, ctypes.c_ulong(key)) for key in (CONTROL, TAB)}

    def send(self, key, press):
        self.test.XTestFakeKeyEvent(self.display, self.codes[key], press, ctypes.c_ulong(0))
        self.x.XFlush(self.display)


class Pixel:
    """The middle of the screen."""

    def __init__(self, screen):
        with open(screen.folder / "Xvfb_screen0", "rb") as file:
            self.memory = mmap.mmap(file.fileno(), 0, access=mmap.ACCESS_READ)
        words = struct.unpack(">25I", self.memory[:100])
        self.at = words[0] + words[19] * 12 + (SIZE[1] * 2 // 3) * words[12] + SIZE[0] // 2 * 4

    def colour(self):
        blue, green, red = self.memory[self.at : self.at + 3]
        return red, green, blue


def switches(name, screen, site, keys, count, preset):
    home = Home()
    home.seed_ordinary_start()
    addresses = [site.address + path for path in COLOURS]
    command = [find_program("bare" if name == "bare" else "corvane", preset)]
    if name == "bare":
        command += addresses
    else:
        # A hand-over would take the window out of its maximised state, so both come as the saved documents of a run before.
        home.seed("General", "SaveDocumentOnExit", "True")
        home.seed("General", "LoadAction", "1")
        home.seed("Settings", "DocumentCount", "2")
        for number, address in enumerate(addresses, 1):
            home.seed("Settings", f"Document{number}", address)
    program = Program(command, home.environment(screen.display))
    try:
        for path in COLOURS:
            site.wait(f"/loaded{path}", 30)
        pixel = Pixel(screen)
        wait_until(lambda: pixel.colour() in COLOURS.values(), 30, "a page on the screen")
        screen.wait_still(30)
        times = []
        keys.send(CONTROL, True)
        for _ in range(count):
            expected = next(colour for colour in COLOURS.values() if colour != pixel.colour())
            begin = time.monotonic()
            keys.send(TAB, True)
            while pixel.colour() != expected:
                if time.monotonic() - begin > 2:
                    raise StageError(f"{name}: the key press shows no other page")
            times.append((time.monotonic() - begin) * 1000)
            keys.send(TAB, False)
            time.sleep(0.25)
        keys.send(CONTROL, False)
        return times
    finally:
        program.terminate()
        home.remove()
        with site.changed:
            site.requests.clear()


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--runs", type=int, default=5)
    parser.add_argument("--switches", type=int, default=30, help="in each run")
    parser.add_argument("--preset", default="bench", help="the build folder to measure (bench)")
    options = parser.parse_args()
    pages = {path: f"<title>{path}</title><body style='background: rgb{colour}'>"
                   f"<script>onload = () => fetch('/loaded{path}')</script>" for path, colour in COLOURS.items()}
    screen, site = Screen(*SIZE), Site(pages=pages)
    figures = {"Corvane": [], "bare": []}
    try:
        keys = Keys(screen.display)
        for run in range(options.runs):
            for name, times in figures.items():
                times.append(statistics.median(switches(name, screen, site, keys, options.switches, options.preset)))
            print(f"run {run + 1} of {options.runs}", file=sys.stderr, flush=True)
    finally:
        screen.close()
        site.close()
    for name, times in figures.items():
        print(f"{name:8} {statistics.median(times):7.2f} ms   medians of the runs: " + " ".join(f"{one:.2f}" for one in times))
    ratio = statistics.median(figures["Corvane"]) / statistics.median(figures["bare"])
    print(f"ratio    {ratio:7.3f}")


try:
    main()
except StageError as fault:
    sys.exit(str(fault))
