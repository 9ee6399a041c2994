#!/usr/bin/env bash
# Private MariaDB server for the engine tests, on 127.0.0.1 only.
#   mariadb.sh start STATE_DIR   new instance, writes STATE_DIR/engine.env
#   mariadb.sh stop STATE_DIR    stops it and removes STATE_DIR
. "$(dirname "${BASH_SOURCE[0]}")/common.sh"

ENGINE=mariadb
DRIVER=QMYSQL
FIRST_SIGNAL=TERM

MYSQLD=${VD_MARIADBD:-/usr/sbin/mariadbd}
SOCKET=""
INSTALL_OPT=()
ADMIN_USER=root
SERVER_OPT=()

# The admin socket lives in STATE_DIR unless the path would not fit in
# sun_path (108 bytes).
socket_path() {
    if [[ -s $STATE_DIR/socket.path ]]; then
        cat "$STATE_DIR/socket.path"
        return
    fi
    local s=$STATE_DIR/mysqld.sock
    if ((${#s} > 100)); then
        s=$(make_extra_dir)/mysqld.sock
    fi
    echo "$s" >"$STATE_DIR/socket.path"
    echo "$s"
}

admin_sql() {
    mariadb --no-defaults --protocol=socket --socket="$SOCKET" -u"$ADMIN_USER"
}

engine_prepare() {
    [[ -x $MYSQLD ]] || die "$MYSQLD not found (set VD_MARIADBD)"
    # The admin account logs in through the socket as the OS user running
    # this script (root, or an account of that name).
    if is_root; then
        INSTALL_OPT=(--user=root)
        SERVER_OPT=(--user=root)
    else
        ADMIN_USER=$(id -un)
        INSTALL_OPT=(--auth-root-socket-user="$ADMIN_USER")
    fi
    SOCKET=$(socket_path)
    # --rpm: without it, install-db run with --user also re-owns the
    # machine-wide PAM helper under /usr/lib/mysql/plugin.
    if ! mariadb-install-db --no-defaults "${INSTALL_OPT[@]}" --datadir="$STATE_DIR/data" \
        --auth-root-authentication-method=socket --skip-test-db --rpm \
        >"$STATE_DIR/init.log" 2>&1; then
        show_log "$STATE_DIR/init.log"
        die "mariadb-install-db failed"
    fi
}

engine_launch() {
    local log=$STATE_DIR/server.log tenths=$((START_TIMEOUT * 10))
    : >"$log"
    VD_ENGINE_STATE_DIR=$STATE_DIR setsid "$MYSQLD" --no-defaults "${SERVER_OPT[@]}" \
        --datadir="$STATE_DIR/data" --socket="$SOCKET" \
        --pid-file="$STATE_DIR/mariadbd.pid" --log-error="$log" \
        --port="$1" --bind-address=127.0.0.1 --skip-name-resolve \
        --character-set-server=utf8mb4 --collation-server=utf8mb4_general_ci \
        --innodb-flush-log-at-trx-commit=0 --innodb-buffer-pool-size=64M \
        </dev/null >>"$log" 2>&1 &
    record_pid $!
    # ping also succeeds when the login is refused; provisioning reports that.
    while ! mariadb-admin --no-defaults --protocol=socket --socket="$SOCKET" \
        --connect-timeout=2 ping >/dev/null 2>&1; do
        if ! proc_alive "$SERVER_PID"; then
            if grep -q 'Address already in use' "$log"; then
                PORT_TAKEN=1
                return 0
            fi
            show_log "$log"
            die "server exited during start"
        fi
        if ((tenths-- <= 0)); then
            show_log "$log"
            die "server did not answer within ${START_TIMEOUT}s"
        fi
        sleep 0.1
    done
    expect_listening "$SERVER_PID" "$1"
}

engine_provision() {
    DATABASE=$TEST_DATABASE
    if ! admin_sql >"$STATE_DIR/start.log" 2>&1 <<EOF; then
CREATE DATABASE $TEST_DATABASE CHARACTER SET utf8mb4;
CREATE USER '$TEST_USER'@'127.0.0.1' IDENTIFIED BY '$TEST_PASSWORD';
GRANT ALL PRIVILEGES ON $TEST_DATABASE.* TO '$TEST_USER'@'127.0.0.1';
EOF
        show_log "$STATE_DIR/start.log" "$STATE_DIR/server.log"
        die "could not create the test database"
    fi
}

engine_main "$@"
