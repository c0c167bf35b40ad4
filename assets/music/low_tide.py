#!/usr/bin/python3
"""Plays "Low Tide" into a WAV file: 28 bars of 4/4 at 72 beats a minute, D mixolydian.

    low_tide.py FILE.wav

Harp, pad, flute, bass, bells and the sea are synthesized here. All sound, the reverb included, goes
into circular buffers, so what rings past the end is heard at the beginning: a player that restarts
the file at its end loops it without a seam. It is calm and quiet on purpose: people chat over it.
"""
import sys
import wave
from pathlib import Path

import numpy as np

RATE = 44100                  # of the synthesis; strings and noises sound duller at a lower one
CLIENT_RATE = RATE // 2       # the client plays at 22050 Hz: a file at that rate is not resampled there
BEAT = 60 / 72                # seconds
BARS = 28
LENGTH = int(round(BARS * 4 * BEAT * RATE))      # even, so that half the rate has a whole length
RANDOM = np.random.RandomState(8)

# ---- the score ----------------------------------------------------------------------------------

# the bass note, then those of pad and harp, low to high
CHORDS = {"D": "D2 D3 A3 D4 E4 F#4", "C": "C2 E3 G3 C4 D4 G4", "G": "G2 D3 G3 B3 D4 A4",
          "Em": "E2 E3 G3 B3 D4 F#4", "A": "A2 E3 A3 D4 E4 B4", "Bm": "B2 D3 F#3 A3 D4 F#4",
          "Gb": "B2 D3 G3 B3 D4 G4", "Am": "A2 E3 G3 C4 E4 A4"}
FORM = ("D C Gb D  D C G A "       # opening: harp and pad, the flute enters in bar 2
        "D C Gb D  Em G A D "      # first part
        "Bm G D A  Em G C A "      # second part, harp an octave higher
        "G Gb D D").split()        # tail, leads back
HARP_FIGURES = ((0, 2, 3, 4, 5, 4, 3, 2), (0, 2, 4, 3, 5, 3, 4, 2))   # notes of the chord
SECOND_PART = range(16, 24)
THINNING = range(26, BARS)    # the harp stops early in these bars

# bar:beat note length
FLUTE = """
2:0 A4 1.5    2:1.5 B4 .5   2:2 D5 2      3:0 F#5 1     3:1 E5 .5     3:1.5 D5 .5   3:2 A4 2
5:0 G4 1.5    5:1.5 A4 .5   5:2 C5 1      5:3 E5 1      6:0 D5 2      6:2 B4 1      6:3 G4 1
7:0 A4 3      8:0 A4 1      8:1 D5 1      8:2 F#5 1.5   8:3.5 E5 .5   9:0 G5 1.5    9:1.5 E5 .5
9:2 C5 2      10:0 D5 1.5   10:1.5 B4 .5  10:2 G4 1     10:3 B4 1     11:0 A4 3.5   12:0 B4 1
12:1 E5 1     12:2 G5 1.5   12:3.5 F#5 .5 13:0 D5 2     13:2 B4 2     14:0 E5 1.5   14:1.5 D5 .5
14:2 B4 1     14:3 C#5 1    15:0 D5 3.5   16:0 F#5 2    16:2 D5 1     16:3 E5 1     17:0 D5 1.5
17:1.5 B4 .5  17:2 G4 2     18:0 A4 1     18:1 D5 1     18:2 F#5 2    19:0 E5 3     20:0 G5 1.5
20:1.5 F#5 .5 20:2 E5 1     20:3 B4 1     21:0 D5 2     21:2 G5 2     22:0 E5 1.5   22:1.5 D5 .5
22:2 C5 1     22:3 G4 1     23:0 A4 3.5   26:0 D5 1     26:1 A4 1     26:2 F#4 2
"""
BELLS = """
0:2 A5   0:3.5 F#5  4:2 D6   4:3 A5   11:3 E6  15:2 A5  15:3 D6  19:3 B5
23:3 E6  24:2 D6    25:1 B5  25:3 G5  27:1 A5  27:2.5 D6
"""
SEMITONES = {name: k for k, name in enumerate("C C# D D# E F F# G G# A A# B".split())}

