#!/usr/bin/env bash
# Times `qzpkg convert` against a Free Pascal program that calls the class
# library's ObjectTextToBinary / ObjectBinaryToText (fpc_convert.pas), each
# run as a script runs it: one whole process per file. Both directions on
# one form (by default the corpus's largest text form, HeidiSQL's 1.6 MB
# main.dfm), and `qzpkg --help` alone for the cost of starting.
#
#   bench/convert_vs_fpc.sh [FORM]     BUILD_DIR (default build), RUNS (30)
#
# Needs fpc (Debian: fp-compiler) and hyperfine; without them it says so
# and measures nothing.
set -euo pipefail

here=$(cd "$(dirname "$0")" && pwd)
root=$(dirname "$here")
build=${BUILD_DIR:-$root/build}
form=${1:-$root/../shared/corpus/dfm/HeidiSQL__HeidiSQL/source/main.dfm}
runs=${RUNS:-30}

for tool in fpc hyperfine; do
  if ! command -v "$tool" >/dev/null; then
    echo "convert_vs_fpc: $tool is not installed (Debian: apt-get install ${tool/fpc/fp-compiler}); nothing measured" >&2
    exit 0
  fi
done
qzpkg=$build/cli/qzpkg
if [ ! -x "$qzpkg" ]; then
  echo "convert_vs_fpc: $qzpkg is missing; build it first (cmake --build $build --target qzpkg)" >&2
  exit 1
fi
if [ ! -f "$form" ]; then
  echo "convert_vs_fpc: $form: no such form" >&2
  exit 1
fi

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
fpc -O2 -v0 -FE"$work" -FU"$work" "$here/fpc_convert.pas" >/dev/null
fpconv=$work/fpc_convert

# The text form to binary once, as the input of the other direction.
"$qzpkg" convert --to binary "$form" "$work/form.bin"
cp "$form" "$work/form.dfm"

echo "== text to binary: $(basename "$form"), $(stat -c %s "$work/form.dfm") bytes"
hyperfine -N --warmup 5 --runs "$runs" \
  -n "qzpkg convert --to binary" "$qzpkg convert --to binary $work/form.dfm $work/q.bin" \
  -n "fpc ObjectTextToBinary" "$fpconv binary $work/form.dfm $work/f.bin"
echo "== binary to text: $(stat -c %s "$work/form.bin") bytes"
hyperfine -N --warmup 5 --runs "$runs" \
  -n "qzpkg convert --to text" "$qzpkg convert --to text $work/form.bin $work/q.dfm" \
  -n "fpc ObjectBinaryToText" "$fpconv text $work/form.bin $work/f.dfm"
echo "== starting alone"
hyperfine -N --warmup 5 --runs "$runs" -n "qzpkg --help" "$qzpkg --help"

# Both sides did the same work: the same binary stream.
if ! cmp -s "$work/q.bin" "$work/f.bin"; then
  echo "convert_vs_fpc: note: the two binary streams differ" >&2
fi
