#!/bin/sh
# fuzz.sh SECONDS: runs every fuzzer of the fuzz build for so long.  What a fuzzer finds worth
# keeping is added to its corpus in fuzz/corpus/; an input that fails is left in build/fuzz/findings/.
set -eu
cd "$(dirname "$0")/../.."
seconds=$1

found=0
status=0
for program in $(find build/fuzz -type f -name 'fuzz_*' -perm -u+x | sort); do
  found=1
  name=${program##*/}
  corpus=fuzz/corpus/${name#fuzz_}
  findings=build/fuzz/findings/${name#fuzz_}
  mkdir -p "$corpus" "$findings"
  echo "== $name, $seconds s"
  "$program" -max_total_time="$seconds" -timeout=10 -rss_limit_mb=2048 -print_final_stats=1 \
    -verbosity=0 -artifact_prefix="$findings/" "$corpus" || status=1
done
[ $found -eq 1 ] || { echo "fuzz: the build has no fuzzers" >&2; exit 1; }
exit $status
