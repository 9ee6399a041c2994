#!/usr/bin/env bash
# Command-line tests of vandor-demo: demo_test.sh DEMO VDSQL SOURCE_DIR CASE
# Each case runs the program in a fresh folder (its own sample database and data dir) and
# checks exit status, standard output and standard error exactly.
set -u
demo=$1 vdsql=$2 src=$3 case=$4
BUILD_DIR=$(cd "$(dirname "$demo")/.." && pwd)
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
export XDG_DATA_HOME=$work/data XDG_RUNTIME_DIR=$work/run
mkdir -m 700 "$work/run"
db=sqlite:$work/business.sqlite

fail() { echo "FAIL ($case): $*" >&2; exit 1; }

# The PNG's width and height from its header.
png_size() {
    [ "$(head -c 8 "$1" | od -An -tx1 | tr -d ' \n')" = 89504e470d0a1a0a ] || return 1
    local w h
    w=$(od -An -tu1 -j16 -N4 "$1" | awk '{print $1*16777216+$2*65536+$3*256+$4}')
    h=$(od -An -tu1 -j20 -N4 "$1" | awk '{print $1*16777216+$2*65536+$3*256+$4}')
    echo "${w}x${h}"
}

# The demo's print of FILE must be the core's print of it, byte for byte.
same_as_core() {
    local file=$1
    "$demo" --db "$db" --sql "$file" --print-sql >"$work/out" 2>"$work/err"
    local status=$?
    [ $status -eq 0 ] || fail "$file: exit $status: $(cat "$work/err")"
    "$vdsql" format "$file" >"$work/core" || fail "$file: the core refuses it"
    cmp -s "$work/out" "$work/core" || {
        diff <(od -c "$work/core") <(od -c "$work/out") | head -20 >&2
        fail "$file: the demo's print differs from the core's"
    }
}

case $case in
print_sql_sample)
    same_as_core "$src/app/sample/orders.sql"
    [ -f "$work/business.sqlite" ] || fail "the sample database was not created"
    grep -qx "vandor-demo: created the sample database $work/business.sqlite" "$work/err" ||
        fail "no note of the created database: $(cat "$work/err")"
    ;;
