#!/usr/bin/env python3
"""Whole process to first painted window, for three programs in turn:

startup.py ROUNDS LAUNCHER BARE EMPTY_SETTINGS LONG_SETTINGS

LAUNCHER and BARE are commands; the launcher is started with each of the two settings folders, whose lists of recent
projects are empty and long. All are seen from outside by the same eye: the pixel in the middle of the screen, which is
black until a window has been painted over it. Reports medians, the ratios, peak memory, and the processor time that an
untouched launcher uses.
"""
import ctypes
import os
import pathlib
import shlex
import signal
import statistics
import subprocess
import sys
import time

LIMIT_SECONDS = 60
SETTLE_SECONDS = 2
IDLE_SECONDS = 10


class Screen:
    """The middle of the screen that DISPLAY names."""

    ALL_PLANES = 0xFFFFFF
    Z_PIXMAP = 2

    def __init__(self):
        self.x11 = ctypes.CDLL("libX11.so.6")
        for name in ("XOpenDisplay", "XGetImage"):
            getattr(self.x11, name).restype = ctypes.c_void_p
        for name in ("XDefaultRootWindow", "XGetPixel"):
            getattr(self.x11, name).restype = ctypes.c_ulong
        self.display = ctypes.c_void_p(self.x11.XOpenDisplay(None))
        if not self.display:
            sys.exit("startup.py: no display")
        self.root = ctypes.c_ulong(self.x11.XDefaultRootWindow(self.display))
        self.x = self.x11.XDisplayWidth(self.display, 0) // 2
        self.y = self.x11.XDisplayHeight(self.display, 0) // 2

    def is_painted(self):
        image = ctypes.c_void_p(
            self.x11.XGetImage(
                self.display, self.root, self.x, self.y, 1, 1, ctypes.c_ulong(self.ALL_PLANES), self.Z_PIXMAP
            )
        )
        pixel = self.x11.XGetPixel(image, 0, 0)
        self.x11.XDestroyImage(image)
        return pixel & self.ALL_PLANES != 0

    def wait(self, painted):
        end = time.monotonic() + LIMIT_SECONDS
        while self.is_painted() != painted:
            if time.monotonic() > end:
                sys.exit("startup.py: the screen doesn't change")
            time.sleep(0.0002)


def peak_memory(pid):
    """In KiB, of the whole process up to now."""
    for line in pathlib.Path(f"/proc/{pid}/status").read_text().splitlines():
        if line.startswith("VmHWM:"):
            return int(line.split()[1])
    raise ValueError("no VmHWM")


def processor_time(pid):
    """In milliseconds, of all threads."""
    threads = pathlib.Path(f"/proc/{pid}/task").iterdir()
    return sum(int((thread / "schedstat").read_text().split()[0]) for thread in threads) / 1e6


class Program:
    def __init__(self, name, command, settings=""):
        self.name = name
        self.command = shlex.split(command)
        self.environment = os.environ | {"OVRIN_USER_SETTINGS_DIR": settings}
        self.seconds = []
        self.memory = []

    def start(self, screen):
        screen.wait(painted=False)
        begin = time.perf_counter()
        process = subprocess.Popen(
            self.command, env=self.environment, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL
        )
        screen.wait(painted=True)
        return process, time.perf_counter() - begin

    def run_once(self, screen):
        process, seconds = self.start(screen)
        self.seconds.append(seconds)
        self.memory.append(peak_memory(process.pid))
        end(process)


def end(process):
    os.kill(process.pid, signal.SIGKILL)
    process.wait()


def idle_time(program, screen):
    process, _ = program.start(screen)
    time.sleep(SETTLE_SECONDS)
    before = processor_time(process.pid)
    time.sleep(IDLE_SECONDS)
    used = processor_time(process.pid) - before
    end(process)
    return used


def print_program(program):
    low, high = (1000 * edge(program.seconds) for edge in (min, max))
    print(
        f"{program.name:22} {1000 * statistics.median(program.seconds):10.1f} {f'{low:.1f}-{high:.1f}':>15} "
        f"{statistics.median(program.memory) / 1024:10.1f}"
    )


def print_ratio(name, program, other):
    print(
        f"{name:22} {statistics.median(program.seconds) / statistics.median(other.seconds):10.2f} {'':>15} "
        f"{statistics.median(program.memory) / statistics.median(other.memory):10.2f}"
    )


def main():
    rounds = int(sys.argv[1])
    screen = Screen()
    launcher = Program("launcher", sys.argv[2], sys.argv[4])
    with_list = Program("with the long list", sys.argv[2], sys.argv[5])
    bare = Program("bare window", sys.argv[3])
    programs = [launcher, with_list, bare]
    for program in programs:  # once for the caches
        end(program.start(screen)[0])
    for _ in range(rounds):
        for program in programs:
            program.run_once(screen)

    print(f"{'':22} {'start, ms':>10} {'spread':>15} {'peak, MiB':>10}")
    for program in programs:
        print_program(program)
    print_ratio("launcher to bare", launcher, bare)
    print_ratio("list to none (<= 1.3)", with_list, launcher)
    print(f"untouched for {IDLE_SECONDS} s the launcher uses {idle_time(launcher, screen):.2f} ms of processor time")


if __name__ == "__main__":
    main()
