#!/usr/bin/env python3
"""Checks the pages for people: links and pictures are there, and each word of code begins one of the sources'."""

import bisect
import pathlib
import re
import sys

ROOT = pathlib.Path(__file__).resolve().parents[2]
PAGES = [ROOT / "README.md", ROOT / "CONTRIBUTING.md", *ROOT.glob("docs/*.md"), ROOT / "demo" / "README.md"]
SOURCES = ["bench", "cmake", "demo", "examples", "help", "packages", "src", "tests", "tools",
           "CMakeLists.txt", "CMakePresets.json", "package", "run", "test", ".clang-format", ".clang-tidy"]


def files_of(name):
    path = ROOT / name
    return [found for found in path.rglob("*") if found.is_file()] if path.is_dir() else [path]


def words_of_sources():
    """Of what the files say, and of their names; sorted."""
    words = set()
    for file in [file for name in SOURCES for file in files_of(name)]:
        words.update(re.findall(r"\w+", str(file.relative_to(ROOT))))
        if file.suffix not in (".md", ".png", ".bmp", ".ico") and "corpus" not in file.parts:
            encoding = "utf-16" if file.read_bytes()[:2] == b"\xff\xfe" else "utf-8"
            words.update(re.findall(r"\w+", file.read_text(encoding=encoding, errors="replace")))
    return sorted(words)


def anchors_of(text):
    headings = re.findall(r"^#+ (.*)$", text, re.M)
    return {re.sub(r"[^\w\- ]", "", heading.lower()).replace(" ", "-") for heading in headings}


def check(page, words):
    text = page.read_text(encoding="utf-8")
    for target in re.findall(r"\]\(([^)]+)\)", text):
        name, _, anchor = target.partition("#")
        file = (page.parent / name).resolve() if name else page
        if not file.exists():
            yield f"leads to {target}, which is not there"
        elif anchor and anchor not in anchors_of(file.read_text(encoding="utf-8")):
            yield f"leads to {target}, but there is no such heading"
    for code in re.findall(r"`([^`\n]+)`", text):
        if ":\\" in code or re.fullmatch("[0-9a-f]{7}", code):
            continue  # a path on a computer with Windows, a commit
        for word in re.findall(r"[^\W\d]\w{3,}", code):
            nearest = bisect.bisect_left(words, word)
            if nearest == len(words) or not words[nearest].startswith(word):
                yield f"`{code}`: the sources have no {word}"


known = words_of_sources()
problems = [f"{page.relative_to(ROOT)} {problem}" for page in PAGES for problem in check(page, known)]
print("\n".join(problems) or f"{len(PAGES)} pages are right")
sys.exit(1 if problems else 0)
