#!/usr/bin/env python3
"""Writes the demo settings of both languages from the one table below.

make-settings.py            writes the .reg and .DAT files beside this script, in en/ and in ja/
make-settings.py --check    writes nothing; fails when one of them differs
"""

import os
import sys

HERE = os.path.dirname(os.path.abspath(__file__))
LANGUAGES = ("en", "ja")
PRODUCT = r"Software\Korvo\KORVOQLB"
BUTTONS = 8
PROGRAMS = 5
NAME_BYTES = 20

SHIFT, CONTROL, ALT, EXTENDED = 0x100, 0x200, 0x400, 0x800

# Key binding, virtual key with modifiers, names.
SHORTCUT_KEYS = [
    ("Ctrl + C", CONTROL | 0x43, "Copy", "コピー"),
    ("Ctrl + X", CONTROL | 0x58, "Cut", "切り取り"),
    ("Ctrl + V", CONTROL | 0x56, "Paste", "貼り付け"),
    ("Ctrl + Z", CONTROL | 0x5A, "Undo", "元に戻す"),
    ("Ctrl + Y", CONTROL | 0x59, "Redo", "やり直し"),
    ("Ctrl + A", CONTROL | 0x41, "Select All", "すべて選択"),
    ("Ctrl + F", CONTROL | 0x46, "Find", "検索"),
    ("Ctrl + N", CONTROL | 0x4E, "New", "新規作成"),
    ("Ctrl + O", CONTROL | 0x4F, "Open", "開く"),
    ("Ctrl + S", CONTROL | 0x53, "Save", "上書き保存"),
    ("Ctrl + P", CONTROL | 0x50, "Print", "印刷"),
    ("Ctrl + F4", CONTROL | 0x73, "Close Document", "文書を閉じる"),
    ("Alt + F4", ALT | 0x73, "Close Window", "ウィンドウを閉じる"),
    ("Alt + Enter", ALT | 0x0D, "Properties", "プロパティ"),
    ("Alt + Left", ALT | EXTENDED | 0x25, "Back", "戻る"),
    ("Alt + Right", ALT | EXTENDED | 0x27, "Forward", "進む"),
    ("Ctrl + Home", CONTROL | EXTENDED | 0x24, "Go to Beginning", "先頭へ移動"),
    ("Ctrl + End", CONTROL | EXTENDED | 0x23, "Go to End", "末尾へ移動"),
    ("Ctrl + Plus", CONTROL | 0xBB, "Zoom In", "拡大"),
    ("Ctrl + Minus", CONTROL | 0xBD, "Zoom Out", "縮小"),
    ("Ctrl + Esc", CONTROL | 0x1B, "Start Menu", "スタートメニュー"),
    ("Ctrl + Shift + Esc", CONTROL | SHIFT | 0x1B, "Task Manager", "タスク マネージャー"),
    ("Shift + F10", SHIFT | 0x79, "Context Menu", "右クリック メニュー"),
    ("F1", 0x70, "Help", "ヘルプ"),
    ("F2", 0x71, "Rename", "名前の変更"),
    ("F5", 0x74, "Refresh", "最新の情報に更新"),
    ("F11", 0x7A, "Full Screen", "全画面表示"),
]
KEY_CODE = {name: str(code) for _, code, name, _ in SHORTCUT_KEYS}

EHSHELL = r"C:\Windows\ehome\ehshell.exe"

# Title and display name in each language, command line.
MEDIA_CENTER = [
    (("Media Center", "Media Center"), ("Media Center", "Media Center"), EHSHELL),
    (("My TV", "マイ テレビ"), ("TV", "テレビ"), EHSHELL + " /directmedia:tv"),
    (("My Videos", "マイ ビデオ"), ("Videos", "ビデオ"), EHSHELL + " /directmedia:video"),
    (("Video Home", "ビデオ ホーム"), ("Video Home", "ビデオ ホーム"), EHSHELL + " /homepage:VideoHome.xml"),
    (("My Music", "マイ ミュージック"), ("Music", "音楽"), EHSHELL + " /directmedia:music"),
    (("My Pictures", "マイ ピクチャ"), ("Pictures", "写真"), EHSHELL + " /directmedia:pictures"),
    (("Radio", "ラジオ"), ("Radio", "ラジオ"), EHSHELL + " /directmedia:radio"),
]

