# macOS with Homebrew.
tools="brew"

record() {
    brew --cellar
}

installedPackages() {
    brew list --formula -1
}

offeredPackages() {
    brew formulae
}

refreshSources() {
    brew update
}

installPackages() {
    brew install "$@"
}
