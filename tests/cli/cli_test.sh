#!/usr/bin/env bash
# Command-line tests of vdsql: exact bytes on standard output and standard error, and the
# exit status. Usage: cli_test.sh <vdsql> <source dir> <case>
set -u
exec </dev/null # no case may wait on the terminal

VDSQL=$1
SOURCE_DIR=$2
CASE=$3
EXPECTED_DIR=$SOURCE_DIR/tests/cli/expected
WORK=$(mktemp -d)
trap 'rm -rf "$WORK"' EXIT
FAILURES=0

fail()
{
    echo "FAIL: $*" >&2
    FAILURES=$((FAILURES + 1))
}

# run <stdin text> <vdsql arguments...>: fills $WORK/out, $WORK/err and RC.
run()
{
    local input=$1
    shift
    printf '%s' "$input" | "$VDSQL" "$@" >"$WORK/out" 2>"$WORK/err"
    RC=$?
}

# run_file <vdsql arguments...>: as run, standard input left to the caller.
run_file()
{
    "$VDSQL" "$@" >"$WORK/out" 2>"$WORK/err"
    RC=$?
}

show_bytes()
{
    od -c "$1" | sed 's/^/    /' >&2
}

# expect_file <produced file> <expected file> <what>
expect_file()
{
    if ! cmp -s "$1" "$2"; then
        fail "$3 differs"
        echo "  expected:" >&2
        show_bytes "$2"
        echo "  actual:" >&2
        show_bytes "$1"
    fi
}

# expect_text <produced file> <expected text, printf escapes allowed> <what>
expect_text()
{
    printf "$2" >"$WORK/expected"
    expect_file "$1" "$WORK/expected" "$3"
}

expect_rc()
{
    [[ $RC -eq $1 ]] || fail "$2: exit status $RC, expected $1"
}

# The whole result of one run: exit status, standard output, standard error.
expect_run()
{
    local rc=$1 out=$2 err=$3 what=$4
    expect_rc "$rc" "$what"
    expect_text "$WORK/out" "$out" "$what: standard output"
    expect_text "$WORK/err" "$err" "$what: standard error"
}

case_format_customers()
{
    run_file format "$SOURCE_DIR/samples/customers.sql"
    expect_rc 0 "format of the sample"
    expect_file "$WORK/out" "$EXPECTED_DIR/customers.sql" "format of the sample"
    expect_text "$WORK/err" "" "format of the sample: standard error"

    # The same statement from standard input, with CR LF already in place.
    sed 's/$/\r/' "$SOURCE_DIR/samples/customers.sql" >"$WORK/crlf.sql"
    run_file format <"$WORK/crlf.sql"
    expect_rc 0 "format from standard input"
    expect_file "$WORK/out" "$EXPECTED_DIR/customers.sql" "format from standard input"

    run_file format - <"$SOURCE_DIR/samples/customers.sql"
    expect_file "$WORK/out" "$EXPECTED_DIR/customers.sql" "format of '-'"
}

case_format_no_quote()
{
    run_file format --no-quote "$SOURCE_DIR/samples/customers.sql"
    expect_rc 0 "--no-quote"
    expect_file "$WORK/out" "$EXPECTED_DIR/customers-no-quote.sql" "--no-quote"

    run 'SELECT "my t".A FROM "my t"' format
    expect_run 0 'SELECT \r\n  "my t"."A"\r\nFROM\r\n  "my t"\r\n' "" "quoted name with a blank"
    # Unquoted, my t would not read back as one name: the model keeps the quotes written.
    run 'SELECT "my t".A FROM "my t"' format --no-quote
    expect_run 0 'SELECT \r\n  "my t".A\r\nFROM\r\n  "my t"\r\n' "" "--no-quote of a name with a blank"
}

case_format_parse_error()
{
    run 'SELEC A FROM T' format
    expect_run 1 "" "Invalid token 'SELEC' at position 1 of line 1.\n" "statement not starting with SELECT"

    # Lone LF become CR LF, so the error is on line 3.
    run $'SELECT A\nFROM T\nGROUP BY A B\n' format
    expect_run 1 "" "Invalid token 'B' at position 12 of line 3.\n" "error on line 3"

    run 'SELECT A FROM T WHERE' format
    expect_run 1 "" "Unexpected end of statement.\n" "empty WHERE"

    run "SELECT 'abc" format
    expect_run 1 "" "Unterminated string.\n" "unterminated string"

    # A group standing third in its list keeps its meaning (it once ended in an internal error).
    run 'SELECT A FROM T WHERE (A = 1) OR (B = 2) OR ((C = 3) OR (D = 4))' format
    expect_run 0 $'SELECT \r\n  "T"."A"\r\nFROM\r\n  "T"\r\nWHERE\r\n  ("A" = 1) OR \r\n  ("B" = 2) OR \r\n  (("C" = 3) OR \r\n  ("D" = 4))\r\n' "" "group in third place"

    run '' format
    expect_run 0 "" "" "empty input"
}

