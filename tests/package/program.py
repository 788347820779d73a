#!/usr/bin/python3
"""What the built program must say of itself, and how it must be protected.

program.py --program FILE --machine x64|x86 --version 1.2.3 [TESTCASE...]
"""

import argparse
import os
import re
import struct
import unittest
from xml.etree import ElementTree

import pefile

ROOT = os.path.dirname(os.path.dirname(os.path.dirname(os.path.abspath(__file__))))
ENGLISH, JAPANESE = 0x0409, 0x0411
UTF16 = 1200

# Id of the titles, and the size that the program must stay below.
PROGRAMS = {"QLBUtl": ("StringTable.inc", 3000, 900 * 1024), "QLBLauncher": ("LauncherTexts.inc", 5000, 600 * 1024),
            "qlb": ("StringTable.inc", 3000, 1200 * 1024)}

# Windows maps these from its own folder whatever lies beside a program (KnownDLLs).
KNOWN_DLLS = {"advapi32.dll", "gdi32.dll", "kernel32.dll", "msvcrt.dll", "oleaut32.dll", "shell32.dll",
              "user32.dll"}
# This one it takes from its side-by-side store, because the manifest asks for version 6.
SIDE_BY_SIDE_DLLS = {"comctl32.dll"}


def titles(program):
    """The program's own titles, English and Japanese."""
    table, number, _ = PROGRAMS[program]
    with open(os.path.join(ROOT, "src/resources", table), encoding="utf-8") as file:
        return re.search(rf'^QLB_STRING\({number}, "(.+)", "(.+)"\)', file.read(), re.MULTILINE).groups()


class ProgramTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.pe = pefile.PE(OPTIONS.program)
        with open(OPTIONS.program, "rb") as file:
            cls.bytes = file.read()

    def resources(self, kind):
        """Each resource of a type, as (id, language, data)."""
        found = []
        for entry in self.pe.DIRECTORY_ENTRY_RESOURCE.entries:
            if entry.id != pefile.RESOURCE_TYPE[kind]:
                continue
            for name in entry.directory.entries:
                for language in name.directory.entries:
                    place = language.data.struct
                    found.append((name.id, language.id, self.pe.get_data(place.OffsetToData, place.Size)))
        return found


