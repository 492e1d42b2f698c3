#!/bin/sh
# Runs an example and compares what it prints: run.sh PROGRAM EXPECTED
set -eu
"$1" >"$1.printed"
diff -u "$2" "$1.printed"
