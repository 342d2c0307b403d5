"""A desktop of its own for one test: a virtual X server, a window manager, and an input method where it is wanted.

    with Desktop(keep="pictures") as desktop:
        desktop.start_input_method("libpinyin")
        window = desktop.open(["build/order_entry", "--db", "orders.sqlite"])
        window.keys("A", "Return")

Nothing of the surrounding session takes part: display, home folder and message bus are new, and end with the test,
also when the test is killed.
"""

import ctypes
import os
import pathlib
import shutil
import signal
import subprocess
import tempfile
import time

PATIENCE = 60  # seconds until a wait is given up; a slow machine is not an error


class Failure(Exception):
    """What the test must report; the text is for people."""


def wait_for(what, ask, patience=PATIENCE):
    """Asks until the answer counts as true, and returns it."""
    end = time.monotonic() + patience
    while True:
        answer = ask()
        if answer:
            return answer
        if time.monotonic() > end:
            raise Failure(f"waited {patience} s in vain: {what}")
        time.sleep(0.05)


def _processes_below(root):
    """The ids of all processes that `root` started, and those started."""
    children = {}
    for stat in pathlib.Path("/proc").glob("[0-9]*/stat"):
        try:
            parent = int(stat.read_text(errors="replace").rpartition(")")[2].split()[1])
        except OSError:
            continue  # it ended meanwhile
        children.setdefault(parent, []).append(int(stat.parent.name))
    found = []
    unseen = [root]
    while unseen:
        found.extend(children.get(unseen[-1], []))
        unseen.extend(children.get(unseen.pop(), []))
    return found


def _work(processes):
    """Seconds that all threads of some processes have had a processor, and whether one wants it now: on a busy machine a
    thread with work to do may go without for long."""
    used = 0
    wanted = False
    for process in processes:
        for task in pathlib.Path(f"/proc/{process}/task").glob("[0-9]*"):
            try:
                wanted |= (task / "stat").read_text(errors="replace").rpartition(")")[2].split()[0] in "RD"
                used += int((task / "schedstat").read_text().split()[0])
            except OSError:
                wanted = True  # it ended meanwhile
    return used / 1e9, wanted


def _die_with_parent():
    pr_set_pdeathsig = 1
    ctypes.CDLL(None).prctl(pr_set_pdeathsig, signal.SIGTERM)


