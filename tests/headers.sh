#!/bin/bash
# The headers as other people compile them: every language level that is promised, every warning that can be had, both
# widths, and with Clang the other systems' types; each header alone. records.c checks the layout of the records besides.
#
#   headers.sh INCLUDE_DIR RECORDS_C CC CXX
set -euo pipefail
include=$1 records=$2 cc=$3 cxx=$4

warnings=(-Werror -pedantic-errors -Wall -Wextra -Wshadow -Wconversion -Wundef -Wcast-qual -Wredundant-decls)
targets=("")
if "$cc" --version | grep -q clang; then
    # What is left out speaks of other standards than the one compiled for, of gaps in records, which are as they must
    # be, of macros that every header has, and of choices of style.
    warnings+=(-Weverything -Wno-c++98-compat-pedantic -Wno-padded -Wno-reserved-macro-identifier -Wno-reserved-id-macro
        -Wno-unused-macros -Wno-documentation -Wno-unknown-warning-option -Wno-poison-system-directories)
    targets=(--target={x86_64-linux-gnu,i686-linux-gnu,x86_64-windows-gnu,i686-windows-gnu,x86_64-windows-msvc,i686-windows-msvc})
elif echo 'int x;' | "$cc" -m64 -x c -fsyntax-only - 2>/dev/null; then
    targets=(-m64 -m32) # nothing is assembled or linked, so that no 32-bit system need be there
fi

failed=0
# compile STANDARD TARGET INCLUDED: a source file that has nothing but that one inclusion. A header is included as users
# do it, since compilers treat one that is the main file in another way.
compile() {
    local standard=$1 target=$2 command
    case $standard in
    c++*) command=("$cxx" -x c++ -Wold-style-cast -Wzero-as-null-pointer-constant) ;;
    *) command=("$cc" -x c -Wstrict-prototypes -Wold-style-definition) ;;
    esac
    # Freestanding: of the system's headers only the compiler's own are needed.
    if ! "${command[@]}" "${warnings[@]}" ${target:+"$target"} "-std=$standard" -ffreestanding -fsyntax-only \
        -I "$include" - <<<"#include $3"; then
        echo "See above: $3 as $standard $target" >&2
        failed=1
    fi
}
for standard in c99 c17 c++11 c++20; do
    for target in "${targets[@]}"; do
        compile "$standard" "$target" "\"$records\""
    done
done
for header in "$include"/arkpx/*.h; do
    compile c99 "${targets[0]}" "<arkpx/${header##*/}>"
    compile c++11 "${targets[0]}" "<arkpx/${header##*/}>"
done

# Every record of the headers is among those whose layout is checked.
for record in $(sed -nE 's/^\} (\w+);$/\1/p' "$include"/arkpx/*.h); do
    if ! grep -q "^SIZE($record," "$records"; then
        echo "${records##*/} does not check the layout of $record" >&2
        failed=1
    fi
done
exit $failed
