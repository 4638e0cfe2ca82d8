#!/usr/bin/python3
"""Writes the test fonts beside this file (needs Debian's python3-fonttools).

Every glyph is a picture that a test can read back: four columns by four rows of square cells, the
lowest bit at the lower left. The two lower rows are the eight bits of the character code, then come
seven bits of the font's own number, and the cell at the upper right says "missing glyph". The em
has 1,024 units, a cell takes 224, so at 32 pixels a cell is 7 pixels wide.
"""
import io
import pathlib
import struct

from fontTools.fontBuilder import FontBuilder
from fontTools.pens.t2CharStringPen import T2CharStringPen
from fontTools.pens.ttGlyphPen import TTGlyphPen
from fontTools.ttLib import TTCollection, TTFont, newTable
from fontTools.ttLib.tables._c_m_a_p import CmapSubtable
from fontTools.ttLib.tables.TupleVariation import TupleVariation

HERE = pathlib.Path(__file__).parent
EM, ADVANCE, ASCENT, DESCENT = 1024, 1024, 960, 64
PITCH, CELL, LEFT = 224, 192, 64
MISSING = 1 << 15
UNDEFINED_IN_1252 = (0x81, 0x8D, 0x8F, 0x90, 0x9D)
ALL = range(32, 256)
PLAIN = range(32, 127)


def to_unicode(code):
    return code if code in UNDEFINED_IN_1252 else ord(bytes([code]).decode("cp1252"))


def squares(bits):
    for bit in range(16):
        if bits >> bit & 1:
            x, y = LEFT + bit % 4 * PITCH, bit // 4 * PITCH
            yield (x, y), (x, y + CELL), (x + CELL, y + CELL), (x + CELL, y)


def left_bearing(bits):
    """It has to be the leftmost point, else a rasteriser moves the glyph there."""
    return min((corners[0][0] for corners in squares(bits)), default=0)


def draw(pen, bits):
    for corners in squares(bits):
        pen.moveTo(corners[0])
        for corner in corners[1:]:
            pen.lineTo(corner)
        pen.closePath()


def picture(number, code):
    return code | number << 8


def glyph_bits(number, codes, blank_space):
    """Glyph name -> cells. A blank is empty, as in any text font, unless every code is to show."""
    bits = {".notdef": picture(number, 0) | MISSING}
    for code in codes:
        bits[f"c{code:02X}"] = 0 if code == 32 and blank_space else picture(number, code)
    return bits


def true_type_glyphs(bits):
    """Each row of four cells is one glyph that the others are composed of: it keeps files small."""
    pens = {}
    for row in range(1, 16):
        pen = TTGlyphPen(None)
        draw(pen, row)
        pens[f"row{row:X}"] = pen
    for name, cells in bits.items():
        pen = TTGlyphPen({row: None for row in pens})
        for line in range(4):
            row = cells >> 4 * line & 15
            if row:
                pen.addComponent(f"row{row:X}", (1, 0, 0, 1, 0, line * PITCH))
        pens[name] = pen
    return {name: pen.glyph() for name, pen in pens.items()}


def postscript_glyphs(bits):
    result = {}
    for name, cells in bits.items():
        pen = T2CharStringPen(ADVANCE, None)
        draw(pen, cells)
        result[name] = pen.getCharString()
    return result


def symbol_cmap(names):
    """One format 4 subtable of platform 3, encoding 0 (Microsoft symbol)."""
    subtable = CmapSubtable.newSubtable(4)
    subtable.platformID, subtable.platEncID, subtable.language = 3, 0, 0
    subtable.cmap = {0xF000 + int(name[1:], 16): name for name in names if name[0] == "c"}
    table = newTable("cmap")
    table.tableVersion, table.tables = 0, [subtable]
    return table


