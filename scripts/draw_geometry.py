#!/usr/bin/env python3
"""Draws docs/geometry.svg: the turning senses, the faces of a box, the layout of a grid.

Usage: scripts/draw_geometry.py
"""
import math
import pathlib

TARGET = pathlib.Path(__file__).resolve().parent.parent / "docs" / "geometry.svg"
BLUE, RED, GREEN, GREY = "#1f5fa8", "#c0392b", "#1e8449", "#8a929a"
out = []


def line(x1, y1, x2, y2, colour="black", extra=""):
    out.append(f'<line x1="{x1:.1f}" y1="{y1:.1f}" x2="{x2:.1f}" y2="{y2:.1f}" stroke="{colour}" {extra}/>')


def arrow(x1, y1, x2, y2, colour="black", width=2):
    line(x1, y1, x2, y2, colour, f'stroke-width="{width}" marker-end="url(#tip-{colour.lstrip("#")})"')


def text(x, y, words, colour="black", anchor="middle", size=14, extra=""):
    out.append(f'<text x="{x:.1f}" y="{y:.1f}" fill="{colour}" text-anchor="{anchor}" font-size="{size}" {extra}>'
               f'{words}</text>')


def code(x, y, words, colour="black", anchor="middle", size=13):
    text(x, y, words, colour, anchor, size, 'font-family="monospace"')


def polygon(points, fill, stroke="black", extra=""):
    places = " ".join(f"{x:.1f},{y:.1f}" for x, y in points)
    out.append(f'<polygon points="{places}" fill="{fill}" stroke="{stroke}" {extra}/>')


def turning(cx, cy, title, subtitle, degrees, colour, result):
    """The unit vector along x turned by a positive angle about z, which points at the reader."""
    radius = 105
    text(cx, cy - 185, title, colour, size=16, extra='font-weight="bold"')
    code(cx, cy - 163, subtitle)
    line(cx - 130, cy, cx + 130, cy, GREY)
    line(cx, cy + 130, cx, cy - 130, GREY)
    text(cx + 140, cy + 5, "x", GREY)
    text(cx, cy - 133, "y", GREY)
    out.append(f'<circle cx="{cx}" cy="{cy}" r="7" fill="white" stroke="{GREY}"/>'
               f'<circle cx="{cx}" cy="{cy}" r="2" fill="{GREY}"/>')
    text(cx - 14, cy + 22, "z, towards you", GREY, "end", 12)
    arrow(cx, cy, cx + radius, cy, GREY)
    angle = math.radians(degrees)
    end = (cx + radius * math.cos(angle), cy - radius * math.sin(angle))
    arrow(cx, cy, *end, colour, 3)
    inner = 52
    sweep = 0 if degrees > 0 else 1
    stop = math.radians(degrees * 0.93)
    out.append(f'<path d="M {cx + inner} {cy} A {inner} {inner} 0 0 {sweep} {cx + inner * math.cos(stop):.1f} '
               f'{cy - inner * math.sin(stop):.1f}" fill="none" stroke="{colour}" stroke-width="1.5" '
               f'marker-end="url(#tip-{colour.lstrip("#")})"/>')
    half = math.radians(degrees / 2)
    text(cx + 74 * math.cos(half), cy - 74 * math.sin(half) + 5, "90°", colour)
    code(cx + radius - 4, cy + (22 if degrees > 0 else -12), "(1, 0, 0)", GREY, size=12)
    code(end[0] + 10, end[1] + (14 if degrees > 0 else -4), result, colour, "start", 12)


