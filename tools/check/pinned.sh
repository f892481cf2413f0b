# Sourced by the checks that are written for one version of a tool: another formats and warns in its own way.
pinnedVersion=16

# pinnedTool NAME: the command of that version. Where it is not here, ends with 77, which the commands and the tests
# take for "skipped", and says so.
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
