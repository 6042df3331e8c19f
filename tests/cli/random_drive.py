"""Random lines for `drive`: lines that a person might play, lines with mistakes, and garbage.

The same seed gives the same lines.
"""

import random
import shlex

from device import APP, CHANGED

ROWS = ["enabled", "scope_enabled", "use_album_art", "splashtoner", "clearIconColorCache", "currentAppCell", "Scope",
        "Prismo Enabled", "<Using Global Color>", "More", "", "No App Selected", "Example",
        *(f"{title} {kind}" for title in ("Global", "Keyboard", "StatusBar", "SMS", "NC", "CC", "Volume", "Folder")
          for kind in ("Color", "Enabled"))]
VALUES = ["true", "false", "on", "off", "yes", "no", "1", "0", "2", "maybe", "Application", "System", ""]
COLORS = ["#abc", "abc:0.5", "#123456", "123456:0", "#fff:1", "purple", "#12345", "abc:2", ""]
CHOICES = ["Global", "Disabled", "Custom", "Icon Color", "#1", "#3", "#0", "nothing"]
NAMES = [CHANGED, "a.b", "a/b", "..", "x" * 256, ""]
NUMBERS = ["0", "1", "2", "7", "-1", "1e3", "nan", "inf", "x", "99999999999999999999", "0.5", ""]
TEXTS = ["quillmoth", "a@b.c", "\u00fc\U0001f3a8", "--title", "--message", "\x1b[31m", "%s%n", "..", "a b", "'", '"',
         "\\", ""]


class Lines:
    def __init__(self, seed):
        self.random = random.Random(seed)

    def pick(self, *lists):
        return self.random.choice(self.random.choice(lists))

    def valid(self):
        """A line with a known name and the arguments that it takes."""
        row = self.pick(ROWS, ROWS, [f"#{self.random.randrange(40)}"])
        return self.random.choice([
            ["rows"], ["state"], ["effects"], ["file"], ["back"], ["back"], ["share"], ["send"], ["dismiss"],
            ["banner"],
            ["cancel"], ["untint"], ["tap", row], ["tap", row], ["tap", row], ["tap", row], ["tap", "currentAppCell"],
            ["set", "Scope", self.pick(["Application", "System"])], ["set", row, self.pick(VALUES)],
            ["choose", self.pick(CHOICES)], ["choose", self.pick(CHOICES)],
            ["select", self.pick([APP, APP, "com.nothing"])],
            ["pick", self.pick(COLORS)], ["pick", self.pick(COLORS)], ["answer", self.pick(["0", "1", "2"])],
            ["wait", self.pick(["0", "0.1", "1", "6"])], ["post", self.pick(NAMES)],
            ["rotate", self.pick(["320", "480", "0"]), self.pick(["320", "480", "0"])],
            ["handlers", *self.random.sample(["cydia", "twitter", "mailto", "https", "tweetbot"], 2)],
            ["accounts", self.pick(["granted", "refused"]), *self.random.sample(["one", "two", "three"], 2)],
            ["follow", self.pick(TEXTS), *self.pick([[], ["--title", "T"], ["--message", "M", "--title", ""]])],
            ["profile", self.pick(TEXTS)], ["mail", self.pick(TEXTS)], ["tint", self.pick(COLORS)],
        ])

    def wrong(self):
        """A known name with anything after it."""
        words = self.valid()[:1]
        return words + [self.pick(ROWS, VALUES, COLORS, NAMES, NUMBERS,
                                  TEXTS) for _ in range(self.random.randrange(4))]

    def garbage(self):
        """Anything but a line end."""
        alphabet = "ab #'\"\\$`\t\r\x00\x1b\x7f\u00e9\U0001f3a8\udcff\udc80()&|;<>~*?[]{}="
        return "".join(self.random.choice(alphabet) for _ in range(self.random.randrange(30)))

    def line(self):
        kind = self.random.random()
        if kind < 0.1:
            return self.garbage()
        words = self.valid() if kind < 0.8 else self.wrong()
        if kind > 0.95:
            self.random.shuffle(words)
        if self.random.random() < 0.03:
            words = ["kill", self.pick(TEXTS), *self.pick([[], ["9"], ["TERM"]])]
        return " ".join(shlex.quote(word) for word in words)
