#!/usr/bin/env python3
"""Draws every picture of the demo project.

    draw.py OUTDIR             fine pictures for the panel
    draw.py OUTDIR --quick     the same files with coarser edges, for tests

Always the same pictures: nothing depends on time or chance. Needs Pillow (python3-pil) and the fonts of fonts-dejavu-core."""

import argparse
import sys
from pathlib import Path

import backgrounds
import icons
import metafile
import scenes
from kit import with_palette

RESOLUTIONS = (1280, 1024, 800)

# Picture areas of a servo and of a footer key at each resolution, whole pixels inside the scaled design area.
SERVO_SIZE = {1280: (487, 146), 1024: (389, 109), 800: (304, 85)}
ICON_SIZE = {1280: (96, 64), 1024: (77, 48), 800: (60, 37)}

BACKGROUNDS = {"ServoMenu": backgrounds.menu, "ServoMain": backgrounds.page, "ServoDiag": backgrounds.diagnosis}


def save_icon(canvas, size, path):
    picture = with_palette(canvas.finished(*size))
    picture.save(path, transparency=255, optimize=False)


def draw_servos(out, scale):
    for key in scenes.SCENES:
        machine, servo, variant = key
        name = f"{machine}_{servo}" + (f"_{variant}" if variant > 1 else "")
        canvas = scenes.draw_scene(key, scale)
        for resolution in RESOLUTIONS:
            width, height = SERVO_SIZE[resolution]
            with_palette(canvas.finished(width, height)).save(out / f"Servo/Servo_{name}_{resolution}.gif", optimize=False)
            if key in scenes.FINE:
                fine = with_palette(canvas.finished(2 * width, 2 * height))
                fine.save(out / f"Servo/Servo_S_{name}_{resolution}.gif", optimize=False)


def draw_icons(out, scale):
    for stem, drawing in icons.SIZED.items():
        canvas = icons.draw_icon(drawing, scale)
        for resolution in RESOLUTIONS:
            save_icon(canvas, ICON_SIZE[resolution], out / f"{stem}_{resolution}.gif")
    for stem, drawing in icons.SINGLE.items():
        save_icon(icons.draw_icon(drawing, scale), ICON_SIZE[1280], out / f"{stem}.gif")


def draw_backgrounds(out):
    for resolution in RESOLUTIONS:
        for stem, drawing in BACKGROUNDS.items():
            backgrounds.exact_palette(drawing(resolution)).save(out / f"Servo/{stem}_{resolution}.bmp")


def main():
    parser = argparse.ArgumentParser(description="Draws the pictures of the demo project.")
    parser.add_argument("outdir", type=Path)
    parser.add_argument("--quick", action="store_true", help="coarser edges")
    options = parser.parse_args()
    for folder in ("Servo", "Standard"):
        (options.outdir / folder).mkdir(parents=True, exist_ok=True)
    draw_servos(options.outdir, 2 if options.quick else 4)
    draw_icons(options.outdir, 2 if options.quick else 6)
    draw_backgrounds(options.outdir)
    metafile.check_mark(options.outdir / "Standard/OK.wmf")
    metafile.cross_mark(options.outdir / "Standard/ESC.wmf")
    return 0


if __name__ == "__main__":
    sys.exit(main())
