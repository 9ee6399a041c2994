# shellcheck shell=bash
# Shared part of the engine scripts (sourced, not run).
#
# An engine script sets ENGINE, DRIVER, FIRST_SIGNAL, defines
#   engine_prepare          create the data files (once per start)
#   engine_launch PORT      start the server on PORT, wait until it answers,
#                           set SERVER_PID; set PORT_TAKEN=1 instead when the
#                           port was grabbed by someone else meanwhile
#   engine_provision        create the test database and user
# and then calls engine_main "$@".
#
# start leaves in STATE_DIR: engine.env (VD_ENGINE_DRIVER, _HOST, _PORT,
# _DATABASE, _USER, _PASSWORD; one KEY=VALUE a line), server.pid and the
# logs. VD_ENGINE_START_TIMEOUT / VD_ENGINE_STOP_TIMEOUT (seconds) override
# the waits.
#
# Every server process gets VD_ENGINE_STATE_DIR=<state dir> in its
# environment: that is how stop recognises its own processes, so a recycled
# process id or a foreign server is never signalled.

set -euo pipefail

# shellcheck disable=SC2034 # used by the engine scripts
START_TIMEOUT=${VD_ENGINE_START_TIMEOUT:-60}
STOP_TIMEOUT=${VD_ENGINE_STOP_TIMEOUT:-10}
MARKER=.vd-engine-state

# shellcheck disable=SC2034
TEST_DATABASE=vdtest
TEST_USER=vdtest
TEST_PASSWORD=""
SERVER_PID=""
PORT=""
PORT_TAKEN=0
DATABASE=""

die() {
    echo "$ENGINE: $*" >&2
    exit 1
}

show_log() {
    local f
    for f in "$@"; do
        if [[ -s $f ]]; then
            echo "---- last lines of $f ----" >&2
            tail -n 30 "$f" >&2
            echo "----" >&2
        fi
    done
}

usage() {
    echo "usage: $0 start|stop STATE_DIR" >&2
    exit 2
}

# Hex only: safe inside SQL literals, shell words and engine.env.
make_password() {
    od -An -N10 -tx1 /dev/urandom | tr -d ' \n'
}

is_root() { [[ $(id -u) -eq 0 ]]; }

# Directories outside STATE_DIR (short socket paths, paths other users can
# reach) are listed in STATE_DIR/extra-dirs and removed with it.
make_extra_dir() {
    local d
    d=$(mktemp -d "${TMPDIR:-/tmp}/vd-engine-$ENGINE.XXXXXX")
    echo "$d" >>"$STATE_DIR/extra-dirs"
    echo "$d"
}

# ---- ports ---------------------------------------------------------------

# True when any TCP socket (any state, IPv4 or IPv6) uses local port $1.
port_busy() {
    local hex files=() f
    hex=$(printf '%04X' "$1")
    for f in /proc/net/tcp /proc/net/tcp6; do
        [[ -r $f ]] && files+=("$f")
    done
    awk -v p=":$hex" 'FNR > 1 && substr($2, length($2) - 4) == p { found = 1 }
        END { exit !found }' "${files[@]}"
}

# Socket inodes listening on port $1, on any address.
listen_inodes() {
    local hex files=() f
    hex=$(printf '%04X' "$1")
    for f in /proc/net/tcp /proc/net/tcp6; do
        [[ -r $f ]] && files+=("$f")
    done
    awk -v p=":$hex" 'FNR > 1 && $4 == "0A" && substr($2, length($2) - 4) == p { print $10 }' \
        "${files[@]}"
}

