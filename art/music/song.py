#!/usr/bin/env python3
"""house99: the form of the tune, as tables.

    python3 song.py house99.orc > house99.csd

Everything a musician edits is in the tables: chords, patterns, and who plays what in which bars. Bars count from 0
and ranges include both ends; a bar has 16 steps (sixteenths). The output depends on this file alone.
"""
import random
import sys

BPM = 128
BARS = 97          # 181.875 s; the last chord starts in bar 93
TAIL_BEATS = 13    # about six seconds after the last bar
SWING = 0.026      # lateness of every second sixteenth, in beats; kicks do not swing
HUMAN = 0.004      # timing scatter of hats and shaker, in beats
STRUM = 0.010      # from the lowest to the highest note of a piano chord, in beats
SEED = 99

# ---- harmony ----------------------------------------------------------------
# name: (bass note, its third and seventh in semitones, voicing).  Voices move by step or stay; the upper one sings:
# down in the first four chords (Bb A G F), up in the second four (G A Bb C), down again under the organ.
CHORDS = {
    "Abmaj9":  (32, 4, 11, (60, 63, 67, 70)),
    "Gm9":     (31, 3, 10, (58, 62, 65, 69)),
    "Cm9":     (36, 3, 10, (58, 62, 63, 67)),
    "Bb69":    (34, 4, 9,  (58, 60, 62, 65)),
    "Bb69 G":  (34, 4, 9,  (60, 62, 65, 67)),
    "Fm9":     (29, 3, 10, (56, 60, 63, 67)),
    "Bb13":    (34, 4, 10, (56, 62, 67, 72)),
    "Bb13sus": (34, 5, 10, (56, 60, 63, 67)),
    "Cm9 Bb":  (36, 3, 10, (62, 63, 67, 70)),
    "F13":     (29, 4, 10, (62, 63, 67, 69)),
    "Ab6":     (32, 4, 9,  (60, 63, 65, 68)),
    "G7b13":   (31, 4, 10, (59, 63, 65, 67)),
    "Ebmaj9":  (27, 4, 11, (58, 62, 65, 67)),
}
# A chord a bar, repeated over the range; chords that share a bar have a + between them.  A second word names the upper
# voice, where a chord has two voicings.
HARMONY = [
    (0, 23,  "Abmaj9, Gm9, Cm9, Bb69"),
    (24, 31, "Abmaj9, Bb69 G, Gm9, Cm9"),
    (32, 39, "Fm9, Gm9, Abmaj9, Bb13"),
    (40, 47, "Fm9, Cm9 Bb, Abmaj9, Bb13, Fm9, Gm9, Abmaj9, Bb13sus"),
    (48, 55, "Abmaj9, Abmaj9, Cm9, Cm9, Abmaj9, Gm9, Fm9, Bb13sus"),
    (56, 67, "Abmaj9, Gm9, Cm9, Bb69"),
    (68, 71, "Fm9, Gm9, Cm9 Bb, Bb13"),
    (72, 79, "Cm9 Bb, F13, Ab6, G7b13"),
    (80, 87, "Fm9, Gm9, Abmaj9, Bb13, Cm9 Bb, F13, Abmaj9, Bb13sus"),
    (88, 92, "Abmaj9, Gm9, Cm9+Bb69, Fm9+Gm9, Abmaj9+Bb69+Cm9 Bb+Bb13"),
    (93, 99, "Ebmaj9"),
]

# ---- drums ------------------------------------------------------------------
# A digit is a hit (9 loudest), a dot is a rest.
DRUMS = {
    "four":        "9...9...9...9...",
    "four skip":   "9...9...9..69...",
    "four roll":   "9...9...9...9.6.",
    "three":       "9...9...9.......",
    "two":         "9...9...........",
    "one":         "9...............",
    "clap":        "....9.......9...",
    "clap skip":   "....9.......9..3",
    "clap double": "....9......39...",
    "clap late":   "....9..4....9.4.",
    "clap fill":   "....9..5..5.9.79",
    "clap two":    "....9...........",
    "hat 8":       "7...5...7...5...",
    "hat":         "4.2.5.2.4.2.5.2.",
    "hat 16":      "6385638563856386",
    "hat gaps":    "63.5638.63.56385",
    "hat skip":    "6.856.8563856.88",
    "hat trip":    "6385638563.8.8.8",
    "open":        "..8...8...8...8.",
    "open push":   "..8...8...8..58.",
    "open less":   "..8.......8...9.",
    "open one":    "..............9.",
    "shaker":      "3284328432843285",
    "shaker b":    "3.852.843.852.86",
    "rim":         "...7..7....7..5.",
    "rim clave":   "6..7..7...7.7...",
    "rim soft":    "...4..4....4....",
    "rim end":     "..........5.6.77",
    "ride":        "8.5.8.5.8.5.8.5.",
    "ride off":    "..8...8...8...8.",
    "lid":         "9...9...9...9...",
    "lid b":       "9...9...9...9.75",
    "lid c":       "9..59...9..59...",
    "ruff":        ".............579",
    "cuts":        "8.......8....579",
    "cuts 4":      "8...8...8...8.57",
    "flam":        "..........4.5.68",
    "roll 4":      "3...4...5...6...",
    "roll 8":      "3.4.4.5.5.6.6.7.",
    "roll 16":     "3344455566677889",
    "roll half":   "34566789........",
    "tom end":     "............8.78",
    "tom late":    "........8..8..78",
    "tom run":     "......8.8.78.788",
    "tom fall":    "........8.78.788",
    "tom half":    "8..8.878........",
}

