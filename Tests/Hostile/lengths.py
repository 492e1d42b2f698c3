"""Where a film's container says how long its parts are."""

import re

# (offset, bytes, byte order) of one number.


def _boxes(data, begin=0, end=None):
    end = len(data) if end is None else end
    while begin + 8 <= end:
        size = int.from_bytes(data[begin:begin + 4], "big")
        yield begin, 4, "big"
        if data[begin + 4:begin + 8] in (b"moov", b"trak", b"mdia", b"minf", b"stbl", b"udta"):
            yield from _boxes(data, begin + 8, min(end, begin + size))
        begin += max(size, 8)


def _chunks(data, begin=0, end=None):
    end = len(data) if end is None else end
    while begin + 8 <= end:
        size = int.from_bytes(data[begin + 4:begin + 8], "little")
        yield begin + 4, 4, "little"
        if data[begin:begin + 4] in (b"RIFF", b"LIST"):
            yield from _chunks(data, begin + 12, min(end, begin + 8 + size))
        begin += 8 + size + size % 2


def _vint_length(first):
    return 9 - first.bit_length() if first else 8


# Segment, SeekHead, Info, Tracks, TrackEntry, Video, Audio, Cluster, Cues, Tags: what holds other elements.
_MASTERS = {bytes.fromhex(name) for name in
            "18538067 114d9b74 1549a966 1654ae6b ae e0 e1 1f43b675 1c53bb6b 1254c367".split()}


def _elements(data, begin=0, end=None):
    end = len(data) if end is None else end
    while begin < end:
        name_end = begin + _vint_length(data[begin])
        if name_end >= end:
            return
        width = _vint_length(data[name_end])
        content = name_end + width
        size = int.from_bytes(data[name_end:content], "big") & ((1 << 7 * width) - 1)
        yield name_end, width, "big"
        if data[begin:name_end] in _MASTERS:
            yield from _elements(data, content, min(end, content + size))
        begin = content + size


def _pages(data):
    for page in re.finditer(b"OggS", data):
        for segment in range(data[page.start() + 26] if page.start() + 26 < len(data) else 0):
            yield page.start() + 27 + segment, 1, "big"


def _tags(data):
    begin = 13
    while begin + 11 <= len(data):
        yield begin + 1, 3, "big"
        begin += 15 + int.from_bytes(data[begin + 1:begin + 4], "big")


def _objects(data):
    begin = 0
    while begin + 24 <= len(data):
        yield begin + 16, 8, "little"
        # The header object is entered, any other one stepped over.
        begin += 30 if begin == 0 else max(24, int.from_bytes(data[begin + 16:begin + 24], "little"))


def _packets(data):
    for start in re.finditer(rb"\x00\x00\x01[\xbd\xc0\xe0]", data, re.DOTALL):
        yield start.start() + 4, 2, "big"


def _sections(data):
    for begin in range(0, len(data) - 188, 188):
        # Tables begin behind a pointer, other packets with how long their adaptation field is.
        is_table = data[begin + 1] & 0x40 and data[begin + 4] == 0
        yield (begin + 6, 2, "big") if is_table else (begin + 4, 1, "big")


def _blocks(data):
    begin = 4
    while begin + 4 <= len(data) and begin < 65536:
        yield begin + 1, 3, "big"
        if data[begin] & 0x80:
            return
        begin += 4 + int.from_bytes(data[begin + 1:begin + 4], "big")


_WALKS = {"mkv": _elements, "webm": _elements, "mp4": _boxes, "avi": _chunks, "ts": _sections, "flv": _tags,
          "ogg": _pages, "mpg": _packets, "wmv": _objects, "flac": _blocks}


def lengths(container, data):
    """All of them as (offset, bytes, byte order), those of a whole film in its order."""
    return [place for place in _WALKS[container](data) if place[0] + place[1] <= len(data)]
