#!/usr/bin/python3
"""qlb as scripts and people meet it, in the Wine prefix of the environment.

end_to_end.py BUILD-FOLDER [TEST...]
"""

import json
import os
import re
import subprocess
import sys
import unittest

import computer
import wine
from computer import qlb

BUILD = os.path.abspath(sys.argv[1])
NAMES = {"en": ["Office", "Home", "Travel"], "ja": ["オフィス", "自宅", "出張・旅行"]}
HEAD = b"; QLBUtl settings, format 1\r\n\r\n[KORVOQLB]\r\nCurrUser=1\r\nNumUser=3\r\n"
TAIL = b"\r\n[END]\r\n"


def unix(name):
    return os.path.join(wine.DRIVE_C, name)


def content(name):
    with open(unix(name), "rb") as file:
        return file.read()


class EachLanguage(unittest.TestCase):
    def each(self):
        for language in ("en", "ja"):
            with self.subTest(language=language):
                computer.demo(language)
                for name in os.listdir(wine.DRIVE_C):
                    if name.endswith((".qlb", ".html")):
                        os.remove(unix(name))
                yield language, NAMES[language]

    def test_list_is_data_on_standard_output_in_utf_8(self):
        for language, names in self.each():
            lines = f"*  1  {names[0]}\r\n   2  {names[1]}\r\n   3  {names[2]}\r\n"
            self.assertEqual(qlb("list", language=language), (0, lines.encode(), b""))
            code, out, err = qlb("list", "--json", language=language)
            self.assertEqual((code, err), (0, b""))
            self.assertEqual([each["name"] for each in json.loads(out)["patterns"]], names)

    def test_show_is_json_that_others_read(self):
        for language, names in self.each():
            code, out, err = qlb("show", names[1], "--json", language=language)
            self.assertEqual((code, err), (0, b""))
            shown = json.loads(out)
            self.assertEqual((shown["number"], shown["name"], len(shown["buttons"])), (2, names[1], 8))
            self.assertEqual(qlb("show", "nobody", language=language)[:2], (2, b""))

    def test_a_console_gets_unicode(self):
        for language, names in self.each():
            # A terminal of script's own; its output is what a person would see.
            shown = subprocess.run(["script", "-qec", f"wine '{computer.PROGRAM}' list", "/dev/null"],
                                   stdin=subprocess.DEVNULL, capture_output=True, check=True, cwd=wine.DRIVE_C,
                                   env={**os.environ, **computer.LANGUAGES[language]}).stdout.decode()
            for name in names:
                self.assertIn(name, re.sub(r"\x1b\[[0-9;?]*[A-Za-z]", "", shown))

    def test_everything_comes_back_in_an_empty_registry_byte_by_byte(self):
        for language, _ in self.each():
            before = computer.values()
            self.assertEqual(qlb("export", "all.qlb", language=language), (0, b"", b""))
            file = content("all.qlb")
            self.assertTrue(file.startswith(HEAD) and file.endswith(TAIL))
            self.assertEqual(qlb("export", "-", language=language), (0, file, b""))
            computer.clear()
            code, out, err = qlb("restore", "all.qlb", language=language)
            self.assertEqual((code, out), (0, b""), err)
            self.assertEqual(computer.values(), before)
            self.assertEqual(qlb("export", "-", language=language), (0, file, b""))
            self.assertEqual(qlb("restore", "all.qlb", language=language)[0], 0)

    def test_everything_comes_back_in_an_empty_ini_file(self):
        for language, _ in self.each():
            self.assertEqual(qlb("export", "all.qlb", language=language)[0], 0)
            computer.use_ini_file(True)
            self.assertEqual(qlb("restore", "all.qlb", language=language)[0], 0)
            written = computer.ini()
            self.assertIn(b"[USER3]", written)
            self.assertEqual(qlb("export", "ini.qlb", language=language)[0], 0)
            computer.clear()
            self.assertEqual(qlb("restore", "ini.qlb", language=language)[0], 0)
            self.assertEqual(sorted(computer.ini().splitlines()), sorted(written.splitlines()))
            # The file itself is read, too.
            with open(unix("theirs.qlb"), "wb") as file:
                file.write(written)
            self.assertEqual(qlb("import", "theirs.qlb", "1", "--rename", language=language)[0], 0)
            computer.use_ini_file(False)
            self.assertEqual(qlb("restore", "theirs.qlb", language=language)[0], 0)
            self.assertEqual(qlb("list", language=language)[1].count(b"\n"), 3)

    def test_a_file_is_never_written_over_unless_asked(self):
        for language, _ in self.each():
            self.assertEqual(qlb("export", "x.qlb", language=language)[0], 0)
            before = content("x.qlb")
            self.assertEqual(qlb("use", "2", language=language)[0], 0)
            self.assertEqual(qlb("export", "x.qlb", language=language)[:2], (2, b""))
            self.assertEqual(content("x.qlb"), before)
            self.assertEqual(qlb("export", "x.qlb", "--force", language=language)[0], 0)
            self.assertNotEqual(content("x.qlb"), before)
            self.assertEqual(qlb("export", "C:\\none\\x.qlb", language=language)[0], 4)
            self.assertEqual([name for name in os.listdir(wine.DRIVE_C) if ".new" in name], [])

    def test_patterns_are_carried_to_another_computer(self):
        for language, names in self.each():
            self.assertEqual(qlb("export", "two.qlb", names[2], "1", language=language)[0], 0)
            computer.clear()
            code, out, err = qlb("import", "two.qlb", language=language)
            self.assertEqual((code, out), (0, b""), err)
            self.assertIn("QLBUtl\\Backups\\", err.decode())
            self.assertEqual(qlb("list", language=language)[1].decode().split("  ")[-1].strip(), names[0])
            self.assertEqual(qlb("import", "two.qlb", language=language)[0], 2)
            self.assertEqual(qlb("import", "two.qlb", "--dry-run", language=language)[0], 1)

    def test_backups_are_listed_newest_first_and_brought_back(self):
        for language, _ in self.each():
            first = computer.values()
            code, out, _ = qlb("backup", language=language)
            self.assertEqual(code, 0)
            path = out.decode().strip()
            self.assertEqual(computer.backups()[0], path)
            self.assertEqual(qlb("backup", language=language)[1].decode().strip(), path)
            self.assertEqual(qlb("use", "3", language=language)[0], 0)
            self.assertNotEqual(computer.values(), first)
            self.assertEqual(qlb("restore", language=language)[0], 0)
            self.assertEqual(computer.values(), first)

    def test_a_wrong_file_changes_nothing(self):
        for language, _ in self.each():
            with open(unix("wrong.qlb"), "wb") as file:
                file.write(b"; QLBUtl settings, format 1\r\n[USER1]\r\nBtn1_NumAP=9\r\n[END]\r\n")
            before = computer.values()
            code, out, err = qlb("restore", "wrong.qlb", language=language)
            self.assertEqual((code, out), (4, b""))
            self.assertRegex(err.decode(), "wrong.qlb: .*3.*: .*Btn1_NumAP")
            self.assertEqual(computer.values(), before)
            self.assertEqual(qlb("restore", "none.qlb", language=language)[0], 4)

    def test_check_finds_what_is_wrong(self):
        for language, names in self.each():
            wine.run("reg", "add", computer.STORE + "\\Setting\\Set2\\AppKey1", "/v", "NumAP", "/t", "REG_DWORD",
                     "/d", "9", "/f")
            code, out, err = qlb("check", language=language)
            self.assertEqual((code, err), (1, b""))
            self.assertIn("[USER2] Btn1_NumAP", out.decode())
            self.assertIn(names[0], out.decode())

    def test_the_overview_is_a_valid_page(self):
        for language, names in self.each():
            self.assertEqual(qlb("overview", "page.html", language=language), (0, b"", b""))
            page = content("page.html").decode()
            self.assertIn(f'<html lang="{language}">', page)
            for name in names:
                self.assertIn(name, page)
            tidy = subprocess.run(["tidy", "-quiet", "-errors", "-utf8"], input=page.encode(), capture_output=True,
                                  check=False)
            self.assertEqual(tidy.stderr.decode(), "")
            self.assertEqual(qlb("overview", "-", language=language)[1].decode(), page)

    def test_words_are_in_the_users_language(self):
        for language, _ in self.each():
            for arguments, english, japanese in (
                    (["--help"], "Commands:", "コマンド:"), (["use", "--help"], "Usage: qlb use", "使い方: qlb use")):
                code, out, err = qlb(*arguments, language=language)
                self.assertEqual((code, err), (0, b""))
                self.assertIn(english if language == "en" else japanese, out.decode())
            code, out, err = qlb("nonsense", language=language)
            self.assertEqual((code, out), (2, b""))
            self.assertIn("nonsense", err.decode())


