#!/usr/bin/env bash
# A short game played by keyboard on the real program under Xvfb with the
# Orca screen reader running, which writes what it says to a log. Two
# players: Blue throws and claims the sum of its dice, Red throws and
# claims a number its dice cannot make. Orca must have said the throw, the
# move with its points, the illegal move and the change of turn.
#
#   spoken_game.sh <game folder> [language number] [log to keep]
#
# Where Orca or a tool is missing, or Orca does not start (it sometimes
# stalls in a fresh session bus: it is started twice), the test says why and
# skips (77); with CI set, that is a failure.
set -uo pipefail

game=$1
language=${2:-0}
keep=${3:-}
tmp=$(mktemp -d)
trap 'kill $(jobs -p) 2>/dev/null; wait 2>/dev/null; rm -rf "$tmp"' EXIT

skip() {
    if [ -n "${CI:-}" ]; then
        echo "FAIL: $*" >&2
        exit 1
    fi
    echo "skipped: $*"
    exit 77
}
fail() {
    echo "FAIL: $*" >&2
    [ -f "$tmp/orca.log" ] && grep -a "SPEECH OUTPUT" "$tmp/orca.log" >&2
    [ -f "$tmp/game.out" ] && cat "$tmp/game.out" >&2
    exit 1
}

for tool in Xvfb xdotool orca dbus-run-session script python3; do
    command -v "$tool" >/dev/null || skip "$tool is not installed"
done
launcher=/usr/libexec/at-spi-bus-launcher
[ -x "$launcher" ] || skip "$launcher is missing (at-spi2-core)"

mkdir -p "$tmp/game" "$tmp/home" "$tmp/runtime"
chmod 700 "$tmp/runtime"
cp -r "$game/." "$tmp/game/"
rm -f "$tmp/game/lastgame.inf" "$tmp/game/highscores.txt" "$tmp/game/numlang.txt"
printf '%s\r\n' "$language" >"$tmp/game/numlang.txt"

export HOME=$tmp/home XDG_RUNTIME_DIR=$tmp/runtime XDG_CONFIG_HOME=$tmp/home/.config XDG_CACHE_HOME=$tmp/home/.cache
unset QT_QPA_PLATFORM QT_SCALE_FACTOR FENDLE_SCALE WAYLAND_DISPLAY
exec 5>"$tmp/display"
Xvfb -displayfd 5 -screen 0 1024x768x24 -nolisten tcp >/dev/null 2>&1 &
for _ in $(seq 50); do [ -s "$tmp/display" ] && break; sleep 0.1; done
[ -s "$tmp/display" ] || skip "Xvfb did not start"
export DISPLAY=:$(cat "$tmp/display")
export TMP_DIR=$tmp GAME_DIR=$tmp/game LAUNCHER=$launcher SCRIPT_DIR=$(cd "$(dirname "$0")" && pwd)

