#!/usr/bin/env python3
"""Writes the RGB <-> HSV reference tables that ColourData_test.cpp checks
against, computed with Python's colorsys so that they do not share code with
the library. Run by hand from this folder; the tables are committed.

rgb_to_hsv.csv: r,g,b,h,s,v   hsv_to_rgb.csv: h,s,v,r,g,b
Channels and saturation/value are 0..1, hue is in degrees. Every number is
written with repr(), which reads back as the same double.
"""
import colorsys
import csv
import random


def grid(steps):
    return [i / steps for i in range(steps + 1)]


def write(path, header, rows):
    with open(path, "w", newline="") as out:
        writer = csv.writer(out, lineterminator="\n")
        writer.writerow(header)
        for row in rows:
            writer.writerow([repr(x) for x in row])


def main():
    rng = random.Random(20240611)

    # An 11-step cube holds the greys, primaries and tied channels; random
    # colours fill in between.
    rgb = [(r, g, b) for r in grid(10) for g in grid(10) for b in grid(10)]
    rgb += [(rng.random(), rng.random(), rng.random()) for _ in range(1000)]
    write("rgb_to_hsv.csv", ["r", "g", "b", "h", "s", "v"],
          [(r, g, b, h * 360.0, s, v) for (r, g, b) in rgb for (h, s, v) in [colorsys.rgb_to_hsv(r, g, b)]])

    # Hues from 0 to 705 in steps of 15: every sextant boundary and between,
    # and a second turn to check wrapping (colorsys wraps hues past 360, not
    # negative ones).
    hsv = [(h, s, v) for h in [i * 15.0 for i in range(48)] for s in grid(5) for v in grid(5)]
    hsv += [(rng.uniform(0.0, 720.0), rng.random(), rng.random()) for _ in range(500)]
    write("hsv_to_rgb.csv", ["h", "s", "v", "r", "g", "b"],
          [(h, s, v) + colorsys.hsv_to_rgb(h / 360.0, s, v) for (h, s, v) in hsv])


if __name__ == "__main__":
    main()
