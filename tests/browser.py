#!/usr/bin/python3
"""./simulate --browser as a person has it: a browser opens the page, types, and the simulator ends.

  tests/browser.py                 every test, each with a simulator and a browser of its own
  tests/browser.py --list          the names of the tests
  tests/browser.py <test>...       some tests only

With WIDGET_BROWSER_PICTURES=<directory> each test leaves a picture of the page there.
"""

import base64
import contextlib
import inspect
import json
import os
import pathlib
import pwd
import random
import re
import shutil
import signal
import socket
import stat
import struct
import subprocess
import sys
import tempfile
import threading
import time
import traceback
import urllib.request
import uuid

root = pathlib.Path(__file__).resolve().parent.parent
fixed_time = ["--time", "2026-03-07 13:05:09"]
as_nobody = ["setpriv", "--reuid=65534", "--regid=65534", "--clear-groups"] if os.geteuid() == 0 else []

# What is waited for comes at once; a machine that is busy may take its time.
patience = 120


class Failed(Exception):
    pass


def expect(holds, what):
    if not holds:
        raise Failed(what)


def wait_for(condition, what):
    end = time.monotonic() + patience
    while not condition():
        if time.monotonic() > end:
            raise Failed(f"waited in vain: {what() if callable(what) else what}")
        time.sleep(0.05)


def free_port():
    # Not one of those that the system gives to whoever asks for any.
    while True:
        port = random.randrange(10000, 32000)
        with socket.socket() as probe, contextlib.suppress(OSError):
            probe.bind(("127.0.0.1", port))
            return port


def answers(address, port):
    with socket.socket() as probe:
        return probe.connect_ex((address, port)) == 0


# --- The simulator

class Simulation:
    """./simulate --browser, with a directory for its temporary files, and a mark that all its processes have."""

    def __init__(self, *arguments, port=None, user=(), commands=None):
        self.port = port or free_port()
        self.mark = f"WIDGET_TEST={uuid.uuid4()}"
        self.directory = pathlib.Path(tempfile.mkdtemp())
        self.directory.chmod(0o777)
        self.said = []
        environment = {name: value for name, value in os.environ.items()
                       if "DISPLAY" not in name and not name.startswith("XDG_")}
        environment.update([self.mark.split("=")], TMPDIR=str(self.directory), LC_ALL="C.UTF-8")
        if commands:
            environment["PATH"] = f"{commands}:{environment['PATH']}"
        self.process = subprocess.Popen([*user, root / "simulate", "--browser", str(self.port), *arguments],
                                        stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.STDOUT,
                                        text=True, env=environment, start_new_session=True,
                                        # Where SIGPIPE is ignored, programs complain.
                                        restore_signals=False)
        self.reader = threading.Thread(target=lambda: self.said.extend(iter(self.process.stdout.readline, "")))
        self.reader.start()

    def __enter__(self):
        return self

    def __exit__(self, *_):
        for pid in [self.process.pid, *self.processes()]:
            with contextlib.suppress(ProcessLookupError):
                os.kill(pid, signal.SIGKILL)
        self.process.wait()
        self.reader.join()
        shutil.rmtree(self.directory)

    def output(self):
        return "".join(self.said)

    def address(self):
        """The one that it prints."""
        found = lambda: re.search(r"http://\S+", self.output())
        wait_for(lambda: found() or self.process.poll() is not None, "an address")
        expect(found(), f"no address is printed: {self.output()}")
        return found()[0]

    def processes(self):
        """Those that are running, by their number: what they were started with."""
        found = {}
        for directory in pathlib.Path("/proc").glob("[0-9]*"):
            with contextlib.suppress(OSError):
                if self.mark.encode() in (directory / "environ").read_bytes().split(b"\0"):
                    found[int(directory.name)] = (directory / "cmdline").read_text().replace("\0", " ")
        return found

    def pid_of(self, name):
        """The first of that name: a server may have made more of itself."""
        pids = [pid for pid, line in self.processes().items() if re.search(rf"(^|/){name} ", line)]
        expect(pids, f"{name} is not running: {self.processes()}")
        return min(pids)

    def place(self):
        places = list(self.directory.iterdir())
        expect(len(places) == 1, f"not one temporary directory: {places}")
        return places[0]

    def display(self):
        """The number of its X display."""
        environment = pathlib.Path(f"/proc/{self.pid_of('simulator')}/environ").read_text()
        return re.search(r"(?:^|\0)DISPLAY=:(\d+)\0", environment)[1]

    def files_of_display(self):
        """Its socket, and the other file that X servers may make."""
        number = self.display()
        return [pathlib.Path(f"/tmp/.X11-unix/X{number}"), pathlib.Path(f"/tmp/.X{number}-lock")]

    def signal(self, number):
        """To all of the group in the foreground, as a terminal does it."""
        os.killpg(self.process.pid, number)

    def status(self):
        wait_for(lambda: self.process.poll() is not None, lambda: f"the end. {self.output()} {self.processes()}")
        self.reader.join()
        return self.process.returncode

    def expect_nothing_left(self, files=()):
        wait_for(lambda: not self.processes(), lambda: f"the end of {self.processes()}")
        left = [*self.directory.iterdir(), *(file for file in files if file.exists())]
        expect(not left, f"there are still files: {left}")
        expect(not answers("127.0.0.1", self.port), "something still answers at the port")