# ---- bass -------------------------------------------------------------------
# "step degree length level, ...".  Degrees are of the chord: 1 3 5 7 8 10; < and > lead into the next chord's root,
# from half a tone below and from a whole tone above.
BASS = {
    "off":      "2 1 1.8 .90, 6 1 1.8 .86, 10 1 1.8 .90, 14 1 1.4 .84",
    "round":    "2 1 1.8 .92, 6 1 1.6 .84, 7 8 .9 .62, 10 1 1.8 .92, 13 5 .9 .66, 14 8 1.4 .78",
    "walk":     "2 1 1.8 .92, 6 1 1.6 .84, 7 8 .9 .60, 10 5 1.5 .90, 12 7 .9 .62, 14 > 1 .80, 15 < .9 .72",
    "run":      "2 1 1.6 .92, 5 1 .9 .66, 6 8 1.0 .80, 9 7 .9 .66, 10 5 1.4 .90, 12 3 .9 .66, 14 > 1 .84, 15 < .9 .78",
    "octave":   "2 1 1 .92, 3 8 .8 .62, 6 1 1 .88, 7 8 .8 .62, 10 1 1 .92, 11 8 .8 .62, 14 5 1 .84, 15 < .8 .70",
    "skip":     "3 1 1.6 .94, 6 8 1.0 .76, 7 1 .8 .56, 10 1 1.4 .90, 11 5 .9 .66, 14 8 1.0 .80, 15 < .9 .70",
    "skip b":   "3 1 1.6 .94, 6 5 1.0 .74, 7 8 .9 .60, 10 1 2.4 .92, 13 3 .9 .70, 14 5 1.0 .78, 15 > .9 .74",
    "roll":     "1 1 .8 .60, 2 1 1.6 .92, 5 8 .8 .66, 6 7 1.0 .76, 9 5 .8 .62, 10 1 1.6 .92, 13 8 .8 .62, 14 < 1.4 .80",
    "gospel":   "2 1 1.4 .92, 3 8 .7 .54, 6 3 1.6 .84, 10 5 1.6 .90, 13 8 .8 .60, 14 < 1.6 .84",
    "gospel b": "2 1 2.6 .92, 6 8 1.2 .76, 9 7 .8 .64, 10 5 1.6 .90, 12 3 .9 .66, 14 > 1.0 .82, 15 < .9 .74",
    "stop":     "2 1 1.8 .92, 6 8 1.2 .86",
    "long":     "0 1 15.5 .60",
    "hit":      "0 1 3 .95",
    "halves":   "0 1 1.4 .50, 2 1 1.4 .92, 6 8 1 .80, 8 1 1.4 .50, 10 1 1.4 .92, 14 5 1 .80, 15 < .9 .74",
    "beats":    "1 1 2.4 .92, 5 1 2.4 .92, 9 1 2.4 .92, 13 1 2.4 .92",
}

# ---- chords in rhythm ---------------------------------------------------------
# "step length level, ..."; a step of 14 or 15 already takes the next bar's chord
STABS = {
    "loop":     "0 1.4 .80, 3 1.2 .95, 6 1.6 .85, 10 1.2 .90, 13 1.0 .70, 15 .9 .60",
    "loop b":   "0 1.4 .80, 3 1.2 .95, 6 1.2 .80, 8 1.0 .65, 11 1.6 .95, 14 1.6 .75",
    "loop c":   "2 1.2 .85, 3 1.0 .70, 6 1.6 .95, 9 .9 .65, 11 1.2 .95, 12 1.0 .70, 14 1.6 .85",
    "push":     "3 1.2 1.0, 6 1.8 .85, 11 1.2 .95, 14 1.4 .75",
    "push b":   "2 1.6 1.0, 7 1.0 .80, 10 1.6 .95, 13 .9 .70, 15 .9 .80",
    "answer":   "10 1.0 .80, 11 1.0 1.0, 13 1.2 .85, 14 1.6 .95",
    "stop":     "0 1.4 .90, 3 1.4 1.0, 6 1.4 1.0",
    "two":      "0 2.4 .95, 6 3.6 .90",
    "piano":    "0 2.2 .95, 3 2.2 1.0, 6 1.6 .85, 10 2.6 1.0, 13 .9 .60, 14 1.8 .92",
    "piano b":  "0 2.2 .90, 3 2.6 1.0, 7 1.0 .70, 8 1.6 .85, 11 2.4 1.0, 14 1.8 .92",
    "piano c":  "0 1.4 .90, 2 1.2 .70, 3 2.4 1.0, 6 3.4 .95, 11 1.2 .85, 12 1.0 .65, 14 1.8 1.0",
    "piano d":  "2 1.6 .95, 3 1.0 .60, 6 1.6 1.0, 10 1.6 .95, 11 1.0 .60, 14 1.8 1.0",
    "soft":     "0 7 .70, 8 3 .55, 11 4 .60",
    "organ":    "2 1.6 .95, 5 .9 .70, 6 1.8 .90, 10 1.6 .95, 13 1.0 .75, 14 1.6 .90",
    "organ b":  "2 1.6 .95, 6 1.8 .90, 9 .9 .65, 10 1.2 .95, 12 .9 .70, 14 1.8 .95",
    "organ c":  "0 3.4 .80, 5 .8 .70, 6 1.6 .95, 9 .8 .65, 11 2.6 .95, 14 1.6 .90",
    "organ d":  "0 1.2 .85, 2 1.2 .95, 3 .8 .65, 6 1.6 .95, 8 1.2 .80, 10 1.2 .95, 11 .8 .65, 14 1.6 1.0",
    "hold":     "0 15 .80",
    "hit":      "0 2.0 1.0",
    "hits 2":   "0 2.6 1.0, 3 1.2 .80, 8 2.6 1.0, 11 1.2 .80",
    "hits 4":   "0 2.6 1.0, 4 2.6 1.0, 8 2.6 1.0, 12 2.6 1.0",
}

