"""Small SVG building blocks shared by every picture: one outline colour and
one stroke width give the whole game its inked cartoon look."""

INK = "#2a1b2f"
LINE = 2.5


def f(v):
    """Numbers with at most two decimals keep the generated SVG stable."""
    s = "%.2f" % v
    s = s.rstrip("0").rstrip(".")
    return "0" if s in ("-0", "") else s


def ellipse(cx, cy, rx, ry, fill, stroke=INK, width=LINE, extra=""):
    s = '<ellipse cx="%s" cy="%s" rx="%s" ry="%s" fill="%s"' % (f(cx), f(cy), f(rx), f(ry), fill)
    if stroke:
        s += ' stroke="%s" stroke-width="%s"' % (stroke, f(width))
    return s + extra + "/>"


def circle(cx, cy, r, fill, stroke=INK, width=LINE):
    return ellipse(cx, cy, r, r, fill, stroke, width)


def path(d, fill, stroke=INK, width=LINE, extra=""):
    s = '<path d="%s" fill="%s"' % (d, fill)
    if stroke:
        s += ' stroke="%s" stroke-width="%s" stroke-linejoin="round" stroke-linecap="round"' % (stroke, f(width))
    return s + extra + "/>"


def poly(points, fill, stroke=INK, width=LINE):
    d = "M" + " L".join("%s %s" % (f(x), f(y)) for x, y in points) + " Z"
    return path(d, fill, stroke, width)


def limb(points, colour, thickness, ink=INK):
    """A rounded limb through the points: an inked stroke under a coloured one."""
    d = "M" + " L".join("%s %s" % (f(x), f(y)) for x, y in points)
    if len(points) == 3:
        (x0, y0), (x1, y1), (x2, y2) = points
        d = "M%s %s Q%s %s %s %s" % (f(x0), f(y0), f(x1), f(y1), f(x2), f(y2))
    out = '<path d="%s" fill="none" stroke="%s" stroke-width="%s" stroke-linecap="round" stroke-linejoin="round"/>' % (
        d, ink, f(thickness + 2 * LINE))
    out += '<path d="%s" fill="none" stroke="%s" stroke-width="%s" stroke-linecap="round" stroke-linejoin="round"/>' % (
        d, colour, f(thickness))
    return out


def group(content, transform=None, opacity=None):
    attrs = ""
    if transform:
        attrs += ' transform="%s"' % transform
    if opacity is not None:
        attrs += ' opacity="%s"' % f(opacity)
    return "<g%s>%s</g>" % (attrs, content)


def document(width, height, body, defs=""):
    return ('<svg xmlns="http://www.w3.org/2000/svg" width="%d" height="%d" viewBox="0 0 %d %d">'
            '<defs>%s</defs>%s</svg>\n') % (width, height, width, height, defs, body)


def text(x, y, s, size, fill, family="DejaVu Sans", weight="bold", anchor="start", extra=""):
    s = s.replace("&", "&amp;").replace("<", "&lt;").replace(">", "&gt;")
    return ('<text x="%s" y="%s" font-family="%s" font-weight="%s" font-size="%s" fill="%s" '
            'text-anchor="%s"%s>%s</text>') % (f(x), f(y), family, weight, f(size), fill, anchor, extra, s)
