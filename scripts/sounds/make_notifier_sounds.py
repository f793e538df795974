#!/usr/bin/env python3
"""Writes the notifier sounds that ship in "Notifier Sounds": short, quiet chimes made here
from sine tones, so that the program carries no sound it did not make itself.

Usage: make_notifier_sounds.py [OUTPUT_FOLDER]
The default folder is the shipped one below data/Sorvin. Files are 16-bit mono at 22050 Hz
and well under 20 KB each, so typing ON/OFF never waits on a large file.
"""
import math
import os
import struct
import sys
import wave

RATE = 22050
VOLUME = 0.35  # of full scale: a notifier should not startle

# Each sound: list of (frequency in Hz, duration in seconds) notes played one after another.
SOUNDS = {
    "! ! NotifierSound.wav": [(880.0, 0.09), (1320.0, 0.14)],
    "notifier-rising.wav": [(660.0, 0.08), (880.0, 0.08), (1100.0, 0.12)],
    "notifier-falling.wav": [(1100.0, 0.08), (880.0, 0.08), (660.0, 0.12)],
    "notifier-low.wav": [(440.0, 0.18)],
}

PATH_LIST = "! ! NotifierSounds - FilePaths.txt"
PATH_LIST_LINES = [
    "Quilom++ - notifier sound per keymap number: <number>.<path of a .wav file>",
    "`````Use the file: ! ! NotifierSound.wav",
    "1.notifier-rising.wav",
    "2.notifier-falling.wav",
    "3.notifier-low.wav",
]


def note_samples(frequency, seconds):
    count = int(RATE * seconds)
    fade = max(1, int(RATE * 0.01))  # 10 ms in and out, so no click at either end
    for i in range(count):
        envelope = min(1.0, i / fade, (count - 1 - i) / fade)
        # a gentle decay over the note makes it a chime rather than a beep
        decay = math.exp(-3.0 * i / count)
        yield VOLUME * envelope * decay * math.sin(2.0 * math.pi * frequency * i / RATE)


def write_sound(path, notes):
    frames = bytearray()
    for frequency, seconds in notes:
        for value in note_samples(frequency, seconds):
            frames += struct.pack("<h", int(round(value * 32767)))
    with wave.open(path, "wb") as out:
        out.setnchannels(1)
        out.setsampwidth(2)
        out.setframerate(RATE)
        out.writeframes(bytes(frames))


def write_path_list(path):
    # Data files are UTF-16LE with mark and CR LF line ends, like every settings file.
    text = "\r\n".join(PATH_LIST_LINES) + "\r\n"
    with open(path, "wb") as out:
        out.write(b"\xff\xfe" + text.encode("utf-16-le"))


def main():
    here = os.path.dirname(os.path.abspath(__file__))
    default = os.path.join(here, "..", "..", "data", "Sorvin", "Indic Direct Typer", "Notifier Sounds")
    folder = sys.argv[1] if len(sys.argv) > 1 else default
    os.makedirs(folder, exist_ok=True)
    for name, notes in SOUNDS.items():
        write_sound(os.path.join(folder, name), notes)
    write_path_list(os.path.join(folder, PATH_LIST))
    for name in sorted(os.listdir(folder)):
        print(f"{os.path.getsize(os.path.join(folder, name)):8d}  {name}")


if __name__ == "__main__":
    main()
