"""Rebuilds every generated file of the game's data from the sources in
assets/: python3 build.py OUT_DIR (OUT_DIR is normally data/)."""
import os
import shutil
import sys
import tempfile

import fighters
import font
import scenes
import sounds
import tools


def main():
    out_dir = os.path.abspath(sys.argv[1]) if len(sys.argv) > 1 else None
    if not out_dir:
        sys.stderr.write("usage: build.py OUT_DIR\n")
        return 2
    missing = [t for t in tools.REQUIRED if shutil.which(t) is None]
    if missing:
        sys.stderr.write("missing tools: %s\n" % " ".join(missing))
        return 3
    work_dir = tempfile.mkdtemp(prefix="korvane-assets-")
    try:
        fighters.build(out_dir, work_dir)
        font.build(out_dir, work_dir)
        scenes.build(out_dir, work_dir)
        sounds.build(out_dir, work_dir)
    finally:
        shutil.rmtree(work_dir, ignore_errors=True)
    return 0


if __name__ == "__main__":
    sys.exit(main())