print_sql_statements)
    count=0
    for file in "$src"/tests/app/statements/*.sql; do
        same_as_core "$file"
        count=$((count + 1))
    done
    [ $count -ge 10 ] || fail "only $count statements"
    ;;
print_sql_parse_error)
    printf 'SELECT C.COMPANY\nFROM CUSTOMERS C\nWHERE C.ID = = 1\n' >"$work/bad.sql"
    "$demo" --db "$db" --sql "$work/bad.sql" --print-sql >"$work/out" 2>"$work/err"
    status=$?
    [ $status -eq 1 ] || fail "exit $status, expected 1"
    [ ! -s "$work/out" ] || fail "standard output not empty: $(cat "$work/out")"
    "$vdsql" format "$work/bad.sql" >/dev/null 2>"$work/core"
    grep -v '^vandor-demo: created' "$work/err" >"$work/message"
    cmp -s "$work/message" "$work/core" ||
        fail "message '$(cat "$work/message")' is not the parser's '$(cat "$work/core")'"
    [ "$(cat "$work/message")" = "Invalid token '=' at position 14 of line 3." ] ||
        fail "unexpected message $(cat "$work/message")"
    ;;
print_sql_stdin)
    "$demo" --db "$db" --sql - --print-sql <"$src/app/sample/orders.sql" >"$work/out" 2>/dev/null ||
        fail "exit $?"
    "$vdsql" format "$src/app/sample/orders.sql" >"$work/core"
    cmp -s "$work/out" "$work/core" || fail "stdin print differs"
    ;;
screenshot)
    for size in 1280x800 1000x700; do
        "$demo" --db "$db" --screenshot "$work/shot.png" --size $size --page selection \
            >"$work/out" 2>"$work/err" || fail "exit $?: $(cat "$work/err")"
        [ "$(png_size "$work/shot.png")" = $size ] ||
            fail "picture is $(png_size "$work/shot.png"), expected $size"
        [ ! -s "$work/out" ] || fail "standard output not empty"
        rm -f "$work/shot.png"
    done
    ;;
screenshot_bad_sql)
    printf 'SELECT FROM\n' >"$work/bad.sql"
    "$demo" --db "$db" --sql "$work/bad.sql" --screenshot "$work/shot.png" >/dev/null 2>"$work/err"
    status=$?
    [ $status -eq 1 ] || fail "exit $status, expected 1"
    [ "$(png_size "$work/shot.png")" = 1280x800 ] || fail "no picture of the window"
    ;;
no_display)
    env -u DISPLAY -u WAYLAND_DISPLAY -u QT_QPA_PLATFORM "$demo" --db "$db" \
        >"$work/out" 2>"$work/err" || fail "exit $?: $(cat "$work/err")"
    head -1 "$work/out" | grep -q '^vandor-demo: no display available' ||
        fail "first line: $(head -1 "$work/out")"
    picture=$(sed -n 's/^Window: //p' "$work/out")
    [ "$picture" = "$XDG_DATA_HOME/VandorRT/vandor-demo/vandor-demo.png" ] ||
        fail "picture path '$picture'"
    [ "$(png_size "$picture")" = 1280x800 ] || fail "no picture at $picture"
    # After the first line: the picture's path, then the SQL as the builder prints it.
    { printf 'Window: %s\nSQL:\n' "$picture"; "$vdsql" format "$src/app/sample/orders.sql"
      printf '\n'; } >"$work/expected"
    tail -n +2 "$work/out" | cmp -s - "$work/expected" || fail "output: $(cat "$work/out")"
    ;;
sample_in_data_dir)
    "$demo" --print-sql >"$work/out" 2>"$work/err" || fail "exit $?: $(cat "$work/err")"
    [ -f "$XDG_DATA_HOME/VandorRT/vandor-demo/business.sqlite" ] ||
        fail "no sample database in the data folder"
    "$vdsql" format "$src/app/sample/orders.sql" >"$work/core"
    cmp -s "$work/out" "$work/core" || fail "sample query print differs"
    ;;
readme_command)
    # The README's first command as it stands there (the first line of its first sh block
    # that is no comment), run without a display: setup, build, then the picture.
    command=$(awk '/^```sh/ { block = 1; next } block && /^```/ { exit }
                   block && !/^#/ && NF { print; exit }' "$src/README.md")
    case $command in
    *vandor-demo*) ;;
    *) fail "the README's first command does not start the demo: '$command'" ;;
    esac
    (cd "$src" && env -u DISPLAY -u WAYLAND_DISPLAY -u QT_QPA_PLATFORM bash -c "$command") \
        >"$work/out" 2>"$work/err" || fail "exit $?: $(tail -5 "$work/err")"
    grep -q '^vandor-demo: no display available' "$work/out" || fail "$(cat "$work/out")"
    picture=$(sed -n 's/^Window: //p' "$work/out")
    [ "$(png_size "$picture")" = 1280x800 ] || fail "no picture at '$picture'"
    grep -q '^  INNER JOIN "ORDERS" O ON ("C"."ID" = "O"."CUSTOMER_ID")' "$work/out" ||
        fail "no SQL printed"
    ;;
example_minimal)
    VD_BUILD_DIR=$BUILD_DIR "$src/scripts/build-example.sh" "$work/prefix" >"$work/out" 2>&1 ||
        fail "$(tail -20 "$work/out")"
    for file in lib/cmake/VandorRT/VandorRTConfig.cmake include/VandorRT/builder/VdSQLVandor.h \
                include/VandorRT/core/VdSelectParser.h; do
        [ -f "$work/prefix/$file" ] || fail "not installed: $file"
    done
    ;;
usage_errors)
    "$demo" --size big >/dev/null 2>"$work/err"
    [ $? -eq 2 ] || fail "--size big: exit not 2"
    grep -q "^vandor-demo: --size wants WIDTHxHEIGHT, not 'big'" "$work/err" || fail "$(cat "$work/err")"
    "$demo" --dialect oracle >/dev/null 2>"$work/err"
    [ $? -eq 2 ] || fail "--dialect oracle: exit not 2"
    "$demo" --db nowhere://x --print-sql >/dev/null 2>"$work/err"
    [ $? -eq 1 ] || fail "bad URL: exit not 1"
    grep -q "cannot read the database URL 'nowhere://x'" "$work/err" || fail "$(cat "$work/err")"
    "$demo" --help >"$work/out" || fail "--help exit $?"
    grep -q '^usage: vandor-demo' "$work/out" || fail "no usage"
    ;;
*)
    fail "unknown case"
    ;;
esac
echo "ok $case"
