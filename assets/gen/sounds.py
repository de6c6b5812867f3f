"""Voices and noises. Fighters' voices are espeak-ng lines shaped by sox;
the arenas' ambience is synthesised. Every file is Ogg Vorbis with a fixed
stream serial, so a rebuild writes the same bytes."""
import os

import tools

FINISH = ["gain", "-n", "-2", "fade", "t", "0.01", "0", "0.04", "pad", "0", "0.05"]

# fighter: (espeak voice, pitch, speed, sox shaping, {sound name: words})
VOICES = {
    "default": ("pl+m3", 45, 175, ["pitch", "120", "reverb", "15"], {
        "voice_1": "Rabarbar!", "voice_2": "Gadu gadu!", "voice_3": "Hej, ty!",
        "hurt_1": "Au!", "hurt_2": "Ojej!", "shout": "Cisza!"}),
    "sroka": ("pl+f4", 90, 260, ["pitch", "500", "tempo", "1.15"], {
        "voice_1": "Czir czir!", "voice_2": "Bla bla bla!", "voice_3": "Ha ha!",
        "hurt_1": "Ij!", "hurt_2": "Aj aj!", "hop": "Hop!"}),
    "ropuch": ("pl+m1", 10, 120, ["pitch", "-450", "overdrive", "6", "reverb", "40"], {
        "voice_1": "Rechu rechu!", "voice_2": "Bum!", "voice_3": "Kwaaa!",
        "hurt_1": "Uff!", "hurt_2": "Oho!", "puff": "Mmmmmm!"}),
}

# Louder shouts get more room and a harder edge than the plain voice.
EXTRA = {"shout": ["reverb", "60"], "puff": ["tremolo", "9", "60"]}


def voice_lines(out_dir, work_dir, serial):
    for fighter, (voice, pitch, speed, shaping, lines) in VOICES.items():
        target = os.path.join(out_dir, "character", fighter)
        os.makedirs(target, exist_ok=True)
        for name, words in sorted(lines.items()):
            raw = os.path.join(work_dir, "%s_%s_raw.wav" % (fighter, name))
            wav = os.path.join(work_dir, "%s_%s.wav" % (fighter, name))
            tools.speak(words, voice, pitch, speed, raw)
            # headroom first: the pitch and room effects would clip a full-scale line
            tools.sox([raw], wav, ["gain", "-8"] + shaping + EXTRA.get(name, []) + FINISH)
            serial += 1
            tools.ogg(wav, os.path.join(target, name + ".ogg"), serial)
    return serial


def bubbles(work_dir):
    """A short run of rising blips, as air bubbles rise past the lair."""
    parts = []
    for i, (f0, f1, length) in enumerate(((300, 900, 0.07), (420, 1200, 0.05), (350, 1000, 0.06), (500, 1400, 0.04))):
        part = os.path.join(work_dir, "bubble_%d.wav" % i)
        tools.synth(part, length, ["sine", "%d-%d" % (f0, f1), "fade", "q", "0.005", str(length), "0.03",
                                   "pad", "0", "%.2f" % (0.05 + i * 0.03)])
        parts.append(part)
    out = os.path.join(work_dir, "bubbles.wav")
    tools.sox(parts, out, ["reverb", "30", "gain", "-n", "-6"])
    return out


def hush(work_dir):
    """A librarian's long "shhh"."""
    out = os.path.join(work_dir, "hush.wav")
    tools.synth(out, 1.1, ["pinknoise", "band", "4000", "1800", "fade", "q", "0.25", "1.1", "0.5", "gain", "-n", "-8"])
    return out


def build(out_dir, work_dir):
    serial = voice_lines(out_dir, work_dir, 1000)
    for arena, name, maker in (("osmiornica", "bubbles", bubbles), ("biblioteka", "hush", hush)):
        target = os.path.join(out_dir, "arena", arena)
        os.makedirs(target, exist_ok=True)
        serial += 1
        tools.ogg(maker(work_dir), os.path.join(target, name + ".ogg"), serial)
