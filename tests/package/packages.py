#!/usr/bin/python3
"""The packages, unpacked and installed as a user would do it, in the Wine prefix of the environment.

packages.py FOLDER-OF-PACKAGES HELP-FOLDER VERSION [TEST...]
"""

import os
import re
import shutil
import struct
import subprocess
import sys
import unittest
import zipfile

import wine

PACKAGES, HELP, VERSION = os.path.abspath(sys.argv[1]), os.path.abspath(sys.argv[2]), sys.argv[3]
SETTINGS = "Software\\Korvo\\KORVOQLB"
ENTRY = "HKEY_LOCAL_MACHINE\\Software\\Microsoft\\Windows\\CurrentVersion\\Uninstall\\QLBUtl"
MENU = "C:\\ProgramData\\Microsoft\\Windows\\Start Menu\\Programs"
FOLDER = "C:\\Program Files\\QLBUtl"
ENGLISH = "Quickfire Button Settings"
JAPANESE = "クイックファイアボタンの設定"
FILES = ["QLBUTL.CHM", "QLBUtl-uninstall.exe", "QLBUtl.exe", "qlb.exe"]
DEMO_FILES = ["QLBCODE.DAT", "QLBMCMNU.DAT"]
IN_USE, TOO_OLD = 3, 4


def package(name):
    return os.path.join(PACKAGES, f"QLBUtl-{VERSION}-{name}")


def content(path):
    with open(path, "rb") as file:
        return file.read()


def source(name, language):
    folder = HELP if name.endswith(".CHM") else os.path.join(wine.ROOT, "demo")
    return content(os.path.join(folder, language, name))


def last_option(name, folder):
    """NSIS takes the rest of the line for the folder, and wants no quotes: so each word comes alone."""
    return (name + folder).split(" ")


def settings(hive="HKLM"):
    return wine.registry(f"{hive}\\{SETTINGS}")


def set_value(key, name, kind, data):
    assert wine.run("reg", "add", key, "/v", name, "/t", kind, "/d", data, "/f") == 0


def import_settings(path):
    shutil.copyfile(path, wine.unix_path("C:\\windows\\temp\\import.reg"))
    assert wine.run("regedit", "/S", "C:\\windows\\temp\\import.reg") == 0


class Zip(unittest.TestCase):
    FOLDER = f"C:\\QLBUtl-{VERSION}-x64"

    def unpack(self):
        with zipfile.ZipFile(package("x64.zip")) as archive:
            archive.extractall(wine.DRIVE_C)
        folder = wine.unix_path(self.FOLDER)
        self.addCleanup(shutil.rmtree, folder)
        import_settings(f"{folder}/demo/en/QLBUtl-machine.reg")
        return folder

    def test_starts_where_it_is_unpacked(self):
        before = wine.snapshot()
        folder = self.unpack()
        wine.run("start", f"{self.FOLDER}\\QLBUtl.exe", "/k")
        self.assertTrue(wine.wait_for(lambda: ENGLISH in wine.windows()))
        self.assertTrue(wine.close_program())

        import_settings(f"{folder}/demo/QLBUtl-remove.reg")
        left = wine.registry("HKLM\\" + SETTINGS)
        self.assertEqual(left, {})
        came = set(wine.files()) - set(before["files"])
        self.assertEqual({path.split("/")[0] for path in came}, {f"QLBUtl-{VERSION}-x64"})

    def test_holds_the_same_for_both_machines(self):
        wanted = {"QLBUtl.exe", "QLBLauncher.exe", "qlb.exe", "README.txt", "demo/QLBUtl-remove.reg"}
        for name in ("QLBUTL.CHM", "QLBCODE.DAT", "QLBMCMNU.DAT"):
            wanted |= {name, "ja/" + name}
        for language in ("en", "ja"):
            wanted |= {f"demo/{language}/QLBUtl-machine.reg", f"demo/{language}/QLBUtl-user.reg"}
        for machine in ("x64", "x86"):
            with self.subTest(machine=machine), zipfile.ZipFile(package(machine + ".zip")) as archive:
                top = f"QLBUtl-{VERSION}-{machine}/"
                self.assertEqual(set(archive.namelist()), {top + name for name in wanted})
                self.assertTrue(archive.read(top + "QLBUTL.CHM") == source("QLBUTL.CHM", "en"))
                self.assertTrue(archive.read(top + "ja/QLBUTL.CHM") == source("QLBUTL.CHM", "ja"))
                readme = archive.read(top + "README.txt").decode("utf-8-sig")
                for text in (ENGLISH, JAPANESE, VERSION, machine):
                    self.assertIn(text, readme)
                self.assertNotIn("@", readme)