def picture_of(*arguments, parts=("--with-keys",)):
    """What the simulator itself shows with these arguments, as the contents of a PNG file."""
    with tempfile.TemporaryDirectory() as directory:
        file = pathlib.Path(directory, "device.png")
        subprocess.run([root / "simulate", "--zoom", "2", *arguments, *parts, "--picture", file], check=True,
                       capture_output=True)
        return file.read_bytes()


# --- The browser

class Browser:
    def __init__(self):
        import websocket
        self.directory = tempfile.mkdtemp()
        self.process = subprocess.Popen(
            ["chromium-headless-shell", "--remote-debugging-port=0", f"--user-data-dir={self.directory}",
             "--no-sandbox", "--disable-gpu", "--disable-dev-shm-usage", "--window-size=1000,700",
             "--force-device-scale-factor=1", "--remote-allow-origins=*", "about:blank"],
            stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL, start_new_session=True)
        port = pathlib.Path(self.directory, "DevToolsActivePort")
        wait_for(lambda: port.exists() and port.read_text().count("\n") >= 1, "the browser")
        self.port = port.read_text().split()[0]
        self.pages = []
        self.connect = lambda url: websocket.create_connection(url, timeout=patience)

    def __enter__(self):
        return self

    def __exit__(self, *_):
        pictures = os.environ.get("WIDGET_BROWSER_PICTURES")
        if pictures and self.pages:
            name = next((frame.function for frame in inspect.stack() if frame.function.startswith("test_")), "page")
            with contextlib.suppress(Exception):
                pathlib.Path(pictures, f"{name[5:]}.png").write_bytes(self.pages[-1].screenshot())
        for page in self.pages:
            page.socket.close()
        os.killpg(self.process.pid, signal.SIGKILL)
        self.process.wait()
        # What it has started goes on for a moment, and writes.
        wait_for(lambda: not shutil.rmtree(self.directory, ignore_errors=True) and not os.path.exists(self.directory),
                 "the end of the browser")

    def open(self, address):
        request = urllib.request.Request(f"http://127.0.0.1:{self.port}/json/new?about:blank", method="PUT")
        with urllib.request.urlopen(request) as answer:
            page = Page(self.connect(json.load(answer)["webSocketDebuggerUrl"]))
        self.pages.append(page)
        page.call("Page.navigate", url=address)
        return page


