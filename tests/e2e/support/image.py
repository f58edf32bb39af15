"""Pixels of the screenshots."""

from PIL import Image


def pixel(path, x, y):
    with Image.open(path) as picture:
        return picture.convert("RGB").getpixel((x, y))


def size(path):
    with Image.open(path) as picture:
        return picture.size


def colours(path):
    """How many different colours the picture has."""
    with Image.open(path) as picture:
        return len(picture.convert("RGB").getcolors(maxcolors=1 << 24))


def near(seen, wanted, tolerance=8):
    return all(abs(a - b) <= tolerance for a, b in zip(seen, wanted))
