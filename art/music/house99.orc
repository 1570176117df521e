; house99: the instruments and the mixing desk.
;
; The score (written by song.py) counts in beats; Csound turns start times and
; lengths into seconds before an instrument sees them, so p3 is in seconds here.
; Every voice takes p4 = level (0..1).  Instruments run in the order of their
; numbers, so the desk comes last and clears the busses it has read.
;
;   1 kick      2 clap      3 closed hat   4 open hat   5 shaker   6 rim
;   7 snare     8 tom       9 ride      10 wood
;  20 bass     21 saw stab  22 piano      23 organ     24 pad      25 lead
;  26 strings  27 glass     28 pluck
;  40 crash    41 riser     42 impact     43 reversed crash   44 static
;  45 can      46 zip       47 flush      48 pop       49 zap      50 switch
;  80 pump     81 sweep     82 send throw 83 gap       99 desk

sr     = 44100
ksmps  = 15
nchnls = 2
0dbfs  = 1
seed 99

; ---- busses -----------------------------------------------------------------
gaKick  init 0                    ; mono, never ducked
gaDrumL init 0                    ; the rest of the kit
gaDrumR init 0
gaBass  init 0                    ; mono, ducked
gaMuL   init 0                    ; music that stays open, ducked
gaMuR   init 0
gaLeadL init 0                    ; the hook, ducked half as deep
gaLeadR init 0
gaSwL   init 0                    ; music behind the sweep filter, ducked
gaSwR   init 0
gaRevL  init 0                    ; reverb send
gaRevR  init 0
gaDelL  init 0                    ; delay send
gaDelR  init 0
gaFxL   init 0                    ; jokes and noises, which sound on in the gaps
gaFxR   init 0
gkDuck  init 1                    ; side-chain gain, written by the pump
gkSweep init 18000                ; cutoff of the sweep filter in Hz
gkThrow init 1                    ; multiplies reverb and delay sends of music
gkGap   init 1                    ; 0 while the band holds its breath

; ---- waves ------------------------------------------------------------------
giSine   ftgen 0, 0, 16384, 10, 1
; a struck string, bright and mellow: the hammer sits at about one eighth
giStrB   ftgen 0, 0, 16384, 10, 1, .82, .62, .50, .38, .28, .17, .02, .10, .13, .11, .08, .06, .05, .03, .02
giStrM   ftgen 0, 0, 16384, 10, 1, .45, .18, .08, .04, .02
; drawbars
giOrgan  ftgen 0, 0, 16384, 10, .75, 1, .42, .50, 0, .16, 0, .20

opcode open, 0, aakk               ; to the open music bus, with reverb and delay sends
  aL, aR, kRev, kDel xin
  gaMuL  += aL
  gaMuR  += aR
  gaRevL += aL * kRev * gkThrow
  gaRevR += aR * kRev * gkThrow
  gaDelL += aL * kDel * gkThrow
  gaDelR += aR * kDel * gkThrow
endop

opcode swept, 0, aak               ; to the swept bus; its sends are taken behind the filter
  aL, aR, kLev xin
  gaSwL += aL * kLev
  gaSwR += aR * kLev
endop

opcode metal, a, i                 ; six squares at inharmonic ratios and some noise
  iBase xin
  a1 vco2 .3, iBase * 2.00, 10
  a2 vco2 .3, iBase * 3.01, 10
  a3 vco2 .3, iBase * 4.17, 10
  a4 vco2 .3, iBase * 5.43, 10
  a5 vco2 .3, iBase * 6.79, 10
  a6 vco2 .3, iBase * 8.21, 10
  an noise .8, 0
  xout (a1 + a2 + a3 + a4 + a5 + a6) * .5 + an * .6
endop

