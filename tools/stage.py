"""What the programs that drive the real Corvane from outside share: a virtual screen, a throw-away home, a loopback site
and the process tree of a started program. Python's own library only."""

import functools
import http.server
import os
import pathlib
import re
import select
import shutil
import signal
import struct
import subprocess
import sys
import tempfile
import threading
import time
import zlib

ROOT = pathlib.Path(__file__).resolve().parent.parent


class StageError(Exception):
    """Something did not happen in its time; the text says what."""


def wait_until(condition, seconds, what, interval=0.05):
    """Polls `condition` until it gives something true, and returns that."""
    end = time.monotonic() + seconds
    while True:
        result = condition()
        if result:
            return result
        if time.monotonic() > end:
            raise StageError(f"{what}: not within {seconds:g} s")
        time.sleep(interval)


def find_program(name, preset=None):
    """The built program `name`, from build/release, else build/dev, or from `preset` only."""
    for folder in [preset] if preset else ["release", "dev"]:
        file = ROOT / "build" / folder / "bin" / name
        if file.is_file():
            return file
    raise StageError(f"{name} is not built (cmake --preset release && cmake --build --preset release)")


# --- processes -----------------------------------------------------------------------------------------------------------


def _stat(pid):
    """The fields of /proc/<pid>/stat from the state (field 3) on; None when the process has gone."""
    try:
        text = pathlib.Path(f"/proc/{pid}/stat").read_text()
    except OSError:
        return None
    return text[text.rindex(")") + 2 :].split()


def process_tree(pid):
    """`pid` and all its living descendants."""
    children = {}
    for entry in os.listdir("/proc"):
        if entry.isdigit():
            fields = _stat(entry)
            if fields and fields[0] != "Z":
                children.setdefault(int(fields[1]), []).append(int(entry))
    result, todo = [], [pid]
    while todo:
        one = todo.pop()
        if _stat(one):
            result.append(one)
        todo += children.get(one, [])
    return result


def command_line(pid):
    try:
        return pathlib.Path(f"/proc/{pid}/cmdline").read_bytes().replace(b"\0", b" ").decode(errors="replace")
    except OSError:
        return ""


def cpu_seconds(pids):
    """Processor time of these processes, user and system, with that of children they have waited for."""
    ticks = 0
    for pid in pids:
        fields = _stat(pid)
        if fields:
            ticks += sum(int(field) for field in fields[11:15])
    return ticks / os.sysconf("SC_CLK_TCK")


def pss_kib(pids):
    """Proportional set size: memory, with what is shared divided among those who share it."""
    total = 0
    for pid in pids:
        try:
            match = re.search(r"^Pss:\s+(\d+)", pathlib.Path(f"/proc/{pid}/smaps_rollup").read_text(), re.MULTILINE)
        except OSError:
            continue
        if match:
            total += int(match[1])
    return total


class Program:
    """A started program and everything it starts."""

    def __init__(self, command, environment, log=None):
        self.spawned = time.monotonic()
        self.process = subprocess.Popen([str(word) for word in command], env=environment, stdin=subprocess.DEVNULL,
                                        stdout=log or subprocess.DEVNULL, stderr=log or subprocess.DEVNULL,
                                        start_new_session=True)
        self.pid = self.process.pid

    def alive(self):
        return self.process.poll() is None

    def tree(self):
        return process_tree(self.pid)

    def renderers(self):
        return [pid for pid in self.tree() if "--type=renderer" in command_line(pid)]

    def wait(self, seconds):
        """Waits for the end of the program itself, at most so long. subprocess would look for it in steps of up to 50 ms."""
        watch = os.pidfd_open(self.pid)
        try:
            if not select.select([watch], [], [], seconds)[0]:
                raise StageError(f"the program did not end within {seconds} s")
        finally:
            os.close(watch)
        self.process.wait()

    def terminate(self, seconds=15):
        """SIGTERM, the ordinary way to end. Returns how long it took until the whole tree was gone."""
        tree = self.tree()
        begin = time.monotonic()
        if self.alive():
            self.process.send_signal(signal.SIGTERM)
        try:
            self.wait(seconds)
            wait_until(lambda: not any(_stat(pid) and _stat(pid)[0] != "Z" for pid in tree), seconds, "end of the processes",
                       0.002)
        except StageError as fault:
            self.kill()
            raise StageError(f"the program did not end within {seconds} s of SIGTERM") from fault
        return time.monotonic() - begin

    def kill(self):
        for pid in self.tree():
            try:
                os.kill(pid, signal.SIGKILL)
            except ProcessLookupError:
                pass
        if self.process.poll() is None:
            self.process.wait()