# Inside one session bus: the accessibility bus, Orca, then the game. Orca
# sometimes never hears of the game's first window in a fresh session (its
# log stops after the game registers): then the session is begun again, up
# to three times.
for attempt in 1 2 3; do
rm -f "$tmp/stalled"
dbus-run-session -- bash -c '
tmp=$TMP_DIR
"$LAUNCHER" --launch-immediately >/dev/null 2>&1 &
# Orca writes its log through a buffer it never flushes: written to a
# terminal it goes line by line, so it runs in one that script(1) records.
orca_up() {
    rm -f "$tmp/orca.log"
    script -qfc "orca --replace -d speech -d braille --debug-file=/dev/tty" "$tmp/orca.log" </dev/null >/dev/null 2>&1 &
    orca_pid=$!
    for _ in $(seq 120); do
        grep -aq "EVENT MANAGER: Activated" "$tmp/orca.log" 2>/dev/null && return 0
        sleep 0.5
    done
    kill $orca_pid 2>/dev/null
    return 1
}
orca_up || orca_up || { echo "Orca did not start within 60 s, twice" >"$tmp/why"; exit 0; }
cd "$GAME_DIR"
QT_LINUX_ACCESSIBILITY_ALWAYS_ON=1 QT_QPA_PLATFORM=xcb ./fendle --scale 1 >"$tmp/game.out" 2>&1 &
game_pid=$!
key() { xdotool key --delay 150 "$@"; }
said() { grep -a "SPEECH OUTPUT" "$tmp/orca.log"; }
# Waits up to two minutes until Orca has said `pattern` `count` times.
wait_said() {
    for _ in $(seq 480); do
        [ "$(said | grep -c -- "$1")" -ge "$2" ] && return 0
        sleep 0.25
    done
    echo "Orca did not say $1 $2 times" >"$tmp/lost"
    kill $game_pid
    exit 0
}
throw="[0-9], [0-9], [0-9] [^0-9 ]* [0-9]"
# The dice of the latest throw, as Orca said them.
dice() { said | grep -o "$throw" | tail -1 | tr -cd "0-9 " ; }
# Tab until Orca names the button `name`, then Return.
press() {
    for _ in $(seq 15); do
        key Tab
        for _ in $(seq 20); do
            said | tail -1 | grep -q "'"'"'$1 push button" && { key Return; return 0; }
            sleep 0.25
        done
    done
    echo "Tab never reached $1" >"$tmp/lost"
    kill $game_pid
    exit 0
}
# Title: OK. Set-up: two players. The board opens with the keyboard on it.
for _ in $(seq 120); do
    [ "$(said | grep -c "frame\.")" -ge 1 ] && break
    sleep 0.25
done
[ "$(said | grep -c "frame\.")" -ge 1 ] || { touch "$tmp/stalled"; kill $game_pid; exit 0; }
press OK
wait_said "frame\." 2
press 2
wait_said "frame\." 3
sleep 1
key space
wait_said "$throw" 1
blue=$(dice)
legal=$(python3 "$SCRIPT_DIR/reachable.py" sum $blue)
key $(echo "$legal" | sed "s/./& /g") Return
wait_said "notification" 3
key space
wait_said "$throw" 2
red=$(dice)
illegal=$(python3 "$SCRIPT_DIR/reachable.py" unreachable $red $legal)
key $(echo "$illegal" | sed "s/./& /g") Return
wait_said "notification" 6
echo "$blue|$legal|$red|$illegal" >"$tmp/played"
kill $game_pid 2>/dev/null
'
[ -f "$tmp/stalled" ] || break
done
[ -f "$tmp/stalled" ] && skip "Orca heard nothing of the game in three sessions"
[ -f "$tmp/why" ] && skip "$(cat "$tmp/why")"
[ -f "$tmp/lost" ] && fail "$(cat "$tmp/lost")"
[ -f "$tmp/played" ] || fail "the game was not played"
[ -n "$keep" ] && cp "$tmp/orca.log" "$keep"
IFS='|' read -r blue legal red illegal <"$tmp/played"
[ -n "$blue" ] && [ -n "$red" ] || fail "Orca said no throw"
grep -a 'SPEECH OUTPUT' "$tmp/orca.log" | sed 's/^[0-9:.]* - //' | grep -v "^SPEECH OUTPUT: ''"

# What must have been said, in English: the words of messages.csv and text.csv.
if [ "$language" = 0 ]; then
    points=$(python3 "$SCRIPT_DIR/reachable.py" reward "$legal")
    for line in "Blue threw" "Blue takes $legal: $points points" "Red to Play" "Red threw" \
                "Red chose $illegal: an illegal move" "Blue to Play"; do
        grep -a 'SPEECH OUTPUT' "$tmp/orca.log" | grep -qF "$line" || fail "Orca did not say \"$line\""
    done
fi
echo "Orca said the throws, the move, the illegal move and the turns"
