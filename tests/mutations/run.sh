#!/usr/bin/env bash
# Proves that the tests hold the code where it is right. Each patch here is one small wrong change that every test once
# passed: applies it in a scratch copy, builds, tests, and fails when the tests pass, or when the patch no longer applies.
#   tests/mutations/run.sh            all of them, one after another
#   tests/mutations/run.sh NAME...    those only
set -euo pipefail
cd "$(dirname "$0")/../.."
root=$PWD
scratch=build/mutations
log=$scratch/log
patches=(tests/mutations/*.patch)
[ $# -eq 0 ] || patches=("${@/#/tests/mutations/}")

# The working tree as it stands; the build of an earlier run is kept.
mkdir -p "$scratch"
find "$scratch" -mindepth 1 -maxdepth 1 ! -name build -exec rm -rf {} +
git ls-files -coz --exclude-standard | xargs -0 -I{} sh -c '[ ! -e "$1" ] || printf "%s\0" "$1"' _ {} |
  tar -c --null -T - | tar -x -C "$scratch"

# Without the ceiling git takes the scratch copy for a part of the project and applies nothing.
apply() { GIT_CEILING_DIRECTORIES="$root/build" git -C "$scratch" apply "$@"; }
build() { (cd "$scratch" && cmake --preset dev && cmake --build --preset dev) >"$log" 2>&1; }
# The quick tests first: they find nearly everything.
slow="^console"
passes() {
  (cd "$scratch" && ctest --preset dev -j "$(nproc)" --stop-on-failure -E "$slow" &&
    ctest --preset dev -j "$(nproc)" --stop-on-failure -R "$slow") >>"$log" 2>&1
}

build && passes || { tail -n 40 "$log" >&2; echo "the tests fail without any change" >&2; exit 1; }
status=0
for patch in "${patches[@]}"; do
  name=$(basename "$patch" .patch)
  patch=$root/tests/mutations/$name.patch
  if ! apply "$patch"; then
    verdict="NO LONGER APPLIES"
  else
    if ! build; then verdict="DOES NOT BUILD"
    elif passes; then verdict="PASSES ALL TESTS"
    else verdict="caught by $(sed -n 's/^\t *[0-9]* - \(.*\) (.*)$/\1/p' "$log" | grep -v Skipped | head -n 1)"
    fi
    apply -R "$patch"
  fi
  echo "$name: $verdict"
  [[ $verdict == caught* ]] || status=1
done
exit $status
