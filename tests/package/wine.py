"""The Wine prefix of the environment, as the package tests see it."""

import os
import re
import subprocess
import time

PREFIX = os.environ["WINEPREFIX"]
DRIVE_C = os.path.join(PREFIX, "drive_c")
ROOT = os.path.dirname(os.path.dirname(os.path.dirname(os.path.abspath(__file__))))
if not os.path.exists(os.path.join(DRIVE_C, "windows/qlbutl-test-machine")) and "QLB_ERASE_SETTINGS" not in os.environ:
    raise SystemExit("These tests erase the button settings of the Wine prefix. Set QLB_ERASE_SETTINGS to have it so.")
WINDOW_CLASS = "^qlbutl.exe$"
JAPANESE = {"LC_ALL": "ja_JP.UTF-8", "LOCPATH": os.path.join(ROOT, "build/wine/locale")}


def unix_path(path):
    return os.path.join(DRIVE_C, path[3:].replace("\\", "/"))


def run(*command, environment=None, wait=180):
    """Runs a Windows program to its end; its exit code."""
    return subprocess.run(["wine", *command], stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL,
                          stderr=subprocess.DEVNULL, timeout=wait, check=False, cwd="/",
                          env={**os.environ, **(environment or {})}).returncode


def wait_for(what, seconds=60):
    """Whether it comes true in time."""
    end = time.monotonic() + seconds
    while not what():
        if time.monotonic() > end:
            return False
        time.sleep(0.1)
    return True


def registry(key):
    """What lies below a key: {(key, value name): data}, data as a .reg file writes it. Empty without the key."""
    target = unix_path("C:\\windows\\temp\\export.reg")
    if os.path.exists(target):
        os.remove(target)
    run("reg", "export", key, "C:\\windows\\temp\\export.reg", "/y")
    if not os.path.exists(target):
        return {}
    with open(target, encoding="utf-16") as file:
        text = file.read()
    os.remove(target)
    found = {}
    where = None
    for line in re.sub(r"\\\n\s*", "", text.replace("\r\n", "\n")).split("\n"):
        if line.startswith("["):
            where = line[1:-1]
            found[where, None] = ""
        elif match := re.fullmatch(r'(@|"(?:[^"\\]|\\.)*")=(.*)', line):
            name, data = match.groups()
            found[where, re.sub(r"\\(.)", r"\1", name[1:-1])] = data
    return found


def text(data):
    """A text of the registry without its quotes."""
    return re.sub(r"\\(.)", r"\1", data[1:-1])


def files():
    """Every file and folder of drive C with its size, but for the folders that are anyone's scratch."""
    found = {}
    for where, folders, names in os.walk(DRIVE_C):
        folders[:] = [name for name in folders if name.lower() != "temp"]
        below = os.path.relpath(where, DRIVE_C)
        found[below] = None
        for name in names:
            found[os.path.join(below, name)] = os.lstat(os.path.join(where, name)).st_size
    return found


def snapshot():
    # Wine's own notes are not what a package leaves.
    user = {name: data for name, data in registry("HKCU").items() if "\\Software\\Wine" not in name[0]}
    return {"files": files(), "machine": registry("HKLM\\Software"), "user": user}


def difference(before, after):
    """What came, went or changed, part by part."""
    lines = []
    for part, old in before.items():
        new = after[part]
        for name in sorted(set(old) | set(new), key=str):
            if old.get(name, "-") != new.get(name, "-"):
                lines.append(f"{part}: {name}: {old.get(name, '-')} -> {new.get(name, '-')}")
    return "\n".join(lines)


def windows():
    """The titles of the program's visible windows."""
    found = subprocess.run(["xdotool", "search", "--onlyvisible", "--class", WINDOW_CLASS, "getwindowname", "%@"],
                           capture_output=True, text=True, check=False)
    return found.stdout.splitlines()


def program_runs():
    found = subprocess.run(["xdotool", "search", "--class", WINDOW_CLASS], capture_output=True, check=False)
    return bool(found.stdout.split())


def close_program():
    run("taskkill", "/im", "QLBUtl.exe")
    return wait_for(lambda: not program_runs())


def uninstaller_runs():
    """NSIS' uninstaller works from a copy in the folder of temporary files."""
    for process in os.listdir("/proc"):
        try:
            with open(f"/proc/{process}/cmdline", "rb") as file:
                command = file.read()
            if b"~nsu" in command:
                with open(f"/proc/{process}/environ", "rb") as file:
                    if b"WINEPREFIX=" + os.fsencode(PREFIX) in file.read().split(b"\0"):
                        return True
        except (OSError, ValueError):
            continue
    return False
