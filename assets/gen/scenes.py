"""Full-screen pictures: arena backgrounds, the menu picture and the icon."""
import math
import os
import random

import creatures
import pngio
import tools
from svgkit import INK, ellipse, circle, path, poly, group, document, text, f

W, H = 800, 600


def gradient(gid, stops, x1=0, y1=0, x2=0, y2=1):
    s = "".join('<stop offset="%s" stop-color="%s"/>' % (f(o), c) for o, c in stops)
    return '<linearGradient id="%s" x1="%s" y1="%s" x2="%s" y2="%s">%s</linearGradient>' % (gid, f(x1), f(y1), f(x2), f(y2), s)


def radial(gid, stops):
    s = "".join('<stop offset="%s" stop-color="%s" stop-opacity="%s"/>' % (f(o), c, f(a)) for o, c, a in stops)
    return '<radialGradient id="%s">%s</radialGradient>' % (gid, s)


def rect(x, y, w, h, fill, extra=""):
    return '<rect x="%s" y="%s" width="%s" height="%s" fill="%s"%s/>' % (f(x), f(y), f(w), f(h), fill, extra)


def bezier(p0, p1, p2, p3, t):
    u = 1 - t
    return tuple(u ** 3 * a + 3 * u * u * t * b + 3 * u * t * t * c + t ** 3 * d for a, b, c, d in zip(p0, p1, p2, p3))


def tentacle(points, r0, r1, colour, sucker, ink=INK, steps=60):
    """A tapering tube along a cubic curve, outlined, with a row of suckers."""
    beads = [bezier(*points, t=i / float(steps)) + (r0 + (r1 - r0) * i / float(steps),) for i in range(steps + 1)]
    out = "".join(circle(x, y, r + 2.5, ink, stroke=None) for x, y, r in beads)
    out += "".join(circle(x, y, r, colour, stroke=None) for x, y, r in beads)
    for i in range(4, steps, 5):
        x, y, r = beads[i]
        out += circle(x, y + r * 0.45, max(1.2, r * 0.28), sucker, stroke="#7a2a45", width=1)
    return out


def seaweed(x, y, height, sway, colour, rnd):
    d = "M%s %s" % (f(x), f(y))
    seg = 8
    for i in range(1, seg + 1):
        yy = y - height * i / seg
        xx = x + math.sin(i * 0.9 + sway) * 9 + rnd.uniform(-2, 2)
        d += " L%s %s" % (f(xx), f(yy))
    return path(d, "none", stroke=INK, width=10) + path(d, "none", stroke=colour, width=6)


