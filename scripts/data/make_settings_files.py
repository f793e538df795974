#!/usr/bin/env python3
"""Writes the settings files shipped in data/Sorvin: every module's "Settings.txt", the main
window's positional and companion files, and the typing settings ini files.

Settings files are UTF-16LE with mark and CR LF line ends, as the program itself saves them, so
that the first save changes nothing but the value saved. A title line always comes first: the
program never takes line 0 as a key line. Run from anywhere; it rewrites the files in place.
"""

from pathlib import Path

ROOT = Path(__file__).resolve().parents[2] / "data" / "Sorvin"
KEY_PREFIX = "`````"
CRLF = "\r\n"


def write_utf16(path: Path, lines: list[str]) -> None:
    path.parent.mkdir(parents=True, exist_ok=True)
    path.write_bytes(b"\xff\xfe" + (CRLF.join(lines) + CRLF).encode("utf-16-le"))


def write_plain(path: Path, lines: list[str]) -> None:
    path.parent.mkdir(parents=True, exist_ok=True)
    path.write_bytes((CRLF.join(lines) + CRLF).encode("utf-8"))


def keyed(title: str, pairs: list[tuple[str, str]]) -> list[str]:
    lines = [title]
    for key, value in pairs:
        lines += [KEY_PREFIX + key, value]
    return lines


# Main typing window. Global typing is on; the hotkey is Alt+F12, which no common program or
# the desktop itself claims (F12 alone is "Save As" in word processors, Ctrl+Q quits many
# programs, and Ctrl+Alt combinations collide with AltGr on European keyboards).
MAIN_WINDOW = [
    ("Global Typing", "1"),
    ("Instant Typing", "0"),
    ("Fast Editing", "0"),
    ("Smart Editing", "0"),
    ("CopyPaste Editing", "0"),
    ("Include Hotkeys", "1"),
    ("Present Hotkey", "Alt+F12"),
    # Read by the start-up link in the general settings: off until the user asks for it, so an
    # installation never writes into the Startup folder on its own.
    ("StartQuilom++ WithWindows", "0"),
]

# The converter opens on the commonest job: the first legacy encoding (position 1, "Unicode"
# being position 0) to Unicode, with the "Default Font" rows of both font lists.
CONVERTER = [
    ("From Index", "1"),
    ("To Index", "0"),
    ("Uni Index", "1"),
    ("NonUni Index", "1"),
    ("IrRiRee Form", "0"),
    ("Plain Text", "0"),
    ("Vowel Signs", "1"),
    ("Quotes Format", "1"),
]

# Decoding as soon as text is pasted is the point of the window; copying and opening a browser
# are left for the user to ask for.
URL_NORMALIZER = [
    ("Auto Normalize", "1"),
    ("Auto Copy", "0"),
    ("Auto Open", "0"),
]

FLOATER_OPTIONS = [
    ("Follow the Typing", "0"),
    ("Always on Top", "1"),
    ("Hide the Hotkeys Info", "0"),
    ("Hide Languages", "0"),
    ("Hide Font Encodings", "0"),
    ("Hide Keyboards Info", "0"),
    ("Hook the Typing Window", "0"),
    ("AutoFocus Typing Window", "0"),
    ("Start with Quilom++", "0"),
]
FLOATER_PLACEMENT = [("Left", "40"), ("Top", "120"), ("Width", "300"), ("Height", "460")]

GENERAL = [
    ("Notifier Sound Choice", "2"),
    ("Play Notifier Sounds", "1"),
    ("Balloon Seconds", "4"),
]

CHOICES = [
    ("Notifier Sound Choice", ["1", "2", "3"]),
    ("Play Notifier Sounds", ["0", "1"]),
    ("Balloon Seconds", ["2", "4", "6", "10"]),
    ("Present Hotkey", ["None", "Alt+F12", "Alt+F11", "Ctrl+Alt+F12", "Ctrl+Shift+F12", "F9", "F12"]),
]