class Page:
    # name: key, code, number, text
    keys = {"OK": ("Enter", "Enter", 13, "\r"), "ESC": ("Escape", "Escape", 27, ""),
            "#": ("#", "Digit3", 51, "#"), "*": ("*", "Digit8", 56, "*"),
            "Up": ("ArrowUp", "ArrowUp", 38, ""), "Down": ("ArrowDown", "ArrowDown", 40, ""),
            **{f"F{i}": (f"F{i}", f"F{i}", 111 + i, "") for i in range(1, 5)},
            **{str(i): (str(i), f"Digit{i}", 48 + i, str(i)) for i in range(10)}}

    def __init__(self, socket):
        self.socket = socket
        self.number = 0

    def call(self, method, **parameters):
        self.number += 1
        self.socket.send(json.dumps({"id": self.number, "method": method, "params": parameters}))
        while True:
            answer = json.loads(self.socket.recv())
            if answer.get("id") == self.number:
                expect("error" not in answer, f"{method}: {answer}")
                return answer["result"]

    def evaluate(self, script):
        answer = self.call("Runtime.evaluate", expression=script, awaitPromise=True, returnByValue=True)
        expect("exceptionDetails" not in answer, f"{script}: {answer}")
        return answer["result"].get("value")

    def press(self, name, repeats=0):
        key, code, number, text = self.keys[name]
        which = dict(key=key, code=code, windowsVirtualKeyCode=number)
        for i in range(1 + repeats):
            self.call("Input.dispatchKeyEvent", type="keyDown", text=text, autoRepeat=i > 0, **which)
        self.call("Input.dispatchKeyEvent", type="keyUp", **which)

    def type(self, keys, *arguments):
        """
        Presses one key after the other, the next one when the simulator, started with some arguments, shows what the last
        one did: a key that is pressed in the moment of its release is taken for one that is held.
        """
        typed = ""
        for key in keys.split():
            self.press(key)
            typed += key + " "
            self.wait_for_picture(picture_of(*arguments, "--keys", typed))

    def click(self, x, y):
        for kind in "mousePressed", "mouseReleased":
            self.call("Input.dispatchMouseEvent", type=kind, x=x, y=y, button="left", clickCount=1)

    def find(self, png):
        """Where a picture stands on the display, to the pixel, as x and y; None if it does not."""
        return self.compare(png, """
            for (let y = 0; y + picture.height <= shown.height; ++y)
                for (let x = 0; x + picture.width <= shown.width; ++x)
                    if (a.every((pixel, i) => pixel == b[(y + Math.floor(i / picture.width)) * shown.width
                                                         + x + i % picture.width]))
                        return [x, y];
            return null;""")

    def compare(self, png, script):
        """What a script says that is given the canvas "shown" with its pixels b, and a "picture" with its pixels a."""
        return self.evaluate("""(async () => {
            const shown = document.querySelector('canvas');
            if (!shown || !shown.width)
                return null;
            const picture = new Image();
            picture.src = 'data:image/png;base64,""" + base64.b64encode(png).decode() + """';
            await picture.decode();
            const copy = document.createElement('canvas');
            copy.width = picture.width;
            copy.height = picture.height;
            copy.getContext('2d').drawImage(picture, 0, 0);
            const [a, b] = [copy, shown].map(canvas => new Uint32Array(
                canvas.getContext('2d').getImageData(0, 0, canvas.width, canvas.height).data.buffer));
            """ + script + """
        })()""")

    def text(self):
        return self.evaluate("document.body ? document.body.innerText.trim() : ''")

    def differences(self, png):
        """How many pixels of the device differ from those of a picture; None as long as there is no device."""
        return self.compare(png, """
            if (picture.width != shown.width || picture.height != shown.height)
                return shown.width + 'x' + shown.height;
            return a.reduce((count, pixel, i) => count + (pixel != b[i]), 0);""")

    def wait_for_picture(self, png):
        """Until the device looks so, to the pixel."""
        wait_for(lambda: self.differences(png) == 0, lambda: f"the picture; {self.differences(png)} pixels differ, "
                                                             f"and the page says \"{self.text()}\"")

    def screenshot(self):
        return base64.b64decode(self.call("Page.captureScreenshot")["data"])


# --- The tests

def test_page_shows_the_device():
    with Simulation(*fixed_time) as simulation, Browser() as browser:
        page = browser.open(simulation.address())
        page.wait_for_picture(picture_of(*fixed_time))
        expect(page.text() == "", f"it also says {page.text()}")
        expect(page.evaluate("document.title") == "Simulator", "it has another title")
        shape = page.evaluate("(({x, y, right, bottom, width, height}) => [x, y, innerWidth - right, innerHeight - "
                              "bottom, width, height])(document.querySelector('canvas').getBoundingClientRect())")
        left, top, right, bottom, width, height = shape
        expect([width, height] == page.evaluate("(c => [c.width, c.height])(document.querySelector('canvas'))"),
               f"it is not sharp: {shape}")
        expect(abs(left - right) <= 1 and abs(top - bottom) <= 1 and left > 0, f"it is not in the middle: {shape}")


