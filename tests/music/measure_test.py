#!/usr/bin/python3
"""art/music/measure.py finds nothing wrong with a small tune that is as planned, and each fault that is put into it."""
import io
import os
import subprocess
import sys
import tempfile
import unittest
import wave
from contextlib import redirect_stdout

import numpy as np

MUSIC = os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "..", "art", "music")
sys.dont_write_bytecode = True
sys.path.insert(0, MUSIC)
import measure  # noqa: E402

RATE, BAR, BEAT = measure.RATE, measure.BAR, measure.BEAT
BARS, TAIL = 20, 2.5
PLAN = measure.Plan(
    bars=BARS,
    sections=(measure.Section("quiet", 0, 8, -22, -14), measure.Section("loud", 8, 20, -12, -8)),
    kick_bars=((0, 20),),
    rises=(((0, 8), (8, 20), 3),),
    size=1_000_000)


def add(stereo, start, sound, pan=.5):
    at = round(start * RATE)
    stereo[at:at + len(sound)] += sound[:, None] * np.array([1 - pan, pan]) * 2


def small_tune():
    """Kicks, a bass and chords that change from bar to bar, hats; louder from bar 8."""
    random = np.random.default_rng(5)
    stereo = np.zeros((round((BARS * BAR + TAIL) * RATE), 2))
    time = np.arange(round(.2 * RATE)) / RATE
    kick = np.sin(2 * np.pi * (50 * time + 5 * (1 - np.exp(-time * 40)))) * np.exp(-time * 14)
    hat = random.normal(size=len(time)) * np.exp(-time * 60)
    note = np.exp(-time * 3) * np.minimum(1, time * 200) * np.minimum(1, (.2 - time) * 100)
    for bar in range(BARS):
        loud = 1 if bar >= 8 else .4
        for beat in range(4):
            start = bar * BAR + beat * BEAT
            add(stereo, start, kick * (.5 + .5 * loud))
            add(stereo, start + BEAT / 2, hat * .3 * loud, .6)
            low = 55 * 2 ** (random.integers(12) / 12)
            add(stereo, start + BEAT / 2, np.sin(2 * np.pi * low * time) * note * .6 * loud)
            for pan in (.3, .5, .7):
                tone = 220 * 2 ** (random.integers(24) / 12)
                add(stereo, start + BEAT / 4 * random.integers(1, 4),
                    np.sign(np.sin(2 * np.pi * tone * time)) * note * .3 * loud, pan)
    stereo = np.tanh(stereo)
    return stereo * 10 ** ((-11 - measure.integrated(measure.Tune(stereo).power)) / 20)


def complaints(stereo, plan=PLAN, about=None):
    """All sentences, or those about one figure, or "form"."""
    tune = measure.Tune(stereo)
    said = [] if about == "form" else [*measure.complaints(measure.figures(tune, plan, about and [about]), plan)]
    return said + ([*measure.complaints_about_form(tune, plan)] if about in (None, "form") else [])


def bars(first, end):
    return slice(round(first * BAR * RATE), round(end * BAR * RATE))


def moved(stereo, seconds):
    return np.roll(stereo, round(seconds * RATE), axis=0)


def slowed(stereo, factor):
    at = np.arange(len(stereo)) / factor
    return np.stack([np.interp(at, np.arange(len(stereo)), channel) for channel in stereo.T], 1)


def with_bass_out_of_phase(stereo):
    low = measure.band(stereo[:, 1], 20, 120)
    return stereo - np.stack([0 * low, 2 * low], 1)


def changed(stereo, cut, value):
    copy = stereo.copy()
    copy[cut] = value
    return copy


def with_loop(stereo, first, length, times):
    """The bars from `first`, `length` of them, again and again."""
    copy = stereo.copy()
    loop = stereo[bars(first, first + length)]
    for again in range(1, times):
        start = bars(first + again * length, 0).start
        copy[start:start + len(loop)] = loop
    return copy