NOTEPAD = r"C:\Windows\notepad.exe"
EXPLORER = r"C:\Windows\explorer.exe"
TASK_MANAGER = r"C:\Windows\System32\taskmgr.exe"
PAINT = r"C:\Windows\System32\mspaint.exe"
WORDPAD = r"C:\Program Files\Windows NT\Accessories\wordpad.exe"
MEDIA_PLAYER = r"C:\Program Files\Windows Media Player\wmplayer.exe"
BROWSER = r"C:\Program Files\Internet Explorer\iexplore.exe"
DOCUMENTS = r"C:\Users\Public\Documents"
PICTURES = r"C:\Users\Public\Pictures"


def program(command, parameter="", title=None):
    return (command + "|" + parameter if parameter else command, title or ("", ""))


def web(address, title=None):
    return program("iexplore.exe", address, title)


def key(name):
    return "K", [program(KEY_CODE[name])]


def media_center(row):
    title, display, command = MEDIA_CENTER[row]
    return display, "M", [program(command, title=title)]


EMPTY = ((" ", " "), "M", [])

# A single program that has a title is taken for a Media Center item,
# so only those, and the programs of buttons with several, have one.
STANDARD = (("Standard", "標準"), [
    (("Mail", "メール"), "M", [program(EXPLORER, "mailto:")]),
    (("Internet", "インターネット"), "M", [program(BROWSER)]),
    (("Pictures", "ピクチャ"), "M", [program(PICTURES)]),
    (("Paint", "ペイント"), "M", [program(PAINT)]),
    EMPTY,
    (("Notepad", "メモ帳"), "M", [program(NOTEPAD)]),
    (("Documents", "ドキュメント"), "M", [program(DOCUMENTS)]),
    (("Task Manager", "タスク マネージャー"), *key("Task Manager")),
])

PATTERNS = [
    (("Office", "オフィス"), [
        (("New Mail", "新規メール"), "M", [program(EXPLORER, "mailto:office@example.com")]),
        (("Morning Pages", "朝のページ"), "P", [
            web("http://www.example.com/news", ("News", "ニュース")),
            web("http://www.example.com/weather", ("Weather", "天気予報")),
            web("http://www.example.net/timetable", ("Timetable", "時刻表")),
        ]),
        (("Sort Pictures", "画像の整理"), "S", [
            program(EXPLORER, PICTURES, ("Pictures folder", "ピクチャ フォルダー")),
            program(PAINT, title=("Paint", "ペイント")),
        ]),
        (("Copy", "コピー"), *key("Copy")),
        EMPTY,
        (("Start of Day", "始業"), "S", [
            program(NOTEPAD, DOCUMENTS + r"\todo.txt", ("To-do list", "予定メモ")),
            program(WORDPAD),
            web("http://intranet.example.com/", ("Intranet", "社内ページ")),
            program(DOCUMENTS),
            program(TASK_MANAGER, title=("Task Manager", "タスク マネージャー")),
        ]),
        (("Notepad", "メモ帳"), "M", [program(NOTEPAD)]),
        (("Meeting", "会議"), "P", [
            program(WORDPAD, DOCUMENTS + r"\minutes.rtf", ("Minutes", "議事録")),
            web("http://intranet.example.com/agenda", ("Agenda", "議題")),
        ]),
    ]),
    (("Home", "自宅"), [
        (("Mail to Family", "家族へメール"), "M", [program(EXPLORER, "mailto:family@example.com")]),
        (("News and TV Guide", "ニュースと番組表"), "P", [
            web("http://www.example.com/news", ("News", "ニュース")),
            web("http://www.example.org/tv", ("TV Guide", "番組表")),
        ]),
        media_center(5),
        (("Letter", "手紙"), "S", [
            program(WORDPAD, DOCUMENTS + r"\letter.rtf", ("Letter paper", "便せん")),
            program(NOTEPAD, DOCUMENTS + r"\addresses.txt", ("Addresses", "住所録")),
        ]),
        (("Full Screen", "全画面表示"), *key("Full Screen")),
        media_center(4),
        (("Cooking", "料理"), "P", [
            web("http://www.example.org/recipes", ("Recipes", "レシピ")),
            program(MEDIA_PLAYER),
            program(NOTEPAD, DOCUMENTS + r"\shopping.txt", ("Shopping list", "買い物メモ")),
        ]),
        EMPTY,
    ]),
    (("Travel", "出張・旅行"), [
        (("Web Mail", "ウェブメール"), "M", [web("http://mail.example.com/")]),
        (("Check-in", "チェックイン"), "S", [
            web("http://www.example.net/flights", ("Flights", "航空便")),
            web("http://www.example.net/hotels", ("Hotels", "ホテル")),
            program(NOTEPAD, DOCUMENTS + r"\booking.txt", ("Booking numbers", "予約番号")),
        ]),
        (("Photos", "写真"), "P", [
            program(PICTURES),
            program(MEDIA_PLAYER),
        ]),
        (("Zoom In", "拡大"), *key("Zoom In")),
        (("Map", "地図"), "M", [web("http://www.example.org/map")]),
        EMPTY,
        (("Travel Notes", "旅のメモ"), "M", [program(NOTEPAD, DOCUMENTS + r"\travel.txt")]),
        (("On the Train", "車内で"), "P", [
            program(DOCUMENTS),
            program(WORDPAD, DOCUMENTS + r"\report.rtf", ("Report", "報告書")),
            program(MEDIA_PLAYER),
            web("http://www.example.com/weather", ("Weather", "天気予報")),
            web("http://www.example.net/timetable", ("Timetable", "時刻表")),
        ]),
    ]),
]