# --- home ----------------------------------------------------------------------------------------------------------------


class Home:
    """A throw-away home: the program folder, the settings and everything a desktop keeps for a user lie below it."""

    def __init__(self):
        self.folder = pathlib.Path(tempfile.mkdtemp(prefix="corvane-home-"))
        self.settings = {}

    def seed(self, section, key, value):
        """Sets a stored setting. Only before the program starts."""
        self.settings.setdefault(section, {})[key] = value
        lines = []
        for name, keys in self.settings.items():
            lines.append(f"[Corvane/{name}]")
            lines += [f"{one}={text}" for one, text in keys.items()]
        file = self.folder / "settings.ini"
        file.write_text("\n".join(lines) + "\n", encoding="utf-8")
        file.chmod(0o600)

    def seed_ordinary_start(self):
        """A start like the hundredth one: no quick tour, no question about the default browser."""
        self.seed("Settings", "FirstTime", "False")
        self.seed("Settings", "FileAssociationSetDefault", "False")
        self.seed("General", "CheckIfDefault", "False")

    def environment(self, display, scale=1.0):
        result = {key: value for key, value in os.environ.items()
                  if not key.startswith(("QT_", "XDG_", "LC_", "CORVANE_", "DBUS_")) and key != "WAYLAND_DISPLAY"}
        runtime = self.folder / "runtime"
        runtime.mkdir(mode=0o700, exist_ok=True)
        result.update(DISPLAY=display, QT_QPA_PLATFORM="xcb", QT_SCALE_FACTOR=str(scale), LC_ALL="C.UTF-8",
                      HOME=str(self.folder), CORVANE_HOME=str(self.folder), XDG_RUNTIME_DIR=str(runtime),
                      # A bus that is not there, so that none is started for it.
                      DBUS_SESSION_BUS_ADDRESS=f"unix:path={runtime}/no-bus",
                      QT_LOGGING_RULES="qt.webenginecontext=false")
        if os.geteuid() == 0:
            result["QTWEBENGINE_DISABLE_SANDBOX"] = "1"
        return result

    def remove(self):
        shutil.rmtree(self.folder, ignore_errors=True)


# --- loopback site -------------------------------------------------------------------------------------------------------


class Site:
    """An HTTP server on 127.0.0.1 that serves a folder, or the pages that it is given, and remembers every request."""

    def __init__(self, folder=None, pages=None):
        self.requests = []
        self.changed = threading.Condition()
        site, pages = self, pages or {}

        class Handler(http.server.SimpleHTTPRequestHandler):
            protocol_version = "HTTP/1.1"

            def do_GET(self):
                with site.changed:
                    site.requests.append((time.monotonic(), self.path))
                    site.changed.notify_all()
                page = pages.get(self.path.split("?")[0])
                if page is None:
                    return super().do_GET() if folder else self.send_error(404)
                data = page.encode()
                self.send_response(200)
                self.send_header("Content-Type", "text/html; charset=utf-8")
                self.send_header("Content-Length", str(len(data)))
                self.end_headers()
                self.wfile.write(data)

            def log_message(self, *_):
                pass

        handler = functools.partial(Handler, directory=str(folder)) if folder else Handler
        self.server = http.server.ThreadingHTTPServer(("127.0.0.1", 0), handler)
        self.server.daemon_threads = True
        self.address = f"http://127.0.0.1:{self.server.server_port}"
        threading.Thread(target=self.server.serve_forever, daemon=True).start()

    def wait(self, path, seconds, count=1):
        """Waits until `path` was asked for `count` times. Returns the time of that request."""
        with self.changed:
            def times():
                return [at for at, asked in self.requests if asked == path]
            if not self.changed.wait_for(lambda: len(times()) >= count, seconds):
                raise StageError(f"request of {path}: not within {seconds:g} s")
            return times()[count - 1]

    def close(self):
        self.server.shutdown()
        self.server.server_close()


