#!/bin/sh
# Installs the Debian packages that the game, its tools and its tests need.
# Runs apt-get only for what is missing, through sudo when not root.
set -e
PACKAGES="
  build-essential cmake pkg-config
  libsdl1.2-dev libsdl-image1.2-dev libsdl-mixer1.2-dev libsdl-net1.2-dev
  liblua5.2-dev libtinyxml-dev zlib1g-dev libglew-dev libgl-dev
  libgtest-dev libbenchmark-dev
  xvfb xauth xdotool imagemagick
  clang-14 libclang-rt-14-dev
"
missing=""
for p in $PACKAGES; do
  if ! dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed"; then
    missing="$missing $p"
  fi
done
[ -z "$missing" ] && exit 0
SUDO=""
[ "$(id -u)" -ne 0 ] && SUDO=sudo
echo "Installing:$missing"
$SUDO apt-get update
DEBIAN_FRONTEND=noninteractive $SUDO apt-get install -y --no-install-recommends $missing
