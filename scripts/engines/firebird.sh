#!/usr/bin/env bash
# Private Firebird server for the engine tests, on 127.0.0.1 only.
#   firebird.sh start STATE_DIR   new instance, writes STATE_DIR/engine.env
#   firebird.sh stop STATE_DIR    stops it and removes STATE_DIR
#
# The instance gets its own root directory (configuration, security
# database, lock files) through the FIREBIRD variable; the machine-wide
# installation is only read (the server still logs to /var/log/firebird).
. "$(dirname "${BASH_SOURCE[0]}")/common.sh"

ENGINE=firebird
DRIVER=QIBASE
# The server does not always honour SIGTERM; common.sh falls back to SIGKILL.
FIRST_SIGNAL=TERM
TEST_USER=VDTEST

FB_SERVER=${VD_FB_SERVER:-/usr/sbin/firebird}
FB_ISQL=${VD_FB_ISQL:-isql-fb}
FB_LIBDIR=${VD_FB_LIBDIR:-$(printf "%s\n" /usr/lib/*/firebird/3.0 | head -n 1)}
FB_SECURITY=${VD_FB_SECURITY:-/var/lib/firebird/3.0/system/security3.fdb}
FB_SYSLOG=/var/log/firebird

fb_env() {
    env FIREBIRD="$STATE_DIR/fb" FIREBIRD_LOCK="$STATE_DIR/fb/lock" \
        FIREBIRD_TMP="$STATE_DIR/fb/tmp" "$@"
}

# Embedded access (no server): runs SQL from stdin against file $1.
fb_embedded() {
    fb_env "$FB_ISQL" -q -b -user SYSDBA "$1"
}

# The server writes its messages to a machine-wide log, shared by all.
declare -A FB_SYSLOG_SIZES=()

# Remembers how long the machine-wide logs are before the server starts.
fb_mark_syslog() {
    local f
    for f in "$FB_SYSLOG"/*.log; do
        [[ -f $f ]] && FB_SYSLOG_SIZES[$f]=$(stat -c %s "$f")
    done
    return 0
}

# Shows our logs and what the server added to the machine-wide ones.
fb_fail() {
    local f new=$STATE_DIR/system-log-excerpt.log
    : >"$new"
    for f in "$FB_SYSLOG"/*.log; do
        [[ -f $f ]] && tail -c +$((${FB_SYSLOG_SIZES[$f]:-0} + 1)) "$f" >>"$new"
    done
    show_log "$STATE_DIR/init.log" "$STATE_DIR/server.log" "$new"
    die "$1"
}

engine_prepare() {
    local f name root=$STATE_DIR/fb
    [[ -x $FB_SERVER ]] || die "$FB_SERVER not found (set VD_FB_SERVER)"
    [[ -d $FB_LIBDIR ]] || die "Firebird library directory not found (set VD_FB_LIBDIR)"
    [[ -r $FB_SECURITY ]] || die "cannot read $FB_SECURITY (set VD_FB_SECURITY)"
    mkdir -p -- "$root/lock" "$root/tmp"
    # Configuration files are copied (and edited), everything else linked.
    for f in "$FB_LIBDIR"/*; do
        name=${f##*/}
        case $name in
        *.conf) cp -L -- "$f" "$root/$name" ;;
        *) ln -s -- "$f" "$root/$name" ;;
        esac
    done
    cp -- "$FB_SECURITY" "$root/security3.fdb"
    chmod 600 "$root/security3.fdb"
    sed -i -E '/^[[:space:]]*(RemoteBindAddress|RemoteServicePort|SecurityDatabase)[[:space:]]*=/d' \
        "$root/firebird.conf"
    cat >>"$root/firebird.conf" <<EOF
RemoteBindAddress = 127.0.0.1
SecurityDatabase = $root/security3.fdb
EOF
    sed -i -E "s|^([[:space:]]*security\.db[[:space:]]*=).*|\1 $root/security3.fdb|" \
        "$root/databases.conf"

    {
        fb_embedded "$root/security3.fdb" <<EOF &&
CREATE OR ALTER USER SYSDBA PASSWORD '$TEST_PASSWORD' USING PLUGIN Srp;
CREATE OR ALTER USER $TEST_USER PASSWORD '$TEST_PASSWORD' USING PLUGIN Srp;
COMMIT;
EOF
            fb_env "$FB_ISQL" -q -b <<EOF
CREATE DATABASE '$STATE_DIR/$TEST_DATABASE.fdb' USER '$TEST_USER'
    PAGE_SIZE 8192 DEFAULT CHARACTER SET UTF8;
EOF
    } >"$STATE_DIR/init.log" 2>&1 || {
        show_log "$STATE_DIR/init.log"
        die "could not create the users or the test database"
    }
}

# A real login over TCP, the way the tests will connect.
fb_login() {
    # shellcheck disable=SC2016 # RDB$DATABASE is a table name
    echo 'SELECT 1 FROM RDB$DATABASE;' |
        env -u FIREBIRD -u FIREBIRD_LOCK -u FIREBIRD_TMP "$FB_ISQL" -q -b \
            -user "$TEST_USER" -password "$TEST_PASSWORD" \
            "127.0.0.1/$PORT:$STATE_DIR/$TEST_DATABASE.fdb"
}

engine_launch() {
    local log=$STATE_DIR/server.log conf=$STATE_DIR/fb/firebird.conf
    local tenths=$((START_TIMEOUT * 10))
    sed -i -E '/^RemoteServicePort[[:space:]]*=/d' "$conf"
    echo "RemoteServicePort = $1" >>"$conf"
    fb_mark_syslog
    : >"$log"
    # A plain command (no function) so that $! is the server itself.
    env FIREBIRD="$STATE_DIR/fb" FIREBIRD_LOCK="$STATE_DIR/fb/lock" \
        FIREBIRD_TMP="$STATE_DIR/fb/tmp" VD_ENGINE_STATE_DIR="$STATE_DIR" \
        setsid "$FB_SERVER" </dev/null >>"$log" 2>&1 &
    record_pid $!
    # A busy port does not make the server fail: it retries the bind for
    # about 50 s. So watch who listens instead.
    while :; do
        case $(listen_state "$SERVER_PID" "$1") in
        ours) break ;;
        other)
            PORT_TAKEN=1
            return 0
            ;;
        esac
        if ! proc_alive "$SERVER_PID"; then
            fb_fail "server exited during start"
        fi
        if ((tenths-- <= 0)); then
            fb_fail "server did not listen on 127.0.0.1:$1 within ${START_TIMEOUT}s"
        fi
        sleep 0.1
    done
    check_loopback_only "$SERVER_PID"
    if ! fb_login >>"$STATE_DIR/init.log" 2>&1; then
        fb_fail "cannot log in as $TEST_USER on 127.0.0.1:$1"
    fi
}

engine_provision() {
    DATABASE=$STATE_DIR/$TEST_DATABASE.fdb
}

engine_main "$@"