def test_arguments_reach_the_simulator():
    arguments = ["--screen", "contacts", "--zoom", "1", *fixed_time]
    with Simulation(*arguments, "--keys", "8") as simulation, Browser() as browser:
        browser.open(simulation.address()).wait_for_picture(picture_of(*arguments, "--keys", "8"))


def test_keys_move_the_focus():
    with Simulation(*fixed_time) as simulation, Browser() as browser:
        page = browser.open(simulation.address())
        page.wait_for_picture(picture_of(*fixed_time))
        expect(page.differences(picture_of(*fixed_time, "--keys", "8 8 6")) > 1000, "the focus is there without keys")
        page.type("8 8 6 OK ESC", *fixed_time)


def test_all_keys_arrive():
    # Each of them shows, and none waits for more of the same as letters do.
    keys = "* 0 1 2 3 4 5 6 7 8 9 F3 1 2 F4 # F1 F2"
    arguments = ["--screen", "text", *fixed_time]
    with Simulation(*arguments) as simulation, Browser() as browser:
        page = browser.open(simulation.address())
        page.wait_for_picture(picture_of(*arguments))
        for key in keys.split():
            page.press(key)
        # Until the cells of F1 to F4 are dark again, and the last character waits for no more of the same key.
        page.wait_for_picture(picture_of(*arguments, "--keys", f"{keys} wait:3000"))


def test_tools_are_on_the_page_if_wanted():
    with Simulation("--with-tools", "--fresh", *fixed_time) as simulation, Browser() as browser:
        page = browser.open(simulation.address())
        # The shades of the device's case depend on where it stands.
        wait_for(lambda: page.find(picture_of(*fixed_time, parts=())), "the display among the tools")
        size = page.evaluate("(c => [c.width, c.height])(document.querySelector('canvas'))")
        expect(size == [1280, 800], f"the display has {size}")
        page.press("6")
        wait_for(lambda: page.find(picture_of(*fixed_time, "--keys", "6", parts=())), "another picture after a key")


def test_keys_are_recorded():
    with tempfile.TemporaryDirectory() as directory:
        os.chmod(directory, 0o777)
        file = pathlib.Path(directory, "keys")
        with Simulation("--record", str(file), *fixed_time) as simulation, Browser() as browser:
            page = browser.open(simulation.address())
            page.wait_for_picture(picture_of(*fixed_time))
            page.type("8 8 6", *fixed_time)
            simulation.signal(signal.SIGINT)
            simulation.status()
        expect(picture_of(*fixed_time, "--keys", f"@{file}") == picture_of(*fixed_time, "--keys", "8 8 6"),
               f"it recorded {file.read_text()}")


def test_arrows_move_the_focus():
    arguments = ["--screen", "contacts", *fixed_time]
    with Simulation(*arguments) as simulation, Browser() as browser:
        page = browser.open(simulation.address())
        page.wait_for_picture(picture_of(*arguments))
        page.type("Down Down Up", *arguments)


def test_key_that_is_held_repeats():
    with Simulation("--screen", "contacts", *fixed_time) as simulation, Browser() as browser:
        page = browser.open(simulation.address())
        page.wait_for_picture(picture_of("--screen", "contacts", *fixed_time))
        page.press("8", repeats=12)
        page.wait_for_picture(picture_of("--screen", "contacts", *fixed_time, "--keys", "8:long"))


def test_keys_can_be_clicked():
    with Simulation("--screen", "contacts", *fixed_time) as simulation, Browser() as browser:
        page = browser.open(simulation.address())
        first = picture_of("--screen", "contacts", *fixed_time)
        page.wait_for_picture(first)
        left, top, width, height = page.evaluate(
            "(({x, y, width, height}) => [x, y, width, height])(document.querySelector('canvas').getBoundingClientRect())")
        # The key 8 is in the middle of the keypad.
        x, y = left + width * 0.82, top + height * 0.73
        page.call("Input.dispatchMouseEvent", type="mousePressed", x=x, y=y, button="left", clickCount=1)
        wait_for(lambda: page.differences(first), "a key that is down")
        page.call("Input.dispatchMouseEvent", type="mouseReleased", x=x, y=y, button="left", clickCount=1)
        page.wait_for_picture(picture_of("--screen", "contacts", *fixed_time, "--keys", "8"))


