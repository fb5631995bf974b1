#!/usr/bin/env bash
# The key reference and the help pages name exactly the keys of their screens, and the pages fit their boxes.
# Usage: help_pages.sh KQ-KEYS SOURCE-DIRECTORY
# shellcheck disable=SC2016 # the backquotes in patterns are those of Markdown
set -uo pipefail
export LC_ALL=C
keys_program=$1
cd "$2" || exit 1
failures=0
fail() {
    echo "FAILED: $*"
    failures=1
}

cmp <("$keys_program") docs/keys.md || fail "print it again: kq-keys > docs/keys.md"
grep -nF -e '``' -e '|  |' docs/keys.md && fail "a key has no name or no note"
awk -v RS='\n## ' '/\nLetters work in upper and lower case/ && /`[a-z]`/' docs/keys.md | grep . &&
    fail "a table that folds letters has a lower-case row"

section() { awk -v title="## $1" '/^## / { inside = $0 == title } inside' docs/keys.md; }
# One key a line, runs such as "0 to 9" written out; $1 is what stands between two keys.
each_key() {
    awk -v between="$1" '{
        n = split($0, keys, between)
        for (i = 1; i <= n; i++)
            if (keys[i] !~ /^[0-9] to [0-9]$/) print keys[i]
            else for (digit = substr(keys[i], 1, 1); digit <= substr(keys[i], 6); digit++) print digit + 0
    }'
}
keys_of_section() { section "$1" | sed -nE 's/^\| `(.*)` \| .*/\1/p' | sed 's/` to `/ to /g' | each_key '`, `'; }
as_help_writes() {
    sed -E 's/^S-(.)/Shift-\1/; s/^C-(.)/Ctrl-\1/; s/^A-(.)/Alt-\1/
        s/Enter$/ENTER/; s/Escape$/ESCAPE/; s/Delete$/DEL/; s/BackSpace$/Backspace/
        s/KPMinus$/keypad -/; s/KPPlus$/keypad +/'
}
# What stands between the one blank at a line's start and two blanks, below the headings that begin so.
keys_of_page() {
    awk -v beginning="^$2" 'BEGIN { inside = beginning == "^" }
        /^[A-Z][A-Z ]*( \(|$)/ { inside = $0 ~ beginning }
        inside && /^ [^ ]/ { sub(/^ /, ""); sub(/  .*/, ""); print }' "help/$1.HLP" | each_key ', '
}
compare() { # compare PAGE HEADING SECTION
    diff <(keys_of_page "$1" "$2" | sort -u) <(keys_of_section "$3" | as_help_writes | sort -u) ||
        fail "page $1 $2 (<) and the keys of \"$3\" (>)"
}
compare KQ0 '' 'File chooser'
compare KQ1 '' 'Species of a group'
compare KQ2 '' 'Reordering the selected species'
compare KQ3 '' 'Tree screen'
compare KQ4 EDITING 'Editor'
compare KQ4 'EST MODE' 'EST mode'
compare KQ4 'MARKING A REGION' 'Marking a region'

# What the boxes hold on a screen of 34 lines and 80 columns. Each part of a page begins with its title.
while read -r page width height; do
    awk -v width="$width" -v height="$height" '
        length > width || (NR % height == 1 && !/^[^ ]/) { print FILENAME ":" NR ": " $0 }
        END { if (NR == 0) print FILENAME " is empty" }' "help/$page.HLP" | grep . && fail "page $page does not fit"
done <<< 'KQ0 72 18
KQ1 72 22
KQ2 72 26
KQ3 76 29
KQ4 76 28'

# A key shared with the editor stands once, and does there nothing else.
for mode in 'EST mode' 'Marking a region'; do
    { keys_of_section "$mode" && section "$mode" | sed -n 's/^As in the editor: `\(.*\)`$/\1/p' | each_key '` `'; } |
        sort | uniq -d | grep . && fail "keys of \"$mode\" stand twice"
done
exit "$failures"
