"""What became of a film: played, or told by a sentence that says what is wrong."""

import re

# Every way in which the player tells that a file can't be played. What matches none of them is vague.
SENTENCES = {
    "empty": r"the file is empty",
    "no film": r"it is no film or sound that can be recognised",
    "nothing to play": r"there is neither picture nor sound in it",
    "nothing decodes": r"nothing in it can be decoded",
    "no decoder": r"no decoder fits what is in it: it may be damaged, protected or of a rare kind",
    "no index": r"it is incomplete: its index is missing; was it copied or recorded to its end\?",
    "no memory": r"there is not enough memory",
    "refused kind": r"what is of this kind \(.+\) is not played",
    "refused address": r"it leads to an address that is not opened \(.+\)",
}

_FAILURE = re.compile(r"kivplayer: cannot play '(.*)': (.+)\n")


class Run:
    """One run of the player over a film that it was to make pictures of."""

    def __init__(self, film, code, errors, seconds, megabytes, has_place, is_over, has_picture):
        self.film = film
        self.code = code
        self.errors = errors
        self.seconds = seconds
        self.megabytes = megabytes
        self.has_place = has_place
        self.outcome, self.fault = self._judge(is_over, has_picture)

    def _judge(self, is_over, has_picture):
        """The outcome, and whether it is one that must not be."""
        if is_over:
            return "without an end", True
        if self.code == 0:
            return ("played", False) if self.errors == "" and has_picture else ("played, with complaints", True)
        if self.code != 1:
            return f"ended with {self.code}", True
        failure = _FAILURE.fullmatch(self.errors)
        if not failure or has_picture:
            return "no single sentence", True
        for name, pattern in SENTENCES.items():
            if re.fullmatch(pattern, failure[2]):
                return name, False
        return "vague", True