def test_keys_arrive_after_a_click_beside_the_device():
    with Simulation(*fixed_time) as simulation, Browser() as browser:
        page = browser.open(simulation.address())
        page.wait_for_picture(picture_of(*fixed_time))
        page.click(3, 3)
        page.press("6")
        page.wait_for_picture(picture_of(*fixed_time, "--keys", "6"))


def test_two_pages_show_the_same():
    with Simulation(*fixed_time) as simulation, Browser() as browser:
        pages = [browser.open(simulation.address()) for _ in range(2)]
        for page in pages:
            page.wait_for_picture(picture_of(*fixed_time))
        pages[0].press("6")
        for page in pages:
            page.wait_for_picture(picture_of(*fixed_time, "--keys", "6"))


def test_page_can_be_loaded_again():
    with Simulation(*fixed_time) as simulation, Browser() as browser:
        page = browser.open(simulation.address())
        page.wait_for_picture(picture_of(*fixed_time))
        page.press("6")
        page.wait_for_picture(picture_of(*fixed_time, "--keys", "6"))
        page.call("Page.reload")
        page.wait_for_picture(picture_of(*fixed_time, "--keys", "6"))


def test_page_fits_into_a_small_window():
    with Simulation("--zoom", "4", *fixed_time) as simulation, Browser() as browser:
        page = browser.open(simulation.address())
        page.wait_for_picture(picture_of("--zoom", "4", *fixed_time))
        page.call("Emulation.setDeviceMetricsOverride", width=500, height=400, deviceScaleFactor=1, mobile=False)
        inside = ("(({x, y, right, bottom}) => x >= 0 && y >= 0 && right <= innerWidth && bottom <= innerHeight)"
                  "(document.querySelector('canvas').getBoundingClientRect())")
        wait_for(lambda: page.evaluate(inside), "the whole device in a small window")


def test_wrong_password_is_refused():
    with Simulation(*fixed_time) as simulation, Browser() as browser:
        address, password = simulation.address().split("#")
        expect(re.fullmatch("[a-zA-Z0-9]{8}", password), f"there is no good password: {password}")
        for wrong in "", "#", "#12345678", f"#{password[:7]}", f"#{password.swapcase()}":
            page = browser.open(address + wrong)
            wait_for(lambda: "no longer valid" in page.text(), lambda: f"what is wrong; it says {page.text()}")
            expect(page.differences(b"") is None, "it shows a device")
        # In the same page: what was typed wrong is put right.
        page.evaluate(f"location.hash = '{password}'")
        page.wait_for_picture(picture_of(*fixed_time))


def test_each_start_has_another_password():
    with Simulation() as one, Simulation() as other:
        expect(one.address().split("#")[1] != other.address().split("#")[1], "it is the same one")


def test_nobody_is_let_in_without_a_password():
    import websocket
    with Simulation() as simulation:
        simulation.address()
        connection = websocket.create_connection(f"ws://127.0.0.1:{simulation.port}/websockify", timeout=patience)
        expect(connection.recv() == b"RFB 003.008\n", "it is no VNC server")
        connection.send_binary(b"RFB 003.008\n")
        ways = connection.recv()
        connection.close()
        expect(ways == b"\x01\x02", f"there are other ways than the password: {ways}")


def test_only_this_computer_is_served():
    with Simulation() as simulation:
        simulation.address()
        sockets = set()
        for pid in simulation.processes():
            for link in pathlib.Path(f"/proc/{pid}/fd").iterdir():
                with contextlib.suppress(OSError):
                    sockets.add(os.readlink(link))
        listening = []
        for table in "tcp", "tcp6", "udp", "udp6":
            for line in pathlib.Path("/proc/net", table).read_text().splitlines()[1:]:
                words = line.split()
                if f"socket:[{words[9]}]" in sockets and (words[3] == "0A" or table.startswith("udp")):
                    listening.append((table, words[1]))
        expect(listening == [("tcp", f"0100007F:{simulation.port:04X}")], f"it listens at {listening}")
        others = subprocess.run(["hostname", "-I"], capture_output=True, text=True).stdout.split()
        for address in others:
            if ":" not in address:
                expect(not answers(address, simulation.port), f"it answers at {address}")