# loudness in decibels, and how much goes to the reverb
LEVELS = {"pad": (-24.5, .30), "harp": (-23.5, .34), "flute": (-23.5, .40),
          "bass": (-24.5, .05), "bells": (-35, .6), "sea": (-37, 0)}
MIX_LEVEL = -18.5


def note_number(name):
    """"F#4" to 66."""
    return 12 * (int(name[-1]) + 1) + SEMITONES[name[:-1]]


def pitch(number):
    """Frequency of a note number; 69 is A4, 440 Hz."""
    return 440 * 2 ** ((number - 69) / 12)


def parse_place(place):
    """"2:1.5" to the beat from the beginning."""
    bar, beat = place.split(":")
    return int(bar) * 4 + float(beat)


# ---- instruments: each returns one channel of samples --------------------------------------------

def times(duration):
    """The time of each sample of a sound."""
    return np.arange(int(duration * RATE)) / RATE


def envelope(count, attack, release):
    """Smooth rise and fall, in seconds."""
    shape = np.ones(count)
    rise, fall = min(count, int(attack * RATE)), min(count, int(release * RATE))
    shape[:rise] = np.sin(np.linspace(0, np.pi / 2, rise)) ** 2
    shape[count - fall:] *= np.cos(np.linspace(0, np.pi / 2, fall)) ** 2
    return shape


def harp_note(frequency, duration, seed, brightness=.55):
    """Karplus-Strong, one period at a time, tuned exactly by resampling."""
    period = int(RATE / frequency)
    string = np.random.RandomState(seed).uniform(-1, 1, period)
    for _ in range(int(3 + (1 - brightness) * 8)):
        string = .5 * string + .5 * np.roll(string, 1)
    string -= string.mean()
    string /= np.abs(string).max() + 1e-9
    decay = .996 ** (220 / frequency)
    count = int(duration * RATE)
    periods = []
    for _ in range(0, count + period, period):
        periods.append(string)
        string = decay * (.5 * string + .5 * np.roll(string, 1))
    sound = np.concatenate(periods)
    places = np.arange(count) * (frequency * (period + .5) / RATE)
    places = places[places < len(sound) - 1]
    sound = np.interp(places, np.arange(len(sound)), sound)
    return sound * envelope(len(sound), .002, .25)


def pad_note(frequency, duration):
    """Three detuned voices of six partials, swelling slowly."""
    t = times(duration)
    sound = np.zeros(len(t))
    for detune in (-.0035, .0, .0041):
        phase = RANDOM.rand() * 6.28
        drift = .25 * np.sin(2 * np.pi * .17 * t + phase)
        for partial, amount in ((1, 1), (2, .42), (3, .22), (4, .11), (5, .07), (6, .03)):
            sound += amount * np.sin(2 * np.pi * frequency * (1 + detune) * partial * t
                                     + phase * partial + drift)
    return sound * envelope(len(t), 1.3, 1.7) * (.86 + .14 * np.sin(2 * np.pi * .23 * t))


def flute_note(frequency, duration):
    """Four partials with late vibrato, a scoop at the start and some breath."""
    t = times(duration + .12)
    vibrato = np.clip((t - .25) / .5, 0, 1) * .0055 * np.sin(2 * np.pi * 5.1 * t)
    phase = 2 * np.pi * np.cumsum(frequency * (1 + vibrato - .012 * np.exp(-t * 28))) / RATE
    sound = (np.sin(phase) + .30 * np.sin(2 * phase) + .12 * np.sin(3 * phase)
             + .04 * np.sin(4 * phase))
    breath = np.convolve(RANDOM.randn(len(t)), np.ones(9) / 9, "same")
    sound += breath * (.10 * np.exp(-t * 14) + .018)
    return sound * envelope(len(t), .07, .16)