# --- screen --------------------------------------------------------------------------------------------------------------

# No window manager key may take one away from the program; the one here is for resizing a maximised window.
_OPENBOX = """<?xml version="1.0"?>
<openbox_config xmlns="http://openbox.org/3.4/rc">
  <focus><focusNew>yes</focusNew><focusLast>yes</focusLast></focus>
  <placement><policy>Smart</policy><center>yes</center></placement>
  <theme><name>Clearlooks</name><titleLayout>NLIMC</titleLayout>{fonts}</theme>
  <desktops><number>1</number><popupTime>0</popupTime></desktops>
  <keyboard><keybind key="C-A-S-F12"><action name="Unmaximize"/></keybind></keyboard>
  <mouse>
    <context name="Frame"/>
    <context name="Titlebar">
      <mousebind button="Left" action="Press"><action name="Focus"/><action name="Raise"/></mousebind>
      <mousebind button="Left" action="Drag"><action name="Move"/></mousebind>
    </context>
    <context name="Client"><mousebind button="Left" action="Press"><action name="Focus"/><action name="Raise"/></mousebind></context>
    <context name="Close"><mousebind button="Left" action="Click"><action name="Close"/></mousebind></context>
    <context name="Maximize"><mousebind button="Left" action="Click"><action name="ToggleMaximize"/></mousebind></context>
    <context name="Iconify"><mousebind button="Left" action="Click"><action name="Iconify"/></mousebind></context>
  </mouse>
</openbox_config>
"""
_FONT = '<font place="{}"><name>DejaVu Sans</name><size>{}</size></font>'


class Window:
    def __init__(self, identity, title, kind, left, top, width, height):
        self.id, self.title, self.kind = identity, title, kind
        self.left, self.top, self.width, self.height = left, top, width, height


