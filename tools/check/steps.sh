# Sourced by the commands at the top of the tree: runs their steps one after the other, with little output on success.

# Prints the name of the log of a step with that title. A remark in parentheses at the end of the title is left out.
logName() {
    printf '%s.log' "$(printf '%s' "${1%% (*}" | tr -cs 'A-Za-z0-9' '-')"
}

# step TITLE COMMAND…: runs the command with its output in build/log, and shows the progress and the result of a long
# step in one line. A step that exits with 77 was skipped, and the last line of its output says why. A failed step shows
# the end of its output and exits the script.
step() {
    local title=$1 log started status=0
    shift
    mkdir -p build/log
    log=build/log/$(logName "$title")
    started=$SECONDS
    "$@" >"$log" 2>&1 </dev/null &
    watchStep "$title" $! "$log" || status=$?
    if [ "$status" = 77 ]; then
        echo "– ${title%% (*} $(tail -n 1 "$log")"
    elif [ "$status" != 0 ]; then
        echo "✗ ${title%% (*} ($((SECONDS - started)) s); the whole is in $log, its end:"
        tail -n "${STEP_TAIL:-40}" "$log"
        exit "$status"
    elif [ -n "${STEP_REPORT:-}" ] || [ $((SECONDS - started)) -ge 2 ]; then
        echo "✓ ${title%% (*} ($((SECONDS - started)) s)"
    fi
}

# Waits for a process, and meanwhile shows the title and the last line of the log: continuously on a terminal, otherwise
# once a minute.
watchStep() {
    local title=$1 process=$2 log=$3 ticks=0 status=0 line
    while kill -0 "$process" 2>/dev/null; do
        if [ -t 1 ] && [ $ticks -ge 5 ]; then
            line=$(tail -c 400 "$log" | tr '\r' '\n' | tail -n 1)
            printf '\r\033[K%.*s' "$(($(tput cols 2>/dev/null || echo 80) - 1))" "… $title: $line"
        elif [ $((ticks % 600)) = 599 ]; then
            printf '… %s: %s\n' "$title" "$(tail -n 1 "$log" | cut -c 1-140)"
        fi
        ticks=$((ticks + 1))
        sleep 0.1
    done
    [ ! -t 1 ] || printf '\r\033[K'
    wait "$process" || status=$?
    return $status
}

# Lets CMake find Homebrew's packages, and adds its clang tools to the path.
useHomebrew() {
    CMAKE_PREFIX_PATH=$(brew --prefix)
    PATH=$PATH:$(brew --prefix)/opt/llvm/bin
    export CMAKE_PREFIX_PATH PATH
}
