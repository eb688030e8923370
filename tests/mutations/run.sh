#!/usr/bin/env bash
# Proves that the tests hold the code where it is right. Each patch here is one small wrong change that every test once
# passed: applies it in a scratch copy, builds, tests, and fails when the tests pass, or when the patch no longer applies.
#   tests/mutations/run.sh            all of them, one after another
#   tests/mutations/run.sh NAME...    those only
# A patch is done with at the first test program that catches it; only what it changes is built, only those programs run.
# Programs that mirror no patch, and tests of the whole, are built and run only for a patch that no other catches.
set -euo pipefail
cd "$(dirname "$0")/../.."
root=$PWD
scratch=$root/build/mutations
log=$scratch/build/log
bin=$scratch/build/dev/bin
patches=(tests/mutations/*.patch)
[ $# -eq 0 ] || patches=("${@/#/tests/mutations/}")

# The working tree as it stands. Only what differs is written, with the time of now: what an earlier run built stays good,
# and what it left changed is built anew.
mkdir -p "$scratch/build"
(cd "$scratch" && find . -path ./build -prune -o -type f -print0) |
  while IFS= read -rd '' file; do [ -e "$file" ] || rm "$scratch/$file"; done
git ls-files -coz --exclude-standard | while IFS= read -rd '' file; do
  [ ! -e "$file" ] || cmp -s "$file" "$scratch/$file" || { mkdir -p "$(dirname "$scratch/$file")" && cp "$file" "$scratch/$file"; }
done
(cd "$scratch" && cmake --preset dev) >"$log" 2>&1 || { tail -n 40 "$log" >&2; exit 1; }

# Without the ceiling git takes the scratch copy for a part of the project and applies nothing.
apply() { GIT_CEILING_DIRECTORIES="$root/build" git -C "$scratch" apply "$@"; }
build() { (cd "$scratch" && cmake --build --preset dev --target "$@") >"$log" 2>&1; }
tests() { (cd "$scratch" && ctest --preset dev -j "$(nproc)" --stop-on-failure "$@") >>"$log" 2>&1; }
# The tests of one program, all in one process.
runs() { (cd "$scratch/build/dev" && "$bin/$1" --gtest_fail_fast --gtest_brief=1) >"$log" 2>&1; }
# When the program, and the module that it may load, were built.
built() { stat -c %Y.%y "$bin/$1" "$bin/Veloxa.arx" 2>/dev/null; }

# The test programs that mirror the folders of patches.
programs_of() {
  sed -n 's|^+++ b/src/\([a-z]*\)/.*|test_\1|p' "$@" | sort -u | grep -xF "$known"
}
known=$(cd "$scratch" && cmake --build --preset dev --target help | sed -n 's/^\(test_[a-z]*\): phony$/\1/p')
mapfile -t programs < <(programs_of tests/mutations/*.patch)
[ ${#programs[@]} -gt 0 ] || { echo "no test program" >&2; exit 1; }

# Whether the tests of the whole pass without any change; asked before the first patch that needs them.
whole_is_sound() {
  [ -z "${sound:-}" ] || return 0
  build all && tests || { tail -n 40 "$log" >&2; echo "the tests fail without any change" >&2; exit 1; }
  sound=yes
}
build "${programs[@]}" || { tail -n 40 "$log" >&2; exit 1; }
for program in "${programs[@]}"; do
  runs "$program" || { tail -n 40 "$log" >&2; echo "$program fails without any change" >&2; exit 1; }
done

# First the program that mirrors the folder of the change, then the others, then the tests of the whole: `caught` says
# what failed.
try() {
  local program before own
  mapfile -t own < <(programs_of "$patch")
  for program in "${own[@]}" "${programs[@]}"; do
    before=$(built "$program")
    build "$program" || { caught="DOES NOT BUILD"; return; }
    [ "$before" != "$(built "$program")" ] || continue
    runs "$program" || { caught="caught by $program $(sed -n 's/^\[  FAILED  \] \([^ ,]*\).*/\1/p;T;q' "$log")"; return; }
  done
  apply -R "$patch"
  whole_is_sound
  apply "$patch"
  build all || { caught="DOES NOT BUILD"; return; }
  tests && caught="PASSES ALL TESTS" ||
    caught="caught by $(sed -n '/(Skipped)/d;s/^\t *[0-9]* - \(.*\) (.*)$/\1/p;T;q' "$log")"
}

status=0
for patch in "${patches[@]}"; do
  name=$(basename "$patch" .patch)
  patch=$root/tests/mutations/$name.patch
  caught="NO LONGER APPLIES"
  if apply "$patch"; then
    try
    apply -R "$patch"
  fi
  echo "$name: $caught"
  [[ $caught == "caught by "?* ]] || status=1
done
exit $status