# Broken chords: "step tone, ...", tones counted up through the voicing and its octaves.
RUNS = {
    "climb":  "0 0, 3 1, 6 2, 8 3, 11 4, 14 5",
    "climb b": "0 0, 2 1, 3 2, 6 3, 8 2, 10 3, 11 4, 14 5",
    "tumble": "0 6, 2 5, 3 3, 6 4, 8 2, 10 3, 12 1, 13 2, 14 0",
    "tumble b": "1 5, 3 6, 5 3, 6 4, 9 2, 11 3, 12 0, 14 1, 15 2",
    "spin":   "0 0, 1 1, 2 2, 3 3, 4 4, 5 3, 6 2, 7 1, 8 0, 9 1, 10 2, 11 3, 12 4, 13 5, 14 6, 15 7",
}

# ---- melodies -----------------------------------------------------------------
# each bar: "step note length, ..."
MELODY = {
    # the hook: a call of three notes, an answer below, the call again with a leap, and home
    "hook 1":    "0 G4 3, 3 Bb4 3, 6 C5 6, 14 Bb4 2",
    "hook 2":    "0 F4 3, 3 G4 7, 14 F4 2",
    "hook 3":    "0 G4 3, 3 Bb4 3, 6 C5 4, 10 Eb5 2, 12 D5 2, 14 C5 2",
    "hook 4":    "0 Bb4 3, 3 C5 3, 6 Bb4 7",
    "hook 4 up": "0 Bb4 3, 3 D5 3, 6 F5 6, 14 Eb5 2",
    # the hook, played with
    "ad lib 1":  "1 G4 1, 2 Bb4 1, 3 C5 3, 6 Bb4 2, 8 G4 2, 11 C5 2, 14 Eb5 2",
    "ad lib 2":  "0 D5 3, 3 C5 2, 5 Bb4 5, 12 G4 1, 13 Bb4 1, 14 C5 2",
    "ad lib 3":  "0 Eb5 3, 3 D5 3, 6 C5 3, 10 D5 1, 11 Eb5 2, 13 F5 1, 14 G5 2",
    "ad lib 4":  "0 G5 5, 6 F5 2, 8 D5 3, 12 C5 2, 14 Bb4 2",
    "ad lib end": "0 G5 3, 3 F5 3, 6 D5 2",
    # answers, for the rests of the hook
    "reply 2":   "10 C5 1, 11 D5 1, 12 F5 1, 13 D5 2",
    "reply 4":   "9 D5 1, 11 F5 2, 13 G5 1, 14 Bb5 2",
    "reply 4 b": "8 G5 1, 9 F5 1, 11 D5 2, 13 C5 1, 14 Bb4 2",
    "tease":     "0 G4 3, 3 Bb4 3, 6 C5 6",
    "tease end": "0 Bb4 3, 3 C5 3, 6 Bb4 6",
    # a second voice: it moves while the hook rests, and away from it
    "counter 1": "0 Eb5 7, 8 F5 4, 12 G5 4",
    "counter 2": "0 F5 5, 6 D5 4, 10 Eb5 2, 12 D5 4",
    "counter 3": "0 Eb5 6, 6 D5 4, 10 C5 6",
    "counter 4": "0 D5 7, 8 F5 4, 12 D5 4",
    "counter 5": "0 C5 7, 8 Ab4 4, 12 Bb4 4",
    "counter 6": "0 Bb4 9, 10 D5 2, 12 F5 4",
    "counter 7": "0 G5 5, 6 Eb5 9",
    "counter 8": "0 Ab4 5, 6 Bb4 4, 10 D5 2, 12 F5 4",
    # up the stairs
    "stair 1":   "0 G4 3, 3 Bb4 3, 6 C5 3, 11 Bb4 1, 12 C5 3",
    "stair 2":   "0 A4 3, 3 C5 3, 6 D5 3, 11 C5 1, 12 D5 3",
    "stair 3":   "0 C5 3, 3 Eb5 3, 6 F5 3, 11 Eb5 1, 12 G5 4",
    # the peak
    "peak 3":    "0 G4 3, 3 Bb4 3, 6 C5 2, 8 D5 2, 10 Eb5 2, 12 D5 2, 14 C5 2",
    "peak 4":    "0 Bb4 3, 3 C5 3, 6 Eb5 2, 8 D5 3, 11 F5 3, 14 G5 2",
    "peak 5":    "0 C5 3, 4 D5 3, 8 Eb5 3, 12 F5 3",
    # home
    "home":      "0 G5 8",
    "home b":    "0 G4 3, 3 Bb4 3, 6 Eb5 16",
    "joke":      "0 Bb5 3, 3 C6 3",
    "point":     "2 Eb6 8",
}

