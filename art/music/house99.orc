; house99: the instruments and the mixing desk.
;
; The score (written by song.py) counts in beats; Csound turns start times and
; lengths into seconds before an instrument sees them, so p3 is in seconds here.
; Every voice takes p4 = level (0..1).  Instruments run in the order of their
; numbers, so the desk comes last and clears the busses it has read.
;
;   1 kick      2 clap      3 closed hat   4 open hat   5 shaker   6 rim
;   7 snare     8 tom       9 ride
;  20 bass     21 saw stab  22 piano      23 organ     24 pad      25 lead
;  40 crash    41 riser     42 impact     43 reversed crash   44 static
;  80 pump     81 sweep     82 send throw 99 desk

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
gkDuck  init 1                    ; side-chain gain, written by the pump
gkSweep init 18000                ; cutoff of the sweep filter in Hz
gkThrow init 1                    ; multiplies reverb and delay sends of music

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

; ---- music ------------------------------------------------------------------
instr 20 ; bass.  p5 = MIDI note, p6 = openness 0..1
  iF   = cpsmidinn(p5)
  a1   vco2 .5, iF, 0
  a2   vco2 .5, iF * 1.006, 2, .40
  kE   expseg 1, .03, .75, .16, .25, .6, .15
  kCut = 190 + (600 + 2600 * p6) * kE * kE
  am   moogladder a1 + a2, kCut, .25
  as   oscili .68, iF, giSine
  as2  oscili .16, iF * 2, giSine
  aA   linseg 0, .004, 1, p3 - .034, .86, .03, 0
  gaBass += tanh((am * .90 + as * .8 + as2) * 1.25) * aA * p4
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
  aDl  interp .0016 + .0006 * kRot
  aDr  interp .0016 - .0006 * kRot
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
  aL   moogladder a1 + aT, kCut, .18
  aR   moogladder a2 + aT, kCut, .18
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

instr 41 ; riser: a noise band and a tone that climb
  anL  noise 1, 0
  anR  noise 1, 0
  kF   expseg 420, p3, 8200
  aL   butterbp anL, kF, kF * .4
  aR   butterbp anR, kF * 1.03, kF * .4
  kT   expseg 155.56, p3, 622.25
  aT   vco2 .18, kT
  aT   butterlp aT, kF * .7
  aA   expseg .012, p3 - .06, 1, .06, .001
  aL   = (aL + aT) * aA * p4
  aR   = (aR + aT) * aA * p4
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
  open aL, aR, .10, .06
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

  aMuL   = (gaMuL + aSwL + aEL * .60 + aRL * .50) * aDuck + gaLeadL * (.5 + .5 * aDuck)
  aMuR   = (gaMuR + aSwR + aER * .60 + aRR * .50) * aDuck + gaLeadR * (.5 + .5 * aDuck)
  aMuL   pareq aMuL, 300, .80, .8, 0        ; a little out of the mud
  aMuR   pareq aMuR, 300, .80, .8, 0
  aMuL   pareq aMuL, 3400, 1.40, .6, 2
  aMuR   pareq aMuR, 3400, 1.40, .6, 2

  aBs    = gaBass * aDuck
  aL     = aMuL * 1.70 + gaDrumL * .80 + aBs * .30 + gaKick * .47
  aR     = aMuR * 1.70 + gaDrumR * .80 + aBs * .30 + gaKick * .47

  ; below 150 Hz everything is mono; above, the sides are held in a little
  aMid   = (aL + aR) * .5
  aSide  butterhp (aL - aR) * .42, 150
  aMid   butterhp aMid, 26
  aL     = aMid + aSide
  aR     = aMid - aSide

  aL     = tanh(aL * 1.25) * .72
  aR     = tanh(aR * 1.25) * .72
  outs aL, aR
  clear gaKick, gaDrumL, gaDrumR, gaBass, gaMuL, gaMuR
  clear gaLeadL, gaLeadR, gaSwL, gaSwR
  clear gaRevL, gaRevR, gaDelL, gaDelR
endin
