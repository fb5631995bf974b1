#!/usr/bin/env bash
# End to end under a real X server: opens, selects, edits, saves, and compares files.
# Usage: main_road.sh PROGRAM SOURCE_DIRECTORY SHARE_DIRECTORY [SCREENSHOT.png]
set -euo pipefail

program=$1
source_directory=$2
share_directory=$3
screenshot=${4:-}

fail() {
    echo "FAILED: $*" >&2
    exit 1
}
for tool in Xvfb xdotool; do
    command -v "$tool" >/dev/null || { echo "SKIPPED: $tool is not installed"; exit 77; }
done

home=/tmp/kqe2e$$
mkdir "$home"
cp -r "$source_directory/demo/ZOLT" "$source_directory/demo/ZOLTEXE" "$home/"
cp "$source_directory"/help/*.HLP "$share_directory"/*.fnt "$home/ZOLTEXE/zoltexe/" 2>/dev/null || true
mkdir "$home/work"
export ZOLT=$home/ZOLT ZOLTEXE=$home/ZOLTEXE
printf '%s\n' DEMO "$ZOLT/zolt/data/demo.nom" "$ZOLT/zolt/data/demo.col" >"$ZOLT/zolt/data/afas.ref"

mkfifo "$home/display"
Xvfb -displayfd 5 -screen 0 1600x1200x24 -nolisten tcp 5>"$home/display" >"$home/xvfb.log" 2>&1 &
server=$!
read -r number <"$home/display"
export DISPLAY=:$number
editor=
trap 'kill $editor $server 2>/dev/null || true; wait 2>/dev/null || true; rm -rf "$home"' EXIT

(cd "$home/work" && exec "$program") >"$home/out" 2>&1 &
editor=$!
# The window takes keys as soon as it is there; the program reads them when it comes to them.
window=$(timeout 20 xdotool search --sync --onlyvisible --name '^kq   Version' | head -n 1) ||
    fail "no window: $(cat "$home/out")"
xdotool windowfocus "$window" || true

keys() { xdotool key --delay 15 "$@"; }
wait_for() { # wait_for SECONDS COMMAND...
    local left=$(($1 * 10))
    shift
    until "$@"; do
        kill -0 "$editor" 2>/dev/null || fail "the program ended: $(cat "$home/out")"
        left=$((left - 1))
        [ "$left" -gt 0 ] || fail "waited in vain for: $*"
        sleep 0.1
    done
}

ali=$ZOLT/seq/ovomucoid.ali
cp "$ali" "$home/original"

# The chooser lists klk_bz, ovomucoid, proteases...: open the second, select everything, no name.
keys Down Return Return
sleep 0.5
keys Home F2 F3
sleep 0.3
keys Escape
sleep 0.5
[ -z "$screenshot" ] || import -window root "$screenshot" 2>/dev/null || true

# A gap before the first residue of the first row, then save.
keys Home asterisk F5
wait_for 10 test -e "$ZOLT/seq/ovomucoid.bak"
wait_for 10 test ! -e "$ZOLT/seq/KQ_SAUVE.TMP"

cmp -s "$ZOLT/seq/ovomucoid.bak" "$home/original" || fail "the backup is not the old file"
# One line has changed: a gap stands before it.
line=$(cmp "$home/original" "$ali" | sed 's/.*line //') || true
[ -n "$line" ] || fail "nothing was changed in the saved file"
sed "${line}s/^/*/" "$home/original" | cmp - "$ali" || fail "more was changed than one gap in line $line"

# Out by the exit question.
keys Escape
sleep 0.3
keys y
for _ in $(seq 50); do
    kill -0 "$editor" 2>/dev/null || break
    sleep 0.1
done
kill -0 "$editor" 2>/dev/null && fail "the program did not end"
status=0
wait "$editor" || status=$?
[ "$status" = 0 ] || fail "exit status $status: $(cat "$home/out")"
echo "passed"