TABS = [("Desktop Keyboard", "卓上キーボード"), ("Notebook (Fn)", "ノートブック (Fn)")]
LABELS = [
    ("MAIL", "メール"), ("INTERNET", "インターネット"), ("GALLERY", "ギャラリー"),
    ("DESIGN", "デザイン"), ("SOFT KEY", "ソフト キー"),
    ("Fn + 1", "Fn + 1"), ("Fn + 2", "Fn + 2"), ("Fn + 3", "Fn + 3"),
]
WINDOWS_FACE = ("Arial", "ＭＳ ゴシック")
WINE_FACE = ("Liberation Sans", "IPAゴシック")

# The default colour's decimal digits are read as the hexadecimal BBGGRR: 9900 is the green 0x009900.
DEFAULT_COLOR = 9900
USER_COLOR = 0x00D7FF  # 0x00BBGGRR: gold, legible on any desktop


class RegFile:
    def __init__(self, hive):
        self.hive = hive
        self.lines = ["Windows Registry Editor Version 5.00"]

    def key(self, path, values):
        self.lines += ["", "[" + self.hive + "\\" + path + "]"]
        for name, value in values.items():
            if isinstance(value, int):
                text = "dword:%08x" % value
            else:
                text = '"' + value.replace("\\", "\\\\").replace('"', '\\"') + '"'
            self.lines.append('"%s"=%s' % (name, text))

    def data(self):
        return b"\xff\xfe" + ("\r\n".join(self.lines) + "\r\n").encode("utf-16-le")


def checked_name(text):
    if len(text.encode("cp932")) > NAME_BYTES:
        sys.exit("name longer than %d bytes: %s" % (NAME_BYTES, text))
    return text


def each_button(pattern, lang):
    buttons = pattern[1]
    assert len(buttons) == BUTTONS
    for number, (name, method, programs) in enumerate(buttons, 1):
        assert len(programs) <= PROGRAMS
        # An empty value keeps the default's program from showing through.
        padded = programs + [("", ("", ""))] * (PROGRAMS - len(programs))
        yield (number, checked_name(name[lang]), method, len(programs),
               [command for command, _ in padded], [title[lang] for _, title in padded])


def write_pattern(reg, path, pattern, lang, titles):
    reg.key(path, {"SetName": checked_name(pattern[0][lang])})
    for number, name, method, count, commands, shown in each_button(pattern, lang):
        values = {"DispTitle": name, "Execute": method, "NumAP": count}
        values.update({"AP%d" % k: c for k, c in enumerate(commands, 1)})
        if titles:
            values.update({"ProgName%d" % k: t for k, t in enumerate(shown, 1)})
        reg.key(path + "\\AppKey%d" % number, values)


