# Sourced by the checks that need one version of a tool: other versions format and warn differently.
pinnedVersion=16

# pinnedTool NAME: prints the command of that version. If it is not installed, says so and exits with 77, which the
# commands and the tests take for "skipped".
pinnedTool() {
    local tool
    for tool in "$1-$pinnedVersion" "$1"; do
        if command -v "$tool" >/dev/null && [[ $("$tool" --version) == *"version $pinnedVersion."* ]]; then
            printf '%s\n' "$tool"
            return
        fi
    done
    echo "left out: $1 $pinnedVersion is not here" >&2
    exit 77
}
