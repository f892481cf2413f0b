# Arch Linux and its like.
tools="pacman"

record() {
    echo /var/lib/pacman/local
}

installedPackages() {
    pacman -Qq
}

# A refresh without an upgrade makes the next installation a partial upgrade, which Arch does not support.
refreshSources() {
    asRoot pacman -Syu --noconfirm
}

installPackages() {
    asRoot pacman -S --needed --noconfirm "$@"
}