class Desktop:
    """keep: the folder for pictures and, after a failure, the logs of all programs."""

    SIZE = "1280x800x24"

    def __init__(self, keep):
        self.keep = pathlib.Path(keep)
        self.keep.mkdir(parents=True, exist_ok=True)
        self.processes = []
        self.environment = {}

    def __enter__(self):
        self.folder = pathlib.Path(tempfile.mkdtemp(prefix="kx-desktop-"))
        try:
            self._prepare_environment()
            self._start_display()
            self._start_window_manager()
        except BaseException:
            self._keep_evidence()
            self._end()
            raise
        return self

    def __exit__(self, kind, error, trace):
        if error is not None:
            self._keep_evidence()
        self._end()

    def _prepare_environment(self):
        runtime = self.folder / "runtime"
        runtime.mkdir(mode=0o700)
        inherited = {"PATH": os.environ["PATH"]}
        inherited.update({name: value for name, value in os.environ.items() if name.endswith("SAN_OPTIONS")})
        self.environment = inherited | {
            "HOME": str(self.folder),
            "XDG_RUNTIME_DIR": str(runtime),
            "LC_ALL": "C.UTF-8",
            "QT_QPA_PLATFORM": "xcb",
            "QT_IM_MODULE": "none",
            "NO_AT_BRIDGE": "1",
        }

    def _start_display(self):
        answer, question = os.pipe()
        # A server that begins anew when its last client goes refuses those who come meanwhile: whoever looks whether
        # the window manager is there may go just as that one comes.
        self.start(
            "Xvfb",
            ["Xvfb", "-displayfd", str(question), "-screen", "0", self.SIZE, "-nolisten", "tcp", "-noreset"],
            pass_fds=[question],
        )
        os.close(question)
        with os.fdopen(answer) as pipe:
            number = pipe.readline().strip()
        if not number:
            raise Failure("Xvfb did not start: " + self.log("Xvfb"))
        self.environment["DISPLAY"] = ":" + number

    def _start_window_manager(self):
        manager = self.start("openbox", ["openbox"])

        def manages():
            if manager.poll() is not None:
                raise Failure(f"the window manager has ended with {manager.returncode}: " + self.log("openbox"))
            return self.xdotool("get_desktop").returncode == 0

        # A window that appears while the manager looks for windows can be lost to both.
        wait_for("the window manager", manages)

    def start_input_method(self, engine):
        self.start("dbus-daemon", ["dbus-daemon", "--session", "--nofork", "--print-address=1"])
        address = wait_for("the message bus", lambda: self.log("dbus-daemon").strip())
        self.environment |= {
            "DBUS_SESSION_BUS_ADDRESS": address.splitlines()[0],
            "IBUS_ADDRESS_FILE": str(self.folder / "ibus-address"),
            "GSETTINGS_BACKEND": "memory",
            "QT_IM_MODULE": "ibus",
        }
        self.start("ibus-daemon", ["ibus-daemon", "--replace", "--panel=disable", "--emoji-extension=disable"])
        wait_for("the input method daemon", lambda: self._ibus("address").returncode == 0)
        self.choose_input_method(engine)

    def choose_input_method(self, engine):
        wait_for(f"the input method {engine}", lambda: self._chooses(engine))

    def _chooses(self, engine):
        self._ibus("engine", engine)  # its exit code also speaks of keyboard layouts, which do not matter here
        return self._ibus("engine").stdout.strip() == engine

    def _ibus(self, *arguments):
        return subprocess.run(["ibus", *arguments], env=self.environment, capture_output=True, text=True, check=False)

    def settle(self):
        """Waits until no program of the desktop has had more to do for a moment than to let its cursor blink."""
        blink = 0.005

        def still():
            programs = _processes_below(os.getpid())
            before, _ = _work(programs)
            time.sleep(0.08)
            after, wanted = _work(programs)
            return not wanted and after - before < blink and programs == _processes_below(os.getpid())

        wait_for("the programs to come to rest", still)

    def start(self, name, command, **options):
        """Starts a program that ends with the desktop; its output goes to log(name)."""
        with open(self._log_file(name), "wb") as log:
            process = subprocess.Popen(
                command,
                env=self.environment,
                cwd=self.folder,
                stdin=subprocess.DEVNULL,
                stdout=log,
                stderr=subprocess.STDOUT,
                preexec_fn=_die_with_parent,
                **options,
            )
        self.processes.append((name, process))
        return process

    def log(self, name):
        return self._log_file(name).read_text(encoding="utf-8", errors="replace")

    def _log_file(self, name):
        return self.folder / (name + ".log")

    def open(self, command, title):
        """Starts a program with a window whose title contains `title`, and waits until it takes keys."""
        name = pathlib.Path(command[0]).name
        process = self.start(name, command)
        return Window(self, process, name, title)

    def xdotool(self, *arguments):
        return subprocess.run(["xdotool", *arguments], env=self.environment, capture_output=True, text=True, check=False)

    def active_window(self):
        """The id of the window in front."""
        return self.xdotool("getactivewindow").stdout.strip()

    def picture(self, name):
        """Saves what the screen shows."""
        file = self.keep / (name + ".png")
        subprocess.run(["import", "-window", "root", str(file)], env=self.environment, check=True)
        return file

    def _keep_evidence(self):
        for log in self.folder.glob("*.log"):
            shutil.copy(log, self.keep)
        if "DISPLAY" in self.environment:
            subprocess.run(["import", "-window", "root", str(self.keep / "failure.png")], env=self.environment, check=False)

    def _end(self):
        for _, process in reversed(self.processes):
            if process.poll() is None:
                process.terminate()
        for _, process in reversed(self.processes):
            try:
                process.wait(10)
            except subprocess.TimeoutExpired:
                process.kill()
                process.wait()
        shutil.rmtree(self.folder, ignore_errors=True)


