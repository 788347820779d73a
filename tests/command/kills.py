#!/usr/bin/python3
"""Kills qlb at random moments, in the Wine prefix of the environment: what is left of a restore is the old store, the
new one, or one that the backup that was named brings back; under the name of an export there is a whole file or none.

kills.py BUILD-FOLDER [ROUNDS [SEED]]
"""

import os
import random
import re
import sys
import time

import computer
import wine

BUILD = os.path.abspath(sys.argv[1])
ROUNDS = int(sys.argv[2]) if len(sys.argv) > 2 else 12
SEED = int(sys.argv[3]) if len(sys.argv) > 3 else 1


def killed(moment, *arguments):
    """Starts qlb and kills it after so many seconds; what it said until then, and whether it was still running."""
    said = os.path.join(wine.PREFIX, "said")
    with open(said, "wb") as stderr:
        process = computer.start(*arguments, stderr=stderr)
        time.sleep(moment)
        ran = process.poll() is None
        process.kill()
        process.wait()
    with open(said, encoding="utf-8") as file:
        return file.read(), ran


def duration(*arguments):
    begin = time.monotonic()
    process = computer.start(*arguments)
    assert process.wait() == 0
    return time.monotonic() - begin


# Of the layout, as the ini file has them.
KEYS = {b"CurrUser", b"NumUser", b"OnScreen", b"FontName", b"FontSize", b"Color", b"UserName"}
for button in range(1, 9):
    KEYS |= {f"Btn{button}_{field}".encode() for field in (
        "Name", "Exec", "NumAP", *(f"{kind}{k}" for kind in ("AP", "Title") for k in range(1, 6)))}


class Kills:
    def __init__(self, ini):
        self.ini = ini
        self.counts = {}
        computer.demo("en")
        computer.use_ini_file(ini)
        if ini:
            assert computer.qlb("restore", "demo.qlb")[0] == 0
        assert computer.qlb("export", "old.qlb", "--force")[0] == 0
        if ini:  # the system writes the whole file anew with each value
            assert computer.qlb("import", "old.qlb", "--rename", "1")[0] == 0
        else:
            for _ in range(2):
                assert computer.qlb("import", "old.qlb", "--rename", "1", "2", "3")[0] == 0
        assert computer.qlb("use", "4")[0] == 0
        assert computer.qlb("export", "new.qlb", "--force")[0] == 0
        self.new = self.stored()
        # Both ways: one has more to write, the other more to remove.
        self.time = min(duration("restore", name) for name in ("old.qlb", "new.qlb", "old.qlb", "new.qlb", "old.qlb"))
        self.old = self.stored()

    def stored(self):
        return computer.ini() if self.ini else computer.values()

    def count(self, what):
        self.counts[what] = self.counts.get(what, 0) + 1

    def restore(self):
        to_new = random.random() < 0.5
        before, after = (self.old, self.new) if to_new else (self.new, self.old)
        assert computer.qlb("restore", "old.qlb" if to_new else "new.qlb")[0] == 0
        before = self.stored()
        said, ran = killed(random.uniform(0.3, 1.7) * self.time, "restore", "new.qlb" if to_new else "old.qlb")
        left = self.stored()
        if not ran:
            assert (set(left.splitlines()) == set(after.splitlines())) if self.ini else left == after
            self.count("ended before")
        elif left == before:
            self.count("old")
        elif (set(left.splitlines()) == set(after.splitlines())) if self.ini else left == after:
            self.count("new")
        else:
            backup = re.search(r"is in (.*\.qlb)", said)
            assert backup, f"no backup was named before the first write: {said}"
            code, _, err = computer.qlb("restore", backup[1].strip())
            assert code == 0, err
            brought = self.stored()
            if self.ini:
                # A line that was cut off may be left, as a key that nobody knows.
                lost = set(before.splitlines()) ^ set(brought.splitlines())
                lost = {line for line in lost if line.partition(b"=")[0] in KEYS}
                assert not lost, f"the backup brought something else: {lost}"
            else:
                assert brought == before, "the backup brought something else"
            self.count("brought back")

    def export(self):
        before = self.content("export.qlb")
        killed(random.uniform(0.3, 1.5) * self.time_of_export, "export", "export.qlb", "--force")
        now = self.content("export.qlb")
        assert now in (before, self.whole), "a file that is neither the old nor the new one"
        self.count("export: whole" if now == self.whole else "export: none" if now is None else "export: old")
        # Every other time there is a file before, another one.
        path = os.path.join(wine.DRIVE_C, "export.qlb")
        if random.random() < 0.5:
            with open(path, "wb") as file:
                file.write(b"theirs")
        elif now is not None:
            os.remove(path)

    @staticmethod
    def content(name):
        path = os.path.join(wine.DRIVE_C, name)
        if not os.path.exists(path):
            return None
        with open(path, "rb") as file:
            return file.read()

    def run(self, rounds):
        for _ in range(rounds):
            self.restore()
        assert computer.qlb("export", "whole.qlb", "--force")[0] == 0
        self.whole = self.content("whole.qlb")
        self.time_of_export = duration("export", "whole.qlb", "--force")
        for _ in range(rounds // 2):
            self.export()
        print("ini file:" if self.ini else "registry:", ", ".join(f"{n} {what}" for what, n in sorted(self.counts.items())))


random.seed(SEED)
print(f"kills: {ROUNDS}, seed {SEED}")
computer.install(BUILD)
computer.demo("en")
assert computer.qlb("export", "demo.qlb", "--force")[0] == 0
# A third each: restores in the registry, in the ini file, and exports of both.
for kind in (False, True):
    Kills(kind).run(max(2, ROUNDS // 3))