def build(family, number, codes=ALL, style="Regular", symbol=False, cff=False, blank_space=True,
          character_of=to_unicode, japanese=None, typographic=None, weight=None, width=5):
    """`typographic`: family and style there, where they are others than the old ones."""
    bits = glyph_bits(number, codes, blank_space)
    glyphs = postscript_glyphs(bits) if cff else true_type_glyphs(bits)
    names = [".notdef"] + sorted(name for name in glyphs if name != ".notdef")
    bold, italic = "Bold" in style, "Italic" in style
    builder = FontBuilder(EM, isTTF=not cff)
    builder.setupGlyphOrder(names)
    builder.setupCharacterMap({character_of(int(n[1:], 16)): n for n in names if n[0] == "c"})
    post_script_name = "".join(c for c in family + "-" + style if c.isalnum() or c == "-")
    if cff:
        builder.setupCFF(post_script_name, {"FullName": family}, glyphs, {})
    else:
        builder.setupGlyf(glyphs)
    builder.setupHorizontalMetrics(
        {name: (ADVANCE, left_bearing(bits.get(name, 0))) for name in names})
    builder.setupHorizontalHeader(ascent=ASCENT, descent=-DESCENT)
    families = {"en": family, "ja": japanese} if japanese else family
    builder.setupNameTable({"familyName": families, "styleName": style,
                            "fullName": f"{family} {style}", "psName": post_script_name,
                            "uniqueFontIdentifier": f"{family} {style}", "version": "1.0"},
                           mac=False)
    for name_id, name in zip((16, 17), typographic or ()):
        builder.font["name"].setName(name, name_id, 3, 1, 0x409)
    builder.setupOS2(version=4, usWeightClass=weight or (700 if bold else 400), usWidthClass=width,
                     usWinAscent=ASCENT,
                     usWinDescent=DESCENT, sTypoAscender=ASCENT, sTypoDescender=-DESCENT,
                     sTypoLineGap=0, usFirstCharIndex=0xF020 if symbol else 0x20,
                     usLastCharIndex=0xF0FF if symbol else 0xFFFF,
                     ulCodePageRange1=1 << 31 if symbol else 1,
                     fsSelection=(32 if bold else 0) | (1 if italic else 0) or 64)
    builder.setupPost(keepGlyphNames=False, isFixedPitch=1)
    builder.updateHead(macStyle=(1 if bold else 0) | (2 if italic else 0), created=0, modified=0)
    builder.font.recalcTimestamp = False
    if symbol:
        builder.font["cmap"] = symbol_cmap(names)
    return builder


def save(builder, file_name):
    builder.font.save(HERE / file_name)


def save_collection(builders, file_name):
    """Both faces in one file. Each goes through a file in memory first, for it to be complete."""
    collection = TTCollection()
    for builder in builders:
        stream = io.BytesIO()
        builder.font.save(stream)
        collection.fonts.append(TTFont(stream, recalcTimestamp=False))
    collection.save(HERE / file_name)


def save_variable(file_name):
    """The light style is the font as it stands and gives it its old name. In the regular style the
    cell of its number in the fourth row is one to the right, which doubles the number, and in the
    bold one two."""
    builder = build("Zt Variable Light", 16, PLAIN, typographic=("Zt Variable", "Light"),
                    weight=300)
    builder.setupFvar([("wght", 300, 300, 700, "Weight")],
                      [{"location": {"wght": 300}, "stylename": "Light"},
                       {"location": {"wght": 400}, "stylename": "Regular"},
                       {"location": {"wght": 700}, "stylename": "Bold"}])
    # A composite glyph varies by the offsets of its components; four more points are its metrics.
    last = len(builder.font["glyf"]["c41"].components) - 1
    builder.setupGvar({"c41": [
        TupleVariation({"wght": peak}, [(PITCH * far if place == last else 0, 0)
                                        for place in range(last + 5)])
        for peak, far in (((0, 0.25, 1), 1), ((0.25, 1, 1), 2))]})
    save(builder, file_name)


def save_vast(file_name):
    """One glyph reaches 29 ems to the right."""
    builder = build("Zt Vast", 30, PLAIN)
    builder.font["glyf"]["c7E"].components[0].x = 30000
    save(builder, file_name)


def save_for_macintosh(file_name):
    """Old names for Windows, and for the Macintosh the names that it groups by."""
    builder = build("Zt Old Light", 28, PLAIN, weight=300)
    for name_id, name in ((1, "Zt Old"), (2, "Light")):
        builder.font["name"].setName(name, name_id, 1, 0, 0)
    save(builder, file_name)


def save_liar(file_name):
    """A symbol font whose character map says that it is longer than its table."""
    stream = io.BytesIO()
    build("Zt Liar", 12, symbol=True, blank_space=False).font.save(stream)
    data = bytearray(stream.getvalue())
    for entry in range(12, 12 + 16 * struct.unpack(">H", data[4:6])[0], 16):
        tag, _, offset, _ = struct.unpack(">4sLLL", data[entry:entry + 16])
        if tag == b"cmap":
            subtable = offset + struct.unpack(">L", data[offset + 8:offset + 12])[0]
            data[subtable + 2:subtable + 4] = b"\xff\xf0"
    (HERE / file_name).write_bytes(data)


