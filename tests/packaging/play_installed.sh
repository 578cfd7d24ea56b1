#!/usr/bin/env bash
# Installs the build into a temporary prefix (with DESTDIR) and starts the
# installed program from another working directory, with HOME in a temporary
# folder, then checks where it wrote: only into the user's folder
# (~/.local/state/fendle), nothing under the prefix, nothing in the working
# directory.
#
#   play_installed.sh <build folder> title   offscreen; ends once the title screen is painted
#   play_installed.sh <build folder> home    the same, installed with --prefix ~/.local over
#                                            the files an earlier version kept in
#                                            ~/.local/share/fendle, which move to the user's folder
#   play_installed.sh <build folder> game    under Xvfb, started from its menu entry with dex:
#                                            OK, two players, a throw and a number each, Exit
#                                            (which saves the game), Exit
# Gives 77 when a tool the game run needs is missing.
set -euo pipefail

build=$1
mode=$2
tmp=$(mktemp -d)
root=$tmp/root prefix=/opt/fendle-test
[ "$mode" != home ] || root='' prefix=$tmp/home/.local
user=$tmp/home/.local/state/fendle
# Ends the installed program if it is still running (found by the path of its
# executable, so no other program is touched), and removes the folder.
cleanup() {
    for p in /proc/[0-9]*; do
        [ "$(readlink "$p/exe" 2>/dev/null)" = "$root$prefix/bin/fendle" ] && kill "${p#/proc/}" 2>/dev/null
    done
    rm -rf "$tmp"
}
trap cleanup EXIT
mkdir -p "$tmp/cwd" "$tmp/home"

fail() {
    echo "FAIL: $*" >&2
    exit 1
}

if [ "$mode" = game ]; then
    for tool in xvfb-run xdotool dex dbus-run-session; do
        command -v "$tool" >/dev/null || { echo "skipped: $tool is not installed"; exit 77; }
    done
fi

DESTDIR=$root cmake --install "$build" --prefix "$prefix" >/dev/null
snapshot() { (cd "$root$prefix" && find bin share -printf '%p %s %m\n' | sort && find bin share -type f -print0 | sort -z | xargs -0 sha256sum); }
before=$(snapshot)
if [ "$mode" = home ]; then
    printf '3\r\n' >"$prefix/share/fendle/numlang.txt"
    printf 'old\r\n' >"$prefix/share/fendle/highscores.txt"
fi

export HOME=$tmp/home XDG_CONFIG_HOME=$tmp/home/config
unset XDG_DATA_HOME XDG_STATE_HOME
# The font library keeps a cache of its own; it is not the game's.
export XDG_CACHE_HOME=$tmp/cache XDG_RUNTIME_DIR=$tmp/runtime
mkdir -m 0700 "$XDG_RUNTIME_DIR"
unset FENDLE_SCALE QT_SCALE_FACTOR
# In English, whatever the machine's locale: the clicks below are at its places.
export LANGUAGE= LC_ALL=C.UTF-8
cd "$tmp/cwd"

if [ "$mode" != game ]; then
    QT_QPA_PLATFORM=offscreen FENDLE_EXIT_WHEN_SHOWN=1 timeout 60 "$root$prefix/bin/fendle" ||
        fail "the installed program did not reach its title screen"
else
    # The desktop's own platform, whatever the tests around ask for.
    export QT_QPA_PLATFORM=xcb
    export PATH=$root$prefix/bin:$PATH
    export DESKTOP=$root$prefix/share/applications/org.fendle.Fendle.desktop
    export SHOT=${FENDLE_SHOT:-} LOG=$tmp/game.log
    # In a session bus of its own, as a desktop starts a program: else, where
    # dbus-x11 is installed, the accessibility bridge starts one itself and
    # writes ~/.dbus.
    timeout 120 dbus-run-session -- xvfb-run -a -s "-screen 0 1280x1024x24" bash -euo pipefail -c '
        dex "$DESKTOP" >"$LOG" 2>&1
        # The visible window of the game that is w x h pixels: "id x y".
        window() {
            for id in $(xdotool search --onlyvisible --class fendle 2>/dev/null); do
                eval "$(xdotool getwindowgeometry --shell "$id")"
                if [ "$WIDTH" -eq "$1" ] && [ "$HEIGHT" -eq "$2" ]; then echo "$id $X $Y"; return 0; fi
            done
            return 1
        }
        waitfor() {
            for _ in $(seq 150); do window "$1" "$2" && return 0; sleep 0.2; done
            echo "no window of $1 x $2" >&2; return 1
        }
        # A click at (x, y) tenths of a pixel of the page at scale 1, in the
        # window at (wx, wy), at the scale s / 10.
        at() { xdotool mousemove --sync $((wx + $1 * s / 100)) $((wy + $2 * s / 100)) click 1; }

        # The small screens are 372 x 438 pixels at scale 1; 1280 x 1024 gives 1.5.
        s=15
        read -r _ wx wy < <(waitfor 558 657)
        sleep 1
        at 1245 4085                     # OK
        sleep 1
        read -r _ wx wy < <(waitfor 558 657)
        at 1505 3645                     # two players
        read -r _ wx wy < <(waitfor 1200 900)
        sleep 1
        for hexagon in "3855 2755" "592 4639"; do
            at 1485 245                  # Throw Dice
            sleep 4
            at $hexagon                  # a number: right or wrong, it is a move
            sleep 3
        done
        [ -z "$SHOT" ] || import -window root "$SHOT"
        at 605 5765                      # Exit: the game is saved
        sleep 1
        read -r _ wx wy < <(waitfor 558 657)
        at 2445 4085                     # Exit on the title screen
        for _ in $(seq 50); do xdotool search --class fendle >/dev/null 2>&1 || exit 0; sleep 0.2; done
        echo "the program did not end" >&2; exit 1
    ' || { grep -v "audio device" "$tmp/game.log" >&2; fail "the game from the menu entry did not play through"; }
    lines=$(tr -cd '\n' <"$user/lastgame.inf" | wc -c)
    [ "$lines" -eq 215 ] || fail "lastgame.inf in the user's folder has $lines lines"
fi

[ "$(snapshot)" = "$before" ] || fail "something under the prefix changed"
[ -z "$(ls -A "$tmp/cwd")" ] || fail "the program wrote into its working directory: $(ls -A "$tmp/cwd")"
stray=$(cd "$HOME" && find . -mindepth 1 ! -path ./.local ! -path ./.local/state ! -path './.local/state/fendle*' \
    ! -path "./${prefix#"$HOME"/}*" -print)
[ -z "$stray" ] || fail "written outside the user's folder: $stray"
if [ -d "$user" ]; then
    [ "$(stat -c %a "$user")" = 700 ] || fail "the user's folder is not the user's alone"
    for f in $(ls -A "$user"); do
        case $f in numlang.txt | lastgame.inf | highscores.txt | countermarks.txt | games.csv) ;; *) fail "unexpected file $f" ;; esac
    done
fi
if [ "$mode" = home ]; then
    [ "$(cat "$user/numlang.txt" "$user/highscores.txt")" = "$(printf '3\r\nold\r')" ] ||
        fail "the files kept in ~/.local/share/fendle did not move whole to the user's folder"
fi
echo "installed under $prefix; files written: $(cd "$HOME" && find .local/state -type f | tr '\n' ' ')"
