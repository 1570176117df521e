#!/usr/bin/python3
"""Measures the tune and fails, with one sentence for each limit that it breaks.

    art/music/measure.py [FILE.ogg]           the figures, and what is wrong with them
    art/music/measure.py --draw FILE [...]    also draws the tune, and its bars against each other

Needs numpy and oggdec; drawing needs Pillow.
"""
import os
import struct
import subprocess
import sys
from dataclasses import dataclass, field, replace
from functools import cached_property

import numpy as np

RATE = 44100
BPM = 128.0
BEAT = 60 / BPM
BAR = 4 * BEAT

# what: (least, most, unit, decimals)
LIMITS = {
    "size":                     (0.5, 6.0, "MB", 3),
    "past the last bar":        (2.0, 15.0, "s", 3),
    "loudness":                 (-12.0, -10.0, "LUFS", 2),
    "true peak":                (-20.0, -1.0, "dBTP", 2),
    "clipped samples":          (0, 0, "", 0),
    "first sound":              (-5.0, 5.0, "ms", 2),
    "first beat":               (-5.0, 5.0, "ms", 2),
    "tempo":                    (127.95, 128.05, "BPM", 4),
    "kicks off the grid":       (0.0, 5.0, "ms at most", 2),
    "downbeats without a kick": (0, 0, "", 0),
    "bass lost in mono":        (-1.0, 0.5, "dB at most", 2),
    "silence":                  (0.0, 0.2, "s at most", 3),
    "first sample":             (-200.0, -40.0, "dBFS", 1),
    "last tenth of a second":   (-200.0, -60.0, "dBFS", 1),
    "unchanged":                (0, 8, "bars at most", 0),
}


@dataclass(frozen=True)
class Section:
    name: str
    first: int              # bar
    end: int                # first bar behind it
    least: float            # LUFS
    most: float
    full: bool = False      # all play: BALANCE holds


@dataclass(frozen=True)
class Plan:
    """What the tune is to be, bar by bar."""
    bars: int
    sections: tuple
    kick_bars: tuple        # (first bar, end bar): each of them has a kick on its first beat
    rises: tuple            # (quieter bars, louder bars, by so many LU)
    size: int = 0           # of the file, in bytes
    limits: dict = field(default_factory=lambda: LIMITS)


HOUSE99 = Plan(
    bars=97,
    sections=(
        Section("intro", 0, 8, -21, -15),
        Section("intro with kick", 8, 16, -16, -11.5),
        Section("first drop", 16, 32, -12, -9.5, True),
        Section("burger", 32, 46, -12, -9.5, True),
        Section("break", 46, 48, -19, -11),
        Section("breakdown", 48, 56, -20, -13),
        Section("second drop", 56, 72, -11, -9, True),
        Section("organ", 72, 88, -12, -9.5, True),
        Section("peak", 88, 93, -10.8, -8.8, True),
        Section("outro", 93, 97, -24, -13),
    ),
    kick_bars=((8, 46), (56, 93)),
    rises=(
        ((0, 4), (8, 12), 1.5),
        ((8, 12), (16, 20), 1.5),
        ((15.5, 16), (16, 17), 5),
        ((46, 48), (44, 46), 2),
        ((48, 52), (44, 46), 5),
        ((48, 52), (52, 55), .5),
        ((55.5, 56), (56, 57), 5),
        ((16, 24), (56, 64), .3),
        ((72, 76), (84, 87), .5),
        ((87.5, 88), (88, 89), 3),
        ((72, 80), (88, 92), .8),
        ((95, 97), (93, 95), 2),
    ),
)

# Where the sections in which all play should lie: (from Hz, to Hz, least, most), in dB against the whole section.
BALANCE = (
    (20,     60,  -9.5,  -3.5),
    (60,    120,  -9.0,  -3.5),
    (120,   250, -13.0,  -6.5),
    (250,   500, -12.5,  -6.0),
    (500,  1000, -13.5,  -6.5),
    (1000,  2000, -16.0, -9.0),
    (2000,  4000, -20.0, -12.0),
    (4000,  8000, -22.0, -15.0),
    (8000, 16000, -22.0, -15.0),
)


class NotATune(Exception):
    """The file can't be measured; the text says why."""


def decibels(value):
    return 20 * np.log10(max(float(value), 1e-10))


