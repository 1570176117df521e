"""Draws what measure.py hears: spectrum and loudness over the bars, and how much each bar is like those before it."""
import numpy as np
from PIL import Image, ImageDraw, ImageFont

import measure

FONT = "/usr/share/fonts/truetype/dejavu/DejaVuSans.ttf"
LEFT, RIGHT, BAR_WIDTH = 74, 26, 15             # pixels
PAPER, INK, FAINT, GRID = (14, 17, 34), (240, 228, 205), (150, 150, 160), (70, 76, 104)
NIGHT = ((0, (14, 17, 34)), (.30, (22, 52, 88)), (.55, (30, 120, 120)), (.75, (214, 150, 46)), (1, (255, 240, 212)))
LOUD, LOUDER = (64, 158, 152), (232, 170, 60)   # fill and line of the loudness curve
BLOCKS = ((38, 62, 92), (28, 46, 72))           # of the section names, in turn
LOWEST, HIGHEST = 30, 16000                     # Hz
FLOOR, CEILING = -85, -25                       # dB, of the spectrum
QUIET, TOP = -36, -6                            # LUFS, of the curve
LAGS = (1, 2, 4, 8)                             # bars back
MOST = 12                                       # dB of difference


def tint(values):
    """Colours for values of 0 to 1."""
    places, colours = [place for place, _ in NIGHT], np.array([colour for _, colour in NIGHT], float)
    values = np.clip(values, 0, 1)
    return np.stack([np.interp(values, places, colours[:, c]) for c in range(3)], -1).astype(np.uint8)


def spectrum(mid, width, height, seconds):
    """A picture of the levels, pitch upwards, a column for each piece of time."""
    window = np.hanning(4096)
    padded = np.pad(mid, (2048, 8192))
    columns = np.empty((height, width))
    hz = np.fft.rfftfreq(4096, 1 / measure.RATE)
    edges = LOWEST * (HIGHEST / LOWEST) ** (np.arange(height) / (height - 1))
    for x in range(width):
        starts = (np.linspace(x, x + 1, 3) / width * seconds * measure.RATE).astype(int)
        power = np.mean([np.abs(np.fft.rfft(padded[s:s + 4096] * window)) ** 2 for s in starts], axis=0)
        level = 10 * np.log10(np.interp(edges, hz, power) / window.sum() ** 2 * 4 + 1e-12)
        columns[::-1, x] = level + 3 * np.log2(edges / 1000)        # 3 dB an octave, or the highs would not show
    return tint((columns - FLOOR) / (CEILING - FLOOR))


def draw(tune, plan, path):
    bars = plan.bars + 3
    width, seconds = bars * BAR_WIDTH, bars * measure.BAR
    heights = {"sections": 40, "spectrum": 400, "loudness": 230, "sameness": 88}
    tops, y = {}, 56
    for name, height in heights.items():
        tops[name] = y
        y += height + (4 if name == "sections" else 42)
    image = Image.new("RGB", (LEFT + width + RIGHT, y + 16), PAPER)
    pen = ImageDraw.Draw(image)
    font, small, large = (ImageFont.truetype(FONT, size) for size in (14, 12, 20))

    def x_of(bar):
        return LEFT + round(bar * BAR_WIDTH)

    def label(x, y, text, anchor="mm", fill=INK, face=font):
        pen.text((x, y), text, fill=fill, font=face, anchor=anchor)

    label(LEFT, 28, "house99, bar by bar", "lm", face=large)
    label(LEFT + width, 28, f"{measure.integrated(tune.power):.1f} LUFS, {measure.true_peak(tune.stereo):.1f} dBTP, "
          f"{measure.tempo(tune.kicks)[0]:.2f} beats a minute", "rm", FAINT)
    for index, section in enumerate(plan.sections):
        top = tops["sections"]
        pen.rectangle((x_of(section.first), top, x_of(section.end) - 2, top + heights["sections"]), BLOCKS[index % 2])
        words = section.name.split(" ") if (section.end - section.first) < 7 else [section.name]
        for line, word in enumerate(words):
            label((x_of(section.first) + x_of(section.end)) / 2, top + 20 + (line - (len(words) - 1) / 2) * 15, word,
                  face=small if len(word) * 7 > (section.end - section.first) * BAR_WIDTH else font)

    top, height = tops["spectrum"], heights["spectrum"]
    image.paste(Image.fromarray(spectrum(tune.mid, width, height, seconds)), (LEFT, top))
    for hz, name in ((50, "50 Hz"), (100, "100"), (200, "200"), (500, "500"), (1000, "1 kHz"), (2000, "2"), (5000, "5"),
                     (10000, "10")):
        above = height * np.log(hz / LOWEST) / np.log(HIGHEST / LOWEST)
        label(LEFT - 8, top + height - above, name, "rm", FAINT, small)

    top, height = tops["loudness"], heights["loudness"]

    def y_of(level):
        return top + height * (TOP - min(max(level, QUIET), TOP)) / (TOP - QUIET)

    for level in range(QUIET + 6, TOP, 6):
        pen.line((LEFT, y_of(level), LEFT + width, y_of(level)), GRID)
        label(LEFT - 8, y_of(level), f"{level}", "rm", FAINT, small)
    label(LEFT - 8, top, "LUFS", "rm", FAINT, small)
    for length, hop in ((.4, .05), (3, .1)):
        points = [(LEFT + (i * hop + length / 2) / measure.BAR * BAR_WIDTH, y_of(measure.lufs(power)))
                  for i, power in enumerate(measure.blocks(tune.power, length, hop))]
        points = [point for point in points if point[0] < LEFT + width]
        if length < 1:
            pen.polygon([(points[0][0], top + height), *points, (points[-1][0], top + height)], LOUD)
        else:
            pen.line(points, LOUDER, 3, "curve")
    label(LEFT + width, top - 13, "filled: over 0.4 s; line: over 3 s", "rm", FAINT, small)

    top, height = tops["sameness"], heights["sameness"]
    difference = measure.differences(tune.mid, plan.bars)
    row = height // len(LAGS)
    for index, lag in enumerate(LAGS):
        for bar in range(lag, plan.bars):
            value = difference[bar, bar - lag]
            colour = tuple(int(c) for c in tint(np.array(value / MOST)))
            pen.rectangle((x_of(bar), top + index * row, x_of(bar + 1) - 2, top + (index + 1) * row - 2),
                          (200, 40, 40) if value < measure.SAME else colour)
        label(LEFT - 8, top + (index + .5) * row, f"{lag} back", "rm", FAINT, small)
    label(LEFT + width, top - 13, f"how much a bar differs from those before it: dark little, bright {MOST} dB; "
          f"red below {measure.SAME:g} dB, the same", "rm", FAINT, small)

    for name in ("spectrum", "loudness", "sameness"):
        top, bottom = tops[name], tops[name] + heights[name]
        for bar in range(0, plan.bars + 1, 4):
            pen.line((x_of(bar), top, x_of(bar), bottom), GRID)
        for section in plan.sections:
            pen.line((x_of(section.first), top, x_of(section.first), bottom), FAINT)
        for bar in range(0, plan.bars + 1, 8):
            label(x_of(bar), bottom + 10, str(bar), "mm", FAINT, small)
    image.save(path, quality=88)
