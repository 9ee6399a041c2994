#!/usr/bin/env bash
# Every throughput figure of the core in one run, best of three each (the machine is shared):
#   bash bench/measure.sh [BUILD_DIR]
# vdsql bench beside the bare scan and SQLite's prepare on 20,000 typical and 50 large
# generated statements, then vd_bench (scanner, parser, printer, model bytes per SQL byte,
# time per byte at 1x, 10x and 100x statement size).
set -euo pipefail
build=${1:-build}
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
"$build/bin/vd_gen_statements" typical 20000 1 >"$work/typical.sql"
"$build/bin/vd_gen_statements" large 50 2 >"$work/large.sql"
echo "== typical: $(wc -l <"$work/typical.sql") statements, $(wc -c <"$work/typical.sql") bytes"
bash "$(dirname "$0")/compare.sh" "$build" "$work/typical.sql" 1
echo "== large: $(wc -l <"$work/large.sql") statements, $(wc -c <"$work/large.sql") bytes"
bash "$(dirname "$0")/compare.sh" "$build" "$work/large.sql" 5
echo "== vd_bench (best of 3)"
for i in 1 2 3; do
    "$build/bin/vd_bench" --benchmark_min_time=0.2 --benchmark_format=json >"$work/run$i.json" 2>/dev/null
done
python3 - "$work"/run*.json <<'PY'
import json, sys
best = {}
for path in sys.argv[1:]:
    for b in json.load(open(path))["benchmarks"]:
        name = b["name"]
        if "bytes_per_second" in b:
            value = b["bytes_per_second"] / 1e6
            best[name] = max(best.get(name, 0), value)
        elif "model_bytes_per_sql_byte" in b:
            best[name] = b["model_bytes_per_sql_byte"]
for name, value in best.items():
    if name.startswith("BM_ModelBytes"):
        print(f"{name:40s} {value:8.2f} heap bytes per SQL byte")
    else:
        extra = f"   {1e3 / value:6.1f} ns/byte" if name.startswith("BM_ParsePrintScaled") else ""
        print(f"{name:40s} {value:8.2f} MB/s{extra}")
PY
