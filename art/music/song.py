#!/usr/bin/env python3
"""house99: the form of the tune, as tables.

    python3 song.py house99.orc > house99.csd

Everything a musician edits is in the tables: chords, patterns, and who plays
what in which bars.  Bars count from 0 and ranges include both ends; a bar has
16 steps (sixteenths).  The output depends on this file alone.
"""
import random
import sys

BPM = 128
BARS = 97          # 181.875 s; the last chord starts in bar 93 and rings to the end
TAIL_BEATS = 13    # about six seconds after the last bar
SWING = 0.026      # lateness of every second sixteenth, in beats
HUMAN = 0.004      # timing scatter of hats and shaker, in beats
SEED = 99

# ---- harmony ----------------------------------------------------------------
# name: (bass note, voicing).  The voicings keep common tones and move by step.
CHORDS = {
    "Abmaj9": (32, (58, 60, 63, 67)),
    "Gm7":    (31, (58, 62, 65, 67)),
    "Cm9":    (36, (58, 62, 63, 67)),
    "Bb69":   (34, (60, 62, 65, 67)),
    "Fm9":    (29, (56, 60, 63, 67)),
    "Bb13":   (34, (56, 60, 62, 67)),
    "Gm7/Bb": (34, (58, 62, 65, 67)),
    "Ebmaj9": (27, (58, 62, 65, 67)),
}
# one chord a bar, repeated over the range
HARMONY = [
    (0, 31,  "Abmaj9 Gm7 Cm9 Bb69"),
    (32, 47, "Fm9 Gm7 Abmaj9 Bb13"),
    (48, 55, "Abmaj9 Abmaj9 Cm9 Cm9 Abmaj9 Gm7 Fm9 Bb13"),
    (56, 79, "Abmaj9 Gm7 Cm9 Bb69"),
    (80, 87, "Fm9 Gm7 Abmaj9 Bb13"),
    (88, 92, "Abmaj9 Gm7 Cm9 Bb69 Bb13"),
    (93, 99, "Ebmaj9"),
]

# ---- drums ------------------------------------------------------------------
# A digit is a hit (9 loudest), a dot is a rest.
DRUMS = {
    "four":      "9...9...9...9...",
    "four gap":  "9...9...9.......",
    "four roll": "9...9...9...9.6.",
    "one":       "9...............",
    "halves":    "9.......9.......",
    "clap":      "....9.......9...",
    "clap skip": "....9.......9..3",
    "clap fill": "....9..5..5.9.79",
    "hat":       "4.2.5.2.4.2.5.2.",
    "hat 16":    "6385638463856386",
    "open":      "..8...8...8...8.",
    "shaker":    "3284328432843285",
    "rim":       "...7..7....7..5.",
    "rim soft":  "...4..4....4....",
    "ride":      "8.5.8.5.8.5.8.5.",
    "roll 4":    "3...4...5...6...",
    "roll 8":    "3.4.4.5.5.6.6.7.",
    "roll 16":   "3344455566677889",
    "tom fill":  "8..8..8.8..8..88",
    "tom late":  "........8..8..88",
}

# ---- bass -------------------------------------------------------------------
# (step, semitones above the chord's bass note, length in steps, level).  12 and 7
# fit every chord; 10, in "walk" and "skip b", fits the minor ones and those on Bb,
# not Abmaj9: mind which bar a pattern falls on.
BASS = {
    "off":    [(2, 0, 1.8, .90), (6, 0, 1.8, .86), (10, 0, 1.8, .90), (14, 0, 1.4, .84)],
    "round":  [(2, 0, 1.8, .92), (6, 0, 1.6, .84), (7, 12, .9, .62), (10, 0, 1.8, .92),
               (13, 7, .9, .66), (14, 12, 1.6, .78)],
    "walk":   [(2, 0, 1.8, .92), (6, 0, 1.6, .84), (7, 12, .9, .60), (10, 0, 1.6, .90),
               (12, 12, .9, .60), (14, 10, 1, .76), (15, 7, .9, .70)],
    "skip":   [(0, 0, 1.2, .66), (3, 0, 1.6, .92), (6, 12, 1.0, .74), (8, 0, 1.0, .60), (10, 0, 1.4, .90),
               (11, 7, .9, .66), (14, 12, 1.0, .80), (15, 0, .9, .70)],
    "skip b": [(0, 0, 1.2, .66), (3, 0, 1.6, .92), (6, 12, 1.0, .74), (7, 7, .9, .60), (10, 0, 2.4, .92),
               (13, 0, .9, .70), (14, 10, 1.0, .78), (15, 12, .9, .74)],
    "long":   [(0, 0, 15.5, .60)],
    "hit":    [(0, 0, 3, .95)],
}