# Socket inodes held by process $1, as " i1 i2 ... ".
pid_sockets() {
    local fd l out=" "
    for fd in /proc/"$1"/fd/*; do
        l=$(readlink "$fd" 2>/dev/null) || continue
        if [[ $l == socket:\[*\] ]]; then
            l=${l#socket:[}
            out+="${l%]} "
        fi
    done
    echo "$out"
}

# listen_state PID PORT: "ours" when PID listens on 127.0.0.1:PORT,
# "other" when some other process listens on PORT, "none" otherwise.
listen_state() {
    local ino mine want socks listeners
    # Listeners first: a socket that shows up in between is then still
    # found among the process's descriptors.
    want=$(printf '0100007F:%04X' "$2")
    mine=$(awk -v a="$want" 'FNR > 1 && $2 == a && $4 == "0A" { print $10 }' /proc/net/tcp)
    listeners=$(listen_inodes "$2")
    socks=$(pid_sockets "$1")
    if [[ -n $mine && $socks == *" $mine "* ]]; then
        echo ours
        return
    fi
    for ino in $listeners; do
        if [[ $socks != *" $ino "* ]]; then
            echo other
            return
        fi
    done
    echo none
}

# After the server said it is ready: it must be the one on 127.0.0.1:PORT.
expect_listening() {
    [[ $(listen_state "$1" "$2") == ours ]] ||
        die "pid $1 does not listen on 127.0.0.1:$2"
    check_loopback_only "$1"
}

# Nothing but 127.0.0.1 may be listened on by the server.
check_loopback_only() {
    local bad
    bad=$(awk -v s="$(pid_sockets "$1")" 'FNR > 1 && $4 == "0A" && index(s, " " $10 " ") &&
        $2 !~ /^0100007F:/ { print $2 }' /proc/net/tcp /proc/net/tcp6 2>/dev/null)
    [[ -z $bad ]] || die "pid $1 listens on a non-loopback address: $bad"
}

# A free port outside the kernel's range for outgoing connections if possible.
pick_port() {
    local low high p i
    read -r low high </proc/sys/net/ipv4/ip_local_port_range
    for ((i = 0; i < 400; i++)); do
        p=$((20000 + (RANDOM * 32768 + RANDOM) % 12000))
        if ((i < 200 && p >= low && p <= high)); then
            continue
        fi
        if ! port_busy "$p"; then
            echo "$p"
            return 0
        fi
    done
    return 1
}

# ---- processes -----------------------------------------------------------

# Running and not a zombie.
proc_alive() {
    local st
    st=$(sed -e 's/.*) //' -e 's/ .*//' "/proc/$1/stat" 2>/dev/null) || return 1
    [[ -n $st && $st != Z && $st != X ]]
}

proc_is_ours() {
    grep -qzxF "VD_ENGINE_STATE_DIR=$STATE_DIR" "/proc/$1/environ" 2>/dev/null
}

# All live processes started for this state directory.
state_procs() {
    local f p
    while read -r f; do
        p=${f#/proc/}
        p=${p%/environ}
        if [[ $p != "$$" ]] && proc_alive "$p"; then
            echo "$p"
        fi
    done < <(grep -lzxF "VD_ENGINE_STATE_DIR=$STATE_DIR" /proc/[0-9]*/environ 2>/dev/null || true)
}

# wait_gone SECONDS PID... : true once none of them is alive.
wait_gone() {
    local tenths=$(($1 * 10)) p alive
    shift
    while :; do
        alive=0
        for p in "$@"; do
            if proc_alive "$p"; then
                alive=1
                break
            fi
        done
        ((alive)) || return 0
        ((tenths-- > 0)) || return 1
        sleep 0.1
    done
}

# Stops the server recorded in STATE_DIR and anything else it left running.
kill_server() {
    local pid="" rest
    if [[ -s $STATE_DIR/server.pid ]]; then
        read -r pid <"$STATE_DIR/server.pid" || true
    fi
    if [[ $pid =~ ^[0-9]+$ ]] && proc_alive "$pid" && proc_is_ours "$pid"; then
        kill -s "$FIRST_SIGNAL" "$pid" 2>/dev/null || true
        if ! wait_gone "$STOP_TIMEOUT" "$pid"; then
            echo "$ENGINE: pid $pid ignored SIG$FIRST_SIGNAL for ${STOP_TIMEOUT}s, killing it" >&2
            kill -s KILL "$pid" 2>/dev/null || true
            wait_gone 5 "$pid" || die "pid $pid survived SIGKILL"
        fi
    fi
    # Children of a killed server, or a server whose pid was never written.
    rest=$(state_procs)
    if [[ -n $rest ]]; then
        # shellcheck disable=SC2086
        kill -s TERM $rest 2>/dev/null || true
        # shellcheck disable=SC2086
        if ! wait_gone 5 $rest; then
            # shellcheck disable=SC2086
            kill -s KILL $rest 2>/dev/null || true
            # shellcheck disable=SC2086
            wait_gone 5 $rest || die "processes $rest survived SIGKILL"
        fi
    fi
}

# Written as soon as the server exists, so a failed start can still stop it.
record_pid() {
    SERVER_PID=$1
    echo "$SERVER_PID" >"$STATE_DIR/server.pid"
}

remove_state() {
    local d
    if [[ -f $STATE_DIR/extra-dirs ]]; then
        while read -r d; do
            [[ -n $d ]] && rm -rf -- "$d"
        done <"$STATE_DIR/extra-dirs"
    fi
    rm -rf -- "$STATE_DIR"
}

# ---- state directory -----------------------------------------------------

set_state_dir() {
    [[ -n ${1:-} ]] || usage
    STATE_DIR=$(realpath -m -- "$1")
    # The path ends up in SQL literals, server options and engine.env.
    [[ $STATE_DIR =~ ^[A-Za-z0-9_./+@-]+$ ]] ||
        die "state directory path '$STATE_DIR' has blanks or special characters"
    case $STATE_DIR in
    / | /bin | /boot | /dev | /etc | /home | /lib | /opt | /proc | /root | /run | /sbin | /srv | /sys | /tmp | /usr | /var)
        die "refusing to use $STATE_DIR as a state directory"
        ;;
    esac
}