def test_nobody_else_gets_at_the_display():
    with Simulation() as simulation:
        simulation.address()
        place = simulation.place()
        expect(stat.S_IMODE(place.stat().st_mode) == 0o700, "anybody may enter the directory")
        expect(stat.S_IMODE((place / "vnc").stat().st_mode) == 0o600, "anybody may use the socket")
        # What a program sends that has no cookie: the X server answers 0, which is no.
        with socket.socket(socket.AF_UNIX) as client:
            client.connect(str(simulation.files_of_display()[0]))
            client.sendall(struct.pack("<BxHHHHxx", ord("l"), 11, 0, 0, 0))
            expect(client.recv(1) == b"\0", "it lets a program in that has no cookie")
        if as_nobody:
            result = subprocess.run([*as_nobody, "ls", place], capture_output=True)
            expect(result.returncode != 0, "another user sees the files")


def test_works_without_root():
    if not as_nobody:
        print("Skipped: who runs the tests is not root anyway.")
        return
    name = pwd.getpwuid(65534).pw_name
    with Simulation(*fixed_time, user=as_nobody) as simulation, Browser() as browser:
        page = browser.open(simulation.address())
        page.wait_for_picture(picture_of(*fixed_time))
        expect(simulation.place().owner() == name, "it is still root")
        files = simulation.files_of_display()
        os.kill(simulation.process.pid, signal.SIGTERM)
        simulation.status()
        simulation.expect_nothing_left(files)


def test_ctrl_c_leaves_nothing():
    expect_signal_leaves_nothing(signal.SIGINT, 130)


def test_sigterm_leaves_nothing():
    expect_signal_leaves_nothing(signal.SIGTERM, 143)


def test_a_terminal_that_closes_leaves_nothing():
    expect_signal_leaves_nothing(signal.SIGHUP, 129)


def expect_signal_leaves_nothing(number, status):
    with Simulation(*fixed_time) as simulation, Browser() as browser:
        page = browser.open(simulation.address())
        page.wait_for_picture(picture_of(*fixed_time))
        files = simulation.files_of_display()
        expect(files[0].exists(), "there is no display")
        simulation.signal(number)
        expect(simulation.status() == status, f"the status is {simulation.status()}")
        simulation.expect_nothing_left(files)
        expect(len(simulation.said) == 3, f"it says more: {simulation.output()}")
        wait_for(lambda: page.text() == "The simulator has ended.", lambda: f"the end; the page says {page.text()}")


def test_ctrl_c_at_any_time_leaves_nothing():
    # Until something is there, and then a bit later each time.
    for begun in "Xtigervnc", "simulator --device-only --zoom 2 --with-keys$", "websockify":
        with Simulation("--with-keys") as simulation:
            wait_for(lambda: any(re.search(begun, line.strip()) for line in simulation.processes().values()),
                     lambda: f"{begun}: {simulation.output()}")
            simulation.signal(signal.SIGINT)
            expect(simulation.status() == 130, f"the status is {simulation.status()} after {begun}")
            simulation.expect_nothing_left()


def test_it_ends_with_the_simulator():
    with Simulation() as simulation:
        simulation.address()
        files = simulation.files_of_display()
        os.kill(simulation.pid_of("simulator"), signal.SIGTERM)
        expect(simulation.status() == 143, f"the status is {simulation.status()}")
        expect(simulation.said[3:] == [f"{root}/simulate: --browser: signal 15 has ended the simulator.\n"],
               f"it says {simulation.output()}")
        simulation.expect_nothing_left(files)


