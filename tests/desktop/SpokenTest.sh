#!/usr/bin/env bash
# Runs SpokenTest.py where there is an X server, a session bus and an accessibility bus; skipped (77) elsewhere.
#   SpokenTest.sh SOURCE PROGRAM
set -euo pipefail
source=$1 program=$2

python=/usr/bin/python3 # the one that the packages of the system are for
for command in xvfb-run dbus-run-session "$python"; do
  command -v "$command" >/dev/null || { echo "no $command"; exit 77; }
done
"$python" -c 'import pyatspi' 2>/dev/null || { echo "no python3-pyatspi"; exit 77; }
ls /usr/share/dbus-1/services/org.a11y.Bus.service >/dev/null 2>&1 || { echo "no at-spi2-core"; exit 77; }

home=$(mktemp -d)
trap 'rm -rf "$home"' EXIT
mkdir -m 700 "$home/run"
# What the desktop of the user says must not reach the test, nor the other way round.
env -u DBUS_SESSION_BUS_ADDRESS -u AT_SPI_BUS_ADDRESS HOME="$home" XDG_RUNTIME_DIR="$home/run" \
  XDG_CONFIG_HOME="$home/.config" LC_ALL=C.UTF-8 \
  xvfb-run -a dbus-run-session -- \
  timeout 120 "$python" "$source/tests/desktop/SpokenTest.py" "$program" "$source/examples/triangle.trs"
