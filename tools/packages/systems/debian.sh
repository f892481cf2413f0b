# Debian, Ubuntu and their like.
tools="apt-get dpkg-query"

record() {
    echo /var/lib/dpkg/status
}

installedPackages() {
    dpkg-query -W -f '${db:Status-Status} ${Package}\n' | sed -n 's/^installed //p'
}

offeredPackages() {
    [ $# = 0 ] || apt-cache policy "$@" 2>/dev/null |
        awk '/^[^ ]/ { name = $1 } $1 == "Candidate:" && $2 != "(none)" { sub(":$", "", name); print name }'
}

refreshSources() {
    asRoot apt-get update -q
}

installPackages() {
    asRoot env DEBIAN_FRONTEND=noninteractive apt-get install -y -q --no-install-recommends "$@"
}
