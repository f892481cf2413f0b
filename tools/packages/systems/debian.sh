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

# By default apt tries each file four times, with pauses, if there is no network. install retries once after a refresh.
aptGet() {
    asRoot env DEBIAN_FRONTEND=noninteractive apt-get -y -q -oAcquire::Retries=0 -oAcquire::http::Timeout=10 \
        -oAcquire::https::Timeout=10 "$@"
}

refreshSources() {
    aptGet update
}

installPackages() {
    aptGet install --no-install-recommends "$@"
}
