# Sourced by the benchmarks: interleaved pairs of runs, medians and ratios.

# Prints the wall time of a command and discards its output.
microseconds() {
    local start=${EPOCHREALTIME/./}
    "$@" >/dev/null 2>&1 || echo "failed: $*" >&2
    echo $((${EPOCHREALTIME/./} - start))
}

median() { sort -g | awk '{ v[NR] = $1 } END { print v[int((NR + 1) / 2)] }'; }

# report NAME TARGET [DIVISOR]: reads pairs of microseconds (ours, the peer's) from stdin and prints
# a line: NAME, our milliseconds (divided by DIVISOR), the peer's, the ratio (median of the pairs),
# the target.
report() {
    local pairs ours peer ratio
    pairs=$(cat)
    ours=$(awk -v d="${3:-1}" '{ print $1 / 1000 / d }' <<<"$pairs" | median)
    peer=$(awk -v d="${3:-1}" '{ print $2 / 1000 / d }' <<<"$pairs" | median)
    ratio=$(awk '{ print $1 / $2 }' <<<"$pairs" | median)
    printf '%s\t%.3f\t%.3f\t%.2f\t%s\n' "$1" "$ours" "$peer" "$ratio" "$2"
}