# ---- who plays what -----------------------------------------------------------
# (first bar, last bar, pattern or "pattern, pattern" in turn, level)
KICK = [
    (0, 0, "one", .80), (8, 11, "four", .60), (12, 14, "four", .58), (15, 15, "two", .60),
    (16, 22, "four", 1), (23, 23, "four skip", 1), (24, 30, "four", 1), (31, 31, "three", 1),
    (32, 38, "four", 1), (39, 39, "four skip", 1), (40, 42, "four", 1), (43, 43, "four skip", 1),
    (44, 44, "four", 1), (45, 45, "four roll", 1), (46, 46, "one", 1),
    (56, 62, "four", 1), (63, 63, "four roll", 1), (64, 66, "four", 1), (67, 67, "four skip", 1),
    (68, 70, "four", 1), (71, 71, "three", 1),
    (72, 78, "four", 1), (79, 79, "four skip", 1), (80, 85, "four", 1), (86, 86, "four roll", 1), (87, 87, "two", 1),
    (88, 91, "four", 1), (92, 92, "four", 1), (93, 93, "one", 1),
]
KICK_TONE = [(0, 0, 2000), (8, 11, 320), (12, 14, 1200), (15, 15, 4000), (16, 96, 16000)]   # low-pass, Hz
CLAP = [
    (12, 14, "clap", .45), (15, 15, "clap two", .5),
    (16, 22, "clap, clap, clap, clap skip", 1.12), (23, 23, "clap fill", 1.05),
    (24, 30, "clap, clap double, clap, clap late", 1.12), (31, 31, "clap two", 1.1),
    (34, 38, "clap, clap skip", 1.12), (39, 39, "clap late", 1.1),
    (40, 44, "clap double, clap, clap, clap late", 1.12), (45, 45, "clap fill", 1.0),
    (56, 62, "clap, clap, clap, clap skip", 1.18), (63, 63, "clap fill", 1.05),
    (64, 70, "clap, clap double, clap, clap late", 1.18), (71, 71, "clap two", 1.1),
    (72, 79, "clap, clap, clap, clap skip", 1.14), (80, 86, "clap, clap double, clap, clap late", 1.18),
    (87, 87, "clap two", 1.1), (88, 91, "clap double, clap late", 1.22), (92, 92, "clap fill", 1.1),
]
HAT = [
    (4, 7, "hat", .80), (8, 11, "hat", 1.0), (12, 14, "hat 16", .52), (15, 15, "hat 8", .6),
    (16, 19, "hat", 1.15), (20, 22, "hat 16", .84), (23, 23, "hat trip", .84), (24, 27, "hat gaps", .95),
    (28, 30, "hat skip", .90), (31, 31, "hat 8", .9),
    (32, 33, "hat", .80), (34, 38, "hat 16", .84), (39, 39, "hat trip", .84), (40, 43, "hat skip, hat gaps", .92),
    (44, 45, "hat 16", .92), (52, 53, "hat", .30), (54, 54, "hat 16", .34),
    (56, 59, "hat 16", .90), (60, 62, "hat gaps", 1.0), (63, 63, "hat trip", .9), (64, 67, "hat skip", .94),
    (68, 70, "hat 16", .94), (71, 71, "hat 8", .9),
    (72, 75, "hat", 1.1), (76, 78, "hat 16", .84), (79, 79, "hat trip", .84), (80, 83, "hat gaps", .95),
    (84, 86, "hat 16", .95), (88, 91, "hat 16, hat skip", .98), (92, 92, "hat 16", .94),
]
OPEN = [
    (12, 14, "open", .34), (16, 18, "open", .66), (19, 19, "open less", .66), (20, 22, "open", .66),
    (23, 23, "open one", .7), (24, 30, "open, open push", .66),
    (34, 38, "open, open, open push", .64), (39, 39, "open less", .66), (40, 44, "open push, open", .68),
    (45, 45, "open one", .7),
    (56, 62, "open, open, open, open push", .70), (63, 63, "open one", .7), (64, 70, "open push, open", .72),
    (76, 79, "open", .66), (80, 86, "open, open push", .70), (88, 92, "open push, open", .76),
]
SHAKER = [
    (10, 14, "shaker", .40), (20, 22, "shaker b", .70), (24, 30, "shaker", .72), (36, 39, "shaker b", .70),
    (40, 45, "shaker", .74), (48, 51, "shaker b", .16), (60, 63, "shaker b", .74), (64, 70, "shaker", .76),
    (76, 79, "shaker", .70), (80, 86, "shaker b", .76), (88, 92, "shaker", .82),
]
RIM = [
    (5, 7, "rim soft", .4), (10, 14, "rim soft", .6), (20, 22, "rim", .7), (27, 27, "rim end", .6),
    (28, 30, "rim clave", .7), (32, 33, "rim", .6), (36, 38, "rim", .7), (40, 43, "rim clave", .7),
    (59, 59, "rim end", .6), (64, 67, "rim clave", .7), (68, 70, "rim", .75), (75, 75, "rim end", .6),
    (80, 83, "rim", .7), (84, 86, "rim clave", .7), (88, 89, "rim clave", .7),
]
RIDE = [(28, 30, "ride off", .30), (44, 45, "ride", .30), (64, 70, "ride", .30), (84, 86, "ride off", .34),
        (88, 92, "ride", .36)]
LID = [                             # the lid of the last scene claps on the beat
    (72, 78, "lid, lid, lid, lid b", .62), (79, 79, "lid c", .66), (80, 86, "lid, lid c, lid, lid b", .66),
]
LID_PITCH = (410, 520)              # closing, and each second hit of a pair
SNARE = [
    (14, 14, "roll 8", .34), (15, 15, "roll half", .50), (19, 19, "ruff", .40), (27, 27, "flam", .42),
    (35, 35, "ruff", .40), (43, 43, "flam", .44), (45, 45, "ruff", .50),
    (54, 54, "roll 8", .32), (55, 55, "roll half", .50), (59, 59, "ruff", .40), (67, 67, "flam", .44),
    (75, 75, "ruff", .40), (83, 83, "flam", .44), (84, 84, "roll 4", .30), (85, 85, "roll 8", .36),
    (86, 86, "roll 16", .48), (87, 87, "roll half", .56), (90, 91, "cuts", .44), (92, 92, "cuts 4", .44),
]
TOM = [
    (11, 11, "tom end", .40), (23, 23, "tom end", .60), (31, 31, "tom fall", .66), (39, 39, "tom late", .60),
    (42, 42, "tom end", .50), (46, 46, "tom late", .40), (47, 47, "tom fall", .46), (63, 63, "tom late", .64),
    (71, 71, "tom fall", .68), (79, 79, "tom end", .60), (87, 87, "tom half", .60), (89, 89, "tom end", .56),
    (92, 92, "tom end", .40),
]
TOM_PITCH = (196, 156, 131, 98)     # hits go down through these, then start over