class Installer(unittest.TestCase):
    clean = None

    @classmethod
    def setUpClass(cls):
        # What Wine itself creates at the first shortcut or program of a new prefix is not ours.
        cls.install_and_remove()

    @staticmethod
    def install_and_remove():
        assert wine.run(package("x64-setup.exe"), "/S") == 0
        Installer.uninstall()

    @staticmethod
    def install(*options, environment=None):
        return wine.run(package("x64-setup.exe"), "/S", *options, environment=environment)

    @staticmethod
    def start_uninstaller(*options, folder=FOLDER):
        # In its own place it runs to its end before it returns, as it would not from the copy that it makes.
        return wine.run(f"{folder}\\QLBUtl-uninstall.exe", "/S", *options, *last_option("_?=", folder))

    @staticmethod
    def uninstall(*options, folder=FOLDER):
        wine.run(f"{folder}\\QLBUtl-uninstall.exe", "/S", *options)
        assert wine.wait_for(lambda: not wine.uninstaller_runs()), "the uninstaller did not end"
        assert wine.registry(ENTRY) == {}, "the uninstaller gave up"

    def setUp(self):
        # A test that leaves nothing leaves what the next one begins with.
        if Installer.clean is None:
            Installer.clean = wine.snapshot()
        self.before = Installer.clean
        Installer.clean = None

    def tearDown(self):
        # Only after a failure, for the tests that follow.
        if wine.program_runs():
            wine.close_program()
        for folder in (FOLDER, "C:\\Elsewhere", "C:\\Other Place\\QLB"):
            if os.path.exists(wine.unix_path(folder + "\\QLBUtl-uninstall.exe")):
                self.uninstall(folder=folder)

    def check_nothing_left(self):
        after = wine.snapshot()
        self.assertEqual(wine.difference(self.before, after), "")
        return after

    def entry(self):
        values = wine.registry(ENTRY)
        return {name: data for (key, name), data in values.items() if key == ENTRY and name}

    def shortcuts(self):
        return sorted(name for name in os.listdir(wine.unix_path(MENU)) if name.endswith(".lnk"))

    def start_from_menu(self, title):
        wine.run("start", f"{MENU}\\{title}.lnk")
        return wine.wait_for(lambda: title in wine.windows())

    def test_installs_the_program_and_its_entries_and_removes_them(self):
        self.assertEqual(self.install("/demo"), 0)
        self.assertEqual(sorted(os.listdir(wine.unix_path(FOLDER))), DEMO_FILES + FILES)
        for name in ("QLBUTL.CHM", "QLBCODE.DAT", "QLBMCMNU.DAT"):
            self.assertTrue(content(wine.unix_path(f"{FOLDER}\\{name}")) == source(name, "en"), name)
        with zipfile.ZipFile(package("x64.zip")) as archive:
            self.assertTrue(content(wine.unix_path(FOLDER + "\\QLBUtl.exe"))
                            == archive.read(f"QLBUtl-{VERSION}-x64/QLBUtl.exe"))

        entry = self.entry()
        size = int(entry.pop("EstimatedSize").removeprefix("dword:"), 16)
        real = sum(os.path.getsize(wine.unix_path(f"{FOLDER}\\{name}")) for name in DEMO_FILES + FILES) / 1024
        self.assertAlmostEqual(size, real, delta=real / 4)
        self.assertEqual((entry.pop("NoModify"), entry.pop("NoRepair")), ("dword:00000001", "dword:00000001"))
        self.assertEqual({name: wine.text(data) for name, data in entry.items()}, {
            "DisplayName": ENGLISH, "DisplayVersion": VERSION, "Publisher": "The QLBUtl developers",
            "DisplayIcon": FOLDER + "\\QLBUtl.exe,0", "InstallLocation": FOLDER,
            "UninstallString": f'"{FOLDER}\\QLBUtl-uninstall.exe"',
            "QuietUninstallString": f'"{FOLDER}\\QLBUtl-uninstall.exe" /S',
            "Shortcut": f"{MENU}\\{ENGLISH}.lnk"})

        self.assertEqual(self.shortcuts(), [ENGLISH + ".lnk"])
        self.assertTrue(self.start_from_menu(ENGLISH))
        self.assertTrue(wine.close_program())
        self.uninstall()
        Installer.clean = self.check_nothing_left()

    def test_changes_nothing_while_the_program_is_open(self):
        self.assertEqual(self.install("/demo"), 0)
        self.assertTrue(self.start_from_menu(ENGLISH))
        installed = wine.snapshot()
        self.assertEqual(self.install("/LANG=ja"), IN_USE)
        self.assertEqual(self.install(*last_option("/D=", "C:\\Elsewhere")), IN_USE)
        self.assertEqual(self.start_uninstaller(), IN_USE)
        self.assertEqual(wine.difference(installed, wine.snapshot()), "")
        self.assertTrue(wine.close_program())
        self.assertEqual(self.install(), 0)
        self.uninstall()
        Installer.clean = self.check_nothing_left()

    def test_installs_nothing_on_a_windows_that_is_too_old(self):
        wine.run("winecfg", "-v", "win7")
        self.addCleanup(wine.run, "winecfg", "-v", "win10")
        self.before = wine.snapshot()
        self.assertEqual(self.install("/demo"), TOO_OLD)
        self.check_nothing_left()

    def test_an_update_replaces_what_is_there_and_keeps_the_demo_settings(self):
        self.assertEqual(self.install("/demo"), 0)
        installed = wine.snapshot()
        for name in ("QLBUtl.exe", "QLBUTL.CHM", "QLBCODE.DAT"):
            with open(wine.unix_path(f"{FOLDER}\\{name}"), "wb") as file:
                file.write(b"of an older version")
        os.remove(wine.unix_path(FOLDER + "\\QLBMCMNU.DAT"))
        set_value("HKLM" + ENTRY[18:], "DisplayVersion", "REG_SZ", "0.0.9")
        self.assertEqual(self.install(), 0)
        self.assertEqual(wine.difference(installed, wine.snapshot()), "")
        self.uninstall()
        Installer.clean = self.check_nothing_left()

    def test_speaks_the_language_of_windows_or_the_one_that_is_asked_for(self):
        self.assertEqual(self.install("/demo", environment=wine.JAPANESE), 0)
        self.assertEqual(self.shortcuts(), [JAPANESE + ".lnk"])
        self.assertEqual(wine.text(self.entry()["DisplayName"]), JAPANESE)
        self.assertEqual(wine.text(settings()[f"HKEY_LOCAL_MACHINE\\{SETTINGS}\\UTLSetting\\ButtonName", "AppKey1"]),
                         "メール")
        for name in ("QLBUTL.CHM", "QLBCODE.DAT", "QLBMCMNU.DAT"):
            self.assertTrue(content(wine.unix_path(f"{FOLDER}\\{name}")) == source(name, "ja"), name)
        self.assertEqual(self.install("/LANG=en", environment=wine.JAPANESE), 0)
        self.assertEqual(self.shortcuts(), [ENGLISH + ".lnk"])
        self.assertTrue(content(wine.unix_path(FOLDER + "\\QLBUTL.CHM")) == source("QLBUTL.CHM", "en"))
        self.uninstall()
        Installer.clean = self.check_nothing_left()

    def test_demo_settings_come_beside_what_is_there_and_go_alone(self):
        set_value(f"HKLM\\{SETTINGS}", "QLBB", "REG_DWORD", "2")
        set_value(f"HKLM\\{SETTINGS}\\UTLSetting\\ButtonName", "AppKey1", "REG_SZ", "THEIRS")
        self.addCleanup(wine.run, "reg", "delete", "HKLM\\Software\\Korvo", "/f")
        self.before = wine.snapshot()
        self.assertEqual(self.install(), 0)
        theirs = {(f"HKEY_LOCAL_MACHINE\\{SETTINGS}", "QLBB"): "dword:00000002",
                  (f"HKEY_LOCAL_MACHINE\\{SETTINGS}\\UTLSetting\\ButtonName", "AppKey1"): '"THEIRS"'}
        self.assertEqual({key: data for key, data in settings().items() if key[1]}, theirs, "none unless asked for")

        self.assertEqual(self.install("/demo"), 0)
        demo = {key: data for key, data in settings().items() if key[1]}
        with open(os.path.join(wine.ROOT, "demo/en/QLBUtl-machine.reg"), encoding="utf-16") as file:
            self.assertEqual(len(demo), sum(line.startswith('"') for line in file))
        self.assertEqual({key: demo[key] for key in theirs}, theirs)

        # What a keyboard's own set-up changes later is no longer the demo's.
        labels = f"HKLM\\{SETTINGS}\\UTLSetting\\ButtonName"
        set_value(labels, "AppKey2", "REG_SZ", "CHANGED")
        self.uninstall()
        self.assertEqual({key: data for key, data in settings().items() if key[1]},
                         {**theirs, ("HKEY_LOCAL_MACHINE" + labels[4:], "AppKey2"): '"CHANGED"'})
        wine.run("reg", "delete", labels, "/v", "AppKey2", "/f")
        self.check_nothing_left()

    def test_the_demo_hides_no_keyboard_of_the_other_half(self):
        other = "HKLM\\Software\\Wow6432Node\\Korvo\\KORVOQLB"
        set_value(other, "QLBB", "REG_DWORD", "2")
        self.addCleanup(wine.run, "reg", "delete", "HKLM\\Software\\Wow6432Node\\Korvo", "/f")
        self.before = wine.snapshot()
        self.assertEqual(self.install("/demo"), 0)
        self.assertEqual(settings(), {})
        self.assertEqual(sorted(os.listdir(wine.unix_path(FOLDER))), FILES)
        self.uninstall()
        self.check_nothing_left()

    def test_the_users_settings_stay_unless_they_shall_go(self):
        # A neighbour of the same maker keeps its own.
        import_settings(os.path.join(wine.ROOT, "demo/en/QLBUtl-user.reg"))
        self.addCleanup(wine.run, "reg", "delete", "HKCU\\Software\\Korvo", "/f")
        mine = settings("HKCU")
        self.assertTrue(mine)
        self.assertEqual(self.install(), 0)
        self.uninstall()
        self.assertEqual(settings("HKCU"), mine)

        ini = wine.unix_path("C:\\windows\\KORVOQLB.INI")
        shutil.copyfile(__file__, ini)
        self.assertEqual(self.install(), 0)
        self.uninstall()
        self.assertTrue(os.path.exists(ini))
        set_value("HKCU\\Software\\Korvo\\Neighbour", "Its", "REG_SZ", "own")
        self.assertEqual(self.install(), 0)
        self.uninstall("/removesettings")
        self.assertEqual(settings("HKCU"), {})
        self.assertFalse(os.path.exists(ini))
        self.assertTrue(wine.registry("HKCU\\Software\\Korvo\\Neighbour"))
        wine.run("reg", "delete", "HKCU\\Software\\Korvo\\Neighbour", "/f")
        self.assertEqual(self.install(), 0)
        self.uninstall("/removesettings")
        wine.run("reg", "delete", "HKCU\\Software\\Korvo", "/f")
        Installer.clean = self.check_nothing_left()

    def test_data_files_come_with_the_demo_alone_and_never_over_others(self):
        def installed():
            return sorted(os.listdir(wine.unix_path(FOLDER)))

        self.assertEqual(self.install(), 0)
        self.assertEqual(installed(), FILES)
        theirs = wine.unix_path(FOLDER + "\\QLBCODE.DAT")
        with open(theirs, "wb") as file:
            file.write(b"the maker's")
        self.assertEqual(self.install("/demo"), 0)
        self.assertEqual(installed(), DEMO_FILES + FILES)
        self.assertEqual(content(theirs), b"the maker's")
        self.uninstall()
        self.assertEqual(os.listdir(wine.unix_path(FOLDER)), ["QLBCODE.DAT"])
        shutil.rmtree(wine.unix_path(FOLDER))
        Installer.clean = self.check_nothing_left()

    def test_qlb_is_in_the_path_if_that_is_asked_for(self):
        environment = "HKLM\\SYSTEM\\CurrentControlSet\\Control\\Session Manager\\Environment"

        def path():
            values = wine.registry(environment)
            return next(data for (_, name), data in values.items() if name and name.lower() == "path")

        def as_text(data):
            """What "hex(2):" has as bytes of UTF-16."""
            numbers = data.removeprefix("str(2):").removeprefix("hex(2):")
            if data.startswith("hex"):
                return bytes(int(byte, 16) for byte in numbers.split(",")).decode("utf-16-le").rstrip("\0")
            return wine.text(numbers)
        # Longer than a string of the installer can be.
        long = ";".join(["%SystemRoot%\\system32", "%SystemRoot%", *(f"C:\\Long\\{'x' * 90}{i}" for i in range(90))])
        original = as_text(path())
        set_value(environment, "Path", "REG_EXPAND_SZ", long)
        self.addCleanup(set_value, environment, "Path", "REG_EXPAND_SZ", original)
        self.before = wine.snapshot()
        before = path()
        self.assertEqual(self.install(), 0)
        self.assertEqual(path(), before, "only if it is asked for")
        self.assertEqual(self.install("/path"), 0)
        self.assertEqual(as_text(path()), f"{long};{FOLDER}")
        self.assertEqual(self.install("/path"), 0)
        self.assertEqual(as_text(path()), f"{long};{FOLDER}", "once")
        other = "C:\\Other Place\\QLB"
        self.assertEqual(self.install(*last_option("/D=", other)), 0)
        self.assertEqual(as_text(path()), f"{long};{other}", "an update keeps it, a move moves it")
        self.uninstall(folder=other)
        shutil.rmtree(wine.unix_path("C:\\Other Place"), ignore_errors=True)
        self.assertEqual(path(), before)
        self.check_nothing_left()

    def test_the_launcher_comes_when_it_is_asked_for_and_takes_back_what_it_stored(self):
        run_key = "HKEY_CURRENT_USER\\Software\\Microsoft\\Windows\\CurrentVersion\\Run"
        self.assertEqual(self.install("/logon"), 0)
        self.assertEqual(sorted(os.listdir(wine.unix_path(FOLDER))), sorted([*FILES, "QLBLauncher.exe"]))
        self.assertEqual(self.shortcuts(), sorted([ENGLISH + ".lnk", "Quickfire Buttons.lnk"]))
        self.assertEqual(wine.text(wine.registry(run_key)[run_key, "QLBLauncher"]),
                         f'"{FOLDER}\\QLBLauncher.exe" /s')

        # The settings open after its first start; an update ends it, and keeps what was chosen.
        wine.run("start", f"{FOLDER}\\QLBLauncher.exe")
        user = f"HKEY_CURRENT_USER\\{SETTINGS}"
        self.assertTrue(wine.wait_for(lambda: settings("HKCU").get((user, "QLBB")) == "dword:00000005"))
        self.assertTrue(self.start_from_menu(ENGLISH))
        self.assertTrue(wine.close_program())
        self.assertEqual(self.install(), 0)
        self.assertTrue(os.path.exists(wine.unix_path(FOLDER + "\\QLBLauncher.exe")))
        self.assertIn((run_key, "QLBLauncher"), wine.registry(run_key))
        self.uninstall()
        self.assertEqual(settings("HKCU"), {})
        self.assertNotIn((run_key, "QLBLauncher"), wine.registry(run_key))
        shutil.rmtree(wine.unix_path("C:\\users\\" + os.environ.get("USER", "root") + "\\AppData\\Local\\QLBUtl"),
                      ignore_errors=True)
        self.check_nothing_left()

    def test_moves_to_another_folder_and_leaves_files_of_others(self):
        self.assertEqual(self.install(), 0)
        other = "C:\\Other Place\\QLB"
        self.assertEqual(self.install(*last_option("/D=", other)), 0)
        self.assertFalse(os.path.exists(wine.unix_path(FOLDER)))
        self.assertEqual(sorted(os.listdir(wine.unix_path(other))), FILES)
        notes = wine.unix_path(other + "\\notes.txt")
        shutil.copyfile(__file__, notes)
        self.uninstall(folder=other)
        self.assertEqual(os.listdir(wine.unix_path(other)), ["notes.txt"])
        shutil.rmtree(wine.unix_path("C:\\Other Place"))
        Installer.clean = self.check_nothing_left()


