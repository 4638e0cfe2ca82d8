#!/usr/bin/python3
"""Makes N font families for the benchmarks (needs Debian's python3-fonttools).

    make_fonts.py N FOLDER

FOLDER gets the fonts and a fonts.conf that lists them and the system's rules, but not the system's
fonts; set FONTCONFIG_FILE to it. One font is built in memory, and each file is that font with
another family name of the same length written over it, so that 10,000 take seconds. Every tenth
family has a bold file too. The cache is made at the end, as on a machine that has been used.
"""
import io
import os
import pathlib
import subprocess
import sys

from fontTools.fontBuilder import FontBuilder
from fontTools.pens.ttGlyphPen import TTGlyphPen

NAME = "Bench #####"
EM = 1000


def one_font(style):
    pen = TTGlyphPen(None)
    for corner in ((100, 0), (100, 700), (500, 700), (500, 0)):
        (pen.lineTo if pen.points else pen.moveTo)(corner)
    pen.closePath()
    box = pen.glyph()
    characters = [*range(32, 127), *range(160, 256), *range(0x410, 0x450)]
    names = [".notdef"] + [f"u{c:04X}" for c in characters]
    builder = FontBuilder(EM, isTTF=True)
    builder.setupGlyphOrder(names)
    builder.setupCharacterMap({c: f"u{c:04X}" for c in characters})
    builder.setupGlyf({name: box for name in names})
    builder.setupHorizontalMetrics({name: (600, 100) for name in names})
    builder.setupHorizontalHeader(ascent=800, descent=-200)
    builder.setupNameTable({"familyName": NAME, "styleName": style, "fullName": NAME,
                            "psName": NAME.replace(" ", "")}, mac=False)
    builder.setupOS2(usWeightClass=700 if style == "Bold" else 400, usWinAscent=800,
                     usWinDescent=200, fsSelection=32 if style == "Bold" else 64)
    builder.setupPost(keepGlyphNames=False)
    builder.updateHead(macStyle=1 if style == "Bold" else 0)
    stream = io.BytesIO()
    builder.font.save(stream)
    return stream.getvalue()


def main():
    count, folder = int(sys.argv[1]), pathlib.Path(sys.argv[2]).resolve()
    folder.mkdir(parents=True)
    regular, bold = one_font("Regular"), one_font("Bold")
    for number in range(count):
        place = folder / "fonts" / f"{number // 500:03}"
        place.mkdir(parents=True, exist_ok=True)
        name = f"Bench {number:05}".encode("utf-16-be")
        placeholder = NAME.encode("utf-16-be")
        (place / f"{number:05}.ttf").write_bytes(regular.replace(placeholder, name))
        if number % 10 == 0:
            (place / f"{number:05}b.ttf").write_bytes(bold.replace(placeholder, name))
    configuration = folder / "fonts.conf"
    configuration.write_text(f"""<?xml version="1.0"?>
<!DOCTYPE fontconfig SYSTEM "urn:fontconfig:fonts.dtd">
<fontconfig>
  <include ignore_missing="yes">/etc/fonts/conf.d</include>
  <reset-dirs/>
  <dir>{folder}/fonts</dir>
  <cachedir>{folder}/cache</cachedir>
  <alias><family>sans-serif</family><prefer><family>Bench 00000</family></prefer></alias>
  <alias><family>serif</family><prefer><family>Bench 00010</family></prefer></alias>
  <alias><family>monospace</family><prefer><family>Bench 00020</family></prefer></alias>
</fontconfig>
""", encoding="utf-8")
    subprocess.run(["fc-cache"], env={**os.environ, "FONTCONFIG_FILE": str(configuration)},
                   check=True)


main()