BASS_PLAN = [                       # + openness 0..1
    (12, 14, "off", .50, .15), (15, 15, "stop", .50, .20),
    (16, 19, "off, off, off, walk", 1, .42), (20, 23, "round, walk, round, run", 1, .50),
    (24, 27, "octave, octave, octave, walk", 1, .54), (28, 30, "skip, skip b, roll", 1, .60), (31, 31, "stop", 1, .66),
    (32, 33, "skip", .92, .30), (34, 35, "skip b, run", 1, .60),
    (36, 39, "skip, skip b, skip, run", 1, .62), (40, 43, "roll, walk, roll, run", 1, .66),
    (44, 45, "octave, run", 1, .72), (46, 46, "hit", 1, .7),
    (52, 54, "long", .34, .10),
    (56, 59, "round, walk, round, run", 1, .62), (60, 63, "octave, walk, octave, run", 1, .66),
    (64, 67, "skip, skip b, skip, walk", 1, .66), (68, 70, "roll, octave, roll", 1, .70), (71, 71, "stop", 1, .70),
    (72, 75, "gospel, gospel b", 1, .44), (76, 79, "gospel, gospel b, roll, run", 1, .54),
    (80, 83, "skip, round, skip b, run", 1, .66), (84, 86, "octave", 1, .76), (87, 87, "stop", 1, .80),
    (88, 89, "octave, run", 1, .80), (90, 91, "halves", 1, .82), (92, 92, "beats", 1, .85),
]
SAW_PLAN = [                        # + openness
    (0, 3, "loop", .56, .85), (4, 7, "loop, loop b", .54, .85), (8, 11, "loop b, loop c", .46, .85),
    (12, 14, "loop c, loop b", .44, .85), (15, 15, "stop", .52, .85),
    (16, 19, "push, loop b", 1.10, .96), (20, 23, "loop c, push b", 1.0, .92),
    (24, 27, "loop, push b", .94, .84), (28, 30, "push, loop c", 1.0, .98), (31, 31, "stop", 1.05, .98),
    (34, 35, "answer", .40, .70), (36, 39, "push", .34, .60), (40, 43, "push b, loop c", .44, .72),
    (44, 45, "loop b", .50, .80),
    (57, 57, "answer", .50, .80), (59, 59, "answer", .50, .80), (61, 61, "answer", .54, .84),
    (63, 63, "answer", .54, .84),
    (64, 67, "push", .44, .72), (68, 70, "push b, loop c", .46, .78), (71, 71, "stop", .8, .85),
    (77, 77, "answer", .34, .70), (79, 79, "answer", .36, .70), (80, 83, "push b, answer", .40, .76),
    (84, 86, "loop c", .40, .84),
    (88, 89, "push, loop b", .60, .86), (90, 91, "hits 2", .70, .88), (92, 92, "hits 4", .95, .96),
]
PIANO_PLAN = [                      # + hardness
    (24, 27, "hit", .50, .8), (28, 30, "two", .52, .85), (31, 31, "stop", .6, .9),
    (32, 33, "piano", .62, .55), (34, 35, "piano, piano b", .82, .85), (36, 39, "piano, piano b", .80, .85),
    (40, 43, "piano c, piano b, piano c, piano", .80, .90), (44, 45, "piano d", .84, .95), (46, 46, "hit", .95, .95),
    (50, 51, "hold", .24, .35), (52, 54, "soft", .30, .45),
    (56, 59, "piano b", .56, .75), (60, 63, "piano c, piano", .58, .82), (64, 67, "piano, piano b", .54, .80),
    (68, 70, "piano d, piano c", .56, .88), (71, 71, "stop", .8, .95),
    (84, 86, "piano d", .40, .8),
    (88, 89, "piano c, piano b", .66, .95), (90, 91, "hits 2", .78, 1), (92, 92, "hits 4", 1.0, 1),
    (93, 93, "hold", .70, .80),
]
ORGAN_PLAN = [
    (72, 75, "organ", .64, 0), (76, 79, "organ b, organ c", .64, 0), (80, 83, "organ c, organ", .56, 0),
    (84, 86, "organ d", .58, 0), (87, 87, "stop", .74, 0), (88, 89, "organ", .34, 0), (93, 93, "hold", .26, 0),
]
PAD_PLAN = [                        # (bars, level, brightness Hz, attack s, octave shift, swept?, release s)
    (0, 15, .17, 2400, .35, 0, 1, .7), (16, 31, .17, 2600, .10, 0, 1, .7), (24, 31, .08, 4200, .20, 12, 0, .5),
    (40, 45, .16, 3000, .10, 12, 0, .7), (46, 47, .20, 2600, .02, 0, 0, .7),
    (48, 55, .13, 2200, .40, 0, 0, .7), (52, 55, .07, 5200, .60, 12, 0, .7),
    (56, 63, .16, 3400, .08, 12, 0, .7), (64, 71, .14, 3800, .08, 12, 0, .7),
    (76, 87, .15, 3000, .10, 12, 0, .7), (84, 87, .10, 5200, .10, 24, 0, .7),
    (88, 92, .16, 5000, .04, 12, 0, .7),
    (93, 94, .24, 3200, .02, 0, 1, 3.2), (93, 94, .12, 5600, .05, 12, 1, 2.6),
]
RUN_PLAN = [                        # + first tone, openness: the burger rises layer by layer, then it tumbles
    (22, 22, "climb", .22, 2, .30), (30, 30, "climb b", .24, 2, .40),
    (36, 36, "climb", .34, 0, .40), (37, 37, "climb", .36, 1, .46), (38, 38, "climb b", .38, 2, .54),
    (39, 39, "climb b", .40, 4, .62), (40, 43, "tumble, tumble b", .36, 1, .55), (44, 44, "tumble", .38, 2, .65),
    (45, 45, "spin", .36, 0, .70), (70, 70, "climb b", .26, 3, .5), (78, 78, "climb", .24, 3, .4),
    (86, 86, "spin", .30, 1, .70), (91, 91, "spin", .26, 2, .70), (92, 92, "spin", .26, 3, .75),
]
MELODY_PLAN = [                     # + instrument, octave shift, openness or, of glass, pan
    (6, 6, "tease", .15, "glass", 12, .62), (14, 14, "tease", .17, "glass", 12, .38),
    (28, 28, "tease", .24, "glass", 12, .60), (30, 30, "tease end", .24, "glass", 12, .40),
    (48, 51, "hook 1, hook 2, hook 3, hook 4", .34, "lead", 0, .22),
    (52, 54, "hook 1, hook 2, hook 3", .36, "lead", 0, .34), (52, 54, "hook 1, hook 2, hook 3", .14, "glass", 12, .55),
    (55, 55, "tease end", .46, "lead", 0, .44),
    (56, 59, "hook 1, hook 2, hook 3, hook 4", .60, "lead", 0, .60),
    (60, 63, "hook 1, hook 2, hook 3, hook 4 up", .60, "lead", 0, .64),
    (61, 61, "reply 2", .26, "glass", 12, .65), (63, 63, "reply 4 b", .20, "glass", 12, .35),
    (64, 67, "hook 1, hook 2, hook 3, hook 4", .54, "lead", 0, .62),
    (64, 67, "hook 1, hook 2, hook 3, hook 4", .17, "lead", 12, .50),
    (64, 67, "counter 1, counter 2, counter 3, counter 4", .33, "strings", 0, .60),
    (68, 71, "ad lib 1, ad lib 2, ad lib 3, ad lib end", .55, "lead", 0, .66),
    (68, 70, "counter 5, counter 6, counter 7", .33, "strings", 0, .60),
    (75, 75, "reply 4", .22, "glass", 12, .35), (79, 79, "reply 4 b", .22, "glass", 12, .65),
    (80, 83, "tease, reply 2, tease, reply 4", .30, "lead", 0, .36),
    (84, 86, "stair 1, stair 2, stair 3", .38, "lead", 0, .50),
    (84, 86, "stair 1, stair 2, stair 3", .16, "strings", 12, .6),
    (88, 92, "hook 1, hook 2, peak 3, peak 4, peak 5", .53, "lead", 0, .64),
    (88, 92, "hook 1, hook 2, peak 3, peak 4, peak 5", .20, "lead", 12, .60),
    (88, 91, "counter 1, counter 2, counter 3, counter 6", .29, "strings", 0, .70),
    (93, 93, "home", .34, "strings", 0, .60), (93, 93, "home b", .42, "lead", 0, .44),
    (95, 96, "joke, point", .13, "glass", 0, .55),
]
PINGS = [                           # bottles: (bar, step, note, level, pan)
    (17, 15, "Eb6", .16, .25), (18, 10, "Bb6", .12, .75), (21, 15, "C6", .16, .70), (22, 6, "G6", .12, .25),
    (25, 11, "F6", .15, .25), (26, 7, "D6", .14, .75), (26, 10, "Bb6", .10, .30), (29, 12, "G6", .12, .75),
    (57, 12, "D6", .12, .30), (65, 12, "G6", .10, .70), (89, 12, "D6", .14, .30), (90, 6, "G6", .14, .70),
]