class Signing(unittest.TestCase):
    MARK = b"signed by the stand-in"

    def test_reaches_program_uninstaller_and_installer(self):
        tool = os.path.join(wine.PREFIX, "sign it")
        with open(tool, "wb") as file:
            file.write(b"#!/bin/sh\nprintf '%s' '" + self.MARK + b"' >>\"$2\"\n")
        os.chmod(tool, 0o755)
        output = os.path.join(wine.PREFIX, "signed")
        subprocess.run([f"{wine.ROOT}/packages/pack", "--program", f"{wine.ROOT}/build/windows-x64/QLBUtl.exe",
                        "--help-files", HELP, "--output", output],
                       env={**os.environ, "QLB_SIGN": f'"{tool}" --quietly'}, stdout=subprocess.DEVNULL, check=True)
        setup = os.path.join(output, f"QLBUtl-{VERSION}-x64-setup.exe")
        self.assertTrue(content(setup).endswith(self.MARK))
        with zipfile.ZipFile(os.path.join(output, f"QLBUtl-{VERSION}-x64.zip")) as archive:
            self.assertTrue(archive.read(f"QLBUtl-{VERSION}-x64/QLBUtl.exe").endswith(self.MARK))
        self.assertFalse(content(f"{wine.ROOT}/build/windows-x64/QLBUtl.exe").endswith(self.MARK))
        self.assertEqual(wine.run(setup, "/S"), 0)
        for name in ("QLBUtl.exe", "qlb.exe", "QLBUtl-uninstall.exe"):
            self.assertTrue(content(wine.unix_path(f"{FOLDER}\\{name}")).endswith(self.MARK), name)
        Installer.uninstall()

    def test_stops_the_packing_when_it_fails(self):
        packed = subprocess.run([f"{wine.ROOT}/packages/pack", "--program", f"{wine.ROOT}/build/windows-x64/QLBUtl.exe",
                                 "--help-files", HELP, "--output", os.path.join(wine.PREFIX, "unsigned")],
                                env={**os.environ, "QLB_SIGN": "false"}, capture_output=True, check=False)
        self.assertNotEqual(packed.returncode, 0)
        self.assertEqual(os.listdir(os.path.join(wine.PREFIX, "unsigned")), [])


