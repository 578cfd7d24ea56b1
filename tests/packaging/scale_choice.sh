#!/usr/bin/env bash
# The scale the program takes on a real screen (Xvfb): chosen for the screen,
# or given by FENDLE_SCALE, or by --scale, which wins; a scale at which the
# board would not fit the screen is refused. Each case starts the program on
# a screen of its size and measures its title window, which is 372 x 438
# pixels at scale 1.
#   scale_choice.sh <program>
# Gives 77 when Xvfb or xdotool is missing.
set -euo pipefail
program=$1
for tool in xvfb-run xdotool; do
    command -v "$tool" >/dev/null || { echo "skipped: $tool is not installed"; exit 77; }
done
tmp=$(mktemp -d)
trap 'rm -rf "$tmp"' EXIT
export HOME=$tmp XDG_DATA_HOME=$tmp/data XDG_RUNTIME_DIR=$tmp
export QT_QPA_PLATFORM=xcb PROGRAM=$program
unset QT_SCALE_FACTOR

# screen | environment | options | title window expected (372 x 438 times the scale, rounded)
cases=(
    "800x600|||372 438"                          # the board's own size: scale 1
    "1024x768|||419 493"                         # 1.125
    "1920x1080|||605 712"                        # 1.625
    "3840x2160|||1256 1478"                      # 3.375
    "1920x1080||--scale 1|372 438"
    "2560x1440|FENDLE_SCALE=2||744 876"
    "2560x1440|FENDLE_SCALE=2|--scale 1.5|558 657"
    "1920x1080|FENDLE_SCALE=huge||605 712"       # not a scale: chosen for the screen
    "1920x1080||--scale 1.625|605 712"           # the board's 1300 x 975 and the frame fit 1080
    "1920x1080||--scale 1.75|refused"            # 1050 + 64 do not
    "1920x1080||--scale 8|refused"
    "1920x1080|FENDLE_SCALE=8||605 712"          # too large: chosen for the screen
)
failures=0
for c in "${cases[@]}"; do
    IFS='|' read -r screen environment options want <<<"$c"
    got=$(SCALE_ENV=$environment OPTIONS=$options timeout 60 xvfb-run -a -s "-screen 0 ${screen}x24" bash -c '
        env $SCALE_ENV "$PROGRAM" $OPTIONS >/dev/null 2>&1 &
        pid=$!
        sleep 1
        if ! kill -0 "$pid" 2>/dev/null; then
            wait "$pid" && exit 1
            [ $? -eq 2 ] && echo refused
            exit
        fi
        id=$(timeout 20 xdotool search --sync --onlyvisible --class fendle | head -1)
        eval "$(xdotool getwindowgeometry --shell "$id")"
        echo "$WIDTH $HEIGHT"
        kill "$pid"
    ' 2>/dev/null) || got="no window"
    if [ "$got" != "$want" ]; then
        echo "FAIL: screen $screen ${environment:+$environment }${options}: title window $got, not $want"
        failures=$((failures + 1))
    fi
done
echo "${#cases[@]} cases, $failures failed"
[ "$failures" -eq 0 ]
