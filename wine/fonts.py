"""Fonts for a Wine prefix: copies of the Liberation fonts under the names of Windows' own families.

Chromium asks for these families and ends a process that finds none of them: Tahoma is what Wine's
message font stands for, the others are the defaults of pages and of Chromium's own windows. Wine's
DirectWrite finds fonts only where they are in its registry, so each copy comes with an entry. The
copies are made where they are used, and neither kept in the repository nor shipped.
"""

import pathlib

SOURCES = pathlib.Path("/usr/share/fonts/truetype/liberation")

# The family, the first part of its files' names, and what it is made from, which has the same
# metrics for the first three.
FAMILIES = (
    ("Arial", "arial", "LiberationSans"),
    ("Times New Roman", "times", "LiberationSerif"),
    ("Courier New", "cour", "LiberationMono"),
    ("Microsoft Sans Serif", "micross", "LiberationSans"),
    ("Segoe UI", "segoeui", "LiberationSans"),
    ("Tahoma", "tahoma", "LiberationSans"),
)
# The style in the source's file name, in the copy's file name and in the font's full name.
STYLES = (
    ("Regular", "", ""),
    ("Bold", "bd", " Bold"),
    ("Italic", "i", " Italic"),
    ("BoldItalic", "bi", " Bold Italic"),
)
# Identifiers of OpenType's name table.
FAMILY, UNIQUE, FULL, POSTSCRIPT = 1, 3, 4, 6
# Names that would be preferred to the family: typographic and WWS family and style.
PREFERRED = (16, 17, 21, 22)


def rename(font, family, style):
    full = family + style
    names = {FAMILY: family, UNIQUE: full + " (copy)", FULL: full,
             POSTSCRIPT: full.replace(" ", "")}
    table = font["name"]
    for name_id in PREFERRED:
        table.removeNames(nameID=name_id)
    for record in table.names:
        record.string = names.get(record.nameID, record.toUnicode())


def make(folder):
    """Makes the fonts in a folder and returns their registry entries, file names by full names."""
    from fontTools.ttLib import TTFont

    entries = {}
    for family, stem, source in FAMILIES:
        for source_style, suffix, style in STYLES:
            font = TTFont(SOURCES / f"{source}-{source_style}.ttf", lazy=True)
            rename(font, family, style)
            name = f"{stem}{suffix}.ttf"
            font.save(folder / name)
            entries[f"{family}{style} (TrueType)"] = name
    return entries