# ---- chords in rhythm ---------------------------------------------------------
# (step, length in steps, level); a step of 14 or later already takes the next chord
STABS = {
    "loop":   [(0, 1.4, .80), (3, 1.2, .95), (6, 1.6, .85), (10, 1.2, .90), (13, 1.0, .70), (15, .9, .60)],
    "loop b": [(0, 1.4, .80), (3, 1.2, .95), (6, 1.2, .80), (8, 1.0, .65), (11, 1.6, .95), (14, 1.6, .75)],
    "push":   [(3, 1.2, 1.0), (6, 1.8, .85), (11, 1.2, .95), (14, 1.4, .75)],
    "piano":  [(0, 2.2, .95), (3, 2.2, 1.0), (6, 1.6, .85), (10, 2.6, 1.0), (13, .9, .60), (14, 1.8, .92)],
    "piano b": [(0, 2.2, .90), (3, 2.6, 1.0), (7, 1.0, .70), (8, 1.6, .85), (11, 2.4, 1.0), (14, 1.8, .92)],
    "organ":  [(2, 1.6, .95), (5, .9, .70), (6, 1.8, .90), (10, 1.6, .95), (13, 1.0, .75), (14, 1.6, .90)],
    "organ b": [(2, 1.6, .95), (6, 1.8, .90), (9, .9, .65), (10, 1.2, .95), (12, .9, .70), (14, 1.8, .95)],
    "hold":   [(0, 15, .80)],
    "hit":    [(0, 2.0, 1.0)],
    "hits 2": [(0, 2.0, 1.0), (8, 2.0, 1.0)],
    "hits 4": [(0, 1.8, 1.0), (4, 1.8, 1.0), (8, 1.8, 1.0), (12, 1.8, 1.0)],
}

# ---- the hook: four bars that answer each other -------------------------------
# each bar: "step note length, ..."
MELODY = {
    "hook 1": "0 G4 3, 3 Bb4 3, 6 C5 5, 12 Bb4 2, 14 G4 2",
    "hook 2": "0 F4 3, 3 G4 6, 11 D4 1, 12 F4 2, 14 G4 2",
    "hook 3": "0 G4 3, 3 Bb4 3, 6 C5 4, 10 Eb5 2, 12 D5 2, 14 C5 2",
    "hook 4": "0 Bb4 3, 3 C5 3, 6 Bb4 7",
    "hook 4 end": "0 Bb4 3, 3 D5 3, 6 F5 6, 14 Eb5 2",
    "last":   "0 G4 3, 3 Bb4 3, 6 Eb5 24",
}

# ---- who plays what -----------------------------------------------------------
# (first bar, last bar, pattern or "pattern,pattern" in turn, level)
KICK = [
    (8, 14, "four", .80), (15, 15, "four gap", .84),
    (16, 30, "four", 1), (31, 31, "four gap", 1),
    (32, 45, "four", 1), (46, 46, "one", 1), (47, 47, "halves", .9),
    (56, 62, "four", 1), (63, 63, "four roll", 1), (64, 70, "four", 1), (71, 71, "four gap", 1),
    (72, 85, "four", 1), (86, 86, "four roll", 1), (87, 87, "halves", .95),
    (88, 91, "four", 1), (92, 92, "four", 1), (93, 93, "one", 1),
]
KICK_TONE = [(8, 11, 180), (12, 14, 900), (15, 15, 2500), (16, 96, 16000)]   # low-pass, Hz
CLAP = [
    (12, 14, "clap", .45), (16, 45, "clap,clap,clap,clap skip", 1.12), (46, 46, "clap skip", .9), (47, 47, "clap fill", .9),
    (56, 62, "clap", 1.18), (63, 63, "clap fill", 1.05), (64, 70, "clap", 1.18), (71, 71, "clap fill", 1.05),
    (72, 86, "clap", 1.18), (88, 91, "clap", 1.22), (92, 92, "clap fill", 1.1),
]
HAT = [
    (4, 11, "hat", .90), (12, 15, "hat 16", .52), (16, 45, "hat 16", .84), (47, 47, "hat 16", .60),
    (50, 51, "hat", .30), (52, 54, "hat 16", .34), (56, 86, "hat 16", .90), (88, 92, "hat 16", .94),
]
OPEN = [
    (12, 14, "open", .34), (16, 45, "open", .66), (56, 86, "open", .70), (88, 92, "open", .74),
]
SHAKER = [
    (8, 15, "shaker", .40), (24, 45, "shaker", .70), (56, 87, "shaker", .72), (88, 92, "shaker", .80),
]
RIM = [
    (10, 14, "rim soft", .6), (20, 30, "rim", .7), (36, 45, "rim", .7), (64, 70, "rim", .7), (76, 86, "rim", .7),
]
RIDE = [(64, 71, "ride", .30), (80, 86, "ride", .30), (88, 92, "ride", .36)]
SNARE = [
    (14, 14, "roll 8", .34), (15, 15, "roll 16", .50), (47, 47, "roll 16", .50),
    (54, 54, "roll 8", .32), (55, 55, "roll 16", .44),
    (84, 85, "roll 4", .36), (86, 86, "roll 8", .46), (87, 87, "roll 16", .62), (92, 92, "roll 16", .36),
]
TOM = [
    (31, 31, "tom late", .62), (46, 46, "tom late", .66), (47, 47, "tom fill", .70),
    (71, 71, "tom late", .66), (91, 91, "tom late", .62), (92, 92, "tom fill", .66),
]
TOM_PITCH = (196, 156, 131, 98)     # hits go down through these, then start over

