# Sourced by the checks: which sources there are, and which of them changed.

sources() {
    git ls-files --cached --others --exclude-standard -- "$@" | while read -r file; do
        [ ! -f "$file" ] || printf '%s\n' "$file"
    done
}

# The C++ files that differ from what has landed, those that are not committed first. Where nothing does, as in a fresh
# clone, those of the newest commits, up to four: all are checked by `./test --all`.
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

# For each name read: the file itself when it is compiled, or the compiled files of a header's name.
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
