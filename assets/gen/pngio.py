"""Minimal RGBA PNG reading and writing with the standard library only.

Reads what rsvg-convert writes (8-bit RGBA, not interlaced) and writes
files without time stamps, so that a rebuild gives the same bytes."""
import struct
import zlib


class Image:
    def __init__(self, width, height, pixels=None):
        self.width = width
        self.height = height
        self.pixels = pixels if pixels is not None else bytearray(width * height * 4)

    def get(self, x, y):
        i = (y * self.width + x) * 4
        return self.pixels[i:i + 4]

    def alpha(self, x, y):
        return self.pixels[(y * self.width + x) * 4 + 3]

    def put(self, x, y, rgba):
        i = (y * self.width + x) * 4
        self.pixels[i:i + 4] = bytes(rgba)

    def blit(self, src, sx, sy, w, h, dx, dy):
        for row in range(h):
            s = ((sy + row) * src.width + sx) * 4
            d = ((dy + row) * self.width + dx) * 4
            self.pixels[d:d + w * 4] = src.pixels[s:s + w * 4]


def _paeth(a, b, c):
    p = a + b - c
    pa, pb, pc = abs(p - a), abs(p - b), abs(p - c)
    if pa <= pb and pa <= pc:
        return a
    return b if pb <= pc else c


def read(path):
    with open(path, "rb") as f:
        data = f.read()
    if data[:8] != b"\x89PNG\r\n\x1a\n":
        raise ValueError("%s: not a PNG" % path)
    pos, idat, header = 8, bytearray(), None
    while pos < len(data):
        length, kind = struct.unpack(">I4s", data[pos:pos + 8])
        body = data[pos + 8:pos + 8 + length]
        if kind == b"IHDR":
            header = struct.unpack(">IIBBBBB", body)
        elif kind == b"IDAT":
            idat += body
        pos += 12 + length
    width, height, depth, ctype, _, _, interlace = header
    if depth != 8 or ctype != 6 or interlace != 0:
        raise ValueError("%s: only 8-bit RGBA without interlace is read" % path)
    raw = zlib.decompress(bytes(idat))
    stride = width * 4
    out = bytearray(height * stride)
    prev = bytearray(stride)
    for y in range(height):
        kind = raw[y * (stride + 1)]
        line = bytearray(raw[y * (stride + 1) + 1:(y + 1) * (stride + 1)])
        for i in range(stride):
            a = line[i - 4] if i >= 4 else 0
            b = prev[i]
            c = prev[i - 4] if i >= 4 else 0
            if kind == 1:
                line[i] = (line[i] + a) & 255
            elif kind == 2:
                line[i] = (line[i] + b) & 255
            elif kind == 3:
                line[i] = (line[i] + ((a + b) >> 1)) & 255
            elif kind == 4:
                line[i] = (line[i] + _paeth(a, b, c)) & 255
        out[y * stride:(y + 1) * stride] = line
        prev = line
    return Image(width, height, out)


def _chunk(kind, body):
    return struct.pack(">I", len(body)) + kind + body + struct.pack(">I", zlib.crc32(kind + body) & 0xffffffff)


def write(path, image):
    stride = image.width * 4
    raw = bytearray()
    for y in range(image.height):
        raw.append(0)
        raw += image.pixels[y * stride:(y + 1) * stride]
    png = b"\x89PNG\r\n\x1a\n"
    png += _chunk(b"IHDR", struct.pack(">IIBBBBB", image.width, image.height, 8, 6, 0, 0, 0))
    png += _chunk(b"IDAT", zlib.compress(bytes(raw), 9))
    png += _chunk(b"IEND", b"")
    with open(path, "wb") as f:
        f.write(png)


def write_bmp24(path, image, background=(0, 0, 0)):
    """Writes a 24-bit bottom-up BMP, blending alpha onto a background,
    since the window icon loader takes no alpha channel."""
    row_bytes = (image.width * 3 + 3) & ~3
    body = bytearray()
    for y in range(image.height - 1, -1, -1):
        row = bytearray()
        for x in range(image.width):
            r, g, b, a = image.get(x, y)
            mix = [(c * a + bg * (255 - a) + 127) // 255 for c, bg in zip((r, g, b), background)]
            row += bytes((mix[2], mix[1], mix[0]))
        row += b"\0" * (row_bytes - len(row))
        body += row
    header = struct.pack("<2sIHHI", b"BM", 54 + len(body), 0, 0, 54)
    info = struct.pack("<IiiHHIIiiII", 40, image.width, image.height, 1, 24, 0, len(body), 2835, 2835, 0, 0)
    with open(path, "wb") as f:
        f.write(header + info + body)
