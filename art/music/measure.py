#!/usr/bin/python3
"""Measures the tune and fails, with a sentence, if it is out of bounds.

    art/music/measure.py [--sections] [FILE.ogg]

Needs numpy, and ffmpeg to decode.
"""
import os
import re
import subprocess
import sys

import numpy as np

RATE = 44100
BPM = 128.0
BAR = 4 * 60 / BPM
SHOW_END = 97 * BAR
BOUNDS = {                      # what: (least, most, unit)
    "duration":          (185.0, 200.0, "s"),
    "size":              (1.0, 6.0, "MB"),
    "loudness":          (-12.0, -10.0, "LUFS"),
    "true peak":         (-20.0, -1.0, "dBTP"),
    "tempo":             (127.99, 128.01, "BPM"),
    "first beat":        (-5.0, 5.0, "ms"),
    "onset scatter":     (0.0, 8.0, "ms"),
    "side below 120 Hz": (-200.0, -20.0, "dB against mid"),
    "first sample":      (-200.0, -40.0, "dBFS"),
    "last 100 ms":       (-200.0, -60.0, "dBFS"),
}
SECTIONS = [("intro", 0, 8), ("intro kick", 8, 16), ("drop 1", 16, 32), ("variation", 32, 46), ("break", 46, 48),
            ("breakdown", 48, 56), ("drop 2", 56, 72), ("organ", 72, 88), ("peak", 88, 93), ("outro", 93, 97)]
BANDS = [(20, 60), (60, 120), (120, 250), (250, 500), (500, 1000), (1000, 2000), (2000, 4000), (4000, 8000),
         (8000, 16000)]
KICK_BARS = (16, 46)            # a stretch with a kick on every beat


def decibels(value):
    return 20 * np.log10(max(float(value), 1e-10))


def decode(path):
    raw = subprocess.run(["ffmpeg", "-nostdin", "-v", "error", "-i", path, "-f", "f32le", "-ac", "2",
                          "-ar", str(RATE), "-"], stdout=subprocess.PIPE, check=True).stdout
    return np.frombuffer(raw, np.float32).reshape(-1, 2).astype(np.float64)


def loudness(path):
    log = subprocess.run(["ffmpeg", "-nostdin", "-hide_banner", "-nostats", "-i", path, "-af",
                          "ebur128=peak=true:framelog=verbose", "-f", "null", "-"],
                         stderr=subprocess.PIPE, check=True, text=True).stderr
    last = lambda label: float(re.findall(label + r":\s+(-?[\d.]+|-inf)", log)[-1])
    return last("I"), last("LRA"), last("Peak")


def band(signal, low, high):
    """The part of a signal between two frequencies, by one long transform."""
    spectrum = np.fft.rfft(signal)
    hz = np.fft.rfftfreq(len(signal), 1 / RATE)
    spectrum[(hz < low) | (hz >= high)] = 0
    return np.fft.irfft(spectrum, len(signal))