class Bytes(unittest.TestCase):
    def test_the_same_input_gives_the_same_packages(self):
        again = os.path.join(wine.PREFIX, "again")
        for machine in ("x64", "x86"):
            program = os.path.join(wine.PREFIX, machine, "QLBUtl.exe")
            os.makedirs(os.path.dirname(program))
            # Copies have another place and another time.
            for name in ("QLBUtl.exe", "QLBLauncher.exe", "qlb.exe"):
                shutil.copyfile(f"{wine.ROOT}/build/windows-{machine}/{name}",
                                os.path.join(os.path.dirname(program), name))
            subprocess.run([f"{wine.ROOT}/packages/pack", "--program", program, "--help-files", HELP,
                            "--output", again], env={**os.environ, "TZ": "Asia/Tokyo"}, cwd="/",
                           umask=0o077, stdout=subprocess.DEVNULL, check=True)
        names = sorted(os.listdir(again))
        self.assertEqual(names, [f"QLBUtl-{VERSION}-{end}" for end in
                                 ("x64-setup.exe", "x64.zip", "x86-setup.exe", "x86.zip")])
        for name in names:
            self.assertTrue(content(os.path.join(again, name)) == content(os.path.join(PACKAGES, name)), name)

    @unittest.skipIf("SOURCE_DATE_EPOCH" in os.environ, "they have that time")
    def test_files_have_the_date_of_their_version(self):
        with open(f"{wine.ROOT}/CHANGELOG.md", encoding="utf-8") as file:
            version, date = re.search(r"^## ([0-9.]+), ([0-9-]+)$", file.read(), re.MULTILINE).groups()
        self.assertEqual(version, VERSION)
        wanted = tuple(int(part) for part in date.split("-"))
        with zipfile.ZipFile(package("x64.zip")) as archive:
            self.assertEqual({entry.date_time for entry in archive.infolist()}, {(*wanted, 0, 0, 0)})

    def test_the_installer_is_for_the_machine_that_its_name_says(self):
        for machine, number in (("x64", 0x8664), ("x86", 0x014C)):
            data = content(package(machine + "-setup.exe"))
            header = struct.unpack_from("<I", data, 60)[0]
            self.assertEqual(struct.unpack_from("<H", data, header + 4)[0], number)


if __name__ == "__main__":
    unittest.main(argv=[__file__, *sys.argv[4:]])