; ---- drums ------------------------------------------------------------------
instr 1 ; kick: a sine that falls in two stages, driven, with a click.  p5 = tone (low-pass, Hz)
  af   expseg 460, .007, 200, .034, 76, .10, 50, .4, 48
  aph  phasor af
  ab   tablei aph, giSine, 1
  aA   expseg 1, .09, .74, .15, .18, .14, .001, 1, .001
  anz  noise 1, 0
  anz  butterhp anz, 2800
  aC   expseg 1, .004, .06, .02, .0001, 1, .0001
  aOn  linseg 0, .0006, 1, p3, 1
  aOff linseg 1, p3 - .01, 1, .01, 0
  aOut = (tanh(ab * aA * 1.9) * .80 + anz * aC * .16) * aOn * aOff * p4
  aOut butterlp aOut, p5
  gaKick += aOut
endin

instr 2 ; clap: four bursts, then a short room
  aA   expseg 1, .009, .07, .0002, 1, .009, .07, .0002, 1, .008, .10, .0002, 1, .05, .28, .13, .002, 1, .001
  aOn  linseg 0, .001, 1, p3 - .011, 1, .01, 0
  anL  noise 1, 0
  anR  noise 1, 0
  anC  noise 1, 0
  aL   butterbp anC * .8 + anL * .6, 1300, 1500
  aR   butterbp anC * .8 + anR * .6, 1300, 1500
  aHL  butterhp anL, 4500
  aHR  butterhp anR, 4500
  aL   = (aL * 1.35 + aHL * .26) * aA * aOn * p4
  aR   = (aR * 1.35 + aHR * .26) * aA * aOn * p4
  gaDrumL += aL
  gaDrumR += aR
  gaRevL  += aL * .14
  gaRevR  += aR * .14
endin

instr 3 ; closed hat.  p5 = pan 0..1
  am   metal 217
  am   butterhp am, 7800
  aA   expseg 1, .022, .16, .045, .001, 1, .001
  aOn  linseg 0, .0007, 1, p3, 1
  aOut = am * aA * aOn * p4 * 1.45
  gaDrumL += aOut * sqrt(1 - p5)
  gaDrumR += aOut * sqrt(p5)
endin

instr 4 ; open hat, shut before the next beat
  am   metal 206
  am   butterhp am, 6800
  am   pareq am, 9800, 1.4, .7
  aA   expseg 1, .05, .55, .10, .14, .05, .001, 1, .001
  aOn  linseg 0, .0008, 1, p3, 1
  aOut = am * aA * aOn * p4
  aLate delay aOut, .0006
  gaDrumL += aOut
  gaDrumR += aLate
  gaRevL  += aOut * .03
  gaRevR  += aOut * .03
endin

instr 5 ; shaker.  p5 = pan
  anz  noise 1, 0
  anz  butterbp anz, 6200, 3200
  aA   linseg 0, .014, 1, .022, .30, .06, 0, 1, 0
  aOut = anz * aA * p4 * 1.6
  gaDrumL += aOut * sqrt(1 - p5)
  gaDrumR += aOut * sqrt(p5)
endin

instr 6 ; rim: two short resonances.  p5 = pan
  anz  noise 1, 0
  aB   linseg 0, .0005, 1, .002, 0, 1, 0
  a1   mode anz * aB, 1720, 34
  a2   mode anz * aB, 2630, 22
  aOff linseg 1, p3 - .02, 1, .02, 0
  aOut = (a1 + a2 * .6) * aOff * p4 * .012
  gaDrumL += aOut * sqrt(1 - p5)
  gaDrumR += aOut * sqrt(p5)
  gaRevL  += aOut * .25
  gaRevR  += aOut * .25
endin

instr 7 ; snare for rolls: a drum tone and a rattle
  aT   expseg 1, .05, .2, .08, .001, 1, .001
  af   expseg 320, .02, 196, 1, 190
  ad   oscili aT, af, giSine
  anz  noise 1, 0
  anz  butterhp anz, 1600
  aN   expseg 1, .06, .22, .10, .002, 1, .001
  aOn  linseg 0, .0008, 1, p3, 1
  aOut = (ad * .5 + anz * aN * .34) * aOn * p4
  aLate delay aOut, .0008
  gaDrumL += aOut
  gaDrumR += aLate
  gaRevL  += aOut * .12
  gaRevR  += aLate * .12
endin

