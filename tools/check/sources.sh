# Sourced by the checks: which sources there are, and which of them changed.

sources() {
    git ls-files --cached --others --exclude-standard -- "$@" | while read -r file; do
        [ ! -f "$file" ] || printf '%s\n' "$file"
    done
}

# Prints the C++ files that differ from the main branch, uncommitted ones first. If none differs, as in a fresh clone,
# prints up to four files of the newest commits; `./test --all` checks all files.
changedSources() {
    local base
    base=$(git merge-base HEAD origin/main 2>/dev/null || git rev-parse -q --verify 'HEAD~1' || true)
    {
        git ls-files --others --exclude-standard -- '*.cpp' '*.h'
        git diff --name-only HEAD -- '*.cpp' '*.h'
        [ -z "$base" ] || git diff --name-only "$base" -- '*.cpp' '*.h'
    } | awk '!seen[$0]++' >build/log/changed
    if [ ! -s build/log/changed ]; then
        git log --format= --name-only -n 20 -- '*.cpp' '*.h' | awk '!seen[$0]++ && ++count <= 4' >build/log/changed
    fi
    cat build/log/changed
}

# For each file name on the standard input prints the name itself if it is compiled, or the compiled files that are
# named after a header.
compiledSources() {
    local file stem
    while read -r file; do
        [ -f "$file" ] || continue
        case $file in
        *.cpp) printf '%s\n' "$file" ;;
        *.h)
            stem=$(basename "$file" .h)
            sources "*/$stem.cpp" "*/${stem}Linux.cpp" "*/${stem}Test.cpp"
            ;;
        esac
    done | awk '!seen[$0]++'
}