class OtherPrograms(unittest.TestCase):
    def setUp(self):
        computer.demo("en")

    def test_nothing_is_written_under_the_dialog_nor_may_it_open_under_qlb(self):
        wine.run("start", os.path.dirname(computer.PROGRAM.replace("\\", "/")).replace("/", "\\") + "\\QLBUtl.exe", "/k")
        self.addCleanup(wine.close_program)
        self.assertTrue(wine.wait_for(lambda: "Quickfire Button Settings" in wine.windows()))
        before = computer.values()
        self.assertEqual(qlb("export", "-")[0], 0)
        with open(unix("x.qlb"), "wb") as file:
            file.write(HEAD + TAIL)
        for arguments in (["use", "2"], ["restore", "x.qlb"], ["import", "x.qlb"]):
            self.assertEqual(qlb(*arguments)[:2], (3, b""))
        self.assertEqual(computer.values(), before)

    def test_the_launcher_is_told_and_asked(self):
        self.assertEqual(qlb("press", "1")[:2], (6, b""))
        log = unix("launcher.log")
        launcher = subprocess.Popen(["wine", os.path.join(BUILD, "tools/launcher/Launcher.exe"),
                                     "/log:C:\\launcher.log"], stdin=subprocess.DEVNULL,
                                    stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        self.addCleanup(launcher.wait)
        self.addCleanup(launcher.kill)
        self.assertTrue(wine.wait_for(lambda: qlb("press", "2")[0] == 0))
        self.assertEqual(qlb("use", "3")[0], 0)

        def told():
            if not os.path.exists(log):
                return ""
            with open(log, encoding="utf-8") as file:
                return file.read()
        self.assertTrue(wine.wait_for(lambda: "1332" in told() and "105" in told() and "1336" in told()), told())


if __name__ == "__main__":
    computer.install(BUILD)
    unittest.main(argv=[__file__, *sys.argv[2:]])