# Name of the engine that made STATE_DIR (empty when unknown).
state_engine() {
    cat "$STATE_DIR/$MARKER" 2>/dev/null || true
}

# Another engine's state directory is handed to that engine's script.
stop_other_engine() {
    local other=$1
    [[ -f $ENGINE_SCRIPTS/$other.sh ]] || die "$STATE_DIR belongs to unknown engine '$other'"
    bash "$ENGINE_SCRIPTS/$other.sh" stop "$STATE_DIR"
}

cmd_stop() {
    set_state_dir "${1:-}"
    [[ -e $STATE_DIR ]] || return 0
    [[ -d $STATE_DIR ]] || die "$STATE_DIR is not a directory"
    if [[ ! -f $STATE_DIR/$MARKER ]]; then
        if [[ -z $(ls -A "$STATE_DIR") ]]; then
            rmdir -- "$STATE_DIR"
            return 0
        fi
        die "$STATE_DIR was not made by this script; leaving it alone"
    fi
    local other
    other=$(state_engine)
    if [[ -n $other && $other != "$ENGINE" ]]; then
        stop_other_engine "$other"
        return 0
    fi
    kill_server
    remove_state
}

write_env() {
    local tmp=$STATE_DIR/engine.env.tmp
    (
        umask 077
        cat >"$tmp" <<EOF
VD_ENGINE_DRIVER=$DRIVER
VD_ENGINE_HOST=127.0.0.1
VD_ENGINE_PORT=$PORT
VD_ENGINE_DATABASE=$DATABASE
VD_ENGINE_USER=$TEST_USER
VD_ENGINE_PASSWORD=$TEST_PASSWORD
EOF
    )
    mv -f -- "$tmp" "$STATE_DIR/engine.env"
}

on_start_exit() {
    local rc=$?
    if ((rc != 0)); then
        # Leave the logs for a look; stop removes them.
        kill_server || true
        echo "$ENGINE: start failed; logs kept in $STATE_DIR" >&2
    fi
    exit "$rc"
}

cmd_start() {
    local attempt other
    set_state_dir "${1:-}"
    if [[ -e $STATE_DIR ]]; then
        [[ -d $STATE_DIR ]] || die "$STATE_DIR exists and is not a directory"
        if [[ -f $STATE_DIR/$MARKER ]]; then
            # Left over from an earlier run that was never stopped.
            other=$(state_engine)
            if [[ -n $other && $other != "$ENGINE" ]]; then
                stop_other_engine "$other"
            else
                kill_server
                remove_state
            fi
        elif [[ -n $(ls -A "$STATE_DIR") ]]; then
            die "$STATE_DIR is not empty and was not made by this script; not touching it"
        fi
    fi
    mkdir -p -- "$STATE_DIR"
    echo "$ENGINE" >"$STATE_DIR/$MARKER"
    trap on_start_exit EXIT

    TEST_PASSWORD=$(make_password)
    engine_prepare
    for attempt in 1 2 3 4 5; do
        PORT=$(pick_port) || die "no free TCP port found"
        PORT_TAKEN=0
        SERVER_PID=""
        engine_launch "$PORT"
        ((PORT_TAKEN)) || break
        echo "$ENGINE: port $PORT was taken meanwhile (attempt $attempt), trying another" >&2
        kill_server
    done
    ((PORT_TAKEN == 0)) || die "gave up after 5 ports were taken"
    [[ -n $SERVER_PID ]] || die "internal error: no server pid"
    engine_provision
    write_env
    trap - EXIT
    echo "$ENGINE: 127.0.0.1:$PORT pid $SERVER_PID"
}

engine_main() {
    ENGINE_SCRIPTS=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
    case ${1:-} in
    start) cmd_start "${2:-}" ;;
    stop) cmd_stop "${2:-}" ;;
    *) usage ;;
    esac
}