# ---- movement -------------------------------------------------------------------
SWEEP = [                           # (first bar, end bar, from Hz, to Hz)
    (0, 4, 560, 1300), (4, 8, 900, 2200), (8, 12, 2200, 3400), (12, 14, 2600, 5200), (14, 16, 5200, 13000),
    (16, 20, 15000, 17000), (20, 24, 9000, 16000), (24, 28, 6500, 9500), (28, 32, 12000, 17000),
    (32, 34, 1500, 4200), (34, 46, 15000, 17000), (46, 48, 17000, 900), (48, 52, 1200, 2000), (52, 56, 2000, 12000),
    (56, 72, 17000, 17000), (72, 76, 2400, 5200), (76, 80, 5200, 9000), (80, 84, 9000, 12000), (84, 88, 7000, 17500),
    (88, 93, 18000, 18000), (93, 100, 14000, 700),
]
PUMP = [                            # (first bar, last bar, depth); one duck on every beat
    (0, 7, .45), (8, 15, .66), (16, 45, .80), (46, 47, .45), (48, 55, .30), (56, 86, .80), (87, 87, .55),
    (88, 92, .80),
]
THROW = [                           # more echo: (bar, beat, beats, factor)
    (19, 3, 1, 1.7), (27, 3, 1, 1.7), (31, 1, 3, 1.8), (43, 3, 1, 1.6), (46, 0, 4, 1.8), (59, 3, 1, 1.6),
    (71, 1, 3, 1.8), (75, 3, 1, 1.7), (92, 3, 1, 1.6),
]
GAP = [(15, 2, 2), (55, 2, 2), (87, 2, 2)]      # the band stops: (bar, beat, beats)
CRASH = [(0, .14), (16, .50), (20, .20), (24, .30), (28, .20), (32, .36), (34, .44), (36, .24), (40, .34), (44, .24),
         (48, .22), (56, .54), (60, .26), (64, .40), (68, .28), (72, .44), (76, .24), (80, .38), (84, .24),
         (88, .54), (89, .30), (90, .36), (90.5, .30), (91, .36), (91.5, .30),      # a cut of the picture each
         (92, .34), (92.25, .26), (92.5, .30), (92.75, .26), (93, .56)]
