#!/usr/bin/env bash
# The manual page and the completions against the program's own --help: nothing is missing, nothing is made up. Every
# shell that is there completes for real. And the picture in the README is the gallery.
# Usage: documentation_test.sh BUILD_FOLDER
set -euo pipefail

build=$1
documents=$build/documentation
here=$(cd "$(dirname "$0")" && pwd)
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
fail() { echo "FAILED: $*" >&2; exit 1; }
has() { command -v "$1" > /dev/null || { echo "skipped: there is no $1"; return 1; }; }
expect() { [ "$2" = "$3" ] || fail "$1: '$2' instead of '$3'"; }
oneLine() { LC_ALL=C sort | paste -sd' '; }

# The long options and the subcommands of each command, by its words.
declare -A options subcommands
readHelp() {
    local path=$1 help name
    help=$("$build"/$path --help)
    options[$path]=$(sed -nE 's/^  (-[a-zA-Z],)?(--[a-z][a-z-]*).*/\2/p' <<< "$help" | oneLine)
    subcommands[$path]=$(sed -nE '/^Subcommands:/,$ s/^  ([a-z][a-z-]*).*/\1/p' <<< "$help" | oneLine)
    for name in ${subcommands[$path]}; do readHelp "$path $name"; done
}
readHelp orvel
[[ "${!options[*]}" == *"orvel pending set"* ]] || fail "the help isn't read: ${!options[*]}"

# What the completions ask for; one of the ids would run something if it were evaluated.
mkdir "$work/bin"
cat > "$work/bin/orvel" <<'SH'
#!/bin/sh
[ "$*" = "list --ids" ] && printf '%s\n' 6F1A 7A-two 'x $(touch evil)'
[ "$*" = symbols ] && printf '%s\n' flag flag.fill heart
SH
chmod +x "$work/bin/orvel"
PATH=$work/bin:$PATH
cd "$work"
touch card.json

# --- The gallery's picture in the README: as the gallery is now. Edges of letters may differ a little from one build to
# another, and from one version of the fonts to another a lot.
"$build/orvel" gallery -o gallery.png
if ! grep -qs '^VERSION_CODENAME=bookworm$' /etc/os-release; then
    echo "skipped: docs/gallery.png was drawn with the fonts of Debian 12"
elif has compare; then
    differing=$(compare -metric AE -fuzz 10% gallery.png "$here/../../docs/gallery.png" null: 2>&1 || true)
    [ "$differing" -le 20 ] 2> /dev/null ||
        fail "docs/gallery.png isn't the gallery ($differing pixels); make it with: orvel gallery -o docs/gallery.png"
fi

# --- The manual pages
for page in orvel.1 orvel.5; do
    grep -qP '[^\x00-\x7F]' "$documents/$page" && fail "$page isn't plain ASCII"
    requests=$(grep "^[.']" "$documents/$page" | grep -vE '^\.(TH|SH|SS|TP|PP|IP|RS|RE|nf|fi|br)( |$)' || true)
    expect "other requests in $page" "$requests" ""
    if has mandoc; then
        expect "mandoc of $page" "$(mandoc -T lint -W warning "$documents/$page" | grep -v 'missing date' || true)" ""
    fi
done
for example in $(sed -n 's/^For example: orvel \([a-z]*\) .*/\1/p' < <("$build/orvel" help set; "$build/orvel" help place)); do
    grep -q "^orvel $example " "$documents/orvel.1" || fail "the page lacks the example of orvel $example"
done
sed -E 's/\\f[BIR]//g; s/\\-/-/g' "$documents/orvel.1" > page
for path in "${!options[@]}"; do
    heading=".SS \"$path\""
    [ "$path" = orvel ] && heading=".SH \"OPTIONS\""
    section=$(awk -v heading="$heading" '/^\.S[HS]/ { inside = $0 == heading } inside' page)
    [ -n "$section" ] || fail "the page has no section for $path"
    found=$(grep -A1 '^\.TP' <<< "$section" | grep -oE '^(-[a-zA-Z], )?--[a-z-]+' | sed 's/.*--/--/' | oneLine || true)
    expected=${options[$path]}
    # Help is explained once.
    [ "$path" = orvel ] || expected=$(tr ' ' '\n' <<< "$expected" | { grep -vx -e --help || true; } | oneLine)
    expect "options of $path in the page" "$found" "$expected"
done

