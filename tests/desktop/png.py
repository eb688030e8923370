"""Reads the darkness of PNG pictures as the program writes them: 8 bits a channel, not interlaced."""
import struct
import zlib


def read(path):
    """Rows of darkness, 0 to 255: of each pixel the channel that is farthest from white."""
    data = path.read_bytes()
    at, body = 8, b""
    while at < len(data):
        size, kind = struct.unpack(">I4s", data[at:at + 8])
        chunk = data[at + 8:at + 8 + size]
        if kind == b"IHDR":
            width, height, _, color = struct.unpack(">IIBB", chunk[:10])
        elif kind == b"IDAT":
            body += chunk
        at += size + 12
    channels = {0: 1, 2: 3, 4: 2, 6: 4}[color]
    colors = channels - (color in (4, 6))
    return [[255 - min(row[x:x + colors]) for x in range(0, width * channels, channels)]
            for row in rows(zlib.decompress(body), width * channels, height, channels)]


def rows(raw, length, height, channels):
    before = bytearray(length)
    for y in range(height):
        start = y * (length + 1)
        rule, row = raw[start], bytearray(raw[start + 1:start + 1 + length])
        for i in range(length):
            left = row[i - channels] if i >= channels else 0
            up = before[i]
            corner = before[i - channels] if i >= channels else 0
            if rule == 1:
                row[i] = (row[i] + left) & 255
            elif rule == 2:
                row[i] = (row[i] + up) & 255
            elif rule == 3:
                row[i] = (row[i] + (left + up) // 2) & 255
            elif rule == 4:
                guess = min((abs(up - corner), 0, left), (abs(left - corner), 1, up),
                            (abs(left + up - 2 * corner), 2, corner))[2]
                row[i] = (row[i] + guess) & 255
        yield row
        before = row


def cells(picture, size):
    """The mean darkness of cells of so many pixels."""
    return [[sum(sum(row[x:x + size]) for row in picture[y:y + size]) / size / size
             for x in range(0, len(picture[0]) - size + 1, size)] for y in range(0, len(picture) - size + 1, size)]