instr 8 ; tom.  p5 = pitch in Hz, p6 = pan
  af   expseg p5 * 1.7, .03, p5 * 1.06, .3, p5 * .94, 1, p5 * .94
  aT   expseg 1, .12, .35, .22, .001, 1, .001
  ad   oscili 1, af, giSine
  anz  noise 1, 0
  anz  butterbp anz, p5 * 8, p5 * 5
  aC   expseg 1, .02, .001, 1, .001
  aOn  linseg 0, .001, 1, p3 - .011, 1, .01, 0
  aOut = (tanh(ad * aT * 1.6) * .7 + anz * aC * .3) * aOn * p4
  gaDrumL += aOut * sqrt(1 - p6)
  gaDrumR += aOut * sqrt(p6)
  gaRevL  += aOut * .10
  gaRevR  += aOut * .10
endin

instr 9 ; ride: brighter metal, long and quiet
  am   metal 311
  am   butterhp am, 5200
  aA   expseg 1, .03, .35, .25, .08, .3, .001, 1, .001
  aOn  linseg 0, .001, 1, p3 - .021, 1, .02, 0
  aOut = am * aA * aOn * p4
  aLate delay aOut, .0009
  gaDrumL += aLate
  gaDrumR += aOut
endin

instr 10 ; wood: a lid of wood falls on wood.  p5 = pitch in Hz, p6 = pan
  anz  noise 1, 0
  aB   linseg 0, .0004, 1, .003, 0, 1, 0
  a1   mode anz * aB, p5, 22
  a2   mode anz * aB, p5 * 2.37, 18
  a3   mode anz * aB, p5 * 3.86, 14
  aOff linseg 1, p3 - .02, 1, .02, 0
  aOut = (a1 + a2 * .6 + a3 * .3) * aOff * p4 * .016
  gaDrumL += aOut * sqrt(1 - p6)
  gaDrumR += aOut * sqrt(p6)
  gaRevL  += aOut * .20
  gaRevR  += aOut * .20
endin

; ---- music ------------------------------------------------------------------
instr 20 ; bass.  p5 = MIDI note, p6 = openness 0..1
  iF   = cpsmidinn(p5)
  a1   vco2 .5, iF, 0
  a2   vco2 .5, iF * 1.006, 2, .40
  kE   expseg 1, .03, .75, .16, .25, .6, .15
  kCut = 220 + (900 + 3400 * p6) * kE * kE
  am   moogladder a1 + a2, kCut, .25
  as   oscili .68, iF, giSine
  as2  oscili .16, iF * 2, giSine
  aA   linseg 0, .004, 1, p3 - .034, .86, .03, 0
  gaBass += tanh((am * 1.15 + as * .8 + as2) * 1.45) * aA * p4
endin

instr 21 ; saw stab.  p5 = MIDI note, p6 = openness 0..1, through the sweep
  iF   = cpsmidinn(p5)
  a1   vco2 .33, iF * 1.0035
  a2   vco2 .33, iF * .9965
  a3   vco2 .26, iF * 2.002, 2, .3
  a5   vco2 .33, iF * 1.009
  a6   vco2 .33, iF * .991
  kE   expsegr 1, .03, .8, .16, .24, .5, .1, .1, .06
  kCut = 260 + (900 + 8600 * p6 * p6) * kE
  aL   moogladder a1 + a5 * .8 + a3 * .5, kCut, .22
  aR   moogladder a2 + a6 * .8 + a3 * .5, kCut * 1.04, .22
  aA   linsegr 0, .003, 1, p3, .7, .10, 0
  swept aL * aA * p4, aR * aA * p4, 1
endin