case_format_keywords()
{
    local join='SELECT C.NAME, O.TOTAL FROM CUSTOMERS C LEFT OUTER JOIN ORDERS O'
    join+=' ON (C.ID = O.CUSTOMER_ID) WHERE (O.TOTAL > 5) ORDER BY C.NAME DESC'

    run "$join" format --keywords lower
    expect_run 0 'select \r\n  "C"."NAME",\r\n  "O"."TOTAL"\r\nfrom\r\n  "CUSTOMERS" C \r\n  left outer join "ORDERS" O on ("C"."ID" = "O"."CUSTOMER_ID")\r\nwhere\r\n  ("O"."TOTAL" > 5)\r\norder by\r\n  "C"."NAME" DESC\r\n' \
        "" "--keywords lower"

    # First letter upper applies to the whole kind word: LEFT OUTER is one keyword.
    run "$join" format --keywords=first
    expect_run 0 'Select \r\n  "C"."NAME",\r\n  "O"."TOTAL"\r\nFrom\r\n  "CUSTOMERS" C \r\n  Left outer Join "ORDERS" O On ("C"."ID" = "O"."CUSTOMER_ID")\r\nWhere\r\n  ("O"."TOTAL" > 5)\r\nOrder By\r\n  "C"."NAME" DESC\r\n' \
        "" "--keywords first"

    run 'select distinct a as b from t' format --keywords upper
    expect_run 0 'SELECT DISTINCT \r\n  "t"."a" AS b\r\nFROM\r\n  "t"\r\n' "" "--keywords upper"

    run 'select distinct a as b from t' format --keywords asis
    expect_run 0 'SELECT DISTINCT \r\n  "t"."a" AS b\r\nFROM\r\n  "t"\r\n' "" "--keywords asis"
}

case_format_functions()
{
    local sql='select c.name, count(*) as n, max(c.total) as m from customers c'
    sql+=' group by c.name having (sum(c.total) > 1)'

    run "$sql" format --functions upper
    expect_run 0 'SELECT \r\n  "c"."name",\r\n  COUNT(*) AS n,\r\n  MAX("c"."total") AS m\r\nFROM\r\n  "customers" c\r\nGROUP BY\r\n  "c"."name"\r\nHAVING\r\n  (SUM("c"."total") > 1)\r\n' \
        "" "--functions upper"

    run "$sql" format --functions first --keywords lower
    expect_run 0 'select \r\n  "c"."name",\r\n  Count(*) as n,\r\n  Max("c"."total") as m\r\nfrom\r\n  "customers" c\r\ngroup by\r\n  "c"."name"\r\nhaving\r\n  (Sum("c"."total") > 1)\r\n' \
        "" "--functions first --keywords lower"

    run "$sql" format
    expect_run 0 'SELECT \r\n  "c"."name",\r\n  count(*) AS n,\r\n  max("c"."total") AS m\r\nFROM\r\n  "customers" c\r\nGROUP BY\r\n  "c"."name"\r\nHAVING\r\n  (sum("c"."total") > 1)\r\n' \
        "" "functions as written"
}

