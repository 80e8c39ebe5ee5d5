#!/usr/bin/env python3
"""Measures the whole program against bench/bare, a window with plain engine views and nothing else.

Both are started in turn on the same virtual screen, with a throw-away home each, and load the same pages of a server inside
this script; the median of all runs is printed. A page tells that it is loaded by a request from its load event.

  start     from the spawn of the process to that request; cold (new home and profile) and warm (the same home again)
  handover  from the spawn of a second process to its end, and the same message sent from here without a process: what is
            left is the cost of the process itself. A message that is refused shows the cost of the way alone
  memory    PSS of the whole process tree with 20 documents
  idle      processor time of the whole process tree in 20 s, with 10 documents on which nothing moves
  quit      from SIGTERM to the end of the last process, with the same 10 documents

Build first: cmake --preset bench && cmake --build --preset bench
"""

import argparse
import pathlib
import socket
import statistics
import struct
import sys
import time

sys.dont_write_bytecode = True
sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent.parent / "tools"))

from stage import Home, Program, Screen, Site, StageError, cpu_seconds, find_program, pss_kib, wait_until  # noqa: E402

FIGURES = ("start", "handover", "memory", "idle", "quit")
TABS_MEMORY = 20
TABS_IDLE = 10
IDLE_SECONDS = 20
# Until the engine has done what it does some seconds after a load.
SETTLE_SECONDS = 8

PARAGRAPH = "<p>" + "The quick brown fox jumps over the lazy dog, and the lazy dog does not mind. " * 12 + "</p>"
LOADED = "<script>onload = () => fetch('/loaded?' + location.pathname.slice(1))</script>"


def page(number):
    return f"<!doctype html><title>Page {number}</title><h1>Page {number}</h1>{PARAGRAPH * 20}{LOADED}"