instr 22 ; piano.  p5 = MIDI note, p6 = hardness 0..1, through the sweep
  iF   = cpsmidinn(p5)
  iLong = .9 + 1.4 * (84 - p5) / 36
  kB   expseg 1, .08, .55, .5, .12, iLong, .04
  kB   = kB * (.35 + .65 * p6)
  aD   expseg 1, .10, .62, iLong, .10, iLong, .01
  aA   linsegr 0, .0015, 1, p3, 1, .12, 0
  iDt  = .0011 + rnd(.0004)
  aB1  oscili 1, iF * (1 + iDt), giStrB
  aM1  oscili 1, iF * (1 + iDt), giStrM
  aB2  oscili 1, iF * (1 - iDt), giStrB
  aM2  oscili 1, iF * (1 - iDt), giStrM
  aB3  oscili 1, iF, giStrB, .3
  aHam noise 1, 0
  aHam butterbp aHam, 2400, 2600
  aHE  expseg 1, .014, .01, .03, .0001, 1, .0001
  aC   = aB3 * kB * .5 + aHam * aHE * p6 * .35
  aL   = (aB1 * kB + aM1 * (1 - kB) + aC) * .40
  aR   = (aB2 * kB + aM2 * (1 - kB) + aC) * .40
  iPan = (p5 - 66) / 60
  swept aL * aD * aA * p4 * (1 - iPan), aR * aD * aA * p4 * (1 + iPan), 1
endin

instr 23 ; organ: drawbars, percussion on the third harmonic, a key click, a slow rotor
  iF   = cpsmidinn(p5)
  aO   oscili .5, iF, giOrgan, rnd(.9)
  aP   oscili 1, iF * 3, giSine
  aPE  expseg .55, .11, .08, .25, .001, 1, .001
  aNz  noise 1, 0
  aNz  butterbp aNz, 3200, 2400
  aNE  expseg 1, .008, .001, 1, .001
  aA   linsegr 0, .003, 1, p3, .92, .035, 0
  aS   = tanh((aO + aP * aPE * .55 + aNz * aNE * .30) * 1.3) * aA * p4 * .7
  kRot lfo 1, 5.9
  aDl  interp .0016 + .0003 * kRot
  aDr  interp .0016 - .0003 * kRot
  aL   vdelay aS, aDl * 1000, 20
  aR   vdelay aS, aDr * 1000, 20
  swept aL * (1 + .18 * kRot), aR * (1 - .18 * kRot), 1
endin

instr 24 ; pad.  p5 = MIDI note, p6 = brightness in Hz, p7 = attack in s,
         ; p8 = 1 swept or 0 open, p9 = release in s
  iF   = cpsmidinn(p5)
  kV   lfo .0025, .21 + rnd(.2)
  a1   vco2 .25, iF * (1.004 + kV)
  a2   vco2 .25, iF * (.9958 - kV)
  a3   vco2 .22, iF * (1 + kV * .5), 4, .5
  a5   vco2 .22, iF * (1.010 - kV)
  a6   vco2 .22, iF * (.990 + kV)
  kW   lfo .18, .09 + rnd(.03)
  aL   butterlp a1 + a5 + a3 * .9 + (a2 + a6) * .22, p6 * (1 + kW)
  aR   butterlp a2 + a6 + a3 * .9 + (a1 + a5) * .22, p6 * (1 - kW)
  aL   butterhp aL, 160
  aR   butterhp aR, 160
  aA   linsegr 0, p7, 1, p3, 1, p9, 0
  aL   = aL * aA * p4
  aR   = aR * aA * p4
  if p8 > .5 then
    swept aL, aR, 1
  else
    open aL, aR, .34, 0
  endif
endin

instr 25 ; lead for the hook: a round pulse with a bell on its front.  p5 = MIDI note, p6 = openness
  iF   = cpsmidinn(p5)
  kVd  linseg 0, .18, 0, .25, 1, 4, 1
  kV   lfo .0038, 5.3
  kF   = iF * (1 + kV * kVd)
  a1   vco2 .40, kF * 1.0025, 2, .46
  a2   vco2 .40, kF * .9975, 2, .54
  aT   vco2 .45, kF, 12
  kE   expseg 1, .05, .72, .25, .40, 1, .25
  kCut = 500 + (1400 + 5200 * p6) * kE
  aL   moogladder a1 * .80 + a2 * .40 + aT, kCut, .18      ; leaning apart, yet one voice in mono
  aR   moogladder a2 * .80 + a1 * .40 + aT, kCut, .18
  kI   expseg 2.6, .06, .8, .4, .05, 2, .02
  am   oscili kI * iF * 2, iF * 2.001, giSine
  ac   oscili .40, iF + am, giSine
  aBE  expseg 1, .12, .4, .5, .01, 2, .001
  aA   linsegr 0, .004, 1, .08, .80, p3, .70, .09, 0
  aB   = ac * aBE
  aL   = (aL + aB) * aA * p4
  aR   = (aR + aB * .92) * aA * p4
  gaLeadL += aL
  gaLeadR += aR
  gaRevL  += aL * .24 * gkThrow
  gaRevR  += aR * .24 * gkThrow
  gaDelL  += aL * .34 * gkThrow
  gaDelR  += aR * .34 * gkThrow
