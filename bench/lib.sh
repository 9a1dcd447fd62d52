# Sourced by the benchmarks: pairs of runs in turn, medians and ratios.

# Wall time of a command, its output thrown away.
microseconds() {
    local start=${EPOCHREALTIME/./}
    "$@" >/dev/null 2>&1 || echo "failed: $*" >&2
    echo $((${EPOCHREALTIME/./} - start))
}

median() { sort -g | awk '{ v[NR] = $1 } END { print v[int((NR + 1) / 2)] }'; }

# report NAME TARGET [DIVISOR], pairs of microseconds (ours, the peer's) on stdin. A line: NAME, our
# milliseconds (over DIVISOR), the peer's, the ratio (median of the pairs), the target.
report() {
    local pairs ours peer ratio
    pairs=$(cat)
    ours=$(awk -v d="${3:-1}" '{ print $1 / 1000 / d }' <<<"$pairs" | median)
    peer=$(awk -v d="${3:-1}" '{ print $2 / 1000 / d }' <<<"$pairs" | median)
    ratio=$(awk '{ print $1 / $2 }' <<<"$pairs" | median)
    printf '%s\t%.3f\t%.3f\t%.2f\t%s\n' "$1" "$ours" "$peer" "$ratio" "$2"
}
