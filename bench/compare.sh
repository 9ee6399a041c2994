#!/usr/bin/env bash
# Throughput of vdsql bench beside its yardsticks, on one statement file, measured in one run:
#   bash bench/compare.sh BUILD_DIR FILE REPEAT [vdsql options...]
# Each tool runs three times (the machine is shared); the best MB/s of each is kept and the
# parse + print figure is expressed as a share of the bare scan.
set -euo pipefail
build=$1 file=$2 repeat=$3
shift 3
best() { sort -g | tail -1; }
declare -A mbs
for label in vdsql scan bare sqlite; do mbs[$label]=""; done
for _ in 1 2 3; do
    mbs[vdsql]+="$("$build/bin/vdsql" bench --repeat "$repeat" "$@" "$file" | awk '{print $5}')"$'\n'
    mbs[scan]+="$("$build/bin/vdsql" bench --scan --repeat "$repeat" "$@" "$file" | awk '{print $5}')"$'\n'
    while read -r label _ _ _ rate _; do
        mbs[$label]+="$rate"$'\n'
    done < <("$build/bin/vd_baseline" --repeat "$repeat" "$file" 2>/dev/null)
done
for label in vdsql scan bare sqlite; do
    mbs[$label]=$(printf '%s' "${mbs[$label]}" | best)
done
printf '%-8s %10s\n' tool 'MB/s'
for label in vdsql scan bare sqlite; do printf '%-8s %10s\n' "$label" "${mbs[$label]}"; done
awk -v p="${mbs[vdsql]}" -v s="${mbs[scan]}" -v b="${mbs[bare]}" -v q="${mbs[sqlite]}" 'BEGIN {
    printf "parse+print / bare scan: %.3f   scanner / bare scan: %.3f   parse+print / sqlite: %.2f\n",
        p / b, s / b, p / q }'