endin

instr 26 ; strings for the counter-melody: detuned saws that swell a little.  p5 = MIDI note, p6 = openness
  iF   = cpsmidinn(p5)
  kVd  linseg 0, .25, 1, 8, 1
  kV   lfo .0030 * kVd, 5.1
  kF   = iF * (1 + kV)
  a1   vco2 .30, kF * 1.0042
  a2   vco2 .30, kF * .9958
  a3   vco2 .24, kF * 1.0085
  a4   vco2 .24, kF * .9915
  kE   linseg .5, .20, 1, 4, .85
  kCut = (900 + 4600 * p6) * kE
  aL   butterlp a1 + a4 + a3 * .3, kCut
  aR   butterlp a2 + a3 + a4 * .3, kCut
  aL   butterhp aL, 220
  aR   butterhp aR, 220
  aA   linsegr 0, .045, 1, p3, .9, .14, 0
  aL   = aL * aA * p4
  aR   = aR * aA * p4
  gaLeadL += aL
  gaLeadR += aR
  gaRevL  += aL * .34 * gkThrow
  gaRevR  += aR * .34 * gkThrow
  gaDelL  += aL * .14 * gkThrow
  gaDelR  += aR * .14 * gkThrow
endin

instr 27 ; glass: a struck bottle, two modulated sines and a tick.  p5 = MIDI note, p6 = pan
  iF   = cpsmidinn(p5)
  aI   expseg 1.7, .05, .5, .5, .03, 4, .01
  am   oscili aI * iF * 3.5, iF * 3.502, giSine
  a1   oscili .6, iF + am, giSine
  a2   oscili .22, iF * 2.76, giSine
  aE1  expseg 1, .30, .30, 1.2, .01, 4, .001
  aE2  expseg 1, .08, .20, .3, .005, 4, .001
  anz  noise 1, 0
  anz  butterbp anz, 5200, 2600
  aEN  expseg 1, .006, .01, 1, .0001
  aOn  linseg 0, .001, 1, p3 - .051, 1, .05, 0
  aOut = (a1 * aE1 + a2 * aE2 + anz * aEN * .25) * aOn * p4
  aL   = aOut * sqrt(1 - p6) * 1.3
  aR   = aOut * sqrt(p6) * 1.3
  gaLeadL += aL
  gaLeadR += aR
  gaRevL  += aL * .42 * gkThrow
  gaRevR  += aR * .42 * gkThrow
  gaDelL  += aL * .30 * gkThrow
  gaDelR  += aR * .30 * gkThrow
endin

instr 28 ; pluck: short and round, for runs.  p5 = MIDI note, p6 = openness, p7 = pan
  iF   = cpsmidinn(p5)
  a1   vco2 .5, iF * 1.002, 2, .30
  a2   vco2 .4, iF * .998
  kE   expseg 1, .06, .30, .20, .05, 1, .01
  aOut moogladder a1 + a2, 320 + (1600 + 6000 * p6) * kE, .30
  aA   expseg 1, .12, .40, .30, .02, 1, .001
  aOn  linsegr 0, .002, 1, p3, 1, .05, 0
  aOut = aOut * aA * aOn * p4
  open aOut * sqrt(1 - p7), aOut * sqrt(p7), .22, .40
endin

