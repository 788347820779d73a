"""A computer with qlb, in the Wine prefix of the environment."""

import os
import shutil
import subprocess
import sys

sys.path.append(os.path.join(os.path.dirname(os.path.abspath(__file__)), "../package"))
import wine  # noqa: E402

PRODUCT = "Software\\Korvo\\KORVOQLB"
STORE = "HKCU\\" + PRODUCT
INI = wine.unix_path("C:\\windows\\KORVOQLB.INI")
PROGRAM = "C:\\Program Files\\QLBUtl\\qlb.exe"
LANGUAGES = {"en": {"LC_ALL": "C.UTF-8"}, "ja": wine.JAPANESE}


def install(build):
    """Puts the programs where a user would have them."""
    folder = os.path.dirname(wine.unix_path(PROGRAM))
    os.makedirs(folder, exist_ok=True)
    for name in ("qlb.exe", "QLBUtl.exe"):
        shutil.copyfile(os.path.join(build, name), os.path.join(folder, name))
    return folder


def demo(language):
    """The demo settings of that language, of the machine and of the user."""
    clear()
    for part in ("machine", "user"):
        import_registry(os.path.join(wine.ROOT, "demo", language, f"QLBUtl-{part}.reg"))
    use_ini_file(False)


def import_registry(path):
    shutil.copyfile(path, wine.unix_path("C:\\windows\\temp\\import.reg"))
    assert wine.run("regedit", "/S", "C:\\windows\\temp\\import.reg") == 0


def clear():
    wine.run("reg", "delete", STORE, "/f")
    if os.path.exists(INI):
        os.remove(INI)


def use_ini_file(use):
    assert wine.run("reg", "add", "HKLM\\" + PRODUCT, "/v", "QLBINI", "/t", "REG_DWORD", "/d",
                    "1" if use else "0", "/f") == 0


def values():
    """Each value of the user's store, as a .reg file has it."""
    return {name: data for name, data in wine.registry(STORE).items() if name[1] is not None}


def ini():
    """The bytes of the ini file; nothing without one."""
    if not os.path.exists(INI):
        return b""
    with open(INI, "rb") as file:
        return file.read()


def start(*arguments, language="en", stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL):
    return subprocess.Popen(["wine", PROGRAM, *arguments], stdin=subprocess.DEVNULL, stdout=stdout, stderr=stderr,
                            cwd=wine.DRIVE_C, env={**os.environ, **LANGUAGES[language]})


def qlb(*arguments, language="en"):
    """The exit code, and the bytes of standard output and standard error."""
    # Files: Wine's services would keep a pipe open.
    out, err = (os.path.join(wine.PREFIX, name) for name in ("out", "err"))
    with open(out, "wb") as stdout, open(err, "wb") as stderr:
        code = start(*arguments, language=language, stdout=stdout, stderr=stderr).wait(timeout=60)
    with open(out, "rb") as stdout, open(err, "rb") as stderr:
        return code, stdout.read(), stderr.read()


def backups():
    """The names of all backups, newest first."""
    code, out, _ = qlb("backups")
    assert code == 0
    return [line.split("  ", 1)[1].strip() for line in out.decode().splitlines()]