def octopus_lair():
    rnd = random.Random(7)
    defs = gradient("water", [(0, "#1b7f9e"), (0.55, "#0f4f72"), (1, "#0b3553")])
    defs += gradient("sand", [(0, "#c9ad78"), (0.4, "#dcc38f"), (1, "#b99860")])
    defs += radial("glow", [(0, "#bff3ff", 0.35), (1, "#bff3ff", 0)])
    body = rect(0, 0, W, 360, "url(#water)")
    for x in (90, 260, 470, 640):   # light falling through the water
        body += poly([(x, 0), (x + 60, 0), (x + 150, 360), (x + 40, 360)], "#d8fbff", stroke=None).replace("/>", ' opacity="0.07"/>')
    body += ellipse(400, 40, 260, 90, "url(#glow)", stroke=None)
    # far rocks
    body += path("M0 300 Q60 230 130 260 Q190 200 250 250 L300 290 Q330 270 360 300 L440 300 Q480 262 530 285 "
                 "Q600 215 660 255 Q720 220 800 262 L800 360 L0 360 Z", "#16506a", stroke=None)
    # the octopus, half hidden behind the rocks
    head = ellipse(400, 175, 128, 108, "#a9476a")
    head += ellipse(370, 120, 60, 38, "#c56385", stroke=None)
    for sx, sy, r in ((330, 90, 9), (460, 110, 12), (420, 60, 7), (300, 160, 8), (495, 170, 10), (350, 230, 6)):
        head += circle(sx, sy, r, "#8d3757", stroke=None)
    eyes = ""
    for ex in (345, 455):
        eyes += ellipse(ex, 200, 34, 28, "#f3e6a0")
        eyes += ellipse(ex + 4, 204, 20, 6, INK, stroke=None)
        eyes += path("M%s 168 Q%s 156 %s 170" % (f(ex - 36), f(ex), f(ex + 36)), "none", width=4)
    arms = ""
    curls = [((320, 262), (200, 300), (90, 220), (40, 150)), ((290, 250), (180, 200), (120, 120), (170, 70)),
             ((480, 262), (600, 300), (700, 220), (760, 150)), ((510, 250), (620, 200), (680, 120), (630, 70)),
             ((360, 280), (300, 340), (200, 330), (150, 300)), ((440, 280), (500, 340), (600, 330), (650, 300))]
    for pts in curls:
        arms += tentacle(pts, 24, 6, "#a9476a", "#f0b3c4")
    body += arms + head + eyes
    body += rect(0, 0, W, 360, "#0f4f72", ' opacity="0.22"')   # water haze keeps the fighters in front
    # rocks and coral at the foot of the lair, in front of the arms
    body += path("M-10 340 Q20 280 70 290 Q110 270 150 300 Q170 320 160 345 Z", "#2d6b7a")
    body += path("M640 345 Q650 300 700 292 Q740 268 790 295 L810 345 Z", "#2d6b7a")
    body += path("M40 300 Q60 290 80 298", "none", stroke="#5aa0ad", width=3)
    body += path("M700 300 Q730 285 760 296", "none", stroke="#5aa0ad", width=3)
    for cx, cy, c in ((110, 300, "#e8715a"), (690, 300, "#f0a040")):
        body += path("M%s %s L%s %s M%s %s L%s %s M%s %s L%s %s M%s %s L%s %s" % (
            f(cx), f(cy), f(cx), f(cy - 34), f(cx), f(cy - 16), f(cx - 14), f(cy - 30), f(cx), f(cy - 22),
            f(cx + 13), f(cy - 36), f(cx - 14), f(cy - 30), f(cx - 18), f(cy - 42)), "none", stroke=INK, width=9)
        body += path("M%s %s L%s %s M%s %s L%s %s M%s %s L%s %s M%s %s L%s %s" % (
            f(cx), f(cy), f(cx), f(cy - 34), f(cx), f(cy - 16), f(cx - 14), f(cy - 30), f(cx), f(cy - 22),
            f(cx + 13), f(cy - 36), f(cx - 14), f(cy - 30), f(cx - 18), f(cy - 42)), "none", stroke=c, width=5)
    # the sea floor
    body += path("M0 330 Q120 312 240 326 Q400 340 560 322 Q680 310 800 328 L800 600 L0 600 Z", "url(#sand)", stroke=None)
    body += path("M0 330 Q120 312 240 326 Q400 340 560 322 Q680 310 800 328", "none", stroke="#8f7446", width=3)
    for i in range(14):   # ripples in the sand
        y = 360 + i * 17 + rnd.uniform(-4, 4)
        x = rnd.uniform(60, 640)
        wv = 60 + (y - 340) * 0.4
        body += path("M%s %s Q%s %s %s %s" % (f(x), f(y), f(x + wv / 2), f(y - 6), f(x + wv), f(y)), "none", stroke="#c2a470", width=2)
    for i in range(70):   # pebbles, smaller further away
        y = rnd.uniform(345, 595)
        s = 0.6 + (y - 340) / 260.0
        body += ellipse(rnd.uniform(0, W), y, rnd.uniform(2, 5) * s, rnd.uniform(1, 2.5) * s,
                        rnd.choice(["#a88a58", "#c4a877", "#8f7446", "#e2cfa2"]), stroke=None)
    for x, y in ((90, 560), (700, 520), (260, 580), (560, 575)):   # shells
        body += path("M%s %s Q%s %s %s %s Z" % (f(x - 10), f(y), f(x), f(y - 18), f(x + 10), f(y)), "#f2d2c0")
        for k in (-5, 0, 5):
            body += path("M%s %s L%s %s" % (f(x), f(y - 14), f(x + k), f(y)), "none", stroke="#c99a88", width=1.2)
    for x, h, c in ((18, 230, "#3f9a5a"), (44, 160, "#2f7d4a"), (770, 250, "#3f9a5a"), (742, 170, "#2f7d4a"),
                    (120, 90, "#4fb06a"), (690, 100, "#4fb06a")):
        body += seaweed(x, 600 if x in (18, 44, 770, 742) else 340, h, x * 0.1, c, rnd)
    for i in range(18):   # bubbles
        x, y, r = rnd.uniform(20, 780), rnd.uniform(20, 320), rnd.uniform(2, 6)
        body += circle(x, y, r, "none", stroke="#d8fbff", width=1.5).replace("/>", ' opacity="0.6"/>')
    body += rect(0, 585, W, 15, "#8f7446", ' opacity="0.35"')
    return document(W, H, body, defs)