def without_kick(stereo, bar):
    """The lows of a bar's first quarter of a second are gone."""
    cut = slice(bars(bar, 0).start - RATE // 50, bars(bar, 0).start + RATE // 4)
    copy = stereo.copy()
    copy[cut] -= np.stack([measure.band(channel, 0, 400)[cut] for channel in stereo.T], 1)
    return copy


def with_late_kicks(stereo, bar, seconds):
    copy = stereo.copy()
    copy[bars(bar, bar + 1)] = moved(stereo[bars(bar, bar + 1)], seconds)
    return copy


def with_peak_between_samples(stereo):
    """A tone at a quarter of the rate, whose samples all miss its peaks by 3 dB."""
    copy = stereo.copy()
    cut = bars(10, 11)
    tone = 1.3 * np.sin(np.pi / 2 * np.arange(cut.stop - cut.start) + np.pi / 4)
    copy[cut] = tone[:, None]
    return copy


# what is done to the tune, and how the sentences about it begin
FAULTS = {
    "clipped":               (lambda s: np.clip(s * 4, -1, 1), "clipped samples: "),
    "peaks between samples": (with_peak_between_samples, "true peak: "),
    "shifted by 8 ms":       (lambda s: moved(s, .008), "first beat: 8"),
    "shifted kicks":         (lambda s: moved(s, .008), "kicks off the grid: 8"),
    "early by 8 ms":         (lambda s: moved(s, -.008), "first beat: -"),
    "silence before it":     (lambda s: moved(s, .02), "first sound: 2"),
    "slowed by 0.1 %":       (lambda s: slowed(s, 1.001), "tempo: 127.87"),
    "one bar late":          (lambda s: with_late_kicks(s, 12, .007), "kicks off the grid: 7"),
    "a kick left out":       (lambda s: without_kick(s, 9), "downbeats without a kick: 1,"),
    "bass out of phase":     (with_bass_out_of_phase, "bass lost in mono: "),
    "quieter":               (lambda s: s * .7, "loudness: -14"),
    "louder":                (lambda s: s * 1.3, "loudness: -8"),
    "a silent gap":          (lambda s: changed(s, slice(9 * RATE, 9 * RATE + RATE // 2), 0), "silence: 0.5"),
    "a short tail":          (lambda s: s[:bars(BARS, 0).start + RATE], "past the last bar: 1.0"),
    "a click at the start":  (lambda s: changed(s, slice(0, 1), .3), "first sample: "),
    "sound at the very end": (lambda s: changed(s, slice(-100, None), .01), "last tenth of a second: -40"),
    "ten bars of one loop":  (lambda s: with_loop(s, 8, 2, 5), "unchanged: 10 bars"),
    "a weak drop":           (lambda s: changed(s, bars(8, 20), s[bars(8, 20)] * .5), "loud: "),
    "no rise":               (lambda s: changed(s, bars(8, 20), s[bars(8, 20)] * .5), "bars 8 to 20 are "),
}


class Measuring(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.stereo = small_tune()

    def test_finds_nothing_wrong_with_a_tune_that_is_as_planned(self):
        self.assertEqual(complaints(self.stereo), [])

    def test_sees_each_fault(self):
        for name, (damage, sentence) in FAULTS.items():
            with self.subTest(name):
                figure = sentence.partition(":")[0]
                said = complaints(damage(self.stereo), about=figure if figure in measure.LIMITS else "form")
                self.assertTrue(any(line.startswith(sentence) for line in said), said)

    def test_lets_a_loop_run_for_eight_bars(self):
        self.assertEqual(complaints(with_loop(self.stereo, 8, 2, 4), about="unchanged"), [])
        self.assertEqual(complaints(with_loop(self.stereo, 8, 4, 2), about="unchanged"), [])

    def test_blames_the_bands_of_a_section_in_which_all_play(self):
        full = measure.replace(PLAN, sections=(measure.Section("loud", 8, 20, -12, -8, full=True),))
        dull = np.stack([measure.band(channel, 0, 2000) for channel in self.stereo.T], 1)
        self.assertTrue(any(line.startswith("loud, 4000 to 8000 Hz: ") for line in complaints(dull, full, "form")))

    def test_limits_the_size_of_the_file(self):
        self.assertEqual(complaints(self.stereo, measure.replace(PLAN, size=6_100_000), "size"),
                         ["size: 6.100 MB, expected 0.5 to 6."])

    def test_finds_no_tempo_where_there_are_no_kicks(self):
        self.assertEqual(complaints(self.stereo * 0, about="tempo"), ["tempo: 0.0000 BPM, expected 127.95 to 128.05."])

    def test_says_no_more_of_a_piece_than_that_it_is_short(self):
        self.assertEqual(measure.figures(measure.Tune(self.stereo[:RATE]), PLAN).keys(), {"past the last bar"})


class Loudness(unittest.TestCase):
    def test_of_the_standard_tone_is_minus_23(self):
        time = np.arange(20 * RATE) / RATE
        tone = 10 ** (-23 / 20) * np.sin(2 * np.pi * 1000 * time)
        self.assertAlmostEqual(measure.integrated(measure.Tune(np.stack([tone, tone], 1)).power), -23, delta=.1)

    def test_leaves_out_what_lies_far_below_the_rest(self):
        time = np.arange(60 * RATE) / RATE
        level = np.where((time > 10) & (time < 50), -23, -36)   # the third test signal of EBU Tech 3341
        tone = 10 ** (level / 20) * np.sin(2 * np.pi * 1000 * time)
        self.assertAlmostEqual(measure.integrated(measure.Tune(np.stack([tone, tone], 1)).power), -23, delta=.1)

    def test_of_a_peak_between_the_samples_is_seen(self):
        tone = .5 * np.sin(np.pi / 2 * np.arange(RATE) + np.pi / 4) * np.hanning(RATE)
        self.assertAlmostEqual(measure.true_peak(np.stack([tone, tone], 1)), -6.02, delta=.1)


class Program(unittest.TestCase):
    def run_on(self, *arguments):
        shown = io.StringIO()
        with redirect_stdout(shown):
            return measure.main(list(arguments)), shown.getvalue()

    def test_says_that_a_file_is_missing(self):
        self.assertEqual(self.run_on("/nowhere.ogg")[0], "measure: there is no file '/nowhere.ogg'.")

    def test_refuses_options_that_it_does_not_know(self):
        self.assertEqual(self.run_on("--loud")[0], "usage: measure.py [--draw PICTURE] [FILE.ogg]")

    def test_refuses_a_file_that_is_no_ogg_vorbis(self):
        self.assertIn("it is no Ogg Vorbis file.", self.run_on(__file__)[0])

    def test_ends_with_a_failure_and_a_sentence(self):
        with tempfile.TemporaryDirectory() as folder:
            path = os.path.join(folder, "wrong.wav")
            noise = np.random.default_rng(2).normal(size=(3 * RATE, 2)) * 300
            with wave.open(path, "wb") as file:
                file.setparams((2, 2, RATE, 0, "NONE", ""))
                file.writeframes(noise.astype("<i2").tobytes())
            subprocess.run(["oggenc", "-Q", "-q", "2", path], check=True)
            done = subprocess.run([os.path.join(MUSIC, "measure.py"), os.path.join(folder, "wrong.ogg")],
                                  capture_output=True, text=True, check=False)
        self.assertEqual(done.returncode, 1)
        self.assertIn("past the last bar", done.stdout)
        self.assertEqual(done.stderr, "measure: past the last bar: -178.875 s, expected 2 to 15.\n")


if __name__ == "__main__":
    unittest.main()
