"""Sprite sheets and XML sprite files of the fighters: body, shadow, bubble."""
import math
import os
import random

import creatures
import tools
from svgkit import ellipse, path, group, document, text, f

CELL = 96          # one frame of a body
COLUMNS = 8
FEET = (48, 90)    # where the feet stand in a cell: the frame's sx, sy
DIRS = (("right", 1), ("left", -1))


def xml_frame(x, y, w, h, sx, sy, ax=0, ay=0):
    return '<frame x="%d" y="%d" w="%d" h="%d" sx="%d" sy="%d" ax="%d" ay="%d"/>' % (
        x, y, w, h, sx, sy, ax, ay)


def body_sheet(rig):
    """Lays every frame of every animation in both directions into cells, left
    to right and top to bottom, and returns the SVG and the XML animations."""
    cells, anims = [], []
    for name, spd, poses in creatures.animations():
        dirs = []
        for dir_name, sign in DIRS:
            frames = []
            for pose in poses:
                index = len(cells)
                cx, cy = (index % COLUMNS) * CELL, (index // COLUMNS) * CELL
                drawing = rig.draw(pose)
                cells.append(group(drawing, "translate(%d %d) scale(%d 1)" % (cx + FEET[0], cy + FEET[1], sign)))
                mx, my = rig.mouth_point(pose)
                frames.append(xml_frame(cx, cy, CELL, CELL, FEET[0], FEET[1], round(mx * sign), round(my)))
            dirs.append('    <dir value="%s" spd="%s">\n      %s\n    </dir>' % (dir_name, f(spd), "\n      ".join(frames)))
        anims.append('  <anim name="%s">\n%s\n  </anim>' % (name, "\n".join(dirs)))
    rows = (len(cells) + COLUMNS - 1) // COLUMNS
    svg = document(COLUMNS * CELL, rows * CELL, "".join(cells))
    return svg, anims


def sprite_xml(image, anims):
    return '<?xml version="1.0"?>\n<sprite>\n  <image relative="1">%s</image>\n%s\n</sprite>\n' % (image, "\n".join(anims))


def shadow(width):
    w, h = width + 8, 16
    svg = document(w, h, ellipse(w / 2, h / 2, width / 2, 5.5, "#000000", stroke=None, extra=' opacity="0.35"'))
    anim = '  <anim name="shadow">\n    <dir value="down" spd="0">\n      %s\n    </dir>\n  </anim>' % xml_frame(
        0, 0, w, h, w // 2, h // 2)
    return svg, [anim]


# --- speech bubbles -------------------------------------------------------

def bubble_outline(w, h):
    """A cloud of bumps with a tail whose tip is the bottom centre."""
    cx, cy, rx, ry = w / 2, (h - 12) / 2 + 1, w / 2 - 7, (h - 12) / 2 - 5
    bumps = 11
    d = ""
    for i in range(bumps + 1):
        a = 2 * math.pi * i / bumps + 0.3
        x, y = cx + rx * math.cos(a), cy + ry * math.sin(a)
        if i == 0:
            d = "M%s %s" % (f(x), f(y))
        else:
            am = 2 * math.pi * (i - 0.5) / bumps + 0.3
            qx, qy = cx + rx * 1.22 * math.cos(am), cy + ry * 1.3 * math.sin(am)
            d += " Q%s %s %s %s" % (f(qx), f(qy), f(x), f(y))
    cloud = path(d + " Z", "#ffffff")
    tail = path("M%s %s L%s %s L%s %s" % (f(cx - 7), f(cy + ry - 1), f(cx), f(h - 1), f(cx + 4), f(cy + ry - 1)), "#ffffff")
    cover = ellipse(cx - 1.5, cy + ry - 3, 6, 3, "#ffffff", stroke=None)
    return cloud + tail + cover


def scribble(kind, w, h, accent, rnd):
    """One of the scribbles that stand for a word; rnd jitters it per frame."""
    cx, cy = w / 2, (h - 12) / 2 + 1
    j = lambda s=1.2: rnd.uniform(-s, s)
    if kind == "zigzag":
        pts = [(cx - 16 + i * 5.3 + j(), cy + (6 if i % 2 else -6) + j()) for i in range(7)]
        return path("M" + " L".join("%s %s" % (f(x), f(y)) for x, y in pts), "none", stroke=accent, width=3)
    if kind == "spiral":
        d = ""
        for i in range(40):
            a = i * 0.45
            r = (1 + i * 0.33) * w / 72.0
            x, y = cx + r * math.cos(a) * 1.4 + j(0.4), cy + r * math.sin(a) + j(0.4)
            d += ("M" if i == 0 else " L") + "%s %s" % (f(x), f(y))
        return path(d, "none", stroke=accent, width=2.5)
    if kind == "grawlix":
        return text(cx + j(), cy + 5 + j(), "#@$%!", w * 0.19, accent, anchor="middle",
                    extra=' transform="rotate(%s %s %s)"' % (f(j(4)), f(cx), f(cy)))
    if kind == "notes":
        return text(cx + j(), cy + 7 + j(), "\u266a\u266b\u266a", w * 0.22, accent, anchor="middle")
    if kind == "bang":
        return text(cx + j(), cy + 7 + j(), "!?!", w * 0.25, accent, anchor="middle")
    # wave: a trembling sine line
    d = ""
    span = w * 0.5
    for i in range(25):
        x = cx - span / 2 + span * i / 24
        y = cy + math.sin(i * 0.8 + rnd.uniform(0, 0.6)) * 5
        d += ("M" if i == 0 else " L") + "%s %s" % (f(x), f(y))
    return path(d, "none", stroke=accent, width=3)


BUBBLE_KINDS = ("zigzag", "spiral", "grawlix", "notes", "bang", "wave")


def bubbles(accent, w, h, seed):
    rnd = random.Random(seed)
    frames_per_kind = 3
    cells, anims = [], []
    for k, kind in enumerate(BUBBLE_KINDS):
        frames = []
        for i in range(frames_per_kind):
            x, y = i * w, k * h
            cells.append(group(bubble_outline(w, h) + scribble(kind, w, h, accent, rnd), "translate(%d %d)" % (x, y)))
            frames.append(xml_frame(x, y, w, h, w // 2, h - 1))
        anims.append('  <anim name="%s">\n    <dir value="down" spd="8">\n      %s\n    </dir>\n  </anim>' % (
            kind, "\n      ".join(frames)))
    svg = document(frames_per_kind * w, len(BUBBLE_KINDS) * h, "".join(cells))
    return svg, anims


BUBBLE_STYLE = {
    "default": ("#d8383a", 72, 52, 11),
    "sroka": ("#2f8f9f", 60, 44, 12),
    "ropuch": ("#3f8a24", 88, 62, 13),
}
SHADOW_WIDTH = {"default": 48, "sroka": 36, "ropuch": 70}


def build(out_dir, work_dir, only=None):
    for name, rig in creatures.FIGHTERS.items():
        if only and name not in only:
            continue
        target = os.path.join(out_dir, "character", name)
        os.makedirs(target, exist_ok=True)
        parts = [("character", body_sheet(rig)), ("shadow", shadow(SHADOW_WIDTH[name])),
                 ("speech", bubbles(*BUBBLE_STYLE[name]))]
        for part, (svg, anims) in parts:
            tools.render_svg(svg, os.path.join(work_dir, "%s_%s.png" % (name, part)))
            os.replace(os.path.join(work_dir, "%s_%s.png" % (name, part)), os.path.join(target, part + ".png"))
            with open(os.path.join(target, part + ".xml"), "w") as fx:
                fx.write(sprite_xml(part + ".png", anims))
