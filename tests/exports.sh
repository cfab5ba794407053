#!/bin/bash
# The library's face: the names that it exports are those of the list, so are the prototypes in the headers, and it needs
# nothing but the system's own libraries.
#
#   exports.sh LIST INCLUDE_DIR LIBRARY OBJDUMP
set -euo pipefail
export LC_ALL=C
list=$1 include=$2 library=$3 objdump=$4

failed=0
# same TITLE EXPECTED ACTUAL: two lists of names; says what is missing and what is too much.
same() {
    if ! difference=$(diff <(sort <<<"$2") <(sort <<<"$3")); then
        echo "$1 (< expected, > found):" >&2
        echo "$difference" >&2
        failed=1
    fi
}

names=$(cat "$list")
same "Names that are listed twice" "$(sort -u "$list")" "$names"

# Prototypes may span lines; the name is the last word before the first bracket.
prototypes=$(cat "$include"/arkpx/*.h | tr '\n' ' ' | grep -o 'ARKPX_API [^;]*;' |
    sed -nE 's/^ARKPX_API [^(]*\b(ark[A-Za-z0-9_]+) *\(.*/\1/p')
same "Prototypes in the headers" "$names" "$prototypes"

case $("$objdump" --file-headers "$library") in
*"file format pei-"*)
    # Lines of the table: ordinal, address or hint, name. Undecorated names have no @ and no leading underscore.
    headers=$("$objdump" --private-headers "$library")
    exported=$(sed -n '/Ordinal\/Name Pointer/,/^$/s/^\t*\[ *[0-9]*\] *\(+base\[ *[0-9]*\] *[0-9a-f]* \)\?//p' <<<"$headers")
    allowed='KERNEL32.dll|USER32.dll|msvcrt.dll'
    needed=$(sed -n 's/^\tDLL Name: //p' <<<"$headers")
    ;;
*)
    # Lines of the table: value, flags, section, size, version, name. What is undefined is imported; the version's own
    # name has no section either.
    symbols=$("$objdump" --dynamic-syms "$library")
    exported=$(awk '$2 ~ /^[gwu]$/ && !/\*UND\*/ && !/\*ABS\*/ { print $NF }' <<<"$symbols")
    allowed='libc\.so\.6|libm\.so\.6|ld-linux[-a-z0-9_]*\.so\.[12]'
    # Instrumented code calls the run-time library of its sanitizer, and that of C++.
    if grep -qE '\*UND\*.* __(a|ub)san_' <<<"$symbols"; then
        allowed+='|lib(a|ub)san\.so.*|libstdc\+\+\.so\.6|libgcc_s\.so\.1'
    fi
    needed=$("$objdump" --private-headers "$library" | sed -n 's/^ *NEEDED *//p')
    ;;
esac
same "Exports of $library" "$names" "$exported"

if foreign=$(grep -vxE "$allowed" <<<"$needed" | grep .); then
    echo "$library needs foreign libraries:" $foreign >&2
    failed=1
fi
exit $failed
