# Arch Linux and its like.
tools="pacman"

record() {
    echo /var/lib/pacman/local
}

installedPackages() {
    pacman -Qq
}

# Reading the sources anew without upgrading leaves a system that Arch does not support.
refreshSources() {
    asRoot pacman -Syu --noconfirm
}

installPackages() {
    asRoot pacman -S --needed --noconfirm "$@"
}