case_format_jsonl()
{
    local input
    input='{"sql": "SELECT A FROM T"}'$'\n'
    input+='{"sql": "SELEC A"}'$'\n'
    input+=$'\n'
    input+='not json'$'\n'
    input+='{"query": "SELECT A FROM T"}'$'\n'
    input+='{"sql": "SELECT A\nFROM T\nGROUP BY A B"}'$'\r\n'
    input+='{"sql": "SELECT A FROM T WHERE (A = 1) OR (B = 2) OR ((C = 3) OR (D = 4))"}'$'\n'
    input+='{"sql": "SELECT \"my t\".A FROM \"my t\" WHERE (A = '"'"'\u00e9'"'"')"}'
    run "$input" format --jsonl --keywords lower
    expect_rc 0 "--jsonl"
    expect_text "$WORK/err" "" "--jsonl: standard error"

    local -a lines
    mapfile -t lines <"$WORK/out"
    [[ ${#lines[@]} -eq 7 ]] || fail "--jsonl: ${#lines[@]} output lines, expected 7"
    local -a expected=(
        '{"sql": "select \r\n  \"T\".\"A\"\r\nfrom\r\n  \"T\"\r\n"}'
        '{"error": {"code": 1, "message": "Invalid token '"'"'SELEC'"'"' at position 1 of line 1.", "token": "SELEC", "line": 1, "pos": 1}}'
        ''
        '{"error": {"code": 0, "message": "expected an object with a string member \"sql\" on input line 5", "token": "", "line": 0, "pos": 0}}'
        '{"error": {"code": 1, "message": "Invalid token '"'"'B'"'"' at position 12 of line 3.", "token": "B", "line": 3, "pos": 12}}'
        '{"sql": "select \r\n  \"T\".\"A\"\r\nfrom\r\n  \"T\"\r\nwhere\r\n  (\"A\" = 1) or \r\n  (\"B\" = 2) or \r\n  ((\"C\" = 3) or \r\n  (\"D\" = 4))\r\n"}'
        '{"sql": "select \r\n  \"my t\".\"A\"\r\nfrom\r\n  \"my t\"\r\nwhere\r\n  (\"A\" = '"'"'é'"'"')\r\n"}'
    )
    local i
    for i in 0 1 3 4 5 6; do
        [[ "${lines[i]:-}" == "${expected[i]}" ]] ||
            fail "--jsonl line $((i + 1)):"$'\n'"  expected: ${expected[i]}"$'\n'"  actual:   ${lines[i]:-}"
    done
    # The parser library words its own message; only our part of it is fixed.
    local pattern='^\{"error": \{"code": 0, "message": "invalid JSON on input line 4: [^"]+", "token": "", "line": 0, "pos": 0\}\}$'
    [[ "${lines[2]:-}" =~ $pattern ]] || fail "--jsonl invalid line: ${lines[2]:-}"
}

case_tokens()
{
    run $'SELECT C.NAME, COUNT(*) FROM "MY T" C\nWHERE C.ID >= 10 AND C.NAME <> \'it\'\'s\'\n' tokens
    local expected=''
    expected+='tkKeyword\tSELECT\t1\t1\n'
    expected+='tkIdent\tC\t1\t8\n'
    expected+='tkDelim\t.\t1\t9\n'
    expected+='tkIdent\tNAME\t1\t10\n'
    expected+='tkDelim\t,\t1\t14\n'
    expected+='tkFunction\tCOUNT\t1\t16\n'
    expected+='tkDelim\t(\t1\t21\n'
    expected+='tkOperation\t*\t1\t22\n'
    expected+='tkDelim\t)\t1\t23\n'
    expected+='tkKeyword\tFROM\t1\t25\n'
    expected+='tkIdentString\tMY T\t1\t31\n'
    expected+='tkIdent\tC\t1\t37\n'
    expected+='tkKeyword\tWHERE\t2\t1\n'
    expected+='tkIdent\tC\t2\t7\n'
    expected+='tkDelim\t.\t2\t8\n'
    expected+='tkIdent\tID\t2\t9\n'
    expected+='tkComparison\t>=\t2\t12\n'
    expected+='tkInteger\t10\t2\t15\n'
    expected+='tkKeyword\tAND\t2\t18\n'
    expected+='tkIdent\tC\t2\t22\n'
    expected+='tkDelim\t.\t2\t23\n'
    expected+='tkIdent\tNAME\t2\t24\n'
    expected+='tkComparison\t<>\t2\t29\n'
    expected+="tkIdentString\tit''s\t2\t33\n"
    expect_run 0 "$expected" "" "tokens"

    run "SELECT 'abc" tokens
    expect_run 1 'tkKeyword\tSELECT\t1\t1\ntkIdent\tabc\t1\t9\n' "Unterminated string.\n" \
        "tokens of an unterminated string"

    run '' tokens
    expect_run 0 "" "" "tokens of nothing"
}

case_bench()
{
    printf 'SELECT A FROM T\n\nSELECT B FROM U\r\nSELECT C.X FROM C WHERE (C.X > 1) ORDER BY C.X' \
        >"$WORK/good.sql"
    run_file bench --repeat 3 "$WORK/good.sql"
    expect_rc 0 "bench"
    expect_text "$WORK/err" "" "bench: standard error"
    # 3 statements (15 + 15 + 46 bytes) in 3 rounds.
    local pattern='^vdsql 9 228 [0-9]+\.[0-9]{6} [0-9]+\.[0-9]{2} [0-9]+\.[0-9]{2}$'
    [[ $(wc -l <"$WORK/out") -eq 1 && $(cat "$WORK/out") =~ $pattern ]] ||
        fail "bench line: $(cat "$WORK/out")"

    printf 'SELECT A FROM T\nSELEC X\nSELECT A FROM T WHERE\n' >"$WORK/bad.sql"
    run_file bench "$WORK/bad.sql" --repeat=2
    expect_rc 0 "bench with errors"
    pattern='^vdsql 6 86 [0-9]+\.[0-9]{6} [0-9]+\.[0-9]{2} [0-9]+\.[0-9]{2}$'
    [[ $(cat "$WORK/out") =~ $pattern ]] || fail "bench line with errors: $(cat "$WORK/out")"
    expect_text "$WORK/err" "ERRORS vdsql 4 first: Invalid token 'SELEC' at position 1 of line 1.\n" \
        "bench errors line"

    # The scanner alone: every statement scanned, an unterminated string counted as an error.
    run_file bench --scan --repeat 2 "$WORK/good.sql"
    expect_rc 0 "bench --scan"
    expect_text "$WORK/err" "" "bench --scan: standard error"
    pattern='^scan 6 152 [0-9]+\.[0-9]{6} [0-9]+\.[0-9]{2} [0-9]+\.[0-9]{2}$'
    [[ $(wc -l <"$WORK/out") -eq 1 && $(cat "$WORK/out") =~ $pattern ]] ||
        fail "bench --scan line: $(cat "$WORK/out")"
    printf "SELECT A FROM T WHERE A = 'x\nSELEC X\n" >"$WORK/open.sql"
    run_file bench --scan "$WORK/open.sql"
    expect_rc 0 "bench --scan with an open string"
    expect_text "$WORK/err" "ERRORS scan 1 first: Unterminated string.\n" "bench --scan errors line"

    run_file bench
    expect_rc 2 "bench without FILE"
    run_file bench --repeat 0 "$WORK/good.sql"
    expect_rc 2 "bench --repeat 0"
}

case_help()
{
    local verb
    for verb in "" format tokens bench; do
        # shellcheck disable=SC2086
        run_file $verb --help
        expect_rc 0 "vdsql $verb --help"
        grep -q "^Usage: vdsql $verb" "$WORK/out" || fail "vdsql $verb --help prints no usage"
        expect_text "$WORK/err" "" "vdsql $verb --help: standard error"
    done
}

case_usage_errors()
{
    run_file format --bogus
    expect_rc 2 "unknown option"
    grep -q "unknown option '--bogus'" "$WORK/err" || fail "unknown option: no message"
    [[ -s "$WORK/out" ]] && fail "unknown option: output on standard output"

    run_file frobnicate
    expect_rc 2 "unknown verb"
    grep -q "unknown verb 'frobnicate'" "$WORK/err" || fail "unknown verb: no message"

    run_file
    expect_rc 2 "no verb"

    run_file tokens --keywords upper
    expect_rc 2 "format option given to tokens"

    run_file format --keywords title
    expect_rc 2 "bad --keywords value"

    run_file format --dialect oracle
    expect_rc 2 "unsupported dialect"
    grep -q "unsupported dialect 'oracle'" "$WORK/err" || fail "unsupported dialect: no message"

    run_file format --sql-dialect 2
    expect_rc 2 "bad --sql-dialect"

    run 'SELECT A FROM T' format --dialect generic --sql-dialect 1
    expect_run 0 'SELECT \r\n  "T"."A"\r\nFROM\r\n  "T"\r\n' "" "--dialect generic --sql-dialect 1"

    run_file format "$WORK/missing.sql"
    expect_rc 2 "missing file"
    grep -q "cannot read" "$WORK/err" || fail "missing file: no message"
}

case_format_dialects()
{
    # One statement, four dialects: quoting, letter case of unquoted names and what a
    # double-quoted text is (a name in generic and InterBase dialect 3, a string in MySQL).
    local sql='select c.name, c.total as amount from customers c'
    sql+=' where (c.city = "Paris") order by c.name desc'

    run "$sql" format --dialect generic
    expect_run 0 'SELECT \r\n  "c"."name",\r\n  "c"."total" AS amount\r\nFROM\r\n  "customers" c\r\nWHERE\r\n  ("c"."city" = "Paris")\r\nORDER BY\r\n  "c"."name" DESC\r\n' \
        "" "--dialect generic"

    run "$sql" format --dialect interbase
    expect_run 0 'SELECT \r\n  C.NAME,\r\n  C.TOTAL AS AMOUNT\r\nFROM\r\n  CUSTOMERS C\r\nWHERE\r\n  (C.CITY = "Paris")\r\nORDER BY\r\n  C.NAME DESC\r\n' \
        "" "--dialect interbase"

    run "$sql" format --dialect interbase --sql-dialect 3
    expect_run 0 'SELECT \r\n  C.NAME,\r\n  C.TOTAL AS AMOUNT\r\nFROM\r\n  CUSTOMERS C\r\nWHERE\r\n  (C.CITY = "Paris")\r\nORDER BY\r\n  C.NAME DESC\r\n' \
        "" "--dialect interbase --sql-dialect 3"

    # Dialect 1: "Paris" is a string.
    run "$sql" format --dialect interbase --sql-dialect 1
    expect_run 0 'SELECT \r\n  C.NAME,\r\n  C.TOTAL AS AMOUNT\r\nFROM\r\n  CUSTOMERS C\r\nWHERE\r\n  (C.CITY = '"'Paris'"')\r\nORDER BY\r\n  C.NAME DESC\r\n' \
        "" "--dialect interbase --sql-dialect 1"

    run "$sql" format --dialect firebird
    expect_run 0 'SELECT \r\n  C.NAME,\r\n  C.TOTAL AS AMOUNT\r\nFROM\r\n  CUSTOMERS C\r\nWHERE\r\n  (C.CITY = "Paris")\r\nORDER BY\r\n  C.NAME DESC\r\n' \
        "" "--dialect firebird"

    run "$sql" format --dialect mysql
    expect_run 0 'SELECT \r\n  `c`.`name`,\r\n  `c`.`total` AS `amount`\r\nFROM\r\n  `customers` `c`\r\nWHERE\r\n  (`c`.`city` = '"'Paris'"')\r\nORDER BY\r\n  `c`.`name` DESC\r\n' \
        "" "--dialect mysql"

    # A table name with blanks: quoted in dialect 3, folded in dialect 1.
    run 'SELECT A.X FROM "my table" A' format --dialect interbase --sql-dialect 3
    expect_run 0 'SELECT \r\n  A.X\r\nFROM\r\n  "my table" A\r\n' "" "name with blanks, dialect 3"
    run 'SELECT A.X FROM "my table" A' format --dialect interbase --sql-dialect=1
    expect_run 0 'SELECT \r\n  A.X\r\nFROM\r\n  MY_TABLE A\r\n' "" "name with blanks, dialect 1"

    # The dialect clauses, printed after the last clause and after SELECT.
    run 'select a from t order by a rows 10 to 20 by 2 percent with ties' format --dialect interbase
    expect_run 0 'SELECT \r\n  T.A\r\nFROM\r\n  T\r\nORDER BY\r\n  A\r\nROWS 10 TO 20 BY 2 PERCENT WITH TIES' \
        "" "ROWS under interbase"

    run 'select first 5 skip 10 distinct a from t' format --dialect firebird
    expect_run 0 'SELECT FIRST 5 SKIP 10 DISTINCT \r\n  T.A\r\nFROM\r\n  T\r\n' "" "FIRST and SKIP under firebird"

    # FIRST and SKIP print as written; DISTINCT follows the keyword case.
    run 'select first 5 skip 10 distinct a from t' format --dialect firebird --keywords lower
    expect_run 0 'select FIRST 5 SKIP 10 distinct \r\n  T.A\r\nfrom\r\n  T\r\n' "" \
        "FIRST and SKIP under firebird, --keywords lower"

    run 'select straight_join sql_big_result distinctrow a from t limit 10, 20' format --dialect mysql
    expect_run 0 'SELECT STRAIGHT_JOIN SQL_BIG_RESULT DISTINCTROW \r\n  `t`.`a`\r\nFROM\r\n  `t`\r\nLIMIT 10, 20' \
        "" "options, filter and LIMIT under mysql"

    # The MySQL words follow the keyword case.
    run 'SELECT STRAIGHT_JOIN SQL_BIG_RESULT DISTINCTROW A FROM T LIMIT 5' format --dialect mysql \
        --keywords lower
    expect_run 0 'select straight_join sql_big_result distinctrow \r\n  `T`.`A`\r\nfrom\r\n  `T`\r\nlimit 5' \
        "" "options, filter and LIMIT under mysql, --keywords lower"

    # Clauses of another dialect, or in the wrong order, are refused.
    run 'select a from t rows 5' format --dialect firebird
    expect_run 1 "" "Invalid token 'rows' at position 17 of line 1.\n" "ROWS under firebird"

    run 'select first 5 a from t' format --dialect interbase
    expect_run 1 "" "Invalid token 'first' at position 8 of line 1.\n" "FIRST under interbase"

    run 'SELECT A FROM T ROWS 10 WITH X' format --dialect interbase
    expect_run 1 "" "Invalid token 'X' at position 30 of line 1.\n" "ROWS 10 WITH X"

    run 'SELECT A FROM T LIMIT 5 X' format --dialect mysql
    expect_run 1 "" "Invalid token 'X' at position 25 of line 1.\n" "LIMIT 5 X"

    run 'SELECT STRAIGHT_JOIN STRAIGHT_JOIN A FROM T' format --dialect mysql
    expect_run 1 "" "Invalid token 'STRAIGHT_JOIN' at position 22 of line 1.\n" "STRAIGHT_JOIN twice"

    run 'SELECT DISTINCT STRAIGHT_JOIN A FROM T' format --dialect mysql
    expect_run 1 "" "Invalid token 'STRAIGHT_JOIN' at position 17 of line 1.\n" \
        "STRAIGHT_JOIN after DISTINCT"

    # LIMIT is no generic keyword: it is read as the alias of T, and 5 cannot follow.
    run 'SELECT A FROM T LIMIT 5' format --dialect generic
    expect_run 1 "" "Invalid token '5' at position 23 of line 1.\n" "LIMIT under generic"

    # Tokens of MySQL: a back-quoted name is an identifier, quoted strings keep their escapes.
    run 'SELECT `my col`, '"'it\\'s'"', "a""b" FROM T' tokens --dialect mysql
    local expected=''
    expected+='tkKeyword\tSELECT\t1\t1\n'
    expected+='tkIdent\tmy col\t1\t9\n'
    expected+='tkDelim\t,\t1\t16\n'
    expected+='tkString\tit\\'"'"'s\t1\t19\n'
    expected+='tkDelim\t,\t1\t25\n'
    expected+='tkString\ta""b\t1\t28\n'
    expected+='tkKeyword\tFROM\t1\t34\n'
    expected+='tkIdent\tT\t1\t39\n'
    expect_run 0 "$expected" "" "tokens --dialect mysql"

    # JSON lines: the double-quoted string is written back between apostrophes.
    run '{"sql": "SELECT A FROM T WHERE B = \"it'"'"'s\" LIMIT 5"}' format --jsonl --dialect mysql
    expect_rc 0 "--jsonl --dialect mysql"
    expect_text "$WORK/err" "" "--jsonl --dialect mysql: standard error"
    local line
    line=$(cat "$WORK/out")
    local want='{"sql": "SELECT \r\n  `T`.`A`\r\nFROM\r\n  `T`\r\nWHERE\r\n  (`B` = '"'"'it\\'"'"'s'"'"')\r\nLIMIT 5"}'
    [[ $(wc -l <"$WORK/out") -eq 1 && "$line" == "$want" ]] ||
        fail "--jsonl --dialect mysql:"$'\n'"  expected: $want"$'\n'"  actual:   $line"

    # bench reads every statement with the dialect's parser: FIRST is taken, ROWS is not.
    printf 'SELECT FIRST 5 A FROM T\nSELECT A FROM T ROWS 5\n' >"$WORK/firebird.sql"
    run_file bench --dialect firebird "$WORK/firebird.sql"
    expect_rc 0 "bench --dialect firebird"
    local pattern='^vdsql 2 45 [0-9]+\.[0-9]{6} [0-9]+\.[0-9]{2} [0-9]+\.[0-9]{2}$'
    [[ $(wc -l <"$WORK/out") -eq 1 && $(cat "$WORK/out") =~ $pattern ]] ||
        fail "bench --dialect firebird line: $(cat "$WORK/out")"
    expect_text "$WORK/err" "ERRORS vdsql 1 first: Invalid token 'ROWS' at position 17 of line 1.\n" \
        "bench --dialect firebird errors line"
}

# expect_file for megabytes: names the first difference instead of dumping both files.
expect_big_file()
{
    cmp -s "$1" "$2" || fail "$3 differs: $(cmp "$1" "$2" 2>&1 | head -1)"
}

# Hostile input: each is read in a moment and either printed or refused with its message,
# exit status 1; nothing crashes.
case_format_pathological()
{
    # Blanks, tabs and line breaks alone are an empty statement.
    printf ' \t\r\n\t \n\n' >"$WORK/blank.sql"
    run_file format "$WORK/blank.sql"
    expect_run 0 "" "" "blank text"

    # A NUL byte is a token of its own; the message carries it as read.
    printf '\0' >"$WORK/nul.sql"
    run_file format "$WORK/nul.sql"
    expect_run 1 "" "Invalid token '\0' at position 1 of line 1.\n" "NUL alone"

    # A CR without LF breaks no line: it is a delimiter.
    printf '\r' >"$WORK/cr.sql"
    run_file format "$WORK/cr.sql"
    expect_run 1 "" "Invalid token '\r' at position 1 of line 1.\n" "lone CR"

    # 100,000 nested parentheses and calls: refused at the 257th level.
    local open close calls
    open=$(printf '%*s' 100000 '' | tr ' ' '(')
    close=$(printf '%*s' 100000 '' | tr ' ' ')')
    calls=$(printf '%*s' 100000 '' | sed 's/ /COUNT(/g')
    printf 'SELECT A FROM T WHERE %sA = 1%s' "$open" "$close" >"$WORK/parens.sql"
    run_file format "$WORK/parens.sql"
    expect_run 1 "" "Invalid token '(' at position 279 of line 1.\n" "100,000 parentheses in WHERE"
    printf 'SELECT %sA%s FROM T' "$calls" "$close" >"$WORK/calls.sql"
    run_file format "$WORK/calls.sql"
    expect_run 1 "" "Invalid token '(' at position 1549 of line 1.\n" "100,000 nested calls"

    # A 1 MB string literal is printed back whole.
    local body
    body=$(head -c 1048576 /dev/zero | tr '\0' 'x')
    printf "SELECT A FROM T WHERE A = '%s'" "$body" >"$WORK/string.sql"
    run_file format "$WORK/string.sql"
    printf 'SELECT \r\n  "T"."A"\r\nFROM\r\n  "T"\r\nWHERE\r\n  ("A" = '"'"'%s'"'"')\r\n' "$body" \
        >"$WORK/string.expected"
    expect_rc 0 "1 MB string"
    expect_big_file "$WORK/out" "$WORK/string.expected" "1 MB string"
    expect_text "$WORK/err" "" "1 MB string: standard error"

    # A megabyte of bytes 0x80 to 0xFF is one token, named whole in the message.
    head -c 1048576 /dev/urandom | tr '\000-\177' '\200-\377' >"$WORK/high.sql"
    run_file format "$WORK/high.sql"
    { printf "Invalid token '"; cat "$WORK/high.sql"; printf "' at position 1 of line 1.\n"; } \
        >"$WORK/high.expected"
    expect_rc 1 "high-bit bytes"
    expect_text "$WORK/out" "" "high-bit bytes: standard output"
    expect_big_file "$WORK/err" "$WORK/high.expected" "high-bit bytes: standard error"

    # Invalid UTF-8 inside quotes is kept byte for byte.
    printf 'SELECT "\xc3\x28\xff" FROM T WHERE A = '"'"'\xc0\x80\xed\xa0\x80'"'" >"$WORK/utf8.sql"
    run_file format "$WORK/utf8.sql"
    expect_run 0 'SELECT \r\n  "T"."\xc3\x28\xff"\r\nFROM\r\n  "T"\r\nWHERE\r\n  ("A" = '"'"'\xc0\x80\xed\xa0\x80'"'"')\r\n' \
        "" "invalid UTF-8 in quotes"
}

if ! declare -F "case_$CASE" >/dev/null; then
    echo "cli_test.sh: unknown case '$CASE'" >&2
    exit 2
fi
"case_$CASE"
if [[ $FAILURES -ne 0 ]]; then
    echo "$CASE: $FAILURES failure(s)" >&2
    exit 1
fi
echo "$CASE: ok"
