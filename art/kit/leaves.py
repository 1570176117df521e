"""Where on the plant's picture which leaf is, and its outline: model and picture must agree on both."""

from dataclasses import dataclass

SIZE = 2048  # of the picture, in texels
INSET = 6  # of the texture coordinates: the texture repeats, and its filter must not reach the next patch


@dataclass(frozen=True)
class Patch:
    """A rectangle of the picture, in texels from its upper left corner; the leaf's tip is at the upper side."""

    left: int
    top: int
    width: int
    height: int

    def uv(self, across, along):
        """Texture coordinates: `across` -1..1 from left to right, `along` 0..1 from the lower side to the upper."""
        x = self.left + self.width / 2 + (self.width / 2 - INSET) * across
        y = self.top + self.height - INSET - (self.height - 2 * INSET) * along
        return x / SIZE, 1.0 - y / SIZE


@dataclass(frozen=True)
class Leaf:
    """A kind of leaf. Its half width, in shares of half its patch, grows like t^shoulder and falls to the tip like
    (1 - t)^point; `slits` on each side cut in from the rim down to `depth` of the half width. The stem comes in at
    `foot`, below which there is a notch between two lobes."""

    patch: Patch
    shoulder: float
    point: float
    slits: int = 0
    depth: float = 0.0
    foot: float = 0.0
    light: float = 0.0  # younger leaves are lighter and yellower

    def half_width(self, t):
        t = min(max(t, 0.0), 1.0)
        peak = self.shoulder / (self.shoulder + self.point)
        most = peak ** self.shoulder * (1 - peak) ** self.point
        return 0.97 * t ** self.shoulder * (1 - t) ** self.point / most


LEAVES = {
    "split": Leaf(Patch(24, 24, 1156, 1356), 0.42, 0.62, slits=6, depth=0.42, foot=0.075),
    "small": Leaf(Patch(24, 1420, 560, 604), 0.42, 0.7, slits=4, depth=0.58, foot=0.08, light=0.35),
    "heart": Leaf(Patch(620, 1420, 560, 604), 0.36, 0.75, foot=0.1, light=0.55),
    "whole": Leaf(Patch(1220, 24, 500, 1076), 0.55, 0.7, light=0.15),
    "young": Leaf(Patch(1220, 1140, 340, 884), 0.5, 0.8, light=1.0),
}
STEM = Patch(1764, 24, 260, 2000)