def stage():
    """The fallback background: a plain wooden stage under a spotlight."""
    defs = gradient("wall", [(0, "#3a2347"), (1, "#1d1226")])
    defs += gradient("boards", [(0, "#8a5a34"), (1, "#5e3a1f")])
    defs += radial("spot", [(0, "#fff3c4", 0.45), (1, "#fff3c4", 0)])
    body = rect(0, 0, W, 300, "url(#wall)") + rect(0, 300, W, 300, "url(#boards)")
    for i in range(-8, 9):   # boards running towards the back
        body += path("M%s 300 L%s 600" % (f(400 + i * 40), f(400 + i * 95)), "none", stroke="#4a2c16", width=2)
    for y in (340, 392, 458, 540):
        body += path("M0 %d L800 %d" % (y, y), "none", stroke="#6e4526", width=1.5)
    body += path("M0 300 L800 300", "none", stroke=INK, width=4)
    for side in (0, 1):   # curtains
        x0 = 0 if side == 0 else 800
        k = 1 if side == 0 else -1
        d = "M%d 0 L%d 0 Q%d 150 %d 290 L%d 330 L%d 330 Z" % (x0, x0 + k * 130, x0 + k * 90, x0 + k * 60, x0 + k * 20, x0)
        body += path(d, "#a3242c")
        for j in range(1, 4):
            body += path("M%d 0 Q%d 160 %d 320" % (x0 + k * 30 * j, x0 + k * (22 * j), x0 + k * 15 * j), "none", stroke="#7a1820", width=3)
    body += path("M0 0 L800 0 L800 40 Q600 70 400 45 Q200 70 0 40 Z", "#a3242c")
    body += ellipse(400, 450, 330, 120, "url(#spot)", stroke=None)
    return document(W, H, body, defs)