; ---- effects ----------------------------------------------------------------
instr 40 ; crash
  am   metal 297
  anL  noise 1, 0
  anR  noise 1, 0
  aL   butterhp am * .40 + anL * .6, 4000
  aR   butterhp am * .40 + anR * .6, 4000
  aA   expseg 1, .20, .45, 1.4, .03, 1.2, .001, 1, .001
  aOn  linseg 0, .002, 1, p3 - .052, 1, .05, 0
  aL   = aL * aA * aOn * p4
  aR   = aR * aA * aOn * p4
  gaDrumL += aL
  gaDrumR += aR
  gaRevL  += aL * .08
  gaRevR  += aR * .08
endin

instr 41 ; riser: a noise band and a tone that climb, through a phaser that turns ever faster
  anL  noise 1, 0
  anR  noise 1, 0
  kF   expseg 420, p3, 8200
  aL   butterbp anL, kF, kF * .4
  aR   butterbp anR, kF * 1.03, kF * .4
  kT   expseg 155.56, p3, 622.25
  aT   vco2 .18, kT
  aT   butterlp aT, kF * .7
  kSpd expseg .25, p3, 9
  kPh  lfo .6, kSpd
  aPL  phaser1 aL, kF * .5 * (1 + kPh), 6, .6
  aPR  phaser1 aR, kF * .5 * (1 - kPh), 6, .6
  aA   expseg .012, p3 - .06, 1, .06, .001
  aL   = (aL * .7 + aPL * .5 + aT) * aA * p4
  aR   = (aR * .7 + aPR * .5 + aT) * aA * p4
  open aL, aR, .30, .10
endin

instr 42 ; impact: a low fall and a wash
  af   expseg 120, .25, 46, 3, 34
  ab   oscili 1, af, giSine
  aA   expseg 1, .5, .25, 1.2, .002, 1, .001
  aOn  linseg 0, .004, 1, p3 - .054, 1, .05, 0
  anL  noise 1, 0
  anR  noise 1, 0
  kN   expseg 5200, 1.6, 300, 3, 200
  anL  butterlp anL, kN
  anR  butterlp anR, kN
  gaKick  += ab * aA * aOn * p4
  aL   = anL * aA * aOn * p4 * .28
  aR   = anR * aA * aOn * p4 * .28
  gaDrumL += aL
  gaDrumR += aR
  gaRevL  += aL * .5
  gaRevR  += aR * .5
endin

instr 43 ; reversed crash: swells and stops on the beat
  anL  noise 1, 0
  anR  noise 1, 0
  aL   butterhp anL, 3600
  aR   butterhp anR, 3600
  aA   expseg .004, p3 - .02, 1, .02, .001
  gaDrumL += aL * aA * p4
  gaDrumR += aR * aA * p4
endin

instr 44 ; static: a badly tuned set, hiss and crackle.  p5 = fade-in, p6 = fade-out in seconds
  anL  noise 1, 0
  anR  noise 1, 0
  kW   lfo .3, .37
  aL   butterbp anL, 4800 * (1 + kW), 5200
  aR   butterbp anR, 4800 * (1 - kW), 5200
  aCL  dust2 1.6, 9
  aCR  dust2 1.6, 9
  aCL  butterbp aCL, 3400, 2800
  aCR  butterbp aCR, 4100, 2800
  aA   linseg 0, p5, 1, p3 - p5 - p6, 1, p6, 0
  aL   = (aL * .12 + aCL) * aA * p4
  aR   = (aR * .12 + aCR) * aA * p4
  gaFxL  += aL * 1.3
  gaFxR  += aR * 1.3
  gaRevL += aL * .10
  gaRevR += aR * .10
endin

instr 45 ; can: a ring pull gives way, then it hisses
  anL  noise 1, 0
  anR  noise 1, 0
  aK   expseg 1, .012, .25, .03, .002, 2, .001
  aB   butterbp anL, 2300, 1800
  kF   expseg 3800, .10, 7400, .5, 5200, 2, 4800
  aHL  butterbp anL, kF, 4200
  aHR  butterbp anR, kF, 4200
  aH   expseg .001, .050, .001, .012, 1, .09, .34, .40, .01, 2, .001
  aL   = (aB * aK * 1.2 + aHL * aH * .8) * p4
  aR   = (aB * aK * 1.2 + aHR * aH * .8) * p4
  gaFxL  += aL
  gaFxR  += aR
  gaRevL += aL * .08
  gaRevR += aR * .08
