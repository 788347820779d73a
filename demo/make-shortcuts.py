#!/usr/bin/env python3
"""Creates the .lnk and .url files that a list names, in place of those of an earlier call.

The list holds one file a line, its fields separated by tabs: the place (user, all or favorites),
the file below the folder given for that place, the target of a .lnk or the address of a .url,
and optionally the arguments of a .lnk.

The record remembers what was created, relative to its own folder, so that the next call removes
just that.
"""

import argparse
import os
import struct

LINK_CLASS = bytes.fromhex("0114020000000000c000000000000046")
HAS_LINK_INFO, HAS_WORKING_DIR, HAS_ARGUMENTS, HAS_ICON_LOCATION, IS_UNICODE = 0x02, 0x10, 0x20, 0x40, 0x80
FILE_ATTRIBUTE_ARCHIVE = 0x20
SW_SHOWNORMAL = 1
DRIVE_FIXED = 3
VOLUME_AND_LOCAL_PATH = 1


def link_info(target):
    label = b"\0"
    volume = struct.pack("<4I", 16 + len(label), DRIVE_FIXED, 0, 16) + label
    path = target.encode("ascii") + b"\0"
    suffix = b"\0"
    header_size = 28
    path_at = header_size + len(volume)
    suffix_at = path_at + len(path)
    return struct.pack("<7I", suffix_at + len(suffix), header_size, VOLUME_AND_LOCAL_PATH,
                       header_size, path_at, 0, suffix_at) + volume + path + suffix


def counted_text(text):
    return struct.pack("<H", len(text)) + text.encode("utf-16-le")


def shell_link(target, arguments):
    flags = HAS_LINK_INFO | HAS_WORKING_DIR | HAS_ICON_LOCATION | IS_UNICODE | (HAS_ARGUMENTS if arguments else 0)
    no_times = bytes(24)
    header = struct.pack("<I16s2I24s3IHHII", 76, LINK_CLASS, flags, FILE_ATTRIBUTE_ARCHIVE, no_times,
                         0, 0, SW_SHOWNORMAL, 0, 0, 0, 0)
    data = header + link_info(target) + counted_text(target.rpartition("\\")[0])
    if arguments:
        data += counted_text(arguments)
    return data + counted_text(target) + bytes(4)


def internet_shortcut(address):
    return ("[InternetShortcut]\r\nURL=%s\r\n" % address).encode("ascii")


def read_list(path, places):
    with open(path, encoding="utf-8") as file:
        for line in file:
            line = line.rstrip("\n")
            if not line or line.startswith("#"):
                continue
            place, name, target, *arguments = line.split("\t")
            if name.endswith(".url"):
                data = internet_shortcut(target)
            else:
                data = shell_link(target, arguments[0] if arguments else "")
            # Wine takes file names as UTF-8, whatever the locale of this process is.
            yield os.path.join(os.fsencode(places[place]), name.encode("utf-8")), data


def remove_recorded(record):
    try:
        with open(record, "rb") as file:
            names = file.read().splitlines()
    except FileNotFoundError:
        return
    base = os.path.dirname(record)
    for name in reversed(names):
        path = os.path.join(base, name)
        try:
            os.rmdir(path) if name.endswith(b"/") else os.unlink(path)
        except OSError:
            # Gone already, or a folder into which someone has put a file of their own.
            pass


def missing_folders(paths):
    missing = []
    for path in paths:
        chain = []
        folder = os.path.dirname(path)
        while not os.path.isdir(folder) and folder not in missing:
            chain.append(folder)
            folder = os.path.dirname(folder)
        missing += reversed(chain)
    return missing


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("list")
    parser.add_argument("--user", required=True, help="the user's own Start Menu")
    parser.add_argument("--all", required=True, help="the Start Menu of all users")
    parser.add_argument("--favorites", required=True)
    parser.add_argument("--record", required=True)
    options = parser.parse_args()

    places = {"user": options.user, "all": options.all, "favorites": options.favorites}
    files = list(read_list(options.list, places))
    record = os.path.abspath(os.fsencode(options.record))
    remove_recorded(record)

    folders = missing_folders([path for path, _ in files])
    base = os.path.dirname(record)
    names = [os.path.relpath(folder, base) + b"/" for folder in folders]
    names += [os.path.relpath(path, base) for path, _ in files]
    # The record comes first: a call that is broken off leaves nothing that the next does not know.
    with open(record, "wb") as file:
        file.write(b"\n".join(names) + b"\n")
    for folder in folders:
        os.mkdir(folder)
    for path, data in files:
        with open(path, "wb") as file:
            file.write(data)


if __name__ == "__main__":
    main()
