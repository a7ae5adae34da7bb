#!/usr/bin/env bash
# Builds every fuzz target with clang and runs each for the given number of
# seconds (default 60), starting from the seed corpus under fuzz/corpus. Any
# finding (crash, sanitizer report, leak, timeout, memory blow-up) fails the
# run; the input that caused it is left in <build>/findings/.
#   fuzz/run_fuzzers.sh [seconds] [target...]
# NXXML_FUZZ_BUILD names the build folder (default build-fuzz).
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
seconds=${1:-60}
shift || true
targets=("$@")
if [ ${#targets[@]} -eq 0 ]; then targets=(load from_xml_stream values pattern); fi
build=${NXXML_FUZZ_BUILD:-$root/build-fuzz}

launcher=()
if command -v ccache > /dev/null; then launcher=(-DCMAKE_CXX_COMPILER_LAUNCHER=ccache); fi
cmake -S "$root" -B "$build" -DCMAKE_BUILD_TYPE=RelWithDebInfo -DCMAKE_CXX_COMPILER=clang++ \
    -DNXXML_BUILD_FUZZERS=ON -DNXXML_BUILD_TESTS=OFF -DNXXML_BUILD_EXAMPLES=OFF "${launcher[@]}" > /dev/null
cmake --build "$build" -j"$(nproc)" --target "${targets[@]/#/fuzz_}"

mkdir -p "$build/findings"
for target in "${targets[@]}"; do
    work="$build/corpus/$target"
    mkdir -p "$work"
    options=(-max_total_time="$seconds" -print_final_stats=1 -timeout=10 -rss_limit_mb=2048
             -artifact_prefix="$build/findings/$target-")
    case $target in
        load | from_xml_stream) options+=(-dict="$root/fuzz/xml.dict") ;;
    esac
    log="$build/fuzz_$target.log"
    echo "== fuzz_$target for ${seconds}s"
    if ! "$build/fuzz/fuzz_$target" "${options[@]}" "$work" "$root/fuzz/corpus/$target" > "$log" 2>&1; then
        tail -n 60 "$log"
        echo "fuzz_$target: FINDING, input kept in $build/findings/" >&2
        exit 1
    fi
    grep -E "stat::number_of_executed_units|stat::peak_rss_mb" "$log" | sed "s/^/   /"
done
echo "fuzzers: no findings"
