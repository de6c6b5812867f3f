"""Calls to the Debian tools of the pipeline, all with fixed settings so
that the same sources give the same bytes."""
import os
import subprocess

REQUIRED = ["rsvg-convert", "convert", "espeak-ng", "sox", "oggenc"]


def run(args, **kw):
    subprocess.run(args, check=True, stdout=subprocess.DEVNULL, **kw)


def render_svg(svg_text, png_path):
    """Renders SVG text to an RGBA PNG of the SVG's own size."""
    svg_path = png_path[:-4] + ".svg"
    with open(svg_path, "w", encoding="utf-8") as f:
        f.write(svg_text)
    run(["rsvg-convert", "--format=png", "-o", png_path, svg_path])


def png_to_jpeg(png_path, jpg_path, quality=90):
    run(["convert", png_path, "-background", "black", "-flatten", "-strip",
         "-sampling-factor", "2x2", "-quality", str(quality), jpg_path])


def speak(text, voice, pitch, speed, wav_path, amplitude=140):
    run(["espeak-ng", "-v", voice, "-p", str(pitch), "-s", str(speed),
         "-a", str(amplitude), "-w", wav_path, text])


def sox(inputs, output, effects, combine=None):
    args = ["sox", "-V1", "-R"]
    if combine:
        args += ["--combine", combine]
    args += list(inputs) + ["-r", "22050", "-c", "1", "-b", "16", output] + list(effects)
    run(args)


def synth(output, seconds, effects):
    run(["sox", "-V1", "-R", "-n", "-r", "22050", "-c", "1", "-b", "16", output,
         "synth", str(seconds)] + list(effects))


def ogg(wav_path, ogg_path, serial):
    run(["oggenc", "-Q", "--serial", str(serial), "-q", "3", "-o", ogg_path, wav_path])


def ensure_dir(path):
    os.makedirs(os.path.dirname(path), exist_ok=True)
