#!/bin/sh
# exports.sh LIBRARY: the version record is exported under its bare names.
set -eu
for symbol in KivUICoreVersionNumber KivUICoreVersionString; do
    readelf --wide --symbols "$1" | grep -Eq "OBJECT +GLOBAL +DEFAULT +[0-9]+ $symbol\$" || {
        echo "$symbol is not exported by $1" >&2
        exit 1
    }
done
