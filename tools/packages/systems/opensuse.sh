# openSUSE.
tools="zypper rpm"

record() {
    echo "$(rpm --eval '%_dbpath')/rpmdb.sqlite"
}

installedPackages() {
    rpm -qa --qf '%{NAME}\n'
}

refreshSources() {
    asRoot zypper --non-interactive refresh
}

installPackages() {
    asRoot zypper --non-interactive install --no-recommends "$@"
}