# --- bash, with what it would tell the function
source "$documents/orvel.bash"
compopt() { COMPREPLY+=("($*)"); }
bashProposes() {
    COMP_WORDS=("$@")
    COMP_CWORD=$(($# - 1))
    _orvel orvel
    printf '%s\n' "${COMPREPLY[@]}" | oneLine
}
for path in "${!options[@]}"; do
    expect "bash, $path --" "$(bashProposes $path --)" "${options[$path]}"
    [ -z "${subcommands[$path]}" ] || expect "bash, $path" "$(bashProposes $path "")" "${subcommands[$path]}"
done
ids='6F1A 7A-two x\ \$\(touch\ evil\)'
expect "a beginning" "$(bashProposes orvel re)" "remove render restore"
expect "choices" "$(bashProposes orvel render --family "")" "medium small"
expect "choices after =" "$(bashProposes orvel render --family =)" "medium small"
expect "a choice after =" "$(bashProposes orvel render --family = s)" "small"
expect "a value counts as no argument" "$(bashProposes orvel set --unset primary 7)" "7A-two"
expect "nor does one after =" "$(bashProposes orvel set --unset = primary 7)" "7A-two"
expect "files" "$(bashProposes orvel render -o "")" "(-o default)"
expect "files for an argument" "$(bashProposes orvel pending set "")" "(-o default)"
expect "files to redirect to" "$(bashProposes orvel list ">" "")" "(-o default)"
expect "ids" "$(bashProposes orvel front "")" "$ids"
expect "ids, of another set" "$(bashProposes orvel set 7)" "7A-two"
expect "one id only" "$(bashProposes orvel front 6F1A "")" "--help --wait -h"
expect "several ids" "$(bashProposes orvel remove 6F1A 7)" "7A-two"
expect "an id after --" "$(bashProposes orvel remove -- "")" "$ids"
expect "symbols" "$(bashProposes orvel add --symbol fl)" "flag flag.fill"
expect "symbols for a field" "$(bashProposes orvel set 7A-two symbol =)" "flag flag.fill heart"
expect "some of them" "$(bashProposes orvel set 7A-two symbol = h)" "heart"
expect "in one word" "$(bashProposes orvel set 7A-two symbol=h)" "symbol=heart"
expect "none for other fields" "$(bashProposes orvel set 7A-two title = fl)" ""
expect "fields" "$(bashProposes orvel set 7A-two t)" "(-o nospace) target= title="
expect "kinds for a field" "$(bashProposes orvel set 7A-two kind = n)" "note"
expect "colours for a field" "$(bashProposes orvel set 7A-two accent=re)" "accent=red"
expect "colours" "$(bashProposes orvel add --accent bl)" "blue"
expect "commands to explain" "$(bashProposes orvel help inp)$(bashProposes orvel help ins)" "inspect"
expect "free text" "$(bashProposes orvel render --at "")" ""
expect "ids of a command that fails" "$(orvel() { return 1; }; bashProposes orvel front "" 2>&1)" ""

# --- fish
if has fish; then
    fishProposes() {
        HOME=$work fish --no-config -c 'source $argv[1]; complete -C $argv[2]' "$documents/orvel.fish" "$1" |
            cut -f1 | oneLine
    }
    for path in "${!options[@]}"; do
        expect "fish, $path --" "$(fishProposes "$path --")" "${options[$path]}"
        [ -z "${subcommands[$path]}" ] || expect "fish, $path" "$(fishProposes "$path ")" "${subcommands[$path]}"
    done
    expect "fish, choices" "$(fishProposes "orvel render --family ")" "medium small"
    expect "fish, a value counts as no argument" "$(fishProposes "orvel set --unset primary 7")" "7A-two"
    expect "fish, files" "$(fishProposes "orvel check ca")" "card.json"
    expect "fish, no files" "$(fishProposes "orvel render --at ca")" ""
    expect "fish, ids" "$(fishProposes "orvel set 7")" "7A-two"
    expect "fish, symbols" "$(fishProposes "orvel add --symbol h")" "heart"
    expect "fish, symbols for a field" "$(fishProposes "orvel set 7A-two symbol=f")" "symbol=flag symbol=flag.fill"
    expect "fish, none for others" "$(fishProposes "orvel set 7A-two title=f")" ""
    expect "fish, fields" "$(fishProposes "orvel set 7A-two ti")" "title="
    expect "fish, kinds for a field" "$(fishProposes "orvel set 7A-two kind=n")" "kind=note"
    expect "fish, colours for a field" "$(fishProposes "orvel set 7A-two accent=re")" "accent=red"
    expect "fish, one id only" "$(fishProposes "orvel front 6F1A ")" ""
    expect "fish, several ids" "$(fishProposes "orvel remove 6F1A 7")" "7A-two"
fi

# --- zsh
for path in "${!options[@]}"; do
    function=$(sed -n "/^_${path// /_}() {/,/^}/p" "$documents/_orvel")
    found=$(grep -oE "[')*]--[a-z-]+" <<< "$function" | sed "s/^.//" | oneLine)
    expect "zsh, options of $path" "$found" "${options[$path]}"
done
if has zsh; then
    lines=("orvel gal" "orvel render --fam" "orvel render --family s" "orvel pending set ca" "orvel front 7"
        "orvel set 7A-two ca" "orvel pending ac" "orvel remove 6F1A 7" "orvel list --json --id"
        "orvel add --symbol h" "orvel set 7A-two title=a symbol=h" "orvel set 7A-two title=h"
        "orvel set 7A-two tit" "orvel set 7A-two kind=n" "orvel set 7A-two accent=re")
    expect "zsh" "$(HOME=$work zsh -f "$here/complete_in_zsh.zsh" "$documents" "${lines[@]}")" \
"orvel gallery
orvel render --family=
orvel render --family small
orvel pending set card.json
orvel front 7A-two
orvel set 7A-two ca
orvel pending accept
orvel remove 6F1A 7A-two
orvel list --json --id
orvel add --symbol heart
orvel set 7A-two title=a symbol=heart
orvel set 7A-two title=h
orvel set 7A-two title=
orvel set 7A-two kind=note
orvel set 7A-two accent=red"
fi

[ ! -e evil ] || fail "an id was evaluated"
mkdir again
"$build/tools/documentation/orvel_documentation" "$here/../../docs" again
diff -r "$documents" again || fail "a second run writes different documents"
echo "manual page and completions: all well"
