"""Fifty kinds of damage. Each is a function of a `Film` that returns the damaged bytes."""

import dataclasses
import pathlib
import random
import re
import struct
import typing

import clips
from lengths import lengths


@dataclasses.dataclass
class Film:
    """What is damaged, and what there is to do it with."""

    container: str
    whole: pathlib.Path
    data: bytes
    # Of the next container in the list.
    other: bytes
    random: random.Random
    # For what is written anew; gone afterwards.
    folder: pathlib.Path


class Kind(typing.NamedTuple):
    damage: typing.Callable[[Film], bytes]
    # The damaged film's file ends like this; the container's own ending unless told.
    extension: typing.Optional[str] = None


_BLOCK = 2048


def _cut(part):
    return lambda film: film.data[:int(len(film.data) * part)]


def _first(count):
    return lambda film: film.data[:count]


def _filled(begin, end, value):
    """The bytes between two parts of the film are all `value`."""
    def damage(film):
        first, last = int(len(film.data) * begin), int(len(film.data) * end)
        return film.data[:first] + bytes([value]) * (last - first) + film.data[last:]
    return damage


def _header_filled(begin, end, value):
    return lambda film: film.data[:begin] + bytes([value]) * (end - begin) + film.data[end:]


def _header_noise(begin, end):
    return lambda film: film.data[:begin] + film.random.randbytes(end - begin) + film.data[end:]


