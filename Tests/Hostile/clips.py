"""The whole films that are damaged: three seconds each, made by ffmpeg, the same bytes each time."""

import pathlib
import subprocess

# No other number in a film is likely to be one of these by chance.
WIDTH = 208
HEIGHT = 136

_SECONDS = 3
_H264 = ["-c:v", "libx264", "-preset", "ultrafast"]

# How each kind of file is encoded.
CONTAINERS = {
    "mkv": _H264 + ["-c:a", "aac"],
    "webm": ["-c:v", "libvpx", "-deadline", "realtime", "-c:a", "libvorbis"],
    "mp4": _H264 + ["-c:a", "aac"],
    "avi": ["-c:v", "mpeg4", "-c:a", "libmp3lame"],
    "ts": ["-c:v", "mpeg2video", "-c:a", "mp2"],
    "flv": ["-c:v", "flv", "-c:a", "libmp3lame", "-ar", "44100"],
    "ogg": ["-c:v", "libtheora", "-c:a", "libvorbis"],
    "mpg": ["-c:v", "mpeg1video", "-c:a", "mp2"],
    "wmv": ["-c:v", "wmv2", "-c:a", "wmav2"],
    "flac": ["-vn", "-c:a", "flac"],
}

_BIT_EXACT = ["-fflags", "+bitexact", "-flags:v", "+bitexact", "-flags:a", "+bitexact", "-threads", "1"]


class Refused(RuntimeError):
    """What ffmpeg says when it does not write a film."""


def ffmpeg(arguments):
    """Runs ffmpeg, whose output file is the last argument."""
    command = ["ffmpeg", "-nostdin", "-hide_banner", "-loglevel", "error", "-y"] + arguments
    result = subprocess.run(command, stdin=subprocess.DEVNULL, capture_output=True, text=True, check=False)
    if result.returncode != 0:
        raise Refused(result.stderr)


def clip(container, folder):
    """The path of the whole film in `container`, made in `folder` if it isn't there."""
    path = pathlib.Path(folder) / f"whole.{container}"
    if not path.exists():
        made = path.with_stem("unfinished")
        ffmpeg(
            ["-f", "lavfi", "-i", f"testsrc2=size={WIDTH}x{HEIGHT}:rate=25:duration={_SECONDS}"]
            + ["-f", "lavfi", "-i", f"sine=frequency=330:duration={_SECONDS}", "-metadata", "title=A film"]
            + CONTAINERS[container] + _BIT_EXACT + [str(made)]
        )
        made.rename(path)
    return path


def remuxed(whole, target, inputs=(), outputs=()):
    """Writes the film anew, nothing encoded again, with more of ffmpeg's options before or after its name."""
    ffmpeg([*inputs, "-i", str(whole), "-c", "copy", *outputs, *_BIT_EXACT, str(target)])
