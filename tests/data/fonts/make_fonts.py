#!/usr/bin/python3
"""Makes the fonts of this folder: families that no machine has, each with one square for every letter.

Usage: make_fonts.py [folder]   (needs python3-fonttools)
"""

import pathlib
import sys

from fontTools.fontBuilder import FontBuilder
from fontTools.pens.ttGlyphPen import TTGlyphPen

# File name, family, style, OS/2 weight class, vendor.
FONTS = [
    ("QuibbleFeather", "Quibble Feather", "Light", 300, "QUIB"),
    ("QuibbleBrick", "Quibble Brick", "Bold", 700, "QUIB"),
    ("QuibbleRangeThin", "Quibble Range", "Thin", 100, "QUIB"),
    ("QuibbleRangeLight", "Quibble Range", "Light", 300, "QUIB"),
    ("QuibbleRangeMedium", "Quibble Range", "Medium", 500, "QUIB"),
    ("QuibbleRangeBold", "Quibble Range", "Bold", 700, "QUIB"),
    ("QuibbleTwinOne", "Quibble Twin", "Regular", 400, "ONE "),
    ("QuibbleTwinTwo", "Quibble Twin", "Regular", 400, "TWO "),
]


def square():
    pen = TTGlyphPen(None)
    pen.moveTo((100, 0))
    for point in ((100, 700), (500, 700), (500, 0)):
        pen.lineTo(point)
    pen.closePath()
    return pen.glyph()


def make_font(path, family, style, weight, vendor):
    builder = FontBuilder(1000, isTTF=True)
    builder.setupGlyphOrder([".notdef", "square"])
    letters = list(range(ord("A"), ord("Z") + 1)) + list(range(ord("a"), ord("z") + 1))
    builder.setupCharacterMap({letter: "square" for letter in letters})
    builder.setupGlyf({".notdef": square(), "square": square()})
    builder.setupHorizontalMetrics({".notdef": (600, 100), "square": (600, 100)})
    builder.setupHorizontalHeader(ascent=800, descent=-200)
    builder.setupNameTable({"familyName": family, "styleName": style,
                            "typographicFamily": family, "typographicSubfamily": style})
    builder.setupOS2(usWeightClass=weight, achVendID=vendor, sTypoAscender=800, usWinAscent=800, usWinDescent=200)
    builder.setupPost()
    # The same bytes on every day.
    builder.updateHead(created=0, modified=0)
    builder.font.recalcTimestamp = False
    builder.save(path)


def main():
    folder = pathlib.Path(sys.argv[1] if len(sys.argv) > 1 else pathlib.Path(__file__).parent)
    for name, *properties in FONTS:
        make_font(folder / (name + ".ttf"), *properties)


if __name__ == "__main__":
    main()
