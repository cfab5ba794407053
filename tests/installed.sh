#!/bin/bash
# Installs the build, moves the copy elsewhere, and builds and runs other people's programs against it, in C and C++: found
# by CMake and by pkg-config. Then the sources as a part of another project.
#
#   installed.sh BUILD_FOLDER WORK_FOLDER CC CXX
set -euo pipefail
build=$1 work=$2 cc=$3 cxx=$4
consumers=$(cd "$(dirname "$0")" && pwd)/consumers
rm -rf "$work"
mkdir -p "$work"
cmake --install "$build" --prefix "$work/first" >/dev/null
mv "$work/first" "$work/moved"

CC=$cc CXX=$cxx cmake -S "$consumers" -B "$work/build" -DCMAKE_PREFIX_PATH="$work/moved" >"$work/log"
cmake --build "$work/build" >>"$work/log" || { cat "$work/log"; exit 1; }
ctest --test-dir "$work/build" --output-on-failure

if command -v pkg-config >/dev/null; then
    file=$(find "$work/moved" -name arkpx.pc)
    flags=$(PKG_CONFIG_PATH=$(dirname "$file") pkg-config --cflags --libs arkpx)
    read -ra flags <<<"$flags"
    for compiler in "$cc -x c" "$cxx -x c++"; do
        $compiler "$consumers/program.c" -x none "${flags[@]}" -o "$work/by_pkg_config"
        LD_LIBRARY_PATH=$(dirname "$(find "$work/moved" -name 'libarkpx.so')") "$work/by_pkg_config"
    done
fi

CC=$cc CXX=$cxx cmake -S "$consumers/subproject" -B "$work/subproject" -DARKPX_SOURCES="$consumers/../.." >"$work/log"
cmake --build "$work/subproject" --target uses_arkpx --target uses_static >>"$work/log" || { cat "$work/log"; exit 1; }
