#!/bin/sh
# Generates the reference, in which every public class and operation has its place, and takes a reference to nothing for
# an error: reference.sh SOURCE WORK
set -eu
source=$1
work=$2
failures=0

# generate WORK [SETTING...]: settings override those of the Doxyfile.
generate() {
    output=$1
    shift
    mkdir -p "$output"
    {
        cat "$source/Docs/Doxyfile"
        printf '%s\n' "OUTPUT_DIRECTORY = \"$output\"" "GENERATE_TAGFILE = \"$output/tags\"" "$@"
    } | (cd "$source" && doxygen -)
}

fail() {
    echo "$*" >&2
    failures=$((failures + 1))
}

public_headers() {
    find "$source/Platform" "$source/KivCore" "$source/KivUICore" -name '*.h' ! -path '*/Platform/UIKit/*/*'
}

# Prints module and class as the reference names them.
public_classes() {
    public_headers | while read -r header; do
        module=$(sed -n 's/^namespace \([A-Za-z]*\) {$/\1/p' "$header" | tail -n 1)
        sed -nE "s/^class ([A-Za-z]+)( final)?( [:{].*|)\$/$module::\1/p" "$header"
    done
}

rm -rf "$work"
generate "$work/reference" || fail "doxygen found something; see above"

public_classes >"$work/classes"
[ "$(wc -l <"$work/classes")" -gt 40 ] || fail "the headers were not understood: hardly any class was found"
while read -r class; do
    grep -qF "<name>$class</name>" "$work/reference/tags" || fail "$class has no page"
done <"$work/classes"

if grep -qF '<name>UIKit::ViewRenderer</name>' "$work/reference/tags"; then
    fail "what lies behind the public face has a page"
fi

grep -qF '<name>currentTitleColor</name>' "$work/reference/tags" || fail "a plain getter has no place"

mkdir -p "$work/broken"
cat >"$work/broken/Broken.h" <<'HEADER'
/// \file
/// See \ref Nowhere::nothing.

/// \param b is another.
void f(int a);
HEADER
if generate "$work/broken/reference" "INPUT = \"$work/broken\"" 2>"$work/broken/warnings"; then
    fail "a broken comment was accepted"
fi
grep -qF "unable to resolve reference to 'Nowhere::nothing'" "$work/broken/warnings" ||
    fail "a broken reference was passed over"
grep -qF "argument 'b' of command @param is not found" "$work/broken/warnings" ||
    fail "a parameter that isn't there was passed over"

[ "$failures" -eq 0 ]
