#!/bin/bash
# Code for newer instruction sets stays where it belongs.
#
# An inline function that is not inlined is emitted weak in every object that uses it, and the linker keeps one copy for
# all: if an object of the AVX-512 set brought it, every processor would run AVX-512. Hence
# - the objects of the sets define no weak symbol and no section that is linked once only;
# - the base objects contain no AVX instruction.
#
#   kernel_objects.sh OBJDUMP "base objects" "objects of the sets", both separated by semicolons
set -euo pipefail
export LC_ALL=C
objdump=$1
IFS=';' read -ra base <<<"$2"
IFS=';' read -ra kernels <<<"$3"
failed=0

# shared_definitions OBJECT: what the linker may take from this object on behalf of others. ELF: symbols that are weak
# (w) or unique (u) and not merely referred to. COFF: sections with the flag LINK_ONCE.
shared_definitions() {
    case $("$objdump" --file-headers "$1") in
    *"file format elf"*) "$objdump" --syms "$1" | awk '/^[0-9a-f]+ +[!gl]?[wu]/ && !/\*UND\*/' ;;
    *) "$objdump" --section-headers "$1" | grep -B 1 LINK_ONCE || true ;;
    esac
}

# avx_instructions OBJECT: instructions that use a wide or a mask register or have a three-operand (VEX) name. The only
# other names with v are those of the processor's virtualisation and verr, verw.
avx_instructions() {
    "$objdump" --disassemble --no-show-raw-insn "$1" |
        grep -E '^ *[0-9a-f]+:\s+(v[a-z0-9]+( |$)|.*%([yz]mm|k[0-7]))' || true
}

for object in "${kernels[@]}"; do
    found=$(shared_definitions "$object")
    if [ -n "$found" ]; then
        printf '%s shares with other objects:\n%s\n' "$object" "$(head -n 10 <<<"$found")" >&2
        failed=1
    fi
done
for object in "${base[@]}"; do
    found=$(avx_instructions "$object")
    if [ -n "$found" ]; then
        printf '%s runs on every processor but has:\n%s\n' "$object" "$(head -n 10 <<<"$found")" >&2
        failed=1
    fi
done

# The checks above would also pass if they saw nothing at all.
if [ -z "$(avx_instructions "${kernels[-1]}")" ]; then
    echo "no AVX instruction is recognised in ${kernels[-1]}" >&2
    failed=1
fi
exit $failed