BASS_PLAN = [                       # + openness 0..1
    (12, 14, "off", .62, .15), (16, 30, "off,round,off,walk", 1, .50), (31, 31, "round", 1, .55),
    (32, 45, "skip,skip b", 1, .62), (46, 46, "hit", 1, .7),
    (52, 55, "long", .50, .10),
    (56, 71, "round,walk", 1, .66),
    (72, 79, "skip,round", 1, .55), (80, 86, "skip,skip b", 1, .75),
    (88, 91, "round,walk", 1, .80), (92, 92, "skip", 1, .85),
]
SAW_PLAN = [                        # + openness
    (0, 15, "loop,loop b", .70, .85), (16, 31, "push,loop b", 1.0, .84),
    (32, 45, "push", .30, .60),
    (64, 71, "push", .46, .72), (84, 86, "push", .40, .80),
    (88, 90, "push,loop b", .60, .86), (91, 91, "hits 2", .70, .86), (92, 92, "hits 4", .72, .90),
]
PIANO_PLAN = [                      # + hardness
    (24, 31, "hit", .46, .8), (32, 45, "piano,piano b", .80, .85), (46, 46, "hit", .95, .95),
    (50, 55, "hold", .34, .40),
    (56, 71, "piano b", .56, .75),
    (88, 90, "piano,piano b", .66, .95), (91, 91, "hits 2", .80, 1), (92, 92, "hits 4", .80, 1),
    (93, 93, "hold", .64, .75),
]
ORGAN_PLAN = [
    (72, 86, "organ,organ b", .74, 0), (87, 87, "hold", .60, 0), (88, 90, "organ", .38, 0),
]
PAD_PLAN = [                        # (bars, level, brightness Hz, attack s, octave shift, swept?, release s)
    (0, 15, .23, 2400, .35, 0, 1, .7), (16, 31, .17, 2600, .10, 0, 1, .7), (40, 45, .16, 3000, .10, 12, 0, .7),
    (46, 47, .26, 2600, .02, 0, 0, .7),
    (48, 55, .26, 3000, .40, 0, 0, .7), (50, 55, .12, 5200, .60, 12, 0, .7),
    (56, 71, .20, 3600, .08, 12, 0, .7), (72, 87, .17, 3000, .10, 12, 0, .7), (80, 87, .10, 5200, .10, 24, 0, .7),
    (88, 92, .24, 5000, .04, 12, 0, .7),
    (93, 95, .28, 3200, .02, 0, 1, 4.5), (93, 95, .14, 5600, .05, 12, 1, 4.0),
]
MELODY_PLAN = [                     # + octave shift, openness
    (48, 55, "hook 1,hook 2,hook 3,hook 4,hook 1,hook 2,hook 3,hook 4 end", .44, 0, .24),
    (56, 71, "hook 1,hook 2,hook 3,hook 4,hook 1,hook 2,hook 3,hook 4 end", .66, 0, .60),
    (64, 71, "hook 1,hook 2,hook 3,hook 4,hook 1,hook 2,hook 3,hook 4 end", .24, 12, .50),
    (80, 83, "hook 1,hook 2,hook 3,hook 4", .20, 0, .30),
    (88, 92, "hook 1,hook 2,hook 3,hook 4,hook 4 end", .58, 0, .60),
    (88, 92, "hook 1,hook 2,hook 3,hook 4,hook 4 end", .26, 12, .60),
    (93, 93, "last", .40, 0, .40),
]