class Window:
    """The main window of a program under test."""

    def __init__(self, desktop, process, name, title):
        self.desktop = desktop
        self.process = process
        self.name = name
        self.title = title
        self.id = wait_for(f"the window {title}", self._find)
        wait_for(f"the window {title} to become active", self.is_active)

    def _find(self):
        self.check_alive()
        found = self.desktop.xdotool("search", "--onlyvisible", "--name", self.title).stdout.split()
        return next((window for window in found if self._is_alive(window)), None)

    def _is_alive(self, window):
        """A window may stay for a moment when its program has been killed."""
        program = self.desktop.xdotool("getwindowpid", window).stdout.strip()
        return not program or pathlib.Path("/proc", program).exists()

    def is_active(self):
        self.check_alive()
        return self.desktop.xdotool("getactivewindow").stdout.strip() == self.id

    def check_undisturbed(self):
        """Fails when another window, a message box for example, has come to the front."""
        if not self.is_active():
            title = self.desktop.xdotool("getactivewindow", "getwindowname").stdout.strip()
            raise Failure(f"the active window is not {self.title} but {title}")

    def check_alive(self):
        if self.process.poll() is not None:
            raise Failure(f"{self.name} ended with {self.process.returncode}:\n{self.desktop.log(self.name)}")

    def keys(self, *names, delay=8):
        """Presses and releases keys, by their X names: keys("1", "plus", "ctrl+s", "Return"); delay: ms after each."""
        self.check_alive()
        result = self.desktop.xdotool("key", "--clearmodifiers", "--delay", str(delay), *names)
        if result.returncode != 0 or result.stderr:
            raise Failure(f"keys {names}: {result.stderr}")

    def click(self, x, y, button="left", held="", window=None):
        """Clicks at a place of the inside of the window, or of another one, with a key held down when one is named."""
        self.check_alive()
        number = {"left": "1", "right": "3"}[button]
        click = ["mousemove", "--window", window or self.id, str(x), str(y), "click", number]
        if held:
            click = ["keydown", held, *click, "keyup", held]
        result = self.desktop.xdotool(*click)
        if result.returncode != 0 or result.stderr:
            raise Failure(f"click at {x},{y}: {result.stderr}")

    def corner(self):
        """The upper left corner of the window's inside on the screen."""
        self.desktop.xdotool("mousemove", "--window", self.id, "0", "0")
        lines = self.desktop.xdotool("getmouselocation", "--shell").stdout.splitlines()
        values = dict(line.split("=") for line in lines)
        return int(values["X"]), int(values["Y"])

    def popups(self):
        """The menus that stand open, in the order in which they were opened. A menu never becomes the active window."""
        found = self.desktop.xdotool("search", "--onlyvisible", "--class", self.name).stdout.split()
        windows = {self.id, self.desktop.active_window()}
        return sorted(int(window) for window in found if window not in windows)

    def await_popups(self, count):
        wait_for(f"{count} open menus", lambda: len(self.popups()) == count)
        self.desktop.settle()

    def click_item(self, from_top=None, from_bottom=None):
        """Clicks the item of the newest menu that lies so many pixels from its upper or lower edge."""
        menu = str(self.popups()[-1])
        _, _, width, height = self._rectangle(menu)
        self.click(width // 3, from_top if from_top is not None else height - from_bottom, window=menu)

    def answer_box(self, *names, title="", picture=""):
        """Waits for a box of the program, which has to stand over the window and may have to have a title, presses
        keys in it, and waits until it has gone. `picture` keeps a picture of it."""
        wait_for(f"a box {title}", lambda: self._box_title() is not None and title in self._box_title())
        self._check_box_over_window()
        if picture:
            self.desktop.settle()
            self.desktop.picture(picture)
        self.keys(*names)
        wait_for("the end of the box", self.is_active)

    def _box_title(self):
        """The title of the window in front when that is not this one."""
        if self.is_active():
            return None
        answer = self.desktop.xdotool("getactivewindow", "getwindowname")
        return answer.stdout.strip() if answer.returncode == 0 else None

    def _check_box_over_window(self):
        x, y, width, height = self._rectangle(self.id)
        left, top, wide, high = self._rectangle(self.desktop.xdotool("getactivewindow").stdout.strip())
        if not (x <= left and left + wide <= x + width and y <= top and top + high <= y + height):
            raise Failure(f"the box at {left},{top} is {wide} x {high}, the window at {x},{y} is {width} x {height}")

    def _rectangle(self, window):
        lines = self.desktop.xdotool("getwindowgeometry", "--shell", window).stdout.splitlines()
        values = dict(line.split("=") for line in lines)
        return [int(values[name]) for name in ("X", "Y", "WIDTH", "HEIGHT")]

    def type(self, text):
        """Types ASCII characters, each with the shift key that it needs."""
        self.check_alive()
        result = self.desktop.xdotool("type", "--clearmodifiers", "--delay", "8", "--", text)
        if result.returncode != 0 or result.stderr:
            raise Failure(f"typing {text}: {result.stderr}")

    def close(self):
        """Closes the window as its frame's button does; the program must end without an error."""
        self.check_alive()
        self.keys("alt+F4")
        try:
            status = self.process.wait(PATIENCE)
        except subprocess.TimeoutExpired:
            raise Failure(f"{self.name} did not end") from None
        if status != 0:
            raise Failure(f"{self.name} ended with {status}:\n{self.desktop.log(self.name)}")