def box(left, top):
    """The six faces in the order in which getIntersections looks at them; y points into the picture."""
    text(left + 190, top - 22, "Faces of a box, in the order of getIntersections", size=16, extra='font-weight="bold"')

    def at(x, y, z):  # x to the right, z up, y to the back
        return left + 40 + 200 * x + 95 * y, top + 265 - 170 * z - 75 * y

    lo, hi = 0, 1
    polygon([at(lo, hi, lo), at(hi, hi, lo), at(hi, hi, hi), at(lo, hi, hi)], "none", GREY, 'stroke-dasharray="5 4"')
    line(*at(lo, lo, lo), *at(lo, hi, lo), GREY, 'stroke-dasharray="5 4"')
    polygon([at(lo, lo, lo), at(hi, lo, lo), at(hi, lo, hi), at(lo, lo, hi)], "#1f5fa818")
    polygon([at(hi, lo, lo), at(hi, hi, lo), at(hi, hi, hi), at(hi, lo, hi)], "#c0392b18")
    polygon([at(lo, lo, hi), at(hi, lo, hi), at(hi, hi, hi), at(lo, hi, hi)], "#1e844918")

    def name(number, words, place, colour, target=None):
        x, y = place
        if target is not None:  # a hidden face
            line(x, y, *target, colour, 'stroke-width="1.2" stroke-dasharray="3 3"')
            out.append(f'<circle cx="{target[0]:.1f}" cy="{target[1]:.1f}" r="3.5" fill="white" stroke="{colour}"/>')
        out.append(f'<circle cx="{x:.1f}" cy="{y:.1f}" r="11" fill="white" stroke="{colour}" stroke-width="1.5"/>')
        text(x, y + 5, str(number), colour, extra='font-weight="bold"')
        text(x, y + 26, words, colour, size=12)

    x, y = at(lo, 0.5, 0.5)
    name(1, "x low (left)", (x - 88, y), RED, (x, y))
    name(2, "x high (right)", (at(hi, 0.5, 0.5)[0], at(hi, 0.5, 0.5)[1] - 8), RED)
    name(3, "z high (top)", (at(0.5, 0.5, hi)[0], at(0.5, 0.5, hi)[1] - 8), GREEN)
    x, y = at(0.72, 0.5, lo)
    name(4, "z low (bottom)", (x - 20, y + 85), GREEN, (x, y))
    name(5, "y low (front)", at(0.5, 0, 0.42), BLUE)
    x, y = at(0.8, hi, 0.6)
    name(6, "y high (back)", (x + 100, y - 20), BLUE, (x, y))
    ox, oy = left - 20, top + 330
    arrow(ox, oy, ox + 45, oy, GREY)
    arrow(ox, oy, ox, oy - 45, GREY)
    arrow(ox, oy, ox + 28, oy - 22, GREY)
    text(ox + 56, oy + 5, "x", GREY)
    text(ox, oy - 52, "z", GREY)
    text(ox + 38, oy - 24, "y", GREY)
    text(left + 190, top + 395, "Dashed: hidden faces. A third hit ends the search;", size=13)
    text(left + 190, top + 413, "if it differs from p1, it becomes p2.", size=13)


def grid(left, top):
    """The cells of a 4 x 4 grid."""
    text(left + 180, top - 22, "Layout of CLinearInterpolation2D (4 rows, 4 columns)", size=16,
         extra='font-weight="bold"')
    width, height = 84, 50
    for row in range(4):
        for column in range(4):
            x, y = left + 40 + column * width, top + 30 + row * height
            if row == 0 and column == 0:
                fill, words, colour = "#eceff1", "not used", GREY
            elif row == 0:
                fill, words, colour = "#1f5fa822", f"y{column}", BLUE
            elif column == 0:
                fill, words, colour = "#c0392b22", f"x{row}", RED
            else:
                fill, words, colour = "white", f"z(x{row}, y{column})", "black"
            out.append(f'<rect x="{x}" y="{y}" width="{width}" height="{height}" fill="{fill}" stroke="black"/>')
            text(x + width / 2, y + height / 2 + 5, words, colour, size=12 if row == column == 0 else 13)
        text(left + 26, top + 60 + row * height, str(row), GREY, "end")
        text(left + 40 + (row + 0.5) * width, top + 20, str(row), GREY)
    text(left + 208, top + 2, "column", GREY, size=12)
    text(left + 8, top + 136, "row", GREY, size=12, extra=f'transform="rotate(-90 {left + 8} {top + 136})"')
    text(left + 208, top + 258, "x runs down the rows, y along the columns;", size=13)
    text(left + 208, top + 276, "a value in memory stands at data[row * cols + column].", size=13)


out.append('<svg xmlns="http://www.w3.org/2000/svg" width="1060" height="880" font-family="sans-serif">')
out.append('<defs>')
for tip in ("black", BLUE, RED, GREEN, GREY):
    out.append(f'<marker id="tip-{tip.lstrip("#")}" markerWidth="9" markerHeight="9" refX="7" refY="4" orient="auto" '
               f'markerUnits="userSpaceOnUse" viewBox="0 0 8 8"><path d="M0 0 L8 4 L0 8 z" fill="{tip}"/></marker>')
out.append('</defs><rect width="100%" height="100%" fill="white"/>')
turning(255, 215, "orvBaseVector3d::rotate turns right-handed", "v.rotate(kZAxis, pi / 2)", 90, BLUE, "(0, 1, 0)")
turning(790, 215, "getRotationMatrix turns the other way", "getRotationMatrix(pi / 2, kZAxis) * v", -90, RED,
        "(0, -1, 0)")
box(85, 440)
grid(615, 490)
out.append('</svg>')
TARGET.parent.mkdir(exist_ok=True)
TARGET.write_text("\n".join(out) + "\n", encoding="utf-8")
