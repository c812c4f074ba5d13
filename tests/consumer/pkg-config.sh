#!/bin/sh
# Builds and runs the application with nothing but a compiler and pkg-config. Qt wants position-independent code.
# usage: pkg-config.sh COMPILER SOURCE LIBRARY_FOLDER PROGRAM
set -eu
export PKG_CONFIG_PATH="$3/pkgconfig"
# shellcheck disable=SC2046 # flags are words
"$1" -std=c++17 -fPIC "$2" -o "$4" $(pkg-config --cflags --libs ksundo) -Wl,-rpath,"$3"
"$4"