PROMPTS = [
    "Quilom++ general settings: one prompt a line, in the order of the settings",
    "Which notifier sound should play when typing starts or stops? 1 = the Windows notify sound, "
    "2 = the Quilom++ notifier sound, 3 = one sound for each keymap",
    "Play the notifier sound at all? 1 = yes, 0 = no",
    "For how many seconds should the tray balloon stay up?",
]

HEADERS = ["Quilom++ general settings", "Setting", "Value", "Choices"]

TYPING_INI = [
    "[General]",
    "StartQuilomSilently=0",
    "OnCloseMinimizeQuilom=0",
    "StartQuilomMinimized=0",
    "BalloonTipAtStartup=1",
    "",
    "[Tamil-Phonetics]",
    "ExcludeH=0",
    "TamilNumeralsConversion=0",
    "",
    "[Tamil-Net99]",
    "ConsecutiveAgaraUyirmeys=1",
    "",
    "[OtherLangs-Phonetics]",
    "chCh=0",
    "Classic=1",
    "",
    "[OtherLangs-Any]",
    "UseMyOwnKeyboardLayout=0",
]

TYPING_INI_2 = ["Classic scheme=1", "Extended scheme=0"]

SET_KEYS = [
    "------ Scheme of the phonetic keymaps (tick one) ------",
    "Classic scheme=1",
    "Extended scheme=0",
]

TITLE_ONLY_MODULES = [
    "Unicode Viewer",
    "Sanskrit Tamil Colorizer",
    "Auto Transliterator",
    "Dual_Screen Transliterator",
    "pelandr",
]


def main() -> None:
    main_folder = ROOT / "Indic Direct Typer"
    write_utf16(main_folder / "Settings.txt", keyed("Quilom++ - Indic Direct Typer settings", MAIN_WINDOW))
    write_utf16(ROOT / "Tamil Fonts Converter" / "Settings.txt",
                keyed("Quilom++ - Tamil Fonts Converter settings", CONVERTER))
    write_utf16(ROOT / "URL Normalizer" / "Settings.txt", keyed("Quilom++ - URL Normalizer settings", URL_NORMALIZER))
    for module in TITLE_ONLY_MODULES:
        write_utf16(ROOT / module / "Settings.txt", [f"Quilom++ - {module} settings"])

    write_utf16(main_folder / "Settings - General.txt",
                keyed("Quilom++ general settings (by position): notifier sound choice, play sounds, balloon seconds",
                      GENERAL))
    write_utf16(main_folder / "Settings - Floater.txt",
                keyed("Quilom++ floater settings (by position): the nine options in the floater's list order "
                      "(1 = on), then left, top, width and height in pixels", FLOATER_OPTIONS + FLOATER_PLACEMENT))
    choices = ["Quilom++ general settings: the choices of each setting, ended by a blank line"]
    for key, values in CHOICES:
        choices += [KEY_PREFIX + key] + values + [""]
    write_utf16(main_folder / "Settings-Choices.txt", choices)
    write_utf16(main_folder / "Settings-Prompts.txt", PROMPTS)
    write_utf16(main_folder / "Settings-Headers.txt", HEADERS)
    write_plain(main_folder / "inps" / "README.txt",
                ["Input texts of the tools: the sample texts of the reverse and auto transliterators and "
                 "the catalogue lists of keymaps."])
    write_plain(main_folder / "infs" / "README.txt",
                ["Information files shown by the help and information windows."])

    inis = ROOT / "pelandr" / "inis"
    write_utf16(inis / "qm-settings.ini", TYPING_INI)
    write_utf16(inis / "qm-settings-2.ini", TYPING_INI_2)
    write_utf16(inis / "qm-settings-2.replica", TYPING_INI_2)
    write_utf16(inis / "qm-setkeys.txt", SET_KEYS)


if __name__ == "__main__":
    main()
