"""The game's bitmap font: white DejaVu Sans Bold glyphs with a dark rim so
that labels stay readable over any picture. Animation n of the sprite is the
glyph of the byte n + 32; bytes above 127 are read as Windows-1252."""
import os

import pngio
import tools
from svgkit import document, text

SIZE = 15          # pixel size of the DejaVu face
CELL = 32          # rendering cell per glyph
PEN_X = 8          # where the pen starts in a cell
BASELINE = 22
SPACE_WIDTH = 5
SHEET_WIDTH = 512
RIM = (34, 24, 40)


def character(code):
    """The character shown for a byte; codes without one get a box."""
    if code == 127:
        return "\u25a1"
    try:
        ch = bytes([code]).decode("cp1252")
    except UnicodeDecodeError:
        return "\u25a1"
    return ch


def render_cells(work_dir):
    codes = list(range(33, 256))
    cols = 16
    rows = (len(codes) + cols - 1) // cols
    body = ""
    for i, code in enumerate(codes):
        x, y = (i % cols) * CELL + PEN_X, (i // cols) * CELL + BASELINE
        body += text(x, y, character(code), SIZE, "#ffffff", extra=' xml:space="preserve"')
    png = os.path.join(work_dir, "font_cells.png")
    tools.render_svg(document(cols * CELL, rows * CELL, body), png)
    return codes, cols, pngio.read(png)


def ink_bounds(img, x0, y0):
    xs, ys = [], []
    for y in range(y0, y0 + CELL):
        for x in range(x0, x0 + CELL):
            if img.alpha(x, y) > 24:
                xs.append(x)
                ys.append(y)
    if not xs:
        return None
    return min(xs), max(xs), min(ys), max(ys)


def with_rim(img, x0, y0, w, h):
    """Copies a glyph out of its cell, one pixel wider on every side, with a
    dark rim around the white strokes."""
    out = pngio.Image(w + 2, h + 2)
    for y in range(-1, h + 1):
        for x in range(-1, w + 1):
            def a(dx, dy):
                xx, yy = x + dx, y + dy
                if 0 <= xx < w and 0 <= yy < h:
                    return img.alpha(x0 + xx, y0 + yy)
                return 0
            core = a(0, 0)
            rim = max(a(dx, dy) for dx in (-1, 0, 1) for dy in (-1, 0, 1))
            if rim == 0:
                continue
            # white over the rim colour by the glyph's own coverage
            k = core / 255.0
            rgb = [round(255 * k + c * (1 - k)) for c in RIM]
            out.put(x + 1, y + 1, rgb + [max(core, min(255, rim * 2 // 1 if rim < 128 else 255))])
    return out


def build(out_dir, work_dir):
    codes, cols, cells = render_cells(work_dir)
    bounds = {}
    top, bottom = CELL, 0
    for i, code in enumerate(codes):
        b = ink_bounds(cells, (i % cols) * CELL, (i // cols) * CELL)
        bounds[code] = b
        if b:
            top = min(top, b[2] - (i // cols) * CELL)
            bottom = max(bottom, b[3] - (i // cols) * CELL)
    # All glyphs share one band of rows, so that they stand on one baseline.
    band_top, band_h = top, bottom - top + 1
    glyphs = [(32, pngio.Image(SPACE_WIDTH, band_h + 2))]
    for i, code in enumerate(codes):
        cx, cy = (i % cols) * CELL, (i // cols) * CELL
        b = bounds[code]
        if b is None:
            glyphs.append((code, pngio.Image(SPACE_WIDTH, band_h + 2)))
            continue
        x0, w = b[0], b[1] - b[0] + 1
        glyphs.append((code, with_rim(cells, x0, cy + band_top, w, band_h)))
    # Shelf packing into one image.
    placed, x, y, line_h = [], 0, 0, band_h + 2
    for code, g in glyphs:
        if x + g.width > SHEET_WIDTH:
            x, y = 0, y + line_h
        placed.append((code, g, x, y))
        x += g.width
    sheet = pngio.Image(SHEET_WIDTH, y + line_h)
    anims = []
    for code, g, gx, gy in placed:
        sheet.blit(g, 0, 0, g.width, g.height, gx, gy)
        anims.append('  <anim><dir spd="0"><frame x="%d" y="%d" w="%d" h="%d" sx="0" sy="0" ax="0" ay="0"/></dir></anim>'
                     % (gx, gy, g.width, g.height))
    target = os.path.join(out_dir, "font")
    os.makedirs(target, exist_ok=True)
    pngio.write(os.path.join(target, "font_02.png"), sheet)
    with open(os.path.join(target, "font_02.xml"), "w") as fx:
        fx.write('<?xml version="1.0"?>\n<!-- glyph of byte n + 32 is animation n -->\n<sprite>\n'
                 '  <image relative="1">font_02.png</image>\n%s\n</sprite>\n' % "\n".join(anims))