def _flipped(share, end=None):
    """So many of the bits up to `end` the other way round, one at least."""
    def damage(film):
        data = bytearray(film.data)
        bits = min(len(data), end or len(data)) * 8
        for _ in range(max(1, int(bits * share))):
            bit = film.random.randrange(bits)
            data[bit // 8] ^= 1 << bit % 8
        return bytes(data)
    return damage


def _swapped(begin, end):
    """Neighbouring bytes exchanged, as by a machine of the other byte order."""
    def damage(film):
        first, last = (int(len(film.data) * part) // 2 * 2 for part in (begin, end))
        data = bytearray(film.data)
        data[first:last:2], data[first + 1:last:2] = data[first + 1:last:2], data[first:last:2]
        return bytes(data)
    return damage


def _rearranged(order):
    """Blocks in the order that `order(random, blocks)` gives them; the first one stays."""
    def damage(film):
        blocks = [film.data[place:place + _BLOCK] for place in range(0, len(film.data), _BLOCK)]
        return b"".join(blocks[:1] + order(film.random, blocks[1:]))
    return damage


def _duplicated(generator, blocks):
    place = generator.randrange(len(blocks))
    return blocks[:place] + blocks[place:place + 1] * 20 + blocks[place:]


def _shuffled(generator, blocks):
    return generator.sample(blocks, len(blocks))


def _thinned(generator, blocks):
    return [block for block in blocks if generator.random() > 0.2]


def _inserted(part, make):
    """What `make(film)` gives stands at a part of the film."""
    def damage(film):
        place = int(len(film.data) * part)
        return film.data[:place] + make(film) + film.data[place:]
    return damage


def _noise(count):
    return lambda film: film.random.randbytes(count)


def _replaced(pattern, by):
    return lambda film: re.sub(pattern, by, film.data, flags=re.DOTALL)


def _relengthened(change, share):
    """A share of the lengths in the container, one at least, as `change(length, largest)` makes them."""
    def damage(film):
        data = bytearray(film.data)
        places = lengths(film.container, film.data)
        for place, width, order in film.random.sample(places, max(1, int(len(places) * share))):
            # An element's length begins with a one that tells how wide it is.
            is_element = film.container in ("mkv", "webm")
            largest = (1 << (7 if is_element else 8) * width) - 1
            length = int.from_bytes(data[place:place + width], order) & largest
            mark = largest + 1 if is_element else 0
            data[place:place + width] = (mark | change(length, largest) & largest).to_bytes(width, order)
        return bytes(data)
    return damage


def _dimensions(value):
    """Width and height, in each of the ways in which a container or codec writes them, become bytes of `value`."""
    width, height = clips.WIDTH, clips.HEIGHT
    written = [
        struct.pack(">HH", width, height), struct.pack("<HH", width, height), struct.pack("<II", width, height),
        struct.pack(">II", width << 16, height << 16), bytes([0, 0, width, 0, 0, height]),
        (width << 12 | height).to_bytes(3, "big"), struct.pack(">HH", width // 16, -(-height // 16)),
        struct.pack(">d", width), struct.pack(">d", height),
    ]
    pattern = b"|".join(re.escape(text) for text in written)
    # An element has a name and a length before each number.
    element = re.compile(bytes([0xB0, 0x81, width, 0xBA, 0x81, height]))

    def damage(film):
        data = element.sub(bytes([0xB0, 0x81, value, 0xBA, 0x81, value]), film.data)
        return re.sub(pattern, lambda match: bytes([value]) * len(match.group()), data)
    return damage


def _rewritten(*outputs, inputs=()):
    """ffmpeg writes the film anew with these options. What the container can't hold changes nothing."""
    def damage(film):
        target = film.folder / f"rewritten.{film.container}"
        try:
            clips.remuxed(film.whole, target, inputs, outputs)
        except clips.Refused:
            return film.data
        return target.read_bytes()
    return damage


def _titled(title):
    """Containers keep it with the whole or with its streams."""
    return _rewritten("-metadata", f"title={title}", "-metadata:s", f"title={title}")


def _retimed(expression):
    """Each packet at the time that an expression of the `setts` filter gives."""
    filters = f"setts=ts={expression}"
    return _rewritten("-bsf:v", filters, "-bsf:a", filters, "-avoid_negative_ts", "disabled")


def _chaptered(film):
    """Chapters without an order, without a length, beyond the end and named in noise."""
    lines = [";FFMETADATA1"]
    for number in range(300):
        start = film.random.choice([0, 1, number, 3000, 10 ** 12])
        title = "".join(film.random.choice("a\u202eb\u0301\t\u0007%s\u2028") for _ in range(number))
        lines += ["[CHAPTER]", "TIMEBASE=1/1000", f"START={start}", f"END={start + number % 3}", f"title={title}"]
    list_file = film.folder / "chapters.txt"
    list_file.write_text("\n".join(lines) + "\n", encoding="utf-8")
    options = ["-map", "1", "-map_metadata", "0", "-map_chapters", "0"]
    return _rewritten(*options, inputs=["-i", str(list_file)])(film)


# The names under which containers keep where what is.
_INDEX = rb"\x1c\x53\xbb\x6b|idx1|indx|stco|co64|stsz|stss|\x90\x08\x00\x33\xb1\xe5\xcf\x11|keyframes"

KINDS = {
    "empty": Kind(_first(0)),
    "first byte": Kind(_first(1)),
    "first 16 bytes": Kind(_first(16)),
    "first 100 bytes": Kind(_first(100)),
    "first 1000 bytes": Kind(_first(1000)),
    "first tenth": Kind(_cut(0.1)),
    "first half": Kind(_cut(0.5)),
    "first nine tenths": Kind(_cut(0.9)),
    "last byte missing": Kind(lambda film: film.data[:-1]),
    "last half": Kind(lambda film: film.data[len(film.data) // 2:]),
    "all zero": Kind(_filled(0.0, 1.0, 0)),
    "zero header": Kind(_header_filled(0, 64, 0)),
    "zero behind the magic": Kind(_header_filled(16, 400, 0)),
    "zero middle": Kind(_filled(0.3, 0.6, 0)),
    "zero second half": Kind(_filled(0.5, 1.0, 0)),
    "ones in the middle": Kind(_filled(0.3, 0.6, 0xFF)),
    "all noise": Kind(lambda film: film.random.randbytes(len(film.data))),
    "noise header": Kind(_header_noise(0, 64)),
    "noise behind the magic": Kind(_header_noise(16, 400)),
    "one bit of the header": Kind(_flipped(0.0, 1024)),
    "a hundredth of the header's bits": Kind(_flipped(0.01, 2048)),
    "few bits": Kind(_flipped(0.0001)),
    "many bits": Kind(_flipped(0.01)),
    "bytes swapped": Kind(_swapped(0.0, 1.0)),
    "bytes of the middle swapped": Kind(_swapped(0.4, 0.6)),
    "block repeated": Kind(_rearranged(_duplicated)),
    "blocks shuffled": Kind(_rearranged(_shuffled)),
    "blocks backwards": Kind(_rearranged(lambda _, blocks: blocks[::-1])),
    "blocks missing": Kind(_rearranged(_thinned)),
    "garbage before": Kind(_inserted(0.0, _noise(5000))),
    "garbage within": Kind(_inserted(0.5, _noise(5000))),
    "garbage behind": Kind(_inserted(1.0, _noise(5000))),
    "page of a server before": Kind(_inserted(0.0, lambda _: b"<!DOCTYPE html><p>Moved</p>\n")),
    "line ends converted": Kind(_replaced(rb"\n", b"\r\n")),
    "seven bits": Kind(lambda film: bytes(byte & 0x7F for byte in film.data)),
    "one length huge": Kind(_relengthened(lambda _, largest: largest - 1, 0.0)),
    "all lengths huge": Kind(_relengthened(lambda _, largest: largest >> 1, 1.0)),
    "all lengths zero": Kind(_relengthened(lambda *_: 0, 1.0)),
    "lengths wrong by one": Kind(_relengthened(lambda length, _: length + 1, 0.2)),
    "twice in one file": Kind(lambda film: film.data * 2),
    "another container behind": Kind(lambda film: film.data + film.other),
    "another container's head": Kind(lambda film: film.other[:_BLOCK] + film.data[_BLOCK:]),
    "wrong extension": Kind(lambda film: film.data, "txt"),
    "huge title": Kind(_titled("words and " * 2000 + "word" * 10000)),
    "empty title": Kind(_titled("")),
    "garbage chapters": Kind(_chaptered),
    "endless times": Kind(_retimed("TS+N*1000000000")),
    "negative times": Kind(_retimed("TS-100/TB")),
    "index missing": Kind(_replaced(_INDEX, lambda match: b"\xec" * len(match.group()))),
    "huge dimensions": Kind(_dimensions(0xFF)),
}


def damaged(film, name):
    """The film's bytes after the damage of that name, and whether the container has a place for it. What has none
    becomes noise in the middle."""
    kind = KINDS[name]
    data = kind.damage(film)
    has_place = data != film.data or kind.extension is not None
    return (data, True) if has_place else (_inserted(0.5, _noise(20))(film), False)
