#!/usr/bin/env bash
# The rules of the house that no compiler checks. Usage: house_rules.sh SOURCE-DIRECTORY
# shellcheck disable=SC2016 # dollars in patterns are awk's
set -uo pipefail
cd "$1/src" || exit 1
failures=0
none() { # none WHAT FOUND: nothing was found
    [ -z "$2" ] && return
    printf '%s:\n%s\n' "$1" "$2"
    failures=1
}

# "core/store.cpp core/store.h" where the first includes the second.
includes=$(grep -ro --include='*.h' --include='*.cpp' '^#include "[^"]*' -- * | sed 's/:#include "/ /')
[ "$(wc -l <<< "$includes")" -gt 500 ] || none "too few includes" "$includes"
none "a folder is unknown or includes one above it" "$(awk '
    BEGIN { split("raster screen core taxonomy editor analysis tools app", order); for (i in order) rank[order[i]] = i + 0 }
    { split($1, from, "/"); split($2, to, "/") }
    !rank[from[1]] || !rank[to[1]] || rank[to[1]] > rank[from[1]]' <<< "$includes")"
# A .h and its .cpp together are a module.
none "modules form a circle" "$(sed -E 's/\.(h|cpp)( |$)/\2/g' <<< "$includes" | awk '$1 != $2' | tsort 2>&1 >/dev/null)"

none "a first line does not say which kind of file it is" "$(find . -name '*.h' -print0 -o -name '*.cpp' -print0 |
    xargs -0 awk 'FNR == 1 && !/^\/\/ (model|kernel|format|screen|platform): ./ { print FILENAME ": " $0 }')"
none "a kernel includes what is none" "$(awk '
    NR == FNR { kernel[$1]; next }
    $1 in kernel && !($2 in kernel)' <(grep -rl '^// kernel: ' -- *) - <<< "$includes")"

none "a global is declared outside a header" "$(grep -r --include='*.cpp' '^extern [^"]' -- *)"
globals=$(grep -rh --include='*.h' '^extern [^"]' -- * | sed 's|//.*||; s/.*>//' |
    grep -oE '[A-Za-z_][A-Za-z0-9_]*(\[[^]]*\])* *[;,]' | sed 's/[[;, ].*//')
[ "$(wc -l <<< "$globals")" -gt 40 ] || none "too few globals" "$globals"
none "a global is declared twice" "$(sort <<< "$globals" | uniq -d)"
exit "$failures"