def bell_note(frequency, duration=3.):
    """Frequency modulation with a falling index."""
    t = times(duration)
    modulation = 1.1 * np.exp(-t * 5) * np.sin(2 * np.pi * frequency * 3.01 * t)
    sound = np.sin(2 * np.pi * frequency * t + modulation) * np.exp(-t * 2.0)
    sound += .3 * np.sin(2 * np.pi * frequency * 2.005 * t) * np.exp(-t * 3.4)
    return sound * envelope(len(t), .003, .3)


def bass_note(frequency, duration):
    """Three partials; the upper ones decay first."""
    t = times(duration)
    sound = (np.sin(2 * np.pi * frequency * t)
             + .35 * np.sin(4 * np.pi * frequency * t) * np.exp(-t * 3)
             + .12 * np.sin(6 * np.pi * frequency * t) * np.exp(-t * 6))
    return sound * np.exp(-t * .55) * envelope(len(t), .012, .3)


# ---- circular tracks ----------------------------------------------------------------------------

class Track:
    """A stereo buffer as long as the piece; sound that passes its end continues at its start."""

    def __init__(self):
        self.samples = np.zeros((2, LENGTH))

    def add(self, beat, sound, pan=0., gain=1.):
        """Add a sound; pan runs from -1 (left) to 1."""
        start = int(round(beat * BEAT * RATE)) % LENGTH
        sides = np.sqrt([(1 - pan) / 2, (1 + pan) / 2]) * gain
        done = 0
        while done < len(sound):
            count = min(len(sound) - done, LENGTH - start)
            self.samples[:, start:start + count] += sides[:, None] * sound[done:done + count]
            done += count
            start = 0


def play_harp(track, bar, notes):
    """Eight quavers over the chord, a little uneven; fewer in the last bars."""
    for step, index in enumerate(HARP_FIGURES[bar % 2]):
        if bar in THINNING and step > 4:
            continue
        number = notes[index] if index else notes[1]
        if bar in SECOND_PART and index > 2:
            number += 12
        late = RANDOM.uniform(-.012, .012)
        gain = (.20 if step in (0, 4) else .14) * RANDOM.uniform(.88, 1.08)
        track.add(bar * 4 + step * .5 + late, harp_note(pitch(number), 2.2, bar * 9 + step),
                  pan=-.35 + .09 * step, gain=gain)


def play_chords(tracks):
    """Pad, bass and harp, bar by bar."""
    for bar, chord in enumerate(FORM):
        notes = [note_number(name) for name in CHORDS[chord].split()]
        for number in notes[1:5]:
            tracks["pad"].add(bar * 4 - .35, pad_note(pitch(number), 4 * BEAT + 1.6),
                              pan=(number % 5 - 2) * .22, gain=.055)
        tracks["bass"].add(bar * 4, bass_note(pitch(notes[0]), BEAT * 2.6), gain=.30)
        if bar % 4 in (1, 3):
            fifth = notes[0] + (7 if notes[0] + 7 < 52 else 0)
            tracks["bass"].add(bar * 4 + 2.5, bass_note(pitch(fifth), BEAT * 1.4), gain=.20)
        play_harp(tracks["harp"], bar, notes)


def play_melody(tracks):
    """Flute and bells."""
    words = iter(FLUTE.split())
    for place, name, beats in zip(words, words, words):
        tracks["flute"].add(parse_place(place) + .02,
                            flute_note(pitch(note_number(name)), float(beats) * BEAT * .96),
                            pan=.18, gain=.115)
    words = iter(BELLS.split())
    for place, name in zip(words, words):
        tracks["bells"].add(parse_place(place), bell_note(pitch(note_number(name))),
                            pan=-.2, gain=.075)