def even_length(samples):
    """A length, not much greater, that the fast Fourier transform likes."""
    return -(-samples // 65536) * 65536


def between(signal, first, end):
    """The samples from one bar to another."""
    return signal[round(first * BAR * RATE):round(end * BAR * RATE)]


# ---- the file ---------------------------------------------------------------------------------------------------

def decode(path):
    """The 16 bit samples that libvorbisfile gives to any player, as -1..1."""
    with open(path, "rb") as file:
        head = file.read(64)
    start = head.find(b"\x01vorbis")
    if not head.startswith(b"OggS") or start < 0:
        raise NotATune("it is no Ogg Vorbis file")
    channels, rate = struct.unpack_from("<BI", head, start + 11)
    if (channels, rate) != (2, RATE):
        raise NotATune(f"it has {channels} channels at {rate} Hz instead of 2 at {RATE}")
    done = subprocess.run(["oggdec", "-Q", "-R", "-b", "16", "-e", "0", "-s", "1", "-o", "-", path],
                          stdout=subprocess.PIPE, stderr=subprocess.PIPE, check=False)
    if done.returncode != 0 or len(done.stdout) < 4 * RATE:
        raise NotATune("oggdec can't decode a second of it")
    return np.frombuffer(done.stdout, "<i2").reshape(-1, 2) / 32768


class Tune:
    """Samples of -1..1 in two columns, and what several figures need of them."""

    def __init__(self, stereo):
        self.stereo = stereo

    @cached_property
    def mid(self):
        return self.stereo.mean(1)

    @cached_property
    def power(self):
        """K-weighted power of both channels together, sample by sample."""
        length = even_length(len(self.stereo) + RATE)
        curve = weighting(np.fft.rfftfreq(length, 1 / RATE))
        heard = (np.fft.irfft(np.fft.rfft(channel, length) * curve, length)[:len(channel)] for channel in self.stereo.T)
        return sum(channel ** 2 for channel in heard)

    @cached_property
    def kicks(self):
        return kick_onsets(self.mid)

    def loudness(self, first, end):
        """LUFS of the bars from `first` to `end`, without a gate."""
        return lufs(between(self.power, first, end).mean())


# ---- loudness (ITU-R BS.1770-4) -------------------------------------------------------------------------------

def biquad_response(b, a, hz):
    z = np.exp(-2j * np.pi * hz / RATE)
    return np.polyval(b[::-1], z) / np.polyval(a[::-1], z)


def weighting(hz):
    """The K weighting: a shelf for the head, and a high-pass."""
    k = np.tan(np.pi * 1681.974450955533 / RATE)
    q, high = 0.7071752369554196, 10 ** (3.999843853973347 / 20)
    mid = high ** .4996667741545416
    a0 = 1 + k / q + k * k
    shelf = biquad_response(np.array([high + mid * k / q + k * k, 2 * (k * k - high), high - mid * k / q + k * k]) / a0,
                            np.array([1, 2 * (k * k - 1) / a0, (1 - k / q + k * k) / a0]), hz)
    k, q = np.tan(np.pi * 38.13547087602444 / RATE), 0.5003270373238773
    a0 = 1 + k / q + k * k
    return shelf * biquad_response(np.array([1, -2, 1]),
                                   np.array([1, 2 * (k * k - 1) / a0, (1 - k / q + k * k) / a0]), hz)


def lufs(power):
    return -0.691 + 10 * np.log10(max(float(power), 1e-12))


def blocks(power, seconds, hop):
    """Mean power in blocks, one every `hop` seconds."""
    total = np.r_[0, np.cumsum(power)]
    starts = np.arange(0, len(power) - int(seconds * RATE) + 1, int(hop * RATE))
    return (total[starts + int(seconds * RATE)] - total[starts]) / int(seconds * RATE)


def integrated(power):
    block = blocks(power, .4, .1)
    block = block[block > 10 ** ((-70 + .691) / 10)]
    if not len(block):
        return -200.0
    return lufs(block[block > block.mean() / 10].mean())


def true_peak(stereo, times=4, piece=1 << 16, overlap=1 << 10):
    """The highest peak, also between the samples, in dB."""
    highest = 0.0
    for channel in stereo.T:
        padded = np.pad(channel, (overlap, piece))
        for start in range(0, len(channel), piece - 2 * overlap):
            part = padded[start:start + piece]
            if np.abs(part).max() > .5 * highest:
                fine = np.fft.irfft(np.fft.rfft(part), times * len(part)) * times
                highest = max(highest, np.abs(fine[times * overlap:-times * overlap]).max())
    return decibels(highest)


# ---- time -----------------------------------------------------------------------------------------------------

def band(signal, low, high):
    """The part of a signal between two frequencies, by one long transform."""
    length = even_length(len(signal))
    spectrum = np.fft.rfft(signal, length)
    hz = np.fft.rfftfreq(length, 1 / RATE)
    spectrum[(hz < low) | (hz >= high)] = 0
    return np.fft.irfft(spectrum, length)[:len(signal)]


def first_sound(mid):
    """Time of the first sample that reaches a tenth of the first second's peak."""
    start = np.abs(mid[:RATE])
    return float(np.argmax(start > .1 * start.max())) / RATE if start.max() > 0 else np.inf


def steep_rises(mid):
    """Where the level of the lows rises steeply, as samples: kicks, and some other things."""
    hop = RATE // 1000
    low = band(mid, 30, 300)
    level = np.sqrt((low[:len(low) // hop * hop].reshape(-1, hop) ** 2).mean(1))
    rise = np.convolve(np.pad(level, (24, 0)), np.r_[np.ones(12), -np.ones(12)] / 12, "same")[24:]
    around = np.lib.stride_tricks.sliding_window_view(np.pad(rise, 40), 81).max(1)
    return np.flatnonzero((rise == around) & (rise > max(.4 * np.percentile(rise, 99), 1e-4))) * hop


def kick_onsets(mid):
    """Times of the kicks, found without knowing where the beats are.

    Rises of the lows are lined up with the mean of all of them, in which the kicks add up and the rest of
    the music does not. What is unlike the mean goes. Last, the start of that mean is found.
    """
    margin, thin = RATE // 10, 4
    padded = np.pad(mid, (margin, 2 * margin))
    body = band(padded, 30, 2000)[::thin]       # a quarter of the samples still tells 0.1 ms
    starts = (steep_rises(mid) + margin) // thin
    if len(starts) < 8:
        return np.array([])
    before, after, reach = RATE // thin // 100, RATE // thin // 10, RATE // thin // 66
    for _ in range(5):
        mean = np.mean([body[start - before:start + after] for start in starts], axis=0)
        likeness = np.empty(len(starts))
        for index, start in enumerate(starts):
            piece = body[start - before - reach:start + after + reach]
            match = np.correlate(piece, mean, "valid")
            starts[index] = max(start + int(np.argmax(match)) - reach, before + reach)
            likeness[index] = match.max() / np.sqrt((piece ** 2).sum() * (mean ** 2).sum() + 1e-20)
        order = np.argsort(-likeness)
        kept = []
        for start in starts[order[likeness[order] > .75 * np.median(likeness)]]:
            if all(abs(start - other) > RATE // thin // 10 for other in kept):      # a kick has one start
                kept.append(start)
        starts = np.sort(kept)
    # the music before a kick is much the same each time: look for where the mean leaves it
    starts *= thin
    before, after = RATE // 25, RATE // 10
    mean = np.mean([padded[start - before:start + after] for start in starts], axis=0)
    level = np.convolve(np.abs(mean), np.ones(22) / 22)[:len(mean)]
    noise = level[RATE // 200:before - RATE // 60].max()
    begin = int(np.argmax(level[RATE // 200:] > max(1.5 * noise, .2 * level.max()))) + RATE // 200
    return (starts - margin - before + begin) / RATE


def tempo(times):
    """Beats a minute and time of beat 0: a line through the kicks, counted, in quarters of a beat, by their spacing."""
    step = np.diff(times)
    whole = step[(step > .3) & (step < .7)]
    if len(whole) < 16:
        return 0.0, np.inf
    beat = np.median(whole)
    count = np.r_[0, np.cumsum(np.round(4 * step / beat) / 4)]
    keep = np.ones(len(times), bool)
    for _ in range(6):      # what is no kick after all lies far from the line
        beat, offset = np.polyfit(count[keep], times[keep], 1)
        error = np.abs(times - (offset + beat * count))
        keep = error < max(.004, 2.5 * np.median(error[keep]))
    return 60 / beat, offset - np.round(offset / beat) * beat


def off_the_grid(times):
    """The most by which a kick misses its beat, in seconds; kicks between the beats belong to fills."""
    late = np.abs(times - np.round(times / BEAT) * BEAT)
    return late[late < BEAT / 8].max(initial=0 if len(times) else np.inf)


def downbeats_without_kick(times, kick_bars):
    """The bars, of those that should, that have no kick on their first beat."""
    return [bar for first, end in kick_bars for bar in range(first, end)
            if np.abs(times - bar * BAR).min(initial=np.inf) > .02]


# ---- space, silence, sameness -----------------------------------------------------------------------------------

def bass_lost(stereo, bars):
    """The most that a bar loses below 120 Hz when its channels are added, in dB."""
    left, right = (band(channel, 20, 120) for channel in stereo.T)
    worst = 0.0
    for bar in range(bars):
        l, r = between(left, bar, bar + 1), between(right, bar, bar + 1)
        apart = (l ** 2 + r ** 2).mean() / 2
        if apart > 1e-5:        # -50 dB: there is bass at all
            worst = max(worst, -10 * np.log10(max((((l + r) / 2) ** 2).mean() / apart, 1e-6)))
    return worst


def longest_silence(stereo, bars):
    """The longest time below -60 dBFS before the last bar ends, in seconds."""
    hop = RATE // 100
    power = (between(stereo, 0, bars) ** 2).mean(1)
    level = np.sqrt(power[:len(power) // hop * hop].reshape(-1, hop).mean(1))
    longest = run = 0
    for quiet in level < 1e-3:
        run = run + 1 if quiet else 0
        longest = max(longest, run)
    return longest * hop / RATE


EDGES = 55 * 2 ** (np.arange(0, 100) / 12)      # a band for each semitone up to 3.5 kHz ...
EDGES = np.r_[EDGES[EDGES < 2000], 2000 * 2 ** (np.arange(10) / 3)]     # ... then thirds of an octave
SAME = 2.0      # dB by which two bars of one pattern differ, for all their noise and decay


def bars_in_steps(mid, bars):
    """For each bar the level, in dB, of 16 steps in some seventy bands."""
    step = BAR * RATE / 16
    window = np.hanning(8192)
    hz = np.fft.rfftfreq(len(window), 1 / RATE)
    inside = [(hz >= low) & (hz < high) for low, high in zip(EDGES, EDGES[1:])]
    inside = np.array([row / max(row.sum(), 1) for row in inside if row.any()]).T
    padded = np.pad(mid, (2048, 8192))
    frames = np.array([padded[round(i * step):][:8192] for i in range(16 * bars)])
    power = np.abs(np.fft.rfft(frames * window)) ** 2 @ inside
    level = 10 * np.log10(power + power.max() * 1e-6)
    return level.reshape(bars, -1)


def differences(mid, bars):
    """How much each bar differs from each other, in dB."""
    level = bars_in_steps(mid, bars)
    return np.array([[np.abs(one - other).mean() for other in level] for one in level])


def unchanged(difference):
    """(bars, first bar) of the longest stretch that goes on as a loop of 1, 2 or 4 bars."""
    longest = (1, 0)
    bars = len(difference)
    for loop in (1, 2, 4):
        run = 0
        for bar in range(loop, bars):
            run = run + 1 if difference[bar, bar - loop] < SAME else 0
            if run:
                longest = max(longest, (run + loop, bar - run - loop + 1))
    return longest


# ---- all together ---------------------------------------------------------------------------------------------

def balance(mid, section):
    """Level of each band of BALANCE against the whole section, in dB."""
    cut = between(mid, section.first, section.end)
    power = np.abs(np.fft.rfft(cut * np.hanning(len(cut)))) ** 2
    hz = np.fft.rfftfreq(len(cut), 1 / RATE)
    return [10 * np.log10(power[(hz >= low) & (hz < high)].sum() / max(power.sum(), 1e-12) + 1e-12)
            for low, high, _, _ in BALANCE]


def figures(tune, plan, names=None):
    """The values of LIMITS, or of some of them."""
    stereo, mid = tune.stereo, tune.mid
    tail = len(stereo) / RATE - plan.bars * BAR
    if tail < 0:
        names = ["past the last bar"]       # nothing else can be said of a piece
    ways = {
        "size": lambda: plan.size / 1e6,
        "past the last bar": lambda: tail,
        "loudness": lambda: integrated(tune.power),
        "true peak": lambda: true_peak(stereo),
        "clipped samples": lambda: int((np.abs(stereo) >= 32767 / 32768).sum()),
        "first sound": lambda: first_sound(mid) * 1000,
        "first beat": lambda: tempo(tune.kicks)[1] * 1000,
        "tempo": lambda: tempo(tune.kicks)[0],
        "kicks off the grid": lambda: off_the_grid(tune.kicks) * 1000,
        "downbeats without a kick": lambda: len(downbeats_without_kick(tune.kicks, plan.kick_bars)),
        "bass lost in mono": lambda: bass_lost(stereo, plan.bars),
        "silence": lambda: longest_silence(stereo, plan.bars),
        "first sample": lambda: decibels(np.abs(stereo[0]).max()),
        "last tenth of a second": lambda: decibels(np.abs(stereo[-RATE // 10:]).max()),
        "unchanged": lambda: unchanged(differences(mid, plan.bars))[0],
    }
    return {name: ways[name]() for name in names or ways}


def complaints(found, plan):
    """A sentence for each figure that is out of its limits."""
    for name, value in found.items():
        least, most, unit, decimals = plan.limits[name]
        if not least <= value <= most:
            unit = unit.replace(" at most", "")
            yield f"{name}: {value:.{decimals}f} {unit}".rstrip() + f", expected {least:g} to {most:g}."


def complaints_about_form(tune, plan):
    """A sentence for each section and each rise that is not as planned."""
    for section in plan.sections:
        level = tune.loudness(section.first, section.end)
        if not section.least <= level <= section.most:
            yield f"{section.name}: {level:.1f} LUFS, expected {section.least:g} to {section.most:g}."
        if section.full:
            for (low, high, least, most), part in zip(BALANCE, balance(tune.mid, section)):
                if not least <= part <= most:
                    yield (f"{section.name}, {low} to {high} Hz: {part:.1f} dB of the whole, "
                           f"expected {least:g} to {most:g}.")
    for quiet, loud, least in plan.rises:
        rise = tune.loudness(*loud) - tune.loudness(*quiet)
        if rise < least:
            yield (f"bars {loud[0]:g} to {loud[1]:g} are {rise:.1f} LU louder than bars {quiet[0]:g} to {quiet[1]:g}, "
                   f"expected {least:g} or more.")


def print_sections(tune, plan):
    side = (tune.stereo[:, 0] - tune.stereo[:, 1]) / 2
    print(f"{'section':16} {'LUFS':>6} {'side/mid':>8}  " + " ".join(f"{low:>6}" for low, *_ in BALANCE) + " Hz")
    for section in plan.sections:
        bars = section.first, section.end
        width = decibels(between(side, *bars).std() / max(between(tune.mid, *bars).std(), 1e-9))
        print(f"{section.name:16} {tune.loudness(*bars):6.1f} {width:8.1f}  "
              + " ".join(f"{level:6.1f}" for level in balance(tune.mid, section)))


def main(arguments):
    here = os.path.dirname(os.path.abspath(__file__))
    path, picture = os.path.join(here, "..", "..", "assets", "house99.ogg"), None
    if arguments[:1] == ["--draw"] and len(arguments) >= 2:
        picture, arguments = arguments[1], arguments[2:]
    if len(arguments) > 1 or any(argument.startswith("-") for argument in arguments):
        return "usage: measure.py [--draw PICTURE] [FILE.ogg]"
    path = arguments[0] if arguments else os.path.normpath(path)
    try:
        tune = Tune(decode(path))
        size = os.path.getsize(path)
    except NotATune as error:
        return f"measure: '{path}' can't be measured: {error}."
    except FileNotFoundError as error:
        return ("measure: the program 'oggdec' is missing; install vorbis-tools and run again."
                if error.filename == "oggdec" else f"measure: there is no file '{path}'.")
    plan = replace(HOUSE99, size=size)
    found = figures(tune, plan)
    for name, value in found.items():
        _, _, unit, decimals = plan.limits[name]
        print(f"{name:25} {value:10.{decimals}f} {unit}")
    wrong = list(complaints(found, plan))
    if found["past the last bar"] >= 0:
        print_sections(tune, plan)
        wrong += complaints_about_form(tune, plan)
    if picture:
        from picture import draw        # needs Pillow, which measuring does not
        draw(tune, plan, picture)
        print(f"drew {picture}")
    return "\n".join("measure: " + sentence for sentence in wrong) if wrong else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