class Screen:
    """A virtual screen with a window manager. Positions and sizes here are device pixels."""

    def __init__(self, width, height, scale=1.0):
        self.folder = pathlib.Path(tempfile.mkdtemp(prefix="corvane-screen-"))
        read, write = os.pipe()
        # The frame buffer is a mapped file: pictures need no other program.
        self.server = subprocess.Popen(
            ["Xvfb", "-displayfd", str(write), "-screen", "0", f"{width}x{height}x24", "-fbdir", str(self.folder),
             "-nolisten", "tcp", "-nocursor", "-noreset"],
            pass_fds=[write], stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL,
            start_new_session=True)
        os.close(write)
        with os.fdopen(read) as stream:
            number = stream.readline().strip()
        if not number:
            raise StageError("Xvfb did not start")
        self.display = f":{number}"
        self.environment = dict(os.environ, DISPLAY=self.display, LC_ALL="C.UTF-8")
        config = self.folder / "openbox.xml"
        places = ("ActiveWindow", "InactiveWindow", "MenuHeader", "MenuItem")
        config.write_text(_OPENBOX.format(fonts="".join(_FONT.format(place, round(9 * scale)) for place in places)))
        self.manager = subprocess.Popen(["openbox", "--config-file", str(config)], env=self.environment,
                                        stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL,
                                        start_new_session=True)
        wait_until(lambda: "window id" in self.ask("xprop", "-root", "_NET_SUPPORTING_WM_CHECK"), 10, "window manager")

    def ask(self, *command):
        """The output of an X client."""
        return subprocess.run(command, env=self.environment, stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
                              stderr=subprocess.DEVNULL, text=True, check=False).stdout

    def xdotool(self, *words):
        done = subprocess.run(["xdotool", *(str(word) for word in words)], env=self.environment, stdin=subprocess.DEVNULL,
                              stdout=subprocess.DEVNULL, stderr=subprocess.PIPE, text=True, check=False)
        if done.returncode != 0:
            raise StageError(f"xdotool {' '.join(map(str, words))}: {done.stderr.strip()}")

    def windows(self):
        """The managed windows that can be seen, in the order in which they appeared."""
        result = []
        for identity in re.findall(r"0x[0-9a-f]+", self.ask("xprop", "-root", "_NET_CLIENT_LIST")):
            info = self.ask("xwininfo", "-id", identity)
            if "IsViewable" not in info:
                continue
            numbers = [int(re.search(name + r":\s+(-?\d+)", info)[1])
                       for name in ("Absolute upper-left X", "Absolute upper-left Y", "Width", "Height")]
            properties = self.ask("xprop", "-id", identity, "_NET_WM_NAME", "WM_NAME", "_NET_WM_WINDOW_TYPE")
            title = re.search(r'WM_NAME\(.*\) = "(.*)"$', properties, re.MULTILINE)
            kind = "splash" if "_TYPE_SPLASH" in properties else "window"
            result.append(Window(identity, title[1] if title else "", kind, *numbers))
        return result

    def pixels(self):
        """Width, height and the rows of the frame buffer, 4 bytes a pixel, blue first."""
        data = (self.folder / "Xvfb_screen0").read_bytes()
        # The XWD format: 32-bit big-endian words; the header's size first, at 4 and 5 width and height, at 12 the bytes of a
        # row, at 19 the number of colour entries (12 bytes each) between the header and the pixels.
        words = struct.unpack(">25I", data[:100])
        width, height, stride = words[4], words[5], words[12]
        begin = words[0] + words[19] * 12
        return width, height, [data[begin + y * stride : begin + y * stride + width * 4] for y in range(height)]

    @staticmethod
    def _covered(width, rows):
        """Left, top, right and bottom of everything that is not black."""
        def colours(row):
            # The fourth byte of a pixel is padding.
            return int.from_bytes(row[0::4], "big") | int.from_bytes(row[1::4], "big") | int.from_bytes(row[2::4], "big")

        top, bottom, columns = None, 0, 0
        for y, row in enumerate(rows):
            seen = colours(row)
            if seen:
                top, bottom, columns = (y if top is None else top), y + 1, columns | seen
        if top is None:
            raise StageError("nothing to be seen on the screen")
        shown = [x for x, value in enumerate(columns.to_bytes(width, "big")) if value]
        return shown[0], top, shown[-1] + 1, bottom

    def picture(self, file, whole=False):
        """Writes a PNG: what the windows cover (the bare screen behind them is black), or the whole screen."""
        width, height, rows = self.pixels()
        left, top, right, bottom = (0, 0, width, height) if whole else self._covered(width, rows)
        packed = bytearray()
        for row in rows[top:bottom]:
            part = row[left * 4 : right * 4]
            line = bytearray(3 * (right - left))
            line[0::3], line[1::3], line[2::3] = part[2::4], part[1::4], part[0::4]
            packed += b"\0" + line

        def chunk(kind, content):
            return struct.pack(">I", len(content)) + kind + content + struct.pack(">I", zlib.crc32(kind + content))

        head = struct.pack(">IIBBBBB", right - left, bottom - top, 8, 2, 0, 0, 0)
        pathlib.Path(file).write_bytes(b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", head)
                                       + chunk(b"IDAT", zlib.compress(bytes(packed), 6)) + chunk(b"IEND", b""))

    def wait_still(self, seconds, interval=0.3):
        """Waits until nothing moves: three pictures in a row, `interval` apart, are the same."""
        last, same = None, 0

        def still():
            nonlocal last, same
            now = zlib.crc32((self.folder / "Xvfb_screen0").read_bytes())
            same = same + 1 if now == last else 0
            last = now
            return same >= 2

        wait_until(still, seconds, "a screen on which nothing moves", interval)

    def close(self):
        for process in (self.manager, self.server):
            process.terminate()
            process.wait()
        shutil.rmtree(self.folder, ignore_errors=True)


def say(text):
    print(text, file=sys.stderr, flush=True)
