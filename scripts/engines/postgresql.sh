#!/usr/bin/env bash
# Private PostgreSQL server for the engine tests, on 127.0.0.1 only.
#   postgresql.sh start STATE_DIR   new instance, writes STATE_DIR/engine.env
#   postgresql.sh stop STATE_DIR    stops it and removes STATE_DIR
. "$(dirname "${BASH_SOURCE[0]}")/common.sh"

ENGINE=postgresql
DRIVER=QPSQL
# SIGTERM would wait for every client to leave; SIGINT is the fast shutdown.
FIRST_SIGNAL=INT

PGBIN=${VD_PG_BIN:-$(printf "%s\n" /usr/lib/postgresql/*/bin | sort -V | tail -n 1)}
PGBASE=""

# The server refuses to run as root: run it as postgres then.
as_pg() {
    if is_root; then
        (cd "$PGBASE" && runuser -u postgres -- "$@")
    else
        (cd "$PGBASE" && "$@")
    fi
}

engine_prepare() {
    [[ -x $PGBIN/postgres ]] || die "PostgreSQL server binaries not found (set VD_PG_BIN)"
    PGBASE=$STATE_DIR/pg
    mkdir -p -- "$PGBASE"
    if is_root; then
        chown postgres: "$PGBASE"
        chmod 700 "$PGBASE"
        # A state dir under a root-only path (/root/...) is out of reach.
        if ! runuser -u postgres -- test -w "$PGBASE/." 2>/dev/null; then
            rmdir -- "$PGBASE"
            PGBASE=$(make_extra_dir)
            chown postgres: "$PGBASE"
            chmod 700 "$PGBASE"
        fi
    fi
    echo "$PGBASE" >"$STATE_DIR/pg.base"
    (umask 077 && echo "$TEST_PASSWORD" >"$PGBASE/pwfile")
    is_root && chown postgres: "$PGBASE/pwfile"
    if ! as_pg "$PGBIN/initdb" -D "$PGBASE/data" -U postgres -A scram-sha-256 \
        --pwfile="$PGBASE/pwfile" -E UTF8 --locale=C -N >"$STATE_DIR/init.log" 2>&1; then
        show_log "$STATE_DIR/init.log"
        die "initdb failed"
    fi
    rm -f -- "$PGBASE/pwfile"
}

engine_launch() {
    local log=$PGBASE/server.log
    # Unix sockets are off: a long STATE_DIR would not fit in sun_path.
    if ! as_pg env VD_ENGINE_STATE_DIR="$STATE_DIR" "$PGBIN/pg_ctl" -D "$PGBASE/data" \
        -l "$log" -s -w -t "$START_TIMEOUT" start \
        -o "-p $1 -c listen_addresses=127.0.0.1 -c unix_socket_directories='' -c fsync=off -c full_page_writes=off -c synchronous_commit=off" \
        >"$STATE_DIR/start.log" 2>&1; then
        if [[ -s $PGBASE/data/postmaster.pid ]]; then
            record_pid "$(head -n 1 "$PGBASE/data/postmaster.pid")"
        fi
        if grep -q 'Address already in use' "$log" 2>/dev/null; then
            PORT_TAKEN=1
            : >"$log"
            return 0
        fi
        show_log "$STATE_DIR/start.log" "$log"
        die "server did not start (timeout ${START_TIMEOUT}s)"
    fi
    record_pid "$(head -n 1 "$PGBASE/data/postmaster.pid")"
    expect_listening "$SERVER_PID" "$1"
}

engine_provision() {
    DATABASE=$TEST_DATABASE
    if ! PGPASSWORD=$TEST_PASSWORD "$PGBIN/psql" -X -q -v ON_ERROR_STOP=1 \
        -h 127.0.0.1 -p "$PORT" -U postgres -d postgres >>"$STATE_DIR/start.log" 2>&1 <<EOF; then
CREATE ROLE $TEST_USER LOGIN PASSWORD '$TEST_PASSWORD';
CREATE DATABASE $TEST_DATABASE OWNER $TEST_USER;
EOF
        show_log "$STATE_DIR/start.log" "$PGBASE/server.log"
        die "could not create the test database"
    fi
}

engine_main "$@"