# ---- movement -------------------------------------------------------------------
SWEEP = [                           # (first bar, end bar, from Hz, to Hz)
    (0, 8, 560, 2200), (8, 14, 2200, 5000), (14, 16, 5000, 13000), (16, 46, 15000, 17000),
    (46, 48, 17000, 900), (48, 52, 1400, 2600), (52, 56, 2600, 15000),
    (56, 72, 17000, 17000), (72, 76, 2600, 6500), (76, 88, 6500, 17500), (88, 93, 18000, 18000),
    (93, 100, 14000, 900),
]
PUMP = [                            # (first bar, last bar, depth); one duck on every beat
    (0, 7, .45), (8, 15, .66), (16, 45, .80), (46, 47, .45), (48, 55, .38), (56, 86, .80), (87, 87, .55),
    (88, 92, .80),
]
THROW = [(31, 3, 1, 1.8), (46, 0, 4, 2.2), (87, 2, 2, 1.8), (92, 3, 1, 1.6)]   # (bar, beat, beats, factor)
CRASH = [(0, .14), (16, .50), (24, .28), (32, .46), (40, .28), (48, .30), (56, .54), (64, .36), (72, .46),
         (80, .36), (88, .54), (90, .34), (92, .30), (93, .56)]
IMPACT = [(0, .34), (16, .50), (48, .60), (56, .55), (72, .35), (88, .60), (93, .62)]
RISER = [(12, 16, .26), (44, 46, .20), (52, 56, .26), (84, 88, .28)]
STATIC = [(0, 8, .22, .01, 5), (8, 12, .07, 1, 3), (48, 54, .20, .3, 8)]   # (first bar, end bar, level, fade in, fade out)
REVERSE = [(7, .12), (15, .22), (31, .20), (47, .22), (55, .26), (71, .22), (79, .16), (87, .26)]  # in the bar's last two beats

# ==== from here on: the tables become a score ====================================
INSTRUMENT = dict(kick=1, clap=2, hat=3, open=4, shaker=5, rim=6, snare=7, tom=8, ride=9,
                  bass=20, saw=21, piano=22, organ=23, pad=24, lead=25,
                  crash=40, riser=41, impact=42, reverse=43, static=44, pump=80, sweep=81, throw=82, desk=99)
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


def chord(bar):
    for first, last, names in HARMONY:
        if first <= bar <= last:
            names = names.split()
            return CHORDS[names[(bar - first) % len(names)]]
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
    for bar, step, level in hits(SNARE):
        score.play("snare", at(bar, step), .5, level)
    for count, (bar, step, level) in enumerate(hits(TOM)):
        drum = count % len(TOM_PITCH)
        score.play("tom", at(bar, step), 1, level, TOM_PITCH[drum], .32 + .12 * drum)


def bass(score):
    for bar, pattern, (level, openness) in rows(BASS_PLAN, BASS):
        root = chord(bar)[0]
        for step, interval, length, accent in pattern:
            score.play("bass", at(bar, step), length / 4, level * accent, root + interval, openness)


def chords(score, name, plan, doubled):
    for bar, pattern, (level, colour) in rows(plan, STABS):
        for step, length, accent in pattern:
            voicing = chord(bar + 1 if step >= 14 and bar + 1 < BARS else bar)[1]
            for note in voicing:
                score.play(name, at(bar, step), length / 4, level * accent * .5, note, colour)
            for octave, share in doubled:
                score.play(name, at(bar, step), length / 4, level * accent * share, voicing[-1] + octave, colour)


def pads(score):
    for first, last, level, bright, attack, octave, swept, release in PAD_PLAN:
        bar = first
        while bar <= last:          # a chord that stays is one long note
            end = bar + 1
            while end <= last and chord(end) == chord(bar):
                end += 1
            for note in chord(bar)[1]:
                score.play("pad", bar * 4, (end - bar) * 4, level * .6, note + octave, bright, attack, swept, release)
            bar = end


def melody(score):
    for bar, pattern, (level, octave, openness) in rows(MELODY_PLAN, MELODY):
        for item in pattern.split(","):
            step, note, length = item.split()
            score.play("lead", at(bar, int(step)), float(length) / 4 * .94, level, midi(note) + octave, openness)


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


def movement(score):
    for first, last, depth in PUMP:
        for beat in range(first * 4, (last + 1) * 4):
            score.play("pump", beat, .99, depth)
    for first, end, low, high in SWEEP:
        score.play("sweep", first * 4, (end - first) * 4, low, high)
    for bar, beat, beats, factor in THROW:
        score.play("throw", bar * 4 + beat, beats, factor)
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
    chords(score, "piano", PIANO_PLAN, [(12, .34), (0, .12)])
    chords(score, "organ", ORGAN_PLAN, [(12, .22)])
    pads(score)
    melody(score)
    effects(score)
    movement(score)
    print("<CsoundSynthesizer>\n<CsInstruments>", orchestra, "</CsInstruments>\n<CsScore>", sep="\n")
    print(f"t 0 {BPM}", score.text(), "e", "</CsScore>\n</CsoundSynthesizer>", sep="\n")


if __name__ == "__main__":
    main()