endin

instr 46 ; zip: teeth that pass ever faster and brighter
  kRate expseg 28, p3, 130
  kF    expseg 1500, p3, 6200
  aT    mpulse 1, 1 / kRate
  anz   noise 1, 0
  aE    butterlp aT, 900
  aZ    = anz * aE * 34 + aT * 3
  aZ    butterbp aZ, kF, kF * .7
  aA    linseg 0, .02, .6, p3 - .06, 1, .03, 0, 1, 0
  kPan  line .3, p3, .7
  gaFxL += aZ * aA * p4 * sqrt(1 - kPan)
  gaFxR += aZ * aA * p4 * sqrt(kPan)
endin

instr 47 ; flush: a rush that turns and goes down the drain
  anL  noise 1, 0
  anR  noise 1, 0
  kSpd expseg 2, p3, 11
  kT   lfo .35, kSpd
  kF   expseg 2600, p3, 340
  aL   butterbp anL, kF * (1 + kT), kF * 1.1
  aR   butterbp anR, kF * (1 - kT), kF * 1.1
  aA   linseg 0, .05, 1, p3 * .6, .8, p3 * .3, 0, 1, 0
  gaFxL += aL * aA * p4
  gaFxR += aR * aA * p4
endin

instr 48 ; pop: a cork, or a box that gives way.  p5 = pitch in Hz
  af   expseg p5, .05, p5 * 2.6, 1, p5 * 2.6
  ap   oscili 1, af, giSine
  aA   expseg 1, .03, .5, .05, .001, 1, .001
  aOn  linseg 0, .0015, 1, p3, 1
  anz  noise 1, 0
  anz  butterbp anz, 2600, 2600
  aN   expseg 1, .012, .001, 1, .0001
  aOut = (ap * aA + anz * aN * .4) * aOn * p4
  gaFxL  += aOut
  gaFxR  += aOut
  gaRevL += aOut * .30
  gaRevR += aOut * .30
endin

instr 49 ; zap: the picture of the set tears.  p5 = pan
  kF   expseg 5200, p3, 240
  aT   vco2 .4, kF, 2, .2
  anz  noise .8, 0
  kG   lfo 1, 61, 3
  aOut = (aT + anz * .5) * (.25 + .75 * kG)
  aOut butterbp aOut, 2400, 3400
  aA   linseg 0, .002, 1, p3 - .012, .5, .01, 0, 1, 0
  gaFxL  += aOut * aA * p4 * sqrt(1 - p5)
  gaFxR  += aOut * aA * p4 * sqrt(p5)
  gaRevL += aOut * aA * p4 * .2
  gaRevR += aOut * aA * p4 * .2
endin

instr 50 ; switch: somebody turns the set off
  anz  noise 1, 0
  aB   linseg 0, .0004, 1, .002, 0, 1, 0
  a1   mode anz * aB, 980, 9
  a2   mode anz * aB, 3150, 14
  kF   expseg 9000, .22, 900, 1, 800
  aS   oscili .06, kF, giSine
  aSE  expseg 1, .22, .002, 1, .001
  aOff linseg 1, p3 - .02, 1, .02, 0
  aOut = (a1 * .020 + a2 * .016 + aS * aSE) * aOff * p4
  gaFxL += aOut
  gaFxR += aOut
endin

; ---- movement ---------------------------------------------------------------
instr 80 ; pump: one per beat.  p4 = depth 0..1
  kD   linseg 1, .035, 1, .05, .90, .24, 0, 1, 0
  gkDuck = 1 - p4 * kD
endin

instr 81 ; sweep: p4 Hz to p5 Hz
  gkSweep expon p4, p3, p5
endin

instr 82 ; throw: multiplies the sends of music while it lasts
  gkThrow linseg 1, .02, p4, p3 - .07, p4, .05, 1
