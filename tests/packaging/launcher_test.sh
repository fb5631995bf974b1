#!/usr/bin/env bash
# The launcher on hostile and ordinary directories. Usage: launcher_test.sh SOURCE-DIRECTORY
# In place of the program stands a script that writes down what it was started with.
set -uo pipefail
source_directory=$1
place=/tmp/kqlaunch$$
mkdir "$place" && cd "$place" || exit 1
trap 'rm -rf "$place"' EXIT
failures=0

fail() {
    echo "FAILED: $*"
    failures=$((failures + 1))
}
expect() { # expect WHAT COMMAND...: the command succeeds
    local what=$1
    shift
    "$@" >/dev/null || fail "$what"
}
same() { [ "$2" = "$3" ] || fail "$1: expected \"$3\", found \"$2\""; }
says() { grep -qF -- "$2" messages || fail "$1: it does not say \"$2\" but \"$(cat messages)\""; }

mkdir share home
cp "$source_directory"/packaging/{START.fra,start.col} share/
cp "$source_directory"/demo/ZOLTEXE/zoltexe/*.MAT share/
cp -r "$source_directory/demo" share/demo
touch share/xm8x13.fnt share/KQ0.HLP
cat > program << END
#!/bin/sh
printf '%s\n' "\$ZOLT" "\$ZOLTEXE" "\$PWD" > "$place/started"
END
chmod +x program
export KQ_PROGRAM=$place/program KQ_SHARE=$place/share HOME=$place/home DISPLAY=:none
unset ZOLT ZOLTEXE GRX20DRV
start() {
    rm -f "$place/started"
    "$source_directory/packaging/kq-start" "$@" 2> "$place/messages" < /dev/null
}
alignment() { printf '#molecule\n#domain\n%b' "$2" > "$1"; }

# ---- the demo: made once, then left as the user left it
start --demo || fail "the demo does not start"
same "demo root" "$(sed -n 1p started)" "$HOME/kq-demo/ZOLT"
same "demo work directory" "$(sed -n 3p started)" "$HOME/kq-demo/work"
same "demo memory" "$(cat home/kq-demo/ZOLT/zolt/data/afas.ref)" "DEMO
$HOME/kq-demo/ZOLT/zolt/data/demo.nom
$HOME/kq-demo/ZOLT/zolt/data/demo.col"
echo edited > home/kq-demo/ZOLT/seq/ssu_small.ali
rm home/kq-demo/ZOLT/seq/klk_bz.ali
start || fail "the demo does not start again"
same "edited alignment" "$(cat home/kq-demo/ZOLT/seq/ssu_small.ali)" edited
expect "a deleted alignment stays away" test ! -e home/kq-demo/ZOLT/seq/klk_bz.ali

# ---- a new directory, relative and with a blank
start "my data" && fail "it starts without an alignment"
says "without an alignment" "$place/my data/ZOLT/seq"
seq="my data/ZOLT/seq" data="my data/ZOLT/zolt/data"
alignment "$seq/a.ali" '>Homo sapiens@X1\nAC\n>bos taurus#MASKED#\nAC\n>Mus musculus@Y\r\nAC\n>Mus musculus@Z#NEW#\nAC\n'
alignment "$seq/b.ali" '>try-Sus scrofa@1\nAC\n>ela-Sus scrofa@2\nAC\n>ela-Gadus-like x@2\nAC\n>ela-short\nAC\n'
alignment "$seq/c.ali" '>one-Ovis aries\nAC\n'
start "my data" || fail "it does not start with alignments"
same "groups" "$(cat "$data/start.nom")" "bos taurus , Species
ela-short , Species
Gadus-like x , Species
Homo sapiens , Species
Mus musculus , Species
one-Ovis aries , Species
Sus scrofa , Species"
same "frame in use" "$(head -n 1 "$data/afas.ref")" START
expect "the group file in use is readable" test -r "$(sed -n 2p "$data/afas.ref")"
expect "the help page is there" test -e "my data/ZOLTEXE/zoltexe/KQ0.HLP"

# ---- what is there stays; new species only when asked for
printf 'Homo sapiens , Outgroup' > "$data/start.nom"
echo mine > "$data/start.col"
rm "my data/ZOLTEXE/zoltexe/CONS.MAT" && echo mine > "my data/ZOLTEXE/zoltexe/CONS.MAT"
start "my data" || fail "it does not start a second time"
same "own groups" "$(cat "$data/start.nom")" "Homo sapiens , Outgroup"
same "own colours" "$(cat "$data/start.col")" mine
same "own matrix" "$(cat "my data/ZOLTEXE/zoltexe/CONS.MAT")" mine
says "species without a group" "6 species"
start --add-species "my data" || fail "it does not start after adding species"
same "added groups" "$(grep -c , "$data/start.nom")" 7
same "kept group" "$(grep Homo "$data/start.nom")" "Homo sapiens , Outgroup"
same "backup" "$(cat "$data/start.bak")" "Homo sapiens , Outgroup"

# ---- names that the program's paths cannot hold
for name in v1.2 "$(printf 'long%.0s' {1..20})"; do
    mkdir -p "$name/ZOLT/seq"
    alignment "$name/ZOLT/seq/a.ali" '>A\nAC\n'
    start "$name" || fail "it does not start in $name"
    root=$(sed -n 1p started)
    [[ $root != *.* && ${#root} -le 65 ]] || fail "unusable root $root"
    expect "the root leads to $name" test "$root/seq/a.ali" -ef "$name/ZOLT/seq/a.ali"
    rm "${root%/ZOLT}"
done

# ---- what cannot work is said, and nothing is started
echo plain > plain
start plain && fail "a file is no directory"
says "a file is no directory" "cannot be made"
start one two && fail "two directories"
says "two directories" "one directory"
start --wrong && fail "an unknown option"
says "an unknown option" "--wrong"
DISPLAY='' start --demo && fail "it starts without a display"
says "without a display" "--virtual"
expect "nothing is started without a display" test ! -e started

[ "$failures" -eq 0 ] && echo "all passed"
exit "$failures"