class Icon(ProgramTest):
    SIZES = [16, 20, 24, 32, 40, 48, 64, 128, 256]

    def images(self):
        """The size that the icon's directory gives, and the image."""
        groups = self.resources("RT_GROUP_ICON")
        self.assertEqual(len(groups), 1, "one icon, the program's")
        images = {number: data for number, _, data in self.resources("RT_ICON")}
        directory = groups[0][2]
        for i in range(struct.unpack_from("<H", directory, 4)[0]):
            width, height, _, _, _, bits, size, number = struct.unpack_from("<BBBBHHIH", directory, 6 + 14 * i)
            self.assertEqual((width, bits, size), (height, 32, len(images[number])))
            yield width or 256, images[number]

    def test_has_every_size_that_windows_shows_at_100_to_300_percent(self):
        self.assertEqual(sorted(size for size, _ in self.images()), self.SIZES)

    def test_each_image_has_the_size_that_it_is_chosen_by(self):
        for size, image in self.images():
            with self.subTest(size=size):
                if image.startswith(b"\x89PNG\r\n\x1a\n"):
                    self.assertEqual(struct.unpack_from(">IIBB", image, 16), (size, size, 8, 6))
                else:
                    # The height counts the mask, too.
                    self.assertEqual(struct.unpack_from("<IiiHH", image), (40, size, 2 * size, 1, 32))

    def test_each_image_is_round_at_its_corners(self):
        for size, image in self.images():
            if not image.startswith(b"\x89PNG"):
                with self.subTest(size=size):
                    alpha = image[40 + 3:40 + 4 * size * size:4]
                    self.assertLess(alpha[0], 128)
                    self.assertEqual(alpha[len(alpha) // 2 + size // 2], 255)


class Version(ProgramTest):
    def blocks(self):
        found = {}
        for info in self.pe.FileInfo[0]:
            for block in getattr(info, "StringTable", []):
                found[block.LangID.decode().upper()] = {
                    key.decode(): value.decode() for key, value in block.entries.items()}
        return found

    def test_the_numbers_are_the_projects_version(self):
        fixed = self.pe.VS_FIXEDFILEINFO[0]
        major, minor, patch = (int(part) for part in OPTIONS.version.split("."))
        wanted = (major << 16 | minor, patch << 16)
        self.assertEqual((fixed.FileVersionMS, fixed.FileVersionLS), wanted)
        self.assertEqual((fixed.ProductVersionMS, fixed.ProductVersionLS), wanted)

    def test_the_texts_are_there_in_english_and_japanese(self):
        blocks = self.blocks()
        self.assertEqual(sorted(blocks), ["040904B0", "041104B0"])
        for block, title, product in zip(("040904B0", "041104B0"), titles(OPTIONS.name), titles("QLBUtl")):
            with self.subTest(block=block):
                texts = dict(blocks[block])
                self.assertIn("QLBUtl", texts.pop("CompanyName"))
                self.assertEqual(texts, {
                    "FileDescription": title, "ProductName": product,
                    "FileVersion": OPTIONS.version, "ProductVersion": OPTIONS.version,
                    "InternalName": OPTIONS.name, "OriginalFilename": OPTIONS.name + ".exe"})

    def test_the_translations_name_both_blocks(self):
        data = self.resources("RT_VERSION")[0][2]
        at = data.index("Translation\0".encode("utf-16-le"))
        self.assertEqual(struct.unpack("<4H", data[at:][-8:]), (ENGLISH, UTF16, JAPANESE, UTF16))


class Manifest(ProgramTest):
    V1 = "{urn:schemas-microsoft-com:asm.v1}"
    V3 = "{urn:schemas-microsoft-com:asm.v3}"
    COMPATIBILITY = "{urn:schemas-microsoft-com:compatibility.v1}"

    def manifest(self):
        found = self.resources("RT_MANIFEST")
        self.assertEqual([number for number, _, _ in found], [1])
        return ElementTree.fromstring(found[0][2])

    def setting(self, year, name):
        return self.manifest().findtext(
            f".//{self.V3}windowsSettings/"
            f"{{http://schemas.microsoft.com/SMI/{year}/WindowsSettings}}{name}")

    def test_names_the_program_and_its_version(self):
        identity = self.manifest().find(f"{self.V1}assemblyIdentity")
        self.assertEqual((identity.get("name"), identity.get("version")), (OPTIONS.name, OPTIONS.version + ".0"))
        self.assertEqual(self.manifest().findtext(f"{self.V1}description"), titles(OPTIONS.name)[0])

    def test_asks_for_visual_styles(self):
        library = self.manifest().find(
            f"{self.V1}dependency/{self.V1}dependentAssembly/{self.V1}assemblyIdentity")
        self.assertEqual(library.get("name"), "Microsoft.Windows.Common-Controls")
        self.assertEqual(library.get("version"), "6.0.0.0")

    def test_scales_by_itself_on_each_monitor_or_at_least_once(self):
        self.assertEqual(self.setting(2016, "dpiAwareness"), "PerMonitorV2, system")
        self.assertEqual(self.setting(2005, "dpiAware"), "true")

    def test_knows_windows_10_and_11(self):
        systems = [system.get("Id") for system in self.manifest().iter(f"{self.COMPATIBILITY}supportedOS")]
        self.assertEqual(systems, ["{8e0f7a12-bfb3-4fe8-b9a5-48fd50a15a9a}"])

    def test_needs_no_rights_beyond_its_users(self):
        level = self.manifest().find(f".//{self.V3}requestedExecutionLevel")
        self.assertEqual(level.attrib, {"level": "asInvoker", "uiAccess": "false"})

    def test_takes_long_paths(self):
        self.assertEqual(self.setting(2016, "longPathAware"), "true")

    def test_leaves_the_code_page_to_the_system_because_the_store_does(self):
        self.assertIsNone(self.setting(2019, "activeCodePage"))


class Protection(ProgramTest):
    def has(self, flag):
        return bool(self.pe.OPTIONAL_HEADER.DllCharacteristics
                    & pefile.DLL_CHARACTERISTICS["IMAGE_DLLCHARACTERISTICS_" + flag])

    def test_is_for_the_machine_that_it_says(self):
        machine = {"x64": "IMAGE_FILE_MACHINE_AMD64", "x86": "IMAGE_FILE_MACHINE_I386"}[OPTIONS.machine]
        self.assertEqual(self.pe.FILE_HEADER.Machine, pefile.MACHINE_TYPE[machine])

    def test_is_loaded_at_a_random_address(self):
        self.assertTrue(self.has("DYNAMIC_BASE"))
        self.assertEqual(self.has("HIGH_ENTROPY_VA"), OPTIONS.machine == "x64")
        self.assertFalse(self.pe.FILE_HEADER.Characteristics
                         & pefile.IMAGE_CHARACTERISTICS["IMAGE_FILE_RELOCS_STRIPPED"])
        moved = [entry for block in getattr(self.pe, "DIRECTORY_ENTRY_BASERELOC", []) for entry in block.entries]
        self.assertTrue(moved, "without relocations it can't be moved")

    def test_data_is_not_executed(self):
        self.assertTrue(self.has("NX_COMPAT"))

    def test_no_section_is_both_writable_and_executable(self):
        both = [section.Name for section in self.pe.sections
                if section.IMAGE_SCN_MEM_WRITE and section.IMAGE_SCN_MEM_EXECUTE]
        self.assertEqual(both, [])
        self.assertTrue(any(section.IMAGE_SCN_MEM_EXECUTE for section in self.pe.sections))

    def test_ends_when_a_stack_frame_was_written_over(self):
        # mov ecx, FAST_FAIL_STACK_COOKIE_CHECK_FAILURE; int 29h: only linked in where functions check for it.
        code = b"".join(s.get_data() for s in self.pe.sections if s.IMAGE_SCN_MEM_EXECUTE)
        self.assertIn(b"\xb9\x02\x00\x00\x00\xcd\x29", code)

    def test_knows_terminal_servers(self):
        self.assertTrue(self.has("TERMINAL_SERVER_AWARE"))


class Libraries(ProgramTest):
    def imports(self):
        return {library.dll.decode().lower(): {symbol.name.decode() for symbol in library.imports if symbol.name}
                for library in self.pe.DIRECTORY_ENTRY_IMPORT}

    def test_needs_only_libraries_that_windows_takes_from_its_own_folders(self):
        self.assertEqual(set(self.imports()) - KNOWN_DLLS - SIDE_BY_SIDE_DLLS, set())
        self.assertFalse(hasattr(self.pe, "DIRECTORY_ENTRY_DELAY_IMPORT"))

    def test_can_keep_later_libraries_to_the_system_folder(self):
        self.assertIn("SetDefaultDllDirectories", self.imports()["kernel32.dll"])

    def test_loads_no_cryptographic_provider_for_its_stack_guard(self):
        self.assertEqual([name for name in self.imports()["advapi32.dll"] if name.startswith("Crypt")], [])

    def test_exports_nothing(self):
        self.assertFalse(hasattr(self.pe, "DIRECTORY_ENTRY_EXPORT"))


class Size(ProgramTest):
    def test_stays_below_its_limit(self):
        size, limit = len(self.bytes), PROGRAMS[OPTIONS.name][2]
        print(f"{OPTIONS.name}.exe for {OPTIONS.machine}: {size:,} bytes of {limit:,}", flush=True)
        self.assertLess(size, limit)

    def test_is_stripped(self):
        header = self.pe.FILE_HEADER
        self.assertEqual((header.PointerToSymbolTable, header.NumberOfSymbols), (0, 0))
        self.assertFalse(hasattr(self.pe, "DIRECTORY_ENTRY_DEBUG"))
        self.assertEqual([s.Name for s in self.pe.sections if s.Name.startswith((b"/", b".debug"))], [])

    def test_does_not_tell_when_or_where_it_was_built(self):
        self.assertEqual(self.pe.FILE_HEADER.TimeDateStamp, 0)
        for encoding in ("utf-8", "utf-16-le"):
            self.assertFalse(ROOT.encode(encoding) in self.bytes, f"{ROOT} as {encoding}")


if __name__ == "__main__":
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--program", required=True)
    parser.add_argument("--machine", required=True, choices=("x64", "x86"))
    parser.add_argument("--version", required=True)
    OPTIONS, names = parser.parse_known_args()
    OPTIONS.name = os.path.splitext(os.path.basename(OPTIONS.program))[0]
    unittest.main(argv=[__file__, *names])
