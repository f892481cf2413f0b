# Sourced by the commands at the top of the tree: one step after the other, quiet when all is well.

# The log of the step of that title; what stands in brackets at its end is for people only.
logName() {
    printf '%s.log' "$(printf '%s' "${1%% (*}" | tr -cs 'A-Za-z0-9' '-')"
}

# step TITLE COMMAND…: runs the command with its output in build/log. A line shows the step's progress while it
# takes long, and how it ended. A step that ends with 77 was left out and says why; a failed one shows the end of its
# output and ends the whole.
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

# Waits for a process, with the last line of its log beside the title: all the time on a terminal, once a minute
# where nobody looks.
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

# Homebrew's packages where CMake looks for them, its clang tools on the path.
useHomebrew() {
    CMAKE_PREFIX_PATH=$(brew --prefix)
    PATH=$PATH:$(brew --prefix)/opt/llvm/bin
    export CMAKE_PREFIX_PATH PATH
}
