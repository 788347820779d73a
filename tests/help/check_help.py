#!/usr/bin/env python3
"""check_help.py en|ja BUILT.CHM: takes the built help apart with another program's reader and checks it as a
reader would meet it: pages, links, pictures, contents, index, and the words of the dialogs."""

import html
import html.parser
import pathlib
import re
import struct
import subprocess
import sys
import tempfile

ROOT = pathlib.Path(__file__).resolve().parents[2]
CODE_PAGES = {"en": ("cp1252", "windows-1252", 0x409), "ja": ("cp932", "Shift_JIS", 0x411)}

FORM_PAGES = {
    "frmMain, desktop page": "desktop.html",
    "frmMain, notebook page": "notebook.html",
    "frmMain, on-screen page": "onscreen.html",
    "frmSetAp": "register.html",
    "frmManager": "manager.html",
    "frmInputBox": "input.html",
    "frmWizard": "wizard.html",
    "frmWizard alone": "wizard-alone.html",
    "printing": "printing.html",
}
OTHER_PAGES = ["index.html", "first-steps.html", "launch-methods.html", "makers.html", "questions.html"]

problems = []


def problem(text):
    problems.append(text)


def string_table(language):
    """The program's texts, by id."""
    files = [ROOT / "src" / "resources" / name for name in ("StringTable.inc", "OwnTexts.inc", "LauncherTexts.inc")]
    source = "".join(file.read_text(encoding="utf-8") for file in files)
    rows = re.findall(r'^QLB_STRING\((\d+), "((?:[^"\\]|\\.)*)", "((?:[^"\\]|\\.)*)"\)$', source, re.M)
    column = {"en": 1, "ja": 2}[language]
    return {int(row[0]): row[column].replace("\\n", "\n") for row in rows}


class Page(html.parser.HTMLParser):
    """What a page says of itself and of others."""

    def __init__(self, text):
        super().__init__(convert_charrefs=True)
        self.title = ""
        self.heading = ""
        self.charset = ""
        self.links = []
        self.pictures = []
        self.stylesheets = []
        self.anchors = set()
        self.dialog_words = []
        self.open = []
        self.feed(text)

    def handle_starttag(self, tag, attributes):
        given = dict(attributes)
        if tag == "a" and "href" in given:
            self.links.append(given["href"])
        if tag == "a" and "name" in given:
            self.anchors.add(given["name"])
        if tag == "img":
            self.pictures.append(given.get("src", ""))
            if not given.get("alt"):
                problem(f"a picture without a description: {given.get('src')}")
        if tag == "link":
            self.stylesheets.append(given.get("href", ""))
        if tag == "meta" and "content" in given:
            self.charset = given["content"].rpartition("charset=")[2]
        if tag == "b":
            self.dialog_words.append("")
        if tag in ("title", "h1", "b"):
            self.open.append(tag)

    def handle_endtag(self, tag):
        if tag in self.open:
            self.open.remove(tag)

    def handle_data(self, data):
        if "title" in self.open:
            self.title += data
        if "h1" in self.open:
            self.heading += data
        if "b" in self.open:
            self.dialog_words[-1] += data


class SiteMap(html.parser.HTMLParser):
    """Contents or index: (name, local, path of the names above it)."""

    def __init__(self, text):
        super().__init__(convert_charrefs=True)
        self.entries = []
        self.above = []
        self.in_object = False
        self.parameters = {}
        self.feed(text)

    def handle_starttag(self, tag, attributes):
        given = dict(attributes)
        if tag == "ul":
            self.above.append("")
        if tag == "object":
            self.in_object = given.get("type") == "text/sitemap"
            self.parameters = {}
        if tag == "param" and self.in_object:
            self.parameters[given.get("name")] = given.get("value", "")

    def handle_endtag(self, tag):
        if tag == "ul":
            self.above.pop()
        if tag == "object" and self.in_object:
            self.in_object = False
            name = self.parameters.get("Name", "")
            self.above[-1] = name
            self.entries.append((name, self.parameters.get("Local", ""), tuple(self.above)))


def extract(chm, folder):
    subprocess.run(["extract_chmLib", chm, folder], check=True, stdout=subprocess.DEVNULL)
    return {path.relative_to(folder).as_posix(): path.read_bytes() for path in folder.rglob("*") if path.is_file()}


def decoded(name, content, codec):
    try:
        return content.decode(codec)
    except UnicodeDecodeError as error:
        problem(f"{name} has bytes outside the code page: {error}")
        return content.decode(codec, errors="replace")


def check_target(where, target, pages, files):
    """An address inside the file: page, or page#anchor."""
    name, _, anchor = target.partition("#")
    if name not in files:
        problem(f"{where} leads to {target}, which is not there")
    elif anchor and anchor not in pages[name].anchors:
        problem(f"{where} leads to {target}, but {name} has no such anchor")


def check_pages(pages, files, charset, words):
    for name, page in pages.items():
        if not page.title.strip() or page.title != page.heading:
            problem(f"{name}: the title is \"{page.title}\", the heading \"{page.heading}\"")
        if page.charset != charset:
            problem(f"{name}: the charset is {page.charset}")
        for target in page.links:
            check_target(name, target if not target.startswith("#") else name + target, pages, files)
        for target in page.pictures + page.stylesheets:
            if target not in files:
                problem(f"{name} shows {target}, which is not there")
        if not page.stylesheets:
            problem(f"{name} has no stylesheet")
        for word in page.dialog_words:
            if word not in words:
                problem(f"{name}: no dialog says \"{word}\"")
    titles = [page.title for page in pages.values()]
    for title in {title for title in titles if titles.count(title) > 1}:
        problem(f"several pages are called \"{title}\"")