IMPACT = [(0, .34), (16, .50), (34, .25), (48, .34), (56, .55), (72, .35), (88, .60), (93, .62)]
RISER = [(12, 15.5, .17), (29, 31.5, .14), (43, 46, .20), (52, 55.5, .22), (69, 72, .16), (84, 87.5, .28)]
REVERSE = [(7, .12), (23, .16), (31, .22), (39, .18), (47, .20), (63, .20), (71, .22), (79, .18)]   # the last two beats
STATIC = [(0, 4, .26, .01, 3), (4, 12, .10, 2, 8), (48, 52, .10, .3, 5), (93.5, 96.625, .18, 3, .004)]
#          (first bar, end bar, level, fade in, fade out in s)
# Jokes and noises: (what, bar, step, length in steps, level, more)
NOISES = [
    ("zap", 0, 10, 1.6, .30, .35), ("zap", 1, 6, 1.0, .24, .65), ("zap", 1, 14, 2.0, .30, .40),
    ("zap", 2, 11, .8, .24, .60), ("zap", 3, 6, 1.0, .26, .30),
    ("zap", 3, 7, 1.0, .20, .70), ("zap", 3, 12, 3.0, .30, .50), ("zap", 5, 14, 1.6, .16, .35),
    ("zap", 7, 12, 3.0, .18, .60), ("zap", 51, 14, 2.0, .10, .60),
    ("can", 15, 9, 8, .34),                     # into the bottles
    ("pop", 34, 0, 2, .42, 300),                # the box opens ...
    ("pop", 36, 0, 2, .24, 380), ("pop", 37, 0, 2, .24, 430), ("pop", 38, 0, 2, .24, 480), ("pop", 39, 0, 2, .24, 540),
    ("wood", 47, 0, 2, 1.5, 190, .5), ("wood", 47, 0, 2, .7, 520, .5),      # ... and shuts
    ("zip", 55, 8, 7, .30),                     # trousers
    ("flush", 87, 8, 9, .30),                   # and the queue
    ("switch", 96, 10, 6, 1.1),                 # good night
]

# ==== from here on: the tables become a score ====================================
INSTRUMENT = dict(kick=1, clap=2, hat=3, open=4, shaker=5, rim=6, snare=7, tom=8, ride=9, wood=10,
                  bass=20, saw=21, piano=22, organ=23, pad=24, lead=25, strings=26, glass=27, pluck=28,
                  crash=40, riser=41, impact=42, reverse=43, static=44, can=45, zip=46, flush=47, pop=48, zap=49,
                  switch=50, pump=80, sweep=81, throw=82, gap=83, desk=99)
NOTE = dict(C=0, Db=1, D=2, Eb=3, E=4, F=5, Gb=6, G=7, Ab=8, A=9, Bb=10, B=11)
END_BEAT = BARS * 4 + TAIL_BEATS


class Score:
    def __init__(self):
        self.random = random.Random(SEED)
        self.events = []

    def play(self, name, beat, beats, *fields):
        beat = max(beat, 0)         # a negative start would silence the whole piece
        text = " ".join(f"{field:.5g}" for field in fields)
        self.events.append((beat, f"i {INSTRUMENT[name]} {beat:.5f} {max(beats, .02):.5f} {text}"))

    def scatter(self, amount=HUMAN):
        return self.random.uniform(-amount, amount)

    def text(self):
        ordered = sorted(self.events, key=lambda event: event[0])
        return "\n".join(line for _, line in ordered)


def rows(plan, table):
    """Yields (bar, pattern, remaining fields of the row) for every bar of a plan."""
    for first, last, names, *fields in plan:
        names = [name.strip() for name in names.split(",")]
        for bar in range(first, last + 1):
            name = names[(bar - first) % len(names)]
            if name not in table:
                raise SystemExit(f"song.py: bars {first}-{last} ask for an unknown pattern '{name}'")
            yield bar, table[name], fields


def notes(pattern):
    """The words of each note of a pattern."""
    return [note.split() for note in pattern.split(",")]


