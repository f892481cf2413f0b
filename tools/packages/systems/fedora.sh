# Fedora and its like.
tools="dnf rpm"

record() {
    echo "$(rpm --eval '%_dbpath')/rpmdb.sqlite"
}

installedPackages() {
    rpm -qa --qf '%{NAME}\n'
}

refreshSources() {
    asRoot dnf makecache
}

installPackages() {
    asRoot dnf install -y --setopt=install_weak_deps=False "$@"
}