def play_sea(track):
    """Noise shaped in the frequency domain, and so periodic, with nine slow waves."""
    frequency = np.fft.rfftfreq(LENGTH, 1 / RATE)
    shape = 1 / (1 + (frequency / 420) ** 1.5) * (frequency / (frequency + 60))
    t = np.arange(LENGTH) / LENGTH
    for side in range(2):
        noise = np.fft.irfft(np.fft.rfft(RANDOM.randn(LENGTH)) * shape, LENGTH)
        wave_shape = np.sin(2 * np.pi * 9 * t + side * .7 + 1.1 * np.sin(2 * np.pi * 2 * t))
        track.samples[side] = noise / noise.std() * (.006 + .022 * (.5 + .5 * wave_shape) ** 2.2)


# ---- mix ----------------------------------------------------------------------------------------

def loudness(sound):
    """Root mean square."""
    return np.sqrt((sound ** 2).mean())


def decibels(value):
    """Gain of a level in decibels."""
    return 10 ** (value / 20)


def reverb(sound, decay=2.6, delay=.022):
    """Circular convolution with decaying noise that darkens with time."""
    t = times(decay * 1.3)
    result = np.zeros_like(sound)
    for side in range(2):
        bright = np.random.RandomState(50 + side).randn(len(t))
        dark = np.convolve(bright, np.ones(14) / 14, "same") * 3
        fade = np.exp(-t * 2.2)
        response = (bright * fade + dark * (1 - fade)) * 10 ** (-3 * t / decay)
        response[:200] *= np.linspace(0, 1, 200)
        response = np.concatenate([np.zeros(int(delay * RATE)), response])
        padded = np.zeros(LENGTH)
        padded[:len(response)] = response / np.sqrt((response ** 2).sum())
        result[side] = np.fft.irfft(np.fft.rfft(sound[side]) * np.fft.rfft(padded), LENGTH)
    return result


def soft_clip(sound, knee=.6, room=.35):
    """Compress what is louder than the knee and leave the rest alone."""
    over = np.sign(sound) * (knee + room * np.tanh((np.abs(sound) - knee) / room))
    return np.where(np.abs(sound) > knee, over, sound)


def mix_down(tracks):
    """Level the tracks, add the reverb, remove rumble and hiss."""
    dry, wet = np.zeros((2, LENGTH)), np.zeros((2, LENGTH))
    for name, (level, send) in LEVELS.items():
        samples = tracks[name].samples
        samples *= decibels(level) / loudness(samples)
        dry += samples
        wet += send * samples
    mix = dry + .9 * reverb(wet)
    frequency = np.fft.rfftfreq(LENGTH, 1 / RATE)
    shape = frequency / np.sqrt(frequency ** 2 + 30 ** 2) / np.sqrt(1 + (frequency / 9000) ** 4)
    mix = np.fft.irfft(np.fft.rfft(mix, axis=1) * shape, LENGTH, axis=1)
    return soft_clip(mix * decibels(MIX_LEVEL) / loudness(mix))


def at_client_rate(sound):
    """Keep the lower half of the spectrum, which resamples a circular buffer exactly and without a seam."""
    kept = np.fft.rfft(sound, axis=1)[:, :LENGTH // 4 + 1]
    return np.fft.irfft(kept, LENGTH // 2, axis=1) / 2


def write_wave(path, sound):
    """16-bit stereo."""
    with wave.open(str(path), "wb") as output:
        output.setnchannels(2)
        output.setsampwidth(2)
        output.setframerate(CLIENT_RATE)
        output.writeframes((sound.T * 32767).astype("<i2").tobytes())


def main():
    tracks = {name: Track() for name in LEVELS}
    play_chords(tracks)
    play_melody(tracks)
    play_sea(tracks["sea"])
    write_wave(Path(sys.argv[1]), at_client_rate(mix_down(tracks)))


if __name__ == "__main__":
    main()