def machine(lang):
    reg = RegFile("HKEY_LOCAL_MACHINE")
    reg.key(PRODUCT, {"QLBINI": 0, "QLBB": 1, "QSTART": 0, "BtnImage": 1,
                      "NTNumAPBtn": 3, "DTNumAPBtn": 5, "NR1t2": 0})
    setting = PRODUCT + r"\UTLSetting"
    reg.key(setting, {"ShowNTTab": 1})
    reg.key(setting + r"\TabName", {"Tab%d" % n: t[lang] for n, t in enumerate(TABS)})
    reg.key(setting + r"\ButtonName", {"AppKey%d" % b: t[lang] for b, t in enumerate(LABELS, 1)})
    reg.key(setting + r"\ConvAppKey", {"AppKey%d" % b: 0 for b in range(1, BUTTONS + 1)})
    reg.key(setting + r"\ProgramGroup", {"IEMenu": 1, "MCMenu": 1})

    face = WINDOWS_FACE[lang]
    reg.key(PRODUCT + r"\Default\OnScreen",
            {"OnScreen": 1, "Size": 3, "FontSize": 3, "Color": DEFAULT_COLOR, "FontFace": face, "FontName": face})
    write_pattern(reg, PRODUCT + r"\Default\Setting\Set1", STANDARD, lang, titles=False)

    user = {"UserName": STANDARD[0][lang]}
    for number, name, method, count, commands, _ in each_button(STANDARD, lang):
        prefix = "Btn%d_" % number
        user.update({prefix + "Name": name, prefix + "Exec": method, prefix + "NumAP": str(count)})
        user.update({prefix + "AP%d" % k: c for k, c in enumerate(commands, 1)})
    reg.key(PRODUCT + r"\Default\USER1", user)
    return reg.data()


def user(lang):
    reg = RegFile("HKEY_CURRENT_USER")
    reg.key(PRODUCT, {"CurrSetting": 1, "NumSetting": len(PATTERNS)})
    reg.key(PRODUCT + r"\OnScreen",
            {"OnScreen": 1, "FontFace": WINDOWS_FACE[lang], "size": 4, "Color": USER_COLOR})
    for number, pattern in enumerate(PATTERNS, 1):
        write_pattern(reg, PRODUCT + r"\Setting\Set%d" % number, pattern, lang, titles=True)
    return reg.data()


def removal():
    reg = RegFile("-HKEY_LOCAL_MACHINE")
    reg.key(PRODUCT, {})
    reg.hive = "-HKEY_CURRENT_USER"
    reg.key(PRODUCT, {})
    return reg.data()


def wine(lang):
    reg = RegFile("HKEY_LOCAL_MACHINE")
    face = WINE_FACE[lang]
    reg.key(PRODUCT + r"\Default\OnScreen", {"FontFace": face, "FontName": face})
    reg.hive = "HKEY_CURRENT_USER"
    reg.key(PRODUCT + r"\OnScreen", {"FontFace": face})
    return reg.data()


def records(rows):
    return "".join("%s\r\n" % ",".join(row) for row in rows).encode("cp932")


def quoted(text):
    assert '"' not in text
    return '"' + text + '"'


def shortcut_keys(lang):
    codes = [code for _, code, _, _ in SHORTCUT_KEYS]
    assert len(set(codes)) == len(codes)
    return records((quoted(row[0]), str(row[1]), quoted(row[2 + lang])) for row in SHORTCUT_KEYS)


def media_center_menu(lang):
    return records((quoted(title[lang]), quoted(checked_name(display[lang])), quoted(command))
                   for title, display, command in MEDIA_CENTER)


FILES = {
    "QLBUtl-machine.reg": machine,
    "QLBUtl-user.reg": user,
    "QLBUtl-wine.reg": wine,
    "QLBCODE.DAT": shortcut_keys,
    "QLBMCMNU.DAT": media_center_menu,
}


def products():
    yield "QLBUtl-remove.reg", removal()
    for lang, folder in enumerate(LANGUAGES):
        for name, make in FILES.items():
            yield os.path.join(folder, name), make(lang)


def content(path):
    try:
        with open(path, "rb") as file:
            return file.read()
    except FileNotFoundError:
        return None


def main(arguments):
    if arguments not in ([], ["--check"]):
        sys.exit(__doc__.strip())
    different = []
    for name, data in products():
        path = os.path.join(HERE, name)
        if arguments:
            if content(path) != data:
                different.append(name)
        else:
            with open(path, "wb") as file:
                file.write(data)
    if different:
        sys.exit("not what make-settings.py writes: " + ", ".join(different))


if __name__ == "__main__":
    main(sys.argv[1:])