def test_it_ends_with_a_simulator_that_ends_at_once():
    with Simulation("--with-keys") as simulation:
        window = lambda: [pid for pid, line in simulation.processes().items() if line.endswith("--with-keys ")
                          and "bin/simulator " in line]
        wait_for(window, lambda: f"a simulator: {simulation.output()}")
        os.kill(window()[0], signal.SIGKILL)
        expect(simulation.status() == 137, f"the status is {simulation.status()}")
        simulation.expect_nothing_left()


def test_it_ends_with_the_x_server():
    expect_end_with("Xtigervnc", "the X server has ended")


def test_it_ends_with_the_server_of_the_page():
    expect_end_with("websockify", "the page's server has ended")


def expect_end_with(name, message):
    with Simulation(*fixed_time) as simulation, Browser() as browser:
        page = browser.open(simulation.address())
        page.wait_for_picture(picture_of(*fixed_time))
        files = simulation.files_of_display()
        os.kill(simulation.pid_of(name), signal.SIGKILL)
        expect(simulation.status() == 1, f"the status is {simulation.status()}")
        expect(message in simulation.output(), f"it says {simulation.output()}")
        simulation.expect_nothing_left(files)
        wait_for(lambda: page.text() == "The simulator has ended.", lambda: f"the end; the page says {page.text()}")


def test_nothing_runs_on_without_the_script():
    expect_end_without_the_script(Simulation())


def test_nothing_runs_on_without_the_script_if_the_page_server_misses_a_signal():
    # As it may while it takes a connection.
    with tempfile.TemporaryDirectory() as commands:
        server = pathlib.Path(commands, "websockify")
        server.write_text("#!/usr/bin/python3\n"
                          "import os, signal, sys\n"
                          "signal.pthread_sigmask(signal.SIG_BLOCK, [signal.SIGHUP, signal.SIGINT, signal.SIGTERM])\n"
                          f"os.execv({shutil.which('websockify')!r}, sys.argv)\n")
        server.chmod(0o755)
        expect_end_without_the_script(Simulation(commands=commands))


def expect_end_without_the_script(started):
    with started as simulation:
        simulation.address()
        files = simulation.files_of_display()
        simulation.process.kill()
        wait_for(lambda: not simulation.processes(), lambda: f"the end of {simulation.processes()}")
        expect(not any(file.exists() for file in files), "the files of the display are still there")


def test_port_in_use_is_told_before_anything_starts():
    with socket.socket() as other:
        other.bind(("127.0.0.1", 0))
        other.listen()
        port = other.getsockname()[1]
        with Simulation(port=port) as simulation:
            expect(simulation.status() == 1, f"the status is {simulation.status()}")
            expect(f"port {port} cannot be used: Address already in use. Name another one: " in simulation.output(),
                   f"it says {simulation.output()}")
            expect(len(simulation.said) == 1, f"it says more: {simulation.output()}")
            expect(not list(simulation.directory.iterdir()), "there are files")


def test_wrong_arguments_are_told_before_anything_starts():
    for arguments, message in ((["--zoom", "9"], "There is no zoom"), (["--keys", "x"], "--keys: "),
                               (["--with-tools", "--device-only"], "do not go together")):
        with Simulation(*arguments) as simulation:
            expect(simulation.status() == 2, f"the status is {simulation.status()}")
            expect(message in simulation.output() and len(simulation.said) == 1, f"it says {simulation.output()}")
            expect(simulation.output().startswith(str(root / "simulate")), f"who says {simulation.output()}")
            simulation.expect_nothing_left()


# --- Running them

def main():
    # What a script runs in the background ignores Ctrl-C, and so would the programs that it is sent to here.
    signal.signal(signal.SIGINT, signal.default_int_handler)
    tests = {name[5:]: test for name, test in globals().items() if name.startswith("test_")}
    names = sys.argv[1:] or list(tests)
    if names == ["--list"]:
        print(*tests, sep="\n")
        return 0
    failed = 0
    for name in names:
        if name not in tests:
            print(f"There is no test \"{name}\". tests/browser.py --list names them.", file=sys.stderr)
            return 2
        try:
            tests[name]()
            print("ok     ", name.replace("_", " "), flush=True)
        except Exception:
            traceback.print_exc()
            print("FAILED ", name.replace("_", " "), flush=True)
            failed += 1
    return failed > 0


sys.exit(main())