def library():
    rnd = random.Random(11)
    defs = gradient("wallpaper", [(0, "#4a3226"), (1, "#2e1e16")])
    defs += gradient("parquet", [(0, "#9a6a3c"), (1, "#6b4423")])
    defs += radial("lamp", [(0, "#ffe9a8", 0.5), (1, "#ffe9a8", 0)])
    body = rect(0, 0, W, 370, "url(#wallpaper)")
    palette = ["#8e2f2f", "#2f5e8e", "#3f7a3a", "#c99a2e", "#6a3f8e", "#2e6f6f", "#a85a2a", "#d8d0b8"]
    for shelf_x, shelf_w in ((30, 250), (520, 250)):   # two bookcases
        body += rect(shelf_x - 10, 20, shelf_w + 20, 350, "#5a3620", ' stroke="%s" stroke-width="3"' % INK)
        for row in range(5):
            y = 40 + row * 64
            x = shelf_x
            while x < shelf_x + shelf_w - 8:
                bw, bh = rnd.randint(9, 17), rnd.randint(38, 54)
                tilt = rnd.random() < 0.08
                book = rect(x, y + 56 - bh, bw, bh, rnd.choice(palette), ' stroke="%s" stroke-width="1.5"' % INK)
                book += rect(x + 2, y + 62 - bh, bw - 4, 3, "#e8d9a8", ' opacity="0.7"')
                body += group(book, "rotate(8 %s %s)" % (f(x), f(y + 56))) if tilt else book
                x += bw + (4 if tilt else 0)
            body += rect(shelf_x - 10, y + 56, shelf_w + 20, 8, "#7a4b2a", ' stroke="%s" stroke-width="2"' % INK)
    # the window between the cases, with the moon
    body += rect(320, 50, 160, 200, "#1d2d5a", ' stroke="%s" stroke-width="4"' % INK)
    body += circle(430, 100, 22, "#f6f0c8", stroke=None)
    body += circle(438, 94, 18, "#1d2d5a", stroke=None)
    for sx, sy in ((350, 80), (370, 170), (455, 200), (400, 140)):
        body += circle(sx, sy, 1.6, "#f6f0c8", stroke=None)
    body += path("M400 50 L400 250 M320 150 L480 150", "none", stroke="#5a3620", width=6)
    # the sign that asks for silence
    body += rect(345, 268, 110, 34, "#e8d9a8", ' stroke="%s" stroke-width="3" rx="4"' % INK)
    body += text(400, 292, "CISZA", 20, "#8e2f2f", family="DejaVu Serif", anchor="middle")
    body += ellipse(400, 120, 300, 160, "url(#lamp)", stroke=None)
    # floor
    body += rect(0, 370, W, 230, "url(#parquet)")
    body += path("M0 370 L800 370", "none", stroke=INK, width=4)
    for y in range(385, 600, 22):
        body += path("M0 %d L800 %d" % (y, y), "none", stroke="#5a3a1e", width=1.5)
        off = (y // 22) % 2 * 30
        for x in range(off, 800, 60):
            body += path("M%d %d L%d %d" % (x, y, x, y + 22), "none", stroke="#5a3a1e", width=1)
    body += ellipse(400, 480, 300, 95, "#8e2f2f")
    body += ellipse(400, 480, 270, 80, "none", stroke="#c99a2e", width=3)
    body += ellipse(400, 480, 240, 68, "#9e3a36", stroke=None)
    return document(W, H, body, defs)


def menu_picture():
    """The first screen: the title, and fighters shouting at each other from
    the edges; the middle stays calm for the menu text."""
    defs = gradient("sky", [(0, "#2a1b4a"), (0.6, "#5a2f6a"), (1, "#c8604a")])
    defs += radial("halo", [(0, "#ffd27a", 0.55), (1, "#ffd27a", 0)])
    body = rect(0, 0, W, H, "url(#sky)")
    for i in range(24):   # rays behind the title
        a = i * math.pi / 12
        x1, y1 = 400 + math.cos(a) * 900, 95 + math.sin(a) * 900
        x2, y2 = 400 + math.cos(a + 0.12) * 900, 95 + math.sin(a + 0.12) * 900
        body += poly([(400, 95), (x1, y1), (x2, y2)], "#ffffff", stroke=None).replace("/>", ' opacity="0.04"/>')
    body += ellipse(400, 95, 330, 120, "url(#halo)", stroke=None)
    body += path("M0 520 Q200 480 400 505 Q600 530 800 490 L800 600 L0 600 Z", "#2b1733", stroke=None)
    # the title in a speech bubble
    bubble = path("M150 40 Q400 -5 650 40 Q700 95 650 150 Q400 180 300 152 L250 190 L262 146 Q150 140 150 95 Z", "#ffffff", width=5)
    body += bubble
    body += text(400, 128, "KORVANE", 84, "#d8383a", anchor="middle", extra=' stroke="%s" stroke-width="4" letter-spacing="4"' % INK)
    body += rect(210, 215, 380, 250, "#150c1c", ' opacity="0.55" rx="18"')
    left = group(creatures.FIGHTERS["default"].draw(creatures.Pose(mouth=1.0, arms="speak", swing=0.8, lean=4)),
                 "translate(110 575) scale(2.3)")
    right = group(creatures.FIGHTERS["ropuch"].draw(creatures.Pose(mouth=0.9, arms="speak", swing=0.5, lean=4)),
                  "translate(690 575) scale(-2.3 2.3)")
    small = group(creatures.FIGHTERS["sroka"].draw(creatures.Pose(mouth=0.8, arms="flail", swing=1, air=True, eyes="wide")),
                  "translate(700 330) scale(-1.5 1.5)")
    return document(W, H, body + small + left + right, defs)


def icon():
    body = path("M4 2 L28 2 Q30 2 30 4 L30 28 Q30 30 28 30 L4 30 Q2 30 2 28 L2 4 Q2 2 4 2 Z", "#7b5cd6", width=2)
    body += path("M7 8 Q16 3 25 8 Q28 14 25 19 Q18 22 13 20 L8 25 L10 19 Q5 15 7 8 Z", "#ffffff", width=1.5)
    body += path("M10 14 L13 10 L16 15 L19 10 L22 14", "none", stroke="#d8383a", width=2.2)
    return document(32, 32, body)


def write_xml_background(path_xml, image_name, w, h):
    with open(path_xml, "w") as fx:
        fx.write('<?xml version="1.0"?>\n<sprite>\n  <image relative="1">%s</image>\n'
                 '  <anim name="background">\n    <dir value="down" spd="0">\n'
                 '      <frame x="0" y="0" w="%d" h="%d" sx="0" sy="0" ax="0" ay="0"/>\n'
                 '    </dir>\n  </anim>\n</sprite>\n' % (image_name, w, h))


ARENAS = {"osmiornica": octopus_lair, "default": stage, "biblioteka": library}


def build(out_dir, work_dir):
    for name, painter in ARENAS.items():
        target = os.path.join(out_dir, "arena", name)
        os.makedirs(target, exist_ok=True)
        tools.render_svg(painter(), os.path.join(work_dir, "arena_%s.png" % name))
        os.replace(os.path.join(work_dir, "arena_%s.png" % name), os.path.join(target, "bg.png"))
        write_xml_background(os.path.join(target, "bg.xml"), "bg.png", W, H)
    menu_png = os.path.join(work_dir, "menu.png")
    tools.render_svg(menu_picture(), menu_png)
    tools.png_to_jpeg(menu_png, os.path.join(out_dir, "bg.jpg"))
    icon_png = os.path.join(work_dir, "icon.png")
    tools.render_svg(icon(), icon_png)
    pngio.write_bmp24(os.path.join(out_dir, "icon.bmp"), pngio.read(icon_png))