def save_bitmap(family, number, codes, file_name):
    """16 pixels high, four pixels a cell; the format is Adobe's BDF 2.1."""
    lines = ["STARTFONT 2.1", f"FONT -zt-{family}-medium-r-normal--16-160-72-72-c-160-iso10646-1",
             "SIZE 16 72 72", "FONTBOUNDINGBOX 16 16 0 0", "STARTPROPERTIES 7",
             f'FAMILY_NAME "{family}"', 'WEIGHT_NAME "Medium"', 'SLANT "R"', "FONT_ASCENT 16",
             "FONT_DESCENT 0", 'CHARSET_REGISTRY "ISO10646"', 'CHARSET_ENCODING "1"',
             "ENDPROPERTIES", f"CHARS {len(codes)}"]
    for code in codes:
        lines += [f"STARTCHAR c{code:02X}", f"ENCODING {code}", "SWIDTH 1000 0", "DWIDTH 16 0",
                  "BBX 16 16 0 0", "BITMAP"]
        cells = picture(number, code)
        for line in (3, 2, 1, 0):
            row = sum(0b1110 << 12 - 4 * column for column in range(4)
                      if cells >> 4 * line + column & 1)
            lines += [f"{row:04X}"] * 3 + ["0000"]
        lines.append("ENDCHAR")
    (HERE / file_name).write_text("\n".join(lines + ["ENDFONT", ""]), encoding="ascii")


save(build("Zt Latin", 1), "latin.ttf")
save(build("Zt Gaps", 2, [c for c in ALL if c not in (ord("B"), 200)]), "gaps.ttf")
save(build("Zt Symbol", 3, symbol=True, blank_space=False), "symbol.ttf")
save(build("Zt Bold Only", 4, PLAIN, style="Bold"), "boldonly.ttf")
save(build("Zt Test 24", 5, PLAIN), "digits.ttf")
save(build("Zt Outline", 6, PLAIN, cff=True), "outline.otf")
save_bitmap("Zt Bitmap", 7, PLAIN, "bitmap.bdf")
save(build("Zt Mixed", 19, PLAIN, cff=True), "mixed.otf")
save_bitmap("Zt Mixed", 20, range(65, 71), "mixed.bdf")
for place, kind in enumerate(("Regular", "Bold", "Italic", "Bold Italic")):
    save(build("Zt Four", 8 + place, PLAIN, style=kind),
         "four-" + kind.lower().replace(" ", "") + ".ttf")
save_liar("liar.ttf")
save(build("Zt Italic Only", 13, PLAIN, style="Italic"), "italiconly.ttf")
save(build("Zt Maker [Foundry]", 14, PLAIN), "brackets.ttf")
save(build('Zt "One", Two', 15, PLAIN), "comma.ttf")
save_variable("variable.ttf")
save_collection([build("Zt First", 17, PLAIN), build("Zt Second", 18, PLAIN)], "pair.ttc")
save(build("Zt Cyrillic", 21, range(256), character_of=lambda code: 0x400 + code),
     "cyrillic.ttf")
save(build("Zt Twin", 22, PLAIN, japanese="Zt \u53cc\u5b50"), "twin.ttf")
save(build("Zt Wide", 23, PLAIN), "wide.ttf")
save(build("Zt Wide Condensed", 24, PLAIN, typographic=("Zt Wide", "Condensed"), width=3),
     "wide-condensed.ttf")
save(build("Zt Wide Condensed", 25, PLAIN, style="Bold",
           typographic=("Zt Wide", "Condensed Bold"), width=3), "wide-condensedbold.ttf")
save(build("Zt Wide Light", 26, PLAIN, typographic=("Zt Wide", "Light"), weight=300),
     "wide-light.ttf")
save(build("Zt Wide Light", 29, PLAIN, style="Bold", typographic=("Zt Wide", "Medium"),
           weight=500), "wide-lightbold.ttf")
save(build("Zt Wide", 27, PLAIN, style="Extra Light", weight=200), "wide-extralight.ttf")
save_vast("vast.ttf")
save_for_macintosh("macintosh.ttf")
whole = (HERE / "latin.ttf").read_bytes()
(HERE / "damaged.ttf").write_bytes(whole[:200])
