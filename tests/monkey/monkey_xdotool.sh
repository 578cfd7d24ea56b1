#!/usr/bin/env bash
# The monkey on the real program: random clicks on its windows, random keys,
# the window manager's close and pauses of random length, with real timers,
# on an X server of its own (Xvfb), for a given time. When the program ends by
# its own Exit it is started again; when it crashes, hangs or ends otherwise,
# the seed, the last 50 events and what the program printed are shown, and the
# run goes on with a fresh start. Not part of ctest: it runs for minutes.
#
#   monkey_xdotool.sh [game folder] [seconds]     defaults: build/game 600
#
# FENDLE_MONKEY_SHOTS=<folder> keeps a screenshot every 100 events there
# (needs ImageMagick's import). FENDLE_MONKEY_SEED chooses the seed (printed at the start); the choices of
# the monkey follow from it, though with real timers a run is not replayed
# to the millisecond. Needs Xvfb, xdotool and python3 (for the close).
# Prints "N passed, M failed": N sessions that ended by the program's Exit or
# by the end of the time, M that crashed, hung or ended otherwise.
set -uo pipefail

game=$(cd "${1:-build/game}" && pwd)
seconds=${2:-600}
seed=${FENDLE_MONKEY_SEED:-$(( $(date +%s%N) % 1000000000 ))}
for tool in Xvfb xdotool python3; do
    command -v "$tool" >/dev/null || { echo "skipped: $tool is not installed"; exit 77; }
done
[ -x "$game/fendle" ] || { echo "no program at $game/fendle"; exit 2; }
echo "monkey: seed $seed, $seconds s on $game (FENDLE_MONKEY_SEED=$seed to run the same choices again)"
RANDOM=$seed

tmp=$(mktemp -d)
xpid='' ppid_game=''
cleanup() {
    [ -n "$ppid_game" ] && kill "$ppid_game" 2>/dev/null
    [ -n "$xpid" ] && kill "$xpid" 2>/dev/null
    wait 2>/dev/null
    rm -rf "$tmp"
}
trap cleanup EXIT

# A copy of the game folder, so that the files the program writes beside
# itself (the saved game, the high scores, the language) stay out of the build.
mkdir -p "$tmp/game" "$tmp/runtime"
chmod 0700 "$tmp/runtime"
cp -R "$game/." "$tmp/game/"
rm -f "$tmp/game/lastgame.inf" "$tmp/game/highscores.txt" "$tmp/game/numlang.txt"
export XDG_RUNTIME_DIR=$tmp/runtime XDG_CACHE_HOME=$tmp/cache QT_QPA_PLATFORM=xcb
unset FENDLE_SCALE QT_SCALE_FACTOR

# An X server on a free display, at the size of a school's old screen. It
# must not reset when its last client goes, as the program does at its Exit,
# or the next start may find no display.
Xvfb -displayfd 3 -screen 0 1024x768x24 -nolisten tcp -noreset 3>"$tmp/display" >"$tmp/xvfb.log" 2>&1 &
xpid=$!
for _ in $(seq 100); do [ -s "$tmp/display" ] && break; sleep 0.1; done
[ -s "$tmp/display" ] || { echo "Xvfb did not start"; exit 2; }
export DISPLAY=:$(head -n 1 "$tmp/display")

# The window manager's close: WM_DELETE_WINDOW to the window, as the close
# box in a title bar sends it (there is no window manager here).
close_window() {
    python3 - "$1" <<'PY'
import ctypes, sys
x = ctypes.cdll.LoadLibrary("libX11.so.6")
x.XOpenDisplay.restype = ctypes.c_void_p
x.XOpenDisplay.argtypes = [ctypes.c_char_p]
x.XInternAtom.restype = ctypes.c_ulong
x.XInternAtom.argtypes = [ctypes.c_void_p, ctypes.c_char_p, ctypes.c_int]
class ClientMessage(ctypes.Structure):
    _fields_ = [("type", ctypes.c_int), ("serial", ctypes.c_ulong), ("send_event", ctypes.c_int),
                ("display", ctypes.c_void_p), ("window", ctypes.c_ulong), ("message_type", ctypes.c_ulong),
                ("format", ctypes.c_int), ("data", ctypes.c_long * 5)]
class Event(ctypes.Union):
    _fields_ = [("xclient", ClientMessage), ("pad", ctypes.c_long * 24)]
x.XSendEvent.argtypes = [ctypes.c_void_p, ctypes.c_ulong, ctypes.c_int, ctypes.c_long, ctypes.POINTER(Event)]
d = x.XOpenDisplay(None)
if not d:
    sys.exit(1)
e = Event()
e.xclient.type = 33  # ClientMessage
e.xclient.window = int(sys.argv[1])
e.xclient.message_type = x.XInternAtom(d, b"WM_PROTOCOLS", 0)
e.xclient.format = 32
e.xclient.data[0] = x.XInternAtom(d, b"WM_DELETE_WINDOW", 0)
e.xclient.data[1] = 0  # CurrentTime
x.XSendEvent(d, e.xclient.window, 0, 0, ctypes.byref(e))
x.XFlush.argtypes = [ctypes.c_void_p]
x.XFlush(d)
PY
}

