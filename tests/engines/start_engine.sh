#!/usr/bin/env bash
# Setup step of an engine's CTest fixture: starts the private server, then has the engine's
# test executable create the suite's schema in it once (the tests run one process each).
#   start_engine.sh SERVER_SCRIPT STATE_DIR TEST_EXECUTABLE
set -euo pipefail

script=$1 state=$2 tests=$3

bash "$script" start "$state"
VD_ENGINE_ENV=$state/engine.env "$tests" --vd-create-schema