def check_well_formed(sources):
    for name, text in sources.items():
        run = subprocess.run(
            ["tidy", "-quiet", "-errors", "-utf8", "--doctype", "loose", "--show-warnings", "yes",
             "--drop-empty-elements", "no"],
            input=text.encode("utf-8"), stdout=subprocess.DEVNULL, stderr=subprocess.PIPE, check=False)
        for line in run.stderr.decode(errors="replace").splitlines():
            if 'lacks "summary" attribute' in line:
                continue  # the text before each table says what it is
            problem(f"{name}: {line}")


def plain_words(texts):
    """What the dialogs show, without access keys; with and without the dots of a command."""
    words = set()
    for text in texts.values():
        plain = re.sub(r"\(&.\)|&(?=\w)", "", text)
        words.update({plain, plain.strip(), plain.rstrip(".")})
    return words - {""}


def contents_path_in(text):
    """The wizard's page on launch methods names its place in the help."""
    line = re.search(r"ヘルプの((?:「[^」]+」-?)+)を参照", text)
    return tuple(re.findall(r"「([^」]+)」", line.group(1))) if line else ()


def machine_values():
    """The machine-wide values that the program asks for by name."""
    asked = re.compile(r'(?:LocalMachine, \w+|read\(k\w+Key), L"(\w+)"')
    sources = [path.read_text(encoding="utf-8") for path in (ROOT / "src").rglob("*.cpp")]
    return {name for source in sources for name in asked.findall(source)}


def window_titles(files):
    """The window types' captions, by the compiled file."""
    table, strings = files["#WINDOWS"], files["#STRINGS"]
    count, size = struct.unpack_from("<II", table)
    titles = []
    for number in range(count):
        (place,) = struct.unpack_from("<I", table, 8 + number * size + 0x14)
        titles.append((strings[place : strings.index(b"\0", place)], struct.unpack_from("<I", table, 8 + number * size + 0x10)[0]))
    return titles


def main():
    language, chm = sys.argv[1], pathlib.Path(sys.argv[2])
    codec, charset, language_id = CODE_PAGES[language]
    texts = string_table(language)
    with tempfile.TemporaryDirectory() as folder:
        files = extract(chm, pathlib.Path(folder))
    source_pages = {path.name for path in (ROOT / "help" / language).glob("*.html")}
    sources = {name: decoded(name, content, codec) for name, content in files.items() if name.endswith(".html")}
    pages = {name: Page(text) for name, text in sources.items()}

    for missing in sorted(source_pages ^ set(pages)):
        problem(f"{missing} is in the sources or in the file, but not in both")
    for wanted in [*FORM_PAGES.values(), *OTHER_PAGES]:
        if wanted not in pages:
            problem(f"no page {wanted}")
    for name in pages:
        other = ROOT / "help" / ("ja" if language == "en" else "en") / name
        if not other.is_file():
            problem(f"{name} is missing in the other language")
    check_pages(pages, files, charset, plain_words(texts))
    check_well_formed(sources)
    values = machine_values()
    if len(values) < 10:
        problem(f"the program's code names too few machine-wide values: {sorted(values)}")
    for_makers = {"makers.html": sources.get("makers.html", ""),
                  "docs/for-makers.md": (ROOT / "docs" / "for-makers.md").read_text(encoding="utf-8")}
    for page, text in for_makers.items():
        for value in sorted(values):
            if not re.search(rf"\b{value}(?![A-Za-z])", text, re.ASCII):
                problem(f"{page} doesn't speak of {value}")

    contents = SiteMap(decoded("contents", files["QLBUTL.hhc"], codec)).entries
    index = SiteMap(decoded("index", files["QLBUTL.hhk"], codec)).entries
    for title, target, _ in contents + index:
        if not title.strip():
            problem(f"an entry of contents or index has no name: {target}")
        check_target(f"\"{title}\"", target, pages, files)
    in_contents = {target.partition("#")[0] for _, target, _ in contents}
    in_index = {target.partition("#")[0] for _, target, _ in index}
    for name in pages:
        if name not in in_contents:
            problem(f"{name} is not in the contents")
        if name not in in_index:
            problem(f"{name} is not in the index")
    wanted_path = contents_path_in(texts[3221])
    if wanted_path and wanted_path not in {path for _, _, path in contents}:
        problem(f"the contents have no {' / '.join(wanted_path)}, which the wizard names")

    # The program looks for an open help window by this title.
    [(title, properties)] = window_titles(files)
    if title.decode(codec) != texts[3000] + texts[3003]:
        problem(f"the window is called \"{title.decode(codec)}\"")
    changes_title = 0x2000
    if properties & changes_title:
        problem("the window takes the titles of its pages")
    (found_id,) = struct.unpack_from("<I", chm.read_bytes(), 0x14)
    if found_id != language_id:
        problem(f"the language is {found_id:#x}")

    for text in problems:
        print(text)
    print(f"{len(pages)} pages, {sum(len(page.links) for page in pages.values())} links, "
          f"{sum(len(page.pictures) for page in pages.values())} pictures, {len(contents)} entries of contents, "
          f"{len(index)} of index: {len(problems)} problems")
    return 1 if problems else 0


sys.exit(main())