# The last 50 events.
log=()
note() {
    log+=("#$events $*")
    [ ${#log[@]} -gt 50 ] && log=("${log[@]:1}")
}
report() {
    echo "==== monkey: $1"
    echo "==== seed $seed, event $events, session $sessions"
    echo "==== the last events, oldest first:"
    printf '%s\n' "${log[@]}"
    echo "==== what the program printed (the end):"
    tail -n 20 "$tmp/program.log"
    echo "==== end of the monkey's log"
}

start_program() {
    sessions=$((sessions + 1))
    (cd "$tmp/game" && exec ./fendle --scale 1) >"$tmp/program.log" 2>&1 &
    ppid_game=$!
    note "the program starts (session $sessions)"
    # Its first window.
    for _ in $(seq 50); do
        xdotool search --onlyvisible --pid "$ppid_game" >/dev/null 2>&1 && return
        sleep 0.1
    done
}

# CPU time of the program in clock ticks, to tell a busy hang from waiting.
cpu_ticks() { awk '{print $14 + $15}' "/proc/$1/stat" 2>/dev/null || echo 0; }

keys=(Tab shift+Tab space Return KP_Enter Escape Left Right Up Down Prior Next Home End BackSpace Delete
      0 1 2 3 4 5 6 7 8 9 a b c x y z Q minus period)
events=0 sessions=0 passed=0 failed=0
end=$((SECONDS + seconds))
busy_since=$SECONDS last_ticks=0 last_check=$SECONDS
start_program
while [ $SECONDS -lt $end ]; do
    # Ended? By its Exit (0) it simply starts again.
    if ! kill -0 "$ppid_game" 2>/dev/null; then
        wait "$ppid_game"
        rc=$?
        ppid_game=''
        if [ $rc -eq 0 ]; then
            passed=$((passed + 1))
        else
            failed=$((failed + 1))
            report "the program ended with status $rc"
        fi
        start_program
        busy_since=$SECONDS last_ticks=0
        continue
    fi
    # A hang: the program busy on the processor for 10 s without a break.
    if [ $((SECONDS - last_check)) -ge 1 ]; then
        ticks=$(cpu_ticks "$ppid_game")
        hz=$(getconf CLK_TCK)
        if [ $(((ticks - last_ticks) * 100)) -lt $((hz * 90 * (SECONDS - last_check))) ]; then busy_since=$SECONDS; fi
        last_ticks=$ticks last_check=$SECONDS
        if [ $((SECONDS - busy_since)) -ge 10 ]; then
            failed=$((failed + 1))
            report "the program is busy and answers nothing (a hang)"
            kill -ABRT "$ppid_game" 2>/dev/null
            wait "$ppid_game" 2>/dev/null
            ppid_game=''
            start_program
            busy_since=$SECONDS last_ticks=0
            continue
        fi
    fi

    mapfile -t windows < <(xdotool search --onlyvisible --pid "$ppid_game" 2>/dev/null)
    [ ${#windows[@]} -eq 0 ] && { sleep 0.1; continue; }
    events=$((events + 1))
    if [ -n "${FENDLE_MONKEY_SHOTS:-}" ] && [ $((events % 100)) -eq 0 ]; then
        mkdir -p "$FENDLE_MONKEY_SHOTS" && import -window root "$FENDLE_MONKEY_SHOTS/event$events.png" 2>/dev/null
    fi
    r=$((RANDOM % 100))
    if [ $r -lt 60 ]; then
        # A click at a random place of one of its windows; the X server hands
        # it to whatever window is in front there.
        w=${windows[RANDOM % ${#windows[@]}]}
        eval "$(xdotool getwindowgeometry --shell "$w" 2>/dev/null)" || continue
        [ "${WIDTH:-0}" -gt 0 ] && [ "${HEIGHT:-0}" -gt 0 ] || continue
        px=$((X + RANDOM % WIDTH)) py=$((Y + RANDOM % HEIGHT))
        note "click at $px,$py (window $w, ${WIDTH}x$HEIGHT)"
        xdotool mousemove --sync "$px" "$py" click 1 2>/dev/null
    elif [ $r -lt 80 ]; then
        k=${keys[RANDOM % ${#keys[@]}]}
        note "key $k"
        xdotool key --clearmodifiers "$k" 2>/dev/null
    elif [ $r -lt 82 ]; then
        # The close box of a window with a frame: not the backdrop, which
        # fills the screen and has none.
        w=${windows[RANDOM % ${#windows[@]}]}
        eval "$(xdotool getwindowgeometry --shell "$w" 2>/dev/null)" || continue
        if [ "${WIDTH:-0}" -lt 1024 ]; then
            note "close window $w (${WIDTH}x$HEIGHT)"
            close_window "$w"
        fi
    else
        # A pause: mostly short, now and then long enough for the dice to
        # stop, a turn to pass or a clock to run down.
        p=$((RANDOM % 100))
        if [ $p -lt 70 ]; then ms=$((RANDOM % 300)); elif [ $p -lt 95 ]; then ms=$((300 + RANDOM % 2700)); else ms=$((3000 + RANDOM % 20000)); fi
        note "pause $ms ms"
        sleep "$(printf '%d.%03d' $((ms / 1000)) $((ms % 1000)))"
    fi
done
if [ -n "$ppid_game" ] && kill -0 "$ppid_game" 2>/dev/null; then passed=$((passed + 1)); fi
echo "monkey: $events events in $seconds s, $sessions sessions of the program"
echo "$passed passed, $failed failed"
[ $failed -eq 0 ]