endin

instr 83 ; gap: the band stops; what already rings in the room rings on
  gkGap linseg 1, .008, 0, p3 - .012, 0, .004, 1
endin

instr 99 ; the desk
  kDuckS port gkDuck, .003, 1
  aDuck  interp kDuckS
  kCut   port gkSweep, .01, 500
  aSwL   butterlp gaSwL, kCut
  aSwR   butterlp gaSwR, kCut
  aSwL   butterlp aSwL, kCut
  aSwR   butterlp aSwR, kCut
  kPeak  = 1 + 1.1 * limit(1 - kCut / 8000, 0, 1)   ; it whistles a little while it is low
  aSwL   pareq aSwL, kCut * .9, kPeak, 2.2, 0
  aSwR   pareq aSwR, kCut * .9, kPeak, 2.2, 0
  aSwL   butterhp aSwL, 130
  aSwR   butterhp aSwR, 130

  ; dotted-eighth ping-pong
  iTime  = 60 / 128 * .75
  aEL    init 0
  aER    init 0
  aInL   = gaDelL + aSwL * .20 * gkThrow
  aInR   = gaDelR + aSwR * .20 * gkThrow
  aEL    delay (aInL + aInR) * .5 + aER * .44, iTime
  aER    delay aEL * .9, iTime
  aEL    butterlp aEL, 4600
  aER    butterlp aER, 4600
  aEL    butterhp aEL, 320
  aER    butterhp aER, 320

  aRvL   butterhp gaRevL + aSwL * .20 * gkThrow + aEL * .22, 240
  aRvR   butterhp gaRevR + aSwR * .20 * gkThrow + aER * .22, 240
  aRL, aRR reverbsc aRvL, aRvR, .86, 9000

  aGap   interp gkGap
  aRoom  = .35 + .65 * aGap
  aMuL   = ((gaMuL + aSwL) * aGap + (aEL * .60 + aRL * .50) * aRoom) * aDuck + gaLeadL * (.5 + .5 * aDuck) * aGap
  aMuR   = ((gaMuR + aSwR) * aGap + (aER * .60 + aRR * .50) * aRoom) * aDuck + gaLeadR * (.5 + .5 * aDuck) * aGap
  aMuL   pareq aMuL, 300, .80, .8, 0        ; a little out of the mud
  aMuR   pareq aMuR, 300, .80, .8, 0
  aMuL   pareq aMuL, 2600, 1.70, .6, 2
  aMuR   pareq aMuR, 2600, 1.70, .6, 2

  aBs    = gaBass * aDuck * aGap
  aKk    = gaKick * aGap
  aL     = aMuL * 1.70 + gaDrumL * .88 * aGap + aBs * .36 + aKk * .485 + gaFxL
  aR     = aMuR * 1.70 + gaDrumR * .88 * aGap + aBs * .36 + aKk * .485 + gaFxR

  ; below 150 Hz everything is mono; above, the sides are held in a little
  aMid   = (aL + aR) * .5
  aSide  butterhp (aL - aR) * .42, 150
  aMid   butterhp aMid, 26
  aL     = aMid + aSide
  aR     = aMid - aSide

  ; bus compressor: 2 to 1 from -12 dB, slow enough to let the kick's front through
  aLoud  = abs(aL) + abs(aR)
  aEnv   follow2 aLoud * .5, .012, .14
  kOver  = dbamp(downsamp(aEnv) + .00001) + 12
  kGain  port ampdb(-.5 * limit(kOver, 0, 12)), .004, 1
  aGain  interp kGain
  aL     = aL * aGain * 1.18
  aR     = aR * aGain * 1.18

  aL     = tanh(aL * 1.05) * .80
  aR     = tanh(aR * 1.05) * .80
  outs aL, aR
  clear gaKick, gaDrumL, gaDrumR, gaBass, gaMuL, gaMuR, gaFxL, gaFxR
  clear gaLeadL, gaLeadR, gaSwL, gaSwR
  clear gaRevL, gaRevR, gaDelL, gaDelR
endin
