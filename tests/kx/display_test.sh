#!/usr/bin/env bash
# The virtual display of the demo shows itself to those who have its cookie, and to nobody else.
set -euo pipefail
source "$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")/../../kx"

unset DISPLAY XAUTHORITY WAYLAND_DISPLAY
scratch=$(mktemp -d)
trap end_started EXIT
start_virtual_display

[[ "$(xdotool getdisplaygeometry)" == "1440 900" ]] || fail "the display cannot be reached with its cookie"
if XAUTHORITY=/dev/null xdotool getdisplaygeometry 2>/dev/null; then
    fail "the display can be reached without its cookie"
fi
[[ "$(stat -c %a "$scratch")" == 700 && "$(stat -c %a "$XAUTHORITY")" == 600 ]] || fail "others can read the cookie"