def chord(bar, step=0):
    """The chord at a step; steps of 16 and more are in the next bar."""
    bar, step = bar + step // 16, step % 16
    for first, last, names in HARMONY:
        if first <= bar <= last:
            names = names.split(",")
            parts = names[(bar - first) % len(names)].split("+")
            return CHORDS[parts[step * len(parts) // 16].strip()]
    raise SystemExit(f"song.py: bar {bar} has no chord")


def at(bar, step):
    """Beat of a step, swung."""
    late = SWING if step % 2 == 1 else 0
    return bar * 4 + step / 4 + late


def hits(plan):
    for bar, pattern, (level,) in rows(plan, DRUMS):
        for step, mark in enumerate(pattern):
            if mark != ".":
                yield bar, step, level * int(mark) / 9


def midi(name):
    return NOTE[name[:-1]] + 12 * (int(name[-1]) + 1)


def tone_of_kick(bar):
    return next(hz for first, last, hz in KICK_TONE if first <= bar <= last)


def drums(score):
    for bar, step, level in hits(KICK):
        score.play("kick", bar * 4 + step / 4, 1, level, tone_of_kick(bar))
    for bar, step, level in hits(CLAP):
        score.play("clap", at(bar, step), .8, level)
    for bar, step, level in hits(HAT):
        score.play("hat", at(bar, step) + score.scatter(), .25, level * score.random.uniform(.85, 1.1),
                   .40 + .2 * (step % 4 == 3))
    for bar, step, level in hits(OPEN):
        score.play("open", at(bar, step), .5, level)
    for bar, step, level in hits(SHAKER):
        score.play("shaker", at(bar, step) + score.scatter(), .3, level * score.random.uniform(.85, 1.1), .68)
    for bar, step, level in hits(RIM):
        score.play("rim", at(bar, step), .3, level, .30)
    for bar, step, level in hits(RIDE):
        score.play("ride", at(bar, step), 1, level)
    for bar, step, level in hits(LID):
        score.play("wood", at(bar, step), .4, level, LID_PITCH[step % 8 != 0], .42 + .16 * (step % 8 != 0))
    for bar, step, level in hits(SNARE):
        score.play("snare", at(bar, step), .5, level)
    for count, (bar, step, level) in enumerate(hits(TOM)):
        drum = count % len(TOM_PITCH)
        score.play("tom", at(bar, step), 1, level, TOM_PITCH[drum], .32 + .12 * drum)


def bass(score):
    for bar, pattern, (level, openness) in rows(BASS_PLAN, BASS):
        for word, degree, length, accent in notes(pattern):
            step = int(word)
            root, third, seventh, _ = chord(bar, step)
            following = chord(bar, 16)[0] if bar + 1 < BARS else root
            pitch = {"1": root, "3": root + third, "5": root + 7, "7": root + seventh, "8": root + 12,
                     "10": root + 12 + third, "<": following - 1, ">": following + 2}[degree]
            score.play("bass", at(bar, step), float(length) / 4, level * float(accent), pitch, openness)


def chords(score, name, plan, doubled, strum=0):
    for bar, pattern, (level, colour) in rows(plan, STABS):
        for word, length, accent in notes(pattern):
            step, beats, loud = int(word), float(length) / 4, level * float(accent)
            voicing = chord(bar, 16 if step >= 14 and bar + 1 < BARS else step)[3]
            for place, note in enumerate(voicing):
                late = strum * place / len(voicing)
                touch = score.random.uniform(.92, 1.06) if strum else 1
                score.play(name, at(bar, step) + late, beats, loud * touch * .5, note, colour)
            for octave, share in doubled:
                score.play(name, at(bar, step) + strum, beats, loud * share, voicing[-1] + octave, colour)


def pads(score):
    for first, last, level, bright, attack, octave, swept, release in PAD_PLAN:
        step, end = first * 16, (last + 1) * 16
        while step < end:           # a chord that stays is one long note
            now = chord(0, step)
            length = next((i for i in range(4, end - step, 4) if chord(0, step + i) != now), end - step)
            for note in now[3]:
                score.play("pad", step / 4, length / 4, level * .6, note + octave, bright, attack, swept, release)
            step += length


def runs(score):
    for bar, pattern, (level, lift, openness) in rows(RUN_PLAN, RUNS):
        for step, tone in notes(pattern):
            step, tone = int(step), int(tone) + lift
            voicing = chord(bar, step)[3]
            note = voicing[tone % len(voicing)] + 12 * (tone // len(voicing))
            score.play("pluck", at(bar, step), .45, level, note, openness, .25 + .5 * (step % 4) / 3)


def melody(score):
    for bar, pattern, (level, name, octave, colour) in rows(MELODY_PLAN, MELODY):
        for step, note, length in notes(pattern):
            beats = 3.5 if name == "glass" else float(length) / 4 * .94
            score.play(name, at(bar, int(step)), beats, level, midi(note) + octave, colour)
    for bar, step, note, level, pan in PINGS:
        score.play("glass", at(bar, step), 3.5, level, midi(note), pan)


def effects(score):
    for bar, level in CRASH:
        score.play("crash", bar * 4, 8, level)
    for bar, level in IMPACT:
        score.play("impact", bar * 4, 7, level)
    for first, end, level in RISER:
        score.play("riser", first * 4, (end - first) * 4, level)
    for first, end, level, fade_in, fade_out in STATIC:
        score.play("static", first * 4, (end - first) * 4, level, fade_in, fade_out)
    for bar, level in REVERSE:
        score.play("reverse", bar * 4 + 2, 2, level)
    for name, bar, step, length, *fields in NOISES:
        score.play(name, bar * 4 + step / 4, length / 4, *fields)


def movement(score):
    for first, last, depth in PUMP:
        for beat in range(first * 4, (last + 1) * 4):
            score.play("pump", beat, .99, depth)
    for first, end, low, high in SWEEP:
        score.play("sweep", first * 4, (end - first) * 4, low, high)
    for bar, beat, beats, factor in THROW:
        score.play("throw", bar * 4 + beat, beats, factor)
    for bar, beat, beats in GAP:
        score.play("gap", bar * 4 + beat, beats)
    score.play("desk", 0, END_BEAT)


def main():
    if len(sys.argv) != 2:
        raise SystemExit("usage: song.py house99.orc > house99.csd")
    with open(sys.argv[1], encoding="utf-8") as file:
        orchestra = file.read()
    score = Score()
    drums(score)
    bass(score)
    chords(score, "saw", SAW_PLAN, [(12, .22)])
    chords(score, "piano", PIANO_PLAN, [(12, .34), (0, .12)], STRUM)
    chords(score, "organ", ORGAN_PLAN, [(12, .22)])
    pads(score)
    runs(score)
    melody(score)
    effects(score)
    movement(score)
    print("<CsoundSynthesizer>\n<CsInstruments>", orchestra, "</CsInstruments>\n<CsScore>", sep="\n")
    print(f"t 0 {BPM}", score.text(), "e", "</CsScore>\n</CsoundSynthesizer>", sep="\n")


if __name__ == "__main__":
    main()