class Bench:
    def __init__(self, screen, site, preset):
        self.screen, self.site = screen, site
        self.programs = {"Corvane": find_program("corvane", preset), "bare": find_program("bare", preset)}
        self.figures = {}

    def note(self, name, program, value):
        self.figures.setdefault(name, {}).setdefault(program, []).append(value)

    def loaded(self, number, seconds=60):
        return self.site.wait(f"/loaded?{number}", seconds)

    def start(self, name, home, numbers):
        """Starts a program with these pages and waits until all are loaded. Returns it, and how long the first one took."""
        with self.site.changed:
            self.site.requests.clear()
        addresses = [f"{self.site.address}/{number}" for number in numbers]
        environment = home.environment(self.screen.display)
        command = [self.programs[name]]
        # The bare program knows no hand-over: it takes all its pages at once.
        program = Program(command + (addresses if name == "bare" else addresses[:1]), environment)
        try:
            first = self.loaded(numbers[0]) - program.spawned
            for number, address in zip(numbers[1:], addresses[1:]):
                if name != "bare":
                    self.hand_over(address, environment)
                self.loaded(number)
        except StageError:
            program.kill()
            raise
        return program, first

    def hand_over(self, address, environment):
        second = Program([self.programs["Corvane"], address], environment)
        try:
            second.wait(30)
        except Exception:
            second.kill()
            raise
        return time.monotonic() - second.spawned

    # One run of each measurement, for one program.

    def run_start(self, name, home):
        for state in ("cold", "warm"):
            program, took = self.start(name, home, [1])
            # Let it finish what a start leaves behind, or the warm start would pay for it.
            time.sleep(1)
            program.terminate()
            self.note(f"start, {state}, ms", name, took * 1000)

    def run_handover(self, name, home):
        if name != "Corvane":
            return
        program, _ = self.start(name, home, [1])
        time.sleep(1)
        environment = home.environment(self.screen.display)
        # The first document that joins another one costs the program more than those after it, so both ways come after that.
        self.send(home, f"{self.site.address}/2".encode())
        self.loaded(2)
        time.sleep(0.5)
        took = self.hand_over(f"{self.site.address}/3", environment)
        self.loaded(3)
        time.sleep(0.5)
        direct = self.send(home, f"{self.site.address}/4".encode())
        self.loaded(4)
        time.sleep(0.5)
        refused = self.send(home, b"")
        program.terminate()
        self.note("hand-over, second process, ms", name, took * 1000)
        self.note("hand-over, the message alone, ms", name, direct * 1000)
        self.note("hand-over, a refused message, ms", name, refused * 1000)
        self.note("hand-over, cost of the process, ms", name, (took - direct + refused) * 1000)

    @staticmethod
    def send(home, text):
        """Sends a hand-over (an empty one is refused) and waits for the answer or the end of the connection."""
        (mark,) = (home.folder / "run").glob("*_APPLICATION-*")
        begin = time.monotonic()
        with socket.socket(socket.AF_UNIX) as client:
            client.settimeout(30)
            client.connect(str(mark))
            client.sendall(struct.pack("<II", len(text), len(text)) + text)
            client.recv(1)
        return time.monotonic() - begin

    def run_memory(self, name, home):
        program, _ = self.start(name, home, range(1, TABS_MEMORY + 1))
        time.sleep(SETTLE_SECONDS)
        self.note(f"memory, {TABS_MEMORY} documents, MiB", name, pss_kib(program.tree()) / 1024)
        program.terminate()

    def run_idle(self, name, home):
        program, _ = self.start(name, home, range(1, TABS_IDLE + 1))
        time.sleep(SETTLE_SECONDS)
        tree = program.tree()
        before = cpu_seconds(tree)
        time.sleep(IDLE_SECONDS)
        self.note(f"idle, {TABS_IDLE} documents, {IDLE_SECONDS} s, s", name, cpu_seconds(tree) - before)
        self.note(f"quit, {TABS_IDLE} documents, ms", name, program.terminate() * 1000)

    def run_quit(self, name, home):
        program, _ = self.start(name, home, range(1, TABS_IDLE + 1))
        time.sleep(1)
        self.note(f"quit, {TABS_IDLE} documents, ms", name, program.terminate() * 1000)

    def report(self):
        print(f"{'':40}{'Corvane':>12}{'bare':>12}{'difference':>12}{'ratio':>8}   all runs of Corvane | of bare")
        for name, values in self.figures.items():
            medians = {program: statistics.median(all_runs) for program, all_runs in values.items()}
            text = f"{name:40}{medians['Corvane']:12.2f}"
            if "bare" in medians:
                difference = medians["Corvane"] - medians["bare"]
                ratio = f"{medians['Corvane'] / medians['bare']:8.3f}" if medians["bare"] else f"{'-':>8}"
                text += f"{medians['bare']:12.2f}{difference:+12.2f}{ratio}"
            else:
                text += " " * 32
            print(text + "   " + " | ".join(" ".join(f"{one:.2f}" for one in all_runs) for all_runs in values.values()))


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--runs", type=int, default=7)
    parser.add_argument("--only", default=",".join(FIGURES), help=f"which figures, of {','.join(FIGURES)}")
    parser.add_argument("--preset", default="bench", help="the build folder to measure (bench)")
    options = parser.parse_args()
    chosen = options.only.split(",")
    if not set(chosen) <= set(FIGURES):
        parser.error(f"--only takes names of {','.join(FIGURES)}")
    # The run for idle time measures the end as well.
    if "idle" in chosen and "quit" in chosen:
        chosen.remove("quit")

    site = Site(pages={f"/{number}": page(number) for number in range(1, TABS_MEMORY + 1)})
    screen = Screen(1280, 900)
    bench = Bench(screen, site, options.preset)
    try:
        # A first start of each brings its files into the disk cache and is not counted.
        for number in range(-1, options.runs):
            for figure in chosen if number >= 0 else ["start"]:
                for name in ("Corvane", "bare"):
                    home = Home()
                    home.seed_ordinary_start()
                    try:
                        getattr(bench, f"run_{figure}")(name, home)
                    finally:
                        home.remove()
            if number < 0:
                bench.figures.clear()
            print(f"run {number + 1} of {options.runs}", file=sys.stderr, flush=True)
    finally:
        screen.close()
        site.close()
    bench.report()


try:
    main()
except StageError as fault:
    sys.exit(str(fault))