def kick_onsets(mid):
    """Times of the kicks, without assuming where the beats are.

    First the steepest rises of the low band; then each is lined up with the mean of all of them, in
    which the kicks add up and the rest of the music does not; last, the start of that mean is found.
    """
    low = band(mid, 30, 300)
    hop = RATE // 1000
    level = np.sqrt((low[:len(low) // hop * hop].reshape(-1, hop) ** 2).mean(1))
    rise = np.convolve(level, np.r_[np.ones(12), -np.ones(12)] / 12, "same")
    first, last = (int(bar * BAR * RATE / hop) - 40 for bar in KICK_BARS)
    rise = rise[first:last]
    floor = .5 * np.percentile(rise, 99.5)
    starts, position = [], 0
    while position < len(rise):
        if rise[position] < floor:
            position += 1
            continue
        peak = position + int(np.argmax(rise[position:position + 60]))
        starts.append((peak + first) * hop)
        position = peak + 150
    starts = np.array(starts)
    body = band(mid, 30, 2000)
    before, after, reach = RATE // 100, RATE // 10, RATE // 100
    for _ in range(5):
        mean = np.mean([body[start - before:start + after] for start in starts], axis=0)
        likeness = np.empty(len(starts))
        for index, start in enumerate(starts):
            piece = body[start - before - reach:start + after + reach]
            match = np.correlate(piece, mean, "valid")
            starts[index] += int(np.argmax(match)) - reach
            likeness[index] = match.max() / np.sqrt((piece ** 2).sum() * (mean ** 2).sum())
        starts = starts[likeness > .75 * np.median(likeness)]   # what is not a kick goes
    # the music before a kick is much the same each time: look for where the mean leaves it
    before = RATE // 25
    mean = np.mean([mid[start - before:start + after] for start in starts], axis=0)
    level = np.convolve(np.abs(mean), np.ones(22) / 22)[:len(mean)]
    noise = level[RATE // 200:before - RATE // 60].max()
    begin = int(np.argmax(level[RATE // 200:] > max(1.5 * noise, .2 * level.max()))) + RATE // 200
    return (starts - before + begin) / RATE


def tempo(times):
    """Least squares of onset time against beat number; the count comes from the onsets' own spacing."""
    step = np.diff(times)
    beat = np.median(step[(step > .3) & (step < .7)])
    for _ in range(4):                      # the count needs the beat, the beat needs the count
        count = np.round(times / beat)
        keep = np.ones(len(times), bool)
        for _ in range(6):
            slope, offset = np.polyfit(count[keep], times[keep], 1)
            error = times - (offset + slope * count)
            keep = np.abs(error) < max(.004, 2.5 * np.median(np.abs(error[keep])))
        beat = slope
    return 60 / slope, offset, error[keep].std(), int(keep.sum())


def sections(stereo):
    mid, side = stereo.mean(1), (stereo[:, 0] - stereo[:, 1]) / 2
    print(f"{'section':11} {'rms':>6} {'side/mid':>8}  " + " ".join(f"{low:>6}" for low, _ in BANDS) + " Hz")
    for name, first, last in SECTIONS:
        cut = slice(int(first * BAR * RATE), int(last * BAR * RATE))
        m, s = mid[cut], side[cut]
        power = np.abs(np.fft.rfft(m * np.hanning(len(m)))) ** 2
        hz = np.fft.rfftfreq(len(m), 1 / RATE)
        scale = power.sum() / max((m ** 2).mean(), 1e-12)
        levels = (10 * np.log10(power[(hz >= low) & (hz < high)].sum() / scale + 1e-12) for low, high in BANDS)
        print(f"{name:11} {decibels(m.std()):6.1f} {decibels(s.std() / m.std()):8.1f}  "
              + " ".join(f"{level:6.1f}" for level in levels))


def main():
    arguments = [a for a in sys.argv[1:] if a != "--sections"]
    default = os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "..", "assets", "house99.ogg")
    path = arguments[0] if arguments else default
    if not os.path.isfile(path):
        sys.exit(f"measure: there is no file '{path}'.")
    stereo = decode(path)
    mid, side = stereo.mean(1), (stereo[:, 0] - stereo[:, 1]) / 2
    integrated, spread, peak = loudness(path)
    times = kick_onsets(mid)
    if len(times) < 32:
        sys.exit(f"measure: only {len(times)} kicks found; the tempo cannot be measured.")
    bpm, offset, scatter, used = tempo(times)
    found = {
        "duration": len(stereo) / RATE,
        "size": os.path.getsize(path) / 1e6,
        "loudness": integrated,
        "true peak": peak,
        "tempo": bpm,
        "first beat": offset * 1000,
        "onset scatter": scatter * 1000,
        "side below 120 Hz": decibels(band(side, 20, 120).std() / band(mid, 20, 120).std()),
        "first sample": decibels(np.abs(stereo[0]).max()),
        "last 100 ms": decibels(np.abs(stereo[-RATE // 10:]).max()),
    }
    wrong = []
    for name, value in found.items():
        least, most, unit = BOUNDS[name]
        print(f"{name:18} {value:10.3f} {unit}")
        if not least <= value <= most:
            wrong.append(f"{name} is {value:.3f} {unit}, outside {least:g} to {most:g}")
    print(f"{'loudness range':18} {spread:10.3f} LU")
    print(f"{'kicks used':18} {used:6d} of {len(times)}; sound goes on {len(stereo) / RATE - SHOW_END:.3f} s "
          "past the end of the show")
    if "--sections" in sys.argv:
        sections(stereo)
    if wrong:
        sys.exit("measure: " + "; ".join(wrong) + ".")
    print("measure: all within bounds.")


if __name__ == "__main__":
    try:
        main()
    except FileNotFoundError as error:
        sys.exit(f"measure: the program '{error.filename}' is missing; install it and run again.")
    except subprocess.CalledProcessError as error:
        sys.exit(f"measure: {error.cmd[0]} could not decode the file.")
